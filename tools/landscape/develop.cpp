#include "develop.h"

#include "noise.h"
#include "workers.h"

namespace landscape {

namespace {

std::uint8_t byte_of(float v)
{
    return static_cast<std::uint8_t>(std::lround(clamp01(v) * 255));
}

// Rolls off the brightest light and gives the rest a little more contrast.
float toned(float light)
{
    const float v = light * 1.02f;
    const float shown = std::pow(clamp01(v / (1 + .22f * v) * 1.06f), 1 / 2.2f);
    return shown + .20f * (shown * shown * (3 - 2 * shown) - shown);
}

// Blurs a row or a column: `count` values, `apart` from one another.
void blur_line(const float* from, float* to, int count, std::ptrdiff_t apart)
{
    constexpr float sigma = 1.25f;   // pixels
    constexpr int reach = 3;
    float weight[reach + 1], sum = 0;
    for (int i = 0; i <= reach; ++i) {
        weight[i] = std::exp(-real(i * i) / (2 * sigma * sigma));
        sum += (i == 0 ? 1.f : 2.f) * weight[i];
    }
    for (int k = 0; k < count; ++k) {
        float v = 0;
        for (int i = -reach; i <= reach; ++i)
            v += weight[std::abs(i)] * from[std::clamp(k + i, 0, count - 1) * apart];
        to[k * apart] = v / sum;
    }
}

std::vector<float> blurred(const rendered& r)
{
    std::vector<float> across(r.warmth.size()), both(r.warmth.size());
    share_out(r.height, [&](int y) { blur_line(&r.warmth[r.at(0, y)], &across[r.at(0, y)], r.width, 1); });
    share_out(r.width, [&](int x) { blur_line(&across[index(x)], &both[index(x)], r.height, r.width); });
    return both;
}

// Each row of a scan has an offset that hangs together with the row before; every sixth detector is a touch
// brighter.
std::vector<float> row_offsets(int rows, chance& c)
{
    std::vector<float> offsets;
    float drift = 0;
    for (int y = 0; y < rows; ++y) {
        drift = .6f * drift + .005f * c.bell();
        const float own = .005f * c.bell();
        offsets.push_back(drift + own + (y % 6 == 0 ? .003f : 0));
    }
    return offsets;
}

}   // namespace

std::vector<std::uint8_t> photograph(const rendered& r)
{
    std::vector<std::uint8_t> bytes(r.light.size() * 3);
    share_out(r.height, [&](int y) {
        for (int x = 0; x < r.width; ++x) {
            // Grain of less than a step hides the steps in the sky.
            const float grain = (scatter(x, y, 1234) - .5f) * .008f;
            const vec3 light = r.light[r.at(x, y)];
            std::uint8_t* p = &bytes[3 * r.at(x, y)];
            p[0] = byte_of(toned(light.x) + grain);
            p[1] = byte_of(toned(light.y) + grain);
            p[2] = byte_of(toned(light.z) + grain);
        }
    });
    return bytes;
}

std::vector<std::uint8_t> thermal_image(const rendered& r)
{
    const std::vector<float> warmth = blurred(r);
    chance c(777);
    const std::vector<float> rows = row_offsets(r.height, c);
    std::vector<float> columns;
    columns.reserve(index(r.width));
    for (int x = 0; x < r.width; ++x) columns.push_back(.003f * c.bell());
    std::vector<std::uint8_t> bytes;
    for (int y = 0; y < r.height; ++y)
        for (int x = 0; x < r.width; ++x) {
            const std::size_t k = r.at(x, y);
            float v = .43f + (warmth[k] - .42f) * 1.25f;
            if (r.made_of[k] != material::sky) v = std::clamp(v, .20f, .60f);
            bytes.push_back(byte_of(v + rows[index(y)] + columns[index(x)] + .011f * c.bell()));
        }
    return bytes;
}

}   // namespace landscape
