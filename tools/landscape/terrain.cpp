#include "terrain.h"

#include "common/noise.h"

namespace tools {
namespace {

// Metres.
constexpr float spacing = 4;   // of the entries of bowl_
constexpr float bowl_end = 3400;
constexpr float rim = 2650;                        // here the bowl begins to flatten out
constexpr float earth_twice = 2 * 7.4e6f;          // the earth's diameter, allowing for refraction
constexpr float river_bed = 3.5f;                  // below the floor of the valley
constexpr float far_from = 3400, far_to = 12000;   // where far hills begin, and where they have full height

}   // namespace

terrain::terrain(const country& land, const ground_map& map) : land_(land), map_(map)
{
    const view full = view_of(land, 1);
    const auto depth = [&](float range) {
        return range * std::tan(full.elevation(agreeing_row(land, range))) + range * range / earth_twice;
    };
    const float plateau = depth(3000);
    for (float range = 0; range <= bowl_end + spacing; range += spacing) {
        bowl_.push_back(mix(depth(std::min(range, 3000.f)), plateau, smoothstep(rim, 3300, range)));
    }
}

static float folds(const country& land, point p, float range)
{
    const std::uint32_t seed = land.seed;
    const point w = p + point{noise(p / 500, seed + 91), noise(p / 500, seed + 92)} * 60;
    const float near = smoothstep(150, 800, range), far = 1 - .5f * smoothstep(2400, 3200, range);
    const float swell = fractal(w / 760 + point{3.1f, 7.7f}, seed + 1, 4, .42f);
    // Dry valleys run where a noise of low frequency is zero. Their floors are rounded: a sharp crease would
    // be visible in the sunlight.
    const float slow = noise({w.x / 520 + 2.2f, w.y / 700 + 1.1f}, seed + 7);
    const float crease = 1 - std::sqrt(slow * slow + .015f);
    const float hummocks = 3.2f * noise(w / 170, seed + 8);
    return near * far * (land.folds * (swell - .55f * crease * crease * crease) + hummocks);
}

static float far_hills(point p, std::uint32_t seed, float range)
{
    const float far = smoothstep(far_from, far_to, range);
    if (far <= 0) return 0;
    const float ridge = 1 - std::fabs(noise(p / 3600 + point{.3f, 0}, seed + 31));
    const float high = ridge * ridge * (.55f + .45f * noise(p / 2600 + point{5, 0}, seed + 33));
    return far * (60 + 360 * high + 45 * noise(p / 1100, seed + 35) + 12 * noise(p / 300, seed + 36));
}

float terrain::height(point p) const
{
    const float range = std::sqrt(p.x * p.x + p.y * p.y);
    const float entry = std::min(range, bowl_end) / spacing;
    const std::size_t i = index(entry);
    const float floor = mix(bowl_[i], bowl_[i + 1], entry - real(i));
    float h = floor + folds(land_, p, range) + far_hills(p, land_.seed, range);
    if (range < 4000) h += .45f * noise(p / 38, 5) + .15f * noise(p / 9, 6);
    if (!land_.rivers.empty()) h = mix(floor - river_bed, h, smoothstep(1, 110, map_.bank(p)));
    return h - range * range / earth_twice;
}

vec3 terrain::normal(point p, float height_there, float reach) const
{
    return unit({(height_there - height(p + point{reach, 0})) / reach,
                 (height_there - height(p + point{0, reach})) / reach, 1});
}

}   // namespace tools
