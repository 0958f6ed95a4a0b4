#include "sprites.h"

#include <functional>

#include "common/noise.h"

namespace tools {
namespace {

// An ellipsoid of foliage or stone, in a plant or stone one unit high and wide: x to the right, y away from
// the viewer, z up.
struct ball {
    vec3 middle, radius;
};
struct leaf {
    vec3 place;
    float size;
    leaf_pixel look;
};

std::vector<ball> broadleaf_balls(rng& random)
{
    std::vector<ball> balls;
    const int count = 34 + random.below(16);
    const float spread = random.between(.30f, .38f);
    for (int i = 0; i < count; ++i) {
        const float angle = random.between(0, 6.283f), out = std::pow(random.unit(), .4f) * spread;
        const float up = random.between(.17f, .90f), near_axis = out * (1.15f - 1.1f * std::fabs(up - .46f));
        const float q = random.between(.05f, .11f);
        balls.push_back({{near_axis * std::cos(angle), near_axis * std::sin(angle), up}, {q, q, q * .75f}});
    }
    balls.push_back({{0, 0, .50f}, {.19f, .19f, .28f}});
    return balls;
}

std::vector<ball> conifer_balls(rng& random)
{
    std::vector<ball> balls;
    constexpr int tiers = 17;
    const float girth = random.between(.19f, .26f);
    for (int i = 0; i < tiers; ++i) {
        const float up = .10f + .86f * real(i) / (tiers - 1);
        const float q = girth * (1 - up) + .012f;
        for (int k = 0; k < 7; ++k) {
            const float angle = random.between(0, 6.283f), out = q * random.between(.35f, .95f);
            const float r = q * random.between(.25f, .5f) + .008f;
            balls.push_back({{out * std::cos(angle), out * std::sin(angle), up - .25f * out}, {r, r, .03f}});
        }
    }
    return balls;
}

std::vector<ball> bush_balls(rng& random)
{
    std::vector<ball> balls;
    const int count = 22 + random.below(12);
    for (int i = 0; i < count; ++i) {
        const float q = random.between(.05f, .13f), x = random.between(-.34f, .34f);
        balls.push_back({{x, random.between(-.2f, .2f), random.between(.04f, .56f - .6f * std::fabs(x))},
                         {q, q, q * 1.05f}});
    }
    return balls;
}

std::vector<ball> stone_balls(rng& random)
{
    const float tall = random.between(.2f, .4f);
    return {{{0, 0, .05f}, {.4f, .3f, tall}}, {{random.between(-.2f, .2f), 0, .1f}, {.25f, .25f, tall}}};
}

vec3 direction(rng& random)
{
    for (;;) {
        const vec3 d{random.between(-1, 1), random.between(-1, 1), random.between(-1, 1)};
        if (const float square = dot(d, d); square < 1 && square > .02f) return unit(d);
    }
}

// How much of the light that comes from the direction `from` reaches `place` through the balls, 0 to 1.
float open_towards(vec3 from, const std::vector<ball>& balls, vec3 place)
{
    float open = 1;
    for (const ball& b : balls) {
        const vec3 whole{1 / b.radius.x, 1 / b.radius.y, 1 / b.radius.z};
        const vec3 to = (b.middle - place) * whole, ray = unit(from * whole);
        const float along = dot(to, ray), miss = dot(to, to) - along * along;
        if (along > .3f) open *= 1 - .62f * clamp01(1.6f * (1 - miss)) * smoothstep(.3f, 1, along);
    }
    return open;
}

leaf leaf_on(const country& land, growth kind, const std::vector<ball>& balls, const ball& b, float top,
             std::uint32_t seed, rng& random)
{
    const vec3 d = direction(random);
    const float rough = 1 + .2f * noise({d.x * 3 + b.middle.x * 20, d.z * 3 + d.y * 2}, seed);
    const float out = random.between(.70f, 1.15f) * rough;
    vec3 place = b.middle + d * b.radius * out;
    if (kind == growth::conifer) place.z -= .06f * std::hypot(d.x, d.y) * random.unit();
    // The shading is a mix of that of the ball and that of the whole crown.
    const vec3 crown = unit(vec3{place.x, place.y, (place.z - .5f * top) * .8f} + vec3{0, 0, .001f});
    const vec3 facing = unit(d + crown * .9f);
    const float sun =
        clamp01(.15f + .85f * dot(facing, land.towards_sun)) * open_towards(land.towards_sun, balls, place);
    const float open = clamp01(.4f + .6f * place.z / top) *
                       clamp01(.6f + .4f * facing.z + .25f * (out - .7f)) *
                       (.4f + .6f * open_towards({0, -.5f, .87f}, balls, place));
    // Light that shines through a leaf is yellower.
    const vec3 light = land.sunlight * (sun * 1.1f) + land.skylight * open +
                       land.sunlight * vec3{.10f, .12f, .03f} * clamp01(.6f - dot(facing, land.towards_sun));
    const float size = kind == growth::bush    ? random.between(.005f, .011f)
                       : kind == growth::stone ? .05f
                                               : random.between(.003f, .0075f);
    const float warmth = .30f + (land.night ? .16f * open - .02f : .35f * sun + .08f * open);
    const float bright = random.between(.55f, 1.45f);
    if (!random.chance(land.snow * .8f * smoothstep(0, .8f, d.z)))
        return {place, size, {light * bright, 1, warmth}};
    // The light of snow is divided by a colour of leaves, since the renderer multiplies it by such a colour.
    const vec3 leaf = kind == growth::conifer ? land.needles : land.leaves[0];
    const vec3 snow = light * (.8f + .15f * bright) * vec3{.6f / leaf.x, .6f / leaf.y, .6f / leaf.z};
    return {place, size, {snow, 1, warmth}};
}

void put_disc(grid<leaf_pixel>& s, const leaf& l)
{
    const point middle = point{l.place.x + .5f, 1 - l.place.z * .98f} * real(s.width);
    const float radius = l.size * real(s.width);
    const point out{radius + 1, radius + 1};
    each_cell(s, middle - out, middle + out, [&](int i, int j, leaf_pixel& p) {
        const float alpha = clamp01(radius - length(point{real(i) + .5f, real(j) + .5f} - middle) + .5f);
        p = mix(p, l.look, alpha * .9f);
    });
}

// Draws a bough and, recursively, its branches.
void put_bough(const country& land, grid<leaf_pixel>& s, point at, float angle, float length, float width,
               int forks, rng& random)
{
    const int steps = std::max(2, floor_int(length * real(s.width)));
    const float curl = random.between(-.5f, .5f) / real(steps);
    for (int i = 0; i < steps; ++i) {
        at = at + polar(angle, 1) / real(s.width);
        angle += curl;
        const float thick = std::max(.5f, width * real(s.width) * (1 - .4f * real(i) / real(steps)));
        const float round = .75f - .45f * std::sin(angle);
        const vec3 light = land.sunlight * (.42f * round) + land.skylight * .6f;
        put_disc(s, {{at.x, 0, at.y}, thick / real(s.width), {light, 1, .34f}});
    }
    if (forks == 0) return;
    const int boughs = 2 + random.below(3);
    for (int i = 0; i < boughs; ++i) {
        const float lean = random.between(-.75f, .75f), shorter = random.between(.58f, .86f);
        put_bough(land, s, at, angle * .85f + lean, length * shorter, width * .62f, forks - 1, random);
    }
}

void put_leaves(const country& land, grid<leaf_pixel>& s, growth kind, std::uint32_t seed, rng& random)
{
    using shape = std::vector<ball> (*)(rng&);
    static constexpr shape shapes[] = {broadleaf_balls, conifer_balls, bush_balls, stone_balls};
    const std::vector<ball> balls = shapes[static_cast<int>(kind)](random);
    float top = 0;
    for (const ball& b : balls) top = std::max(top, b.middle.z + b.radius.z);
    std::vector<leaf> leaves;
    for (const ball& b : balls) {
        const float part = b.radius.x / .18f;
        const float dense = kind == growth::bush ? 1200 : 2200;
        const int count = static_cast<int>(dense * part * part) + 70;
        for (int i = 0; i < count; ++i) {
            const leaf l = leaf_on(land, kind, balls, b, top, seed, random);
            if (l.place.z > 0) leaves.push_back(l);
        }
    }
    std::ranges::stable_sort(leaves, std::greater{}, [](const leaf& l) { return l.place.y; });
    if (kind < growth::bush)
        put_bough(land, s, {}, 0, .5f, kind == growth::conifer ? .011f : .018f, 0, random);
    for (leaf_pixel& bark : s.cells) bark.light = bark.light * .35f;   // darker than a leaf
    for (const leaf& l : leaves) put_disc(s, l);
}

// Draws a tuft of grass: blades that fan out and bend, dark at the foot and pale at the tip.
void put_blades(grid<leaf_pixel>& s, rng& random)
{
    const int blades = 60 + random.below(70);
    const float spread = random.between(.12f, .3f);
    for (int i = 0; i < blades; ++i) {
        const float aside = spread * random.normal();
        const float bent = aside * random.between(.4f, 1.6f), lean = bent + random.between(-.16f, .16f);
        const float tall = random.between(.3f, .95f) * (1 - std::min(.7f, std::fabs(aside)));
        const float own = random.between(.78f, 1.25f), dry = random.between(0, .16f);
        const int steps = floor_int(tall * real(s.width));
        for (int k = 0; k < steps; ++k) {
            const float t = real(k) / real(steps);
            const int x = floor_int((.5f + .7f * aside + lean * t * t) * real(s.width));
            const int y = s.width - 1 - floor_int(tall * (1 - .25f * t) * t * real(s.width));
            const float tone = own * (.52f + .70f * t - .3f * aside);
            const leaf_pixel blade{{tone * (1 + dry), tone, tone * (1 - dry)}, 1, .10f * t - .04f};
            if (s.holds(x, y)) s.at(x, y) = mix(s.at(x, y), blade, .8f);
        }
    }
}

sprite draw(const country& land, growth kind, std::uint32_t seed)
{
    rng random(seed);
    const int side = is_low(first_of(kind)) ? 64 : 512;
    sprite s{grid<leaf_pixel>(side, side)};
    if (kind == growth::bare)
        put_bough(land, s[0], {}, 0, .26f, .020f, 6, random);
    else if (kind == growth::tuft)
        put_blades(s[0], random);
    else
        put_leaves(land, s[0], kind, seed, random);
    while (s.back().width > 1) s.push_back(halved(s.back()));
    return s;
}

}   // namespace

std::vector<sprite> draw_sprites(const country& land)
{
    std::vector<sprite> all;
    for (int kind = 0; kind < static_cast<int>(growth::count); ++kind)
        for (int i = 0; i < sprites_of_a_kind; ++i)
            all.push_back(draw(land, static_cast<growth>(kind),
                               land.seed + static_cast<std::uint32_t>(kind * 100 + i)));
    return all;
}

}   // namespace tools
