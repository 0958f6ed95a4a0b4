// Writing, reading and deleting files, also on a full disk and without permission.
#include "platform/files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "drill.h"

namespace vorn {
namespace {

namespace fs = std::filesystem;

struct at_end {
    std::function<void()> act;
    ~at_end() { act(); }
};

// Limits the size of the files that this process can write.
[[nodiscard]] at_end small_disk(rlim_t bytes)
{
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const rlimit small{bytes, old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    return {[=] {
        setrlimit(RLIMIT_FSIZE, &old);
        std::signal(SIGXFSZ, handler);
    }};
}

// Drops root's permissions, since root can write every file.
[[nodiscard]] at_end unprivileged()
{
    if (geteuid() != 0) return {[] {}};
    EXPECT_EQ(seteuid(65534), 0);
    return {[] { EXPECT_EQ(seteuid(0), 0); }};
}

struct writing : testing::Test {
    data_folder data;
    headless_machine pc;

    writing() { pc.working_directory = from_utf8(data.ranges()); }
    std::size_t files() const
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(data.ranges()), {}));
    }
};

TEST_F(writing, a_full_disk_leaves_the_old_file)
{
    const std::string old(300, 'o'), fresh(5000, 'f');
    data.put("own.vrn", old);
    const std::size_t before = files();
    {
        const at_end disk = small_disk(1000);
        EXPECT_NE(write_file(pc, "own.vrn", fresh), "");
        EXPECT_NE(write_file(pc, "new.vrn", fresh), "");
    }
    EXPECT_EQ(data.get("own.vrn"), old);
    EXPECT_EQ(files(), before) << "no temporary file is left";
    EXPECT_EQ(write_file(pc, "own.vrn", fresh), "");
    EXPECT_EQ(data.get("own.vrn"), fresh);
    EXPECT_EQ(files(), before);
}

TEST_F(writing, links_are_followed_and_only_regular_files_are_replaced)
{
    data.put("real.vrn", "old");
    fs::create_symlink(data.ranges() + "/real.vrn", data.ranges() + "/link.vrn");
    EXPECT_EQ(write_file(pc, "link.vrn", "new"), "");
    EXPECT_TRUE(fs::is_symlink(data.ranges() + "/link.vrn"));
    EXPECT_EQ(data.get("real.vrn"), "new");
    EXPECT_NE(write_file(pc, "target icons", "x"), "");
    EXPECT_TRUE(fs::is_directory(data.ranges() + "/target icons"));
    EXPECT_NE(write_file(pc, "/dev/full", "x"), "");
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_NE(write_file(pc, "no folder/own.vrn", "x"), "");
    ASSERT_EQ(mkfifo((data.ranges() + "/pipe.vrn").c_str(), 0600), 0);
    EXPECT_NE(write_file(pc, "pipe.vrn", "x"), "") << "write_file doesn't wait for a reader";
    fs::create_directory(data.ranges() + "/real.vrn.part");
    data.put("real.vrn.part1", "the user's own");
    fs::create_symlink("nowhere", data.ranges() + "/real.vrn.part2");
    EXPECT_EQ(write_file(pc, "real.vrn", "newer"), "");
    EXPECT_EQ(data.get("real.vrn") + data.get("real.vrn.part1"), "newerthe user's own");
    EXPECT_FALSE(fs::exists(data.ranges() + "/nowhere") || fs::exists(data.ranges() + "/real.vrn.part3"));
    data.put("own.vrn", std::string(5'000'000, '"'));
    EXPECT_FALSE(read_file(pc, "own.vrn").text);
}

TEST_F(writing, files_without_permission_are_reported_and_kept)
{
    const auto put = [&](const char* name, const char* what, mode_t mode) {
        data.put(name, what);
        chmod((data.ranges() + '/' + name).c_str(), mode);
    };
    fs::create_directory(data.ranges() + "/shut");
    put("shut/open", "old", 0666);
    put("shut/empty", "", 0666);
    put("shut/closed", "old", 0444);
    put("shut/unread", "old", 0222);
    put("dark.vrn", "old", 0000);
    for (const std::string& folder : {data.program(), data.ranges()}) chmod(folder.c_str(), 0755);
    put("shut", "", 0555);
    {
        const at_end user = unprivileged();
        const at_end disk = small_disk(1000);
        EXPECT_EQ(read_file(pc, "dark.vrn").reason, "The file can't be read.");
        for (const char* name : {"shut/open", "shut/empty", "shut/closed", "shut/new", "shut/unread"})
            EXPECT_EQ(write_file(pc, name, std::string(2000, 'n')), "The file can't be written.") << name;
        EXPECT_EQ(delete_file(pc, "shut/open"), "The file can't be deleted.");
        EXPECT_EQ(data.get("shut/open") + data.get("shut/empty") + data.get("shut/closed"), "oldold");
        EXPECT_EQ(write_file(pc, "shut/open", "new"), "");
    }
    EXPECT_EQ(data.get("shut/unread") + data.get("shut/open"), "oldnew") << "the unreadable file is kept";
    EXPECT_FALSE(fs::exists(data.ranges() + "/shut/new"));
    EXPECT_EQ(delete_file(pc, "shut"), "It is not a file.");
    put("shut", "", 0755);
}

}   // namespace
}   // namespace vorn
