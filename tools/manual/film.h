// Takes a moving picture of a sight at ten frames a second. Below the sight it shows the crew line, and
// which keys are pressed.
#pragma once

#include <cmath>
#include <functional>

#include "camera.h"
#include "platform/desktop/windows/sight_view.h"

namespace vorn {

class film : public QObject {
public:
    // `part`: of the sight, twips; `keys`: those shown below the sight; `name`: of the frames' files, without
    // their numbers.
    film(camera& c, gunnery_screen& s, QRectF part, QString keys, QString name)
        : c_(c), s_(s), part_(part), keys_(std::move(keys)), name_(std::move(name)), next_(c.time)
    {
        c_.filmed = c_.pc.window(s.window);
        c_.pc.window(s.window)->installEventFilter(this);
    }
    ~film() override { c_.filmed = nullptr; }

    void wait(double seconds)
    {
        until([this, end = c_.time + seconds] { return c_.time >= end; });
    }
    void until(const std::function<bool()>& reached)
    {
        constexpr double longest = 10;   // seconds
        for (const double end = c_.time + longest; !reached() && c_.time < end;) {
            c_.time += camera::frame;
            take_if_due();
            deliver_ticks(c_.pc);
            c_.pc.sync();
        }
    }
    void press(char key)
    {
        pressed_ += key;
        c_.key(s_, key, true);
    }
    void release(char key)
    {
        pressed_.remove(key);
        c_.key(s_, key, false);
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
    // Ends when the gun is laid and loaded.
    void laze_and_autolay()
    {
        tap('A');
        press('S');
        until([this] { return !s_.layready; });
        wait(0.3);
        release('S');
        until([this] { return s_.gunloaded; });
        wait(0.3);
    }
    bool destroyed() const { return s_.lblcrew.Caption.find("TARGET STOP") != std::string::npos; }
    // Ends the film with the deselect. Saves its first frame, with a play symbol, as a picture of its own.
    void finish()
    {
        if (!destroyed()) tools::fail(name_ + ": the target isn't destroyed");
        wait(1.2);
        tap('W');
        QImage first(file(0));
        QPainter p(&first);
        p.setRenderHint(QPainter::Antialiasing);
        p.translate(first.width() / 2.0, (first.height() - bar_height) / 2.0);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, 150));
        p.drawEllipse(QPointF(0, 0), 34, 34);
        p.setBrush(amber);
        p.drawPolygon(QPolygonF({{-11, -18}, {-11, 18}, {21, 0}}));
        p.end();
        c_.save("film_" + name_, first);
    }

private:
    static constexpr int bar_height = 62;   // pixels
    static constexpr QColor amber{255, 190, 60};

    // During a counted move the machine paints the frames; some of them are taken.
    bool eventFilter(QObject*, QEvent* e) override
    {
        if (e->type() == QEvent::UpdateRequest) take_if_due();
        return false;
    }
    // Presses direction keys until the offset is small. The duration of each press is computed from the
    // acceleration of the traverse.
    void go(char less, char more, const std::function<double()>& off)
    {
        constexpr double near = 25, slowest = 20;   // twips; twips per tick
        for (int tries = 0; std::abs(off()) > near && tries < 40; ++tries) {
            const double ticks = std::sqrt(slowest * slowest + 2 * std::abs(off())) - slowest;
            const char key = off() > 0 ? more : less;
            press(key);
            wait(std::max(1.0, std::floor(ticks)) * camera::frame);
            release(key);
        }
    }

    void take_if_due()
    {
        if (c_.time < next_) return;
        next_ += 0.1;
        constexpr int width = 560;               // pixels
        constexpr int hardly_compressed = 100;   // saves time: each frame is read only once
        sight_view& v = *c_.pc.window(s_.window)->sight_of(s_.Imgrange);
        const double pixels = v.width() / s_.Picrange.Width;   // per twip
        const QRect part(QRectF(part_.topLeft() * pixels, part_.size() * pixels).toAlignedRect());
        const QImage seen = v.grab(part).toImage().scaledToWidth(width, Qt::SmoothTransformation);
        QImage frame(width, seen.height() + bar_height, QImage::Format_RGB32);
        frame.fill(QColor(24, 26, 24));
        QPainter p(&frame);
        p.drawImage(0, 0, seen);
        draw_keys(p, QRectF(10, seen.height(), width - 20, bar_height));
        p.end();
        tools::save(file(count_++), tools::encoded(frame, "png", hardly_compressed));
    }
    QString file(int frame) const
    {
        return c_.frame_folder.filePath(QString("%1-%2.png").arg(name_).arg(frame, 3, 10, QChar('0')));
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
        for (const QChar key : keys_) {
            const bool down = pressed_.contains(key);
            p.setPen(QPen(down ? amber : QColor(120, 124, 116), 1.5));
            p.setBrush(down ? amber : QColor(52, 55, 50));
            p.drawRoundedRect(at, 5, 5);
            p.setPen(down ? Qt::black : QColor(200, 202, 190));
            p.drawText(at, Qt::AlignCenter, key);
            at.translate(cap + 6, 0);
        }
        p.setPen(amber);
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

    camera& c_;
    gunnery_screen& s_;
    QRectF part_;
    QString keys_, name_;
    double next_;       // time of the next frame
    QString pressed_;   // the keys that are down, the last pressed at the end
    int count_ = 0;
};

}   // namespace vorn
