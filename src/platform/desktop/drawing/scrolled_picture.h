// A picture much larger than its view. What stays visible while the picture scrolls is copied, not scaled
// again: on a screen of 3840 x 2160, QPainter needs about 16 ms to scale it, much more than to copy it.
#pragma once

#include <QImage>
#include <QPainter>

namespace vorn {

class scrolled_picture {
public:
    // Draws the part of the image, scaled to `at`, that is in `view`. Both rectangles are in device pixels.
    // Scales only what the last call didn't draw at this size.
    void draw(QPainter&, const QImage&, const QRect& at, const QRect& view);

private:
    void keep(const QImage&, const QSize& scaled, const QRect& part);

    QImage tile_;   // size of the view; has pixel (x, y) of the scaled picture at (x % width, y % height)
    QRect kept_;    // the part of the scaled picture that is in the tile
    QSize scaled_;
    qint64 image_ = 0;   // cacheKey of the image
};

}   // namespace vorn
