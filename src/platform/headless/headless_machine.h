// A machine with a virtual clock, a scripted user and no screen. A practice that lasts minutes runs in
// milliseconds, the same way every time. A test reads the fields that a user would see, and the log.
#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "platform/machine.h"

namespace vorn {

struct logged {
    double time;        // seconds
    std::string kind;   // "screen", "box", "help", "sound", "printed", "caption"
    std::string text;
};

// How the scripted user answers a message box, and after how many seconds. The clock runs meanwhile.
struct box_answer {
    bool yes = true;
    double after = 0;
};

class headless_machine : public machine {
public:
    double now() const override { return clock_; }
    void pace(double seconds) override;
    void do_events() override;
    [[noreturn]] void end_program() override;

    bool message_box(const message&) override;
    std::optional<std::string> input_box(const std::string& title, const std::string& prompt,
                                         const std::string& proposed) override;
    std::optional<std::string> choose_file(const file_dialog&) override;
    void show_help(const std::string& path) override { note("help", path); }
    void play(const std::string& path) override;
    void close_sound() override { playing.clear(); }
    void show_strike(const strike& s) override { strikes.push_back(s); }
    void clear_strikes() override { strikes.clear(); }
    int joystick_reading(int number) override { return joystick[number]; }
    bool joystick_present() override { return stick_present; }
    loaded_picture load_picture(const std::string& path) override;
    print_outcome print(const std::vector<printed_line>&, const std::string& name) override;

    // What the scripted user answers, and the devices. When no answer is left, a question is answered No, and
    // an input box or file dialog is cancelled.
    std::deque<box_answer> answers;
    std::deque<std::string> inputs;
    std::deque<std::string> files;
    std::map<int, int> joystick{{5, 65535}, {7, 65535}, {13, 32768}, {14, 32768}};
    bool stick_present = true;
    bool printer = true;

    // What the program has done.
    std::vector<logged> log;
    std::vector<message> boxes;
    std::vector<file_dialog> dialogs;
    std::vector<strike> strikes;   // shown since the last clear_strikes
    std::string playing;           // the file started last; empty if the sound was closed
    bool ended = false;
    std::vector<std::string> of_kind(const std::string& kind) const;   // logged texts of this kind, in order

    // Runs a handler as one event.
    void event(const std::function<void()>&);
    void click(screen_object& o) { act(user_click, o); }
    void confirm(screen_object&);                           // clicks, and answers its question yes
    void choose(screen_object&, const std::string& path);   // clicks, and chooses a file in its dialog
    void slide(screen_object& o, int position) { act(user_slide, o, position); }
    void type(screen_object& o, const std::string& text) { act(user_types, o, text); }
    void press(screen_object&);                            // mouse button down
    void release(screen_object& o) { event(o.MouseUp); }   // mouse button up
    void click_at(screen_object& o, double x, double y) { act(user_click_at, o, x, y); }
    void key_down(int code, bool alt = false);   // on the front screen
    void key_up(int code) { send(&form::KeyUp, code); }
    void plug_stick(bool in);   // false: unplugs it; an unplugged stick sends no events
    void stick(int x, int y);
    void stick_button(int number, bool down);
    // The user brings a window to the front, or clicks its close button.
    void activate(form& f)
    {
        if (f.state == form_state::shown) act(show, *this, f);
    }
    void close_window(form& f) { act(close_by_frame, f); }

    // Runs until this many seconds after the planned end of the last advance or wait. If a handler ran past
    // that end, the excess is part of these seconds.
    void advance(double seconds);
    // Runs for this many seconds from now.
    void wait(double seconds);
    // Schedules an action. It also runs while a message box is open or a handler calls do_events.
    void later(double seconds, std::function<void()> action);
    // Runs at each step of a counted move.
    std::function<void()> at_pace;
    // Logs the object's caption if it has changed, after each event and before each message box.
    void watch(const screen_object& o) { watched_.emplace_back(&o, o.Caption); }

private:
    struct planned {
        double time;
        std::function<void()> action;
    };

    // Runs an action of the user as one event.
    void act(auto action, auto&&... on)
    {
        event([&] { action(on...); });
    }
    // Runs a handler of the front screen, if it has one.
    void send(auto form::*handler, auto... input)
    {
        const form* f = front(*this);
        if (f != nullptr && f->*handler) event([&] { (f->*handler)(input...); });
    }
    double next_event();
    void deliver();
    void run_until(double moment);
    void note(const std::string& kind, const std::string& text);
    void note_changes();

    double clock_ = 0;
    double goal_ = 0;
    std::vector<planned> plans_;
    std::vector<std::pair<const screen_object*, std::string>> watched_;
    const form* last_front_ = nullptr;
};

}   // namespace vorn
