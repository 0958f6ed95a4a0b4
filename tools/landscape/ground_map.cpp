#include "ground_map.h"

#include "common/noise.h"

namespace tools {
namespace {

constexpr float cell = 1.25f;                         // metres
constexpr float left_edge = -2700, near_edge = -20;   // metres
constexpr int columns = 4320, rows = 3000;

}   // namespace

map_layer::map_layer(float unit) : bytes_(columns, rows, 255), unit_(unit) {}

float map_layer::at(float x, float y) const
{
    const float u = (x - left_edge) / cell, v = (y - near_edge) / cell;
    if (u < 0 || v < 0 || u >= columns - 2 || v >= rows - 2) return 255 * unit_;
    return bytes_.between(u, v) * unit_;
}

map_layer::cells map_layer::around(point low, point high, float reach)
{
    return {std::max(0, floor_int((low.x - reach - left_edge) / cell)),
            std::min(columns - 1, floor_int((high.x + reach - left_edge) / cell) + 1),
            std::max(0, floor_int((low.y - reach - near_edge) / cell)),
            std::min(rows - 1, floor_int((high.y + reach - near_edge) / cell) + 1)};
}

void map_layer::mark_distance(const path& line)
{
    const float reach = 255 * unit_;
    for (std::size_t k = 0; k + 1 < line.size(); ++k) {
        const point a = line[k], b = line[k + 1];
        const cells c =
            around({std::min(a.x, b.x), std::min(a.y, b.y)}, {std::max(a.x, b.x), std::max(a.y, b.y)}, reach);
        const float dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy + 1e-6f;
        for (int j = c.top; j <= c.bottom; ++j)
            for (int i = c.left; i <= c.right; ++i) {
                const float x = left_edge + real(i) * cell - a.x, y = near_edge + real(j) * cell - a.y;
                const float t = clamp01((x * dx + y * dy) / square);
                const float bytes = std::hypot(x - t * dx, y - t * dy) / unit_;
                std::uint8_t& there = bytes_.at(i, j);
                if (bytes < static_cast<float>(there)) there = static_cast<std::uint8_t>(bytes);
            }
    }
}

void map_layer::darken(point middle, float along, float across, float angle, float strength)
{
    constexpr float edge = 1.6f;
    const cells c = around(middle, middle, std::max(along, across) * 1.3f);
    const float cosine = std::cos(angle), sine = std::sin(angle);
    for (int j = c.top; j <= c.bottom; ++j)
        for (int i = c.left; i <= c.right; ++i) {
            const float x = left_edge + real(i) * cell - middle.x, y = near_edge + real(j) * cell - middle.y;
            const float a = (x * cosine + y * sine) / along, b = (y * cosine - x * sine) / across;
            const float q = a * a + b * b;
            if (q >= edge) continue;
            std::uint8_t& there = bytes_.at(i, j);
            there = static_cast<std::uint8_t>(real(there) * (1 - strength * (1 - smoothstep(.35f, edge, q))));
        }
}

// A Catmull-Rom spline, from b at t = 0 to c at t = 1.
static float on_curve(float a, float b, float c, float d, float t)
{
    return .5f *
           (2 * b + (c - a) * t + (2 * a - 5 * b + 4 * c - d) * t * t + (3 * b - a - 3 * c + d) * t * t * t);
}

static point wandered(point p, float wander)
{
    return {p.x + wander * (7 * noise(p.x / 60, p.y / 60, 77) + 2 * noise(p.x / 14, p.y / 14, 79)),
            p.y + wander * (7 * noise(p.x / 60, p.y / 60, 78) + 2 * noise(p.x / 14, p.y / 14, 80))};
}

path winding(const path& through, float wander)
{
    constexpr float spacing = 6;
    path line;
    const std::size_t count = through.size();
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const point a = through[i > 0 ? i - 1 : 0], b = through[i], c = through[i + 1];
        const point d = through[std::min(count - 1, i + 2)];
        const int pieces = std::max(2, floor_int(std::hypot(c.x - b.x, c.y - b.y) / spacing));
        for (int k = 0; k < pieces; ++k) {
            const float t = real(k) / real(pieces);
            line.push_back(
                wandered({on_curve(a.x, b.x, c.x, d.x, t), on_curve(a.y, b.y, c.y, d.y, t)}, wander));
        }
    }
    line.push_back(wandered(through.back(), wander));
    return line;
}

}   // namespace tools
