// SPDX-License-Identifier: MIT
#include "common/checked_count.h"
#include "common/fetch_ahead.h"
#include "common/pixel_batches.h"
#include "common/reserve_more.h"
#include "row_sort.h"
#include "row_sweep.h"
#include "run_room.h"

#include <KivRLC/KivRunLists.h>

#include <algorithm>
#include <cstdint>

namespace
{

/// Whether a run may come next in a list of maximal runs: if so, a number of at least 0. Which runs end a row can
/// hardly be guessed, so that it decides about numbers, not about a branch.
std::int64_t order_of(const Run& run, const Run& next)
{
    const std::int64_t rows = std::int64_t{next.row} - run.row;
    const std::int64_t columns = std::int64_t{next.colBegin} - run.colEnd - 2;
    return rows | kivrlc::chosen(rows == 0, columns, 0) | (std::int64_t{next.colEnd} - next.colBegin);
}

std::int64_t length_of(const Run& run)
{
    return std::max<std::int64_t>(std::int64_t{run.colEnd} - run.colBegin + 1, 0);
}

/// Pixels that are appended to two lists at once.
class PixelBatch
{
public:
    static constexpr std::size_t full = 128;

    PixelBatch(std::vector<int>& columns, std::vector<int>& rows) : columns_(columns), rows_(rows) {}

    void write(std::size_t begin, std::int64_t column, int row)
    {
        for (unsigned i = 0; i < kivcommon::pixels_at_once; ++i) {
            some_columns_[begin + i] = static_cast<int>(static_cast<unsigned>(column) + i);
            some_rows_[begin + i] = row;
        }
    }

    void append(std::size_t count)
    {
        append(some_columns_, count, columns_);
        append(some_rows_, count, rows_);
    }

private:
    static void append(const int* some, std::size_t count, std::vector<int>& all)
    {
        kivcommon::fetch_room_ahead(all, full);
        all.insert(all.end(), some, some + count);
    }

    std::vector<int>& columns_;
    std::vector<int>& rows_;
    int some_columns_[full + kivcommon::spare_pixels];
    int some_rows_[full + kivcommon::spare_pixels];
};

} // namespace

bool KivRuns::IsCanonical(KivRunView runs) noexcept
{
    if (runs.empty()) {
        return true;
    }
    constexpr std::ptrdiff_t many = 64;
    const Run* const last = runs.end() - 1;
    std::int64_t order = std::int64_t{runs.front().colEnd} - runs.front().colBegin;
    for (const Run* run = runs.begin(); order >= 0 && run != last;) {
        for (const Run* const stop = run + std::min(many, last - run); run != stop; ++run) {
            order |= order_of(run[0], run[1]);
        }
    }
    return order >= 0;
}

bool KivRuns::AppendIntersection(KivRunView a, KivRunView b, std::vector<Run>& out)
{
    return kivrlc::sweep<kivrlc::in_both, kivrlc::Trust::none>(a, b, out);
}

bool KivRuns::AppendDifference(KivRunView a, KivRunView b, std::vector<Run>& out)
{
    return kivrlc::sweep<kivrlc::in_first_only, kivrlc::Trust::none>(a, b, out);
}

void KivRuns::SortByRow(std::vector<Run>& runs)
{
    kivrlc::sort_by_row(runs);
}

void KivRuns::SortByRowAndColumn(std::vector<Run>& runs)
{
    kivrlc::sort_by_row_and_column(runs);
}

void KivRuns::AppendPixels(KivRunView runs, std::vector<int>& columns, std::vector<int>& rows)
{
    std::int64_t pixels = 0;
    for (const Run& run : runs) {
        pixels += length_of(run);
    }
    const std::size_t more = kivcommon::checked_count<int>(pixels);
    kivcommon::reserve_more(columns, more);
    kivcommon::reserve_more(rows, more);
    PixelBatch batch(columns, rows);
    kivcommon::list_pixels(runs, batch);
}

void KivRuns::GiveBackSpareRoom(std::vector<Run>& runs)
{
    kivrlc::give_back_spare_room(runs);
}
