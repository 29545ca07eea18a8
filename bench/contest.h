// SPDX-License-Identifier: MIT
// Who is timed at what. An entry is one contestant doing one function's work on one workload: "kiv" is this library,
// "peer:..." another one, "floor:..." something that the work cannot do without, "calls:..." the calls of OpenCV that
// the library makes itself. Results are made anew and let go of in every call.
#pragma once

#include "outcome.h"
#include "workloads.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace bench
{

/// Is told what happens around a call.
class Witness
{
public:
    virtual ~Witness() = default;
    virtual void before_call() = 0;
    virtual void after_call() = 0; // the result is there
    virtual void after_copy() = 0; // a copy of the result is there, too
};

struct Entry {
    std::string function;
    std::string workload;
    std::string contestant;
    Workload* on = nullptr;
    std::function<void()> prepare = [] {}; // before each call, not timed
    bool is_prepared = false;              // whether that does anything
    std::size_t scratch_bytes = 0;         // memory it may use for itself, where that is not the workload's to say
    std::function<void()> call;            // makes the result and lets go of it
    std::function<std::optional<Outcome>()> result; // what is made; nothing where it is no shape
    std::function<void(Witness&)> witnessed;        // a call, and a copy of its result
};

/// All entries, in the order of entering.
std::vector<Entry>& entries();

/// Enters a contestant. `make` returns the result; outcome_of() of the result is compared with the other contestants'.
template <class Make>
Entry& enter(std::string function, Workload& work, std::string contestant, Make make)
{
    Entry entry;
    entry.function = std::move(function);
    entry.workload = work.name;
    entry.contestant = std::move(contestant);
    entry.on = &work;
    entry.call = [make] {
        auto result = make();
        benchmark::DoNotOptimize(&result);
        benchmark::ClobberMemory();
    };
    entry.result = [make]() -> std::optional<Outcome> {
        auto result = make();
        if constexpr (requires { outcome_of(result); }) {
            return outcome_of(result);
        } else {
            return std::nullopt;
        }
    };
    entry.witnessed = [make](Witness& witness) {
        witness.before_call();
        auto result = make();
        witness.after_call();
        if constexpr (std::is_copy_constructible_v<decltype(result)>) {
            [[maybe_unused]] const auto copy = result;
            witness.after_copy();
        }
    };
    entries().push_back(std::move(entry));
    return entries().back();
}

/// Compares what the contestants of an entry's function and workload make, once; throws std::logic_error when two
/// differ. Returns the runs that this entry makes.
double checked_runs(const Entry& entry);

} // namespace bench
