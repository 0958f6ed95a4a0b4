#include "platform/desktop/drawing/effects.h"

#include <QList>
#include <algorithm>
#include <array>
#include <memory>

#include "platform/desktop/drawing/pictures.h"

namespace vorn {

namespace {

constexpr int frames = 16, frames_in_row = 4;
constexpr int smallest = 16;   // pixels; width of the explosion at the furthest target, at scale 1

struct sheet {
    const char* name;   // of the picture file
    bool by_heat;       // the picture is the visual one and has to be converted
    double foot;        // height of the ground above the lower edge, in heights of a frame
};
constexpr std::array<sheet, 8> sheets{{{"explosion", false, 0},   // indexed by `effect`
                                       {"explosion", true, 0},
                                       {"fire", false, 0},
                                       {"fire", true, 0},
                                       {"burst_fin", false, .05},
                                       {"burst_hesh", false, .05},
                                       {"burst_coax", false, .05},
                                       {"hot_spot", false, .05}}};

// Adds copies at 1/2, 1/4 ... of the size: QPainter skips source pixels when it scales a picture to less than
// half.
picture with_smaller_copies(const char* name, const QImage& frame)
{
    auto pixels = std::make_shared<decoded_picture>();
    for (QImage copy = frame; copy.width() >= smallest;
         copy = copy.scaled(copy.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation))
        pixels->sizes.push_back(copy);
    std::reverse(pixels->sizes.begin(), pixels->sizes.end());
    return {name, frame.width() * twips_per_pixel, frame.height() * twips_per_pixel, pixels};
}

// Converts a visual picture for the thermal sight. Fire becomes white, and dark smoke light grey, since it is
// warmer than the ground.
QImage by_heat(QImage sheet)
{
    constexpr int smoke = 150;   // grey value, of 255
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

QList<picture> frames_of(const sheet& s)
{
    QImage whole =
        QImage(QString(":/pictures/%1.png").arg(s.name)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (s.by_heat) whole = by_heat(std::move(whole));
    const QSize size = whole.size() / frames_in_row;
    QList<picture> found;
    for (int i = 0; i < frames && !whole.isNull(); ++i) {
        const QPoint corner(i % frames_in_row * size.width(), i / frames_in_row * size.height());
        found.push_back(with_smaller_copies(s.name, whole.copy(QRect(corner, size))));
    }
    return found;
}

}   // namespace

void draw_effect(QPainter& p, effect what, const QRectF& at, int frame)
{
    static std::array<QList<picture>, sheets.size()> read;
    const auto number = static_cast<std::size_t>(what);
    if (read[number].isEmpty()) read[number] = frames_of(sheets[number]);
    const QRectF on_ground = at.translated(0, sheets[number].foot * at.height());
    if (frame >= 0 && frame < read[number].size()) draw_picture(p, read[number][frame], on_ground.toRect());
}

}   // namespace vorn
