#include <algorithm>

#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

namespace {

struct ammo_row {
    const char* caption;
    nature_of_target nature;
    double Left = 0, Top = 0;   // of the caption on the ammunition dial of the visual sight
};

const ammo_row& row_of(ammo_shown a)
{
    static constexpr ammo_row rows[] = {{"", no_nature},
                                        {"FIN", fin_tank, 480, 1680},
                                        {"DST", fin_tank, 1060, 2160},
                                        {"HESH", hesh_bmp, 1160, 2160},
                                        {"COAX", coax_transport, 1260, 1680},
                                        {"FIN ", hesh_bmp},
                                        {"DST ", hesh_bmp}};
    return rows[static_cast<int>(a)];
}

// On the thermal sight the selection of a weapon replaces the stadia mark with the laser aiming mark.
void showaimingmark(gunnery_screen& s)
{
    if (s.visual()) return;
    static_cast<area&>(s.Imglam) = s.Imgstadia;
    s.Imglam.Visible = true;
    for (screen_object* o : {&s.imgbam, &s.Imgstadia, &s.Imgrevhesh, &s.Imgrevfin}) o->Visible = false;
}

void selectround(trainer& t, gunnery_screen& s, ammo_shown a)
{
    const ammo_row& r = row_of(a);
    showammo(s, a);
    s.ammoselected = r.nature;
    t.shared.recammo[row(t)] = r.caption;
    if (!s.visual()) return;
    place_at(s.Lblammotype, r.Left, r.Top);
}

void nextround(trainer& t, gunnery_screen& s)
{
    static constexpr ammo_shown cycle[] = {ammo_shown::fin, ammo_shown::dst, ammo_shown::hesh};
    s.ammoindex = s.ammoindex >= 2 ? 0 : s.ammoindex + 1;
    s.Cmdfire.Enabled = true;
    selectround(t, s, cycle[s.ammoindex]);
    if (s.visual() && s.ammoselected != hesh_bmp) s.autolaycount = 2;
}

// Two presses of Cmdmaingun with a traverse in between correct the next rounds sideways. Each further press
// replaces the second.
void heshcorrect(gunnery_screen& s)
{
    s.Cmdautolay.Enabled = true;
    if (s.correctstep == 1) s.correctfrom = static_cast<float>(s.Imgrange.Left);
    if (s.correctstep == 2) {
        s.correctto = static_cast<float>(s.Imgrange.Left);
        s.layready = true;
    }
    if (!s.visual() || s.Imgtargets.Visible) s.heshcorrection = s.correctto - s.correctfrom;
}

void cmdmaingun_click(trainer& t, gunnery_screen& s)
{
    if (!s.heshcorrecting) {
        if (s.ammoarmed) nextround(t, s);
        return;
    }
    if (!s.visual())
        showammo(s, s.shown == ammo_shown::hesh_as_fin ? ammo_shown::hesh_as_dst : ammo_shown::hesh_as_fin);
    s.correctstep = std::min(s.correctstep + 1, 2);
    heshcorrect(s);
}

// Selects FIN and then does what Cmdmaingun does. While heshcorrecting is set, the press counts for the
// correction. Otherwise DST is selected if a weapon was already selected. The thermal record contains FIN in
// each case, the visual record contains the round selected.
void cmdselectmain_click(trainer& t, gunnery_screen& s)
{
    showaimingmark(s);
    s.hasfired = false;
    s.Imghesh.Visible = false;
    s.Cmdselectmain.Enabled = false;
    s.ammoindex = 0;
    showammo(s, ammo_shown::fin);
    s.ammoselected = fin_tank;
    if (s.visual()) {
        start(s.Timchrg);
        t.shared.recammo[row(t)] = "FIN";
        s.autolaycount = 2;
    }
    s.Cmdcoax.Enabled = false;
    for (screen_object* o : {&s.Cmdlaze, &s.Cmdfire, &s.Cmdmaingun}) o->Enabled = true;
    cmdmaingun_click(t, s);
    s.laze.Visible = false;
    s.ammoarmed = true;
    if (!s.visual()) t.shared.recammo[row(t)] = "FIN";
}

void cmdcoax_click(trainer& t, gunnery_screen& s)
{
    showaimingmark(s);
    s.hasfired = false;
    for (screen_object* o : {&s.Cmdmaingun, &s.Cmdselectmain}) o->Enabled = false;
    for (screen_object* o : {&s.Cmdfire, &s.Cmdlaze}) o->Enabled = true;
    s.laze.Visible = false;
    selectround(t, s, ammo_shown::coax);
    s.ammoarmed = true;
    s.Imgcoax.Visible = false;
}

void emptygun(gunnery_screen& s)
{
    s.gunloaded = false;
    s.Imgloaded.Visible = false;
}

void deselect_visual(gunnery_screen& s)
{
    s.leadperstep = 0;
    s.Lblcharge.Visible = false;
    stop(s.Timchrg);
    s.coaxfired = false;
    s.laze.Visible = false;
}

void deselect_thermal(gunnery_screen& s)
{
    s.hasfired = false;
    for (screen_object* o : {&s.Imglam, &s.imgbam, &s.Imgrevhesh, &s.Imgrevfin}) o->Visible = false;
    s.Imgstadia.Visible = true;
    s.coaxhits = 0;
}

void cmdoff_click(const trainer& t, gunnery_screen& s)
{
    s.visual() ? deselect_visual(s) : deselect_thermal(s);
    if (!s.Imgtargets.Visible) emptygun(s);
    s.ammoarmed = false;
    s.heshcorrecting = false;
    if (t.shared.heshcorrectall) s.heshcorrection = 0;
    for (screen_object* o : {&s.Cmdautolay, &s.Cmdmaingun, &s.Cmdfire}) o->Enabled = false;
    for (screen_object* o : {&s.Cmdselectmain, &s.Cmdcoax}) o->Enabled = true;
    showammo(s, ammo_shown::nothing);
    s.Lblrange.Caption.clear();
    for (screen_object* o : {&s.Imghesh, &s.Imgcoax}) o->Visible = true;
}

void loaderreports(trainer& t, gunnery_screen& s)
{
    s.lblcrew.Caption = "LOADER :- LOADED !!";
    const bool coaxquiet = s.visual() ? !s.coaxfired : !s.Timcoax.Enabled;
    if (!t.shared.voiceson || !coaxquiet) return;
    if (!s.hasfired && s.visual()) s.lblcrew.Caption = "LOADED....  FIRE";
    callcrew(t, s, s.hasfired ? "loaded.wav" : "loadfire.wav");
}

// A gun that was already loaded is reported on the first tick.
void timloading_tick(trainer& t, gunnery_screen& s)
{
    s.loadcount += 1;
    if (s.loadcount >= s.numbers.loaded.from && s.loadcount <= s.numbers.loaded.to) s.gunloaded = true;
    if (!s.gunloaded) return;
    stop(s.Timloading);
    if (s.nature != coax_transport) s.Imgloaded.Visible = true;
    loaderreports(t, s);
}

void wronground(trainer& t, gunnery_screen& s)
{
    static constexpr struct {
        const char* line;
        const char* voice;
    } corrections[] = {{"COMMANDER : SELECT FIN", "selectfin.wav"},
                       {"COMMANDER : SELECT HESH", "selechesh.wav"},
                       {"COMMANDER : SELECT COAX", "selectcoax.wav"}};
    const auto& c = corrections[s.nature];
    s.lblcrew.Caption = c.line;
    if (t.shared.voiceson)
        callcrew(t, s, c.voice);
    else if (!s.visual())
        playsound(t, s, c.voice);   // the thermal screen plays the voice even with voices off
}

}   // namespace

