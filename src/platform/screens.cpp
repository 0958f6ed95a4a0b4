#include "platform/screens.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/machine.h"

namespace vorn {

static double period(const timer& t)
{
    return std::max(t.Interval / 1000.0, timer_floor);
}

// Sets the time of the first tick of each timer that has just been started.
static void arm_timers(machine& m)
{
    for (form* f : m.screens.loaded)
        for (timer* t : f->timers)
            if (t->Enabled && t->fresh) {
                t->fresh = false;
                t->due = m.now() + period(*t);
            }
}

static void queue_arrival(machine& m, form& f)
{
    auto& waiting = m.screens.arrivals;
    const auto same = [&](const screen_stack::arrival& a) { return a.screen == &f; };
    if (std::none_of(waiting.begin(), waiting.end(), same))
        waiting.push_back({&f, std::max(m.screens.depth, 1)});
}

void load(machine& m, form& f)
{
    if (f.state != form_state::not_loaded) return;
    f.state = form_state::hidden;
    m.screens.loaded.push_back(&f);
    for (screen_object* o : f.objects)
        if (o->design) static_cast<object_fields&>(*o) = *o->design;
    if (f.load) f.load();
}

void show(machine& m, form& f)
{
    load(m, f);
    if (front(m) == &f) return;
    std::erase(m.screens.shown, &f);
    m.screens.shown.push_back(&f);
    f.state = form_state::shown;
    queue_arrival(m, f);
}

static void leave_screen(machine& m, form& f, form_state state)
{
    const bool was_front = front(m) == &f;
    f.state = state;
    std::erase(m.screens.shown, &f);
    std::erase_if(m.screens.arrivals, [&](const screen_stack::arrival& a) { return a.screen == &f; });
    if (was_front && front(m) != nullptr) queue_arrival(m, *front(m));
}

void hide(machine& m, form& f)
{
    if (f.state == form_state::shown) leave_screen(m, f, form_state::hidden);
}

void unload(machine& m, form& f)
{
    if (f.state == form_state::not_loaded) return;
    for (timer* t : f.timers) stop(*t);
    leave_screen(m, f, form_state::not_loaded);
    std::erase(m.screens.loaded, &f);
    if (f.unloaded) f.unloaded();
}

form* front(const machine& m)
{
    return m.screens.shown.empty() ? nullptr : m.screens.shown.back();
}

void close_by_frame(form& f)
{
    if (f.state != form_state::shown) return;
    const auto& action = f.exit_button != nullptr ? f.exit_button->Click : f.closed;
    if (action) action();
}

void joystick_changed(machine& m)
{
    const std::vector<form*> loaded = m.screens.loaded;   // a copy: a handler may load or unload a screen
    for (const form* f : loaded)
        if (f->JoystickChanged) f->JoystickChanged();
}

// Sets a variable while a handler runs and restores it afterwards, also if end_program throws.
template <class T>
struct meanwhile {
    T& variable;
    const T before = variable;
    meanwhile(T& v, T value) : variable(v) { v = value; }
    meanwhile(const meanwhile&) = delete;
    meanwhile& operator=(const meanwhile&) = delete;
    ~meanwhile() { variable = before; }
};

static void run_nested(machine& m, const std::function<void()>& event)
{
    const meanwhile nested(m.screens.depth, m.screens.depth + 1);
    if (event) event();
    arm_timers(m);
}

static std::optional<screen_stack::arrival> take_arrival(screen_stack& s)
{
    const auto ready = [&](const screen_stack::arrival& a) { return a.depth > s.depth; };
    const auto found = std::find_if(s.arrivals.begin(), s.arrivals.end(), ready);
    if (found == s.arrivals.end()) return std::nullopt;
    const screen_stack::arrival a = *found;
    s.arrivals.erase(found);
    return a;
}

void handle(machine& m, const std::function<void()>& event)
{
    run_nested(m, event);
    while (const auto a = take_arrival(m.screens)) run_nested(m, a->screen->arrival);
}

static bool can_tick(const timer& t)
{
    return t.Enabled && !t.fresh && !t.ticking;
}

static timer* earliest(const machine& m)
{
    timer* first = nullptr;
    for (const form* f : m.screens.loaded)
        for (timer* t : f->timers)
            if (can_tick(*t) && (first == nullptr || t->due < first->due)) first = t;
    return first;
}

double next_tick(machine& m)
{
    arm_timers(m);
    const timer* t = earliest(m);
    return t == nullptr ? std::numeric_limits<double>::infinity() : t->due;
}

double next_wake(machine& m)
{
    arm_timers(m);
    double wake = std::numeric_limits<double>::infinity();
    for (const form* f : m.screens.loaded)
        for (const timer* t : f->timers)
            if (can_tick(*t)) wake = std::min(wake, t->due + t->slack);
    return wake;
}

// Ticks stay at multiples of the interval. A late timer ticks once, however many ticks it has missed.
static void tick(machine& m, timer& t)
{
    const meanwhile ticking(t.ticking, true);
    const double missed = std::floor((m.now() - t.due) / period(t));
    t.due += period(t) * (1 + std::max(missed, 0.0));
    handle(m, t.tick);
}

void deliver_ticks(machine& m, const std::function<void()>& after_each)
{
    arm_timers(m);
    const double until = m.now();
    for (timer* t = earliest(m); t != nullptr && t->due <= until; t = earliest(m)) {
        tick(m, *t);
        if (after_each) after_each();
    }
}

}   // namespace vorn
