#include "platform/desktop/drawing/pictures.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPixmapCache>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <mutex>
#include <string_view>
#include <utility>

#include "platform/desktop/drawing/drawings.h"

namespace vorn {

namespace {

// Limits for the memory of a decoded image, in MB, to avoid swapping. Images of an icon that exceed the limit
// are skipped. Their real size counts, not the one in the icon's directory.
constexpr int largest_picture_mb = 512, largest_icon_mb = 8;
constexpr std::size_t max_icon_sizes = 64;

// Converts an image to a format that QPainter draws without conversion.
QImage drawable(QImage image)
{
    image.setDevicePixelRatio(1);
    return std::move(image).convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                                    : QImage::Format_RGB32);
}

// One or three bytes a pixel are slower to draw but save memory: 8024 x 4000 pixels of 32 bits take 128 MB.
QImage compact(QImage image)
{
    if (image.hasAlphaChannel()) return drawable(std::move(image));
    image.setDevicePixelRatio(1);
    const bool grey = image.format() == QImage::Format_Grayscale8;
    return grey ? image : std::move(image).convertToFormat(QImage::Format_RGB888);
}

// Protects QImageReader's allocation limit, which all threads share. effects.cpp doesn't lock it: its
// pictures are smaller than either limit.
std::mutex allocation_limit;

std::vector<QImage> read_sizes(QImageReader& reader)
{
    const std::lock_guard limited(allocation_limit);
    std::vector<QImage> sizes;
    const bool icon = reader.imageCount() > 1 && !reader.supportsAnimation();
    QImageReader::setAllocationLimit(icon ? largest_icon_mb : largest_picture_mb);
    do {
        QImage image = reader.read();
        if (!image.isNull()) sizes.push_back(drawable(std::move(image)));
    } while (icon && sizes.size() < max_icon_sizes && reader.jumpToNextImage());
    QImageReader::setAllocationLimit(largest_picture_mb);
    std::stable_sort(sizes.begin(), sizes.end(),
                     [](const QImage& a, const QImage& b) { return a.width() < b.width(); });
    return sizes;
}

// Qt's name of the format, detected from the first bytes. Empty for formats that the program doesn't support,
// even if a plugin on this machine does.
QByteArray picture_format(QIODevice& file)
{
    using namespace std::string_view_literals;
    constexpr std::pair<std::string_view, const char*> signatures[] = {
        {"\x89PNG\r\n\x1a\n"sv, "png"}, {"\xFF\xD8"sv, "jpeg"}, {"BM"sv, "bmp"}, {"GIF8"sv, "gif"},
        {"\0\0\1\0"sv, "ico"},          {"\0\0\2\0"sv, "cur"}};
    const QByteArray head = file.peek(8);
    for (const auto& [signature, format] : signatures)
        if (head.startsWith(signature)) return format;
    return {};
}

}   // namespace

QString twin_of(const QFileInfo& file)
{
    return file.completeBaseName() + twin_mark + '.' + file.suffix();
}

static QString find_twin(const QFileInfo& file, const QSize& natural, const QString& more_twins)
{
    for (const QString& folder : {file.path(), more_twins}) {
        if (folder.isEmpty()) continue;
        const QString path = folder + '/' + twin_of(file);
        QImageReader reader(path);
        reader.setDecideFormatFromContent(true);
        if (reader.size() == natural * 2) return path;
    }
    return {};
}

