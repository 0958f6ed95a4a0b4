#include "ground_map.h"

#include <ranges>

#include "common/noise.h"

namespace tools {
namespace {

constexpr float cell = 1.25f;            // metres
constexpr point near_left{-2700, -20};   // corner of the map, metres
constexpr int columns = 4320, rows = 3000;

point in_cells(point p)
{
    return (p - near_left) / cell;
}

}   // namespace

map_layer::map_layer(float unit) : bytes_(columns, rows, 255), unit_(unit) {}

float map_layer::at(point p) const
{
    const auto [u, v] = in_cells(p);
    if (u < 0 || v < 0 || u >= columns - 2 || v >= rows - 2) return 255 * unit_;
    return bytes_.between(u, v) * unit_;
}

void map_layer::change_around(point low, point high, float reach, auto change)
{
    const point margin{reach, reach};
    each_cell(bytes_, in_cells(low - margin), in_cells(high + margin) + point{1, 1},
              [&](int i, int j, std::uint8_t& there) {
                  change(there, near_left + point{real(i), real(j)} * cell);
              });
}

void map_layer::mark_distance(const std::vector<piece>& line)
{
    for (const auto& [a, way] : line) {
        const point b = a + way;
        const float square = dot(way, way) + 1e-6f;
        change_around({std::min(a.x, b.x), std::min(a.y, b.y)}, {std::max(a.x, b.x), std::max(a.y, b.y)},
                      255 * unit_, [&](std::uint8_t& there, point place) {
                          const point p = place - a;
                          const float t = clamp01(dot(p, way) / square);
                          const float bytes = length(p - way * t) / unit_;
                          if (bytes < real(there)) there = static_cast<std::uint8_t>(bytes);
                      });
    }
}

void map_layer::darken(point middle, float along, float across, float angle, float strength)
{
    constexpr float edge = 1.6f;
    const point way{std::cos(angle), std::sin(angle)};
    change_around(middle, middle, std::max(along, across) * 1.3f, [&](std::uint8_t& there, point place) {
        const point p = place - middle;
        const float a = dot(way, p) / along, b = cross(way, p) / across;
        const float q = a * a + b * b;
        if (q < edge)
            there = static_cast<std::uint8_t>(real(there) * (1 - strength * (1 - smoothstep(.35f, edge, q))));
    });
}

// A Catmull-Rom spline, from b at t = 0 to c at t = 1.
static point on_curve(point a, point b, point c, point d, float t)
{
    return (b * 2 + (c - a) * t + (a * 2 - b * 5 + c * 4 - d) * t * t + (b * 3 - a - c * 3 + d) * t * t * t) *
           .5f;
}

static point wandered(point p, float wander)
{
    return {p.x + wander * (7 * noise(p / 60, 77) + 2 * noise(p / 14, 79)),
            p.y + wander * (7 * noise(p / 60, 78) + 2 * noise(p / 14, 80))};
}

std::vector<piece> winding(const path& through, float wander)
{
    constexpr float spacing = 6;
    std::vector<piece> line;
    const std::size_t count = through.size();
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const point a = through[i > 0 ? i - 1 : 0], b = through[i], c = through[i + 1];
        const point d = through[std::min(count - 1, i + 2)];
        const int pieces = std::max(2, floor_int(length(c - b) / spacing));
        for (int k = 0; k < pieces; ++k)
            line.push_back({wandered(on_curve(a, b, c, d, real(k) / real(pieces)), wander), {}});
    }
    point end = wandered(through.back(), wander);
    for (piece& p : std::views::reverse(line)) {
        p.way = end - p.from;
        end = p.from;
    }
    return line;
}

}   // namespace tools
