// Bodies of flat faces, in metres, from which the vehicles are built: x forward, y to the left, z up, the
// ground at 0. Which way round the corners of a face go doesn't matter, since the bodies are closed.
#pragma once

#include <cmath>
#include <vector>

struct vec3 {
    double x, y, z;
};

inline vec3 operator+(vec3 a, vec3 b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline vec3 operator-(vec3 a, vec3 b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline vec3 operator*(vec3 a, double k)
{
    return {a.x * k, a.y * k, a.z * k};
}
inline double dot(vec3 a, vec3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline vec3 cross(vec3 a, vec3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline vec3 unit(vec3 a)
{
    return a * (1 / std::sqrt(dot(a, a)));
}

struct rgb {
    double r, g, b;   // 0 to 1; of a paint the light it throws back, not what a screen shows
};

struct material {
    rgb paint;
    double heat;   // 0 as cold as the ground, 1 the hottest that the sight shows
    bool camouflaged = false;
};

struct face {
    std::vector<vec3> corners;
    vec3 normal;   // to either side
    material made_of;
    bool counts;   // for the size of the vehicle; aerials don't
};

using solid = std::vector<face>;

struct span {
    double from, to;
};
struct point {
    double x, y;
};

// A part whose outline from above or from the side is given, and that goes straight through.
solid across(const std::vector<point>& side_outline, span y, const material&);   // the points are x and z
// From one outline to another with as many corners, each at its height.
solid between(const std::vector<point>& lower, double lower_z, const std::vector<point>& upper,
              double upper_z, const material&);
solid box(span x, span y, span z, const material&);
// Round, from one end to the other.
solid rod(vec3 from, vec3 to, double from_radius, double to_radius, const material&);

void add(solid& to, const solid& what);
// The same on both sides of the vehicle.
void add_pair(solid& to, const solid& what);
solid turned(solid, double degrees);   // to the left, about the vertical through x = y = 0
solid laid_down(solid);                // what was up points forward, and what was forward up
solid moved(solid, vec3 by);
solid slender(solid);   // left out when the vehicle is measured
