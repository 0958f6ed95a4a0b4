#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

// A burst is tested for a hit when it starts, with the last position of `ammo`: that of the previous burst's
// tracer, or of a main gun round fired since.
void firecoax(trainer& t, gunnery_screen& s, int round)
{
    s.hasfired = true;
    s.coaxfired = s.visual();
    if (s.visual() && s.coaxrunning) return;   // auto-repeat; on the thermal screen it is a new burst
    effect(t, s, "coax.wav");
    s.ammo.Height = s.ammo.Width = s.numbers.coax.size;
    s.coaxrunning = s.visual();
    start(s.Timcoax);
    assessround(t, s, round);
}

void keycoaxstop(trainer& t, gunnery_screen& s)
{
    s.coaxrunning = false;
    s.ammo.Visible = false;
    stop(s.Timcoax);
    if (s.soundfile == "coax.wav") t.pc.close_sound();
}

// One random number serves both directions, so the tracer stays on a diagonal.
static void timcoax_tick(trainer& t, gunnery_screen& s)
{
    const double c = Int(Rnd(t.random) * 150 - 50);
    s.ammo.Top = s.mbs1.Top + s.numbers.coax.drop.at(s.currentrange) + c + t.shared.coaxerror;
    s.ammo.Left = s.mbs1.Left + c + t.shared.coaxerrorwide;
    s.ammo.Visible = true;
    showstrike(t, s, round_kind::coax);
}

void make_coax(trainer& t, gunnery_screen& s)
{
    add(s.window, s.Timcoax, 20, [&t, &s] { timcoax_tick(t, s); });
}

}   // namespace vorn
