// Random events, fit for the screen in front.
#include <algorithm>
#include <iterator>

#include "calibration/joycal.h"
#include "debrief/results.h"
#include "flow/intro.h"
#include "gunnery/gunnery.h"
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
void happen(walker& w, const event_row (&rows)[N])
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
    return w.now_and_then(0.85) ? w.any_of(hands).key : w.between(0, 255);
}

constexpr auto some_key_down = [](walker& w) { w.key_down(random_key(w)); };

void tap_some_key(walker& w)
{
    const int code = random_key(w);
    w.run->intent.push_front([&w, code] { w.let_go(device::key, code, nullptr); });
    w.key_down(code);
}

// The keyboard repeats a key that is held.
void hold_some_key(walker& w)
{
    const int code = random_key(w);
    for (int i = w.below(6); i > 0; --i) {
        w.run->intent.push_back([&w] { w.wait(0.03 + w.part() * 0.5); });
        w.run->intent.push_back([&w, code] { w.key_down(code); });
    }
    w.run->intent.push_back([&w, code] { w.let_go(device::key, code, nullptr); });
    w.key_down(code);
}

constexpr auto stray_key_up = [](walker& w) { w.stray_key_up(random_key(w)); };
constexpr auto let_go_of_one = [](walker& w) { w.let_go_one(); };
constexpr auto let_go_all = [](walker& w) { w.let_go_all(); };
constexpr auto wait_a_little = [](walker& w) { w.wait(w.part() * 0.06); };
constexpr auto wait_a_moment = [](walker& w) { w.wait(w.part()); };
constexpr auto wait_some_seconds = [](walker& w) { w.wait(w.part() * 6); };
constexpr auto wait_a_minute = [](walker& w) { w.wait_a_minute(); };

bool works(const screen_object* o)
{
    return (o->Click || o->kind == object_kind::option || o->kind == object_kind::checkbox) &&
           takes_input(*o);
}

// Whatever answers to a click, enabled or not in one of ten.
void click_anything(walker& w)
{
    std::vector<screen_object*> all = w.front_form()->objects;
    if (w.now_and_then(0.9)) std::erase_if(all, [](const screen_object* o) { return !works(o); });
    if (!all.empty()) w.click(*w.any_of(all));
}

void move_over_anything(walker& w)
{
    std::vector<screen_object*> all = w.front_form()->objects;
    std::erase_if(all, [](const screen_object* o) { return !o->MouseMove || !takes_input(*o); });
    if (!all.empty()) w.move_over(*w.any_of(all));
}

void slide_anything(walker& w)
{
    for (screen_object* o : w.front_form()->objects)
        if (o->kind == object_kind::slider && w.now_and_then(0.5))
            w.slide(*o, w.between(o->Min - 5, o->Max + 5));
}

void type_anything(walker& w)
{
    static constexpr const char* texts[] = {"", "smith", "A name far too long for the thirty characters",
                                            "99"};
    for (screen_object* o : w.front_form()->objects)
        if (o->kind == object_kind::textbox && w.now_and_then(0.5)) w.type(*o, w.any_of(texts));
}

constexpr auto close_window = [](walker& w) { w.close_window(); };

void bring_to_the_front(walker& w)
{
    form* forms[] = {&w.t().intro.window,   &w.t().startsim.window, &w.t().simulator.window,
                     &w.t().thermal.window, &w.t().results.window,  &w.t().rauthor.window,
                     &w.t().joycal.window};
    w.activate(*w.any_of(forms));
}

constexpr auto something_later = [](walker& w) { w.later(w.part() * 3, sudden_event); };

// On a gunnery screen ------------------------------------------------------------------------------------

constexpr auto gunners_move = [](walker& w) { gunners_step(w, *w.gunnery()); };

// Enabled or not: what takes no input must not answer.
void some_button(walker& w)
{
    screen_object& o = w.gunnery()->*w.any_of(hands).button;
    w.now_and_then(0.4) ? w.click(o) : w.press(o);
}

void some_stick_move(walker& w)
{
    const auto axis = [&w] { return w.now_and_then(0.3) ? 32768L : static_cast<long>(w.below(65536)); };
    const long x = axis();
    w.stick(x, axis());
}

void some_stick_button(walker& w)
{
    const int button = w.between(0, 5);
    if (w.now_and_then(0.2)) return w.stray_stick_up(button);
    w.run->intent.push_back([&w, button] { w.let_go(device::stick, button, nullptr); });
    w.stick_down(button);
}

