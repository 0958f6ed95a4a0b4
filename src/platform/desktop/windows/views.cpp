#include "platform/desktop/windows/views.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QShortcutEvent>
#include <QStyleOptionButton>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/desktop/drawing/drawings.h"
#include "platform/desktop/drawing/look.h"
#include "platform/desktop/drawing/pictures.h"
#include "platform/desktop/drawing/sight.h"

namespace vorn {

static bool has_picture(const picture& p)
{
    return is_drawing(p) || p.pixels != nullptr;
}

push_button::push_button(const object_fields& fields, QWidget* parent) : QPushButton(parent), fields_(fields)
{
    setAutoDefault(true);   // Return clicks it, as Space does
}

// An access key clicks immediately; Qt would first show the button pressed for a tenth of a second.
bool push_button::event(QEvent* e)
{
    if (e->type() != QEvent::Shortcut || static_cast<const QShortcutEvent*>(e)->isAmbiguous())
        return QPushButton::event(e);
    click();
    return true;
}

void push_button::paint_picture(QPainter& p)
{
    const QRect at = to_device_pixels(p, size());
    const int side = std::min(at.width(), at.height());
    QSize box(side, side);
    if (fields_.Picture.width > 0)
        box = QSizeF(fields_.Picture.width, fields_.Picture.height)
                  .scaled(at.size(), Qt::KeepAspectRatio)
                  .toSize();
    box = box * 0.72;
    p.setOpacity(isEnabled() ? 1 : disabled_picture);
    const QPoint corner((at.width() - box.width()) / 2, (at.height() - box.height()) / 2);
    draw_picture(p, fields_.Picture, QRect(corner, box));
}

void push_button::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    QStyleOptionButton o;
    initStyleOption(&o);
    style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &o, &p, this);
    if (has_picture(fields_.Picture)) return paint_picture(p);
    p.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    const QRect inside = rect().adjusted(3, 1, -3, -1);
    p.setFont(narrowed(font(), text(), inside.width()));
    p.drawText(inside, Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic, text());
}

text_button::text_button(const object_fields& fields, QWidget* parent) : QPushButton(parent), fields_(fields)
{
    setAutoDefault(true);
}

// Paints the background colour, if there is one, and a light overlay while the button is pressed or the mouse
// is over it.
void text_button::paint_background(QPainter& p)
{
    const double scale = scale_of(*this);
    const bool has_colour = fields_.BackColor != colour::ground;
    const int overlay = !isEnabled() ? 0 : isDown() ? 44 : underMouse() ? 26 : 0;
    p.setRenderHint(QPainter::Antialiasing);
    const bool chosen = has_colour && fields_.ForeColor == colour::white;   // also marked by a border
    const double inset = chosen ? 0.75 * scale : 0;
    p.setPen(chosen ? QPen(shade(colour::white), 1.5 * scale) : QPen(Qt::NoPen));
    p.setBrush(has_colour ? QBrush(back_shade(fields_.BackColor)) : Qt::NoBrush);
    p.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), 3 * scale, 3 * scale);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, overlay));
    p.drawRoundedRect(rect(), 3 * scale, 3 * scale);
}

// A dark background for a number over a picture.
static void paint_number_background(QPainter& p, const QRect& at, int flags, const QString& text,
                                    double scale)
{
    const QRectF words = p.fontMetrics().boundingRect(at, flags, text);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 190));
    p.drawRoundedRect(words.adjusted(-4 * scale, -scale, 4 * scale, scale), 4 * scale, 4 * scale);
}

void text_button::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    paint_background(p);
    const bool numbered = fields_.ForeColor == colour::red || fields_.ForeColor == colour::darkred;
    // A right-aligned number is in the lower corner, where it hides little of the picture under it.
    const bool corner = numbered && fields_.Alignment == alignment::right;
    const auto place = corner ? Qt::AlignRight | Qt::AlignBottom : text_alignment(fields_);
    const int flags = static_cast<int>(place) | Qt::TextWordWrap;
    const int inset = corner ? static_cast<int>(6 * scale_of(*this)) : 0;
    const QRect at = rect().adjusted(0, 0, -inset, -inset);
    const QString words = QString::fromStdString(fields_.Caption);
    if (numbered && !words.isEmpty()) paint_number_background(p, at, flags, words, scale_of(*this));
    p.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    p.drawText(at, flags, words);
    if (!hasFocus()) return;
    QStyleOptionButton o;
    initStyleOption(&o);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &o, &p, this);
}

text_box::text_box(QWidget* parent) : QLineEdit(parent)
{
    setAttribute(Qt::WA_Hover);   // repaints the frame when the mouse enters and leaves
}

void text_box::focusInEvent(QFocusEvent* e)
{
    QLineEdit::focusInEvent(e);
    clicked_ = e->reason() == Qt::MouseFocusReason;
    if (!std::exchange(had_focus_, true) && !clicked_) selectAll();   // the initial focus
}

// A click that gives the box the focus selects the whole text, unless the user has selected a part of it.
// focusInEvent would be too early, since the mouse press sets the cursor afterwards.
void text_box::mouseReleaseEvent(QMouseEvent* e)
{
    QLineEdit::mouseReleaseEvent(e);
    if (std::exchange(clicked_, false) && !hasSelectedText()) selectAll();
}

picture_view::picture_view(const object_fields& fields, QWidget* parent)
    : QAbstractButton(parent), fields_(fields)
{
    setFocusPolicy(Qt::NoFocus);
}

// Scaled with filtering: QPainter skips pixels when it scales a picture to less than half.
QPixmap picture_view::rendered(const QSize& device) const
{
    const QImage* image = image_for(fields_.Picture, device);
    if (image != nullptr)
        return QPixmap::fromImage(image->scaled(device, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    QPixmap pixels(device);
    pixels.fill(Qt::transparent);
    QPainter p(&pixels);
    draw_picture(p, fields_.Picture, QRect(QPoint(0, 0), device));
    return pixels;
}

void picture_view::paintEvent(QPaintEvent*)
{
    if (!has_picture(fields_.Picture)) return;
    QPainter p(this);
    const QRect at = to_device_pixels(p, size());
    if (at.isEmpty()) return;
    if (cache_.size() != at.size() || cached_ != fields_.Picture) {
        cache_ = rendered(at.size());
        cached_ = fields_.Picture;
    }
    p.setOpacity(!isEnabled() ? disabled_picture : fields_.Pale ? pale_picture : 1);
    p.drawPixmap(at.topLeft(), cache_);
    if (!hasFocus()) return;
    QStyleOption o;
    o.initFrom(this);
    p.resetTransform();
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &o, &p, this);
}

void picture_view::hideEvent(QHideEvent*)
{
    cache_ = {};
    cached_ = {};
}

constexpr double edge_width = 5;   // pixels at scale 1

sight_edge::sight_edge(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setStyle(parent->style());
}

void sight_edge::surround(const QWidget& sight)
{
    const int width = static_cast<int>(std::ceil(edge_width * scale_of(*this)));
    setGeometry(sight.geometry().adjusted(-width, -width, width, width));
}

void sight_edge::paintEvent(QPaintEvent*)
{
    const double scale = scale_of(*this);
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    draw_rounded(p, rect(), QColor(control_colour::shadow), QColor(control_colour::edge), edge_width * scale,
                 scale);
}

shape_view::shape_view(const object_fields& fields, QWidget* parent) : QWidget(parent), fields_(fields) {}

void shape_view::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    const QRect at = to_device_pixels(p, size());
    draw_object(p, fields_, at, scale_of(*this) * devicePixelRatioF());
}

}   // namespace vorn
