#include "fixture.h"

namespace vorn::desktop_tests {

using kind = object_kind;

struct objects : desktop_test {};

TEST_F(objects, show_their_fields_after_the_handler)
{
    screen_object& frame = one.put(placed(kind::frame, {1500, 1500, 6000, 4500}));
    screen_object& label = one.put(placed(kind::label, {300, 600, 1500, 300}), &frame);
    screen_object& text = one.put(placed(kind::textbox, {300, 1200, 1500, 300}), &frame);
    screen_object& slider = one.put(placed(kind::slider, {300, 1800, 1500, 300}), &frame);
    open(one);
    pc.run([&] {
        frame.Caption = "System & status";
        label.Caption = "<b>FULL</b>";
        label.ForeColor = colour::red;
        label.ToolTipText = "STATUS";
        text.Text = "nameless";
        text.Enabled = false;
        text.ReadOnly = true;
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
    EXPECT_TRUE(widget<QLineEdit>(text).isReadOnly() && !widget<QLineEdit>(text).isEnabled());
    EXPECT_EQ(widget<QSlider>(slider).value(), 110);
    EXPECT_EQ(widget<QSlider>(slider).pageStep(), 10);
    pc.run([&] {
        frame.Left += 300;
        slider.Left = 30000;
        slider.Within = {300, 300, 4500, 3000};
    });
    EXPECT_EQ(widget<QLabel>(label).mapTo(&window(one), QPoint()), QPoint(140, 140));
    EXPECT_EQ(widget<QSlider>(slider).pos(), QPoint(220, 120)) << "at the edge of its area";
}

TEST_F(objects, of_a_hidden_or_disabled_frame_are_hidden_or_disabled)
{
    screen_object& frame = one.put(placed(kind::frame, {0, 0, 6000, 6000}));
    const screen_object& inner = button("click", &frame);
    open(one);
    pc.run([&] { frame.Visible = false; });
    EXPECT_FALSE(widget(inner).isVisible());
    pc.run([&] {
        frame.Visible = true;
        frame.Enabled = false;
    });
    EXPECT_TRUE(widget(inner).isVisible() && !widget(inner).isEnabled());
    click(inner);
    EXPECT_TRUE(log.empty());
    pc.run([&] { frame.Enabled = true; });
    click(inner);
    EXPECT_EQ(log.size(), 1U);
}

TEST_F(objects, a_disabled_button_passes_its_focus_to_no_other)
{
    screen_object &start = button("start"), &help = button("help");
    start.Click = [&] { start.Enabled = false; };
    open(one);
    widget(start).setFocus();
    for (int i = 0; i < 2; ++i) QTest::keyClick(handle(one), Qt::Key_Space);
    EXPECT_FALSE(start.Enabled);
    EXPECT_TRUE(log.empty());
    pc.run([&] { start.Enabled = true; });
    EXPECT_TRUE(widget(start).hasFocus()) << "the focus returns";
    pc.run([&] { start.Enabled = false; });
    press(Qt::Key_Tab);
    pc.run([&] { start.Enabled = true; });
    EXPECT_TRUE(widget(help).hasFocus()) << "the user has moved the focus";
    pc.run([&] {
        start.Enabled = false;
        one.f.takes_focus = &start;
        start.Enabled = true;
    });
    EXPECT_TRUE(widget(start).hasFocus()) << "the handler has set the focus";
    EXPECT_EQ(one.f.takes_focus, nullptr);
}

TEST_F(objects, an_option_is_reported_once_when_it_is_selected)
{
    screen_object& left = one.put(frame({0, 0, 3000, 6000}, ""));
    screen_object& right = one.put(frame({4000, 0, 3000, 6000}, ""));
    screen_object& a = one.put(option({150, 600, 1800, 300}, "a", true), &left);
    screen_object& b = one.put(option({150, 1200, 1800, 300}, "b"), &left);
    screen_object& other = one.put(option({150, 600, 1800, 300}, "other", true), &right);
    const auto chosen = [&](const screen_object& o) { return widget<QRadioButton>(o).isChecked(); };
    for (screen_object* o : {&a, &b, &other}) o->Click = [=, this] { log.push_back(o->Caption); };
    open(one);
    click(a);
    EXPECT_TRUE(log.empty());
    click(b);
    click(b);
    EXPECT_EQ(log, strings{"b"});
    EXPECT_TRUE(chosen(b) && !chosen(a) && chosen(other));
    widget<QRadioButton>(b).setFocus();
    press(Qt::Key_Up);
    EXPECT_EQ(log.back(), "a");
    EXPECT_TRUE(a.Value == 1 && b.Value == 0);
    pc.run([&] { a.Value = 0; });
    EXPECT_FALSE(chosen(a) || chosen(b));
    pc.run([&] {
        left.Enabled = false;
        select_option(b);
    });
    EXPECT_TRUE(chosen(b));
}

TEST_F(objects, report_each_change_once_and_show_the_value_that_the_handler_sets)
{
    screen_object& check = one.put(placed(kind::checkbox, {0, 0, 1500, 300}));
    screen_object& slider = one.put(vorn::slider({0, 600, 1500, 300}, 0, 10, 0));
    screen_object& text = one.put(textbox({0, 1200, 1500, 300}, "ac"));
    check.Click = [&] { check.Value = 0; };
    slider.Change = [&] { log.push_back(std::to_string(slider.Value)); };
    text.Change = [&] {
        log.push_back(text.Text);
        text.ForeColor = colour::live;
    };
    open(one);
    click(check);
    EXPECT_FALSE(widget<QCheckBox>(check).isChecked());
    widget<QSlider>(slider).setValue(4);
    for (const int value : {4, 7}) pc.run([&] { set_slider(slider, value); });
    EXPECT_EQ(widget<QSlider>(slider).value(), 7);
    auto& box = widget<QLineEdit>(text);
    box.setCursorPosition(1);
    QTest::keyClicks(&box, "bb");
    EXPECT_EQ(box.cursorPosition(), 3);
    EXPECT_EQ(log, (strings{"4", "7", "abc", "abbc"}));
    slider.Change = [&] { slider.Value = 3; };
    text.Change = [&] { text.Text = "ONE"; };
    widget<QSlider>(slider).setValue(9);
    QTest::keyClicks(&box, "o");
    EXPECT_EQ(widget<QSlider>(slider).value(), 3);
    EXPECT_EQ(box.text(), "ONE");
}

TEST_F(objects, a_text_box_that_gets_the_focus_selects_its_text)
{
    screen_object& name = one.put(textbox({0, 0, 1500, 300}, "nameless"));
    screen_object& number = one.put(textbox({0, 600, 1500, 300}, "000"));
    const screen_object& next = button("next");
    open(one);
    auto& box = widget<QLineEdit>(name);
    EXPECT_EQ(box.selectedText(), "nameless") << "the initial focus";
    click(number);
    QTest::keyClicks(&widget<QLineEdit>(number), "123");
    EXPECT_EQ(number.Text, "123");
    QTest::mouseClick(&widget<QLineEdit>(number), Qt::LeftButton, {}, QPoint(90, 10));
    QTest::keyClicks(&widget<QLineEdit>(number), "4");
    EXPECT_EQ(number.Text, "1234") << "a second click sets the cursor";
    click(next);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(widget<QLineEdit>(number).selectedText(), "1234");
}

TEST_F(objects, a_picture_reports_where_it_was_clicked_and_is_faint_if_pale)
{
    screen_object& picture = one.put(image({1500, 1500, 3000, 1500}, ":lamp_green"));
    picture.ClickAt = [&](double x, double y) {
        log.push_back(std::to_string(std::lround(x)) + ' ' + std::to_string(std::lround(y)));
    };
    open(one, 2048, 1536);
    QTest::mouseClick(&widget(picture), Qt::LeftButton, {}, QPoint(100, 60));
    EXPECT_EQ(log, strings{"750 450"});
    const QPoint middle(200, 100);
    const QColor full = colour_at(widget(picture).grab().toImage(), middle);
    pc.run([&] { picture.Pale = true; });
    const QColor pale = colour_at(widget(picture).grab().toImage(), middle);
    EXPECT_LT(pale.green(), full.green() - 30);
    pc.run([&] { picture.Enabled = false; });
    QTest::mouseClick(&widget(picture), Qt::LeftButton);
    EXPECT_EQ(log.size(), 1U);
}

TEST_F(objects, labels_and_pictures_with_a_handler_are_clicked_by_mouse_and_keyboard)
{
    screen_object& words = one.put(label({0, 0, 1500, 600}, "S&AVE", colour::red));
    screen_object& picture = one.put(image({0, 1500, 1500, 600}));
    one.put(label({0, 0, 1500, 600}, "a label over `words` that ignores the mouse"));
    words.Click = picture.Click = [&] { log.push_back("click"); };
    open(one);
    QTest::mouseClick(window(one).childAt(50, 20), Qt::LeftButton);
    click(picture);
    for (const screen_object* o : {&words, &picture}) {
        widget(*o).setFocus();
        QTest::keyClick(handle(one), Qt::Key_Space);
    }
    EXPECT_EQ(log.size(), 4U);
    EXPECT_EQ(widget(words).palette().color(QPalette::ButtonText), shade(colour::red));
    QTest::keyClick(handle(one), Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(log.size(), 4U) << "only buttons have access keys";
}

TEST_F(objects, the_caption_of_an_option_is_condensed_to_fit)
{
    // Disabled, so that it draws no focus frame.
    screen_object& o = one.put(disabled(option({0, 0, 1500, 330}, "Self degrading")));
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
    const int pixel = static_cast<int>(seen.devicePixelRatio());
    EXPECT_TRUE(blank(seen.width() - 1) && !blank(seen.width() - 7 * pixel));
}

struct mouse : desktop_test {
    screen_object& hold = one.put(placed(kind::button, {1500, 1500, 1500, 600}));
    mouse()
    {
        hold.MouseDown = [this] { log.push_back("down"); };
        hold.MouseUp = [this] { log.push_back("up"); };
    }
    const strings pair{"down", "up"};
};

TEST_F(mouse, space_presses_a_button_until_it_is_released_or_another_gets_focus_or_press)
{
    screen_object& other = one.put(placed(kind::button, {1500, 3000, 1500, 600}));
    other.MouseDown = [this] { log.push_back("other down"); };
    other.MouseUp = [this] { log.push_back("other up"); };
    open(one);
    const auto space_on_button = [&] {
        log.clear();
        widget(hold).setFocus();
        press(Qt::Key_Space);
        EXPECT_EQ(log, strings{"down"});
    };
    space_on_button();
    release(Qt::Key_Space);
    EXPECT_EQ(log, pair);
    space_on_button();
    widget(other).setFocus();
    release(Qt::Key_Space);
    EXPECT_EQ(log, pair);
    space_on_button();
    QTest::mousePress(&widget(other), Qt::LeftButton);
    release(Qt::Key_Space);
    EXPECT_EQ(log, (strings{"down", "up", "other down"}));
    QTest::mouseRelease(&widget(other), Qt::LeftButton);
    EXPECT_EQ(log.back(), "other up");
}

TEST_F(mouse, a_press_ends_with_the_release_anywhere_or_when_the_button_or_the_screen_goes)
{
    open(one);
    QWidget* w = &widget(hold);
    QTest::mouseClick(w, Qt::RightButton);
    EXPECT_TRUE(log.empty());
    const QPoint beside(900, 700);
    const std::vector<std::function<void()>> ends{[&] { QTest::mouseRelease(w, Qt::LeftButton, {}, beside); },
                                                  [&] { pc.run([&] { hold.Enabled = false; }); },
                                                  [&] { pc.run([&] { hide(pc, one.f); }); },
                                                  [&] { send(window(one), QEvent::WindowDeactivate); }};
    for (const auto& end : ends) {
        log.clear();
        pc.run([&] {
            show(pc, one.f);
            hold.Enabled = true;
        });
        QTest::mousePress(w, Qt::LeftButton);
        EXPECT_EQ(log, strings{"down"});
        end();
        EXPECT_EQ(log, pair);
        QTest::mouseRelease(w, Qt::LeftButton);
        EXPECT_EQ(log, pair);
    }
}

TEST_F(mouse, a_box_ends_a_press_and_leaves_no_button_down)
{
    hold.MouseDown = [&] {
        log.push_back("down");
        pc.message_box({"LASER FAULT", "SIMULATOR"});
        log.push_back("box closed");
    };
    open(one);
    answer(Qt::Key_Return);
    QTest::mousePress(&widget(hold), Qt::LeftButton);
    EXPECT_EQ(log, (strings{"down", "up", "box closed"}));
    EXPECT_FALSE(widget<QPushButton>(hold).isDown());
}

TEST_F(mouse, a_box_ends_the_drag_of_a_slider)
{
    screen_object& slider = one.put(vorn::slider({0, 3000, 3000, 300}, 0, 100, 0));
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

TEST_F(mouse, moves_are_reported_to_the_object_its_frame_or_the_form_until_it_leaves)
{
    screen_object& panel = one.put(frame({4500, 4500, 3000, 3000}, ""));
    hold.MouseMove = [&] { log.push_back("button"); };
    panel.MouseMove = [&] { log.push_back("frame"); };
    one.f.MouseMove = [&] { log.push_back("form"); };
    one.f.MouseLeave = [&] { log.push_back("left"); };
    one.put(label({300, 300, 1500, 600}, "without a handler"), &panel);
    const screen_object& choice = one.put(option({300, 1200, 1500, 400}, ""), &panel);
    open(one);
    QTest::mouseMove(&widget(hold));
    QTest::mouseMove(&widget(panel), QPoint(40, 40));
    QTest::mouseMove(&widget(choice), QPoint(5, 5));
    QTest::mouseMove(&window(one), QPoint(10, 10));
    send(window(one), QEvent::Leave);
    EXPECT_EQ(log, (strings{"button", "frame", "frame", "form", "left"}))
        << "objects without a handler report to their frame";
    pc.run([&] { unload(pc, one.f); });
    send(window(one), QEvent::Leave);
    EXPECT_EQ(log.size(), 5U);
}

}   // namespace vorn::desktop_tests
