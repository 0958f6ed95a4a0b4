#include "walk/walk.h"

#include <algorithm>
#include <cstdio>
#include <deque>
#include <exception>
#include <random>
#include <vector>

#include "calibration/joycal.h"
#include "data_folder.h"
#include "debrief/results.h"
#include "flow/intro.h"
#include "gunner.h"
#include "gunnery/screen.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"
#include "walk/rules.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace vorn {

namespace {

struct walker;

// Answers boxes at random after a random time.
class walk_machine : public headless_machine {
public:
    explicit walk_machine(walker& w) : walker_(w) {}
    bool message_box(const message&) override;
    std::optional<std::string> input_box(const std::string&, const std::string&, const std::string&) override;
    std::optional<std::string> choose_file(const file_dialog&) override;
    int open_boxes = 0, boxes_shown = 0;

private:
    walker& walker_;
};

// One run of the program, from start to exit.
struct session {
    explicit session(walker& w) : pc(w) {}
    walk_machine pc;
    trainer t{pc};
    int held = 0;             // keys and buttons that are down
    double disturbance = 0;   // probability of a random event at each call of look_again
    bool gunner_at_work = false;
    int last_resets = 0;
    bool was_paused = false;   // since the last reset
};

struct walker {
    explicit walker(unsigned seed);

    // Computed from the generator directly: the standard distributions differ between libraries.
    int below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
    int between(int from, int to) { return from + below(to - from + 1); }
    double fraction() { return below(1000000) / 1e6; }
    bool chance(double p) { return fraction() < p; }
    template <class list>
    auto& pick(list& from)
    {
        return from[static_cast<std::size_t>(below(static_cast<int>(std::size(from))))];
    }

    trainer& t() { return run->t; }
    walk_machine& pc() { return run->pc; }
    form* front_form() { return front(run->pc); }
    gunnery_screen* gunnery();   // the one in front; null if another screen is in front

    void note(const std::string& what);
    void count(const std::string& what) { reached[what] += 1; }
    // Does an action of the user, and checks that its handlers don't take too long.
    void act(const std::string& what, const std::function<void()>& action);
    void click(screen_object&);
    // Presses something, and releases it after a random time.
    void hold(const std::string& what, const std::function<void()>& down, const std::function<void()>& up);
    void step();

