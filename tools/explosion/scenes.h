// The sprite sheets that the program paints. Lengths are in widths of a frame, times in durations of a sheet.
#pragma once

#include <vector>

#include "common/geometry.h"

namespace tools {

struct limits {
    float low = 0, high = 0;
};

// Puffs that start at the foot, with values at random within limits. All but the count are in hundredths.
struct puff_group {
    int count = 0;
    bool along_ground = false;
    limits angle{};   // of the throw, in half turns; 50 is up, or towards the eye
    limits force{};
    vec3 reach{};              // how far force 100 gets before the air stops it: right, up, towards the eye
    limits young{}, grown{};   // the first radius, and the increase
    limits heat{};             // 100 is a fire of medium heat
    float weakened = 0;        // how much less heat force 100 has
    float dust = 0;            // 0 soot, 100 earth
    float lift = 100;          // share of the scene's drift
    float fall = 0;            // at the end of time 1
    float solid = 100;
    float from_side = 0;   // the start may be as far as this to either side of the foot
    float life = 100;      // of each puff, in a sheet that loops
};

// Single pieces that fly in a curve, each with the streak that it draws during the exposure.
struct piece_group {
    int count = 0;
    limits angle{}, speed{}, life{};
    vec3 colour{};
    float radius = .005f, fall = 1.1f;
};

struct scene {
    const char* name;
    int side;     // pixels of a frame, and cells across and up
    point foot;   // from the lower left corner
    std::vector<puff_group> puffs;
    std::vector<piece_group> pieces{};
    float drag = 5;
    vec3 drift{};            // wind and rise, growing with the square of the time, and steady rise
    float lumps = 7.5f;      // frequency of the noise: lumps per length
    float thick = 70;        // extinction of the densest smoke, per length
    limits thins{.45f, 1};   // the time in which it becomes thinner,
    float left = .3f;        // and the share that is left
    float cooling = .5f;
    float flash = 0, halo = 0;   // size; strength
    int flash_from = 1;          // its first frame shown: 1 is the largest, 3 the last
    bool loops = false, by_heat = false;
};

const std::vector<scene>& scenes();

}   // namespace tools
