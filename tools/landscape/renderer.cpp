#include "common/noise.h"
#include "common/parallel.h"
#include "picture.h"
#include "sky.h"

namespace tools {
namespace {

constexpr int fine = 2;                                // samples per pixel, in each direction
constexpr int strip_width = 128;                       // pixels
constexpr float first_step = 150, last_step = 26000;   // ranges of the ground that is drawn, metres

// One strip of the picture.
struct strip {
    const world& w;
    const view v;              // of the samples
    const grid<vec3>& above;   // the sky
    grid<pixel> samples;
};

struct step {
    float range, elevation;
    vec3 normal;
};

// Sets a sample to the ground between the steps `a` and `b`. `way`: the horizontal direction of its column.
void set_ground(strip& s, int x, int y, const step& a, const step& b, point way)
{
    const float e = s.v.elevation(real(y) + .5f);
    const float t = clamp01((e - a.elevation) / (b.elevation - a.elevation + 1e-9f));
    const float range = mix(a.range, b.range, t);
    const float across = range * s.v.pixel;
    const vec3 normal = mix(a.normal, b.normal, t);
    // The cosine of the angle between the line of sight and the normal.
    const float meets = std::max(.02f, -normal.x * way.x - normal.y * way.y - normal.z * e);
    pixel seen = cover(s.w.land, s.w.map,
                       {way * range, range, s.v.bearing(real(x) + .5f), e, normal, across,
                        std::min(across / meets, 40 * across)});
    if (seen.made_of != material::water) seen.light = haze_of(range)(seen.light);
    s.samples.at(x, y) = seen;
}

// Follows the ground away from the gunner. Fills the column from the bottom up with the ground that nothing
// nearer hides. Returns the row above which there is only sky.
int draw_ground(strip& s, int x)
{
    const terrain& ground = s.w.ground;
    const point way = polar(s.v.bearing(real(x) + .5f), 1);
    int filled = s.samples.height;   // from this row down
    step before{first_step, -2, {0, 0, 1}};
    for (float range = first_step; range < last_step && filled > 0; range += std::max(.12f, range * .0022f)) {
        const point p = way * range;
        const float z = ground.height(p);
        step now{range, std::atan(z / range), before.normal};
        const int reached = std::max(0, static_cast<int>(std::ceil(s.v.row(now.elevation) - .5f)));
        if (reached < filled) {
            now.normal = ground.normal(p, z, std::max(.4f, range * .002f));
            for (int y = filled - 1; y >= reached; --y) set_ground(s, x, y, before, now, way);
            filled = reached;
        }
        before = now;
    }
    return filled;
}

void draw_sky(strip& s, int x, int rows)
{
    const float bearing = s.v.bearing(real(x) + .5f);
    for (int y = 0; y < rows; ++y) {
        pixel& sample = s.samples.at(x, y);
        sample.light = sky_at(s.above, point{real(s.v.left + x) + .5f, real(y) + .5f} / fine);
        sample.warmth = sky_warmth(s.w.land, bearing, s.v.elevation(real(y) + .5f));
    }
}

struct corner {
    point at;
    float range;
};

// `paint`: a pixel without haze.
void draw_triangle(strip& s, const corner& a, const corner& b, const corner& c, const pixel& paint)
{
    const point ab = b.at - a.at, ac = c.at - a.at;
    const float area = cross(ab, ac);
    if (std::fabs(area) < 1e-4f) return;
    const auto [left, right] = std::minmax({a.at.x, b.at.x, c.at.x});
    const auto [top, bottom] = std::minmax({a.at.y, b.at.y, c.at.y});
    each_cell(s.samples, {left, top}, {right, bottom}, [&](int x, int y, pixel& sample) {
        const point p = point{real(x) + .5f, real(y) + .5f} - a.at;
        const float u = cross(p, ac) / area, v = cross(ab, p) / area;
        const float range = a.range + u * (b.range - a.range) + v * (c.range - a.range);
        if (u < 0 || v < 0 || u + v > 1 || range > sample.range + .01f) return;
        const float stained = .92f + .16f * scatter(s.v.left + x, y / 2, 5);
        sample = {haze_of(range)(paint.light * stained), paint.warmth, range, paint.made_of};
    });
}

void draw_panel(strip& s, const panel& p)
{
    const vec3 middle = (p.corner[0] + p.corner[2]) * .5f;
    if (dot(unit(middle), p.normal) > 0) return;   // a back face
    corner seen[4];
    for (int i = 0; i < 4; ++i) {
        const vec3 c = p.corner[i];
        const float range = std::hypot(c.x, c.y);
        seen[i] = {{s.v.column(std::atan2(c.x, c.y)), s.v.row(std::atan(c.z / range))}, range};
    }
    const country& land = s.w.land;
    const float sun =
        std::max(0.f, dot(p.normal, land.towards_sun)) * cloud_shadow(land, {middle.x, middle.y});
    const pixel paint{p.colour * (land.sunlight * sun + land.skylight * (.7f + .3f * p.normal.z)),
                      p.warmth + (land.night ? -.06f : .12f * sun - .05f), 0, material::building};
    draw_triangle(s, seen[0], seen[1], seen[2], paint);
    draw_triangle(s, seen[0], seen[2], seen[3], paint);
}

// Bilinear interpolation; u and v in pixels of the sprite.
leaf_pixel leaf_at(const grid<leaf_pixel>& s, float u, float v)
{
    const int left = floor_int(u), top = floor_int(v);
    leaf_pixel sum;
    for (int k = 0; k < 4; ++k) {
        const int x = left + k % 2, y = top + k / 2;
        if (!s.holds(x, y)) continue;
        const float share = (1 - std::fabs(u - real(x))) * (1 - std::fabs(v - real(y)));
        sum = sum + s.at(x, y) * share;
    }
    return sum;
}

const grid<leaf_pixel>& fitting_size(const sprite& s, float rows)
{
    std::size_t i = 0;
    for (float side = real(s[0].width) / rows; side > 1.6f && i + 1 < s.size(); side /= 2) ++i;
    return s[i];
}

void draw_plant(strip& s, const plant& p)
{
    const float range = length(p.at), middle = s.v.column(std::atan2(p.at.x, p.at.y));
    const float tall = p.height / range / s.v.pixel, wide = p.width / range / s.v.pixel;
    if (middle + wide < 0 || middle - wide > real(s.samples.width)) return;
    const float foot = s.v.row(std::atan(p.foot / range));
    const grid<leaf_pixel>& picture = fitting_size(s.w.sprites[index(p.sprite)], tall);
    const float side = real(picture.width);
    const float clouds = cloud_shadow(s.w.land, p.at);
    const vec3 colour = p.colour * (.42f + .58f * clouds);
    const haze air = haze_of(range);
    const bool low = is_low(p.sprite);
    const float cooler = low              ? p.warmer
                         : s.w.land.night ? .02f + .06f * s.w.land.snow
                                          : -.08f + .08f * (clouds - .7f);
    each_cell(s.samples, {middle - wide / 2, foot - tall}, {middle + wide / 2 + 1, foot + 1},
              [&](int x, int y, pixel& sample) {
                  // The ground at the plant's foot must not hide the plant.
                  if (range - .6f > sample.range + range * .002f) return;
                  const leaf_pixel l = leaf_at(picture, ((real(x) + .5f - middle) / wide + .5f) * side - .5f,
                                               ((real(y) + .5f - foot) / tall + 1) * side - .5f);
                  if (l.alpha < .02f) return;
                  const float alpha = std::min(1.f, l.alpha * 1.15f);
                  sample.warmth = mix(sample.warmth, l.warmth / l.alpha + cooler, alpha);
                  sample.light = mix(sample.light, air(l.light * (1 / l.alpha) * colour), alpha);
                  if (low) return;
                  if (alpha > .35f) sample.made_of = material::plant;
                  if (alpha > .5f) sample.range = std::min(sample.range, range);
              });
}

// The reflection at a sample of water. `bank` is the topmost row of water: above it is the far bank. Plants
// and buildings are reflected upside down. Elsewhere the water shows the dark edge of the bank and, below
// that edge, the sky.
vec3 reflected(const strip& s, int x, int y, int bank)
{
    constexpr float kept = .80f, edge = 6 * fine;   // share of the light; rows
    // Ripples shift the reflection by up to two rows.
    const int shift = static_cast<int>(2.5f * noise({real(s.v.left + x) / 9, real(y) / 1.7f}, 611));
    const pixel& other = s.samples.at(x, std::max(0, 2 * bank - y - 1 + shift));
    if (other.made_of == material::plant || other.made_of == material::building) return other.light * kept;
    const float down = -s.v.elevation(real(y) + .5f);
    const vec3 above = plain_sky(s.w.land, down * .55f) * .85f;
    return mix(s.samples.at(x, bank - 1).light * .6f, above, smoothstep(.1f, 1, real(y - bank) / edge));
}

void mirror(strip& s, int x)
{
    const country& land = s.w.land;
    const float bearing = s.v.bearing(real(x) + .5f);
    for (int y = 1, bank = 1; y < s.samples.height; ++y) {
        pixel& sample = s.samples.at(x, y);
        if (sample.made_of != material::water) {
            bank = y + 1;
            continue;
        }
        const float range = sample.range, down = -s.v.elevation(real(y) + .5f);
        // The flatter the line of sight, the more the water reflects.
        const float shine = .42f + .45f * std::pow(1 - std::min(1.f, down * 2), 3.f);
        const vec3 lit = sample.light * (.9f * cloud_shadow(land, polar(bearing, range)) + .1f);
        sample.light = haze_of(range)(mix(lit, reflected(s, x, y, bank), shine));
    }
}

void resolve(const strip& s, rendered& picture)
{
    constexpr float share = 1.f / (fine * fine);
    constexpr float air_warmth = .36f, air_depth = 7000;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < s.samples.width / fine; ++x) {
            pixel& out = picture.at(s.v.left / fine + x, y);
            for (int k = 0; k < fine * fine; ++k)
                out = out + s.samples.at(x * fine + k % fine, y * fine + k / fine) * share;
            if (out.made_of != material::sky)
                out.warmth = mix(air_warmth, out.warmth, std::exp(-std::min(out.range, 20000.f) / air_depth));
        }
}

}   // namespace

rendered render(const world& w, const view& v)
{
    rendered picture(v.width, v.height);
    const grid<vec3> above = sky_of(w.land, v);
    parallel_for((v.width + strip_width - 1) / strip_width, [&](int i) {
        const int first = i * strip_width, wide = std::min(v.width - first, strip_width);
        strip s{w,
                {v.width * fine, v.height * fine, v.pixel / fine, v.horizon * fine, first * fine},
                above,
                {wide * fine, v.height * fine}};
        // Ground and sky have no sharp vertical edges, so one column of samples per pixel is enough.
        for (int x = 0; x < s.samples.width; x += fine) draw_sky(s, x, draw_ground(s, x));
        each_cell(s.samples, [&](int x, int y, pixel& p) { p = s.samples.at(x - x % fine, y); });
        for (const panel& p : w.panels) draw_panel(s, p);
        for (const plant& p : w.plants) draw_plant(s, p);
        for (int x = 0; x < s.samples.width; ++x) mirror(s, x);
        resolve(s, picture);
    });
    return picture;
}

}   // namespace tools
