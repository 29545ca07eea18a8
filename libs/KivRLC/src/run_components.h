// SPDX-License-Identifier: MIT
// The components of runs, by union-find. Runs are numbered provisionally as they come, a new number for each run that
// touches none above it; runs that join two numbers join their trees (Rem's algorithm with splicing, the fastest of
// those compared by Patwary, Blair and Manne 2010). A parent always has the smaller number, so one pass upwards makes
// all numbers final, in the order of the components' first runs.
#pragma once

#include "run_measures.h"

#include <cstddef>
#include <vector>

namespace kivrlc
{

class ComponentForest
{
public:
    /// A number of its own.
    int add()
    {
        const int number = static_cast<int>(up_.size());
        up_.push_back(number);
        return number;
    }

    /// Makes two numbers mean the same component.
    void join(int a, int b)
    {
        while (up(a) != up(b)) {
            if (up(a) < up(b)) {
                std::swap(a, b);
            }
            a = std::exchange(up(a), up(b));
        }
    }

    /// Replaces what the numbers mean by 0, 1, ... and returns how many there are. Nothing can be joined after that.
    int settle()
    {
        int count = 0;
        for (std::size_t i = 0; i < up_.size(); ++i) {
            up_[i] = up_[i] == static_cast<int>(i) ? count++ : up(up_[i]);
        }
        return count;
    }

    /// Another number of the same component, not greater than this one; the final number, once settled.
    int number_of(int provisional) const { return up_[static_cast<std::size_t>(provisional)]; }

private:
    int& up(int number) { return up_[static_cast<std::size_t>(number)]; }

    std::vector<int> up_; // an earlier number of the same component, or itself; once settled, the component's number
};

/// The component of each run, and how many there are.
struct NumberedRuns {
    std::vector<int> of_run;
    int count = 0;
};

NumberedRuns number_components(KivRunView runs, KivRuns::Connectivity connectivity);

} // namespace kivrlc
