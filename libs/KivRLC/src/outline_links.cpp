// SPDX-License-Identifier: MIT
// Along the line between two rows, the border is where one of the rows has a pixel and the other one has not. These
// level stretches begin and end where runs do, and lead from one upright edge to another: to the right, if the pixels
// are below, to the left, if they are above.
#include "outline_links.h"

#include <algorithm>
#include <limits>

namespace
{

using kivrlc::column_of;
using kivrlc::EdgeLink;
using kivrlc::UprightEdge;

/// The ends of the runs of a row, from left to right.
class RunEnds
{
public:
    RunEnds(KivRunView runs, std::size_t first, std::size_t stop) : runs_(runs), next_(2 * first), stop_(2 * stop) {}

    UprightEdge edge() const { return next_; }
    bool inside() const { return next_ % 2 == 1; }
    std::int64_t column() const
    {
        return next_ == stop_ ? std::numeric_limits<std::int64_t>::max() : column_of(runs_, next_);
    }
    bool done() const { return next_ == stop_; }
    void pass() { ++next_; }

private:
    KivRunView runs_;
    UprightEdge next_;
    UprightEdge stop_;
};

/// Links the edges that end at the line between two rows.
class LineLinker
{
public:
    LineLinker(RunEnds above, RunEnds below, std::vector<EdgeLink>& links) : above_(above), below_(below), links_(links)
    {
    }

    void link()
    {
        while (!above_.done() || !below_.done()) {
            const std::int64_t column = std::min(above_.column(), below_.column());
            pass(above_.column() == column, below_.column() == column);
        }
    }

private:
    struct StretchEnd {
        UprightEdge edge;
        bool is_saddle;
    };

    /// Goes on behind a column where runs begin or end in the row above, or below, or in both.
    void pass(bool is_above, bool is_below)
    {
        const UprightEdge above = above_.edge();
        const UprightEdge below = below_.edge();
        const bool was_stretch = above_.inside() != below_.inside();
        if (was_stretch) {
            end_stretch(above, below, is_above, is_below);
        }
        if (is_above) {
            above_.pass();
        }
        if (is_below) {
            below_.pass();
        }
        if (above_.inside() != below_.inside()) {
            const bool follows_below = below_.inside() ? is_below : !is_above;
            stretch_ = {follows_below ? below : above, is_above && is_below};
        } else if (!was_stretch) {
            go_straight(above, below);
        }
    }

    void end_stretch(UprightEdge above, UprightEdge below, bool is_above, bool is_below)
    {
        const bool is_saddle = is_above && is_below;
        if (below_.inside()) { // to the right
            add(stretch_, {is_below ? below : above, is_saddle});
        } else { // to the left
            add({is_above ? above : below, is_saddle}, stretch_);
        }
    }

    void go_straight(UprightEdge above, UprightEdge below)
    {
        if (below_.inside()) {
            add({below, false}, {above, false});
        } else {
            add({above, false}, {below, false});
        }
    }

    void add(StretchEnd from, StretchEnd to) { links_[from.edge] = {to.edge, from.is_saddle, to.is_saddle}; }

    RunEnds above_;
    RunEnds below_;
    std::vector<EdgeLink>& links_;
    StretchEnd stretch_{}; // the left end of the stretch that goes on
};

std::size_t stop_of_row(KivRunView runs, std::size_t first)
{
    const auto row = runs[first].row;
    const Run* const stop =
        std::find_if(runs.begin() + first, runs.end(), [row](const Run& run) { return run.row != row; });
    return static_cast<std::size_t>(stop - runs.begin());
}

} // namespace

std::vector<EdgeLink> kivrlc::edge_links(KivRunView runs)
{
    std::vector<EdgeLink> links(2 * runs.size());
    std::size_t last_first = 0; // the last row before the one at hand
    std::size_t first = 0;
    const RunEnds nothing(runs, 0, 0);
    while (first < runs.size()) {
        const std::size_t stop = stop_of_row(runs, first);
        const RunEnds last_row(runs, last_first, first);
        const RunEnds row(runs, first, stop);
        if (last_first < first && runs[last_first].row + 1 == runs[first].row) {
            LineLinker(last_row, row, links).link();
        } else {
            LineLinker(last_row, nothing, links).link();
            LineLinker(nothing, row, links).link();
        }
        last_first = first;
        first = stop;
    }
    LineLinker({runs, last_first, first}, nothing, links).link();
    return links;
}
