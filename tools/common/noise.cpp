#include "noise.h"

namespace tools {

std::uint32_t hash(int x, int y, std::uint32_t seed)
{
    std::uint32_t h = static_cast<std::uint32_t>(x) * 0x85ebca6bU ^
                      static_cast<std::uint32_t>(y) * 0xc2b2ae35U ^ seed * 0x27d4eb2fU;
    h ^= h >> 15;
    h *= 0x2c1b3c6dU;
    h ^= h >> 12;
    h *= 0x297a2d39U;
    return h ^ h >> 15;
}

float scatter(int x, int y, std::uint32_t seed)
{
    return real(hash(x, y, seed) >> 8) * 0x1p-24f;
}

// The dot product with one of sixteen gradients, chosen by the hash.
static float slope(std::uint32_t h, point p)
{
    static constexpr point way[16] = {{1, 0},  {.924f, .383f},   {.707f, .707f},   {.383f, .924f},
                                      {0, 1},  {-.383f, .924f},  {-.707f, .707f},  {-.924f, .383f},
                                      {-1, 0}, {-.924f, -.383f}, {-.707f, -.707f}, {-.383f, -.924f},
                                      {0, -1}, {.383f, -.924f},  {.707f, -.707f},  {.924f, -.383f}};
    return way[h & 15].x * p.x + way[h & 15].y * p.y;
}

static float fade(float t)
{
    return t * t * t * (t * (t * 6 - 15) + 10);
}

float noise(point p, std::uint32_t seed)
{
    const int left = floor_int(p.x), top = floor_int(p.y);
    p = p - point{real(left), real(top)};
    const auto corner = [&](int x, int y) {
        return slope(hash(left + x, top + y, seed), p - point{real(x), real(y)});
    };
    return 1.5f * mix(mix(corner(0, 0), corner(1, 0), fade(p.x)), mix(corner(0, 1), corner(1, 1), fade(p.x)),
                      fade(p.y));
}

float fractal(point p, std::uint32_t seed, int octaves, float gain)
{
    float sum = 0, height = 1;
    for (int i = 0; i < octaves; ++i) {
        sum += height * noise(p, seed + static_cast<std::uint32_t>(i) * 17);
        height *= gain;
        // The coordinates are rotated as well as scaled, so that the lattices of the octaves don't coincide.
        p = {p.x * 1.62f - p.y * 1.18f + 11.3f, p.x * 1.18f + p.y * 1.62f - 7.7f};
    }
    return sum;
}

float noise3(vec3 p)
{
    const int left = floor_int(p.x), top = floor_int(p.y), low = floor_int(p.z);
    const float u = smoothstep(0, 1, p.x - real(left)), v = smoothstep(0, 1, p.y - real(top));
    const float w = smoothstep(0, 1, p.z - real(low));
    const auto layer = [&](int up) {
        const auto seed = static_cast<std::uint32_t>((low + up) * 7919 + 13);
        return mix(mix(scatter(left, top, seed), scatter(left + 1, top, seed), u),
                   mix(scatter(left, top + 1, seed), scatter(left + 1, top + 1, seed), u), v);
    };
    return mix(layer(0), layer(1), w) * 2 - 1;
}

rng::rng(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15U + 88172645463325252U)
{
    for (int i = 0; i < 8; ++i) next();
}

// A xorshift generator.
std::uint64_t rng::next()
{
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    return state_ ^= state_ << 17;
}

float rng::normal()
{
    float sum = 0;
    for (int i = 0; i < 6; ++i) sum += unit();
    return (sum - 3) * 1.41f;
}

}   // namespace tools
