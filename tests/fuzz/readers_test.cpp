// Runs each fuzz target on randomly damaged seed files, also where there is no libFuzzer.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <vector>

#include "targets.h"

namespace vorn {
namespace {

struct reader {
    const char* name;   // also the folder of its seeds
    void (*target)(const std::string&);
    int runs;
};

std::vector<std::string> seeds_of(const reader& r)
{
    std::vector<std::string> all{""};
    for (const auto& entry :
         std::filesystem::directory_iterator(VORN_SOURCE_DIR "/tests/fuzz/seeds/" + std::string(r.name))) {
        std::ifstream in(entry.path(), std::ios::binary);
        all.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    return all;
}

std::string damaged(std::string b, std::minstd_rand& random)
{
    static const std::vector<std::string> tokens{
        "#TRUE#", "#FALSE#", "\"", "\r\n", ",", "-1", "99999999999", "-32768", "4", std::string(1, '\0'),
        "\xe4",   "\xc3\xa4"};
    for (auto n = 1 + random() % 4; n > 0; --n) {
        const std::size_t at = random() % (b.size() + 1);
        switch (random() % 4) {
            case 0:
                b.resize(at);
                break;
            case 1:
                b.insert(at, tokens[random() % tokens.size()]);
                break;
            case 2:
                b.erase(at, 1 + random() % 8);
                break;
            default:
                if (at < b.size()) b[at] = static_cast<char>(random() % 256);
        }
    }
    return b;
}

struct file_reader : testing::TestWithParam<reader> {};
INSTANTIATE_TEST_SUITE_P(all, file_reader,
                         testing::Values(reader{"items", fuzz_items, 20000},
                                         reader{"range", fuzz_range, 20000},
                                         reader{"practice", fuzz_practice, 1500},
                                         reader{"results", fuzz_results, 3000}),
                         [](const auto& i) { return i.param.name; });

TEST_P(file_reader, survives_damaged_files)
{
    const std::vector<std::string> seeds = seeds_of(GetParam());
    ASSERT_GE(seeds.size(), 3U);
    for (const std::string& s : seeds) GetParam().target(s);
    std::minstd_rand random(7);
    for (int i = 0; i < GetParam().runs; ++i)
        GetParam().target(damaged(seeds[random() % seeds.size()], random));
}

}   // namespace
}   // namespace vorn
