// The screens in windows of eight sizes, from upright to very wide.
#include <map>

#include "trainer_fixture.h"

namespace vorn::desktop_tests {

constexpr QSize shapes[] = {{800, 600},   {1024, 768},  {1366, 768},  {1440, 900},
                            {1500, 1000}, {1920, 1080}, {2560, 1080}, {1080, 1920}};

struct wide_screens : trainer_test {
    wide_screens() { open_setup(); }
    // Shows a screen in windows of all these sizes. At each size nothing may be cut off after `look`.
    void in_each_shape(form& f, const std::function<void()>& look)
    {
        pc.run([&] { show(pc, f); });
        for (const QSize& size : shapes) {
            SCOPED_TRACE(testing::Message() << f.name << ' ' << size.width() << 'x' << size.height());
            window_size = size;
            pc.window(f)->resize(size);
            pc.sync();
            look();
            expect_nothing_cut(f);
        }
    }
    // Each object is inside its frame. Each label is high enough for its text, and each option wide enough.
    void expect_nothing_cut(const form& f)
    {
        for (const screen_object* o : f.objects) {
            if (in_sight(*o) || !widget(*o).isVisible() || widget(*o).size().isEmpty()) continue;
            if (o->parent != nullptr) {
                EXPECT_TRUE(widget(*o->parent).rect().contains(widget(*o).geometry())) << o->Caption;
            }
            if (const auto* text = qobject_cast<const QLabel*>(&widget(*o))) {
                EXPECT_LE(text->heightForWidth(text->width()), text->height() + 1) << o->Caption;
            }
        }
        for (const auto* b : pc.window(f)->findChildren<QRadioButton*>())
            EXPECT_LE(b->sizeHint().width(), b->width() + 1) << b->text().toStdString();
    }
    // The share of the window that these objects take.
    double used(const std::vector<const screen_object*>& all)
    {
        double pixels = 0;
        for (const screen_object* o : all) pixels += in_window(*o).width() * in_window(*o).height();
        return pixels / (window_size.width() * window_size.height());
    }
    // The part of the window's width from the leftmost of these objects to the rightmost.
    double width_used(const std::vector<const screen_object*>& all)
    {
        QRect taken;
        for (const screen_object* o : all) taken |= in_window(*o);
        return static_cast<double>(taken.width()) / window_size.width();
    }
    // The middle of an object relative to `ground`, as fractions of the width and height of `ground`.
    QPointF middle_on(const screen_object& o, const screen_object& ground)
    {
        const QRectF at = in_window(o), on = in_window(ground);
        return {(at.center().x() - on.left()) / on.width(), (at.center().y() - on.top()) / on.height()};
    }
    double shape() const { return static_cast<double>(window_size.width()) / window_size.height(); }
    // The size of an object relative to its size in a form that is scaled as a whole to this window.
    double gain(const screen_object& o)
    {
        const double scale = std::min(window_size.width() / form_width, window_size.height() / form_height);
        return in_window(o).width() / (o.Width * scale);
    }
    // Each lamp is nearer to its words than to any other words.
    void expect_lamps_behind_their_words(const gunnery_screen& s)
    {
        for (const auto& [lamp, words] :
             {std::pair{&s.Imgheshon, "MAIN"}, {&s.Imgcoaxon, "COAX"}, {&s.Imgunloaded, "GUN READY "}}) {
            const QRect at = in_window(*lamp);
            std::map<double, std::string> by_distance;
            for (const screen_object* o : s.window.objects) {
                if (o->parent != lamp->parent || o->kind != object_kind::label) continue;
                const QRect other = in_window(*o);
                const int across = std::max({0, at.left() - other.right(), other.left() - at.right()});
                by_distance.emplace(std::hypot(across, at.center().y() - other.center().y()), o->Caption);
            }
            EXPECT_EQ(by_distance.begin()->second, words);
        }
    }
    // The sight has the aspect ratio of the model and at least the share `least` of the window.
    void expect_large(const screen_object& sight)
    {
        const double least = shape() > 2 ? 0.45 : shape() > 1.7 ? 0.6 : shape() > 1 ? 0.5 : 0.3;
        const QRectF at = in_window(sight);
        EXPECT_NEAR(at.width() / at.height(), sight.Width / sight.Height, 0.01);
        EXPECT_GE(at.width() * at.height() / (window_size.width() * window_size.height()), least);
    }

