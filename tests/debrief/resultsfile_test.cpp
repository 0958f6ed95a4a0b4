#include "debrief/resultsfile.h"

#include <gtest/gtest.h>

#include "data_folder.h"

namespace vorn {
namespace {

// Files of whole practices. They differ in most lines, which shows from which of them a value comes.
const std::string records = VORN_SOURCE_DIR "/tests/records/2.0/";
const std::string whole = bytes_of(records + "visual.vrn");

// A file with another text in one of its lines.
std::string with_line(int number, const std::string& text)
{
    const std::string before = first_lines(whole, number - 1);
    return before + text + "\r\n" + whole.substr(first_lines(whole, number).size());
}

bool taken(const std::string& bytes, practice_state& p)
{
    item_reader items(bytes);
    return take_results(items, p);
}

TEST(results_file, a_cut_file_fails_and_keeps_the_items_before_the_cut)
{
    const std::string was = bytes_of(records + "thermal.vrn");
    practice_state old;
    ASSERT_TRUE(taken(was, old));
    for (int n = 0; n < 520; n += 7) {
        practice_state read = old;
        ASSERT_FALSE(taken(first_lines(whole, n), read)) << n;
        ASSERT_EQ(results_file_bytes(read), first_lines(whole, n) + was.substr(first_lines(was, n).size()))
            << n;
    }
    practice_state read = old;
    EXPECT_TRUE(taken(whole.substr(0, whole.size() - 2), read)) << "the last line end can be missing";
    EXPECT_TRUE(taken(whole + "\"more\"\r\n", read));
}

TEST(results_file, a_count_that_has_no_rows_and_a_text_without_quotes_are_failures)
{
    for (const auto& [count, fits] : {std::pair{"0", true}, {"15", true}, {"16", false}, {"-1", false}}) {
        practice_state p;
        EXPECT_EQ(taken(with_line(2, count), p), fits) << count;
        EXPECT_EQ(p.targetcount, fits ? std::stoi(count) : 0);
    }
    practice_state p;
    ASSERT_TRUE(taken(with_line(1, "\"A name and number beyond thirty characters\""), p));
    EXPECT_EQ(p.studentdetails.text(), "A name and number beyond thirt");
    EXPECT_FALSE(taken(with_line(1, "Trooper"), p));
}

}   // namespace
}   // namespace vorn
