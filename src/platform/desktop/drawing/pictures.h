// Reads pictures from files, recognised by content, and draws them, or built-in drawings, at any size.
#pragma once

#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <functional>
#include <future>
#include <string>
#include <vector>

#include "platform/machine.h"

namespace vorn {

// The images of a picture file, smallest first: several sizes for an icon, one for other formats.
struct decoded_picture final : picture_pixels {
    std::vector<QImage> sizes;
    QString twin = {};   // path of the same picture with twice the pixels each way; empty if there is none
    mutable std::shared_future<QImage> twin_image = {};   // from the first use on; null if it can't be read
};

// The file name of a picture's twin, for example valley@2x.vrp.
QString twin_of(const QFileInfo&);

// File name patterns of the supported formats, for a file dialog.
inline constexpr const char* picture_patterns = "*.vrp *.trp *.png *.jpg *.jpeg *.bmp *.gif *.ico *.cur";

// Reads a picture from an absolute path. Its natural size is 15 twips for each pixel of its largest image,
// whatever resolution the file states. The twin is looked for beside the file and then in `more_twins`; one
// that hasn't exactly twice the size is ignored.
loaded_picture read_picture(const std::string& source, const std::string& path,
                            const QString& more_twins = {});

// A twin of 8024 x 4000 takes some 0.3 s to read. It is read in a second thread; whoever draws waits for it,
// or draws the picture itself meanwhile.
enum class twin_reading { waits, meanwhile_without };

// The image to draw at this size in device pixels: the smallest that is at least as large. If all are
// smaller, the twin, or the largest if there is no twin. Null when the picture has no images.
const QImage* image_for(const picture&, const QSize& device, twin_reading = twin_reading::waits);

// Whether a twin is being read, so that the picture should be drawn again.
bool reads_twin(const picture&);

// Draws by a function once, and from then on what it has drawn: outlines take most of the time of a repaint.
// The key tells apart all that the function can draw in a rectangle of this size; it gets its coordinates
// from the rectangle.
void draw_cached(QPainter&, const QString& key, const QRect&, const std::function<void(QPainter&)>&);

// Scales the picture to a rectangle of device pixels.
void draw_picture(QPainter&, const picture&, const QRect& at);

// Makes the painter of a widget use device pixels as coordinates. Returns the rectangle of the widget in
// them.
QRect to_device_pixels(QPainter&, const QSize& widget);

}   // namespace vorn
