#include "scenes.h"

namespace tools {

static constexpr bool up = false, along = true;   // thrown up, or along the ground

// The sight draws the frame 100 twips larger than the target, with the lower left corners at the same place.
// The foot of the scene is at the middle of the target, so it is left of the middle of the frame.
static const scene explosion{
    .name = "explosion",
    .side = 176,
    .foot = {.44f, .12f},
    .puffs = {{44, up, {0, 100}, {10, 100}, {24, 46, 16}, {4.5f, 7}, {2.5f, 9}, {100, 120}, 45},
              {54, along, {0, 200}, {60, 100}, {34, 2.5f, 25}, {2, 2}, {2.5f, 6.5f}, {}, 0, 100, 10}},
    .pieces = {{44, {.08f, .92f}, {1.6f, 3.6f}, {.2f, .5f}, {1, .8f, .42f}},
               {30, {.1f, .9f}, {1.2f, 2.8f}, {.5f, 1}, {.11f, .1f, .09f}, .005f, .9f}},
    .drift = {.16f, .14f, .10f},
    .flash = 1,
    .halo = .6f,
    .flash_from = 0};

static const scene fire{
    .name = "fire",
    .side = 256,
    .foot = {.5f, .06f},
    // Flames, and the smoke above them.
    .puffs =
        {{90, up, {30, 70}, {30, 100}, {5, 12, 6}, {6, 9}, {-5, -3}, {76, 98}, 0, 0, 85, 0, 75, 20, 55},
         {60, up, {20, 80}, {10, 100}, {13, 14, 8}, {4, 6}, {6, 15}, {40, 70}, 0, 10, 100, 0, 100, 11, 135}},
    .drag = 2,
    .drift = {.13f, .02f, .57f},
    .lumps = 11,
    .thick = 45,
    .left = 1,
    .cooling = .28f,
    .halo = .22f,
    .loops = true};

// The bursts are drawn upright; the sight shears that of HESH with the wind.
static const scene burst_fin{
    .name = "burst_fin",
    .side = 192,
    .foot = {.5f, .05f},
    // A jet of soil, and dust along the ground.
    .puffs = {{60, up, {40, 60}, {10, 100}, {60, 72, 4}, {1.2f, 2.2f}, {1.5f, 5}, {50, 90}, 80, 80, 100, 18},
              {26, along, {0, 200}, {30, 100}, {17, 3, 12}, {2, 2}, {3, 6}, {}, 0, 100, 40, 0, 70}},
    .pieces = {{110, {.36f, .64f}, {1.5f, 5.6f}, {.25f, .8f}, {.24f, .20f, .14f}, .003f},
               {20, {.15f, .85f}, {1.6f, 4.5f}, {.1f, .2f}, {1, .85f, .5f}, .0045f}},
    .drag = 6,
    .drift = {0, .02f, .06f},
    .lumps = 12,
    .thick = 55,
    .thins = {.1f, .9f},
    .left = .22f,
    .cooling = .06f,
    .flash = .4f,
    .halo = .3f};

static const scene burst_hesh{
    .name = "burst_hesh",
    .side = 256,
    .foot = {.5f, .05f},
    // A fireball, the column above it, and dust along the ground.
    .puffs = {{36, up, {0, 100}, {10, 100}, {22, 30, 16}, {5, 7.5f}, {3, 9}, {140, 170}, 40, 40},
              {60, up, {33, 67}, {10, 100}, {36, 60, 12}, {2, 4}, {5, 10}, {80, 120}, 70, 60},
              {56, along, {0, 200}, {40, 100}, {30, 4, 21}, {2, 3}, {3, 8}, {}, 0, 100, 15}},
    .pieces = {{90, {.12f, .88f}, {1.5f, 4.6f}, {.3f, .9f}, {.19f, .16f, .12f}, .004f, 1.2f},
               {30, {.1f, .9f}, {1.5f, 4}, {.12f, .3f}, {1, .82f, .45f}}},
    .drag = 5.5f,
    .drift = {0, .05f, .10f},
    .thick = 60,
    .thins = {.25f, 1},
    .left = .25f,
    .cooling = .22f,
    .flash = .85f,
    .halo = .6f};

static const scene burst_coax{
    .name = "burst_coax",
    .side = 96,
    .foot = {.5f, .05f},
    .puffs = {{18, up, {30, 70}, {10, 100}, {45, 55, 12}, {3, 5}, {5, 11}, {}, 0, 95, 100, 6},
              {10, along, {0, 200}, {20, 100}, {20, 4, 14}, {3, 4}, {5, 8}, {}, 0, 100, 50}},
    .pieces = {{30, {.3f, .7f}, {1, 4}, {.2f, .6f}, {.28f, .23f, .16f}, .006f}},
    .drag = 6,
    .drift = {0, .03f, .08f},
    .lumps = 9,
    .thick = 26,
    .thins = {.05f, .9f},
    .left = .22f,
    .flash = .25f};

// The scene as a thermal sight shows it: smoke that no longer glows is still warm, and smoke and dust
// hide less.
// `spot`: size of the ground that stays hot where a round struck, in hundredths; 0 if none does.
static scene hot(const char* name, scene s, float cooling, float warmer, float spot = 0)
{
    s.name = name;
    s.by_heat = true;
    s.thick *= s.loops ? .6f : .4f;
    s.cooling = cooling;
    for (puff_group& g : s.puffs) {
        g.heat = {g.heat.low + warmer, g.heat.high + warmer};
        g.young = {1.3f * g.young.low, 1.3f * g.young.high};
        if (spot > 0) g.grown = {1.5f * g.grown.low, 1.5f * g.grown.high};
    }
    s.pieces.clear();
    const vec3 reach = vec3{1.5f, .8f, 1.5f} * spot;
    if (spot > 0)
        s.puffs.push_back(
            {10, up, {0, 100}, {10, 100}, reach, {spot, 1.3f * spot}, {-1, 0}, {300, 350}, 0, 0, 0});
    return s;
}

const std::vector<scene>& scenes()
{
    static const std::vector<scene> all{explosion,
                                        fire,
                                        burst_fin,
                                        burst_hesh,
                                        burst_coax,
                                        hot("hot_explosion", explosion, .4f, 40, 5),
                                        hot("hot_fire", fire, .65f, 70),
                                        hot("hot_fin", burst_fin, .6f, 60, 4),
                                        hot("hot_hesh", burst_hesh, .4f, 30),
                                        hot("hot_coax", burst_coax, .5f, 40, 6)};
    return all;
}

}   // namespace tools