void showammo(gunnery_screen& s, ammo_shown a)
{
    s.shown = a;
    s.Lblammotype.Caption = row_of(a).caption;
}

nature_of_target natureshown(const gunnery_screen& s)
{
    return row_of(s.shown).nature;
}

// The gun fires even without a target, a lay or a lase.
void keyfire(trainer& t, gunnery_screen& s)
{
    static constexpr void (*fire[])(trainer&, gunnery_screen&, int) = {firefin, firehesh, firecoax};
    if (!s.gunloaded) return;
    s.Cmdautolay.Enabled = false;
    if (s.nature != s.ammoselected) return wronground(t, s);
    const int round = t.shared.roundnumber;
    t.shared.recaimx[row(t)][round] = aimacross(s);
    t.shared.recaimy[row(t)][round] = s.visual() ? aimdown(s) : -aimdown(s);
    if (s.nature != coax_transport) {
        if (s.visual()) playsound(t, s, "fire.wav");
        emptygun(s);
    }
    t.shared.roundnumber = std::min(round + 1, 4);
    t.shared.recrounds[row(t)] = t.shared.roundnumber - 1;
    fire[s.nature](t, s, round);
}

void make_armament(trainer& t, gunnery_screen& s)
{
    add(s.window, s.Timloading, 1000, [&t, &s] { timloading_tick(t, s); });
    s.Cmdselectmain.Click = [&t, &s] { cmdselectmain_click(t, s); };
    s.Cmdmaingun.Click = [&t, &s] { cmdmaingun_click(t, s); };
    s.Cmdcoax.Click = [&t, &s] { cmdcoax_click(t, s); };
    s.Cmdoff.Click = [&t, &s] { cmdoff_click(t, s); };
}

}   // namespace vorn
