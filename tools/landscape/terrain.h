// The shape of the ground. The gunner stands on a brow some 200 m above the floor of a wide bowl, which rises
// again towards a rim at three kilometres, so that the height of a place on the picture tells its range as
// the range author's band has it. On that lie folds and hummocks, and beyond the rim a plateau with far
// hills.
#pragma once

#include <vector>

#include "country.h"
#include "ground_map.h"

namespace landscape {

class terrain {
public:
    terrain(const country&, const ground_map&);
    // Metres above the gunner's eye; the earth's curve is taken off.
    float height(float x, float y) const;
    // Without folds and without the river's bed.
    float bowl(float range) const;
    // `reach`: metres over which the slope is taken.
    vec3 normal(float x, float y, float height, float reach) const;

private:
    float folds(float x, float y, float range) const;

    const country& land_;
    const ground_map& map_;
    std::vector<float> bowl_;   // every few metres of range
};

}   // namespace landscape
