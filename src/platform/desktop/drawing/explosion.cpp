#include "platform/desktop/drawing/explosion.h"

#include <QList>
#include <algorithm>
#include <memory>

#include "platform/desktop/drawing/pictures.h"

namespace vorn {

namespace {

constexpr int frames = 16, frames_in_row = 4;
constexpr int smallest = 16;   // pixels; the size of the explosion at the furthest target

// Adds copies of half the size, a quarter and so on: QPainter skips source pixels when it scales a picture to
// less than half.
picture with_smaller_copies(const QImage& frame)
{
    auto pixels = std::make_shared<decoded_picture>();
    for (QImage copy = frame; copy.width() >= smallest;
         copy = copy.scaled(copy.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation))
        pixels->sizes.push_back(copy);
    std::reverse(pixels->sizes.begin(), pixels->sizes.end());
    return {"explosion", frame.width() * twips_per_pixel, frame.height() * twips_per_pixel, pixels};
}

QImage read_sheet()
{
    return QImage(":/pictures/explosion.png").convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// Fire is white; smoke, though black to the eye, is warmer than the ground.
QImage by_heat(QImage sheet)
{
    constexpr int smoke = 150;   // of 255
    for (int y = 0; y < sheet.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(sheet.scanLine(y));
        for (int x = 0; x < sheet.width(); ++x) {
            const QRgb c = line[x];
            const int brightest = std::max({qRed(c), qGreen(c), qBlue(c)});
            const int heat = (qAlpha(c) * smoke + brightest * (255 - smoke)) / 255;
            line[x] = qRgba(heat, heat, heat, qAlpha(c));
        }
    }
    return sheet;
}

QList<picture> frames_of(const QImage& sheet)
{
    const QSize size = sheet.size() / frames_in_row;
    QList<picture> found;
    for (int i = 0; i < frames && !sheet.isNull(); ++i) {
        const QPoint corner(i % frames_in_row * size.width(), i / frames_in_row * size.height());
        found.push_back(with_smaller_copies(sheet.copy(QRect(corner, size))));
    }
    return found;
}

void draw_frame(QPainter& p, const QList<picture>& all, const QRectF& at, int frame)
{
    if (frame >= 0 && frame < all.size()) draw_picture(p, all[frame], at.toRect());
}

}   // namespace

void draw_explosion(QPainter& p, const QRectF& at, int frame)
{
    static const QList<picture> all = frames_of(read_sheet());
    draw_frame(p, all, at, frame);
}

void draw_hot_explosion(QPainter& p, const QRectF& at, int frame)
{
    static const QList<picture> all = frames_of(by_heat(read_sheet()));
    draw_frame(p, all, at, frame);
}

}   // namespace vorn
