#include "debrief/resultsfile.h"

#include <gtest/gtest.h>

#include "data_folder.h"

namespace vorn {
namespace {

// The lines of a file without their CR LF; entry 0 is line 1.
std::vector<std::string> lines_of(const std::string& bytes)
{
    std::vector<std::string> lines;
    std::size_t at = 0;
    for (std::size_t end = 0; (end = bytes.find("\r\n", at)) != std::string::npos; at = end + 2)
        lines.push_back(bytes.substr(at, end - at));
    EXPECT_EQ(at, bytes.size()) << "the last line ends with CR LF too";
    return lines;
}

// A file with another text in one of its lines.
std::string with_line(const std::string& bytes, std::size_t number, const std::string& text)
{
    std::vector<std::string> lines = lines_of(bytes);
    lines.at(number - 1) = text;
    std::string changed;
    for (const std::string& l : lines) changed += l + "\r\n";
    return changed;
}

// A record in which every value is different, so that a test can tell which one a line contains.
practice_state marked_record(int first)
{
    practice_state p;
    p.studentdetails = "Trooper_24";
    p.targetcount = 12;
    p.resultrange = "PLAIN";
    p.resultpicture = "pictures\\plain.bmp";
    p.resultmode = "THERMAL";
    p.resulticon1 = "/a.ico";
    p.resulticon2 = "/b.ico";
    p.resulticon3 = "/c.ico";
    int n = first;
    for (int e = 0; e < engagement_rows; ++e) {
        for (auto* t : {&p.recsystem, &p.recammo, &p.rechit}) (*t)[e] = "t" + std::to_string(++n);
        for (auto* t :
             {&p.rectarget, &p.recrounds, &p.rectime, &p.recwidth, &p.recrange, &p.reclazex, &p.reclazey})
            (*t)[e] = ++n;
        p.recx[e] = 100000 + ++n;
        p.recy[e] = -100000 - ++n;
        for (auto* t : {&p.recaimx, &p.recaimy, &p.recfallx, &p.recfally})
            for (int16& round : (*t)[e]) round = -++n;
    }
    return p;
}

bool taken(const std::string& bytes, practice_state& p)
{
    item_reader items(bytes);
    return take_results(items, p);
}

TEST(results_file, each_field_has_its_line)
{
    const std::string stored = bytes_of(VORN_SOURCE_DIR "/tests/fuzz/seeds/results/marked.vrn");
    EXPECT_EQ(lines_of(stored).size(), 520U);
    EXPECT_EQ(results_file_bytes(marked_record(0)), stored);
}

TEST(results_file, a_cut_file_fails_and_keeps_the_items_before_the_cut)
{
    const std::string whole = results_file_bytes(marked_record(0));
    practice_state old = marked_record(9000);
    old.studentdetails = "Old_1";
    old.targetcount = 6;
    for (auto* head : {&old.resultrange, &old.resultpicture, &old.resultmode, &old.resulticon1,
                       &old.resulticon2, &old.resulticon3})
        *head = "old";
    const std::string was = results_file_bytes(old);
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
    const std::string whole = results_file_bytes(marked_record(0));
    for (const auto& [count, fits] : {std::pair{"0", true}, {"15", true}, {"16", false}, {"-1", false}}) {
        practice_state p;
        EXPECT_EQ(taken(with_line(whole, 2, count), p), fits) << count;
        EXPECT_EQ(p.targetcount, fits ? std::stoi(count) : 0);
    }
    practice_state p;
    ASSERT_TRUE(taken(with_line(whole, 1, "\"A name and number beyond thirty characters\""), p));
    EXPECT_EQ(p.studentdetails.text(), "A name and number beyond thirt");
    EXPECT_FALSE(taken(with_line(whole, 1, "Trooper"), p));
}

}   // namespace
}   // namespace vorn
