// Random walks: a simulated user who does random things at random times on the headless machine. Part of the
// time a scripted gunner fires a practice, so that some practices run to their end. The rules of rules.h are
// checked throughout. The same seed gives the same walk. docs/DEVELOPING.md says how to walk longer or with
// another seed.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <exception>
#include <random>
#include <set>

#include "drill.h"
#include "walk/rules.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace vorn {

namespace {

struct walker;

// One run of the program, from start to exit. Answers boxes at random, some only after some seconds.
struct session : headless_machine {
    explicit session(walker& w) : user(w) {}
    bool message_box(const message&) override;
    std::optional<std::string> input_box(const std::string&, const std::string&, const std::string&) override;
    std::optional<std::string> choose_file(const file_dialog&) override;

    walker& user;
    trainer t{*this};
    int open_boxes = 0;
    int held = 0;             // number of keys and buttons that are down; a gunner at work counts as one
    double disturbance = 0;   // probability of a random event at each check of look_again
    int last_resets = 0;
    bool was_paused = false;   // since the last reset
};

// Causes a random event, also while a handler runs.
void sudden_event(walker&);

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
    session& pc() { return *run; }
    form* front_form() { return front(*run); }

    // The gunnery screen in front; null if another screen is in front.
    gunnery_screen* gunnery()
    {
        for (gunnery_screen* s : {&t().simulator, &t().thermal})
            if (front_form() == &s->window) return s;
        return nullptr;
    }
    void note(const std::string& what)
    {
        trace.push_back(std::to_string(number) + ": " + what);
        if (trace.size() > 30) trace.pop_front();
    }
    // Does an action of the user, and checks that its handlers don't take too long.
    void act(const std::string& what, const std::function<void()>& action)
    {
        constexpr double longest_move = 5;   // seconds; no event is handled during a flight or an autolay
        const double started = pc().now();
        const std::size_t boxes = pc().boxes.size();
        note(pc().screens.depth > 0 ? "  meanwhile " + what : what);
        action();
        if (failure.empty() && pc().boxes.size() == boxes && pc().now() > started + longest_move)
            failure = "no move blocks the program for more than 5 seconds";
    }
    // Presses something, and releases it after a random time.
    void hold(const std::string& what, const std::function<void()>& down, const std::function<void()>& up)
    {
        run->held += 1;
        act("press " + what, down);
        pc().later(fraction() * 2, [this, up, what] {
            run->held -= 1;
            act("release " + what, up);
        });
    }
    void fire_practice(gunnery_screen& s)
    {
        static constexpr double disturbances[] = {0, 0, 0.01, 0.1, 0.5};
        const practice_state& p = t().shared;
        const bool buttons = p.mouseselected && takes_input(s.Frmmousecon);
        run->disturbance = pick(disturbances);
        note("fires a practice, disturbed " + std::to_string(run->disturbance));
        run->held += 1;
        const std::string sight = s.window.name;
        const device by = buttons ? device::mouse : p.joyselected ? device::stick : device::key;
        for (const engagement_note& n : vorn::fire_practice(pc(), t(), s, by))
            if (n.hit) reached.insert(sight + ' ' + n.order);
        run->held -= 1;
        run->disturbance = 0.2;
    }
    // Checks the rules at random times, also while a handler runs. Sometimes causes a random event first.
    void look_again()
    {
        pc().later(fraction() * 2, [this] {
            if (pc().open_boxes == 0 && chance(run->disturbance)) sudden_event(*this);
            if (pc().ended) return;
            check();
            look_again();
        });
    }
    void begin_session()
    {
        run = std::make_unique<session>(*this);
        t().random.generator.seed(static_cast<unsigned>(random()) | 1U);
        pc().default_directory = chance(0.92) ? data.program() : data.program() + "/nowhere";
        for (gunnery_screen* s : {&t().simulator, &t().thermal})
            pc().watch(s->lblcrew);   // for the scripted gunner
        note("the program starts");
        run->disturbance = 0.2;
        pc().event([&] { start_program(t()); });
        look_again();
    }
    void check()
    {
        if (pc().ended || !failure.empty()) return;
        const gunnery_screen* s = gunnery();
        const int resets = s == nullptr ? 0 : s->resets;
        run->was_paused = t().shared.paused || (run->was_paused && resets == run->last_resets);
        run->last_resets = resets;
        const bool idle = pc().screens.depth == 0;
        failure = broken_rule(t(), {idle, run->held == 0, run->was_paused});
        const auto gone = [](const gunnery_screen& g) { return g.window.state == form_state::not_loaded; };
        if (failure.empty() && idle && gone(t().simulator) && gone(t().thermal) && !pc().playing.empty())
            failure = "sounds stop when their screen is unloaded";
    }
    void step()
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
        reached.insert(front_form()->name);
        pc().log.clear();
        pc().boxes.clear();
        pc().dialogs.clear();
        check();
    }
    std::string last_actions() const
    {
        std::string text = "seed " + std::to_string(seed) + ", step " + std::to_string(number);
        for (const std::string& line : trace) text += "\n    " + line;
        return text;
    }

    unsigned seed;
    long number = 0;   // of the step
    std::mt19937 random;
    data_folder data;
    std::unique_ptr<session> run;
    std::set<std::string> reached;   // the screens, and the natures of targets killed on each sight
    std::deque<std::string> trace;   // the last actions
    std::string failure;
};

