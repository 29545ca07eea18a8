// SPDX-License-Identifier: MIT
// The same work in several threads at the same time.
#pragma once

#include <latch>
#include <string>
#include <thread>
#include <vector>

namespace threads
{

inline constexpr int thread_count = 4;
inline constexpr int rounds = 25;

/// Runs a piece of work `rounds` times in each of `thread_count` threads, which start together, and returns all
/// results. The work must not throw.
template <class Work>
std::vector<std::string> results_of_threads(Work work)
{
    std::vector<std::vector<std::string>> results_of(thread_count);
    std::latch start(thread_count);
    std::vector<std::thread> workers;
    for (std::vector<std::string>& results : results_of) {
        workers.emplace_back([&] {
            start.arrive_and_wait();
            for (int round = 0; round < rounds; ++round) {
                results.push_back(work());
            }
        });
    }
    for (std::thread& thread : workers) {
        thread.join();
    }
    std::vector<std::string> all;
    for (const std::vector<std::string>& results : results_of) {
        all.insert(all.end(), results.begin(), results.end());
    }
    return all;
}

/// What all threads should return: the same result each time.
inline std::vector<std::string> always(const std::string& result)
{
    return std::vector<std::string>(thread_count * rounds, result);
}

} // namespace threads
