#include "fields.h"
#include "ground_cover.h"
#include "sky.h"
#include "world.h"

namespace tools {
namespace {

constexpr float view_edge = .82f;                        // half the width of the view, radians
constexpr float keep_off_track = 6, keep_off_road = 5;   // metres

bool in_view(float x, float y)
{
    return std::fabs(std::atan2(x, y)) < view_edge;
}

bool in_the_way(const world& w, float x, float y)
{
    return w.map.tracks.at(x, y) < keep_off_track || w.map.roads.at(x, y) < keep_off_road ||
           w.map.river.at(x, y) < w.land.river_width / 2 + 2;
}

vec3 leaf_colour(world& w, growth kind, float x, float y)
{
    const country& land = w.land;
    const float strength = w.random.between(.66f, .92f) * (kind == growth::bush ? 1.25f : 1);
    if (kind == growth::conifer) return land.needles * (1.1f * strength);
    if (kind == growth::bare) return linear(.52f, .46f, .40f) * strength;
    // Neighbouring trees often have the same colour.
    const float stand = clamp01(.5f + .9f * noise(x / 55, y / 55, land.seed + 83));
    const float own = w.random.unit();
    const float pick = w.random.chance(.55f) ? stand : own;
    const auto last = real(land.leaves.size()) - .001f;
    const vec3 colour = land.leaves[index(std::min(last, pick * real(land.leaves.size())))];
    const float redder = w.random.between(.93f, 1.07f);
    const float bluer = w.random.between(.85f, 1.1f);
    return colour * vec3{redder, 1, bluer} * strength;
}

growth broadleaf_or_bare(world& w)
{
    return w.random.chance(w.land.bare_trees) ? growth::bare : growth::broadleaf;
}
growth tree_of(world& w, float conifers)
{
    return w.random.chance(conifers) ? growth::conifer : broadleaf_or_bare(w);
}

struct limits {
    float low, high;
};

// A plant with a random height and width within limits.
void add_one(world& w, float x, float y, growth kind, limits height, limits widen = {1, 1})
{
    const float tall = w.random.between(height.low, height.high);
    const float wide = w.random.between(widen.low, widen.high);
    add_tree(w, x, y, kind, tall, wide);
}

void plant_belt(world& w, const belt_plan& b)
{
    const path line = winding(b.line);
    float owed = 0;
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const float dx = line[i + 1].x - line[i].x, dy = line[i + 1].y - line[i].y;
        const float length = std::hypot(dx, dy);
        constexpr float ground_of_a_tree = 30;   // square metres
        for (owed += length * b.width / ground_of_a_tree; owed > 1; owed -= 1) {
            const float off = w.random.between(-b.width / 2, b.width / 2);
            const float t = w.random.unit();
            const float x = line[i].x + dx * t - dy / length * off,
                        y = line[i].y + dy * t + dx / length * off;
            const float cluster = noise(x / 34, y / 34, 68) + .5f * noise(x / 120, y / 120, 69);
            if (in_the_way(w, x, y)) continue;
            if (cluster < -.38f && w.random.chance(.9f)) continue;
            const float tall = b.height * (1 + .28f * cluster);
            if (w.random.chance(.3f))
                add_one(w, x, y, growth::bush, {2.5f, 4.5f}, {1.1f, 1.5f});
            else
                add_one(w, x, y, tree_of(w, b.conifers), {.55f * tall, 1.2f * tall}, {.85f, 1.3f});
        }
    }
}

void plant_copse(world& w, const copse_plan& p)
{
    const int count = static_cast<int>(p.radius * p.radius * 3.14f / 34);
    for (int i = 0; i < count; ++i) {
        const float angle = w.random.between(0, 6.283f);
        const float out = std::sqrt(w.random.unit());
        const float lobed =
            1 + .35f * noise(std::cos(angle) * 2 + p.middle.x, std::sin(angle) * 2 + p.middle.y, 88);
        const float x = p.middle.x + p.radius * out * lobed * std::cos(angle) * 1.4f;
        const float y = p.middle.y + p.radius * out * lobed * std::sin(angle);
        if (in_the_way(w, x, y)) continue;
        const bool fringe = out > .85f;
        const float tall = (fringe ? .6f : 1.f) * p.height * w.random.between(.7f, 1.1f);
        const growth kind = fringe && w.random.chance(.5f) ? growth::bush : tree_of(w, p.conifers);
        add_tree(w, x, y, kind, tall, w.random.between(.9f, 1.2f));
    }
}

void plant_hedge(world& w, const hedge_plan& h)
{
    const path line = winding(h.line);
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const point a = line[i], b = line[i + 1];
        const int count = std::max(1, static_cast<int>(std::hypot(b.x - a.x, b.y - a.y) / 1.6f));
        for (int k = 0; k < count; ++k) {
            const float t = (real(k) + w.random.unit()) / real(count);
            const float x = mix(a.x, b.x, t) + w.random.between(-.6f, .6f), y = mix(a.y, b.y, t);
            if (in_the_way(w, x, y) || noise(x / 45, y / 45, 66) < -.45f) continue;
            add_tree(w, x, y, growth::bush, h.height * w.random.between(.7f, 1.25f), 1.25f);
            if (w.random.chance(.03f)) add_one(w, x, y, broadleaf_or_bare(w), {6, 11});
        }
    }
}

