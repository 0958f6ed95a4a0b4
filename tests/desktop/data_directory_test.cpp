// Where the trainer works when the installed data can't be written.
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

    data_places()
    {
        put(installed / "ranges/visualrange.arf", "range");
        put(installed / "ranges/target icons/target1.ico", "icon");
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

TEST_F(data_places, what_can_be_written_is_used_where_it_is)
{
    EXPECT_EQ(data_directory(installed, own), installed);
    EXPECT_FALSE(fs::exists(own));
}

TEST_F(data_places, a_copy_is_filled_with_what_it_lacks_and_nothing_of_the_users_is_touched)
{
    fs::permissions(installed / "ranges/visualrange.arf", fs::perms::owner_read);
    ASSERT_TRUE(fill_directory(installed / "ranges", own / "ranges"));
    EXPECT_EQ(get(own / "ranges/target icons/target1.ico"), "icon");
    put(own / "ranges/visualrange.arf", "the user's");
    put(own / "ranges/smith.vrn", "record");
    fs::remove(own / "ranges/target icons/target1.ico");
    ASSERT_TRUE(fill_directory(installed / "ranges", own / "ranges"));
    EXPECT_EQ(get(own / "ranges/visualrange.arf"), "the user's");
    EXPECT_EQ(get(own / "ranges/smith.vrn"), "record");
    EXPECT_EQ(get(own / "ranges/target icons/target1.ico"), "icon");
}

TEST_F(data_places, a_new_version_renews_what_the_user_has_left_as_it_came_but_no_range)
{
    const char* const names[] = {"vorn.HLP", "wavs/fire.wav", "target icons/target1.ico", "visualrange.arf"};
    const auto install = [&](const char* text, std::chrono::hours age) {
        for (const char* name : names) {
            put(installed / "ranges" / name, text);
            fs::last_write_time(installed / "ranges" / name, fs::file_time_type::clock::now() - age);
        }
        ASSERT_TRUE(fill_directory(installed / "ranges", own / "ranges"));
    };
    install("first", std::chrono::hours(100));
    put(own / "ranges/wavs/fire.wav", "the user's");
    fs::remove(own / "ranges/target icons/target1.ico");
    const fs::path left_over = own / "ranges/wavs/fire.wav.77.part", kept_roughly = own / "ranges/vorn.HLP";
    const fs::path practice = own / "ranges/monday.part";
    for (const fs::path& file : {left_over, practice}) {
        put(file, "half");
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(30));
    }
    fs::last_write_time(kept_roughly, fs::last_write_time(kept_roughly) + std::chrono::seconds(1));
    install("second", std::chrono::hours(50));
    EXPECT_FALSE(fs::exists(left_over)) << "of a program that was killed";
    EXPECT_TRUE(fs::exists(practice)) << "a name of the user's";
    EXPECT_EQ(get(own / "ranges/vorn.HLP"), "second");
    EXPECT_EQ(get(own / "ranges/wavs/fire.wav"), "the user's");
    EXPECT_EQ(get(own / "ranges/target icons/target1.ico"), "second");
    EXPECT_EQ(get(own / "ranges/visualrange.arf"), "first")
        << "a range of the user's may stand on its picture";
    install("third", std::chrono::hours(70));   // an older build is put back
    EXPECT_EQ(get(own / "ranges/vorn.HLP"), "third");
    EXPECT_EQ(get(own / "ranges/wavs/fire.wav"), "the user's");
    put(own / "ranges/.copied", "not a list");
    install("fourth", std::chrono::hours(1));
    EXPECT_EQ(get(own / "ranges/vorn.HLP"), "third") << "whether it is the user's is not known";
}

TEST_F(data_places, a_place_that_cannot_be_filled_is_told)
{
    put(own, "a file in the way");
    EXPECT_FALSE(fill_directory(installed / "ranges", own / "ranges"));
    EXPECT_FALSE(fill_directory(folder / "nothing", own / "ranges"));
    EXPECT_EQ(data_directory(folder / "nothing", own), folder / "nothing");
    fs::remove(own);
    put(own / "ranges/wavs", "a file in the way of a folder");
    put(installed / "ranges/wavs/fire.wav", "sound");
    EXPECT_FALSE(fill_directory(installed / "ranges", own / "ranges"));
    EXPECT_EQ(data_directory(folder / "nothing", own), folder / "nothing") << "a copy that was never whole";
    fs::remove(own / "ranges/wavs");
    ASSERT_TRUE(fill_directory(installed / "ranges", own / "ranges"));
    EXPECT_EQ(data_directory(folder / "nothing", own), own) << "what the user has saved is there";
}

}   // namespace
}   // namespace vorn
