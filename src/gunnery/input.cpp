#include <utility>

#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

namespace {

using operation = void (*)(trainer&, gunnery_screen&);

template <direction d>
void press(trainer&, gunnery_screen& s)
{
    pressdirection(s, d);
}

template <direction d>
void release(trainer&, gunnery_screen& s)
{
    releasedirection(s, d);
}

// A key does what its button does, even if the button is disabled.
template <screen_object gunnery_screen::*button>
void click(trainer&, gunnery_screen& s)
{
    (s.*button).Click();
}

// On the visual sight auto-repeat isn't a new press of AUTO.
void pressautolaykey(trainer&, gunnery_screen& s)
{
    if (!s.visual() || !s.autolaydown) pressautolay(s);
}

void nothing(trainer&, gunnery_screen&) {}

struct key_row {
    int code;   // virtual key code: the letter
    operation down;
    operation up = nothing;
    bool running = true;   // down needs a running practice; up doesn't
};
constexpr key_row keys[] = {
    {'U', press<direction::up>, release<direction::up>, false},
    {'H', press<direction::left>, release<direction::left>, false},
    {'J', press<direction::right>, release<direction::right>, false},
    {'N', press<direction::down>, release<direction::down>, false},
    {'Q', click<&gunnery_screen::Cmdcoax>},
    {'W', click<&gunnery_screen::Cmdoff>},
    {'E', click<&gunnery_screen::Cmdselectmain>},
    {'R', click<&gunnery_screen::Cmdmaingun>},
    {'A', keylaze},
    {'S', pressautolaykey, releaseautolay},
    {'D', keyfire, keycoaxstop},
};

void operate(trainer& t, gunnery_screen& s, int code, bool down)
{
    for (const key_row& k : keys)
        if (k.code == code && (!down || !k.running || s.simrunning)) (down ? k.down : k.up)(t, s);
}

void key(trainer& t, gunnery_screen& s, int code, bool down)
{
    if (t.shared.keyboardselected) operate(t, s, code, down);
}

void stickbutton(trainer& t, gunnery_screen& s, int number, bool down)
{
    constexpr char same_as[] = {'D', 'R', 'A', 'S'};   // keys that do the same as buttons 1 to 4
    if (!s.simrunning || !t.shared.joyselected || number < 1 || number > 4) return;
    operate(t, s, same_as[number - 1], down);
}

void mouse_buttons(trainer& t, gunnery_screen& s)
{
    const std::pair<screen_object*, direction> arrows[] = {{&s.Cmdup, direction::up},
                                                           {&s.Cmdleft, direction::left},
                                                           {&s.Cmdright, direction::right},
                                                           {&s.Cmddown, direction::down}};
    for (const auto& [o, d] : arrows) {
        o->MouseDown = [&s, d = d] { pressdirection(s, d); };
        o->MouseUp = [&s, d = d] { releasedirection(s, d); };
    }
    s.Cmdlaze.MouseDown = [&t, &s] { keylaze(t, s); };
    // No MouseUp: the visual screen lays after the hold time, the thermal one at once.
    s.Cmdautolay.MouseDown = [&t, &s] { s.visual() ? pressautolay(s) : keyautolay(t, s); };
    s.Cmdfire.MouseDown = [&t, &s] { keyfire(t, s); };
    s.Cmdfire.MouseUp = [&t, &s] { keycoaxstop(t, s); };
}

}   // namespace

void make_input(trainer& t, gunnery_screen& s)
{
    mouse_buttons(t, s);
    s.window.KeyDown = [&t, &s](int code) { key(t, s, code, true); };
    s.window.KeyUp = [&t, &s](int code) { key(t, s, code, false); };
    s.window.ButtonDown = [&t, &s](int number) { stickbutton(t, s, number, true); };
    s.window.ButtonUp = [&t, &s](int number) { stickbutton(t, s, number, false); };
    s.window.Move = [&t, &s](int x, int y) { movestick(t, s, x, y); };
}

}   // namespace vorn
