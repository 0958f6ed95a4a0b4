#include <algorithm>

#include "debrief/results.h"
#include "flow/boxes.h"
#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

int row(const trainer& t)
{
    return t.shared.engagement;
}

void recordhit(trainer& t, gunnery_screen& s)
{
    s.targethit = true;
    t.shared.rectarget[row(t)] = t.shared.engagement;
    t.shared.rechit[row(t)] = "YES";
    t.shared.rectime[row(t)] = s.targetticks;
    s.hits += 1;
    s.lblhits.Caption = std::to_string(s.hits);
    s.hittime += s.targetticks;
    s.Lblavetime.Caption = std::to_string(s.hittime / s.targetnumber);
    s.targetticks = s.targetlife;   // the next tick takes the target down
}

namespace {

struct result {
    double average;   // whole seconds
    double score;
};

// The visual score counts the targets hit, the thermal score those shown. The later the hits, the larger the
// score.
result workout(gunnery_screen& s)
{
    s.hittime = std::max<int>(s.hittime, 1);
    s.targetnumber = std::max<int>(s.targetnumber, 1);
    result r{Int(static_cast<double>(s.hittime) / s.targetnumber), 0};
    const int factor = s.visual() ? s.hits : s.targetnumber;
    if (s.targetlife != 0) r.score = Int(r.average * factor) * (1000.0 / s.targetlife);
    return r;
}

// A fractional score between two rows gets no rating.
std::string rating(double score)
{
    static constexpr struct {
        double from, to;
        const char* words;
    } ratings[] = {{0, 100, "FORGET IT"},
                   {101, 2998, "CADET"},
                   {2999, 3800, "GUNNER"},
                   {3801, 4700, "GUNNER MECH"},
                   {4701, 100000, "GUNNERY INSTRUCTOR"}};
    for (const auto& r : ratings)
        if (score >= r.from && score <= r.to) return r.words;
    return {};
}

void showscore(trainer& t, const gunnery_screen& s, const result& r)
{
    const bool afterdebrief = s.visual() && t.shared.fulldebrief;
    std::string text =
        lines({"NUMBER OF TARGETS = " + std::to_string(s.targetnumber),
               (afterdebrief ? "NUMBER )OF HITS = " : "NUMBER OF HITS = ") + std::to_string(s.hits),
               "AVERAGE TIME = " + number_text(r.average), "SCORE = " + number_text(r.score)});
    if (s.visual() && !t.shared.fulldebrief)
        text = t.shared.quickstart ? lines({text, "", "YOUR RATING IS.." + rating(r.score)})
                                   : lines({"WELL DONE YOUR SCORE IS..", text});
    inform(t, text);
}

void todebrief(trainer& t, gunnery_screen& s)
{
    if (!screenreset(t, s)) return;
    show(t.pc, t.results.window);
    hide(t.pc, s.window);
    if (s.visual()) s.lblcrew.Caption.clear();
}

}   // namespace

void practiceend(trainer& t, gunnery_screen& s)
{
    const result r = workout(s);
    const int resets = s.resets;
    if (s.visual() && t.shared.voiceson) {
        s.lblcrew.Caption = "TARGET STOP...STOP CLEAR GUNS !!";
        say(t, s, "cleargun.wav");
    }
    const bool debrief = t.shared.fulldebrief && asked(t, "DEBRIEF FIRER ?", "DEBRIEF");
    if (resets != s.resets) return;   // reset or unloaded while the box was open
    if (debrief) return todebrief(t, s);
    showscore(t, s, r);
    if (resets != s.resets) return;
    screenreset(t, s);
    if (s.visual()) s.lblcrew.Caption.clear();
}

}   // namespace vorn
