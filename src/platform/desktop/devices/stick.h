// The joystick: of those that are plugged in, at any time, the first one with two axes, or the one that was
// moved last. Its buttons and first two axes go to the screen in front.
#pragma once

#include <QTimer>
#include <array>
#include <vector>

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

    struct open_device {
        _SDL_Joystick* handle;
        std::array<int, 2> lay_at;   // its axes when the one in use was chosen
    };

private:
    void begin();
    void take_events();
    void open_new();
    void close(int id);
    void choose(_SDL_Joystick*);
    void choose_first();
    void take_axis(int id, std::size_t number, int value);
    std::vector<open_device>::iterator open_one(int id);
    void tell_change();
    void button(std::size_t number, bool down);
    void deliver_move();
    long axis(int number) const;

    desktop_machine& pc_;
    std::vector<open_device> open_;
    _SDL_Joystick* device_ = nullptr;   // the one in use, of the open ones
    bool look_ = true;                  // there may be one that isn't open yet
    QTimer clock_;
    std::array<form*, 32> held_{};   // which screen has each button down
    long last_x_, last_y_;           // as told last
    const form* told_ = nullptr;     // to which screen
};

}   // namespace vorn
