#include <cmath>

#include "country.h"
#include "platform/objects.h"

namespace tools {
namespace {

// Radians. The landscape has the scale of the targets: at 840 m a target's square is 30 pixels wide on a
// visual picture and 23 on a thermal one, some 9.4 m.
constexpr float visual_pixel = .000366f, thermal_pixel = visual_pixel * 4 / 3;
// Angle between the horizon and the upper edge of the range author's ground band, radians.
constexpr float far_strip = .020f;

// The range author divides the ground band into 40 steps and proposes (50 - step)^2 + 500 metres.
constexpr float nearest_step = 50, square_base = 500;

struct author_band {
    float top, bottom, step;   // twips
};

author_band band_of(const country& land)
{
    const float height = real(land.height) * real(vorn::twips_per_pixel);
    const float top = std::floor(height / 3), bottom = 3 * std::floor(height / 4);
    return {top, bottom, std::floor((bottom - top) / 40)};
}

}   // namespace

view view_of(const country& land, float scale)
{
    const float pixel = land.sight == vorn::sight_kind::visual ? visual_pixel : thermal_pixel;
    const float horizon = real(land.height) / 3 - far_strip / pixel;
    return {static_cast<int>(real(land.width) / scale), static_cast<int>(real(land.height) / scale),
            pixel * scale, horizon / scale};
}

float target_side(vorn::sight_kind sight, float range)
{
    constexpr int targetsize = 4;   // the default
    return real(vorn::target_width(vorn::numbers_of(sight), range, targetsize));
}

float agreeing_row(const country& land, float range)
{
    // The inverse of the range author's formula, for ranges from 580 m on. Its graph becomes vertical at
    // 500 m. Nearer than 580 m, where no target is, a parabola continues it, so that the lower edge of the
    // picture shows ground some 350 m away.
    constexpr float bend = 580, faster = .00016f;
    const float nearer = std::max(0.f, bend - range);
    const float steps = nearest_step - std::sqrt(std::max(range, bend) - square_base) +
                        nearer / (2 * std::sqrt(bend - square_base)) + faster * nearer * nearer;
    // Half a step more, since the range author rounds down to whole steps.
    const author_band band = band_of(land);
    const float corner = band.top + (steps + .5f) * band.step;
    return (corner + target_side(land.sight, range)) / real(vorn::twips_per_pixel);
}

float proposed_range(const country& land, int row, float range)
{
    const author_band band = band_of(land);
    const float corner = real(row) * real(vorn::twips_per_pixel) - target_side(land.sight, range);
    if (corner <= band.top || corner >= band.bottom) return 0;
    const float step = nearest_step - std::floor((corner - band.top) / band.step);
    return step * step + square_base;
}

}   // namespace tools
