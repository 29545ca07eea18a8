// SPDX-License-Identifier: MIT
// Every end of every run lies on exactly one border, and where the border goes from there can be seen from the runs
// next to it: one to the left or right on the same row, one on the row above or below. So borders are followed from run
// end to run end; in between they pass along the upper or lower side of a run.
//
// With the background on the right-hand side, left ends are passed downward and right ends upward. In the order of the
// search the first end of an outer border is a left end, the first one of a hole's border a right end.
#include <KivRLC/KivRunBorders.h>

#include "checked_count.h"

#include <KivRLC/KivRunSet.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <stdexcept>
#include <utility>

namespace
{

constexpr std::size_t no_run = static_cast<std::size_t>(-1);
constexpr std::size_t passed = static_cast<std::size_t>(-2);
constexpr std::size_t no_border = static_cast<std::size_t>(-1);

/// Whether the runs are maximal, ordered by row, then by column, and all in the box.
bool are_those_of_a_set_in(const KivRunBox& box, KivRunView runs)
{
    const Run* before = nullptr;
    for (const Run& run : runs) {
        if (run.colBegin > run.colEnd || run.colBegin < box.colBegin || run.colEnd > box.colEnd ||
            run.row < box.rowBegin || run.row > box.rowEnd ||
            (before != nullptr &&
             (run.row < before->row || (run.row == before->row && run.colBegin - std::int64_t{1} <= before->colEnd)))) {
            return false;
        }
        before = &run;
    }
    return true;
}

/// The runs with what lies outside of the box cut off; of those wholly outside nothing, or an inverted run, is left.
std::vector<Run> cut_to(const KivRunBox& box, KivRunView runs)
{
    std::vector<Run> cut;
    cut.reserve(runs.size());
    for (const Run& run : runs) {
        if (box.rowBegin <= run.row && run.row <= box.rowEnd) {
            cut.push_back({run.row, std::max(run.colBegin, box.colBegin), std::min(run.colEnd, box.colEnd)});
        }
    }
    return cut;
}

/// What is known about a run.
struct Links {
    std::size_t above =
        no_run; // the last run that it touches on the row above; `passed` once a border passed its right end
    std::size_t below =
        no_run; // the first run that it touches on the row below; `passed` once a border passed its left end
    std::size_t outer = no_border; // of its component, once a border passed its left end
};

/// One of the two ends of a run.
struct RunEnd {
    std::size_t run;
    bool is_right;
};

/// Whether a run ends too early to touch the other one, or any that comes after that.
bool lies_before(const Run& run, const Run& other)
{
    const std::int64_t next_row = std::int64_t{run.row} + 1;
    return next_row < other.row || (next_row == other.row && std::int64_t{run.colEnd} + 1 < other.colBegin);
}

/// Whether two runs, of which the first does not lie before the second, touch by an edge or a corner.
bool touches_below(const Run& run, const Run& other)
{
    return run.row < other.row && run.colBegin <= std::int64_t{other.colEnd} + 1;
}

std::vector<Links> links_of(KivRunView runs)
{
    std::vector<Links> links(runs.size());
    // Neither search goes past run i, which neither lies before itself nor touches itself.
    std::size_t first = 0;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        while (lies_before(runs[first], runs[i])) {
            ++first;
        }
        for (std::size_t j = first; touches_below(runs[j], runs[i]); ++j) {
            links[i].above = j;
            if (links[j].below == no_run) {
                links[j].below = i;
            }
        }
    }
    return links;
}

/// A border, in the order of the search.
struct FoundBorder {
    KivRunBorder border; // `outer` being a place in that order
    std::size_t hole;    // of the component: of an outer border the last one found, of a hole's the one before it
};

/// The borders from the last outer one to the first, each followed by its holes.
std::vector<KivRunBorder> in_order(const std::vector<FoundBorder>& found)
{
    std::vector<KivRunBorder> ordered;
    ordered.reserve(found.size());
    for (std::size_t i = found.size(); i-- > 0;) {
        if (found[i].border.outer == i) {
            const std::size_t outer = ordered.size();
            for (std::size_t next = i; next != no_border; next = found[next].hole) {
                ordered.push_back({found[next].border.begin, found[next].border.end, outer});
            }
        }
    }
    return ordered;
}

/// Follows the borders along runs that are maximal and in order.
class BorderTracer
{
public:
    explicit BorderTracer(KivRunView runs) : runs_(runs), links_(links_of(runs))
    {
        points_.reserve(4 * runs.size() + few_points);
        found_.reserve(std::min(runs.size(), few_borders));
        for (std::size_t i = 0; i < runs.size(); ++i) {
            if (links_[i].below != passed) {
                follow({i, false}, found_.size());
            }
            if (links_[i].above != passed) {
                follow({i, true}, links_[i].outer);
            }
        }
    }

