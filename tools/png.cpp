// The packing is plain: each row is written as differences from its neighbours, a run of one value as its
// first value and a count, and what remains in Huffman's code. Runs are the only repeats that are looked for,
// since a painted cloud has no others worth the search; they make what is empty nearly free.

#include "png.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <limits>
#include <queue>
#include <utility>

namespace {

using bytes = std::vector<std::uint8_t>;

constexpr std::size_t pixel_bytes = 4;

// Rows as differences ---------------------------------------------------------------------------------------

// The one of left, above and above left that comes nearest to left + above - above left.
int nearest_neighbour(int left, int above, int corner)
{
    const int guess = left + above - corner;
    const int to_left = std::abs(guess - left), to_above = std::abs(guess - above);
    const int to_corner = std::abs(guess - corner);
    if (to_left <= to_above && to_left <= to_corner) return left;
    return to_above <= to_corner ? above : corner;
}

constexpr int filters = 5;

int predicted(int filter, int left, int above, int corner)
{
    switch (filter) {
        case 1:
            return left;
        case 2:
            return above;
        case 3:
            return (left + above) / 2;
        case 4:
            return nearest_neighbour(left, above, corner);
        default:
            return 0;
    }
}

// A row with the number of its filter before it.
bytes filtered(const png_picture& p, std::size_t row, int filter)
{
    const std::size_t length = p.width * pixel_bytes;
    const std::uint8_t* here = &p.rgba[row * length];
    const std::uint8_t* over = row == 0 ? nullptr : here - length;
    bytes out{static_cast<std::uint8_t>(filter)};
    for (std::size_t i = 0; i < length; ++i) {
        const bool first = i < pixel_bytes;
        const int left = first ? 0 : here[i - pixel_bytes];
        const int above = over == nullptr ? 0 : over[i];
        const int corner = first || over == nullptr ? 0 : over[i - pixel_bytes];
        out.push_back(static_cast<std::uint8_t>(here[i] - predicted(filter, left, above, corner)));
    }
    return out;
}

// Small differences, up or down, pack best.
long roughness(const bytes& row)
{
    long sum = 0;
    for (std::size_t i = 1; i < row.size(); ++i) sum += std::min<int>(row[i], 256 - row[i]);
    return sum;
}

bytes smoothest(const png_picture& p, std::size_t row)
{
    bytes best = filtered(p, row, 0);
    for (int filter = 1; filter < filters; ++filter) {
        bytes other = filtered(p, row, filter);
        if (roughness(other) < roughness(best)) best = std::move(other);
    }
    return best;
}

// Runs ------------------------------------------------------------------------------------------------------

// What the packed stream is made of: 0 to 255 are bytes, 256 ends it, 257 to 264 repeat the last byte 3 to 10
// times and 285 repeats it 258 times. The lengths between take extra bits and gain too little to be used.
constexpr int end_symbol = 256, symbols = 286;
constexpr std::size_t shortest_run = 3, longest_short_run = 10, long_run = 258;
constexpr int shortest_run_symbol = 257, long_run_symbol = 285;

void put_run(std::vector<int>& out, std::size_t length, std::uint8_t value)
{
    for (; length >= long_run; length -= long_run) out.push_back(long_run_symbol);
    while (length >= shortest_run) {
        const std::size_t piece = std::min(length, longest_short_run);
        out.push_back(shortest_run_symbol + static_cast<int>(piece - shortest_run));
        length -= piece;
    }
    out.insert(out.end(), length, value);
}

std::vector<int> with_runs(const bytes& raw)
{
    std::vector<int> out;
    for (std::size_t i = 0; i < raw.size();) {
        std::size_t end = i + 1;
        while (end < raw.size() && raw[end] == raw[i]) ++end;
        out.push_back(raw[i]);
        put_run(out, end - i - 1, raw[i]);
        i = end;
    }
    out.push_back(end_symbol);
    return out;
}

// Huffman's code --------------------------------------------------------------------------------------------

constexpr int longest_code = 15;   // bits
using lengths = std::array<int, symbols>;
using counts = std::array<std::size_t, symbols>;

// Joins the two rarest subtrees until one is left; each join puts all that is below it one bit deeper.
lengths tree_depths(const counts& seen)
{
    using subtree = std::pair<std::size_t, std::vector<int>>;
    std::priority_queue<subtree, std::vector<subtree>, std::greater<>> open;
    for (int s = 0; s < symbols; ++s)
        if (const std::size_t n = seen[static_cast<std::size_t>(s)]; n > 0) open.push({n, {s}});
    lengths depth{};
    while (open.size() > 1) {
        subtree joined = open.top();
        open.pop();
        joined.first += open.top().first;
        joined.second.insert(joined.second.end(), open.top().second.begin(), open.top().second.end());
        open.pop();
        for (const int s : joined.second) ++depth[static_cast<std::size_t>(s)];
        open.push(std::move(joined));
    }
    return depth;
}

// Rare symbols are made out to be less rare until none lies deeper than the format allows.
lengths code_lengths(const std::vector<int>& stream)
{
    counts seen{};
    for (const int s : stream) ++seen[static_cast<std::size_t>(s)];
    lengths found = tree_depths(seen);
    while (*std::max_element(found.begin(), found.end()) > longest_code) {
        for (std::size_t& n : seen) n = (n + 1) / 2;
        found = tree_depths(seen);
    }
    return found;
}

// Shorter codes first, and among equally long ones in the order of their symbols, as a reader counts them
// too.
std::array<unsigned, symbols> numbered(const lengths& length)
{
    std::array<unsigned, symbols> code{};
    unsigned next = 0;
    for (int bits = 1; bits <= longest_code; ++bits, next <<= 1)
        for (std::size_t s = 0; s < symbols; ++s)
            if (length[s] == bits) code[s] = next++;
    return code;
}

// The packed stream -----------------------------------------------------------------------------------------

struct bit_writer {
    bytes out;
    unsigned waiting = 0;
    int held = 0;
};

// Numbers go in from their lowest bit on.
void put_bits(bit_writer& w, unsigned value, int count)
{
    for (int i = 0; i < count; ++i) {
        w.waiting |= (value >> i & 1u) << w.held;
        if (++w.held < 8) continue;
        w.out.push_back(static_cast<std::uint8_t>(w.waiting));
        w.waiting = 0;
        w.held = 0;
    }
}

// Codes go in from their highest bit on.
void put_code(bit_writer& w, unsigned code, int length)
{
    while (length-- > 0) put_bits(w, code >> length, 1);
}

// The lengths of all codes, each as a number of four bits. The format would have these numbers packed in
// turn; 140 bytes are not worth it. Repeats have one distance alone, the byte before, whose code is a single
// bit.
void put_code_lengths(bit_writer& w, const lengths& length)
{
    constexpr int kinds_of_length = 19, first_kinds = 3;   // 16, 17 and 18 would stand for repeats: not used
    put_bits(w, symbols - end_symbol - 1, 5);
    put_bits(w, 0, 5);
    put_bits(w, kinds_of_length - 4, 4);
    for (int i = 0; i < kinds_of_length; ++i) put_bits(w, i < first_kinds ? 0 : 4, 3);
    for (const int bits : length) put_code(w, static_cast<unsigned>(bits), 4);
    put_code(w, 1, 4);
}

bytes deflated(const bytes& raw)
{
    const std::vector<int> stream = with_runs(raw);
    const lengths length = code_lengths(stream);
    const auto code = numbered(length);
    bit_writer w;
    put_bits(w, 1, 1);   // the last block, as it is the only one
    put_bits(w, 2, 2);   // with a code of its own
    put_code_lengths(w, length);
    for (const int s : stream) {
        const auto at = static_cast<std::size_t>(s);
        put_code(w, code[at], length[at]);
        if (s > end_symbol) put_bits(w, 0, 1);
    }
    put_bits(w, 0, 7);   // to the end of the last byte
    return w.out;
}

void put_number(bytes& out, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<std::uint8_t>(value >> shift));
}

