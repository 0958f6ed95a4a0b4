#include "renderer.h"

#include "light.h"
#include "workers.h"

namespace landscape {

namespace {

constexpr int fine = 2;                                // samples to a pixel, each way
constexpr int strip_width = 128;                       // pixels
constexpr float nowhere = 1e9f;                        // range of the sky
constexpr float first_step = 150, last_step = 26000;   // of the march over the ground, metres

// The samples of one strip.
struct strip {
    const world& w;
    const view& v;
    const sky* above;    // none in a thermal picture
    int first;           // column of the picture
    int columns, rows;   // samples
    std::vector<vec3> light;
    std::vector<float> warmth, range;
    std::vector<material> made_of;

    strip(const world& world, const view& view, const sky* s, int first_column)
        : w(world),
          v(view),
          above(s),
          first(first_column),
          columns((std::min(view.width, first_column + strip_width) - first_column) * fine),
          rows(view.height * fine),
          light(count()),
          warmth(count()),
          range(count(), nowhere),
          made_of(count(), material::sky)
    {
    }
    std::size_t count() const { return index(columns) * index(rows); }
    std::size_t at(int x, int y) const { return index(y) * index(columns) + index(x); }
    float pixel() const { return v.pixel / fine; }
    float bearing(float x) const { return v.bearing(real(first) + x / fine); }
    float elevation(float y) const { return v.elevation(y / fine); }
    float column(float bearing) const { return (v.column(bearing) - real(first)) * fine; }
    float row(float elevation) const { return v.row(elevation) * fine; }
};

struct step {
    float range, elevation;
    vec3 normal;
};

void set_ground(strip& s, int x, int y, const step& a, const step& b, float sine, float cosine)
{
    const float e = s.elevation(real(y) + .5f);
    const float t = clamp01((e - a.elevation) / (b.elevation - a.elevation + 1e-9f));
    const float range = mix(a.range, b.range, t);
    const float across = range * s.pixel();
    const vec3 normal = mix(a.normal, b.normal, t);
    // How steeply the line of sight meets the ground.
    const float meets = std::max(.02f, -normal.x * sine - normal.y * cosine - normal.z * e);
    const ground_spot spot{range * sine, range * cosine, range,
                           normal,       across,         std::min(across / meets, 40 * across)};
    const surface c = cover(s.w.land, s.w.map, spot);
    const std::size_t k = s.at(x, y);
    s.range[k] = range;
    s.made_of[k] = c.made_of;
    s.warmth[k] = c.warmth;
    s.light[k] = c.made_of == material::water ? c.light : through_air(c.light, range);
}

// Marches away from the gunner and fills the column from the bottom up with whatever rises above what was
// nearer. Gives the row above which there is only sky.
int draw_ground(strip& s, int x)
{
    const terrain& ground = s.w.ground;
    const float bearing = s.bearing(real(x) + .5f), sine = std::sin(bearing), cosine = std::cos(bearing);
    int filled = s.rows;   // rows from here on are done
    float highest = -2;
    step before{first_step, -2, {0, 0, 1}};
    for (float range = first_step; range < last_step && filled > 0; range += std::max(.12f, range * .0022f)) {
        const float px = range * sine, py = range * cosine, z = ground.height(px, py);
        step now{range, std::atan(z / range), before.normal};
        const int reached = std::max(0, static_cast<int>(std::ceil(s.row(now.elevation) - .5f)));
        if (now.elevation > highest) {
            highest = now.elevation;
            if (reached < filled) {
                now.normal = ground.normal(px, py, z, std::max(.4f, range * .002f));
                for (int y = filled - 1; y >= reached; --y) set_ground(s, x, y, before, now, sine, cosine);
                filled = reached;
            }
        }
        before = now;
    }
    return filled;
}

void draw_sky(strip& s, int x, int rows)
{
    const float bearing = s.bearing(real(x) + .5f);
    for (int y = 0; y < rows; ++y) {
        if (s.above != nullptr)
            s.light[s.at(x, y)] = s.above->at(real(s.first) + (real(x) + .5f) / fine, (real(y) + .5f) / fine);
        else
            s.warmth[s.at(x, y)] = sky_warmth(s.w.land, bearing, s.elevation(real(y) + .5f));
    }
}

struct corner {
    float x, y, range;
};

struct painted_panel {
    vec3 light;
    float warmth;
};

void draw_triangle(strip& s, const corner& a, const corner& b, const corner& c, const painted_panel& paint)
{
    const float area = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
    if (std::fabs(area) < 1e-4f) return;
    const int left = std::max(0, whole(std::min({a.x, b.x, c.x})));
    const int right = std::min(s.columns - 1, whole(std::max({a.x, b.x, c.x})));
    const int top = std::max(0, whole(std::min({a.y, b.y, c.y})));
    const int bottom = std::min(s.rows - 1, whole(std::max({a.y, b.y, c.y})));
    for (int y = top; y <= bottom; ++y)
        for (int x = left; x <= right; ++x) {
            const float px = real(x) + .5f - a.x, py = real(y) + .5f - a.y;
            const float u = (px * (c.y - a.y) - (c.x - a.x) * py) / area;
            const float v = ((b.x - a.x) * py - px * (b.y - a.y)) / area;
            if (u < 0 || v < 0 || u + v > 1) continue;
            const float range = a.range + u * (b.range - a.range) + v * (c.range - a.range);
            const std::size_t k = s.at(x, y);
            if (range > s.range[k] + .01f) continue;
            const float stained = .92f + .16f * scatter(s.first * fine + x, y / 2, 5);
            s.range[k] = range;
            s.made_of[k] = material::building;
            s.warmth[k] = paint.warmth;
            s.light[k] = through_air(paint.light * stained, range);
        }
}

void draw_panel(strip& s, const panel& p)
{
    const vec3 middle = (p.corner[0] + p.corner[2]) * .5f;
    if (dot(unit(middle), p.normal) > 0) return;   // turned away
    corner seen[4];
    bool inside = false;
    for (int i = 0; i < 4; ++i) {
        const vec3 c = p.corner[i];
        const float range = std::hypot(c.x, c.y);
        seen[i] = {s.column(std::atan2(c.x, c.y)), s.row(std::atan(c.z / range)), range};
        inside = inside || (seen[i].x > -200 && seen[i].x < real(s.columns) + 200);
    }
    if (!inside) return;
    const country& land = s.w.land;
    const float sun = std::max(0.f, dot(p.normal, land.towards_sun)) * cloud_shadow(land, middle.x, middle.y);
    const painted_panel paint{p.colour * (land.sunlight * sun + land.skylight * (.7f + .3f * p.normal.z)),
                              p.warmth + (land.night ? -.06f : .12f * sun - .05f)};
    draw_triangle(s, seen[0], seen[1], seen[2], paint);
    draw_triangle(s, seen[0], seen[2], seen[3], paint);
}

// Between the pixels of a sprite; u and v in its pixels.
leaf_pixel leaf_at(const sprite_size& s, float u, float v)
{
    const int left = whole(u), top = whole(v);
    leaf_pixel sum;
    for (int k = 0; k < 4; ++k) {
        const int x = left + k % 2, y = top + k / 2;
        if (x < 0 || y < 0 || x >= s.side || y >= s.side) continue;
        const float share = (1 - std::fabs(u - real(x))) * (1 - std::fabs(v - real(y)));
        const leaf_pixel& p = s.pixels[index(y) * index(s.side) + index(x)];
        sum.light = sum.light + p.light * share;
        sum.alpha += p.alpha * share;
        sum.warmth += p.warmth * share;
    }
    return sum;
}

const sprite_size& fitting_size(const sprite& s, float rows)
{
    std::size_t i = 0;
    for (float side = sprite_side / rows; side > 1.6f && i + 1 < s.sizes.size(); side /= 2) ++i;
    return s.sizes[i];
}

void draw_plant(strip& s, const plant& p)
{
    const float tall = p.height / p.range / s.pixel(), wide = p.width / p.range / s.pixel();
    const float middle = s.column(p.bearing), foot = s.row(std::atan(p.foot / p.range));
    if (middle + wide < 0 || middle - wide > real(s.columns) || foot < -2 || foot - tall > real(s.rows))
        return;
    const sprite_size& picture = fitting_size(s.w.sprites[index(p.sprite)], tall);
    const float side = real(picture.side);
    const float clouds = cloud_shadow(s.w.land, p.x, p.y);
    const vec3 colour = p.colour * (.42f + .58f * clouds);
    const float nearer = p.range - .6f, slack = p.range * .002f;   // its own foot doesn't hide it
    const float cooler = s.w.land.night ? .02f : -.08f + .08f * (clouds - .7f);
    const int left = std::max(0, whole(middle - wide / 2)),
              right = std::min(s.columns - 1, whole(middle + wide / 2) + 1);
    const int top = std::max(0, whole(foot - tall)), bottom = std::min(s.rows - 1, whole(foot) + 1);
    for (int y = top; y <= bottom; ++y)
        for (int x = left; x <= right; ++x) {
            const std::size_t k = s.at(x, y);
            if (nearer > s.range[k] + slack) continue;
            const leaf_pixel l = leaf_at(picture, ((real(x) + .5f - middle) / wide + .5f) * side - .5f,
                                         ((real(y) + .5f - foot) / tall + 1) * side - .5f);
            if (l.alpha < .02f) continue;
            const float alpha = std::min(1.f, l.alpha * 1.15f);
            s.warmth[k] = mix(s.warmth[k], l.warmth / l.alpha + cooler, alpha);
            s.light[k] = mix(s.light[k], through_air(l.light * (1 / l.alpha) * colour, p.range), alpha);
            if (alpha > .35f) s.made_of[k] = material::plant;
            if (alpha > .5f) s.range[k] = std::min(s.range[k], p.range);
        }
}

// Still water shows what stands on its far bank upside down, and the sky above that.
void mirror(strip& s, int x)
{
    const country& land = s.w.land;
    for (int y = 1; y < s.rows; ++y) {
        if (s.made_of[s.at(x, y)] != material::water) continue;
        const int bank = y;
        for (; y < s.rows && s.made_of[s.at(x, y)] == material::water; ++y) {
            const std::size_t k = s.at(x, y);
            const float down = -s.elevation(real(y) + .5f);
            // A ripple shifts what is seen by a row or two.
            const int shift =
                static_cast<int>(2.5f * noise(real(s.first * fine + x) / 9, real(y) / 1.7f, 611));
            const int from = std::max(0, 2 * bank - y - 1 + shift);
            const std::size_t other = s.at(x, from);
            const bool bank_shown =
                s.made_of[other] == material::plant || s.made_of[other] == material::building;
            const float off = real(y - bank) / (6 * fine);
            vec3 seen = sky::plain(land, down * .55f) * .85f;
            if (bank_shown)
                seen = s.light[other] * .80f;
            else if (off < 1)
                seen = mix(s.light[s.at(x, bank - 1)] * .6f, seen, smooth(.1f, 1, off));
            const float shine = .42f + .45f * std::pow(1 - std::min(1.f, down * 2), 3.f);
            const float light = land.night ? 1 : cloud_shadow(land, 0, s.range[k]);
            s.light[k] = through_air(mix(s.light[k] * (.9f * light + .1f), seen, shine), s.range[k]);
        }
    }
}

void resolve(const strip& s, rendered& picture)
{
    const bool thermal = s.above == nullptr;
    constexpr float share = 1.f / (fine * fine);
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < s.columns / fine; ++x) {
            const std::size_t out = picture.at(s.first + x, y);
            vec3 light;
            float warmth = 0;
            auto made_of = material::sky;
            for (int k = 0; k < fine * fine; ++k) {
                const std::size_t in = s.at(x * fine + k % fine, y * fine + k / fine);
                light = light + s.light[in] * share;
                warmth += s.warmth[in] * share;
                made_of = std::max(made_of, s.made_of[in]);
            }
            const float range = s.range[s.at(x * fine, y * fine + fine - 1)];
            picture.range[out] = range < nowhere ? range : 0;
            picture.made_of[out] = made_of;
            if (thermal) {
                constexpr float air_warmth = .36f, air_depth = 7000;
                picture.warmth[out] =
                    made_of == material::sky
                        ? warmth
                        : mix(air_warmth, warmth, std::exp(-std::min(range, 20000.f) / air_depth));
            } else {
                picture.light[out] = light;
            }
        }
}

}   // namespace

rendered render(const world& w, const view& v)
{
    const bool thermal = w.land.sight == vorn::sight_kind::thermal;
    const std::size_t count = index(v.width) * index(v.height);
    rendered picture{v.width, v.height, {}, {}, std::vector<float>(count), std::vector<material>(count)};
    (thermal ? picture.warmth.resize(count) : picture.light.resize(count));
    std::vector<sky> skies;
    if (!thermal) skies.emplace_back(w.land, v);
    const int strips = (v.width + strip_width - 1) / strip_width;
    share_out(strips, [&](int i) {
        strip s(w, v, thermal ? nullptr : &skies[0], i * strip_width);
        for (int x = 0; x < s.columns; ++x) draw_sky(s, x, draw_ground(s, x));
        for (const panel& p : w.panels) draw_panel(s, p);
        for (const plant& p : w.plants) draw_plant(s, p);
        if (w.land.river_width > 0 && !thermal)
            for (int x = 0; x < s.columns; ++x) mirror(s, x);
        resolve(s, picture);
    });
    return picture;
}

}   // namespace landscape
