// SPDX-License-Identifier: MIT
// Rings are walked from upright edge to upright edge. A ring that comes back to a corner it has been at, where pixels
// meet by a corner only, closes a ring of its own there.
#include "checked_int.h"
#include "outline_links.h"

#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunOutlines.h>

#include <algorithm>
#include <cstdint>
#include <unordered_map>

namespace
{

using kivrlc::EdgeLink;
using kivrlc::UprightEdge;
using KivRuns::OutlineRing;
using KivRuns::Outlines;
using KivRuns::PixelCorner;

bool comes_before(const PixelCorner& a, const PixelCorner& b)
{
    return a.y != b.y ? a.y < b.y : a.x < b.x;
}

class OutlineTracer
{
public:
    explicit OutlineTracer(KivRunView runs) : runs_(runs), links_(kivrlc::edge_links(runs)), passed_(links_.size()) {}

    Outlines outlines()
    {
        for (UprightEdge edge = 0; edge < links_.size(); ++edge) {
            if (!passed_[edge]) {
                trace(edge);
            }
        }
        std::sort(found_.rings.begin(), found_.rings.end(), [this](const OutlineRing& a, const OutlineRing& b) {
            return comes_before(found_.corners[a.begin], found_.corners[b.begin]);
        });
        return std::move(found_);
    }

private:
    void trace(UprightEdge first)
    {
        UprightEdge edge = first;
        do {
            passed_[edge] = true;
            const EdgeLink link = links_[edge];
            const std::int64_t from = kivrlc::column_of(runs_, edge);
            const std::int64_t to = kivrlc::column_of(runs_, link.next);
            if (from != to) {
                const int line = kivrlc::checked_int(kivrlc::line_of_end(runs_, edge));
                add({kivrlc::checked_int(from), line}, link.leaves_saddle);
                add({kivrlc::checked_int(to), line}, link.reaches_saddle);
            }
            edge = link.next;
        } while (edge != first);
        close_ring(0);
        saddles_.clear();
    }

    void add(const PixelCorner& corner, bool is_saddle)
    {
        if (is_saddle) {
            const auto key =
                std::uint64_t{static_cast<std::uint32_t>(corner.y)} << 32 | static_cast<std::uint32_t>(corner.x);
            const auto [seen, is_new] = saddles_.try_emplace(key, path_.size());
            if (!is_new) {
                close_ring(seen->second);
            }
        }
        path_.push_back(corner);
    }

    /// Makes a ring of what the path has from a corner on.
    void close_ring(std::size_t first)
    {
        const auto begin = path_.begin() + static_cast<std::ptrdiff_t>(first);
        std::rotate(begin, std::min_element(begin, path_.end(), comes_before), path_.end());
        const std::size_t start = found_.corners.size();
        found_.corners.insert(found_.corners.end(), begin, path_.end());
        // Clockwise, a ring leaves its upper left corner to the right.
        found_.rings.push_back({start, found_.corners.size(), begin[1].x == begin[0].x, 0});
        path_.erase(begin, path_.end());
    }

    KivRunView runs_;
    std::vector<EdgeLink> links_;
    std::vector<bool> passed_;
    Outlines found_;
    std::vector<PixelCorner> path_;                          // the corners of the ring at hand
    std::unordered_map<std::uint64_t, std::size_t> saddles_; // where on the path which saddle is
};

/// Which run the set has at a ring's first corner: the one that begins there, or that ends there, at a hole's.
std::size_t run_at(KivRunView runs, const PixelCorner& corner)
{
    const Run* const behind =
        std::upper_bound(runs.begin(), runs.end(), corner, [](const PixelCorner& place, const Run& run) {
            return run.row != place.y ? run.row > place.y : run.colBegin > place.x;
        });
    return static_cast<std::size_t>(behind - runs.begin()) - 1;
}

void find_outer_rings(const KivRunSet& set, Outlines& outlines)
{
    const KivRuns::ComponentNumbers components = KivRuns::NumberComponents(set, KivRuns::Connectivity::Four);
    std::vector<std::size_t> outer_of(static_cast<std::size_t>(components.count));
    for (std::size_t i = 0; i < outlines.rings.size(); ++i) {
        OutlineRing& ring = outlines.rings[i];
        const std::size_t run = run_at(set.Runs(), outlines.corners[ring.begin]);
        std::size_t& outer = outer_of[static_cast<std::size_t>(components.ofRun[run])];
        if (!ring.isHole) {
            outer = i; // its holes begin further down
        }
        ring.outer = outer;
    }
}

} // namespace

KivRuns::Outlines KivRuns::OutlinesOf(const KivRunSet& set)
{
    Outlines outlines = OutlineTracer(set.Runs()).outlines();
    find_outer_rings(set, outlines);
    return outlines;
}
