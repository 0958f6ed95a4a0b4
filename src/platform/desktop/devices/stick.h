// The joystick in use: the first connected one with at least two axes, or another that was moved later. Its
// buttons and first two axes go to the screen in front.
#pragma once

#include <QTimer>
#include <vector>

#include "platform/objects.h"
#include "state/numbers.h"

struct _SDL_Joystick;   // NOLINT(bugprone-reserved-identifier): SDL's own name

namespace vorn {

class desktop_machine;

class stick {
public:
    explicit stick(desktop_machine&);
    ~stick();
    stick(const stick&) = delete;
    stick& operator=(const stick&) = delete;

    // By number: 5 and 7 are the maxima of X and Y, 13 and 14 their positions. Without a stick both
    // positions are the centre.
    int reading(int number) const;
    bool present() const { return device_ != nullptr; }
    // Delivers the events since the last call; called by the stick's own timer, and by tests.
    void poll();
    void release_all();

    struct open_device {
        _SDL_Joystick* handle;
        table<int, 2> rest;   // its axes when it was opened, or when the stick in use last changed
    };

private:
    void take_events();
    void open_new();
    void close(int id);
    void choose(_SDL_Joystick*);
    void choose_first();
    void take_axis(int id, int number, int value);
    std::vector<open_device>::iterator find_open(int id);
    void button(int number, bool down);
    void deliver_move();
    int axis(int number) const;

    desktop_machine& pc_;
    std::vector<open_device> open_;
    _SDL_Joystick* device_ = nullptr;   // the stick in use
    bool search_ = true;                // there may be a stick that isn't open yet
    QTimer timer_;
    table<form*, 32> held_;               // the screen to which each held button belongs
    int reported_x_, reported_y_;         // the position last delivered
    const form* reported_to_ = nullptr;   // the screen that received this position
};

}   // namespace vorn
