#include <algorithm>
#include <string>

#include "debrief/debrief.h"
#include "debrief/results.h"
#include "flow/boxes.h"
#include "gunnery/sight.h"
#include "ranges/rangefile.h"
#include "trainer.h"

namespace vorn {

namespace {

constexpr int rows = 15;
constexpr int farthest_seen = 2200;   // metres; at longer ranges the aim isn't shown

// There is no picture for "DST": the row of the list keeps its previous picture.
void show_in_list(const practice_state& p, results_screen& s, int e)
{
    const struct {
        const char* ammo;
        const screen_object& stock;
    } pictures[] = {{"FIN", s.Imgfin}, {"HESH", s.Imghesh}, {"COAX", s.Imgcoax}, {"", s.imgblank}};
    for (const auto& [ammo, stock] : pictures)
        if (p.recammo[e] == ammo) s.Imgtgtnumber[e].Picture = stock.Picture;
}

// Shows a mark of the thermal sight: the ballistic aiming mark with the full system, otherwise the
// reversionary mark for FIN, or for HESH and COAX. There is no reversionary mark for DST.
void show_sight_marks(const practice_state& p, results_screen& s)
{
    const bool full = p.recsystem[s.selectedengagement] == "FULL";
    const std::string& ammo = p.recammo[s.selectedengagement];
    s.Imgbam.Visible = full;
    s.Imgrevfin.Visible = !full && ammo == "FIN";
    s.Imgrevhesh.Visible = !full && (ammo == "HESH" || ammo == "COAX");
}

void show_facts(const practice_state& p, results_screen& s)
{
    const int e = s.selectedengagement;
    const auto number = [](int n) { return std::to_string(n); };
    constexpr std::size_t longest = 20;   // a file can contain texts of any length
    s.Lblsystem.Caption = left(p.recsystem[e], longest);
    s.Lbltargetnum.Caption = number(p.rectarget[e]);
    s.Lblammo.Caption = left(p.recammo[e], longest);
    show_sight_marks(p, s);
    s.Lblrounds.Caption = number(p.recrounds[e]);
    s.Lbltarget.Caption = left(p.rechit[e], longest);
    s.Lbltime.Caption = number(p.rectime[e]);
    s.lbltargetrange.Caption = number(p.recrange[e]);
}

// Whether this round wasn't fired at this target, by the number of rounds in the record. The record can still
// contain such a round: from an earlier practice, or fired before the target came up. recrounds is at most 3,
// so after three rounds the fourth also counts as fired.
bool never_fired(const practice_state& p, int e, int round)
{
    return p.recrounds[e] < std::min(round, 3);
}

// Highlights the button of the round that is shown and dims those of rounds that weren't fired.
void show_round(const practice_state& p, results_screen& s, int round)
{
    for (int r = 1; screen_object * button : roundbuttons(s)) {
        const bool unfired = never_fired(p, s.selectedengagement, r);
        button->ForeColor = r == round ? colour::live : unfired ? colour::dim : colour::text;
        button->bold = r == round;
        button->AccessibleName = r == round ? "On view, round" : unfired ? "Not fired, round" : "Round";
        ++r;
    }
}

// The offsets in the record run from the aim, the lase and the round to the target. The mark of the aim is
// pale if the round was never fired, that of the lase if its offset is 0, and that of the fall of shot if the
// round was never fired or the offset of its fall is 0.
void place_markers(const practice_state& p, results_screen& s, int round)
{
    const int e = s.selectedengagement;
    const double scale = s.markerscale;
    const double left = s.Shape1.Left, top = s.Shape1.Top;
    place_at(s.Imagepoa, left - p.recaimx[e][round] * scale, top + p.recaimy[e][round] * scale);
    place_at(s.Imglaze, left - p.reclazex[e] * scale, top + p.reclazey[e] * scale);
    place_at(s.Imgfos, left - p.recfallx[e][round] * scale, top - p.recfally[e][round] * scale);
    s.Imagepoa.Pale = never_fired(p, e, round);
    // An auto-repeat of the trigger in a visual coax burst records an aim and no fall of shot.
    s.Imgfos.Pale = s.Imagepoa.Pale || (p.recfallx[e][round] == 0 && p.recfally[e][round] == 0);
    s.Imglaze.Pale = p.reclazex[e] == 0 && p.reclazey[e] == 0;
    show_round(p, s, round);
}

// A round is a hit if the middle of its mark is inside this outline. The record has no kill area, so the
// current option is used.
void outline_killbox(const practice_state& p, results_screen& s)
{
    const double width = p.recwidth[s.selectedengagement];
    const kill_box box = kill_box_of(sight_of(p.resultmode), width, width, width / p.killarea);
    const double scale = s.markerscale;
    place_at(s.killbox, s.Shape1.Left + mark / 2 + box.left * scale,
             s.Shape1.Top + mark / 2 + box.top * scale);
    s.killbox.Width = (box.right - box.left) * scale;
    s.killbox.Height = (box.bottom - box.top) * scale;
}

// A target without a width, such as a thermal target that was not lased, gives no scale. Its marks are
// hidden.
void show_markers(const practice_state& p, results_screen& s)
{
    const int e = s.selectedengagement;
    const int width = p.recwidth[e];
    const bool measured = width > 0;
    s.markerscale = measured ? static_cast<std::int32_t>(rounded(s.Imgtargetdetails.Height / width)) : 0;
    for (screen_object* mark : {&s.Imgreptarget, &s.Imglaze, &s.Imgfos, &s.killbox}) mark->Visible = measured;
    s.Imagepoa.Visible = measured && p.recrange[e] <= farthest_seen;
    s.Lbltargetvis.Visible = p.recrange[e] > farthest_seen;
    place_markers(p, s, 1);
    if (measured) outline_killbox(p, s);
}

// A round after the first is recognised by its sideways aim offset, so one aimed exactly at the centre line
// of the target gets no button. A single round needs no button.
void show_round_buttons(const practice_state& p, results_screen& s)
{
    const auto& aim = p.recaimx[s.selectedengagement];
    s.Cmdround1.Visible = s.cmdround2.Visible = aim[2] != 0;
    s.Cmdround3.Visible = aim[3] != 0;
    s.cmdround4.Visible = aim[4] != 0;
}

void point_at_target(const practice_state& p, results_screen& s)
{
    const int e = s.selectedengagement;
    const bool ownpicture = s.originalrange.Picture != s.originalrange.design->Picture;
    s.imgtargetpointer.Visible = ownpicture && s.overviewscalex > 0 && s.overviewscaley > 0;
    if (!s.imgtargetpointer.Visible) return;
    place_at(s.imgtargetpointer, s.Imgrange.Left + static_cast<double>(p.recx[e]) / s.overviewscalex,
             s.Imgrange.Top + static_cast<double>(p.recy[e]) / s.overviewscaley);
}

void target(trainer& t)
{
    results_screen& s = t.results;
    show_facts(t.shared, s);
    const std::string& ammo = t.shared.recammo[s.selectedengagement];
    s.Imgtargetdetails.Picture = (ammo == "HESH" ? s.Imghesh : ammo == "COAX" ? s.Imgcoax : s.Imgfin).Picture;
    point_at_target(t.shared, s);
    show_markers(t.shared, s);
    show_round_buttons(t.shared, s);
    s.Imgthermtarget.Pale = true;   // until a round button is clicked
    s.Frame1.Visible = t.shared.recsystem[s.selectedengagement] != "TLS ONLY";
}

void highlight(results_screen& s, int e)
{
    for (int n = 1; n <= rows; ++n) {
        s.Lbltgtnumber[n].ForeColor = n == e ? colour::red : colour::darkred;
        s.Lbltgtnumber[n].bold = n == e;   // recognisable without colour
    }
}

void lbltgtnumber_click(trainer& t, int e)
{
    t.results.selectedengagement = e;
    if (t.shared.rectime[e] < 1) return inform(t, "YOU DID NOT FIRE THIS ROUND ");
    highlight(t.results, e);
    target(t);
}

void cmdround_click(trainer& t, int round)
{
    results_screen& s = t.results;
    const int e = s.selectedengagement;
    place_markers(t.shared, s, round);
    place_at(s.Imgthermtarget, s.Imgbam.Left + t.shared.recaimx[e][round],
             s.Imgbam.Top - t.shared.recaimy[e][round]);
    s.Imgthermtarget.Pale = s.Imagepoa.Pale;
}

}   // namespace

std::array<screen_object*, 4> roundbuttons(results_screen& s)
{
    return {&s.Cmdround1, &s.cmdround2, &s.Cmdround3, &s.cmdround4};
}

bool loadstock(trainer& t)
{
    results_screen& s = t.results;
    const practice_state& p = t.shared;
    const struct {
        screen_object& holder;
        const std::string& targeticon;
        const std::string& resulticon;
    } stock[] = {{s.Imgfin, p.targeticon1, p.resulticon1},
                 {s.Imghesh, p.targeticon2, p.resulticon2},
                 {s.Imgcoax, p.targeticon3, p.resulticon3}};
    bool all = true;
    for (const auto& [holder, targeticon, resulticon] : stock) {
        holder.Picture = holder.design->Picture;   // drops the previous picture
        if (targeticon.empty() || resulticon.empty()) continue;
        loaded_picture loaded = t.pc.load_picture(icon_path(t.pc, p.rootpath, resulticon));
        if (loaded.result) holder.Picture = std::move(*loaded.result);
        all = all && loaded.result;
    }
    return all;
}

void fillengagements(trainer& t)
{
    results_screen& s = t.results;
    for (int e = 1; e <= rows; ++e) show_in_list(t.shared, s, e);
    lbltgtnumber_click(t, 1);
}

void make_engagements(trainer& t)
{
    results_screen& s = t.results;
    for (int e = 1; e <= rows; ++e) s.Lbltgtnumber[e].Click = [&t, e] { lbltgtnumber_click(t, e); };
    for (int r = 1; screen_object * button : roundbuttons(s)) {
        button->Click = [&t, r] { cmdround_click(t, r); };
        ++r;
    }
}

}   // namespace vorn
