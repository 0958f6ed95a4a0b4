// The relief. The gunner is some 200 m above the floor of a wide bowl, which rises again towards a rim at
// three kilometres, so that the range author proposes the right range for each row of the picture. On that
// are hills and hollows, and beyond the rim a plateau with far hills.
#pragma once

#include <vector>

#include "country.h"
#include "ground_map.h"

namespace tools {

class terrain {
public:
    terrain(const country&, const ground_map&);
    // Metres above the gunner's eye; the curvature of the earth is subtracted.
    float height(float x, float y) const;
    // `reach`: metres over which the slope is measured.
    vec3 normal(float x, float y, float height, float reach) const;

private:
    float bowl(float range) const;   // without hills, hollows and the river's bed
    float folds(float x, float y, float range) const;

    const country& land_;
    const ground_map& map_;
    std::vector<float> bowl_;   // every few metres of range
};

}   // namespace tools
