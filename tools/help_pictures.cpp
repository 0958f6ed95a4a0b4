// Takes the pictures of the manual: works the trainer off screen, screen by screen, and saves what it shows,
// with numbers on the parts that the manual names. Nobody has to be at it, whatever the ranges look like:
// targets are chosen by their range, and places come from the screens' own objects.
//
//     take_help_pictures PROGRAM-DIRECTORY FOLDER
#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <limits>
#define SDL_MAIN_HANDLED
#include <SDL.h>

#include "calibration/joycal.h"
#include "debrief/results.h"
#include "flow/intro.h"
#include "gunnery/gunnery.h"
#include "platform/desktop/desktop_machine.h"
#include "ranges/rangefile.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {
namespace {

constexpr int scale = 2;   // the screens are taken at twice their size, so that parts of them come out sharp
constexpr int whole_width = 800, quality = 88;

// Places on a form, in twips.
using place = QRectF;

// A mark that lies outside its picture is seen at the edge.
place place_of(const screen_object& o)
{
    place p(o.Left, o.Top, o.Width, o.Height);
    const area& within = o.Within;
    if (within.Width > 0 && within.Height > 0)
        p.moveTo(std::clamp(o.Left, within.Left, within.Left + within.Width - o.Width),
                 std::clamp(o.Top, within.Top, within.Top + within.Height - o.Height));
    for (const screen_object* up = o.parent; up != nullptr; up = up->parent) p.translate(up->Left, up->Top);
    return p;
}

// A number beside what it names, joined to it by a line.
struct callout {
    QPointF at;
    QPointF names;
};

callout on(QPointF point)
{
    return {point, point};
}

// Over a panel's head line, where its caption leaves room.
callout on_head(const screen_object& o, double across = 0.93)
{
    const place p = place_of(o);
    return on({p.left() + p.width() * across, p.top() + 165});
}

callout right_of(const screen_object& o)
{
    const place p = place_of(o);
    return on({p.right() + 240, p.center().y()});
}

// Beside a point, so many twips away.
callout beside(QPointF point, double across, double down)
{
    return {point + QPointF(across, down), point};
}

callout beside(const screen_object& o, double across, double down)
{
    return beside(place_of(o).center(), across, down);
}

class photographer {
public:
    photographer(const std::string& program, const QString& folder) : folder_(folder)
    {
        pc_.default_directory = program;
        t_.shared.soundson = false;
        QObject::connect(&hands_, &QTimer::timeout, &hands_, [this] { answer_box(); });
        hands_.start(5);
    }

    bool take_all()
    {
        pc_.run([this] { start_program(t_); });
        take("title", t_.intro.window);
        click(t_.intro.lblstart);
        t_.shared.soundson = false;   // the load of the set-up has switched it on
        set_up();
        calibration();
        visual();
        debrief();
        thermal();
        quick_start();
        author();
        return whole_;
    }

private:
    using trigger = std::function<void()>;

    // Hands ------------------------------------------------------------------------------------------------

    // Boxes are answered with yes, the picture of one taken first if somebody waits for it; a file dialog
    // gets the file that is wanted.
    void answer_box()
    {
        QWidget* box = QApplication::activeModalWidget();
        if (auto* files = qobject_cast<QFileDialog*>(box)) {
            files->selectFile(QString::fromStdString(t_.shared.rootpath + '/' + wanted_file_));
            static_cast<QDialog&>(*files).accept();
        } else if (auto* question = qobject_cast<QMessageBox*>(box)) {
            if (!box_picture_.isEmpty()) save(box_picture_, box->grab().toImage());
            box_picture_.clear();
            QAbstractButton* yes = question->button(QMessageBox::Yes);
            (yes != nullptr ? yes : question->button(QMessageBox::Ok))->click();
        }
    }
    void click(screen_object& o)
    {
        pc_.run([&] { user_click(o); });
    }
    void key(gunnery_screen& s, char c, bool down)
    {
        pc_.run([&] { (down ? s.window.KeyDown : s.window.KeyUp)(c); });
    }
    void tap(gunnery_screen& s, char c)
    {
        key(s, c, true);
        key(s, c, false);
    }
    // What the clock would bring: this timer ticks now, though its time hasn't come.
    void tick(timer& clock)
    {
        if (!clock.Enabled) return;
        clock.fresh = false;
        clock.due = 0;
        deliver_ticks(pc_);
        pc_.sync();
    }
    void tick_while(timer& clock, const std::function<bool()>& wanted)
    {
        for (int i = 0; i < 1000 && clock.Enabled && wanted(); ++i) tick(clock);
    }

