// SPDX-License-Identifier: MIT
#pragma once

#include "byte_words.h"
#include "combine_row.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kivrlc
{

/// Counts which runs of neighbouring rows touch by a bit for each column, 64 columns at a time. Which of many short
/// runs ends first can hardly be guessed, and here nothing is.
///
/// Of two runs that touch, the one that begins later does so within the other one or up to `reach` columns behind it,
/// and at each column that can be true of one pair only.
class BitRows
{
public:
    explicit BitRows(std::int64_t reach) : by_corners_(reach > 0 ? ~std::uint64_t{0} : 0) {}

    /// Whether two rows lie within as many columns as there are bits, and have so many runs there that to count by bits
    /// takes less time than to walk the rows side by side. None of them is empty.
    static bool suit(RowRuns above, RowRuns row)
    {
        constexpr std::int64_t many = 16;
        constexpr std::int64_t columns_per_run = 32;
        const std::int64_t runs = row.end - row.begin;
        return runs >= many && last_column(above, row) - first_column(above, row) <
                                   std::min(columns_per_run * runs, most_columns - 2 * margin);
    }

    /// The pairs of runs that touch in a row and the one above, which suit().
    std::int64_t touching_pairs(RowRuns above, RowRuns row);

private:
    static constexpr std::int64_t most_words = 256;
    static constexpr std::int64_t most_columns = most_words * word_pixels;
    static constexpr std::int64_t margin = 64; // columns by which later rows may reach further

    static std::int64_t first_column(RowRuns above, RowRuns row)
    {
        return std::min(above.begin->colBegin, row.begin->colBegin);
    }

    static std::int64_t last_column(RowRuns above, RowRuns row)
    {
        return std::max(above.end[-1].colEnd, row.end[-1].colEnd);
    }

    /// Makes all columns from the first one on background. The memory is large, so it is not touched before it is
    /// needed.
    void start(std::int64_t first);

    /// Puts a row in the place of the one above. Returns the pairs of their runs that touch.
    std::int64_t draw(RowRuns row, std::int64_t last);

    std::uint64_t by_corners_;
    const Run* drawn_ = nullptr;           // the first run of the row that was drawn last
    std::int64_t first_ = 0;               // the column of the first bit
    std::uint8_t marks_[most_columns];     // 1 where a run begins, and behind its end; between two rows all are 0
    std::uint64_t inside_[most_words + 1]; // behind a word of zeros, the runs of the row
    std::uint64_t begins_[most_words];     // their first columns
    std::uint64_t reached_[most_words];    // their columns, and if corners count, the next ones
};

} // namespace kivrlc
