#include "walk/walk.h"

#include <algorithm>
#include <utility>

#include "debrief/results.h"
#include "flow/intro.h"
#include "gunnery/screen.h"
#include "ranges/rauthor.h"
#include "walk/rules.h"
#include "walk/walker.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace vorn {

namespace {

// The walk that a process about to die tells of.
const walker*& under_way()
{
    static const walker* w = nullptr;
    return w;
}

void tell_on_death()
{
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_set_death_callback([] { std::fprintf(stderr, "%s\n", walk_under_way().c_str()); });
#endif
}

}   // namespace

// What the log tells by its words: a caption's all, a part of the others'.
void walker::take_log()
{
    static constexpr struct {
        const char* kind;
        const char* words;
        const char* name;
    } told[] = {{"caption", "COMMANDER : SELECT FIN", "wrong rounds"},
                {"caption", "COMMANDER : SELECT HESH", "wrong rounds"},
                {"caption", "COMMANDER : SELECT COAX", "wrong rounds"},
                {"caption", "STOP DESELECT !!", "targets missed"},
                {"caption", "PAUSE OFF", "pauses"},
                {"box", "RATING IS", "ratings"},
                {"box", "CAN'T BE SET UP", "unusable ranges"},
                {"box", "CALIBRATE", "refusals of the stick"}};
    for (const logged& l : std::exchange(pc().log, {})) {
        if (l.kind == "caption" && l.text.ends_with(" is saved")) count("ranges saved");
        if (l.kind == "caption" && l.text.ends_with(" is open")) count("ranges opened");
        for (const auto& row : told) {
            if (l.kind != row.kind) continue;
            const bool same = l.text == row.words, within = l.text.find(row.words) != std::string::npos;
            if (l.kind == "caption" ? same : within) count(row.name);
        }
    }
    pc().boxes.clear();
    pc().dialogs.clear();
}

// What was held on a screen that has lost the front is let go.
void walker::after_front_change()
{
    if (pc().ended || front_form() == run->front_before) return;
    const form* debrief = &t().results.window;
    if (front_form() == debrief) count("debriefs");
    if (run->front_before == debrief && gunnery() != nullptr) count("replays");
    run->front_before = front_form();
    run->intent.clear();
    let_go_all();
    if (front_form() == &t().simulator.window && t().shared.quickstart) count("quick starts");
}

void walker::drop_lost_mouse()
{
    const auto lost = std::find_if(run->held.begin(), run->held.end(), [](const held_input& h) {
        return h.by == device::mouse && !takes_input(*h.button);
    });
    if (lost != run->held.end()) let_go(device::mouse, 0, nullptr);
}

// Lets all that is due happen. A lay within it takes time of its own, in which more falls due.
void walker::settle()
{
    int tries = 0;
    while (!pc().ended && next_tick(pc()) <= pc().now()) {
        pc().wait(0);
        if (++tries > 100) {
            failure = "the program comes to rest";
            return;
        }
    }
}

bool walker::halted() const
{
    return run->t.shared.paused && !run->stale_pause;
}

void walker::mind_pauses()
{
    run_of_program& r = *run;
    const gunnery_screen* s = gunnery();
    const bool paused = r.t.shared.paused;
    if (!paused || s == nullptr) r.stale_pause = false;
    if (paused && s != nullptr && !s->simrunning) r.stale_pause = true;
    if (s == nullptr || s->resets != r.resets_before) r.resumed = false;
    if (r.paused_before && !paused) r.resumed = true;
    r.paused_before = paused;
    r.resets_before = s == nullptr ? 0 : s->resets;
}

void walker::check(bool settled)
{
    if (pc().ended || !failure.empty()) return;
    const bool idle = pc().screens.depth == 0;
    failure = broken_rule(t(), {idle, settled, run->held.empty(), halted(), run->resumed});
    const auto gone = [](const gunnery_screen& s) { return s.window.state == form_state::not_loaded; };
    if (failure.empty() && idle && gone(t().simulator) && gone(t().thermal) && !pc().playing.empty())
        failure = "no sound goes on when its screen has gone";
}

