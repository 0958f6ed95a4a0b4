// Takes the pictures of the manual: goes through all screens and fires practices. It works with other ranges
// and layouts too: it chooses targets by their range, and derives the places of most numbers in the pictures
// from the objects of the screens.
//
//     take_help_pictures PROGRAM-DIRECTORY FOLDER FRAMES
//
// Writes the pictures into FOLDER, and the single frames of the moving pictures into FRAMES.
#include <QApplication>
#include <algorithm>
#include <ranges>
#define SDL_MAIN_HANDLED
#include <SDL.h>

#include "calibration/joycal.h"
#include "camera.h"
#include "common/noise.h"
#include "debrief/results.h"
#include "film.h"
#include "flow/intro.h"
#include "ranges/rangefile.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"

namespace vorn {
namespace {

// An engagement type, and the keys that select its ammunition.
struct ammunition {
    int type;
    const char* keys;
};
constexpr ammunition coax{2, "Q"}, hesh{3, "ERR"}, fin{4, "E"};

class tour : public camera {
public:
    using camera::camera;

    void take_all()
    {
        pc.run([this] { start_program(t); });
        take("title", t.intro.window);
        click(t.intro.lblstart);
        t.shared.soundson = false;   // it is on by default
        set_up();
        calibration();
        visual();
        debrief();
        thermal();
        quick_start();
        author();
        films();
    }

private:
    // Of the positions that aren't near a side of the picture, the one whose range is closest to this.
    int position_at(int metres)
    {
        const practice_state& p = t.shared;
        const double width = practice_screen(t).Imgrange.Width;
        const auto off = [&](int i) {
            const bool inside = p.targetx[i] > width * 0.15 && p.targetx[i] < width * 0.85;
            return std::abs(p.targetrange[i] - metres) + (inside ? 0 : 5000);
        };
        return std::ranges::min(std::views::iota(1, practice_entries), {}, off);
    }
    // Runs the practice until the order for a target at this range.
    void order(gunnery_screen& s, const ammunition& a, int metres)
    {
        t.shared.engagementtype = a.type;
        t.random.source = [position = position_at(metres)] { return (position - 0.5) / 19; };
        tick(s.Timer1);   // chooses the position
        tick_while(s.Timpause, [&] { return !s.Timtarget.Enabled; });
    }
    void order_and_target(gunnery_screen& s, const ammunition& a, int metres)
    {
        order(s, a, metres);
        tick_while(s.Timtarget, [&] { return !s.Imgtargets.Visible || !s.targetcalled; });
    }
    // Moves the centre of the target to this offset from the aim point, twips.
    void lay_on(gunnery_screen& s, double across = 0, double down = 0)
    {
        pc.run([&] {
            movepicture(s, &object_fields::Left, across - aimacross(s));
            movepicture(s, &object_fields::Top, down - aimdown(s));
        });
    }
    // Not laid on 0, since the debrief draws a lase at offset 0 pale.
    void lay_on_and_laze(gunnery_screen& s)
    {
        lay_on(s, 12, -20);
        tap(s, "A");
    }
    void load(gunnery_screen& s)
    {
        tick_while(s.Timloading, [&] { return !s.gunloaded; });
    }
    void hold_autolay_and_load(gunnery_screen& s)
    {
        key(s, 'S', true);
        tick_while(s.timautolay, [&] { return s.layready; });
        load(s);
    }
    // Does everything up to the first round; the autolay key stays held.
    void engage(gunnery_screen& s, const ammunition& a, int metres)
    {
        order_and_target(s, a, metres);
        tap(s, a.keys);
        lay_on_and_laze(s);
        hold_autolay_and_load(s);
    }
    void fire(gunnery_screen& s)
    {
        tap(s, "D");
        key(s, 'S', false);
    }
    // Fires a FIN round with the target's centre at this offset from where a round without scatter falls.
    void fire_fin(gunnery_screen& s, double across, double down = 0)
    {
        lay_on(s, across, s.currentrange / 2.0 + down);
        fire(s);
    }
    void end_engagement(gunnery_screen& s)
    {
        tick_while(s.Timexplode, [] { return true; });
        tick_while(s.Timtarget, [&] { return s.Imgtargets.Visible; });
        tap(s, "W");
    }

    void start_practice(screen_object& mode, gunnery_screen& s)
    {
        startsim_screen& u = t.startsim;
        for (screen_object* o : {&u.Optcon2, &mode, &u.Opttime4, &u.Cmdstart}) click(*o);
        look(s.window);
        click(s.Cmdstartsim);
    }

    // The screens ------------------------------------------------------------------------------------------

