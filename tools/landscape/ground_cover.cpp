#include "ground_cover.h"

#include "common/noise.h"
#include "sky.h"

namespace tools {
namespace {

// The components of the texture at one place, from coarse to fine. Each from `tufts` to `specks` is 0 where
// it is finer than the pixel. `tufts` also has upright plants: wavelength 26 pixels of a visual twin.
struct texture {
    float wide, broad, clumps, tufts;   // wavelengths: 420 to 105 m; 90 to 22 m; 23 and 11 m; 4 x 8 m
    float stems, blades, specks;   // of upright plants: wavelengths of 10, 5 and 2 pixels of a visual twin
    float relief;                  // brightness of the upright plants as the sun lights them
};

// The contrast that a texture of this wavelength keeps in the pixel, 0 to 1.
float seen(const ground_spot& s, float wave)
{
    const float size = .65f * s.across + .35f * s.along;
    return 1 - smoothstep(.30f, .90f, 2 * size / wave);
}

texture texture_at(const country& land, const ground_spot& s)
{
    texture t{};
    // The texture of upright plants isn't foreshortened, however flat the line of sight. `angle`: wavelength
    // as the gunner sees it, radians; `weight`: share in the relief; `turn`: rotation of the lattice of
    // the noise (tangent of the angle), so that the lattice doesn't follow the horizon.
    const auto upright = [&](float angle, float weight, float turn, std::uint32_t seed) {
        const float metres = angle * s.range;
        const float share = (1 - smoothstep(.3f, .9f, s.across / metres)) / (1 + metres * metres * .4f) *
                            (1 - .75f * land.snow);
        if (share <= 0) return 0.f;
        const float across = s.bearing / angle, up = s.elevation / angle * 1.3f;
        const float u = across + turn * up, v = up - turn * across;
        const float here = share * noise({u, v}, seed);
        t.relief += weight * (here - share * noise({u + .5f * land.towards_sun.x, v + .45f}, seed));
        return here;
    };
    t.wide = fractal(s.at / 420, land.seed + 201, 3);
    t.broad = fractal(s.at / 90, 202, 3);
    t.clumps = noise(s.at / 23, 203) + .5f * noise(s.at / 11, 213);
    t.tufts = seen(s, 4) * noise({s.at.x / 4, s.at.y / 8}, 204) + .7f * upright(.0047f, .22f, .2f, 207);
    t.stems = upright(.0019f, .26f, .9f, 204);
    t.blades = upright(.00088f, .28f, -.5f, 205);
    t.specks = upright(.00044f, .24f, .35f, 206);
    return t;
}

// Reflectance and warmth, built up in layers.
struct layered {
    vec3 colour;
    float warmth = 0;
    void lay(vec3 over, float share, float warmer = 0)
    {
        colour = mix(colour, over, clamp01(share));
        warmth += warmer * clamp01(share);
    }
};

layered rough_grass(const country& land, const ground_spot& s, const texture& t)
{
    const ground_paint& p = land.ground;
    const float green = .5f + .55f * t.wide + .42f * t.broad + .22f * t.clumps + .36f * t.tufts +
                        .32f * t.stems + .26f * t.blades + .20f * t.specks;
    layered g{green < .5f ? mix(p.grass.dry, p.grass.middling, clamp01(green * 2))
                          : mix(p.grass.middling, p.grass.lush, clamp01(green * 2 - 1)),
              .42f + .10f * t.wide + .06f * t.broad + .05f * t.clumps - .05f * t.tufts};
    // Tussocks are denser in some places than in others.
    const float coarse = clamp01(.75f + 1.1f * noise(s.at / 260, land.seed + 217));
    const float tussocks =
        fractal(s.at / 40 + point{9, 0}, 214, 2) + .5f * t.tufts + .6f * t.stems + .5f * t.blades;
    g.lay(p.grass.dark, .50f * coarse * smoothstep(.25f, 1.2f, tussocks));
    const float bracken =
        fractal(s.at / 150, land.seed + 221, 3) + .35f * t.clumps + .35f * t.tufts + .30f * t.stems;
    g.lay(p.heath * (1 + .25f * t.stems + .2f * t.blades), .8f * land.heath * smoothstep(.10f, .55f, bracken),
          -.03f);
    const float seeding = noise(s.at / 30, 219) + .7f * t.stems + .6f * t.blades + .5f * t.specks;
    g.lay(p.grass.straw, .55f * smoothstep(.35f, 1.2f, seeding));
    return g;
}

// Stripes along the direction of ploughing, from -1 to 1. They fade out where they are narrower than a pixel.
float stripes(const ground_spot& s, const field& f, float width)
{
    const float across = cross(f.along, s.at);
    const float depth = std::fabs(cross(f.along, s.at / s.range));
    const float size = s.along * depth + s.across * (1 - depth);
    const float share = 1 - smoothstep(.30f, .90f, 2 * size / width);
    return share > 0 ? share * std::sin(across * 6.2832f / width) : 0;
}

// The wheel marks of a sprayer, every eighteen metres.
float tramlines(const ground_spot& s, const field& f)
{
    constexpr float apart = 18, half_gauge = .9f, wheel = .45f;
    const float off = std::fabs(std::remainder(cross(f.along, s.at), apart));
    const float blur = wheel + .7f * s.across + .5f * s.along;
    const float line = 1 - smoothstep(.3f * blur, 1.4f * blur, std::fabs(off - half_gauge));
    return line * wheel / blur;
}

layered farmland(const country& land, const ground_spot& s, const texture& t, const field& f)
{
    const ground_paint& p = land.ground;
    if (wooded(land, f, s.at)) return {p.woodfloor * (1 + .3f * t.clumps), .36f};
    const std::size_t kind = f.id % std::size(p.crops);
    const float patchy = .05f * t.wide + .07f * t.broad + .05f * t.clumps + .04f * t.tufts + .08f * t.stems +
                         .08f * t.blades + .07f * t.specks;
    layered g{p.crops[kind] * (1 + patchy + .05f * (real(f.id >> 16 & 255) / 255 - .5f)),
              .38f + .14f * real(f.id % 5) / 5 + .05f * t.broad};
    const bool worked = kind != 0 && kind != 4;   // kinds 0 and 4 are pasture
    if (worked) {
        g.colour = g.colour * (1 + (.05f + .05f * t.clumps) * stripes(s, f, 2.4f) + .03f * stripes(s, f, 9));
        g.lay(mix(g.colour, p.soil, .55f), .75f * tramlines(s, f), .04f);
    } else {
        g.lay(p.grass.dark, .35f * smoothstep(.2f, 1.f, t.clumps + .7f * t.tufts));
        g.lay(p.grass.lush, .4f * smoothstep(0, .8f, t.broad));
    }
    // The margin of a field is not ploughed.
    g.lay(mix(p.grass.middling, p.grass.dark, .4f), .8f * (1 - smoothstep(1.8f, 3.2f + s.across, f.edge)),
          -.04f);
    return g;
}

vec3 chalky(const country& land, const texture& t)
{
    return mix(land.ground.bare, land.ground.soil,
               clamp01(.30f + .5f * t.clumps + .4f * t.tufts + .3f * t.blades));
}

// How worn a track is at a distance from its middle: two ruts seen from near, one pale band seen from far.
float worn_by_wheels(const ground_spot& s, const texture& t, float off, float half_gauge)
{
    const float wander = .35f * t.tufts + .30f * t.stems + .25f * t.clumps;
    const float rut = 1 - smoothstep(.25f, .85f, std::fabs(off - half_gauge) + .5f * wander);
    const float band = 1 - smoothstep(1.9f, 3.6f, off + wander * 1.3f);
    const float near = smoothstep(.25f, 1, 1.2f / (s.across + .3f));
    return clamp01(mix(band * .75f, std::max(rut * .95f, band * .35f), near));
}

void lay_ways(const country& land, const ground_map& map, const ground_spot& s, const texture& t, float rough,
              layered& g)
{
    if (const float off = map.tracks.at(s.at); off < 11) {
        const float verge = 1 - smoothstep(3, 9, off + 2.5f * t.clumps + 1.5f * t.broad);
        g.lay(mix(land.ground.grass.straw, land.ground.grass.middling, .5f), verge * .40f, .05f);
        g.lay(chalky(land, t), worn_by_wheels(s, t, off, 1.35f), .20f);
    }
    if (const float off = map.trails.at(s.at); off < 5 && rough > 0) {
        const float patchy = rough * clamp01(.55f + .45f * t.broad + .4f * noise(s.at / 60, 233));
        g.lay(mix(land.ground.grass.straw, land.ground.soil, clamp01(.5f + t.clumps)),
              .6f * patchy * worn_by_wheels(s, t, off, 1.3f), .07f);
    }
    if (const float off = map.roads.at(s.at); off < 11) {
        constexpr float half_width = 2.7f;
        const float soft = .3f + s.across;
        g.lay(land.ground.grass.straw,
              .7f * (1 - smoothstep(half_width + .6f, half_width + 2.2f + soft, off)), .03f);
        const float grain = 1 + .06f * t.clumps + .05f * t.stems + .05f * t.blades;
        g.lay(rgb(55, 54, 53) * grain, 1 - smoothstep(half_width - soft, half_width + soft, off), .10f);
    }
}

void lay_scars(const country& land, const ground_spot& s, const texture& t, float rough, layered& g)
{
    const float broken =
        fractal(s.at / 75 + point{4, 0}, land.seed + 231, 3) + .25f * t.tufts + .2f * t.stems;
    const float share = .8f * smoothstep(.93f, 1.12f, broken) * rough * smoothstep(130, 300, s.range);
    if (share > 0) g.lay(chalky(land, t), share, .14f);
}

void lay_bank(const country& land, const ground_spot& s, const texture& t, float off, layered& g)
{
    g.lay(mix(land.ground.grass.lush, land.ground.grass.dark, clamp01(.5f + t.clumps)),
          .8f * (1 - smoothstep(3, 14, off + 3 * t.clumps)), -.05f);
    g.lay(land.ground.soil * .7f, .7f * (1 - smoothstep(0, 1.6f + s.across, off + t.stems)), -.04f);
}

// The ground in sunshine and skylight. By day it is warm where the sun shines on it; by night it is cooler,
// and slopes are colder than level ground.
pixel lit(const country& land, const ground_map& map, const ground_spot& s, const texture& t,
          const layered& g)
{
    const float facing = std::max(0.f, dot(s.normal, land.towards_sun));
    const float shade = map.shade.at(s.at) / 255, clouds = cloud_shadow(land, s.at);
    const float sunshine = facing * shade * clouds;
    const float open = (.75f + .25f * s.normal.z) * (.55f + .45f * shade) * (1 + .5f * t.relief);
    const float mottled = 1 + .16f * (.6f * seen(s, 6.5f) * noise(s.at / 6.5f, 240) + .5f * t.clumps);
    const vec3 light =
        g.colour * mottled *
        (land.sunlight * (sunshine * std::clamp(1 + 1.2f * t.relief, .3f, 1.6f)) + land.skylight * open);
    const float fine_grain = .05f * t.stems + .04f * t.blades;
    float warmth = mix(g.warmth, .34f, .3f * land.snow);
    if (land.night)
        warmth = warmth * .80f + .06f + .30f * (s.normal.z - .97f) + fine_grain * .6f;
    else
        warmth =
            warmth + .42f * (facing - .48f) + .16f * (shade * clouds - .8f) + .12f * t.relief + fine_grain;
    return {light, warmth, s.range, material::ground};
}

}   // namespace

pixel cover(const country& land, const ground_map& map, const ground_spot& s)
{
    const texture t = texture_at(land, s);
    const float rough = roughness(land, s.at);
    layered g{};
    if (rough > 0) g = rough_grass(land, s, t);
    if (rough < 1) {
        const layered farmed = farmland(land, s, t, field_at(land, s.at));
        g = {mix(farmed.colour, g.colour, rough), mix(farmed.warmth, g.warmth, rough)};
    }
    if (rough > 0) lay_scars(land, s, t, rough, g);
    const float bank = map.bank(s.at);
    if (bank < 16) lay_bank(land, s, t, bank, g);
    lay_ways(land, map, s, t, rough, g);
    if (bank < 0) {
        const float ripples = .03f * t.tufts + .04f * t.stems;
        return {rgb(20, 23, 19) * (1 + ripples), land.night ? .58f : .27f, s.range, material::water};
    }
    return lit(land, map, s, t, g);
}

}   // namespace tools
