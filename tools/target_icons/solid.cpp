#include "solid.h"

#include <numbers>
#include <utility>

namespace tools {
namespace {

// Newell's method: exact for a flat polygon, and good enough for one that is slightly bent.
vec3 normal_of(const std::vector<vec3>& corners)
{
    vec3 sum{0, 0, 0};
    for (std::size_t i = 0; i < corners.size(); ++i)
        sum = sum + cross(corners[i], corners[(i + 1) % corners.size()]);
    return unit(sum);
}

// A body with two end faces of the same number of corners, and the faces that join them.
solid joined(const std::vector<vec3>& one, const std::vector<vec3>& other, const material& m)
{
    solid s;
    const auto add_face = [&](const std::vector<vec3>& corners) {
        s.push_back({corners, normal_of(corners), m});
    };
    add_face(one);
    add_face(other);
    for (std::size_t i = 0; i < one.size(); ++i) {
        const std::size_t next = (i + 1) % one.size();
        add_face({one[i], one[next], other[next], other[i]});
    }
    return s;
}

// Applies a rotation or reflection to the corners and the normals.
template <class Map>
solid mapped(solid s, const Map& map)
{
    for (face& f : s) {
        for (vec3& corner : f.corners) corner = map(corner);
        f.normal = map(f.normal);
    }
    return s;
}

}   // namespace

solid across(const path& side_outline, limits y, const material& m)
{
    std::vector<vec3> right, left;
    for (const point& p : side_outline) {
        right.push_back({p.x, y.low, p.y});
        left.push_back({p.x, y.high, p.y});
    }
    return joined(right, left, m);
}

solid between(const path& lower, float lower_z, const path& upper, float upper_z, const material& m)
{
    std::vector<vec3> bottom, top;
    for (const point& p : lower) bottom.push_back({p.x, p.y, lower_z});
    for (const point& p : upper) top.push_back({p.x, p.y, upper_z});
    return joined(bottom, top, m);
}

solid box(limits x, limits y, limits z, const material& m)
{
    return across({{x.low, z.low}, {x.high, z.low}, {x.high, z.high}, {x.low, z.high}}, y, m);
}

solid rod(vec3 from, vec3 to, float from_radius, float to_radius, const material& m)
{
    constexpr int corners = 20;
    const vec3 along = unit(to - from);
    const vec3 aside = unit(cross(along, std::abs(along.z) < .9f ? vec3{0, 0, 1} : vec3{1, 0, 0}));
    const vec3 over = cross(aside, along);
    std::vector<vec3> one, other;
    for (int i = 0; i < corners; ++i) {
        const float angle = 2 * std::numbers::pi_v<float> * real(i) / corners;
        const vec3 out = aside * std::cos(angle) + over * std::sin(angle);
        one.push_back(from + out * from_radius);
        other.push_back(to + out * to_radius);
    }
    return joined(one, other, m);
}

void add(solid& to, const solid& what)
{
    to.insert(to.end(), what.begin(), what.end());
}

void add_pair(solid& to, const solid& what)
{
    add(to, what);
    add(to, mapped(what, [](vec3 v) { return vec3{v.x, -v.y, v.z}; }));
}

solid mounted(solid s, float degrees, float forward)
{
    const float angle = degrees * std::numbers::pi_v<float> / 180, c = std::cos(angle), n = std::sin(angle);
    s = mapped(std::move(s), [&](vec3 v) { return vec3{v.x * c - v.y * n, v.x * n + v.y * c, v.z}; });
    for (face& f : s)
        for (vec3& corner : f.corners) corner.x += forward;
    return s;
}

solid laid_down(solid s)
{
    return mapped(std::move(s), [](vec3 v) { return vec3{v.z, v.y, v.x}; });
}

}   // namespace tools
