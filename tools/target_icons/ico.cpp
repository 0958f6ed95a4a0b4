#include "ico.h"

#include <cstddef>

#include "../png.h"

namespace {

void put(std::string& out, std::size_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> (8 * i) & 0xff);
}

// One bit a pixel, rows from the bottom, for readers that know no alpha.
std::string mask(const image& picture)
{
    const auto size = static_cast<std::size_t>(picture.size);
    const std::size_t stride = (size + 31) / 32 * 4;
    std::string out;
    for (std::size_t y = size; y-- > 0;) {
        std::string row(stride, '\0');
        for (std::size_t x = 0; x < size; ++x)
            if (picture.rgba[(y * size + x) * 4 + 3] < 128)
                row[x / 8] = static_cast<char>(row[x / 8] | 0x80 >> x % 8);
        out += row;
    }
    return out;
}

// The icon format's own kind of bitmap: twice the height in its header, rows from the bottom, blue first.
std::string bitmap(const image& picture)
{
    const auto size = static_cast<std::size_t>(picture.size);
    std::string out;
    put(out, 40, 4);
    put(out, size, 4);
    put(out, size * 2, 4);
    put(out, 1, 2);
    put(out, 32, 2);
    out.append(24, '\0');
    for (std::size_t y = size; y-- > 0;)
        for (std::size_t x = 0; x < size; ++x) {
            const std::uint8_t* pixel = &picture.rgba[(y * size + x) * 4];
            for (const int channel : {2, 1, 0, 3}) put(out, pixel[channel], 1);
        }
    return out + mask(picture);
}

// The small ones are plain bitmaps, which any reader takes; the larger ones are packed.
std::string entry(const image& picture)
{
    constexpr int packed_from = 48;
    const auto size = static_cast<std::size_t>(picture.size);
    return picture.size < packed_from ? bitmap(picture) : png({size, size, picture.rgba});
}

}   // namespace

std::string icon_file(const std::vector<image>& pictures)
{
    std::string head, body;
    put(head, 0, 2);
    put(head, 1, 2);
    put(head, pictures.size(), 2);
    for (const image& picture : pictures) {
        const std::string bytes = entry(picture);
        put(head, static_cast<std::size_t>(picture.size), 1);   // 256 is written as 0
        put(head, static_cast<std::size_t>(picture.size), 1);
        put(head, 0, 2);
        put(head, 1, 2);
        put(head, 32, 2);
        put(head, bytes.size(), 4);
        put(head, 6 + 16 * pictures.size() + body.size(), 4);
        body += bytes;
    }
    return head + body;
}
