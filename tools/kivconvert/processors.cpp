// SPDX-License-Identifier: MIT
// Threads that take the next number are all that files need; a library for pools of tasks would bring queues and
// futures that nothing here waits for.
#include "kivconvert/processors.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

namespace kivconvert
{
namespace
{

std::atomic<int> most_jobs{0};

std::size_t jobs()
{
    const int most = most_jobs;
    return most > 0 ? static_cast<std::size_t>(most) : std::max(std::thread::hardware_concurrency(), 1U);
}

} // namespace

void set_jobs(int jobs)
{
    most_jobs = jobs;
}

void on_all_processors(std::size_t count, const std::function<void(std::size_t)>& work)
{
    std::atomic<std::size_t> next{0};
    const auto worker = [&] {
        for (std::size_t i = next++; i < count; i = next++) {
            work(i);
        }
    };
    const std::size_t workers = std::min(count, jobs());
    std::vector<std::thread> helpers;
    helpers.reserve(workers);
    try {
        while (helpers.size() + 1 < workers) {
            helpers.emplace_back(worker);
        }
    } catch (const std::system_error&) { // no more threads can be had: those that there are do the work
    }
    worker();
    for (std::thread& helper : helpers) {
        helper.join();
    }
}

} // namespace kivconvert
