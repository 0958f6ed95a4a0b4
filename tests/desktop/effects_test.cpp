// The pictures of explosion, fire and bursts.
#include "platform/desktop/drawing/effects.h"

#include <gtest/gtest.h>

#include <QImage>

#include "platform/desktop/drawing/drawings.h"

namespace vorn::desktop_tests {

namespace {

constexpr int side = 96;

QImage drawn(effect what, int frame, const QColor& ground = Qt::transparent)
{
    QImage canvas(side, side, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(ground);
    QPainter p(&canvas);
    draw_effect(p, what, QRectF(canvas.rect()), frame);
    return canvas;
}

// The share of pixels of a kind in a frame, on a ground of one colour.
double share(effect what, int frame, bool (*matches)(const QColor&))
{
    const QImage picture = drawn(what, frame, QColor(150, 152, 105));
    int count = 0;
    for (int i = 0; i < side * side; ++i) count += matches(picture.pixelColor(i % side, i / side));
    return count / double{side * side};
}

bool flash(const QColor& c)
{
    return std::min({c.red(), c.green(), c.blue()}) > 215;
}
bool fire(const QColor& c)
{
    return c.red() > 150 && c.red() > c.blue() + 90;
}
// Brighter than the ground of a thermal range, which is .6 of white at most.
bool hot(const QColor& c)
{
    return c.lightness() > 190;
}
bool smoke(const QColor& c)
{
    return c.lightness() < 80 && c.red() < 120;
}

double cover(const QImage& picture)
{
    double sum = 0;
    for (int i = 0; i < side * side; ++i) sum += qAlpha(picture.pixel(i % side, i / side)) / 255.;
    return sum / (side * side);
}

// The mean difference of the red values, in which fire and smoke differ.
double change(const QImage& a, const QImage& b)
{
    double sum = 0;
    for (int i = 0; i < side * side; ++i)
        sum += std::abs(qRed(a.pixel(i % side, i / side)) - qRed(b.pixel(i % side, i / side)));
    return sum / (side * side);
}

}   // namespace

TEST(effects, an_explosion_is_a_flash_then_fire_then_smoke_and_grey_in_the_thermal_sight)
{
    EXPECT_GT(share(effect::explosion, 1, flash), .05);
    EXPECT_LT(share(effect::explosion, 5, flash), .01) << "the flash is over";
    EXPECT_GT(share(effect::explosion, 4, fire), .09);
    EXPECT_LT(share(effect::explosion, 11, fire), .01) << "the fire is out";
    EXPECT_GT(share(effect::explosion, 10, smoke), .2);
    EXPECT_LT(share(effect::explosion, 15, smoke), .01);
    EXPECT_LT(share(effect::hot_explosion, 4, fire), .01);
    EXPECT_GT(share(effect::hot_explosion, 4, [](const QColor& c) { return c.lightness() > 140; }), .1);
    QImage canvas(side, side, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter p(&canvas);
    draw_named(p, ":explosion4", QRectF(canvas.rect()));
    EXPECT_EQ(canvas, drawn(effect::explosion, 4)) << "the name that the screens use";
}

TEST(effects, a_fire_burns_below_its_smoke_and_loops_without_a_jump)
{
    double most = 0;
    for (int i = 0; i < 16; ++i) {
        const QImage now = drawn(effect::fire, i);
        EXPECT_GT(share(effect::fire, i, fire), .02) << i;
        EXPECT_GT(share(effect::fire, i, smoke), .12) << i;
        for (int y = 0; y < side / 2; ++y)
            for (int x = 0; x < side; ++x) EXPECT_LT(qRed(now.pixel(x, y)), 160) << "no fire at the top";
        if (i > 0) most = std::max(most, change(now, drawn(effect::fire, i - 1)));
    }
    EXPECT_LT(change(drawn(effect::fire, 15), drawn(effect::fire, 0)), 1.1 * most);
}

TEST(effects, a_thermal_sight_shows_a_fire_as_a_hot_plume_that_cools_upwards)
{
    for (int i = 0; i < 16; ++i) {
        const QImage now = drawn(effect::hot_fire, i, QColor(95, 95, 95));
        EXPECT_TRUE(now.allGray());
        // The mean over rows of the middle, counted in percent from the top.
        const auto lightness = [&](int from, int to) {
            int sum = 0, count = 0;
            for (int y = side * from / 100; y < side * to / 100; ++y)
                for (int x = side * 4 / 10; x < side * 6 / 10; ++x, ++count)
                    sum += now.pixelColor(x, y).lightness();
            return sum / count;
        };
        EXPECT_GT(lightness(62, 82), lightness(30, 45) + 30) << i;
        EXPECT_GT(lightness(30, 45), lightness(0, 10) + 20) << i;
        EXPECT_GE(lightness(0, 10), 94) << "smoke isn't darker than a cold ground";
        int steepest = 0;
        for (int y = 0; y < side; ++y)
            for (int x = 1; x < side; ++x)
                steepest = std::max(steepest, std::abs(qRed(now.pixel(x, y)) - qRed(now.pixel(x - 1, y))));
        EXPECT_LT(steepest, 90) << "soft edges";
    }
}

TEST(effects, a_burst_starts_with_a_flash_at_its_foot_and_is_gone_at_the_end)
{
    for (const effect e : {effect::burst_fin, effect::burst_hesh, effect::burst_coax, effect::hot_fin,
                           effect::hot_hesh, effect::hot_coax}) {
        SCOPED_TRACE(static_cast<int>(e));
        EXPECT_GT(share(e, 0, flash), .002);
        EXPECT_LT(share(e, 8, flash), .002);
        EXPECT_GT(cover(drawn(e, 6)), .08);
        EXPECT_LT(cover(drawn(e, 15)), .03);
        const QImage early = drawn(e, 2);
        double across = 0, sum = 0;
        for (int y = side * 3 / 4; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                across += x * qAlpha(early.pixel(x, y));
                sum += qAlpha(early.pixel(x, y));
            }
        EXPECT_NEAR(across / sum / side, .5, .03);
        EXPECT_GT(qAlpha(early.pixel(side / 2, side * 96 / 100)), 128) << "the burst stands on the ground";
    }
    for (const effect e : {effect::hot_fin, effect::hot_hesh, effect::hot_coax}) {
        EXPECT_TRUE(drawn(e, 4).allGray());
        EXPECT_GT(share(e, 3, hot), 3 * share(e, 9, hot)) << "it cools";
    }
    EXPECT_EQ(cover(drawn(effect::burst_fin, 16)), 0) << "there is no such frame";
    EXPECT_EQ(cover(drawn(effect::burst_fin, -1)), 0);
}

}   // namespace vorn::desktop_tests
