// Operates the trainer off screen, by clicks, keys and ticks. Saves pictures of its screens, with numbers on
// the parts that the manual describes.
#pragma once

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPainter>
#include <QThread>
#include <utility>

#include "common/save.h"
#include "gunnery/gunnery.h"
#include "platform/desktop/desktop_machine.h"
#include "platform/desktop/drawing/pictures.h"
#include "platform/desktop/windows/form_window.h"
#include "trainer.h"

namespace vorn {

// A rectangle on a screen as it is shown, in twips of the form.
using place = QRectF;

// A number at `at`, with a line to the point `names` on the part that the number marks.
struct callout {
    QPointF at, names;
};

// The screens are drawn at twice their size, so that sections of them are sharp. `resolution`: pixels per
// twip.
inline constexpr int scale = 2;
inline constexpr double resolution = scale / twips_per_pixel;

inline void draw_callout(QPainter& p, const callout& c, int number, double size)
{
    const QPointF at = c.at * resolution;
    const QColor pale(240, 246, 255), dark(16, 40, 90);   // colours that the screens don't use
    QLineF line(at, c.names * resolution);
    line.setLength(line.length() - size * 0.5);   // ends before `names`
    for (const QPen& pen : {QPen(dark, size * 0.24), QPen(pale, size * 0.12)}) {
        p.setPen(pen);
        p.drawLine(line);
    }
    p.setPen(QPen(dark, size * 0.1));
    p.setBrush(pale);
    p.drawEllipse(at, size / 2, size / 2);
    QFont font("Liberation Sans");
    font.setPixelSize(static_cast<int>(size * 0.72));
    font.setBold(true);
    p.setFont(font);
    p.setPen(dark);
    p.drawText(QRectF(at - QPointF(size, size), QSizeF(2 * size, 2 * size)), Qt::AlignCenter,
               QString::number(number));
}

inline callout on(QPointF point)
{
    return {point, point};
}

class camera : public QObject {
public:
    // `pictures` and `frames`: folders for the pictures and for the frames of the moving ones.
    camera(const QString& program_directory, const QString& pictures, const QString& frames)
        : folder(pictures), frame_folder(frames)
    {
        pc.default_directory = program_directory.toStdString();
        pc.world_clock = [this] { return time; };
        qApp->installEventFilter(this);
        startTimer(5);
    }

    void click(screen_object& o)
    {
        pc.run([&] { user_click(o); });
    }
    void key(gunnery_screen& s, char c, bool down)
    {
        pc.run([&] { (down ? s.window.KeyDown : s.window.KeyUp)(c); });
    }
    void tap(gunnery_screen& s, const char* keys)
    {
        for (; *keys != 0; ++keys)
            for (const bool down : {true, false}) key(s, *keys, down);
    }
    // Makes the timer tick without waiting for its interval.
    void tick(timer& clock)
    {
        if (!clock.Enabled) return;
        clock.fresh = false;
        clock.due = 0;
        deliver_ticks(pc);
        pc.sync();
    }
    // Delivers ticks while the timer runs and the condition is true.
    void tick_while(timer& clock, const std::function<bool()>& wanted)
    {
        for (int i = 0; i < 1000 && clock.Enabled && wanted(); ++i) tick(clock);
    }

    // Where an object is shown.
    place place_of(const screen_object& o) const
    {
        if (in_sight(o)) return place_in(*o.parent, o);
        const QWidget& w = *window(*o.owner).widget(o);
        return {w.mapTo(w.window(), QPointF(0, 0)) / resolution, QSizeF(w.size()) / resolution};
    }
    // Where a part of an object is shown. `part`: in twips from the object's upper left corner.
    place place_in(const screen_object& o, const area& part) const
    {
        const place whole = place_of(o);
        const double growth = whole.width() / o.Width;
        return {whole.x() + part.Left * growth, whole.y() + part.Top * growth, part.Width * growth,
                part.Height * growth};
    }

