#include "platform/desktop/stick.h"

#define SDL_MAIN_HANDLED
#include <SDL.h>

#include <QApplication>
#include <utility>

#include "platform/desktop/desktop_machine.h"

namespace vorn {

namespace {

constexpr long top_end = 65535;
constexpr long centre = 32768;       // SDL's 0
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
    if (device_ != nullptr) SDL_JoystickClose(device_);
    if (SDL_WasInit(SDL_INIT_JOYSTICK) != 0) SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
}

void stick::begin()
{
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");   // there is no window that SDL knows of
    if (SDL_WasInit(SDL_INIT_JOYSTICK) == 0) SDL_InitSubSystem(SDL_INIT_JOYSTICK);
}

void stick::attach(int index)
{
    if (device_ != nullptr) return;
    device_ = SDL_JoystickOpen(index);
    if (device_ == nullptr) return;
    clock_.setInterval(move_interval);
    tell_change();
}

// What was held is let go: nobody else will do it.
void stick::detach()
{
    release_all();
    SDL_JoystickClose(std::exchange(device_, nullptr));
    clock_.setInterval(look_interval);
    tell_change();
}

void stick::tell_change()
{
    pc_.run([this] { joystick_changed(pc_); });
}

void stick::take_events()
{
    SDL_Event e;
    while (SDL_PollEvent(&e) != 0) {
        if (device_ == nullptr) continue;
        const bool ours = e.jdevice.which == SDL_JoystickInstanceID(device_);
        if (e.type == SDL_JOYDEVICEREMOVED && ours) detach();
        if ((e.type == SDL_JOYBUTTONDOWN || e.type == SDL_JOYBUTTONUP) &&
            e.jbutton.which == SDL_JoystickInstanceID(device_))
            button(e.jbutton.button, e.type == SDL_JOYBUTTONDOWN);
    }
}

void stick::poll()
{
    begin();
    if (clock_.interval() == start_delay) clock_.setInterval(look_interval);
    take_events();
    // At each look: one that could not be opened when it was plugged in may be ready by now.
    for (int i = 0; device_ == nullptr && i < SDL_NumJoysticks(); ++i) attach(i);
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