// Plants a square of farmland with sides of `cell` metres. Woods cover whole fields; most boundaries are
// hedges with a few trees.
void plant_farmed_spot(world& w, float x, float y, float cell)
{
    const field f = field_at(w.land, x, y);
    if (in_the_way(w, x, y)) return;
    if (wooded(w.land, f, x, y)) {
        if (!w.random.chance(cell * cell / 34)) return;
        const bool fringe = f.edge < 7;
        const bool conifers = real(f.id >> 4 & 15) / 16 < w.land.conifers;
        const float lower = fringe ? .75f : 1;
        if (fringe && w.random.chance(.45f))
            add_one(w, x, y, growth::bush, {2.5f, 5}, {1.1f, 1.5f});
        else
            add_one(w, x, y, tree_of(w, conifers ? .9f : .04f), {9 * lower, 15 * lower}, {.95f, 1.3f});
        return;
    }
    const float hedged = real(f.border % 100);
    constexpr float unhedged = 22, shaggy = 78;   // no hedge below `unhedged`, a tall one above `shaggy`
    if (hedged < unhedged || f.edge > .55f * cell + .3f) return;
    const bool tall_hedge = hedged > shaggy;
    const float tall = tall_hedge ? w.random.between(2.4f, 4.6f) : w.random.between(1.6f, 2.4f);
    if (!w.random.chance(.93f)) return;
    add_tree(w, x, y, growth::bush, tall, 1.2f + .3f * cell / tall);
    if (w.random.chance((tall_hedge ? .016f : .005f) * cell))
        add_one(w, x, y, broadleaf_or_bare(w), {7, 14}, {1, 1.25f});
}

void plant_farmland(world& w, float from, float to, float cell)
{
    const float wide = to * std::sin(view_edge);
    for (float y = from * .68f; y < to; y += cell)
        for (float x = -wide; x < wide; x += cell) {
            const float px = x + w.random.between(-.4f, .4f) * cell;
            const float py = y + w.random.between(-.4f, .4f) * cell;
            const float range = std::hypot(px, py);
            if (range < from || range >= to || !in_view(px, py)) continue;
            if (roughness(w.land, px, py) > .5f) continue;
            plant_farmed_spot(w, px, py, cell);
        }
}

void plant_scrub(world& w)
{
    const int tries = static_cast<int>(90000 * w.land.scrub);
    for (int i = 0; i < tries; ++i) {
        const float bearing = w.random.between(-view_edge, view_edge);
        const float range = std::sqrt(w.random.between(320.f * 320, 2900.f * 2900));
        const float x = range * std::sin(bearing), y = range * std::cos(bearing);
        const float thick = fractal(x / 170, y / 170, w.land.seed + 72, 3) + .35f * noise(x / 25, y / 25, 73);
        const float enough = range < 500 ? .58f : .46f;
        if (thick < enough || in_the_way(w, x, y) || roughness(w.land, x, y) < .5f) continue;
        const float taller = w.random.chance(.1f) ? 1.7f : 1;
        add_one(w, x, y, growth::bush, {.7f * taller, 2.2f * taller}, {1, 1.7f});
        if (w.random.chance(.03f)) add_one(w, x, y, broadleaf_or_bare(w), {4, 9});
    }
}

