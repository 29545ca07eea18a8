// SPDX-License-Identifier: MIT
#pragma once

#include "common/reserve_more.h"

#include <KivRLC/KivRun.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>
#include <vector>

namespace kivrlc
{

/// How much of some work is done.
struct Progress {
    std::size_t done;
    std::size_t all;
};

/// Room at the end of a vector of runs or points, written to through a pointer, which costs less than to
/// append one by one. In the end the vector has what it had before and what was kept, and no room.
///
/// Where the vector has to grow, it grows to what the work will come to if it goes on as it began, since moving a list
/// takes the memory of both.
template <class Runs>
class RunRoom
{
public:
    using Element = typename Runs::value_type;

    /// Has room for so many runs at first.
    RunRoom(Runs& runs, std::size_t expected) : runs_(runs), size_(runs.size())
    {
        kivcommon::reserve_more(runs_, expected);
        make_room(size_, 0);
    }
    RunRoom(const RunRoom&) = delete;
    RunRoom& operator=(const RunRoom&) = delete;
    ~RunRoom() { runs_.resize(size_); }

    /// Where the first run goes.
    Element* begin() { return runs_.data() + size_; }

    /// Where the next run goes if there is room for so many; makes some if not. What was written before it moves along,
    /// and so does what was written of the next run. `progress()` is asked only then.
    template <class AskProgress>
    Element* with_room(Element* next, std::size_t needed, AskProgress progress)
    {
        if (reinterpret_cast<std::uintptr_t>(end_) - reinterpret_cast<std::uintptr_t>(next) >=
            needed * sizeof(Element)) {
            return next;
        }
        return moved(next, needed, progress());
    }

    /// Keeps the runs that were written before `stop`.
    void keep(const Element* stop) { size_ = static_cast<std::size_t>(stop - runs_.data()); }

private:
    /// As much as the nearest cache holds, as most vectors clear their room first.
    static constexpr std::size_t at_once = 1024;

    [[gnu::noinline]] Element* moved(Element* next, std::size_t needed, Progress progress)
    {
        const auto count = static_cast<std::size_t>(next - runs_.data());
        if (runs_.max_size() - count < needed) {
            throw std::bad_alloc();
        }
        if (runs_.capacity() - count < needed) {
            const std::size_t least = count + needed;
            runs_.reserve(least + std::min(expected_more(count, progress), runs_.max_size() - least));
        }
        make_room(count, needed);
        return runs_.data() + count;
    }

    std::size_t expected_more(std::size_t count, Progress progress) const
    {
        const double growth =
            static_cast<double>(progress.all) / static_cast<double>(std::max<std::size_t>(progress.done, 1));
        const auto made = static_cast<double>(count - size_);
        const double more = made * std::clamp(growth * 1.0625 - 1, 0.25, 31.0);
        return static_cast<std::size_t>(std::min(more, static_cast<double>(runs_.max_size() - count)));
    }

    void make_room(std::size_t count, std::size_t needed)
    {
        const std::size_t size = std::min(count + std::max(needed, at_once), runs_.capacity());
        if constexpr (std::is_same_v<Runs, std::vector<Element>>) { // which clears its room one by one
            static const Element cleared[at_once] = {};
            while (runs_.size() < size) {
                runs_.insert(runs_.end(), cleared, cleared + std::min(at_once, size - runs_.size()));
            }
        }
        runs_.resize(size);
        end_ = runs_.data() + runs_.size();
    }

    Runs& runs_;
    std::size_t size_;
    Element* end_ = nullptr;
};

/// Gives back the memory of a list that is much larger than its runs. A kilobyte is not worth the copy.
template <class Runs>
void give_back_spare_room(Runs& runs)
{
    const std::size_t spare = runs.capacity() - runs.size();
    if (spare > runs.size() / 4 && spare * sizeof(typename Runs::value_type) > 1024) {
        runs = Runs(runs.begin(), runs.end());
    }
}

} // namespace kivrlc
