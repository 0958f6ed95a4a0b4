// A random walk on the widgets: a simulated user who does anything at any moment, with boxes, dialogs,
// resizes and full screen. Before each action those rules of tests/walk are checked that hold at any moment,
// also while a handler runs. docs/DEVELOPING.md says how to walk longer or with another seed.
#include <random>
#include <set>

#include "trainer_fixture.h"
#include "walk/rules.h"

namespace vorn::desktop_tests {

struct random_user : trainer_test {
    random_user()
    {
        // Links all data except twins, which take long to read.
        const QDir data(VORN_SOURCE_DIR "/data/ranges");
        QDir(folder.path()).mkpath("ranges");
        for (const QString& name : data.entryList(QDir::AllEntries | QDir::NoDotAndDotDot))
            if (!name.contains("@2x")) QFile::link(data.filePath(name), folder.filePath("ranges/" + name));
        pc.default_directory = folder.path().toStdString();
        use_own_time();
        pc.leave = [] {
            std::fputs("the random user has left the program\n", stderr);
            std::_Exit(1);
        };
    }
    int below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
    bool chance(int percent) { return below(100) < percent; }
    template <class list>
    auto pick(const list& from)
    {
        return from[static_cast<decltype(std::size(from))>(below(static_cast<int>(std::size(from))))];
    }
    QPoint point_in(const QWidget& w) { return {below(w.width() + 1), below(w.height() + 1)}; }

    // The window that a user could act on, and a visible widget in it.
    QWidget* window_in_front() const
    {
        if (QWidget* popup = QApplication::activePopupWidget()) return popup;
        if (QWidget* box = QApplication::activeModalWidget()) return box;
        if (help_in_front)
            for (QWidget* w : QApplication::topLevelWidgets())
                if (w->isVisible() && dynamic_cast<form_window*>(w) == nullptr) return w;
        const form* f = front(pc);
        return f == nullptr ? nullptr : pc.window(*f);
    }
    QWidget& widget_in(QWidget& window)
    {
        QList<QWidget*> all{&window};
        for (QWidget* w : window.findChildren<QWidget*>())
            if (w->isVisible()) all << w;
        return *pick(all);
    }

