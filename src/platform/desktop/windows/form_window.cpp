#include "platform/desktop/windows/form_window.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QSlider>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "platform/desktop/desktop_machine.h"
#include "platform/desktop/windows/sight_view.h"
#include "platform/desktop/windows/views.h"

namespace vorn {

static constexpr QSize designed(static_cast<int>(form_width / twips_per_pixel),
                                static_cast<int>(form_height / twips_per_pixel));
static constexpr QSize window_borders(16, 48);   // space for the frame of the window

static constexpr Qt::WindowStates filling = Qt::WindowMaximized | Qt::WindowFullScreen;

static QSize first_size(const QScreen* screen)
{
    if (screen == nullptr) return designed;
    const QSize available = screen->availableSize() - window_borders;
    return available.width() >= designed.width() && available.height() >= designed.height()
               ? designed
               : designed.scaled(available, Qt::KeepAspectRatio);
}

form_window::form_window(form& f, desktop_machine& pc) : model(f), pc_(pc), animation_(this), settled_(this)
{
    animation_.setInterval(33);   // milliseconds
    connect(&animation_, &QTimer::timeout, this, &form_window::animate);
    setStyle(&style_);
    setPalette(form_palette());
    setAutoFillBackground(true);
    setMouseTracking(true);
    setMinimumSize(designed / 2);
    setWindowIcon(pc.icon());
    settled_.setObjectName("settled");
    settled_.setSingleShot(true);
    settled_.setInterval(300);
    connect(&settled_, &QTimer::timeout, this, [this] {
        if (!(windowState() & (filling | Qt::WindowMinimized))) normal_ = geometry();
    });
    resize(first_size(screen()));
}

form_window::~form_window()
{
    // The widgets use style_ and objects_, so they are deleted first.
    qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

shown_object* form_window::shown(const screen_object* o) const
{
    for (const auto& s : objects_)
        if (s->object == o) return s.get();
    return nullptr;
}

QWidget* form_window::widget(const screen_object& o) const
{
    const shown_object* s = shown(&o);
    return s == nullptr ? nullptr : s->widget;
}

// Objects -------------------------------------------------------------------------------------------------

void form_window::make_object(screen_object& o)
{
    if (shown(&o) != nullptr) return;
    if (o.parent != nullptr) make_object(*o.parent);
    shown_object& s = *objects_.emplace_back(std::make_unique<shown_object>());
    s.object = &o;
    shown_object* parent = shown(o.parent);
    if (in_sight(o)) {
        s.widget = parent->widget;
        parent->inside.push_back(&s);
    } else {
        if (o.kind == object_kind::sight && parent == nullptr) sight_edge_ = new sight_edge(this);
        make_widget(s, parent == nullptr ? this : parent->widget,
                    [this](const std::function<void()>& event) { pc_.run(event); });
        if (auto* sight = dynamic_cast<sight_view*>(s.widget)) {
            sight->now = [this] { return pc_.now(); };
            sights_.push_back(sight);
        }
        if (has_mouse_handler(o) || move_handler_of(o) != nullptr) s.widget->installEventFilter(this);
        if (auto* b = qobject_cast<QAbstractButton*>(s.widget)) connect_space(*b, o);
    }
    if (!in_sight(o)) set_growth(*s.widget, growth_of(&o));
    draw_fields(s, true);
}

// Buttons that act while held also act while Space is down. The mouse is handled by mouse_event: the button's
// signals would report a release when the mouse leaves the button.
void form_window::connect_space(QAbstractButton& b, screen_object& o)
{
    if (!o.MouseDown && !o.MouseUp) return;
    connect(&b, &QAbstractButton::pressed, &b, [this, &o] {
        if (QGuiApplication::mouseButtons() != Qt::NoButton || !takes_input(o)) return;
        pressed_by_space_ = &o;
        pc_.press(o);
    });
    connect(&b, &QAbstractButton::released, &b, [this, &o] {
        if (pressed_by_space_ != &o) return;
        pressed_by_space_ = nullptr;
        if (pc_.is_pressed(o)) pc_.release_pressed();
    });
}

void form_window::sync()
{
    if (fitted_ != size()) arrange_objects();
    bool widgets_moved = objects_.size() != model.objects.size(), rearranged = false;
    if (widgets_moved)
        for (screen_object* o : model.objects) make_object(*o);
    for (const auto& s : objects_) {
        const object_fields& now = *s->object;
        if (now == s->drawn) {
            s->before = s->drawn;
            continue;
        }
        const bool moved = !in_sight(*s->object) && static_cast<const area&>(now) != s->drawn;
        widgets_moved |= moved;
        rearranged |= moved && arrangement_.places.contains(s->object);
        rearranged |= s->object->Visible != s->drawn.Visible && affects_arrangement(*s->object);
        draw_fields(*s, false);
    }
    if (rearranged)
        arrange_objects();
    else if (widgets_moved)
        place_objects();
    animate();
    const QString title = QString::fromStdString(model.Caption);
    if (windowTitle() != title) setWindowTitle(title);
    const screen_object* focus = std::exchange(model.takes_focus, nullptr);
    if (QWidget* w = focus == nullptr ? nullptr : widget(*focus)) w->setFocus();
}

sight_view* form_window::sight_of(const screen_object& ground) const
{
    return dynamic_cast<sight_view*>(widget(ground));
}

void form_window::clear_strikes()
{
    for (sight_view* v : sights_) v->clear_strikes();
}

void form_window::animate()
{
    bool moving = false;
    for (sight_view* v : sights_) moving |= isVisible() && v->animate();
    if (moving != animation_.isActive()) moving ? animation_.start() : animation_.stop();
}

void form_window::set_progress(double part)
{
    for (sight_view* v : sights_) v->set_progress(part);
}

void form_window::paint_now()
{
    QEvent update(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(this, &update);
}

// Scale ---------------------------------------------------------------------------------------------------

void form_window::arrange_objects()
{
    arrangement_ = arrange(model, size());
    fitted_ = size();
    const bool scaled = std::exchange(style_.scale, arrangement_.scale) != arrangement_.scale;
    for (const auto& s : objects_) {
        if (in_sight(*s->object)) continue;
        const bool grown = set_growth(*s->widget, growth_of(s->object));
        if (scaled || grown) draw_fields(*s, true);
    }
    place_objects();
}

// The place of an object, moved into its area `Within` if there is one.
static QRectF own_place(const object_fields& o)
{
    const area& a = o.Within;
    if (a.Width <= 0) return {o.Left, o.Top, o.Width, o.Height};
    return {std::clamp(o.Left, a.Left, a.Left + a.Width - o.Width),
            std::clamp(o.Top, a.Top, a.Top + a.Height - o.Height), o.Width, o.Height};
}

// Where an object is shown in its parent, in twips of the parent.
QRectF form_window::shown_place(const screen_object& o) const
{
    const auto arranged = arrangement_.places.find(&o);
    if (arranged != arrangement_.places.end()) return arranged->second;
    const QRectF own = own_place(o);
    const auto enlarged = arrangement_.enlarged.find(&o);
    if (enlarged == arrangement_.enlarged.end()) return own;
    const enlargement& e = enlarged->second;
    return {own.topLeft() * e.factor + QPointF(e.right, e.down), own.size() * e.factor};
}

// The factor by which an object and everything in it is enlarged.
double form_window::growth_of(const screen_object* o) const
{
    double growth = 1;
    for (; o != nullptr; o = o->parent) {
        const auto enlarged = arrangement_.enlarged.find(o);
        if (enlarged != arrangement_.enlarged.end()) growth *= enlarged->second.factor;
    }
    return growth;
}

QPointF form_window::corner_of(const screen_object* o) const
{
    QPointF at;
    for (; o != nullptr; o = o->parent) at += shown_place(*o).topLeft() * growth_of(o->parent);
    return at;
}

// Edges are rounded in coordinates of the form, so that aligned objects stay aligned at every scale.
QRect form_window::place_of(const screen_object& o) const
{
    const auto pixel = [&](const QPointF& p) { return (p / twips_per_pixel * style_.scale).toPoint(); };
    const QPoint origin = pixel(corner_of(o.parent));
    const QRectF in_parent = shown_place(o);
    const double growth = growth_of(o.parent);
    const QRectF twips(corner_of(o.parent) + in_parent.topLeft() * growth, in_parent.size() * growth);
    const QRect at(pixel(twips.topLeft()) - origin, pixel(twips.bottomRight()) - origin - QPoint(1, 1));
    return o.parent == nullptr ? at.translated(arrangement_.corner.toPoint()) : at;
}

void form_window::place_objects()
{
    for (const auto& s : objects_) {
        if (in_sight(*s->object)) continue;
        s->widget->setGeometry(place_of(*s->object));
        if (s->object->kind == object_kind::sight && s->object->parent == nullptr)
            sight_edge_->surround(*s->widget);
    }
    update();
}

void form_window::resizeEvent(QResizeEvent*)
{
    settled_.start();
    if (fitted_ != size()) arrange_objects();
}

void form_window::paintEvent(QPaintEvent*)
{
    if (!std::exchange(painted_, true)) QTimer::singleShot(0, this, [this] { pc_.hide_leaving(); });
}

void form_window::showEvent(QShowEvent*)
{
    painted_ = false;
}

// A slider whose release event goes to another window would keep following the mouse or paging.
void form_window::release_sliders()
{
    for (QSlider* s : findChildren<QSlider*>()) {
        const QPointF nowhere(-1, -1);
        QMouseEvent up(QEvent::MouseButtonRelease, nowhere, s->mapToGlobal(nowhere), Qt::LeftButton,
                       Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(s, &up);
    }
}

// Place ---------------------------------------------------------------------------------------------------

// A window that is being maximised may get its new size before its new state. So the geometry
// after a move or resize is taken as the normal one only when the window has kept it for a while.
void form_window::moveEvent(QMoveEvent*)
{
    settled_.start();
}

// Prefers normal_, since QWidget::normalGeometry() may be the geometry of the maximised window.
QRect form_window::normal_place() const
{
    if (!(windowState() & filling)) return geometry();
    return normal_.isValid() ? normal_ : normalGeometry();
}

// The rectangle, moved and shrunk to fit on its screen if necessary.
static QRect on_screen(const QRect& at, const QWidget& w)
{
    const QScreen* screen = QGuiApplication::screenAt(at.center());
    const QRect available = (screen != nullptr ? screen : w.screen())->availableGeometry();
    if (available.contains(at)) return at;
    const QSize size = at.size().boundedTo(available.size() - window_borders);
    const QPoint first =
        available.topLeft() + QPoint(window_borders.width() / 2, window_borders.height() - 8);
    const QPoint last = available.bottomRight() - QPoint(size.width(), size.height()) - QPoint(8, 8);
    return {QPoint(std::clamp(at.x(), first.x(), std::max(first.x(), last.x())),
                   std::clamp(at.y(), first.y(), std::max(first.y(), last.y()))),
            size};
}

void form_window::toggle_full_screen()
{
    normal_ = normal_place();
    if (!isFullScreen()) {
        before_full_screen_ = windowState() & Qt::WindowMaximized;
        return setWindowState(Qt::WindowFullScreen);
    }
    setWindowState(std::exchange(before_full_screen_, {}));
    if (!isMaximized()) setGeometry(on_screen(normal_, *this));
}

// The rectangle, moved a step down and right, or less if the window with its frame would leave the screen.
static QRect cascaded(const QRect& at, const QWidget& before)
{
    constexpr QPoint step(28, 28);
    const QPoint free =
        before.screen()->availableGeometry().bottomRight() - before.frameGeometry().bottomRight();
    return at.translated(std::clamp(free.x(), 0, step.x()), std::clamp(free.y(), 0, step.y()));
}

void form_window::place_like(const form_window& before, bool cascade)
{
    const Qt::WindowStates kept = before.windowState() & filling;
    const QRect place = before.normal_place();
    before_full_screen_ = before.before_full_screen_;
    setWindowState(Qt::WindowNoState);
    if (place.isValid()) {
        normal_ = kept != Qt::WindowNoState ? on_screen(place, before)
                  : cascade                 ? cascaded(place, before)
                                            : place;
        setGeometry(normal_);
        // Marks the position as set by the program. Otherwise the window manager would choose another one if
        // the native window already exists.
        if (QWindow* handle = windowHandle()) handle->setGeometry(handle->geometry());
    }
    setWindowState(kept);
}

// User input ----------------------------------------------------------------------------------------------

bool form_window::event(QEvent* e)
{
    if (e->type() == QEvent::WindowActivate) pc_.activated(model);
    if (e->type() == QEvent::WindowDeactivate) pc_.release_input();
    if (e->type() == QEvent::Leave && model.MouseLeave && model.state == form_state::shown)
        pc_.run(model.MouseLeave);
    return QWidget::event(e);
}

void form_window::closeEvent(QCloseEvent* e)
{
    e->ignore();
    pc_.run([this] { close_by_frame(model); });
}

void form_window::mouseMoveEvent(QMouseEvent*)
{
    if (model.MouseMove && model.state == form_state::shown) pc_.run(model.MouseMove);
}

// Returns true if the widget must not get the event. This is so when MouseDown has opened a box: the box gets
// the release event, so a button that had got the press would stay down. A disabled object gets MouseMove
// too: its hint is also shown.
bool form_window::mouse_event(screen_object& o, const QMouseEvent& e)
{
    const bool left = e.button() == Qt::LeftButton, release = e.type() == QEvent::MouseButtonRelease;
    if (left && release) pc_.release_pressed();
    if (left && !release && o.ClickAt) {
        const QWidget& w = *widget(o);
        const QPointF at(e.position().x() / w.width() * o.Width, e.position().y() / w.height() * o.Height);
        pc_.run([&o, at] { user_click_at(o, at.x(), at.y()); });
    }
    if (left && !release) return (o.MouseDown || o.MouseUp) && takes_input(o) && !pc_.press(o);
    const screen_object* over = move_handler_of(o);
    if (e.type() == QEvent::MouseMove && over != nullptr && model.state == form_state::shown)
        pc_.run(over->MouseMove);
    return false;
}

bool form_window::eventFilter(QObject* watched, QEvent* e)
{
    if (e->type() < QEvent::MouseButtonPress || e->type() > QEvent::MouseMove) return false;
    for (const auto& s : objects_)
        if (s->widget == watched && !in_sight(*s->object))
            return mouse_event(*s->object, static_cast<const QMouseEvent&>(*e));
    return false;
}

}   // namespace vorn
