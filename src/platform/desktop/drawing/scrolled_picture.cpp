#include "platform/desktop/drawing/scrolled_picture.h"

#include <functional>

namespace vorn {

static constexpr int narrow = 200;   // device pixels

// Splits a part of the scaled picture at multiples of the tile's size. Calls `each` with each piece and the
// place of the tile's upper left corner.
static void for_each_piece(const QRect& part, const QSize& tile,
                           const std::function<void(const QRect&, const QPoint&)>& each)
{
    const QPoint first(part.left() / tile.width(), part.top() / tile.height());
    for (int y = first.y() * tile.height(); y <= part.bottom(); y += tile.height())
        for (int x = first.x() * tile.width(); x <= part.right(); x += tile.width())
            each(part & QRect(QPoint(x, y), tile), QPoint(x, y));
}

void scrolled_picture::keep(const QImage& image, const QSize& scaled, const QRect& part)
{
    QPainter p(&tile_);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.setCompositionMode(QPainter::CompositionMode_Source);
    for_each_piece(part, tile_.size(), [&](const QRect& piece, const QPoint& corner) {
        // QPainter divides more than 95 rows among threads. For a narrow piece, waiting for the threads takes
        // longer than drawing.
        const int rows = piece.width() < narrow ? 64 : piece.height();
        for (int y = piece.top(); y <= piece.bottom(); y += rows) {
            p.setClipRect(piece.translated(-corner) & QRect(0, y - corner.y(), tile_.width(), rows));
            p.drawImage(QRect(-corner, scaled), image);
        }
    });
}

void scrolled_picture::draw(QPainter& p, const QImage& image, const QRect& at, const QRect& view)
{
    if (image_ != image.cacheKey() || scaled_ != at.size() || tile_.size() != view.size()) {
        tile_ = QImage(view.size(),
                       image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
        image_ = image.cacheKey();
        scaled_ = at.size();
        kept_ = {};
    }
    const QRect part = (view & at).translated(-at.topLeft());
    for (const QRect& fresh : QRegion(part) - QRegion(kept_)) keep(image, at.size(), fresh);
    kept_ = part;
    for_each_piece(part, tile_.size(), [&](const QRect& piece, const QPoint& corner) {
        p.drawImage(piece.topLeft() + at.topLeft(), tile_, piece.translated(-corner));
    });
}

}   // namespace vorn