// Boxes and dialogs --------------------------------------------------------------------------------------

double chance_of_yes(const std::string& question)
{
    const auto asks = [&](const char* words) { return question.find(words) != std::string::npos; };
    if (asks("DELETE")) return 0;   // may be a range file, which the walk still needs
    if (asks("EXIT ?")) return 0.15;
    return asks("START SIMULATOR") || asks("LOCATE ONE") || asks("LOOK FOR IT") ? 0.9 : 0.5;
}

bool session::message_box(const message& box)
{
    const bool yes = user.chance(chance_of_yes(box.text));
    user.note(yes ? "  answers yes" : "  answers no");
    answers = {{yes, user.chance(0.7) ? 0 : user.fraction() * 8}};
    open_boxes += 1;
    const bool answer = headless_machine::message_box(box);
    open_boxes -= 1;
    return answer;
}

std::optional<std::string> session::input_box(const std::string& title, const std::string& prompt,
                                              const std::string& proposed)
{
    if (user.chance(0.7)) inputs = {std::to_string(user.between(-1, 99))};
    return headless_machine::input_box(title, prompt, proposed);
}

std::optional<std::string> session::choose_file(const file_dialog& dialog)
{
    static constexpr const char* names[] = {
        "visualrange.arf", "visualrange.arf", "Thermalrange.arf", "Thermalrange.arf", "plain.arf", "wild.arf",
        "far.arf",         "bare.arf",        "damaged.arf",      "missing.arf",      "saved"};
    static constexpr const char* pictures[] = {"visualrange.vrp", "thermalrange.trp", "visualrange.arf",
                                               "target icons/target1.ico", "missing.vrp"};
    const std::string name = dialog.save ? "saved" : dialog.picture ? user.pick(pictures) : user.pick(names);
    user.note("  chooses " + name);
    if (user.chance(0.8)) files = {user.data.ranges() + "/" + name};
    return headless_machine::choose_file(dialog);
}

// Events -------------------------------------------------------------------------------------------------

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

// Uses a random object as its kind allows, nine times in ten one that takes input.
void use_anything(walker& w)
{
    static constexpr const char* texts[] = {"", "smith", "A name far too long for the thirty characters",
                                            "99"};
    std::vector<screen_object*> all = w.front_form()->objects;
    if (w.chance(0.9))
        std::erase_if(all, [](const screen_object* o) {
            const bool sets = o->kind == object_kind::option || o->kind == object_kind::checkbox ||
                              o->kind == object_kind::slider || o->kind == object_kind::textbox;
            return !takes_input(*o) || !(o->Click || o->ClickAt || o->MouseDown || o->MouseMove || sets);
        });
    if (all.empty()) return;
    screen_object& o = *w.pick(all);
    headless_machine& pc = w.pc();
    const std::string name = o.Caption + o.Picture.source;
    if (o.MouseMove && takes_input(o)) w.act("move over " + name, [&] { pc.event(o.MouseMove); });
    if (o.kind == object_kind::slider)
        return w.act("slide", [&] { pc.slide(o, w.between(o.Min - 5, o.Max + 5)); });
    if (o.kind == object_kind::textbox) return w.act("type", [&] { pc.type(o, w.pick(texts)); });
    if (o.ClickAt)
        return w.act("click at a place",
                     [&] { pc.click_at(o, o.Width * w.fraction(), o.Height * w.fraction()); });
    if (!o.MouseDown) return w.act("click " + name, [&] { pc.click(o); });
    w.hold(
        name, [&w, &o] { w.pc().press(o); }, [&w, &o] { w.pc().release(o); });
}

