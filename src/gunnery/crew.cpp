#include <iterator>

#include "gunnery/gunnery.h"
#include "platform/files.h"
#include "trainer.h"

namespace vorn {

void playsound(trainer& t, gunnery_screen& s, const std::string& file)
{
    s.soundfile = file;
    t.pc.close_sound();
    if (t.shared.soundson) t.pc.play(t.shared.rootpath + path_separator + "wavs" + path_separator + file);
}

void effect(trainer& t, gunnery_screen& s, const std::string& file)
{
    if (!s.voicebusy) return playsound(t, s, file);
    s.soundfile = file;
    t.pc.close_sound();
}

void say(trainer& t, gunnery_screen& s, const std::string& file)
{
    if (t.shared.voiceson) playsound(t, s, file);
}

void callcrew(trainer& t, gunnery_screen& s, const std::string& file)
{
    if (!t.shared.voiceson) return;
    start(s.Timvoice);
    s.voicebusy = true;
    playsound(t, s, file);
}

// A further call while the timer runs doesn't restart the count: both are over together.
static void timvoice_tick(gunnery_screen& s)
{
    s.voicecount += 1;
    if (s.voicecount < s.numbers.voiceticks) return;
    s.voicecount = 0;
    s.voicebusy = false;
    stop(s.Timvoice);
}

void callrange(trainer& t, gunnery_screen& s)
{
    struct call {
        int below;   // metres
        const char* hundreds;
    };
    static constexpr call calls[] = {{700, "600"},   {900, "800"},   {1000, "900"},  {1100, "1000"},
                                     {1200, "1100"}, {1300, "1200"}, {1400, "1300"}, {1500, "1400"},
                                     {1600, "1500"}, {1700, "1600"}, {1800, "1700"}, {1900, "1800"}};
    const int range = t.shared.targetrange[s.currenttarget];
    std::string hundreds = "2000";
    for (auto c = std::rbegin(calls); c != std::rend(calls); ++c)
        if (range < c->below) hundreds = c->hundreds;
    s.lblcrew.Caption += "ON " + hundreds + " !!!";
    s.soundfile = "on" + hundreds + ".wav";
    callcrew(t, s, s.soundfile);
}

static void thermal_on(trainer& t, gunnery_screen& s)
{
    s.lblcrew.Caption += "ON !!";
    choosestadia(s);
    say(t, s, "on.wav");
}

// With voices off the text of the full system comes for status 1 alone, not for the 0 of a degrading
// practice.
static void visual_on(trainer& t, gunnery_screen& s)
{
    const int status = t.shared.systemstatus;
    const bool voices = t.shared.voiceson;
    if (status > 2) return callrange(t, s);
    if (status == 2) {
        s.lblcrew.Caption += voices ? "ON LAZE !!" : "ON LAZE!!";
        say(t, s, "onlaze.wav");
    } else if (voices || status == 1) {
        s.lblcrew.Caption += "ON !!";
        say(t, s, "on.wav");
    }
}

void reporton(trainer& t, gunnery_screen& s)
{
    if (!s.visual()) return thermal_on(t, s);
    if (s.nature == coax_transport)
        callrange(t, s);
    else
        visual_on(t, s);
    // Paused in the midst of the lay: the resume starts it. A pause left over from an earlier practice holds
    // nothing.
    if (s.Timtarget.Enabled) start(s.Timloading);
}

void make_crew(trainer& t, gunnery_screen& s)
{
    add(s.window, s.Timvoice, 1000, [&s] { timvoice_tick(s); });
    s.window.unloaded = [&t, &s] {
        s.resets += 1;
        t.pc.close_sound();
    };
}

}   // namespace vorn
