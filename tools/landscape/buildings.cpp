// Farms, the hamlet with its church, and bridges, built from panels.
#include "sky.h"
#include "world.h"

namespace tools {
namespace {

enum class openings { none, windows, gate };   // gate: the wide door of a barn

struct house {
    point middle;
    float angle;           // of the long side, radians
    float length, width;   // metres
    float eaves, ridge;    // height of the walls, and of the roof above the walls
    rgb wall, roof;
    openings has = openings::none;
};

constexpr float footing = .5f;     // metres that the walls go into the ground, at least
constexpr float overhang = .45f;   // of the roof, metres
constexpr float wall_warmth = .43f, roof_warmth = .50f, glass_warmth = .36f;

// From the coordinates of a building (u along it, v across it, z upwards) to those of the landscape. The
// origin of a house is its middle, at the lower edge of its walls.
struct frame {
    vec3 origin;
    float angle;
    point flat(float u, float v) const
    {
        const float c = std::cos(angle), s = std::sin(angle);
        return {origin.x + u * c - v * s, origin.y + u * s + v * c};
    }
    vec3 operator()(float u, float v, float z) const
    {
        const point p = flat(u, v);
        return {p.x, p.y, origin.z + z};
    }
};

frame frame_of(const world& w, const house& h)
{
    frame f{{h.middle.x, h.middle.y, 0}, h.angle};
    float lowest = 1e9f;
    for (const float u : {-h.length / 2, h.length / 2})
        for (const float v : {-h.width / 2, h.width / 2})
            lowest = std::min(lowest, w.ground.height(f.flat(u, v)));
    f.origin.z = lowest - footing;
    return f;
}

// Adds a panel that faces away from the point `inside`.
void add_panel(world& w, vec3 inside, vec3 a, vec3 b, vec3 c, vec3 d, vec3 colour, float warmth = wall_warmth)
{
    vec3 normal = unit(cross(b - a, d - a));
    if (dot(normal, (a + b + c + d) * .25f - inside) < 0) normal = normal * -1;
    w.panels.push_back({{a, b, c, d}, colour, normal, warmth});
}

// Adds an upright rectangle between these limits of u and z, at this `v`. It faces away from `inside`.
void add_wall(world& w, vec3 inside, const frame& f, limits u, float v, limits z, vec3 colour,
              float warmth = wall_warmth)
{
    add_panel(w, inside, f(u.low, v, z.low), f(u.high, v, z.low), f(u.high, v, z.high), f(u.low, v, z.high),
              colour, warmth);
}

// Adds the sides of a box. Its top is `left_at_top` times as long and wide as its bottom: 0 makes a pyramid.
void add_sides(world& w, const frame& f, float half_length, float half_width, float low, float high,
               vec3 colour, float warmth = wall_warmth, float left_at_top = 1)
{
    const float us[] = {-half_length, half_length, half_length, -half_length, -half_length};
    const float vs[] = {-half_width, -half_width, half_width, half_width, -half_width};
    for (int i = 0; i < 4; ++i)
        add_panel(w, f.origin, f(us[i], vs[i], low), f(us[i + 1], vs[i + 1], low),
                  f(us[i + 1] * left_at_top, vs[i + 1] * left_at_top, high),
                  f(us[i] * left_at_top, vs[i] * left_at_top, high), colour, warmth);
}

// Adds the windows or gates of the long walls, a little in front of the walls.
void add_openings(world& w, const house& h, const frame& f)
{
    const rgb glass{16, 18, 20}, timber{16, 14, 12};
    for (const float side : {-1.f, 1.f}) {
        const float v = side * (h.width / 2 + .06f);
        if (h.has == openings::gate)
            add_wall(w, f.origin, f, {-2, 2}, v, {0, h.eaves * .8f}, timber, wall_warmth - .08f);
        if (h.has != openings::windows) continue;
        for (const float part : {-.34f, -.12f, .12f, .34f})
            for (const float z : {1.6f, 4.2f}) {
                const float u = part * h.length;
                if (z + 1.2f < h.eaves)
                    add_wall(w, f.origin, f, {u - .5f, u + .5f}, v, {z, z + 1.2f}, glass, glass_warmth);
            }
    }
}

void add_house(world& w, const house& h)
{
    const frame f = frame_of(w, h);
    const float l = h.length / 2, v = h.width / 2, e = h.eaves, top = h.eaves + h.ridge;
    add_sides(w, f, l, v, 0, e, h.wall);
    for (const float end : {-l, l})
        add_panel(w, f.origin, f(end, -v, e), f(end, v, e), f(end, 0, top), f(end, 0, top), h.wall);
    const vec3 roof = mix(h.roof, rgb(88, 89, 91), .88f * w.land.snow);
    const float lo = l + overhang, vo = v + overhang, eo = e - .3f;
    for (const float side : {-vo, vo})
        add_panel(w, f.origin, f(-lo, side, eo), f(lo, side, eo), f(lo, 0, top), f(-lo, 0, top), roof,
                  roof_warmth);
    add_openings(w, h, f);
    w.map.shade.darken(h.middle + w.land.shadow() * e * .6f, h.length * .62f, h.width * .85f, h.angle, .6f);
    if (h.has == openings::windows)   // a chimney
        add_sides(w, {f(l * .7f, 0, top), h.angle}, .45f, .45f, -.8f, 1.1f, rgb(50, 34, 28));
}

void add_trees(world& w, point p, int count, float reach)
{
    for (int i = 0; i < count; ++i) {
        const point at = p + point{w.random.between(-reach, reach), w.random.between(.25f, .8f) * reach};
        if (w.map.roads.at(at) >= 5) add_tree(w, at, growth::broadleaf, w.random.between(7, 13), 1.1f);
    }
}

void build_farm(world& w, const farm_plan& farm)
{
    const float a = farm.angle;
    const frame f{{farm.place.x, farm.place.y, 0}, a};
    const house houses[] = {
        {f.flat(0, 0), a, 14, 8, 5.5f, 3.2f, {70, 65, 57}, {47, 32, 26}, openings::windows},
        {f.flat(27, 9), a, 26, 13, 5.5f, 3.5f, {40, 38, 36}, {53, 54, 55}, openings::gate},
        {f.flat(19, -17), a + 1.57f, 18, 9, 4.5f, 3, {50, 37, 30}, {42, 34, 30}, openings::gate},
        {f.flat(-23, 13), a + .1f, 20, 10, 5, 2.5f, {36, 41, 36}, {48, 50, 50}, openings::gate}};
    for (const house& h : houses) add_house(w, h);
    add_trees(w, farm.place, 12, 52);
}

// Nave, chancel and a tower with a low pyramid as its roof.
void build_church(world& w, point p, float angle)
{
    const rgb stone{66, 63, 56}, slate{38, 39, 42}, dark{14, 14, 15};
    const frame nave{{p.x, p.y, 0}, angle};
    add_house(w, {p, angle, 22, 9.5f, 7.5f, 4.6f, stone, slate, openings::windows});
    add_house(w, {nave.flat(15, 0), angle, 11, 7, 5.5f, 3.4f, stone, slate});
    const house tower{nave.flat(-13.5f, 0), angle, 6.5f, 6.5f, 19, .01f, stone, slate};
    add_house(w, tower);
    constexpr float half = 3.3f, spire = 5.5f;
    const frame f = frame_of(w, tower);
    add_sides(w, f, half, half, tower.eaves, tower.eaves + spire, slate, roof_warmth, 0);
    const frame turned{f.origin, f.angle + 1.5708f};
    for (const float side : {-1.f, 1.f})   // the openings of the belfry
        for (const frame& to : {f, turned})
            add_wall(w, f.origin, to, {-.7f, .7f}, side * (half + .03f), {14.5f, 17.3f}, dark);
}

// Where roads cross the river, from bank to bank.
std::vector<piece> crossings(const world& w)
{
    constexpr float bank = 4;   // distance from the water at which a crossing begins and ends, metres
    std::vector<piece> found;
    for (const path& road : w.land.roads) {
        bool over = false;
        for (const auto& [p, way] : winding(road, road_wander)) {
            const bool wet = w.map.bank(p) < bank;
            if (wet && !over) found.push_back({p, {}});
            if (wet) found.back().way = p - found.back().from;
            over = wet;
        }
    }
    return found;
}

// Deck, parapets and dark arches. Deck and parapets begin 4 metres before the crossing and end 4 after it.
void build_bridge(world& w, const piece& at)
{
    constexpr float half = 3.6f, parapet = 1, arch_rise = 2.3f, arch = 6.5f;   // metres
    const rgb stone{60, 57, 51}, dark{15, 15, 14}, tar{55, 54, 53};
    const float far = length(at.way);
    const float deck = std::max(w.ground.height(at.from), w.ground.height(at.at(1))) + .8f;
    const float water = w.ground.height(at.at(.5f));
    const frame f{{at.from.x, at.from.y, 0}, std::atan2(at.way.y, at.way.x)};
    add_panel(w, f(0, 0, water), f(-4, -half, deck), f(far + 4, -half, deck), f(far + 4, half, deck),
              f(-4, half, deck), tar, wall_warmth + .06f);
    for (const float side : {-1.f, 1.f}) {
        const vec3 inside = f(0, 0, water), outside = f(0, side * 2 * half, water);
        add_wall(w, inside, f, {-4, far + 4}, side * half, {water - 1, deck + parapet}, stone);
        add_wall(w, outside, f, {-4, far + 4}, side * (half - .4f), {deck, deck + parapet}, stone);
        for (float along = 4; along + arch < far - 2; along += arch + 1.6f)
            for (float part = 0; part < 1; part += .1f) {   // a round arch, in steps
                const float inset = arch / 2 * (1 - std::sqrt(1 - part * part));
                add_wall(w, inside, f, {along + inset, along + arch - inset}, side * (half + .05f),
                         {water, water + arch_rise * (part + .1f)}, dark);
            }
    }
}

void build_hamlet(world& w)
{
    const rgb walls[] = {{74, 68, 58}, {60, 44, 36}, {78, 76, 70}, {62, 58, 50}};
    const rgb roofs[] = {{47, 31, 25}, {40, 40, 42}, {52, 37, 28}, {42, 34, 30}};
    const point p = *w.land.hamlet;
    build_church(w, p + point{62, 52}, .25f);
    add_trees(w, p + point{62, 62}, 9, 38);
    constexpr int cottages = 150;   // attempts; most places are unsuitable
    std::vector<point> taken{p + point{62, 52}, p + point{74, 55}, p + point{48, 49}};
    for (int i = 0; i < cottages; ++i) {
        const point at = p + point{w.random.between(-150, 150), w.random.between(-80, 85)};
        house h{.middle = at,
                .angle = w.random.between(-.35f, .35f),
                .length = w.random.between(8, 14),
                .width = w.random.between(6, 8),
                .eaves = w.random.between(4.2f, 6),
                .ridge = w.random.between(2.6f, 3.8f),
                .wall = walls[w.random.below(4)],
                .roof = roofs[w.random.below(4)],
                .has = openings::windows};
        if (w.random.chance(.35f)) h.angle += 1.57f;
        const float off = w.map.roads.at(at);
        const bool by_the_road = off > 8.5f && off < 12.6f;
        if (!(by_the_road || w.random.chance(.08f)) || off < 8.5f || w.map.bank(at) < 14 ||
            std::ranges::any_of(taken, [&](point t) { return length(t - at) <= 19; }))
            continue;
        taken.push_back(at);
        add_house(w, h);
        if (w.random.chance(.75f)) add_trees(w, at + point{0, 4}, 3, 15);
        for (int k = 0; k < 7; ++k) {
            const point bush = at + point{w.random.between(-14, 14), w.random.between(7, 15)};
            if (w.map.roads.at(bush) > 5) add_tree(w, bush, growth::bush, w.random.between(1, 2.4f), 1.3f);
        }
    }
}

}   // namespace

void build_houses(world& w)
{
    for (const farm_plan& f : w.land.farms) build_farm(w, f);
    if (w.land.hamlet) build_hamlet(w);
    for (const piece& over : crossings(w)) build_bridge(w, over);
}

}   // namespace tools