void plant_riverside(world& w)
{
    const path line = winding(w.land.river, 2);
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const float dx = line[i + 1].x - line[i].x, dy = line[i + 1].y - line[i].y,
                    length = std::hypot(dx, dy);
        for (const float side : {-1.f, 1.f}) {
            const float off = side * (w.land.river_width / 2 + w.random.between(3, 10));
            const float x = line[i].x - dy / length * off, y = line[i].y + dx / length * off;
            const float thick = noise(x / 90, y / 90, w.land.seed + 95);
            // Few plants on the near bank, so that the water is visible.
            if (thick < (side * dx > 0 ? -.05f : .25f) || in_the_way(w, x, y) || !w.random.chance(.75f))
                continue;
            if (w.random.chance(.4f))
                add_one(w, x, y, growth::bush, {2, 4}, {1.3f, 1.7f});
            else
                add_one(w, x, y, broadleaf_or_bare(w), {6, 12}, {1, 1.35f});
            if (w.random.chance(.05f)) add_one(w, x + 4, y, growth::broadleaf, {14, 19}, {.4f, .5f});
        }
    }
}

// The probability of a tuft or stone at a place. A value below 0 counts as 0, one above 1 as 1.
float grassy(const world& w, float x, float y)
{
    const float rough = roughness(w.land, x, y);
    const float off = std::min(
        {w.map.tracks.at(x, y), w.map.roads.at(x, y) - 1.5f, w.map.river.at(x, y) - w.land.river_width / 2});
    if (off < 1) return off > 0 && off < .5f ? .2f : 0;
    const float clumps = .35f + .9f * noise(x / 23, y / 23, 203) + 1.2f * noise(x / 6, y / 6, 251);
    if (rough > .5f || off < 4) return clumps * (1 - .7f * w.land.snow);
    const field f = field_at(w.land, x, y);
    return f.edge < 2.4f ? .9f : 0;
}

// Adds a tuft or stone with the light and warmth of the ground at its place.
void strew_one(world& w, float x, float y, growth kind, float height, float width)
{
    const float range = std::hypot(x, y), z = w.ground.height(x, y);
    constexpr float blur = 1.5f;   // metres; the ground is evaluated without its finest texture
    const ground_spot spot{x, y, range, 0, 0, w.ground.normal(x, y, z, blur), blur, blur * 2};
    const surface under = cover(w.land, w.map, spot);
    if (under.made_of != material::ground) return;
    const float clouds = .42f + .58f * cloud_shadow(w.land, x, y);
    // There are dry and dark patches.
    const float dark = noise(x / 8, y / 8, 253) + w.random.between(-.5f, .5f);
    const vec3 own = mix(vec3{1.12f, 1.06f, .92f}, vec3{.58f, .68f, .56f}, smoothstep(-.1f, .7f, dark));
    const vec3 colour =
        kind == growth::stone ? linear(.60f, .58f, .54f) : under.light * w.land.tufts * own * (1 / clouds);
    const int which = first_of(kind) + w.random.below(sprites_of_a_kind);
    w.plants.push_back({x, y, z - .02f * height, height, width, which, std::atan2(x, y), range, colour,
                        kind == growth::stone ? 0 : under.warmth});
}

}   // namespace

