#include "ground_map.h"

#include "common/noise.h"

namespace tools {
namespace {

constexpr float cell = 1.25f;                         // metres
constexpr float left_edge = -2700, near_edge = -20;   // metres
constexpr int columns = 4320, rows = 3000;

}   // namespace

map_layer::map_layer(float unit) : bytes_(columns, rows, 255), unit_(unit) {}

float map_layer::at(point p) const
{
    const float u = (p.x - left_edge) / cell, v = (p.y - near_edge) / cell;
    if (u < 0 || v < 0 || u >= columns - 2 || v >= rows - 2) return 255 * unit_;
    return bytes_.between(u, v) * unit_;
}

void map_layer::change_around(point low, point high, float reach, auto change)
{
    const auto in_cells = [](float x, float y) {
        return point{(x - left_edge) / cell, (y - near_edge) / cell};
    };
    each_cell(bytes_, in_cells(low.x - reach, low.y - reach),
              in_cells(high.x + reach, high.y + reach) + point{1, 1}, [&](int i, int j, std::uint8_t& there) {
                  change(there, point{left_edge + real(i) * cell, near_edge + real(j) * cell});
              });
}

void map_layer::mark_distance(const path& line)
{
    for (const auto& [a, way] : pieces(line)) {
        const point b = a + way;
        const float square = way.x * way.x + way.y * way.y + 1e-6f;
        change_around({std::min(a.x, b.x), std::min(a.y, b.y)}, {std::max(a.x, b.x), std::max(a.y, b.y)},
                      255 * unit_, [&](std::uint8_t& there, point place) {
                          const point p = place - a;
                          const float t = clamp01((p.x * way.x + p.y * way.y) / square);
                          const float bytes = length(p - way * t) / unit_;
                          if (bytes < real(there)) there = static_cast<std::uint8_t>(bytes);
                      });
    }
}

void map_layer::darken(point middle, float along, float across, float angle, float strength)
{
    constexpr float edge = 1.6f;
    const float cosine = std::cos(angle), sine = std::sin(angle);
    change_around(middle, middle, std::max(along, across) * 1.3f, [&](std::uint8_t& there, point place) {
        const point p = place - middle;
        const float a = (p.x * cosine + p.y * sine) / along, b = (p.y * cosine - p.x * sine) / across;
        const float q = a * a + b * b;
        if (q < edge)
            there = static_cast<std::uint8_t>(real(there) * (1 - strength * (1 - smoothstep(.35f, edge, q))));
    });
}

std::vector<piece> pieces(const path& line)
{
    std::vector<piece> all;
    for (std::size_t i = 0; i + 1 < line.size(); ++i) all.push_back({line[i], line[i + 1] - line[i]});
    return all;
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

path winding(const path& through, float wander)
{
    constexpr float spacing = 6;
    path line;
    const std::size_t count = through.size();
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const point a = through[i > 0 ? i - 1 : 0], b = through[i], c = through[i + 1];
        const point d = through[std::min(count - 1, i + 2)];
        const int pieces = std::max(2, floor_int(length(c - b) / spacing));
        for (int k = 0; k < pieces; ++k)
            line.push_back(wandered(on_curve(a, b, c, d, real(k) / real(pieces)), wander));
    }
    line.push_back(wandered(through.back(), wander));
    return line;
}

}   // namespace tools
