// Runs each fuzz target on its seed files, also where there is no libFuzzer.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "targets.h"

namespace vorn {
namespace {

TEST(file_readers, take_their_seeds)
{
    const std::pair<const char*, void (*)(const std::string&)> readers[] = {
        {"items", fuzz_items}, {"range", fuzz_range}, {"practice", fuzz_practice}, {"results", fuzz_results}};
    for (const auto& [name, target] : readers) {
        int seeds = 0;
        target("");
        const std::string folder = VORN_SOURCE_DIR "/tests/fuzz/seeds/";
        for (const auto& entry : std::filesystem::directory_iterator(folder + name)) {
            std::ifstream in(entry.path(), std::ios::binary);
            target({std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()});
            seeds += 1;
        }
        EXPECT_GE(seeds, 2) << name;
    }
}

}   // namespace
}   // namespace vorn
