#include "platform/desktop/drawing/effects.h"

#include <QList>
#include <algorithm>
#include <future>
#include <memory>

#include "platform/desktop/drawing/pictures.h"

namespace vorn {

namespace {

constexpr int frames_in_row = 4;
// Least width of a copy of a frame, pixels. The farthest explosion is 17 wide at scale 1.
constexpr int smallest = 16;

struct sheet {
    const char *seen, *hot;   // names of the picture files for the visual and the thermal sight
    double foot;              // a frame is drawn lower by this, in heights of the frame
};
// Indexed by `effect`.
constexpr sheet sheets[] = {{"explosion", "hot_explosion", 0},
                            {"fire", "hot_fire", 0},
                            {"burst_fin", "hot_fin", .05},
                            {"burst_hesh", "hot_hesh", .05},
                            {"burst_coax", "hot_coax", .05}};

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

QList<picture> frames_of(const char* name)
{
    const QImage whole =
        QImage(QString(":/pictures/%1.png").arg(name)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QSize size = whole.size() / frames_in_row;
    QList<picture> found;
    for (int i = 0; i < frames && !whole.isNull(); ++i) {
        const QPoint corner(i % frames_in_row * size.width(), i / frames_in_row * size.height());
        found.push_back(with_smaller_copies(name, whole.copy(QRect(corner, size))));
    }
    return found;
}

using animations = QList<QList<picture>>;

animations animations_of(bool hot)
{
    animations all;
    for (const sheet& s : sheets) all << frames_of(hot ? s.hot : s.seen);
    return all;
}

// To save memory, only the animations for one sight are kept: the last one asked for.
const std::shared_future<animations>& animations_for(bool hot)
{
    static std::shared_future<animations> read;
    static bool read_hot;
    if (!read.valid() || read_hot != hot) read = std::async(std::launch::async, animations_of, hot);
    read_hot = hot;
    return read;
}

}   // namespace

void read_effects(bool hot)
{
    animations_for(hot);
}

void draw_effect(QPainter& p, effect what, bool hot, const QRectF& at, int frame)
{
    const int number = static_cast<int>(what);
    const QList<picture>& frames_read = animations_for(hot).get()[number];
    const QRectF on_ground = at.translated(0, sheets[number].foot * at.height());
    if (frame >= 0 && frame < frames_read.size()) draw_picture(p, frames_read[frame], on_ground.toRect());
}

}   // namespace vorn