void strew(world& w)
{
    struct zone {
        float from, to, ground_of_one;   // distances in metres; square metres of ground for each plant
        limits height;
    };
    constexpr zone zones[] = {{300, 460, .4f, {.22f, .9f}},
                              {460, 720, .8f, {.28f, 1.f}},
                              {720, 1100, 2, {.35f, 1.1f}},
                              {1100, 1700, 7, {.5f, 1.2f}}};
    for (const zone& z : zones) {
        const int tries = static_cast<int>(view_edge * (z.to * z.to - z.from * z.from) / z.ground_of_one);
        for (int i = 0; i < tries; ++i) {
            const float bearing = w.random.between(-view_edge, view_edge);
            const float range = std::sqrt(w.random.between(z.from * z.from, z.to * z.to));
            const float x = range * std::sin(bearing), y = range * std::cos(bearing);
            const float big = w.random.unit();
            const float tall = mix(z.height.low, z.height.high, big * big * big);
            const float wide = tall * w.random.between(1, 1.8f);
            if (!w.random.chance(grassy(w, x, y))) continue;
            const bool stone = w.random.chance(.004f);
            strew_one(w, x, y, stone ? growth::stone : growth::tuft, stone ? tall * .7f : tall, wide);
        }
    }
}

void add_tree(world& w, float x, float y, growth kind, float height, float widen)
{
    if (!in_view(x, y)) return;
    const float foot = w.ground.height(x, y);
    const int which = first_of(kind) + w.random.below(sprites_of_a_kind);
    const vec3 colour = leaf_colour(w, kind, x, y);
    w.plants.push_back({x, y, foot - .02f * height, height, height * widen, which, std::atan2(x, y),
                        std::hypot(x, y), colour});
    const vec3 sun = w.land.towards_sun;
    const float east = -sun.x / sun.z, north = -sun.y / sun.z;
    const float crown = height * widen *
                        (kind == growth::bush      ? .36f
                         : kind == growth::conifer ? .18f
                                                   : .32f);
    const float up = height * (kind == growth::bush ? .32f : .5f);
    const float strength = kind == growth::bare ? .35f : .70f;
    w.map.shade.darken({x + east * up, y + north * up}, crown + up * std::hypot(east, north) * .45f, crown,
                       std::atan2(north, east), strength);
    w.map.shade.darken({x, y}, crown * .8f, crown * .8f, 0, strength / 2);
}

void mark_ways(world& w)
{
    for (const path& p : w.land.tracks) w.map.tracks.mark_distance(winding(p));
    for (const path& p : w.land.roads) w.map.roads.mark_distance(winding(p, road_wander));
    if (w.land.river_width > 0) w.map.river.mark_distance(winding(w.land.river, 2));
    rng own(w.land.seed + 424242);
    constexpr int trails = 40;
    for (int i = 0; i < trails; ++i) {
        const float bearing = own.between(-.75f, .75f);
        const float range = own.between(300, std::min(2300.f, w.land.farmed_from));
        point p{range * std::sin(bearing), range * std::cos(bearing)};
        float heading = own.between(-1.9f, 1.9f);
        path line;
        for (int k = 0; k < 5; ++k) {
            line.push_back(p);
            heading += own.between(-.35f, .35f);
            const float step = own.between(80, 180);
            p = {p.x + step * std::sin(heading), p.y + step * std::cos(heading)};
        }
        w.map.trails.mark_distance(winding(line));
    }
}

void plant_trees(world& w)
{
    for (const belt_plan& b : w.land.belts) plant_belt(w, b);
    for (const copse_plan& p : w.land.copses) plant_copse(w, p);
    for (const hedge_plan& h : w.land.hedges) plant_hedge(w, h);
    if (w.land.river_width > 0) plant_riverside(w);
    const float from = w.land.farmed_from * .85f;
    if (from < 1700) plant_farmland(w, from, 1700, 2.2f);
    plant_farmland(w, std::max(from, 1700.f), 3400, 3.5f);
    plant_farmland(w, 3400, 6000, 6);
    plant_scrub(w);
    strew(w);
    std::stable_sort(w.plants.begin(), w.plants.end(),
                     [](const plant& a, const plant& b) { return a.range > b.range; });
}

world::world(const country& l) : land(l), ground(l, map), sprites(draw_sprites(l)), random(l.seed)
{
    mark_ways(*this);
    build_houses(*this);
    plant_trees(*this);
}

}   // namespace tools
