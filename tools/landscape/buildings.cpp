// Farms and the hamlet: boxes with roofs, windows and doors, and a church with a tower.
#include "light.h"
#include "world.h"

namespace landscape {

namespace {

struct house {
    point middle;
    float angle;           // of its length, radians
    float length, width;   // metres
    float eaves, ridge;    // height of the walls, and of the roof above them
    vec3 wall, roof;
    bool windows;
    bool gate = false;   // a barn's
};

constexpr float footing = .5f;     // the walls go this far into the ground
constexpr float overhang = .45f;   // of the roof
constexpr float wall_warmth = .43f, roof_warmth = .50f, glass_warmth = .36f;

// A house's own frame: u along it, v across it, both from the middle; z from the footing.
struct frame {
    const house& h;
    float low;
    vec3 operator()(float u, float v, float z) const
    {
        const float c = std::cos(h.angle), s = std::sin(h.angle);
        return {h.middle.x + u * c - v * s, h.middle.y + u * s + v * c, low + z};
    }
};

float lowest_corner(const world& w, const house& h)
{
    const frame f{h, 0};
    float low = 1e9f;
    for (const float u : {-h.length / 2, h.length / 2})
        for (const float v : {-h.width / 2, h.width / 2}) {
            const vec3 p = f(u, v, 0);
            low = std::min(low, w.ground.height(p.x, p.y));
        }
    return low - footing;
}

void add_panel(world& w, const house& h, vec3 a, vec3 b, vec3 c, vec3 d, vec3 colour, float warmth, float low)
{
    vec3 normal = unit(cross(b - a, d - a));
    const vec3 out = (a + b + c + d) * .25f - vec3{h.middle.x, h.middle.y, low + h.eaves * .5f};
    if (dot(normal, out) < 0) normal = normal * -1;
    w.panels.push_back({{a, b, c, d}, colour, normal, warmth});
}

void add_openings(world& w, const house& h, const frame& f)
{
    constexpr float proud = .06f;   // so that they are seen before the wall
    const vec3 glass = paint(.16f, .18f, .20f), timber = paint(.16f, .14f, .12f);
    for (const float side : {-1.f, 1.f}) {
        const float v = side * (h.width / 2 + proud);
        if (h.gate)
            add_panel(w, h, f(-2, v, 0), f(2, v, 0), f(2, v, h.eaves * .8f), f(-2, v, h.eaves * .8f), timber,
                      wall_warmth - .08f, f.low);
        if (!h.windows) continue;
        for (const float part : {-.34f, -.12f, .12f, .34f})
            for (const float z : {1.6f, 4.2f})
                if (const float u = part * h.length; z + 1.2f < h.eaves)
                    add_panel(w, h, f(u - .5f, v, z), f(u + .5f, v, z), f(u + .5f, v, z + 1.2f),
                              f(u - .5f, v, z + 1.2f), glass, glass_warmth, f.low);
    }
}

void add_chimney(world& w, const house& h, const frame& f, float u)
{
    const float from = h.eaves + h.ridge - .8f, to = h.eaves + h.ridge + 1.1f, half = .45f;
    const vec3 brick = paint(.50f, .34f, .28f);
    const float us[4] = {u - half, u + half, u + half, u - half}, vs[4] = {-half, -half, half, half};
    for (int i = 0; i < 4; ++i) {
        const int k = (i + 1) % 4;
        const vec3 a = f(us[i], vs[i], from), b = f(us[k], vs[k], from);
        vec3 normal = unit(cross(b - a, vec3{0, 0, 1}));
        w.panels.push_back({{a, b, f(us[k], vs[k], to), f(us[i], vs[i], to)}, brick, normal, wall_warmth});
    }
}

void add_house(world& w, const house& h)
{
    const frame f{h, lowest_corner(w, h)};
    const float l = h.length / 2, v = h.width / 2, e = h.eaves, top = h.eaves + h.ridge;
    const float us[4] = {-l, l, l, -l}, vs[4] = {-v, -v, v, v};
    for (int i = 0; i < 4; ++i) {
        const int k = (i + 1) % 4;
        add_panel(w, h, f(us[i], vs[i], 0), f(us[k], vs[k], 0), f(us[k], vs[k], e), f(us[i], vs[i], e),
                  h.wall, wall_warmth, f.low);
    }
    for (const float end : {-l, l})
        add_panel(w, h, f(end, -v, e), f(end, v, e), f(end, 0, top), f(end, 0, top), h.wall, wall_warmth,
                  f.low);
    const float lo = l + overhang, vo = v + overhang, eo = e - .3f;
    for (const float side : {-vo, vo})
        add_panel(w, h, f(-lo, side, eo), f(lo, side, eo), f(lo, 0, top), f(-lo, 0, top), h.roof, roof_warmth,
                  f.low);
    add_openings(w, h, f);
    const vec3 sun = w.land.towards_sun;
    w.map.shade.darken({h.middle.x - sun.x / sun.z * e * .6f, h.middle.y - sun.y / sun.z * e * .6f},
                       h.length * .62f, h.width * .85f, h.angle, .6f);
    if (h.windows) add_chimney(w, h, f, l * .7f);
}

void add_trees(world& w, chance& c, point p, int count, float reach)
{
    for (int i = 0; i < count; ++i) {
        const float x = p.x + c.between(-reach, reach);
        const float y = p.y + c.between(.25f, .8f) * reach;
        if (w.map.to_road(x, y) < 5) continue;
        add_tree(w, c, x, y, growth::broadleaf, c.between(7, 13), 1.1f);
    }
}

void build_farm(world& w, const farm_plan& farm, chance& c)
{
    const float cosine = std::cos(farm.angle), sine = std::sin(farm.angle);
    const auto place = [&](float u, float v) {
        return point{farm.place.x + u * cosine - v * sine, farm.place.y + u * sine + v * cosine};
    };
    const float a = farm.angle;
    add_house(w, {place(0, 0), a, 14, 8, 5.5f, 3.2f, paint(.70f, .65f, .57f), paint(.47f, .32f, .26f), true});
    add_house(w, {place(27, 9), a, 26, 13, 5.5f, 3.5f, paint(.40f, .38f, .36f), paint(.53f, .54f, .55f),
                  false, true});
    add_house(w, {place(19, -17), a + 1.57f, 18, 9, 4.5f, 3, paint(.50f, .37f, .30f), paint(.42f, .34f, .30f),
                  false, true});
    add_house(w, {place(-23, 13), a + .1f, 20, 10, 5, 2.5f, paint(.36f, .41f, .36f), paint(.48f, .50f, .50f),
                  false, true});
    add_trees(w, c, place(0, 0), 12, 52);
}

// Nave, chancel and a tower with a low pyramid for a roof.
void build_church(world& w, point p, float angle)
{
    const vec3 stone = paint(.66f, .63f, .56f), slate = paint(.38f, .39f, .42f);
    const float c = std::cos(angle), s = std::sin(angle);
    add_house(w, {p, angle, 22, 9.5f, 7.5f, 4.6f, stone, slate, true});
    add_house(w, {{p.x + 15 * c, p.y + 15 * s}, angle, 11, 7, 5.5f, 3.4f, stone, slate, false});
    house tower{{p.x - 13.5f * c, p.y - 13.5f * s}, angle, 6.5f, 6.5f, 19, 0, stone, slate, false};
    const frame f{tower, lowest_corner(w, tower)};
    tower.ridge = .01f;
    add_house(w, tower);
    constexpr float half = 3.3f, spire = 5.5f;
    const float us[4] = {-half, half, half, -half}, vs[4] = {-half, -half, half, half};
    for (int i = 0; i < 4; ++i) {
        const int k = (i + 1) % 4;
        const vec3 top = f(0, 0, tower.eaves + spire);
        add_panel(w, tower, f(us[i], vs[i], tower.eaves), f(us[k], vs[k], tower.eaves), top, top, slate,
                  roof_warmth, f.low);
    }
    // The belfry's openings.
    for (const float side : {-1.f, 1.f}) {
        const float v = side * (half + .03f);
        add_panel(w, tower, f(-.7f, v, 14.5f), f(.7f, v, 14.5f), f(.7f, v, 17.3f), f(-.7f, v, 17.3f),
                  paint(.14f, .14f, .15f), wall_warmth, f.low);
        add_panel(w, tower, f(v, -.7f, 14.5f), f(v, .7f, 14.5f), f(v, .7f, 17.3f), f(v, -.7f, 17.3f),
                  paint(.14f, .14f, .15f), wall_warmth, f.low);
    }
}

// A stretch of a road that the river runs under.
struct crossing {
    point from, to;
};

std::vector<crossing> crossings(const world& w)
{
    constexpr float bank = 4;   // metres of it that a bridge takes up
    std::vector<crossing> found;
    for (const path& road : w.land.roads) {
        bool over = false;
        for (const point& p : winding(road, road_wander)) {
            const bool wet = w.map.to_river(p.x, p.y) < w.land.river_width / 2 + bank;
            if (wet && !over) found.push_back({p, p});
            if (wet) found.back().to = p;
            over = wet;
        }
    }
    return found;
}

// Deck, parapets and dark arches, from bank to bank.
void build_bridge(world& w, const crossing& at)
{
    constexpr float half = 3.6f, parapet = 1, arch_rise = 2.3f, arch = 6.5f;   // metres
    const vec3 stone = paint(.60f, .57f, .51f), dark = paint(.15f, .15f, .14f), tar = paint(.55f, .54f, .53f);
    const float dx = at.to.x - at.from.x, dy = at.to.y - at.from.y, length = std::hypot(dx, dy);
    const float deck =
        std::max(w.ground.height(at.from.x, at.from.y), w.ground.height(at.to.x, at.to.y)) + .8f;
    const float water = w.ground.height((at.from.x + at.to.x) / 2, (at.from.y + at.to.y) / 2);
    const auto place = [&](float along, float across, float z) {
        return vec3{at.from.x + (dx * along - dy * across) / length,
                    at.from.y + (dy * along + dx * across) / length, z};
    };
    const auto wall = [&](float from, float to, float across, float low, float high, vec3 colour,
                          float side) {
        w.panels.push_back({{place(from, across, low), place(to, across, low), place(to, across, high),
                             place(from, across, high)},
                            colour,
                            vec3{-dy, dx, 0} * (side / length),
                            wall_warmth});
    };
    w.panels.push_back({{place(-4, -half, deck), place(length + 4, -half, deck),
                         place(length + 4, half, deck), place(-4, half, deck)},
                        tar,
                        {0, 0, 1},
                        wall_warmth + .06f});
    for (const float side : {-1.f, 1.f}) {
        wall(-4, length + 4, side * half, water - 1, deck + parapet, stone, side);
        wall(-4, length + 4, side * (half - .4f), deck, deck + parapet, stone, -side);
        for (float along = 4; along + arch < length - 2; along += arch + 1.6f)
            for (const float inset : {0.f, .7f})   // a round head, in two steps
                wall(along + inset * 1.4f, along + arch - inset * 1.4f, side * (half + .05f), water,
                     water + arch_rise + inset - .4f, dark, side);
    }
}

void build_hamlet(world& w, chance& c)
{
    const vec3 walls[] = {paint(.74f, .68f, .58f), paint(.60f, .44f, .36f), paint(.78f, .76f, .70f),
                          paint(.62f, .58f, .50f)};
    const vec3 roofs[] = {paint(.47f, .31f, .25f), paint(.40f, .40f, .42f), paint(.52f, .37f, .28f),
                          paint(.42f, .34f, .30f)};
    const point p = w.land.hamlet_at;
    build_church(w, {p.x + 62, p.y + 52}, .25f);
    add_trees(w, c, {p.x + 62, p.y + 62}, 9, 38);
    constexpr int cottages = 150;   // places tried
    std::vector<point> taken{{p.x + 62, p.y + 52}, {p.x + 74, p.y + 55}, {p.x + 48, p.y + 49}};
    for (int i = 0; i < cottages; ++i) {
        const float x = p.x + c.between(-150, 150);
        const float y = p.y + c.between(-80, 85);
        const float turned = c.between(-.35f, .35f);
        const float length = c.between(8, 14);
        const float width = c.between(6, 8);
        const float eaves = c.between(4.2f, 6);
        const float ridge = c.between(2.6f, 3.8f);
        const int wall = c.below(4);
        const int roof = c.below(4);
        const bool end_on = c.in(.35f);
        const float off = w.map.to_road(x, y);
        const bool by_the_road = off > 8.5f && off < 12.6f;
        bool free = by_the_road || c.in(.08f);
        if (off < 8.5f) free = false;
        if (w.land.river_width > 0 && w.map.to_river(x, y) < w.land.river_width / 2 + 14) free = false;
        for (const point& t : taken) free = free && std::hypot(t.x - x, t.y - y) > 19;
        if (!free) continue;
        taken.push_back({x, y});
        add_house(w, {{x, y},
                      turned + (end_on ? 1.57f : 0),
                      length,
                      width,
                      eaves,
                      ridge,
                      walls[wall],
                      roofs[roof],
                      true});
        if (c.in(.75f)) add_trees(w, c, {x, y + 4}, 3, 15);
        for (int k = 0; k < 7; ++k) {
            const float gx = x + c.between(-14, 14);
            const float gy = y + c.between(7, 15);
            if (w.map.to_road(gx, gy) > 5) add_tree(w, c, gx, gy, growth::bush, c.between(1, 2.4f), 1.3f);
        }
    }
}

}   // namespace

void build_houses(world& w, chance& c)
{
    for (const farm_plan& f : w.land.farms) build_farm(w, f, c);
    if (w.land.hamlet) build_hamlet(w, c);
    if (w.land.river_width > 0)
        for (const crossing& over : crossings(w)) build_bridge(w, over);
}

}   // namespace landscape
