// Points, vectors and colours, and interpolation.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace tools {

constexpr float real(auto number)
{
    return static_cast<float>(number);
}
constexpr std::size_t index(auto number)
{
    return static_cast<std::size_t>(number);
}
inline int floor_int(float number)
{
    return static_cast<int>(std::floor(number));
}

struct limits {
    float low = 0, high = 0;
};

// A place, a direction or a colour (x red, y green, z blue).
struct vec3 {
    float x = 0, y = 0, z = 0;

    friend constexpr vec3 operator+(vec3 a, vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend constexpr vec3 operator-(vec3 a, vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend constexpr vec3 operator*(vec3 a, vec3 b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }
    friend constexpr vec3 operator*(vec3 a, float s) { return {a.x * s, a.y * s, a.z * s}; }
};

constexpr float dot(vec3 a, vec3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr vec3 cross(vec3 a, vec3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline float length(vec3 a)
{
    return std::sqrt(dot(a, a));
}
inline vec3 unit(vec3 a)
{
    return a * (1 / length(a));
}

struct point {
    float x = 0, y = 0;

    friend constexpr point operator+(point a, point b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr point operator-(point a, point b) { return {a.x - b.x, a.y - b.y}; }
    friend constexpr point operator*(point a, float s) { return {a.x * s, a.y * s}; }
    friend constexpr point operator/(point a, float s) { return {a.x / s, a.y / s}; }
};
using path = std::vector<point>;

constexpr float dot(point a, point b)
{
    return a.x * b.x + a.y * b.y;
}
constexpr float cross(point a, point b)
{
    return a.x * b.y - a.y * b.x;
}

inline float length(point a)
{
    return std::hypot(a.x, a.y);
}

// From a at t = 0 to b at t = 1.
constexpr auto mix(const auto& a, const auto& b, float t)
{
    return a + (b - a) * t;
}
constexpr float clamp01(float v)
{
    return std::clamp(v, 0.f, 1.f);
}
// From 0 at `low` to 1 at `high`, with slope 0 at both ends.
constexpr float smoothstep(float low, float high, float v)
{
    const float t = clamp01((v - low) / (high - low));
    return t * t * (3 - 2 * t);
}

}   // namespace tools