    unsigned seed;
    long number = 0;   // of the step
    std::mt19937 random;
    data_folder data;
    std::unique_ptr<session> run;
    std::map<std::string, long> reached;
    std::deque<std::string> trace;
    std::string failure;

private:
    void begin_session();
    void look_again();
    void fire_practice(gunnery_screen&);
    void count_log();
    void check();
};

gunnery_screen* walker::gunnery()
{
    for (gunnery_screen* s : {&t().simulator, &t().thermal})
        if (front_form() == &s->window) return s;
    return nullptr;
}

// Boxes and dialogs --------------------------------------------------------------------------------------

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

const char* random_file(walker& w, const file_dialog& dialog)
{
    static constexpr const char* ranges[] = {
        "visualrange.arf", "visualrange.arf", "Thermalrange.arf", "Thermalrange.arf", "plain.arf", "wild.arf",
        "far.arf",         "bare.arf",        "damaged.arf",      "missing.arf",      "saved"};
    static constexpr const char* pictures[] = {"visualrange.vrp", "thermalrange.trp", "visualrange.arf",
                                               "target icons/target1.ico", "missing.vrp"};
    if (dialog.save) return "saved";
    return dialog.picture ? w.pick(pictures) : w.pick(ranges);
}

bool walk_machine::message_box(const message& box)
{
    const bool yes = walker_.chance(chance_of_yes(box.text));
    if (box.buttons == box_buttons::yes_no) walker_.note(yes ? "  answers yes" : "  answers no");
    answers = {{yes, walker_.chance(0.7) ? 0 : walker_.fraction() * 8}};
    boxes_shown += 1;
    struct open_box {
        int& open;
        explicit open_box(int& n) : open(++n) {}
        ~open_box() { --open; }
    } open(open_boxes);
    return headless_machine::message_box(box);
}

std::optional<std::string> walk_machine::input_box(const std::string& title, const std::string& prompt,
                                                   const std::string& proposed)
{
    if (walker_.chance(0.7)) inputs = {std::to_string(walker_.between(-1, 99))};
    return headless_machine::input_box(title, prompt, proposed);
}

std::optional<std::string> walk_machine::choose_file(const file_dialog& dialog)
{
    const std::string name = random_file(walker_, dialog);
    walker_.note("  chooses " + name);
    if (walker_.chance(0.8)) files = {walker_.data.ranges() + "/" + name};
    return headless_machine::choose_file(dialog);
}

// Events -------------------------------------------------------------------------------------------------

void walker::note(const std::string& what)
{
    trace.push_back(std::to_string(number) + ": " + what);
    if (trace.size() > 30) trace.pop_front();
}

void walker::act(const std::string& what, const std::function<void()>& action)
{
    constexpr double longest_move = 5;   // seconds; a counted move blocks all other events
    const double started = pc().now();
    const int boxes = pc().boxes_shown;
    note(pc().screens.depth > 0 ? "  meanwhile " + what : what);
    action();
    if (failure.empty() && pc().boxes_shown == boxes && pc().now() > started + longest_move)
        failure = "no move blocks the program for more than 5 seconds";
}

std::string name_of(const screen_object& o)
{
    return !o.Caption.empty() ? o.Caption : !o.Picture.source.empty() ? o.Picture.source : o.ToolTipText;
}

void walker::click(screen_object& o)
{
    act("click " + name_of(o), [&] { pc().click(o); });
}

void walker::hold(const std::string& what, const std::function<void()>& down, const std::function<void()>& up)
{
    run->held += 1;
    act("press " + what, down);
    pc().later(fraction() * 2, [this, up, what] {
        run->held -= 1;
        act("release " + what, up);
    });
}

// The release goes to the form that received the press. A key can be pressed again before its release.
void press_code(walker& w, bool stick)
{
    const int code = stick ? w.between(0, 5) : w.chance(0.85) ? w.pick(controls).key : w.between(0, 255);
    form* f = w.front_form();
    const auto down = [&w, stick, code] {
        stick ? w.pc().stick_button(code, true) : w.pc().key_down(code, w.chance(0.02));
    };
    w.hold((stick ? "stick button " : "key ") + std::to_string(code), down, [&w, stick, code, f] {
        const auto& up = stick ? f->ButtonUp : f->KeyUp;
        if (f->state != form_state::not_loaded && up) w.pc().event([&] { up(code); });
    });
}

// Clicks or presses a random object, nine times in ten one that takes input.
void use_anything(walker& w)
{
    std::vector<screen_object*> all = w.front_form()->objects;
    if (w.chance(0.9))
        std::erase_if(all, [](const screen_object* o) {
            const bool choice = o->kind == object_kind::option || o->kind == object_kind::checkbox;
            return !takes_input(*o) || !(o->Click || o->ClickAt || o->MouseDown || choice);
        });
    if (all.empty()) return;
    screen_object& o = *w.pick(all);
    if (o.ClickAt)
        return w.act("click at a place",
                     [&] { w.pc().click_at(o, o.Width * w.fraction(), o.Height * w.fraction()); });
    if (!o.MouseDown) return w.click(o);
    w.hold(
        name_of(o), [&w, &o] { w.pc().press(o); }, [&w, &o] { w.pc().release(o); });
}

void move_over_anything(walker& w)
{
    std::vector<screen_object*> all = w.front_form()->objects;
    std::erase_if(all, [](const screen_object* o) { return !o->MouseMove || !takes_input(*o); });
    if (all.empty()) return;
    screen_object& o = *w.pick(all);
    w.act("move over " + name_of(o), [&] { w.pc().event(o.MouseMove); });
}

void slide_or_type_anything(walker& w)
{
    static constexpr const char* texts[] = {"", "smith", "A name far too long for the thirty characters",
                                            "99"};
    for (screen_object* o : w.front_form()->objects) {
        if (!w.chance(0.5)) continue;
        if (o->kind == object_kind::slider)
            w.act("slide", [&] { w.pc().slide(*o, w.between(o->Min - 5, o->Max + 5)); });
        if (o->kind == object_kind::textbox) w.act("type", [&] { w.pc().type(*o, w.pick(texts)); });
    }
}

void move_stick(walker& w)
{
    const auto axis = [&w] { return w.chance(0.3) ? 32768L : static_cast<long>(w.below(65536)); };
    const long x = axis(), y = axis();
    w.act("stick " + std::to_string(x) + ' ' + std::to_string(y), [&] { w.pc().stick(x, y); });
}

void plug_or_pull_stick(walker& w)
{
    const bool in = w.chance(0.8);
    w.act(in ? "plug a stick in" : "pull the stick out", [&] { w.pc().plug_stick(in); });
}

void close_window(walker& w)
{
    w.act("close the window", [&] { w.pc().close_window(*w.front_form()); });
}

void bring_to_front(walker& w)
{
    form& f = *w.pick(w.pc().screens.loaded);
    w.act("bring to the front " + f.name, [&] { w.pc().activate(f); });
}

// Clicks a button that leads on from the screen in front; random clicks seldom hit one.
void go_on(walker& w)
{
    trainer& t = w.t();
    const std::pair<const form*, std::vector<screen_object*>> ways[] = {
        {&t.intro.window, {&t.intro.lblstart}},
        {&t.startsim.window,
         {&t.startsim.Cmdstart, &t.startsim.Cmdstart, &t.startsim.Cmdstart, &t.startsim.cmdgame,
          &t.startsim.Optcon2, &t.startsim.Opttime3, &t.startsim.cmdstick, &t.startsim.cmdeditrange,
          &t.startsim.Cmdopenrange}},
        {&t.joycal.window, {&t.joycal.Cmdstart, &t.joycal.Cmdfinish, &t.joycal.Cmdfinish}},
        {&t.rauthor.window, {&t.rauthor.Cmdopen, &t.rauthor.Cmdsave, &t.rauthor.Cmdstart}},
        {&t.results.window, {&t.results.Cmdreplay, &t.results.cmdnew}}};
    for (const auto& [screen, buttons] : ways)
        if (w.front_form() == screen) return w.click(*w.pick(buttons));
}

// A random event. It takes no time, so it can also happen while a handler runs.
void sudden_event(walker& w)
{
    static constexpr struct {
        int weight;
        void (*happens)(walker&);
    } events[] = {{40, use_anything},
                  {20, [](walker& w) { press_code(w, false); }},
                  {10, move_stick},
                  {10, [](walker& w) { press_code(w, true); }},
                  {10, go_on},
                  {6, move_over_anything},
                  {4, slide_or_type_anything},
                  {1, close_window},
                  {1, bring_to_front},
                  {1, plug_or_pull_stick}};
    int left = w.below(103);   // the sum of the weights
    for (const auto& e : events)
        if ((left -= e.weight) < 0) return e.happens(w);
}

// Practices ----------------------------------------------------------------------------------------------

void walker::fire_practice(gunnery_screen& s)
{
    static constexpr double disturbances[] = {0, 0, 0.01, 0.1, 0.5};
    const practice_state& p = t().shared;
    const bool buttons =
        p.mouseselected && takes_input(s.Cmdcoax.parent != nullptr ? *s.Cmdcoax.parent : s.Cmdcoax);
    run->disturbance = pick(disturbances);
    note("fires a practice, disturbed " + std::to_string(run->disturbance));
    run->gunner_at_work = true;
    const std::string sight = s.window.name;
    gunner g(pc(), t(), s, buttons ? device::mouse : p.joyselected ? device::stick : device::key);
    g.fire_practice();
    run->gunner_at_work = false;
    run->disturbance = 0.2;
    for (const engagement_note& n : g.notes)
        if (n.hit) count(sight + " " + n.order + " kills");
}

// The walk -----------------------------------------------------------------------------------------------

// Checks the rules at random times, also while a handler runs. Sometimes causes a random event first.
void walker::look_again()
{
    pc().later(fraction() * 2, [this] {
        if (pc().open_boxes == 0 && chance(run->disturbance)) sudden_event(*this);
        if (pc().ended) return;
        check();
        look_again();
    });
}

void walker::begin_session()
{
    run = std::make_unique<session>(*this);
    t().random.generator.seed(static_cast<unsigned>(random()) | 1U);
    pc().default_directory = chance(0.92) ? data.program() : data.program() + "/nowhere";
    for (gunnery_screen* s : {&t().simulator, &t().thermal})
        for (const screen_object* o : {&s->lblcrew, &s->Cmdpausesim}) pc().watch(*o);
    pc().watch(t().rauthor.outcome);
    note("the program starts");
    run->disturbance = 0.2;
    pc().event([&] { start_program(t()); });
    look_again();
}

// Counts how often each screen, box, outcome and crew line occurred. Texts that are the same up to their
// first digit or slash are counted together.
void walker::count_log()
{
    for (const logged& l : std::exchange(pc().log, {}))
        if (l.kind != "sound" && l.kind != "printed")
            count(l.kind + ' ' + l.text.substr(0, l.text.find_first_of("0123456789/")));
    pc().boxes.clear();
    pc().dialogs.clear();
}

void walker::check()
{
    if (pc().ended || !failure.empty()) return;
    const gunnery_screen* s = gunnery();
    const int resets = s == nullptr ? 0 : s->resets;
    run->was_paused = t().shared.paused || (run->was_paused && resets == run->last_resets);
    run->last_resets = resets;
    const bool idle = pc().screens.depth == 0;
    failure = broken_rule(t(), {idle, run->held == 0 && !run->gunner_at_work, run->was_paused});
    const auto gone = [](const gunnery_screen& g) { return g.window.state == form_state::not_loaded; };
    if (failure.empty() && idle && gone(t().simulator) && gone(t().thermal) && !pc().playing.empty())
        failure = "sounds stop when their screen is unloaded";
}

void walker::step()
{
    ++number;
    gunnery_screen* const s = run && !pc().ended ? gunnery() : nullptr;
    if (!run || pc().ended)
        begin_session();
    else if (s != nullptr && chance(0.05))
        fire_practice(*s);
    else if (chance(0.1))
        pc().wait(fraction() * 4);
    else
        sudden_event(*this);
    if (pc().ended) return;
    count_log();
    check();
}

// Makes ranges with positions anywhere in the reach of the sight, with positions and distances that the range
// author can't set, with targets too far for FIN and the coax, and without a picture; and a damaged file.
void put_ranges(walker& w)
{
    const practice_state plain = plain_range(sight_kind::visual);
    practice_state spread = plain, wild = plain, far = plain, bare = plain;
    for (int i = 0; i < positions; ++i) {
        spread.targetx[i] = w.between(6000, 58000);
        spread.targety[i] = w.between(7000, 27000);
        spread.targetrange[i] = w.between(300, 3000);
        wild.targetx[i] = w.between(-500000, 500000);
        wild.targety[i] = w.between(-500000, 500000);
        wild.targetrange[i] = w.between(-32768, 32767);
        far.targetrange[i] = w.between(1600, 6000);
    }
    bare.rangepicture = "";
    for (const auto& [name, range] : {std::pair{"visualrange.arf", spread},
                                      {"plain.arf", plain},
                                      {"wild.arf", wild},
                                      {"far.arf", far},
                                      {"bare.arf", bare}})
        w.data.put_range(name, range);
    w.data.put("damaged.arf", "\"RANGE");
}

// The walk that a crash report describes; null if none is running.
const walker*& current()
{
    static const walker* w = nullptr;
    return w;
}

walker::walker(unsigned s) : seed(s), random(s)
{
    put_ranges(*this);
    current() = this;
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_set_death_callback([] { std::fprintf(stderr, "%s\n", current_walk().c_str()); });
#endif
}

}   // namespace

std::string current_walk()
{
    const walker* w = current();
    if (w == nullptr) return "no walk is running";
    std::string text = "seed " + std::to_string(w->seed) + ", step " + std::to_string(w->number);
    for (const std::string& line : w->trace) text += "\n    " + line;
    return text;
}

walk_result walk(unsigned seed, long steps)
{
    walker w(seed);
    try {
        while (w.number < steps && w.failure.empty()) w.step();
    } catch (const std::exception& e) {
        w.failure = std::string("no exception leaves the program: ") + e.what();
    }
    walk_result r{w.reached, w.failure.empty() ? "" : "broken: " + w.failure + "\n" + current_walk()};
    current() = nullptr;
    return r;
}

}   // namespace vorn
