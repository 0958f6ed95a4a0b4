// Colours from 0 to 1 with the gamma of a picture file (not linear light), premultiplied by alpha.
#pragma once

#include <QImage>

#include "grid.h"

namespace tools {

struct sample {
    vec3 colour;
    float alpha = 0;

    friend constexpr sample operator+(sample a, sample b) { return {a.colour + b.colour, a.alpha + b.alpha}; }
    friend constexpr sample operator*(sample a, float s) { return {a.colour * s, a.alpha * s}; }
};
// Alpha compositing.
constexpr sample over(sample front, sample back)
{
    return front + back * (1 - front.alpha);
}

// Values from 0 to 255 are rounded to multiples of `step`.
inline QImage image_of(const grid<sample>& pixels, int step = 1)
{
    QImage image(pixels.width, pixels.height, QImage::Format_ARGB32);
    const auto level = [&](float value) { return (qRound(value) + step / 2) / step * step; };
    each_cell(pixels, [&](int x, int y, const sample& p) {
        const vec3 c = p.alpha > 0 ? p.colour * (255 / p.alpha) : vec3{};
        const int alpha = level(p.alpha * 255);
        // Invisible pixels all get the same colour, so that the picture compresses well.
        image.setPixel(x, y, alpha == 0 ? 0 : qRgba(level(c.x), level(c.y), level(c.z), alpha));
    });
    return image;
}

}   // namespace tools
