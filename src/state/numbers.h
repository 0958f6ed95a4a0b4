// Rounding, saturating integers, arrays indexed by int, texts, and random numbers.
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

// Rounds to the nearest integer; halves are rounded to the nearest even one.
inline double rounded(double x)
{
    return std::nearbyint(x);
}

// Rounds down towards minus infinity.
inline double Int(double x)
{
    return std::floor(x);
}

// A 16-bit integer that saturates instead of wrapping; doubles are rounded.
class int16 {
public:
    constexpr int16() = default;
    template <std::integral T>
    constexpr int16(T n) : value(saturated(n))   // NOLINT: implicit, so that every assignment saturates
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
        return n == n ? static_cast<std::int16_t>(n) : std::int16_t{0};   // NaN gives 0
    }

    std::int16_t value = 0;
};

// An array indexed by int.
template <class T, int N>
struct table {
    static_assert(N > 0);
    std::array<T, static_cast<std::size_t>(N)> cells{};

    constexpr T& operator[](int i) { return cells[static_cast<std::size_t>(i)]; }
    constexpr const T& operator[](int i) const { return cells[static_cast<std::size_t>(i)]; }
    static constexpr int size() { return N; }
    constexpr auto begin() { return cells.begin(); }
    constexpr auto end() { return cells.end(); }
    constexpr auto begin() const { return cells.begin(); }
    constexpr auto end() const { return cells.end(); }

    bool operator==(const table&) const = default;
};

// The number of characters in a UTF-8 text.
std::size_t length(const std::string& text);
// The first n characters of a UTF-8 text.
std::string left(const std::string& text, std::size_t n);
// The text without trailing spaces.
std::string without_padding(std::string text);
// The number as text, with up to 15 significant digits.
std::string number_text(double x);

// Text of exactly N characters: truncated, or padded with spaces on the right.
template <std::size_t N>
class padded {
public:
    padded() : text_(N, ' ') {}
    explicit padded(const std::string& text) { *this = text; }
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

// The random number generator, with its default seed. A test can replace it by setting `source`.
struct random_numbers {
    std::minstd_rand generator;
    std::function<double()> source;
};

// A random number, uniform in [0, 1).
double Rnd(random_numbers&);

}   // namespace vorn
