// Noise that is the same at the same place each time, and a source of chance with a given start.
#pragma once

#include <cstdint>

namespace landscape {

std::uint32_t hash(int x, int y, std::uint32_t seed);
// The same as a number from 0 to below 1.
float scatter(int x, int y, std::uint32_t seed);
// Smooth hills and hollows about one unit wide, from -1 to 1 and mostly within half of it.
float noise(float x, float y, std::uint32_t seed);
// Octaves of noise, each about half as wide and `gain` times as high as the one before.
float fractal(float x, float y, std::uint32_t seed, int octaves, float gain = .5f);
// In three dimensions, from -1 to 1: clouds.
float noise3(float x, float y, float z);

// Draw each number in a statement of its own: the order of calls within one expression isn't fixed.
class chance {
public:
    explicit chance(std::uint64_t start);
    float unit();   // from 0 to below 1
    float between(float low, float high);
    float bell();   // around 0, mostly within 1
    bool in(float probability) { return unit() < probability; }
    int below(int count);

private:
    std::uint64_t state_;
};

}   // namespace landscape