    // Pictures ---------------------------------------------------------------------------------------------

    void save(const QString& name, const QImage& picture)
    {
        const QString file = QDir(folder_).filePath(name + ".jpg");
        const bool saved = !picture.isNull() && picture.save(file, "JPG", quality);
        if (!saved) std::cerr << "can't save " << file.toStdString() << "\n";
        whole_ = whole_ && saved;
    }
    static double pixels(double twips) { return twips / twips_per_pixel * scale; }
    static QPointF pixel(QPointF twips) { return {pixels(twips.x()), pixels(twips.y())}; }
    static void draw_callout(QPainter& p, const callout& c, int number, double size)
    {
        const QPointF at = pixel(c.at);
        const QColor amber(255, 190, 60);
        if (c.at != c.names) {
            p.setPen(QPen(QColor(0, 0, 0, 170), size * 0.22));
            p.drawLine(at, pixel(c.names));
            p.setPen(QPen(amber, size * 0.11));
            p.drawLine(at, pixel(c.names));
        }
        p.setPen(QPen(Qt::black, size * 0.08));
        p.setBrush(amber);
        p.drawEllipse(at, size / 2, size / 2);
        QFont font("Liberation Sans");
        font.setPixelSize(static_cast<int>(size * 0.72));
        font.setBold(true);
        p.setFont(font);
        p.setPen(Qt::black);
        p.drawText(QRectF(at - QPointF(size, size), QSizeF(2 * size, 2 * size)), Qt::AlignCenter,
                   QString::number(number));
    }
    QImage look(form& f, const std::vector<callout>& callouts, double size)
    {
        form_window& w = *pc_.window(f);
        w.resize(1024 * scale, 768 * scale);
        pc_.sync();
        QImage picture = w.grab().toImage().convertToFormat(QImage::Format_RGB32);
        QPainter p(&picture);
        p.setRenderHint(QPainter::Antialiasing);
        int number = 0;
        for (const callout& c : callouts) draw_callout(p, c, ++number, size);
        return picture;
    }
    void take(const QString& name, form& f, const std::vector<callout>& callouts = {})
    {
        save(name, look(f, callouts, 42).scaledToWidth(whole_width, Qt::SmoothTransformation));
    }
    // Part of a screen, in the width that is asked for.
    void take_part(const QString& name, form& f, const place& part, int width,
                   const std::vector<callout>& callouts = {})
    {
        const double size = 26 * pixels(part.width()) / width;   // 26 pixels in the end
        const QRect cut = QRectF(pixel(part.topLeft()), pixel(part.bottomRight())).toAlignedRect();
        const QImage picture = look(f, callouts, size);
        save(name, picture.copy(cut & picture.rect()).scaledToWidth(width, Qt::SmoothTransformation));
    }
    // The middle of the sight, wherever the sight's window stands on the screen.
    static place middle_of_sight(const gunnery_screen& s)
    {
        const place sight = place_of(s.Picrange);
        return s.visual() ? place(sight.left() + 2500, sight.top() + 60, 4300, 3225)
                          : place(sight.left() + 3000, sight.top() + 1400, 3440, 2580);
    }
    void take_sight(const QString& name, gunnery_screen& s, const std::vector<callout>& callouts = {})
    {
        take_part(name, s.window, middle_of_sight(s), 440, callouts);
    }

    // Gunnery ----------------------------------------------------------------------------------------------

