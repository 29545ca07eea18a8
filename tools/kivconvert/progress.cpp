// SPDX-License-Identifier: MIT
#include "kivconvert/progress.h"

#include <algorithm>
#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

namespace kivconvert
{
namespace
{

constexpr const char* clear_line = "\r\033[K";

/// A descriptor of its own: standard error leads nowhere while images are being read.
std::FILE* open_terminal()
{
    return isatty(STDERR_FILENO) == 1 ? fdopen(dup(STDERR_FILENO), "w") : nullptr;
}

/// So that the line stays one: where it wraps, each step would leave it behind.
std::size_t bar_length_for(std::size_t total)
{
    constexpr std::size_t longest = 40;
    winsize size = {};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return longest;
    }
    const std::size_t rest = fmt::formatted_size("[] {0} of {0}", total);
    return std::min(longest, size.ws_col - std::min<std::size_t>(size.ws_col, rest));
}

} // namespace

Progress::Progress(std::size_t total)
    : total_(total), terminal_(open_terminal()), bar_length_(bar_length_for(total)), clearing_([this] {
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
        const std::size_t filled = bar_length_ * done_ / total_;
        fmt::print(terminal_, "{}[{:#<{}}{:.<{}}] {} of {}", clear_line, "", filled, "", bar_length_ - filled, done_,
                   total_);
        std::fflush(terminal_);
    }
}

} // namespace kivconvert