    QSize window_size;
};

TEST_F(wide_screens, the_practice_gives_the_sight_all_that_the_panels_leave)
{
    t.shared.joycalibrated = true;
    startsim_screen& u = t.startsim;
    const struct {
        const char* what;
        std::initializer_list<screen_object*> options;
        screen_object& start;
        gunnery_screen& screen;
    } practices[] = {{"visual, keyboard", {&u.Optmode1, &u.Optcon2}, u.Cmdstart, t.simulator},
                     {"visual, mouse", {&u.Optcon3}, u.Cmdstart, t.simulator},
                     {"visual, joystick", {&u.Optcon1}, u.Cmdstart, t.simulator},
                     {"Plain Screen", {&u.Optscreen1}, u.Cmdstart, t.simulator},
                     {"quick start", {&u.Optscreen2}, u.cmdgame, t.simulator},
                     {"thermal, mouse", {&u.Optmode2, &u.Optcon3}, u.Cmdstart, t.thermal},
                     {"thermal, joystick", {&u.Optcon1}, u.Cmdstart, t.thermal},
                     {"thermal, keyboard", {&u.Optcon2}, u.Cmdstart, t.thermal}};
    for (const auto& p : practices) {
        SCOPED_TRACE(p.what);
        for (screen_object* o : p.options) click(*o);
        if (&p.start == &u.Cmdstart) answer_yes();
        click(p.start);
        in_each_shape(p.screen.window, [&] {
            expect_orderly(parts(p.screen.window, &p.screen.Frame1));
            expect_large(p.screen.Picrange);
            EXPECT_GE(used(parts(p.screen.window, &p.screen.Frame1)), 0.85) << "little is left empty";
            expect_lamps_behind_their_words(p.screen);
            expect_nothing_cut(p.screen.window);
            p.screen.lblcrew.Caption = p.screen.visual() ? "TARGET STOP...STOP CLEAR GUNS !!"
                                                         : "COMMANDER :- COAX TRANSPORT !!ON LAZE !!";
            pc.sync();
        });
        pc.run(p.screen.Cmdmain.Click);
        if (t.intro.window.state == form_state::shown) click(t.intro.lblstart);
    }
}

// The sight also keeps its size when the note of the keys becomes empty.
TEST_F(wide_screens, a_plain_screen_gives_nearly_all_to_the_sight)
{
    gunnery_screen& s = t.simulator;
    start_practice({&t.startsim.Optcon2, &t.startsim.Optscreen1});
    std::vector<QRect> before, after;
    in_each_shape(s.window, [&] {
        before.push_back(in_window(s.Picrange));
        const QSizeF most =
            QSizeF(s.Picrange.Width, s.Picrange.Height).scaled(window_size, Qt::KeepAspectRatio);
        EXPECT_GE(before.back().width() / most.width(), 0.9);
        EXPECT_FALSE(s.keynote.Caption.empty());
    });
    pc.run(s.Cmdstartsim.Click);
    EXPECT_TRUE(s.keynote.Caption.empty());
    in_each_shape(s.window, [&] { after.push_back(in_window(s.Picrange)); });
    EXPECT_EQ(after, before);
}

TEST_F(wide_screens, a_hidden_button_closes_its_row_and_a_moved_label_is_shown_at_its_new_place)
{
    gunnery_screen& s = t.simulator;
    start_practice({&t.startsim.Optcon2});
    const auto rows_between = [&] {
        pc.sync();
        const QRect exit = in_window(s.CMDEXIT), slider = in_window(s.HScspeed);
        return static_cast<double>(slider.top() - exit.bottom()) / exit.height();
    };
    in_each_shape(s.window, [&] {
        s.Cmdtarget.Visible = false;
        const double hidden = rows_between();
        s.Cmdtarget.Visible = true;
        EXPECT_GT(rows_between(), hidden + 0.9);
        const int before = in_window(s.Lblammotype).x();
        s.Lblammotype.Left += 780;   // from FIN to COAX on the ammunition dial
        pc.sync();
        EXPECT_TRUE((shape() > 1 && shape() < 1.7) || in_window(s.Lblammotype).x() > before) << "not flat";
        s.Lblammotype.Left -= 780;
    });
}

TEST_F(wide_screens, set_up_and_calibration_spread_over_the_window)
{
    for (form* f : {&t.startsim.window, &t.joycal.window})
        in_each_shape(*f, [&] {
            const auto all = parts(*f);
            EXPECT_GE(width_used(all), shape() > 2 ? 0.8 : 0.97);
            expect_orderly(all);
        });
    const QRect field = in_window(t.joycal.Frmfield);
    EXPECT_NEAR(field.width(), field.height(), 1);
    in_each_shape(t.startsim.window, [&] {
        const QRectF target = in_window(t.startsim.Imgpractice[3]),
                     number = in_window(t.startsim.Lblpractice[3]);
        EXPECT_NEAR(target.width() / target.height(), 1, 0.05);
        EXPECT_NEAR(target.center().x(), number.center().x(), 1) << "the number stays on its target";
    });
}

TEST_F(wide_screens, the_debrief_shows_a_large_target_with_the_marks_on_their_places)
{
    results_screen& s = t.results;
    in_each_shape(s.window, [&] {
        s.Frmtherm.Visible = s.Imgfos.Visible = s.Imgreptarget.Visible = s.imgtargetpointer.Visible = true;
        s.Imgfos.Left = s.Imgtargetdetails.Left + s.Imgtargetdetails.Width - s.Imgfos.Width / 2;
        s.Imgfos.Top = s.Imgtargetdetails.Top - s.Imgfos.Height / 2;
        s.imgtargetpointer.Left = s.Imgrange.Left + s.Imgrange.Width * 0.75 - s.imgtargetpointer.Width / 2;
        s.outcome.Caption = "/home/gunner/practices/SMITH .vrn is saved";
        pc.sync();
        auto all = parts(s.window);
        std::erase(all, &s.imgtargetpointer);
        expect_orderly(all);
        expect_nothing_cut(s.window);

        for (const screen_object& o : s.captions)
            if (o.Picture.source == ":target_ground") {
                EXPECT_LE(in_window(o).bottom(), in_window(s.Cmdround1).top());
            }
        const QPointF fall = middle_on(s.Imgfos, s.Imgtargetdetails);
        const QPointF centre = middle_on(s.Imgreptarget, s.Imgtargetdetails);
        EXPECT_TRUE(std::abs(fall.x() - 1) < 0.02 && std::abs(fall.y()) < 0.02)
            << "the target's upper right corner";
        EXPECT_TRUE(std::abs(centre.x() - 0.5) < 0.02 && std::abs(centre.y() - 0.5) < 0.02);
        EXPECT_NEAR(middle_on(s.imgtargetpointer, s.Imgrange).x(), 0.75, 0.005);
        const QRectF target = in_window(s.Imgtargetdetails), range = in_window(s.Imgrange);
        EXPECT_NEAR(target.width() / target.height(), 1, 0.02);
        EXPECT_NEAR(range.width() / range.height(), s.Imgrange.Width / s.Imgrange.Height, 0.03);
        EXPECT_GE(gain(s.Imgtargetdetails), shape() > 1.7 ? 1.8 : shape() > 1.5 ? 1.4 : 0.97);
        EXPECT_GE(width_used(all), 0.97);
        s.imgtargetpointer.Left = s.Imgrange.Left + 2 * s.Imgrange.Width;
        pc.sync();
        EXPECT_NEAR(in_window(s.imgtargetpointer).right(), in_window(s.Imgrange).right(), 1)
            << "a place outside the range is shown at its edge";
        s.Frmtherm.Visible = false;
        pc.sync();
        expect_orderly(parts(s.window, &s.imgtargetpointer));
        if (shape() > 1.5) {
            EXPECT_NEAR(in_window(s.Frmreading).bottom(), in_window(s.Frame4).bottom(), 1);
        }
        s.Imgfos.Left = 2 * s.Frame1.Width;   // a mark beyond the edge must not disturb the next arrangement
    });
}

TEST_F(wide_screens, the_author_shows_a_large_range_and_a_click_marks_the_same_point)
{
    rauthor_screen& s = t.rauthor;
    constexpr double step = 100, pixel = 50;   // how far off a click may be, twips on the picture
    const auto click_at = [&](double across, double down) {
        QWidget& w = widget(s.Image1);
        const QPoint at(qRound(w.width() * across), qRound(w.height() * down));
        QTest::mouseClick(&w, Qt::LeftButton, Qt::NoModifier, at);
        return QPointF(s.pointx, s.pointy);
    };
    std::optional<QPointF> first;   // the point marked in the first shape
    in_each_shape(s.window, [&] {
        const QPointF other = click_at(0.7, 0.4), marked = click_at(0.3, 0.6);
        if (!first) first = marked;
        EXPECT_GT(other.x() - marked.x(), 1000);
        EXPECT_NEAR(marked.x(), first->x(), step + pixel);
        EXPECT_NEAR(marked.y(), first->y(), step + pixel);
        expect_orderly(parts(s.window, &s.Frame2));
        const QRectF pointer = in_window(s.Imgpoint), range = in_window(s.Image1);
        EXPECT_NEAR((pointer.right() - range.left()) / range.width(), 0.3, 0.01);
        EXPECT_NEAR((pointer.bottom() - range.top()) / range.height(), 0.6, 0.02);
        EXPECT_NEAR(range.width() / range.height(), s.Image1.Width / s.Image1.Height, 0.02);
        EXPECT_GE(gain(s.Image1), shape() > 1.5 ? 1.2 : 0.97);
        EXPECT_GE(gain(s.Picture1), shape() > 2 ? 2.5 : 0.97);
        EXPECT_GE(width_used(parts(s.window, &s.Frame2)), shape() == 1.5 ? 0.87 : 0.97);
    });
}

TEST_F(wide_screens, the_title_picture_covers_the_window_and_the_words_keep_to_its_middle)
{
    in_each_shape(t.intro.window, [&] {
        const QRect window({0, 0}, window_size);
        EXPECT_TRUE(in_window(t.intro.Image1).contains(window));
        EXPECT_NEAR(in_window(t.intro.Label1).center().x(), window.width() / 2.0, window.width() / 100.0);
        for (screen_object* o : {&t.intro.lblstart, &t.intro.lblexit})
            EXPECT_TRUE(window.contains(in_window(*o)));
    });
}

}   // namespace vorn::desktop_tests
