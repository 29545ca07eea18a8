// SPDX-License-Identifier: MIT
// Threads that do the same at the same time.
#pragma once

#include <latch>
#include <string>
#include <thread>
#include <vector>

namespace threads
{

inline constexpr int crew_size = 4;
inline constexpr int rounds = 25;

/// Lets each of the crew make so many rounds of a piece of work, all beginning together, and gives all results. The
/// work must not throw.
template <class Work>
std::vector<std::string> results_of_crew(Work work)
{
    std::vector<std::vector<std::string>> results_of(crew_size);
    std::latch start(crew_size);
    std::vector<std::thread> crew;
    for (std::vector<std::string>& results : results_of) {
        crew.emplace_back([&] {
            start.arrive_and_wait();
            for (int round = 0; round < rounds; ++round) {
                results.push_back(work());
            }
        });
    }
    for (std::thread& thread : crew) {
        thread.join();
    }
    std::vector<std::string> all;
    for (const std::vector<std::string>& results : results_of) {
        all.insert(all.end(), results.begin(), results.end());
    }
    return all;
}

/// What the crew should give: the same result each time.
inline std::vector<std::string> always(const std::string& result)
{
    return std::vector<std::string>(crew_size * rounds, result);
}

} // namespace threads
