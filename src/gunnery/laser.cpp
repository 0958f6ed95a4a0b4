#include <algorithm>

#include "gunnery/count.h"
#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

namespace {

bool betweensides(const gunnery_screen& s)
{
    const double left = s.Imgtargets.Left;
    return left < s.mbs1.Left && left + s.Imgtargets.Width > s.mbs1.Left;
}

// The visual sight compares the lower edge of the target with the top of the ring, so the aim point may be a
// little below the target.
bool betweenedges(const gunnery_screen& s)
{
    const double top = s.Imgtargets.Top;
    const double lower = s.visual() ? s.mbs.Top : s.mbs1.Top;
    return top < s.mbs1.Top && top + s.Imgtargets.Height > lower;
}

void recordlaze(trainer& t, const gunnery_screen& s)
{
    t.shared.reclazex[row(t)] = aimacross(s);
    t.shared.reclazey[row(t)] = aimdown(s);
}

// Shows a mark of random size near the aim point, for a lase beside the target.
void straymark(trainer& t, screen_object& mark, double middle, double top)
{
    const double height = Int(Rnd(t.random) * 600);
    static_cast<area&>(mark) = {middle - height, top, 2 * height, height};
    mark.Visible = true;
}

void visual_mark(trainer& t, gunnery_screen& s)
{
    if (!s.Imgtargets.Visible) {
        static_cast<area&>(s.laze) = {s.mbs1.Left, s.mbs1.Top, 200, 100};
        s.laze.Visible = true;
    } else if (!betweensides(s)) {
        straymark(t, s.laze, s.mbs.Left, s.mbs1.Top);
    } else if (betweenedges(s)) {
        const double height = s.Imgtargets.Height;
        static_cast<area&>(s.laze) = {s.mbs1.Left - (height - 30), s.mbs1.Top - (height / 2 - 30), 2 * height,
                                      height};
        if (t.shared.systemstatus < 2) s.laze.Visible = true;
    } else {
        return;   // above or below the target: no new mark or lay
    }
    s.layready = true;
}

void marktarget(trainer& t, gunnery_screen& s)
{
    const double size = s.Imgtargets.Height;
    for (screen_object* mark : {&s.imgbam, &s.Imglam})
        static_cast<area&>(*mark) = {s.mbs1.Left - (size / 2 - 30), s.mbs1.Top - (size / 2 - 30), size, size};
    s.imgbam.Visible = true;
    s.layready = true;
    t.shared.recwidth[row(t)] = s.Imgtargets.Width;
}

void thermal_mark(trainer& t, gunnery_screen& s)
{
    if (!s.Imgtargets.Visible) {
        const double half = s.imgbam.Width / 2;
        static_cast<area&>(s.imgbam) = {s.mbs1.Left - half, s.mbs1.Top - half, 200, 100};
        s.imgbam.Visible = true;
    } else if (!betweensides(s)) {
        straymark(t, s.imgbam, s.mbs1.Left, s.mbs1.Top);
        s.layready = true;
    } else if (betweenedges(s)) {
        marktarget(t, s);
    }
}

void showrange(trainer& t, gunnery_screen& s)
{
    s.Lblrange.Caption = std::to_string(t.shared.targetrange[s.currenttarget]) + s.rangesuffix;
}

// In a degraded state a lase switches the thermal sight to its reversionary mark, wherever the gun points.
void degraded_laze(trainer& t, gunnery_screen& s)
{
    showrange(t, s);
    t.shared.recwidth[row(t)] = s.Imgtargets.Width;
    reversionarydrop(s);
}

// Every other tick shows the readout CHRG: it is back one or two ticks after a lase, which doesn't restart
// the count. It is for display only: the laser can be fired again at once.
void timchrg_tick(gunnery_screen& s)
{
    s.chargecount += 1;
    if (s.chargecount != 2) return;
    s.chargecount = 0;
    s.Lblcharge.Visible = true;
}

}   // namespace

double aimacross(const gunnery_screen& s)
{
    return s.Imgtargets.Width / 2 + s.Imgtargets.Left - s.mbs1.Left;
}

double aimdown(const gunnery_screen& s)
{
    return s.Imgtargets.Height / 2 + s.Imgtargets.Top - s.mbs1.Top;
}

void reversionarydrop(gunnery_screen& s)
{
    (natureshown(s) == fin_tank ? s.Imgrevfin : s.Imgrevhesh).Visible = true;
    const double top = s.Imgtargets.Top, step = -5;
    const int steps = counts(top, top - s.numbers.reversionary.at(s.currentrange), step);
    movepicture(s, &object_fields::Top, steps * step);
    if (steps > 0) s.Imglam.Visible = false;
}

void keylaze(trainer& t, gunnery_screen& s)
{
    if (!s.visual() && t.shared.systemstatus >= 2) return degraded_laze(t, s);
    if (t.shared.systemstatus >= 3) return;
    if (s.visual()) {
        s.Lblcharge.Visible = false;
        start(s.Timchrg);
        int16& range = t.shared.targetrange[s.currenttarget];
        range = std::max<int>(range, s.numbers.nearest);
    }
    s.heshcorrecting = false;
    recordlaze(t, s);
    showrange(t, s);
    s.Cmdautolay.Enabled = true;
    s.lazed = true;
    if (s.ammoarmed) s.visual() ? visual_mark(t, s) : thermal_mark(t, s);
}

void make_laser(gunnery_screen& s)
{
    if (s.visual()) add(s.window, s.Timchrg, 1000, [&s] { timchrg_tick(s); });
}

}   // namespace vorn
