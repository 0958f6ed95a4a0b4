// The simulated user of a random walk: acts on the headless machine, keeps a trace, and counts what was
// reached.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "controls.h"
#include "data_folder.h"
#include "platform/headless/headless_machine.h"
#include "trainer.h"

namespace vorn {

struct walker;

// Answers boxes at random after a random time. Held inputs are released when a box opens, as on the desktop.
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

// The form that received a press receives its release.
struct held_input {
    device by;
    int code = 0;                      // of the key or the joystick button
    screen_object* button = nullptr;   // under the mouse
    form* receiver = nullptr;
};

// One run of the program, from start to exit.
struct session {
    explicit session(walker& w) : pc(w) {}
    walk_machine pc;
    trainer t{pc};
    std::vector<held_input> held;
    std::deque<std::function<void()>> plan;   // the user's next steps
    const form* last_front = nullptr;

    bool was_paused = false;
    int last_resets = 0;
    bool stale_pause = false;   // the pause was left over from an earlier practice when this one started
    bool resumed = false;       // a pause has ended since the last reset
};

// The text that identifies an object in the trace.
const std::string& name_of(const screen_object&);

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
    // The gunnery screen in front; null if another screen is.
    gunnery_screen* gunnery();

    // User actions. `act` performs one that takes no time itself.
    void act(const std::string& what, const std::function<void()>& action);
    void click(screen_object&);
    void press(screen_object&);
    void key_down(int code);
    void stick_down(int number);
    void release(device, int code, const screen_object*);
    void release_one();
    void release_all();
    void plug_stick(bool in);
    void wait(double seconds);
    void wait_a_minute();   // and checks that a practice continues
    // An action at a later moment, also in the middle of a handler.
    void later(double seconds, void (*action)(walker&));

    void count(const std::string& what) { reached[what] += 1; }
    void note(const std::string& what);

    // walk.cpp: one event, and the rules after it.
    void step();

    unsigned seed;
    long number = 0;   // of the event
    std::mt19937 random;
    data_folder data;
    std::unique_ptr<session> run;
    std::map<std::string, long> reached;
    std::deque<std::string> trace;
    std::string failure;

    // The gunner at the current target.
    bool lays_off = false;   // lays off instead of using the fire control
    int known_target = -1, lased_target = -1;

private:
    void begin_session();
    void perform(const std::string& what, const std::function<void()>& action);
    bool paused() const;
    void track_pauses();
    void count_log();
    void after_front_change();
    void settle();
    void check(bool settled);
};

// events.cpp: a random event for the screen in front; one that may come inside a handler; one for the
// commander's lay.
void random_event(walker&);
void sudden_event(walker&);
void event_in_lay(walker&);
// gunner.cpp: the next step of a trained gunner.
void gunner_step(walker&, gunnery_screen&);

}   // namespace vorn
