// Paints the explosion of a target: sixteen frames with alpha, four to a row, in one PNG picture.
//
// A cloud of puffs is thrown from a spot on the ground into the half space above it, slowed by the air,
// lifted by its heat and carried by a wind from the left; a ring of dust runs out along the ground. For each
// frame the cloud fills a block of cells. Billow noise that grows and rises with the cloud gives its edge
// lumps and creases; creases show the hot inside, and lumps have cooled to soot. Sun and sky light the cells,
// shaded by those between, and the eye looks through the block from the front, a little from above. Flash,
// burning pieces and the glow of the air are added to that.
//
// The sight draws a frame 17 to 110 pixels wide and shows it for a sixtieth of a second. So the flash is
// broad, fire is either bright or gone, and smoke is darker than any ground behind it.
//
// Usage: explosion FILE

#include <cstdio>
#include <numbers>

#include "common/noise.h"
#include "common/parallel.h"
#include "common/sample.h"
#include "common/save.h"

namespace tools {
namespace {

// Lengths are in sides of a frame, times in durations of the explosion.
constexpr int frames = 16, frames_in_row = 4;
constexpr int side = 128;   // pixels, and cells across and up
constexpr int depth = 88;   // cells from back to front
constexpr float cell_size = 1.f / side;
constexpr float pi = std::numbers::pi_v<float>;

// The sight puts the lower left corner of the frame on the target's, and the frame is a little larger: so the
// burst is left of the middle.
constexpr float burst_across = .44f, ground_line = .12f;
constexpr float look_down =
    .19f;   // how far down the picture a place moves for each length that it is nearer

// The cloud -------------------------------------------------------------------------------------------------

struct puff {
    vec3 thrown;          // how far it gets before the air has stopped it: right, up, towards the eye
    float young, grown;   // its first radius, and the increase
    float heat;           // 1 is a fire of medium heat
    float dust;           // 0 soot, 1 earth
};

std::vector<puff> cloud()
{
    constexpr int fire_puffs = 34, dust_puffs = 44;
    rng random(2);
    std::vector<puff> puffs;
    for (int i = 0; i < fire_puffs; ++i) {
        const float angle = random.between(0, pi), force = random.between(.1f, 1);
        const float towards = random.between(-.16f, .16f);
        const float young = random.between(.05f, .075f), grown = random.between(.03f, .10f);
        const float heat = random.between(1, 1.2f) - .45f * force;   // the core stays hot longest
        puffs.push_back({{.24f * force * std::cos(angle), .46f * force * std::sin(angle), towards},
                         young,
                         grown,
                         heat,
                         0});
    }
    for (int i = 0; i < dust_puffs; ++i) {
        const float angle = random.between(0, 2 * pi), force = random.between(.6f, 1);
        const float lift = random.between(.005f, .025f), grown = random.between(.025f, .065f);
        puffs.push_back(
            {{.34f * force * std::cos(angle), lift, .25f * force * std::sin(angle)}, .02f, grown, 0, 1});
    }
    return puffs;
}

// The share of its way that a thing has covered against the drag of the air.
constexpr float drag = 5;
float braked(float time)
{
    return 1 - std::exp(-drag * time);
}

// Where wind and heat have carried the middle of the cloud.
vec3 drift(float time)
{
    return {.16f * time * time, .10f * time + .14f * time * time, 0};
}

struct placed_puff {
    vec3 middle;
    float radius, heat, dust;
};

placed_puff placed(const puff& p, float time)
{
    const float carried = p.dust > 0 ? .1f : .35f + 1.6f * p.thrown.y;   // the wind is weaker near the ground
    return {vec3{0, .3f * p.young, 0} + p.thrown * braked(time) + drift(time) * carried,
            p.young * (.45f + .55f * braked(3 * time)) + p.grown * braked(time), p.heat, p.dust};
}

// Round hills between sharp valleys in four octaves, about -.5 to .5 and 0 in the mean.
float billows(vec3 p)
{
    float sum = 0, height = .75f;
    for (int octave = 0; octave < 4; ++octave) {
        sum += height * (std::abs(noise3(p.x, p.y, p.z)) - .33f);
        height *= .52f;
        // Turned as well as shrunk, so that the eye never looks along the lattice.
        p = vec3{7.3f, 1.9f, 4.1f} + vec3{.8f * p.x - .6f * p.z, p.y, .6f * p.x + .8f * p.z} * 2.07f;
    }
    return sum;
}

struct cell {
    float density = 0;   // 0 to 1
    float heat = 0, dust = 0;
};

cell filled(vec3 at, const std::vector<placed_puff>& puffs, float time)
{
    constexpr float reach = .4f;                          // of lumps beyond the rim of a puff, in its radii
    float closest = -1, weight = 0, heat = 0, dust = 0;   // 1 in the middle of a puff, 0 at its rim
    for (const placed_puff& p : puffs) {
        const float closeness = 1 - length(at - p.middle) / p.radius;
        if (closeness < -reach) continue;
        const float share = (closeness + reach) * (closeness + reach);
        closest = std::max(closest, closeness);
        weight += share;
        heat += share * p.heat;
        dust += share * p.dust;
    }
    if (weight <= 0 || at.y < 0) return {};
    // The noise is scaled and moved with the cloud, so that each lump keeps its shape between frames. Later
    // its amplitude grows and each puff shrinks.
    const vec3 lump = (at - drift(time)) * (7.5f / (.35f + .65f * braked(time)));
    const float torn =
        (.9f + .5f * smoothstep(.4f, 1, time)) * billows(lump + vec3{20, 20, 20 + 1.5f * time});
    const float solid = closest + torn - .25f * smoothstep(.55f, 1, time);
    const float sharpness = 5 - 2.5f * time;   // edges grow soft with age
    const float cooled = 1.45f * std::exp(-std::pow(time / .5f, 1.5f));
    return {clamp01(sharpness * solid) * (1 - .5f * dust / weight) * smoothstep(0, .03f, at.y),
            heat / weight * cooled * std::max(0.f, .60f + 1.3f * closest), dust / weight};
}

struct block {
    std::vector<cell> cells;

