// Numbers, texts and chance as the whole system uses them.
#pragma once

#include <array>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <string>

namespace vorn {

// To the nearest whole number, halves to the even neighbour.
inline double rounded(double x)
{
    return std::nearbyint(x);
}

// Rounds down towards minus infinity.
inline double Int(double x)
{
    return std::floor(x);
}

// A 16-bit number that stays at its bounds instead of wrapping round; doubles are rounded.
class int16 {
public:
    constexpr int16() = default;
    template <std::integral T>
    constexpr int16(T n)
        : value(saturated(n))   // NOLINT: meant to convert, so that no assignment can forget it
    {
    }
    int16(double x) : value(saturated(rounded(x))) {}   // NOLINT
    constexpr operator int() const { return value; }    // NOLINT
    int16& operator+=(int n) { return *this = static_cast<long long>(value) + n; }

private:
    template <class T>
    static constexpr std::int16_t saturated(T n)
    {
        using limits = std::numeric_limits<std::int16_t>;
        if (n > limits::max()) return limits::max();
        if (n < limits::min()) return limits::min();
        return n == n ? static_cast<std::int16_t>(n) : std::int16_t{0};   // what is no number counts as 0
    }

    std::int16_t value = 0;
};

// An array indexed by int, which is how the system numbers its rows, rounds and positions.
template <class T, int N>
struct table {
    static_assert(N > 0);
    std::array<T, static_cast<std::size_t>(N)> cells{};

    constexpr T& operator[](int i) { return cells[static_cast<std::size_t>(i)]; }
    constexpr const T& operator[](int i) const { return cells[static_cast<std::size_t>(i)]; }
    static constexpr int size() { return N; }
    void fill(const T& value) { cells.fill(value); }
    constexpr auto begin() { return cells.begin(); }
    constexpr auto end() { return cells.end(); }
    constexpr auto begin() const { return cells.begin(); }
    constexpr auto end() const { return cells.end(); }

    bool operator==(const table&) const = default;
};

// How many characters a UTF-8 text has, and the first n of them.
std::size_t length(const std::string& text);
std::string left(const std::string& text, std::size_t n);
// Without the blanks at its end.
std::string without_padding(std::string text);
// As a message shows it: up to 15 significant digits, no exponent for the sizes that occur.
std::string number_text(double x);

// Text of exactly N characters: cut to the length or padded with blanks on the right.
template <std::size_t N>
class padded {
public:
    padded() : text_(N, ' ') {}
    padded& operator=(const std::string& text)
    {
        text_ = left(text, N);
        text_.append(N - length(text_), ' ');
        return *this;
    }
    const std::string& text() const { return text_; }
    std::string trimmed() const { return without_padding(text_); }

private:
    std::string text_;
};

// The one source of chance, never seeded. A test may put a source of its own in.
struct random_numbers {
    std::minstd_rand generator;
    std::function<double()> source;
};

// A uniform number in [0, 1).
double Rnd(random_numbers&);

}   // namespace vorn
