// The gunnery screens in windows of any shape, and the strikes, fires and rounds that the sight animates.
#include <QImage>
#include <QLabel>

#include "gunnery/gunnery.h"
#include "platform/desktop/windows/sight_view.h"
#include "trainer_fixture.h"

namespace vorn::desktop_tests {

struct gunnery_view : trainer_test, testing::WithParamInterface<QSize> {
    // Chooses the options and opens the gunnery screen.
    void open_practice(std::initializer_list<screen_object*> options, screen_object& start, gunnery_screen& s)
    {
        for (screen_object* o : options) click(*o);
        if (&start == &t.startsim.Cmdstart) answer_yes();
        click(start);
        pc.window(s.window)->resize(GetParam());
        settle();
    }
    void leave(gunnery_screen& s)
    {
        pc.run(s.Cmdmain.Click);
        if (t.intro.window.state == form_state::shown) click(t.intro.lblstart);
    }
    // The sight has the aspect ratio of the model and at least this share of the window.
    void expect_large(gunnery_screen& s, double share)
    {
        const QRectF at = in_window(s.Picrange), window = pc.window(s.window)->rect();
        EXPECT_NEAR(at.width() / at.height(), s.Picrange.Width / s.Picrange.Height, 0.01);
        EXPECT_GE(at.width() * at.height() / (window.width() * window.height()), share);
    }
    // The share of the window that these objects take.
    double used(const std::vector<const screen_object*>& all)
    {
        double pixels = 0;
        for (const screen_object* o : all) pixels += in_window(*o).width() * in_window(*o).height();
        return pixels / (GetParam().width() * GetParam().height());
    }
    // Each object is inside its frame, and each label is high enough for its text.
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
    }
    void expect_room_for_the_longest_words(gunnery_screen& s)
    {
        s.lblcrew.Caption =
            s.visual() ? "TARGET STOP...STOP CLEAR GUNS !!" : "COMMANDER :- COAX TRANSPORT !!ON LAZE !!";
        pc.sync();
        expect_nothing_cut(s.window);
    }
};

// The smallest share that the sight must have in a window of this shape.
static double least_share(const QSize& window)
{
    const double shape = static_cast<double>(window.width()) / window.height();
    return shape > 2 ? 0.45 : shape > 1.7 ? 0.6 : shape > 1 ? 0.5 : 0.3;
}

TEST_P(gunnery_view, gives_the_sight_all_that_the_panels_leave)
{
    open_setup();
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
        open_practice(p.options, p.start, p.screen);
        expect_orderly(parts(p.screen.window, &p.screen.Frame1));
        expect_large(p.screen, least_share(GetParam()));
        EXPECT_GE(used(parts(p.screen.window, &p.screen.Frame1)), 0.85) << "no strip is left empty";
        expect_nothing_cut(p.screen.window);
        expect_room_for_the_longest_words(p.screen);
        leave(p.screen);
    }
}

// It also keeps its size when the note of the keys disappears.
TEST_P(gunnery_view, gives_nearly_all_of_a_plain_screen_to_the_sight)
{
    open_setup();
    gunnery_screen& s = t.simulator;
    open_practice({&t.startsim.Optmode1, &t.startsim.Optcon2, &t.startsim.Optscreen1}, t.startsim.Cmdstart,
                  s);
    const QRect at = in_window(s.Picrange);
    const QSizeF most = QSizeF(s.Picrange.Width, s.Picrange.Height).scaled(GetParam(), Qt::KeepAspectRatio);
    EXPECT_GE(at.width() / most.width(), 0.9);
    expect_nothing_cut(s.window);
    ASSERT_FALSE(s.keynote.Caption.empty());
    pc.run(s.Cmdstartsim.Click);
    settle();
    EXPECT_TRUE(s.keynote.Caption.empty());
    EXPECT_EQ(in_window(s.Picrange), at);
}

TEST_P(gunnery_view, closes_the_row_of_a_hidden_button)
{
    open_setup();
    gunnery_screen& s = t.simulator;
    open_practice({&t.startsim.Optmode1, &t.startsim.Optcon2}, t.startsim.Cmdstart, s);
    const auto rows_between = [&] {
        const QRect exit = in_window(s.CMDEXIT), slider = in_window(s.HScspeed);
        return static_cast<double>(slider.top() - exit.bottom()) / exit.height();
    };
    const double hidden = rows_between();
    pc.run([&] { s.Cmdtarget.Visible = true; });
    EXPECT_GT(rows_between(), hidden + 0.9);
    expect_nothing_cut(s.window);
}