    static bool holds(int x, int y, int z)
    {
        return x >= 0 && y >= 0 && z >= 0 && x < side && y < side && z < depth;
    }
    const cell& at(int x, int y, int z) const { return cells[index((y * side + x) * depth + z)]; }
};

block filled_block(const std::vector<puff>& puffs, float time)
{
    std::vector<placed_puff> there;
    for (const puff& p : puffs) there.push_back(placed(p, time));
    block b;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            for (int z = 0; z < depth; ++z) {
                // The block is sheared so that the lines of sight run along its z axis.
                const float near = (real(z) + .5f - depth / 2.f) * cell_size;
                const vec3 at{(real(x) + .5f) * cell_size - burst_across,
                              (real(y) + .5f) * cell_size - ground_line + look_down * near, near};
                b.cells.push_back(filled(at, there, time));
            }
    return b;
}

// Light -----------------------------------------------------------------------------------------------------

// The share of a light that gets through to a cell; `step`, in cells, leads towards it.
float let_through(const block& b, int x, int y, int z, vec3 step, float thick)
{
    float stuff = 0;
    for (int i = 1; i <= 14; ++i) {
        const int to_x = x + static_cast<int>(std::lround(real(i) * step.x));
        const int to_y = y + static_cast<int>(std::lround(real(i) * step.y));
        const int to_z = z + static_cast<int>(std::lround(real(i) * step.z));
        if (!block::holds(to_x, to_y, to_z)) break;
        stuff += b.at(to_x, to_y, to_z).density;
    }
    return std::exp(-stuff * length(step) * cell_size * thick);
}

vec3 cell_colour(const block& b, int x, int y, int z, float thick)
{
    constexpr vec3 soot{.16f, .155f, .15f}, earth{.50f, .43f, .32f};
    constexpr vec3 sunlight{2.1f, 2, 1.8f}, skylight{.40f, .45f, .52f};
    const cell& c = b.at(x, y, z);
    // The sun is where it is over the shipped ranges. Light is scattered as well as absorbed, so it gets
    // deeper in than the eye does.
    const float sun = let_through(b, x, y, z, {-1.5f, 1.9f, 1}, .5f * thick);
    const float sky = let_through(b, x, y, z, {0, 2.4f, 0}, .3f * thick);
    const vec3 lit = mix(soot, earth, c.dust) * (sunlight * sun + skylight * mix(.3f, 1, sky));
    // From a dark red through orange and yellow to white.
    const vec3 glow{3.6f * std::pow(c.heat, 2.6f), 1.7f * std::pow(c.heat, 3.6f),
                    .4f * std::pow(c.heat, 6.f)};
    const vec3 light = lit + glow;   // strong light loses its colour before it saturates
    return {1 - std::exp(-light.x), 1 - std::exp(-light.y), 1 - std::exp(-light.z)};
}

constexpr sample covering(vec3 colour, float alpha)
{
    return sample{colour, 1} * alpha;
}

sample looked_through(const block& b, int x, int y, float time)
{
    const float thick =
        70 * std::pow(1 - .93f * smoothstep(.45f, 1, time), 1.5f);   // less and less as it thins
    sample seen;
    for (int z = depth - 1; z >= 0 && seen.alpha < .995f; --z)
        if (const float density = b.at(x, y, z).density; density > 0)
            seen = over(seen,
                        covering(cell_colour(b, x, y, z, thick), 1 - std::exp(-density * thick * cell_size)));
    return seen;
}

// Light on the ground in front of the burst reaches less far down the picture than up.
float light_distance(point at)
{
    return std::hypot(at.x, at.y < 0 ? 2.3f * at.y : at.y);
}

// The air around the fire, and what lies behind it, in its light.
sample halo(point at, float time)
{
    const float far = light_distance({at.x, at.y - .12f}) / .26f;
    return covering({1, .62f, .25f}, .6f * std::exp(-time / .22f - far * far));
}

sample flash(point at, int frame)
{
    constexpr float radius[] = {.13f, .32f, .26f, .17f}, strength[] = {1, 1, .85f, .4f};
    if (frame >= 4) return {};
    // Some directions get more of it than others.
    const float angle = std::atan2(at.y - .08f, at.x);
    const float ray = .995f + .375f * noise3(3.6f * std::cos(angle) + 9, 3.6f * std::sin(angle) + 9, 1);
    const float far = light_distance({at.x, at.y - .08f}) / (radius[frame] * ray);
    return covering(mix(vec3{1, 1, .96f}, vec3{1, .72f, .28f}, smoothstep(.5f, 1.6f, far)),
                    strength[frame] * std::exp(-far * far * far));
}

// Burning pieces, each with the streak that it draws during the exposure.
sample embers(point at, float time)
{
    constexpr int pieces = 22, dots = 12;
    constexpr float exposure = .05f, radius = 1.1f * cell_size;
    rng random(2);
    sample seen;
    for (int i = 0; i < pieces; ++i) {
        const float angle = random.between(.25f, pi - .25f), speed = random.between(2, 3.4f);
        const float strength = 1 - time / random.between(.25f, .5f);
        for (int k = 0; k < dots && strength > 0; ++k) {
            const float share = real(k) / dots, then = time - exposure * share, way = braked(then) / drag;
            const float x = .75f * speed * std::cos(angle) * way;
            const float y = .06f + speed * std::sin(angle) * way - 1.1f * then * then;
            const float far = std::hypot(at.x - x, at.y - y) / radius;
            if (then > 0 && y > 0 && far < 3)
                seen = over(seen,
                            covering({1, .80f, .42f}, .6f * strength * (1 - share) * std::exp(-far * far)));
        }
    }
    return seen;
}

void paint_frame(grid<sample>& sheet, int frame, const std::vector<puff>& puffs)
{
    const float time = (real(frame) + .4f) / frames;
    const block b = filled_block(puffs, time);
    const float left = 1 - .95f * smoothstep(.66f, 1, time);   // all thins, and is gone with the last frame
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const point at{(real(x) + .5f) * cell_size - burst_across,
                           (real(y) + .5f) * cell_size - ground_line};
            const sample fire = over(over(looked_through(b, x, y, time), halo(at, time)), embers(at, time));
            // Fades to nothing before the edge.
            const float inside = (real(std::min({x, y, side - 1 - x, side - 1 - y})) + .5f) * cell_size;
            sheet.at(frame % frames_in_row * side + x, (frame / frames_in_row + 1) * side - 1 - y) =
                over(flash(at, frame), fire) * (left * smoothstep(.05f, .11f, inside));
        }
}

}   // namespace
}   // namespace tools

int main(int count, char** arguments)
{
    using namespace tools;
    if (count != 2) {
        std::fprintf(stderr, "usage: explosion FILE\n");
        return 2;
    }
    grid<sample> sheet(frames_in_row * side, frames / frames_in_row * side);
    const std::vector<puff> puffs = cloud();
    parallel_for(frames, [&](int frame) { paint_frame(sheet, frame, puffs); });
    return save(arguments[1], png(image_of(sheet))) ? 0 : 1;
}
