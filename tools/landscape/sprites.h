// Pictures of plants and stones, drawn once from many leaves, boughs or blades and stored as mipmaps.
#pragma once

#include <vector>

#include "common/grid.h"
#include "country.h"

namespace tools {

enum class growth { broadleaf, conifer, bush, stone, tuft, bare, count };

// A pixel of a sprite, premultiplied by `alpha`. `light` is that of a white leaf; the renderer multiplies it
// by the colour of the plant. Light and warmth of a tuft are relative to the ground below.
struct leaf_pixel {
    vec3 light;
    float alpha = 0, warmth = 0;

    friend constexpr leaf_pixel operator+(leaf_pixel a, leaf_pixel b)
    {
        return {a.light + b.light, a.alpha + b.alpha, a.warmth + b.warmth};
    }
    friend constexpr leaf_pixel operator-(leaf_pixel a, leaf_pixel b) { return a + b * -1; }
    friend constexpr leaf_pixel operator*(leaf_pixel a, float s)
    {
        return {a.light * s, a.alpha * s, a.warmth * s};
    }
};
using sprite = std::vector<grid<leaf_pixel>>;   // mipmaps, each half the size of the one before

inline constexpr int sprites_of_a_kind = 9;

// All sprites, by kind.
std::vector<sprite> draw_sprites(const country&);
inline int first_of(growth kind)
{
    return static_cast<int>(kind) * sprites_of_a_kind;
}
// Whether the sprite is a stone or a tuft, which are too low to hide a target.
inline bool is_low(int sprite)
{
    return sprite >= first_of(growth::stone) && sprite < first_of(growth::bare);
}

}   // namespace tools