INSTANTIATE_TEST_SUITE_P(windows, gunnery_view,
                         testing::Values(QSize(800, 600), QSize(1024, 768), QSize(1366, 768),
                                         QSize(1920, 1080), QSize(2560, 1080), QSize(3840, 2160),
                                         QSize(1080, 1920)));

// A practice on the shipped range. Time runs fast during a flight, and nearly stands still while the test
// examines the sight.
struct strikes_in_practice : trainer_test, testing::WithParamInterface<bool> {
    strikes_in_practice() : s(GetParam() ? t.thermal : t.simulator)
    {
        open_setup();
        answer_yes();
        for (screen_object* o : {GetParam() ? &t.startsim.Optmode2 : &t.startsim.Optmode1,
                                 &t.startsim.Optcon2, &t.startsim.Cmdstart})
            click(*o);
        s.currentrange = 800;
    }
    void fire(nature_of_target nature)
    {
        s.gunloaded = true;
        s.nature = s.ammoselected = nature;
        pc.set_speed(50);
        pc.run([&] { keyfire(t, s); });
        if (nature == coax_transport) pc.run(s.Timcoax.tick);
        pc.run([&] { keycoaxstop(t, s); });
        pc.set_speed(0.01);
    }
    // The sight after the twin of the range picture has been read, which happens in the background.
    QImage seen()
    {
        pc.sync();
        widget(s.Picrange).grab();
        while (reads_twin(s.Imgrange.Picture)) QTest::qWait(5);
        return widget(s.Picrange).grab().toImage();
    }
    // Whether the pictures differ just above the fall of shot.
    bool differ_at_fall(const QImage& a, const QImage& b) const
    {
        const double pixels = a.width() / s.Picrange.Width;
        const QPoint foot((QPointF(s.ammo.Left, s.ammo.Top) * pixels).toPoint());
        const QRect near(foot - QPoint(4, 6), QSize(8, 6));
        return a.copy(near) != b.copy(near);
    }

    gunnery_screen& s;
};

TEST_P(strikes_in_practice, are_seen_where_the_round_came_down_and_not_after_a_reset)
{
    for (const nature_of_target nature : {fin_tank, hesh_bmp, coax_transport}) {
        SCOPED_TRACE(nature);
        const QImage before = seen();
        fire(nature);
        EXPECT_TRUE(differ_at_fall(seen(), before));
        pc.run([&] { screenreset(t, s); });
        EXPECT_FALSE(differ_at_fall(seen(), before));
    }
}

TEST_P(strikes_in_practice, end_with_the_next_target_and_a_kill_burns_until_then)
{
    click(s.Cmdstartsim);
    s.nature = fin_tank;
    const QImage before = seen();
    fire(fin_tank);
    ASSERT_TRUE(differ_at_fall(seen(), before));
    EXPECT_EQ(s.Imgtargets.Fire, fire::none);
    pc.set_speed(50);
    t.shared.targettime = 10000;
    pc.run([&] { nexttarget(t, s); });
    pc.run(s.Timtarget.tick);
    ASSERT_TRUE(s.Imgtargets.Visible);
    pc.run([&] {
        movepicture(s, &object_fields::Left, -aimacross(s));
        movepicture(s, &object_fields::Top, s.numbers.fin.to.at(s.currentrange) - aimdown(s));
    });
    t.random.source = [] { return 0.5; };
    fire(fin_tank);
    EXPECT_EQ(s.Imgtargets.Fire, GetParam() ? fire::hot : fire::flames);
}

INSTANTIATE_TEST_SUITE_P(sights, strikes_in_practice, testing::Bool());

