// Reads pictures from files, recognised by content, and draws them, or built-in drawings, at any size.
#pragma once

#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <optional>
#include <string>
#include <vector>

#include "platform/machine.h"

namespace vorn {

// The images of a picture file, smallest first: several sizes for an icon, one for other formats.
struct decoded_picture final : picture_pixels {
    std::vector<QImage> sizes;
    QString twin = {};   // path of the same picture with twice the pixels each way; empty if there is none
    mutable std::optional<QImage> twin_image = {};   // read when it is first drawn
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

// The image to draw at this size in device pixels: the smallest that is at least as large, or else the
// largest or, where that is too small, its twin. Null when the picture has no images.
const QImage* image_for(const picture&, const QSize& device);

// Scales the picture to a rectangle of device pixels.
void draw_picture(QPainter&, const picture&, const QRect& at);

// Makes the painter of a widget use device pixels as coordinates. Returns the rectangle of the widget in
// them.
QRect to_device_pixels(QPainter&, const QSize& widget);

}   // namespace vorn
