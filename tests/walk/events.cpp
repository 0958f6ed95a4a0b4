// Random events, weighted for the screen in front.
#include <algorithm>
#include <iterator>

#include "calibration/joycal.h"
#include "debrief/results.h"
#include "flow/intro.h"
#include "gunnery/screen.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"
#include "walk/walker.h"

namespace vorn {

namespace {

struct event_row {
    int weight;
    void (*happens)(walker&);
};

template <std::size_t N>
void one_of(walker& w, const event_row (&rows)[N])
{
    int sum = 0;
    for (const event_row& r : rows) sum += r.weight;
    int left = w.below(sum);
    for (const event_row& r : rows)
        if ((left -= r.weight) < 0) return r.happens(w);
}

// On any screen ------------------------------------------------------------------------------------------

int random_key(walker& w)
{
    return w.chance(0.85) ? w.pick(controls).key : w.between(0, 255);
}

constexpr auto press_key = [](walker& w) { w.key_down(random_key(w)); };

void tap_key(walker& w)
{
    const int code = random_key(w);
    w.run->plan.push_front([&w, code] { w.release(device::key, code, nullptr); });
    w.key_down(code);
}

// With auto-repeat.
void hold_key(walker& w)
{
    const int code = random_key(w);
    for (int i = w.below(6); i > 0; --i) {
        w.run->plan.push_back([&w] { w.wait(0.03 + w.fraction() * 0.5); });
        w.run->plan.push_back([&w, code] { w.key_down(code); });
    }
    w.run->plan.push_back([&w, code] { w.release(device::key, code, nullptr); });
    w.key_down(code);
}

void stray_key_up(walker& w)
{
    const int code = random_key(w);
    w.act("stray key up " + std::to_string(code), [&] { w.pc().key_up(code); });
}

constexpr auto release_one = [](walker& w) { w.release_one(); };
constexpr auto release_all = [](walker& w) { w.release_all(); };
constexpr auto wait_a_frame = [](walker& w) { w.wait(w.fraction() * 0.06); };
constexpr auto wait_a_second = [](walker& w) { w.wait(w.fraction()); };
constexpr auto wait_some_seconds = [](walker& w) { w.wait(w.fraction() * 6); };
constexpr auto wait_a_minute = [](walker& w) { w.wait_a_minute(); };

// An object that takes input; once in ten times any object at all.
void use_anything(walker& w)
{
    std::vector<screen_object*> all = w.front_form()->objects;
    if (w.chance(0.9))
        std::erase_if(all, [](const screen_object* o) {
            const bool choice = o->kind == object_kind::option || o->kind == object_kind::checkbox;
            return !takes_input(*o) || !(o->Click || o->ClickAt || o->MouseDown || choice);
        });
    if (all.empty()) return;
    screen_object& o = *w.pick(all);
    if (o.ClickAt)
        return w.act("click at a place",
                     [&] { w.pc().click_at(o, o.Width * w.fraction(), o.Height * w.fraction()); });
    o.MouseDown && !(o.Click && w.chance(0.5)) ? w.press(o) : w.click(o);
}

void move_over_anything(walker& w)
{
    std::vector<screen_object*> all = w.front_form()->objects;
    std::erase_if(all, [](const screen_object* o) { return !o->MouseMove || !takes_input(*o); });
    if (all.empty()) return;
    screen_object& o = *w.pick(all);
    w.act("move over " + name_of(o), [&] { w.pc().event(o.MouseMove); });
}

void slide_or_type_anything(walker& w)
{
    static constexpr const char* texts[] = {"", "smith", "A name far too long for the thirty characters",
                                            "99"};
    for (screen_object* o : w.front_form()->objects) {
        if (!w.chance(0.5)) continue;
        if (o->kind == object_kind::slider)
            w.act("slide", [&] { w.pc().slide(*o, w.between(o->Min - 5, o->Max + 5)); });
        if (o->kind == object_kind::textbox) w.act("type", [&] { w.pc().type(*o, w.pick(texts)); });
    }
}

void close_window(walker& w)
{
    if (form* f = w.front_form()) w.act("close the window", [&] { w.pc().close_window(*f); });
}

void bring_to_front(walker& w)
{
    trainer& t = w.t();
    form* forms[] = {&t.intro.window,   &t.startsim.window, &t.simulator.window, &t.thermal.window,
                     &t.results.window, &t.rauthor.window,  &t.joycal.window};
    form& f = *w.pick(forms);
    w.act("bring to the front " + f.name, [&] { w.pc().activate(f); });
}

constexpr auto sudden_event_later = [](walker& w) { w.later(w.fraction() * 3, sudden_event); };

void move_stick(walker& w)
{
    const auto axis = [&w] { return w.chance(0.3) ? 32768L : static_cast<long>(w.below(65536)); };
    const long x = axis(), y = axis();
    w.act("stick " + std::to_string(x) + ' ' + std::to_string(y), [&] { w.pc().stick(x, y); });
}

void press_stick_button(walker& w)
{
    const int button = w.between(0, 5);
    if (w.chance(0.2)) return w.act("stray stick button up", [&] { w.pc().stick_button(button, false); });
    w.run->plan.push_back([&w, button] { w.release(device::stick, button, nullptr); });
    w.stick_down(button);
}

constexpr auto plug_or_pull_stick = [](walker& w) { w.plug_stick(w.chance(0.8)); };

constexpr event_row screen_events[] = {
    {60, use_anything},          {10, move_over_anything}, {10, move_stick},        {10, press_stick_button},
    {5, slide_or_type_anything}, {10, release_one},        {5, release_all},        {4, tap_key},
    {10, wait_a_second},         {2, wait_some_seconds},   {1, plug_or_pull_stick}, {1, close_window},
    {1, bring_to_front},         {2, sudden_event_later}};

// On a gunnery screen ------------------------------------------------------------------------------------

constexpr auto trained_step = [](walker& w) { gunner_step(w, *w.gunnery()); };

// Enabled or not.
void use_gunner_button(walker& w)
{
    screen_object& o = w.gunnery()->*w.pick(controls).button;
    w.chance(0.4) ? w.click(o) : w.press(o);
}

constexpr auto pause_or_resume = [](walker& w) { w.click(w.gunnery()->Cmdpausesim); };
constexpr auto stop_practice = [](walker& w) { w.click(w.gunnery()->Cmdstopsim); };
constexpr auto back_to_setup = [](walker& w) { w.click(w.gunnery()->Cmdmain); };
constexpr auto show_next_target = [](walker& w) { w.click(w.gunnery()->Cmdtarget); };

constexpr event_row gunnery_events[] = {{7000, trained_step},     {120, press_key},
                                        {120, tap_key},           {60, hold_key},
                                        {40, stray_key_up},       {300, release_one},
                                        {100, release_all},       {200, use_gunner_button},
                                        {150, move_stick},        {100, press_stick_button},
                                        {600, wait_a_frame},      {200, wait_a_second},
                                        {40, wait_some_seconds},  {10, wait_a_minute},
                                        {20, use_anything},       {20, slide_or_type_anything},
                                        {40, pause_or_resume},    {6, stop_practice},
                                        {3, back_to_setup},       {40, show_next_target},
                                        {8, close_window},        {10, bring_to_front},
                                        {100, sudden_event_later}};

// On the set-up: mostly options and the start of a practice -----------------------------------------------

constexpr auto start_practice = [](walker& w) { w.click(w.t().startsim.Cmdstart); };
constexpr auto quick_start = [](walker& w) { w.click(w.t().startsim.cmdgame); };

void set_method(walker& w)
{
    practice_state& p = w.t().shared;
    p.joyselected = w.chance(0.3);
    p.mouseselected = w.chance(0.5);
    p.keyboardselected = !p.mouseselected || w.chance(0.7);
}

void set_display(walker& w)
{
    practice_state& p = w.t().shared;
    for (bool* b : {&p.coaxlight, &p.gunlight, &p.infosystem, &p.infocontrol, &p.infocrew, &p.soundson})
        *b = w.chance(0.8);
    p.voiceson = w.chance(0.7);
    p.plainscreen = w.chance(0.05);
    p.fulldebrief = w.chance(0.5);
}

void set_targets(walker& w)
{
    static constexpr int times[] = {20, 30, 30, 40, 40, 40, 500};
    practice_state& p = w.t().shared;
    p.targetblocks = w.between(2, 5);
    p.targettime = w.pick(times);
    p.engagementtype = w.between(1, 4);
    p.targetauto = w.chance(0.7);
    p.targetsize = w.between(4, 10);
    p.systemstatus = w.chance(0.6) ? 1 : w.between(1, 3);
    p.selfdegrading = w.chance(0.2);
}

void set_shooting(walker& w)
{
    practice_state& p = w.t().shared;
    p.killarea = w.between(4, 20);
    p.coaxbursts = w.between(2, 4);
    p.coaxerror = w.between(5, 50) * 10;
    p.coaxerrorwide = p.coaxerror / 1.5;
    p.windbias = w.between(-3, 3);
    p.heshcorrectall = w.chance(0.5);
}

// Writes options as the set-up does, a group at a time.
void set_options(walker& w)
{
    static constexpr void (*writers[])(walker&) = {set_method, set_display, set_targets, set_shooting};
    w.note("sets options");
    w.pick(writers)(w);
}

constexpr auto load_range = [](walker& w) { w.click(w.t().startsim.Cmdopenrange); };
constexpr auto edit_range = [](walker& w) { w.click(w.t().startsim.cmdeditrange); };
constexpr auto open_calibration = [](walker& w) { w.click(w.t().startsim.cmdstick); };
constexpr auto any_screen_event = [](walker& w) { one_of(w, screen_events); };

constexpr event_row setup_events[] = {{30, start_practice},   {6, quick_start}, {40, set_options},
                                      {4, load_range},        {2, edit_range},  {5, open_calibration},
                                      {100, any_screen_event}};

// On the calibration and the author: how the walker finishes -----------------------------------------------

constexpr auto finish_calibration = [](walker& w) { w.click(w.t().joycal.Cmdfinish); };

constexpr event_row calibration_events[] = {
    {40, move_stick}, {40, press_stick_button}, {10, finish_calibration}, {40, any_screen_event}};

void click_file_button(walker& w)
{
    rauthor_screen& s = w.t().rauthor;
    screen_object* buttons[] = {&s.cmdnew, &s.Cmdopen, &s.Cmdsave};
    w.click(*w.pick(buttons));
}

constexpr event_row author_events[] = {{20, click_file_button}, {60, any_screen_event}};

// Events that take no time, and so may come inside a handler ----------------------------------------------

constexpr event_row sudden_gunnery_events[] = {
    {30, press_key},   {20, release_one},           {10, stray_key_up}, {15, use_gunner_button},
    {10, move_stick},  {8, pause_or_resume},        {4, stop_practice}, {3, back_to_setup},
    {4, use_anything}, {3, slide_or_type_anything}, {2, close_window}};
constexpr event_row sudden_screen_events[] = {{10, press_key}, {10, release_one}, {10, use_anything}};
constexpr event_row lay_events[] = {
    {85, sudden_event}, {6, stop_practice}, {5, back_to_setup}, {4, pause_or_resume}};

}   // namespace

void random_event(walker& w)
{
    if (w.gunnery() != nullptr) return one_of(w, gunnery_events);
    if (w.front_form() == &w.t().startsim.window) return one_of(w, setup_events);
    if (w.front_form() == &w.t().joycal.window) return one_of(w, calibration_events);
    if (w.front_form() == &w.t().rauthor.window) return one_of(w, author_events);
    one_of(w, screen_events);
}

void sudden_event(walker& w)
{
    w.gunnery() != nullptr ? one_of(w, sudden_gunnery_events) : one_of(w, sudden_screen_events);
}

void event_in_lay(walker& w)
{
    w.gunnery() != nullptr ? one_of(w, lay_events) : sudden_event(w);
}

}   // namespace vorn