loaded_picture read_picture(const std::string& source, const std::string& path, const QString& more_twins)
{
    const QFileInfo file(QString::fromStdString(path));
    if (!file.exists()) return {.reason = "The file does not exist."};
    if (!file.isFile()) return {.reason = "It is not a file."};
    QFile bytes(file.filePath());
    const QByteArray format = bytes.open(QIODevice::ReadOnly) ? picture_format(bytes) : QByteArray();
    if (format.isEmpty()) return {.reason = "It is not a picture that can be read."};
    QImageReader reader(&bytes, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(false);
    if (qint64{4} * reader.size().width() * reader.size().height() > qint64{largest_picture_mb} * 1024 * 1024)
        return {.reason = "The picture is too large."};
    auto pixels = std::make_shared<decoded_picture>();
    pixels->sizes = read_sizes(reader);
    if (pixels->sizes.empty()) return {.reason = "It is not a picture that can be read."};
    const QSize natural = pixels->sizes.back().size();
    pixels->twin = find_twin(file, natural, more_twins);
    QImage& largest = pixels->sizes.back();
    if (!pixels->twin.isEmpty()) largest = compact(std::move(largest));
    return {picture{source, natural.width() * twips_per_pixel, natural.height() * twips_per_pixel, pixels},
            {}};
}

static QImage read_twin(const QString& path)
{
    const std::lock_guard limited(allocation_limit);
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    QImage twin = reader.read();
    return twin.isNull() ? twin : compact(std::move(twin));
}

static const decoded_picture* pixels_of(const picture& pic)
{
    return dynamic_cast<const decoded_picture*>(pic.pixels.get());
}

static bool is_read(const std::shared_future<QImage>& twin)
{
    return twin.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

bool reads_twin(const picture& pic)
{
    const decoded_picture* pixels = pixels_of(pic);
    return pixels != nullptr && pixels->twin_image.valid() && !is_read(pixels->twin_image);
}

void forget_twin(const picture& pic)
{
    const decoded_picture* pixels = pixels_of(pic);
    if (pixels != nullptr && pixels->twin_image.valid() && is_read(pixels->twin_image))
        pixels->twin_image = {};
}

const QImage* image_for(const picture& pic, const QSize& device, twin_reading reading)
{
    const decoded_picture* decoded = pixels_of(pic);
    if (decoded == nullptr || decoded->sizes.empty()) return nullptr;
    const auto enough = [&](const QImage& i) {
        return i.width() >= device.width() && i.height() >= device.height();
    };
    const auto found = std::find_if(decoded->sizes.begin(), decoded->sizes.end(), enough);
    if (found != decoded->sizes.end()) return &*found;
    const QImage* largest = &decoded->sizes.back();
    if (decoded->twin.isEmpty()) return largest;
    std::shared_future<QImage>& twin = decoded->twin_image;
    if (!twin.valid()) twin = std::async(std::launch::async, read_twin, decoded->twin);
    if (reading == twin_reading::meanwhile_without && !is_read(twin)) return largest;
    return twin.get().isNull() ? largest : &twin.get();
}

void draw_cached(QPainter& p, const QString& key, const QRect& at, const std::function<void(QPainter&)>& draw)
{
    constexpr int largest_side = 1200;   // pixels; larger drawings would evict the others
    if (std::max(at.width(), at.height()) > largest_side) return draw(p);
    const QString sized_key = QString("%1 %2 %3").arg(key).arg(at.width()).arg(at.height());
    QPixmap drawn;
    if (!QPixmapCache::find(sized_key, &drawn)) {
        QPixmapCache::setCacheLimit(64 * 1024);   // kilobytes
        drawn = QPixmap(at.size());
        drawn.fill(Qt::transparent);
        QPainter q(&drawn);
        q.translate(-at.topLeft());
        draw(q);
        q.end();
        QPixmapCache::insert(sized_key, drawn);
    }
    p.drawPixmap(at.topLeft(), drawn);
}

void draw_picture(QPainter& p, const picture& pic, const QRect& at)
{
    if (at.isEmpty()) return;
    if (is_drawing(pic)) {
        // The drawing of a scale (a tall column of figures) can extend below its rectangle.
        const int below = at.height() > at.width() ? at.width() / 4 : 0;
        return draw_cached(p, QString::fromStdString(pic.source), at.adjusted(0, 0, 0, below),
                           [&](QPainter& q) { draw_named(q, pic.source, QRectF(at)); });
    }
    const QImage* image = image_for(pic, at.size());
    if (image == nullptr) return;
    p.setRenderHint(QPainter::SmoothPixmapTransform, image->size() != at.size());
    p.drawImage(at, *image);
}

QRect to_device_pixels(QPainter& p, const QSize& widget)
{
    const QTransform view = p.worldTransform().inverted() * p.deviceTransform();
    const auto pixel = [&](int x, int y) {
        const QPointF at = p.deviceTransform().map(QPointF(x, y));
        return QPoint(static_cast<int>(std::lround(at.x())), static_cast<int>(std::lround(at.y())));
    };
    const QPoint origin = pixel(0, 0), corner = pixel(widget.width(), widget.height());
    p.setWorldTransform(QTransform::fromTranslate(origin.x(), origin.y()) * view.inverted());
    return QRect(0, 0, corner.x() - origin.x(), corner.y() - origin.y());
}

}   // namespace vorn
