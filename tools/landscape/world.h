// All that stands on the ground of a country, ready to be drawn.
#pragma once

#include <vector>

#include "country.h"
#include "ground_map.h"
#include "noise.h"
#include "sprites.h"
#include "terrain.h"

namespace landscape {

struct plant {
    float x, y, foot;      // metres; foot: its height
    float height, width;   // metres
    int sprite;
    float bearing, range;
    vec3 colour;
};

// A piece of a wall or a roof.
struct panel {
    vec3 corner[4];
    vec3 colour, normal;
    float warmth;
};

struct world {
    explicit world(const country&);
    world(const world&) = delete;
    world& operator=(const world&) = delete;

    const country& land;
    ground_map map;
    terrain ground;
    std::vector<sprite> sprites;
    std::vector<plant> plants;   // far ones first
    std::vector<panel> panels;
};

inline constexpr float road_wander = .5f;   // against that of a track

// Marks tracks, roads and the river on the map.
void mark_ways(world&);
// Farms and the hamlet with its church.
void build_houses(world&, chance&);
// Woods, belts, copses, hedges, scrub, trees along the river; each throws its shadow on the map.
void plant_trees(world&, chance&);
void add_tree(world&, chance&, float x, float y, growth, float height, float widen = 1);

}   // namespace landscape
