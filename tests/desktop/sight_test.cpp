// What the sight shows: the objects of the model, strikes, fire and rounds in flight.
#include "gunnery/gunnery.h"
#include "platform/desktop/windows/sight_view.h"
#include "trainer_fixture.h"

namespace vorn::desktop_tests {

// A practice on a shipped range. Time runs fast during a flight and nearly stands still when the test looks.
struct strikes_in_practice : trainer_test, testing::WithParamInterface<bool> {
    strikes_in_practice() : s(GetParam() ? t.thermal : t.simulator)
    {
        open_setup();
        start_practice({GetParam() ? &t.startsim.Optmode2 : &t.startsim.Optmode1, &t.startsim.Optcon2});
        s.currentrange = 800;
    }
    void fire(nature_of_target nature)
    {
        s.gunloaded = true;
        s.nature = s.ammoselected = nature;
        pc.set_speed(8);   // slow enough that the burst is still shown after its pictures have been read
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

INSTANTIATE_TEST_SUITE_P(sights, strikes_in_practice, testing::Bool());

// A sight of 400 x 400 pixels that shows green ground, with a clock that the test sets.
struct sight_effects : desktop_test {
    sight_effects()
    {
        ground.Picture = plain_picture(QColor(60, 120, 60));
        pc.world_clock = [this] { return time; };
        pc.set_speed(1);
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

    screen_object& sight = one.put(placed(object_kind::sight, {1500, 1500, 6000, 6000}));
    screen_object& ground = one.put(image({-3000, -3000, 12000, 12000}), &sight);
    screen_object& target = one.put(hidden(image({2700, 2700, 600, 600})), &sight);
    screen_object& round =
        one.put(hidden(shape({1500, 3000, 60, 60}, shape_kind::filled_ellipse, colour::tracer)), &sight);
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
    EXPECT_NEAR(colour_at(down, corner).lightness(), colour_at(empty, corner).lightness(), 40)
        << "the target isn't drawn";
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
    EXPECT_TRUE(changed().isEmpty()) << "a reset puts out the fire, though target.Fire stays";
    target.Fire = fire::none;
    burn_and_take_down();
    target.Fire = fire::none;
    EXPECT_TRUE(changed().isEmpty());
}

TEST_F(sight_effects, a_round_in_flight_is_drawn_between_two_counts)
{
    round.Visible = true;
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
    EXPECT_NEAR(changed(view.grab().toImage()).center().x(), 302, 3) << "the round hasn't moved since";
}

// Counts of 11 ms, as for FIN at 840 metres on the visual sight, are shown at 60 frames a second.
TEST_F(sight_effects, a_round_in_flight_moves_in_each_frame)
{
    round.Visible = true;
    pc.sync();
    const paint_count paints(widget(sight));
    pc.set_speed(1000);   // shortens the waits in `pace`: they grow, as the test's clock stands still
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
        widget(sight).hide();   // discards the scaled picture
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
    write("valley.vrp", encoded(plain_image(700, 700, Qt::red), "PNG"));
    write("valley@2x.vrp", encoded(plain_image(1400, 1400, Qt::blue), "PNG"));
    ground.Picture = *read_picture("valley.vrp", folder.filePath("valley.vrp").toStdString()).result;
    const QColor first = colour_at(seen(), {200, 200});
    const paint_count paints(widget(sight));
    EXPECT_NE(first, QColor(60, 120, 60));
    const auto repainted = [&] { return paints.count > 0 && !reads_twin(ground.Picture); };
    EXPECT_TRUE(first == QColor(Qt::blue) || QTest::qWaitFor(repainted))
        << "the sight is repainted with the twin";
    EXPECT_EQ(colour_at(seen(), {200, 200}), QColor(Qt::blue));
    const auto& pixels = dynamic_cast<const decoded_picture&>(*ground.Picture.pixels);
    widget(sight).window()->showMinimized();
    EXPECT_TRUE(pixels.twin_image.valid()) << "a minimised window keeps the twin";
    widget(sight).window()->showNormal();
    widget(sight).hide();
    EXPECT_FALSE(pixels.twin_image.valid()) << "a hidden sight needs no memory for the twin";
    widget(sight).show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return colour_at(seen(), {200, 200}) == QColor(Qt::blue); }));
}

// A sight of 200 x 200 pixels at scale 1, 100 from the left and upper edges of the form, shown at `scale`.
struct sight : desktop_test {
    static constexpr double scale = 1.3;
    screen_object& view = one.put(placed(object_kind::sight, {1500, 1500, 3000, 3000}));

