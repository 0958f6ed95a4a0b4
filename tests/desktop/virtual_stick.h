// A virtual joystick of SDL, which the machine finds like a real one.
#pragma once

#define SDL_MAIN_HANDLED
#include <SDL.h>
#include <gtest/gtest.h>

#include <utility>

#include "platform/desktop/desktop_machine.h"

namespace vorn::desktop_tests {

class virtual_stick {
public:
    explicit virtual_stick(desktop_machine& machine) : pc(machine) {}
    ~virtual_stick() { unplug(); }
    virtual_stick(const virtual_stick&) = delete;
    virtual_stick& operator=(const virtual_stick&) = delete;

    void plug(int axes = 2)
    {
        pc.joystick().poll();   // initialises SDL
        const int index = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_FLIGHT_STICK, axes, 6, 0);
        ASSERT_GE(index, 0) << SDL_GetError();
        device = SDL_JoystickOpen(index);
        pc.joystick().poll();
    }
    // The machine notices it at the next poll.
    void unplug()
    {
        if (device == nullptr) return;
        // Indices change when another stick is unplugged.
        int index = 0;
        while (SDL_JoystickGetDeviceInstanceID(index) != SDL_JoystickInstanceID(device)) ++index;
        SDL_JoystickDetachVirtual(index);
        SDL_JoystickClose(std::exchange(device, nullptr));
    }
    void button(int n, bool down)
    {
        SDL_JoystickSetVirtualButton(device, n, down ? 1 : 0);
        pc.joystick().poll();
    }
    void axis(int n, int to)
    {
        SDL_JoystickSetVirtualAxis(device, n, static_cast<Sint16>(to));
        pc.joystick().poll();
    }

private:
    desktop_machine& pc;
    SDL_Joystick* device = nullptr;
};

}   // namespace vorn::desktop_tests