// A sight of 400 x 400 pixels that shows green ground, with a clock that the test sets.
struct sight_effects : desktop_test {
    sight_effects()
    {
        ground.Picture = plain_picture(QColor(60, 120, 60));
        pc.world_clock = [this] { return time; };
        pc.set_speed(1);
        target.Visible = round.Visible = false;
        open(one);
        empty = seen();
    }
    QImage seen()
    {
        pc.sync();
        return widget(sight).grab().toImage();
    }
    // The rectangle in which the sight differs from one with only the ground.
    QRect changed() { return changed(seen()); }
    QRect changed(const QImage& now) const
    {
        QRect all;
        for (int y = 0; y < now.height(); ++y)
            for (int x = 0; x < now.width(); ++x)
                if (now.pixel(x, y) != empty.pixel(x, y)) all |= QRect(x, y, 1, 1);
        const double ratio = now.devicePixelRatio();
        return QRectF(QPointF(all.topLeft()) / ratio, QSizeF(all.size()) / ratio).toRect();
    }
    void strike_at(round_kind round, double left, double top, int wind = 0)
    {
        pc.show_strike(
            {.round = round, .ground = &ground, .Left = left, .Top = top, .size = 600, .wind = wind});
    }

    screen_object& sight = one.put(object_kind::sight, 1500, 1500, 6000, 6000);
    screen_object& ground = one.put(object_kind::image, -3000, -3000, 12000, 12000, &sight);
    screen_object& target = one.put(object_kind::image, 2700, 2700, 600, 600, &sight);
    screen_object& round = one.put(object_kind::shape, 1500, 3000, 60, 60, &sight);
    double time = 1000;
    QImage empty;
};

TEST_F(sight_effects, a_strike_bursts_on_its_spot_of_the_ground_and_ends)
{
    for (const round_kind kind : {round_kind::fin, round_kind::hesh, round_kind::coax}) {
        strike_at(kind, 6000, 6000);   // in the middle of the sight
        time += 0.3;
        const QRect at = changed();
        ASSERT_FALSE(at.isEmpty());
        EXPECT_NEAR(at.center().x(), 200, 12);
        EXPECT_NEAR(at.bottom(), 200, 12) << "the burst stands on the ground";
        ground.Left -= 1500;
        EXPECT_NEAR(changed().center().x(), 100, 12) << "the burst moves with the ground";
        ground.Left += 1500;
        time += 2.1;
        EXPECT_TRUE(changed().isEmpty());
    }
    strike_at(round_kind::hesh, 6000, 6000);
    time += 0.3;
    pc.clear_strikes();
    EXPECT_TRUE(changed().isEmpty());
}

TEST_F(sight_effects, the_smoke_of_a_strike_drifts_with_the_wind)
{
    const auto middle = [&](int wind) {
        pc.clear_strikes();
        strike_at(round_kind::hesh, 6000, 6000, wind);
        time += 1.4;
        return changed().center().x();
    };
    const int calm = middle(0);
    EXPECT_GT(middle(3), calm + 1);
    EXPECT_LT(middle(-3), calm - 1);
}

TEST_F(sight_effects, a_target_that_was_hit_is_a_wreck_in_flames_that_die_down_when_it_is_gone)
{
    target.Visible = true;
    target.Picture = plain_picture(QColor(200, 200, 200));
    const QRect whole = changed();
    const auto lightness = [&] {
        return colour_at(seen(), {whole.left() + 1.0, whole.center().y() + 0.0}).lightness();
    };
    EXPECT_GT(lightness(), 150);
    target.Fire = fire::flames;
    seen();
    EXPECT_LT(lightness(), 100);
    time += 1;
    EXPECT_GT(changed().height(), whole.height() + 10) << "flames and smoke rise above the target";
    const QImage one_moment = seen();
    time += 0.4;
    EXPECT_NE(seen(), one_moment) << "flames and smoke are animated";
    target.Fire = fire::hot;
    EXPECT_GT(lightness(), 100) << "a burning target is bright on the thermal sight";
    const auto take_down = [&] {
        target.Visible = false;
        const QImage shown = seen();
        EXPECT_FALSE(changed().isEmpty());
        return shown;
    };
    const QImage down = take_down();
    const QPointF corner(whole.left() + 1.0, whole.bottom() - 1.0);
    EXPECT_NEAR(colour_at(down, corner).lightness(), colour_at(empty, corner).lightness(), 40) << "no target";
    time += 0.6;
    EXPECT_LT(changed().height(), changed(down).height());
    time += 0.6;
    EXPECT_TRUE(changed().isEmpty());
}

