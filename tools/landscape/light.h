// Sun, cloud shadow and air: what the light does between a surface and the gunner's eye.
#pragma once

#include "country.h"

namespace landscape {

// 1 in the sun, less in the shadow of a cloud.
float cloud_shadow(const country&, float x, float y);
// What is left of a colour after so many metres of air. The target icons count on the same air.
vec3 through_air(vec3 colour, float metres);

}   // namespace landscape
