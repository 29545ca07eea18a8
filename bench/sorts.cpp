// SPDX-License-Identifier: MIT
// The sort of runs by row: a million runs in any order, and runs whose rows ascend already.
#include "contest.h"
#include "contestants.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <memory>
#include <random>

namespace bench
{
namespace
{

using Runs = std::vector<Run>;

bool row_is_less(const Run& left, const Run& right)
{
    return left.row < right.row;
}

Runs shuffled_million()
{
    Runs runs;
    for (int i = 0; i < 1'000'000; ++i) {
        runs.push_back({i / 10, i % 10 * 20, i % 10 * 20 + 9});
    }
    std::shuffle(runs.begin(), runs.end(), std::mt19937(6)); // the same order everywhere is not needed
    return runs;
}

Runs ascending_million()
{
    Runs runs = shuffled_million();
    std::stable_sort(runs.begin(), runs.end(), row_is_less);
    return runs;
}

/// What is sorted in place, filled anew before each call.
template <class List>
struct Slot {
    List content;
};

Outcome outcome_of(const Slot<Runs>* slot)
{
    cv::Mat list(static_cast<int>(slot->content.size()), 3, CV_32SC1);
    for (int i = 0; i < list.rows; ++i) {
        const Run& run = slot->content[static_cast<std::size_t>(i)];
        list.at<int>(i, 0) = run.row;
        list.at<int>(i, 1) = run.colBegin;
        list.at<int>(i, 2) = run.colEnd;
    }
    return {list};
}

Outcome outcome_of(const Slot<RunArrays>* slot)
{
    const RunArrays& arrays = slot->content;
    Slot<Runs> runs;
    for (int i = 0; i < arrays.rows.Length(); ++i) {
        runs.content.push_back({arrays.rows[i].I(), arrays.col_begins[i].I(), arrays.col_ends[i].I()});
    }
    return outcome_of(&runs);
}

/// A contestant that sorts a list of its own, of the given runs.
template <class List, class Sort>
void enter_sort(Workload& work, const char* contestant, List (*list_of)(const Runs&), Runs (*make)(), Sort sort)
{
    auto given = std::make_shared<Lazy<List>>([=] { return list_of(make()); });
    auto slot = std::make_shared<Slot<List>>();
    Entry& entry = enter("radixsort", work, contestant, [slot, sort] {
        sort(slot->content);
        return static_cast<const Slot<List>*>(slot.get());
    });
    entry.prepare = [given, slot] { slot->content = (*given)(); };
    entry.is_prepared = true;
    entry.scratch_bytes = 1'000'000 * sizeof(Run);
}

Runs as_it_is(const Runs& runs)
{
    return runs;
}

void enter_all(Workload& work, Runs (*make)())
{
    enter_sort(work, "kiv", arrays_of, make,
               [](RunArrays& arrays) { KIVMV::radixsort(arrays.rows, arrays.col_begins, arrays.col_ends); });
    enter_sort(work, "peer:stable_sort", as_it_is, make,
               [](Runs& runs) { std::stable_sort(runs.begin(), runs.end(), row_is_less); });
}

} // namespace
} // namespace bench

void bench::enter_sorts()
{
    static Workload shuffled("shuffled", cv::Mat::zeros(8, 8, CV_8UC1), {});
    static Workload ascending("ascending", cv::Mat::zeros(8, 8, CV_8UC1), {});
    enter_all(shuffled, shuffled_million);
    enter_all(ascending, ascending_million);
    // The rows alone decide, and they are an array of their own.
    auto arrays = std::make_shared<Lazy<RunArrays>>([] { return arrays_of(ascending_million()); });
    enter("radixsort", ascending, "floor:check", [arrays] {
        const std::vector<int>& rows = *(*arrays)().rows.PackedInts();
        return std::is_sorted(rows.begin(), rows.end());
    });
}
