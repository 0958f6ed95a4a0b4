#include "sprites.h"

#include "noise.h"

namespace landscape {

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

std::vector<ball> broadleaf_balls(chance& c)
{
    std::vector<ball> balls;
    const int count = 14 + c.below(9);
    const float spread = c.between(.26f, .33f);
    for (int i = 0; i < count; ++i) {
        const float angle = c.between(0, 6.283f);
        const float out = std::sqrt(c.unit()) * spread;
        const float up = c.between(.20f, .84f);
        const float near_axis = out * (1.12f - .8f * std::fabs(up - .48f));
        const float q = c.between(.08f, .16f);
        balls.push_back({{near_axis * std::cos(angle), near_axis * std::sin(angle), up}, {q, q, q * .8f}});
    }
    balls.push_back({{0, 0, .50f}, {.23f, .23f, .32f}});
    return balls;
}

std::vector<ball> conifer_balls(chance& c)
{
    std::vector<ball> balls;
    constexpr int tiers = 17;
    const float girth = c.between(.19f, .26f);
    for (int i = 0; i < tiers; ++i) {
        const float up = .10f + .86f * real(i) / (tiers - 1);
        const float q = girth * (1 - up) * c.between(.85f, 1.15f) + .02f;
        const float aside = c.between(-.02f, .02f);
        balls.push_back({{aside, 0, up}, {q, q, .045f}});
    }
    return balls;
}

std::vector<ball> bush_balls(chance& c)
{
    std::vector<ball> balls;
    const int count = 8 + c.below(7);
    for (int i = 0; i < count; ++i) {
        const float q = c.between(.10f, .20f);
        const float x = c.between(-.34f, .34f);
        const float y = c.between(-.2f, .2f);
        const float z = c.between(.04f, .50f - .5f * std::fabs(x));
        balls.push_back({{x, y, z}, {q, q, q * 1.05f}});
    }
    return balls;
}

std::vector<ball> poplar_balls(chance& c)
{
    std::vector<ball> balls;
    constexpr int count = 11;
    for (int i = 0; i < count; ++i) {
        const float up = .13f + .80f * real(i) / (count - 1);
        const float q = .14f * std::sin(2.85f * up + .2f) + .03f;
        const float aside = c.between(-.04f, .04f);
        balls.push_back({{aside, 0, up}, {q, q, .11f}});
    }
    return balls;
}

std::vector<ball> balls_of(growth kind, chance& c)
{
    switch (kind) {
        case growth::conifer:
            return conifer_balls(c);
        case growth::bush:
            return bush_balls(c);
        case growth::poplar:
            return poplar_balls(c);
        default:
            return broadleaf_balls(c);
    }
}

vec3 direction(chance& c)
{
    for (;;) {
        const float x = c.between(-1, 1);
        const float y = c.between(-1, 1);
        const float z = c.between(-1, 1);
        const float square = x * x + y * y + z * z;
        if (square < 1 && square > .02f) return unit({x, y, z});
    }
}

leaf leaf_on(const country& land, growth kind, const ball& b, float top, std::uint32_t seed, chance& c)
{
    const vec3 d = direction(c);
    const float rough = 1 + .2f * noise(d.x * 3 + b.middle.x * 20, d.z * 3 + d.y * 2, seed);
    const float out = c.between(.70f, 1.15f) * rough;
    vec3 place = b.middle + d * b.radius * out;
    if (kind == growth::conifer) place.z -= .06f * std::hypot(d.x, d.y) * c.unit();
    // Lit as part of its ball and as part of the whole crown.
    const vec3 crown = unit(vec3{place.x, place.y, (place.z - .5f * top) * .8f} + vec3{0, 0, .001f});
    const vec3 facing = unit(d + crown * .9f);
    const float sun = std::max(0.f, dot(facing, land.towards_sun));
    const float open =
        clamp01(.22f + .78f * place.z / top) * clamp01(.55f + .45f * facing.z + .25f * (out - .7f));
    const vec3 light = land.sunlight * (sun * .74f) + land.skylight * (.95f * open) +
                       vec3{.06f, .09f, .01f} * clamp01(.4f - dot(facing, land.towards_sun));
    const float size = kind == growth::bush ? c.between(.008f, .017f) : c.between(.006f, .014f);
    const float warmth = .30f + (land.night ? .16f * open - .02f : .35f * sun + .08f * open);
    return {place, size, light * c.between(.68f, 1.32f), warmth};
}

void put(sprite_size& s, int x, int y, vec3 light, float alpha, float warmth)
{
    if (x < 0 || y < 0 || x >= s.side || y >= s.side) return;
    leaf_pixel& p = s.pixels[index(y) * index(s.side) + index(x)];
    p.light = mix(p.light, light, alpha);
    p.warmth = mix(p.warmth, warmth, alpha);
    p.alpha = mix(p.alpha, 1, alpha);
}

void put_disc(sprite_size& s, const leaf& l)
{
    const float x = (l.place.x + .5f) * real(s.side), y = (1 - l.place.z * .98f) * real(s.side);
    const float radius = l.size * real(s.side);
    for (int j = whole(y - radius); j <= whole(y + radius) + 1; ++j)
        for (int i = whole(x - radius); i <= whole(x + radius) + 1; ++i) {
            const float alpha = clamp01(radius - std::hypot(real(i) + .5f - x, real(j) + .5f - y) + .5f);
            if (alpha > 0) put(s, i, j, l.light, alpha * .9f, l.warmth);
        }
}

void put_trunk(const country& land, sprite_size& s, float thickness)
{
    const vec3 bark = paint(.62f, .56f, .52f);
    for (int y = 0; y < s.side / 2; ++y) {
        const float half = thickness * (1.3f - real(y) / real(s.side)) * real(s.side);
        for (int x = whole(real(s.side) / 2 - half); x <= whole(real(s.side) / 2 + half); ++x) {
            const float round = .6f - .5f * (real(x) - real(s.side) / 2) / (half + 1);
            put(s, x, s.side - 1 - y, bark * (land.sunlight * (.5f * round) + land.skylight * .5f), 1, .35f);
        }
    }
}

// A bough and its boughs in turn, down to twigs; leans and lengths drawn at each fork.
void put_bough(const country& land, sprite_size& s, float x, float y, float angle, float length, float width,
               int forks, chance& c)
{
    const int steps = std::max(2, whole(length * real(s.side)));
    const float curl = c.between(-.5f, .5f) / real(steps);
    for (int i = 0; i < steps; ++i) {
        x += std::sin(angle) / real(s.side);
        y += std::cos(angle) / real(s.side);
        angle += curl;
        const float thick = std::max(.5f, width * real(s.side) * (1 - .4f * real(i) / real(steps)));
        const float round = .75f - .45f * std::sin(angle);
        const leaf l{
            {x, 0, y}, thick / real(s.side), land.sunlight * (.42f * round) + land.skylight * .6f, .34f};
        put_disc(s, l);
    }
    if (forks == 0) return;
    const int boughs = 2 + c.below(3);
    for (int i = 0; i < boughs; ++i) {
        const float lean = c.between(-.75f, .75f);
        const float shorter = c.between(.58f, .86f);
        put_bough(land, s, x, y, angle * .85f + lean, length * shorter, width * .62f, forks - 1, c);
    }
}

void put_leaves(const country& land, sprite_size& s, growth kind, std::uint32_t seed, chance& c)
{
    const std::vector<ball> balls = balls_of(kind, c);
    float top = 0;
    for (const ball& b : balls) top = std::max(top, b.middle.z + b.radius.z);
    std::vector<leaf> leaves;
    for (const ball& b : balls) {
        const float part = b.radius.x / .18f;
        const int count = static_cast<int>((kind == growth::conifer ? 420.f : 560.f) * part * part) + 90;
        for (int i = 0; i < count; ++i) {
            const leaf l = leaf_on(land, kind, b, top, seed, c);
            if (l.place.z > 0) leaves.push_back(l);
        }
    }
    std::stable_sort(leaves.begin(), leaves.end(),
                     [](const leaf& a, const leaf& b) { return a.place.y > b.place.y; });
    if (kind != growth::bush) put_trunk(land, s, kind == growth::conifer ? .011f : .018f);
    for (const leaf& l : leaves) put_disc(s, l);
}

sprite_size halved(const sprite_size& big)
{
    sprite_size small{big.side / 2, std::vector<leaf_pixel>(index(big.side / 2) * index(big.side / 2))};
    for (int y = 0; y < small.side; ++y)
        for (int x = 0; x < small.side; ++x) {
            leaf_pixel& p = small.pixels[index(y) * index(small.side) + index(x)];
            for (int k = 0; k < 4; ++k) {
                const leaf_pixel& q =
                    big.pixels[index(2 * y + k / 2) * index(big.side) + index(2 * x + k % 2)];
                p.light = p.light + q.light * .25f;
                p.alpha += q.alpha * .25f;
                p.warmth += q.warmth * .25f;
            }
        }
    return small;
}

sprite draw(const country& land, growth kind, std::uint32_t seed)
{
    chance c(seed);
    sprite_size s{sprite_side, std::vector<leaf_pixel>(index(sprite_side) * sprite_side)};
    if (kind == growth::bare)
        put_bough(land, s, .5f, 0, 0, .26f, .020f, 6, c);
    else
        put_leaves(land, s, kind, seed, c);
    sprite result;
    result.sizes.push_back(std::move(s));
    while (result.sizes.back().side > 1) result.sizes.push_back(halved(result.sizes.back()));
    return result;
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

}   // namespace landscape
