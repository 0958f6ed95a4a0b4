#include "common/noise.h"
#include "ground_cover.h"

namespace tools {
namespace {

constexpr float depth_of_row = 190, width_of_field = 240;   // metres
constexpr float turn = .42f;                                // of the rows, relative to the view, radians
constexpr float crooked = .30f;                             // deviation of boundaries, in rows or fields

// The coordinate of the boundary before row `i`, or before field `i` of a row. The unit is the mean size of a
// row or field. Boundaries are irregular but never cross.
float line(int i, int row, std::uint32_t seed)
{
    return real(i) + .5f * (scatter(i, row, seed) - .5f);
}

// The row or field at a coordinate, and the distances to its boundaries.
struct span {
    int number;
    float before, after;
};

span span_at(float v, int row, std::uint32_t seed)
{
    int i = floor_int(v);
    if (v < line(i, row, seed)) i -= 1;
    if (v >= line(i + 1, row, seed)) i += 1;
    return {i, v - line(i, row, seed), line(i + 1, row, seed) - v};
}

}   // namespace

field field_at(const country& land, point p)
{
    const std::uint32_t seed = land.seed + 40;
    const point along{std::cos(turn), std::sin(turn)};
    const float u = dot(along, p) / width_of_field + crooked * noise(p / 620, seed + 1);
    const float v =
        cross(along, p) / depth_of_row + crooked * noise(p / 560, seed + 2) + .04f * noise(p / 130, seed + 3);
    const span row = span_at(v, 0, seed + 4);
    const float leaning = .5f * (scatter(row.number, 0, seed + 5) - .5f) * row.before;
    const float number_in_width = .75f + .6f * scatter(row.number, 0, seed + 6);
    const float shifted = u * number_in_width + leaning;
    const span piece = span_at(shifted, row.number, seed + 7);

    const float scale = width_of_field / number_in_width;
    const auto [edge, border] = std::min<std::pair<float, std::uint32_t>>(
        {{row.before * depth_of_row, hash(row.number, 1, seed)},
         {row.after * depth_of_row, hash(row.number + 1, 1, seed)},
         {piece.before * scale, hash(piece.number, row.number * 2 + 7, seed)},
         {piece.after * scale, hash(piece.number + 1, row.number * 2 + 7, seed)}});
    const std::uint32_t id = hash(piece.number, row.number, seed + 8);
    const float angle =
        turn + ((id & 1) != 0U ? 0 : 1.5708f) + .2f * (scatter(piece.number, row.number, 3) - .5f);
    // Neighbouring fields have similar values, so that woods form groups.
    const float together = .5f + .9f * noise({real(piece.number) * .43f, real(row.number) * .39f}, seed + 9);
    const float wood = clamp01(.65f * together + .35f * scatter(piece.number, row.number, seed + 10));
    return {edge, id, border, {std::cos(angle), std::sin(angle)}, wood};
}

bool wooded(const country& land, const field& f, point p)
{
    constexpr float hamlet_land = 230;   // radius around the middle of the hamlet, metres
    if (land.hamlet && length(p - *land.hamlet) < hamlet_land) return false;
    // Far slopes have more woods than the floor of the valley.
    const float share = land.wooded * (.55f + .9f * smoothstep(1300, 2300, length(p)));
    return f.wood < .12f + .6f * share;
}

float roughness(const country& land, point p)
{
    const float range = std::sqrt(p.x * p.x + p.y * p.y);
    const float edge = land.farmed_from + .12f * land.farmed_from * noise(p / 420, land.seed + 61);
    const float near = 1 - smoothstep(edge - 12, edge + 12, range);
    if (near >= 1 || land.rough_share <= 0 || range > 3200) return near;
    const field f = field_at(land, p);
    const bool rough = real(f.id >> 8 & 255) / 255 < land.rough_share;
    return std::max(near, rough ? smoothstep(0, 3, f.edge) : 0.f);
}

}   // namespace tools
