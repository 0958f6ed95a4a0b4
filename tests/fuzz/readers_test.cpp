// Runs each fuzz target on its seed files, also where there is no libFuzzer.
#include <gtest/gtest.h>

#include <filesystem>

#include "data_folder.h"
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
            target(bytes_of(entry.path()));
            seeds += 1;
        }
        EXPECT_GE(seeds, 2) << name;
    }
}

}   // namespace
}   // namespace vorn
