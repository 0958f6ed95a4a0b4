// The interface of the machine that the program runs on: screens, time, boxes, dialogs, help, sound, strikes,
// joystick, pictures and printer. The desktop machine has a window system, the headless machine a virtual
// clock and no screen.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "platform/objects.h"
#include "platform/screens.h"

namespace vorn {

enum class box_buttons { ok, yes_no };
enum class box_sign { none, information, question };
enum class default_button { yes, no };   // OK counts as yes

struct message {
    std::string text;   // lines separated by line feed and carriage return
    std::string title;
    box_buttons buttons = box_buttons::ok;
    box_sign sign = box_sign::none;
    default_button on_return = default_button::yes;
};

struct file_dialog {
    std::string title;
    std::string filter;          // "Range Files (*.arf)|*.arf|": pairs of name and pattern
    std::string folder;          // shown first
    std::string proposed = {};   // proposed file name when saving
    bool save = false;
    // When saving: extension added to a name without one. If set, replacing a file must be confirmed.
    std::string suffix = {};
    bool picture = false;   // opens a picture: the machine may offer all formats that it can read
};

struct loaded_picture {
    std::optional<picture> result = {};
    std::string reason = {};   // why it could not be loaded
};

struct print_outcome {
    std::string reason = {};   // why the printing failed; empty if it succeeded or was cancelled
    std::string file = {};     // the file that the user chose if there is no printer
    bool cancelled = false;
};

struct printed_line {
    std::string text;
    std::string face;
    double size = 10;   // points
    bool bold = false;
    bool underline = false;
};

enum class round_kind { fin, hesh, coax };

// The impact of a main gun round that missed, or of a coax round.
struct strike {
    round_kind round = round_kind::fin;
    bool hot = false;                        // seen by the thermal sight
    const screen_object* ground = nullptr;   // the picture with which the strike moves
    double Left = 0, Top = 0;                // twips from the upper left corner of `ground`
    double size = 0;                         // width of the target, twips
    int wind = 0;   // drift of a HESH round, in half target widths; positive: to the right
};

class machine {
public:
    machine()   // starts in the working directory of the process
    {
        std::error_code failed;
        working_directory = std::filesystem::current_path(failed);
    }
    machine(const machine&) = delete;
    machine& operator=(const machine&) = delete;
    virtual ~machine() = default;

    // The time in seconds since some fixed moment.
    virtual double now() const = 0;
    // Lets `seconds` pass for one step of a counted move (gunnery/count.h) and shows the step if a frame is
    // due. Handles no events.
    virtual void pace(double seconds) = 0;
    // Handles pending events inside a handler. Any state may have changed afterwards.
    virtual void do_events() = 0;
    // Ends the program immediately.
    [[noreturn]] virtual void end_program() = 0;

    // Shows a modal box, which blocks the handler but not the timers. Returns true for OK and Yes.
    virtual bool message_box(const message&) = 0;
    virtual std::optional<std::string> input_box(const std::string& title, const std::string& prompt,
                                                 const std::string& proposed) = 0;
    virtual std::optional<std::string> choose_file(const file_dialog&) = 0;
    // Opens a help file at its table of contents in a separate window. Returns immediately.
    virtual void show_help(const std::string& path) = 0;

    // The only sound channel. `play` stops the current sound and doesn't wait for the end of the new one. It
    // plays nothing if the file is missing or damaged or if there is no sound device.
    virtual void play(const std::string& path) = 0;
    virtual void close_sound() = 0;

    // Shows a strike for a second or two, for display only. clear_strikes removes all strikes.
    virtual void show_strike(const strike&) = 0;
    virtual void clear_strikes() = 0;

    // A reading of the joystick by its number: 5 and 7 are the maxima of X and Y, 13 and 14 their current
    // values.
    virtual int joystick_reading(int number) = 0;
    virtual bool joystick_present() = 0;

    // Detects the format from the content, not from the name.
    virtual loaded_picture load_picture(const std::string& path) = 0;

    // Prints on the default printer. Without a printer the user may choose a file instead; its proposed name
    // begins with `name`.
    virtual print_outcome print(const std::vector<printed_line>&, const std::string& name) = 0;

    std::filesystem::path working_directory;   // absolute
    std::string default_directory;             // the program directory; if it has no data, the user is asked
    screen_stack screens;
};

}   // namespace vorn
