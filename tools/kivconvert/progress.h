// SPDX-License-Identifier: MIT
// A progress bar for interactive terminals.
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <mutex>
#include <string_view>

namespace kivconvert
{

/// A bar on standard error while the object lives; nothing where that is no terminal. It never keeps the work waiting:
/// while a terminal takes no output, the bar is not drawn.
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
    void draw(std::size_t done);
    void print(std::string_view text) const;

    std::size_t total_;
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
    std::atomic<std::size_t> done_{0};
    int terminal_; ///< -1: none
    std::mutex drawing_;
    std::chrono::steady_clock::time_point next_draw_;
};

} // namespace kivconvert
