// Draws the target icons that the ranges ship with: a tank for FIN, an infantry fighting vehicle for HESH, a
// truck for COAX. Each is a side view to scale, drawn once in its paint and once by its heat. The vehicle
// fills the width of a square picture and stands on its lower edge, since the sight places a target by that
// square.
//
// Usage: target_icons FOLDER

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <initializer_list>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "png.h"

namespace {

struct point {
    double x, y;   // metres from the vehicle's left end, metres above the ground
};

struct rgb {
    double r, g, b;   // 0 to 1
};

struct part {
    std::vector<point> outline;
    rgb paint;
    double heat;   // 0 as cold as the ground, 1 the hottest that the sight shows
    bool camouflaged = false;
    bool slender = false;   // kept at least a pixel or so high, or it would fade out of the small pictures
};

struct vehicle {
    double length;
    std::vector<part> parts;   // later ones lie over earlier ones
};

constexpr rgb olive{.36, .39, .25}, dull{.29, .31, .21}, dark{.17, .18, .14}, rubber{.13, .13, .12};
constexpr rgb canvas{.46, .45, .32}, glass{.16, .19, .21}, earth{.20, .21, .14};

std::vector<point> box(double left, double bottom, double right, double top)
{
    return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

std::vector<point> disc(double x, double y, double radius)
{
    std::vector<point> outline;
    for (int i = 0; i < 24; ++i) {
        const double angle = 2 * std::numbers::pi * i / 24;
        outline.push_back({x + radius * std::cos(angle), y + radius * std::sin(angle)});
    }
    return outline;
}

void add_wheel(vehicle& v, double x, double radius, double heat)
{
    v.parts.push_back({disc(x, radius, radius), rubber, heat});
    v.parts.push_back({disc(x, radius, radius * .5), dull, heat + .15});
}

// A track from end to end of its run on the ground, raised at both ends, and the road wheels in it.
void add_track(vehicle& v, double left, double right, int wheels)
{
    v.parts.push_back(
        {{{left + .6, 0}, {right - .7, 0}, {right, .55}, {right - .1, .9}, {left + .1, .9}, {left, .6}},
         rubber,
         .6});
    const double first = left + .75, spacing = (right - left - 1.6) / (wheels - 1);
    for (int i = 0; i < wheels; ++i) {
        v.parts.push_back({disc(first + spacing * i, .38, .32), dark, .72});
        v.parts.push_back({disc(first + spacing * i, .38, .16), olive, .85});
    }
}

vehicle tank()
{
    vehicle v{9.5, {}};
    v.parts.push_back({box(2.8, 0, 9.3, .1), earth, .3});   // what lies in its shade
    add_track(v, 2.7, 9.4, 6);
    v.parts.push_back(
        {{{2.5, 1.0}, {3.7, 1.38}, {9.3, 1.42}, {9.5, 1.05}, {9.3, .75}, {2.9, .75}}, olive, .5, true});
    v.parts.push_back({box(3.5, .68, 8.9, .98), dull, .45});                 // side skirt
    v.parts.push_back({box(7.7, 1.3, 9.4, 1.5), dull, .95});                 // engine deck
    v.parts.push_back({disc(8.6, 1.12, .17), dark, 1});                      // exhaust
    v.parts.push_back({box(0, 1.70, 4.6, 1.86), dull, .6, false, true});     // gun
    v.parts.push_back({box(1.9, 1.66, 2.8, 1.90), dark, .6, false, true});   // fume extractor
    v.parts.push_back(
        {{{4.1, 1.42}, {4.3, 1.9}, {5.0, 2.2}, {6.5, 2.22}, {7.3, 1.95}, {7.5, 1.42}}, olive, .48, true});
    v.parts.push_back({box(7.2, 1.52, 8.0, 1.86), canvas, .4});   // stowage
    v.parts.push_back({box(5.5, 2.2, 6.3, 2.42), dull, .45});     // cupola
    return v;
}

vehicle fighting_vehicle()
{
    vehicle v{6.8, {}};
    v.parts.push_back({box(.5, 0, 6.5, .1), earth, .3});
    add_track(v, .3, 6.6, 6);
    v.parts.push_back(
        {{{0, 1.12}, {2.3, 1.52}, {6.7, 1.52}, {6.8, 1.0}, {6.6, .68}, {.75, .68}}, olive, .48, true});
    v.parts.push_back({{{.9, 1.28}, {2.3, 1.5}, {2.3, 1.6}, {.9, 1.38}}, dull, .97});   // engine louvres
    v.parts.push_back({disc(2.5, 1.22, .15), dark, 1});                                 // exhaust
    v.parts.push_back({box(1.5, 1.74, 3.3, 1.84), dark, .55, false, true});             // gun
    v.parts.push_back({{{2.8, 1.5}, {3.1, 1.98}, {4.1, 1.98}, {4.5, 1.5}}, olive, .45, true});
    v.parts.push_back({box(4.6, 1.5, 6.5, 1.58), canvas, .4});                            // rear hatches
    for (double x : {4.8, 5.4, 6.0}) v.parts.push_back({disc(x, 1.25, .09), dark, .4});   // firing ports
    return v;
}

vehicle truck()
{
    vehicle v{7.3, {}};
    v.parts.push_back({box(.5, 0, 7.0, .1), earth, .3});
    v.parts.push_back({box(.3, .8, 7.2, 1.12), dark, .4});   // chassis
    v.parts.push_back({{{0, .95}, {0, 1.7}, {1.3, 1.9}, {1.7, 2.6}, {2.7, 2.6}, {2.7, .95}},
                       olive,
                       .5,
                       true});                                // bonnet, cab
    v.parts.push_back({box(0, 1.0, 1.2, 1.65), dull, .95});   // over the engine
    v.parts.push_back({{{1.75, 1.95}, {1.95, 2.45}, {2.5, 2.45}, {2.5, 1.95}}, glass, .35});
    v.parts.push_back({box(2.9, 1.12, 7.3, 1.6), dull, .4});   // load bed
    v.parts.push_back(
        {{{2.9, 1.6}, {2.9, 2.7}, {3.15, 2.95}, {7.05, 2.95}, {7.3, 2.7}, {7.3, 1.6}}, canvas, .36, true});
    for (double x : {4.0, 5.1, 6.2}) v.parts.push_back({box(x, 1.6, x + .08, 2.93), dull, .32});   // hoops
    for (double x : {1.1, 4.8, 6.2}) add_wheel(v, x, .55, .6);
    v.parts.push_back({box(2.8, .6, 3.6, .85), dark, 1});   // silencer
    return v;
}

bool covers(const std::vector<point>& outline, point at)
{
    bool inside = false;
    for (std::size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
        const point &a = outline[i], &b = outline[j];
        if ((a.y > at.y) != (b.y > at.y) && at.x < (b.x - a.x) * (at.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

struct extent {
    double low, high;
};

extent heights(const std::vector<point>& outline)
{
    const auto [low, high] = std::minmax_element(outline.begin(), outline.end(),
                                                 [](const point& a, const point& b) { return a.y < b.y; });
    return {low->y, high->y};
}

vehicle thickened(vehicle v, double least)
{
    for (part& p : v.parts) {
        const auto [low, high] = heights(p.outline);
        if (!p.slender || high - low >= least) continue;
        for (point& corner : p.outline)
            corner.y = (low + high) / 2 + (corner.y - (low + high) / 2) * least / (high - low);
    }
    return v;
}

// Light from above, and for painted armour a slow pattern of lighter and darker patches.
rgb painted(const part& p, point at)
{
    const auto [low, high] = heights(p.outline);
    double light = .82 + .36 * (at.y - low) / (high - low);
    if (p.camouflaged) {
        const double pattern = std::sin(2.3 * at.x + 1.7 * at.y) + std::sin(1.1 * at.x - 3.1 * at.y + 2);
        light *= pattern > .7 ? 1.2 : pattern < -.5 ? .72 : 1;
    }
    return {p.paint.r * light, p.paint.g * light, p.paint.b * light};
}

rgb glowing(const part& p, point)
{
    const double grey = .40 + .60 * p.heat;   // the ground of a thermal picture stays below
    return {grey, grey, grey};
}

using look = rgb (*)(const part&, point);

struct image {
    int size;
    std::vector<std::uint8_t> bgra;   // rows from the top
};

std::uint8_t to_byte(double v)
{
    return static_cast<std::uint8_t>(std::clamp(v * 255 + .5, 0.0, 255.0));
}

// One pixel: the mean of a grid of samples over it. The alpha is the part of them that meets the vehicle.
void draw_pixel(const vehicle& v, look shade, point corner, double side, std::uint8_t* bgra)
{
    constexpr int grid = 8;
    rgb sum{0, 0, 0};
    int met = 0;
    for (int n = 0; n < grid * grid; ++n) {
        const point at{corner.x + (n % grid + .5) / grid * side, corner.y - (n / grid + .5) / grid * side};
        const auto top = std::find_if(v.parts.rbegin(), v.parts.rend(),
                                      [&](const part& p) { return covers(p.outline, at); });
        if (top == v.parts.rend()) continue;
        const rgb c = shade(*top, at);
        sum = {sum.r + c.r, sum.g + c.g, sum.b + c.b};
        ++met;
    }
    if (met == 0) return;
    bgra[0] = to_byte(sum.b / met);
    bgra[1] = to_byte(sum.g / met);
    bgra[2] = to_byte(sum.r / met);
    bgra[3] = to_byte(static_cast<double>(met) / (grid * grid));
}

image draw(const vehicle& v, look shade, int size)
{
    image picture{
        size, std::vector<std::uint8_t>(static_cast<std::size_t>(size) * static_cast<std::size_t>(size) * 4)};
    const double side = v.length / size;
    const vehicle drawn = thickened(v, 1.2 * side);
    std::uint8_t* pixel = picture.bgra.data();
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x, pixel += 4)
            draw_pixel(drawn, shade, {x * side, (size - y) * side}, side, pixel);
    return picture;
}

void put(std::string& out, std::size_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> (8 * i) & 0xff);
}

// The icon format's own kind of bitmap: twice the height in its header, rows from the bottom, then a mask of
// one bit a pixel for readers that know no alpha.
std::string bitmap(const image& picture)
{
    const auto size = static_cast<std::size_t>(picture.size);
    std::string out;
    put(out, 40, 4);
    put(out, size, 4);
    put(out, size * 2, 4);
    put(out, 1, 2);
    put(out, 32, 2);
    out.append(24, '\0');
    for (std::size_t y = size; y-- > 0;)
        out.append(reinterpret_cast<const char*>(&picture.bgra[y * size * 4]), size * 4);
    const std::size_t stride = (size + 31) / 32 * 4;
    for (std::size_t y = size; y-- > 0;) {
        std::string row(stride, '\0');
        for (std::size_t x = 0; x < size; ++x)
            if (picture.bgra[(y * size + x) * 4 + 3] < 128)
                row[x / 8] = static_cast<char>(row[x / 8] | 0x80 >> x % 8);
        out += row;
    }
    return out;
}

// The large sizes, of which the debrief draws a target, packed as a picture of their own.
std::string packed(const image& picture)
{
    const auto size = static_cast<std::size_t>(picture.size);
    png_picture out{size, size, picture.bgra};
    for (std::size_t i = 0; i < out.rgba.size(); i += 4) std::swap(out.rgba[i], out.rgba[i + 2]);
    return png(out);
}

// The largest first: a reader that looks no further than the first picture then has the best one.
std::string icon(const vehicle& v, look shade)
{
    constexpr int sizes[] = {256, 128, 96, 64, 48, 32, 24, 16};
    constexpr int packed_from = 128;
    std::string head, body;
    put(head, 0, 2);
    put(head, 1, 2);
    put(head, std::size(sizes), 2);
    for (int size : sizes) {
        const image picture = draw(v, shade, size);
        const std::string entry = size >= packed_from ? packed(picture) : bitmap(picture);
        put(head, static_cast<std::size_t>(size), 1);   // 256 is written as 0
        put(head, static_cast<std::size_t>(size), 1);
        put(head, 0, 2);
        put(head, 1, 2);
        put(head, 32, 2);
        put(head, entry.size(), 4);
        put(head, 6 + 16 * std::size(sizes) + body.size(), 4);
        body += entry;
    }
    return head + body;
}

bool save(const std::string& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file << bytes << std::flush;
    if (!file) std::fprintf(stderr, "target_icons: can't write %s\n", path.c_str());
    return file.good();
}

}   // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: target_icons FOLDER\n");
        return 2;
    }
    const std::string folder = arguments[1];
    const vehicle targets[] = {tank(), fighting_vehicle(), truck()};   // FIN, HESH, COAX
    bool saved = true;
    for (int i = 0; i < 3; ++i) {
        const std::string number = std::to_string(i + 1) + ".ico";
        saved &= save(folder + "/target" + number, icon(targets[i], painted));
        saved &= save(folder + "/thermal" + number, icon(targets[i], glowing));
    }
    return saved ? 0 : 1;
}