void move_stick(walker& w)
{
    const auto axis = [&w] { return w.chance(0.3) ? 32768 : w.below(65536); };
    const int x = axis(), y = axis();
    w.act("stick " + std::to_string(x) + ' ' + std::to_string(y), [&] { w.pc().stick(x, y); });
}

void bring_to_front(walker& w)
{
    form& f = *w.pick(w.pc().screens.loaded);
    w.act("bring to the front " + f.name, [&] { w.pc().activate(f); });
}

// Clicks an object that leads on from the screen in front; random clicks seldom hit one.
void go_on(walker& w)
{
    trainer& t = w.t();
    std::vector<screen_object*> ways{&t.intro.lblstart,        &t.startsim.Cmdstart, &t.startsim.Cmdstart,
                                     &t.startsim.Cmdstart,     &t.startsim.cmdgame,  &t.startsim.Optcon2,
                                     &t.startsim.cmdstick,     &t.joycal.Cmdstart,   &t.joycal.Cmdfinish,
                                     &t.startsim.cmdeditrange, &t.rauthor.Cmdopen,   &t.rauthor.Cmdsave,
                                     &t.rauthor.Cmdstart,      &t.results.Cmdreplay, &t.results.cmdnew};
    std::erase_if(ways, [&](const screen_object* o) { return o->owner != w.front_form(); });
    if (ways.empty()) return;
    screen_object& o = *w.pick(ways);
    w.act("go on by " + o.Caption, [&] { w.pc().click(o); });
}

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
                  {1, bring_to_front},
                  {1, [](walker& w) { w.act("close", [&] { w.pc().close_window(*w.front_form()); }); }},
                  {1, [](walker& w) { w.act("plug", [&] { w.pc().plug_stick(w.chance(0.8)); }); }}};
    int left = w.below(93);   // the sum of the weights
    for (const auto& e : events)
        if ((left -= e.weight) < 0) return e.happens(w);
}

// The walk -----------------------------------------------------------------------------------------------

// Makes a damaged range file, a plain range, and four others: one with positions anywhere in the reach of the
// sight (`spread`), one with any places and distances, also negative ones (`wild`), one with targets too far
// for FIN and the coax (`far`), and one without a picture (`bare`).
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
        far.targetrange[i] = w.between(1601, 6000);
    }
    bare.rangepicture = "";
    w.data.put_range("visualrange.arf", spread);
    w.data.put_range("plain.arf", plain);
    w.data.put_range("wild.arf", wild);
    w.data.put_range("far.arf", far);
    w.data.put_range("bare.arf", bare);
    w.data.put("damaged.arf", "\"RANGE");
}

// The walk that is running. Ctrl-C, or an error that AddressSanitizer reports, prints its last actions.
const walker* current = nullptr;

void print_current()
{
    if (current != nullptr) std::fprintf(stderr, "%s\n", current->last_actions().c_str());
}

walker::walker(unsigned s) : seed(s), random(s)
{
    put_ranges(*this);
    current = this;
    std::signal(SIGINT, [](int) {
        print_current();
        std::_Exit(1);
    });
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_set_death_callback(print_current);
#endif
}

long from_environment(const char* name, long otherwise)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? otherwise : std::atol(value);
}

struct random_walk : testing::TestWithParam<long> {};

TEST_P(random_walk, breaks_no_rule)
{
    walker w(static_cast<unsigned>(from_environment("WALK_SEED", GetParam())));
    const long steps = from_environment("WALK_EVENTS", 15000);
    try {
        while (w.number < steps && w.failure.empty()) w.step();
    } catch (const std::exception& e) {
        w.failure = e.what();
    }
    current = nullptr;
    EXPECT_EQ(w.failure, "") << w.last_actions();
    EXPECT_TRUE(steps < 15000 || w.reached.size() == 7U + 6U) << "the walk got stuck and proves little";
}

INSTANTIATE_TEST_SUITE_P(seeds, random_walk, testing::Range(1L, 3L));

}   // namespace

}   // namespace vorn
