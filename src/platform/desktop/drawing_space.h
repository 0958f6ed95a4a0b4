// What the drawings share: the box in which one is thought, and some shorthands for its colours.
#pragma once

#include <QLinearGradient>
#include <QPainter>
#include <algorithm>
#include <initializer_list>
#include <utility>

namespace vorn {

// Saves the painter, and maps the square or box in which a drawing is thought onto where it goes.
class drawing_space {
public:
    drawing_space(QPainter& painter, const QRectF& at, const QSizeF& thought) : p(painter)
    {
        p.save();
        p.setRenderHint(QPainter::Antialiasing);
        p.translate(at.topLeft());
        p.scale(at.width() / thought.width(), at.height() / thought.height());
    }
    drawing_space(const drawing_space&) = delete;
    drawing_space& operator=(const drawing_space&) = delete;
    ~drawing_space() { p.restore(); }

private:
    QPainter& p;
};

inline QRectF centred_square(const QRectF& at)
{
    const double side = std::min(at.width(), at.height());
    return QRectF(at.center().x() - side / 2, at.center().y() - side / 2, side, side);
}

inline QColor with_alpha(QColor c, double alpha)
{
    c.setAlphaF(static_cast<float>(alpha));
    return c;
}

inline QLinearGradient upright(double top, double bottom,
                               std::initializer_list<std::pair<double, QColor>> stops)
{
    QLinearGradient g(0, top, 0, bottom);
    for (const auto& [where, c] : stops) g.setColorAt(where, c);
    return g;
}

}   // namespace vorn
