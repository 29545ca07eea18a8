// SPDX-License-Identifier: MIT
// Debian has no library for bars in C++, and this one never waits for its terminal.
#include "kivconvert/progress.h"

#include "kivconvert/system.h"

#include <fmt/format.h>
#include <string>
#include <unistd.h>

namespace kivconvert
{
namespace
{

constexpr std::size_t bar_length = 20;
constexpr std::chrono::milliseconds draw_interval{100};

/// Files a second, and the time that the rest takes at this rate; nothing before the first one is done.
std::string rate_text(std::size_t done, std::size_t total, std::chrono::duration<double> elapsed)
{
    if (done == 0 || elapsed.count() <= 0.0) {
        return {};
    }
    const double rate = static_cast<double>(done) / elapsed.count();
    const auto left = static_cast<long>(static_cast<double>(total - done) / rate);
    return fmt::format(", {:.1f}/s, {}:{:02}:{:02} left", rate, left / 3600, left / 60 % 60, left % 60);
}

} // namespace

Progress::Progress(std::size_t total) : total_(total), terminal_(system::open_terminal())
{
    draw(0);
}

Progress::~Progress()
{
    print("\r\033[K");
    close(terminal_);
}

void Progress::advance()
{
    const std::size_t done = ++done_;
    const std::unique_lock lock(drawing_, std::try_to_lock);
    if (lock && std::chrono::steady_clock::now() >= next_draw_) {
        draw(done);
    }
}

void Progress::draw(std::size_t done)
{
    const std::size_t filled = bar_length * done / total_;
    print(fmt::format("\r[{:#<{}}{:.<{}}] {} of {}{}\033[K", "", filled, "", bar_length - filled, done, total_,
                      rate_text(done, total_, std::chrono::steady_clock::now() - begin_)));
    next_draw_ = std::chrono::steady_clock::now() + draw_interval;
}

void Progress::print(std::string_view text) const
{
    system::write_some(terminal_, text); // a lost bar is no failure
}

} // namespace kivconvert
