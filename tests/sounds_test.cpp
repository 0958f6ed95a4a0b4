// The wave files that the trainer ships with: every one it asks for is there, any player can read it, and
// none is cut, silent, distorted or out of balance with the rest.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace {

const std::vector<std::string> spoken = {
    "action",    "fin1",      "hesh1",      "coaxon1",    "on",       "onlaze",  "on600",
    "on800",     "on900",     "on1000",     "on1100",     "on1200",   "on1300",  "on1400",
    "on1500",    "on1600",    "on1700",     "on1800",     "on2000",   "loaded",  "loadfire",
    "selectfin", "selechesh", "selectcoax", "targetstop", "deselect", "cleargun"};
const std::vector<std::string> effects = {"fire", "coax", "explode", "explode1"};

std::vector<std::string> all_sounds()
{
    std::vector<std::string> names = spoken;
    names.insert(names.end(), effects.begin(), effects.end());
    return names;
}

struct sound {
    std::string fault;   // why it can't be played
    double rate = 1;
    std::vector<double> samples = {};   // -1 to 1
};

std::uint32_t number(const std::string& bytes, std::size_t at, std::size_t size)
{
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes.at(at + i));
    return value;
}

std::string fault_of_format(const std::string& bytes, std::size_t at)
{
    const std::uint32_t rate = number(bytes, at + 4, 4);
    if (number(bytes, at, 2) != 1) return "not PCM";
    if (number(bytes, at + 2, 2) != 1 || number(bytes, at + 14, 2) != 16) return "not mono of 16 bits";
    if (number(bytes, at + 8, 4) != rate * 2 || number(bytes, at + 12, 2) != 2) return "contradicts itself";
    return rate == 16000 || rate == 22050 || rate == 44100 ? "" : "an unusual rate";
}

// Walks the chunks, so that a wrong length anywhere leads astray here as it does in a player.
sound parsed(const std::string& bytes)
{
    sound s;
    if (bytes.size() < 44 || !bytes.starts_with("RIFF") || bytes.substr(8, 4) != "WAVE")
        return {"no wave file"};
    if (number(bytes, 4, 4) + 8 != bytes.size()) return {"its length is not what it says"};
    std::size_t at = 12;
    while (at + 8 <= bytes.size()) {
        const std::string kind = bytes.substr(at, 4);
        const std::size_t length = number(bytes, at + 4, 4);
        at += 8;
        if (length > bytes.size() - at) return {"cut off in the chunk " + kind};
        if (kind == "fmt ") {
            if (length < 16) return {"short format"};
            s.fault = fault_of_format(bytes, at);
            s.rate = number(bytes, at + 4, 4);
        }
        for (std::size_t i = at; kind == "data" && i + 1 < at + length; i += 2)
            s.samples.push_back(static_cast<std::int16_t>(number(bytes, i, 2)) / 32768.0);
        at += length + length % 2;
    }
    if (at != bytes.size() || s.samples.empty()) s.fault += " no whole chunks";
    return s;
}

sound read_sound(const std::string& name)
{
    std::ifstream file(VORN_SOURCE_DIR "/data/ranges/wavs/" + name + ".wav", std::ios::binary);
    return parsed({std::istreambuf_iterator<char>(file), {}});
}

double decibels(double amplitude)
{
    return 20 * std::log10(std::max(amplitude, 1e-9));
}

double power(const std::vector<double>& samples, std::size_t from, std::size_t to)
{
    double sum = 0;
    for (std::size_t i = from; i < to; ++i) sum += samples[i] * samples[i];
    return sum / static_cast<double>(to - from);
}

constexpr double blocks_a_second = 50;

// The mean power of each fiftieth of a second.
std::vector<double> blocks(const sound& s)
{
    const auto length = static_cast<std::size_t>(s.rate / blocks_a_second);
    std::vector<double> powers;
    for (std::size_t at = 0; at + length <= s.samples.size(); at += length)
        powers.push_back(power(s.samples, at, at + length));
    return powers;
}

bool audible(double block)
{
    return decibels(std::sqrt(block)) > -35;
}

double seconds_of_silence(auto first, auto last)
{
    return static_cast<double>(std::find_if(first, last, audible) - first) / blocks_a_second;
}

double seconds(const sound& s)
{
    return static_cast<double>(s.samples.size()) / s.rate;
}

class shipped_sound : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(all, shipped_sound, testing::ValuesIn(all_sounds()),
                         [](const auto& name) { return name.param; });

TEST_P(shipped_sound, is_whole_and_starts_at_once_and_at_a_fit_level)
{
    const sound s = read_sound(GetParam());
    ASSERT_EQ(s.fault, "");
    EXPECT_TRUE(seconds(s) > .25 && seconds(s) < 15) << seconds(s);
    const auto [lowest, highest] = std::minmax_element(s.samples.begin(), s.samples.end());
    const double peak = decibels(std::max(-*lowest, *highest));
    EXPECT_TRUE(peak <= -1 && peak >= -12) << peak;
    const std::vector<double> powers = blocks(s);
    EXPECT_LE(seconds_of_silence(powers.begin(), powers.end()), .081);
}

// A mix-up of files or words shows in this too: each call is a recording of its own.
TEST(crew, says_something_else_in_each_file_and_ends_before_the_next_line)
{
    std::vector<std::vector<double>> calls;
    for (const std::string& name : spoken) {
        const sound s = read_sound(name);
        const std::vector<double> powers = blocks(s);
        EXPECT_LE(seconds_of_silence(powers.rbegin(), powers.rend()), .081) << name;
        EXPECT_LT(seconds(s), 3) << name << " is longer than the guns wait for it";
        calls.push_back(s.samples);
    }
    std::sort(calls.begin(), calls.end());
    EXPECT_EQ(std::adjacent_find(calls.begin(), calls.end()), calls.end());
}

TEST(coax, fires_without_a_break_for_as_long_as_a_trigger_is_held)
{
    const sound s = read_sound("coax");
    ASSERT_GE(seconds(s), 8);
    const auto step = static_cast<std::size_t>(s.rate / 5);   // two rounds and more
    for (std::size_t at = 0; at < static_cast<std::size_t>(8 * s.rate); at += step)
        EXPECT_GT(decibels(std::sqrt(power(s.samples, at, at + step))), -25)
            << static_cast<double>(at) / s.rate;
}

}   // namespace
