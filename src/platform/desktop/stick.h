// The joystick: the first stick or pad that is plugged in, at any time. Its buttons and first two axes go to
// the screen in front.
#pragma once

#include <QTimer>
#include <array>

#include "platform/objects.h"

struct _SDL_Joystick;   // NOLINT(bugprone-reserved-identifier): the name that SDL gives it

namespace vorn {

class desktop_machine;

class stick {
public:
    explicit stick(desktop_machine&);
    ~stick();
    stick(const stick&) = delete;
    stick& operator=(const stick&) = delete;

    // 5 and 7 the upper ends of X and Y, 13 and 14 X and Y as they are; the centre where no stick is.
    long reading(int number) const;
    bool present() const { return device_ != nullptr; }
    // Delivers what has happened since the last time; the clock calls it, and a test may.
    void poll();
    void release_all();

private:
    void begin();
    void take_events();
    void attach(int index);
    void detach();
    void tell_change();
    void button(std::size_t number, bool down);
    void deliver_move();
    long axis(int number) const;

    desktop_machine& pc_;
    _SDL_Joystick* device_ = nullptr;
    QTimer clock_;
    std::array<form*, 32> held_{};   // which screen has each button down
    long last_x_, last_y_;           // as told last
    const form* told_ = nullptr;     // to which screen
};

}   // namespace vorn
