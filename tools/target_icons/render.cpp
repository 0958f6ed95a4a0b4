#include "render.h"

#include <limits>
#include <numbers>

#include "common/noise.h"
#include "common/sample.h"

namespace tools {
namespace {

// Visibility ------------------------------------------------------------------------------------------------

constexpr float degree = std::numbers::pi_v<float> / 180;

struct hit {
    float depth = -std::numeric_limits<float>::infinity();   // metres towards the viewer
    const face* what = nullptr;
};

// A square grid of samples in parallel projection.
struct camera {
    vec3 right, up, towards;             // towards the viewer
    float left = 0, top = 0, step = 0;   // upper left corner; spacing of the samples: metres
    grid<hit> seen{};                    // what each sample shows

    point flat(vec3 at) const { return {dot(at, right), dot(at, up)}; }
    float across_at(int column) const { return left + (real(column) + .5f) * step; }
    float up_at(int row) const { return top - (real(row) + .5f) * step; }
    // The first column or row at or beyond a coordinate.
    int column(float across) const { return clamped((across - left) / step - .5f); }
    int row(float height) const { return clamped((top - height) / step - .5f); }

private:
    int clamped(float sample) const
    {
        return static_cast<int>(std::clamp(std::ceil(sample), 0.f, real(seen.width)));
    }
};

camera looking(float azimuth, float elevation)
{
    const float a = azimuth * degree, e = elevation * degree;
    const vec3 towards{std::cos(e) * std::cos(a), std::cos(e) * std::sin(a), std::sin(e)};
    const vec3 right{-std::sin(a), std::cos(a), 0};
    return {right, cross(towards, right), towards};
}

// The places where an outline crosses a height, from left to right.
std::vector<float> crossings(const path& outline, float height)
{
    std::vector<float> found;
    point a = outline.back();
    for (const point& b : outline) {
        if ((a.y > height) != (b.y > height))
            found.push_back(a.x + (b.x - a.x) * (height - a.y) / (b.y - a.y));
        a = b;
    }
    std::ranges::sort(found);
    return found;
}

void draw_face(camera& c, const face& f)
{
    const float turned_to_us = dot(f.normal, c.towards);
    if (std::abs(turned_to_us) < 1e-6f) return;
    path outline;
    for (const vec3& corner : f.corners) outline.push_back(c.flat(corner));
    const auto [lowest, highest] = std::ranges::minmax(outline, {}, &point::y);
    // The depth of the face's plane is linear along right and up.
    const float depth_at_origin = dot(f.normal, f.corners.front()) / turned_to_us;
    const float per_right = dot(f.normal, c.right) / turned_to_us;
    const float per_up = dot(f.normal, c.up) / turned_to_us;
    for (int y = c.row(highest.y); y < c.row(lowest.y); ++y) {
        const float v = c.up_at(y);
        const std::vector<float> edges = crossings(outline, v);
        for (std::size_t i = 0; i + 1 < edges.size(); i += 2)
            for (int x = c.column(edges[i]); x < c.column(edges[i + 1]); ++x) {
                const float depth = depth_at_origin - per_right * c.across_at(x) - per_up * v;
                if (depth > c.seen.at(x, y).depth) c.seen.at(x, y) = {depth, &f};
            }
    }
}

// The camera with its picture of a vehicle: a square of samples.
camera taken(camera c, const solid& vehicle, float left, float top, float side, int samples)
{
    c.left = left;
    c.top = top;
    c.step = side / real(samples);
    c.seen = grid<hit>(samples, samples);
    for (const face& f : vehicle) draw_face(c, f);
    return c;
}

// Light -----------------------------------------------------------------------------------------------------

// A directional light with its shadow map.
struct lamp {
    vec3 strength;
    camera there;
};

lamp make_lamp(const solid& vehicle, float azimuth, float elevation, vec3 strength, int size)
{
    constexpr float reach = 6.5f;   // metres; no part of a vehicle is farther from its middle
    return {strength, taken(looking(azimuth, elevation), vehicle, -reach, reach, 2 * reach, size)};
}

// The sun and patches of the sky. The sun is the first lamp. As on the shipped ranges, it is behind the
// viewer, to the upper left.
std::vector<lamp> daylight(const solid& vehicle, const view& from)
{
    constexpr float sun_aside = -52, sun_height = 46;   // degrees
    constexpr vec3 sunlight{1.16f, 1.08f, .94f}, skylight{.62f, .70f, .80f};
    constexpr int sun_detail = 1200, sky_detail = 400;   // samples across
    constexpr int patches = 24;   // of the sky, all of equal size, on a spiral from the horizon to the zenith
    constexpr float golden_angle = 137.508f;
    std::vector<lamp> lamps{make_lamp(vehicle, from.aside + sun_aside, sun_height, sunlight, sun_detail)};
    for (int i = 0; i < patches; ++i)
        lamps.push_back(make_lamp(vehicle, real(i) * golden_angle,
                                  std::asin((real(i) + .5f) / patches) / degree, skylight * (2.f / patches),
                                  sky_detail));
    return lamps;
}

bool reaches(const lamp& l, vec3 at)
{
    constexpr float tolerance = .03f;   // metres; a face must not shade itself
    const camera& c = l.there;
    const point flat = c.flat(at);
    const int x = floor_int((flat.x - c.left) / c.step), y = floor_int((c.top - flat.y) / c.step);
    return !c.seen.holds(x, y) || c.seen.at(x, y).depth < dot(at, c.towards) + tolerance;
}

vec3 light_on(const std::vector<lamp>& lamps, vec3 at, vec3 normal)
{
    constexpr float off_the_face = .025f;             // metres
    constexpr vec3 from_below{.085f, .085f, .055f};   // reflected by the grass
    vec3 sum = from_below * ((1 - normal.z) / 2);
    for (const lamp& l : lamps) {
        const float slant = dot(normal, l.there.towards);
        if (slant > 0 && reaches(l, at + normal * off_the_face)) sum = sum + l.strength * slant;
    }
    return sum;
}

// Colours ---------------------------------------------------------------------------------------------------

// Noise from -1 to 1 with features of 1/`fineness` metres, twice as high as they are wide, like streaks of
// rain.
float grain(vec3 at, float fineness)
{
    return noise3({50 + fineness * at.x, 50 + fineness * at.y, 50 + .5f * fineness * at.z});
}

// Camouflage in three shades where the material has it, wear and stains, and mud near the ground.
vec3 paint_at(const material& m, vec3 at)
{
    constexpr vec3 dust{.30f, .25f, .16f};
    vec3 paint = m.paint;
    if (m.camouflaged) {
        const float pattern = std::sin(1.9f * at.x + 1.3f * at.y + 1.1f * at.z) +
                              std::sin(1.2f * at.x - 2.3f * at.y + 1.9f * at.z + 2) +
                              .5f * std::sin(4.1f * at.x + 2.9f * at.y - 3.3f * at.z);
        if (pattern > .75f) paint = paint * vec3{1.75f, 1.5f, 1.3f};
        if (pattern < -.7f) paint = paint * vec3{.55f, .5f, .5f};
    }
    const float stain = grain(at, 3), wear = grain(at, 14);
    const float muddy = (.55f + .6f * wear + .5f * stain) * std::exp(-at.z / .6f);
    return mix(paint * (1 + .22f * stain + .2f * wear), dust, clamp01(muddy));
}

// Screen colour of a light, seen through the air at a medium distance on the shipped ranges.
vec3 shown(vec3 light)
{
    const auto channel = [](float own, float air, float per_kilometre) {
        constexpr float kilometres = 1.2f;
        return mix(air, std::pow(clamp01(own), 1 / 2.2f), std::exp(-per_kilometre * kilometres));
    };
    return {channel(light.x, .80f, .062f), channel(light.y, .85f, .076f), channel(light.z, .90f, .102f)};
}

// The shadow on the ground. Its alpha rises with the share of the light that the vehicle blocks here.
sample shaded_ground(const std::vector<lamp>& lamps, vec3 at)
{
    constexpr vec3 colour{.07f, .08f, .06f};
    // A loss below `unseen` isn't shown: even far from the vehicle a little of the low sky is hidden.
    constexpr float deepest = .8f, unseen = .1f;
    vec3 whole;
    for (const lamp& l : lamps) whole = whole + l.strength * l.there.towards.z;
    const float lit = light_on(lamps, at, {0, 0, 1}).y / whole.y;
    const float alpha = deepest * clamp01((1 - lit - unseen) / (1 - unseen));
    return {colour * alpha, alpha};
}

// Brightness in a thermal picture: white is hot. Every part of a vehicle is brighter than the ground, which
// is at most .6. The more sky a face sees, the colder it is. Sunshine makes hardly any difference.
vec3 glowing(const std::vector<lamp>& lamps, const material& m, vec3 at, vec3 normal)
{
    const float sun = reaches(lamps.front(), at + normal * .03f)
                          ? std::max(0.f, dot(normal, lamps.front().there.towards))
                          : 0;
    const float sky = light_on(lamps, at, normal).z;
    const float grey = clamp01(.73f + .31f * m.heat + (1 - m.heat) * (.10f * sun - .12f * sky));
    return {grey, grey, grey};
}

// Pictures --------------------------------------------------------------------------------------------------

// The picture in which the vehicle without slender parts is as large as the square allows. `margin`: share
// of the square.
camera fitted(const solid& vehicle, const view& from, float margin, int samples)
{
    const camera c = looking(from.aside, from.above);
    path outline;
    for (const face& f : vehicle)
        for (const vec3& corner : f.corners)
            if (!f.made_of.slender) outline.push_back(c.flat(corner));
    const auto [left, right] = std::ranges::minmax(outline, {}, &point::x);
    const auto [low, high] = std::ranges::minmax(outline, {}, &point::y);
    const float side = std::max(right.x - left.x, high.y - low.y) / (1 - 2 * margin);
    return taken(c, vehicle, (left.x + right.x - side) / 2, low.y + side * (1 - margin), side, samples);
}

// The share of the shadow that is drawn: the shadow fades out towards the edges of the picture.
float fade(int column, int row, int size)
{
    constexpr float width = .1f;
    const float x = (real(column) + .5f) / real(size), y = (real(row) + .5f) / real(size);
    return clamp01(std::min({x, 1 - x, y, 1 - y}) / width);
}

// Whether the sample is at the upper edge of a face, where the paint is worn.
bool is_edge(const camera& c, int x, int y)
{
    constexpr float width = .035f, behind = .06f;   // metres
    const hit &here = c.seen.at(x, y), &above = c.seen.at(x, std::max(0, y - 1 - floor_int(width / c.step)));
    if (here.what == nullptr || above.what == here.what) return false;
    return above.what == nullptr || above.depth < here.depth - behind ||
           (std::abs(dot(above.what->normal, here.what->normal)) < .8f && above.depth < here.depth);
}

sample sample_at(const camera& c, const std::vector<lamp>& lamps, look l, int x, int y)
{
    const hit& h = c.seen.at(x, y);
    const vec3 flat = c.right * c.across_at(x) + c.up * c.up_at(y);
    if (h.what == nullptr) {
        if (l == look::hot) return {};
        return shaded_ground(lamps, flat + c.towards * (-flat.z / c.towards.z)) * fade(x, y, c.seen.width);
    }
    const material& m = h.what->made_of;
    const vec3 normal = dot(h.what->normal, c.towards) < 0 ? h.what->normal * -1 : h.what->normal;
    const vec3 at = flat + c.towards * h.depth;
    if (l == look::hot) return {glowing(lamps, m, at, normal), 1};
    const float worn = is_edge(c, x, y) ? 1.45f : 1;
    return {shown(paint_at(m, at) * light_on(lamps, at, normal) * worn), 1};
}

}   // namespace

QImage render(const solid& vehicle, const view& from, look l, int size)
{
    constexpr float softness = 1.f / 130;              // blur of the thermal picture, as a share of its width
    const int fine = std::clamp(1024 / size, 4, 16);   // samples per pixel, in each direction
    const camera c = fitted(vehicle, from, l == look::hot ? 2.5f * softness : .025f, size * fine);
    const std::vector<lamp> lamps = daylight(vehicle, from);
    grid<sample> pixels(size, size);
    each_cell(c.seen, [&](int x, int y, const hit&) {
        sample& sum = pixels.at(x / fine, y / fine);
        sum = sum + sample_at(c, lamps, l, x, y) * (1 / real(fine * fine));
    });
    if (l == look::painted) return image_of(pixels);
    const float sigma = softness * real(size);
    return image_of(blurred(pixels, sigma, static_cast<int>(std::ceil(2.5f * sigma))));
}

}   // namespace tools
