// Operates the trainer off screen, as a user would. Saves pictures of its screens, with numbers on the parts
// that the manual describes.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPainter>
#include <QThread>
#include <QTimer>
#include <stdexcept>

#include "common/save.h"
#include "gunnery/gunnery.h"
#include "platform/desktop/desktop_machine.h"
#include "platform/desktop/drawing/pictures.h"
#include "platform/desktop/windows/form_window.h"
#include "trainer.h"

namespace vorn {

// A rectangle on a screen as it is shown, in twips of the form.
using place = QRectF;

// A number at `at`, joined by a line to `names`, a point of the part that it marks.
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
    if (line.setLength(line.length() - size * 0.5); c.at != c.names)   // ends before `names`
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

// Resizes the window of a form to the size of the pictures and returns it.
inline form_window& window_at_size(const form& f)
{
    for (QWidget* w : QApplication::topLevelWidgets()) {
        auto* window = dynamic_cast<form_window*>(w);
        if (window == nullptr || &window->model != &f) continue;
        window->resize(1024 * scale, 768 * scale);
        window->sync();
        return *window;
    }
    throw std::logic_error("no window of the screen " + f.name);
}

// Where a widget is shown.
inline place place_of(const QWidget& w)
{
    return {QPointF(w.mapTo(w.window(), QPointF(0, 0))) / resolution, QSizeF(w.size()) / resolution};
}

// Where the sight shows a rectangle given in twips of the sight.
inline place place_in(const screen_object& sight, const place& inside)
{
    const place whole = place_of(*window_at_size(*sight.owner).widget(sight));
    const double growth = whole.width() / sight.Width;
    return {whole.topLeft() + inside.topLeft() * growth, inside.size() * growth};
}

inline place place_of(const screen_object& o)
{
    if (in_sight(o)) return place_in(*o.parent, place(o.Left, o.Top, o.Width, o.Height));
    return place_of(*window_at_size(*o.owner).widget(o));
}

inline callout on(QPointF point)
{
    return {point, point};
}
// The centre of an object in a sight, moved by a distance in twips of the sight.
inline QPointF centre_in_sight(const screen_object& o, double across = 0, double down = 0)
{
    return place_in(*o.parent, place(o.Left + across, o.Top + down, o.Width, o.Height)).center();
}
// A number on a panel's caption line, to the right of the caption.
inline callout on_head(const screen_object& o, double across = 0.93)
{
    const place p = place_of(o);
    return on({p.left() + p.width() * across, p.top() + 165});
}
inline callout right_of(const screen_object& o)
{
    const place p = place_of(o);
    return on({p.right() + 240, p.center().y()});
}
// A number at this distance from the point or object that it marks, twips.
inline callout beside(QPointF point, double across, double down)
{
    return {point + QPointF(across, down), point};
}
inline callout beside(const screen_object& o, double across, double down)
{
    return beside(place_of(o).center(), across, down);
}

class camera : public QObject {
public:
    camera(const std::string& program_directory, const QString& folder) : folder_(folder)
    {
        pc.default_directory = program_directory;
        pc.world_clock = [this] { return time; };
        qApp->installEventFilter(this);
        t.shared.soundson = false;
        connect(&answers_, &QTimer::timeout, this, &camera::answer_box);
        answers_.start(5);
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
    // Delivers one tick without waiting for the interval.
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

    // Advances the clock, which ages strikes and fires.
    void age(double seconds)
    {
        time += seconds;
        if (aged) aged();
    }

    // Each saves a picture: of a whole screen, of a part of a screen scaled to a width, of the middle of the
    // sight, of the next box.
    void take(const QString& name, form& f, const std::vector<callout>& callouts = {})
    {
        save(name, look(f, callouts, 42).scaledToWidth(800, Qt::SmoothTransformation));
    }
    void take_part(const QString& name, form& f, const place& part, int width,
                   const std::vector<callout>& callouts = {})
    {
        const double size = 26 * part.width() * resolution / width;   // 26 pixels after scaling
        const QImage picture = look(f, callouts, size);
        const QRect cut = QRectF(part.topLeft() * resolution, part.size() * resolution).toAlignedRect();
        save(name, picture.copy(cut & picture.rect()).scaledToWidth(width, Qt::SmoothTransformation));
    }
    void take_sight(const QString& name, gunnery_screen& s, const std::vector<callout>& callouts = {})
    {
        const place middle = s.visual() ? place(2500, 60, 4300, 3225) : place(3000, 1400, 3440, 2580);
        take_part(name, s.window, place_in(s.Picrange, middle), 440, callouts);
    }

    // The screen at the size of the pictures, with the numbers.
    QImage look(form& f, const std::vector<callout>& callouts = {}, double size = 1)
    {
        pc.sync();
        QWidget& window = window_at_size(f);
        window.grab();   // starts to read the twins of pictures
        for (const screen_object* o : f.objects)
            while (reads_twin(o->Picture)) QThread::msleep(5);
        QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        QPainter p(&picture);
        p.setRenderHint(QPainter::Antialiasing);
        int number = 0;
        for (const callout& c : callouts) draw_callout(p, c, ++number, size);
        return picture;
    }

    void save(const QString& name, const QImage& picture)
    {
        tools::save(folder_.filePath(name + ".jpg"), tools::encoded(picture, "jpeg", 88));
    }

    // The clock advances by one frame whenever a window is painted during a counted move, so that the
    // pictures don't depend on the speed of the computer.
    static constexpr double frame = 1.0 / 60;
    double time = 0;
    std::function<void()> aged;
    const QObject* filmed = nullptr;   // the window whose frames are counted; null: all

    desktop_machine pc;
    trainer t{pc};
    std::string wanted_file;   // chosen in the next file dialog
    QString box_picture;       // the next box is saved under this name

protected:
    bool eventFilter(QObject* o, QEvent* e) override
    {
        if (e->type() == QEvent::UpdateRequest && (filmed == nullptr || o == filmed)) age(frame);
        return false;
    }

private:
    // Answers an open box with yes, a file dialog with wanted_file.
    void answer_box()
    {
        QWidget* box = QApplication::activeModalWidget();
        if (auto* files = qobject_cast<QFileDialog*>(box)) {
            files->selectFile(QString::fromStdString(t.shared.rootpath + '/' + wanted_file));
            static_cast<QDialog&>(*files).accept();
        } else if (auto* question = qobject_cast<QMessageBox*>(box)) {
            if (!box_picture.isEmpty()) save(box_picture, box->grab().toImage());
            box_picture.clear();
            QAbstractButton* yes = question->button(QMessageBox::Yes);
            (yes != nullptr ? yes : question->button(QMessageBox::Ok))->click();
        }
    }

    QDir folder_;
    QTimer answers_;
};

}   // namespace vorn
