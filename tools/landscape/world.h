// The ground of a country and everything on it.
#pragma once

#include <vector>

#include "common/noise.h"
#include "country.h"
#include "ground_map.h"
#include "sprites.h"
#include "terrain.h"

namespace tools {

struct plant {
    float x, y, foot;      // metres; foot: height of the ground there
    float height, width;   // metres
    int sprite;
    float bearing, range;
    vec3 colour;
    float warmer = 0;   // than other plants
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
    rng random;
};

inline constexpr float road_wander = .5f;   // of a road, relative to that of a track

// Marks tracks, roads and the river on the map.
void mark_ways(world&);
// Farms and the hamlet with its church.
void build_houses(world&);
// Tufts of grass and stones on the ground as it is lit with all the shadows.
void strew(world&);
// Woods, belts, copses, hedges, scrub, trees along the river; each with its shadow on the map.
void plant_trees(world&);
void add_tree(world&, float x, float y, growth, float height, float widen = 1);

}   // namespace tools