    // An action runs from the main event loop or from that of a box that an earlier action has opened, never
    // from the one that QTest runs after a key: the action with the key hasn't ended then.
    void go_on()
    {
        QTimer::singleShot(0, &timers, [this] {
            QWidget* box = QApplication::activeModalWidget();
            if (box == nullptr && (left_to_do <= 0 || !broken.empty())) return loop.quit();
            go_on();
            if (acting_in && *acting_in == box) return;
            const auto outer = std::exchange(acting_in, box);
            act();
            acting_in = outer;
        });
    }
    void act()
    {
        time += chance(3) ? below(10000) / 1e3 : below(200) / 1e3;
        if (broken.empty()) broken = broken_rule(t, {});
        if (left_to_do > 0 && left_to_do % 100'000 == 0)
            std::fprintf(stderr, "%ld events left\n", left_to_do);
        if (left_to_do-- <= 0 || !broken.empty()) return leave_boxes();
        screens.insert(front(pc));
        QWidget* window = window_in_front();
        if (window == nullptr) return;
        if (auto* files = qobject_cast<QFileDialog*>(window)) return choose_file(*files);
        if (auto* box = qobject_cast<QDialog*>(window);
            box != nullptr && (answer_to_stay(*box) || chance(70)))
            return answer_box(*box);
        help_in_front = help_in_front ? !chance(10) : chance(2);
        const int what = below(100);
        if (what < 45) return use_mouse(widget_in(*window), *window);
        if (what < 90) return use_key(*window->windowHandle());
        if (what < 93) return window->resize(300 + below(900), 200 + below(700));
        if (what < 95) return send(*window, QEvent::WindowDeactivate);
        QWidget& w = widget_in(*window);
        const QPoint at = point_in(w);
        turn_wheel(w, at, chance(50) ? 1 : -1);
    }
    void use_mouse(QWidget& w, QWidget& window)
    {
        const QPoint at = w.mapTo(&window, point_in(w));
        if (!QRect({0, 0}, window.windowHandle()->size()).contains(at)) return;
        const Qt::MouseButton button = chance(95) ? Qt::LeftButton : Qt::RightButton;
        QWindow* handle = window.windowHandle();
        const int what = below(6);
        if (what == 0) return QTest::mousePress(handle, button, {}, at);
        if (what == 1) return QTest::mouseRelease(handle, button, {}, at);
        if (what == 2) return QTest::mouseMove(handle, at);
        if (what == 3) return QTest::mouseDClick(handle, button, {}, at);
        QTest::mouseClick(handle, button, {}, at);
    }
    void use_key(QWindow& handle)
    {
        static constexpr Qt::Key keys[] = {
            Qt::Key_H,      Qt::Key_J,     Qt::Key_U,      Qt::Key_N,    Qt::Key_A,    Qt::Key_S,
            Qt::Key_D,      Qt::Key_E,     Qt::Key_R,      Qt::Key_Q,    Qt::Key_W,    Qt::Key_Return,
            Qt::Key_Escape, Qt::Key_Tab,   Qt::Key_Space,  Qt::Key_Left, Qt::Key_Down, Qt::Key_PageDown,
            Qt::Key_F1,     Qt::Key_F11,   Qt::Key_Delete, Qt::Key_1,    Qt::Key_T,    Qt::Key_P,
            Qt::Key_G,      Qt::Key_Shift, Qt::Key_Control};
        const Qt::Key key = pick(keys);
        // QTest would press Alt first, which closes an open menu, and then use the menu's deleted window.
        const bool alt = chance(15) && QApplication::activePopupWidget() == nullptr;
        const Qt::KeyboardModifiers with = alt ? Qt::AltModifier : Qt::NoModifier;
        const QPointer<QWindow> window(&handle);
        const bool click = chance(60), press = click || chance(50), release = click || !press;
        if (press) QTest::keyPress(window, key, with);
        if (release && window) QTest::keyRelease(window, key, with);
    }
    // The answer that keeps the program running, for a box whose other answer would end it.
    static std::optional<bool> answer_to_stay(const QDialog& box)
    {
        const auto* message = qobject_cast<const QMessageBox*>(&box);
        if (message == nullptr) return {};
        if (message->text().contains("TO EXIT")) return false;
        if (message->text().contains("DO YOU WISH TO LO")) return true;   // locate or look for a file
        return {};
    }
    void answer_box(QDialog& box)
    {
        boxes += 1;
        for (auto* text : box.findChildren<QLineEdit*>()) text->setText(pick(texts));
        answer_to_stay(box).value_or(chance(75)) ? accept(box) : box.reject();
    }
    static void accept(QDialog& box)
    {
        auto* message = qobject_cast<QMessageBox*>(&box);
        QAbstractButton* yes = message == nullptr ? nullptr : message->button(QMessageBox::Yes);
        yes == nullptr ? box.accept() : yes->click();
    }
    // Saves only under the walk's own names, never over a shipped file.
    void choose_file(QFileDialog& files)
    {
        dialogs += 1;
        if (chance(30)) return files.reject();
        QStringList names{"walk1", "walk2.prc", "walk3.res", "walk4.arf", "walk5.pdf", "walk ü.arf"};
        const QDir ranges(folder.filePath("ranges"));
        if (files.acceptMode() == QFileDialog::AcceptOpen) names << ranges.entryList(QDir::Files) << "none";
        files.selectFile(ranges.filePath(pick(names)));
        static_cast<QDialog&>(files).accept();
    }
    void leave_boxes()
    {
        if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            answer_to_stay(*box).value_or(false) ? accept(*box) : box->reject();
    }

    static constexpr const char* texts[] = {
        "", "walk", "7", "1500", "-3", "A NAME THAT IS LONGER THAN THE FIELD", "żółw", "1e9"};
    std::mt19937 random{static_cast<unsigned>(qEnvironmentVariableIntValue("WALK_SEED")) + 1};
    long left_to_do = 20000;
    int boxes = 0, dialogs = 0;
    bool help_in_front = false;
    std::optional<QWidget*> acting_in;   // the box in which an action runs; null: in none; empty: no action
    std::string broken;
    std::set<const form*> screens;   // those that have been in front
    QEventLoop loop;
    QObject timers;
};

TEST_F(random_user, breaks_no_rule)
{
    if (const int events = qEnvironmentVariableIntValue("WALK_EVENTS"); events > 0) left_to_do = events;
    open_setup();
    go_on();
    loop.exec();
    EXPECT_EQ(broken, "");
    EXPECT_GT(boxes, 50) << "the walk has reached too little";
    EXPECT_GT(dialogs, 20);
    EXPECT_EQ(screens.size(), forms(t).size());
}

}   // namespace vorn::desktop_tests
