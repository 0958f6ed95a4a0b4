#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

static void loaderreports(trainer& t, gunnery_screen& s)
{
    s.lblcrew.Caption = "LOADER :- LOADED !!";
    const bool coaxquiet = s.visual() ? !s.coaxfired : !s.Timcoax.Enabled;
    if (!t.shared.voiceson || !coaxquiet) return;
    if (!s.hasfired && s.visual()) s.lblcrew.Caption = "LOADED....  FIRE";
    heldcall(t, s, s.hasfired ? "loaded.wav" : "loadfire.wav");
}

// The loader. A gun that was loaded already when the target came is reported on the first tick.
static void timloading_tick(trainer& t, gunnery_screen& s)
{
    s.loadcount += 1;
    const bool done = s.visual() ? s.loadcount >= s.numbers.loadedat : s.loadcount == s.numbers.loadedat;
    if (done) s.gunloaded = true;
    if (!s.gunloaded) return;
    stop(s.Timloading);
    if (s.nature != coax_transport) s.Imgloaded.Visible = true;
    loaderreports(t, s);
}

void make_armament(trainer& t, gunnery_screen& s)
{
    add(s.window, s.Timloading, 1000, [&t, &s] { timloading_tick(t, s); });
}

}   // namespace vorn
