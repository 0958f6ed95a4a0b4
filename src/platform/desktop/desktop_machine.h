// The machine with a screen: Qt windows, boxes, pictures and printing. Each event, be it the user's or the
// clock's, goes through run(), which afterwards shows what it has changed.
#pragma once

#include <QIcon>
#include <QTimer>
#include <memory>
#include <optional>
#include <vector>

#include "platform/desktop/devices/keys.h"
#include "platform/desktop/devices/sound.h"
#include "platform/desktop/devices/stick.h"
#include "platform/desktop/dialogs/help.h"
#include "platform/desktop/windows/form_window.h"
#include "platform/machine.h"

namespace vorn {

class desktop_machine final : public machine {
public:
    desktop_machine();
    ~desktop_machine() override;

    double now() const override;
    void pace(double seconds) override;
    void do_events() override;
    [[noreturn]] void end_program() override;
    bool message_box(const message&) override;
    std::optional<std::string> input_box(const std::string& title, const std::string& prompt,
                                         const std::string& proposed) override;
    std::optional<std::string> choose_file(const file_dialog&) override;
    void show_help(const std::string& path) override;
    void play(const std::string& path) override;
    void close_sound() override;
    long joystick_reading(int number) override;
    bool joystick_present() override;
    loaded_picture load_picture(const std::string& path) override;
    print_outcome print(const std::vector<printed_line>&, const std::string& name) override;

    // Lets the clock go so many times as fast as the world's, for one who can't wait for a practice to go by.
    void set_speed(double times);

    // Runs an event to its end, and shows what it has changed.
    void run(const std::function<void()>& event);
    // Shows what has changed since the last time.
    void sync();

    // The window system has made this screen's window the active one.
    void activated(form&);
    // The mouse button is held on an object. False when that has ended already, in a box that its handler
    // showed.
    bool press(screen_object&);
    void release_mouse();
    bool holds(const screen_object& o) const { return held_mouse_ == &o; }
    // Lets go of the mouse button and of all keys: what is held elsewhere would stay held for ever.
    void release_input();
    // Takes the windows of screens that are gone from the desk, once their successor is seen.
    void hide_leaving();

    // Seconds for which the message box in front has been up.
    double box_age() const { return world_clock() - box_came_; }
    stick& joystick() { return stick_; }
    form_window* window(const form&) const;
    form_window* window_of(const QObject* handle) const;   // by the handle of the window system
    const QIcon& icon() const { return icon_; }

    // The end of the process, which a test may want to see.
    std::function<void()> leave;
    // Seconds of the world, whatever the speed of the machine's own clock; a test may set it.
    std::function<double()> world_clock;
    // Whether there is a printer: a test prints on nobody's.
    std::function<bool()> printer_present;

private:
    // A counted move under way.
    struct counted_move {
        double clock;        // the moment that its counts have reached
        double next_frame;   // the moment of its next picture
    };

    void arm();
    void tick();
    void before_box();
    void place_windows();
    void open_window(form_window&, const form_window* before, bool over_it);
    form_window& make_window(form&);
    QWidget* front_window() const;

    QIcon icon_;
    std::vector<std::unique_ptr<form_window>>
        windows_;                // also of screens that are not loaded: they come again
    std::vector<form*> shown_;   // as last placed
    std::vector<form_window*> leaving_;
    const form_window* last_front_ = nullptr;
    std::unique_ptr<help_window> help_;
    keyboard keyboard_;
    sound_channel sound_;
    stick stick_;
    screen_object* held_mouse_ = nullptr;
    QTimer clock_;
    double set_to_ = 0, set_at_ = 0, speed_ = 1;   // the clock's time and the world's when its speed was set
    double box_came_ = 0;                          // the moment of the world at which the message box came up
    std::optional<counted_move> move_;
    bool keys_waited_ = false;   // a counted move has kept events waiting
    bool ending_ = false;
};

}   // namespace vorn