    screen_object& image(double left, double top, double size, const QColor& c)
    {
        screen_object& o = one.put(vorn::image({left, top, size, size}), &view);
        o.Picture = plain_picture(c);
        return o;
    }
    void open_scaled()
    {
        open(one, static_cast<int>(1024 * scale), static_cast<int>(768 * scale));
        seen = window(one).grab().toImage();
    }
    // The colour at a point of the form, in pixels at scale 1.
    QColor at(double x, double y) const { return colour_at(seen, QPointF(x, y) * scale); }

    QImage seen;
};

TEST_F(sight, clips_its_objects_and_draws_them_in_order)
{
    image(-1500, -1500, 6000, Qt::blue);
    image(750, 750, 750, Qt::red);
    image(1125, 1125, 750, QColor(0, 255, 0));
    image(2250, 2250, 3000, Qt::yellow).Visible = false;
    image(300, 300, 150, QColor(0, 0, 0, 0));
    one.put(label({1500, 1500, 150, 150}, "")).BackColor = colour::white;
    open_scaled();
    EXPECT_EQ(at(105, 105), QColor(Qt::white)) << "an object over the sight";
    EXPECT_EQ(at(112, 112), QColor(Qt::blue));
    EXPECT_EQ(at(298, 298), QColor(Qt::blue)) << "a hidden picture covers nothing";
    EXPECT_EQ(at(125, 125), QColor(Qt::blue)) << "a transparent picture covers nothing";
    EXPECT_EQ(at(160, 160), QColor(Qt::red));
    EXPECT_EQ(at(190, 190), QColor(0, 255, 0)) << "a later picture covers an earlier one";
    EXPECT_NE(at(90, 150), QColor(Qt::blue)) << "outside the sight";
    EXPECT_NE(at(310, 150), QColor(Qt::blue));
}

TEST_F(sight, has_no_gap_between_adjacent_pictures)
{
    for (const double left : {0.0, 1505.0})
        for (const double top : {0.0, 1505.0}) {
            screen_object& quarter = image(left, top, 1505, Qt::blue);
            if (left > 0) quarter.Width = 1495;
            if (top > 0) quarter.Height = 1495;
        }
    open_scaled();
    const double ratio = seen.devicePixelRatio();
    const QRectF place = widget(view).geometry();
    const QRect inner = QRectF(place.topLeft() * ratio, place.size() * ratio).toRect();
    int gaps = 0;
    for (int y = inner.top(); y <= inner.bottom(); ++y)
        for (int x = inner.left(); x <= inner.right(); ++x) gaps += seen.pixelColor(x, y) != QColor(Qt::blue);
    EXPECT_EQ(gaps, 0);
}

TEST_F(sight, marks_are_visible_on_white_and_on_black)
{
    image(0, 0, 1500, Qt::white);
    image(1500, 0, 1500, Qt::black);
    for (const double left : {300, 1800})
        one.put(shape({left, 300, 900, 900}, shape_kind::ellipse, colour::sight), &view);
    open_scaled();
    const auto contrast = [&](double from) {
        int darkest = 255, lightest = 0;
        for (double x = from; x < from + 30; x += 1 / scale / seen.devicePixelRatio()) {
            darkest = std::min(darkest, at(x, 150).lightness());
            lightest = std::max(lightest, at(x, 150).lightness());
        }
        return lightest - darkest;
    };
    EXPECT_GT(contrast(105), 120);
    EXPECT_GT(contrast(205), 120);
}

}   // namespace vorn::desktop_tests
