// The screens without a docked sight in windows of any shape.
#include <QLabel>

#include "trainer_fixture.h"

namespace vorn::desktop_tests {

struct wide_screens : trainer_test, testing::WithParamInterface<QSize> {
    form_window& open_screen(form& f, const QSize& size = GetParam())
    {
        pc.run([&] { show(pc, f); });
        form_window& w = *pc.window(f);
        w.resize(size);
        pc.sync();
        return w;
    }
    // The texts fit, and each object is within its frame.
    void expect_nothing_cut(const form& f, const std::vector<const screen_object*>& all)
    {
        for (const screen_object* o : all)
            if (const auto* text = qobject_cast<const QLabel*>(&widget(*o))) {
                EXPECT_LE(text->heightForWidth(text->width()), text->height()) << o->Caption;
            }
        for (const screen_object* o : f.objects)
            if (o->Visible && o->parent != nullptr && !in_sight(*o)) {
                EXPECT_TRUE(widget(*o->parent).rect().contains(widget(*o).geometry())) << o->Caption;
            }
    }
    // The middle of an object relative to `ground`, in parts of the width and height of `ground`.
    QPointF middle_on(const screen_object& o, const screen_object& ground)
    {
        const QRectF at = in_window(o), on = in_window(ground);
        return {(at.center().x() - on.left()) / on.width(), (at.center().y() - on.top()) / on.height()};
    }
    double shape() const { return static_cast<double>(GetParam().width()) / GetParam().height(); }
    // The size of an object relative to its size in a form that is scaled as a whole to this window.
    double gain(const screen_object& o)
    {
        const double scale = std::min(GetParam().width() / form_width, GetParam().height() / form_height);
        return in_window(o).width() / (o.Width * scale);
    }
};

TEST_P(wide_screens, the_debrief_shows_a_large_target_with_the_marks_on_their_places)
{
    open_setup();
    results_screen& s = t.results;
    open_screen(s.window);
    s.Frmtherm.Visible = s.Imgfos.Visible = s.Imgreptarget.Visible = s.imgtargetpointer.Visible = true;
    s.Imgfos.Left = s.Imgtargetdetails.Left + s.Imgtargetdetails.Width - s.Imgfos.Width / 2;
    s.Imgfos.Top = s.Imgtargetdetails.Top - s.Imgfos.Height / 2;
    s.imgtargetpointer.Left = s.Imgrange.Left + s.Imgrange.Width * 0.75 - s.imgtargetpointer.Width / 2;
    s.outcome.Caption = "/home/gunner/practices/SMITH .vrn is saved";
    pc.sync();
    auto all = parts(s.window);
    std::erase(all, &s.imgtargetpointer);
    expect_orderly(all);
    expect_nothing_cut(s.window, all);

    const QPointF fall = middle_on(s.Imgfos, s.Imgtargetdetails);
    EXPECT_NEAR(fall.x(), 1, 0.02);
    EXPECT_NEAR(fall.y(), 0, 0.02);
    const QPointF centre = middle_on(s.Imgreptarget, s.Imgtargetdetails);
    EXPECT_NEAR(centre.x(), 0.5, 0.02);
    EXPECT_NEAR(centre.y(), 0.5, 0.02);
    EXPECT_NEAR(middle_on(s.imgtargetpointer, s.Imgrange).x(), 0.75, 0.005);

    const QRectF target = in_window(s.Imgtargetdetails), range = in_window(s.Imgrange);
    EXPECT_NEAR(target.width() / target.height(), 1, 0.02);
    EXPECT_NEAR(range.width() / range.height(), s.Imgrange.Width / s.Imgrange.Height, 0.02);
    EXPECT_GE(gain(s.Imgtargetdetails), shape() > 1.7 ? 1.55 : shape() > 1.5 ? 1.3 : 0.97);
    s.imgtargetpointer.Left = s.Imgrange.Left + 2 * s.Imgrange.Width;
    pc.sync();
    EXPECT_NEAR(in_window(s.imgtargetpointer).right(), in_window(s.Imgrange).right(), 1)
        << "a place outside the range is shown at its edge";
}

TEST_P(wide_screens, the_author_shows_a_large_range_and_a_click_marks_the_same_point)
{
    open_setup();
    rauthor_screen& s = t.rauthor;
    const auto click_at = [&](double across, double down) {
        QWidget& w = widget(s.Image1);
        const QPoint at(qRound(w.width() * across), qRound(w.height() * down));
        QTest::mouseClick(&w, Qt::LeftButton, Qt::NoModifier, at);
    };
    open_screen(s.window, QSize(1024, 768));
    click_at(0.3, 0.6);
    const double x = s.pointx, y = s.pointy;
    click_at(0.7, 0.4);
    ASSERT_GT(std::abs(s.pointx - x), 1000);
    open_screen(s.window);
    click_at(0.3, 0.6);
    constexpr double step = 100, pixel = 50;   // twips on the picture
    EXPECT_NEAR(s.pointx, x, step + pixel);
    EXPECT_NEAR(s.pointy, y, step + pixel);
    expect_orderly(parts(s.window, &s.Frame2));
    expect_nothing_cut(s.window, parts(s.window, &s.Frame2));
    const QRectF pointer = in_window(s.Imgpoint), range = in_window(s.Image1);
    EXPECT_NEAR((pointer.right() - range.left()) / range.width(), 0.3, 0.01);
    EXPECT_NEAR((pointer.bottom() - range.top()) / range.height(), 0.6, 0.02);
    EXPECT_NEAR(range.width() / range.height(), s.Image1.Width / s.Image1.Height, 0.02);
    EXPECT_GE(gain(s.Image1), shape() > 1.5 ? 1.2 : 0.97);
}

TEST_P(wide_screens, set_up_and_calibration_spread_over_the_window)
{
    open_setup();
    for (form* f : {&t.startsim.window, &t.joycal.window}) {
        SCOPED_TRACE(f->name);
        const form_window& w = open_screen(*f);
        const auto all = parts(*f);
        QRect used;
        for (const screen_object* o : all) used |= in_window(*o);
        EXPECT_GE(used.width(), (shape() > 2 ? 0.8 : 0.97) * w.width());
        expect_orderly(all);
        expect_nothing_cut(*f, all);
    }
    const QRect field = in_window(t.joycal.Frmfield);
    EXPECT_NEAR(field.width(), field.height(), 1);
    const QRectF target = in_window(t.startsim.Imgpractice[3]), number = in_window(t.startsim.Lblpractice[3]);
    EXPECT_NEAR(target.width() / target.height(), 1, 0.05);
    EXPECT_NEAR(target.center().x(), number.center().x(), 1) << "the number stays on its target";
}

TEST_P(wide_screens, the_title_picture_covers_the_window_and_the_words_keep_to_its_middle)
{
    open_setup();
    const form_window& w = open_screen(t.intro.window);
    EXPECT_TRUE(in_window(t.intro.Image1).contains(w.rect()));
    EXPECT_NEAR(in_window(t.intro.Label1).center().x(), w.width() / 2.0, w.width() / 100.0);
    for (screen_object* o : {&t.intro.lblstart, &t.intro.lblexit})
        EXPECT_TRUE(w.rect().contains(in_window(*o)));
}

INSTANTIATE_TEST_SUITE_P(windows, wide_screens,
                         testing::Values(QSize(800, 600), QSize(1024, 768), QSize(1366, 768),
                                         QSize(1440, 900), QSize(1920, 1080), QSize(2560, 1080),
                                         QSize(3840, 2160), QSize(1080, 1920)));

}   // namespace vorn::desktop_tests
