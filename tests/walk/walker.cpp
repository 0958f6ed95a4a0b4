#include "walk/walker.h"

#include <algorithm>

#include "gunnery/screen.h"

namespace vorn {

// Boxes and dialogs --------------------------------------------------------------------------------------

namespace {

// Exists while a box is open.
struct open_box {
    walk_machine& pc;
    explicit open_box(walker& w) : pc(w.pc())
    {
        w.release_all();
        pc.open_boxes += 1;
        pc.boxes_shown += 1;
    }
    ~open_box() { pc.open_boxes -= 1; }
};

double chance_of_yes(const std::string& text)
{
    static constexpr struct {
        const char* words;
        double chance;
    } questions[] = {{"EXIT ?", 0.15},
                     {"DELETE", 0},   // the file that was opened may be a range
                     {"START SIMULATOR", 0.9},
                     {"LOCATE ONE", 0.9},
                     {"LOOK FOR IT", 0.8}};
    for (const auto& q : questions)
        if (text.find(q.words) != std::string::npos) return q.chance;
    return 0.5;
}

double seconds_to_answer(walker& w)
{
    const double p = w.fraction();
    return p < 0.7 ? 0 : p < 0.95 ? w.fraction() * 2 : p < 0.995 ? w.fraction() * 8 : 60;
}

bool complete_record(const practice_state& p, int targets)
{
    for (int i = 1; i <= targets; ++i) {
        const bool closed = p.rechit[i] == "YES" || p.rechit[i] == "NO";
        if (!closed || p.rectarget[i] != i || p.recsystem[i].empty()) return false;
    }
    return true;
}

// The last tick of the last target shows the score, unless the practice is stopped before.
void check_score(walker& w, const std::string& text)
{
    const gunnery_screen* s = w.gunnery();
    if (s == nullptr || text.find("SCORE = ") == std::string::npos) return;
    const bool lastdown = s->Timtarget.ticking && !s->Imgtargets.Visible;
    const bool allshown = lastdown && s->targetnumber == w.t().shared.targetblocks * 3;
    w.count(allshown ? "practices completed" : "practices stopped");
    if (allshown && !complete_record(w.t().shared, s->targetnumber))
        w.failure = "a completed practice leaves a complete record";
    for (const char* wrong : {"= -", "= nan", "= inf"})
        if (text.find(wrong) != std::string::npos) w.failure = "a score is a number from 0 up";
}

// Usable files and unusable ones.
const char* random_file(walker& w, const file_dialog& dialog)
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
    return of("*.vrp") ? w.pick(pictures) : of("*.ico") ? w.pick(icons) : w.pick(ranges);
}

}   // namespace

bool walk_machine::message_box(const message& box)
{
    check_score(walker_, box.text);
    const open_box open(walker_);
    const bool yes = walker_.chance(chance_of_yes(box.text));
    answers = {{yes, seconds_to_answer(walker_)}};
    if (box.buttons == box_buttons::yes_no) walker_.note(yes ? "  answers yes" : "  answers no");
    return headless_machine::message_box(box);
}

std::optional<std::string> walk_machine::input_box(const std::string& title, const std::string& prompt,
                                                   const std::string& proposed)
{
    const open_box open(walker_);
    if (walker_.chance(0.7)) inputs = {std::to_string(walker_.between(-1, 99))};
    return headless_machine::input_box(title, prompt, proposed);
}

std::optional<std::string> walk_machine::choose_file(const file_dialog& dialog)
{
    const open_box open(walker_);
    const std::string name = random_file(walker_, dialog);
    walker_.note("  chooses " + name);
    if (walker_.chance(0.8)) files = {walker_.data.ranges() + "/" + name};
    return headless_machine::choose_file(dialog);
}

// User actions -------------------------------------------------------------------------------------------

const std::string& name_of(const screen_object& o)
{
    return !o.Caption.empty() ? o.Caption : !o.Picture.source.empty() ? o.Picture.source : o.ToolTipText;
}

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

void walker::perform(const std::string& what, const std::function<void()>& action)
{
    note(pc().screens.depth > 0 ? "  meanwhile " + what : what);
    action();
    if (!pc().ended) track_pauses();
}

