#include "develop.h"

#include "common/noise.h"

namespace tools {
namespace {

std::uint8_t byte_of(float v)
{
    return static_cast<std::uint8_t>(std::lround(clamp01(v) * 255));
}

// Compresses the highlights and gives the rest a little more contrast.
float toned(float light)
{
    const float v = light * 1.02f;
    const float shown = std::pow(clamp01(v / (1 + .22f * v) * 1.06f), 1 / 2.2f);
    return shown + .20f * (shown * shown * (3 - 2 * shown) - shown);
}

// The offset of each scan line, correlated with the line before; every sixth detector is a little brighter.
std::vector<float> row_offsets(int rows, rng& random)
{
    std::vector<float> offsets;
    float drift = 0;
    for (int y = 0; y < rows; ++y) {
        drift = .6f * drift + .005f * random.normal();
        const float own = .005f * random.normal();
        offsets.push_back(drift + own + (y % 6 == 0 ? .003f : 0));
    }
    return offsets;
}

}   // namespace

QImage photograph(const rendered& r)
{
    QImage picture(r.width, r.height, QImage::Format_RGB888);
    for (int y = 0; y < r.height; ++y) {
        std::uint8_t* p = picture.scanLine(y);
        for (int x = 0; x < r.width; ++x) {
            // Grain of less than a step hides the banding of the sky.
            const float grain = (scatter(x, y, 1234) - .5f) * .008f;
            const vec3 light = r.at(x, y).light;
            for (const float v : {light.x, light.y, light.z}) *p++ = byte_of(toned(v) + grain);
        }
    }
    return picture;
}

QImage thermal_image(const rendered& r)
{
    grid<float> warmth(r.width, r.height);
    for (std::size_t i = 0; i < r.cells.size(); ++i) warmth.cells[i] = r.cells[i].warmth;
    warmth = blurred(warmth, 1.25f, 3);
    rng random(777);
    const std::vector<float> rows = row_offsets(r.height, random);
    std::vector<float> columns;
    for (int x = 0; x < r.width; ++x) columns.push_back(.003f * random.normal());
    QImage picture(r.width, r.height, QImage::Format_Grayscale8);
    for (int y = 0; y < r.height; ++y) {
        std::uint8_t* p = picture.scanLine(y);
        for (int x = 0; x < r.width; ++x) {
            float v = .43f + (warmth.at(x, y) - .42f) * 1.25f;
            if (r.at(x, y).made_of != material::sky) v = std::clamp(v, .20f, .60f);
            *p++ = byte_of(v + rows[index(y)] + columns[index(x)] + .011f * random.normal());
        }
    }
    return picture;
}

}   // namespace tools