    void set_up()
    {
        startsim_screen& s = t.startsim;
        pc.run([&] {
            set_text(s.Txtname, "SMITH");
            set_text(s.Txtnum, "123");
        });
        click(s.Lblpractice[2]);
        take("setup", s.window,
             {on_head(s.Frame2, 0.75), on_head(s.Frame13, 0.5), on_head(s.Frmoptions, 0.8),
              on_head(s.Frame9, 0.75), on_head(s.Frame5, 0.7), on_head(s.Frame8, 0.8),
              on_head(s.Frmcontrols, 0.75), on_head(s.Frame7),
              on(place_of(s.Lblinfo).center() + QPointF(6600, 0))});
        take_part("options", s.window, place_of(s.Frmoptions), 560);
    }

    void calibration()
    {
        joycal_screen& s = t.joycal;
        click(t.startsim.cmdstick);
        pc.joystick().poll();
        const int index = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_FLIGHT_STICK, 2, 4, 0);
        SDL_Joystick* stick = SDL_JoystickOpen(index);
        pc.joystick().poll();
        click(s.Cmdstart);
        for (const int button : {1, 1, 2}) {
            pc.run([&] { s.window.ButtonDown(button); });
            pc.run([&] { s.window.ButtonUp(button); });
        }
        SDL_JoystickSetVirtualAxis(stick, 0, 21000);
        SDL_JoystickSetVirtualAxis(stick, 1, -17000);
        SDL_JoystickUpdate();
        for (int i = 0; i < 6; ++i) pc.run([&] { s.window.Move(53768, 15768); });
        pc.run([&] { s.window.ButtonDown(3); });
        take("calibration", s.window,
             {right_of(s.Cmdfinish), on(place_of(s.Lblstick).center() + QPointF(-5600, 0)),
              on_head(s.Frmstick), on_head(s.Frmreadings), on_head(s.Frmbuttons), on_head(s.Frminfo)});
        SDL_JoystickDetachVirtual(index);
        SDL_JoystickClose(stick);
        pc.joystick().poll();
        pc.run([&] { close_by_frame(s.window); });
    }

    void visual_screen(gunnery_screen& s)
    {
        take("visual", s.window,
             {on_head(s.Frame3), on_head(s.Frmsys), on_head(s.Frame5), on_head(s.Frmcon), right_of(s.lblcrew),
              on_head(s.Frame2, 0.05), on_head(s.Picrange, 0.97)});
        take_part("keys", s.window, place_of(s.Frmcon), 260);
        // The panel of the gunner's buttons and the card of the keys have the same place.
        std::swap(s.Frmcon.Visible, s.Frmmousecon.Visible);
        take_part("gunners_buttons", s.window, place_of(s.Frmmousecon), 260);
        std::swap(s.Frmcon.Visible, s.Frmmousecon.Visible);
        const auto at = [&](double x, double y) { return place_in(s.Picrange, {x, y}).topLeft(); };
        s.Imgtargets.Visible = false;
        take_part("reticle", s.window, place_in(s.Picrange, {1500, 300, 6200, 6200}), 560,
                  {beside(s.mbs1, -1500, -250), beside(at(4650, 1115), 1500, -250),
                   beside(at(3755, 1950), -1500, 200), beside(at(4280, 2910), -2200, -150),
                   beside(at(3060, 3740), -700, 300), beside(at(6490, 3740), 700, 300)});
        s.Imgtargets.Visible = true;
    }

    void visual_fin(gunnery_screen& s)
    {
        order_and_target(s, fin, 900);
        tap(s, fin.keys);
        lay_on(s, 12, -20);
        visual_screen(s);
        take_sight("fin_laid_on", s);
        tap(s, "A");
        take_sight("fin_lased", s);
        hold_autolay_and_load(s);
        take_sight("fin_autolaid", s);
        fire_fin(s, -30);
        tick_while(s.Timexplode, [&] { return s.explodeframe < 6; });
        time += 0.5;
        take_sight("hit", s);
        end_engagement(s);
    }

    // The first round misses because of the wind, the corrected second one hits.
    void visual_hesh(gunnery_screen& s)
    {
        engage(s, hesh, 1000);
        take_part("hesh_laid", s.window, place_in(s.Picrange, {2025, 60, 5000, 3750}), 440);
        fire(s);
        const double wind = s.windoffset;
        lay_on(s);
        time += 0.7;
        const area strike{s.mbs1.Left + wind, s.mbs1.Top, s.mbs1.Width, s.mbs1.Height};
        take_sight("hesh_strike", s, {beside(place_in(s.Picrange, strike).center(), 700, -420)});
        lay_on(s, -wind);
        take_sight("hesh_first_press", s);
        tap(s, "R");
        lay_on(s);
        tap(s, "R");
        take_sight("hesh_second_press", s);
        hold_autolay_and_load(s);
        lay_on(s, 12, 2.0 * s.currentrange);   // not 0 across: the debrief would show no button
        fire(s);
        end_engagement(s);
    }