void walker::act(const std::string& what, const std::function<void()>& action)
{
    constexpr double longest_move = 5;   // seconds; a counted move blocks everything else
    const double started = pc().now();
    const int boxes = pc().boxes_shown;
    const gunnery_screen* s = gunnery();
    const bool in_lay = s != nullptr && s->Timtarget.ticking && pc().open_boxes == 0;
    const int resets = s != nullptr ? s->resets : 0;
    perform(what, action);
    if (in_lay && s->resets != resets && !pc().ended)
        count(s->window.state == form_state::not_loaded ? "unloads during a lay" : "stops during a lay");
    if (failure.empty() && pc().boxes_shown == boxes && pc().now() > started + longest_move)
        failure = "no move blocks the program for more than 5 seconds";
}

void walker::click(screen_object& o)
{
    act("click " + name_of(o), [&] { pc().click(o); });
}

// Auto-repeat goes to the form now in front, and so does the release.
void walker::key_down(int code)
{
    std::erase_if(run->held, [&](const held_input& h) { return h.by == device::key && h.code == code; });
    run->held.push_back({device::key, code, nullptr, front_form()});
    std::string name = "key down " + std::to_string(code);
    if (code > ' ' && code <= 'Z') name += std::string(" ") + static_cast<char>(code);
    act(name, [&] { pc().key_down(code); });
}

void walker::stick_down(int button)
{
    run->held.push_back({device::stick, button, nullptr, front_form()});
    act("stick button " + std::to_string(button), [&] { pc().stick_button(button, true); });
}

// There is one mouse, so the button that was held is released first.
void walker::press(screen_object& o)
{
    release(device::mouse, 0, nullptr);
    if (takes_input(o)) run->held.push_back({device::mouse, 0, &o, o.owner});
    act("press " + name_of(o), [&] { pc().press(o); });
}

static void send_release(walker& w, const held_input& h)
{
    if (h.receiver == nullptr || h.receiver->state == form_state::not_loaded) return;
    if (h.by == device::key && h.receiver->KeyUp) w.pc().event([&] { h.receiver->KeyUp(h.code); });
    if (h.by == device::stick && h.receiver->ButtonUp) w.pc().event([&] { h.receiver->ButtonUp(h.code); });
    if (h.by == device::mouse) w.pc().release(*h.button);
}

// Of the mouse, null releases whatever it holds.
void walker::release(device by, int code, const screen_object* button)
{
    const auto found = std::find_if(run->held.begin(), run->held.end(), [&](const held_input& h) {
        return h.by == by && h.code == code && (button == nullptr || h.button == button);
    });
    if (found == run->held.end()) return;
    const held_input h = *found;
    run->held.erase(found);
    act("release " + (h.button != nullptr ? name_of(*h.button) : std::to_string(code)),
        [&] { send_release(*this, h); });
}

void walker::release_one()
{
    if (run->held.empty()) return;
    const held_input h = pick(run->held);
    release(h.by, h.code, h.button);
}

void walker::release_all()
{
    while (!run->held.empty()) {
        const held_input h = run->held.back();
        release(h.by, h.code, h.button);
    }
}

// Held joystick buttons are released when the joystick is pulled out, as on the desktop.
void walker::plug_stick(bool in)
{
    if (!in) release_all();
    act(in ? "plug a stick in" : "pull the stick out", [&] { pc().plug_stick(in); });
}

// The rules are checked each half second.
void walker::wait(double seconds)
{
    perform("wait " + std::to_string(seconds), [&] {
        constexpr double slice = 0.5;
        for (double left = seconds; left > 0 && failure.empty() && !pc().ended; left -= slice) {
            const double until = pc().now() + std::min(left, slice);
            pc().wait(std::min(left, slice));
            if (!pc().ended && pc().now() < until) failure = "time advances during a wait";
            check(false);
        }
    });
}

// Within a minute without input the next target appears, or the last one goes down.
void walker::wait_a_minute()
{
    const gunnery_screen* s = gunnery();
    const bool watched = s != nullptr && s->simrunning && t().shared.targetauto &&
                         t().shared.targettime <= 40 && s->targetlife <= 40;
    const int resets = watched ? s->resets : 0, target = watched ? int{s->targetnumber} : 0;
    wait(60);
    if (!watched || pc().ended || gunnery() != s || s->resets != resets || paused()) return;
    count("minutes without input");
    if (failure.empty() && s->targetnumber == target) failure = "a practice continues without input";
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
