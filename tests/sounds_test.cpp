// The shipped wave files: each one the program plays exists in a format that any player reads, and none is
// cut, silent, distorted or much louder or quieter than the others.
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
    std::string fault;   // why it can't be read
    double rate = 1;
    std::vector<double> samples = {};   // -1 to 1
};

std::uint32_t number(const std::string& bytes, std::size_t at, std::size_t size)
{
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes.at(at + i));
    return value;
}

// Accepts only the simplest kind of wave file: 16 bits, mono, one chunk of samples.
sound read_sound(const std::string& name)
{
    std::ifstream file(VORN_SOURCE_DIR "/data/ranges/wavs/" + name + ".wav", std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (bytes.size() < 46) return {"missing"};
    const auto at = [&](std::size_t i, std::size_t size) { return number(bytes, i, size); };
    const std::uint32_t rate = at(24, 4);
    const bool simple = bytes.starts_with("RIFF") && bytes.substr(8, 8) == "WAVEfmt " &&
                        bytes.substr(36, 4) == "data" && at(16, 4) == 16 && at(20, 2) == 1 &&
                        at(22, 2) == 1 && at(28, 4) == rate * 2 && at(32, 2) == 2 && at(34, 2) == 16;
    if (!simple || (rate != 16000 && rate != 22050 && rate != 44100)) return {"an unusual format"};
    if (at(4, 4) + 8 != bytes.size() || at(40, 4) + 44 != bytes.size()) return {"wrong length"};
    sound s{"", static_cast<double>(rate)};
    for (std::size_t i = 44; i + 1 < bytes.size(); i += 2)
        s.samples.push_back(static_cast<std::int16_t>(at(i, 2)) / 32768.0);
    return s;
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

// The mean power of each block of 20 ms.
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

TEST_P(shipped_sound, is_complete_and_starts_at_once_at_a_usual_level)
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

// Also finds a file that was copied under a second name.
TEST(crew, each_call_differs_and_ends_before_the_next)
{
    std::vector<std::vector<double>> calls;
    for (const std::string& name : spoken) {
        const sound s = read_sound(name);
        const std::vector<double> powers = blocks(s);
        EXPECT_LE(seconds_of_silence(powers.rbegin(), powers.rend()), .081) << name;
        EXPECT_LT(seconds(s), 3) << name << " is longer than the gun waits for it";
        calls.push_back(s.samples);
    }
    std::sort(calls.begin(), calls.end());
    EXPECT_EQ(std::adjacent_find(calls.begin(), calls.end()), calls.end());
}

TEST(coax, plays_without_gaps_for_eight_seconds)
{
    const sound s = read_sound("coax");
    ASSERT_GE(seconds(s), 8);
    const auto step = static_cast<std::size_t>(s.rate / 5);   // more than two rounds
    for (std::size_t at = 0; at < static_cast<std::size_t>(8 * s.rate); at += step)
        EXPECT_GT(decibels(std::sqrt(power(s.samples, at, at + step))), -25)
            << static_cast<double>(at) / s.rate;
}

}   // namespace
