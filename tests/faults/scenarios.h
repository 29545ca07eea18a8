// SPDX-License-Identifier: MIT
// One call of every exported function, on arguments made afresh each time: what the fault and the thread tests go
// through. The same scenarios serve the bundled data types and the recording ones; "given.h" makes the arguments and
// describes them, for the one or the other.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace faults
{

/// What a function may do to its output when it fails half-way.
enum class Output {
    untouched,          // it is as it was
    written_gradually,  // it is cleared before anything else, then filled element by element
    rewritten_in_place, // it is the input, too, and some of its elements may be new already
};

/// One call, ready to be made once.
struct Call {
    std::function<int()> make;
    std::function<std::string()> inputs;
    std::function<std::string()> output;
};

struct Scenario {
    std::string name; // the function's, and what is special about its arguments after an underscore
    Output on_failure;
    bool exceptions_become_a_code; // while the output is built
    std::function<Call()> prepare;

    friend std::ostream& operator<<(std::ostream& out, const Scenario& scenario) { return out << scenario.name; }
};

/// What the output holds when nothing fails.
inline std::string complete_output(const Scenario& scenario)
{
    const Call call = scenario.prepare();
    call.make();
    return call.output();
}

std::vector<Scenario> all_scenarios();

} // namespace faults
