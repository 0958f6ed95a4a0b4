#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>

#include "fixture.h"

namespace vorn::desktop_tests {

using kind = object_kind;

struct objects : desktop_test {
    screen_object& option(double top, screen_object* parent)
    {
        screen_object& o = one.put(kind::option, 150, top, 1800, 300, parent);
        o.Click = [&o, this] { log.push_back("option " + o.Caption); };
        return o;
    }
    bool chosen(const screen_object& o) const { return widget<QRadioButton>(o).isChecked(); }
};

TEST_F(objects, show_what_their_fields_say_when_the_handler_is_done)
{
    screen_object& frame = one.put(kind::frame, 1500, 1500, 6000, 4500);
    screen_object& label = one.put(kind::label, 300, 600, 1500, 300, &frame);
    screen_object& text = one.put(kind::textbox, 300, 1200, 1500, 300, &frame);
    screen_object& slider = one.put(kind::slider, 300, 1800, 1500, 300, &frame);
    open(one);
    pc.run([&] {
        frame.Caption = "System & status";
        label.Caption = "<b>FULL</b>";
        label.ForeColor = colour::red;
        label.ToolTipText = "STATUS";
        text.Text = "nameless";
        text.Enabled = false;
        slider.Min = 1;
        slider.Max = 160;
        slider.Value = 110;
        slider.LargeChange = 10;
    });
    EXPECT_EQ(widget<QLabel>(label).text(), "<b>FULL</b>");
    EXPECT_EQ(widget<QLabel>(label).textFormat(), Qt::PlainText);
    EXPECT_EQ(widget<QLabel>(label).palette().color(QPalette::WindowText), shade(colour::red));
    EXPECT_EQ(widget<QLabel>(label).toolTip(), "STATUS");
    EXPECT_EQ(widget<QLabel>(label).geometry(), QRect(20, 40, 100, 20));
    EXPECT_EQ(widget<QLabel>(label).mapTo(&window(one), QPoint()), QPoint(120, 140));
    EXPECT_EQ(widget<QLineEdit>(text).text(), "nameless");
    EXPECT_FALSE(widget<QLineEdit>(text).isEnabled());
    EXPECT_EQ(widget<QSlider>(slider).value(), 110);
    EXPECT_EQ(widget<QSlider>(slider).pageStep(), 10);
    pc.run([&] { frame.Left += 300; });
    EXPECT_EQ(widget<QLabel>(label).mapTo(&window(one), QPoint()), QPoint(140, 140));
}

TEST_F(objects, a_hidden_or_disabled_frame_takes_what_it_holds_along)
{
    screen_object& frame = one.put(kind::frame, 0, 0, 6000, 6000);
    screen_object& button = one.put(kind::button, 300, 600, 1500, 300, &frame);
    button.Click = [&] { log.push_back("click"); };
    open(one);
    pc.run([&] { frame.Visible = false; });
    EXPECT_FALSE(widget<QPushButton>(button).isVisible());
    pc.run([&] {
        frame.Visible = true;
        frame.Enabled = false;
    });
    EXPECT_TRUE(widget<QPushButton>(button).isVisible());
    EXPECT_FALSE(widget<QPushButton>(button).isEnabled());
    click(button);
    EXPECT_TRUE(log.empty());
    pc.run([&] { frame.Enabled = true; });
    click(button);
    EXPECT_EQ(log.size(), 1U);
}

TEST_F(objects, the_focus_of_a_button_that_is_disabled_goes_to_no_other)
{
    screen_object& start = one.put(kind::button, 0, 0, 1500, 300);
    screen_object& help = one.put(kind::button, 1500, 0, 1500, 300);
    help.Click = [&] { log.push_back("help"); };
    start.Click = [&] { start.Enabled = false; };
    open(one);
    window(one).widget(start)->setFocus();
    for (int i = 0; i < 2; ++i) {
        press(one, Qt::Key_Space);
        release(one, Qt::Key_Space);
    }
    EXPECT_FALSE(start.Enabled);
    EXPECT_TRUE(log.empty());
    pc.run([&] { start.Enabled = true; });
    EXPECT_TRUE(window(one).widget(start)->hasFocus()) << "it has the focus again";
    pc.run([&] { start.Enabled = false; });
    press(one, Qt::Key_Tab);
    pc.run([&] { start.Enabled = true; });
    EXPECT_TRUE(window(one).widget(help)->hasFocus()) << "the user has gone on";
}

TEST_F(objects, an_option_runs_once_when_it_becomes_the_chosen_one_of_its_frame)
{
    screen_object& left = one.put(kind::frame, 0, 0, 3000, 6000);
    screen_object& right = one.put(kind::frame, 4000, 0, 3000, 6000);
    screen_object& a = option(600, &left);
    screen_object& b = option(1200, &left);
    screen_object& other = option(600, &right);
    a.Caption = "a";
    b.Caption = "b";
    a.Value = other.Value = 1;
    open(one);
    click(a);
    EXPECT_TRUE(log.empty());
    click(b);
    click(b);
    EXPECT_EQ(log, std::vector<std::string>{"option b"});
    EXPECT_TRUE(chosen(b) && !chosen(a) && chosen(other));
    widget<QRadioButton>(b).setFocus();
    press(one, Qt::Key_Up);
    EXPECT_EQ(log.back(), "option a");
    EXPECT_TRUE(a.Value == 1 && b.Value == 0);
    pc.run([&] { a.Value = 0; });
    EXPECT_FALSE(chosen(a) || chosen(b));
    pc.run([&] {
        left.Enabled = false;
        select_option(b);
    });
    EXPECT_TRUE(chosen(b));
}

TEST_F(objects, what_a_handler_takes_back_is_not_seen)
{
    screen_object& check = one.put(kind::checkbox, 0, 0, 1500, 300);
    screen_object& slider = one.put(kind::slider, 0, 600, 1500, 300);
    screen_object& text = one.put(kind::textbox, 0, 1200, 1500, 300);
    slider.Max = 10;
    check.Click = [&] { check.Value = 0; };
    slider.Change = [&] { slider.Value = 3; };
    text.Change = [&] { text.Text = "ONE"; };
    open(one);
    click(check);
    widget<QSlider>(slider).setValue(9);
    QTest::keyClicks(&widget<QLineEdit>(text), "o");
    EXPECT_FALSE(widget<QCheckBox>(check).isChecked());
    EXPECT_EQ(widget<QSlider>(slider).value(), 3);
    EXPECT_EQ(widget<QLineEdit>(text).text(), "ONE");
}

TEST_F(objects, a_slider_runs_on_a_new_position_alone_whoever_moves_it)
{
    screen_object& slider = one.put(kind::slider, 0, 600, 1500, 300);
    slider.Max = 10;
    slider.Change = [&] { log.push_back(std::to_string(slider.Value)); };
    open(one);
    widget<QSlider>(slider).setValue(4);
    pc.run([&] { set_slider(slider, 4); });
    pc.run([&] { set_slider(slider, 7); });
    EXPECT_EQ(log, (std::vector<std::string>{"4", "7"}));
    EXPECT_EQ(widget<QSlider>(slider).value(), 7);
}

TEST_F(objects, typing_reports_each_change_and_keeps_the_cursor)
{
    screen_object& text = one.put(kind::textbox, 0, 0, 1500, 300);
    text.Text = "ac";
    text.Change = [&] {
        log.push_back(text.Text);
        text.ForeColor = colour::live;
    };
    open(one);
    auto& box = widget<QLineEdit>(text);
    box.setCursorPosition(1);
    QTest::keyClicks(&box, "bb");
    EXPECT_EQ(log, (std::vector<std::string>{"abc", "abbc"}));
    EXPECT_EQ(box.cursorPosition(), 3);
}

TEST_F(objects, labels_and_pictures_with_a_click_are_worked_by_mouse_and_keyboard)
{
    screen_object& label = one.put(kind::label, 0, 0, 1500, 600);
    screen_object& picture = one.put(kind::image, 0, 1500, 1500, 600);
    screen_object& caption = one.put(kind::label, 0, 0, 1500, 600);
    label.Caption = "S&AVE";
    label.ForeColor = colour::red;
    label.Click = picture.Click = [&] { log.push_back("click"); };
    caption.Caption = "a label that lies over them and has no use for the mouse";
    open(one);
    QTest::mouseClick(window(one).childAt(50, 20), Qt::LeftButton);
    click(picture);
    for (const screen_object* o : {&label, &picture}) {
        pc.window(one.f)->widget(*o)->setFocus();
        QTest::keyClick(handle(one), Qt::Key_Space);
    }
    EXPECT_EQ(log.size(), 4U);
    EXPECT_EQ(window(one).widget(label)->palette().color(QPalette::ButtonText), shade(colour::red));
    QTest::keyClick(handle(one), Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(log.size(), 4U) << "'&' names an access key in buttons alone";
}

TEST_F(objects, the_caption_of_an_option_is_narrowed_rather_than_cut)
{
    screen_object& o = one.put(kind::option, 0, 0, 1500, 330);
    o.Caption = "Self degrading";
    o.Enabled = false;   // without the frame of the focus
    open(one);
    auto& button = widget<QRadioButton>(o);
    const int mark = button.style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth);
    const int mark_and_text = mark + 6 + button.fontMetrics().horizontalAdvance("Self degrading");
    pc.run([&] { o.Width = (mark_and_text - 6) * twips_per_pixel; });
    const QImage seen = button.grab().toImage();
    const auto blank = [&](int x) {
        for (int y = 0; y < seen.height(); ++y)
            if (seen.pixel(x, y) != seen.pixel(x, 0)) return false;
        return true;
    };
    EXPECT_TRUE(blank(seen.width() - 1) && !blank(seen.width() - 7));
}

struct mouse : objects {
    screen_object& button = one.put(kind::button, 1500, 1500, 1500, 600);
    void hook()
    {
        button.MouseDown = [this] { log.push_back("down"); };
        button.MouseUp = [this] { log.push_back("up"); };
    }
    const std::vector<std::string> pair{"down", "up"};
};

TEST_F(mouse, a_hold_ends_with_the_release_wherever_it_comes)
{
    hook();
    open(one);
    QWidget* w = window(one).widget(button);
    QTest::mousePress(w, Qt::LeftButton);
    EXPECT_EQ(log, std::vector<std::string>{"down"});
    QTest::mouseRelease(w, Qt::LeftButton, {}, QPoint(900, 700));
    EXPECT_EQ(log, pair);
    QTest::mouseClick(w, Qt::RightButton);
    EXPECT_EQ(log, pair);
}

TEST_F(mouse, a_hold_ends_when_the_button_the_window_or_the_screen_goes)
{
    hook();
    open(one);
    QWidget* w = window(one).widget(button);
    const std::vector<std::function<void()>> ends{
        [&] { pc.run([&] { button.Enabled = false; }); },
        [&] { pc.run([&] { hide(pc, one.f); }); },
        [&] {
            QEvent gone(QEvent::WindowDeactivate);
            QCoreApplication::sendEvent(&window(one), &gone);
        },
    };
    for (const auto& end : ends) {
        log.clear();
        pc.run([&] {
            show(pc, one.f);
            button.Enabled = true;
        });
        QTest::mousePress(w, Qt::LeftButton);
        end();
        EXPECT_EQ(log, pair);
        QTest::mouseRelease(w, Qt::LeftButton);
        EXPECT_EQ(log, pair);
    }
}

TEST_F(mouse, a_box_that_opens_under_the_hand_ends_the_hold_and_leaves_no_button_pressed)
{
    hook();
    button.MouseDown = [&] {
        log.push_back("down");
        pc.message_box({"LASER FAULT", "SIMULATOR"});
        log.push_back("box gone");
    };
    open(one);
    answer(Qt::Key_Return);
    QTest::mousePress(window(one).widget(button), Qt::LeftButton);
    EXPECT_EQ(log, (std::vector<std::string>{"down", "up", "box gone"}));
    EXPECT_FALSE(widget<QPushButton>(button).isDown());
}

TEST_F(mouse, a_slider_that_is_held_when_a_box_comes_is_let_go)
{
    screen_object& slider = one.put(kind::slider, 0, 3000, 3000, 300);
    slider.Max = 100;
    slider.MouseMove = [] {};
    open(one);
    auto& bar = widget<QSlider>(slider);
    const auto at = [&](int x) { return QPoint(x, bar.height() / 2); };
    QTest::mousePress(&bar, Qt::LeftButton, {}, at(3));
    QTest::mouseMove(&bar, at(100));
    EXPECT_GT(slider.Value, 30);
    answer(Qt::Key_Escape);
    pc.run([&] { pc.message_box({"ARE YOU SURE ?", "V.O.R.N."}); });
    const int left_at = slider.Value;
    QTest::mouseMove(&bar, at(180));
    EXPECT_EQ(slider.Value, left_at);
    EXPECT_FALSE(bar.isSliderDown());
}

TEST_F(mouse, moves_are_told_to_what_is_under_the_mouse_and_to_the_bare_form)
{
    screen_object& frame = one.put(kind::frame, 4500, 4500, 3000, 3000);
    button.MouseMove = [&] { log.push_back("button"); };
    frame.MouseMove = [&] { log.push_back("frame"); };
    one.f.MouseMove = [&] { log.push_back("form"); };
    one.put(kind::label, 300, 300, 1500, 600, &frame).Caption = "says nothing of its own";
    const screen_object& option = one.put(kind::option, 300, 1200, 1500, 400, &frame);
    open(one);
    QTest::mouseMove(window(one).widget(button));
    QTest::mouseMove(window(one).widget(frame), QPoint(40, 40));
    QTest::mouseMove(window(one).widget(option), QPoint(5, 5));
    QTest::mouseMove(&window(one), QPoint(10, 10));
    EXPECT_EQ(log, (std::vector<std::string>{"button", "frame", "frame", "form"}))
        << "what the frame holds is in the frame";
}

}   // namespace vorn::desktop_tests
