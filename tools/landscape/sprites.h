// Trees and bushes as small pictures, drawn once from many leaves and kept at every size down to a dot.
#pragma once

#include <vector>

#include "country.h"

namespace landscape {

enum class growth { broadleaf, conifer, bush, poplar, bare, count };

// Colour is light on a white leaf, to be multiplied by the leaf's own colour, and by `alpha` already.
struct leaf_pixel {
    vec3 light;
    float alpha = 0, warmth = 0;
};
struct sprite_size {
    int side;
    std::vector<leaf_pixel> pixels;
};
struct sprite {
    std::vector<sprite_size> sizes;   // each half the one before
};

inline constexpr int sprites_of_a_kind = 9;
inline constexpr int sprite_side = 256;

// All sprites, those of one growth next to each other.
std::vector<sprite> draw_sprites(const country&);
inline int first_of(growth kind)
{
    return static_cast<int>(kind) * sprites_of_a_kind;
}

}   // namespace landscape
