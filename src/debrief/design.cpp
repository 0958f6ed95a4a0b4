// The layout of the debrief screen, in twips. Below the buttons is the strip. Below the strip are, from
// left to right, the list of engagements, the data of student and selected engagement, the target with its
// marks, and the text about the marks with the thermal marks below it. At the bottom are the hint bar and a
// line that says what was saved, printed or deleted.
#include <algorithm>
#include <string>
#include <utility>

#include "debrief/debrief.h"
#include "debrief/results.h"
#include "flow/hints.h"
#include "platform/design.h"

namespace vorn {

namespace {

using S = results_screen;

// The marks of lase and visual aim are upside down, since place_markers adds their vertical offsets and
// doesn't subtract them.
constexpr const char* reading =
    "The cross is the middle of the target. The other marks show laser, aim and round against it.\n\n"
    "Laser, and aim of the visual sight, are upside down. A good visual lay has its aim straight below the "
    "cross.\n\n"
    "The round is shown half a target right and low: a hit in the dashed line.\n\n"
    "Twice the same strike: no correction.\n\n"
    "Pale: never fired, never lased.\nAt the edge: further out.";

void buttons(S& s)
{
    put_buttons(s.window, {120, 15, 1590, 330}, 1650,
                {{s.Cmdsave, "SAVE", "SAVE DEBREIF"},
                 {s.Cmdopen, "OPEN", "OPEN DEBREIF"},
                 {s.Cmdprint, "PRINT", "PRINT DEBREIF"},
                 {s.Cmddelete, "DELETE", "DELETE DEBRIEF"},
                 {s.cmdnew, "NEW SHOOT", "NEW SHOOT"},
                 {s.Cmdreplay, "REPLAY", "REPLAY SHOOT"},
                 {s.Cmdexit, "EXIT", ""},
                 {s.Cmdhelpon, "HELP", ""}});
    s.window.exit_button = &s.Cmdexit;
}

void range_strip(S& s)
{
    const area strip{120, 360, 15045, 3000};
    add(s.window, s.Imgrange, image(strip, ":country"));
    add(s.window, s.imgtargetpointer, hidden(bounded(image({120, 360, mark, mark}, ":pointer"), strip)));
    add(s.window, s.originalrange, hidden(image({0, 0, 43560, 7335}, ":country")));
}

void engagement_list(S& s)
{
    const auto in = add_frame(s, s.Frame4, frame({0, 3480, 1815, 6855}, "ENGAGEMENT"));
    for (int e = 1; e <= 15; ++e) {
        const area at{e <= 8 ? 240.0 : 1080.0, 240.0 + 600 * ((e - 1) % 8), 495, 495};
        in.add(s.Imgtgtnumber[e], image(at, ":blank"));
        const object_fields number =
            label(at, std::to_string(e), colour::darkred, text_size::normal, alignment::right);
        in.add(s.Lbltgtnumber[e], named(with_tip(number, e == 1 ? "ENGAGEMENT  NUMBER " : ""), "Engagement"));
    }
    for (screen_object* o : {&s.Imgfin, &s.Imghesh, &s.Imgcoax, &s.imgblank})
        in.add(*o, hidden(image({0, 0, 495, 495}, o == &s.imgblank ? ":blank" : ":target")));
}

void details(S& s)
{
    const auto in = add_frame(s, s.Frame3, frame({2040, 3480, 5175, 2055}, "DETAILS", "STUDENT DETAILS"));
    const struct {
        const char* words;
        screen_object& box;
        const char* tip;
    } rows[] = {{"STUDENT", s.Txtstudent, "STUDENT NAME"},
                {"PRACTICE TYPE", s.Txtpractype, "PRACTICE TYPE"},
                {"RANGE NAME", s.Txtrngename, "RANGE NAME"}};
    double top = 375;
    for (const auto& r : rows) {
        in.caption(label({180, top + 60, 1560, 300}, r.words, colour::dim));
        object_fields f = with_tip(textbox({1800, top, 3195, 420}), r.tip);
        f.ReadOnly = true;
        in.add(r.box, std::move(f));
        top += 540;
    }
}

void information(S& s)
{
    const auto in = add_frame(s, s.Frame2, frame({2040, 5640, 5175, 4695}, "TARGET INFORMATION"));
    const struct {
        const char* words;
        screen_object& value;
        const char* tip;
    } rows[] = {{"TARGET NUMBER", s.Lbltargetnum, ""},  {"SYSTEM", s.Lblsystem, "SYSTEM"},
                {"AMMO TYPE", s.Lblammo, "AMMUNITION"}, {"TARGET RANGE", s.lbltargetrange, ""},
                {"TARGET DESTROYED", s.Lbltarget, ""},  {"TIME TAKEN", s.Lbltime, ""}};
    double top = 510;
    for (const auto& r : rows) {
        in.caption(label({240, top + 60, 2400, 330}, r.words, colour::dim));
        in.add(r.value,
               named(with_tip(readout({2760, top, 2235, 450}, "", text_size::large), r.tip), r.words));
        top += 675;
    }
}

void legend(S& s)
{
    const auto in = add_frame(s, s.Frame7, frame({90, 4620, 4515, 2145}, "LEGEND"), &s.Frame1);
    const struct {
        const char* drawing;
        const char* words;
        double left, top;
    } rows[] = {{":mark_centre", "Centre of mass", 150, 420},
                {":mark_laze", "Last  lase ", 2310, 420},
                {":mark_aim", "Point of Aim", 150, 1230},
                {":mark_fall", "Fall of Shot", 2310, 1230}};
    for (const auto& r : rows) {
        in.caption(image({r.left, r.top, mark, mark}, r.drawing));
        in.caption(label({r.left + 570, r.top + 90, 1500, 300}, r.words));
    }
}

void add_round_buttons(const panel<S>& in)
{
    in.caption(label({180, 4110, 840, 300}, "ROUND", colour::dim));
    for (int r = 1; screen_object * o : roundbuttons(in.s)) {
        const area at{210 + 870.0 * r, 4035, 780, 450};
        const char* tip = r == 1 ? "ROUND NUMBER" : "";
        in.add(*o, hidden(named(button(at, std::to_string(r++), tip), "Round")));
    }
}

void target_details(S& s)
{
    const auto in = add_frame(s, s.Frame1, frame({7320, 3480, 4695, 6855}, " TARGET DETAILS"));
    in.caption(label({180, 390, 1800, 300}, "ROUNDS FIRED", colour::dim));
    in.add(s.Lblrounds, readout({1980, 390, 900, 300}));
    const area seen{60, 720, 4575, 3255};   // bounds of the marks; a mark outside them is shown at the edge
    in.caption(image(seen, ":target_ground"));
    in.add(s.Imgtargetdetails, with_tip(image({1440, 960, 1695, 1695}, ":target"), "LAY OF MBS"));
    in.add(s.killbox, hidden(shape({0, 0, 0, 0}, shape_kind::dashed_rectangle, colour::dim)));
    const object_fields notseen = label({90, 3600, 4515, 330}, "TARGET NOT VISIBLE ON THIS SHOOT",
                                        colour::red, text_size::normal, alignment::centre);
    in.add(s.Lbltargetvis, hidden(bold(with_background(notseen, colour::black))));
    add_round_buttons(in);
    legend(s);
    in.add(s.Shape1, hidden(shape({2040, 1560, 75, 75}, shape_kind::filled_ellipse, colour::white)));
    for (const auto& [o, drawing] : {std::pair{&s.Imgreptarget, ":mark_centre"},
                                     {&s.Imglaze, ":mark_laze"},
                                     {&s.Imagepoa, ":mark_aim"},
                                     {&s.Imgfos, ":mark_fall"}})
        in.add(*o, hidden(bounded(image({2040, 1560, mark, mark}, drawing), seen)));
}

void thermal_marks(S& s)
{
    const auto in = add_frame(s, s.Frmtherm, hidden(frame({12120, 7380, 3120, 2955}, "THERMAL ENGAGEMENTS")));
    const area seen{60, 330, 3000, 2550}, middle{1320, 1365, mark, mark};
    in.caption(shape(seen, shape_kind::rectangle, colour::black, colour::black));
    in.add(s.Imgthermtarget, bounded(image(middle, ":mark_centre"), seen));
    in.add(s.Imgbam, hidden(image(middle, ":bam")));
    in.add(s.Imgrevfin, hidden(image({1020, 1485, 1080, 240}, ":revfin")));
    in.add(s.Imgrevhesh, hidden(image({1020, 1418, 1080, 375}, ":revhesh")));
}

// Places the frame in the given area with its contents enlarged. Objects that reach the frame's right edge by
// design are widened with the frame, and those that also reach its lower edge become higher. A mark that has
// moved to an edge isn't changed, since only its place in the design counts.
void put_frame(const S& s, wide_layout& w, const screen_object& frame, const area& at, double factor)
{
    constexpr double right_margin = 200, lower_margin = 100;
    w.places[&frame] = at;
    w.enlarged[&frame].factor = factor;
    const double wider = at.Width / factor - frame.Width;
    const double higher = std::max(0.0, at.Height / factor - frame.Height);
    for (const screen_object* o : s.window.objects) {
        if (o->parent != &frame || o->design->Left + o->design->Width <= frame.Width - right_margin) continue;
        const bool lowest = o->design->Top + o->design->Height > frame.Height - lower_margin;
        w.places[o] = {o->Left, o->Top, o->Width + wider,
                       std::min(o->Height + (lowest ? higher : 0), at.Height / factor - o->Top)};
    }
}

// Places the legend so that it fills the space below the round buttons. Its entries are in one row if that
// makes them at least as large as two rows would.
void put_legend(const S& s, wide_layout& w, double frame_height)
{
    constexpr double margin = 90, second_row = 1230, two_columns = 4320, up = 810, length = 8700;
    const double height = frame_height - s.Frame7.Top - margin;
    const double as_row = s.Frame7.Width / length, as_square = std::min(1.0, height / s.Frame7.Height);
    w.places[&s.Frame7] = {s.Frame7.Left, s.Frame7.Top, s.Frame7.Width, height};
    w.enlarged[&s.Frame7].factor = std::max(as_row, as_square);
    if (as_square > as_row) return;
    for (const screen_object* o : s.window.objects)
        if (o->parent == &s.Frame7 && o->Top >= second_row)
            w.places[o] = {o->Left + two_columns, o->Top - up, o->Width, o->Height};
}

// In a wide window the target with its marks fills the right side below the buttons. On the left side are the
// strip and, below it, the other frames.
wide_layout wide(const S& s, double width)
{
    constexpr double margin = 60, gap = 105, top = 390, foot = 10500, least_gain = 1.1;
    constexpr double lowest = 5250;        // height of the target's frame with the legend in one row
    constexpr double least_left = 11580;   // width at which the frames just fill the row below the strip
    constexpr double largest_strip = 1.2;
    const double growth = std::min((foot - top) / lowest, (width - least_left - 3 * margin) / s.Frame1.Width);
    if (growth < least_gain) return {};
    const double column = growth * s.Frame1.Width;
    const double left = std::min(width - column - 3 * margin, largest_strip * s.Imgrange.Width);
    const double strip = left / s.Imgrange.Width;
    wide_layout w{.width = left + column + 3 * margin};
    put_frame(s, w, s.Frame1, {w.width - margin - column, top, column, foot - top}, growth);
    put_legend(s, w, (foot - top) / growth);
    w.enlarged[&s.Imgrange] = {strip, margin - strip * s.Imgrange.Left, (1 - strip) * s.Imgrange.Top};
    w.enlarged[&s.imgtargetpointer] = w.enlarged[&s.Imgrange];

    const double row = s.Imgrange.Top + strip * s.Imgrange.Height + 2 * margin;
    const double widths = s.Frame4.Width + s.Frame3.Width + s.Frmreading.Width;
    const double factor = std::min((foot - row) / s.Frame4.Height, (left - 2 * gap) / widths);
    const double wider = (left - 2 * gap - factor * widths) / 2;
    const double second = margin + factor * s.Frame4.Width + gap;
    const double third = second + factor * s.Frame3.Width + wider + gap;
    const auto put = [&](const screen_object& o, double at_left, double extra, double height,
                         double text = 1) {
        const double at_top = row + factor * (o.Top - s.Frame4.Top);
        put_frame(s, w, o, {at_left, at_top, factor * o.Width + extra, factor * height}, factor * text);
    };
    put(s.Frame4, margin, 0, s.Frame4.Height);
    put(s.Frame3, second, wider, s.Frame3.Height);
    put(s.Frame2, second, wider, s.Frame2.Height);
    put(s.Frmtherm, third, 0, s.Frmtherm.Height);
    // The text about the marks is larger in a wider frame. If Frmtherm is hidden, this frame also fills the
    // place of Frmtherm.
    const double widened = wider / (factor * s.Frmreading.Width), larger = 1 + widened / 6;
    if (s.Frmtherm.Visible)
        put(s.Frmreading, third, wider, s.Frmreading.Height, larger);
    else
        put(s.Frmreading, third, wider, s.Frame4.Height, 1.3 * larger);
    for (const screen_object* o : {&s.outcome, &s.Lblinfo})
        w.places[o] = {margin, o->Top, w.width - 2 * margin, o->Height};
    return w;
}

}   // namespace

void design_results(results_screen& s)
{
    s.window.name = "results";
    s.window.Caption = "V. O. R. N. DEBRIEF SCREEN    (CHALLENGER 1)";
    range_strip(s);
    engagement_list(s);
    details(s);
    information(s);
    target_details(s);
    add_frame(s, s.Frmreading, frame({12120, 3480, 3120, 3840}, "READING THE MARKS"))
        .caption(label({180, 375, 2850, 3420}, reading, colour::dim, text_size::small));
    thermal_marks(s);
    buttons(s);
    add(s.window, s.outcome,
        label({120, 11100, 15120, 300}, "", colour::live, text_size::normal, alignment::centre));
    lay_out_hints(s.window, s.Lblinfo, {120, 10560, 15120, 540}, s.lblhelp);
    s.window.wide = [&s](double width) { return wide(s, width); };
}

}   // namespace vorn
