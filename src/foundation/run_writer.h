// SPDX-License-Identifier: MIT
#pragma once

#include "common/fetch_ahead.h"
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

    /// For so many runs, as long as no more is known.
    explicit RunWriter(std::size_t expected) : expected_(expected) {}
    RunWriter(const RunWriter&) = delete;
    RunWriter& operator=(const RunWriter&) = delete;

    /// The runs up to the next ones are made from `done` of `all` others, which tells how many there will be.
    void go_on_to(std::size_t done, std::size_t all)
    {
        done_ = done;
        all_ = all;
    }

    /// Where the next run goes.
    Run* place()
    {
        if (next_ > few_ + copied_behind) {
            make_room();
        }
        return next_;
    }

    /// The runs before `end` are written.
    void written_up_to(Run* end) { next_ = end; }

    /// The runs before `end` are written; where the next one goes.
    Run* place_behind(Run* end)
    {
        written_up_to(end);
        return place();
    }

    void push_back(const Run& run)
    {
        *place() = run;
        ++next_;
    }

    void append(RunView runs)
    {
        for (const Run& run : runs) {
            push_back(run);
        }
    }

    /// Takes the last of some runs away.
    Run taken_back()
    {
        if (next_ != few_) {
            return *--next_;
        }
        const Run last = runs_.back();
        runs_.pop_back();
        return last;
    }

    /// All of them. Nothing can be written after that.
    RunList written()
    {
        copy_few();
        return std::move(runs_);
    }

private:
    /// With more runs than that, those that are there are copied before the next ones are written.
    static constexpr std::size_t copied_behind = 100;

    [[gnu::noinline]] void make_room()
    {
        const std::size_t count = runs_.size() + static_cast<std::size_t>(next_ - few_);
        if (count > runs_.capacity()) {
            runs_.reserve(done_ == 0 && count <= expected_ ? expected_ : extrapolated(count));
        }
        kivcommon::fetch_room_ahead(runs_, static_cast<std::size_t>(next_ - few_));
        copy_few();
    }

    std::size_t extrapolated(std::size_t count) const
    {
        const double growth = done_ == 0 ? 1.0 : static_cast<double>(all_) / static_cast<double>(done_);
        return static_cast<std::size_t>(static_cast<double>(count) * std::clamp(growth * 1.0625, 1.25, 32.0));
    }

    void copy_few()
    {
        runs_.insert(runs_.end(), static_cast<const Run*>(few_), static_cast<const Run*>(next_));
        next_ = few_;
    }

    std::size_t expected_;
    std::size_t done_ = 0;
    std::size_t all_ = 0;
    RunList runs_;
    Run few_[copied_behind + at_once];
    Run* next_ = few_;
};

} // namespace kiv
