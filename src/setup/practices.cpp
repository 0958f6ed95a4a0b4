#include "setup/setup.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {

namespace {

using S = startsim_screen;

// An option and its line of the summary.
struct selection {
    startsim_option selects;
    const char* summary;
};
constexpr selection visual{&S::Optmode1, "VISUAL PRACTICE"}, thermal{&S::Optmode2, "THERMAL PRACTICE"};
constexpr selection full{&S::Optsys1, "A FULL SYSTEM"}, laze{&S::Optsys2, "A  LAZE ONLY "};
constexpr selection fin{&S::Opteng4, "USING ONLY FIN AMMUNITION"},
    hesh{&S::Opteng3, "USING ONLY HESH AMMUNITION"}, coax{&S::Opteng2, "USING ONLY COAX AMMUNITION"},
    mixed{&S::Opteng1, "USING ALL NATURES OF AMMO"};
constexpr startsim_option up30 = &S::Opttime3, up40 = &S::Opttime4;

constexpr const char* standard = "STANDARD PRACTICE SHOOT";
constexpr const char* special = "SPECIAL PRACTICE SHOOT";
constexpr const char* thirty = "UP FOR 30 SECS ";
constexpr const char* thirty2 = " UP FOR 30 SECS ";   // practices 1 and 2 have an extra space
constexpr const char* no_coax = "THERE WILL BE NO COAX TARGETS";
constexpr const char* two_bursts = "2 KILL BURSTS FOR COAX TARGETS";

constexpr const char* six = "SIX TARGETS";   // shown for practices 1 to 11, although they have nine targets
constexpr const char* automatic = "ALL TARGETS APPEAR AUTOMATICALLY";

// The options that a practice selects, and its summary. All practices also select Automatic, two bursts and
// nine targets. The summary is fixed: it may say thirty seconds when forty are selected.
struct programmed {
    selection mode, system;
    const char* practice;
    selection engagements;
    int wind;
    startsim_option time;
    const char *up, *coax, *targets = six, *targetry = automatic;
};
constexpr programmed programmed_practices[] = {
    {visual, full, standard, fin, 0, up40, thirty2, "YOU WILL RECEIVE NO COAX TARGETS"},
    {visual, full, standard, hesh, 2, up40, thirty2, no_coax},
    {visual, full, standard, coax, 0, up40, thirty, two_bursts},
    {thermal, full, standard, fin, 0, up40, thirty, no_coax},
    {thermal, full, standard, hesh, -2, up40, thirty, no_coax},
    {thermal, full, standard, coax, 0, up40, thirty, two_bursts},
    {visual, laze, special, fin, 0, up40, thirty, no_coax},
    {visual, laze, special, hesh, 2, up40, thirty, no_coax},
    {visual, laze, special, coax, 0, up40, thirty, two_bursts},
    {thermal, laze, special, fin, 0, up40, thirty, no_coax},
    {thermal, laze, special, hesh, -2, up30, thirty, no_coax},
    {visual, full, standard, mixed, 0, up30, thirty, "2 KILL BURSTS ON COAX TARGETS", "NINE TARGETS",
     "TARGETS APPEAR AUTOMATICALLY"},
};

void highlight(startsim_screen& s, int number)
{
    for (int n = 1; n <= 11; ++n) s.Lblpractice[n].ForeColor = colour::darkred;
    for (int n = 1; n <= 12; ++n) s.Lblpractice[n].bold = n == number;   // recognisable without colour
    s.Lblpractice[number].ForeColor = colour::red;
}

void lblpractice_click(trainer& t, int number)
{
    startsim_screen& s = t.startsim;
    highlight(s, number);
    t.shared.practicenumber = number;
    const programmed& p = programmed_practices[number - 1];
    for (const startsim_option o : {p.mode.selects, &S::Opttarg1, &S::Option2}) select_option(s.*o);
    set_slider(s.HScrwind, p.wind);
    for (const startsim_option o : {p.system.selects, p.engagements.selects, &S::Opttargets2, p.time})
        select_option(s.*o);
    const char* summary[] = {p.system.summary, p.practice, p.engagements.summary, p.targets, p.up, p.targetry,
                             p.mode.summary,   p.coax};
    for (int i = 0; const char* line : summary) s.lblprac[i++].Caption = line;
}

}   // namespace

void make_practices(trainer& t)
{
    for (int n = 1; n <= 12; ++n) t.startsim.Lblpractice[n].Click = [&t, n] { lblpractice_click(t, n); };
}

}   // namespace vorn
