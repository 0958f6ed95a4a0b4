#include <cstdlib>

#include "platform/objects.h"
#include "setup/setup.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {

namespace {

using S = startsim_screen;
using P = practice_state;

// A line of the summary of the set-up.
struct line {
    int number = -1;   // -1: none
    const char* text = nullptr;
};

void write(trainer& t, const line& l)
{
    if (l.number >= 0) t.startsim.lblprac[l.number].Caption = l.text;
}

// An option that sets one value and writes at most one line of the summary.
template <class T>
struct choice {
    screen_object S::*option;
    T P::*setting;
    int value;
    line summary = {};
};

template <class T, std::size_t N>
void make_choices(trainer& t, const choice<T> (&rows)[N])
{
    for (const choice<T>& r : rows)
        (t.startsim.*r.option).Click = [&t, r] {
            t.shared.*r.setting = static_cast<T>(r.value);
            write(t, r.summary);
        };
}

constexpr choice<bool> switches[] = {
    {&S::Opttarg1, &P::targetauto, true, {5, "TARGETS APPEAR AUTOMATICALLY"}},
    {&S::Opttarg2, &P::targetauto, false, {5, "TARGETS APPEAR ON DEMAND"}},
    {&S::optcontroller1, &P::fulldebrief, true},
    {&S::Optcontroller2, &P::fulldebrief, false},
    {&S::opthesh1, &P::heshcorrectall, true},
    {&S::Opthesh2, &P::heshcorrectall, false},
    {&S::Optvoice1, &P::voiceson, true},
    {&S::Optvoice2, &P::voiceson, false},
    {&S::Optsound1, &P::soundson, true},
    {&S::Opsound2, &P::soundson, false},
    {&S::Optscreen1, &P::plainscreen, true},
    {&S::Optscreen2, &P::plainscreen, false},
};
constexpr choice<int> bursts[] = {
    {&S::Option2, &P::coaxbursts, 2, {7, "2 KILL BURST ON COAX TARGETS"}},
    {&S::Option3, &P::coaxbursts, 3, {7, "3 KILL BURSTS ON COAX TARGETS"}},
    {&S::Option4, &P::coaxbursts, 4, {7, "4 KILL BURSTS ON COAX TARGETS"}},
};
constexpr choice<int16> numbers[] = {
    {&S::Opttargets1, &P::targetblocks, 2, {3, "6 TARGETS"}},
    {&S::Opttargets2, &P::targetblocks, 3, {3, "9 TARGETS"}},
    {&S::Opttargets3, &P::targetblocks, 4, {3, "12 TARGETS"}},
    {&S::Opttargets4, &P::targetblocks, 5, {3, "15 TARGETS"}},
    {&S::Opttime1, &P::targettime, 500, {4, "UP TILL DESTROYED"}},
    {&S::Opttime2, &P::targettime, 20, {4, "UP FOR 20 SECS"}},
    {&S::Opttime3, &P::targettime, 30, {4, "UP FOR 30 SECS "}},
    {&S::Opttime4, &P::targettime, 40, {4, "UP FOR 40 SECS"}},
};

// An option for the system status.
struct system_choice {
    screen_object S::*option;
    int status;
    bool degrading;
    const char* system;
    const char* practice;
};
constexpr system_choice systems[] = {
    {&S::Optsys1, 1, false, "A FULL SYSTEM ", "STANDARD PRACTICE SHOOT"},
    {&S::Optsys2, 2, false, "A LAZE ONLY ", "A REV MODES PRACTICE SHOOT"},
    {&S::Optsys3, 3, false, "A TLS ONLY ", "A REV MODES PRACTICE SHOOT"},
    {&S::Optsys4, 1, true, "A DEGRADING ", "NORMAL / REV MODES PRACTICE"},
};

void make_systems(trainer& t)
{
    for (const system_choice& c : systems)
        (t.startsim.*c.option).Click = [&t, c] {
            t.shared.systemstatus = c.status;
            t.shared.selfdegrading = c.degrading;
            write(t, {0, c.system});
            write(t, {1, c.practice});
        };
}

// Writes the summary line of the selected coax bursts option.
void writebursts(trainer& t)
{
    for (const choice<int>& b : bursts)
        if ((t.startsim.*b.option).Value != 0) write(t, b.summary);
}

// The wind frame is enabled if there are HESH engagements, the coax bursts frame if there are coax
// engagements.
struct engagement_choice {
    screen_object S::*option;
    int type;
    const char* summary;
    bool wind, coax;
};
constexpr engagement_choice engagements[] = {
    {&S::Opteng1, 1, "USING ALL NATURE OF AMMUNITION", true, true},
    {&S::Opteng2, 2, "USING ONLY COAX AMMUNITION", false, true},
    {&S::Opteng3, 3, "USING ONLY HESH AMMUNITION", true, false},
    {&S::Opteng4, 4, "USING ONLY FIN AMMUNITION", false, false},
};

void opteng_click(trainer& t, const engagement_choice& c)
{
    startsim_screen& s = t.startsim;
    if (c.option == &S::Opteng2) select_option(s.Option2);
    t.shared.engagementtype = c.type;
    write(t, {2, c.summary});
    s.Frame6.Enabled = c.wind;
    s.Frame10.Enabled = c.coax;
    if (c.coax)
        writebursts(t);
    else
        write(t, {7, "THERE ARE NO COAX TARGETS"});
}

void make_method(trainer& t)
{
    const auto select = [&t](bool joystick, bool mouse) {
        t.shared.joyselected = joystick;
        t.shared.mouseselected = mouse;
        // The choice of the mouse leaves keyboardselected unchanged.
        if (!mouse) t.shared.keyboardselected = true;
    };
    t.startsim.Optcon1.Click = [select] { select(true, false); };
    t.startsim.Optcon2.Click = [select] { select(false, false); };
    t.startsim.Optcon3.Click = [select] { select(false, true); };
}

// A click inverts the setting, even if the check box shows another value.
void make_checkboxes(trainer& t)
{
    static constexpr struct {
        screen_object S::*box;
        bool P::*setting;
    } boxes[] = {{&S::Chkinfo1, &P::infosystem},
                 {&S::Chkinfo2, &P::infocontrol},
                 {&S::chkinfo3, &P::infocrew},
                 {&S::Chkgunlight, &P::gunlight},
                 {&S::Chkcoax, &P::coaxlight}};
    for (const auto& b : boxes)
        (t.startsim.*b.box).Click = [&t, setting = b.setting] { t.shared.*setting = !(t.shared.*setting); };
}

void hscrwind_change(trainer& t)
{
    static constexpr const char* strengths[] = {"None", "Mild", "Fresh", "Strong"};
    startsim_screen& s = t.startsim;
    const int wind = s.HScrwind.Value;
    t.shared.windbias = wind;
    s.lblwinddir.Caption = wind < 0 ? "Left" : wind > 0 ? "Right" : "None";
    s.Lblwindstr.Caption = strengths[std::abs(wind)];
}

void make_sliders(trainer& t)
{
    startsim_screen& s = t.startsim;
    s.HSctgt.Change = [&t] { t.shared.targetsize = t.startsim.HSctgt.Value; };
    s.hsctarget.Change = [&t] { t.shared.killarea = t.startsim.hsctarget.Value; };
    s.HSccoax.Change = [&t] {
        t.shared.coaxerror = t.startsim.HSccoax.Value;
        t.shared.coaxerrorwide = t.startsim.HSccoax.Value / 1.5;
    };
    s.HScrwind.Change = [&t] { hscrwind_change(t); };
}

}   // namespace

void make_options(trainer& t)
{
    make_choices(t, switches);
    make_choices(t, bursts);
    make_choices(t, numbers);
    make_systems(t);
    for (const engagement_choice& c : engagements)
        (t.startsim.*c.option).Click = [&t, &c] { opteng_click(t, c); };
    make_method(t);
    make_checkboxes(t);
    make_sliders(t);
}

}   // namespace vorn
