#include "debrief/report.h"

#include "platform/files.h"

namespace vorn {

namespace {

// The lines before the student's details have a larger font.
constexpr int heading_lines = 6;

// The label of an engagement's number, on paper and in the text file.
constexpr const char* on_paper = "TARGET NUMBER..............";
constexpr const char* in_text = "ENGAGEMENT NUMBER..........";

// A division by 0 gives 0: the average of a record without engagements, and the score if the average is 0.
double divided(double a, double b)
{
    return b == 0 ? 0 : a / b;
}

using text_lines = std::vector<std::string>;

void add(text_lines& to, const text_lines& more)
{
    to.insert(to.end(), more.begin(), more.end());
}

void add_engagement(text_lines& lines, const practice_state& p, int e, const std::string& label)
{
    add(lines, {label + number_text(p.rectarget[e]), "SYSTEM STATUS.............." + p.recsystem[e],
                "AMMO TYPE.................." + p.recammo[e], "TARGET DESTROYED..........." + p.rechit[e],
                "TIME TAKEN................." + number_text(p.rectime[e]), "         ~~~~~~~*~~~~~~~   "});
}

// Without a hit the number of hits is left out.
void add_summary(text_lines& lines, const practice_state& p)
{
    double totaltime = 0;   // seconds; a missed target counts 100
    int hitcount = 0;
    for (int e = 1; e <= p.targetcount; ++e) {
        totaltime += p.rectime[e];
        if (p.rechit[e] == "YES") ++hitcount;
    }
    const double average = divided(totaltime, p.targetcount);
    const double score = divided(100.0 * hitcount * p.targetcount, average);
    const std::string hits = hitcount > 0 ? number_text(hitcount) : "";
    add(lines, {".", "PRACTICE SUMMARY", "",
                "NUMBER OF HITS............." + hits + " OUT OF " + number_text(p.targetcount),
                "AVERAGE TIME..............." + number_text(average),
                "SCORE......................" + number_text(score)});
}

text_lines report(const practice_state& p, const char* label)
{
    text_lines lines{"",
                     "V.O.R.N.",
                     "CHALLENGER 1  (Ver 2.0)",
                     "",
                     "PRACTICE REPORT",
                     "",
                     "STUDENT DETAILS............" + p.studentdetails.text(),
                     "No OF ENGAGEMENTS.........." + number_text(p.targetcount),
                     ""};
    for (int e = 1; e <= p.targetcount; ++e) add_engagement(lines, p, e, label);
    add_summary(lines, p);
    return lines;
}

}   // namespace

std::vector<printed_line> report_lines(const practice_state& p)
{
    std::vector<printed_line> printed;
    for (const std::string& text : report(p, on_paper)) {
        const bool heading = printed.size() < heading_lines;
        printed.push_back({.text = text,
                           .face = "MS Sans Serif",
                           .size = heading ? 16.0 : 10.0,
                           .bold = heading,
                           .underline = heading});
    }
    return printed;
}

std::string write_text_report(const machine& m, const practice_state& p)
{
    std::string text;
    for (const std::string& line : report(p, in_text)) text += line + "\r\n";
    return write_file(m, "printtest.txt", text);
}

}   // namespace vorn
