// The machine with a screen, built on Qt and SDL. User events go through run(), timers through tick(); both
// update the windows at the end.
#pragma once

#include <QDateTime>
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
    void close_sound() override { sound_.stop(); }
    void show_strike(const strike&) override;
    void clear_strikes() override;
    int joystick_reading(int number) override { return stick_.reading(number); }
    bool joystick_present() override { return stick_.present(); }
    loaded_picture load_picture(const std::string& path) override;
    print_outcome print(const std::vector<printed_line>&, const std::string& name) override;

    // Makes now(), and with it the timers of the screens, run this many times as fast as real time.
    void set_speed(double factor);

    // Runs the handler of an event to its end and updates the windows.
    void run(const std::function<void()>& event);
    // Updates the windows of the shown screens from the fields of their objects.
    void sync();

    // To be called when the window system has activated the window of this screen.
    void activated(form&);
    // To be called when the user presses an object that has a MouseDown or MouseUp handler, by mouse or
    // Space. False if the press has already ended, for example because the handler opened a box.
    bool press(screen_object&);
    void release_pressed();
    bool is_pressed(const screen_object& o) const { return pressed_ == &o; }
    // Releases whatever is held down: keys, joystick buttons, objects and sliders. Called when another window
    // gets the input and with it the release events.
    void release_input();
    // Hides the windows of screens that are no longer shown. To be called when the next window has been
    // painted.
    void hide_leaving();

    // Seconds since the message box in front was opened.
    double box_age() const { return world_clock() - box_opened_; }
    stick& joystick() { return stick_; }
    form_window* window(const form&) const;
    form_window* window_of(const QObject* handle) const;   // the window with this QWindow, or null
    const QIcon& icon() const { return icon_; }

    // Where the data is installed; empty if it isn't.
    std::filesystem::path installed_data;
    // Opens the manual when F1 is pressed. If this is null, F1 is an ordinary key.
    std::function<void()> open_manual;

    // Tests replace these: the end of the process, real time in seconds, whether there is a printer, and
    // whether the key of a scan code is down (null without X11).
    std::function<void()> leave;
    std::function<double()> world_clock;
    std::function<bool()> printer_present;
    std::function<bool(quint32)> key_is_down;

private:
    // The counted move that is running. Its times are on the clock of now().
    struct counted_move {
        double clock;   // the time at which its latest count ends
        double next_frame;
    };

    // A picture that was read, and its pixels if an object still uses them.
    struct recent_picture {
        std::string path;
        QDateTime time;
        qint64 bytes;
        double width, height;   // twips
        std::weak_ptr<const picture_pixels> pixels;
    };

    void start_clock();
    void tick();
    void before_box();
    void place_windows();
    void place_shown();
    void open_window(form_window&, const form_window* before, bool over_it);
    QWidget* front_window() const;

    QIcon icon_;
    // A window is kept when its screen is unloaded, for the next load.
    std::vector<std::unique_ptr<form_window>> windows_;
    std::vector<form*> shown_;   // the screens shown at the last place_shown
    std::vector<form_window*> leaving_;
    const form_window* last_front_ = nullptr;
    std::unique_ptr<help_window> help_;
    keyboard keyboard_;
    sound_channel sound_;
    stick stick_;
    screen_object* pressed_ = nullptr;
    QTimer clock_;
    double set_to_ = 0, set_at_ = 0, speed_ = 1;   // now() and real time when the speed was set
    double box_opened_ = 0;                        // real time
    std::optional<counted_move> move_;
    std::vector<recent_picture> recent_;
    bool events_delayed_ = false;   // by a counted move
    bool placing_ = false;
    bool ending_ = false;
};

}   // namespace vorn
