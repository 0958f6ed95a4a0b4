// The natural size of a PNG, JPEG or ICO file, from its header: a machine without a screen needs no pixels.
#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string_view>

#include "platform/files.h"
#include "platform/headless/headless_machine.h"

namespace vorn {

namespace {

struct pixels {
    long width = 0;
    long height = 0;
};

// Reads integers from the bytes of a file. Bytes beyond the end are read as 0.
struct bytes {
    std::string text;
    long at(std::size_t i) const { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0; }
    long little16(std::size_t i) const { return at(i) | at(i + 1) << 8; }
    long big16(std::size_t i) const { return at(i) << 8 | at(i + 1); }
    bool begins(std::string_view head) const { return text.compare(0, head.size(), head) == 0; }
};

// The size in the first frame header (SOF segment).
pixels jpeg_size(const bytes& b)
{
    for (std::size_t i = 2; i + 8 < b.text.size() && b.at(i) == 0xFF;
         i += 2 + static_cast<std::size_t>(b.big16(i + 2))) {
        const long mark = b.at(i + 1);
        const bool frame = mark >= 0xC0 && mark <= 0xCF && mark != 0xC4 && mark != 0xC8 && mark != 0xCC;
        if (frame) return {b.big16(i + 7), b.big16(i + 5)};
    }
    return {};
}

// The size of the largest image.
pixels icon_size(const bytes& b)
{
    pixels largest;
    for (std::size_t i = 0; i < static_cast<std::size_t>(b.little16(4)); ++i) {
        const long width = b.at(6 + 16 * i), height = b.at(7 + 16 * i);   // 0 means 256
        largest.width = std::max(largest.width, width == 0 ? 256 : width);
        largest.height = std::max(largest.height, height == 0 ? 256 : height);
    }
    return largest;
}

pixels size_of(const bytes& b)
{
    using namespace std::string_view_literals;
    if (b.begins("\x89PNG\r\n\x1a\n"sv))
        return {b.big16(16) << 16 | b.big16(18), b.big16(20) << 16 | b.big16(22)};
    if (b.begins("\xFF\xD8"sv)) return jpeg_size(b);
    if (b.begins("\0\0\1\0"sv)) return icon_size(b);
    return {};
}

}   // namespace

loaded_picture headless_machine::load_picture(const std::string& name)
{
    std::error_code failed;
    const std::string file = find_path(*this, name);
    const std::filesystem::path path = from_utf8(file);
    if (!std::filesystem::exists(path, failed)) return {.reason = "The file does not exist."};
    constexpr std::uintmax_t head = 1 << 20;
    bytes b;
    if (std::filesystem::is_regular_file(path, failed)) {
        std::ifstream in(path, std::ios::binary);
        const std::uintmax_t size = std::filesystem::file_size(path, failed);
        b.text.resize(failed ? 0 : std::min(size, head));
        in.read(b.text.data(), static_cast<std::streamsize>(b.text.size()));
        b.text.resize(static_cast<std::size_t>(in.gcount()));
    }
    const pixels size = size_of(b);
    if (size.width <= 0 || size.height <= 0) return {.reason = "It is not a picture that can be read."};
    const auto twips = [](long n) { return static_cast<double>(n) * twips_per_pixel; };
    return {picture{file, twips(size.width), twips(size.height), nullptr}, {}};
}

}   // namespace vorn
