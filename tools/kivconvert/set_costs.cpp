// SPDX-License-Identifier: MIT
#include "kivconvert/set_costs.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

struct Row {
    std::size_t count = 0;
    bool overlaps = false; ///< two of its runs share a column, or one of them ends before it begins
};

using Rows = std::map<int, Row>;

Rows rows_of(const KivRegion& region)
{
    std::vector<Run> runs = region.Runs();
    std::sort(runs.begin(), runs.end(),
              [](const Run& a, const Run& b) { return std::tie(a.row, a.colBegin) < std::tie(b.row, b.colBegin); });
    Rows rows;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        Row& row = rows[runs[i].row];
        const bool meets_last = row.count > 0 && runs[i].colBegin <= runs[i - 1].colEnd;
        row.overlaps = row.overlaps || meets_last || runs[i].colEnd < runs[i].colBegin;
        ++row.count;
    }
    return rows;
}

/// The runs of B, those of A on rows that B lacks, and `most` of every two rows that meet.
template <class Most>
double sum_over_rows(const KivRegion& a, const KivRegion& b, Most most)
{
    const Rows rows_of_b = rows_of(b);
    double sum = static_cast<double>(b.Runs().size());
    for (const auto& [number, row] : rows_of(a)) {
        const auto partner = rows_of_b.find(number);
        sum += partner == rows_of_b.end() ? static_cast<double>(row.count) : most(row, partner->second);
    }
    return sum;
}

double pairs(const Row& a, const Row& b)
{
    return static_cast<double>(a.count) * static_cast<double>(b.count);
}

double all_runs(const Row& a, const Row& b)
{
    return static_cast<double>(a.count + b.count);
}

double pairs_that_may_meet(const Row& a, const Row& b)
{
    return a.overlaps || b.overlaps ? pairs(a, b) : all_runs(a, b);
}

} // namespace

double most_runs_of_union(const KivRegion& a, const KivRegion& b)
{
    return sum_over_rows(a, b, [](const Row& of_a, const Row& of_b) { return 2 * pairs(of_a, of_b); });
}

double most_runs_of_intersection(const KivRegion& a, const KivRegion& b)
{
    return sum_over_rows(a, b, pairs_that_may_meet);
}

double most_runs_of_difference(const KivRegion& a, const KivRegion& b)
{
    return sum_over_rows(
        a, b, [](const Row& of_a, const Row& of_b) { return pairs_that_may_meet(of_a, of_b) + all_runs(of_a, of_b); });
}

KivRegion with_rows_at_frame(const KivRegion& region)
{
    std::vector<Run> runs = region.Runs();
    for (Run& run : runs) {
        run.row = std::clamp(run.row, -1, std::max(region.Height(), 0));
    }
    return KivRegion(region.Width(), region.Height(), std::move(runs));
}

} // namespace kivconvert
