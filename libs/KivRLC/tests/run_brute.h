// SPDX-License-Identifier: MIT
/// @file
/// Pixels one by one, in the words of the definitions, for what runs are compared with. Nothing here is fast.
#pragma once

#include "run_sets.h"

#include <KivRLC/KivRunMeasures.h>

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

namespace brute
{

/// A pixel as row and column, so that pixels are in the order of runs.
using Pixel = std::pair<int, int>;
using Pixels = std::set<Pixel>;

inline Pixels pixels_of(const KivRunSet& set)
{
    Pixels pixels;
    for (const Run& run : set.Runs()) {
        for (int x = run.colBegin; x <= run.colEnd; ++x) {
            pixels.emplace(run.row, x);
        }
    }
    return pixels;
}

inline KivRunSet set_of(const Pixels& pixels)
{
    std::vector<Run> runs;
    for (const auto& [row, column] : pixels) {
        runs.push_back({row, column, column});
    }
    return KivRunSet(runs);
}

inline std::vector<Pixel> neighbours(const Pixel& of, KivRuns::Connectivity connectivity)
{
    const auto [row, column] = of;
    std::vector<Pixel> all{{row, column - 1}, {row, column + 1}, {row - 1, column}, {row + 1, column}};
    if (connectivity == KivRuns::Connectivity::Eight) {
        all.insert(all.end(),
                   {{row - 1, column - 1}, {row - 1, column + 1}, {row + 1, column - 1}, {row + 1, column + 1}});
    }
    return all;
}

/// Flood fill from the first pixel that is left, until none is.
inline std::vector<Pixels> components(Pixels left, KivRuns::Connectivity connectivity)
{
    std::vector<Pixels> found;
    while (!left.empty()) {
        std::vector<Pixel> open{*left.begin()};
        left.erase(left.begin());
        found.emplace_back();
        while (!open.empty()) {
            const Pixel pixel = open.back();
            open.pop_back();
            found.back().insert(pixel);
            for (const Pixel& next : neighbours(pixel, connectivity)) {
                if (left.erase(next) != 0) {
                    open.push_back(next);
                }
            }
        }
    }
    return found;
}

/// The finite components of the background, by the other connectivity. A frame of background stands for what is
/// infinite.
inline std::vector<Pixels> holes(const Pixels& pixels, KivRuns::Connectivity connectivity)
{
    if (pixels.empty()) {
        return {};
    }
    const auto [left, right] = std::minmax_element(pixels.begin(), pixels.end(),
                                                   [](const Pixel& a, const Pixel& b) { return a.second < b.second; });
    Pixels background;
    for (int row = pixels.begin()->first - 1; row <= pixels.rbegin()->first + 1; ++row) {
        for (int column = left->second - 1; column <= right->second + 1; ++column) {
            if (pixels.count({row, column}) == 0) {
                background.emplace(row, column);
            }
        }
    }
    std::vector<Pixels> found = components(background, KivRuns::BackgroundOf(connectivity));
    found.erase(found.begin()); // the frame's
    return found;
}

/// How often lines in one direction enter: pixels whose predecessor does not belong.
inline int entries(const Pixels& pixels, int rows, int columns)
{
    return static_cast<int>(std::count_if(pixels.begin(), pixels.end(), [&](const Pixel& pixel) {
        return pixels.count({pixel.first - rows, pixel.second - columns}) == 0;
    }));
}

/// All sums of a pixel of the set and one of the element.
inline Pixels dilated(const Pixels& set, const Pixels& element)
{
    Pixels result;
    for (const auto& [row, column] : set) {
        for (const auto& [rows, columns] : element) {
            result.emplace(row + rows, column + columns);
        }
    }
    return result;
}

/// The places where the element, which has a pixel, fits; its first pixel has to come to one of the set's.
inline Pixels eroded(const Pixels& set, const Pixels& element)
{
    Pixels result;
    for (const auto& [first_row, first_column] : set) {
        const int row = first_row - element.begin()->first;
        const int column = first_column - element.begin()->second;
        const bool fits = std::all_of(element.begin(), element.end(), [&](const Pixel& pixel) {
            return set.count({row + pixel.first, column + pixel.second}) != 0;
        });
        if (fits) {
            result.emplace(row, column);
        }
    }
    return result;
}

} // namespace brute
