// SPDX-License-Identifier: MIT
#include "run_set_access.h"

#include <algorithm>
#include <cstdint>

namespace
{

/// Whether a run ends before another one, in the order of sets.
bool ends_before(const Run& a, const Run& b)
{
    return a.row != b.row ? a.row < b.row : a.colEnd < b.colEnd;
}

/// How many pixels two runs have in common.
std::int64_t overlap(const Run& a, const Run& b)
{
    const std::int64_t begin = std::max(a.colBegin, b.colBegin);
    return a.row == b.row ? std::max<std::int64_t>(std::min(a.colEnd, b.colEnd) - begin + 1, 0) : 0;
}

/// Hands over, from left to right and down, pairs of runs that include all that have a pixel in common, and what they
/// have in common, until `wants_more` says no.
template <class WantsMore>
void walk_overlaps(KivRunView as, KivRunView bs, WantsMore wants_more)
{
    const Run* a = as.begin();
    const Run* b = bs.begin();
    while (a != as.end() && b != bs.end()) {
        if (!wants_more(overlap(*a, *b))) {
            return;
        }
        ends_before(*a, *b) ? ++a : ++b;
    }
}

} // namespace

bool KivRunSet::Contains(int x, int y) const noexcept
{
    const auto begins_behind = [](const Run& pixel, const Run& run) {
        return run.row != pixel.row ? run.row > pixel.row : run.colBegin > pixel.colBegin;
    };
    const KivRunView runs = Runs();
    const Run* const behind = std::upper_bound(runs.begin(), runs.end(), Run{y, x, x}, begins_behind);
    return behind != runs.begin() && behind[-1].row == y && x <= behind[-1].colEnd;
}

bool KivRunSet::IsSubsetOf(const KivRunSet& other) const noexcept
{
    const KivRunView others = other.Runs();
    const Run* candidate = others.begin();
    return std::all_of(runs_.begin(), runs_.end(), [&](const Run& run) {
        candidate = std::find_if(candidate, others.end(), [&](const Run& it) { return !ends_before(it, run); });
        return candidate != others.end() && candidate->row == run.row && candidate->colBegin <= run.colBegin;
    });
}

bool KivRunSet::Intersects(const KivRunSet& other) const noexcept
{
    bool found = false;
    walk_overlaps(Runs(), other.Runs(), [&found](std::int64_t pixels) {
        found = pixels != 0;
        return !found;
    });
    return found;
}

std::int64_t KivRunSet::IntersectionArea(const KivRunSet& other) const noexcept
{
    std::int64_t area = 0;
    walk_overlaps(Runs(), other.Runs(), [&area](std::int64_t pixels) {
        area += pixels;
        return true;
    });
    return area;
}

std::int64_t KivRunSet::UnionArea(const KivRunSet& other) const noexcept
{
    return Area() + other.Area() - IntersectionArea(other);
}

double KivRunSet::IntersectionOverUnion(const KivRunSet& other) const noexcept
{
    const std::int64_t common = IntersectionArea(other);
    const std::int64_t of_union = Area() + other.Area() - common;
    return of_union == 0 ? 1.0 : static_cast<double>(common) / static_cast<double>(of_union);
}
