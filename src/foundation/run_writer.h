// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/runs.h"

#include <algorithm>
#include <utility>

namespace kiv
{

/// A list of runs to be written through a pointer, which costs less than to append one by one. They are written to a
/// place that stays in the nearest cache and copied from there, many at once, so that the list need not be cleared
/// first. A list of few runs takes no more memory than these.
class RunWriter
{
public:
    /// How many runs may be written between two calls of place().
    static constexpr std::size_t at_once = 128;

    /// For so many runs at the most.
    explicit RunWriter(std::size_t most) : most_(most) {}
    RunWriter(const RunWriter&) = delete;
    RunWriter& operator=(const RunWriter&) = delete;

    /// Where the next run goes.
    Run* place()
    {
        if (next_ > few_ + at_once) {
            runs_.reserve(most_);
            copy_few();
        }
        return next_;
    }

    /// The runs before `end` are written.
    void written_up_to(Run* end) { next_ = end; }

    /// All of them. Nothing can be written after that.
    RunList written()
    {
        copy_few();
        return std::move(runs_);
    }

private:
    [[gnu::noinline]] void copy_few()
    {
        runs_.insert(runs_.end(), static_cast<const Run*>(few_), static_cast<const Run*>(next_));
        next_ = few_;
    }

    std::size_t most_;
    RunList runs_;
    Run few_[2 * at_once];
    Run* next_ = few_;
};

} // namespace kiv
