#include <string>

#include "gunnery/gunnery.h"
#include "platform/files.h"
#include "trainer.h"

namespace vorn {

void playsound(trainer& t, gunnery_screen& s, const std::string& file)
{
    s.soundfile = file;
    if (t.shared.soundson) t.pc.play(t.shared.rootpath + path_separator + "wavs" + path_separator + file);
}

// During a call of the crew an effect is silent and ends the call's sound. It leaves soundfile unchanged:
// keycoaxstop then has no sound to close.
void effect(trainer& t, gunnery_screen& s, const std::string& file)
{
    s.voicebusy ? t.pc.close_sound() : playsound(t, s, file);
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

// A call that begins during another one doesn't reset voicecount: both end together.
static void timvoice_tick(gunnery_screen& s)
{
    s.voicecount += 1;
    if (s.voicecount < s.numbers.voiceticks) return;
    s.voicecount = 0;
    s.voicebusy = false;
    stop(s.Timvoice);
}

// The commander calls the range rounded to a number for which there is a recording.
void callrange(trainer& t, gunnery_screen& s)
{
    const int range = t.shared.targetrange[s.currenttarget];
    const int called = range < 700 ? 600 : range < 900 ? 800 : range < 1900 ? range / 100 * 100 : 2000;
    s.lblcrew.Caption += "ON " + std::to_string(called) + " !!!";
    s.soundfile = "on" + std::to_string(called) + ".wav";
    callcrew(t, s, s.soundfile);
}

static void thermal_on(trainer& t, gunnery_screen& s)
{
    s.lblcrew.Caption += "ON !!";
    choosestadia(s);
    say(t, s, "on.wav");
}

// With voices off the text of the full system is shown only for status 1, not for status 0, which a
// self-degrading practice has at first.
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
    // If a pause during the lay has stopped Timtarget, the resume starts the loader.
    if (s.Timtarget.Enabled) start(s.Timloading);
}

void make_crew(trainer& t, gunnery_screen& s)
{
    add(s.window, s.Timvoice, 1000, [&s] { timvoice_tick(s); });
    s.window.unloaded = [&t, &s] {
        ++s.resets;
        t.pc.close_sound();
    };
}

}   // namespace vorn
