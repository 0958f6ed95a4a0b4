// A short walk of each reader over damaged files: its seeds, cut, changed and spliced with what such files
// are made of. The fuzzers proper go on from here for as long as one lets them.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <vector>

#include "targets.h"

namespace vorn {
namespace {

struct reader {
    const char* name;
    const char* seeds;   // a folder
    void (*target)(const std::string&);
    int tries;
};

std::vector<std::string> seeds_of(const reader& r)
{
    std::vector<std::string> all{""};
    for (const auto& entry :
         std::filesystem::directory_iterator(VORN_SOURCE_DIR "/tests/fuzz/seeds/" + std::string(r.seeds))) {
        std::ifstream in(entry.path(), std::ios::binary);
        all.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    return all;
}

class damage {
public:
    std::string to(std::string bytes)
    {
        for (std::size_t n = 1 + below(4); n > 0; --n) once(bytes);
        return bytes;
    }
    std::size_t below(std::size_t n) { return generator_() % n; }

private:
    void once(std::string& b)
    {
        static const std::vector<std::string> tokens{
            "#TRUE#", "#FALSE#", "\"", "\r\n", ",", "-1", "99999999999", "-32768", "4", std::string(1, '\0'),
            "\xe4",   "\xc3\xa4"};
        const std::size_t at = below(b.size() + 1);
        switch (below(4)) {
            case 0:
                b.resize(at);
                break;
            case 1:
                b.insert(at, tokens[below(tokens.size())]);
                break;
            case 2:
                b.erase(at, 1 + below(8));
                break;
            default:
                if (at < b.size()) b[at] = static_cast<char>(below(256));
        }
    }

    std::minstd_rand generator_{7};
};

struct file_reader : testing::TestWithParam<reader> {};
INSTANTIATE_TEST_SUITE_P(all, file_reader,
                         testing::Values(reader{"items", "items", fuzz_items, 20000},
                                         reader{"range", "range", fuzz_range, 20000},
                                         reader{"practice", "practice", fuzz_practice, 1500},
                                         reader{"results", "results", fuzz_results, 3000}),
                         [](const auto& i) { return i.param.name; });

TEST_P(file_reader, survives_any_damage)
{
    const std::vector<std::string> seeds = seeds_of(GetParam());
    ASSERT_GE(seeds.size(), 3U);
    damage d;
    for (const std::string& s : seeds) GetParam().target(s);
    for (int i = 0; i < GetParam().tries; ++i) GetParam().target(d.to(seeds[d.below(seeds.size())]));
}

}   // namespace
}   // namespace vorn
