#include "fixture.h"

namespace vorn::desktop_tests {

struct keys : desktop_test {
    void listen()
    {
        one.f.KeyDown = [this](int code) { log.push_back("down " + std::to_string(code)); };
        one.f.KeyUp = [this](int code) { log.push_back("up " + std::to_string(code)); };
    }
};

TEST_F(keys, go_to_the_form_once_and_then_to_the_focused_object)
{
    screen_object& text = one.put(textbox({0, 0, 1500, 300}, ""));
    button("click");
    listen();
    open(one);
    widget<QLineEdit>(text).setFocus();
    press(Qt::Key_U);
    release(Qt::Key_U);
    QTest::keyClick(handle(one), Qt::Key_Tab);
    QTest::keyClick(handle(one), Qt::Key_Space);
    EXPECT_EQ(log, (strings{"down 85", "up 85", "down 9", "up 9", "down 32", "up 32", "click"}));
    EXPECT_EQ(widget<QLineEdit>(text).text(), "u");
}

TEST_F(keys, auto_repeat_sends_key_downs_and_one_key_up)
{
    listen();
    open(one);
    press(Qt::Key_H);
    for (int i = 0; i < 2; ++i) {
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_H, {}, "h", true);
        QKeyEvent down(QEvent::KeyPress, Qt::Key_H, {}, "h", true);
        QCoreApplication::sendEvent(handle(one), &up);
        QCoreApplication::sendEvent(handle(one), &down);
    }
    release(Qt::Key_H);
    release(Qt::Key_H);
    EXPECT_EQ(log, (strings{"down 72", "down 72", "down 72", "up 72"}));
}

TEST_F(keys, are_released_when_the_window_is_deactivated_or_a_box_opens)
{
    listen();
    open(one);
    press(Qt::Key_J);
    press(Qt::Key_S);
    send(window(one), QEvent::WindowDeactivate);
    EXPECT_EQ(log.size(), 4U);
    log.clear();
    // The key-up comes while the box is open, and the counted move in its handler doesn't delay the box.
    one.f.KeyUp = [&](int code) {
        EXPECT_NE(QApplication::activeModalWidget(), nullptr);
        pc.pace(60);
        log.push_back("up " + std::to_string(code));
    };
    press(Qt::Key_N);
    answer(Qt::Key_Escape);
    pc.run([&] {
        pc.message_box({"DEBRIEF FIRER ?", "SIMULATOR", box_buttons::yes_no});
        log.push_back("answered");
    });
    release(Qt::Key_N);
    EXPECT_EQ(log, (strings{"down 78", "up 78", "answered"}));
}

