#include "walk/walk.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <utility>

#include "calibration/joycal.h"
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

// The walk that a crash report describes.
const walker*& current()
{
    static const walker* w = nullptr;
    return w;
}

// Kills and wind corrections of one event.
struct shooting {
    const gunnery_screen* s = nullptr;
    int resets = 0, hits = 0;
    double correction = 0;
};

shooting shooting_now(walker& w)
{
    const gunnery_screen* s = w.run && !w.pc().ended ? w.gunnery() : nullptr;
    if (s == nullptr) return {};
    return {s, s->resets, s->hits, s->heshcorrection};
}

void count_shooting(walker& w, const shooting& before)
{
    static constexpr const char* natures[] = {"FIN", "HESH", "coax"};
    const shooting now = shooting_now(w);
    if (now.s == nullptr || now.s != before.s || now.resets != before.resets) return;
    if (now.correction != before.correction && now.correction != 0) w.count("corrections");
    if (now.hits <= before.hits) return;
    w.count(now.s->window.name + " " + natures[static_cast<int>(now.s->nature)] + " kills");
    if (w.t().shared.joyselected) w.count("kills with the joystick selected");
}

}   // namespace

void walker::count_log()
{
    static constexpr struct {
        const char* kind;
        const char* words;   // part of the text
        const char* name;
    } rows[] = {{"caption", "COMMANDER : SELECT ", "wrong rounds"},
                {"caption", "STOP DESELECT !!", "targets missed"},
                {"caption", "PAUSE OFF", "pauses"},
                {"caption", " is saved", "ranges saved"},
                {"caption", " is open", "ranges opened"},
                {"box", "RATING IS", "ratings"},
                {"box", "CAN'T BE SET UP", "unusable ranges"},
                {"box", "CALIBRATE", "refused joysticks"}};
    for (const logged& l : std::exchange(pc().log, {}))
        for (const auto& row : rows)
            if (l.kind == row.kind && l.text.find(row.words) != std::string::npos) count(row.name);
    pc().boxes.clear();
    pc().dialogs.clear();
}

void walker::after_front_change()
{
    if (pc().ended || front_form() == run->last_front) return;
    const form* const debrief = &t().results.window;
    if (front_form() == debrief) count("debriefs");
    if (run->last_front == debrief && gunnery() != nullptr) count("replays");
    if (run->last_front == &t().joycal.window && t().joycal.calstep >= 4) count("calibrations");
    run->last_front = front_form();
    run->plan.clear();
    release_all();
    if (front_form() == &t().simulator.window && t().shared.quickstart) count("quick starts");
}

// Delivers everything that is due. A lay takes time, in which more falls due.
void walker::settle()
{
    int tries = 0;
    while (!pc().ended && next_tick(pc()) <= pc().now()) {
        pc().wait(0);
        if (++tries > 100) {
            failure = "the program becomes idle";
            return;
        }
    }
}

bool walker::paused() const
{
    return run->t.shared.paused && !run->stale_pause;
}

void walker::track_pauses()
{
    session& r = *run;
    const gunnery_screen* s = gunnery();
    const bool now_paused = r.t.shared.paused;
    if (!now_paused || s == nullptr) r.stale_pause = false;
    if (now_paused && s != nullptr && !s->simrunning) r.stale_pause = true;
    if (s == nullptr || s->resets != r.last_resets) r.resumed = false;
    if (r.was_paused && !now_paused) r.resumed = true;
    r.was_paused = now_paused;
    r.last_resets = s == nullptr ? 0 : s->resets;
}

void walker::check(bool settled)
{
    if (pc().ended || !failure.empty()) return;
    const bool idle = pc().screens.depth == 0;
    failure = broken_rule(t(), {idle, settled, run->held.empty(), paused(), run->resumed});
    const auto gone = [](const gunnery_screen& s) { return s.window.state == form_state::not_loaded; };
    if (failure.empty() && idle && gone(t().simulator) && gone(t().thermal) && !pc().playing.empty())
        failure = "sounds stop when their screen is unloaded";
}

void walker::begin_session()
{
    run = std::make_unique<session>(*this);
    t().random.generator.seed(static_cast<unsigned>(random()) | 1U);
    pc().default_directory = chance(0.92) ? data.program() : data.program() + "/nowhere";
    for (gunnery_screen* s : {&t().simulator, &t().thermal})
        for (const screen_object* o : {&s->lblcrew, &s->Cmdpausesim}) pc().watch(*o);
    pc().watch(t().rauthor.outcome);
    perform("the program starts", [&] { pc().event([&] { start_program(t()); }); });
}

void walker::step()
{
    ++number;
    const shooting before = shooting_now(*this);
    if (!run || pc().ended) {
        begin_session();
    } else if (!run->plan.empty() && chance(0.93)) {
        const auto next = std::move(run->plan.front());
        run->plan.pop_front();
        next();
    } else {
        random_event(*this);
    }
    if (pc().ended) return;
    count_shooting(*this, before);
    after_front_change();
    // A mouse button that can't be held any more is released.
    const auto lost = [](const held_input& h) { return h.by == device::mouse && !takes_input(*h.button); };
    if (std::any_of(run->held.begin(), run->held.end(), lost)) release(device::mouse, 0, nullptr);
    const bool settles = chance(0.7);
    if (settles) settle();
    count_log();
    check(settles);
}

// Besides the usual ranges: ones with positions anywhere in the reach of the sight, with positions and
// distances that the range author can't set, with targets too far for FIN and the coax, without a picture,
// and damaged files.
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
        wild.targetrange[i] = w.chance(0.5) ? w.between(-3000, 5000) : w.between(-32768, 32767);
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
    current() = this;
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_set_death_callback([] { std::fprintf(stderr, "%s\n", current_walk().c_str()); });
#endif
}

std::string current_walk()
{
    const walker* w = current();
    if (w == nullptr) return "no walk is running";
    std::string text = "seed " + std::to_string(w->seed) + ", event " + std::to_string(w->number);
    for (const std::string& line : w->trace) text += "\n    " + line;
    return text;
}

walk_result walk(unsigned seed, long events)
{
    walker w(seed);
    try {
        while (w.number < events && w.failure.empty()) w.step();
    } catch (const std::exception& e) {
        w.failure = std::string("no exception leaves the program: ") + e.what();
    } catch (...) {
        w.failure = "the exception that ends the program stays inside the machine";
    }
    walk_result r{w.reached, w.failure.empty() ? "" : "broken: " + w.failure + "\n" + current_walk()};
    current() = nullptr;
    return r;
}

}   // namespace vorn
