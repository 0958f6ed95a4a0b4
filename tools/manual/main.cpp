// Takes the pictures of the manual: goes through all screens and fires practices. It works with any ranges
// and layouts: it chooses targets by their range, and takes the places of the numbers from the objects of the
// screens.
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
#include "debrief/results.h"
#include "film.h"
#include "flow/intro.h"
#include "ranges/rangefile.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"

namespace vorn {
namespace {

class tour : public camera {
public:
    tour(const std::string& program_directory, const QString& folder, const QString& frames)
        : camera(program_directory, folder), frames_(frames)
    {
    }

    void take_all()
    {
        pc.run([this] { start_program(t); });
        take("title", t.intro.window);
        click(t.intro.lblstart);
        t.shared.soundson = false;   // the load of the set-up has switched it on
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
    // The position nearest to this range that isn't near a side of the picture.
    int position_at(int metres) const
    {
        const practice_state& p = t.shared;
        const double width = (p.practicemode == 2 ? t.thermal : t.simulator).Imgrange.Width;
        const auto off = [&](int i) {
            const bool inside = p.targetx[i] > width * 0.15 && p.targetx[i] < width * 0.85;
            return std::abs(p.targetrange[i] - metres) + (inside ? 0 : 5000);
        };
        return std::ranges::min(std::views::iota(1, practice_entries), {}, off);
    }
    // Runs the practice until the order for a target at this range.
    void order(gunnery_screen& s, int metres)
    {
        const int position = position_at(metres);
        t.random.source = [position] { return (position - 0.5) / 19; };
        tick(s.Timer1);   // draws the position
        tick_while(s.Timpause, [&] { return !s.Timtarget.Enabled; });
    }
    void order_and_target(gunnery_screen& s, int metres)
    {
        order(s, metres);
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
    void hold_autolay_and_load(gunnery_screen& s)
    {
        key(s, 'S', true);
        tick_while(s.timautolay, [&] { return s.layready; });
        tick_while(s.Timloading, [&] { return !s.gunloaded; });
    }
    // Does everything up to the first round; the autolay key stays held. `nature`: the keys that select the
    // ammunition.
    void engage(gunnery_screen& s, int metres, const char* nature)
    {
        order_and_target(s, metres);
        tap(s, nature);
        lay_on(s, 12, -20);   // not 0, since the debrief draws a lase at offset 0 pale
        tap(s, "A");
        hold_autolay_and_load(s);
    }
    void fire(gunnery_screen& s)
    {
        tap(s, "D");
        key(s, 'S', false);
    }
    void lay_and_fire(gunnery_screen& s, double across, double down)
    {
        lay_on(s, across, down);
        fire(s);
    }
    void end_engagement(gunnery_screen& s)
    {
        tick_while(s.Timexplode, [] { return true; });
        tick_while(s.Timtarget, [&] { return s.Imgtargets.Visible; });
        tap(s, "W");
    }
    // Fires a whole FIN engagement. The first round is laid this far to the side; if it misses, the second
    // one hits.
    void quick_fin(gunnery_screen& s, int metres, double first_across)
    {
        engage(s, metres, "E");
        lay_and_fire(s, first_across, s.currentrange / 2.0);
        if (s.Imgtargets.Visible && !s.targethit) {
            tick_while(s.Timloading, [&] { return !s.gunloaded; });
            lay_and_fire(s, -40, s.currentrange / 2.0);
        }
        end_engagement(s);
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
        const auto button = [&](int n, bool down) {
            SDL_JoystickSetVirtualButton(stick, n, down ? 1 : 0);
            SDL_JoystickUpdate();
            pc.run([&] { (down ? s.window.ButtonDown : s.window.ButtonUp)(n + 1); });
        };
        for (const int n : {0, 0, 1}) {
            button(n, true);
            button(n, false);
        }
        SDL_JoystickSetVirtualAxis(stick, 0, 21000);
        SDL_JoystickSetVirtualAxis(stick, 1, -17000);
        SDL_JoystickUpdate();
        for (int i = 0; i < 6; ++i) pc.run([&] { s.window.Move(53768, 15768); });
        button(2, true);
        take("calibration", s.window,
             {right_of(s.Cmdfinish), on(place_of(s.Lblstick).center() + QPointF(-5600, 0)),
              on_head(s.Frmstick), on_head(s.Frmreadings), on_head(s.Frmbuttons), on_head(s.Frminfo)});
        button(2, false);
        SDL_JoystickDetachVirtual(index);
        SDL_JoystickClose(stick);
        pc.joystick().poll();
        close_by_frame(s.window);
        pc.sync();
    }

    void visual_screen(gunnery_screen& s)
    {
        take("visual", s.window,
             {on_head(s.Frame3), on_head(s.Frmsys), on_head(s.Frame5), on_head(s.Frmcon), right_of(s.lblcrew),
              on_head(s.Frame2, 0.05), on_head(s.Picrange, 0.97)});
        const auto at = [&](double x, double y) { return place_in(s.Picrange, place(x, y, 0, 0)).topLeft(); };
        s.Imgtargets.Visible = false;
        take_part("reticle", s.window, place_in(s.Picrange, place(1500, 300, 6200, 6200)), 560,
                  {beside(s.mbs1, -1500, -250), beside(centre_in_sight(s.mbs1, 110, -40), 1500, -250),
                   beside(at(3755, 1950), -1500, 200), beside(at(4280, 2910), -2200, -150),
                   beside(at(3060, 3740), -700, 300), beside(at(6490, 3740), 700, 300)});
        s.Imgtargets.Visible = true;
        // The panel of the mouse controls is at the place of the key card.
        s.Frmcon.Visible = false;
        s.Frmmousecon.Visible = true;
        take_part("gunners_buttons", s.window, place_of(s.Frmmousecon), 260);
        s.Frmmousecon.Visible = false;
        s.Frmcon.Visible = true;
        take_part("keys", s.window, place_of(s.Frmcon), 260);
    }

    void visual_fin(gunnery_screen& s)
    {
        order_and_target(s, 900);
        tap(s, "E");
        lay_on(s, 12, -20);
        visual_screen(s);
        take_sight("fin_laid_on", s);
        tap(s, "A");
        take_sight("fin_lased", s);
        hold_autolay_and_load(s);
        take_sight("fin_autolaid", s);
        lay_and_fire(s, -30, s.currentrange / 2.0);
        tick_while(s.Timexplode, [&] { return s.explodeframe < 6; });
        age(0.5);
        take_sight("hit", s);
        end_engagement(s);
    }

    // The first round misses because of the wind, the corrected second one hits.
    void visual_hesh(gunnery_screen& s)
    {
        engage(s, 1000, "ERR");
        take_part("hesh_laid", s.window, place_in(s.Picrange, place(2025, 60, 5000, 3750)), 440);
        fire(s);
        const double wind = s.windoffset;
        lay_on(s);
        age(0.7);
        take_sight("hesh_strike", s, {beside(centre_in_sight(s.mbs1, wind), 700, -420)});
        lay_on(s, -wind);
        take_sight("hesh_first_press", s);
        tap(s, "R");
        lay_on(s);
        tap(s, "R");
        take_sight("hesh_second_press", s);
        hold_autolay_and_load(s);
        // Not 0 across: the debrief shows no button for a round at offset 0.
        lay_and_fire(s, 12, 2.0 * s.currentrange);
        end_engagement(s);
    }

    void visual_coax(gunnery_screen& s)
    {
        engage(s, 700, "Q");
        key(s, 'S', false);
        lay_on(s, 45, 2.0 * s.currentrange + 30);
        for (int burst = 0; burst < 5 && !s.targethit; ++burst) {
            key(s, 'D', true);
            t.random.source = [] { return 0.35; };
            for (int i = 0; i < 3; ++i) tick(s.Timcoax);
            if (burst == 1) {
                age(0.2);
                // From above the dot to below the strike.
                const double high = 2.0 * s.currentrange + 1100;
                take_part("coax", s.window,
                          place_in(s.Picrange,
                                   place(s.mbs1.Left - high / 1.5, s.mbs1.Top - 400, high * 4 / 3, high)),
                          440);
            }
            key(s, 'D', false);
        }
        end_engagement(s);
    }

    void visual()
    {
        gunnery_screen& s = t.simulator;
        pc.run([&] { select_option(t.startsim.Opteng1); });
        t.shared.heshcorrectall = true;
        start_practice(t.startsim.Optmode1, s);
        visual_fin(s);
        visual_hesh(s);
        visual_coax(s);
        quick_fin(s, 1100, -190);
        mistakes(s);
    }

    // The last three of the six cases of the debrief: a FIN round too high, a HESH round fired without an
    // autolay, and two HESH rounds without a correction.
    void mistakes(gunnery_screen& s)
    {
        t.shared.engagementtype = 4;
        engage(s, 1000, "E");
        lay_and_fire(s, 12, s.currentrange / 2.0 + 330);
        end_engagement(s);
        t.shared.engagementtype = 3;
        order_and_target(s, 1000);
        tap(s, "ERR");
        lay_on(s, 12, -20);
        tap(s, "A");
        tick_while(s.Timloading, [&] { return !s.gunloaded; });
        s.windoffset = 0;   // so that the round misses for one reason only
        fire(s);
        end_engagement(s);
        engage(s, 1000, "ERR");
        s.windoffset /= 2;   // so that the marks are inside the picture
        fire(s);
        lay_on(s, 12, -20);
        tap(s, "A");
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
        const place frame = place_of(s.Frame1);
        const auto x = [&](double twips) { return frame.width() * twips / s.Frame1.Width; };
        const place marks(frame.left() + x(60), frame.top() + x(720), x(4575), x(3255));
        const struct {
            int engagement, round;
        } shown[] = {{1, 1}, {4, 1}, {2, 1}, {5, 1}, {6, 1}, {7, 2}};
        for (int n = 1; const auto& c : shown) {
            click(s.Lbltgtnumber[c.engagement]);
            if (c.round == 2) click(s.cmdround2);
            take_part(QString("case%1").arg(n++), s.window, marks, 240);
        }
    }

    void thermal()
    {
        gunnery_screen& s = t.thermal;
        t.shared.engagementtype = 4;
        start_practice(t.startsim.Optmode2, s);
        order_and_target(s, 900);
        lay_on(s);
        take_sight("thermal_stadia", s);
        tap(s, "E");
        take("thermal", s.window,
             {on_head(s.Frame3), on_head(s.Frmsys), on_head(s.Frame4), on_head(s.Frmcon),
              on(right_of(s.lblcrew).at - QPointF(700, 0)), beside(s.Lblammotype, 0, 600),
              beside(s.Lblrange, 0, 600), on_head(s.Picrange, 0.97)});
        take_sight("thermal_cross", s);
        tap(s, "A");
        take_sight("thermal_lased", s);
        // The same with a degraded system: the picture has moved up, and the gunner lays the reversionary
        // mark on the target.
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
            t.shared.engagementtype = 4;
            quick_fin(s, metres, -30);
        }
        order_and_target(s, 900);
        tap(s, "E");
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
        wanted_file = "visualrange.arf";
        click(s.Cmdopen);
        s.outcome.Caption = wanted_file + " is open";   // without the path of the folder on this computer
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
        t.random.source = [seed]() mutable {
            seed = seed * 1103515245 + 12345;
            return (seed >> 16 & 0x7fff) / 32768.0;
        };
    }
    static bool destroyed(const gunnery_screen& s)
    {
        return s.lblcrew.Caption.find("TARGET STOP") != std::string::npos;
    }
    // Saves the first frame, with a play symbol.
    void finish(const gunnery_screen& s, film& f, const QString& name)
    {
        if (!destroyed(s)) tools::fail(name + ": the target isn't destroyed");
        f.wait(1.2);
        f.tap('W');
        QImage first = f.first();
        QPainter p(&first);
        p.setRenderHint(QPainter::Antialiasing);
        p.translate(first.width() / 2.0, (first.height() - 62) / 2.0);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, 150));
        p.drawEllipse(QPointF(0, 0), 34, 34);
        p.setBrush(QColor(255, 190, 60));
        p.drawPolygon(QPolygonF({{-11, -18}, {-11, 18}, {21, 0}}));
        p.end();
        save(name, first);
    }

