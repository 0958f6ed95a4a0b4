// Trees and bushes as small pictures, drawn once from many leaves and kept as mipmaps.
#pragma once

#include <vector>

#include "common/grid.h"
#include "country.h"

namespace tools {

enum class growth { broadleaf, conifer, bush, stone, tuft, bare, count };

// `light` falls on a white leaf and is multiplied by the leaf's own colour later; on a tuft, light and warmth
// are relative to those of the ground it stands on. All is multiplied by `alpha`.
struct leaf_pixel {
    vec3 light;
    float alpha = 0, warmth = 0;
};
constexpr leaf_pixel operator+(leaf_pixel a, leaf_pixel b)
{
    return {a.light + b.light, a.alpha + b.alpha, a.warmth + b.warmth};
}
constexpr leaf_pixel operator*(leaf_pixel a, float s)
{
    return {a.light * s, a.alpha * s, a.warmth * s};
}
using sprite = std::vector<grid<leaf_pixel>>;   // each half the size of the one before

inline constexpr int sprites_of_a_kind = 9;

// All sprites, ordered by kind.
std::vector<sprite> draw_sprites(const country&);
inline int first_of(growth kind)
{
    return static_cast<int>(kind) * sprites_of_a_kind;
}
// Too low to hide anything.
inline bool is_low(int sprite)
{
    return sprite >= first_of(growth::stone) && sprite < first_of(growth::bare);
}

}   // namespace tools