TEST_F(sight_effects, a_fire_ends_with_the_next_target_and_with_a_reset)
{
    const auto burn_and_take_down = [&] {
        target.Visible = true;
        target.Fire = fire::flames;
        seen();
        time += 0.3;
        target.Visible = false;
        EXPECT_FALSE(changed().isEmpty());
    };
    burn_and_take_down();
    pc.clear_strikes();
    EXPECT_TRUE(changed().isEmpty()) << "the reset, which leaves the target as it is";
    target.Fire = fire::none;
    burn_and_take_down();
    target.Fire = fire::none;
    EXPECT_TRUE(changed().isEmpty());
}

TEST_F(sight_effects, a_round_in_flight_is_drawn_between_two_counts)
{
    round.Visible = true;
    round.Shape = shape_kind::filled_ellipse;
    round.ForeColor = colour::tracer;
    pc.sync();
    round.Left = 4500;   // from pixel 100 to pixel 300
    pc.sync();
    auto& view = widget<sight_view>(sight);
    for (const auto& [part, middle] : {std::pair{0.0, 102}, {0.5, 202}, {1.0, 302}}) {
        view.set_progress(part);
        EXPECT_NEAR(changed(view.grab().toImage()).center().x(), middle, 3) << part;
    }
    pc.sync();
    view.set_progress(0);
    EXPECT_NEAR(changed(view.grab().toImage()).center().x(), 302, 3) << "a round that hasn't moved";
}

// Counts of 11 ms, as for a FIN round, are shown at 60 frames a second too.
TEST_F(sight_effects, a_round_in_flight_moves_in_each_frame)
{
    round.Visible = true;
    round.ForeColor = colour::tracer;
    pc.sync();
    const paint_count paints(widget(sight));
    pc.set_speed(1000);   // shortens the waits for the clock, which the test doesn't move
    for (int i = 0; i < 91; ++i) {
        round.Top -= 20;
        pc.pace(0.011);
    }
    EXPECT_NEAR(paints.count, 60, 1);
}

TEST_F(sight_effects, a_range_that_has_scrolled_looks_like_one_painted_at_once)
{
    auto pixels = std::make_shared<decoded_picture>();
    QImage& squares = pixels->sizes.emplace_back(240, 240, QImage::Format_RGB32);
    for (int y = 0; y < 240; ++y)
        for (int x = 0; x < 240; ++x) squares.setPixelColor(x, y, {x, y, x * 7 / 8 % 16 * 9 + y % 13 * 9});
    ground.Picture = {"squares", 240 * twips_per_pixel, 240 * twips_per_pixel, pixels};
    for (const auto& [right, down] :
         {std::pair{0, 0}, {-300, 0}, {0, 260}, {-1000, -777}, {4000, 3000}, {250, -4100}, {-9000, 100}}) {
        ground.Left += right;
        ground.Top += down;
        const QImage scrolled = seen();
        widget(sight).hide();   // discards what has been scaled
        widget(sight).show();
        const QImage at_once = seen();
        int worst = 0;
        for (int y = 0; y < scrolled.height(); ++y)
            for (int x = 0; x < scrolled.width(); ++x)
                worst = std::max(worst, std::abs(qBlue(scrolled.pixel(x, y)) - qBlue(at_once.pixel(x, y))));
        EXPECT_LE(worst, 4) << right << ' ' << down;
    }
}

TEST_F(sight_effects, a_range_is_shown_before_its_twin_has_been_read)
{
    const auto write_square = [&](const char* name, int size, const QColor& c) {
        QImage image(size, size, QImage::Format_RGB32);
        image.fill(c);
        image.save(folder.filePath(name), "PNG");
    };
    write_square("valley.vrp", 700, Qt::red);
    write_square("valley@2x.vrp", 1400, Qt::blue);
    ground.Picture = *read_picture("valley.vrp", folder.filePath("valley.vrp").toStdString()).result;
    struct : QObject {
        const picture* shown = nullptr;
        bool with_twin = false;
        bool eventFilter(QObject*, QEvent* e) override
        {
            with_twin |= e->type() == QEvent::Paint && !reads_twin(*shown);
            return false;
        }
    } paints;
    const QColor first = colour_at(seen(), {200, 200});
    EXPECT_NE(first, QColor(60, 120, 60));
    paints.shown = &ground.Picture;
    paints.with_twin = first == QColor(Qt::blue);   // the twin was read before the first paint
    widget(sight).installEventFilter(&paints);
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.with_twin; })) << "the sight is repainted with the twin";
    EXPECT_EQ(colour_at(seen(), {200, 200}), QColor(Qt::blue));
}

}   // namespace vorn::desktop_tests
