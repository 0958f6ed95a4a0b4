// The whole of what the program asks of the machine it runs on: screens, time, boxes, sound, joystick,
// pictures, printer and files. One machine has a window system, the other a virtual clock and no screen.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/objects.h"

namespace vorn {

// The shortest interval at which a timer ticks, in seconds: a 1 ms timer means "as fast as it goes".
inline constexpr double timer_floor = 0.016;

enum class box_buttons { ok, yes_no };
enum class box_sign { none, information, question };

struct message {
    std::string text;   // lines joined by line feed, carriage return
    std::string title;
    box_buttons buttons = box_buttons::ok;
    box_sign sign = box_sign::none;
    bool no_first = false;   // Return alone answers no
};

struct file_dialog {
    std::string title;
    std::string filter;          // "Range Files (*.arf)|*.arf|": pairs of name and pattern
    std::string folder;          // where it starts
    std::string proposed = {};   // file name offered when saving
    bool save = false;
    // When saving: extension added to a name without one; replacing a file must then be confirmed.
    std::string suffix = {};
    bool picture = false;   // what is opened is a picture: a machine may offer all that it can read
};

struct loaded_picture {
    std::optional<picture> result;
    std::string reason;   // why there is none
};

struct print_outcome {
    std::string reason;   // why nothing could be printed; empty where it was, or the user broke off
    std::string file;     // where it went, when that is no printer
    bool broken_off = false;
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

class machine {
public:
    machine();   // the working directory is the process's to begin with
    machine(const machine&) = delete;
    machine& operator=(const machine&) = delete;
    virtual ~machine() = default;

    // Seconds since some fixed moment.
    virtual double now() const = 0;
    // One count of a counted move is worth this many seconds: lets what it changed be seen meanwhile.
    // No event is handled.
    virtual void pace(double seconds) = 0;
    // Lets pending events be handled in the midst of a handler. Anything may have happened when it returns.
    virtual void do_events() = 0;
    // Ends the program at once; nothing after it is executed.
    [[noreturn]] virtual void end_program() = 0;

    // Boxes block the handler, not the clock. Gives true for OK and yes, false for no.
    virtual bool message_box(const message&) = 0;
    virtual std::optional<std::string> input_box(const std::string& title, const std::string& prompt,
                                                 const std::string& proposed) = 0;
    virtual std::optional<std::string> choose_file(const file_dialog&) = 0;
    // Opens a help file at its contents, beside the screens, and returns at once.
    virtual void show_help(const std::string& path) = 0;

    // The one sound channel. play cuts off what is playing and returns at once; a file that is missing or
    // broken, or a machine without sound, is passed over in silence.
    virtual void play(const std::string& path) = 0;
    virtual void close_sound() = 0;

    // Readings of the joystick by number: 5 and 7 the upper ends of X and Y, 13 and 14 X and Y as they are.
    virtual long joystick_reading(int number) = 0;
    virtual bool joystick_present() = 0;

    // Recognised by content, whatever the name says.
    virtual loaded_picture load_picture(const std::string& path) = 0;

    // Prints on the default printer, or for want of one into a file, whose name begins with this.
    virtual print_outcome print(const std::vector<printed_line>&, const std::string& name) = 0;

    std::filesystem::path working_directory;   // absolute
    std::string default_directory;             // where the program directory is looked for first
    screen_stack screens;
};

// Screens. Show loads a screen that isn't loaded and brings it to the front; its arrival runs after the
// handler that showed it has returned. Hiding or unloading the front screen brings the one beneath to the
// front.
void load(machine&, form&);
void show(machine&, form&);
void hide(machine&, form&);
void unload(machine&, form&);
form* front(const machine&);
// The window system has brought this screen to the front.
void came_to_front(machine&, form&);
// The user closes the window by its frame: the exit button's action, also where its panel is hidden, or what
// a screen without one does then.
void close_by_frame(form&);
// A joystick has been plugged in or pulled out: tells all screens that are loaded.
void joystick_changed(machine&);

// Runs one event to its end, then the arrivals that waited for it.
void handle(machine&, const std::function<void()>& event);

// Timers. The moment of the next tick (infinity: none), and the delivery of all that is due now, each
// timer once, in the order of their moments, with a word after each. A timer never ticks inside its own
// handler.
double next_tick(machine&);
void deliver_ticks(machine&, const std::function<void()>& after_each = {});

}   // namespace vorn
