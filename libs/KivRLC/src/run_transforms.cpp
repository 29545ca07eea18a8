// SPDX-License-Identifier: MIT
#include "run_moves.h"
#include "run_set_access.h"
#include "run_transpose.h"

#include <KivRLC/KivRunTransforms.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace
{

std::int64_t sum(int a, int b)
{
    return std::int64_t{a} + b;
}

std::int64_t difference(int a, int b)
{
    return std::int64_t{a} - b;
}

} // namespace

KivRunSet KivRuns::Translate(const KivRunSet& set, int dx, int dy)
{
    return kivrlc::moved(set, {false, dx}, {false, dy});
}

KivRunSet KivRuns::FlipLeftRight(const KivRunSet& set, const KivRunBox& box)
{
    return kivrlc::moved(set, {true, sum(box.colBegin, box.colEnd)}, {false, 0});
}

KivRunSet KivRuns::FlipUpDown(const KivRunSet& set, const KivRunBox& box)
{
    return kivrlc::moved(set, {false, 0}, {true, sum(box.rowBegin, box.rowEnd)});
}

KivRunSet KivRuns::Turn(const KivRunSet& set, int quarters, const KivRunBox& box)
{
    switch (quarters & 3) {
    case 0:
        return set;
    case 1:
        return kivrlc::moved(Transpose(set), {true, sum(box.colBegin, box.rowEnd)},
                             {false, difference(box.rowBegin, box.colBegin)});
    case 2:
        return kivrlc::moved(set, {true, sum(box.colBegin, box.colEnd)}, {true, sum(box.rowBegin, box.rowEnd)});
    default:
        return kivrlc::moved(Transpose(set), {false, difference(box.colBegin, box.rowBegin)},
                             {true, sum(box.rowBegin, box.colEnd)});
    }
}

KivRunSet KivRuns::Transpose(const KivRunSet& set)
{
    // The uppermost and the lowermost pixels of all vertical runs.
    kivrlc::RunBuffer runs = kivrlc::pixels_by_column(set - kivrlc::moved_by_a_row(set, 1));
    const kivrlc::RunBuffer ends = kivrlc::pixels_by_column(set - kivrlc::moved_by_a_row(set, -1));
    std::transform(runs.begin(), runs.end(), ends.begin(), runs.begin(), [](const Run& begin, const Run& end) {
        return Run{begin.row, begin.colBegin, end.colEnd};
    });
    return kivrlc::set_of_canonical(std::move(runs));
}

KivRunSet KivRuns::Crop(const KivRunSet& set, const KivRunBox& box)
{
    if (box.rowBegin > box.rowEnd || box.colBegin > box.colEnd) {
        return {};
    }
    const Run* const begin = kivrlc::first_from_row(set.Runs(), box.rowBegin);
    const Run* const end = kivrlc::behind_row(set.Runs(), box.rowEnd);
    kivrlc::RunBuffer runs(static_cast<std::size_t>(end - begin));
    Run* out = runs.data();
    std::for_each(begin, end, [&out, &box](const Run& run) {
        *out = {run.row, std::max(run.colBegin, box.colBegin), std::min(run.colEnd, box.colEnd)};
        out += out->colBegin <= out->colEnd ? 1 : 0;
    });
    runs.resize(static_cast<std::size_t>(out - runs.data()));
    return kivrlc::set_of_canonical(std::move(runs));
}
