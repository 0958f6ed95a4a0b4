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

constexpr long top_end = 65535;
constexpr long centre = 32768;       // SDL's 0
constexpr int taking = 16384;        // half of the way from the centre: no drift, no hand that brushes it
constexpr int look_interval = 500;   // milliseconds, while nothing is plugged in
constexpr int start_delay = 400;     // the first look waits until the first window stands
constexpr int move_interval = static_cast<int>(timer_floor * 1000);

// A box has the input while it is open, and another program while it is in front.
bool in_use()
{
    return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() != nullptr;
}

}   // namespace

stick::stick(desktop_machine& pc) : pc_(pc), last_x_(centre), last_y_(centre)
{
    clock_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&clock_, &QTimer::timeout, &clock_, [this] { poll(); });
    clock_.start(start_delay);
}

stick::~stick()
{
    for (const open_device& d : open_) SDL_JoystickClose(d.handle);
    if (SDL_WasInit(SDL_INIT_JOYSTICK) != 0) SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
}

void stick::begin()
{
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");   // there is no window that SDL knows of
    if (SDL_WasInit(SDL_INIT_JOYSTICK) == 0) SDL_InitSubSystem(SDL_INIT_JOYSTICK);
}

// A throttle or a box of switches has no two axes and is no stick.
static bool has_two_axes(const stick::open_device& d)
{
    return SDL_JoystickNumAxes(d.handle) >= 2;
}

std::vector<stick::open_device>::iterator stick::open_one(int id)
{
    return std::find_if(open_.begin(), open_.end(),
                        [id](const open_device& d) { return SDL_JoystickInstanceID(d.handle) == id; });
}

// What was held on the last one is let go: nobody else will do it.
void stick::choose(SDL_Joystick* device)
{
    release_all();
    const bool was_present = present();
    device_ = device;
    for (open_device& d : open_)
        d.lay_at = {SDL_JoystickGetAxis(d.handle, 0), SDL_JoystickGetAxis(d.handle, 1)};
    clock_.setInterval(present() ? move_interval : look_interval);
    if (present() != was_present) tell_change();
}

void stick::choose_first()
{
    const auto usable = std::find_if(open_.begin(), open_.end(), has_two_axes);
    choose(usable == open_.end() ? nullptr : usable->handle);
}

void stick::open_new()
{
    for (int i = 0; i < SDL_NumJoysticks(); ++i) {
        if (open_one(SDL_JoystickGetDeviceInstanceID(i)) != open_.end()) continue;
        SDL_Joystick* device = SDL_JoystickOpen(i);
        if (device == nullptr) continue;
        SDL_JoystickUpdate();   // brings the places of its axes
        open_.push_back({device, {SDL_JoystickGetAxis(device, 0), SDL_JoystickGetAxis(device, 1)}});
        if (device_ == nullptr) choose_first();
    }
}

void stick::close(int id)
{
    const auto gone = open_one(id);
    if (gone == open_.end()) return;
    SDL_Joystick* device = gone->handle;
    open_.erase(gone);
    if (device == device_) choose_first();
    SDL_JoystickClose(device);
}

// Another stick that is moved takes over, unless a button of this one is held.
void stick::take_axis(int id, std::size_t number, int value)
{
    const auto other = open_one(id);
    const bool held = std::any_of(held_.begin(), held_.end(), [](const form* f) { return f != nullptr; });
    if (held || other == open_.end() || other->handle == device_ || !has_two_axes(*other)) return;
    if (std::abs(value - other->lay_at.at(number)) >= taking) choose(other->handle);
}

void stick::tell_change()
{
    pc_.run([this] { joystick_changed(pc_); });
}

void stick::take_events()
{
    SDL_Event e;
    while (SDL_PollEvent(&e) != 0) {
        if (e.type == SDL_JOYDEVICEADDED) look_ = true;
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
    begin();
    if (clock_.interval() == start_delay) clock_.setInterval(look_interval);
    take_events();
    // Without one at each look: what could not be opened when it was plugged in may be ready by now.
    if (std::exchange(look_, false) || device_ == nullptr) open_new();
    deliver_move();
}

void stick::button(std::size_t number, bool down)
{
    if (number >= held_.size()) return;
    const int name = static_cast<int>(number) + 1;
    if (!down) {
        form* holder = std::exchange(held_[number], nullptr);
        if (holder != nullptr && holder->ButtonUp && holder->state != form_state::not_loaded)
            pc_.run([&] { holder->ButtonUp(name); });
        return;
    }
    form* f = front(pc_);
    if (f == nullptr || !in_use()) return;
    held_[number] = f;
    if (f->ButtonDown) pc_.run([&] { f->ButtonDown(name); });
}

void stick::release_all()
{
    for (std::size_t i = 0; i < held_.size(); ++i) button(i, false);
}

// While the stick is off its centre it goes on telling where it is: the screens take it for a rate. A screen
// that comes to the front is told once, and that the stick is back at its centre is told also when it went
// there behind a box or was pulled out.
void stick::deliver_move()
{
    const form* f = front(pc_);
    if (f == nullptr || !f->Move || !in_use()) return;
    const long x = axis(0), y = axis(1);
    const bool moved = x != last_x_ || y != last_y_;
    const bool off = x != centre || y != centre;
    const bool fresh = device_ != nullptr && f != told_;
    if (!moved && !off && !fresh) return;
    last_x_ = x;
    last_y_ = y;
    told_ = device_ != nullptr ? f : nullptr;
    pc_.run([&] { f->Move(x, y); });
}

long stick::axis(int number) const
{
    return device_ == nullptr ? centre : SDL_JoystickGetAxis(device_, number) + centre;
}

long stick::reading(int number) const
{
    switch (number) {
        case 5:
        case 7:
            return top_end;
        case 13:
            return axis(0);
        case 14:
            return axis(1);
        default:
            return 0;
    }
}

}   // namespace vorn