TEST_F(keys, of_an_access_key_click_its_button_and_do_not_go_to_the_form)
{
    screen_object& start = button("click", nullptr, "&START SIM");
    constexpr int alt = 18;
    one.f.KeyDown = one.f.KeyUp = [&](int code) {
        if (code != alt) log.push_back(std::to_string(code));
    };
    open(one);
    QTest::keyClick(handle(one), Qt::Key_S, Qt::AltModifier);
    QTest::keyClick(handle(one), Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(log, strings{"click"});
    pc.run([&] { start.Enabled = false; });
    QTest::keyClick(handle(one), Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(log, strings{"click"});
}

TEST_F(keys, click_the_buttons_of_a_hidden_panel)
{
    screen_object& panel = one.put(frame({0, 0, 3000, 3000}, ""));
    screen_object &start = button("start", &panel, "&START SIM"), &leave = button("leave", &panel);
    one.f.panel_keys = {{'S', true, &start}, {27, false, &leave}};
    const auto both = [&] {
        QTest::keyClick(handle(one), Qt::Key_S, Qt::AltModifier);
        press(Qt::Key_Escape);
        press(Qt::Key_Escape);   // auto-repeat
        release(Qt::Key_Escape);
        return std::exchange(log, {});
    };
    open(one);
    EXPECT_EQ(both(), strings{"start"}) << "as an access key";
    pc.run([&] { panel.Visible = false; });
    EXPECT_EQ(both(), (strings{"start", "leave"}));
    QTest::keyClick(handle(one), Qt::Key_S, Qt::AltModifier | Qt::ControlModifier);   // AltGr
    EXPECT_TRUE(log.empty());
}

TEST_F(keys, a_held_return_answers_no_box_and_clicks_a_button_once)
{
    screen_object& exit = button("click");
    exit.Click = [&] {
        log.push_back("click");
        pc.message_box({"ARE YOU SURE ?", "V.O.R.N."});
        log.push_back("answered");
    };
    open(one);
    widget(exit).setFocus();
    when_box<QMessageBox>([&](QMessageBox& box) {
        QTest::keyPress(box.windowHandle(), Qt::Key_Return);
        EXPECT_TRUE(box.isVisible());
        QTest::keyRelease(box.windowHandle(), Qt::Key_Return);
        QTest::keyPress(box.windowHandle(), Qt::Key_Return);
        EXPECT_FALSE(box.isVisible());
    });
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    EXPECT_EQ(log, (strings{"click", "answered"}));
}

// The box closes before the key is released, and no window gets the release event.
TEST_F(keys, whose_release_was_missed_count_as_pressed_again)
{
    const screen_object& ok = button("click");
    bool down = true, asked = false;
    pc.key_is_down = [&](quint32) {
        asked = true;
        return down;
    };
    open(one);
    widget(ok).setFocus();
    const auto answered_and_pressed_again = [&] {
        when_box<QMessageBox>([](QMessageBox& box) { QTest::keyPress(box.windowHandle(), Qt::Key_Return); });
        pc.message_box({"NO SUCH FILE", "RANGE"});
        asked = false;
        EXPECT_TRUE(QTest::qWaitFor([&] { return asked; }));
        press(Qt::Key_Return);
        return std::exchange(log, {});
    };
    EXPECT_TRUE(answered_and_pressed_again().empty()) << "the key is still down";
    release(Qt::Key_Return);
    down = false;
    EXPECT_EQ(answered_and_pressed_again(), strings{"click"});
}

TEST_F(keys, of_the_gun_answer_no_box)
{
    double seconds = 100;
    pc.world_clock = [&] { return seconds; };
    // Whether No was pressed. Qt marks a button as down before it closes the box.
    const auto answered = [&](const std::function<void(QMessageBox&)>& act) {
        bool no = false;
        when_box<QMessageBox>([&](QMessageBox& box) {
            act(box);
            no = box.button(QMessageBox::No)->isDown();
            box.reject();
        });
        pc.message_box({"DEBRIEF FIRER ?", "SIMULATOR", box_buttons::yes_no});
        return no;
    };
    const auto tap = [](QMessageBox& box, Qt::KeyboardModifiers m = {}) {
        QTest::keyClick(box.windowHandle(), Qt::Key_N, m);
    };
    open(one);
    EXPECT_FALSE(answered([&](QMessageBox& box) {
        tap(box);
        seconds += 0.9;
        tap(box);
    })) << "less than a second after the box opened";
    EXPECT_TRUE(answered([&](QMessageBox& box) { tap(box, Qt::AltModifier); }));
    press(Qt::Key_N);
    EXPECT_FALSE(answered([&](QMessageBox& box) {
        seconds += 1.1;
        QTest::keyPress(box.windowHandle(), Qt::Key_N);
    })) << "the key was held when the box opened";
    release(Qt::Key_N);
    EXPECT_TRUE(answered([&](QMessageBox& box) {
        seconds += 1.1;
        when_box<QMessageBox>([](QMessageBox& over) { over.accept(); },
                              [&] { return QApplication::activeModalWidget() != &box; });
        pc.message_box({"NO SUCH FILE", "RANGE"});
        tap(box);
    })) << "a letter answers a box that has been open for a second, even after another box over it";
}

TEST_F(keys, a_held_space_repeats_in_a_text_and_clicks_a_button_once)
{
    screen_object& text = one.put(textbox({0, 0, 1500, 300}, ""));
    screen_object& ok = button("click");
    open(one);
    for (const screen_object* o : {&text, &ok}) {
        widget(*o).setFocus();
        for (int i = 0; i < 3; ++i) QTest::keyPress(handle(one), ' ');
        release(Qt::Key_Space);
    }
    EXPECT_EQ(text.Text, "   ");
    EXPECT_EQ(log, strings{"click"});
}

TEST(virtual_keys, are_found_by_label_and_without_latin_letters_by_position)
{
    constexpr Qt::KeyboardModifiers plain{}, pad = Qt::KeypadModifier, shift = Qt::ShiftModifier;
    const auto code = [](int key, quint32 scan, Qt::KeyboardModifiers m) {
        return virtual_key(QKeyEvent(QEvent::KeyPress, key, m, scan, 0, 0));
    };
    EXPECT_EQ(code(Qt::Key_A, 24, plain), 'A') << "A on a French keyboard";
    EXPECT_EQ(code(0x0423, 26, plain), 'E') << "a Cyrillic letter on the key at the position of E";
    EXPECT_EQ(code(Qt::Key_Exclam, 10, shift), '1');
    EXPECT_EQ(code(Qt::Key_7, 16, plain), '7');
    EXPECT_EQ(code(Qt::Key_7, 79, pad), 103);
    EXPECT_EQ(code(Qt::Key_F5, 71, plain), 116);
    EXPECT_EQ(code(Qt::Key_Escape, 9, plain), 27);
    EXPECT_EQ(code(Qt::Key_VolumeUp, 123, plain), 0);
}

}   // namespace vorn::desktop_tests
