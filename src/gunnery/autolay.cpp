#include "gunnery/count.h"
#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

namespace {

// How long a lay is shown, in seconds.
constexpr double coarse_seconds = 0.45;
constexpr double fine_seconds = 0.25;
constexpr double relay_seconds = 0.4;
constexpr double creep_seconds = 1;

constexpr double fine_part = 200;   // twips, the last of a lay

enum class lay_kind { none, fin, hesh, coax };

// The thermal HESH correction shows "FIN " and "DST ", which count as HESH.
lay_kind layof(const gunnery_screen& s)
{
    const std::string& ammo = s.Lblammotype.Caption;
    if (ammo == "FIN" || ammo == "DST") return lay_kind::fin;
    if (ammo == "HESH" || ammo == "FIN " || ammo == "DST ") return lay_kind::hesh;
    return ammo == "COAX" ? lay_kind::coax : lay_kind::none;
}

// The picture takes each count in turn and the target moves by a step each time, one step further in all.
void lay(trainer& t, gunnery_screen& s, double twips, double step, double seconds,
         const std::function<void(double)>& each = {})
{
    const double from = s.Imgrange.Top;
    count(t.pc, from, from + twips, step, seconds, [&](double top) {
        if (each) each(step);
        s.Imgrange.Top = top;
        s.Imgtargets.Top += step;
    });
}

void layfin(trainer& t, gunnery_screen& s)
{
    const double drop = s.currentrange / 2.0;
    s.laze.Top += drop;
    lay(t, s, drop - fine_part, s.layspeed, coarse_seconds);
    lay(t, s, fine_part, 20, fine_seconds);
    s.lazed = true;
    s.ammoselected = fin_tank;
}

// Aims off for the wind while the gun is laid; the Lefts add up in full precision.
struct sideways_lead {
    gunnery_screen& s;
    float rangeleft = static_cast<float>(s.Imgrange.Left);
    float targetleft = static_cast<float>(s.Imgtargets.Left);

    void by(double twips)
    {
        rangeleft += static_cast<float>(s.leadperstep * twips);
        targetleft += static_cast<float>(s.leadperstep * twips);
        s.Imgtargets.Left = targetleft;
        s.Imgrange.Left = rangeleft;
    }
};

constexpr int mark_follows = 2200;   // metres: from here on the mark goes with a HESH lay instead of at once

void layhesh(trainer& t, gunnery_screen& s)
{
    const int r = s.currentrange;
    s.ammoselected = hesh_bmp;
    if (!s.autolayheld) {
        s.lazed = false;   // let go too early: it takes a new lase
        return;
    }
    s.laze.Top += r < mark_follows ? 2.0 * r : -2.0 * r;
    const struct {
        double twips, step, seconds;
    } stages[] = {{2.0 * r - fine_part, static_cast<double>(s.layspeed), coarse_seconds},
                  {fine_part, 10, fine_seconds}};
    for (const auto& stage : stages) {
        sideways_lead lead{s};
        lay(t, s, stage.twips, stage.step, stage.seconds, [&](double step) {
            lead.by(step);
            if (r > mark_follows) s.laze.Top += step;
        });
    }
    s.lazed = true;
}

void laycoax(trainer& t, gunnery_screen& s)
{
    s.laze.Top += 2.0 * s.currentrange;
    lay(t, s, 2.0 * s.currentrange, s.layspeed, coarse_seconds);
    s.lazed = true;
    s.ammoselected = coax_transport;
}

void visual_autolay(trainer& t, gunnery_screen& s)
{
    if (t.shared.systemstatus >= 2 || !s.layready || !s.ammoarmed) return;
    s.layready = false;
    switch (layof(s)) {
        case lay_kind::fin:
            return layfin(t, s);
        case lay_kind::hesh:
            return layhesh(t, s);
        case lay_kind::coax:
            return laycoax(t, s);
        case lay_kind::none:
            return;
    }
}

// The mark jumps down and creeps back to where it was. Neither picture nor target moves.
void playmark(trainer& t, gunnery_screen& s, lay_kind kind)
{
    const double d = kind == lay_kind::fin ? s.currentrange / 3.0 : s.currentrange;
    s.imgbam.Top += d;
    const double low = s.imgbam.Top;
    count(t.pc, low, low - d, -0.1, creep_seconds, [&](double top) { s.imgbam.Top = top; });
    s.lazed = true;
    s.ammoselected = kind == lay_kind::fin ? fin_tank : kind == lay_kind::hesh ? hesh_bmp : coax_transport;
}

void thermal_autolay(trainer& t, gunnery_screen& s)
{
    s.Imglam.Visible = false;
    if (t.shared.systemstatus >= 2 || !s.layready || !s.ammoarmed) return;
    s.layready = false;
    const lay_kind kind = layof(s);
    if (kind == lay_kind::none) return;
    if (s.autolayheld) return playmark(t, s, kind);
    s.autolayheld = true;   // let go too early: the sight goes over to the reversionary mark
    s.imgbam.Visible = false;
    reversionarydrop(s);
}

void timautolay_tick(trainer& t, gunnery_screen& s)
{
    s.autolaycount += 1;
    if (s.autolaycount <= s.numbers.holdticks) {
        if (s.visual()) s.autolayheld = false;
        return;
    }
    s.autolaycount = 0;
    s.autolayheld = true;
    stop(s.timautolay);
    keyautolay(t, s);
}

// Aiming off spreads the wind over the picture's distance from the top; at the very top it stays as it was.
void takelead(gunnery_screen& s)
{
    if (s.Imgrange.Top != 0) s.leadperstep = static_cast<float>(s.windoffset / (0 - s.Imgrange.Top));
    s.laze.Left += s.windoffset;
}

}   // namespace

void keyautolay(trainer& t, gunnery_screen& s)
{
    s.visual() ? visual_autolay(t, s) : thermal_autolay(t, s);
}

void pressautolay(gunnery_screen& s)
{
    if (s.visual()) {
        s.autolaydown = true;
        if (s.heshcorrecting) takelead(s);
    }
    start(s.timautolay);
}

void releaseautolay(trainer& t, gunnery_screen& s)
{
    s.autolaydown = false;
    stop(s.timautolay);
    s.autolayheld = false;
    keyautolay(t, s);
}

void relay(trainer& t, gunnery_screen& s)
{
    const int r = s.currentrange;
    s.laze.Top += r < mark_follows ? -2.0 * r : 2.0 * r;
    if (s.heshcorrecting) s.laze.Left -= s.windoffset;
    s.relayed = 0;
    sideways_lead lead{s};
    lay(t, s, -2.0 * r, -s.layspeed, relay_seconds, [&](double step) {
        s.relayed -= step;
        lead.by(step);
        if (r > mark_follows) s.laze.Top += step;
    });
}

void make_autolay(trainer& t, gunnery_screen& s)
{
    add(s.window, s.timautolay, 500, [&t, &s] { timautolay_tick(t, s); });
}

}   // namespace vorn
