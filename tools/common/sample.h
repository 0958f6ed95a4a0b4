// Screen colours, premultiplied by alpha.
#pragma once

#include <QImage>

#include "grid.h"

namespace tools {

struct sample {
    vec3 colour;
    float alpha = 0;
};

constexpr sample operator+(sample a, sample b)
{
    return {a.colour + b.colour, a.alpha + b.alpha};
}
constexpr sample operator*(sample a, float s)
{
    return {a.colour * s, a.alpha * s};
}
// Alpha compositing.
constexpr sample over(sample front, sample back)
{
    return front + back * (1 - front.alpha);
}

inline QImage image_of(const grid<sample>& pixels)
{
    QImage image(pixels.width, pixels.height, QImage::Format_ARGB32);
    for (int y = 0; y < pixels.height; ++y)
        for (int x = 0; x < pixels.width; ++x) {
            const sample& p = pixels.at(x, y);
            const vec3 c = p.alpha > 0 ? p.colour * (255 / p.alpha) : vec3{};
            const int alpha = qRound(p.alpha * 255);
            // Invisible pixels all get the same colour, so that the picture compresses well.
            image.setPixel(x, y, alpha == 0 ? 0 : qRgba(qRound(c.x), qRound(c.y), qRound(c.z), alpha));
        }
    return image;
}

}   // namespace tools