    // A number on a panel's caption line, at the share `across` of the panel's width.
    callout on_head(const screen_object& o, double across = 0.93) const
    {
        const place p = place_of(o);
        return on({p.left() + p.width() * across, p.top() + 165});
    }
    callout right_of(const screen_object& o, double distance = 240) const
    {
        const place p = place_of(o);
        return on({p.right() + distance, p.center().y()});
    }
    // A number at this distance from the point or object that it marks, twips.
    static callout beside(QPointF point, double across, double down)
    {
        return {point + QPointF(across, down), point};
    }
    callout beside(const screen_object& o, double across, double down) const
    {
        return beside(place_of(o).center(), across, down);
    }

    // The next three functions save a picture: of a whole screen, of a part of a screen scaled to a width, of
    // the surroundings of the aim point in the sight.
    void take(const QString& name, form& f, const std::vector<callout>& callouts = {}) const
    {
        save(name, look(f, callouts, 42).scaledToWidth(800, Qt::SmoothTransformation));
    }
    void take_part(const QString& name, form& f, const place& part, int width,
                   const std::vector<callout>& callouts = {}) const
    {
        const double size = 26 * part.width() * resolution / width;   // 26 pixels after scaling
        const QImage picture = look(f, callouts, size);
        const QRect cut = QRectF(part.topLeft() * resolution, part.size() * resolution).toAlignedRect();
        save(name, picture.copy(cut & picture.rect()).scaledToWidth(width, Qt::SmoothTransformation));
    }
    void take_sight(const QString& name, gunnery_screen& s, const std::vector<callout>& callouts = {}) const
    {
        const area middle = s.visual() ? area{2500, 60, 4300, 3225} : area{3000, 1400, 3440, 2580};
        take_part(name, s.window, place_in(s.Picrange, middle), 440, callouts);
    }

    // The screen at twice its size, with the numbers.
    QImage look(const form& f, const std::vector<callout>& callouts = {}, double size = 1) const
    {
        form_window& shown = window(f);
        shown.grab();   // starts to read the twins of pictures
        for (const screen_object* o : f.objects)
            while (reads_twin(o->Picture)) QThread::msleep(5);
        QImage picture = shown.grab().toImage().convertToFormat(QImage::Format_RGB32);
        QPainter p(&picture);
        p.setRenderHint(QPainter::Antialiasing);
        int number = 0;
        for (const callout& c : callouts) draw_callout(p, c, ++number, size);
        return picture;
    }

    void save(const QString& name, const QImage& picture) const
    {
        tools::save(folder.filePath(name + ".jpg"), tools::encoded(picture, "jpeg", 88));
    }

    // Seconds. The clock advances by one frame whenever a window is repainted, also during a counted move, so
    // that the pictures don't depend on the speed of the computer.
    double time = 0;
    const QObject* filmed = nullptr;   // the window whose frames are counted; null: all
    static constexpr double frame = 1.0 / 60;

    desktop_machine pc;
    trainer t{pc};
    const QDir folder, frame_folder;
    QString box_picture;   // the next message box is saved under this name

private:
    // The window of a screen, resized to twice its size.
    form_window& window(const form& f) const
    {
        form_window& w = *pc.window(f);
        w.resize(1024 * scale, 768 * scale);
        w.sync();
        return w;
    }
    bool eventFilter(QObject* o, QEvent* e) override
    {
        if (e->type() == QEvent::UpdateRequest && (filmed == nullptr || o == filmed)) time += frame;
        return false;
    }
    // Answers an open message box with yes, a file dialog with a range.
    void timerEvent(QTimerEvent*) override
    {
        QWidget* box = QApplication::activeModalWidget();
        if (auto* files = qobject_cast<QFileDialog*>(box)) {
            files->selectFile(QString::fromStdString(t.shared.rootpath + "/visualrange.arf"));
            static_cast<QDialog*>(files)->accept();
        } else if (auto* question = qobject_cast<QMessageBox*>(box)) {
            if (!box_picture.isEmpty()) save(std::exchange(box_picture, {}), box->grab().toImage());
            question->done(QMessageBox::Yes);
        }
    }
};

}   // namespace vorn
