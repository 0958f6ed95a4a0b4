#include "platform/desktop/devices/sound.h"

#define SDL_MAIN_HANDLED
#include <SDL.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>

namespace vorn {

namespace {

// What the channel plays; SDL turns it into what the device wants.
constexpr int rate = 44100;
constexpr int sample_bytes = 2;   // one 16-bit sample
constexpr std::uintmax_t largest_wave = 32'000'000;
constexpr int slowest_wave = 1000, fastest_wave = 400'000;   // samples a second
constexpr double longest_wave = 600;   // seconds; a file of few samples a second says that it lasts for days

double seconds_now()
{
    return static_cast<double>(SDL_GetTicks64()) / 1000;
}

SDL_AudioSpec channel_format()
{
    SDL_AudioSpec format{};
    format.freq = rate;
    format.format = AUDIO_S16SYS;
    format.channels = 1;
    format.samples = 512;   // 12 ms: a shot is heard with its flash
    return format;
}

void say_nothing(const char*, int, const char*, int, const char*, ...) {}

// On a machine without a sound card the library of Linux would fill the terminal with its reasons at each
// try.
void quieten_alsa()
{
    void* library = SDL_LoadObject("libasound.so.2");   // there is none elsewhere
    void* set = library == nullptr ? nullptr : SDL_LoadFunction(library, "snd_lib_error_set_handler");
    if (set != nullptr) reinterpret_cast<int (*)(decltype(&say_nothing))>(set)(say_nothing);
}

struct stream_closer {
    void operator()(SDL_AudioStream* s) const { SDL_FreeAudioStream(s); }
};

std::optional<std::vector<Uint8>> converted(const SDL_AudioSpec& from, const Uint8* bytes, Uint32 size)
{
    const std::unique_ptr<SDL_AudioStream, stream_closer> stream(
        SDL_NewAudioStream(from.format, from.channels, from.freq, AUDIO_S16SYS, 1, rate));
    if (!stream || SDL_AudioStreamPut(stream.get(), bytes, static_cast<int>(size)) != 0) return std::nullopt;
    SDL_AudioStreamFlush(stream.get());
    std::vector<Uint8> out(static_cast<std::size_t>(std::max(0, SDL_AudioStreamAvailable(stream.get()))));
    const int got = SDL_AudioStreamGet(stream.get(), out.data(), static_cast<int>(out.size()));
    if (got <= 0) return std::nullopt;
    out.resize(static_cast<std::size_t>(got / sample_bytes * sample_bytes));
    return out;
}

std::optional<std::vector<Uint8>> wave_of(const std::string& file)
{
    std::error_code failed;
    if (!std::filesystem::is_regular_file(file, failed) ||
        std::filesystem::file_size(file, failed) > largest_wave)
        return std::nullopt;
    SDL_AudioSpec format{};
    Uint8* bytes = nullptr;
    Uint32 size = 0;
    if (SDL_LoadWAV(file.c_str(), &format, &bytes, &size) == nullptr) return std::nullopt;
    const bool sane = format.freq >= slowest_wave && format.freq <= fastest_wave && format.channels <= 8;
    const double bytes_a_second =
        static_cast<double>(format.freq) * format.channels * (SDL_AUDIO_BITSIZE(format.format) / 8.0);
    auto samples =
        sane && size <= bytes_a_second * longest_wave ? converted(format, bytes, size) : std::nullopt;
    SDL_FreeWAV(bytes);
    return samples;
}

}   // namespace

sound_channel::~sound_channel()
{
    close_device();
    if (SDL_WasInit(SDL_INIT_AUDIO) != 0) SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

void sound_channel::close_device()
{
    if (device_ != 0) SDL_CloseAudioDevice(device_);
    device_ = 0;
}

// Has a device that works, opening one when the last has gone.
bool sound_channel::ready()
{
    if (device_ != 0 && SDL_GetAudioDeviceStatus(device_) != SDL_AUDIO_STOPPED) return true;
    close_device();
    if (seconds_now() < retry_at_) return false;
    retry_at_ = seconds_now() + retry_seconds;
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");   // or it would take the signals that end the program
    if (SDL_WasInit(SDL_INIT_AUDIO) == 0) quieten_alsa();
    if (SDL_WasInit(SDL_INIT_AUDIO) == 0 && SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
    const SDL_AudioSpec wanted = channel_format();
    device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device_ == 0) return false;
    retry_at_ = 0;
    SDL_PauseAudioDevice(device_, 0);
    return true;
}

void sound_channel::play(const std::string& file)
{
    stop();
    const auto samples = wave_of(file);
    if (!samples || !ready()) return;
    if (SDL_QueueAudio(device_, samples->data(), static_cast<Uint32>(samples->size())) != 0) close_device();
}

void sound_channel::stop()
{
    if (device_ != 0) SDL_ClearQueuedAudio(device_);
}

bool sound_channel::playing() const
{
    return device_ != 0 && SDL_GetQueuedAudioSize(device_) > 0;
}

}   // namespace vorn
