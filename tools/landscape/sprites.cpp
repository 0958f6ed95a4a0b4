#include "sprites.h"

#include "common/noise.h"

namespace tools {
namespace {

// A ball of foliage, in a tree one unit high and wide: x to the right, y away, z up.
struct ball {
    vec3 middle, radius;
};
struct leaf {
    vec3 place;
    float size;
    vec3 light;
    float warmth;
};

std::vector<ball> broadleaf_balls(rng& random)
{
    std::vector<ball> balls;
    const int count = 14 + random.below(9);
    const float spread = random.between(.26f, .33f);
    for (int i = 0; i < count; ++i) {
        const float angle = random.between(0, 6.283f);
        const float out = std::sqrt(random.unit()) * spread;
        const float up = random.between(.20f, .84f);
        const float near_axis = out * (1.12f - .8f * std::fabs(up - .48f));
        const float q = random.between(.08f, .16f);
        balls.push_back({{near_axis * std::cos(angle), near_axis * std::sin(angle), up}, {q, q, q * .8f}});
    }
    balls.push_back({{0, 0, .50f}, {.23f, .23f, .32f}});
    return balls;
}

std::vector<ball> conifer_balls(rng& random)
{
    std::vector<ball> balls;
    constexpr int tiers = 17;
    const float girth = random.between(.19f, .26f);
    for (int i = 0; i < tiers; ++i) {
        const float up = .10f + .86f * real(i) / (tiers - 1);
        const float q = girth * (1 - up) * random.between(.85f, 1.15f) + .02f;
        const float aside = random.between(-.02f, .02f);
        balls.push_back({{aside, 0, up}, {q, q, .045f}});
    }
    return balls;
}

std::vector<ball> bush_balls(rng& random)
{
    std::vector<ball> balls;
    const int count = 8 + random.below(7);
    for (int i = 0; i < count; ++i) {
        const float q = random.between(.10f, .20f);
        const float x = random.between(-.34f, .34f);
        const float y = random.between(-.2f, .2f);
        const float z = random.between(.04f, .50f - .5f * std::fabs(x));
        balls.push_back({{x, y, z}, {q, q, q * 1.05f}});
    }
    return balls;
}

std::vector<ball> poplar_balls(rng& random)
{
    std::vector<ball> balls;
    constexpr int count = 11;
    for (int i = 0; i < count; ++i) {
        const float up = .13f + .80f * real(i) / (count - 1);
        const float q = .14f * std::sin(2.85f * up + .2f) + .03f;
        const float aside = random.between(-.04f, .04f);
        balls.push_back({{aside, 0, up}, {q, q, .11f}});
    }
    return balls;
}

vec3 direction(rng& random)
{
    for (;;) {
        const float x = random.between(-1, 1);
        const float y = random.between(-1, 1);
        const float z = random.between(-1, 1);
        const float square = x * x + y * y + z * z;
        if (square < 1 && square > .02f) return unit({x, y, z});
    }
}

leaf leaf_on(const country& land, growth kind, const ball& b, float top, std::uint32_t seed, rng& random)
{
    const vec3 d = direction(random);
    const float rough = 1 + .2f * noise(d.x * 3 + b.middle.x * 20, d.z * 3 + d.y * 2, seed);
    const float out = random.between(.70f, 1.15f) * rough;
    vec3 place = b.middle + d * b.radius * out;
    if (kind == growth::conifer) place.z -= .06f * std::hypot(d.x, d.y) * random.unit();
    // Half of the shading is that of its ball, half that of the whole crown.
    const vec3 crown = unit(vec3{place.x, place.y, (place.z - .5f * top) * .8f} + vec3{0, 0, .001f});
    const vec3 facing = unit(d + crown * .9f);
    const float sun = std::max(0.f, dot(facing, land.towards_sun));
    const float open =
        clamp01(.22f + .78f * place.z / top) * clamp01(.55f + .45f * facing.z + .25f * (out - .7f));
    const vec3 light = land.sunlight * (sun * .74f) + land.skylight * (.95f * open) +
                       vec3{.06f, .09f, .01f} * clamp01(.4f - dot(facing, land.towards_sun));
    const float size = kind == growth::bush ? random.between(.008f, .017f) : random.between(.006f, .014f);
    const float warmth = .30f + (land.night ? .16f * open - .02f : .35f * sun + .08f * open);
    return {place, size, light * random.between(.68f, 1.32f), warmth};
}

void put(grid<leaf_pixel>& s, int x, int y, vec3 light, float alpha, float warmth)
{
    if (!s.holds(x, y)) return;
    leaf_pixel& p = s.at(x, y);
    p.light = mix(p.light, light, alpha);
    p.warmth = mix(p.warmth, warmth, alpha);
    p.alpha = mix(p.alpha, 1, alpha);
}

void put_disc(grid<leaf_pixel>& s, const leaf& l)
{
    const float x = (l.place.x + .5f) * real(s.width), y = (1 - l.place.z * .98f) * real(s.width);
    const float radius = l.size * real(s.width);
    for (int j = floor_int(y - radius); j <= floor_int(y + radius) + 1; ++j)
        for (int i = floor_int(x - radius); i <= floor_int(x + radius) + 1; ++i) {
            const float alpha = clamp01(radius - std::hypot(real(i) + .5f - x, real(j) + .5f - y) + .5f);
            if (alpha > 0) put(s, i, j, l.light, alpha * .9f, l.warmth);
        }
}

void put_trunk(const country& land, grid<leaf_pixel>& s, float thickness)
{
    const vec3 bark = linear(.62f, .56f, .52f);
    for (int y = 0; y < s.width / 2; ++y) {
        const float half = thickness * (1.3f - real(y) / real(s.width)) * real(s.width);
        for (int x = floor_int(real(s.width) / 2 - half); x <= floor_int(real(s.width) / 2 + half); ++x) {
            const float round = .6f - .5f * (real(x) - real(s.width) / 2) / (half + 1);
            put(s, x, s.width - 1 - y, bark * (land.sunlight * (.5f * round) + land.skylight * .5f), 1, .35f);
        }
    }
}

// A bough and, recursively, its branches.
void put_bough(const country& land, grid<leaf_pixel>& s, float x, float y, float angle, float length,
               float width, int forks, rng& random)
{
    const int steps = std::max(2, floor_int(length * real(s.width)));
    const float curl = random.between(-.5f, .5f) / real(steps);
    for (int i = 0; i < steps; ++i) {
        x += std::sin(angle) / real(s.width);
        y += std::cos(angle) / real(s.width);
        angle += curl;
        const float thick = std::max(.5f, width * real(s.width) * (1 - .4f * real(i) / real(steps)));
        const float round = .75f - .45f * std::sin(angle);
        const leaf l{
            {x, 0, y}, thick / real(s.width), land.sunlight * (.42f * round) + land.skylight * .6f, .34f};
        put_disc(s, l);
    }
    if (forks == 0) return;
    const int boughs = 2 + random.below(3);
    for (int i = 0; i < boughs; ++i) {
        const float lean = random.between(-.75f, .75f);
        const float shorter = random.between(.58f, .86f);
        put_bough(land, s, x, y, angle * .85f + lean, length * shorter, width * .62f, forks - 1, random);
    }
}

void put_leaves(const country& land, grid<leaf_pixel>& s, growth kind, std::uint32_t seed, rng& random)
{
    using shape = std::vector<ball> (*)(rng&);
    static constexpr shape shapes[] = {broadleaf_balls, conifer_balls, bush_balls, poplar_balls};
    const std::vector<ball> balls = shapes[static_cast<int>(kind)](random);
    float top = 0;
    for (const ball& b : balls) top = std::max(top, b.middle.z + b.radius.z);
    std::vector<leaf> leaves;
    for (const ball& b : balls) {
        const float part = b.radius.x / .18f;
        const int count = static_cast<int>((kind == growth::conifer ? 420.f : 560.f) * part * part) + 90;
        for (int i = 0; i < count; ++i) {
            const leaf l = leaf_on(land, kind, b, top, seed, random);
            if (l.place.z > 0) leaves.push_back(l);
        }
    }
    std::stable_sort(leaves.begin(), leaves.end(),
                     [](const leaf& a, const leaf& b) { return a.place.y > b.place.y; });
    if (kind != growth::bush) put_trunk(land, s, kind == growth::conifer ? .011f : .018f);
    for (const leaf& l : leaves) put_disc(s, l);
}

sprite draw(const country& land, growth kind, std::uint32_t seed)
{
    rng random(seed);
    sprite s{grid<leaf_pixel>(sprite_side, sprite_side)};
    if (kind == growth::bare)
        put_bough(land, s[0], .5f, 0, 0, .26f, .020f, 6, random);
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
