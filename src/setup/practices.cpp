#include <array>

#include "setup/setup.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {

namespace {

using S = startsim_screen;
using option = screen_object S::*;

// What all programmed practices of a kind say in the same words.
constexpr const char* full = "A FULL SYSTEM";
constexpr const char* laze = "A  LAZE ONLY ";
constexpr const char* standard = "STANDARD PRACTICE SHOOT";
constexpr const char* special = "SPECIAL PRACTICE SHOOT";
constexpr const char* fin = "USING ONLY FIN AMMUNITION";
constexpr const char* hesh = "USING ONLY HESH AMMUNITION";
constexpr const char* coax = "USING ONLY COAX AMMUNITION";
constexpr const char* no_coax = "THERE WILL BE NO COAX TARGETS";
constexpr const char* bursts = "2 KILL BURSTS FOR COAX TARGETS";
constexpr const char* visual = "VISUAL PRACTICE";
constexpr const char* thermal = "THERMAL PRACTICE";
constexpr const char* six = "SIX TARGETS";
constexpr const char* thirty = "UP FOR 30 SECS ";
constexpr const char* thirty_at_first = " UP FOR 30 SECS ";
constexpr const char* automatic = "ALL TARGETS APPEAR AUTOMATICALLY";

// The options of a practice beside Automatic, two bursts and nine targets, which are those of all, and the
// eight lines of its summary. The lines are fixed: they call the nine targets six and the forty seconds
// thirty.
struct programmed {
    option mode, system, engagements;
    int wind;
    option time;
    std::array<const char*, 8> summary;
};
constexpr programmed practices[] = {
    {&S::Optmode1,
     &S::Optsys1,
     &S::Opteng4,
     0,
     &S::Opttime4,
     {full, standard, fin, six, thirty_at_first, automatic, visual, "YOU WILL RECEIVE NO COAX TARGETS"}},
    {&S::Optmode1,
     &S::Optsys1,
     &S::Opteng3,
     2,
     &S::Opttime4,
     {full, standard, hesh, six, thirty_at_first, automatic, visual, no_coax}},
    {&S::Optmode1,
     &S::Optsys1,
     &S::Opteng2,
     0,
     &S::Opttime4,
     {full, standard, coax, six, thirty, automatic, visual, bursts}},
    {&S::Optmode2,
     &S::Optsys1,
     &S::Opteng4,
     0,
     &S::Opttime4,
     {full, standard, fin, six, thirty, automatic, thermal, no_coax}},
    {&S::Optmode2,
     &S::Optsys1,
     &S::Opteng3,
     -2,
     &S::Opttime4,
     {full, standard, hesh, six, thirty, automatic, thermal, no_coax}},
    {&S::Optmode2,
     &S::Optsys1,
     &S::Opteng2,
     0,
     &S::Opttime4,
     {full, standard, coax, six, thirty, automatic, thermal, bursts}},
    {&S::Optmode1,
     &S::Optsys2,
     &S::Opteng4,
     0,
     &S::Opttime4,
     {laze, special, fin, six, thirty, automatic, visual, no_coax}},
    {&S::Optmode1,
     &S::Optsys2,
     &S::Opteng3,
     2,
     &S::Opttime4,
     {laze, special, hesh, six, thirty, automatic, visual, no_coax}},
    {&S::Optmode1,
     &S::Optsys2,
     &S::Opteng2,
     0,
     &S::Opttime4,
     {laze, special, coax, six, thirty, automatic, visual, bursts}},
    {&S::Optmode2,
     &S::Optsys2,
     &S::Opteng4,
     0,
     &S::Opttime4,
     {laze, special, fin, six, thirty, automatic, thermal, no_coax}},
    {&S::Optmode2,
     &S::Optsys2,
     &S::Opteng3,
     -2,
     &S::Opttime3,
     {laze, special, hesh, six, thirty, automatic, thermal, no_coax}},
    {&S::Optmode1,
     &S::Optsys1,
     &S::Opteng1,
     0,
     &S::Opttime3,
     {full, standard, "USING ALL NATURES OF AMMO", "NINE TARGETS", thirty, "TARGETS APPEAR AUTOMATICALLY",
      visual, "2 KILL BURSTS ON COAX TARGETS"}},
};

void highlight(startsim_screen& s, int number)
{
    for (int n = 1; n <= 11; ++n) s.Lblpractice[n].ForeColor = colour::darkred;
    for (int n = 1; n <= 12; ++n)
        s.Lblpractice[n].bold = n == number;   // to be told apart without colour too
    s.Lblpractice[number].ForeColor = colour::red;
}

void lblpractice_click(trainer& t, int number)
{
    startsim_screen& s = t.startsim;
    highlight(s, number);
    t.shared.practicenumber = number;
    const programmed& p = practices[t.shared.practicenumber - 1];
    for (const option o : {p.mode, &S::Opttarg1, &S::Option2}) select_option(s.*o);
    set_slider(s.HScrwind, p.wind);
    for (const option o : {p.system, p.engagements, &S::Opttargets2, p.time}) select_option(s.*o);
    for (std::size_t i = 0; i < p.summary.size(); ++i) s.lblprac[i].Caption = p.summary[i];
}

}   // namespace

void make_practices(trainer& t)
{
    for (int n = 1; n <= 12; ++n) t.startsim.Lblpractice[n].Click = [&t, n] { lblpractice_click(t, n); };
}

}   // namespace vorn
