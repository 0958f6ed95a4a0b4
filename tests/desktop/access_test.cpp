// Every screen can be read, worked by keyboard, and heard: texts stand out 4.5 to 1 and more from what lies
// behind them, Tab reaches whatever can be worked, and a screen reader has a name for it.
#include <QAccessible>
#include <cmath>
#include <set>

#include "calibration/joycal.h"
#include "debrief/results.h"
#include "fixture.h"
#include "flow/intro.h"
#include "gunnery/screen.h"
#include "platform/desktop/windows/look.h"
#include "platform/desktop/windows/widgets.h"
#include "ranges/author.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn::desktop_tests {

// Relative luminance and contrast as the guidelines for accessible content define them.
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

// What lies behind an object: its own back colour, or that of what holds it.
QColor behind(const screen_object& object)
{
    if (object.kind == object_kind::button) return furniture::face;
    if (object.kind == object_kind::textbox) return furniture::field;
    if (object.BackColor != colour::ground) return back_shade(object.BackColor);
    for (const screen_object* o = object.parent; o != nullptr; o = o->parent) {
        if (o->kind == object_kind::frame) return furniture::panel;
        if (o->kind == object_kind::sight) return shade(colour::black);
    }
    return shade(colour::ground);
}

TEST(contrast, of_each_text_on_each_screen_is_enough)
{
    desktop_machine pc;
    trainer t(pc);
    form* const screens[] = {&t.startsim.window, &t.simulator.window, &t.thermal.window,
                             &t.results.window,  &t.rauthor.window,   &t.joycal.window};
    int texts = 0;
    for (const form* f : screens)
        for (const screen_object* o : f->objects) {
            const bool text = o->kind != object_kind::image && o->kind != object_kind::shape;
            // Numbers over a picture and the marks of the sight have a dark rim of their own.
            const bool rimmed = o->ForeColor == colour::darkred || o->ForeColor == colour::sight;
            if (!text || rimmed) continue;
            const QColor ink = shade(
                o->kind == object_kind::frame && o->ForeColor == colour::text ? colour::dim : o->ForeColor);
            const QColor ground = o->kind == object_kind::frame ? QColor(furniture::panel) : behind(*o);
            EXPECT_GE(contrast(ink, ground), 4.5)
                << f->name << ": " << o->Caption << o->Text << o->AccessibleName << ' '
                << ink.name().toStdString() << " on " << ground.name().toStdString();
            ++texts;
        }
    EXPECT_GT(texts, 250);
}

// The words of the title stand on its picture, those of the manual on the page of its viewer.
TEST(contrast, of_the_title_and_of_the_manual_is_enough)
{
    desktop_machine pc;
    trainer t(pc);
    pc.default_directory = VORN_SOURCE_DIR "/data";
    screen_object* const words[] = {&t.intro.Label1, &t.intro.lblstart, &t.intro.lblabout, &t.intro.lblhelp,
                                    &t.intro.lblexit};
    pc.run([&] {
        show(pc, t.intro.window);
        for (screen_object* o : words) o->Visible = false;
        t.intro.Label2.Visible = false;
    });
    const QImage picture = pc.window(t.intro.window)->grab().toImage();
    const double scale = picture.width() / form_width;
    for (const screen_object* o : words) {
        int pale = 0;
        for (double y = o->Top * scale; y < (o->Top + o->Height) * scale; ++y)
            for (double x = o->Left * scale; x < (o->Left + o->Width) * scale; ++x)
                for (const colour ink : {o->ForeColor, colour::highlight})
                    pale += contrast(shade(ink), picture.pixelColor(int(x), int(y))) < 4.5;
        EXPECT_EQ(pale, 0) << o->Caption;
    }
    const QPalette page = form_palette();
    for (const QColor& ink : {page.color(QPalette::Text), shade(colour::live), shade(colour::highlight)})
        EXPECT_GE(contrast(ink, page.color(QPalette::Base)), 4.5) << ink.name().toStdString();
}

QAccessibleInterface* interface(const desktop_machine& pc, const screen_object& o)
{
    return QAccessible::queryAccessibleInterface(pc.window(*o.owner)->widget(o));
}

QString heard(const desktop_machine& pc, const screen_object& o)
{
    return interface(pc, o)->text(QAccessible::Name);
}

TEST(keyboard_and_reader, have_a_way_to_and_a_name_for_whatever_can_be_worked)
{
    desktop_machine pc;
    trainer t(pc);
    pc.default_directory = VORN_SOURCE_DIR "/data";
    for (form* f : {&t.intro.window, &t.startsim.window, &t.simulator.window, &t.thermal.window,
                    &t.results.window, &t.rauthor.window, &t.joycal.window}) {
        f->arrival = nullptr;   // the screen alone, as it is designed
        pc.run([&] { show(pc, *f); });
        ASSERT_TRUE(QTest::qWaitForWindowActive(pc.window(*f)));
        const std::vector<QWidget*> round = tab_order(*pc.window(*f));
        const std::set<QWidget*> reached(round.begin(), round.end());
        for (const screen_object* o : f->objects) {
            const bool worked = o->Click || o->Change || o->MouseDown || o->kind == object_kind::textbox;
            if (!worked || in_sight(*o)) continue;
            EXPECT_FALSE(heard(pc, *o).isEmpty()) << f->name << " at " << o->Left << ' ' << o->Top;
            const bool in_group = o->kind == object_kind::option && o->Value == 0;   // the arrows lead there
            EXPECT_TRUE(reached.contains(pc.window(*f)->widget(*o)) || in_group || !takes_input(*o))
                << f->name << ": " << heard(pc, *o).toStdString();
        }
    }
    EXPECT_EQ(heard(pc, t.startsim.Frmsystem), "System") << "not OPTIONS, in which it lies";
    EXPECT_EQ(heard(pc, t.simulator.Frame5), "Lights");
    EXPECT_EQ(interface(pc, t.results.Imgrange)->role(), QAccessible::Graphic);
    EXPECT_EQ(interface(pc, t.rauthor.Imgtarget[1])->role(), QAccessible::Button);
    pc.run([&] { show(pc, t.simulator.window); });
    for (const bool on : {false, true}) {
        pc.run([&] { t.simulator.Imghesh.Visible = !on; });
        EXPECT_EQ(interface(pc, t.simulator.Imghesh)->state().invisible, on);
        EXPECT_EQ(interface(pc, t.simulator.Imgheshon)->state().invisible, !on) << "it lies beneath";
    }
    pc.run([&] {
        t.results.lbltargetrange.Caption = "1200";
        t.results.Lblsystem.Caption = "FULL";
        showplaced(t.rauthor, 3);
    });
    EXPECT_EQ(heard(pc, t.results.lbltargetrange), "TARGET RANGE 1200");
    EXPECT_EQ(heard(pc, t.results.Lblsystem), "SYSTEM FULL");
    EXPECT_EQ(heard(pc, t.rauthor.Lbltargetnum[3]), "Placed, target number 3");
    EXPECT_EQ(heard(pc, t.rauthor.Lbltargetnum[4]), "Target number 4");
}

}   // namespace vorn::desktop_tests
