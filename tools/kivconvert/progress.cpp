// SPDX-License-Identifier: MIT
#include "kivconvert/progress.h"

#include <fmt/format.h>
#include <unistd.h>
#include <utility>

namespace kivconvert
{
namespace
{

constexpr std::size_t bar_length = 40;
constexpr const char* clear_line = "\r\033[K";

/// A descriptor of its own: standard error leads nowhere while images are being read.
std::FILE* open_terminal()
{
    return isatty(STDERR_FILENO) == 1 ? fdopen(dup(STDERR_FILENO), "w") : nullptr;
}

} // namespace

Progress::Progress(std::size_t total)
    : total_(total), terminal_(open_terminal()), clearing_([this] {
          mutex_.lock(); // for good: nothing draws after this
          clear();
      })
{
    draw();
}

Progress::~Progress()
{
    const auto lock = hold_interruptions();
    clear();
    if (terminal_ != nullptr) {
        std::fclose(std::exchange(terminal_, nullptr));
    }
}

void Progress::clear()
{
    if (terminal_ != nullptr) {
        std::fputs(clear_line, terminal_);
        std::fflush(terminal_);
    }
}

void Progress::advance()
{
    const std::lock_guard lock(mutex_);
    ++done_;
    draw();
}

void Progress::draw()
{
    if (terminal_ != nullptr) {
        const std::size_t filled = bar_length * done_ / total_;
        fmt::print(terminal_, "{}[{:#<{}}{:.<{}}] {} of {}", clear_line, "", filled, "", bar_length - filled, done_,
                   total_);
        std::fflush(terminal_);
    }
}

} // namespace kivconvert
