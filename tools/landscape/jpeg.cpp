#include "jpeg.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geometry.h"

namespace landscape {

namespace {

constexpr int side = 8, cells = 64;
using block = std::array<float, cells>;

// Place in a block of the n-th coefficient on the way from coarse to fine.
constexpr std::array<int, cells> zigzag{0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32, 25, 18, 11, 4,  5,
                                        12, 19, 26, 33, 40, 48, 41, 34, 27, 20, 13, 6,  7,  14, 21, 28,
                                        35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23, 30, 37, 44, 51,
                                        58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};

// The standard's example tables: steps of brightness and of colour at quality 50.
constexpr std::array<int, cells> bright_steps{
    16, 11,  10,  16, 24, 40, 51, 61, 12,  12,  14,  19,  26, 58, 60, 55,  14,  13,  16,  24, 40, 57,
    69, 56,  14,  17, 22, 29, 51, 87, 80,  62,  18,  22,  37, 56, 68, 109, 103, 77,  24,  35, 55, 64,
    81, 104, 113, 92, 49, 64, 78, 87, 103, 121, 120, 101, 72, 92, 95, 98,  112, 100, 103, 99};
constexpr std::array<int, cells> colour_steps{17, 18, 24, 47, 99, 99, 99, 99, 18, 21, 26, 66, 99, 99, 99, 99,
                                              24, 26, 56, 99, 99, 99, 99, 99, 47, 66, 99, 99, 99, 99, 99, 99,
                                              99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99,
                                              99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99};

// A prefix code as the file holds it: how many words of each length, and what they stand for.
struct code_table {
    std::array<std::uint8_t, 16> lengths{};
    std::vector<std::uint8_t> symbols;
};

struct word {
    std::uint32_t bits = 0;
    int length = 0;
};

constexpr int symbol_count = 256;
using tally = std::array<long, symbol_count + 1>;

// Lengths of the best prefix code for these counts. The extra symbol, counted once, keeps the word of all
// ones free, which the format forbids.
std::vector<int> best_lengths(tally counts)
{
    counts[symbol_count] = 1;
    std::array<int, symbol_count + 1> next{}, length{};
    next.fill(-1);
    for (;;) {
        int least = -1, second = -1;
        for (int i = 0; i <= symbol_count; ++i) {
            if (counts[index(i)] == 0) continue;
            if (least < 0 || counts[index(i)] <= counts[index(least)]) {
                second = least;
                least = i;
            } else if (second < 0 || counts[index(i)] <= counts[index(second)]) {
                second = i;
            }
        }
        if (second < 0) break;
        counts[index(least)] += counts[index(second)];
        counts[index(second)] = 0;
        int i = least;
        for (length[index(i)]++; next[index(i)] >= 0; length[index(i)]++) i = next[index(i)];
        next[index(i)] = second;
        for (i = second; i >= 0; i = next[index(i)]) length[index(i)]++;
    }
    return {length.begin(), length.end()};
}

// No word may be longer than sixteen bits: longer ones are taken back by lengthening shorter ones.
code_table code_for(const tally& counts)
{
    const std::vector<int> lengths = best_lengths(counts);
    std::array<int, 64> of_length{};
    for (const int l : lengths)
        if (l > 0) of_length[index(l)] += 1;
    for (std::size_t i = 63; i > 16; --i)
        while (of_length[i] > 0) {
            std::size_t j = i - 2;
            while (of_length[j] == 0) --j;
            of_length[i] -= 2;
            of_length[i - 1] += 1;
            of_length[j + 1] += 2;
            of_length[j] -= 1;
        }
    std::size_t longest = 16;
    while (of_length[longest] == 0) --longest;
    of_length[longest] -= 1;   // the extra symbol's
    code_table table;
    for (std::size_t i = 1; i <= 16; ++i) table.lengths[i - 1] = static_cast<std::uint8_t>(of_length[i]);
    for (int l = 1; l < 64; ++l)
        for (int s = 0; s < symbol_count; ++s)
            if (lengths[index(s)] == l) table.symbols.push_back(static_cast<std::uint8_t>(s));
    return table;
}

std::array<word, symbol_count> words_of(const code_table& table)
{
    std::array<word, symbol_count> words;
    std::uint32_t bits = 0;
    std::size_t symbol = 0;
    for (int length = 1; length <= 16; ++length, bits <<= 1)
        for (int i = 0; i < table.lengths[index(length - 1)]; ++i)
            words[table.symbols[symbol++]] = {bits++, length};
    return words;
}

// What the entropy coder is given: a symbol of the code and the bits that follow it.
struct token {
    std::uint8_t symbol;
    std::uint8_t table;   // 0 first coefficient, 1 others, 2 and 3 the same of colour
    word extra;
};

word magnitude(int value)
{
    int length = 0;
    for (int v = std::abs(value); v > 0; v >>= 1) ++length;
    const int bits = value < 0 ? value + (1 << length) - 1 : value;
    return {static_cast<std::uint32_t>(bits), length};
}

void add_block(std::vector<token>& tokens, const std::array<int, cells>& c, int& before, bool colour)
{
    const std::uint8_t first = colour ? 2 : 0, rest = colour ? 3 : 1;
    const word step = magnitude(c[0] - before);
    before = c[0];
    tokens.push_back({static_cast<std::uint8_t>(step.length), first, step});
    int zeros = 0;
    for (std::size_t i = 1; i < cells; ++i) {
        if (c[i] == 0) {
            ++zeros;
            continue;
        }
        constexpr int longest_run = 15;
        for (; zeros > longest_run; zeros -= longest_run + 1) tokens.push_back({0xf0, rest, {}});
        const word value = magnitude(c[i]);
        tokens.push_back({static_cast<std::uint8_t>(zeros << 4 | value.length), rest, value});
        zeros = 0;
    }
    if (zeros > 0) tokens.push_back({0, rest, {}});
}

// One channel of the picture with its steps.
struct plane {
    int width, height;
    std::vector<float> values;   // -128 to 127
    std::array<int, cells> steps;
    bool colour;
    int before = 0;   // first coefficient of the last block
};

// Row u: the cosine of frequency u at the eight places.
const block& cosines()
{
    static const block table = [] {
        constexpr double pi = 3.14159265358979;
        block t{};
        for (int u = 0; u < side; ++u)
            for (int x = 0; x < side; ++x) {
                const double height = u == 0 ? std::sqrt(.125) : .5;
                t[index(u * side + x)] = real(height * std::cos((2 * x + 1) * u * pi / (2 * side)));
            }
        return t;
    }();
    return table;
}

std::array<int, cells> coefficients(const plane& p, int left, int top)
{
    const block& c = cosines();
    block in{}, rows{};
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            in[index(y * side + x)] = p.values[index(std::min(top + y, p.height - 1)) * index(p.width) +
                                               index(std::min(left + x, p.width - 1))];
    for (std::size_t y = 0; y < side; ++y)
        for (std::size_t u = 0; u < side; ++u)
            for (std::size_t x = 0; x < side; ++x) rows[y * side + u] += c[u * side + x] * in[y * side + x];
    std::array<int, cells> out{};
    for (std::size_t i = 0; i < cells; ++i) {
        const std::size_t at = index(zigzag[i]), v = at / side, u = at % side;
        float sum = 0;
        for (std::size_t y = 0; y < side; ++y) sum += c[v * side + y] * rows[y * side + u];
        out[i] = static_cast<int>(std::lround(sum / real(p.steps[at])));
    }
    return out;
}

std::array<int, cells> steps_for(const std::array<int, cells>& at_fifty, int quality)
{
    const int percent = quality < 50 ? 5000 / quality : 200 - 2 * quality;
    std::array<int, cells> steps{};
    for (std::size_t i = 0; i < cells; ++i) steps[i] = std::clamp((at_fifty[i] * percent + 50) / 100, 1, 255);
    return steps;
}

plane halved(const plane& p)
{
    plane h{(p.width + 1) / 2, (p.height + 1) / 2, {}, p.steps, true};
    for (int y = 0; y < h.height; ++y)
        for (int x = 0; x < h.width; ++x) {
            float sum = 0;
            for (int k = 0; k < 4; ++k)
                sum += p.values[index(std::min(2 * y + k / 2, p.height - 1)) * index(p.width) +
                                index(std::min(2 * x + k % 2, p.width - 1))];
            h.values.push_back(sum / 4);
        }
    return h;
}

std::vector<plane> planes_of(const std::vector<std::uint8_t>& pixels, int width, int height, int channels,
                             int quality)
{
    const std::array<int, cells> bright = steps_for(bright_steps, quality),
                                 tint = steps_for(colour_steps, quality);
    std::vector<plane> planes{{width, height, {}, bright, false}};
    if (channels == 1) {
        for (const std::uint8_t v : pixels) planes[0].values.push_back(real(v) - 128);
        return planes;
    }
    plane blue{width, height, {}, tint, true}, red = blue;
    for (std::size_t i = 0; i < pixels.size(); i += 3) {
        const float r = pixels[i], g = pixels[i + 1], b = pixels[i + 2];
        planes[0].values.push_back(.299f * r + .587f * g + .114f * b - 128);
        blue.values.push_back(-.168736f * r - .331264f * g + .5f * b);
        red.values.push_back(.5f * r - .418688f * g - .081312f * b);
    }
    planes.push_back(halved(blue));
    planes.push_back(halved(red));
    return planes;
}

// Block by block in the order in which the format interleaves the channels.
std::vector<token> tokens_of(std::vector<plane>& planes)
{
    const int fine = planes.size() > 1 ? 2 : 1;   // bright blocks to a colour block, each way
    const int unit = side * fine;
    std::vector<token> tokens;
    for (int top = 0; top < planes[0].height; top += unit)
        for (int left = 0; left < planes[0].width; left += unit) {
            for (int k = 0; k < fine * fine; ++k)
                add_block(tokens, coefficients(planes[0], left + k % fine * side, top + k / fine * side),
                          planes[0].before, false);
            for (std::size_t i = 1; i < planes.size(); ++i)
                add_block(tokens, coefficients(planes[i], left / 2, top / 2), planes[i].before, true);
        }
    return tokens;
}

void put(std::string& to, int byte)
{
    to += static_cast<char>(byte);
}
void put_two(std::string& to, int number)
{
    put(to, number >> 8);
    put(to, number & 255);
}
void put_segment(std::string& to, int marker, const std::string& body)
{
    put(to, 0xff);
    put(to, marker);
    put_two(to, static_cast<int>(body.size()) + 2);
    to += body;
}

std::string steps_segment(int number, const std::array<int, cells>& steps)
{
    std::string s;
    put(s, number);
    for (const int at : zigzag) put(s, steps[index(at)]);
    return s;
}

std::string frame_segment(int width, int height, std::size_t channels)
{
    std::string s;
    put(s, 8);   // bits a value
    put_two(s, height);
    put_two(s, width);
    put(s, static_cast<int>(channels));
    for (std::size_t i = 0; i < channels; ++i) {
        put(s, static_cast<int>(i) + 1);
        put(s, i == 0 && channels > 1 ? 0x22 : 0x11);
        put(s, i == 0 ? 0 : 1);
    }
    return s;
}

std::string code_segment(std::size_t table, const code_table& code)
{
    std::string s;
    put(s, static_cast<int>(table % 2 << 4 | table / 2));
    for (const std::uint8_t n : code.lengths) put(s, n);
    for (const std::uint8_t symbol : code.symbols) put(s, symbol);
    return s;
}

std::string scan_segment(std::size_t channels)
{
    std::string s;
    put(s, static_cast<int>(channels));
    for (std::size_t i = 0; i < channels; ++i) {
        put(s, static_cast<int>(i) + 1);
        put(s, i == 0 ? 0 : 0x11);
    }
    put(s, 0);
    put(s, cells - 1);
    put(s, 0);
    return s;
}

class bit_writer {
public:
    explicit bit_writer(std::string& to) : to_(to) {}
    void add(word w)
    {
        held_ = held_ << w.length | (w.bits & ((1U << w.length) - 1));
        for (count_ += w.length; count_ >= 8; count_ -= 8) {
            const int byte = static_cast<int>(held_ >> (count_ - 8) & 255);
            put(to_, byte);
            if (byte == 255) put(to_, 0);
        }
    }
    void finish() { add({0x7f, 7}); }

private:
    std::string& to_;
    std::uint64_t held_ = 0;
    int count_ = 0;
};

}   // namespace

std::string jpeg(const std::vector<std::uint8_t>& pixels, int width, int height, int channels, int quality)
{
    std::vector<plane> planes = planes_of(pixels, width, height, channels, quality);
    const std::vector<token> tokens = tokens_of(planes);
    std::array<tally, 4> counts{};
    for (const token& t : tokens) counts[t.table][t.symbol] += 1;

    std::string file("\xff\xd8", 2);
    put_segment(file, 0xe0, std::string("JFIF\0\1\1\0\0\1\0\1\0\0", 14));
    put_segment(file, 0xdb, steps_segment(0, planes[0].steps));
    if (planes.size() > 1) put_segment(file, 0xdb, steps_segment(1, planes[1].steps));
    put_segment(file, 0xc0, frame_segment(width, height, planes.size()));
    std::array<std::array<word, symbol_count>, 4> words{};
    for (std::size_t table = 0; table < (planes.size() > 1 ? 4 : 2); ++table) {
        const code_table code = code_for(counts[table]);
        words[table] = words_of(code);
        put_segment(file, 0xc4, code_segment(table, code));
    }
    put_segment(file, 0xda, scan_segment(planes.size()));
    bit_writer out(file);
    for (const token& t : tokens) {
        out.add(words[t.table][t.symbol]);
        out.add(t.extra);
    }
    out.finish();
    return file + "\xff\xd9";
}

}   // namespace landscape