    void visual_coax(gunnery_screen& s)
    {
        engage(s, coax, 700);
        key(s, 'S', false);
        lay_on(s, 45, 2.0 * s.currentrange + 30);
        for (int burst = 0; burst < 5 && !s.targethit; ++burst) {
            key(s, 'D', true);
            t.random.source = [] { return 0.35; };
            for (int i = 0; i < 3; ++i) tick(s.Timcoax);
            if (burst == 1) {
                time += 0.2;
                // From above the dot to below the strike.
                const double high = 2.0 * s.currentrange + 1100;
                const area part{s.mbs1.Left - high / 1.5, s.mbs1.Top - 400, high * 4 / 3, high};
                take_part("coax", s.window, place_in(s.Picrange, part), 440);
            }
            key(s, 'D', false);
        }
        end_engagement(s);
    }

    void visual()
    {
        gunnery_screen& s = t.simulator;
        t.shared.heshcorrectall = true;
        start_practice(t.startsim.Optmode1, s);
        visual_fin(s);
        visual_hesh(s);
        visual_coax(s);
        engage(s, fin, 1100);
        fire_fin(s, -190);   // a miss
        load(s);
        fire_fin(s, -40);
        end_engagement(s);
        mistakes(s);
    }

    // The last three of the six cases of the debrief: a FIN round too high, a HESH round fired without an
    // autolay, and two HESH rounds without a correction.
    void mistakes(gunnery_screen& s)
    {
        engage(s, fin, 1000);
        fire_fin(s, 12, 330);
        end_engagement(s);
        order_and_target(s, hesh, 1000);
        tap(s, hesh.keys);
        lay_on_and_laze(s);
        load(s);
        s.windoffset = 0;   // so that the round misses for one reason only
        fire(s);
        end_engagement(s);
        engage(s, hesh, 1000);
        s.windoffset /= 2;   // so that the marks are inside the picture
        fire(s);
        lay_on_and_laze(s);
        hold_autolay_and_load(s);
        fire(s);
        end_engagement(s);
    }

    void debrief()
    {
        results_screen& s = t.results;
        click(t.simulator.Cmdstopsim);
        click(s.Lbltgtnumber[2]);
        take("debrief", s.window,
             {beside(s.imgtargetpointer, 900, 500), on(place_of(s.Frame4).center() + QPointF(450, 2600)),
              on_head(s.Frame3), on_head(s.Frame2), on_head(s.Frame1), right_of(s.cmdround4),
              on_head(s.Frame7)});
        click(s.Lbltgtnumber[1]);
        take_part("marks", s.window, place_of(s.Frame1), 380,
                  {beside(s.Imgreptarget, -1500, 700), beside(s.Imglaze, -1500, -300),
                   beside(s.Imagepoa, -1500, -300), beside(s.Imgfos, -500, 800)});
        cases(s);
        click(s.cmdnew);
    }

    // The pictures of the six cases.
    void cases(results_screen& s)
    {
        const place marks = place_in(s.Frame1, s.Imgfos.Within);
        for (int n = 1; const int engagement : {1, 4, 2, 5, 6, 7}) {
            click(s.Lbltgtnumber[engagement]);
            if (engagement == 7) click(s.cmdround2);
            take_part(QString("case%1").arg(n++), s.window, marks, 240);
        }
    }

    void thermal()
    {
        gunnery_screen& s = t.thermal;
        start_practice(t.startsim.Optmode2, s);
        order_and_target(s, fin, 900);
        lay_on(s);
        take_sight("thermal_stadia", s);
        tap(s, fin.keys);
        take("thermal", s.window,
             {on_head(s.Frame3), on_head(s.Frmsys), on_head(s.Frame4), on_head(s.Frmcon),
              right_of(s.lblcrew, -460), beside(s.Lblammotype, 0, 600), beside(s.Lblrange, 0, 600),
              on_head(s.Picrange, 0.97)});
        take_sight("thermal_cross", s);
        tap(s, "A");
        take_sight("thermal_lased", s);
        // The same with a degraded system: the picture has moved up, so the reversionary mark is
        // below the target.
        const int status = std::exchange(t.shared.systemstatus, 2);
        tap(s, "A");
        s.imgbam.Visible = false;
        take_sight("thermal_reversionary", s);
        t.shared.systemstatus = status;
        click(s.Cmdmain);
    }

