// Draws the program's own icon: a tank before a dusk sky, in the sight. The same outlines are written as a
// scalable picture, vorn.svg, and painted at the sizes that desktops ask for, vorn-SIZE.png.
//
// Usage: program_icon FOLDER

#include <algorithm>
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

struct point {
    double x, y;   // in a square of 100, from its upper left corner
};
using outline = std::vector<point>;

struct rgb {
    int r, g, b;
};

// What lies within an odd number of its outlines, coloured from its top to its bottom.
struct shape {
    std::vector<outline> outlines;
    rgb top, bottom;
};

constexpr rgb night{0x26, 0x2d, 0x2e}, dusk{0xa8, 0x70, 0x3a}, land{0x24, 0x24, 0x1b}, dark{0x12, 0x13, 0x0e};
constexpr rgb amber{0xff, 0xc4, 0x5c};
constexpr double edge = 3, corner = 20;   // of the plate
constexpr double foot = 78;               // the ground under the tank

// From one angle to another, in degrees clockwise from the right.
void add_arc(outline& o, point middle, double radius, double from, double to)
{
    constexpr int steps = 16;
    for (int i = 0; i <= steps; ++i) {
        const double angle = (from + (to - from) * i / steps) * std::numbers::pi / 180;
        o.push_back({middle.x + radius * std::cos(angle), middle.y + radius * std::sin(angle)});
    }
}

outline circle(point middle, double radius)
{
    outline o;
    for (int quarter = 0; quarter < 4; ++quarter) add_arc(o, middle, radius, quarter * 90, quarter * 90 + 84);
    return o;
}

outline box(double left, double top, double right, double bottom)
{
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

void add_lower_corners(outline& o)
{
    constexpr double near = edge + corner, far = 100 - near;
    add_arc(o, {far, far}, corner, 0, 90);
    add_arc(o, {near, far}, corner, 90, 180);
}

outline plate()
{
    constexpr double near = edge + corner, far = 100 - near;
    outline o;
    add_arc(o, {near, near}, corner, 180, 270);
    add_arc(o, {far, near}, corner, 270, 360);
    add_lower_corners(o);
    return o;
}

outline ground()
{
    outline o;
    for (double x = edge; x <= 100 - edge; x += 2)
        o.push_back({x, foot - 2 + 2.5 * std::sin(x / 17) + 1.2 * std::sin(x / 6.1)});
    add_lower_corners(o);
    return o;
}

// Seen from its left, gun to the left.
std::vector<outline> tank()
{
    outline side{{-37, -20},   {-8, -21},   {-7, -25},   {-2, -27}, {3, -27.6}, {4, -29.6},
                 {10, -29.6},  {11, -27.6}, {21, -27},   {23, -25}, {23, -19},  {31, -18.8},
                 {34, -16},    {34, -10},   {30, -2},    {26, 0},   {-13, 0},   {-18, -3},
                 {-22, -11.6}, {-17, -17},  {-9, -18.4}, {-37, -18}};
    for (point& p : side) p = {50 + p.x, foot + p.y};
    return {side};
}

// A ring with a cross through it that leaves the middle free. `half` is half the width of its lines.
std::vector<outline> reticle(double half)
{
    constexpr double middle = 50, radius = 33, inner = 10, outer = 42;
    std::vector<outline> o{circle({middle, middle}, radius + half), circle({middle, middle}, radius - half)};
    // Cut at the ring, whose inside they would otherwise take out.
    for (const auto& [from, to] : {std::pair{inner, radius - half}, {radius + half, outer}}) {
        o.push_back(box(middle - to, middle - half, middle - from, middle + half));
        o.push_back(box(middle + from, middle - half, middle + to, middle + half));
        o.push_back(box(middle - half, middle - to, middle + half, middle - from));
        o.push_back(box(middle - half, middle + from, middle + half, middle + to));
    }
    o.push_back(circle({middle, middle}, half * 1.5));
    return o;
}

std::vector<shape> icon()
{
    return {{{plate()}, night, dusk},
            {{ground()}, land, dark},
            {tank(), land, dark},
            {reticle(1.9), amber, amber}};
}

// In few pixels there is room for the sight alone.
std::vector<shape> small_icon()
{
    return {{{plate()}, night, land}, {reticle(3.6), amber, amber}};
}

struct span {
    double from, to;
};

span heights(const shape& s)
{
    span found{100, 0};
    for (const outline& o : s.outlines)
        for (const point& p : o) found = {std::min(found.from, p.y), std::max(found.to, p.y)};
    return found;
}

// The scalable picture --------------------------------------------------------------------------------------

std::string number(double v)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", v);
    return text;
}

