// Takes a moving picture of a sight at ten frames a second. Below the sight it shows which keys are pressed.
#pragma once

#include <QPainter>
#include <cmath>
#include <functional>

#include "camera.h"
#include "platform/desktop/windows/sight_view.h"

namespace vorn {

class film {
public:
    // The part of the sight that is shown, twips; the keys that are shown; the file name without its number.
    struct script {
        QRectF part;
        QString keys;
        QString frames;
    };

    film(camera& c, gunnery_screen& s, script what)
        : pc_(c.pc), clock_(c.clock), s_(s), what_(std::move(what)), next_(clock_.time())
    {
        clock_.window = pc_.window(s.window);
        clock_.passed = [this] { take_if_due(); };
    }
    ~film()
    {
        clock_.window = nullptr;
        clock_.passed = nullptr;
    }
    film(const film&) = delete;
    film& operator=(const film&) = delete;

    void wait(double seconds)
    {
        for (const double end = clock_.time() + seconds; clock_.time() < end;) step();
    }
    void until(const std::function<bool()>& reached)
    {
        constexpr double longest = 10;   // seconds
        for (const double end = clock_.time() + longest; !reached() && clock_.time() < end;) step();
    }
    void press(char key)
    {
        pressed_ += key;
        work(s_.window.KeyDown, key);
    }
    void release(char key)
    {
        pressed_.remove(key);
        work(s_.window.KeyUp, key);
    }
    // Presses a key long enough to be seen.
    void tap(char key)
    {
        press(key);
        wait(0.35);
        release(key);
        wait(0.15);
    }
    // Lays the aim point on a point of the target or beside it, twips from the target's middle.
    void lay(double across, double down)
    {
        go('H', 'J', [=, this] { return aimacross(s_) + across; });
        go('U', 'N', [=, this] { return aimdown(s_) + down; });
    }
    QImage first() const { return first_; }

private:
    void step()
    {
        clock_.pass(frame_clock::frame);
        deliver_ticks(pc_);
        pc_.sync();
    }
    void take_if_due()
    {
        constexpr double interval = 0.1;
        if (clock_.time() < next_) return;
        next_ += interval;
        take();
    }
    void work(const std::function<void(int)>& handler, char key)
    {
        pc_.run([&] { handler(key); });
    }
    // Presses direction keys until the offset is small. The duration of each press is computed from the
    // acceleration of the traverse.
    void go(char less, char more, const std::function<double()>& off)
    {
        constexpr double near = 25, slowest = 20;   // twips; twips per tick
        for (int tries = 0; std::abs(off()) > near && tries < 40; ++tries) {
            const double distance = std::abs(off());
            const double ticks = std::sqrt(slowest * slowest + 2 * distance) - slowest;
            const char key = off() > 0 ? more : less;
            press(key);
            wait(std::max(1.0, std::floor(ticks)) * frame_clock::frame);
            release(key);
        }
    }

    void take()
    {
        constexpr int width = 560, bar = 62;     // pixels
        constexpr int hardly_compressed = 100;   // saves time: each frame is read only once
        sight_view& v = *pc_.window(s_.window)->sight_of(s_.Imgrange);
        const double pixels = v.width() / s_.Picrange.Width;   // per twip
        const QRect part(QRectF(what_.part.topLeft() * pixels, what_.part.size() * pixels).toAlignedRect());
        const QImage seen = v.grab(part).toImage().scaledToWidth(width, Qt::SmoothTransformation);
        QImage frame(width, seen.height() + bar, QImage::Format_RGB32);
        frame.fill(QColor(24, 26, 24));
        QPainter p(&frame);
        p.drawImage(0, 0, seen);
        draw_keys(p, QRectF(10, seen.height(), width - 20, bar));
        p.end();
        if (count_ == 0) first_ = frame;
        frame.save(what_.frames + QString("-%1.png").arg(count_++, 3, 10, QChar('0')), nullptr,
                   hardly_compressed);
    }
    void draw_keys(QPainter& p, const QRectF& bar) const
    {
        constexpr double cap = 28;
        p.setRenderHint(QPainter::Antialiasing);
        QFont font("Liberation Sans");
        font.setPixelSize(16);
        p.setFont(font);
        p.setPen(QColor(225, 225, 215));
        p.drawText(bar.adjusted(0, 4, 0, -36), Qt::AlignLeft | Qt::AlignVCenter,
                   QString::fromStdString(s_.lblcrew.Caption));
        font.setBold(true);
        p.setFont(font);
        QRectF at(bar.left(), bar.bottom() - cap - 5, cap, cap);
        for (const QChar key : what_.keys) {
            const bool down = pressed_.contains(key);
            p.setPen(QPen(down ? QColor(255, 190, 60) : QColor(120, 124, 116), 1.5));
            p.setBrush(down ? QColor(255, 190, 60) : QColor(52, 55, 50));
            p.drawRoundedRect(at, 5, 5);
            p.setPen(down ? Qt::black : QColor(200, 202, 190));
            p.drawText(at, Qt::AlignCenter, key);
            at.translate(cap + 6, 0);
        }
        p.setPen(QColor(255, 190, 60));
        p.drawText(QRectF(at.left() + 6, at.top(), 200, cap), Qt::AlignLeft | Qt::AlignVCenter,
                   work_of(pressed_));
    }
    static QString work_of(const QString& pressed)
    {
        static const std::pair<const char*, const char*> words[] = {
            {"UNHJ", "lay"}, {"E", "main gun"},      {"Q", "coax"}, {"R", "correction"},
            {"A", "laze"},   {"S", "autolay: hold"}, {"D", "fire"}, {"W", "deselect"}};
        for (const auto& [keys, word] : words)
            if (!pressed.isEmpty() && QString(keys).contains(pressed.back())) return word;
        return {};
    }

    desktop_machine& pc_;
    frame_clock& clock_;
    gunnery_screen& s_;
    script what_;
    double next_;       // time of the next frame
    QString pressed_;   // the keys that are down, the last pressed at the end
    QImage first_;
    int count_ = 0;
};

}   // namespace vorn
