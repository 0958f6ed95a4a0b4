#include <QImage>

#include "fixture.h"

namespace vorn::desktop_tests {

// A sight of 200 x 200 pixels, 100 pixels from the corner of the form, at several scales of the window.
struct sight : desktop_test, testing::WithParamInterface<double> {
    screen_object& view = one.put(object_kind::sight, 1500, 1500, 3000, 3000);

    screen_object& image(double left, double top, double size, const QColor& c)
    {
        screen_object& o = one.put(object_kind::image, left, top, size, size, &view);
        o.Picture = plain_picture(c);
        return o;
    }
    void open_scaled()
    {
        open(one, static_cast<int>(std::lround(1024 * GetParam())),
             static_cast<int>(std::lround(768 * GetParam())));
        seen = window(one).grab().toImage();
    }
    // The colour at a point of the form, in pixels at scale 1.
    QColor at(double x, double y) const { return colour_at(seen, QPointF(x, y) * GetParam()); }

    QImage seen;
};

TEST_P(sight, clips_its_objects_and_draws_them_in_order)
{
    image(-1500, -1500, 6000, Qt::blue);
    image(750, 750, 750, Qt::red);
    image(1125, 1125, 750, QColor(0, 255, 0));
    image(2250, 2250, 3000, Qt::yellow).Visible = false;
    image(300, 300, 150, QColor(0, 0, 0, 0));
    one.put(object_kind::label, 1500, 1500, 150, 150).BackColor = colour::white;
    open_scaled();
    EXPECT_EQ(at(105, 105), QColor(Qt::white)) << "an object over the sight";
    EXPECT_EQ(at(112, 112), QColor(Qt::blue));
    EXPECT_EQ(at(298, 298), QColor(Qt::blue)) << "a hidden picture";
    EXPECT_EQ(at(125, 125), QColor(Qt::blue)) << "a transparent picture";
    EXPECT_EQ(at(160, 160), QColor(Qt::red));
    EXPECT_EQ(at(190, 190), QColor(0, 255, 0)) << "a later picture covers an earlier one";
    EXPECT_NE(at(90, 150), QColor(Qt::blue)) << "outside the sight";
    EXPECT_NE(at(310, 150), QColor(Qt::blue));
}

TEST_P(sight, has_no_gap_between_adjacent_pictures)
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

TEST_P(sight, marks_are_visible_on_white_and_on_black)
{
    image(0, 0, 1500, Qt::white);
    image(1500, 0, 1500, Qt::black);
    for (const double left : {300, 1800}) {
        screen_object& ring = one.put(object_kind::shape, left, 300, 900, 900, &view);
        ring.Shape = shape_kind::ellipse;
        ring.ForeColor = colour::sight;
    }
    open_scaled();
    const auto contrast = [&](double from) {
        int darkest = 255, lightest = 0;
        for (double x = from; x < from + 30; x += 1 / GetParam() / seen.devicePixelRatio()) {
            darkest = std::min(darkest, at(x, 150).lightness());
            lightest = std::max(lightest, at(x, 150).lightness());
        }
        return lightest - darkest;
    };
    EXPECT_GT(contrast(105), 120);
    EXPECT_GT(contrast(205), 120);
}

INSTANTIATE_TEST_SUITE_P(scales, sight, testing::Values(1.0, 1.3, 2.0));

}   // namespace vorn::desktop_tests
