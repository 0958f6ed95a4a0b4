#include "walk/walker.h"
#include "gunnery/screen.h"

#include <algorithm>

namespace vorn {

// The machine's questions --------------------------------------------------------------------------------

namespace {

// While there is one, a box is up.
struct open_box {
    walked_machine& pc;
    explicit open_box(walker& w) : pc(w.pc())
    {
        w.let_go_all();
        pc.open_boxes += 1;
        pc.boxes_asked += 1;
    }
    ~open_box() { pc.open_boxes -= 1; }
};

}   // namespace

static double chance_of_yes(const std::string& text)
{
    static constexpr struct {
        const char* words;
        double chance;
    } questions[] = {{"EXIT ?", 0.15},
                     {"DELETE", 0},   // what it chose to open may be a range
                     {"START SIMULATOR", 0.9},
                     {"LOCATE ONE", 0.9},
                     {"LOOK FOR IT", 0.8}};
    for (const auto& q : questions)
        if (text.find(q.words) != std::string::npos) return q.chance;
    return 0.5;
}

static double time_to_answer(walker& w)
{
    const double p = w.part();
    return p < 0.7 ? 0 : p < 0.95 ? w.part() * 2 : p < 0.995 ? w.part() * 8 : 60;
}

static bool whole_record(const practice_state& p, int targets)
{
    for (int i = 1; i <= targets; ++i) {
        const bool closed = p.rechit[i] == "YES" || p.rechit[i] == "NO";
        if (!closed || p.rectarget[i] != i || p.recsystem[i].empty()) return false;
    }
    return true;
}

// The score comes of the last target's last tick when nobody has stopped the practice.
static void count_end(walker& w, const std::string& text)
{
    const gunnery_screen* s = w.gunnery();
    if (s == nullptr || text.find("SCORE = ") == std::string::npos) return;
    const bool lastdown = s->Timtarget.ticking && !s->Imgtargets.Visible;
    const bool allshown = lastdown && s->targetnumber == w.t().shared.targetblocks * 3;
    w.count(allshown ? "practices fought to their end" : "practices stopped");
    if (allshown && !whole_record(w.t().shared, s->targetnumber))
        w.failure = "a practice fought to its end leaves a whole record";
    for (const char* wrong : {"= -", "= nan", "= inf"})
        if (text.find(wrong) != std::string::npos) w.failure = "a score is a number from 0 on";
}

bool walked_machine::message_box(const message& box)
{
    count_end(walker_, box.text);
    const open_box open(walker_);
    const bool yes = walker_.now_and_then(chance_of_yes(box.text));
    answers = {{yes, time_to_answer(walker_)}};
    if (box.buttons == box_buttons::yes_no) walker_.note(yes ? "  answers yes" : "  answers no");
    return headless_machine::message_box(box);
}

std::optional<std::string> walked_machine::input_box(const std::string& title, const std::string& prompt,
                                                     const std::string& proposed)
{
    const open_box open(walker_);
    if (walker_.now_and_then(0.7)) inputs = {std::to_string(walker_.between(-1, 99))};
    return headless_machine::input_box(title, prompt, proposed);
}

// What there is to choose from, in turn with what is no use.
static const char* some_file(walker& w, const file_dialog& dialog)
{
    static constexpr const char* ranges[] = {"visualrange.arf",  "visualrange.arf",
                                             "Thermalrange.arf", "Thermalrange.arf",
                                             "visualrange.arf",  "plain.arf",
                                             "plain.arf",        "wild.arf",
                                             "far.arf",          "short.arf",
                                             "bare.arf",         "damaged.arf",
                                             "missing.arf",      "saved"};
    static constexpr const char* pictures[] = {"visualrange.vrp", "thermalrange.trp", "visualrange.arf",
                                               "target icons/target1.ico", "missing.vrp"};
    static constexpr const char* icons[] = {"target icons/target1.ico", "plain.arf", "missing.ico"};
    if (dialog.save) return "saved";
    const auto of = [&](const char* pattern) { return dialog.filter.find(pattern) != std::string::npos; };
    return of("*.vrp") ? w.any_of(pictures) : of("*.ico") ? w.any_of(icons) : w.any_of(ranges);
}

std::optional<std::string> walked_machine::choose_file(const file_dialog& dialog)
{
    const open_box open(walker_);
    const std::string name = some_file(walker_, dialog);
    walker_.note("  chooses " + name);
    if (walker_.now_and_then(0.8)) files = {walker_.data.ranges() + "/" + name};
    return headless_machine::choose_file(dialog);
}

// What a user does ---------------------------------------------------------------------------------------

gunnery_screen* walker::gunnery()
{
    for (gunnery_screen* s : {&t().simulator, &t().thermal})
        if (front_form() == &s->window) return s;
    return nullptr;
}

void walker::note(const std::string& what)
{
    trace.push_back(std::to_string(number) + ": " + what);
    if (trace.size() > 30) trace.pop_front();
}

namespace {

// What tells a shot, and a practice cut off.
struct glance {
    const gunnery_screen* s = nullptr;
    bool loaded = false, bursting = false, running = false, inlay = false;
    int hits = 0, resets = 0;
    double corrected = 0;
};

glance glance_at(walker& w)
{
    const gunnery_screen* s = w.gunnery();
    if (s == nullptr) return {};
    const bool inlay = s->Timtarget.ticking && w.pc().open_boxes == 0;
    return {s, s->gunloaded, s->Timcoax.Enabled, s->simrunning, inlay, s->hits, s->resets, s->heshcorrection};
}

void count_shot(walker& w, const glance& before)
{
    static constexpr const char* natures[] = {"FIN", "HESH", "coax"};
    const gunnery_screen& s = *before.s;
    const bool round = before.loaded && !s.gunloaded;
    const bool burst = !before.bursting && s.Timcoax.Enabled;
    if (!round && !burst) return;
    const std::string nature = natures[burst ? 2 : static_cast<int>(s.nature)];
    if (s.hits > before.hits) w.count(s.window.name + " " + nature + " kills");
    if (w.t().shared.joyselected) w.count("fired by stick");
    if (round && s.hits == before.hits) w.count("misses");
    if (round && s.relayed > 0) w.count("re-lays");
}

void count_done(walker& w, const glance& before)
{
    const gunnery_screen* s = before.s;
    if (s == nullptr || w.pc().ended) return;
    const bool gone = s->resets != before.resets;
    const bool unloaded = s->window.state == form_state::not_loaded;
    if (before.inlay && gone) w.count(unloaded ? "unloads in a lay" : "stops in a lay");
    if (before.running && unloaded) w.count("practices left");
    if (s->heshcorrection != before.corrected && s->heshcorrection != 0) w.count("corrections");
    if (!gone) count_shot(w, before);
}

}   // namespace

void walker::does(const std::string& what, const std::function<void()>& action)
{
    note(pc().screens.depth > 0 ? "  meanwhile " + what : what);
    action();
    if (!pc().ended) mind_pauses();
}

// A counted move holds up everything else.
void walker::instantly(const std::string& what, const std::function<void()>& action)
{
    constexpr double longest_move = 5;   // seconds
    const double started = pc().now();
    const int asked = pc().boxes_asked;
    const glance before = glance_at(*this);
    does(what, action);
    count_done(*this, before);
    if (failure.empty() && pc().boxes_asked == asked && pc().now() > started + longest_move)
        failure = "no move holds up the program for longer than some seconds";
}

const std::string& name_of(const screen_object& o)
{
    return !o.Caption.empty() ? o.Caption : !o.Picture.source.empty() ? o.Picture.source : o.ToolTipText;
}

// Each repeat goes to the screen then in front, and so does the release.
void walker::key_down(int code)
{
    std::erase_if(run->held, [&](const held_input& h) { return h.by == device::key && h.code == code; });
    run->held.push_back({device::key, code, nullptr, front_form()});
    std::string name = "key down " + std::to_string(code);
    if (code > ' ' && code <= 'Z') name += std::string(" ") + static_cast<char>(code);
    instantly(name, [&] { pc().key_down(code); });
}

void walker::stick_down(int number_)
{
    run->held.push_back({device::stick, number_, nullptr, front_form()});
    instantly("stick button " + std::to_string(number_), [&] { pc().stick_button(number_, true); });
}

// There is one mouse.
void walker::press(screen_object& o)
{
    let_go(device::mouse, 0, nullptr);
    if (takes_input(o)) run->held.push_back({device::mouse, 0, &o, o.owner});
    instantly("press " + name_of(o), [&] { pc().press(o); });
}

static void release(walker& w, const held_input& h)
{
    if (h.holder == nullptr || h.holder->state == form_state::not_loaded) return;
    if (h.by == device::key && h.holder->KeyUp) w.pc().event([&] { h.holder->KeyUp(h.code); });
    if (h.by == device::stick && h.holder->ButtonUp) w.pc().event([&] { h.holder->ButtonUp(h.code); });
    if (h.by == device::mouse) w.pc().release(*h.button);
}

void walker::let_go(device by, int code, const screen_object* button)
{
    const auto found = std::find_if(run->held.begin(), run->held.end(), [&](const held_input& h) {
        return h.by == by && h.code == code && (button == nullptr || h.button == button);
    });
    if (found == run->held.end()) return;
    const held_input h = *found;
    run->held.erase(found);
    instantly("let go " + (h.button != nullptr ? name_of(*h.button) : std::to_string(code)),
              [&] { release(*this, h); });
}

void walker::let_go_one()
{
    if (!run->held.empty()) let_go(any_of(run->held));
}

void walker::let_go_all()
{
    while (!run->held.empty()) let_go(run->held.back());
}

void walker::stick(long x, long y)
{
    instantly("stick " + std::to_string(x) + ' ' + std::to_string(y), [&] { pc().stick(x, y); });
}

// What is held on a stick that is pulled out is let go, as on the desktop.
void walker::plug_stick(bool in)
{
    if (!in) let_go_all();
    instantly(in ? "plug a stick in" : "pull the stick out", [&] { pc().plug_stick(in); });
}

// In slices, so that the rules are looked at on the way.
void walker::wait(double seconds)
{
    does("wait " + std::to_string(seconds), [&] {
        constexpr double slice = 0.5;
        for (double left = seconds; left > 0 && failure.empty() && !pc().ended; left -= slice) {
            const double until = pc().now() + std::min(left, slice);
            pc().wait(std::min(left, slice));
            if (!pc().ended && pc().now() < until) failure = "time goes on";
            check(false);
        }
    });
}

// A practice that is left to itself goes on: within a minute the next target is up, or the last one is down.
void walker::wait_a_minute()
{
    const gunnery_screen* s = gunnery();
    const bool watched = s != nullptr && s->simrunning && t().shared.targetauto &&
                         t().shared.targettime <= 40 && s->targetlife <= 40;
    const int resets = watched ? s->resets : 0, target = watched ? int{s->targetnumber} : 0;
    wait(60);
    if (!watched || pc().ended || gunnery() != s || s->resets != resets || halted()) return;
    count("minutes left to itself");
    if (failure.empty() && s->targetnumber == target) failure = "a practice left to itself goes on";
}

void walker::close_window()
{
    if (form* f = front_form()) instantly("close the window", [&] { pc().close_window(*f); });
}

void walker::later(double seconds, void (*action)(walker&))
{
    pc().later(seconds, [this, action] {
        if (pc().open_boxes > 0 || pc().ended) return;
        action(*this);
        if (pc().screens.depth == 0) after_front_change();
        check(false);
    });
}

}   // namespace vorn
