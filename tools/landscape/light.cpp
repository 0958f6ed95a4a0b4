#include "light.h"

#include "noise.h"

namespace landscape {

float cloud_shadow(const country& land, float x, float y)
{
    if (land.night) return 1;
    const float n = fractal(x / 1300 + .7f, y / 1800 + 4.2f, land.seed + 301, 4);
    const float open = .30f - .34f * land.sky.cover;
    return 1 - .62f * smooth(open, open + .28f, n);
}

vec3 through_air(vec3 colour, float metres)
{
    static const vec3 air = paint(.70f, .77f, .85f);
    const float km = metres / 1000;
    return {mix(air.x, colour.x, std::exp(-km * .062f)), mix(air.y, colour.y, std::exp(-km * .076f)),
            mix(air.z, colour.z, std::exp(-km * .102f))};
}

}   // namespace landscape
