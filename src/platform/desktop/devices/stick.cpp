#include "platform/desktop/devices/stick.h"

#define SDL_MAIN_HANDLED
#include <SDL.h>

#include <QApplication>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/desktop/desktop_machine.h"

namespace vorn {

namespace {

// SDL's axes range from -32768 to 32767, those of the screens from 0 to 65535.
constexpr int axis_max = 65535, centre = 32768;
// Half of the way from the centre to the end: more than drift or an accidental touch.
constexpr int takeover_distance = 16384;
// Milliseconds.
constexpr int search_interval = 500;   // while no stick is in use
constexpr int start_delay = 400;       // the first window is shown before the first search, which is slow
constexpr int move_interval = static_cast<int>(timer_floor * 1000);

// Presses and moves are delivered only while no modal box is open and this program is active.
bool accepts_input()
{
    return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() != nullptr;
}

// A throttle or a switch box may have fewer than two axes.
bool has_two_axes(const stick::open_device& d)
{
    return SDL_JoystickNumAxes(d.handle) >= 2;
}

table<int, 2> axes_of(SDL_Joystick* device)
{
    return {SDL_JoystickGetAxis(device, 0), SDL_JoystickGetAxis(device, 1)};
}

void init_joysticks()
{
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");   // SDL must not handle the signals that end the program
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");   // SDL has no window of its own
    if (SDL_WasInit(SDL_INIT_JOYSTICK) == 0) SDL_InitSubSystem(SDL_INIT_JOYSTICK);
}

}   // namespace

stick::stick(desktop_machine& pc) : pc_(pc), reported_x_(centre), reported_y_(centre)
{
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { poll(); });
    timer_.start(start_delay);
}

stick::~stick()
{
    for (const open_device& d : open_) SDL_JoystickClose(d.handle);
    if (SDL_WasInit(SDL_INIT_JOYSTICK) != 0) SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
}

std::vector<stick::open_device>::iterator stick::find_open(int id)
{
    return std::find_if(open_.begin(), open_.end(),
                        [id](const open_device& d) { return SDL_JoystickInstanceID(d.handle) == id; });
}

// Releases the buttons held on the previous stick, whose own release events are ignored from now on.
void stick::choose(SDL_Joystick* device)
{
    release_all();
    const bool was_present = present();
    device_ = device;
    for (open_device& d : open_) d.rest = axes_of(d.handle);
    timer_.setInterval(present() ? move_interval : search_interval);
    if (present() != was_present) pc_.run([this] { joystick_changed(pc_); });
}

void stick::choose_first()
{
    const auto usable = std::find_if(open_.begin(), open_.end(), has_two_axes);
    choose(usable == open_.end() ? nullptr : usable->handle);
}

void stick::open_new()
{
    for (int i = 0; i < SDL_NumJoysticks(); ++i) {
        if (find_open(SDL_JoystickGetDeviceInstanceID(i)) != open_.end()) continue;
        SDL_Joystick* device = SDL_JoystickOpen(i);
        if (device == nullptr) continue;
        SDL_JoystickUpdate();   // reads the positions of its axes
        open_.push_back({device, axes_of(device)});
        if (device_ == nullptr) choose_first();
    }
}

void stick::close(int id)
{
    const auto gone = find_open(id);
    if (gone == open_.end()) return;
    SDL_Joystick* device = gone->handle;
    open_.erase(gone);
    if (device == device_) choose_first();
    SDL_JoystickClose(device);
}

// Another stick takes over when it is moved far enough, unless a button of the current one is held.
void stick::take_axis(int id, int number, int value)
{
    const auto other = find_open(id);
    const bool held = std::any_of(held_.begin(), held_.end(), [](const form* f) { return f != nullptr; });
    if (held || other == open_.end() || other->handle == device_ || !has_two_axes(*other)) return;
    if (std::abs(value - other->rest[number]) >= takeover_distance) choose(other->handle);
}

void stick::take_events()
{
    SDL_Event e;
    while (SDL_PollEvent(&e) != 0) {
        if (e.type == SDL_JOYDEVICEADDED) search_ = true;
        if (e.type == SDL_JOYDEVICEREMOVED) close(e.jdevice.which);
        if (e.type == SDL_JOYAXISMOTION && e.jaxis.axis < 2)
            take_axis(e.jaxis.which, e.jaxis.axis, e.jaxis.value);
        const bool press = e.type == SDL_JOYBUTTONDOWN || e.type == SDL_JOYBUTTONUP;
        if (press && device_ != nullptr && e.jbutton.which == SDL_JoystickInstanceID(device_))
            button(e.jbutton.button, e.type == SDL_JOYBUTTONDOWN);
    }
}

void stick::poll()
{
    init_joysticks();
    if (timer_.interval() == start_delay) timer_.setInterval(search_interval);
    take_events();
    // Repeated while there is no stick: a stick that failed to open when it was connected may be ready now.
    if (std::exchange(search_, false) || device_ == nullptr) open_new();
    deliver_move();
}

void stick::button(int number, bool down)
{
    if (number >= held_.size()) return;
    const int name = number + 1;
    if (!down) {
        form* holder = std::exchange(held_[number], nullptr);
        if (holder != nullptr && holder->ButtonUp && holder->state != form_state::not_loaded)
            pc_.run([&] { holder->ButtonUp(name); });
        return;
    }
    form* f = front(pc_);
    if (f == nullptr || !accepts_input()) return;
    held_[number] = f;
    if (f->ButtonDown) pc_.run([&] { f->ButtonDown(name); });
}

void stick::release_all()
{
    for (int i = 0; i < held_.size(); ++i) button(i, false);
}

// A deflected stick is reported at each poll, since the screens use its position as a rate. A centred stick
// is reported when its position has changed, even by a disconnection or during a box, and once to a screen
// that comes to the front.
void stick::deliver_move()
{
    const form* f = front(pc_);
    if (f == nullptr || !f->Move || !accepts_input()) return;
    const int x = axis(0), y = axis(1);
    const bool moved = x != reported_x_ || y != reported_y_;
    const bool deflected = x != centre || y != centre;
    const bool new_screen = device_ != nullptr && f != reported_to_;
    if (!moved && !deflected && !new_screen) return;
    reported_x_ = x;
    reported_y_ = y;
    reported_to_ = device_ != nullptr ? f : nullptr;
    pc_.run([&] { f->Move(x, y); });
}

int stick::axis(int number) const
{
    return device_ == nullptr ? centre : SDL_JoystickGetAxis(device_, number) + centre;
}

int stick::reading(int number) const
{
    if (number == 5 || number == 7) return axis_max;
    return number == 13 ? axis(0) : number == 14 ? axis(1) : 0;
}

}   // namespace vorn
