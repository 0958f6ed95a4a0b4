#include <functional>

#include "gunnery/count.h"
#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

namespace {

// Durations of the counted moves, seconds.
constexpr double coarse_seconds = 0.45;
constexpr double fine_seconds = 0.25;
constexpr double relay_seconds = 0.4;
constexpr double creep_seconds = 1;

constexpr double fine_part = 200;   // twips; the last part of a FIN or HESH lay, in steps of fixed size

// The first count changes the target's Top but not the picture's, so the target moves one step more.
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
    const double drop = s.numbers.fin.to.at(s.currentrange);
    s.laze.Top += drop;
    lay(t, s, drop - fine_part, s.layspeed, coarse_seconds);
    lay(t, s, fine_part, 20, fine_seconds);
    s.lazed = true;
    s.ammoselected = fin_tank;
}

// Moves picture and target sideways by the lead for the wind during a lay. The sums are in single precision:
// the aim in the record depends on how they are rounded.
void movebylead(gunnery_screen& s, double step)
{
    const float lead = static_cast<float>(s.leadperstep * step);
    for (screen_object* o : {&s.Imgrange, &s.Imgtargets}) o->Left = static_cast<float>(o->Left) + lead;
}

// Metres. In a HESH lay the lase mark jumps down if the target is nearer than this; if the target is more
// distant, the mark jumps up and moves down with the lay.
constexpr int mark_follows = 2200;

void layhesh(trainer& t, gunnery_screen& s)
{
    s.ammoselected = hesh_bmp;
    if (!s.autolayheld) {   // released too early
        s.lazed = false;
        return;
    }
    const int range = s.currentrange;
    const double drop = s.numbers.hesh.to.at(range);
    s.laze.Top += range < mark_follows ? drop : -drop;
    const struct {
        double twips, step, seconds;
    } stages[] = {{drop - fine_part, static_cast<double>(s.layspeed), coarse_seconds},
                  {fine_part, 10, fine_seconds}};
    for (const auto& stage : stages)
        lay(t, s, stage.twips, stage.step, stage.seconds, [&](double step) {
            movebylead(s, step);
            if (range > mark_follows) s.laze.Top += step;
        });
    s.lazed = true;
}

void laycoax(trainer& t, gunnery_screen& s)
{
    const double drop = s.numbers.coax.drop.at(s.currentrange);
    s.laze.Top += drop;
    lay(t, s, drop, s.layspeed, coarse_seconds);
    s.lazed = true;
    s.ammoselected = coax_transport;
}

// The ballistic aiming mark jumps down and moves slowly back. Picture and target don't move.
void playmark(trainer& t, gunnery_screen& s, nature_of_target nature)
{
    const double d = (nature == fin_tank ? s.numbers.finjump : s.numbers.otherjump).at(s.currentrange);
    s.imgbam.Top += d;
    const double low = s.imgbam.Top;
    count(t.pc, low, low - d, -0.1, creep_seconds, [&](double top) { s.imgbam.Top = top; });
    s.lazed = true;
    s.ammoselected = nature;
}

void thermal_lay(trainer& t, gunnery_screen& s, nature_of_target nature)
{
    if (s.autolayheld) return playmark(t, s, nature);
    // The key was released too early, or AUTO was clicked.
    s.autolayheld = true;
    s.imgbam.Visible = false;
    reversionarydrop(s);
}

void timautolay_tick(trainer& t, gunnery_screen& s)
{
    s.autolaycount += 1;
    if (s.autolaycount <= s.numbers.holdticks) return;
    s.autolaycount = 0;
    s.autolayheld = true;
    stop(s.timautolay);
    keyautolay(t, s);
}

// Sets the lead for the next lay, or keeps the previous one if the divisor, the picture's Top, is 0.
void takelead(gunnery_screen& s)
{
    if (s.Imgrange.Top != 0) s.leadperstep = static_cast<float>(s.windoffset / (0 - s.Imgrange.Top));
    s.laze.Left += s.windoffset;
}

}   // namespace

void keyautolay(trainer& t, gunnery_screen& s)
{
    static constexpr void (*visual_lay[])(trainer&, gunnery_screen&) = {layfin, layhesh, laycoax};
    if (!s.visual()) s.Imglam.Visible = false;
    if (t.shared.systemstatus >= 2 || !s.layready || !s.ammoarmed) return;
    s.layready = false;
    const nature_of_target nature = natureshown(s);
    if (nature == no_nature) return;
    s.visual() ? visual_lay[nature](t, s) : thermal_lay(t, s, nature);
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

double relay(trainer& t, gunnery_screen& s)
{
    const int range = s.currentrange;
    const double drop = s.numbers.hesh.to.at(range);
    s.laze.Top += range < mark_follows ? -drop : drop;
    if (s.heshcorrecting) s.laze.Left -= s.windoffset;
    double relayed = 0;
    lay(t, s, -drop, -s.layspeed, relay_seconds, [&](double step) {
        relayed -= step;
        movebylead(s, step);
        if (range > mark_follows) s.laze.Top += step;
    });
    return relayed;
}

void make_autolay(trainer& t, gunnery_screen& s)
{
    add(s.window, s.timautolay, 500, [&t, &s] { timautolay_tick(t, s); });
}

}   // namespace vorn
