// Draws the explosion and the fire of a target and the bursts of rounds on the ground. For each sight, each
// of them is a sprite sheet in a PNG file: sixteen frames with alpha, four in a row.
//
// Puffs of smoke are thrown upwards from a spot on the ground. The air slows them and heat lifts them. A wind
// from the left carries those of the explosion and the fire. Except in the fire, rings of dust spread along
// the ground. For each frame the puffs fill cells of a block (voxels). Billow noise that moves with the cloud
// makes lumps and creases on its surface: creases show the hot inside, lumps have cooled to soot. For the
// visual sight the cells are lit by the sun and the sky, and each shades the cells below it. The block is
// viewed from the front and a little from above. Flash, flying debris and the glow of the air are added to
// the picture where the scene has them.
//
// The sight shows a frame of the explosion for about 16 ms, one of the fire or a burst for about a tenth of a
// second. A frame is from six to some 300 pixels wide. To be recognisable even at six pixels, a flash is
// broad, fire is either bright or gone, and smoke is darker than the ground.
//
// Usage: explosion FOLDER [NAME]

#include <QDir>
#include <numbers>

#include "common/noise.h"
#include "common/parallel.h"
#include "common/sample.h"
#include "common/save.h"
#include "scenes.h"

namespace tools {
namespace {

constexpr int frames = 16, frames_in_row = 4;
constexpr float pi = std::numbers::pi_v<float>;
// How far down the picture a point moves for each unit that it is nearer to the eye.
constexpr float look_down = .19f;

// The cloud -------------------------------------------------------------------------------------------------

// In a sheet that loops, each puff starts once per loop. `born` sets the time of its start.
struct puff {
    vec3 start, thrown;
    float young, grown, heat, born;
    const puff_group* of;
};

std::vector<puff> cloud(const scene& s)
{
    rng random(2);
    const auto any = [&](limits l) { return .01f * random.between(l); };
    std::vector<puff> puffs;
    for (const puff_group& g : s.puffs)
        for (int i = 0; i < g.count; ++i) {
            const float angle = pi * any(g.angle), force = any(g.force), other = random.between(-1, 1);
            const float young = any(g.young), grown = any(g.grown), hottest = any(g.heat);
            const float aside = .01f * g.from_side * random.between(-1, 1), at = real(i) + random.unit();
            const vec3 thrown = g.along_ground ? vec3{std::cos(angle), .6f + .4f * other, std::sin(angle)}
                                               : vec3{std::cos(angle), std::sin(angle), other};
            const float heat = std::max(0.f, hottest - .01f * g.weakened * force), born = at / real(g.count);
            const vec3 start{aside, .3f * young, 0}, way = thrown * g.reach * (.01f * force);
            puffs.push_back({start, way, young, grown, heat, born, &g});
        }
    return puffs;
}

// The share of its path that a puff or a piece of debris has covered at `time`. The drag of the air slows it.
float braked(const scene& s, float time)
{
    return 1 - std::exp(-s.drag * time);
}

// How far wind and heat have carried the middle of the cloud.
vec3 drift(const scene& s, float time)
{
    return {s.drift.x * time * time, s.drift.z * time + s.drift.y * time * time, 0};
}

struct placed_puff {
    vec3 middle;
    float radius, heat, dust, solid, age;
};

placed_puff placed(const scene& s, const puff& p, float time)
{
    const puff_group& g = *p.of;
    // Wind and heat carry a puff farther that is thrown higher. Dust along the ground has its own lift.
    const float follows = s.loops ? .8f + 2.5f * p.thrown.y : .35f + 1.6f * p.thrown.y;
    const float carried = .01f * g.lift * (g.along_ground ? 1 : follows);
    const float cooled = 1.45f * std::exp(-std::pow(time / s.cooling, 1.5f));
    const float age = s.loops ? 100 * time / g.life : time;
    const float fresh = s.loops ? smoothstep(0, .1f, time) * (1 - smoothstep(.35f, 1, age)) : 1;
    const vec3 middle = p.start + p.thrown * braked(s, time) + drift(s, time) * carried;
    return {middle - vec3{0, .01f * g.fall * time * time, 0},
            p.young * (.45f + .55f * braked(s, 3 * time)) + p.grown * (s.loops ? age : braked(s, time)),
            p.heat * cooled,
            .01f * g.dust,
            .01f * g.solid * fresh,
            age};
}

std::vector<placed_puff> placed_puffs(const scene& s, const std::vector<puff>& puffs, float time)
{
    std::vector<placed_puff> there;
    for (const puff& p : puffs) {
        if (!s.loops) there.push_back(placed(s, p, time));
        for (float own = time + p.born - 1; s.loops && own < .01f * p.of->life; own += 1)
            if (own > 0) there.push_back(placed(s, p, own));
    }
    return there;
}

// Billow noise of five octaves: round hills between sharp valleys. Mostly between -.5 and .5, with a
// mean near 0.
float billows(vec3 p)
{
    float sum = 0, height = .75f;
    for (int octave = 0; octave < 5; ++octave) {
        // The coordinates are rotated, so that rows of the lattice aren't seen as stripes.
        p = {.8f * p.y + .6f * p.z, -.8f * p.x + .36f * p.y - .48f * p.z,
             -.6f * p.x - .48f * p.y + .64f * p.z};
        sum += height * (std::abs(noise3(p)) - .33f);
        height *= .54f;
        p = vec3{7.3f, 1.9f, 4.1f} + p * 2.07f;
    }
    return sum;
}

// The noise at a place. It moves with the cloud, and unless the sheet loops it also grows with the cloud, so
// that a lump changes little from frame to frame.
float lumps(const scene& s, vec3 at, float time)
{
    constexpr vec3 somewhere{41.7f, 12.2f, 8.6f};
    if (!s.loops)
        return billows((at - drift(s, time)) * (s.lumps / (.35f + .65f * braked(s, time))) + somewhere +
                       vec3{0, 0, 1.5f * time});
    // A cross-fade of two rising patterns. At the end of the loop the second pattern looks like the first at
    // the start.
    const auto risen = [&](float by) {
        return billows((at - vec3{0, s.drift.z, .1f} * by) * vec3{s.lumps, .75f * s.lumps, s.lumps} +
                       somewhere);
    };
    return mix(risen(time), risen(time - 1), time) / std::hypot(1 - time, time);
}

struct cell {
    float density = 0;   // 0 to 1
    float heat = 0, dust = 0;
    float before_sun = 0, before_sky = 0;   // the density that sunlight and skylight have passed through
    float closest = -1;   // greatest closeness to a puff: 1 in its middle, 0 at its rim, less for a thin puff
    float weight = 0, merged = 0, solid = 0, age = 0;   // sums over the puffs that reach the cell
};

struct block {
    int side, depth;   // cells across and up; cells from back to front
    float cell_size;
    std::vector<cell> cells;

