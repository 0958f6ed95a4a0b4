// The user's copy of the installed data.
#include "platform/desktop/data_directory.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <chrono>
#include <fstream>
#include <sstream>

namespace vorn {
namespace {

namespace fs = std::filesystem;

struct data_places : testing::Test {
    QTemporaryDir temporary;
    const fs::path folder = temporary.path().toStdString();
    const fs::path installed = folder / "installed", own = folder / "own";
    const fs::path from = installed / "ranges", to = own / "ranges";

    data_places()
    {
        put(from / "visualrange.arf", "range");
        put(from / "target icons/target1.ico", "icon");
    }
    static void put(const fs::path& file, const std::string& text)
    {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << text;
    }
    static std::string get(const fs::path& file)
    {
        std::ostringstream text;
        text << std::ifstream(file).rdbuf();
        return text.str();
    }
};

TEST_F(data_places, the_data_is_found_beside_the_program_at_its_usual_place_or_in_the_sources)
{
    const fs::path tree = folder / "tree";
    const auto used = [&](const fs::path& program, const fs::path& usual) {
        return find_data(program, usual, own).used;
    };
    put(tree / "data/ranges/visualrange.arf", "range");
    EXPECT_EQ(used(installed, tree / "none"), installed);
    EXPECT_FALSE(fs::exists(own)) << "writable data is not copied";
    EXPECT_EQ(used(tree / "build/release", installed), installed);
    EXPECT_EQ(used(tree / "build/release", tree / "none"), tree / "data");
    EXPECT_EQ(used(folder, tree / "none"), tree / "none") << "no data: the user will be asked";
    EXPECT_EQ(find_data(installed, folder, own).installed, installed);
    put(installed / "uninstall.exe", "");
    EXPECT_EQ(used(installed, folder), own) << "the files belong to an installer";
    EXPECT_EQ(get(to / "visualrange.arf"), "range");
}

TEST_F(data_places, twins_are_not_copied_but_found_where_they_are_installed)
{
    put(from / "valley.vrp", "picture");
    put(from / "valley@2x.vrp", "twin");
    ASSERT_TRUE(fill_directory(from, to));
    const std::string copy = (to / "valley.vrp").string();
    EXPECT_FALSE(fs::exists(to / "valley@2x.vrp"));
    EXPECT_EQ(folder_of_same_file(installed, copy).toStdString(), from.string());
    put(copy, "another");
    EXPECT_TRUE(folder_of_same_file(installed, copy).isEmpty()) << "the user's own picture";
}

TEST_F(data_places, missing_files_are_copied_and_changed_ones_kept)
{
    fs::permissions(from / "visualrange.arf", fs::perms::owner_read);
    ASSERT_TRUE(fill_directory(from, to));
    EXPECT_EQ(get(to / "target icons/target1.ico"), "icon");
    put(to / "visualrange.arf", "the user's");
    put(to / "smith.vrn", "record");
    fs::remove(to / "target icons/target1.ico");
    ASSERT_TRUE(fill_directory(from, to));
    EXPECT_EQ(get(to / "visualrange.arf"), "the user's");
    EXPECT_EQ(get(to / "smith.vrn"), "record");
    EXPECT_EQ(get(to / "target icons/target1.ico"), "icon");
}

TEST_F(data_places, an_update_replaces_unchanged_files_except_ranges)
{
    const char* const names[] = {"vorn.HLP", "wavs/fire.wav", "target icons/target1.ico", "visualrange.arf"};
    const auto install = [&](const char* text, std::chrono::hours age) {
        for (const char* name : names) {
            put(from / name, text);
            fs::last_write_time(from / name, fs::file_time_type::clock::now() - age);
        }
        ASSERT_TRUE(fill_directory(from, to));
    };
    install("first", std::chrono::hours(100));
    put(to / "wavs/fire.wav", "the user's");
    fs::remove(to / "target icons/target1.ico");
    const fs::path temporary_file = to / "wavs/fire.wav.77.part", rounded_time = to / "vorn.HLP";
    const fs::path practice = to / "monday.part";
    for (const fs::path& file : {temporary_file, practice}) {
        put(file, "half");
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(30));
    }
    fs::last_write_time(rounded_time, fs::last_write_time(rounded_time) + std::chrono::seconds(1));
    install("second", std::chrono::hours(50));
    EXPECT_FALSE(fs::exists(temporary_file)) << "left by a killed program";
    EXPECT_TRUE(fs::exists(practice)) << "a file of the user";
    EXPECT_EQ(get(to / "vorn.HLP"), "second");
    EXPECT_EQ(get(to / "wavs/fire.wav"), "the user's");
    EXPECT_EQ(get(to / "target icons/target1.ico"), "second");
    EXPECT_EQ(get(to / "visualrange.arf"), "first")
        << "ranges and their pictures stay: the user may have made other ranges on the pictures";
    install("third", std::chrono::hours(70));   // a downgrade
    EXPECT_EQ(get(to / "vorn.HLP"), "third");
    EXPECT_EQ(get(to / "wavs/fire.wav"), "the user's");
    put(to / ".copied", "not a list");
    install("fourth", std::chrono::hours(1));
    EXPECT_EQ(get(to / "vorn.HLP"), "third") << "the file may have been changed by the user";
}

TEST_F(data_places, an_incomplete_copy_is_reported_and_used_only_if_it_was_complete)
{
    put(own, "a file in the way");
    EXPECT_FALSE(fill_directory(from, to));
    EXPECT_FALSE(fill_directory(folder / "nothing", to));
    EXPECT_EQ(data_directory(folder / "nothing", own), folder / "nothing");
    fs::remove(own);
    put(to / "wavs", "a file in the way of a folder");
    put(from / "wavs/fire.wav", "sound");
    EXPECT_FALSE(fill_directory(from, to));
    EXPECT_EQ(data_directory(folder / "nothing", own), folder / "nothing") << "the copy was never complete";
    fs::remove(to / "wavs");
    ASSERT_TRUE(fill_directory(from, to));
    EXPECT_EQ(data_directory(folder / "nothing", own), own) << "the user's saved files are there";
}

}   // namespace
}   // namespace vorn
