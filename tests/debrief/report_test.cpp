#include "debrief/report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "drill.h"

namespace vorn {
namespace {

struct fired {
    const char *system, *ammo, *hit;
    int time;
};

practice_state practice_of(const std::vector<fired>& engagements)
{
    practice_state p;
    p.studentdetails = "Trooper_24";
    p.targetcount = static_cast<int>(engagements.size());
    int e = 1;
    for (const fired& f : engagements) {
        p.rectarget[e] = f.time > 0 ? e : 0;
        p.recsystem[e] = f.system;
        p.recammo[e] = f.ammo;
        p.rechit[e] = f.hit;
        p.rectime[e] = f.time;
        e += 1;
    }
    // Rows of an earlier, longer practice.
    for (; e < engagement_rows; ++e) {
        p.rechit[e] = "YES";
        p.rectime[e] = 5;
    }
    return p;
}

using texts = std::vector<std::string>;

// Hits, average and score.
texts summary_of(const practice_state& p)
{
    texts last;
    for (const printed_line& l : report_lines(p)) last.push_back(l.text);
    return {last.end() - 3, last.end()};
}

TEST(report, sums_up_hits_average_and_score)
{
    const fired ten_seconds{"FULL", "COAX", "YES", 10};
    const struct {
        practice_state practice;
        const char *hits, *average, *score;
    } cases[] = {
        {practice_of(std::vector<fired>(6, ten_seconds)), "6 OUT OF 6", "10", "360"},
        {practice_of({{"FULL", "FIN", "YES", 20}, {"FULL", "FIN", "YES", 30}, {"FULL", "FIN", "YES", 24}}),
         "3 OUT OF 3", "24.6666666666667", "36.4864864864865"},
        {practice_of({{"FULL", "", "NO", 100}, {"FULL", "FIN", "yes", 8}}), " OUT OF 2", "54", "0"},
        {practice_of({{"FULL", "", "", 0}, {"FULL", "FIN", "YES", 8}}), "1 OUT OF 2", "4", "50"},
        {practice_of({{"FULL", "", "", 0}, {"", "", "YES", 0}}), "1 OUT OF 2", "0", "0"},
        {practice_of({}), " OUT OF 0", "0", "0"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(summary_of(c.practice), (texts{"NUMBER OF HITS............." + std::string(c.hits),
                                                 "AVERAGE TIME..............." + std::string(c.average),
                                                 "SCORE......................" + std::string(c.score)}));
}

TEST(report, the_text_file_labels_the_number_of_an_engagement_differently)
{
    const data_folder data;
    headless_machine pc;
    pc.working_directory = from_utf8(data.ranges());
    data.put("printtest.txt", std::string(9000, 'x'));
    const practice_state two = practice_of({{"FULL", "FIN", "YES", 12}, {"LAZE ONLY", "DST", "NO", 100}});
    ASSERT_EQ(write_text_report(pc, two), "");
    std::string expected;
    for (const printed_line& l : report_lines(two)) {
        const bool number = l.text.find("TARGET NUMBER") == 0;
        expected += (number ? "ENGAGEMENT NUMBER.........." + l.text.substr(27) : l.text) + "\r\n";
    }
    EXPECT_EQ(data.get("printtest.txt"), expected);
    data.remove("printtest.txt");
    std::filesystem::create_directory(from_utf8(data.path("printtest.txt")));
    EXPECT_NE(write_text_report(pc, two), "") << "a folder has the name";
}

}   // namespace
}   // namespace vorn
