// Paints the explosion that is seen when a target is hit: sixteen frames with alpha, four to a row, in one
// PNG picture.
//
// A burst is a cloud of puffs, thrown from one spot on the ground into the half space above it, braked by the
// air, lifted by their heat and carried off by a wind from the left. A ring of dust runs out along the
// ground. For each frame the puffs are poured into a block of cells. Billows, a noise that grows and rises
// along with the cloud, decide where the cloud ends: they give it the lumps and creases of a real one. A cell
// glows by its heat: creases show the inside, which is hotter, and lumps have cooled to soot. Then the sun
// and the sky light the cells, shaded by those between, and the eye looks through the block from the front, a
// little from above. Over all this come the flash of the first frames and burning pieces on their way.
//
// The sight draws a frame some 17 to 110 pixels wide and shows it for a sixtieth of a second. So the flash is
// broad, fire is either bright or gone, and smoke is darker than any ground it stands before.
//
// Usage: explosion FILE

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

#include "png.h"

namespace {

// All lengths are in sides of a frame, all times in the whole of the explosion.
constexpr int frames = 16, frames_in_row = 4;
constexpr int side = 128;   // pixels and cells across and up
constexpr int depth = 88;   // cells from back to front
constexpr double cell_size = 1.0 / side;

// The sight lays the frame over the target with its left and lower edges on the target's, and a little
// larger. So the burst lies left of the middle.
constexpr double burst_across = .44;
constexpr double ground_line = .12;
constexpr double look_down = .19;   // how far a spot sinks on the picture for each length that it is nearer

// Nothing is painted nearer to the edge than the empty rim, and what would reach it fades before.
constexpr double empty_rim = .05, rim_fade = .06;

// The moment that a frame shows, 0 to 1.
constexpr double moment(int frame)
{
    return (frame + .4) / frames;
}

struct vec {
    double x, y, z;   // to the right, up, towards the eye
};

constexpr vec operator+(vec a, vec b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr vec operator-(vec a, vec b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr vec operator*(double f, vec a)
{
    return {f * a.x, f * a.y, f * a.z};
}

double length(vec a)
{
    return std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z);
}

struct rgb {
    double r, g, b;   // 0 to 1 once it is on the picture; light may be stronger
};

constexpr rgb operator+(rgb a, rgb b)
{
    return {a.r + b.r, a.g + b.g, a.b + b.b};
}
constexpr rgb operator*(double f, rgb a)
{
    return {f * a.r, f * a.g, f * a.b};
}
constexpr rgb operator*(rgb a, rgb b)
{
    return {a.r * b.r, a.g * b.g, a.b * b.b};
}

rgb mix(rgb a, rgb b, double share)
{
    return (1 - share) * a + share * b;
}

// 0 below `from`, 1 above `to`, and smooth between.
double ramp(double from, double to, double x)
{
    const double share = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return share * share * (3 - 2 * share);
}

// Chance and noise ------------------------------------------------------------------------------------------

// Our own generator, since those of the standard library's distributions differ from one library to the next.
struct dice {
    std::uint64_t state;
};

double throw_dice(dice& d, double from, double to)
{
    d.state ^= d.state << 13;
    d.state ^= d.state >> 7;
    d.state ^= d.state << 17;
    return from + (to - from) * static_cast<double>(d.state >> 11) / static_cast<double>(1ULL << 53);
}

// A number of 0 to 1 that belongs to a corner of the lattice.
double corner_value(int x, int y, int z)
{
    auto h = static_cast<std::uint32_t>(x) * 0x85ebca6bu ^ static_cast<std::uint32_t>(y) * 0xc2b2ae35u ^
             static_cast<std::uint32_t>(z) * 0x27d4eb2fu;
    h = (h ^ h >> 15) * 0x2c1b3c6du;
    h = (h ^ h >> 12) * 0x297a2d39u;
    h ^= h >> 15;
    return h / 4294967296.0;
}

double noise(vec p)
{
    const vec low{std::floor(p.x), std::floor(p.y), std::floor(p.z)};
    const vec in = p - low;
    const vec share{ramp(0, 1, in.x), ramp(0, 1, in.y), ramp(0, 1, in.z)};
    const int x = static_cast<int>(low.x), y = static_cast<int>(low.y), z = static_cast<int>(low.z);
    const auto along_x = [&](int up, int near) {
        return std::lerp(corner_value(x, y + up, z + near), corner_value(x + 1, y + up, z + near), share.x);
    };
    return std::lerp(std::lerp(along_x(0, 0), along_x(1, 0), share.y),
                     std::lerp(along_x(0, 1), along_x(1, 1), share.y), share.z);
}

// Round hills between sharp valleys at several sizes, each about twice as fine and half as high as the one
// before; about -.5 to .5, and 0 in the mean.
double billows(vec p)
{
    constexpr int sizes = 4;
    constexpr double finer = 2.07, lower = .52, mean = .33;
    double sum = 0, height = .75;
    for (int i = 0; i < sizes; ++i) {
        sum += height * (std::abs(2 * noise(p) - 1) - mean);
        height *= lower;
        p = vec{7.3, 1.9, 4.1} + finer * p;
    }
    return sum;
}

// The cloud -------------------------------------------------------------------------------------------------

struct puff {
    vec thrown;     // how far it gets before the air has stopped it
    double young;   // radius at first
    double grown;   // and what it gains
    double heat;    // 1 is a fire of middling heat
    double dust;    // 0 soot, 1 earth
};

puff fire_puff(dice& d)
{
    const double angle = throw_dice(d, 0, std::numbers::pi);
    const double force = throw_dice(d, .1, 1);
    const double towards = throw_dice(d, -.16, .16);
    const double young = throw_dice(d, .05, .075);
    const double grown = throw_dice(d, .03, .10);
    const double heat = throw_dice(d, 1.0, 1.2) - .45 * force;   // the core stays hot longest
    return {{.24 * force * std::cos(angle), .46 * force * std::sin(angle), towards}, young, grown, heat, 0};
}

puff dust_puff(dice& d)
{
    const double angle = throw_dice(d, 0, 2 * std::numbers::pi);
    const double force = throw_dice(d, .6, 1);
    const double lift = throw_dice(d, .005, .025);
    const double grown = throw_dice(d, .025, .065);
    return {{.34 * force * std::cos(angle), lift, .25 * force * std::sin(angle)}, .02, grown, 0, 1};
}

std::vector<puff> cloud()
{
    constexpr int fire_puffs = 34, dust_puffs = 44;
    dice d{881726454633252527};
    std::vector<puff> puffs;
    puffs.reserve(fire_puffs + dust_puffs);
    for (int i = 0; i < fire_puffs; ++i) puffs.push_back(fire_puff(d));
    for (int i = 0; i < dust_puffs; ++i) puffs.push_back(dust_puff(d));
    return puffs;
}

// How far a thing has got of the way on which the air stops it.
constexpr double drag = 5;
double braked(double time)
{
    return 1 - std::exp(-drag * time);
}

// Burns on for some frames before it cools.
double heat_left(double time)
{
    constexpr double at_first = 1.45, cooled = .5;
    return at_first * std::exp(-std::pow(time / cooled, 1.5));
}

// Where wind and heat have carried the middle of the cloud.
vec drift(double time)
{
    return {.16 * time * time, .10 * time + .14 * time * time, 0};
}

struct placed_puff {
    vec middle;
    double radius, heat, dust;
};

placed_puff placed(const puff& p, double time)
{
    const double carried = p.dust > 0 ? .1 : .35 + 1.6 * p.thrown.y;   // the wind is weaker near the ground
    const vec middle = vec{0, .3 * p.young, 0} + braked(time) * p.thrown + carried * drift(time);
    const double radius = p.young * (.45 + .55 * braked(3 * time)) + p.grown * braked(time);
    return {middle, radius, p.heat, p.dust};
}

// The block of cells ----------------------------------------------------------------------------------------

struct cell {
    double closeness = -1;   // 1 in the middle of a puff, 0 at its rim
    double weight = 0;       // of the puffs whose heat and dust it has
    double heat = 0, dust = 0;
    double density = 0;   // 0 to 1
};

struct block {
    std::vector<cell> cells{static_cast<std::size_t>(side) * side * depth};
};

// Cells to the right, up and towards the eye.
struct place {
    int x, y, z;
};

bool inside(place p)
{
    return p.x >= 0 && p.y >= 0 && p.z >= 0 && p.x < side && p.y < side && p.z < depth;
}

std::size_t index(place p)
{
    return (static_cast<std::size_t>(p.y) * side + static_cast<std::size_t>(p.x)) * depth +
           static_cast<std::size_t>(p.z);
}

// The block leans, so that the eye looks straight along it: the ground is higher on the picture where it is
// further off.
vec middle_of(place p)
{
    const double z = (p.z + .5 - depth / 2.0) * cell_size;
    return {(p.x + .5) * cell_size - burst_across, (p.y + .5) * cell_size - ground_line + look_down * z, z};
}

place cell_at(vec v)
{
    return {static_cast<int>(std::floor((v.x + burst_across) / cell_size)),
            static_cast<int>(std::floor((v.y + ground_line - look_down * v.z) / cell_size)),
            static_cast<int>(std::floor(v.z / cell_size + depth / 2.0))};
}

template <class Action>
void for_cells(place from, place to, const Action& action)
{
    for (int y = std::max(0, from.y); y <= std::min(side - 1, to.y); ++y)
        for (int x = std::max(0, from.x); x <= std::min(side - 1, to.x); ++x)
            for (int z = std::max(0, from.z); z <= std::min(depth - 1, to.z); ++z) action(place{x, y, z});
}

constexpr place first_cell{0, 0, 0}, last_cell{side - 1, side - 1, depth - 1};

// Lumps may stand out this far beyond a puff's rim, in radii.
constexpr double reach = .4;

void pour(block& b, const placed_puff& p)
{
    const double across = (1 + reach) * p.radius, up = (1 + look_down) * across;
    const place from = cell_at(p.middle - vec{across, up, 0}), to = cell_at(p.middle + vec{across, up, 0});
    for_cells({from.x, from.y, 0}, {to.x, to.y, depth - 1}, [&](place at) {
        const double closeness = 1 - length(middle_of(at) - p.middle) / p.radius;
        if (closeness < -reach) return;
        cell& c = b.cells[index(at)];
        const double weight = (closeness + reach) * (closeness + reach);
        c.closeness = std::max(c.closeness, closeness);
        c.weight += weight;
        c.heat += weight * p.heat;
        c.dust += weight * p.dust;
    });
}

// Late smoke is torn: its billows bite deeper.
double tearing(double time)
{
    return .9 + .5 * ramp(.4, 1, time);
}

// And what is left of each puff shrinks.
double wear(double time)
{
    return .25 * ramp(.55, 1, time);
}

// The billows grow and rise with the cloud, so that a lump stays the same lump from frame to frame.
double billows_at(vec v, double time)
{
    constexpr double lumps_across = 7.5;
    const double grown = .35 + .65 * braked(time);
    return billows(lumps_across / grown * (v - drift(time)) + vec{20, 20, 20 + 1.5 * time});
}

// Creases lie deeper in a puff than lumps do, and show its heat.
double inner_heat(double closeness)
{
    return std::max(0.0, .60 + 1.3 * closeness);
}

void settle(cell& c, vec at, double time)
{
    if (c.weight <= 0 || at.y < 0) return;
    c.heat /= c.weight;
    c.dust /= c.weight;
    constexpr double lightness_of_dust = .5, low = .03;
    const double sharpness = 5 - 2.5 * time;   // edges grow soft with age
    const double solid = c.closeness + tearing(time) * billows_at(at, time) - wear(time);
    c.density =
        std::clamp(sharpness * solid, 0.0, 1.0) * (1 - lightness_of_dust * c.dust) * ramp(0, low, at.y);
    c.heat *= heat_left(time) * inner_heat(c.closeness);
}

block filled(const std::vector<puff>& puffs, double time)
{
    block b;
    for (const puff& p : puffs) pour(b, placed(p, time));
    for_cells(first_cell, last_cell, [&](place at) { settle(b.cells[index(at)], middle_of(at), time); });
    return b;
}

// Light -----------------------------------------------------------------------------------------------------

// How strongly what fills a cell blocks the view, for each length looked through; less and less as it thins.
double thickness(double time)
{
    constexpr double fresh = 70, thinned_away = .93;
    return fresh * std::pow(1 - thinned_away * ramp(.45, 1, time), 1.5);
}

// Steps in cells. The sun stands on the left, above and behind the observer, as over the shipped ranges.
constexpr vec to_sun{-1.5, 1.9, 1.0}, to_sky{0, 2.4, 0};

// Light is scattered on as well as blocked, so it gets deeper in than the eye does.
constexpr double blocks_sun = .5, blocks_sky = .3;
constexpr double sky_from_aside = .3;   // the share of the sky's light that doesn't come from above

double let_through(const block& b, place from, vec step, double thick)
{
    constexpr int steps = 14;
    double stuff = 0;
    for (int i = 1; i <= steps; ++i) {
        const place at{from.x + static_cast<int>(std::lround(i * step.x)),
                       from.y + static_cast<int>(std::lround(i * step.y)),
                       from.z + static_cast<int>(std::lround(i * step.z))};
        if (!inside(at)) break;
        stuff += b.cells[index(at)].density;
    }
    return std::exp(-stuff * length(step) * cell_size * thick);
}

// From a dark red through orange and yellow to white.
rgb glow(double heat)
{
    return {3.6 * std::pow(heat, 2.6), 1.7 * std::pow(heat, 3.6), .4 * std::pow(heat, 6)};
}

constexpr rgb soot{.16, .155, .15}, earth{.50, .43, .32};
constexpr rgb sunlight{2.1, 2.0, 1.8}, skylight{.40, .45, .52};

// Light of any strength as a colour of 0 to 1: strong light turns pale before it stops growing.
rgb exposed(rgb light)
{
    return {1 - std::exp(-light.r), 1 - std::exp(-light.g), 1 - std::exp(-light.b)};
}

rgb cell_colour(const block& b, place at, double thick)
{
    const cell& c = b.cells[index(at)];
    const double sun = let_through(b, at, to_sun, blocks_sun * thick);
    const double sky = let_through(b, at, to_sky, blocks_sky * thick);
    const rgb lit = sun * sunlight + std::lerp(sky_from_aside, 1, sky) * skylight;
    return exposed(mix(soot, earth, c.dust) * lit + glow(c.heat));
}

// The picture -----------------------------------------------------------------------------------------------

struct pixel {
    rgb colour{0, 0, 0};   // multiplied by alpha
    double alpha = 0;
};

void lay_over(pixel& below, rgb colour, double alpha)
{
    below.colour = alpha * colour + (1 - alpha) * below.colour;
    below.alpha = alpha + (1 - alpha) * below.alpha;
}

void lay_under(pixel& above, rgb colour, double alpha)
{
    above.colour = above.colour + (1 - above.alpha) * alpha * colour;
    above.alpha += (1 - above.alpha) * alpha;
}

struct canvas {
    std::vector<pixel> pixels{static_cast<std::size_t>(side) * side};   // rows from below
};

pixel& pixel_at(canvas& c, int x, int y)
{
    return c.pixels[static_cast<std::size_t>(y) * side + static_cast<std::size_t>(x)];
}

// From the front to the back, until nothing behind can be seen any more.
pixel looked_through(const block& b, int x, int y, double thick)
{
    constexpr double solid = .995;
    pixel seen;
    for (int z = depth - 1; z >= 0 && seen.alpha < solid; --z) {
        const place at{x, y, z};
        const double density = b.cells[index(at)].density;
        if (density <= 0) continue;
        lay_under(seen, cell_colour(b, at, thick), 1 - std::exp(-density * thick * cell_size));
    }
    return seen;
}

void paint_cloud(canvas& c, const block& b, double time)
{
    const double thick = thickness(time);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) pixel_at(c, x, y) = looked_through(b, x, y, thick);
}

// Calls for each pixel with its distance from the burst to the right and up.
template <class Action>
void for_pixels(canvas& c, const Action& action)
{
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            action(pixel_at(c, x, y), (x + .5) * cell_size - burst_across,
                   (y + .5) * cell_size - ground_line);
}

// Light that falls on the ground lies flat before the burst: there it reaches less far down the picture.
double distance_of_light(double x, double up)
{
    constexpr double flatness = 2.3;
    return std::hypot(x, up < 0 ? flatness * up : up);
}

// The air round the fire, and what lies behind it, in its light.
void paint_halo(canvas& c, double time)
{
    constexpr double size = .26, height = .12, fades_in = .22;
    constexpr rgb firelight{1, .62, .25};
    const double strength = .6 * std::exp(-time / fades_in);
    for_pixels(c, [&](pixel& p, double x, double y) {
        const double far = distance_of_light(x, y - height) / size;
        lay_under(p, firelight, strength * std::exp(-far * far));
    });
}

// Frame by frame: how far the flash reaches and how strong it is.
struct flash {
    double radius, strength;
};
constexpr std::array<flash, 4> flashes{{{.13, 1}, {.32, 1}, {.26, .85}, {.17, .4}}};

// Some directions get more of the flash than others.
double ray(double x, double y)
{
    constexpr double rays = 2.8;
    const double angle = std::atan2(y, x);
    return .62 + .75 * noise({rays * std::cos(angle) + 9, rays * std::sin(angle) + 9, 7});
}

void paint_flash(canvas& c, int frame)
{
    constexpr double height = .08;
    constexpr rgb core{1, 1, .96}, rim{1, .72, .28};
    if (frame >= static_cast<int>(flashes.size())) return;
    const flash f = flashes[static_cast<std::size_t>(frame)];
    for_pixels(c, [&](pixel& p, double x, double y) {
        const double far = distance_of_light(x, y - height) / (f.radius * ray(x, y - height));
        lay_over(p, mix(core, rim, ramp(.5, 1.6, far)), f.strength * std::exp(-std::pow(far, 3)));
    });
}

// Burning pieces --------------------------------------------------------------------------------------------

struct ember {
    double right, up;   // speed
    double life;
};

std::vector<ember> embers()
{
    constexpr int count = 22;
    dice d{6364136223846793005};
    std::vector<ember> all;
    for (int i = 0; i < count; ++i) {
        const double angle = throw_dice(d, .25, std::numbers::pi - .25);
        const double speed = throw_dice(d, 2.0, 3.4);
        const double life = throw_dice(d, .25, .5);
        all.push_back({.75 * speed * std::cos(angle), speed * std::sin(angle), life});
    }
    return all;
}

vec ember_at(const ember& e, double time)
{
    constexpr double height = .06, fall = 1.1;
    const double way = braked(time) / drag;
    return {e.right * way, height + e.up * way - fall * time * time, 0};
}

// Under what is painted already, so that a piece is seen only once it is out of the fire. Radius in pixels.
void paint_dot(canvas& c, vec at, double radius, double strength)
{
    constexpr rgb embers_glow{1, .80, .42};
    const double across = (at.x + burst_across) * side, up = (at.y + ground_line) * side;
    const int reach_out = static_cast<int>(std::ceil(2 * radius));
    for (int y = static_cast<int>(up) - reach_out; y <= static_cast<int>(up) + reach_out; ++y)
        for (int x = static_cast<int>(across) - reach_out; x <= static_cast<int>(across) + reach_out; ++x) {
            if (!inside({x, y, 0})) continue;
            const double far = std::hypot(x + .5 - across, y + .5 - up) / radius;
            lay_under(pixel_at(c, x, y), embers_glow, strength * std::exp(-far * far));
        }
}

// A piece with the streak that it draws while a frame lasts.
void paint_ember(canvas& c, const ember& e, double time)
{
    constexpr int dots = 12;
    constexpr double exposure = .05, radius = 1.1;   // of the whole time; pixels
    const double strength = 1 - time / e.life;
    for (int i = 0; i < dots && strength > 0; ++i) {
        const double then = time - exposure * i / dots;
        const vec at = ember_at(e, then);
        if (then > 0 && at.y > 0) paint_dot(c, at, radius, .6 * strength * (1 - 1.0 * i / dots));
    }
}

// The sheet -------------------------------------------------------------------------------------------------

double rim_share(int x, int y)
{
    const int nearest = std::min(std::min(x, side - 1 - x), std::min(y, side - 1 - y));
    return ramp(empty_rim, empty_rim + rim_fade, (nearest + .5) * cell_size);
}

// How much of all is left: what rises thins and is gone with the last frame.
double remaining(double time)
{
    return 1 - .95 * ramp(.66, 1, time);
}

canvas painted(int frame)
{
    const double time = moment(frame);
    canvas c;
    paint_cloud(c, filled(cloud(), time), time);
    paint_halo(c, time);
    for (const ember& e : embers()) paint_ember(c, e, time);
    paint_flash(c, frame);
    return c;
}

std::uint8_t to_byte(double v)
{
    return static_cast<std::uint8_t>(std::clamp(v * 255 + .5, 0.0, 255.0));
}

// An invisible pixel has no colour, so that it packs well.
void put_pixel(std::uint8_t* rgba, const pixel& p, double share)
{
    const std::uint8_t alpha = to_byte(p.alpha * share);
    if (alpha == 0) return;
    rgba[0] = to_byte(p.colour.r / p.alpha);
    rgba[1] = to_byte(p.colour.g / p.alpha);
    rgba[2] = to_byte(p.colour.b / p.alpha);
    rgba[3] = alpha;
}

void put_frame(png_picture& sheet, int frame)
{
    canvas c = painted(frame);
    const double left = remaining(moment(frame));
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const auto row = static_cast<std::size_t>(frame / frames_in_row * side + side - 1 - y);
            const auto column = static_cast<std::size_t>(frame % frames_in_row * side + x);
            put_pixel(&sheet.rgba[(row * sheet.width + column) * 4], pixel_at(c, x, y),
                      left * rim_share(x, y));
        }
}

}   // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: explosion FILE\n");
        return 2;
    }
    constexpr std::size_t width = std::size_t{frames_in_row} * side;
    constexpr std::size_t height = std::size_t{frames / frames_in_row} * side;
    png_picture sheet{width, height, std::vector<std::uint8_t>(width * height * 4)};
    for (int frame = 0; frame < frames; ++frame) put_frame(sheet, frame);
    std::ofstream file(arguments[1], std::ios::binary);
    file << png(sheet) << std::flush;
    if (!file) std::fprintf(stderr, "explosion: can't write %s\n", arguments[1]);
    return file ? 0 : 1;
}