    KivRunBorders result() && { return {in_order(found_), std::move(points_)}; }

private:
    // For so many, memory is asked at once.
    static constexpr std::size_t few_points = 256;
    static constexpr std::size_t few_borders = 16;

    // Columns that are a step beside an int are computed as std::int64_t.
    void add_rightwards(std::int64_t from, std::int64_t to, int row) { add_row(from, to - from + 1, 1, row); }
    void add_leftwards(std::int64_t from, std::int64_t to, int row) { add_row(from, from - to + 1, -1, row); }

    void add_row(std::int64_t from, std::int64_t count, int step, int row)
    {
        const std::size_t begin = points_.size();
        points_.resize(
            kivrlc::checked_count<KivPixel>(static_cast<std::int64_t>(begin) + std::max<std::int64_t>(count, 0)));
        std::int64_t x = from;
        for (auto point = points_.begin() + static_cast<std::ptrdiff_t>(begin); point != points_.end(); ++point) {
            *point = {static_cast<int>(x), row};
            x += step;
        }
    }

    void follow(RunEnd start, std::size_t outer)
    {
        const std::size_t begin = points_.size();
        points_.push_back({start.is_right ? runs_[start.run].colEnd : runs_[start.run].colBegin, runs_[start.run].row});
        RunEnd at = start;
        do {
            at = at.is_right ? pass_right_end(at.run) : pass_left_end(at.run, outer);
        } while (at.run != start.run || at.is_right != start.is_right);
        if (points_.size() > begin + 1) { // back at the first point
            points_.pop_back();
        }
        add_border({begin, points_.size(), outer});
    }

    void add_border(const KivRunBorder& border)
    {
        const std::size_t place = found_.size();
        const bool is_hole = border.outer != place;
        found_.push_back({border, is_hole ? std::exchange(found_[border.outer].hole, place) : no_border});
    }

    /// Goes on from the left end of a run, downward: to the next run end of the border.
    RunEnd pass_left_end(std::size_t i, std::size_t outer)
    {
        const Run& run = runs_[i];
        const std::size_t below = links_[i].below;
        links_[i].below = passed;
        links_[i].outer = outer;
        if (below == no_run) {
            add_rightwards(std::int64_t{run.colBegin} + 1, run.colEnd, run.row);
            return {i, true};
        }
        const Run& next = runs_[below];
        if (next.colBegin >= run.colBegin) {
            add_rightwards(std::int64_t{run.colBegin} + 1, std::int64_t{next.colBegin} - 1, run.row);
            points_.push_back({next.colBegin, next.row});
            return {below, false};
        }
        if (i > 0 && runs_[i - 1].row == run.row && runs_[i - 1].colEnd + 1 >= next.colBegin) {
            add_leftwards(run.colBegin - 1, runs_[i - 1].colEnd + 1, next.row);
            points_.push_back({runs_[i - 1].colEnd, run.row});
            return {i - 1, true};
        }
        add_leftwards(run.colBegin - 1, next.colBegin, next.row);
        return {below, false};
    }

    /// Goes on from the right end of a run, upward: to the next run end of the border.
    RunEnd pass_right_end(std::size_t i)
    {
        const Run& run = runs_[i];
        const std::size_t above = links_[i].above;
        links_[i].above = passed;
        if (above == no_run) {
            add_leftwards(std::int64_t{run.colEnd} - 1, run.colBegin, run.row);
            return {i, false};
        }
        const Run& next = runs_[above];
        if (next.colEnd <= run.colEnd) {
            add_leftwards(std::int64_t{run.colEnd} - 1, std::int64_t{next.colEnd} + 1, run.row);
            points_.push_back({next.colEnd, next.row});
            return {above, true};
        }
        if (i + 1 < runs_.size() && runs_[i + 1].row == run.row && runs_[i + 1].colBegin - 1 <= next.colEnd) {
            add_rightwards(run.colEnd + 1, runs_[i + 1].colBegin - 1, next.row);
            points_.push_back({runs_[i + 1].colBegin, run.row});
            return {i + 1, false};
        }
        add_rightwards(run.colEnd + 1, next.colEnd, next.row);
        return {above, true};
    }

    KivRunView runs_;
    std::vector<Links> links_;
    std::vector<FoundBorder> found_;
    kivrlc::PixelBuffer points_;
};

} // namespace

KivRunBorders KivRunBorders::Of(KivRunView runs)
{
    return Of(runs, {INT_MIN, INT_MAX, INT_MIN, INT_MAX});
}

KivRunBorders KivRunBorders::Of(KivRunView runs, const KivRunBox& box)
{
    if (are_those_of_a_set_in(box, runs)) {
        return BorderTracer(runs).result();
    }
    return BorderTracer(KivRunSet(cut_to(box, runs)).Runs()).result();
}