    bool holds(int x, int y, int z) const
    {
        return x >= 0 && y >= 0 && z >= 0 && x < side && y < side && z < depth;
    }
    cell& at(int x, int y, int z) { return cells[index((y * side + x) * depth + z)]; }
    float near(int z) const { return (real(z) + .5f - real(depth) / 2) * cell_size; }
};

// The place of a cell, from the foot. The block is sheared so that the lines of sight run along its z
// axis.
vec3 place(const scene& s, const block& b, int x, int y, int z)
{
    return {(real(x) + .5f) * b.cell_size - s.foot.x,
            (real(y) + .5f) * b.cell_size - s.foot.y + look_down * b.near(z), b.near(z)};
}

constexpr float reach = .4f;   // how far lumps go beyond the rim of a puff, in radii

// Adds a puff to all cells within its reach.
void add_puff(const scene& s, block& b, const placed_puff& p)
{
    const float out = p.radius * (1 + reach);
    const auto first = [&](float middle) { return std::max(0, floor_int((middle - out) / b.cell_size)); };
    const auto last = [&](float middle, int count) {
        return std::min(count - 1, floor_int((middle + out) / b.cell_size));
    };
    const float across = p.middle.x + s.foot.x, near = p.middle.z + real(b.depth) / 2 * b.cell_size;
    for (int z = first(near); z <= last(near, b.depth); ++z) {
        const float up = p.middle.y + s.foot.y - look_down * b.near(z);
        for (int y = first(up); y <= last(up, b.side); ++y)
            for (int x = first(across); x <= last(across, b.side); ++x) {
                const float closeness = 1 - length(place(s, b, x, y, z) - p.middle) / p.radius;
                if (closeness < -reach) continue;
                cell& c = b.at(x, y, z);
                const float share = (closeness + reach) * (closeness + reach) * p.solid;
                c.closest = std::max(c.closest, closeness - .5f * (1 - p.solid));
                c.weight += share;
                c.merged += share * share;
                c.solid += share * p.solid;
                c.heat += share * p.heat;
                c.dust += share * p.dust;
                c.age += share * p.age;
            }
    }
}

// Applies the noise to a cell and computes its means. With age, the amplitude of the noise grows, the
// rims of the puffs move inwards and, for the visual sight, become softer.
void give_lumps(const scene& s, cell& c, vec3 at, float time)
{
    if (c.weight <= 0) return;
    const float age = c.age / c.weight, noise = lumps(s, at, time);
    // On a thermal sight puffs merge.
    if (s.by_heat) c.closest = std::min(.8f, std::pow(c.merged, .25f) - reach);
    const float torn = ((s.by_heat ? 1.6f : .9f) + (s.loops ? 1.1f : .5f) * smoothstep(.4f, 1, age)) * noise;
    const float solid = c.closest + torn - .25f * smoothstep(.55f, 1, age);
    c.dust /= c.weight;
    const float edge = s.loops ? 5 - 4 * std::min(1.f, age) : 5 - 2.5f * age;
    const float filled = s.by_heat ? smoothstep(-.3f, .9f, solid) : clamp01(edge * solid);
    const float above = s.by_heat ? smoothstep(-.04f, .07f, at.y + .15f * noise - .8f * at.x * at.x)
                                  : smoothstep(0, .03f, at.y);
    c.density = filled * (1 - .5f * c.dust) * c.solid / c.weight * above;
    c.heat *= std::max(0.f, s.by_heat ? .35f + 1.6f * c.closest - .3f * noise
                            : s.loops ? 1 + .3f * c.closest - 1.1f * noise
                                      : .60f + 1.3f * c.closest - .5f * noise) /
              c.weight;
    // Smoke is less opaque to a thermal sight than fire.
    if (s.by_heat) c.density *= .45f + .55f * std::min(1.f, c.heat);
}

// Sums the density along the path of the light, from the top row of cells down. `aside` is how far the light
// moves along x and z for each cell down.
void let_light_in(block& b, float cell::*met, point aside)
{
    const float way = b.cell_size * length({aside.x, 1, aside.y});
    const int dx = floor_int(-aside.x), dz = floor_int(-aside.y);
    const float share_x = -aside.x - real(dx), share_z = -aside.y - real(dz);
    for (int y = b.side - 2; y >= 0; --y)
        for (int x = 0; x < b.side; ++x)
            for (int z = 0; z < b.depth; ++z) {
                const auto above = [&](int right, int near) {
                    if (!b.holds(x + dx + right, y + 1, z + dz + near)) return 0.f;
                    const cell& c = b.at(x + dx + right, y + 1, z + dz + near);
                    return c.*met + c.density * way;
                };
                b.at(x, y, z).*met = mix(mix(above(0, 0), above(1, 0), share_x),
                                         mix(above(0, 1), above(1, 1), share_x), share_z);
            }
}

block filled_block(const scene& s, float time)
{
    block b{s.side, s.side * 11 / 16, 1 / real(s.side), {}};
    b.cells.resize(index(b.side * b.side * b.depth));
    for (const placed_puff& p : placed_puffs(s, cloud(s), time)) add_puff(s, b, p);
    for (int y = 0; y < b.side; ++y)
        for (int x = 0; x < b.side; ++x)
            for (int z = 0; z < b.depth; ++z) give_lumps(s, b.at(x, y, z), place(s, b, x, y, z), time);
    if (s.by_heat) return b;
    // As on the shipped ranges, the sun is behind the viewer, to the upper left.
    let_light_in(b, &cell::before_sun, {.79f, -.53f});
    let_light_in(b, &cell::before_sky, {-.2f, -.2f});
    return b;
}

// Light -----------------------------------------------------------------------------------------------------

vec3 cell_colour(const scene& s, const cell& c, float thick)
{
    constexpr vec3 soot{.16f, .155f, .15f}, earth{.50f, .43f, .32f};
    constexpr vec3 sunlight{2.1f, 2, 1.8f}, skylight{.40f, .45f, .52f};
    const auto shown = [](vec3 light) {   // strong light turns white before it reaches full brightness
        return vec3{1 - std::exp(-light.x), 1 - std::exp(-light.y), 1 - std::exp(-light.z)};
    };
    // Dust that has cooled is as warm as the ground; the smoke of a fire is warmer.
    if (s.by_heat) return shown(vec3{1, 1, 1} * ((s.loops ? .95f : .55f) + 1.9f * std::pow(c.heat, 1.4f)));
    // Less than the whole density counts (.5, .3): scattered light isn't lost, it goes deeper into the cloud.
    const float sun = std::exp(-.5f * thick * c.before_sun), sky = std::exp(-.3f * thick * c.before_sky);
    const vec3 lit = mix(soot, earth, c.dust) * (sunlight * sun + skylight * mix(.3f, 1.f, sky));
    // With more heat the glow goes from dark red through orange and yellow to white.
    const float heat = s.loops ? std::min(1.1f, c.heat) : c.heat;   // flames aren't white
    const vec3 glow{3.6f * std::pow(heat, 2.6f), 1.7f * std::pow(heat, 3.6f), .4f * std::pow(heat, 6.f)};
    return shown(lit + glow);
}

constexpr sample covering(vec3 colour, float alpha)
{
    return sample{colour, 1} * alpha;
}

sample looked_through(const scene& s, block& b, int x, int y, float time)
{
    const float thick = s.thick * (1 - (1 - s.left) * smoothstep(s.thins.low, s.thins.high, time));
    sample seen;
    for (int z = b.depth - 1; z >= 0 && seen.alpha < .995f; --z)
        if (const cell& c = b.at(x, y, z); c.density > 0)
            seen = over(seen,
                        covering(cell_colour(s, c, thick), 1 - std::exp(-c.density * thick * b.cell_size)));
    return seen;
}

// Distance from a light. The light reaches less far downwards in the picture, over the ground in front of it.
float light_distance(point at)
{
    return std::hypot(at.x, at.y < 0 ? 3.5f * at.y : at.y);
}

// The glow of the air and the ground around the flames.
sample halo(const scene& s, point at, float time)
{
    const float far = light_distance({at.x, at.y - .12f}) / .26f;
    const float fades = s.loops ? 1 : std::exp(-time / (.44f * s.cooling));
    const vec3 colour = s.by_heat ? vec3{1, 1, 1} : vec3{1, .62f, .25f};
    return covering(colour, s.halo * fades * std::exp(-far * far));
}

sample flash(const scene& s, point at, int frame)
{
    constexpr float radius[] = {.13f, .32f, .26f, .17f}, strength[] = {1, 1, .85f, .4f};
    const int step = frame + s.flash_from;
    if (step >= 4 || s.flash == 0) return {};
    // The flash reaches farther in some directions.
    const point from{at.x / s.flash, at.y / s.flash - .08f};
    const float angle = std::atan2(from.y, from.x);
    const float ray = .995f + .375f * noise3({3.6f * std::cos(angle) + 9, 3.6f * std::sin(angle) + 9, 1});
    const float far = light_distance(from) / (radius[step] * ray);
    const vec3 rim = s.by_heat ? vec3{.9f, .9f, .9f} : vec3{1, .72f, .28f};
    return covering(mix(s.by_heat ? vec3{1, 1, 1} : vec3{1, 1, .96f}, rim, smoothstep(.5f, 1.6f, far)),
                    strength[step] * std::exp(-far * far * far));
}

// Draws a soft dot over the picture.
void add_dot(const scene& s, grid<sample>& picture, point at, float radius, sample what)
{
    const point middle = point{at.x + s.foot.x, 1 - at.y - s.foot.y} * real(s.side);
    const float r = radius * real(s.side);
    each_cell(picture, middle - point{3, 3} * r, middle + point{3, 3} * r, [&](int i, int j, sample& p) {
        const float far = length(point{real(i) + .5f, real(j) + .5f} - middle) / r;
        p = over(what * std::exp(-far * far), p);
    });
}

void add_pieces(const scene& s, grid<sample>& picture, float time)
{
    constexpr int dots = 12;
    constexpr float exposure = .05f;
    rng random(2);
    for (const piece_group& g : s.pieces)
        for (int i = 0; i < g.count; ++i) {
            const float angle = pi * random.between(g.angle), speed = random.between(g.speed);
            const float strength = 1 - time / random.between(g.life);
            const float radius = g.radius * random.between(.5f, 1.3f);
            for (int k = 0; k < dots && strength > 0; ++k) {
                const float share = real(k) / dots, then = time - exposure * share;
                const float way = braked(s, then) / s.drag;
                const point at{.75f * speed * std::cos(angle) * way,
                               .02f + speed * std::sin(angle) * way - g.fall * then * then};
                if (then > 0 && at.y > 0)
                    add_dot(s, picture, at, radius,
                            covering(g.colour, .6f * std::sqrt(strength) * (1 - share)));
            }
        }
}

// Frames ----------------------------------------------------------------------------------------------------

grid<sample> painted(const scene& s, int frame)
{
    const float time = (real(frame) + .4f) / frames;
    block b = filled_block(s, time);
    // A sheet that doesn't loop fades out towards its last frame.
    const float left = s.loops ? 1 : 1 - smoothstep(.65f, 1.03f, time);
    grid<sample> picture(s.side, s.side);
    const auto place_of = [&](int x, int y) {
        return point{(real(x) + .5f) * b.cell_size - s.foot.x,
                     (real(s.side - y) - .5f) * b.cell_size - s.foot.y};
    };
    each_cell(picture, [&](int x, int y, sample& p) {
        p = over(looked_through(s, b, x, s.side - 1 - y, time), halo(s, place_of(x, y), time));
    });
    add_pieces(s, picture, time);
    each_cell(picture, [&](int x, int y, sample& p) {
        // Fades out before the edges of the frame; at the lower edge only below the foot.
        const float aside = (real(std::min({x, y, s.side - 1 - x})) + .5f) * b.cell_size;
        const float below = (real(s.side - 1 - y) + .5f) * b.cell_size;
        const float inside = smoothstep(.02f, .11f, aside) * smoothstep(0, .7f * s.foot.y, below);
        p = over(flash(s, place_of(x, y), frame), p) * (left * inside);
    });
    if (!s.by_heat) return picture;
    return blurred(picture, .012f * real(s.side), floor_int(.03f * real(s.side)));
}

void make(const scene& s, const QDir& folder)
{
    grid<sample> sheet(frames_in_row * s.side, frames / frames_in_row * s.side);
    parallel_for(frames, [&](int frame) {
        const grid<sample> picture = painted(s, frame);
        each_cell(picture, [&](int x, int y, const sample& p) {
            sheet.at(frame % frames_in_row * s.side + x, frame / frames_in_row * s.side + y) = p;
        });
    });
    constexpr int step = 5;   // of the levels: too small to be seen, and makes the file much smaller
    save(folder.filePath(QString(s.name) + ".png"), encoded(image_of(sheet, step), "png"));
}

}   // namespace
}   // namespace tools

int main(int count, char** arguments)
{
    using namespace tools;
    if (count != 2 && count != 3) fail("usage: explosion FOLDER [NAME]");
    bool made = false;
    for (const scene& s : scenes())
        if (count == 2 || QString(arguments[2]) == s.name) {
            make(s, QDir(arguments[1]));
            made = true;
        }
    if (!made) fail(QString("there is no sheet named ") + arguments[2]);
}
