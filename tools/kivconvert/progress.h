// SPDX-License-Identifier: MIT
// How far the work is, for those who watch it on a terminal.
#pragma once

#include "kivconvert/interruptions.h"

#include <cstddef>
#include <cstdio>
#include <mutex>

namespace kivconvert
{

/// A bar on standard error while the object lives; nothing where that is no terminal.
class Progress
{
public:
    explicit Progress(std::size_t total);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    /// One more is done. May be called by several threads at a time.
    void advance();

private:
    void draw();
    void clear();

    std::size_t total_;
    std::size_t done_ = 0;
    std::mutex mutex_;
    std::FILE* terminal_;    // null: nobody watches
    std::size_t bar_length_; // as the terminal has room
    UndoneByInterruption clearing_;
};

} // namespace kivconvert
