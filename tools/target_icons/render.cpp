#include "render.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <numbers>

namespace {

// What a sample sees ----------------------------------------------------------------------------------------

// A grid of samples over a square, looked at along parallel lines.
struct camera {
    vec3 right, up, towards;   // towards the viewer
    double left, top,
        step;   // of the grid's upper left corner along right and up, and between samples: metres
    int size;   // samples, across and down
};

struct seen {
    camera eye;
    std::vector<float> depth;   // metres towards the viewer; -infinity where nothing is
    std::vector<int> what;      // the face
};

constexpr float nothing = -std::numeric_limits<float>::infinity();
constexpr double degree = std::numbers::pi / 180;

camera looking(double azimuth, double elevation)
{
    const double a = azimuth * degree, e = elevation * degree;
    const vec3 towards{std::cos(e) * std::cos(a), std::cos(e) * std::sin(a), std::sin(e)};
    const vec3 right{-std::sin(a), std::cos(a), 0};
    return {right, cross(towards, right), towards, 0, 0, 0, 0};
}

double across_at(const camera& c, double column)
{
    return c.left + (column + .5) * c.step;
}

double up_at(const camera& c, double row)
{
    return c.top - (row + .5) * c.step;
}

// Where the outline of a face crosses a height, from left to right.
std::vector<double> crossings(const std::vector<point>& outline, double height)
{
    std::vector<double> found;
    for (std::size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
        const point &a = outline[i], &b = outline[j];
        if ((a.y > height) != (b.y > height))
            found.push_back(a.x + (b.x - a.x) * (height - a.y) / (b.y - a.y));
    }
    std::sort(found.begin(), found.end());
    return found;
}

int clamped(double sample, int size)
{
    return static_cast<int>(std::clamp(std::ceil(sample), 0.0, static_cast<double>(size)));
}

void draw_face(seen& s, const face& f, int number)
{
    const camera& c = s.eye;
    const double turned_to_us = dot(f.normal, c.towards);
    if (std::abs(turned_to_us) < 1e-9) return;
    std::vector<point> outline;
    double low = std::numeric_limits<double>::infinity(), high = -low;
    for (const vec3& corner : f.corners) {
        outline.push_back({dot(corner, c.right), dot(corner, c.up)});
        low = std::min(low, outline.back().y);
        high = std::max(high, outline.back().y);
    }
    // The depth of the face's plane falls off evenly along right and up.
    const double depth_here = dot(f.normal, f.corners.front()) / turned_to_us;
    const double per_right = dot(f.normal, c.right) / turned_to_us;
    const double per_up = dot(f.normal, c.up) / turned_to_us;
    const int last = clamped((c.top - low) / c.step - .5, c.size);
    for (int y = clamped((c.top - high) / c.step - .5, c.size); y < last; ++y) {
        const double v = up_at(c, y);
        const std::vector<double> edges = crossings(outline, v);
        for (std::size_t i = 0; i + 1 < edges.size(); i += 2) {
            const int end = clamped((edges[i + 1] - c.left) / c.step - .5, c.size);
            for (int x = clamped((edges[i] - c.left) / c.step - .5, c.size); x < end; ++x) {
                const auto at = static_cast<std::size_t>(y * c.size + x);
                const auto depth = static_cast<float>(depth_here - per_right * across_at(c, x) - per_up * v);
                if (depth <= s.depth[at]) continue;
                s.depth[at] = depth;
                s.what[at] = number;
            }
        }
    }
}

seen see(const solid& vehicle, const camera& c)
{
    const auto samples = static_cast<std::size_t>(c.size * c.size);
    seen s{c, std::vector<float>(samples, nothing), std::vector<int>(samples, -1)};
    int number = 0;
    for (const face& f : vehicle) draw_face(s, f, number++);
    return s;
}

// Light -----------------------------------------------------------------------------------------------------

// A light infinitely far away, and what it sees of the vehicle: the rest lies in shadow.
struct lamp {
    rgb strength;
    camera there;
    std::vector<float> depth;
};

rgb operator+(rgb a, rgb b)
{
    return {a.r + b.r, a.g + b.g, a.b + b.b};
}
rgb operator*(rgb a, rgb b)
{
    return {a.r * b.r, a.g * b.g, a.b * b.b};
}
rgb operator*(rgb a, double k)
{
    return {a.r * k, a.g * k, a.b * k};
}

lamp make_lamp(const solid& vehicle, double azimuth, double elevation, rgb strength, int size)
{
    constexpr double reach = 6.5;   // metres from the middle of a vehicle to its farthest part
    camera c = looking(azimuth, elevation);
    c.left = -reach;
    c.top = reach;
    c.step = 2 * reach / size;
    c.size = size;
    return {strength, c, see(vehicle, c).depth};
}

// The sun stands where it stands for the country: to the upper left, and behind the viewer.
std::vector<lamp> daylight(const solid& vehicle, const view& from)
{
    constexpr double sun_aside = -52, sun_height = 46;   // degrees
    constexpr rgb sunlight{1.16, 1.08, .94}, skylight{.62, .70, .80};
    constexpr int sun_detail = 1200, sky_detail = 400;   // samples across
    constexpr int patches = 24;   // of the sky, of equal size, on a spiral from the horizon up
    constexpr double golden_angle = 137.508;
    std::vector<lamp> lamps{make_lamp(vehicle, from.aside + sun_aside, sun_height, sunlight, sun_detail)};
    for (int i = 0; i < patches; ++i)
        lamps.push_back(make_lamp(vehicle, i * golden_angle, std::asin((i + .5) / patches) / degree,
                                  skylight * (2.0 / patches), sky_detail));
    return lamps;
}

bool reaches(const lamp& l, vec3 at)
{
    constexpr double tolerance = .03;   // metres; a face must not shade itself
    const camera& c = l.there;
    const int x = static_cast<int>(std::floor((dot(at, c.right) - c.left) / c.step));
    const int y = static_cast<int>(std::floor((c.top - dot(at, c.up)) / c.step));
    if (x < 0 || y < 0 || x >= c.size || y >= c.size) return true;
    return l.depth[static_cast<std::size_t>(y * c.size + x)] < dot(at, c.towards) + tolerance;
}

rgb light_on(const std::vector<lamp>& lamps, vec3 at, vec3 normal)
{
    constexpr double off_the_face = .025;            // metres
    constexpr rgb from_below = {.085, .085, .055};   // what the grass throws back
    rgb sum = from_below * ((1 - normal.z) / 2);
    for (const lamp& l : lamps) {
        const double slant = dot(normal, l.there.towards);
        if (slant > 0 && reaches(l, at + normal * off_the_face)) sum = sum + l.strength * slant;
    }
    return sum;
}

// Colours ---------------------------------------------------------------------------------------------------

struct sample {
    rgb colour;   // as a screen shows it
    double alpha;
};

double for_screen(double light)
{
    return std::pow(std::clamp(light, 0.0, 1.0), 1 / 2.2);
}

// Slow patches of three shades, and dust that has settled on what is near the ground.
rgb paint_at(const material& m, vec3 at)
{
    constexpr rgb dust{.30, .25, .16};
    rgb paint = m.paint;
    if (m.camouflaged) {
        const double pattern = std::sin(1.9 * at.x + 1.3 * at.y + 1.1 * at.z) +
                               std::sin(1.2 * at.x - 2.3 * at.y + 1.9 * at.z + 2) +
                               .5 * std::sin(4.1 * at.x + 2.9 * at.y - 3.3 * at.z);
        if (pattern > .75) paint = paint * rgb{1.75, 1.5, 1.3};
        if (pattern < -.7) paint = paint * rgb{.55, .5, .5};
    }
    const double dusty = .45 * std::exp(-at.z / .55);
    return paint * (1 - dusty) + dust * dusty;
}

// The air between, as thick as it is over the country at the middle ranges.
rgb through_air(rgb c)
{
    constexpr double kilometres = 1.2;
    constexpr rgb sky{.80, .85, .90}, haze{.062, .076, .102};
    const auto veil = [](double own, double far, double per_km) {
        return far + (own - far) * std::exp(-per_km * kilometres);
    };
    return {veil(c.r, sky.r, haze.r), veil(c.g, sky.g, haze.g), veil(c.b, sky.b, haze.b)};
}

sample painted(const std::vector<lamp>& lamps, const material& m, vec3 at, vec3 normal)
{
    const rgb light = paint_at(m, at) * light_on(lamps, at, normal);
    return {through_air({for_screen(light.r), for_screen(light.g), for_screen(light.b)}), 1};
}

// What the ground lacks of the light it would have if nothing stood there.
sample shaded_ground(const std::vector<lamp>& lamps, vec3 at)
{
    constexpr rgb colour{.07, .08, .06};
    constexpr double deepest = .8, unseen = .1;   // what is lost of a low sky far away from the vehicle
    rgb whole{0, 0, 0};
    for (const lamp& l : lamps) whole = whole + l.strength * l.there.towards.z;
    const double lit = light_on(lamps, at, {0, 0, 1}).g / whole.g;
    return {colour, deepest * std::clamp((1 - lit - unseen) / (1 - unseen), 0.0, 1.0)};
}

// White is hot. A little of the daylight is left in it: what the sun has shone on is warmer, and what faces
// the open sky has lost heat to it.
sample glowing(const std::vector<lamp>& lamps, const material& m, vec3 at, vec3 normal)
{
    const double sun = reaches(lamps.front(), at + normal * .03)
                           ? std::max(0.0, dot(normal, lamps.front().there.towards))
                           : 0;
    const double nook = light_on(lamps, at, normal).b;   // the more sky it sees, the colder
    const double grey = std::clamp(.46 + .54 * m.heat + (1 - m.heat) * (.13 * sun - .17 * nook), 0.0, 1.0);
    return {{grey, grey, grey}, 1};
}

// Pictures --------------------------------------------------------------------------------------------------

// Such that the outline fills the square but for a margin, in parts of the square,, and stands on the margin
// below.
camera fitted(const solid& vehicle, const view& from, double margin, int samples)
{
    camera c = looking(from.aside, from.above);
    double left = std::numeric_limits<double>::infinity(), right = -left, low = left, high = right;
    for (const face& f : vehicle)
        for (const vec3& corner : f.corners) {
            if (!f.counts) continue;
            left = std::min(left, dot(corner, c.right));
            right = std::max(right, dot(corner, c.right));
            low = std::min(low, dot(corner, c.up));
            high = std::max(high, dot(corner, c.up));
        }
    const double side = std::max(right - left, high - low) / (1 - 2 * margin);
    c.left = (left + right - side) / 2;
    c.top = low + side * (1 - margin);
    c.step = side / samples;
    c.size = samples;
    return c;
}

// The shadow fades towards the edges of the picture, rather than end at them.
double fade(double column, double row, int size)
{
    constexpr double width = .1;
    const double x = (column + .5) / size, y = (row + .5) / size;
    return std::clamp(std::min({x, 1 - x, y, 1 - y}) / width, 0.0, 1.0);
}

sample sample_at(const seen& s, const solid& vehicle, const std::vector<lamp>& lamps, look l, int x, int y)
{
    const camera& c = s.eye;
    const auto at = static_cast<std::size_t>(y * c.size + x);
    const vec3 flat = c.right * across_at(c, x) + c.up * up_at(c, y);
    if (s.what[at] < 0) {
        if (l == look::hot) return {{0, 0, 0}, 0};
        sample ground = shaded_ground(lamps, flat + c.towards * (-flat.z / c.towards.z));
        ground.alpha *= fade(x, y, c.size);
        return ground;
    }
    const face& f = vehicle[static_cast<std::size_t>(s.what[at])];
    const vec3 normal = dot(f.normal, c.towards) < 0 ? f.normal * -1 : f.normal;
    const vec3 where = flat + c.towards * s.depth[at];
    return l == look::hot ? glowing(lamps, f.made_of, where, normal)
                          : painted(lamps, f.made_of, where, normal);
}

// Colours multiplied by alpha while they are summed up.
struct sums {
    int size;
    std::vector<sample> pixels;
};

sums averaged(const seen& s, const solid& vehicle, const std::vector<lamp>& lamps, look l, int size)
{
    const int grid = s.eye.size / size;
    sums out{size, std::vector<sample>(static_cast<std::size_t>(size * size))};
    for (int y = 0; y < s.eye.size; ++y)
        for (int x = 0; x < s.eye.size; ++x) {
            const sample one = sample_at(s, vehicle, lamps, l, x, y);
            sample& sum = out.pixels[static_cast<std::size_t>(y / grid * size + x / grid)];
            sum.colour = sum.colour + one.colour * (one.alpha / (grid * grid));
            sum.alpha += one.alpha / (grid * grid);
        }
    return out;
}

// Along one direction, by a bell curve. Beyond the edge there is nothing.
sums blurred(const sums& in, double pixels, int across, int down)
{
    const int reach = static_cast<int>(std::ceil(2.5 * pixels));
    sums out{in.size, std::vector<sample>(in.pixels.size())};
    double whole = 0;
    for (int d = -reach; d <= reach; ++d) whole += std::exp(-d * d / (2 * pixels * pixels));
    for (int y = 0; y < in.size; ++y)
        for (int x = 0; x < in.size; ++x)
            for (int d = -reach; d <= reach; ++d) {
                const int from_x = x + d * across, from_y = y + d * down;
                if (from_x < 0 || from_y < 0 || from_x >= in.size || from_y >= in.size) continue;
                const double part = std::exp(-d * d / (2 * pixels * pixels)) / whole;
                const sample& from = in.pixels[static_cast<std::size_t>(from_y * in.size + from_x)];
                sample& to = out.pixels[static_cast<std::size_t>(y * in.size + x)];
                to.colour = to.colour + from.colour * part;
                to.alpha += from.alpha * part;
            }
    return out;
}

std::uint8_t to_byte(double v)
{
    return static_cast<std::uint8_t>(std::clamp(v * 255 + .5, 0.0, 255.0));
}

image finished(const sums& s)
{
    image out{s.size, {}};
    for (const sample& p : s.pixels) {
        const rgb c = p.alpha > 0 ? p.colour * (1 / p.alpha) : rgb{0, 0, 0};
        const std::uint8_t alpha = to_byte(p.alpha);
        // What can't be seen is written as nothing, which packs best.
        for (const double v : {c.r, c.g, c.b}) out.rgba.push_back(alpha == 0 ? std::uint8_t{0} : to_byte(v));
        out.rgba.push_back(alpha);
    }
    return out;
}

}   // namespace

image render(const solid& vehicle, const view& from, look l, int size)
{
    constexpr double softness = 1.0 / 64;   // of the thermal sight's picture, in parts of the vehicle
    const int grid = std::clamp(1024 / size, 4, 16);
    const double margin = l == look::hot ? 2 * softness : .025;
    const seen s = see(vehicle, fitted(vehicle, from, margin, size * grid));
    const sums sharp = averaged(s, vehicle, daylight(vehicle, from), l, size);
    if (l == look::painted) return finished(sharp);
    return finished(blurred(blurred(sharp, softness * size, 1, 0), softness * size, 0, 1));
}
