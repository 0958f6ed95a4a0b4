#include "picture.h"

#include "common/noise.h"

namespace tools {
namespace {

std::uint8_t byte_of(float v)
{
    return static_cast<std::uint8_t>(std::lround(clamp01(v) * 255));
}

// The tone of the picture, 0 to 1, for this amount of light. Highlights are compressed, the rest gets a
// little more contrast. Taken from a table for amounts from 0 to 4 in steps of 1/2048.
float toned(float light)
{
    static const std::vector<float> table = [] {
        std::vector<float> tones;
        for (int i = 0; i <= 4 * 2048; ++i) {
            const float v = real(i) / 2048 * 1.02f;
            const float plain = std::pow(clamp01(v / (1 + .22f * v) * 1.06f), 1 / 2.2f);
            tones.push_back(plain + .45f * (plain * plain * (3 - 2 * plain) - plain));
        }
        return tones;
    }();
    return table[index(std::clamp(light, 0.f, 4.f) * 2048)];
}

float brightness_of(const vec3& light)
{
    return dot(light, {.25f, .62f, .13f});
}

}   // namespace

QImage photograph(const rendered& r)
{
    const grid<float> brightness = mapped(r, [](const pixel& p) { return toned(brightness_of(p.light)); });
    const grid<float> around = blurred(brightness, 1.2f, 3);
    QImage picture(r.width, r.height, QImage::Format_RGB888);
    each_cell(r, [&](int x, int y, const pixel& p) {
        // Cameras sharpen: each pixel differs more from the brightness around it.
        const float sharper = std::clamp(.9f * (brightness.at(x, y) - around.at(x, y)), -.15f, .15f);
        // Noise of about one brightness level hides banding in the sky.
        const float grain = (scatter(x, y, 1234) - .5f) * .008f;
        const vec3 light = mix(p.light, vec3{1, 1, 1} * brightness_of(p.light), .17f);
        const auto level = [&](float v) { return byte_of(toned(v) + sharper + grain); };
        picture.setPixel(x, y, qRgb(level(light.x), level(light.y), level(light.z)));
    });
    return picture;
}

QImage thermal_image(const rendered& r)
{
    const grid<float> warmth = blurred(mapped(r, [](const pixel& p) { return p.warmth; }), .8f, 2);
    const grid<float> around = blurred(warmth, 3, 7);
    rng random(777);
    std::vector<float> rows, columns;
    // Neighbouring scan lines have similar offsets; every sixth line is a little brighter.
    float drift = 0;
    for (int y = 0; y < r.height; ++y) {
        drift = .6f * drift + .004f * random.normal();
        rows.push_back(drift + .004f * random.normal() + (y % 6 == 0 ? .003f : 0));
    }
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
    const int channels = big.depth() / 8;
    for (int y = 0; y < small.height(); ++y)
        for (int i = 0; i < small.width() * channels; ++i) {
            const std::uint8_t* a = big.constScanLine(2 * y) + i + i / channels * channels;
            const std::uint8_t* b = a + big.bytesPerLine();
            small.scanLine(y)[i] =
                static_cast<std::uint8_t>((a[0] + a[channels] + b[0] + b[channels] + 2) / 4);
        }
    return small;
}

}   // namespace tools
