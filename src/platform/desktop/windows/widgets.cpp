#include "platform/desktop/windows/widgets.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <algorithm>
#include <utility>

#include "platform/desktop/drawing/look.h"
#include "platform/desktop/drawing/sight.h"
#include "platform/desktop/windows/sight_view.h"
#include "platform/desktop/windows/views.h"

namespace vorn {

namespace {

QString caption_of(const object_fields& o)
{
    return QString::fromStdString(o.Caption);
}

// A caption without an access key: '&' is an ordinary character.
QString plain_caption(const object_fields& o)
{
    return caption_of(o).replace('&', "&&");
}

// Creation ------------------------------------------------------------------------------------------------

QWidget* clicking(QAbstractButton* b, shown_object& s, const event_runner& run)
{
    QObject::connect(b, &QAbstractButton::toggled, b, [&s](bool on) { s.drawn.Value = on ? 1 : 0; });
    QObject::connect(b, &QAbstractButton::clicked, b, [&s, run] { run([&s] { user_click(*s.object); }); });
    return b;
}

QWidget* make_label(shown_object& s, QWidget* parent, const event_runner& run)
{
    if (s.object->Click) return clicking(new text_button(s.drawn, parent), s, run);
    auto* l = new QLabel(parent);
    l->setTextFormat(Qt::PlainText);
    l->setWordWrap(true);
    return l;
}

QWidget* make_image(shown_object& s, QWidget* parent, const event_runner& run)
{
    auto* view = new picture_view(s.drawn, parent);
    if (s.object->Click) view->setFocusPolicy(Qt::StrongFocus);
    if (s.object->ClickAt) view->setCursor(Qt::CrossCursor);
    return clicking(view, s, run);
}

QWidget* make_slider(shown_object& s, QWidget* parent, const event_runner& run)
{
    auto* slider = new QSlider(Qt::Horizontal, parent);
    QObject::connect(slider, &QSlider::valueChanged, slider, [&s, run](int position) {
        s.drawn.Value = position;
        run([&s, position] { user_slide(*s.object, position); });
    });
    return slider;
}

QWidget* make_textbox(shown_object& s, QWidget* parent, const event_runner& run)
{
    auto* box = new text_box(parent);
    QObject::connect(box, &QLineEdit::textEdited, box, [&s, run](const QString& text) {
        s.drawn.Text = text.toStdString();
        run([&s, typed = s.drawn.Text] { user_types(*s.object, typed); });
    });
    return box;
}

QWidget* make_by_kind(shown_object& s, QWidget* parent, const event_runner& run)
{
    switch (s.object->kind) {
        case object_kind::frame:
            return new QGroupBox(parent);
        case object_kind::sight:
            return new sight_view(s, parent);
        case object_kind::label:
            return make_label(s, parent, run);
        case object_kind::button:
            return clicking(new push_button(s.drawn, parent), s, run);
        case object_kind::option:
            return clicking(new QRadioButton(parent), s, run);
        case object_kind::checkbox:
            return clicking(new QCheckBox(parent), s, run);
        case object_kind::slider:
            return make_slider(s, parent, run);
        case object_kind::textbox:
            return make_textbox(s, parent, run);
        case object_kind::image:
            return make_image(s, parent, run);
        case object_kind::shape:
            break;
    }
    return new shape_view(s.drawn, parent);
}

// Labels, images and shapes without a mouse handler or tool tip pass mouse events on to the objects beneath.
bool ignores_mouse(const screen_object& o)
{
    const bool passive =
        o.kind == object_kind::label || o.kind == object_kind::image || o.kind == object_kind::shape;
    return passive && !has_mouse_handler(o) && o.ToolTipText.empty();
}

// Update --------------------------------------------------------------------------------------------------

struct difference {
    const object_fields& before;
    const object_fields& after;
    bool everything;

