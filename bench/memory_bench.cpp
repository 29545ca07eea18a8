// SPDX-License-Identifier: MIT
// What each function takes from malloc during one call, as JSON: how many allocations, beside those that a copy of the
// result makes; and the bytes in use at the most beyond inputs and result, beside one mask or the operands' runs.
#include "contest.h"
#include "contestants.h"
#include "counted_memory.h"

#include <algorithm>
#include <cstdio>

namespace
{

class Count : public bench::Witness
{
public:
    void before_call() override
    {
        bench::restart_peak();
        before_ = bench::memory_count();
    }
    void after_call() override { after_ = bench::memory_count(); }
    void after_copy() override { copied_ = bench::memory_count(); }

    std::size_t of_call() const { return after_.allocations - before_.allocations; }
    std::size_t of_copy() const { return copied_.allocations - after_.allocations; }
    std::size_t beyond_result() const { return after_.peak - std::max(after_.living, before_.living); }

private:
    bench::MemoryCount before_;
    bench::MemoryCount after_;
    bench::MemoryCount copied_;
};

std::size_t allowed_bytes(bench::Workload& work)
{
    return std::max(work.a.mask.total(), (work.a.runs().size() + work.b.runs().size()) * sizeof(Run));
}

void count(const bench::Entry& entry, const char* separator)
{
    const std::size_t allowed = entry.scratch_bytes > 0 ? entry.scratch_bytes : allowed_bytes(*entry.on);
    Count counted;
    entry.prepare();
    entry.call(); // the first call makes the operands
    entry.prepare();
    entry.witnessed(counted);
    std::printf("%s\n  {\"function\": \"%s\", \"workload\": \"%s\", \"allocations\": %zu, \"needed\": %zu, "
                "\"bytes\": %zu, \"allowed\": %zu}",
                separator, entry.function.c_str(), entry.workload.c_str(), counted.of_call(), counted.of_copy(),
                counted.beyond_result(), allowed);
}

} // namespace

int main()
{
    bench::enter_everybody();
    const char* separator = "[";
    for (const bench::Entry& entry : bench::entries()) {
        if (entry.contestant == "kiv" && entry.workload.rfind("growth", 0) != 0) {
            count(entry, separator);
            separator = ",";
        }
    }
    std::puts("\n]");
}
