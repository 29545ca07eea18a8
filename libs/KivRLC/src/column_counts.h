// SPDX-License-Identifier: MIT
#pragma once

#include <KivRLC/KivRun.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kivrlc
{

/// How many runs of a row have begun, and how many have ended, at each column. Which of many short runs another one
/// touches can hardly be guessed, but it can be looked up.
class ColumnCounts
{
public:
    static constexpr std::ptrdiff_t most_runs = UINT16_MAX;

    /// Counts the runs of a row, which has some, but not more than that. They and the columns next to them lie between
    /// the two columns.
    void count(const Run* run, const Run* end, std::int64_t first, std::int64_t last)
    {
        first_ = first;
        const auto columns = static_cast<std::size_t>(last - first) + 1;
        if (begun_.size() < columns + at_once) {
            begun_.resize(columns + at_once);
            ended_.resize(columns + at_once);
        }
        std::uint16_t* begun = begun_.data();
        std::uint16_t* ended = ended_.data();
        std::uint16_t count = 0;
        for (; run != end; ++run, ++count) {
            begun = fill(begun, &begun_[place_of(run->colBegin)], count);
            ended = fill(ended, &ended_[place_of(std::int64_t{run->colEnd} + 1)], count);
        }
        fill(begun, begun_.data() + columns, count);
        fill(ended, ended_.data() + columns, count);
    }

    /// How many runs begin at a column or left of it.
    std::size_t begun_up_to(std::int64_t column) const { return begun_[place_of(column)]; }

    /// How many runs end left of a column.
    std::size_t ended_before(std::int64_t column) const { return ended_[place_of(column)]; }

private:
    static constexpr int at_once = 8;

    /// Writes many at once, the last of them into the place of others, as how far it is can hardly be guessed either.
    static std::uint16_t* fill(std::uint16_t* next, std::uint16_t* stop, std::uint16_t value)
    {
        do {
            for (int i = 0; i < at_once; ++i) {
                next[i] = value;
            }
            next += at_once;
        } while (next < stop);
        return stop;
    }

    std::size_t place_of(std::int64_t column) const { return static_cast<std::size_t>(column - first_); }

    std::int64_t first_ = 0;
    std::vector<std::uint16_t> begun_;
    std::vector<std::uint16_t> ended_;
};

} // namespace kivrlc
