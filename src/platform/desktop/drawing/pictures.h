// Reads picture files, detecting the format from the content, and draws pictures and built-in drawings at any
// size.
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

// The images of a picture, smallest first: several sizes for an icon or an effect, otherwise one.
struct decoded_picture final : picture_pixels {
    std::vector<QImage> sizes;
    QString twin = {};   // path of the same picture with twice the pixels each way; empty if there is none
    mutable std::shared_future<QImage> twin_image = {};   // read at the first use; null if that fails
};

// The file name of a picture's twin, for example valley@2x.vrp: it has this mark before the extension.
inline constexpr const char* twin_mark = "@2x";
QString twin_of(const QFileInfo&);

// File name patterns of the supported formats, for a file dialog.
inline constexpr const char* picture_patterns = "*.vrp *.trp *.png *.jpg *.jpeg *.bmp *.gif *.ico *.cur";

// Reads a picture from an absolute path. Its natural size is 15 twips for each pixel of its largest image,
// whatever resolution the file states. The twin is looked for beside the file and then in the folder
// `more_twins`; a twin that isn't exactly twice as large is ignored.
loaded_picture read_picture(const std::string& source, const std::string& path,
                            const QString& more_twins = {});

// What image_for does while another thread reads the twin (about 0.3 s for 8024 x 4000 pixels): it waits for
// the twin, or returns the picture itself.
enum class twin_reading { waits, meanwhile_without };

// The image to draw at this size in device pixels: the smallest that is at least as large. If all are
// smaller, the twin, or the largest if there is no twin. Null when the picture has no images.
const QImage* image_for(const picture&, const QSize& device, twin_reading = twin_reading::waits);

// Frees the twin if it has been read. It is read again when it is needed.
void forget_twin(const picture&);

// Whether the twin is still being read; the picture should then be drawn again later.
bool reads_twin(const picture&);

// Paints what a function draws in the rectangle. Unless the rectangle is very large, the result is cached,
// since outlines would take most of a repaint. Different drawings of the same size need different keys.
void draw_cached(QPainter&, const QString& key, const QRect&, const std::function<void(QPainter&)>&);

// Draws the picture in a rectangle of device pixels.
void draw_picture(QPainter&, const picture&, const QRect& at);

// Makes the painter of a widget use device pixels as coordinates. Returns the rectangle of the widget in
// device pixels.
QRect to_device_pixels(QPainter&, const QSize& widget);

}   // namespace vorn
