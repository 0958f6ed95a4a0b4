// A picture much larger than its view, scaled once and then scrolled: QPainter takes some 16 ms to scale the
// view of a screen of 3840 x 2160, much more than to copy it.
#pragma once

#include <QImage>
#include <QPainter>

namespace vorn {

class scrolled_picture {
public:
    // Draws the image, scaled to `at`, as far as it is in the view; both are in device pixels. Only what has
    // come into view since the last call is scaled.
    void draw(QPainter&, const QImage&, const QRect& at, const QRect& view);
    void clear();

private:
    void keep(const QImage&, const QSize& scaled, const QRect& part);

    QImage tile_;   // as large as the view; the scaled picture repeats in it in both directions
    QRect kept_;    // the part of the scaled picture that is in the tile
    QSize scaled_;
    qint64 image_ = 0;   // QImage::cacheKey
};

}   // namespace vorn
