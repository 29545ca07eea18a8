// SPDX-License-Identifier: MIT
#pragma once

#include "byte_words.h"

#include <KivRLC/KivRun.h>

#include <algorithm>
#include <cstddef>

namespace kivrlc
{

/// Room at the end of a vector of runs, written to through a pointer, which costs less than to append one by one. In
/// the end the vector has what it had before and what was kept, and no room.
template <class Runs>
class RunRoom
{
public:
    /// Has room for the runs of a word and of the row's last pixels.
    explicit RunRoom(Runs& runs) : runs_(runs), size_(runs.size()) { make_room(size_); }
    RunRoom(const RunRoom&) = delete;
    RunRoom& operator=(const RunRoom&) = delete;
    ~RunRoom() { runs_.resize(size_); }

    /// Where the first run goes.
    Run* begin() { return runs_.data() + size_; }

    /// Where the next run goes if there is room for the runs of a word from there on; makes some if not. What was
    /// written before it moves along, and so does what was written of the next run.
    Run* with_room(Run* next)
    {
        if (next < full_) {
            return next;
        }
        const auto count = static_cast<std::size_t>(next - runs_.data());
        make_room(count);
        return runs_.data() + count;
    }

    /// Keeps the runs that were written before `stop`.
    void keep(const Run* stop) { size_ = static_cast<std::size_t>(stop - runs_.data()); }

private:
    /// A word has at most 32 runs beside the one that reaches into it; that one and the first one behind the word take
    /// two places more.
    static constexpr std::size_t least = word_pixels / 2 + 2;
    /// As much as the nearest cache holds, as most vectors clear their room first.
    static constexpr std::size_t most = 1024;

    void make_room(std::size_t count)
    {
        runs_.resize(count + std::clamp(count, 2 * least, most));
        full_ = runs_.data() + (runs_.size() - least);
    }

    Runs& runs_;
    std::size_t size_;
    Run* full_ = nullptr;
};

} // namespace kivrlc
