// Load and reset of a gunnery screen: panels, focus, state, the range and its faults.
#include "drill.h"
#include "gunnery/gunnery.h"

namespace vorn {
namespace {

struct screen_reset : on_visual {};
struct screen_on : each_sight {};
INSTANTIATE_TEST_SUITE_P(sights, screen_on, testing::ValuesIn(both_sights), sight_name);

std::string visible_panels(const gunnery_screen& s)
{
    std::string all;
    for (const auto& [o, name] : {std::pair{&s.Frmsys, "system "},
                                  {&s.lblcrew, "crew "},
                                  {&s.Frmcon, "card "},
                                  {&s.Frmmousecon, "controls "},
                                  {s.visual() ? &s.Frame5 : &s.Frame4, "lights "},
                                  {&s.Frame3, "buttons "}})
        if (o->Visible) all += name;
    return all;
}

TEST(screen, panels_follow_the_options)
{
    using P = practice_state;
    const char* const most = "system crew lights buttons ";
    const char* const mouse = "system crew controls lights buttons ";
    const char* const all = "system crew card lights buttons ";
    const struct {
        bool P::*changed;   // an option to toggle after choosing the keyboard; null: none
        const char *visual, *thermal;
    } cases[] = {{nullptr, all, all},
                 {&P::joyselected, most, most},
                 {&P::mouseselected, mouse, mouse},
                 {&P::infocontrol, most, most},
                 {&P::keyboardselected, most, most},
                 {&P::infosystem, "crew card lights buttons ", "crew card lights buttons "},
                 {&P::infocrew, "system card lights buttons ", "system card lights buttons "},
                 {&P::coaxlight, "system crew card buttons ", "system crew card buttons "},
                 {&P::gunlight, all, "system crew card buttons "},
                 {&P::plainscreen, "lights ", all}};   // the thermal screen is never plain
    for (const sight_kind kind : both_sights)
        for (const auto& c : cases) {
            drill d(kind);
            d.t.shared.joycalibrated = true;
            if (c.changed != nullptr) d.t.shared.*c.changed = !(d.t.shared.*c.changed);
            d.set_up();
            EXPECT_EQ(visible_panels(d.screen()), kind == sight_kind::visual ? c.visual : c.thermal);
        }
}

TEST_F(screen_reset, leaves_hidden_panels_hidden_until_the_next_load)
{
    p.plainscreen = true;
    p.infocrew = false;
    d.set_up();
    EXPECT_FALSE(s.lbltargetnum.Visible || s.Imgname.Visible);
    p.plainscreen = false;
    p.infocrew = true;
    d.pc.event([&] {
        hide(d.pc, s.window);
        show(d.pc, s.window);
    });
    EXPECT_EQ(visible_panels(s), "card lights ");
    d.pc.event(s.Cmdmain.Click);   // called directly: its panel is hidden
    d.set_up();
    EXPECT_EQ(visible_panels(s), "system crew card lights buttons ");
}

TEST_F(screen_reset, a_plain_screen_shows_its_keys_until_the_practice_starts)
{
    constexpr int escape = 27;
    p.plainscreen = true;
    p.targetauto = false;
    d.set_up();
    EXPECT_TRUE(s.keynote.Visible);
    // Between a key and its button, and in the button's name, the blanks are no-break spaces.
    for (const char* key : {"Alt+S\xC2\xA0\xC2\xA0START\xC2\xA0SIM ", "Alt+T", "Alt+P", "Alt+G", "Esc"})
        EXPECT_NE(s.keynote.Caption.find(key), std::string::npos) << key;
    d.pc.key_down('P', true);
    EXPECT_FALSE(p.paused) << "Cmdpausesim is disabled";
    d.pc.key_down('S', true);
    EXPECT_TRUE(s.simrunning && s.keynote.Caption.empty());
    EXPECT_TRUE(s.keynote.Visible) << "the empty note stays, so that the sight keeps its size";
    d.pc.key_down('G', true);
    EXPECT_TRUE(s.Timpause.Enabled);
    d.pc.key_down('P', true);
    EXPECT_TRUE(p.paused);
    d.pc.key_down('P', true);
    d.pc.key_down('T', true);
    EXPECT_TRUE(!s.simrunning && !s.keynote.Caption.empty());
    d.pc.key_down(escape);
    EXPECT_EQ(shown_screens(d.pc), "startsim");

    p.plainscreen = false;
    d.set_up();
    EXPECT_FALSE(s.keynote.Visible);
    d.pc.key_down('S', true);
    d.pc.key_down(escape);
    EXPECT_TRUE(front(d.pc) == &s.window && !s.simrunning) << "Esc doesn't leave while the panel is visible";
}

TEST_P(screen_on, start_has_the_focus_until_the_practice_starts)
{
    const screen_object*& focus = s.window.takes_focus;   // the headless machine leaves it set
    d.start();
    EXPECT_EQ(focus, &s.Picrange);
    d.pc.click(s.Cmdstopsim);
    EXPECT_EQ(focus, &s.Cmdstartsim);
    d.pc.click(s.Cmdmain);
    p.plainscreen = visual;
    d.set_up();
    EXPECT_EQ(focus, visual ? &s.Picrange : &s.Cmdstartsim);
}

// A HESH engagement that changes most variables of the fire control; returns readouts, places and sounds. Its
// steps: a lase and an early release, a lase and a whole lay, a round, the first press of the correction.
texts hesh_shoot(drill& d)
{
    gunnery_screen& s = d.screen();
    d.pc.log.clear();
    d.random(draw_of(6));
    d.start();
    d.pc.wait(8.5);
    EXPECT_TRUE(s.Imgtargets.Visible);
    d.random(0.5);
    texts seen;
    const auto look = [&] {
        for (const screen_object* o : {&s.Lblammotype, &s.Lblrange, &s.lblcrew, &s.Label2})
            seen.push_back(o->Caption);
        for (const double at : {s.Imgtargets.Top - s.Imgrange.Top, s.Imgtargets.Left - s.Imgrange.Left,
                                s.ammo.Left, s.ammo.Top, s.laze.Top, s.imgbam.Top})
            seen.push_back(std::to_string(at));
    };
    for (const char key : {'Q', 'W', 'E', 'R', 'R'}) d.tap(key);
    look();
    d.pc.wait(9);   // loaded
    d.target_at(s.mbs1.Left - 100, s.mbs1.Top - 100);
    d.tap('A');
    d.hold('S', 1.2);
    look();
    d.tap('A');
    d.pc.key_down('S');   // held until the screen has been unloaded
    d.pc.wait(2.6);
    look();
    for (const char key : {'D', 'R'}) {
        d.tap(key);
        look();
    }
    for (const std::string& sound : d.sounds()) seen.push_back(sound);
    return seen;
}

TEST_P(screen_on, a_load_resets_all_state)
{
    p.engagementtype = 3;
    p.windbias = 2;
    const texts first = hesh_shoot(d);
    EXPECT_TRUE(s.heshcorrecting && !d.pc.playing.empty());
    d.pc.click(s.Cmdmain);
    EXPECT_EQ(d.pc.playing, "") << "silent when the screen is left";
    d.pc.key_up('S');
    EXPECT_EQ(hesh_shoot(d), first);
    d.pc.click(s.Cmdstopsim);
    EXPECT_TRUE(s.heshcorrecting) << "a reset keeps the correction";
    s.coaxhits = 2;
    d.pc.click(s.Cmdmain);
    d.set_up();
    EXPECT_EQ(s.coaxhits, 0);
}

TEST_F(screen_reset, calls_are_timed_without_line_and_sound)
{
    p.infocrew = p.soundson = false;
    d.start();
    d.pc.advance(7);
    EXPECT_EQ(d.crew(), "FIN TANK ");
    EXPECT_TRUE(s.voicebusy && d.sounds().empty());
    d.pc.advance(4);
    EXPECT_FALSE(s.voicebusy);
}

TEST_F(screen_reset, leaves_the_picture_in_its_place)
{
    d.start();
    EXPECT_TRUE(s.Imgrange.Width == 64425 && s.Imgrange.Height == 31815);
    d.pc.advance(9);
    const double left = s.Imgrange.Left;
    EXPECT_LT(left, -45600);
    d.pc.slide(s.HScspeed, 40);
    EXPECT_EQ(s.layspeed, 40);
    d.pc.click(s.Cmdstopsim);
    EXPECT_DOUBLE_EQ(s.Imgrange.Left, left);
    EXPECT_EQ(s.layspeed, 40);
}

TEST(screen, a_reset_clears_the_readouts)
{
    for (const sight_kind kind : both_sights)
        for (const char weapon : {'E', 'Q'}) {
            drill d(kind);
            gunnery_screen& s = d.screen();
            d.present(6);
            d.tap(weapon);
            d.pc.wait(6);   // loaded
            d.target_at(s.mbs1.Left - 100, s.mbs1.Top - 100);
            d.tap('A');
            d.pc.wait(2.1);
            EXPECT_EQ(s.Lblcharge.Visible, s.visual());
            s.rangesuffix = "L";
            s.ammo.Visible = true;
            d.pc.event([&] { recordhit(d.t, s); });
            EXPECT_EQ(s.Label2.Caption + s.lblhits.Caption, "11");
            EXPECT_TRUE(s.Lblavetime.Caption != "" && s.Lblrange.Caption != "" &&
                        s.Lblammotype.Caption != "");
            d.pc.key_down('H');
            d.pc.click(s.Cmdstopsim);
            EXPECT_FALSE(s.Timleft.Enabled) << "a held key must be pressed again";
            for (const control_row& c : controls)
                EXPECT_EQ((s.*c.button).Enabled,
                          c.key == 'U' || c.key == 'H' || c.key == 'J' || c.key == 'N');
            EXPECT_EQ(s.Label1.Caption + s.Label2.Caption + s.lblhits.Caption + s.Lblavetime.Caption, "000");
            EXPECT_FALSE(s.laze.Visible || s.ammo.Visible || s.Imgtargets.Visible || s.Imgloaded.Visible);
            EXPECT_TRUE(s.Imghesh.Visible && (s.Imgcoax.Visible || !s.visual()));
            EXPECT_TRUE(s.visual() || s.rangesuffix == "C");
            EXPECT_EQ(s.Lblammotype.Caption + s.Lblrange.Caption == "", s.visual());
            EXPECT_FALSE(s.Lblcharge.Visible);
            d.pc.wait(3);
            EXPECT_FALSE(s.Lblcharge.Visible);
        }
}

TEST(range_fault, shows_a_box_and_returns_to_the_set_up)
{
    const data_folder whole;
    const std::string range = whole.get("visualrange.arf");
    practice_state pictureless = plain_range(sight_kind::visual);
    pictureless.rangepicture = "";
    std::string unnameable = range;   // its picture gets a name in invalid UTF-8, which Windows refuses
    unnameable.replace(range.find("visualrange.vrp"), 1, "\xE0\x80\x80");
    const struct {
        const char* file;
        std::string bytes;   // empty: there is no such file
        const char* text;    // in the box
    } faults[] = {
        {"visualrange.vrp", "", "visualrange.vrp\n\rThe file does not exist."},
        {"visualrange.vrp", "no picture at all", "It is not a picture"},
        {"target icons/target3.ico", "", "TARGET3.ICO"},
        {"visualrange.arf", range_file_bytes(pictureless), "It names no picture."},
        {"visualrange.arf", unnameable, "The file does not exist."},
        {"visualrange.arf", range.substr(0, 400), "Visualrange.arf\n\rIt is not a whole range file."}};
    for (const auto& fault : faults) {
        SCOPED_TRACE(fault.text);
        drill d(sight_kind::visual);
        d.start();
        d.pc.advance(10);
        d.data.remove(fault.file);
        if (!fault.bytes.empty()) d.data.put(fault.file, fault.bytes);
        // "DEBRIEF FIRER ?" is answered yes with the first fault, no with the others. Even after a yes the
        // set-up is shown, not the debrief.
        d.pc.answers = {{&fault == faults}};
        d.pc.click(d.screen().Cmdstopsim);
        EXPECT_NE(d.last_box().find(fault.text), std::string::npos) << d.last_box();
        EXPECT_EQ(d.screen().window.state, form_state::not_loaded);
        EXPECT_EQ(shown_screens(d.pc), "startsim");
        d.pc.advance(30);
        d.data.put(fault.file, whole.get(fault.file));
        d.set_up();   // works again
        EXPECT_EQ(front(d.pc), &d.screen().window);
    }
}

}   // namespace
}   // namespace vorn
