// The sprite sheets that the tool draws. The unit of length is the width of a frame, the unit of time the
// duration of a sheet.
#pragma once

#include <vector>

#include "common/geometry.h"

namespace tools {

// Puffs of smoke that start at the foot of the scene, each with random values within the limits. All numbers
// but the count are in hundredths: 100 is the unit.
struct puff_group {
    int count = 0;
    bool along_ground = false;
    limits angle{};   // of the throw: 0 right, 50 up (along the ground: towards the eye), 100 left
    limits force{};
    vec3 reach{};   // how far a puff of force 100 flies before the air stops it: right, up, towards the eye
    limits young{}, grown{};   // the radius soon after the start, and its later increase
    limits heat{};             // 100 is a fire of medium heat
    float weakened = 0;        // by how much force 100 reduces the heat
    float dust = 0;            // 0 soot, 100 earth
    float lift = 100;          // factor of the scene's drift for these puffs
    float fall = 0;            // distance fallen at time 1
    float solid = 100;         // density of the smoke
    float from_side = 0;       // greatest distance of the start to either side of the foot
    float life = 100;          // duration of each puff, in a sheet that loops
};

// Pieces of debris. Each flies along a curve and is drawn as a streak (motion blur). The angle is in half
// turns, .5 is up; `fall` is the distance fallen at time 1.
struct piece_group {
    int count = 0;
    limits angle{}, speed{}, life{};
    vec3 colour{};
    float radius = .005f, fall = 1.1f;
};

struct scene {
    const char* name;
    int side;     // of a frame in pixels, and of the voxel grid in cells
    point foot;   // spot on the ground, from the lower left corner of the frame
    std::vector<puff_group> puffs;
    std::vector<piece_group> pieces{};
    float drag = 5;              // rate at which the air slows puffs and debris
    vec3 drift{};                // motion of the cloud by time t: x t^2 with the wind, z t + y t^2 upwards
    float lumps = 7.5f;          // frequency of the noise: lumps per unit of length
    float thick = 70;            // extinction of the densest smoke, per unit of length
    limits thins{.45f, 1};       // the time in which the smoke becomes thinner
    float left = .3f;            // the share of `thick` at the end of this time
    float cooling = .5f;         // time at which the heat is about half of `puff_group::heat`
    float flash = 0, halo = 0;   // size of the flash; strength of the halo
    int flash_from = 1;   // the step of the flash in frame 0; the steps are 0 to 3, step 1 is the largest
    bool loops = false, by_heat = false;
};

const std::vector<scene>& scenes();

}   // namespace tools
