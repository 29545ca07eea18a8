// SPDX-License-Identifier: MIT
// Every function in several threads at once, each on objects of its own: all results are those of a single thread, and
// the thread sanitizer has nothing to say.
#include "concurrent_calls.h"

#include "faults/scenarios.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace
{

using faults::Scenario;

std::string result_of(const Scenario& scenario)
{
    const faults::Call call = scenario.prepare();
    const int code = call.make();
    return std::to_string(code) + ": " + call.inputs() + " gives " + call.output();
}

class DistinctObjects : public testing::TestWithParam<Scenario>
{
};

TEST_P(DistinctObjects, GiveTheResultsOfASingleThread)
{
    const std::string expected = result_of(GetParam());
    EXPECT_EQ(threads::results_of_threads([] { return result_of(GetParam()); }), threads::always(expected));
}

INSTANTIATE_TEST_SUITE_P(All, DistinctObjects, testing::ValuesIn(faults::all_scenarios()),
                         [](const auto& scenario) { return scenario.param.name; });

TEST(DistinctObjectsOfAllKinds, MayBeUsedAtTheSameTime)
{
    const std::vector<Scenario> scenarios = faults::all_scenarios();
    std::string expected;
    for (const Scenario& scenario : scenarios) {
        expected += result_of(scenario) + '\n';
    }
    const auto every_function = [&] {
        std::string results;
        for (const Scenario& scenario : scenarios) {
            results += result_of(scenario) + '\n';
        }
        return results;
    };
    EXPECT_EQ(threads::results_of_threads(every_function), threads::always(expected));
}

} // namespace
