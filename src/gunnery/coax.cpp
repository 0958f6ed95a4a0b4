#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

// A burst is assessed at its start, on the place that the last one left: the tracer seen is never tested.
void firecoax(trainer& t, gunnery_screen& s)
{
    s.hasfired = true;
    s.coaxfired = s.visual();
    if (s.visual() && s.coaxrunning) return;   // a repeat of the trigger; the thermal screen tests again
    effect(t, s, "coax.wav");
    const double size = s.visual() ? 5 : 15;
    s.ammo.Height = size;
    s.ammo.Width = size;
    s.coaxrunning = s.visual();
    start(s.Timcoax);
    assessround(t, s);
}

void keycoaxstop(trainer& t, gunnery_screen& s)
{
    s.coaxrunning = false;
    s.ammo.Visible = false;
    stop(s.Timcoax);
    if (s.soundfile == "coax.wav") t.pc.close_sound();
}

// One draw for both directions: the tracer jumps about on one diagonal.
static void timcoax_tick(trainer& t, gunnery_screen& s)
{
    const double c = Int(Rnd(t.random) * 150 - 50);
    const double drop = s.visual() ? 2.0 * s.currentrange : s.currentrange / 7.0;
    s.ammo.Top = s.mbs1.Top + drop + c + t.shared.coaxerror;
    s.ammo.Left = s.mbs1.Left + c + t.shared.coaxerrorwide;
    s.ammo.Visible = true;
}

void make_coax(trainer& t, gunnery_screen& s)
{
    add(s.window, s.Timcoax, 20, [&t, &s] { timcoax_tick(t, s); });
}

}   // namespace vorn
