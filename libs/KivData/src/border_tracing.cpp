// SPDX-License-Identifier: MIT
// Border following after Suzuki and Abe, on runs. Where a run begins or ends tells where borders may start, and
// which runs touch each other tells which borders belong together, so that pixels are looked at only along the borders.
#include "border_tracing.h"

#include "mask_runs.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace
{

constexpr uchar passed_on_the_right = 1; // a border has passed that has background to the right of the pixel
constexpr int none = -1;

// Directions count counterclockwise from 0, right, to 7.
constexpr unsigned rightwards = 0;
constexpr unsigned leftwards = 4;
struct Step {
    int x;
    int y;
};
constexpr std::array<Step, 8> steps{{{1, 0}, {1, -1}, {0, -1}, {-1, -1}, {-1, 0}, {-1, 1}, {0, 1}, {1, 1}}};

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
    Follower(cv::Mat& mask, cv::Point_<int> offset) : mask_(mask), offset_(offset)
    {
        const auto row = static_cast<std::ptrdiff_t>(mask.step[0]);
        for (std::size_t i = 0; i < steps.size(); ++i) {
            neighbours_[i] = steps[i].y * row + steps[i].x;
        }
    }

    bool is_passed_on_the_right(int x, int y) const { return *mask_.ptr(y, x) == passed_on_the_right; }

    /// The border that starts at a pixel whose neighbour in the direction `from` is background.
    KivContour::Points follow(int x, int y, unsigned from)
    {
        pixels_.clear();
        cv::Point_<int> at(x, y);
        uchar* const start = mask_.ptr(y, x);
        unsigned direction = from;
        do {
            direction = (direction - 1) % 8;
        } while (start[neighbours_[direction]] == 0 && direction != from);
        if (direction == from) { // a pixel on its own
            *start = passed_on_the_right;
            pixels_.push_back(at + offset_);
            return passed();
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
            pixels_.push_back(at + offset_);
            uchar* const next = pixel + neighbours_[direction];
            if (next == start && pixel == last) {
                return passed();
            }
            pixel = next;
            at.x += steps[direction].x;
            at.y += steps[direction].y;
            direction = (direction + 4) % 8;
        }
    }

private:
    KivContour::Points passed() const { return {pixels_.begin(), pixels_.end()}; }

    cv::Mat& mask_;
    cv::Point_<int> offset_;
    std::array<std::ptrdiff_t, 8> neighbours_; // how far a pixel's neighbour in each direction is away in memory
    std::vector<cv::Point_<int>> pixels_;      // of the border that is followed
};

/// A traced hole border, and the one of the same component that was traced before it.
struct HoleBorder {
    KivContour contour;
    int previous_hole = none;
};

} // namespace

std::vector<KivContour> kivdata::trace_borders(cv::Mat& mask, cv::Point_<int> offset)
{
    const std::vector<Run> runs = runs_of_mask(mask);
    Components components(runs);
    Follower follower(mask, offset);
    std::vector<KivContour> outer_borders;
    std::vector<HoleBorder> hole_borders;
    std::vector<int> first_runs;                     // of the outer borders
    std::vector<int> latest_hole(runs.size(), none); // of the component that begins with a run
    for (int i = 0; i < static_cast<int>(runs.size()); ++i) {
        const Run& run = runs[static_cast<std::size_t>(i)];
        const int first_run = components.first_run_of(i);
        if (first_run == i) {
            outer_borders.emplace_back(follower.follow(run.colBegin, run.row, leftwards));
            first_runs.push_back(i);
        }
        if (!follower.is_passed_on_the_right(run.colEnd, run.row)) {
            int& latest = latest_hole[static_cast<std::size_t>(first_run)];
            hole_borders.push_back({KivContour(follower.follow(run.colEnd, run.row, rightwards)), latest});
            latest = static_cast<int>(hole_borders.size()) - 1;
        }
    }

    std::vector<KivContour> ordered;
    ordered.reserve(outer_borders.size() + hole_borders.size());
    while (!outer_borders.empty()) {
        ordered.push_back(std::move(outer_borders.back()));
        outer_borders.pop_back();
        for (int hole = latest_hole[static_cast<std::size_t>(first_runs.back())]; hole != none;) {
            HoleBorder& border = hole_borders[static_cast<std::size_t>(hole)];
            ordered.push_back(std::move(border.contour));
            hole = border.previous_hole;
        }
        first_runs.pop_back();
    }
    return ordered;
}
