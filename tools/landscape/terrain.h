// The relief. The gunner is some 250 m above the floor of a wide bowl that rises to a rim at three
// kilometres. With this shape the ranges that the range author proposes are nearly right. Hills and hollows
// are added to the bowl. Beyond the rim is a plateau with distant hills.
#pragma once

#include <vector>

#include "country.h"
#include "ground_map.h"

namespace tools {

class terrain {
public:
    terrain(const country&, const ground_map&);
    // Metres above the gunner's eye, less the curvature of the earth.
    float height(point) const;
    // `reach`: distance over which the slope is measured, metres.
    vec3 normal(point, float height, float reach) const;

private:
    const country& land_;
    const ground_map& map_;
    // Heights without hills, hollows and the river's bed, at every few metres of range.
    std::vector<float> bowl_;
};

}   // namespace tools
