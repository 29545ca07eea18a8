// SPDX-License-Identifier: MIT
// Structuring elements as boxes: runs of the same columns on successive rows are one box, so that a rectangle costs a
// logarithm of its height, and a disk as many boxes as it has different chords in a row.
#include "run_checks.h"
#include "run_neighbours.h"

#include <KivRLC/KivRunMorphology.h>

#include <cmath>

KivRuns::Element::Element(const KivRunSet& pixels)
{
    std::vector<std::size_t> of_above; // the boxes of the row above, from left to right
    std::vector<std::size_t> of_row;
    kivrlc::for_each_row(pixels.Runs(), [&](const Run* above, const Run*, const Run* run, const Run* row_end) {
        if (above == run) {
            of_above.clear();
        }
        auto candidate = of_above.cbegin();
        for (; run != row_end; ++run) {
            while (candidate != of_above.cend() && boxes_[*candidate].colBegin < run->colBegin) {
                ++candidate;
            }
            if (candidate != of_above.cend() && boxes_[*candidate].colBegin == run->colBegin &&
                boxes_[*candidate].colEnd == run->colEnd) {
                boxes_[*candidate].rowEnd = run->row;
                of_row.push_back(*candidate);
            } else {
                of_row.push_back(boxes_.size());
                boxes_.push_back({run->row, run->row, run->colBegin, run->colEnd});
            }
        }
        of_above.swap(of_row);
        of_row.clear();
    });
}

KivRuns::Element KivRuns::Element::Rectangle(int width, int height)
{
    kivrlc::require<std::invalid_argument>(width >= 1 && height >= 1,
                                           "KivRuns::Element::Rectangle: width and height must be at least 1");
    Element element;
    element.boxes_.push_back({-(height / 2), (height - 1) / 2, -(width / 2), (width - 1) / 2});
    return element;
}

KivRuns::Element KivRuns::Element::Disk(double radius)
{
    constexpr double largest = 1 << 30;
    kivrlc::require<std::invalid_argument>(radius >= 0 && radius <= largest,
                                           "KivRuns::Element::Disk: the radius must be from 0 to 2^30");
    const int rows = static_cast<int>(radius);
    std::vector<Run> runs;
    std::int64_t half_chord = 0;
    for (int row = -rows; row <= rows; ++row) {
        const auto reaches = [&](std::int64_t x) {
            return static_cast<double>(x * x + std::int64_t{row} * row) <= radius * radius;
        };
        while (reaches(half_chord + 1)) {
            ++half_chord;
        }
        while (!reaches(half_chord)) {
            --half_chord;
        }
        runs.push_back({row, static_cast<int>(-half_chord), static_cast<int>(half_chord)});
    }
    return Element(KivRunSet(runs));
}
