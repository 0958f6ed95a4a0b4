#include "targets.h"

#include <cstdio>
#include <cstdlib>

#include "debrief/report.h"
#include "debrief/resultsfile.h"
#include "flow/intro.h"
#include "platform/headless/headless_machine.h"
#include "ranges/rangefile.h"
#include "setup/setup.h"
#include "setup/startsim.h"
#include "state/item_text.h"
#include "trainer.h"

namespace vorn {

static void hold(bool rule, const char* words)
{
    if (rule) return;
    std::fprintf(stderr, "broken: %s\n", words);
    std::abort();
}

// Takes items of all four forms in turn until one fails.
void fuzz_items(const std::string& bytes)
{
    item_reader items(bytes);
    std::string text;
    bool flag = false;
    int16 small;
    std::int32_t number = 0;
    std::size_t taken = 0;
    while (items.take(text) && items.take(flag) && items.take(small) && items.take(number)) {
        ++taken;
        hold(taken <= bytes.size(), "every item takes something of the text");
        hold(text.find('"') == std::string::npos, "a text holds no quote");
    }
    hold(!items.take(text) && !items.take(flag) && !items.take(number), "after a failure every take fails");
}

void fuzz_range(const std::string& bytes)
{
    practice_state p;
    if (!take_range(bytes, all_entries, p)) return;
    practice_state again;
    hold(take_range(range_file_bytes(p), all_entries, again),
         "a range that was read can be written and read");
    hold(range_file_bytes(again) == range_file_bytes(p), "and comes out the same");
}

static int chosen_in(const startsim_screen& s, const screen_object& group)
{
    int n = 0;
    for (const screen_object* o : s.window.objects)
        if (o->kind == object_kind::option && o->parent == &group) n += o->Value;
    return n;
}

void fuzz_practice(const std::string& bytes)
{
    headless_machine pc;
    trainer t(pc);
    pc.event([&] { load(pc, t.startsim.window); });
    pc.answers.assign(8, {true});   // yes to each question for a range, and no range chosen
    pc.event([&] { apply_practice(t, bytes); });
    const startsim_screen& s = t.startsim;
    for (const screen_object* g :
         {&s.Frmmode, &s.Frmsystem, &s.Frmengagements, &s.Frame1, &s.FrmTiming, &s.Frame10})
        hold(chosen_in(s, *g) <= 1, "no group has two options chosen");
    hold(t.shared.targetblocks >= 2 && t.shared.targetblocks <= 5,
         "the number of targets is one of the four");
    hold(t.shared.windbias >= -3 && t.shared.windbias <= 3, "the wind is within its scale");
    const std::string saved = practice_file_bytes(s);
    pc.event([&] { apply_practice(t, saved); });
    hold(practice_file_bytes(s) == saved || pc.ended, "what is saved changes nothing when it is opened");
}

// A file that fails half-way leaves a record behind that is shown and printed all the same.
void fuzz_results(const std::string& bytes)
{
    practice_state p;
    const bool whole = take_results(bytes, p);
    hold(p.targetcount >= 0 && p.targetcount < stored_rows, "the record has a row for each engagement");
    hold(report_lines(p).size() == 15 + 6 * static_cast<std::size_t>(p.targetcount),
         "any record can be reported");
    if (!whole) return;
    practice_state again;
    hold(take_results(results_file_bytes(p), again), "results that were read can be written and read");
    hold(results_file_bytes(again) == results_file_bytes(p), "and come out the same");
}

}   // namespace vorn
