// Points, colours and the few sums that the whole landscape is made with. Places on the ground are in metres,
// x to the right of the firing point and y away from it; colours are linear light.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace landscape {

constexpr float real(auto number)
{
    return static_cast<float>(number);
}

inline int whole(float number)
{
    return static_cast<int>(std::floor(number));
}

constexpr std::size_t index(auto number)
{
    return static_cast<std::size_t>(number);
}

struct vec3 {
    float x = 0, y = 0, z = 0;
};

constexpr vec3 operator+(vec3 a, vec3 b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr vec3 operator-(vec3 a, vec3 b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr vec3 operator*(vec3 a, float s)
{
    return {a.x * s, a.y * s, a.z * s};
}
constexpr vec3 operator*(vec3 a, vec3 b)
{
    return {a.x * b.x, a.y * b.y, a.z * b.z};
}
constexpr float dot(vec3 a, vec3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr vec3 cross(vec3 a, vec3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline vec3 unit(vec3 a)
{
    return a * (1 / std::sqrt(dot(a, a)));
}

constexpr float mix(float a, float b, float t)
{
    return a + (b - a) * t;
}
constexpr vec3 mix(vec3 a, vec3 b, float t)
{
    return a + (b - a) * t;
}
constexpr float clamp01(float v)
{
    return std::clamp(v, 0.f, 1.f);
}
// From 0 at `low` to 1 at `high` with no edge at either end.
constexpr float smooth(float low, float high, float v)
{
    const float t = clamp01((v - low) / (high - low));
    return t * t * (3 - 2 * t);
}

// A colour as a paint chart gives it, as linear light.
inline vec3 paint(float red, float green, float blue)
{
    return {std::pow(red, 2.2f), std::pow(green, 2.2f), std::pow(blue, 2.2f)};
}

struct point {
    float x = 0, y = 0;
};
using path = std::vector<point>;

// A place by its bearing from the middle of the view in degrees and its distance in metres.
inline point at(float degrees, float metres)
{
    const float bearing = degrees * 3.14159265f / 180;
    return {metres * std::sin(bearing), metres * std::cos(bearing)};
}

}   // namespace landscape
