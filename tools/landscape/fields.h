// The farmed country: rows of fields with slightly crooked boundaries.
#pragma once

#include <cstdint>

#include "country.h"

namespace tools {

struct field {
    float edge;   // distance to the nearest boundary, metres
    std::uint32_t id;
    std::uint32_t border;     // id of the nearest boundary, the same from both sides
    float along_x, along_y;   // direction of ploughing
    float wood;               // 0 to 1; the fields with the lowest values are woods
};

field field_at(const country&, float x, float y);
// Whether this field is a wood at this place.
bool wooded(const country&, const field&, float x, float y);
// 1 on rough grass, 0 among the fields.
float roughness(const country&, float x, float y);

}   // namespace tools
