// What is built from a `country`: the ground and everything on it.
#pragma once

#include <vector>

#include "common/noise.h"
#include "country.h"
#include "ground_map.h"
#include "sprites.h"
#include "terrain.h"

namespace tools {

struct plant {
    point at;
    float foot, height, width;   // metres; foot: lower end, just below the ground, from the eye up
    int sprite;
    vec3 colour;
    float warmer = 0;   // added to the warmth of a low sprite: the ground's for a tuft, 0 for a stone
};

// A flat piece of a house or a bridge.
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

inline constexpr float road_wander = .5f;   // the bends of a road relative to those of a track

// Builds farms, the hamlet with its church, and bridges.
void build_houses(world&);
// Adds a tree or bush `widen` times as wide as it is high, with its shadow on the map.
void add_tree(world&, point, growth, float height, float widen);

}   // namespace tools
