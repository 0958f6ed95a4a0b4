// The layout of the title screen and of the hints, in twips.
#include "platform/design.h"
#include "flow/hints.h"
#include "flow/intro.h"

namespace vorn {

namespace {

constexpr const char* title = "MOBILE TURRET DRILL CONSOLE CHALLENGER 1 (VER 2.0)";
constexpr const char* about =
    "V.O.R.N. trains the gunner of a main battle tank at his own station: orders, laying, lasing, fire and "
    "correction, on the visual and on the thermal sight, with a score and a debrief of each round.\n\n"
    "Free software under the MIT licence. All pictures, voices and ranges were made for it.";

object_fields menu_label(double left, const char* caption)
{
    return bold(label({left, 10350, 2400, 600}, caption, colour::text, text_size::large, alignment::centre));
}

}   // namespace

void design_intro(intro_screen& s)
{
    form& f = s.window;
    f.name = "intro";
    f.Caption = "V. O. R. N.";
    // The picture is wide enough for a 21:9 screen; a narrower window shows its middle.
    s.Image1.docked = dock::backdrop;
    add(f, s.Image1, image({-6000, 0, form_width + 12000, form_height}, ":title"));
    add(f, s.Label2,
        bold(label({645, 645, 14100, 600}, title, colour::black, text_size::large, alignment::centre)));
    add(f, s.Label1,
        bold(label({630, 630, 14100, 600}, title, colour::text, text_size::large, alignment::centre)));
    const object_fields text =
        label({3150, 2400, 9060, 1470}, about, colour::text, text_size::normal, alignment::centre);
    add(f, s.Lblabout1, hidden(with_background(text, colour::black)));
    add(f, s.lblstart, menu_label(1080, "START"));
    add(f, s.lblabout, menu_label(4680, "ABOUT"));
    add(f, s.lblhelp, menu_label(8280, "HELP"));
    add(f, s.lblexit, menu_label(11880, "EXIT"));
    f.exit_button = &s.lblexit;
}

void lay_out_hints(form& f, screen_object& bar, const area& bar_at, screen_object& label_of_hint,
                   const char* first_text)
{
    add(f, bar, label(bar_at, first_text, colour::highlight, text_size::normal, alignment::centre));
    const object_fields look =
        label({0, 0, 1200, 300}, "", colour::text, text_size::small, alignment::centre);
    add(f, label_of_hint, hidden(with_background(look, colour::black)));
}

}   // namespace vorn
