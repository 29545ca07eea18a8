// SPDX-License-Identifier: MIT
#include "checked_int.h"
#include "run_set_access.h"

#include <KivRLC/KivRunTransforms.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <stdexcept>
#include <utility>
#include <vector>

namespace
{

using kivrlc::RunBuffer;

void check_factors(int columns, int rows)
{
    if (columns < 1 || rows < 1) {
        throw std::invalid_argument("KivRuns: a scale factor is less than 1");
    }
}

std::int64_t floor_of_quotient(std::int64_t a, std::int64_t b)
{
    return a / b - (a % b < 0 ? 1 : 0);
}

/// From a block on, there are more pixels of the set in a block, or fewer.
struct Change {
    std::int64_t block;
    std::int64_t pixels;
};

/// Appends what a run changes: as many pixels as it has in its first and last blocks, and full rows of blocks between.
void append_changes(const Run& run, std::int64_t factor, std::vector<Change>& changes)
{
    const std::int64_t first = floor_of_quotient(run.colBegin, factor);
    const std::int64_t last = floor_of_quotient(run.colEnd, factor);
    const std::int64_t missing_before = run.colBegin - first * factor;
    const std::int64_t missing_behind = (last + 1) * factor - 1 - run.colEnd;
    changes.push_back({first, factor - missing_before});
    changes.push_back({first + 1, missing_before});
    changes.push_back({last, -missing_behind});
    changes.push_back({last + 1, missing_behind - factor});
}

/// Appends the runs of blocks with `least` pixels or more.
void append_blocks(int row, std::vector<Change>& changes, std::int64_t least, RunBuffer& runs)
{
    std::sort(changes.begin(), changes.end(), [](const Change& a, const Change& b) { return a.block < b.block; });
    std::int64_t pixels = 0;
    bool inside = false;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        pixels += changes[i].pixels;
        const bool more_of_block = i + 1 < changes.size() && changes[i + 1].block == changes[i].block;
        if (more_of_block || inside == (pixels >= least)) {
            continue;
        }
        if (inside) {
            runs.back().colEnd = static_cast<int>(changes[i].block - 1);
        } else {
            const int begin = static_cast<int>(changes[i].block);
            runs.push_back({row, begin, begin});
        }
        inside = !inside;
    }
}

std::int64_t least_pixels(std::int64_t of, KivRuns::BlockRule rule)
{
    return rule == KivRuns::BlockRule::Any ? 1 : rule == KivRuns::BlockRule::Most ? of / 2 + 1 : of;
}

} // namespace

KivRunSet KivRuns::ScaleUp(const KivRunSet& set, int columnFactor, int rowFactor)
{
    check_factors(columnFactor, rowFactor);
    const KivRunView runs = set.Runs();
    RunBuffer scaled;
    for (const Run* row = runs.begin(); row != runs.end();) {
        const Run* const next = kivrlc::behind_row(runs, row->row);
        for (int i = 0; i < rowFactor; ++i) {
            const int scaled_row = kivrlc::checked_int(std::int64_t{row->row} * rowFactor + i);
            std::transform(row, next, std::back_inserter(scaled), [=](const Run& run) {
                return Run{scaled_row, kivrlc::checked_int(std::int64_t{run.colBegin} * columnFactor),
                           kivrlc::checked_int((std::int64_t{run.colEnd} + 1) * columnFactor - 1)};
            });
        }
        row = next;
    }
    return kivrlc::set_of_canonical(std::move(scaled));
}

KivRunSet KivRuns::ScaleDown(const KivRunSet& set, int columnFactor, int rowFactor, BlockRule rule)
{
    check_factors(columnFactor, rowFactor);
    const std::int64_t least = least_pixels(std::int64_t{columnFactor} * rowFactor, rule);
    const KivRunView runs = set.Runs();
    RunBuffer scaled;
    std::vector<Change> changes;
    for (const Run* run = runs.begin(); run != runs.end();) {
        const std::int64_t row = floor_of_quotient(run->row, rowFactor);
        changes.clear();
        for (; run != runs.end() && floor_of_quotient(run->row, rowFactor) == row; ++run) {
            append_changes(*run, columnFactor, changes);
        }
        append_blocks(static_cast<int>(row), changes, least, scaled);
    }
    return kivrlc::set_of_canonical(std::move(scaled));
}
