// Noise as a function of coordinates, and random numbers from a seed. Both have the same values with every
// standard library; the distributions of <random> don't.
#pragma once

#include <cstdint>

#include "geometry.h"

namespace tools {

std::uint32_t hash(int x, int y, std::uint32_t seed);
// The hash as a number from 0 to below 1.
float scatter(int x, int y, std::uint32_t seed);
// Gradient noise with features about one unit wide. About -1 to 1, mostly between -0.5 and 0.5.
float noise(point, std::uint32_t seed);
// A sum of octaves of noise: each has about twice the frequency and `gain` times the amplitude of the one
// before.
float fractal(point, std::uint32_t seed, int octaves, float gain = .5f);
// Value noise in three dimensions, from -1 to 1.
float noise3(vec3);

// Draw each number in a separate statement or element of a list in braces: the order of evaluation within
// other expressions isn't fixed.
class rng {
public:
    explicit rng(std::uint64_t seed);
    // From 0 to below 1, with 24 and with 53 random bits.
    float unit() { return real(next() >> 40) * 0x1p-24f; }
    double fine() { return static_cast<double>(next() >> 11) * 0x1p-53; }
    float between(float low, float high) { return low + (high - low) * unit(); }
    float between(limits l) { return between(l.low, l.high); }
    float normal();   // about normally distributed, mean 0, standard deviation 1
    bool chance(float probability) { return unit() < probability; }
    int below(int count) { return static_cast<int>(unit() * real(count)); }

private:
    std::uint64_t next();

    std::uint64_t state_;
};

}   // namespace tools