constexpr auto pause_or_resume = [](walker& w) { w.click(w.gunnery()->Cmdpausesim); };
constexpr auto stop_practice = [](walker& w) { w.click(w.gunnery()->Cmdstopsim); };
constexpr auto back_to_setup = [](walker& w) { w.click(w.gunnery()->Cmdmain); };
constexpr auto show_next_target = [](walker& w) { w.click(w.gunnery()->Cmdtarget); };
constexpr auto leave_program = [](walker& w) { w.click(w.gunnery()->CMDEXIT); };
constexpr auto lay_speed = [](walker& w) { w.slide(w.gunnery()->HScspeed, w.between(-3, 170)); };

constexpr event_row gunnery_events[] = {
    {7000, gunners_move},    {120, some_key_down},     {120, tap_some_key},      {60, hold_some_key},
    {40, stray_key_up},      {300, let_go_of_one},     {100, let_go_all},        {200, some_button},
    {150, some_stick_move},  {100, some_stick_button}, {600, wait_a_little},     {200, wait_a_moment},
    {40, wait_some_seconds}, {10, wait_a_minute},      {20, click_anything},     {20, lay_speed},
    {40, pause_or_resume},   {6, stop_practice},       {3, back_to_setup},       {40, show_next_target},
    {4, leave_program},      {4, close_window},        {10, bring_to_the_front}, {100, something_later}};

// On the title and the set-up ----------------------------------------------------------------------------

constexpr auto start_practice = [](walker& w) { w.click(w.t().startsim.Cmdstart); };
constexpr auto load_range = [](walker& w) { w.click(w.t().startsim.Cmdopenrange); };
constexpr auto edit_range = [](walker& w) { w.click(w.t().startsim.cmdeditrange); };
constexpr auto quick_start = [](walker& w) { w.click(w.t().startsim.cmdgame); };
constexpr auto open_calibration = [](walker& w) { w.click(w.t().startsim.cmdstick); };
constexpr auto plug_or_pull = [](walker& w) { w.plug_stick(w.now_and_then(0.8)); };

void some_method(walker& w)
{
    practice_state& p = w.t().shared;
    p.joyselected = w.now_and_then(0.3);
    p.mouseselected = w.now_and_then(0.5);
    p.keyboardselected = !p.mouseselected || w.now_and_then(0.7);
}

void some_display(walker& w)
{
    practice_state& p = w.t().shared;
    for (bool* b : {&p.coaxlight, &p.gunlight, &p.infosystem, &p.infocontrol, &p.infocrew, &p.soundson})
        *b = w.now_and_then(0.8);
    p.voiceson = w.now_and_then(0.7);
    p.plainscreen = w.now_and_then(0.05);
    p.fulldebrief = w.now_and_then(0.5);
}

void some_targets(walker& w)
{
    static constexpr int times[] = {20, 30, 30, 40, 40, 40, 500};
    practice_state& p = w.t().shared;
    p.targetblocks = w.between(2, 5);
    p.targettime = w.any_of(times);
    p.engagementtype = w.between(1, 4);
    p.targetauto = w.now_and_then(0.7);
    p.targetsize = w.between(4, 10);
}

void some_system(walker& w)
{
    practice_state& p = w.t().shared;
    p.systemstatus = w.now_and_then(0.6) ? 1 : w.between(1, 3);
    p.selfdegrading = w.now_and_then(0.2);
}

void some_shooting(walker& w)
{
    practice_state& p = w.t().shared;
    p.killarea = w.between(4, 20);
    p.coaxbursts = w.between(2, 4);
    p.coaxerror = w.between(5, 50) * 10;
    p.coaxerrorwide = p.coaxerror / 1.5;
    p.windbias = w.between(-3, 3);
    p.heshcorrectall = w.now_and_then(0.5);
}

// The options as the set-up will write them, once in a while each.
void some_options(walker& w)
{
    static constexpr void (*writers[])(walker&) = {some_method, some_display, some_targets, some_system,
                                                   some_shooting};
    w.note("writes options");
    w.any_of(writers)(w);
}

constexpr event_row setup_events[] = {
    {10, move_over_anything}, {30, start_practice}, {6, quick_start},        {4, load_range},
    {40, click_anything},     {5, edit_range},      {40, some_options},      {5, slide_anything},
    {4, type_anything},       {4, tap_some_key},    {4, let_go_all},         {8, wait_a_moment},
    {1, wait_a_minute},       {1, close_window},    {1, bring_to_the_front}, {2, something_later},
    {8, open_calibration},    {2, plug_or_pull}};

constexpr auto go_on = [](walker& w) { w.click(w.t().intro.lblstart); };

constexpr event_row other_events[] = {
    {10, move_over_anything}, {40, go_on},        {20, click_anything}, {4, tap_some_key},
    {4, let_go_all},          {8, wait_a_moment}, {1, close_window},    {1, bring_to_the_front},
    {2, something_later},     {2, type_anything}, {2, slide_anything}};

// On the debrief -----------------------------------------------------------------------------------------

