// Pictures: reading them from a file by their content, and drawing them, or a drawing of our own, at any
// size.
#pragma once

#include <QImage>
#include <QPainter>
#include <vector>

#include "platform/machine.h"

namespace vorn {

// All the sizes in which the file holds the picture, smallest first; a photograph holds one.
struct decoded_picture final : picture_pixels {
    std::vector<QImage> sizes;
};

// The toolkit's name of the format, by the first bytes: one of those that the program knows, or empty.
// Whatever other formats the toolkit has been taught on this machine, no picture from elsewhere is decoded by
// them.
QByteArray picture_format(QIODevice&);

// The names that files in those formats usually have, for a file dialog.
inline constexpr const char* picture_patterns = "*.vrp *.trp *.png *.jpg *.jpeg *.bmp *.gif *.ico *.cur";

// Reads a picture from an absolute path. Its natural size is 15 twips to a pixel of its largest image,
// whatever density the file claims.
loaded_picture read_picture(const std::string& source, const std::string& path);

// The image to draw at this size in device pixels: the smallest that isn't smaller; null when there is none.
const QImage* image_for(const picture&, const QSize& device);

// Stretches the picture over a rectangle of device pixels, from its source.
void draw_picture(QPainter&, const picture&, const QRect& at);

// Sets the painter of a widget to whole device pixels, and gives the widget's rectangle in them.
QRect to_device_pixels(QPainter&, const QSize& widget);

}   // namespace vorn
