// A rectangular grid of values, stored row by row: pixels, samples, cells of a map.
#pragma once

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
    // Bilinear interpolation. 0 <= x < width - 1, 0 <= y < height - 1.
    auto between(float x, float y) const
    {
        const int i = static_cast<int>(x), j = static_cast<int>(y);
        const auto row = [&](int r) { return mix(at(i, r) * 1.f, at(i + 1, r) * 1.f, x - real(i)); };
        return mix(row(j), row(j + 1), y - real(j));
    }
};

// Calls visit(x, y, cell) for the cells of a rectangle, as far as the grid has them.
void each_cell(auto& cells, point low, point high, const auto& visit)
{
    const int left = std::max(0, floor_int(low.x)), right = std::min(cells.width - 1, floor_int(high.x));
    const int top = std::max(0, floor_int(low.y)), bottom = std::min(cells.height - 1, floor_int(high.y));
    for (int y = top; y <= bottom; ++y)
        for (int x = left; x <= right; ++x) visit(x, y, cells.at(x, y));
}
// Calls visit(x, y, cell) for all cells.
void each_cell(auto& cells, const auto& visit)
{
    each_cell(cells, {}, {real(cells.width), real(cells.height)}, visit);
}

// A grid of the same size that has make(value) in place of each value.
template <class T>
auto mapped(const grid<T>& from, const auto& make)
{
    grid<decltype(make(from.cells[0]))> to(from.width, from.height);
    std::ranges::transform(from.cells, to.cells.begin(), make);
    return to;
}

// The grid reduced to half its size: each value is the mean of four.
template <class T>
grid<T> halved(const grid<T>& big)
{
    grid<T> small(big.width / 2, big.height / 2);
    each_cell(small, [&](int x, int y, T& mean) {
        for (int k = 0; k < 4; ++k) mean = mean + big.at(2 * x + k % 2, 2 * y + k / 2) * .25f;
    });
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
    const auto one_way = [&](const grid<T>& from, int dx, int dy) {
        grid<T> to(from.width, from.height);
        each_cell(to, [&](int x, int y, T& mean) {
            for (int i = -reach; i <= reach; ++i)
                mean = mean + from.at(std::clamp(x + i * dx, 0, from.width - 1),
                                      std::clamp(y + i * dy, 0, from.height - 1)) *
                                  weights[index(i + reach)];
            mean = mean * (1 / sum);
        });
        return to;
    };
    return one_way(one_way(sharp, 1, 0), 0, 1);
}

}   // namespace tools