constexpr auto some_engagement = [](walker& w) { w.click(w.t().results.Lbltgtnumber[w.between(1, 15)]); };

void some_round(walker& w)
{
    results_screen& s = w.t().results;
    screen_object* rounds[] = {&s.Cmdround1, &s.cmdround2, &s.Cmdround3, &s.cmdround4};
    w.click(*w.any_of(rounds));
}

constexpr auto new_shoot = [](walker& w) { w.click(w.t().results.cmdnew); };
constexpr auto replay = [](walker& w) { w.click(w.t().results.Cmdreplay); };

constexpr event_row debrief_events[] = {
    {10, move_over_anything}, {40, some_engagement}, {20, some_round}, {20, new_shoot},    {20, replay},
    {10, click_anything},     {4, tap_some_key},     {4, let_go_all},  {8, wait_a_moment}, {1, close_window},
    {1, bring_to_the_front}};

// On the range author ------------------------------------------------------------------------------------

constexpr auto some_position = [](walker& w) { w.click(w.t().rauthor.Lbltargetnum[w.between(1, 20)]); };
constexpr auto place_position = [](walker& w) { w.click(w.t().rauthor.Lblsavetarget); };

void some_arrow(walker& w)
{
    rauthor_screen& s = w.t().rauthor;
    screen_object* arrows[] = {&s.Cmdbigup,   &s.cmdup,   &s.Cmddown,  &s.Cmdbigdown,
                               &s.Cmdbigleft, &s.cmdleft, &s.cmdright, &s.Cmdbigright};
    w.press(*w.any_of(arrows));
}

constexpr auto range_by_hand = [](walker& w) { w.click(w.t().rauthor.Lbltargetrange); };

void some_disk_work(walker& w)
{
    rauthor_screen& s = w.t().rauthor;
    screen_object* buttons[] = {&s.cmdnew, &s.Cmdopen, &s.Cmdsave, &s.Imgtarget[2]};
    w.click(*w.any_of(buttons));
}

constexpr auto back_from_author = [](walker& w) { w.click(w.t().rauthor.Cmdstart); };

constexpr event_row author_events[] = {
    {20, some_position},  {20, place_position},  {20, some_arrow},        {10, let_go_of_one},
    {6, let_go_all},      {20, wait_a_moment},   {4, wait_some_seconds},  {5, range_by_hand},
    {40, some_disk_work}, {8, back_from_author}, {10, click_anything},    {10, move_over_anything},
    {4, type_anything},   {1, close_window},     {2, bring_to_the_front}, {4, something_later}};

// On the calibration -------------------------------------------------------------------------------------

constexpr auto start_calibration = [](walker& w) { w.click(w.t().joycal.Cmdstart); };

void finish_calibration(walker& w)
{
    screen_object& finish = w.t().joycal.Cmdfinish;
    if (takes_input(finish)) w.count("calibrations");
    w.click(finish);
}

constexpr event_row calibration_events[] = {
    {6, start_calibration}, {40, some_stick_move}, {40, some_stick_button}, {20, finish_calibration},
    {5, click_anything},    {4, tap_some_key},     {4, let_go_all},         {8, wait_a_moment},
    {2, plug_or_pull},      {4, close_window},     {4, bring_to_the_front}, {2, something_later}};

// What takes no time, and so may come in the midst of a handler.
constexpr event_row sudden_gunnery_events[] = {
    {30, some_key_down},   {20, let_go_of_one},  {10, stray_key_up},  {15, some_button},
    {10, some_stick_move}, {8, pause_or_resume}, {4, stop_practice},  {3, back_to_setup},
    {1, leave_program},    {1, close_window},    {4, click_anything}, {3, lay_speed}};
constexpr event_row sudden_other_events[] = {{10, some_key_down}, {10, let_go_of_one}, {10, click_anything}};

}   // namespace

void random_event(walker& w)
{
    if (w.gunnery() != nullptr) return happen(w, gunnery_events);
    if (w.front_form() == &w.t().startsim.window) return happen(w, setup_events);
    if (w.front_form() == &w.t().results.window) return happen(w, debrief_events);
    if (w.front_form() == &w.t().rauthor.window) return happen(w, author_events);
    if (w.front_form() == &w.t().joycal.window) return happen(w, calibration_events);
    happen(w, other_events);
}

void sudden_event(walker& w)
{
    w.gunnery() != nullptr ? happen(w, sudden_gunnery_events) : happen(w, sudden_other_events);
}

void event_in_lay(walker& w)
{
    static constexpr event_row rows[] = {
        {85, sudden_event}, {6, stop_practice}, {5, back_to_setup}, {4, pause_or_resume}};
    w.gunnery() != nullptr ? happen(w, rows) : sudden_event(w);
}

}   // namespace vorn
