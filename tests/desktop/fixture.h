// The fixture of the desktop tests: screens of a few objects on real widgets, answers to boxes and dialogs.
#pragma once

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <deque>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/design.h"
#include "platform/desktop/desktop_machine.h"
#include "platform/desktop/drawing/pictures.h"

namespace vorn::desktop_tests {

using strings = std::vector<std::string>;

// A form and its objects, laid out by the test.
struct screen {
    form f;
    std::deque<screen_object> objects;
    std::deque<timer> timers;

    screen_object& put(object_fields fields, screen_object* parent = nullptr)
    {
        screen_object& o = objects.emplace_back();
        static_cast<object_fields&>(o) = std::move(fields);
        add(f, o, parent);
        return o;
    }

    timer& add_timer(int interval, std::function<void()> action)
    {
        timer& t = timers.emplace_back();
        add(f, t, interval, std::move(action));
        return t;
    }
};

inline QImage plain_image(int width, int height, const QColor& c = Qt::darkGreen)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(c);
    return image;
}

inline picture plain_picture(const QColor& c)
{
    constexpr int side = 8;
    auto pixels = std::make_shared<decoded_picture>();
    pixels->sizes.push_back(plain_image(side, side, c));
    return {"test", side * twips_per_pixel, side * twips_per_pixel, pixels};
}

inline QByteArray encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer out(&bytes);
    out.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&out, format));
    return bytes;
}

struct paint_count : QObject {
    explicit paint_count(QWidget& w) { w.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* e) override
    {
        count += e->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

// The widgets that Tab reaches, in Tab order, beginning with the widget that has the focus.
inline std::vector<QWidget*> tab_order(QWidget& window)
{
    std::vector<QWidget*> order;
    QWidget* first = QApplication::focusWidget();
    do {
        order.push_back(QApplication::focusWidget());
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && order.size() < 200);
    return order;
}

// The colour at the point `p` of a widget, in the image `seen` of the widget.
inline QColor colour_at(const QImage& seen, const QPointF& p)
{
    const QPointF pixel = p * seen.devicePixelRatio();
    return seen.pixelColor(static_cast<int>(pixel.x()), static_cast<int>(pixel.y()));
}

struct desktop_test : testing::Test {
    desktop_test()
    {
        pc.printer_present = [] { return false; };
        pc.working_directory = folder.path().toStdString();
    }
    // Shows a screen in a window of this size; at 1024 x 768 its scale is 1.
    void open(screen& s, int width = 1024, int height = 768)
    {
        pc.run([&] { show(pc, s.f); });
        window(s).resize(width, height);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window(s)));
    }
    // A button that logs a word when it is clicked. Each is below the one before.
    screen_object& button(const char* clicked, screen_object* parent = nullptr, const char* caption = "")
    {
        screen_object& o = one.put(vorn::button({4500, next_top += 600, 1500, 300}, caption), parent);
        o.Click = [this, clicked] { log.push_back(clicked); };
        return o;
    }
    // Hides one screen and shows the other, in one handler.
    void change(screen& from, screen& to)
    {
        pc.run([&] {
            hide(pc, from.f);
            show(pc, to.f);
        });
    }
    // Runs the event loop for a millisecond.
    static void settle() { QTest::qWait(1); }

    form_window& window(const screen& s) const { return *pc.window(s.f); }
    QWindow* handle(const screen& s) const { return window(s).windowHandle(); }

    template <class W = QWidget>
    W& widget(const screen_object& o) const
    {
        return dynamic_cast<W&>(*pc.window(*o.owner)->widget(o));
    }

    void click(const screen_object& o) const { QTest::mouseClick(&widget(o), Qt::LeftButton); }
    // Keys that go to the screen `one`.
    void press(Qt::Key k, Qt::KeyboardModifiers m = {}) const { QTest::keyPress(handle(one), k, m); }
    void release(Qt::Key k) const { QTest::keyRelease(handle(one), k); }
    static void send(QObject& to, QEvent::Type type)
    {
        QEvent e(type);
        QCoreApplication::sendEvent(&to, &e);
    }

    static void turn_wheel(QWidget& w, const QPointF& at, int notches, Qt::KeyboardModifiers m = {})
    {
        QWheelEvent e(at, w.mapToGlobal(at), {}, {0, notches * 120}, Qt::NoButton, m, Qt::NoScrollPhase,
                      false);
        QCoreApplication::sendEvent(&w, &e);
    }

    // Acts on the next modal box of this type once `ready` is true. Until then the box's event loop runs.
    template <class Box = QDialog>
    void when_box(
        std::function<void(std::type_identity_t<Box>&)> act,
        std::function<bool()> ready = [] { return true; })
    {
        auto* poll = new QTimer(&box_timers);
        QObject::connect(poll, &QTimer::timeout, poll, [=] {
            auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
            if (box == nullptr || !ready()) return;
            poll->stop();
            act(*box);
        });
        poll->start(2);
    }
    void answer(Qt::Key key)
    {
        when_box([key](QDialog& box) { QTest::keyClick(box.windowHandle(), key); });
    }
    // Chooses a file in the next file dialog.
    void choose(const QString& file)
    {
        when_box<QFileDialog>([file](QFileDialog& d) {
            d.selectFile(file);
            static_cast<QDialog&>(d).accept();
        });
    }
    // Writes a file in the folder of the test or below.
    void write(const QString& name, const QByteArray& content)
    {
        QFile f(folder.filePath(name));
        QDir().mkpath(QFileInfo(f).path());
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(content);
    }

    QTemporaryDir folder;
    strings log;       // what the handlers of the test have recorded, in order
    screen one, two;   // declared before the machine, so that they outlive it
    desktop_machine pc;
    double next_top = 0;
    QObject box_timers;
};

}   // namespace vorn::desktop_tests
