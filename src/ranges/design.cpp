// The layout of the range author, in twips. From top to bottom: the buttons, the frames (from left to right
// in the order of work), the instructions, the overview of the range, and the hint bar.
#include <algorithm>
#include <string>
#include <utility>

#include "flow/hints.h"
#include "platform/design.h"
#include "ranges/ranges.h"
#include "ranges/rauthor.h"

namespace vorn {

namespace {

using S = rauthor_screen;

constexpr double frames_top = 300, frames_height = 3960;

constexpr const char* instructions =
    "USE THE ARROWS TO MOVE THE CURSOR TO THE DESIRED TARGET LOCATION. CHOOSE A TARGET NUMBER CLICK ON "
    "\"SAVE "
    "TARGET\" TO SAVE THAT TARGET WHEN ALL TARGETS ARE CHOSEN CLICK ON \"SAVE RANGE\"";
constexpr const char* marking_note =
    "The corner of the cursor is the point that is marked. The target is to the right of it and below.";
constexpr const char* bare = "NO PICTURE\nChoose one by NEW RANGE or OPEN RANGE";

void buttons(S& s)
{
    put_buttons(s.window, {120, 15, 2340, 360}, 2466,
                {{s.cmdnew, "NEW RANGE", "NEW RANGE"},
                 {s.Cmdopen, "OPEN RANGE", "OPEN RANGE"},
                 {s.Cmdsave, "SAVE RANGE", "SAVERANGE"},
                 {s.Cmdstart, "RETURN", "START"},
                 {s.Cmdexit, "EXIT VORN", ""},
                 {s.Command1, "HELP", ""}});
    // Closing the window returns to the set-up screen and loses nothing.
    s.window.exit_button = &s.Cmdstart;
}

// At the start the middle of the picture is at the upper left corner of the sight window.
void sight_window(S& s)
{
    constexpr double width = 43560, height = 7335;   // of the placeholder: the size of a small range picture
    const auto in =
        add_frame(s, s.Frame5, frame({90, frames_top, 3275, frames_height}, "Veiw Through Sight"), &s.Frame2);
    const auto sight =
        add_frame(s, s.Picture1, placed(object_kind::sight, {120, 330, 3035, 2560}), &s.Frame5);
    sight.caption(label({120, 120, 2795, 720}, bare, colour::dim, text_size::normal, alignment::centre));
    sight.add(s.Imagerange, image({-width / 2, -height / 2, width, height}, ":country"));
    object_fields target = hidden(image({mark_right, mark_down, 480, 480}));
    target.Pale = true;
    sight.add(s.shown_target, std::move(target));
    sight.add(s.Imgex, image({1200, 960, 480, 480}, ":cursor"));
    in.add(s.marking, label({120, 2970, 3035, 900}, marking_note, colour::dim, text_size::small));
}

void arrows(S& s)
{
    constexpr double left = 120, top = 900, step = 465, side = 450;   // a cross in a grid of 5 by 5 cells
    const struct {
        screen_object& button;
        int column, row;
        const char* drawing;
        const char* name;
    } cross[] = {
        {s.Cmdbigup, 2, 0, ":arrow_up2", "Far up"},       {s.cmdup, 2, 1, ":arrow_up", "Up"},
        {s.Cmdbigleft, 0, 2, ":arrow_left2", "Far left"}, {s.cmdleft, 1, 2, ":arrow_left", "Left"},
        {s.cmdright, 3, 2, ":arrow_right", "Right"},      {s.Cmdbigright, 4, 2, ":arrow_right2", "Far right"},
        {s.Cmddown, 2, 3, ":arrow_down", "Down"},         {s.Cmdbigdown, 2, 4, ":arrow_down2", "Far down"}};
    for (const auto& a : cross) {
        object_fields f = named(button({left + a.column * step, top + a.row * step, side, side}, ""), a.name);
        f.Picture.source = a.drawing;
        add(s.window, a.button, std::move(f), &s.Frame3);
    }
}

void target_selector(S& s)
{
    const auto in =
        add_frame(s, s.Frame3, frame({3485, frames_top, 3800, frames_height}, "Target Selector"), &s.Frame2);
    arrows(s);
    const char* natures[] = {"", "FIN / DST", "H E S H ", "COAX"};
    for (int i = 1; i <= 3; ++i) {
        const double top = 330 + (i - 1) * 1200;
        in.caption(
            label({2640, top, 1050, 240}, natures[i], colour::dim, text_size::small, alignment::centre));
        in.caption(shape({2700, top + 225, 930, 930}, shape_kind::rectangle, colour::dim, colour::black));
        const object_fields icon = image({2715, top + 240, 900, 900}, ":target");
        in.add(s.Imgtarget[i],
               named(with_tip(icon, i == 1 ? "TARGET TYPE" : ""), std::string("Icon for ") + natures[i]));
    }
}

// A clickable label, with a background so that it looks like a button.
object_fields plate(area at, const std::string& words, colour fore, colour back, const char* tip)
{
    return with_tip(with_background(label(at, words, fore, text_size::normal, alignment::centre), back), tip);
}

void number_buttons(const panel<S>& in)
{
    in.caption(label({180, 1320, 3000, 270}, "TARGET PLACED", colour::dim));
    for (int n = 1; n < positions; ++n) {
        const int row = (n - 1) / 5;
        const area at{180 + 684.0 * ((n - 1) % 5), 1620.0 + 435 * row, 624, 375};
        const bool selected = n == 1;
        object_fields f = plate(at, std::to_string(n), selected ? colour::white : colour::text,
                                colour::darkred, selected ? "TARGET NUMBER" : "");
        f.bold = selected;
        in.add(in.s.Lbltargetnum[n], named(std::move(f), "Target number"));
    }
}

void range_details(S& s)
{
    const auto in =
        add_frame(s, s.Frame4, frame({7405, frames_top, 3720, frames_height}, "Range Details"), &s.Frame2);
    in.caption(label({180, 420, 750, 300}, "NAME", colour::dim));
    in.add(s.Textname, with_tip(textbox({960, 360, 2580, 420}), "RANGE NAME"));
    in.caption(label({180, 900, 750, 300}, "TYPE", colour::dim));
    in.add(s.Lblrangetype, with_tip(readout({960, 900, 2580, 300}, "Visual"), "RANGE TYPE"));
    number_buttons(in);
    const auto put = [&](screen_object& o, double left, const char* words, const char* tip) {
        in.add(o, plate({left, 3435, 1650, 420}, words, colour::text, colour::dim, tip));
    };
    put(s.Lblsavetarget, 180, "SAVE TARGET", "SAVE TARGET");
    put(s.Lbltargetrange, 1890, "TARGET RANGE   ", "TARGET RANGE");
}

void range_info(S& s)
{
    const auto in = add_frame(
        s, s.Frame6, frame({11245, frames_top, 3785, frames_height}, "Range Info", "TARGET INFO"), &s.Frame2);
    const struct {
        const char* words;
        screen_object& value;
        const char* first;
        const char* tip;
    } rows[] = {{"TARGET No=", s.Lbltarget, "1", "TARGET NUMBER"},
                {"X COORD =", s.Lblx, "", "X CO-ORDINATE"},
                {"Y COORD =", s.Lbly, "", "Y CO-ORDINATE"},
                {"PIC WIDTH=", s.Lblwide, "", "PICTUR WIDTH"},
                {"PIC HEIGTH=", s.Lblhigh, "", "PICTURE HEIGHT"},
                {"TGT RANGE=", s.Lbltgtrange, "000", "TARGET RANGE"}};
    double top = 420;
    for (const auto& r : rows) {
        in.caption(with_tip(label({180, top + 60, 1500, 300}, r.words, colour::dim), r.tip));
        in.add(r.value, named(readout({1740, top, 1860, 420}, r.first, text_size::large), r.tip));
        top += 570;
    }
}

void overview(S& s)
{
    const auto in = add_frame(s, s.Frame1, frame({560, 5430, 14240, 5460}, "Veiw of Entire Range"));
    in.add(s.outcome, label({2700, 60, 11400, 270}, "", colour::live, text_size::small, alignment::right));
    const area whole{overview_left, overview_top, overview_width, overview_height};
    in.add(s.Image1, image(whole, ":country"));
    for (int n = 1; n < positions; ++n) {
        const area at{overview_left, overview_top, 360, 315};
        in.add(s.Img[n], bounded(image(at, ":marker" + std::to_string(n)), whole));
    }
    in.add(s.Imgpoint, bounded(image({0, 0, 240, 240}, ":here"), whole));
}

constexpr double wide_margin = 60, wide_top = 390, hint_height = 1350;   // in a wide window

// The view through the sight fills the left side of the window, above its note and the hint.
void put_sight_left(const S& s, wide_layout& w, double width)
{
    constexpr double margin = 120, title = 330, note_height = 480;
    const double height = form_height - wide_margin - wide_top;
    const double factor = (width - 2 * margin) / s.Picture1.Width;
    w.places[&s.Frame2].Height = height;
    w.places[&s.Frame5] = {s.Frame5.Left, wide_margin, width, height - hint_height - 4 * wide_margin};
    w.enlarged[&s.Picture1] = {factor, margin - factor * s.Picture1.Left, title - factor * s.Picture1.Top};
    w.places[&s.marking] = {margin, title + factor * s.Picture1.Height + margin, width - 2 * margin,
                            note_height};
    w.places[&s.Lblinfo] = {wide_margin + s.Frame5.Left, form_height - 4 * wide_margin - hint_height, width,
                            hint_height};
    w.places[&s.guide].Height += hint_height;
}

// In a wide window the instructions and the hint bar are right of the four frames, and the overview below is
// enlarged. In a still wider one the view through the sight, with the hint bar below it, fills the left side.
wide_layout wide(const S& s, double width)
{
    constexpr double margin = wide_margin, texts_left = 15150, right = 90, least_texts = 2000,
                     most_texts = 5400, least_gain = 1.5, most_gain = 3;
    const double row_height = frames_height + 2 * margin, overview_down = wide_top + row_height + margin;
    const double growth = std::min((form_height - margin - overview_down) / s.Frame1.Height,
                                   (width - 2 * margin) / s.Frame1.Width);
    const double overview = growth * s.Frame1.Width;
    const double beside = std::min(width - overview - 5 * margin, most_gain * s.Frame5.Width);
    const bool large_sight = beside > least_gain * s.Frame5.Width;
    const double moved = large_sight ? beside - s.Frame5.Width : 0;   // of all that is right of the sight
    const double least_width = overview + (large_sight ? beside + 3 * margin : 0);
    const double row_width =
        std::max(std::min(width - 2 * margin, texts_left + most_texts + right), least_width);
    const double texts = row_width - texts_left - moved - right;
    if (texts < least_texts) return {};
    wide_layout w{.width = row_width + 2 * margin};
    w.places[&s.Frame2] = {margin, wide_top, row_width, row_height};
    for (const screen_object* o : {&s.Frame3, &s.Frame4, &s.Frame5, &s.Frame6})
        w.enlarged[o] = {.right = moved, .down = margin - frames_top};
    w.places[&s.guide] = {texts_left + moved, 2 * margin, texts, row_height - hint_height - 4 * margin};
    w.places[&s.Lblinfo] = {margin + texts_left + moved, wide_top + row_height - hint_height - margin, texts,
                            hint_height};
    if (large_sight) put_sight_left(s, w, beside);
    const double left = large_sight ? w.width - 2 * margin - overview : (w.width - overview) / 2;
    w.enlarged[&s.Frame1] = {growth, left - growth * s.Frame1.Left, overview_down - growth * s.Frame1.Top};
    return w;
}

}   // namespace

void design_rauthor(rauthor_screen& s)
{
    s.window.name = "rauthor";
    s.window.Caption = "V.O.R.N. RANGE EDITOR   (CHALLENGER 1)";
    add(s.window, s.Frame2, frame({120, 450, 15120, 4920}));
    sight_window(s);
    target_selector(s);
    range_details(s);
    range_info(s);
    add(s.window, s.guide,
        label({180, 4320, 14760, 540}, instructions, colour::text, text_size::normal, alignment::centre),
        &s.Frame2);
    overview(s);
    buttons(s);
    lay_out_hints(s.window, s.Lblinfo, {120, 10950, 15120, 450}, s.lblhelp,
                  "PLACE MOUSE OVER A CONTROL FOR DESCRIPTION OF ITS FUNCTION");
    s.window.wide = [&s](double width) { return wide(s, width); };
}

}   // namespace vorn