void walker::begin()
{
    run = std::make_unique<run_of_program>(*this);
    count("starts");
    t().luck.generator.seed(static_cast<unsigned>(random()) | 1U);
    pc().default_directory = now_and_then(0.92) ? data.program() : data.program() + "/nowhere";
    for (gunnery_screen* s : {&t().simulator, &t().thermal})
        for (const screen_object* o : {&s->lblcrew, &s->Cmdpausesim}) pc().watch(*o);
    pc().watch(t().rauthor.outcome);
    does("the program starts", [&] { pc().event([&] { start_program(t()); }); });
}

void walker::step()
{
    ++number;
    if (!run || pc().ended) {
        if (run) count("exits");
        begin();
    } else if (!run->intent.empty() && now_and_then(0.93)) {
        const auto next = std::move(run->intent.front());
        run->intent.pop_front();
        next();
    } else {
        random_event(*this);
    }
    if (pc().ended) return;
    after_front_change();
    drop_lost_mouse();
    const bool settles = now_and_then(0.7);
    if (settles) settle();
    take_log();
    check(settles);
}

// Ranges to choose from: of either type with the positions wherever the sight can be brought to bear; with
// all at one place; with positions and distances that no author gave; with none near enough; and files that
// are no use, each in its own way.
static void put_ranges(walker& w)
{
    const practice_state plain = plain_range(sight_kind::visual);
    practice_state spread = plain, cold = plain_range(sight_kind::thermal);
    practice_state wild = plain, far = plain, bare = plain;
    for (int i = 0; i < positions; ++i) {
        spread.targetx[i] = w.between(6000, 58000);
        spread.targety[i] = w.between(7000, 27000);
        spread.targetrange[i] = w.between(300, 3000);
        cold.targetx[i] = w.between(5500, 16500);
        cold.targety[i] = w.between(3200, 8200);
        wild.targetx[i] = w.between(-500000, 500000);
        wild.targety[i] = w.between(-500000, 500000);
        wild.targetrange[i] = w.now_and_then(0.5) ? w.between(-3000, 5000) : w.between(-32768, 32767);
        far.targetrange[i] = w.between(1600, 6000);
    }
    bare.rangepicture = "";
    for (const auto& [name, range] : {std::pair{"visualrange.arf", spread},
                                      {"Thermalrange.arf", cold},
                                      {"plain.arf", plain},
                                      {"wild.arf", wild},
                                      {"far.arf", far},
                                      {"bare.arf", bare}})
        w.data.put_range(name, range);
    w.data.put("short.arf", w.data.get("plain.arf").substr(0, 200));
    w.data.put("damaged.arf", "\"RANGE");
}

walker::walker(unsigned s) : seed(s), random(s)
{
    put_ranges(*this);
    tell_on_death();
    under_way() = this;
}

std::string walk_under_way()
{
    const walker* w = under_way();
    if (w == nullptr) return "no walk under way";
    std::string text = "seed " + std::to_string(w->seed) + ", event " + std::to_string(w->number);
    for (const std::string& line : w->trace) text += "\n    " + line;
    if (w->run) text += "\n" + described(w->run->t);
    return text;
}

walk_result walk(unsigned seed, long events)
{
    walker w(seed);
    try {
        while (w.number < events && w.failure.empty()) w.step();
    } catch (const std::exception& e) {
        w.failure = std::string("nothing is thrown: ") + e.what();
    } catch (...) {
        w.failure = "the end of the program gets no further than the machine";
    }
    walk_result r{w.reached, w.failure.empty() ? "" : "broken: " + w.failure + "\n" + walk_under_way()};
    under_way() = nullptr;
    return r;
}

}   // namespace vorn
