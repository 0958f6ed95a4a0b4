// Accessibility of the screens: contrast of texts, Tab order, and names for screen readers.
#include <algorithm>
#include <cmath>

#include "platform/desktop/drawing/look.h"
#include "platform/desktop/windows/widgets.h"
#include "ranges/ranges.h"
#include "trainer_fixture.h"

namespace vorn::desktop_tests {

// Relative luminance and contrast ratio as defined by WCAG 2.
double luminance(const QColor& c)
{
    const auto linear = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double x = luminance(a) + 0.05, y = luminance(b) + 0.05;
    return std::max(x, y) / std::min(x, y);
}

// The background of an object: its own, or that of the nearest container.
QColor background(const screen_object& object)
{
    if (object.kind == object_kind::button) return control_colour::face;
    if (object.kind == object_kind::textbox) return control_colour::field;
    if (object.BackColor != colour::ground) return back_shade(object.BackColor);
    for (const screen_object* o = object.parent; o != nullptr; o = o->parent) {
        if (o->kind == object_kind::frame) return control_colour::panel;
        if (o->kind == object_kind::sight) return shade(colour::black);
    }
    return shade(colour::ground);
}

struct accessibility : trainer_test {
    QAccessibleInterface* interface(const screen_object& o)
    {
        return QAccessible::queryAccessibleInterface(&widget(o));
    }
    QString spoken_name(const screen_object& o) { return interface(o)->text(QAccessible::Name); }
};

TEST_F(accessibility, texts_have_sufficient_contrast)
{
    int texts = 0;
    for (const form* f : forms(t))
        for (const screen_object* o : f->objects) {
            const bool text = o->kind != object_kind::image && o->kind != object_kind::shape;
            // Not checked: numbers over a picture and marks of the sight, which have a dark background or
            // outline, and the title screen, whose background is a picture.
            const bool outlined = o->ForeColor == colour::darkred || o->ForeColor == colour::sight;
            if (!text || outlined || f == &t.intro.window) continue;
            const bool frame = o->kind == object_kind::frame;
            const QColor ink = shade(frame && o->ForeColor == colour::text ? colour::dim : o->ForeColor);
            const QColor ground = frame ? QColor(control_colour::panel) : background(*o);
            EXPECT_GE(contrast(ink, ground), 4.5)
                << f->name << ": " << o->Caption << o->Text << o->AccessibleName << ' '
                << ink.name().toStdString() << " on " << ground.name().toStdString();
            ++texts;
        }
    EXPECT_GT(texts, 250);
    const QPalette manual = form_palette();
    for (const QColor& ink : {manual.color(QPalette::Text), shade(colour::live), shade(colour::highlight)})
        EXPECT_GE(contrast(ink, manual.color(QPalette::Base)), 4.5) << ink.name().toStdString();
}

TEST_F(accessibility, every_control_is_reached_by_tab_and_has_a_name)
{
    for (form* f : forms(t)) {
        f->arrival = nullptr;   // so that the screen keeps its design values
        pc.run([&] { show(pc, *f); });
        ASSERT_TRUE(QTest::qWaitForWindowActive(pc.window(*f)));
        const std::vector<QWidget*> order = tab_order(*pc.window(*f));
        const auto at = [&](const screen_object& o) { return std::ranges::find(order, &widget(o)); };
        if (f == &t.startsim.window) {
            EXPECT_TRUE(at(t.startsim.Opttime3) < at(t.startsim.Optmode1) &&
                        at(t.startsim.Optmode1) < at(t.startsim.Cmdopenrange) &&
                        at(t.startsim.Cmdopenrange) < at(t.startsim.Cmdstart))
                << "Tab follows the steps of setting up a practice";
        }
        for (const screen_object* o : f->objects) {
            const bool is_control = o->Click || o->Change || o->MouseDown || o->kind == object_kind::textbox;
            if (!is_control || in_sight(*o)) continue;
            EXPECT_FALSE(spoken_name(*o).isEmpty()) << f->name << " at " << o->Left << ' ' << o->Top;
            const bool by_arrows = o->kind == object_kind::option && o->Value == 0;
            EXPECT_TRUE(at(*o) != order.end() || by_arrows || !takes_input(*o))
                << f->name << ": " << spoken_name(*o).toStdString();
        }
    }
    EXPECT_EQ(spoken_name(t.startsim.Frmsystem), "System") << "not OPTIONS, the frame around it";
    EXPECT_EQ(spoken_name(t.simulator.Frame5), "Lights");
    EXPECT_EQ(interface(t.results.Imgrange)->role(), QAccessible::Graphic);
    EXPECT_EQ(interface(t.rauthor.Imgtarget[1])->role(), QAccessible::Button);
    pc.run([&] { show(pc, t.simulator.window); });
    for (const bool on : {false, true}) {
        pc.run([&] { t.simulator.Imghesh.Visible = !on; });
        EXPECT_EQ(interface(t.simulator.Imghesh)->state().invisible, on);
        EXPECT_EQ(interface(t.simulator.Imgheshon)->state().invisible, !on)
            << "the dark lamp covers the lit one";
    }
    pc.run([&] {
        t.results.lbltargetrange.Caption = "1200";
        t.results.Lblsystem.Caption = "FULL";
        showplaced(t.rauthor, 3);
    });
    EXPECT_EQ(spoken_name(t.results.lbltargetrange), "TARGET RANGE 1200");
    EXPECT_EQ(spoken_name(t.results.Lblsystem), "SYSTEM FULL");
    EXPECT_EQ(spoken_name(t.rauthor.Lbltargetnum[3]), "Placed, target number 3");
    EXPECT_EQ(spoken_name(t.rauthor.Lbltargetnum[4]), "Target number 4");
}

}   // namespace vorn::desktop_tests
