#include "sky.h"

#include "common/noise.h"
#include "common/parallel.h"

namespace tools {
namespace {

constexpr int coarser = 4;                 // pixels of the picture per cell of the grid
constexpr float base = 1100, top = 1750;   // of the cumulus clouds, metres
constexpr float farthest_cloud = 60000;    // metres
constexpr int samples = 40;                // along a line of sight

// The density of a cumulus cloud at a place, 0 to 1.
float density(const country& land, vec3 p)
{
    const float up = (p.z - base) / (top - base);
    if (up < 0 || up > 1) return 0;
    const float profile = smoothstep(0, .08f, up) * (1 - std::pow(up, 1.5f) * 1.1f);
    const float needed = .62f - .75f * land.sky.cover + .55f * (1 - profile);
    // Each seed gives other clouds.
    const vec3 q = vec3{p.x + real(land.seed % 89) * 1000, p.y, p.z} * (1.f / 900);
    float d = .75f * noise3({q.x * .45f + 3.3f, q.y * .45f, 1.7f}) + .60f * noise3({q.x, q.y, q.z * .8f});
    if (d + .70f < needed) return 0;
    d += .32f * noise3(q * 2.3f + vec3{5, 0, 0}) + .20f * noise3(q * 5.1f + vec3{0, 7, 0}) +
         .11f * noise3(q * 11 + vec3{0, 3, 0}) + .07f * noise3(q * 23 + vec3{0, 3, 0}) +
         .045f * noise3(q * 47 + vec3{0, 9, 0});
    return clamp01((d - needed) * 4.6f);
}

struct seen_cloud {
    vec3 light;
    float through = 1;   // transparency
};

seen_cloud march(const country& land, vec3 direction, float jitter)
{
    seen_cloud c;
    const float from = base / direction.z, to = std::min(top / direction.z, farthest_cloud);
    if (from > farthest_cloud * .75f) return c;
    const float step = (to - from) / samples;
    float weight = 0, distance = 0;
    for (int i = 0; i < samples && c.through > .02f; ++i) {
        const float t = from + (real(i) + jitter) * step;
        const vec3 p = direction * t;
        const float d = density(land, p);
        if (d <= 0) continue;
        const float alpha = 1 - std::exp(-std::min(step, 160.f) * .0136f * d);
        float above = 0;
        for (const float metres : {90.f, 180.f, 270.f}) above += density(land, p + land.towards_sun * metres);
        const float sunlit = std::exp(-above * 1.05f) * .85f + .15f;
        const float up = (p.z - base) / (top - base);
        const vec3 light = land.sunlight * (.42f * sunlit) + land.skylight * (.85f * (.45f + .55f * up));
        c.light = c.light + light * (c.through * alpha);
        distance += t * c.through * alpha;
        weight += c.through * alpha;
        c.through *= 1 - alpha;
    }
    if (weight <= 0) return c;
    const float air = 1 - std::exp(-distance / weight / 26000);
    c.light = mix(c.light, mix(land.sky.horizon, land.sky.haze_band, .5f) * weight, air);
    return c;
}

vec3 veiled(const country& land, vec3 direction, float elevation, vec3 colour)
{
    const float t = 7000 / direction.z;
    const point p{direction.x * t / 5200 + real(land.seed % 97), direction.y * t / 9000};
    const float threads = fractal(p + point{.6f * noise(p * .7f, 401), 0}, 402, 5, .55f);
    const float share = land.sky.veil * smoothstep(0, .9f, threads) * smoothstep(.02f, .15f, elevation);
    return mix(colour, rgb(93, 95, 97), share);
}

vec3 along(const country& land, float bearing, float elevation, float jitter)
{
    vec3 colour = plain_sky(land, elevation);
    if (elevation < .008f) return colour;
    const vec3 direction{std::sin(bearing) * std::cos(elevation), std::cos(bearing) * std::cos(elevation),
                         std::sin(elevation)};
    colour = veiled(land, direction, elevation, colour);
    const seen_cloud c = march(land, direction, jitter);
    return mix(colour, colour * c.through + c.light, smoothstep(.008f, .022f, elevation));
}

}   // namespace

vec3 plain_sky(const country& land, float elevation)
{
    const float e = std::max(0.f, elevation);
    const vec3 clear = mix(land.sky.horizon, land.sky.zenith, 1 - std::exp(-e * 4.2f));
    return mix(clear, land.sky.haze_band, .55f * std::exp(-e * 16));
}

grid<vec3> sky_of(const country& land, const view& v)
{
    grid<vec3> sky(v.width / coarser + 3, static_cast<int>(v.horizon + .05f / v.pixel) / coarser + 3);
    parallel_for(sky.height, [&](int y) {
        for (int x = 0; x < sky.width; ++x) {
            const float jitter = .3f + .4f * scatter(x, y, 9);
            sky.at(x, y) =
                along(land, v.bearing(real((x - 1) * coarser)), v.elevation(real((y - 1) * coarser)), jitter);
        }
    });
    // A slight blur hides the jitter.
    return blurred(sky, .85f, 1);
}

vec3 sky_at(const grid<vec3>& sky, point p)
{
    return sky.between(std::clamp(p.x / coarser + 1, 0.f, real(sky.width) - 1.01f),
                       std::clamp(p.y / coarser + 1, 0.f, real(sky.height) - 1.01f));
}

float cloud_shadow(const country& land, point p)
{
    if (land.night) return 1;
    const float n = fractal({p.x / 1300 + .7f, p.y / 1800 + 4.2f}, land.seed + 301, 4);
    const float open = .30f - .34f * land.sky.cover;
    return 1 - .62f * smoothstep(open, open + .28f, n);
}

haze haze_of(float metres)
{
    static const vec3 air = rgb(70, 77, 85);
    const float km = metres / 1000;
    const vec3 kept{std::exp(-km * .062f), std::exp(-km * .076f), std::exp(-km * .102f)};
    return {kept, air * (vec3{1, 1, 1} - kept)};
}

float sky_warmth(const country& land, float bearing, float elevation)
{
    const float e = std::max(0.f, elevation);
    const float clouds = fractal({std::sin(bearing) * 6, e * 22}, land.seed + 8, 4) * smoothstep(0, .1f, e);
    const float still = land.night ? .08f : .15f;
    return still + .16f * std::exp(-e * 12) + (land.night ? .02f : .04f) * clouds;
}

}   // namespace tools
