// Noise as a function of coordinates, and random numbers from a seed. Both have the same values with every
// standard library; the distributions of <random> don't.
#pragma once

#include <cstdint>

namespace tools {

std::uint32_t hash(int x, int y, std::uint32_t seed);
// The hash as a number from 0 to below 1.
float scatter(int x, int y, std::uint32_t seed);
// Gradient noise with features about one unit wide. From -1 to 1, mostly between -0.5 and 0.5.
float noise(float x, float y, std::uint32_t seed);
// A sum of octaves of noise: each has about twice the frequency and `gain` times the amplitude of the one
// before.
float fractal(float x, float y, std::uint32_t seed, int octaves, float gain = .5f);
// Value noise in three dimensions, from -1 to 1.
float noise3(float x, float y, float z);

// Draw each number in a separate statement: the order of evaluation within one expression isn't fixed.
class rng {
public:
    explicit rng(std::uint64_t seed);
    float unit();    // from 0 to below 1, 24 bits
    double fine();   // from 0 to below 1, 53 bits
    float between(float low, float high);
    float normal();   // about normally distributed, mean 0, standard deviation 1
    bool chance(float probability) { return unit() < probability; }
    int below(int count);

private:
    std::uint64_t next();

    std::uint64_t state_;
};

}   // namespace tools
