// SPDX-License-Identifier: MIT
// Every end of every run lies on exactly one border, and where the border goes from there can be seen from the runs
// next to it: one to the left or right on the same row, one on the row above or below. So borders are followed from run
// end to run end; in between they pass along the upper or lower side of a run.
//
// With the background on the right-hand side, left ends are passed downward and right ends upward. In the order of the
// search the first end of an outer border is a left end, the first one of a hole's border a right end.
#pragma once

#include "common/checked_count.h"
#include "run_neighbours.h"
#include "run_room.h"

#include <KivRLC/KivRunBorders.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace kivrlc
{

// An end of a run: 2 i is the left one of run i, 2 i + 1 the right one.
using RunEnd = std::size_t;

constexpr RunEnd end_of(std::size_t run, bool right)
{
    return 2 * run + (right ? 1 : 0);
}
constexpr RunEnd left_end(std::size_t run)
{
    return end_of(run, false);
}
constexpr RunEnd right_end(std::size_t run)
{
    return end_of(run, true);
}
constexpr RunEnd opposite(RunEnd end)
{
    return end ^ 1;
}
constexpr bool is_right(RunEnd end)
{
    return end % 2 != 0;
}
constexpr std::size_t run_of(RunEnd end)
{
    return end / 2;
}

// What is linked with a run end is a run: with a left end the first one that its run touches on the row below, with a
// right end the last one on the row above. Once a border has passed the end, it is that border's component instead.
// Link is an unsigned type that has all run ends in the lower half of its values.
template <class Link>
constexpr Link first_component = ~(std::numeric_limits<Link>::max() / 2);
template <class Link>
constexpr Link no_run = first_component<Link> - 1;

template <class Link>
std::vector<Link> links_of(KivRunView runs)
{
    std::vector<Link> links(2 * runs.size(), no_run<Link>);
    for_each_touching_pair(runs, by_corners, [&links, runs](const Run& upper, const Run& lower) {
        const auto above = static_cast<Link>(&upper - runs.begin());
        const auto below = static_cast<Link>(&lower - runs.begin());
        links[right_end(below)] = above; // of several, the last pair remains
        Link& first_below = links[left_end(above)];
        first_below = first_below == no_run<Link> ? below : first_below;
    });
    return links;
}

/// Follows the borders along runs that are maximal and in order.
template <class Link>
class BorderTracer
{
public:
    /// Adds the points of all borders to `points` until it is destroyed.
    BorderTracer(KivRunView runs, PixelBuffer& points)
        : runs_(runs), links_(links_of<Link>(runs)), points_(points), room_(points, 3 * runs.size() + few_points)
    {
        borders_.reserve(std::min(runs.size(), few_borders));
        for (RunEnd end = 0; end < links_.size(); ++end) {
            if (links_[end] <= no_run<Link>) {
                const bool is_hole = is_right(end); // as that of a component's outer border is passed already
                follow(end, is_hole ? links_[opposite(end)] - first_component<Link> : borders_.size());
            }
        }
        room_.keep(next_);
    }

    std::vector<KivRunBorder> borders() &&
    {
        bring_in_order();
        return std::move(borders_);
    }

private:
    // For so many, memory is asked at once.
    static constexpr std::size_t few_points = 64;
    static constexpr std::size_t few_borders = 16;

    /// Goes on from the right ends of runs upward (Inward = -1), from left ends downward: to the next one of the
    /// border.
    template <int Inward>
    RunEnd pass(RunEnd end, KivPixel*& next)
    {
        const Link link = links_[end];
        const std::int64_t column = column_of(end);
        if (link == no_run<Link>) {
            add_row<Inward>(column + Inward, column_of(opposite(end)), row_of(end), next);
            return opposite(end);
        }
        const RunEnd to = end_of(link, Inward < 0);
        if ((column_of(to) - column) * Inward >= 0) {
            add_row<Inward>(column + Inward, column_of(to) - Inward, row_of(end), next);
            *next++ = pixel_of(to);
            return to;
        }
        const RunEnd beside = Inward < 0 ? end + 1 : end - 1; // none if the run is the first one or the last one of all
        if (beside < links_.size() && row_of(beside) == row_of(end) &&
            (column_of(beside) + Inward - column_of(to)) * Inward >= 0) {
            add_row<-Inward>(column - Inward, column_of(beside) + Inward, row_of(to), next);
            *next++ = pixel_of(beside);
            return beside;
        }
        add_row<-Inward>(column - Inward, column_of(to), row_of(to), next);
        return to;
    }

    /// Adds points from column to column, if there are any in this direction, and makes room for one more.
    template <int Direction>
    void add_row(std::int64_t from, std::int64_t to, int row, KivPixel*& next)
    {
        const std::int64_t count = (to - from) * Direction + 1;
        next = with_room(next, std::max<std::int64_t>(count, 0) + 1);
        for (std::int64_t i = 0; i < count; ++i) {
            *next++ = KivPixel{static_cast<int>(from + i * Direction), row};
        }
    }

    KivPixel* with_room(KivPixel* next, std::int64_t needed)
    {
        return room_.with_room(next, kivcommon::checked_count<KivPixel>(needed), [&] {
            return Progress{passed_, links_.size()};
        });
    }

    int row_of(RunEnd end) const { return runs_[run_of(end)].row; }
    std::int64_t column_of(RunEnd end) const { return pixel_of(end).x; }
    KivPixel pixel_of(RunEnd end) const
    {
        const Run& run = runs_[run_of(end)];
        return {is_right(end) ? run.colEnd : run.colBegin, run.row};
    }

    void follow(RunEnd start, std::size_t outer)
    {
        KivPixel* next = with_room(next_, 1);
        const std::ptrdiff_t begin = next - points_.data();
        *next++ = pixel_of(start);
        RunEnd at = start;
        do {
            const RunEnd to = is_right(at) ? pass<-1>(at, next) : pass<1>(at, next);
            links_[at] = static_cast<Link>(first_component<Link> + outer);
            ++passed_;
            at = to;
        } while (at != start);
        if (next - points_.data() > begin + 1) { // back at the first point
            --next;
        }
        borders_.push_back({static_cast<std::size_t>(begin), static_cast<std::size_t>(next - points_.data()), outer});
        next_ = next;
    }

    /// Orders the borders from the last outer one to the first, each followed by its holes, likewise.
    void bring_in_order()
    {
        // The links have served, and there is one for each border at least, as each starts at a run end of its own.
        // They become the border behind each border in the new order: of an outer one its last hole, of a hole that
        // before it.
        constexpr Link none = std::numeric_limits<Link>::max();
        for (std::size_t i = 0; i < borders_.size(); ++i) {
            const std::size_t outer = borders_[i].outer;
            links_[i] = outer == i ? none : std::exchange(links_[outer], static_cast<Link>(i));
        }
        // Then the new place of each border.
        std::size_t place = 0;
        for (std::size_t i = borders_.size(); i-- > 0;) {
            if (borders_[i].outer == i) {
                const std::size_t outer = place;
                for (std::size_t next = i; next != none;) {
                    borders_[next].outer = outer;
                    next = std::exchange(links_[next], static_cast<Link>(place++));
                }
            }
        }
        for (std::size_t i = 0; i < borders_.size(); ++i) {
            while (links_[i] != i) {
                const std::size_t to = links_[i];
                std::swap(borders_[i], borders_[to]);
                std::swap(links_[i], links_[to]);
            }
        }
    }

    KivRunView runs_;
    std::vector<Link> links_;           // of the run ends
    std::vector<KivRunBorder> borders_; // in the order of the search, `outer` being a place in it
    PixelBuffer& points_;
    RunRoom<PixelBuffer> room_;
    KivPixel* next_ = room_.begin(); // where the next point goes
    std::size_t passed_ = 0;         // run ends
};

/// The borders of the pixels of runs that are maximal and in order.
template <class Link>
KivRunBorders borders_of(KivRunView runs)
{
    KivRunBorders traced;
    traced.borders = BorderTracer<Link>(runs, traced.points).borders();
    give_back_spare_room(traced.points);
    return traced;
}

} // namespace kivrlc
