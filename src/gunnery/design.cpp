// The layout of a gunnery screen, in twips. The control panel is on the left, the sight on the right with
// title and crew line above it. The readouts are left of the visual sight and below the thermal sight.
#include <string>
#include <utility>

#include "gunnery/gunnery.h"
#include "platform/design.h"

namespace vorn {

namespace {

constexpr double panel_left = 60;
constexpr double inner = 90;   // from the edge of a frame to its objects
constexpr double row_height = 420;
constexpr double row_step = 480;
constexpr double flat_height = 660;   // of each flat layout

struct layout {
    double panel_width;
    double inner_width;    // of the panel's frames
    double button_width;   // of a button that takes a whole row
    double half_width;     // of each of two buttons side by side
};

layout layout_of(const gunnery_screen& s)
{
    const double panel = s.visual() ? 2775 : 2655;
    const double frames = panel - 2 * inner;
    const double buttons = frames - 2 * inner;
    return {panel, frames, buttons, (buttons - 60) / 2};
}

const char* pick(const gunnery_screen& s, const char* visual, const char* thermal)
{
    return s.visual() ? visual : thermal;
}

// Only the visual screen has tool tips.
const char* tip(const gunnery_screen& s, const char* text)
{
    return s.visual() ? text : "";
}

// A button takes a whole row or half of one.
enum class column { whole, left, right };

area cell(const layout& l, double top, column c)
{
    const double left = c == column::right ? inner + l.half_width + 60 : inner;
    return {left, top, c == column::whole ? l.button_width : l.half_width, row_height};
}

void practice_buttons(gunnery_screen& s, const layout& l)
{
    const auto in =
        add_frame(s, s.Frame3, frame({inner, 330, l.inner_width, 3660}, "Simulator Controls"), &s.Frame1);
    const auto put = [&](screen_object& o, int row, column c, const char* words, const char* hint = "") {
        in.add(o, button(cell(l, 330 + row * row_step, c), words, tip(s, hint)));
    };
    put(s.Cmdstartsim, 0, column::left, "&START SIM");
    put(s.Cmdstopsim, 0, column::right, "S&TOP SIM");
    put(s.Cmdpausesim, 1, column::left, "&PAUSE SIM", "PAUSE");
    put(s.Cmdhelpon, 1, column::right, pick(s, "HELP", "&HELP"));
    put(s.Cmdmain, 2, column::whole, pick(s, "RETURNT TO SETUP", "&RETURN TO SETUP"), "BACK");
    put(s.CMDEXIT, 3, column::whole, pick(s, "EXIT VORN", "E&XIT"));
    put(s.Cmdtarget, 4, column::whole, pick(s, "SHOW NEXTTAR&GET", "SHOW NEXT TAR&GET"), "SHOW TARGET");
    for (screen_object* o : {&s.Cmdstopsim, &s.Cmdpausesim, &s.Cmdtarget})
        o->Enabled = o->design->Enabled = false;
    s.Cmdtarget.Visible = s.Cmdtarget.design->Visible = false;
    in.caption(label({inner, 2850, l.button_width, 240}, "Lay speed", colour::dim, text_size::small));
    const object_fields speed =
        slider({inner, 3120, l.button_width, 330}, 1, s.numbers.fastest, s.numbers.usual, 10);
    // The thermal sight doesn't use the slider.
    in.add(s.HScspeed, named(s.visual() ? speed : disabled(speed), "Lay speed"));
    s.window.exit_button = &s.CMDEXIT;
    s.window.panel_keys = {{'S', true, &s.Cmdstartsim},
                           {'T', true, &s.Cmdstopsim},
                           {'P', true, &s.Cmdpausesim},
                           {'G', true, &s.Cmdtarget},
                           {escape_key, false, &s.Cmdmain}};
}

void information(gunnery_screen& s, const layout& l)
{
    const auto in =
        add_frame(s, s.Frmsys, frame({inner, 4080, l.inner_width, 1830}, "Information"), &s.Frame1);
    const struct {
        const char* words;
        screen_object& value;
        const char* first;
    } rows[] = {{"Target number", s.Label2, "0"},
                {"Rounds on target", s.lblhits, "0"},
                {pick(s, "Time left on target", "Time left"), s.Label1, "0"},
                {"System status", s.Lblsystem, "F"},
                {"Average time", s.Lblavetime, ""}};
    double top = 330;
    for (const auto& row : rows) {
        in.caption(label({inner, top, 1740, 270}, row.words));
        const area at{l.inner_width - 690, top, 600, 270};
        in.add(row.value, named(readout(at, row.first, text_size::normal, alignment::right), row.words));
        top += 285;
    }
}

void lights(gunnery_screen& s, const layout& l)
{
    const object_fields empty = named(frame({inner, 6000, l.inner_width, 1350}), "Lights");
    const auto in = add_frame(s, s.visual() ? s.Frame5 : s.Frame4, empty, &s.Frame1);
    if (s.visual()) add(s.window, s.Frame4, hidden(empty), &s.Frame1);
    struct lamp {
        screen_object& o;
        const char* drawing;
        const char* state;
    };
    // The upper lamp covers the lower one; to show the other state the upper lamp is hidden.
    const struct {
        const char* words;
        lamp lower, upper;
    } rows[] = {{"MAIN", {s.Imgheshon, ":lamp_amber", " on"}, {s.Imghesh, ":lamp_off", " off"}},
                {"COAX", {s.Imgcoaxon, ":lamp_amber", " on"}, {s.Imgcoax, ":lamp_off", " off"}},
                {"GUN READY ", {s.Imgunloaded, ":lamp_off", " off"}, {s.Imgloaded, ":lamp_green", " on"}}};
    flat_layout& flat = in.frame->flat = {.Width = 4170, .Height = flat_height};
    double top = 180, left = 120;
    for (const auto& row : rows) {
        const double width = &row == &rows[2] ? 1260 : 580;
        flat.places[&in.caption(label({180, top + 15, 1500, 270}, row.words))] = {left, 195, width, 270};
        for (const auto& [o, drawing, state] : {row.lower, row.upper}) {
            in.add(o, named(image({l.inner_width - 480, top, 300, 300}, drawing),
                            std::string(row.words) + state));
            flat.places[&o] = {left + width, 180, 300, 300};
        }
        left += width + 590;
        top += 345;
    }
    s.Imgloaded.Visible = s.Imgloaded.design->Visible = false;
}

void gunners_buttons(gunnery_screen& s, const layout& l)
{
    const auto in = add_frame(
        s, s.Frmmousecon, hidden(frame({inner, 7440, l.inner_width, 3870}, " Gunnery Controls")), &s.Frame1);
    constexpr double arrow = 480;
    const double middle = (l.inner_width - arrow) / 2;
    const struct {
        screen_object& o;
        double left, top;
        const char* drawing;
        const char* name;
    } arrows[] = {{s.Cmdup, middle, 300, ":arrow_up", "View up"},
                  {s.Cmdleft, middle - arrow, 300 + arrow, ":arrow_left", "View left"},
                  {s.Cmdright, middle + arrow, 300 + arrow, ":arrow_right", "View right"},
                  {s.Cmddown, middle, 300 + 2 * arrow, ":arrow_down", "View down"}};
    for (const auto& a : arrows) {
        const char* const hint = &a.o == &s.Cmdleft ? tip(s, "TRAVERSE CONTROLS") : "";
        object_fields b = named(button({a.left, a.top, arrow, arrow}, "", hint), a.name);
        b.Picture.source = a.drawing;
        in.add(a.o, std::move(b));
    }
    const auto put = [&](screen_object& o, int row, column c, const char* words, const char* hint) {
        in.add(o, disabled(button(cell(l, 1890 + row * row_step, c), words, tip(s, hint))));
    };
    put(s.Cmdselectmain, 0, column::left, "&MAIN", "SELECT MAIN ARMAMENT");
    put(s.Cmdcoax, 0, column::right, "&COAX", "COAX SELECTOR");
    put(s.Cmdmaingun, 1, column::whole, pick(s, "AMMO  &SELECT", "ammo &select"), "AMMO SELECTOR SWITCH");
    put(s.Cmdoff, 2, column::left, "&OFF", "DESELECT");
    put(s.Cmdlaze, 2, column::right, "&LAZE", "LAZE");
    put(s.Cmdautolay, 3, column::left, "&AUTO", "AUTOLAY");
    put(s.Cmdfire, 3, column::right, "&FIRE", "FIRE CONTROL");
}

void control_panel(gunnery_screen& s)
{
    const layout l = layout_of(s);
    const auto in = add_frame(s, s.Frame1, frame({panel_left, 60, l.panel_width, 11400}, "CONTROL PANEL"));
    practice_buttons(s, l);
    information(s, l);
    lights(s, l);
    gunners_buttons(s, l);
    in.add(s.Frmcon, hidden(frame({inner, 7440, l.inner_width, 3870}, "Keyboard")));
    add(s.window, s.Image1, image({inner, 330, l.button_width, 3420}, ":keys"), &s.Frmcon);
    for (screen_object* o : {&s.Frmmousecon, &s.Frmcon}) o->rank = 2;
    s.Frame1.docked = dock::panel;
}

void dock_beside(screen_object& o, int rank)
{
    o.docked = dock::beside;
    o.rank = rank;
}

// Adds title and crew line, and on the visual screen the objects that a quick start shows instead of panels.
void title_and_crew(gunnery_screen& s)
{
    const panel<gunnery_screen> in{s};
    const area& window = s.numbers.window;
    screen_object& title = in.caption(bold(label({window.Left, 150, 2775, 450}, s.window.Caption,
                                                 colour::text, text_size::large, alignment::right)));
    title.docked = dock::above;
    title.rank = -1;
    title.flat = {.Width = 2640, .Height = flat_height};
    const area crew{window.Left, s.visual() ? 840.0 : 1290.0, window.Width, 450};
    in.add(s.lblcrew, readout(crew, "CREW:", text_size::large));
    s.lblcrew.docked = dock::above;
    if (!s.visual()) return;
    in.add(s.Imgname, hidden(image({2970, 4400, 2655, 4470}, ":emblem")));
    in.add(s.lbltargetnum, hidden(bold(label({2970, 840, 2655, 390}, "TARGET NUMBER 0 OF 9"))));
    for (screen_object* o : {&s.Imgname, &s.lbltargetnum}) dock_beside(*o, 2);
}

void visual_display(gunnery_screen& s)
{
    const auto in = add_frame(s, s.Frame2, frame({2970, 1310, 2655, 3000}));
    dock_beside(s.Frame2, 1);
    auto& flat = s.Frame2.flat = {.Width = 3660, .Height = flat_height};
    const auto heading = [&](double top, const char* words, area flat_place) {
        const area at{inner, top, 2475, 270};
        screen_object& o = in.caption(label(at, words, colour::dim, text_size::small, alignment::centre));
        flat.places[&o] = flat_place;
    };
    heading(300, "RANGE", {90, 45, 1260, 210});
    in.add(s.Lblrange,
           named(readout({inner, 570, 2475, 480}, "", text_size::large, alignment::centre), "RANGE"));
    in.add(s.Lblcharge, label({240, 1140, 900, 300}, "CHRG", colour::live));
    in.add(s.Lblpred,
           label({1515, 1140, 900, 300}, "PRED", colour::live, text_size::normal, alignment::right));
    flat.places[&in.caption(image({150, 1530, 2355, 1035}, ":ammo_dial"))] = {2490, 225, 910, 400};
    in.add(s.Lblammotype, named(readout({480, 1680, 900, 330}), "AMMUNITION"));
    heading(2580, "AMMUNITION", {2310, 30, 1260, 210});
    flat.places[&s.Lblrange] = {90, 240, 1260, 390};
    flat.places[&s.Lblcharge] = {1440, 45, 720, 270};
    flat.places[&s.Lblpred] = {1440, 345, 720, 270};
    flat.places[&s.Lblammotype] = {2595, 270, 750, 270};
    add(s.window, s.keynote, hidden(label({2970, 4400, 2655, 1050}, "", colour::dim, text_size::small)));
    dock_beside(s.keynote, 2);
    s.keynote.flat = {.Width = 4100, .Height = flat_height};
}

void thermal_display(gunnery_screen& s)
{
    const panel<gunnery_screen> in{s};
    const auto at = [&s](int place) { return area{s.numbers.window.Left + place * 1577, 7770, 1560, 450}; };
    in.add(s.Lblammotype, named(readout(at(0)), "AMMUNITION"));
    const std::pair<int, const char*> constant[] = {{1, "PRED "}, {2, "THERMAL"}, {4, "FIRST"}};
    for (const auto& [place, words] : constant)
        in.caption(label(at(place), words, colour::dim)).docked = dock::below;
    in.add(s.Lblcharge, hidden(label(at(3), "CHRG", colour::live)));
    in.add(s.Lblrange, readout(at(5), "10.0 S"));
    for (screen_object* o : {&s.Lblammotype, &s.Lblcharge, &s.Lblrange}) o->docked = dock::below;
}

// Adds range picture and target, and what is drawn over them on both sights. Returns the sight window.
panel<gunnery_screen> range_and_target(gunnery_screen& s)
{
    const auto in = add_frame(s, s.Picrange, placed(object_kind::sight, s.numbers.window));
    s.Picrange.docked = dock::sight;
    in.add(s.Imgrange, image(s.numbers.picture));
    const object_fields icon = hidden(image({0, 0, 480, 480}));
    for (screen_object* o : {&s.Imgtargetfin, &s.Imgtargethesh, &s.Imgtargetcoax})
        in.add(*o, hidden(image(icon, ":target")));
    in.add(s.Imgtargets, icon);
    for (int n = 0; screen_object & frame : s.Imgexp)
        in.add(frame, hidden(image(icon, s.numbers.explosion.drawing + std::to_string(n++))));
    in.add(s.Imgexplode, icon);
    in.add(s.ammo, hidden(shape({0, 0, 30, 30}, shape_kind::filled_ellipse,
                                s.visual() ? colour::tracer : colour::hottracer)));
    return in;
}

void visual_scales(const panel<gunnery_screen>& in)
{
    for (const auto& [at, drawing] : {std::pair{figures_left, ":scale_left"},
                                      {figures_right, ":scale_right"},
                                      {ticks_left, ":ticks"},
                                      {ticks_right, ":ticks"}})
        in.caption(image(at, drawing));
    const area graticule[] = {{2640, 1560, 795, 795}, {3360, 1560, 795, 795}, {4200, 1560, 795, 795},
                              {5160, 1560, 795, 795}, {6000, 1560, 795, 795}, {3885, 2520, 795, 795},
                              {4680, 2520, 795, 795}, {3885, 3330, 795, 795}, {4680, 3330, 795, 795},
                              {3615, 4080, 795, 735}, {4260, 4080, 795, 795}, {4920, 4080, 795, 735},
                              {3360, 4920, 795, 675}, {4260, 4920, 795, 675}, {5160, 4920, 795, 675}};
    for (int n = 0; const area& at : graticule) in.caption(image(at, ":graticule" + std::to_string(n++)));
}

void visual_sight(gunnery_screen& s)
{
    const auto in = range_and_target(s);
    visual_scales(in);
    in.add(s.laze, hidden(shape({4080, 960, 900, 390}, shape_kind::ellipse, colour::sight)));
    in.add(s.mbs, shape({4410, 1035, 250, 250}, shape_kind::ellipse, colour::sight));
    in.add(s.mbs1, shape(s.numbers.aim, shape_kind::filled_ellipse, colour::sight));
}

void thermal_sight(gunnery_screen& s)
{
    const auto in = range_and_target(s);
    in.add(s.mbs1, hidden(shape(s.numbers.aim, shape_kind::filled_ellipse, colour::sight)));
    const area mark{4480, 2400, 480, 480};
    for (int n = 0; screen_object & holder : s.Imgstadia1)
        in.add(holder, hidden(image(mark, ":stadia" + std::to_string(n++))));
    in.add(s.Imgstadia, image({4485, 2400, 480, 480}, ":stadia0"));
    in.add(s.Imglam, hidden(image(mark, ":lam")));
    in.add(s.imgbam, hidden(image({4500, 2400, 480, 480}, ":bam")));
    in.add(s.Imgrevfin, hidden(image({4180, 2520, 1080, 240}, ":revfin")));
    in.add(s.Imgrevhesh, hidden(image({4180, 2480, 1080, 375}, ":revhesh")));
    for (const auto& [at, words] : {std::pair{area{9170, 1080, 280, 300}, "X "},
                                    {area{0, 2040, 700, 300}, "X X X"},
                                    {area{9170, 3480, 280, 300}, "X"}})
        in.caption(bold(label(at, words, colour::sight)));
}

}   // namespace

void design_gunnery(gunnery_screen& s)
{
    s.window.name = s.visual() ? "simulator" : "thermal";
    s.window.Caption = s.visual() ? "V.O.R.N. VISUAL" : "V.O.R.N. THERMAL";
    control_panel(s);
    title_and_crew(s);
    if (s.visual()) {
        visual_sight(s);
        visual_display(s);
    } else {
        thermal_sight(s);
        thermal_display(s);
    }
}

}   // namespace vorn
