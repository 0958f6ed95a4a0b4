// A rectangular grid of values, stored row by row: pixels, samples, cells of a map.
#pragma once

#include <type_traits>
#include <utility>
#include <vector>

#include "geometry.h"

namespace tools {

template <class T>
struct grid {
    int width = 0, height = 0;
    std::vector<T> cells;

    grid() = default;
    grid(int w, int h, const T& value = {}) : width(w), height(h), cells(index(w) * index(h), value) {}
    bool holds(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
    const T& at(int x, int y) const { return cells[index(y) * index(width) + index(x)]; }
    T& at(int x, int y) { return const_cast<T&>(std::as_const(*this).at(x, y)); }
    // Bilinear interpolation. 0 <= x < width - 1, and the same for y.
    auto between(float x, float y) const
    {
        const int i = static_cast<int>(x), j = static_cast<int>(y);
        const auto value = [&](int right, int down) {
            if constexpr (std::is_arithmetic_v<T>)
                return real(at(i + right, j + down));
            else
                return at(i + right, j + down);
        };
        return mix(mix(value(0, 0), value(1, 0), x - real(i)), mix(value(0, 1), value(1, 1), x - real(i)),
                   y - real(j));
    }
};

// The grid reduced to half its size: each value is the mean of four.
template <class T>
grid<T> halved(const grid<T>& big)
{
    grid<T> small(big.width / 2, big.height / 2);
    for (int y = 0; y < small.height; ++y)
        for (int x = 0; x < small.width; ++x)
            for (int k = 0; k < 4; ++k)
                small.at(x, y) = small.at(x, y) + big.at(2 * x + k % 2, 2 * y + k / 2) * .25f;
    return small;
}

// Gaussian blur with a standard deviation of `sigma` pixels, cut off at a distance of `reach` pixels. Beyond
// the edge the edge values are repeated.
template <class T>
grid<T> blurred(const grid<T>& sharp, float sigma, int reach)
{
    std::vector<float> weights;
    float sum = 0;
    for (int i = -reach; i <= reach; ++i)
        sum += weights.emplace_back(std::exp(-real(i * i) / (2 * sigma * sigma)));
    grid<T> across(sharp.width, sharp.height), both(sharp.width, sharp.height);
    const auto one_way = [&](const grid<T>& from, grid<T>& to, int dx, int dy) {
        for (int y = 0; y < to.height; ++y)
            for (int x = 0; x < to.width; ++x) {
                T v{};
                for (int i = -reach; i <= reach; ++i)
                    v = v + from.at(std::clamp(x + i * dx, 0, from.width - 1),
                                    std::clamp(y + i * dy, 0, from.height - 1)) *
                                weights[index(i + reach)];
                to.at(x, y) = v * (1 / sum);
            }
    };
    one_way(sharp, across, 1, 0);
    one_way(across, both, 0, 1);
    return both;
}

}   // namespace tools
