// SPDX-License-Identifier: MIT
// The borders of a mask's foreground, followed pixel by pixel after Suzuki and Abe: what tracing along runs is compared
// with. Which runs touch each other says which borders belong together.
#pragma once

#include <KivRLC/KivRLC.h>
#include <KivRLC/KivRunBorders.h>

#include <opencv2/core.hpp>

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

namespace mask_tracer
{

inline constexpr uchar passed_on_the_right = 1; // a border has passed that has background to the right of the pixel
inline constexpr int none = -1;

// Directions count counterclockwise from 0, right, to 7.
inline constexpr unsigned rightwards = 0;
inline constexpr unsigned leftwards = 4;
struct Step {
    int x;
    int y;
};
inline constexpr std::array<Step, 8> steps{{{1, 0}, {1, -1}, {0, -1}, {-1, -1}, {-1, 0}, {-1, 1}, {0, 1}, {1, 1}}};

/// The runs in groups that hang together, each named by its first run.
class Components
{
public:
    /// @param runs maximal runs, ordered by row, then by column
    explicit Components(const std::vector<Run>& runs) : up_(runs.size())
    {
        std::iota(up_.begin(), up_.end(), 0);
        // Neither search goes past run i, which neither lies before itself nor touches itself.
        std::size_t above = 0;
        for (std::size_t i = 0; i < runs.size(); ++i) {
            while (lies_before(runs[above], runs[i])) {
                ++above;
            }
            for (std::size_t j = above; touch(runs[j], runs[i]); ++j) {
                join(static_cast<int>(j), static_cast<int>(i));
            }
        }
    }

    int first_run_of(int run)
    {
        while (up_[index(run)] != run) {
            run = up_[index(run)] = up_[index(up_[index(run)])];
        }
        return run;
    }

private:
    static std::size_t index(int run) { return static_cast<std::size_t>(run); }

    /// Whether a run ends too early to touch the other one, or any that comes after that.
    static bool lies_before(const Run& run, const Run& other)
    {
        return run.row < other.row - 1 || (run.row == other.row - 1 && run.colEnd < other.colBegin - 1);
    }

    /// Whether two runs, of which the first does not lie before the second, touch by an edge or a corner.
    static bool touch(const Run& run, const Run& other)
    {
        return run.row == other.row - 1 && run.colBegin <= other.colEnd + 1;
    }

    void join(int a, int b)
    {
        const auto [first, second] = std::minmax({first_run_of(a), first_run_of(b)});
        up_[index(second)] = first;
    }

    std::vector<int> up_; // for each run an earlier one of its group, or itself
};

/// Follows borders in a mask and marks what it passes.
class Follower
{
public:
    explicit Follower(cv::Mat& mask) : mask_(mask)
    {
        const auto row = static_cast<std::ptrdiff_t>(mask.step[0]);
        for (std::size_t i = 0; i < steps.size(); ++i) {
            neighbours_[i] = steps[i].y * row + steps[i].x;
        }
    }

    bool is_passed_on_the_right(int x, int y) const { return *mask_.ptr(y, x) == passed_on_the_right; }

    /// The border that starts at a pixel whose neighbour in the direction `from` is background.
    std::vector<KivPixel> follow(int x, int y, unsigned from)
    {
        std::vector<KivPixel> passed;
        cv::Point_<int> at(x, y);
        uchar* const start = mask_.ptr(y, x);
        unsigned direction = from;
        do {
            direction = (direction - 1) % 8;
        } while (start[neighbours_[direction]] == 0 && direction != from);
        if (direction == from) { // a pixel on its own
            *start = passed_on_the_right;
            passed.push_back({at.x - 1, at.y - 1});
            return passed;
        }
        uchar* const last = start + neighbours_[direction];
        for (uchar* pixel = start;;) {
            const unsigned came_from = direction;
            do {
                ++direction;
            } while (pixel[neighbours_[direction % 8]] == 0);
            direction %= 8;
            if (direction != rightwards && direction <= came_from) { // the turn went past the right neighbour
                *pixel = passed_on_the_right;
            }
            passed.push_back({at.x - 1, at.y - 1});
            uchar* const next = pixel + neighbours_[direction];
            if (next == start && pixel == last) {
                return passed;
            }
            pixel = next;
            at.x += steps[direction].x;
            at.y += steps[direction].y;
            direction = (direction + 4) % 8;
        }
    }

private:
    cv::Mat& mask_;
    std::array<std::ptrdiff_t, 8> neighbours_; // how far a pixel's neighbour in each direction is away in memory
};

/// A border, and the hole's border of the same component that was traced before it.
struct Traced {
    std::vector<KivPixel> points;
    int previous_hole = none;
};

/// A list of borders, each of them apart, with the place of the outer border that it belongs to.
struct Chain {
    std::vector<KivPixel> points;
    std::size_t outer;

    friend bool operator==(const Chain& a, const Chain& b) { return a.outer == b.outer && a.points == b.points; }
};
using Chains = std::vector<Chain>;

/// The borders of a mask's non-zero pixels.
inline Chains traced(const cv::Mat& pixels)
{
    cv::Mat mask(pixels.rows + 2, pixels.cols + 2, CV_8UC1, cv::Scalar(0));
    cv::Mat(pixels != 0).copyTo(mask(cv::Rect(1, 1, pixels.cols, pixels.rows)));
    std::vector<Run> runs;
    KivRLC::AppendRuns(mask, runs);
    Components components(runs);
    Follower follower(mask);
    std::vector<Traced> outer_borders;
    std::vector<Traced> hole_borders;
    std::vector<int> first_runs;                     // of the outer borders
    std::vector<int> latest_hole(runs.size(), none); // of the component that begins with a run
    for (int i = 0; i < static_cast<int>(runs.size()); ++i) {
        const Run& run = runs[static_cast<std::size_t>(i)];
        const int first_run = components.first_run_of(i);
        if (first_run == i) {
            outer_borders.push_back({follower.follow(run.colBegin, run.row, leftwards), none});
            first_runs.push_back(i);
        }
        if (!follower.is_passed_on_the_right(run.colEnd, run.row)) {
            int& latest = latest_hole[static_cast<std::size_t>(first_run)];
            hole_borders.push_back({follower.follow(run.colEnd, run.row, rightwards), latest});
            latest = static_cast<int>(hole_borders.size()) - 1;
        }
    }

    Chains ordered;
    for (std::size_t i = outer_borders.size(); i-- > 0;) {
        const std::size_t outer = ordered.size();
        ordered.push_back({outer_borders[i].points, outer});
        for (int hole = latest_hole[static_cast<std::size_t>(first_runs[i])]; hole != none;) {
            const Traced& border = hole_borders[static_cast<std::size_t>(hole)];
            ordered.push_back({border.points, outer});
            hole = border.previous_hole;
        }
    }
    return ordered;
}

/// The same list from what was traced along runs.
inline Chains chains_of(const KivRunBorders& borders)
{
    Chains chains;
    for (const KivRunBorder& border : borders.borders) {
        const auto at = [&borders](std::size_t i) { return borders.points.begin() + static_cast<std::ptrdiff_t>(i); };
        chains.push_back({{at(border.begin), at(border.end)}, border.outer});
    }
    return chains;
}

} // namespace mask_tracer