    // Goes by the range file, so that any country will do: a position of about this range, away from the
    // sides of the picture.
    int position_at(int metres) const
    {
        const practice_state& p = t_.shared;
        const double width = (t_.shared.practicemode == 2 ? t_.thermal : t_.simulator).Imgrange.Width;
        int best = 1, off = std::numeric_limits<int>::max();
        for (std::size_t i = 1; i < practice_entries; ++i) {
            const bool inside = p.targetx[i] > width * 0.15 && p.targetx[i] < width * 0.85;
            const int d = std::abs(p.targetrange[i] - metres) + (inside ? 0 : 5000);
            if (d < off) {
                off = d;
                best = static_cast<int>(i);
            }
        }
        return best;
    }
    void order_and_target(gunnery_screen& s, int metres)
    {
        const int position = position_at(metres);
        t_.random.source = [position] { return (position - 0.5) / 19; };
        tick_while(s.Timpause, [&] { return !s.Timtarget.Enabled; });
        tick_while(s.Timtarget, [&] { return !s.Imgtargets.Visible || !s.targetcalled; });
    }
    // Brings the target's centre to so many twips from the dot or mark.
    void lay_on(gunnery_screen& s, double across = 0, double down = 0)
    {
        pc_.run([&] {
            movepicture(s, &object_fields::Left, across - aimacross(s));
            movepicture(s, &object_fields::Top, down - aimdown(s));
        });
    }
    void hold_autolay(gunnery_screen& s)
    {
        key(s, 'S', true);
        tick_while(s.timautolay, [&] { return s.layready; });
    }
    void loaded(gunnery_screen& s)
    {
        tick_while(s.Timloading, [&] { return !s.gunloaded; });
    }
    void explosion_of(gunnery_screen& s, int frames)
    {
        tick_while(s.Timexplode, [&] { return s.explodeframe < frames; });
    }
    void down(gunnery_screen& s)
    {
        explosion_of(s, 16);
        tick_while(s.Timtarget, [&] { return s.Imgtargets.Visible; });
        tap(s, 'W');
    }
    // A whole FIN engagement, by the laid target's offset at the first round; a second one hits.
    void quick_fin(gunnery_screen& s, int metres, double first_across)
    {
        order_and_target(s, metres);
        tap(s, 'E');
        lay_on(s, 12, -20);
        tap(s, 'A');
        hold_autolay(s);
        key(s, 'S', false);
        for (const double across : {first_across, -40.0}) {
            if (!s.Imgtargets.Visible || s.targethit) break;
            loaded(s);
            lay_on(s, across, s.visual() ? s.currentrange / 2.0 : 0);
            tap(s, 'D');
        }
        down(s);
    }

    void start_practice(screen_object& mode, gunnery_screen& s)
    {
        startsim_screen& u = t_.startsim;
        for (screen_object* o : {&u.Optcon2, &mode, &u.Opttime4}) click(*o);
        click(u.Cmdstart);
        look(s.window, {}, 1);
    }

    // The screens ------------------------------------------------------------------------------------------

