#include <cmath>

#include "country.h"
#include "platform/objects.h"

namespace landscape {

namespace {

// A vehicle 9.6 m long has the size on the picture that the sight gives its target: 30 pixels at 840 m on the
// visual sight, three quarters of that on the thermal one.
constexpr float visual_pixel = .000366f, thermal_pixel = visual_pixel * 4 / 3;
// How far below eye height the upper end of the range author's band lies: the strip of far country, radians.
constexpr float far_strip = .020f;

constexpr int band_steps = 40;       // the author divides his band into so many
constexpr float nearest_step = 50;   // and takes the square of what is left of this many,
constexpr float square_base = 500;   // metres added

}   // namespace

view view_of(const country& land, int scale)
{
    const float pixel = land.sight == vorn::sight_kind::visual ? visual_pixel : thermal_pixel;
    const float horizon = real(land.height) / 3 - far_strip / pixel;
    return {land.width / scale, land.height / scale, pixel * real(scale), horizon / real(scale)};
}

float target_side(vorn::sight_kind sight, float range)
{
    constexpr float targetsize = 4;   // the usual one
    const vorn::sight_numbers& numbers = vorn::numbers_of(sight);
    const auto smallest = real(vorn::smallest_target), largest = real(vorn::largest_target);
    const float width = range < real(numbers.far) ? real(numbers.widest) - range / targetsize : smallest;
    return std::clamp(width, smallest, largest);
}

float agreeing_row(const country& land, float range)
{
    const float twips = real(land.height) * real(vorn::twips_per_pixel);
    const float top = std::floor(twips / 3), bottom = 3 * std::floor(twips / 4);
    const float step = std::floor((bottom - top) / band_steps);
    // Nearer than any target the square root would bend the ground straight down; it goes on as it comes, and
    // a little faster, so that the lower edge of the picture looks down on ground some 330 m away.
    constexpr float bend = 580, faster = .00016f;
    const float nearer = std::max(0.f, bend - range);
    const float steps = nearest_step - std::sqrt(std::max(range, bend) - square_base) +
                        nearer / (2 * std::sqrt(bend - square_base)) + faster * nearer * nearer;
    // Half a step more, since the author counts whole steps.
    const float corner = top + (steps + .5f) * step;
    return (corner + target_side(land.sight, range)) / real(vorn::twips_per_pixel);
}

}   // namespace landscape