std::string colour(rgb c)
{
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", c.r & 0xff, c.g & 0xff, c.b & 0xff);
    return text;
}

std::string gradient(const shape& s, const std::string& name)
{
    const auto [top, bottom] = heights(s);
    return "  <linearGradient id=\"" + name + "\" gradientUnits=\"userSpaceOnUse\" x1=\"0\" x2=\"0\" y1=\"" +
           number(top) + "\" y2=\"" + number(bottom) + "\"><stop offset=\"0\" stop-color=\"" + colour(s.top) +
           "\"/><stop offset=\"1\" stop-color=\"" + colour(s.bottom) + "\"/></linearGradient>\n";
}

std::string path(const shape& s, const std::string& name)
{
    std::string text = "  <path fill=\"url(#" + name + ")\" fill-rule=\"evenodd\" d=\"";
    for (const outline& o : s.outlines) {
        char command = 'M';
        for (const point& p : o) {
            text += command + number(p.x) + " " + number(p.y);
            command = 'L';
        }
        text += "Z";
    }
    return text + "\"/>\n";
}

std::string svg(const std::vector<shape>& shapes)
{
    std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 100 100\">\n";
    int n = 0;
    for (const shape& s : shapes) {
        const std::string name = "shade" + std::to_string(n++);
        text += gradient(s, name) + path(s, name);
    }
    return text + "</svg>\n";
}

// The painted ones ------------------------------------------------------------------------------------------

bool covers(const shape& s, point at)
{
    bool inside = false;
    for (const outline& o : s.outlines)
        for (std::size_t i = 0, j = o.size() - 1; i < o.size(); j = i++) {
            const point &a = o[i], &b = o[j];
            if ((a.y > at.y) != (b.y > at.y) && at.x < (b.x - a.x) * (at.y - a.y) / (b.y - a.y) + a.x)
                inside = !inside;
        }
    return inside;
}

std::uint8_t between(int from, int to, double part)
{
    return static_cast<std::uint8_t>(std::lround(from + (to - from) * part));
}

struct layer {
    const shape* drawn;
    span height;
};

// One pixel: the mean of a grid of samples, each of which sees the topmost shape.
void paint_pixel(const std::vector<layer>& layers, point from, double side, std::uint8_t* rgba)
{
    constexpr int grid = 8;
    int sum[3] = {}, met = 0;
    for (int n = 0; n < grid * grid; ++n) {
        const int row = n / grid;
        const point at{from.x + (n % grid + .5) / grid * side, from.y + (row + .5) / grid * side};
        const auto top = std::find_if(layers.rbegin(), layers.rend(),
                                      [&](const layer& l) { return covers(*l.drawn, at); });
        if (top == layers.rend()) continue;
        const double part = (at.y - top->height.from) / (top->height.to - top->height.from);
        const rgb &a = top->drawn->top, &b = top->drawn->bottom;
        sum[0] += between(a.r, b.r, part);
        sum[1] += between(a.g, b.g, part);
        sum[2] += between(a.b, b.b, part);
        ++met;
    }
    if (met == 0) return;
    for (int c = 0; c < 3; ++c) rgba[c] = static_cast<std::uint8_t>(sum[c] / met);
    rgba[3] = static_cast<std::uint8_t>(met * 255 / (grid * grid));
}

std::string painted(const std::vector<shape>& shapes, std::size_t size)
{
    std::vector<layer> layers;
    layers.reserve(shapes.size());
    for (const shape& s : shapes) layers.push_back({&s, heights(s)});
    png_picture picture{size, size, std::vector<std::uint8_t>(size * size * 4)};
    const double side = 100.0 / static_cast<double>(size);
    for (std::size_t i = 0; i < size * size; ++i) {
        const std::size_t row = i / size;
        paint_pixel(layers, {static_cast<double>(i % size) * side, static_cast<double>(row) * side}, side,
                    &picture.rgba[i * 4]);
    }
    return png(picture);
}

bool save(const std::string& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file << bytes << std::flush;
    if (!file) std::fprintf(stderr, "program_icon: can't write %s\n", path.c_str());
    return file.good();
}

}   // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: program_icon FOLDER\n");
        return 2;
    }
    const std::string folder = arguments[1];
    bool saved = save(folder + "/vorn.svg", svg(icon()));
    for (const std::size_t size : {16u, 24u, 32u, 48u, 64u, 128u, 256u})
        saved &= save(folder + "/vorn-" + std::to_string(size) + ".png",
                      painted(size < 32 ? small_icon() : icon(), size));
    return saved ? 0 : 1;
}
