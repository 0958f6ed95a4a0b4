// The farmed country: rows of fields with slightly crooked boundaries.
#pragma once

#include <cstdint>

#include "country.h"

namespace tools {

struct field {
    float edge;   // metres to the nearest boundary
    std::uint32_t id;
    std::uint32_t border;     // of the nearest boundary, the same from either side
    float along_x, along_y;   // direction in which it is ploughed
    float wood;               // fields with the lowest values, from 0 to 1, are woods
};

field field_at(const country&, float x, float y);
// Whether a field of this country, at this place, is a wood.
bool wooded(const country&, const field&, float x, float y);
// 1 on rough grass, 0 among the fields.
float roughness(const country&, float x, float y);

}   // namespace tools
