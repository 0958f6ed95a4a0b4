#include "debrief/resultsfile.h"

#include <gtest/gtest.h>

#include <random>

#include "drill.h"
#include "platform/files.h"

namespace vorn {
namespace {

// The lines of a file, each of them ended by CR LF; line 1 is entry 0.
std::vector<std::string> lines_of(const std::string& bytes)
{
    std::vector<std::string> lines;
    std::size_t at = 0;
    for (std::size_t end = 0; (end = bytes.find("\r\n", at)) != std::string::npos; at = end + 2)
        lines.push_back(bytes.substr(at, end - at));
    EXPECT_EQ(at, bytes.size()) << "the last line is ended too";
    return lines;
}

std::string joined(const std::vector<std::string>& lines)
{
    std::string bytes;
    for (const std::string& l : lines) bytes += l + "\r\n";
    return bytes;
}

// A file with another text in one of its lines, and one that ends after a line.
std::string with_line(const std::string& bytes, std::size_t number, const std::string& text)
{
    std::vector<std::string> lines = lines_of(bytes);
    lines.at(number - 1) = text;
    return joined(lines);
}

std::string cut_after(const std::string& bytes, std::size_t number)
{
    std::vector<std::string> lines = lines_of(bytes);
    lines.resize(number);
    return joined(lines);
}

// A record in which every place that a file holds can be told from every other.
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
    for (std::size_t e = 0; e < engagement_rows; ++e) {
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

std::string number(int n)
{
    return std::to_string(n);
}

TEST(results_file, each_field_has_its_line)
{
    const practice_state p = marked_record(0);
    const std::vector<std::string> lines = lines_of(results_file_bytes(p));
    ASSERT_EQ(lines.size(), 520U);
    const struct {
        std::size_t line;
        std::string text;
    } told[] = {
        {1, "\"Trooper_24                    \""},
        {2, "12"},
        {3, "\"PLAIN               \""},
        {4, "\"pictures\\plain.bmp                                          \""},
        {5, "\"THERMAL\""},
        {6, "\"/a.ico\""},
        {8, "\"/c.ico\""},
        {9, "\"t1\""},
        {25 + 15, number(p.rectarget[15])},
        {41 + 7, number(p.recrounds[7])},
        {57, '"' + p.recammo[0] + '"'},
        {88, '"' + p.rechit[15] + '"'},
        {89 + 1, number(p.rectime[1])},
        {105 + 9, number(p.recwidth[9])},
        {121 + 2, number(p.recrange[2])},
        {137, number(p.recx[0])},
        {168, number(p.recy[15])},
        {169 + 3, number(p.reclazex[3])},
        {185 + 3, number(p.reclazey[3])},
        {201, number(p.recaimx[0][0])},
        {201 + 5 * 3 + 4, number(p.recaimx[3][4])},
        {281 + 5 * 15 + 1, number(p.recaimy[15][1])},
        {361 + 5 * 1 + 2, number(p.recfallx[1][2])},
        {441, number(p.recfally[0][0])},
        {520, number(p.recfally[15][4])},
    };
    for (const auto& t : told) EXPECT_EQ(lines[t.line - 1], t.text) << "line " << t.line;
}

TEST(results_file, its_length_goes_neither_by_the_engagements_nor_by_what_was_never_filled)
{
    practice_state p;
    p.targetcount = 6;
    p.resultrange = "A NAME OF MORE THAN TWENTY CHARACTERS";
    p.resultpicture = std::string(70, 'p');
    const std::vector<std::string> lines = lines_of(results_file_bytes(p));
    ASSERT_EQ(lines.size(), 520U);
    EXPECT_EQ(lines[0], '"' + std::string(30, ' ') + '"');
    EXPECT_EQ(lines[2], "\"A NAME OF MORE THAN \"");
    EXPECT_EQ(lines[3], '"' + std::string(60, 'p') + '"');
    for (const std::size_t empty : {5U, 7U, 9U, 24U, 72U, 88U}) EXPECT_EQ(lines[empty - 1], "\"\"") << empty;
    for (const std::size_t zero : {25U, 104U, 168U, 201U, 520U}) EXPECT_EQ(lines[zero - 1], "0") << zero;
}

TEST(results_file, row_0_is_kept_and_row_16_is_neither_written_nor_read)
{
    const practice_state written = marked_record(0);
    practice_state read = marked_record(9000);
    const practice_state before = read;
    ASSERT_TRUE(take_results(results_file_bytes(written), read));
    EXPECT_EQ(read.recammo[0], written.recammo[0]);
    EXPECT_EQ(read.recfally[0], written.recfally[0]);
    EXPECT_EQ(read.recfally[15], written.recfally[15]);
    EXPECT_EQ(read.recsystem[16], before.recsystem[16]);
    EXPECT_EQ(read.recy[16], before.recy[16]);
    EXPECT_EQ(read.recfally[16], before.recfally[16]);
}

struct any_record {
    std::minstd_rand luck{11};
    bool wide = false;   // with characters beyond Latin-1

    std::string text()
    {
        static const char* const texts[] = {"",          "FIN",           "FULL",
                                            "LAZE ONLY", "M\xc3\xbcller", "a,b",
                                            "quoted \"", "75 \xc2\xb5m",  "\xe5\xb1\xb1"};
        return texts[luck() % (wide ? 9 : 8)];
    }
    int whole() { return static_cast<int>(luck() % 65536) - 32768; }

    practice_state next()
    {
        wide = !wide;
        practice_state p;
        p.studentdetails = text() + "_" + text();
        p.targetcount = static_cast<int>(luck() % 16);
        for (std::string* s : {&p.resultrange, &p.resultpicture, &p.resultmode, &p.resulticon1,
                               &p.resulticon2, &p.resulticon3})
            *s = text();
        for (std::size_t e = 0; e < engagement_rows; ++e) fill(p, e);
        return p;
    }
    void fill(practice_state& p, std::size_t e)
    {
        for (auto* t : {&p.recsystem, &p.recammo, &p.rechit}) (*t)[e] = text();
        for (auto* t :
             {&p.rectarget, &p.recrounds, &p.rectime, &p.recwidth, &p.recrange, &p.reclazex, &p.reclazey})
            (*t)[e] = whole();
        for (auto* t : {&p.recx, &p.recy}) (*t)[e] = whole() * 65535;
        for (auto* t : {&p.recaimx, &p.recaimy, &p.recfallx, &p.recfally})
            for (int16& round : (*t)[e]) round = whole();
    }
};

TEST(results_file, what_is_read_and_written_again_is_the_same)
{
    any_record records;
    practice_state read;
    for (int i = 0; i < 100; ++i) {
        const std::string bytes = results_file_bytes(records.next());
        ASSERT_TRUE(take_results(bytes, read)) << i;
        ASSERT_EQ(results_file_bytes(read), bytes) << i;
    }
}

TEST(results_file, a_cut_file_fails_and_leaves_what_came_before_the_cut)
{
    const practice_state written = marked_record(0);
    const std::string whole = results_file_bytes(written);
    practice_state old = marked_record(9000);
    old.studentdetails = "Old_1";
    old.targetcount = 6;
    for (auto* head : {&old.resultrange, &old.resultpicture, &old.resultmode, &old.resulticon1,
                       &old.resulticon2, &old.resulticon3})
        *head = "old";
    for (std::size_t n = 0; n < 520; n += 7) {
        practice_state read = old;
        ASSERT_FALSE(take_results(cut_after(whole, n), read)) << n;
        const std::string now = results_file_bytes(read);
        const std::string was = results_file_bytes(old);
        ASSERT_EQ(cut_after(now, n), cut_after(whole, n));
        ASSERT_EQ(lines_of(now)[n], lines_of(was)[n]) << n;
    }
    practice_state read = old;
    EXPECT_TRUE(take_results(whole.substr(0, whole.size() - 2), read)) << "but for the last line's end";
    EXPECT_TRUE(take_results(whole + "\"more\"\r\n", read));
}

TEST(results_file, the_head_ends_before_the_icons)
{
    practice_state p;
    item_reader items(results_file_bytes(marked_record(0)));
    ASSERT_TRUE(take_results_head(items, p));
    EXPECT_EQ(p.resultmode, "THERMAL");
    EXPECT_EQ(p.resulticon1, "");
    ASSERT_TRUE(take_results_rest(items, p));
    EXPECT_EQ(p.resulticon1, "/a.ico");
    EXPECT_EQ(p.recfally[15], marked_record(0).recfally[15]);
}

TEST(results_file, items_that_do_not_fit_their_fields_are_failures)
{
    const std::string whole = results_file_bytes(marked_record(0));
    const struct {
        std::size_t line;
        const char* text;
        bool taken;
    } cases[] = {
        {2, "0", true},         {2, "15", true},
        {2, "16", false},       {2, "-1", false},
        {2, "\"6\"", false},    {1, "Trooper", false},
        {5, "2", false},        {30, "32767", true},
        {30, "32768", false},   {30, "\"FIN\"", false},
        {30, "1.5", false},     {30, "", false},
        {140, "32768", true},   {140, "2147483648", false},
        {201, "-32769", false}, {201, "-32768", true},
        {60, "FIN", false},     {60, "\"FIN", false},
        {520, "#TRUE#", false},
    };
    for (const auto& c : cases) {
        practice_state p;
        p.targetcount = 9;
        EXPECT_EQ(take_results(with_line(whole, c.line, c.text), p), c.taken) << c.line << ' ' << c.text;
        if (c.line <= 2 && !c.taken) {
            EXPECT_EQ(p.targetcount, 9) << c.text;
        }
    }
    practice_state p;
    ASSERT_TRUE(take_results(with_line(whole, 1, "\"A name and number beyond thirty characters\""), p));
    EXPECT_EQ(p.studentdetails.text(), "A name and number beyond thirt");
}

struct results_on_disk : testing::Test {
    data_folder data;
    headless_machine pc;
    practice_state p = marked_record(0);

    results_on_disk() { pc.working_directory = data.ranges(); }
    // By the steps of the debrief screen.
    bool reads(const std::string& file, practice_state& into) const
    {
        const file_text found = read_file(pc, file);
        return found.text && take_results(*found.text, into);
    }
};

TEST_F(results_on_disk, a_file_can_be_saved_read_and_saved_over)
{
    data.put("own.vrn", std::string(100000, 'x'));
    ASSERT_EQ(write_results(pc, data.ranges() + "/own.vrn", p), "");
    EXPECT_EQ(data.get("own.vrn"), results_file_bytes(p));
    practice_state read;
    ASSERT_TRUE(reads("own.vrn", read));
    read.targetcount = 6;
    ASSERT_EQ(write_results(pc, data.ranges() + "/own.vrn", read), "");
    EXPECT_EQ(lines_of(data.get("own.vrn"))[1], "6");
    data.remove("own.vrn");
    EXPECT_FALSE(reads("own.vrn", read));
}

TEST_F(results_on_disk, wrong_files_and_paths_are_failures_and_nothing_worse)
{
    std::string binary;
    for (int i = 0; i < 100000; ++i) binary += static_cast<char>(i * 7919 >> 3);
    for (const std::string& bytes :
         {std::string(), binary, std::string(5'000'000, '"'), std::string(520, '\n'),
          range_file_bytes(plain_range(sight_kind::visual))}) {
        data.put("wrong.vrn", bytes);
        EXPECT_FALSE(reads("wrong.vrn", p));
    }
    EXPECT_FALSE(reads(data.ranges(), p)) << "a folder";
    EXPECT_NE(write_results(pc, data.ranges(), p), "") << "a folder";
    EXPECT_NE(write_results(pc, data.ranges() + "/no folder/x.vrn", p), "");
    EXPECT_NE(write_results(pc, "", p), "");
}

// The gunner lases a FIN target, loads, aims and fires one round, which kills.
TEST(results_file_of_a_drill, tells_what_was_fired_and_where_it_fell)
{
    drill d(sight_kind::visual);
    d.present(6);
    d.tap('E');
    d.pc.wait(9);
    d.t.luck.source = [] { return 0.5; };
    d.target_at(4525 + 64 - 200, 1700 - 150);
    d.tap('D');
    d.pc.wait(2);
    ASSERT_EQ(write_results(d.pc, d.data.ranges() + "/drill.vrn", d.t.shared), "");
    const std::vector<std::string> lines = lines_of(d.data.get("drill.vrn"));
    ASSERT_EQ(lines.size(), 520U);
    const auto line = [&](std::size_t n) { return lines[n - 1]; };
    EXPECT_EQ(line(1), "\"nameless_000                  \"");
    EXPECT_EQ(line(2), "6");
    EXPECT_EQ(line(3), '"' + d.t.shared.rangename.text() + '"');
    EXPECT_EQ(line(4), '"' + d.t.shared.rangepicture.text() + '"');
    EXPECT_EQ(line(5), "\"VISUAL\"");
    EXPECT_EQ(line(9 + 1), "\"FULL\"");
    EXPECT_EQ(line(25 + 1), "1");
    EXPECT_EQ(line(41 + 1), "1");
    EXPECT_EQ(line(57 + 1), "\"FIN\"");
    EXPECT_EQ(line(73 + 1), "\"YES\"");
    EXPECT_EQ(line(121 + 1), "1100");
    EXPECT_EQ(line(137 + 1), "51000");
    EXPECT_EQ(line(153 + 1), "15500");
    EXPECT_EQ(line(361 + 5 + 1), "-200");
    EXPECT_EQ(line(441 + 5 + 1), "-150");
    EXPECT_EQ(line(361 + 5 + 2), "0") << "no second round";
    EXPECT_EQ(line(25 + 2), "0") << "the second target hasn't come";
}

}   // namespace
}   // namespace vorn
