// The farmed country: fields bounded by slightly crooked lines, in rows with joints, as hedges were once
// laid.
#pragma once

#include <cstdint>

#include "country.h"

namespace landscape {

struct field {
    float edge;   // metres to the nearest boundary
    std::uint32_t id;
    std::uint32_t border;     // of the nearest boundary, the same from either side
    float along_x, along_y;   // direction in which it is worked
    float wood;               // rank from 0 to 1 in the order in which fields are given to woods
};

field field_at(const country&, float x, float y);
// Whether a field of this country, at this place, bears a wood.
bool wooded(const country&, const field&, float x, float y);
// 1 on rough grass, 0 among the fields.
float roughness(const country&, float x, float y);

}   // namespace landscape
