#include "picture.h"

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
    return shown + .45f * (shown * shown * (3 - 2 * shown) - shown);
}

// The tone of a light from a table: from 0 to 4, in steps of 1/2048.
float shown(float light)
{
    static const std::vector<float> table = [] {
        std::vector<float> t;
        for (int i = 0; i <= 4 * 2048; ++i) t.push_back(toned(real(i) / 2048));
        return t;
    }();
    return table[index(std::clamp(light, 0.f, 4.f) * 2048)];
}

float brightness_of(const vec3& light)
{
    return dot(light, {.25f, .62f, .13f});
}

// The offset of each scan line, correlated with the line before; every sixth line is a little brighter.
std::vector<float> row_offsets(int rows, rng& random)
{
    std::vector<float> offsets;
    float drift = 0;
    for (int y = 0; y < rows; ++y) {
        drift = .6f * drift + .004f * random.normal();
        const float own = .004f * random.normal();
        offsets.push_back(drift + own + (y % 6 == 0 ? .003f : 0));
    }
    return offsets;
}

// Sharpens as cameras do: what to add to each pixel so that it differs more from the brightness around it.
grid<float> sharpening(const rendered& r)
{
    constexpr float share = .9f, most = .15f;
    grid<float> brightness(r.width, r.height);
    for (std::size_t i = 0; i < r.cells.size(); ++i)
        brightness.cells[i] = shown(brightness_of(r.cells[i].light));
    const grid<float> around = blurred(brightness, 1.2f, 3);
    for (std::size_t i = 0; i < brightness.cells.size(); ++i)
        brightness.cells[i] = std::clamp(share * (brightness.cells[i] - around.cells[i]), -most, most);
    return brightness;
}

}   // namespace

QImage photograph(const rendered& r)
{
    const grid<float> sharper = sharpening(r);
    QImage picture(r.width, r.height, QImage::Format_RGB888);
    each_cell(r, [&](int x, int y, const pixel& p) {
        // Noise of about one brightness level hides banding in the sky.
        const float grain = (scatter(x, y, 1234) - .5f) * .008f;
        const vec3 light = mix(p.light, vec3{1, 1, 1} * brightness_of(p.light), .17f);
        const auto level = [&](float v) { return byte_of(shown(v) + sharper.at(x, y) + grain); };
        picture.setPixel(x, y, qRgb(level(light.x), level(light.y), level(light.z)));
    });
    return picture;
}

QImage thermal_image(const rendered& r)
{
    grid<float> warmth(r.width, r.height);
    for (std::size_t i = 0; i < r.cells.size(); ++i) warmth.cells[i] = r.cells[i].warmth;
    warmth = blurred(warmth, .8f, 2);
    const grid<float> around = blurred(warmth, 3, 7);
    rng random(777);
    const std::vector<float> rows = row_offsets(r.height, random);
    std::vector<float> columns;
    for (int x = 0; x < r.width; ++x) columns.push_back(.003f * random.normal());
    QImage picture(r.width, r.height, QImage::Format_Grayscale8);
    each_cell(r, [&](int x, int y, const pixel& p) {
        // A thermal sight brings out small differences.
        const float detail = std::clamp(warmth.at(x, y) - around.at(x, y), -.06f, .06f);
        float v = .43f + (warmth.at(x, y) - .42f) * 1.25f + .8f * detail;
        if (p.made_of != material::sky) v = std::clamp(v, .20f, .60f);
        picture.scanLine(y)[x] = byte_of(v + rows[index(y)] + columns[index(x)] + .009f * random.normal());
    });
    return picture;
}

QImage halved(const QImage& big)
{
    QImage small(big.width() / 2, big.height() / 2, big.format());
    const int step = big.depth() / 8, bytes = small.width() * step;
    for (int y = 0; y < small.height(); ++y) {
        const std::uint8_t *a = big.constScanLine(2 * y), *b = big.constScanLine(2 * y + 1);
        std::uint8_t* to = small.scanLine(y);
        for (int i = 0; i < bytes; ++i) {
            const int left = i / step * 2 * step + i % step, right = left + step;
            to[i] = static_cast<std::uint8_t>((a[left] + a[right] + b[left] + b[right] + 2) / 4);
        }
    }
    return small;
}

}   // namespace tools
