#include "platform/desktop/windows/sight_view.h"

#include <QHideEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/desktop/drawing/drawings.h"
#include "platform/desktop/drawing/effects.h"
#include "platform/desktop/drawing/look.h"
#include "platform/desktop/drawing/pictures.h"
#include "platform/desktop/drawing/sight.h"

namespace vorn {

namespace {

constexpr double smallest_burst = 5;      // pixels at scale 1
constexpr double lean = 0.22;             // final shear of HESH smoke, per unit of `wind`
constexpr double drift = 0.1;             // final drift of HESH smoke, in burst widths per unit of `wind`
constexpr double animation_step = 0.03;   // seconds
constexpr double fire_size = 2;           // in widths of the target
constexpr double fire_growing = 0.2;      // seconds; the fire fades in during the explosion
constexpr double fire_turn = 1.3;         // seconds for one loop of the frames
constexpr double fire_dying = 1.1;        // seconds that a fire outlasts its target

struct burst {
    effect animation;
    double seconds;
    double size;   // width and height, in widths of a target
};

// Indexed by `round_kind`: FIN throws up a jet of earth, HESH a cloud of smoke, a coax round a little dust.
constexpr burst bursts[] = {{effect::fin, 1.6, 1.7}, {effect::hesh, 2.0, 2.2}, {effect::coax, 1.4, 0.6}};

const burst& burst_of(const strike& s)
{
    return bursts[static_cast<int>(s.round)];
}

// Draws an animation at a fractional frame number: 2.25 blends a quarter of frame 3 into frame 2.
void draw_moving(QPainter& p, effect e, bool hot, const QRectF& at, double position, bool endless)
{
    const double opacity = p.opacity();
    const int frame = static_cast<int>(position);
    const double part = position - frame;
    draw_effect(p, e, hot, at, endless ? frame % frames : frame);
    p.setOpacity(opacity * part);
    draw_effect(p, e, hot, at, endless ? (frame + 1) % frames : frame + 1);
    p.setOpacity(opacity);
}

// A burning target is nearly black on the visual sight and bright on the thermal one.
void draw_wreck(QPainter& p, const object_fields& o, const QRect& at)
{
    QImage wreck(at.size(), QImage::Format_ARGB32_Premultiplied);
    wreck.fill(Qt::transparent);
    QPainter q(&wreck);
    draw_picture(q, o.Picture, QRect(QPoint(0, 0), at.size()));
    q.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    q.fillRect(wreck.rect(), o.Fire == fire::hot ? QColor(255, 255, 255, 130) : QColor(18, 14, 10, 205));
    p.drawImage(at.topLeft(), wreck);
}

}   // namespace

sight_view::sight_view(const shown_object& sight, QWidget* parent) : QWidget(parent), sight_(sight)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    twin_wait_.setSingleShot(true);
    twin_wait_.setInterval(30);   // milliseconds
    connect(&twin_wait_, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

double sight_view::scale() const
{
    return scale_of(*this) * devicePixelRatioF();
}

void sight_view::show_strike(const strike& s)
{
    strikes_.push_back({s, now()});
}

void sight_view::clear_strikes()
{
    strikes_.clear();
    fires_.clear();
    update();
}

void sight_view::set_progress(double part)
{
    if (std::exchange(progress_, part) != part) update();
}

// A fire goes on for a moment after its target has been taken down.
void sight_view::find_fires(double time)
{
    for (const shown_object* o : sight_.inside) {
        const auto shown = fires_.find(o);
        if (o->drawn.Fire == fire::none)
            fires_.erase(o);
        else if (o->drawn.Visible)
            fires_.insert_or_assign(o, shown_fire{shown == fires_.end() ? time : shown->second.lit, {}});
        else if (shown != fires_.end() && !shown->second.dying)
            shown->second.dying = time;
    }
    std::erase_if(fires_, [&](const auto& f) {
        return f.second.dying && (time < *f.second.dying || time > *f.second.dying + fire_dying);
    });
}

bool sight_view::animate()
{
    const double time = now();
    const bool moved = !strikes_.empty() || !fires_.empty();   // if they end, the last frame must be erased
    std::erase_if(strikes_, [&](const shown_strike& s) {
        return time < s.since || time > s.since + burst_of(s.what).seconds;
    });
    find_fires(time);
    const bool moves = !strikes_.empty() || !fires_.empty();
    if ((moved || moves) && (moved != moves || time < animated_ || time > animated_ + animation_step)) {
        animated_ = time;
        update();
    }
    return moves;
}

// The first burst must not wait until its pictures have been read.
void sight_view::showEvent(QShowEvent*)
{
    for (const shown_object* o : sight_.inside)
        if (is_tracer(*o->object)) read_effects(o->object->ForeColor == colour::hottracer);
}

void sight_view::hideEvent(QHideEvent* e)
{
    if (e->spontaneous()) return;   // the window is minimised; the practice goes on
    strikes_.clear();
    fires_.clear();
    ground_ = {};
    for (const shown_object* o : sight_.inside) forget_twin(o->drawn.Picture);
}

// Where a range picture is drawn. Place and size are rounded separately: if the edges were rounded, the size
// would change by a pixel while the picture moves.
QRect sight_view::ground_rect(const object_fields& o) const
{
    return {device_rect(o, scale()).topLeft(),
            (QSizeF(o.Width, o.Height) * (scale() / twips_per_pixel)).toSize()};
}

// The image of an object that is a range picture, recognised by its size: it is both wider and higher than
// the sight. Null for any other object.
const QImage* sight_view::ground_image(const object_fields& o, const QRect& whole) const
{
    const QSize size = ground_rect(o).size();
    if (size.width() <= whole.width() || size.height() <= whole.height()) return nullptr;
    if (o.kind != object_kind::image || o.Pale || is_drawing(o.Picture)) return nullptr;
    return image_for(o.Picture, size, twin_reading::meanwhile_without);
}

void sight_view::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    const QRect whole = to_device_pixels(p, size());
    const colour back = sight_.drawn.BackColor == colour::ground ? colour::black : sight_.drawn.BackColor;
    QRegion uncovered(whole.adjusted(-1, -1, 1, 1));
    for (const shown_object* o : sight_.inside)
        if (const QImage* image = o->drawn.Visible ? ground_image(o->drawn, whole) : nullptr) {
            if (!image->hasAlphaChannel()) uncovered -= ground_rect(o->drawn) & whole;
            // Checked before paint_objects chooses the image to draw: if the twin becomes ready in between,
            // there is one repaint too many, but the twin isn't missed.
            if (reads_twin(o->drawn.Picture)) twin_wait_.start();
        }
    for (const QRect& r : uncovered) p.fillRect(r, back_shade(back));
    paint_objects(p, whole);
}

// Strikes are drawn over the range picture, the target and the explosion, and under the marks of the sight
// and the rounds in flight.
void sight_view::paint_objects(QPainter& p, const QRect& whole)
{
    bool strikes_due = !strikes_.empty();
    for (const shown_object* o : sight_.inside) {
        if (o->drawn.kind != object_kind::image && std::exchange(strikes_due, false)) paint_strikes(p, whole);
        const auto burning = fires_.find(o);
        if (burning != fires_.end())
            paint_burning(p, o->drawn, burning->second);
        else if (!o->drawn.Visible)
            continue;
        else if (is_tracer(o->drawn))
            paint_tracer(p, *o);
        else if (const QImage* image = ground_image(o->drawn, whole))
            ground_.draw(p, *image, ground_rect(o->drawn), whole);
        else if (const QRect at = device_rect(o->drawn, scale()); at.intersects(whole))
            draw_object(p, o->drawn, at, scale());
    }
}

void sight_view::paint_tracer(QPainter& p, const shown_object& o)
{
    const double pixels = scale() / twips_per_pixel;
    const auto now = [&](double area::*side) {
        return (o.before.*side + (o.drawn.*side - o.before.*side) * progress_) * pixels;
    };
    draw_tracer(p, o.drawn, {now(&area::Left), now(&area::Top), now(&area::Width), now(&area::Height)},
                scale());
}

// The older the smoke of HESH, the more it leans with the wind.
void sight_view::paint_strikes(QPainter& p, const QRect& whole)
{
    for (const shown_strike& s : strikes_) {
        const burst& b = burst_of(s.what);
        const auto ground = std::ranges::find(sight_.inside, s.what.ground, &shown_object::object);
        if (ground == sight_.inside.end()) continue;
        const double pixels = scale() / twips_per_pixel;
        const QPointF foot =
            QPointF((*ground)->drawn.Left + s.what.Left, (*ground)->drawn.Top + s.what.Top) * pixels;
        const double size = std::max(s.what.size * b.size * pixels, smallest_burst * scale());
        const int reach = static_cast<int>(2 * size);
        if (!whole.adjusted(-reach, 0, reach, reach).contains(foot.toPoint())) continue;
        const double age = std::clamp((now() - s.since) / b.seconds, 0.0, 1.0);
        p.save();
        const double wind = s.what.round == round_kind::hesh ? s.what.wind * age : 0;
        p.translate(foot + QPointF(drift * wind * age * size, 0));
        p.shear(-lean * wind, 0);
        draw_moving(p, b.animation, s.what.hot, {-size / 2, -size, size, size}, age * frames, false);
        p.restore();
    }
}

// After its target has been taken down a fire gets smaller and fades.
void sight_view::paint_burning(QPainter& p, const object_fields& target, const shown_fire& f) const
{
    const QRect at = device_rect(target, scale());
    if (target.Visible) draw_wreck(p, target, at);
    const double age = now() - f.lit;
    const double left = f.dying ? std::clamp(1 - (now() - *f.dying) / fire_dying, 0.0, 1.0) : 1;
    const double size = fire_size * at.width() * (0.7 + 0.3 * left);
    const QRectF over(at.center().x() - size / 2, at.bottom() + 0.04 * size - size, size, size);
    p.setOpacity(std::clamp(age / fire_growing, 0.0, 1.0) * left * (2 - left));
    draw_moving(p, effect::fire, target.Fire == fire::hot, over, std::fmod(age / fire_turn, 1) * frames,
                true);
    p.setOpacity(1);
}

}   // namespace vorn
