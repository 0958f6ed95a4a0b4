// Everything that the program asks of the machine it runs on: screens, time, boxes, sound, joystick,
// pictures, printer and files. One machine has a window system, the other a virtual clock and no screen.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/objects.h"

namespace vorn {

// The shortest interval at which a timer ticks, in seconds: an interval of 1 ms means as fast as possible.
inline constexpr double timer_floor = 0.016;

enum class box_buttons { ok, yes_no };
enum class box_sign { none, information, question };
enum class default_button { yes, no };   // OK counts as yes

struct message {
    std::string text;   // lines joined by line feed, carriage return
    std::string title;
    box_buttons buttons = box_buttons::ok;
    box_sign sign = box_sign::none;
    default_button on_return = default_button::yes;
};

struct file_dialog {
    std::string title;
    std::string filter;          // "Range Files (*.arf)|*.arf|": pairs of name and pattern
    std::string folder;          // where it starts
    std::string proposed = {};   // file name offered when saving
    bool save = false;
    // When saving: extension added to a name without one; replacing a file must then be confirmed.
    std::string suffix = {};
    bool picture = false;   // opens a picture: the machine may offer all formats that it can read
};

struct loaded_picture {
    std::optional<picture> result;
    std::string reason;   // why it could not be loaded
};

struct print_outcome {
    std::string reason = {};   // why it could not be printed; empty if it was printed or cancelled
    std::string file = {};     // the file that was written instead of paper
    bool cancelled = false;
};

struct printed_line {
    std::string text;
    std::string face;
    double size = 10;   // points
    bool bold = false;
    bool underline = false;
};

// Which screens are loaded and shown. Only the operations below change it, the same way on both machines.
struct screen_stack {
    struct arrival {
        form* screen;
        int depth;   // runs when the handlers at this depth have returned
    };
    std::vector<form*> loaded;
    std::vector<form*> shown;   // the last one is in front
    std::vector<arrival> arrivals;
    int depth = 0;   // of nested handlers
};

enum class round_kind { fin, hesh, coax };

// A round has come down in a sight without a kill.
struct strike {
    round_kind round = round_kind::fin;
    bool hot = false;                        // seen by a thermal sight
    const screen_object* ground = nullptr;   // the picture on which the mark stays
    double Left = 0, Top = 0;                // in `ground`, twips
    double size = 0;                         // width of a target at this range, twips
    int wind = 0;                            // to the right, in half target widths
};

class machine {
public:
    machine();   // in the working directory of the process
    machine(const machine&) = delete;
    machine& operator=(const machine&) = delete;
    virtual ~machine() = default;

    // Seconds since a fixed time.
    virtual double now() const = 0;
    // One step of a counted move takes this many seconds; its changes can be seen meanwhile. Handles no
    // event.
    virtual void pace(double seconds) = 0;
    // Handles pending events inside a handler. Any state may have changed when it returns.
    virtual void do_events() = 0;
    // Ends the program immediately and doesn't return.
    [[noreturn]] virtual void end_program() = 0;

    // A box blocks the handler, not the timers. True for OK and yes, false for no.
    virtual bool message_box(const message&) = 0;
    virtual std::optional<std::string> input_box(const std::string& title, const std::string& prompt,
                                                 const std::string& proposed) = 0;
    virtual std::optional<std::string> choose_file(const file_dialog&) = 0;
    // Opens a help file at its table of contents in a separate window and returns immediately.
    virtual void show_help(const std::string& path) = 0;

    // The only sound channel. play stops the current sound and returns immediately. A missing or damaged file
    // is silent, as is a machine without sound.
    virtual void play(const std::string& path) = 0;
    virtual void close_sound() = 0;

    // Marks where a round has come down, for a second or two. For display only. clear_strikes removes all
    // marks.
    virtual void show_strike(const strike&) = 0;
    virtual void clear_strikes() = 0;

    // Readings of the joystick: 5 and 7 are the upper ends of the X and Y scales, 13 and 14 the current X and
    // Y.
    virtual long joystick_reading(int number) = 0;
    virtual bool joystick_present() = 0;

    // Recognises the format by content, not by name.
    virtual loaded_picture load_picture(const std::string& path) = 0;

    // Prints on the default printer or, without one, into a file whose proposed name begins with `name`.
    virtual print_outcome print(const std::vector<printed_line>&, const std::string& name) = 0;

    std::filesystem::path working_directory;   // absolute
    std::string default_directory;             // the program directory, unless it can't be entered
    screen_stack screens;
};

// Screens. show loads a screen if necessary and brings it to the front; its arrival runs after the handler
// that showed it has returned. Hiding or unloading the front screen brings the next one to the front.
void load(machine&, form&);
void show(machine&, form&);
void hide(machine&, form&);
void unload(machine&, form&);
form* front(const machine&);
// The window system has brought this screen to the front.
void came_to_front(machine&, form&);
// The window manager asks to close the window: runs the click of the exit button, even in a hidden panel, or
// `closed` on a screen without one.
void close_by_frame(form&);
// A joystick has been connected or disconnected: runs the handlers of all loaded screens.
void joystick_changed(machine&);

// Runs the handler of one event, then the arrivals that waited for it.
void handle(machine&, const std::function<void()>& event);

// Time of the next tick in seconds on the machine's clock; infinity if no timer runs.
double next_tick(machine&);
// Runs the due timers, each once, in the order of their times, and a function after each. A timer never ticks
// inside its own handler.
void deliver_ticks(machine&, const std::function<void()>& after_each = {});

}   // namespace vorn
