// The walker's hands: each thing a user can do, told to the machine, noted and counted.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "data_folder.h"
#include "hands.h"
#include "platform/headless/headless_machine.h"
#include "trainer.h"

namespace vorn {

struct walker;

// Answers boxes at random, after a while. What is held is let go when a box comes up, as on the desktop, and
// nobody works a screen behind one.
class walked_machine : public headless_machine {
public:
    explicit walked_machine(walker& w) : walker_(w) {}
    bool message_box(const message&) override;
    std::optional<std::string> input_box(const std::string&, const std::string&, const std::string&) override;
    std::optional<std::string> choose_file(const file_dialog&) override;
    int open_boxes = 0, boxes_asked = 0;

private:
    walker& walker_;
};

// Whoever saw it go down hears when it is let go.
struct held_input {
    device by;
    int code = 0;                      // of the key or the stick button
    screen_object* button = nullptr;   // under the mouse
    form* holder = nullptr;
};

// One run of the program, from its start until its end.
struct run_of_program {
    explicit run_of_program(walker& w) : pc(w) {}
    walked_machine pc;
    trainer t{pc};
    std::vector<held_input> held;
    std::deque<std::function<void()>> intent;   // what the gunner is about to do next
    const form* front_before = nullptr;

    // What became of pauses.
    bool paused_before = false;
    int resets_before = 0;
    bool stale_pause = false;   // left over from an earlier practice when this one started
    bool resumed = false;       // there was a resume since the last reset
};

// What stands on an object, to tell it by.
const std::string& name_of(const screen_object&);

struct walker {
    explicit walker(unsigned seed);

    // Chance of the walk's own, the same with every library.
    int below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
    int between(int from, int to) { return from + below(to - from + 1); }
    double part() { return below(1000000) / 1e6; }
    bool now_and_then(double chance) { return part() < chance; }
    template <class list>
    auto& any_of(list& from)
    {
        return from[static_cast<std::size_t>(below(static_cast<int>(std::size(from))))];
    }

    trainer& t() { return run->t; }
    walked_machine& pc() { return run->pc; }
    form* front_form() { return front(run->pc); }
    // The gunnery screen in front; null when another is.
    gunnery_screen* gunnery();

    // What a user does.
    void key_down(int code);
    void stray_key_up(int code)
    {
        instantly("stray key up " + std::to_string(code), [&] { pc().key_up(code); });
    }
    void stick_down(int number);
    void stray_stick_up(int number_)
    {
        instantly("stray stick button up " + std::to_string(number_),
                  [&] { pc().stick_button(number_, false); });
    }
    void press(screen_object&);
    void let_go(device, int code, const screen_object*);
    void let_go(const held_input h) { let_go(h.by, h.code, h.button); }
    void let_go_one();
    void let_go_all();
    void click(screen_object& o)
    {
        instantly("click " + name_of(o), [&] { pc().click(o); });
    }
    void move_over(screen_object& o)
    {
        instantly("move over " + name_of(o), [&] { pc().event(o.MouseMove); });
    }
    void slide(screen_object& o, int position)
    {
        instantly("slide to " + std::to_string(position), [&] { pc().slide(o, position); });
    }
    void type(screen_object& o, const std::string& text)
    {
        instantly("type " + text, [&] { pc().type(o, text); });
    }
    void stick(long x, long y);
    void plug_stick(bool in);
    void wait(double seconds);
    void wait_a_minute();   // and sees whether a practice goes on
    void close_window();
    void activate(form& f)
    {
        instantly("bring to the front " + f.name, [&] { pc().activate(f); });
    }
    // Something at a moment from now, in the midst of whatever then runs.
    void later(double seconds, void (*action)(walker&));

    void count(const std::string& what) { reached[what] += 1; }
    void note(const std::string& what);

    // walk.cpp: one event, what follows from it, and the rules.
    void step();

    unsigned seed;
    long number = 0;   // of the event
    std::mt19937 random;
    data_folder data;
    std::unique_ptr<run_of_program> run;
    std::map<std::string, long> reached;
    std::deque<std::string> trace;
    std::string failure;

    // The gunner's mind.
    bool by_hand = false;   // lays off himself instead of leaving it to the fire control
    int minded_target = -1, lased_target = -1;

private:
    void begin();
    void does(const std::string& what, const std::function<void()>& action);
    void instantly(const std::string& what, const std::function<void()>& action);
    bool halted() const;
    void mind_pauses();
    void take_log();
    void after_front_change();
    void drop_lost_mouse();
    void settle();
    void check(bool settled);
};

// events.cpp: one random event, fit for the screen in front; one that takes no time; and one that tries the
// commander's lay.
void random_event(walker&);
void sudden_event(walker&);
void event_in_lay(walker&);
// gunner.cpp: what a gunner who knows his drill would do now.
void gunners_step(walker&, gunnery_screen&);

}   // namespace vorn