std::uint32_t check_sum(const bytes& raw)
{
    constexpr std::uint32_t prime = 65521;
    std::uint32_t sum = 1, sum_of_sums = 0;
    for (const std::uint8_t b : raw) {
        sum = (sum + b) % prime;
        sum_of_sums = (sum_of_sums + sum) % prime;
    }
    return sum_of_sums << 16 | sum;
}

bytes packed(const bytes& raw)
{
    bytes out{0x78, 0x01};
    const bytes body = deflated(raw);
    out.insert(out.end(), body.begin(), body.end());
    put_number(out, check_sum(raw));
    return out;
}

// Chunks ----------------------------------------------------------------------------------------------------

std::uint32_t cyclic_check(const bytes& of)
{
    std::uint32_t rest = std::numeric_limits<std::uint32_t>::max();
    for (const std::uint8_t b : of) {
        rest ^= b;
        for (int bit = 0; bit < 8; ++bit) rest = (rest & 1) != 0 ? 0xedb88320u ^ rest >> 1 : rest >> 1;
    }
    return ~rest;
}

void put_chunk(bytes& out, const std::string& kind, const bytes& body)
{
    put_number(out, static_cast<std::uint32_t>(body.size()));
    bytes checked(kind.begin(), kind.end());
    checked.insert(checked.end(), body.begin(), body.end());
    out.insert(out.end(), checked.begin(), checked.end());
    put_number(out, cyclic_check(checked));
}

bytes header(const png_picture& p)
{
    bytes out;
    put_number(out, static_cast<std::uint32_t>(p.width));
    put_number(out, static_cast<std::uint32_t>(p.height));
    const bytes kind{8, 6, 0, 0, 0};   // eight bits a channel; colours and alpha; nothing unusual
    out.insert(out.end(), kind.begin(), kind.end());
    return out;
}

}   // namespace

std::string png(const png_picture& p)
{
    bytes rows;
    for (std::size_t y = 0; y < p.height; ++y) {
        const bytes row = smoothest(p, y);
        rows.insert(rows.end(), row.begin(), row.end());
    }
    bytes out{0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    put_chunk(out, "IHDR", header(p));
    put_chunk(out, "IDAT", packed(rows));
    put_chunk(out, "IEND", {});
    return {out.begin(), out.end()};
}
