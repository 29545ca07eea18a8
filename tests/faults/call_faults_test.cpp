// SPDX-License-Identifier: MIT
// Every call into the data types fails once: the first, the second, and so on, until a function goes through. Each time
// the exception reaches the caller, or becomes a code where that is promised; nothing stays behind, and no argument has
// changed that should not have.
#include "given.h"
#include "partly_written.h"
#include "scenarios.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <fstream>
#include <set>

namespace
{

using faults::Output;
using faults::Scenario;

class CallFaults : public testing::TestWithParam<Scenario>
{
};

struct Attempt {
    bool failure_was_injected = false;
    bool threw = false;
    int code = 0;
};

Attempt attempt_with_fault(const faults::Call& call, long fault_at)
{
    recording::Recorder& recorder = recording::recorder();
    recorder.call_count = 0;
    recorder.throw_at = fault_at;
    Attempt attempt;
    try {
        attempt.code = call.make();
    } catch (const recording::Injected&) {
        attempt.threw = true;
    }
    attempt.failure_was_injected = recorder.call_count >= fault_at;
    recorder.throw_at = 0;
    return attempt;
}

TEST_P(CallFaults, NothingIsLostWhenACallFails)
{
    const Scenario& scenario = GetParam();
    const std::string complete = faults::complete_output(scenario);
    long injected = 0;
    for (long fault_at = 1;; ++fault_at) {
        SCOPED_TRACE("call " + std::to_string(fault_at) + " fails");
        const long living_before = recording::recorder().living_objects;
        bool went_through = false;
        {
            const faults::Call call = scenario.prepare();
            const std::string inputs_before = call.inputs();
            const std::string output_before = call.output();
            const long living_arguments = recording::recorder().living_objects;

            const Attempt attempt = attempt_with_fault(call, fault_at);

            EXPECT_EQ(call.inputs(), inputs_before);
            went_through = !attempt.failure_was_injected;
            if (went_through) {
                EXPECT_EQ(attempt.code, KIVMV::KIVMV_OK);
            } else {
                ++injected;
                const bool became_a_code = attempt.code == KIVMV::KIVMV_ERR_EXCEPTION;
                EXPECT_TRUE(attempt.threw || (scenario.exceptions_become_a_code && became_a_code));
                if (scenario.on_failure == Output::written_gradually) {
                    EXPECT_TRUE(faults::is_partly_written(call.output(), output_before, complete)) << call.output();
                }
                if (scenario.on_failure == Output::untouched) {
                    EXPECT_EQ(call.output(), output_before);
                    EXPECT_EQ(recording::recorder().living_objects, living_arguments);
                }
            }
        }
        EXPECT_EQ(recording::recorder().living_objects, living_before);
        if (went_through || HasFailure()) {
            break;
        }
    }
    EXPECT_EQ(recording::recorder().violations, std::vector<std::string>{});
    RecordProperty("faults", static_cast<int>(injected));
}

INSTANTIATE_TEST_SUITE_P(All, CallFaults, testing::ValuesIn(faults::all_scenarios()),
                         [](const auto& scenario) { return scenario.param.name; });

/// The functions in the list of what the library exports, whose lines are such as "T KIVMV::KivROIAdd(KivROI&, ...)".
std::set<std::string> exported_functions()
{
    const std::string mark = "T KIVMV::";
    std::set<std::string> functions;
    std::ifstream list(KIV_EXPORTED_SYMBOLS);
    for (std::string line; std::getline(list, line);) {
        if (line.compare(0, mark.size(), mark) == 0) {
            functions.insert(line.substr(mark.size(), line.find('(') - mark.size()));
        }
    }
    return functions;
}

TEST(Scenarios, CoverAllFunctions)
{
    std::set<std::string> functions;
    for (const Scenario& scenario : faults::all_scenarios()) {
        functions.insert(scenario.name.substr(0, scenario.name.find('_')));
    }
    EXPECT_EQ(functions, exported_functions());
}

} // namespace
