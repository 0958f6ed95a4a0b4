#include <functional>

#include "ground_cover.h"
#include "sky.h"
#include "world.h"

namespace tools {
namespace {

constexpr float view_edge = .82f;   // half the planted sector, radians; wider than the view
constexpr float keep_off_track = 6, keep_off_road = 5;   // metres

bool in_view(point p)
{
    return std::fabs(std::atan2(p.x, p.y)) < view_edge;
}

bool in_the_way(const world& w, point p)
{
    return w.map.tracks.at(p) < keep_off_track || w.map.roads.at(p) < keep_off_road || w.map.bank(p) < 2;
}

vec3 leaf_colour(world& w, growth kind, point p)
{
    const country& land = w.land;
    const float strength = w.random.between(.66f, .92f) * (kind == growth::bush ? 1.25f : 1);
    if (kind == growth::conifer) return land.needles * (1.1f * strength);
    if (kind == growth::bare) return rgb(52, 46, 40) * strength;
    // Neighbouring trees often have the same colour.
    const float stand = clamp01(.5f + .9f * noise(p / 55, land.seed + 83));
    const float own = w.random.unit();
    const float pick = w.random.chance(.55f) ? stand : own;
    const auto last = real(land.leaves.size()) - .001f;
    const vec3 colour = land.leaves[index(std::min(last, pick * real(land.leaves.size())))];
    return colour * vec3{w.random.between(.93f, 1.07f), 1, w.random.between(.85f, 1.1f)} * strength;
}

growth broadleaf_or_bare(world& w)
{
    return w.random.chance(w.land.bare_trees) ? growth::bare : growth::broadleaf;
}
growth tree_of(world& w, float conifers)
{
    return w.random.chance(conifers) ? growth::conifer : broadleaf_or_bare(w);
}

// Adds a plant with a random height and width within limits.
void add_one(world& w, point p, growth kind, limits height, limits widen = {1, 1})
{
    const float tall = w.random.between(height);
    add_tree(w, p, kind, tall, w.random.between(widen));
}

void plant_belt(world& w, const belt_plan& b)
{
    float owed = 0;
    for (const piece& of_line : winding(b.line)) {
        constexpr float ground_of_a_tree = 30;   // square metres
        for (owed += length(of_line.way) * b.width / ground_of_a_tree; owed > 1; owed -= 1) {
            const float off = w.random.between(-b.width / 2, b.width / 2);
            const point p = of_line.at(w.random.unit(), off);
            const float cluster = noise(p / 34, 68) + .5f * noise(p / 120, 69);
            if (in_the_way(w, p) || (cluster < -.38f && w.random.chance(.9f))) continue;
            const float tall = b.height * (1 + .28f * cluster);
            if (w.random.chance(.3f))
                add_one(w, p, growth::bush, {2.5f, 4.5f}, {1.1f, 1.5f});
            else
                add_one(w, p, tree_of(w, b.conifers), {.55f * tall, 1.2f * tall}, {.85f, 1.3f});
        }
    }
}

void plant_copse(world& w, const copse_plan& plan)
{
    const int count = static_cast<int>(plan.radius * plan.radius * 3.14f / 34);
    for (int i = 0; i < count; ++i) {
        const float angle = w.random.between(0, 6.283f), out = std::sqrt(w.random.unit());
        const point way{std::cos(angle), std::sin(angle)};
        const float lobed = 1 + .35f * noise(way * 2 + plan.middle, 88);
        const point p{plan.middle.x + plan.radius * out * lobed * way.x * 1.4f,
                      plan.middle.y + plan.radius * out * lobed * way.y};
        if (in_the_way(w, p)) continue;
        const bool fringe = out > .85f;
        const float tall = (fringe ? .6f : 1.f) * plan.height * w.random.between(.7f, 1.1f);
        const growth kind = fringe && w.random.chance(.5f) ? growth::bush : tree_of(w, plan.conifers);
        add_tree(w, p, kind, tall, w.random.between(.9f, 1.2f));
    }
}

void plant_hedge(world& w, const hedge_plan& h)
{
    for (const piece& of_line : winding(h.line)) {
        const int count = std::max(1, static_cast<int>(length(of_line.way) / 1.6f));
        for (int k = 0; k < count; ++k) {
            const float share = (real(k) + w.random.unit()) / real(count);
            const point p = of_line.at(share) + point{w.random.between(-.6f, .6f), 0};
            if (in_the_way(w, p) || noise(p / 45, 66) < -.45f) continue;
            add_tree(w, p, growth::bush, h.height * w.random.between(.7f, 1.25f), 1.25f);
            if (w.random.chance(.03f)) add_one(w, p, broadleaf_or_bare(w), {6, 11});
        }
    }
}

// Plants a square of farmland with sides of `cell` metres. Woods fill fields; most boundaries are
// hedges with a few trees.
void plant_farmed_spot(world& w, point p, float cell)
{
    const field f = field_at(w.land, p);
    if (in_the_way(w, p)) return;
    if (wooded(w.land, f, p)) {
        if (!w.random.chance(cell * cell / 34)) return;
        const bool fringe = f.edge < 7;
        const bool conifers = real(f.id >> 4 & 15) / 16 < w.land.conifers;
        const float lower = fringe ? .75f : 1;
        if (fringe && w.random.chance(.45f))
            add_one(w, p, growth::bush, {2.5f, 5}, {1.1f, 1.5f});
        else
            add_one(w, p, tree_of(w, conifers ? .9f : .04f), {9 * lower, 15 * lower}, {.95f, 1.3f});
        return;
    }
    const float hedged = real(f.border % 100);
    constexpr float unhedged = 22, shaggy = 78;   // no hedge below `unhedged`, a tall one above `shaggy`
    if (hedged < unhedged || f.edge > .55f * cell + .3f) return;
    const bool tall_hedge = hedged > shaggy;
    const float tall = tall_hedge ? w.random.between(2.4f, 4.6f) : w.random.between(1.6f, 2.4f);
    if (!w.random.chance(.93f)) return;
    add_tree(w, p, growth::bush, tall, 1.2f + .3f * cell / tall);
    if (w.random.chance((tall_hedge ? .016f : .005f) * cell))
        add_one(w, p, broadleaf_or_bare(w), {7, 14}, {1, 1.25f});
}

void plant_farmland(world& w, float from, float to, float cell)
{
    const float wide = to * std::sin(view_edge);
    for (float y = from * .68f; y < to; y += cell)
        for (float x = -wide; x < wide; x += cell) {
            const point aside{w.random.between(-.4f, .4f), w.random.between(-.4f, .4f)};
            const point p = point{x, y} + aside * cell;
            const float range = length(p);
            if (range < from || range >= to || !in_view(p) || roughness(w.land, p) > .5f) continue;
            plant_farmed_spot(w, p, cell);
        }
}

// A random place in the planted sector, between two distances.
point any_place(world& w, limits range)
{
    const float bearing = w.random.between(-view_edge, view_edge);
    return polar(bearing, std::sqrt(w.random.between(range.low * range.low, range.high * range.high)));
}

void plant_scrub(world& w)
{
    const int tries = static_cast<int>(90000 * w.land.scrub);
    for (int i = 0; i < tries; ++i) {
        const point p = any_place(w, {320, 2900});
        const float thick = fractal(p / 170, w.land.seed + 72, 3) + .35f * noise(p / 25, 73);
        const float enough = length(p) < 500 ? .58f : .46f;
        if (thick < enough || in_the_way(w, p) || roughness(w.land, p) < .5f) continue;
        const float taller = w.random.chance(.1f) ? 1.7f : 1;
        add_one(w, p, growth::bush, {.7f * taller, 2.2f * taller}, {1, 1.7f});
        if (w.random.chance(.03f)) add_one(w, p, broadleaf_or_bare(w), {4, 9});
    }
}

void plant_riverside(world& w, const path& river)
{
    for (const piece& of_line : winding(river, 2))
        for (const float side : {-1.f, 1.f}) {
            const point p = of_line.at(0, side * (river_width / 2 + w.random.between(3, 10)));
            const float thick = noise(p / 90, w.land.seed + 95);
            // Few plants on the near bank, so that the water is visible.
            if (thick < (side * of_line.way.x > 0 ? -.05f : .25f) || in_the_way(w, p) ||
                !w.random.chance(.75f))
                continue;
            if (w.random.chance(.4f))
                add_one(w, p, growth::bush, {2, 4}, {1.3f, 1.7f});
            else
                add_one(w, p, broadleaf_or_bare(w), {6, 12}, {1, 1.35f});
            if (w.random.chance(.05f)) add_one(w, p + point{4, 0}, growth::broadleaf, {14, 19}, {.4f, .5f});
        }
}

// The probability of a tuft or stone at a place. A value below 0 counts as 0, one above 1 as 1.
float grassy(const world& w, point p)
{
    const float rough = roughness(w.land, p);
    const float off = std::min({w.map.tracks.at(p), w.map.roads.at(p) - 1.5f, w.map.bank(p)});
    if (off < 1) return off > 0 && off < .5f ? .2f : 0;
    const float clumps = .35f + .9f * noise(p / 23, 203) + 1.2f * noise(p / 6, 251);
    if (rough > .5f || off < 4) return clumps * (1 - .7f * w.land.snow);
    return field_at(w.land, p).edge < 2.4f ? .9f : 0;
}

// Adds a stone, or a tuft with the light and warmth of the ground at its place.
void strew_one(world& w, point p, growth kind, float height, float width)
{
    const float range = length(p), z = w.ground.height(p);
    constexpr float blur = 1.5f;   // metres; the ground is evaluated without its finest texture
    const pixel under = cover(w.land, w.map, {p, range, 0, 0, w.ground.normal(p, z, blur), blur, blur * 2});
    if (under.made_of != material::ground) return;
    const float clouds = .42f + .58f * cloud_shadow(w.land, p);
    // There are dry and dark patches.
    const float dark = noise(p / 8, 253) + w.random.between(-.5f, .5f);
    const vec3 own = mix(vec3{1.12f, 1.06f, .92f}, vec3{.58f, .68f, .56f}, smoothstep(-.1f, .7f, dark));
    const vec3 colour =
        kind == growth::stone ? rgb(60, 58, 54) : under.light * w.land.tufts * own * (1 / clouds);
    const int which = first_of(kind) + w.random.below(sprites_of_a_kind);
    w.plants.push_back(
        {p, z - .02f * height, height, width, which, colour, kind == growth::stone ? 0 : under.warmth});
}

// Adds tufts of grass and stones. Call it when all shadows are on the map, since tufts have the light of the
// ground.
void strew(world& w)
{
    struct zone {
        limits range;          // metres
        float ground_of_one;   // square metres for each attempt
        limits height;
    };
    constexpr zone zones[] = {{{300, 460}, .4f, {.22f, .9f}},
                              {{460, 720}, .8f, {.28f, 1.f}},
                              {{720, 1100}, 2, {.35f, 1.1f}},
                              {{1100, 1700}, 7, {.5f, 1.2f}}};
    for (const zone& z : zones) {
        const auto [from, to] = z.range;
        const int tries = static_cast<int>(view_edge * (to * to - from * from) / z.ground_of_one);
        for (int i = 0; i < tries; ++i) {
            const point p = any_place(w, z.range);
            const float big = w.random.unit();
            const float tall = mix(z.height.low, z.height.high, big * big * big);
            const float wide = tall * w.random.between(1, 1.8f);
            if (!w.random.chance(grassy(w, p))) continue;
            const bool stone = w.random.chance(.004f);
            strew_one(w, p, stone ? growth::stone : growth::tuft, stone ? tall * .7f : tall, wide);
        }
    }
}

// Marks tracks, trails, roads and the river on the map.
void mark_ways(world& w)
{
    for (const path& p : w.land.tracks) w.map.tracks.mark_distance(winding(p));
    for (const path& p : w.land.roads) w.map.roads.mark_distance(winding(p, road_wander));
    for (const path& p : w.land.rivers) w.map.river.mark_distance(winding(p, 2));
    rng own(w.land.seed + 424242);
    constexpr int trails = 40;
    for (int i = 0; i < trails; ++i) {
        const float bearing = own.between(-.75f, .75f);
        const float range = own.between(300, std::min(2300.f, w.land.farmed_from));
        point p = polar(bearing, range);
        float heading = own.between(-1.9f, 1.9f);
        path line;
        for (int k = 0; k < 5; ++k) {
            line.push_back(p);
            heading += own.between(-.35f, .35f);
            p = p + polar(heading, own.between(80, 180));
        }
        w.map.trails.mark_distance(winding(line));
    }
}

// Plants belts, copses, hedges, woods, scrub, and trees and bushes along the river, with their shadows on the
// map. Then adds tufts and stones.
void plant_trees(world& w)
{
    for (const belt_plan& b : w.land.belts) plant_belt(w, b);
    for (const copse_plan& p : w.land.copses) plant_copse(w, p);
    for (const hedge_plan& h : w.land.hedges) plant_hedge(w, h);
    for (const path& p : w.land.rivers) plant_riverside(w, p);
    const float from = w.land.farmed_from * .85f;
    if (from < 1700) plant_farmland(w, from, 1700, 2.2f);
    plant_farmland(w, std::max(from, 1700.f), 3400, 3.5f);
    plant_farmland(w, 3400, 6000, 6);
    plant_scrub(w);
    strew(w);
    std::ranges::stable_sort(w.plants, std::greater{}, [](const plant& p) { return length(p.at); });
}

}   // namespace

void add_tree(world& w, point p, growth kind, float height, float widen)
{
    if (!in_view(p)) return;
    const float foot = w.ground.height(p);
    const int which = first_of(kind) + w.random.below(sprites_of_a_kind);
    w.plants.push_back({p, foot - .02f * height, height, height * widen, which, leaf_colour(w, kind, p)});
    const point shadow = w.land.shadow();
    const float slim = kind == growth::bush ? .36f : kind == growth::conifer ? .18f : .32f;
    const float crown = height * widen * slim;
    const float up = height * (kind == growth::bush ? .32f : .5f);
    const float strength = kind == growth::bare ? .35f : .70f;
    w.map.shade.darken(p + shadow * up, crown + up * length(shadow) * .45f, crown,
                       std::atan2(shadow.y, shadow.x), strength);
    w.map.shade.darken(p, crown * .8f, crown * .8f, 0, strength / 2);
}

world::world(const country& l) : land(l), ground(l, map), sprites(draw_sprites(l)), random(l.seed)
{
    mark_ways(*this);
    build_houses(*this);
    plant_trees(*this);
}

}   // namespace tools
