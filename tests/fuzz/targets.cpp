// Fuzz targets of the file readers. fuzz_items reads the bytes as items. Each other target reads them as one
// kind of file. If all could be read (fuzz_practice: in any case), it writes what it has read, reads that
// again, and compares. A failed check aborts the process. The build links a fuzzer for each target.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "debrief/report.h"
#include "debrief/resultsfile.h"
#include "platform/headless/headless_machine.h"
#include "ranges/rangefile.h"
#include "setup/setup.h"
#include "setup/startsim.h"
#include "state/item_text.h"
#include "trainer.h"

namespace vorn {

static std::string text_of(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

static void require(bool rule, const char* words)
{
    if (rule) return;
    std::fprintf(stderr, "broken: %s\n", words);
    std::abort();
}

// Reads a text, a flag, a 16-bit and a 32-bit number in turn until one fails.
extern "C" int fuzz_items(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes = text_of(data, size);
    item_reader items(bytes);
    std::string text;
    bool flag = false;
    int16 small;
    std::int32_t number = 0;
    std::size_t taken = 0;
    while (items.take(text) && items.take(flag) && items.take(small) && items.take(number)) {
        ++taken;
        require(taken <= bytes.size(), "every item consumes part of the text");
        require(text.find('"') == std::string::npos, "a text contains no quote");
    }
    return 0;
}

extern "C" int fuzz_range(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes = text_of(data, size);
    practice_state p;
    item_reader items(bytes);
    const auto go_on = [](auto...) { return true; };
    if (!take_range(items, p, go_on)) return 0;
    practice_state again;
    item_reader written(range_file_bytes(p));
    require(take_range(written, again, go_on), "a range that was read can be written and read");
    require(range_file_bytes(again) == range_file_bytes(p), "a range that is read again is the same");
    return 0;
}

namespace {
struct program {
    headless_machine pc;
    trainer t{pc};
};
}   // namespace

static int selected_in(const startsim_screen& s, const screen_object& group)
{
    int n = 0;
    for (const screen_object* o : s.window.objects)
        if (o->kind == object_kind::option && o->parent == &group) n += o->Value;
    return n;
}

extern "C" int fuzz_practice(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes = text_of(data, size);
    // Kept between runs, since creating all screens takes 30 times as long as reading a practice.
    static auto kept = std::make_unique<program>();
    if (kept->pc.ended) kept = std::make_unique<program>();
    headless_machine& pc = kept->pc;
    trainer& t = kept->t;
    pc.event([&] { unload(pc, t.startsim.window); });
    t.shared = {};
    pc.event([&] { load(pc, t.startsim.window); });
    pc.answers.assign(8, {true});   // yes to each question about a missing range; file dialogs are cancelled
    pc.event([&] { apply_practice(t, bytes); });
    const startsim_screen& s = t.startsim;
    for (const screen_object* g :
         {&s.Frmmode, &s.Frmsystem, &s.Frmengagements, &s.Frame1, &s.FrmTiming, &s.Frame10})
        require(selected_in(s, *g) <= 1, "no group has two options selected");
    require(t.shared.targetblocks >= 2 && t.shared.targetblocks <= 5, "targetblocks is 2 to 5");
    require(t.shared.windbias >= -3 && t.shared.windbias <= 3, "windbias is -3 to 3");
    const std::string saved = practice_file_bytes(s);
    pc.event([&] { apply_practice(t, saved); });
    require(practice_file_bytes(s) == saved || pc.ended, "a saved practice reads back the same");
    return 0;
}

// A file that is damaged in the middle leaves a partial record, which can be viewed and printed.
extern "C" int fuzz_results(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes = text_of(data, size);
    practice_state p;
    item_reader items(bytes);
    const bool whole = take_results(items, p, [] {});
    require(p.targetcount >= 0 && p.targetcount < stored_rows, "the record has a row for each engagement");
    require(report_lines(p).size() == 15 + 6 * static_cast<std::size_t>(p.targetcount),
            "any record can be reported");
    if (!whole) return 0;
    practice_state again;
    item_reader written(results_file_bytes(p));
    require(take_results(written, again, [] {}), "results that were read can be written and read again");
    require(results_file_bytes(again) == results_file_bytes(p), "results that are read again are the same");
    return 0;
}

}   // namespace vorn