    void set_up()
    {
        startsim_screen& s = t_.startsim;
        pc_.run([&] {
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
        joycal_screen& s = t_.joycal;
        click(t_.startsim.cmdstick);
        pc_.joystick().poll();
        const int index = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_FLIGHT_STICK, 2, 4, 0);
        SDL_Joystick* stick = SDL_JoystickOpen(index);
        pc_.joystick().poll();
        click(s.Cmdstart);
        const auto button = [&](int n, bool down) {
            SDL_JoystickSetVirtualButton(stick, n, down ? 1 : 0);
            SDL_JoystickUpdate();
            pc_.run([&] { (down ? s.window.ButtonDown : s.window.ButtonUp)(n + 1); });
        };
        for (const int n : {0, 0, 1}) {
            button(n, true);
            button(n, false);
        }
        SDL_JoystickSetVirtualAxis(stick, 0, 21000);
        SDL_JoystickSetVirtualAxis(stick, 1, -17000);
        SDL_JoystickUpdate();
        for (int i = 0; i < 6; ++i) pc_.run([&] { s.window.Move(53768, 15768); });
        button(2, true);
        take("calibration", s.window,
             {right_of(s.Cmdfinish), on(place_of(s.Lblstick).center() + QPointF(-5600, 0)),
              on_head(s.Frmstick), on_head(s.Frmreadings), on_head(s.Frmbuttons), on_head(s.Frminfo)});
        button(2, false);
        SDL_JoystickDetachVirtual(index);
        SDL_JoystickClose(stick);
        pc_.joystick().poll();
        close_by_frame(s.window);
        pc_.sync();
    }

    void visual_screen(gunnery_screen& s)
    {
        take("visual", s.window,
             {on_head(s.Frame3), on_head(s.Frmsys), on_head(s.Frame5), on_head(s.Frmcon), right_of(s.lblcrew),
              on_head(s.Frame2), on_head(s.Picrange, 0.97)});
        const place sight = place_of(s.Picrange);
        const auto at = [&](double x, double y) { return sight.topLeft() + QPointF(x, y); };
        take_part("reticle", s.window, place(sight.left() + 1500, sight.top() + 300, 6200, 6200), 560,
                  {beside(place_of(s.mbs1).center(), -1500, -250),
                   beside(place_of(s.mbs1).center() + QPointF(110, -40), 1500, -250),
                   beside(at(3755, 1950), -1500, 200), beside(at(4280, 2910), -2200, -150),
                   beside(at(3060, 3740), -700, 300), beside(at(6490, 3740), 700, 300)});
        // The other way to work the gun; the panel takes the place of the keys' card.
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
        tap(s, 'E');
        lay_on(s);
        visual_screen(s);
        take_sight("fin_laid_on", s);
        tap(s, 'A');
        take_sight("fin_lased", s);
        hold_autolay(s);
        key(s, 'S', false);
        loaded(s);
        take_sight("fin_autolaid", s);
        lay_on(s, -30, s.currentrange / 2.0);
        tap(s, 'D');
        explosion_of(s, 6);
        take_sight("hit", s);
        down(s);
    }

    // The wind carries the first round aside; the correction brings the second one back.
    void visual_hesh(gunnery_screen& s)
    {
        order_and_target(s, 1000);
        tap(s, 'E');
        tap(s, 'R');
        tap(s, 'R');
        lay_on(s);
        tap(s, 'A');
        hold_autolay(s);
        loaded(s);
        take_part("hesh_laid", s.window, place_of(s.Picrange), 440);
        tap(s, 'D');
        key(s, 'S', false);
        const double wind = s.windoffset;
        const place dot = place_of(s.mbs1);
        lay_on(s);
        take_sight("hesh_strike", s, {beside(dot.center() + QPointF(wind, 0), 700, -420)});
        lay_on(s, -wind);
        take_sight("hesh_first_press", s);
        tap(s, 'R');
        lay_on(s);
        tap(s, 'R');
        take_sight("hesh_second_press", s);
        hold_autolay(s);
        loaded(s);
        lay_on(s, 12, 2.0 * s.currentrange);   // with none across the debrief would take it for no round
        tap(s, 'D');
        key(s, 'S', false);
        down(s);
    }

    void visual_coax(gunnery_screen& s)
    {
        order_and_target(s, 800);
        tap(s, 'Q');
        lay_on(s);
        tap(s, 'A');
        hold_autolay(s);
        key(s, 'S', false);
        loaded(s);
        lay_on(s, 45, 2.0 * s.currentrange + 30);
        for (int burst = 0; burst < 5 && !s.targethit; ++burst) {
            key(s, 'D', true);
            t_.random.source = [] { return 0.35; };
            for (int i = 0; i < 3; ++i) tick(s.Timcoax);
            if (burst == 1) take_part("coax", s.window, place_of(s.Picrange), 440);
            key(s, 'D', false);
        }
        down(s);
    }

    void visual()
    {
        gunnery_screen& s = t_.simulator;
        pc_.run([&] { select_option(t_.startsim.Opteng1); });
        start_practice(t_.startsim.Optmode1, s);
        click(s.Cmdstartsim);
        visual_fin(s);
        visual_hesh(s);
        visual_coax(s);
        quick_fin(s, 1100, 190);
    }

    void debrief()
    {
        results_screen& s = t_.results;
        click(t_.simulator.Cmdstopsim);
        click(s.Lbltgtnumber[2]);
        take("debrief", s.window,
             {beside(s.imgtargetpointer, 900, 500), on(place_of(s.Frame4).center() + QPointF(450, 2600)),
              on_head(s.Frame3), on_head(s.Frame2), on_head(s.Frame1), right_of(s.cmdround4),
              on_head(s.Frame7)});
        click(s.Lbltgtnumber[1]);
        take_part("marks", s.window, place_of(s.Frame1), 380,
                  {beside(s.Imgreptarget, -1500, 700), beside(s.Imglaze, -1500, -300),
                   beside(s.Imagepoa, -1500, -300), beside(s.Imgfos, -500, 800)});
        click(s.cmdnew);
    }

    void thermal()
    {
        gunnery_screen& s = t_.thermal;
        t_.shared.engagementtype = 4;
        start_practice(t_.startsim.Optmode2, s);
        click(s.Cmdstartsim);
        order_and_target(s, 900);
        lay_on(s);
        take("thermal", s.window,
             {on_head(s.Frame3), on_head(s.Frmsys), on_head(s.Frame4), on_head(s.Frmcon), right_of(s.lblcrew),
              beside(s.Lblammotype, 0, 600), beside(s.Lblrange, 0, 600), on_head(s.Picrange, 0.97)});
        take_sight("thermal_stadia", s);
        tap(s, 'E');
        take_sight("thermal_cross", s);
        tap(s, 'A');
        take_sight("thermal_lased", s);
        // What a degraded sight shows instead: the picture has gone up, the target waits to be laid on the
        // bar.
        const int status = std::exchange(t_.shared.systemstatus, 2);
        tap(s, 'A');
        s.imgbam.Visible = false;
        take_sight("thermal_reversionary", s);
        t_.shared.systemstatus = status;
        click(s.Cmdmain);
    }

    void quick_start()
    {
        gunnery_screen& s = t_.simulator;
        click(t_.startsim.Optmode1);
        click(t_.startsim.cmdgame);
        click(s.Cmdstartsim);
        for (const int metres : {800, 950, 1100}) {
            t_.shared.engagementtype = 4;
            quick_fin(s, metres, -30);
        }
        order_and_target(s, 900);
        tap(s, 'E');
        lay_on(s);
        take("quick_start", s.window);
        box_picture_ = "score";
        click(s.Cmdstopsim);
        click(s.Cmdmain);
        click(t_.intro.lblstart);
    }

    void author()
    {
        rauthor_screen& s = t_.rauthor;
        click(t_.startsim.cmdeditrange);
        wanted_file_ = "visualrange.arf";
        click(s.Cmdopen);
        s.outcome.Caption = wanted_file_ + " is open";   // without the folder of this machine
        click(s.Lbltargetnum[7]);
        take("editor", s.window,
             {on_head(s.Frame5), on_head(s.Frame3, 0.5), on_head(s.Frame4),
              on(place_of(s.Lblsavetarget).topLeft()), on(place_of(s.Lbltargetrange).topRight()),
              on_head(s.Frame6), beside(s.Imgpoint, -600, 500), beside(s.Img[7], 600, 500)});
        click(s.Cmdstart);
    }

    QString folder_;
    QString box_picture_;
    std::string wanted_file_;
    bool whole_ = true;
    QTimer hands_;
    desktop_machine pc_;
    trainer t_{pc_};
};

}   // namespace
}   // namespace vorn

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "take_help_pictures PROGRAM-DIRECTORY FOLDER\n";
        return EXIT_FAILURE;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    vorn::photographer p(QDir(argv[1]).absolutePath().toStdString(), QDir(argv[2]).absolutePath());
    return p.take_all() ? EXIT_SUCCESS : EXIT_FAILURE;
}
