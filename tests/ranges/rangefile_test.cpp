#include "ranges/rangefile.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "drill.h"
#include "platform/files.h"

namespace vorn {
namespace {

struct range_files : testing::Test {
    data_folder data;
    headless_machine pc;
    practice_state read;

    range_files() { pc.working_directory = from_utf8(data.ranges()); }
    bool practice_reads(const std::string& bytes)
    {
        data.put("test.arf", bytes);
        return read_range(pc, "test.arf", read).empty();
    }
    bool head_reads(const std::string& bytes)
    {
        data.put("test.arf", bytes);
        return read_range_head(pc, "test.arf", read).empty();
    }
    bool all_reads(const std::string& bytes)
    {
        item_reader items(bytes);
        return take_range(items, read);
    }
};

TEST_F(range_files, each_reader_takes_only_its_own_part)
{
    const std::string whole = range_file_bytes(plain_range(sight_kind::thermal));
    read.targetrange[20] = 7;
    EXPECT_TRUE(practice_reads(first_lines(whole, 66)));
    EXPECT_EQ(read.targetrange[19], 2400);
    EXPECT_EQ(read.targetrange[20], 7);
    EXPECT_FALSE(practice_reads("\"CUT\"\r\n" + first_lines(whole, 65)));
    EXPECT_EQ(read.rangename.trimmed(), "PLAIN THERMAL") << "an incomplete file changes nothing";
    EXPECT_FALSE(all_reads(first_lines(whole, 68)));
    EXPECT_TRUE(head_reads("\"short\"\r\n\"p\"\r\n\"THERMAL\""));
    EXPECT_EQ(read.rangename.text(), "short               ");
    EXPECT_EQ(read.rangepicture.trimmed(), "thermalrange.trp") << "that of the open range";
    EXPECT_FALSE(head_reads("\"kept\"\r\n\"p\"\r\nTHERMAL"));
    EXPECT_EQ(read.rangename.trimmed(), "kept");
}

TEST_F(range_files, stored_paths_with_either_separator_are_found)
{
    const std::string root = data.ranges();
    const std::string icon = data.path("target icons/target1.ico");
    for (const char* stored : {"/target icons/target1.ico", "\\target icons\\target1.ico",
                               "target icons\\TARGET1.ICO", "\\Target Icons/target1.ico"})
        EXPECT_TRUE(std::filesystem::equivalent(from_utf8(icon_path(pc, root, stored)), from_utf8(icon)))
            << stored;
    EXPECT_EQ(icon_path(pc, root, icon), icon);
    EXPECT_EQ(icon_path(pc, root, "/none.ico"), data.path("none.ico"));
    EXPECT_EQ(stored_icon(pc, root, icon), native("/target icons/target1.ico"));
    EXPECT_EQ(stored_icon(pc, root, "/elsewhere/x.ico"), "/elsewhere/x.ico");
    EXPECT_EQ(stored_icon(pc, root, root + "x/y.ico"), root + "x/y.ico") << "beside, not inside";
    EXPECT_TRUE(file_exists(pc, "VISUALRANGE.ARF"));
}

}   // namespace
}   // namespace vorn
