#include "platform/desktop/devices/sound.h"

#define SDL_MAIN_HANDLED
#include <SDL.h>

#include <QByteArray>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>

#include "platform/files.h"

namespace vorn {

namespace {

// The channel's own format; SDL converts it to that of the device.
constexpr int rate = 44100;       // Hz
constexpr int sample_bytes = 2;   // one 16-bit sample
// Limits for a file that may be damaged.
constexpr std::uintmax_t max_file_size = 32'000'000;           // bytes
constexpr int min_file_rate = 1000, max_file_rate = 400'000;   // Hz
constexpr double max_duration = 600;   // seconds; the largest file could last for hours at a low rate

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
    format.samples = 512;   // a latency of 12 ms: a shot is heard with its flash
    return format;
}

void ignore_alsa_error(const char*, int, const char*, int, const char*, ...) {}

// Without a sound card ALSA would print its errors to the terminal at each attempt.
void silence_alsa()
{
    void* library = SDL_LoadObject("libasound.so.2");   // null without ALSA
    void* set = library == nullptr ? nullptr : SDL_LoadFunction(library, "snd_lib_error_set_handler");
    if (set != nullptr) reinterpret_cast<int (*)(decltype(&ignore_alsa_error))>(set)(ignore_alsa_error);
}

struct stream_closer {
    void operator()(SDL_AudioStream* s) const { SDL_FreeAudioStream(s); }
};

// Converts samples to the channel's format. Returns no samples if that fails.
QByteArray converted(const SDL_AudioSpec& from, const Uint8* bytes, Uint32 size)
{
    const std::unique_ptr<SDL_AudioStream, stream_closer> stream(
        SDL_NewAudioStream(from.format, from.channels, from.freq, AUDIO_S16SYS, 1, rate));
    if (!stream || SDL_AudioStreamPut(stream.get(), bytes, static_cast<int>(size)) != 0) return {};
    SDL_AudioStreamFlush(stream.get());
    const int available = std::max(0, SDL_AudioStreamAvailable(stream.get()));
    QByteArray samples(available, Qt::Uninitialized);
    const int got = SDL_AudioStreamGet(stream.get(), samples.data(), available);
    samples.truncate(std::max(0, got) / sample_bytes * sample_bytes);
    return samples;
}

bool is_usable(const SDL_AudioSpec& format, Uint32 size)
{
    const double bytes_per_second =
        static_cast<double>(format.freq) * format.channels * (SDL_AUDIO_BITSIZE(format.format) / 8.0);
    return format.freq >= min_file_rate && format.freq <= max_file_rate && format.channels <= 8 &&
           size <= bytes_per_second * max_duration;
}

QByteArray read_wave(const std::string& file)
{
    std::error_code failed;
    const std::filesystem::path path = from_utf8(file);
    if (!std::filesystem::is_regular_file(path, failed) ||
        std::filesystem::file_size(path, failed) > max_file_size)
        return {};
    SDL_AudioSpec format{};
    Uint8* bytes = nullptr;
    Uint32 size = 0;
    if (SDL_LoadWAV(file.c_str(), &format, &bytes, &size) == nullptr) return {};
    const QByteArray samples = is_usable(format, size) ? converted(format, bytes, size) : QByteArray();
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

// True if a working device is open. A device that was disconnected is replaced.
bool sound_channel::open_device()
{
    if (device_ != 0 && SDL_GetAudioDeviceStatus(device_) != SDL_AUDIO_STOPPED) return true;
    close_device();
    if (seconds_now() < retry_at_) return false;
    retry_at_ = seconds_now() + retry_seconds;
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");   // SDL must not handle the signals that end the program
    if (SDL_WasInit(SDL_INIT_AUDIO) == 0) {
        silence_alsa();
        if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
    }
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
    const QByteArray samples = read_wave(file);
    if (samples.isEmpty() || !open_device()) return;
    if (SDL_QueueAudio(device_, samples.constData(), static_cast<Uint32>(samples.size())) != 0)
        close_device();
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