    // Ends when the gun is laid and loaded.
    static void laze_and_autolay(const gunnery_screen& s, film& f)
    {
        f.tap('A');
        f.press('S');
        f.until([&] { return !s.layready; });
        f.wait(0.3);
        f.release('S');
        f.until([&] { return s.gunloaded; });
        f.wait(0.3);
    }

    void film_fin(gunnery_screen& s)
    {
        t.shared.engagementtype = 4;
        order(s, 900);
        film f(*this, s, {2725, 80, 3600, 2520}, "EUHJNASDW", frames_ + "/fin");
        f.until([&] { return s.lblcrew.Caption.find(" ON ") != std::string::npos; });
        scatter(7);
        f.wait(0.3);
        f.tap('E');
        f.lay(-60, 0);
        f.wait(0.3);
        laze_and_autolay(s, f);
        // Fires just after a tick of the target's timer, so that the explosion is seen for nearly a second:
        // the next tick takes down the target that was hit.
        f.until([&] {
            const double since = pc.now() - s.Timtarget.due;
            return since - std::floor(since) < 0.05;
        });
        f.tap('D');
        finish(s, f, "film_fin");
    }
    // Begins when the gun is already laid.
    void film_hesh(gunnery_screen& s)
    {
        t.shared.engagementtype = 3;
        engage(s, 800, "ERR");
        scatter(5);
        film f(*this, s, {2425, 80, 4200, 2940}, "HJRSDW", frames_ + "/hesh");
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
        finish(s, f, "film_hesh");
    }
    void film_coax(gunnery_screen& s)
    {
        t.shared.engagementtype = 2;
        order_and_target(s, 700);
        film f(*this, s, {2525, 80, 4000, 2800}, "QUHJNASDW", frames_ + "/coax");
        scatter(3);
        f.tap('Q');
        f.lay(-90, 120);
        f.wait(0.2);
        laze_and_autolay(s, f);
        f.press('D');   // the burst falls short; the gunner then moves the strikes onto the target
        f.wait(0.8);
        f.lay(-45, -(2.0 * s.currentrange + 30));
        f.wait(0.5);
        f.release('D');
        f.wait(0.3);
        for (int burst = 0; burst < 6 && !destroyed(s); ++burst) {
            f.press('D');
            f.until([&, end = pc.now() + 0.6] { return destroyed(s) || pc.now() >= end; });
            f.release('D');
            f.wait(0.3);
        }
        finish(s, f, "film_coax");
    }
    void films()
    {
        gunnery_screen& s = t.simulator;
        start_practice(t.startsim.Optmode1, s);
        s.layspeed = 10;
        t.shared.windbias = 2;
        for (void (tour::*take)(gunnery_screen&) : {&tour::film_fin, &tour::film_hesh, &tour::film_coax})
            (this->*take)(s);
        click(s.Cmdmain);
    }

    QString frames_;
};

}   // namespace
}   // namespace vorn

int main(int argc, char** argv)
{
    if (argc != 4) tools::fail("usage: take_help_pictures PROGRAM-DIRECTORY FOLDER FRAMES");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    vorn::tour tour(QDir(argv[1]).absolutePath().toStdString(), QDir(argv[2]).absolutePath(),
                    QDir(argv[3]).absolutePath());
    tour.take_all();
}