    template <class T>
    bool in(T object_fields::*field) const
    {
        return everything || before.*field != after.*field;
    }
};

void set_label(QLabel& l, const object_fields& o)
{
    l.setText(caption_of(o));
    const Qt::Alignment at = text_alignment(o);
    l.setAlignment(at);
    constexpr double margin = 15;   // pixels at scale 1
    const bool long_text = o.BackColor != colour::ground && at.testFlag(Qt::AlignTop);
    l.setMargin(long_text ? static_cast<int>(margin * scale_of(l)) : 0);
}

// Tab goes only to the selected option of a group, since the arrow keys reach the others. If no option is
// selected, Tab goes to each of them.
void set_tab_stops(const QRadioButton& in_group)
{
    const auto group =
        in_group.parentWidget()->findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly);
    const bool selected =
        std::any_of(group.begin(), group.end(), [](const QRadioButton* b) { return b->isChecked(); });
    for (QRadioButton* b : group)
        b->setFocusPolicy(b->isChecked() || !selected ? Qt::StrongFocus : Qt::ClickFocus);
}

// Auto-exclusive buttons don't let the program clear all options of a group.
void set_option(QRadioButton& b, const object_fields& o)
{
    b.setText(plain_caption(o));
    b.setAutoExclusive(false);
    b.setChecked(o.Value != 0);
    b.setAutoExclusive(true);
    set_tab_stops(b);
}

void set_checkbox(QCheckBox& b, const object_fields& o)
{
    b.setText(plain_caption(o));
    b.setChecked(o.Value != 0);
}

void set_slider_widget(QSlider& s, const object_fields& o)
{
    const QSignalBlocker no_signals(s);
    s.setRange(o.Min, o.Max);
    s.setPageStep(o.LargeChange);
    s.setValue(o.Value);
}

// Setting the same text would move the cursor while the user types.
void set_textbox(QLineEdit& box, const object_fields& o)
{
    const QString text = QString::fromStdString(o.Text);
    if (box.text() != text) box.setText(text);
    box.setReadOnly(o.ReadOnly);
}

void set_by_kind(QWidget& w, const object_fields& o)
{
    if (auto* label = qobject_cast<QLabel*>(&w)) return set_label(*label, o);
    if (auto* box = qobject_cast<QGroupBox*>(&w)) return box->setTitle(plain_caption(o));
    if (auto* option = qobject_cast<QRadioButton*>(&w)) return set_option(*option, o);
    if (auto* check = qobject_cast<QCheckBox*>(&w)) return set_checkbox(*check, o);
    if (auto* slider = qobject_cast<QSlider*>(&w)) return set_slider_widget(*slider, o);
    if (auto* text = qobject_cast<QLineEdit*>(&w)) return set_textbox(*text, o);
    if (auto* button = dynamic_cast<push_button*>(&w)) button->setText(caption_of(o));
    if (auto* link = dynamic_cast<text_button*>(&w)) link->setText(plain_caption(o));
    w.update();
}

void set_colours(QWidget& w, const object_fields& o)
{
    const bool frame = o.kind == object_kind::frame;
    const colour fore = frame && o.ForeColor == colour::text ? colour::dim : o.ForeColor;
    QPalette p = object_palette(fore, o.BackColor);
    if (frame && o.BackColor == colour::ground) p.setColor(QPalette::Window, QColor(control_colour::panel));
    w.setPalette(p);
    w.setAutoFillBackground(o.kind == object_kind::label && o.BackColor != colour::ground &&
                            qobject_cast<QLabel*>(&w) != nullptr);
}

void set_font(QWidget& w, const object_fields& o)
{
    const double scale = scale_of(w);
    const bool title = o.kind == object_kind::frame;
    w.setFont(title ? text_font(text_size::small, true, scale) : text_font(o.size, o.bold, scale));
}

// The name for screen readers: AccessibleName and caption, or the tool tip if both are empty. A label doesn't
// use its tool tip, since its caption may be empty for the moment. The caption of a frame is set as its name,
// because Qt would use the name of the frame around it.
void set_name(QWidget& w, const object_fields& o)
{
    std::string name = o.AccessibleName;
    if (!name.empty() && !o.Caption.empty()) name += ' ' + o.Caption;
    if (name.empty() && o.kind == object_kind::frame) name = o.Caption;
    if (name.empty() && o.Caption.empty() && o.kind != object_kind::label) name = o.ToolTipText;
    w.setAccessibleName(QString::fromStdString(name).simplified());   // some captions have extra blanks
}

// Qt would pass the focus of a disabled widget to the next widget, which Space might then click. Here the
// window gets the focus. The widget gets it back when it is enabled, unless the user has moved the focus.
void set_enabled(QWidget& w, bool enabled)
{
    constexpr const char* had_focus = "had_focus";
    QWidget& window = *w.window();
    if (!enabled && window.focusWidget() == &w) {
        w.setProperty(had_focus, true);
        window.setFocus();
    }
    w.setEnabled(enabled);
    if (!enabled || !w.property(had_focus).toBool()) return;
    w.setProperty(had_focus, {});
    if (window.focusWidget() == nullptr || window.focusWidget() == &window) w.setFocus();
}

void set_looks(QWidget& w, const difference& d)
{
    if (d.in(&object_fields::ForeColor) || d.in(&object_fields::BackColor)) set_colours(w, d.after);
    if (d.in(&object_fields::size) || d.in(&object_fields::bold)) set_font(w, d.after);
    if (d.in(&object_fields::ToolTipText)) w.setToolTip(QString::fromStdString(d.after.ToolTipText));
    const bool named = d.in(&object_fields::AccessibleName) || d.in(&object_fields::ToolTipText);
    if (named || d.in(&object_fields::Caption)) set_name(w, d.after);
    if (d.in(&object_fields::Enabled)) set_enabled(w, d.after.Enabled);
    if (d.in(&object_fields::Visible)) w.setVisible(d.after.Visible);
}

}   // namespace

bool in_sight(const screen_object& o)
{
    return o.parent != nullptr && o.parent->kind == object_kind::sight;
}

bool has_mouse_handler(const screen_object& o)
{
    return o.Click || o.ClickAt || o.MouseDown || o.MouseUp || o.MouseMove;
}

const screen_object* move_handler_of(const screen_object& object)
{
    const screen_object* o = &object;
    while (o != nullptr && !o->MouseMove) o = o->parent;
    return o;
}

QWidget* make_widget(shown_object& s, QWidget* parent, const event_runner& run)
{
    s.drawn = *s.object;
    s.widget = make_by_kind(s, parent, run);
    s.widget->setStyle(parent->style());
    s.widget->setAttribute(Qt::WA_NoMousePropagation);
    s.widget->setAttribute(Qt::WA_TransparentForMouseEvents, ignores_mouse(*s.object));
    s.widget->setMouseTracking(move_handler_of(*s.object) != nullptr);
    return s.widget;
}

void draw_fields(shown_object& s, bool everything)
{
    const object_fields before = std::exchange(s.drawn, *s.object);
    s.before = before.Visible ? before : s.drawn;
    if (in_sight(*s.object)) return s.widget->update();
    set_looks(*s.widget, {before, s.drawn, everything});
    set_by_kind(*s.widget, s.drawn);
}

}   // namespace vorn