    void quick_start()
    {
        gunnery_screen& s = t.simulator;
        click(t.startsim.Optmode1);
        click(t.startsim.cmdgame);
        click(s.Cmdstartsim);
        for (const int metres : {800, 950, 1100}) {
            engage(s, fin, metres);
            fire_fin(s, -30);
            end_engagement(s);
        }
        order_and_target(s, fin, 900);
        tap(s, fin.keys);
        lay_on(s);
        take("quick_start", s.window);
        box_picture = "score";
        click(s.Cmdstopsim);
        click(s.Cmdmain);
        click(t.intro.lblstart);
    }

    void author()
    {
        rauthor_screen& s = t.rauthor;
        click(t.startsim.cmdeditrange);
        click(s.Cmdopen);
        s.outcome.Caption = "visualrange.arf is open";   // without the path of the folder on this computer
        click(s.Lbltargetnum[7]);
        take("editor", s.window,
             {on_head(s.Frame5), on_head(s.Frame3, 0.5), on_head(s.Frame4),
              on(place_of(s.Lblsavetarget).topLeft() - QPointF(120, 0)),
              on(place_of(s.Lbltargetrange).topRight() + QPointF(120, 0)), on_head(s.Frame6),
              beside(s.Imgpoint, 700, -500), beside(s.Img[7], -600, -500)});
        click(s.Cmdstart);
    }

    // The moving pictures ---------------------------------------------------------------------------------

    // Makes the scatter of the rounds the same each time.
    void scatter(unsigned seed)
    {
        t.random.source = [random = tools::rng(seed)]() mutable { return random.fine(); };
    }
    void film_fin(gunnery_screen& s)
    {
        order(s, fin, 900);
        film f(*this, s, {2725, 80, 3600, 2520}, "EUHJNASDW", "fin");
        f.until([&] { return s.lblcrew.Caption.find(" ON ") != std::string::npos; });
        scatter(7);
        f.wait(0.3);
        f.tap('E');
        f.lay(-60, 0);
        f.wait(0.3);
        f.laze_and_autolay();
        // Fires just after a tick of the target's timer, so that the burning target is seen for as long as
        // possible: the next tick takes it down.
        f.until([&] {
            const double since = pc.now() - s.Timtarget.due;
            return since - std::floor(since) < 0.05;
        });
        f.tap('D');
        f.finish();
    }
    // Begins when the gun is already laid.
    void film_hesh(gunnery_screen& s)
    {
        engage(s, hesh, 800);
        scatter(5);
        film f(*this, s, {2425, 80, 4200, 2940}, "HJRSDW", "hesh");
        f.press('S');
        f.wait(0.6);
        f.tap('D');
        f.release('S');
        f.wait(0.4);
        f.lay(s.windoffset, 0);
        f.wait(0.3);
        f.tap('R');
        f.lay(0, 0);
        f.wait(0.3);
        f.tap('R');
        f.press('S');
        f.until([&] { return !s.layready; });
        f.until([&] { return s.gunloaded; });
        f.wait(0.3);
        f.tap('D');
        f.release('S');
        f.finish();
    }
    void film_coax(gunnery_screen& s)
    {
        order_and_target(s, coax, 700);
        film f(*this, s, {2525, 80, 4000, 2800}, "QUHJNASDW", "coax");
        scatter(3);
        f.tap('Q');
        f.lay(-90, 120);
        f.wait(0.2);
        f.laze_and_autolay();
        f.press('D');   // the burst falls short; the gunner then moves the strikes onto the target
        f.wait(0.8);
        f.lay(-45, -(2.0 * s.currentrange + 30));
        f.wait(0.5);
        f.release('D');
        f.wait(0.3);
        for (int burst = 0; burst < 6 && !f.destroyed(); ++burst) {
            f.press('D');
            f.until([&, end = pc.now() + 0.6] { return f.destroyed() || pc.now() >= end; });
            f.release('D');
            f.wait(0.3);
        }
        f.finish();
    }
    void films()
    {
        gunnery_screen& s = t.simulator;
        start_practice(t.startsim.Optmode1, s);
        s.layspeed = 10;
        t.shared.windbias = 2;
        film_fin(s);
        film_hesh(s);
        film_coax(s);
        click(s.Cmdmain);
    }
};

}   // namespace
}   // namespace vorn

int main(int argc, char** argv)
{
    if (argc != 4) tools::fail("usage: take_help_pictures PROGRAM-DIRECTORY FOLDER FRAMES");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // machine::working_directory changes. A relative program directory would then no longer be found.
    const auto absolute = [&](int i) { return QDir(argv[i]).absolutePath(); };
    vorn::tour(absolute(1), absolute(2), absolute(3)).take_all();
}
