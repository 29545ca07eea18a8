// SPDX-License-Identifier: MIT
// Components numbered, made sets, measured and chosen from. Everything beyond the numbers is a pass over the runs that
// looks each one's number up.
#include "run_components.h"

#include "column_counts.h"
#include "run_checks.h"
#include "run_set_access.h"
#include "run_sums.h"

#include <KivRLC/KivRunComponents.h>

#include <algorithm>
#include <limits>

namespace
{

using kivrlc::NumberedRuns;

/// One value a component, made of its runs one after the other.
template <class Sums>
std::vector<Sums> sums_of_components(KivRunView runs, const NumberedRuns& numbers)
{
    std::vector<Sums> sums(static_cast<std::size_t>(numbers.count));
    for (std::size_t i = 0; i < runs.size(); ++i) {
        sums[static_cast<std::size_t>(numbers.of_run[i])].add(runs[i]);
    }
    return sums;
}

struct AreaSum {
    std::int64_t area = 0;

    void add(const Run& run) { area += kivrlc::length_of(run); }
};

struct ShapeSums {
    kivrlc::MomentSums moments;
    kivrlc::BorderSums borders;

    void add(const Run& run)
    {
        moments.add(run);
        borders.add(run);
    }
};

/// Whether a run has a pixel in the box's first or last row or column.
bool touches_from_within(const Run& run, const KivRunBox& box)
{
    const bool meets_rows = box.rowBegin <= run.row && run.row <= box.rowEnd;
    const bool meets_columns = box.colBegin <= run.colEnd && run.colBegin <= box.colEnd && box.colBegin <= box.colEnd;
    return meets_rows && meets_columns &&
           (run.row == box.rowBegin || run.row == box.rowEnd || run.colBegin <= box.colBegin ||
            run.colEnd >= box.colEnd);
}

/// For each component whether one of its runs is one of those that `is_one` says by index.
template <class Predicate>
std::vector<char> components_with(const NumberedRuns& numbers, Predicate is_one)
{
    std::vector<char> with(static_cast<std::size_t>(numbers.count), 0);
    for (std::size_t i = 0; i < numbers.of_run.size(); ++i) {
        if (is_one(i)) {
            with[static_cast<std::size_t>(numbers.of_run[i])] = 1;
        }
    }
    return with;
}

/// The runs of those components that `is_chosen` says by number. They are still maximal and in order.
template <class Predicate>
KivRunSet chosen_components(KivRunView runs, const NumberedRuns& numbers, Predicate is_chosen)
{
    kivrlc::RunBuffer chosen(runs.size());
    std::size_t count = 0;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        if (is_chosen(static_cast<std::size_t>(numbers.of_run[i]))) {
            chosen[count++] = runs[i];
        }
    }
    chosen.resize(count);
    return kivrlc::set_of_canonical(std::move(chosen));
}

/// The background of the rows that have pixels, within the box.
struct Gaps {
    kivrlc::RunBuffer runs;
    std::vector<char> are_open; // whether a gap reaches the box's border or a row without pixels

    void add(std::int64_t row, std::int64_t begin, std::int64_t end, bool is_open)
    {
        if (begin <= end) {
            runs.push_back({static_cast<int>(row), static_cast<int>(begin), static_cast<int>(end)});
            are_open.push_back(is_open ? 1 : 0);
        }
    }
};

Gaps gaps_within(KivRunView runs, const KivRunBox& box)
{
    Gaps gaps;
    kivrlc::for_each_row(runs, [&](const Run* above, const Run*, const Run* run, const Run* row_end) {
        const bool at_end = row_end == runs.end() || row_end->row != run->row + 1;
        const bool is_exposed = above == run || at_end;
        gaps.add(run->row, box.colBegin, std::int64_t{run->colBegin} - 1, true);
        for (; run + 1 != row_end; ++run) {
            gaps.add(run->row, std::int64_t{run->colEnd} + 1, std::int64_t{run[1].colBegin} - 1, is_exposed);
        }
        gaps.add(run->row, std::int64_t{run->colEnd} + 1, box.colEnd, true);
    });
    return gaps;
}

/// The runs of a row and their numbers.
struct NumberedRow {
    const Run* begin;
    const Run* end;
    int* numbers;

    std::ptrdiff_t size() const { return end - begin; }
};

/// The least column next to a run of two rows, and the greatest one.
std::pair<std::int64_t, std::int64_t> columns_of(const NumberedRow& above, const NumberedRow& row)
{
    return {std::int64_t{std::min(above.begin->colBegin, row.begin->colBegin)} - 1,
            std::int64_t{std::max(above.end[-1].colEnd, row.end[-1].colEnd)} + 1};
}

/// Whether two rows have so many runs in so few columns that to look up which of them touch takes less time than to
/// walk them side by side.
bool are_dense(const NumberedRow& above, const NumberedRow& row)
{
    const std::ptrdiff_t fewer = std::min(above.size(), row.size());
    if (fewer < 16 || above.size() > kivrlc::ColumnCounts::most_runs) {
        return false;
    }
    const auto [first, last] = columns_of(above, row);
    return last - first < 6 * fewer;
}

/// Numbers a row by looking up which runs of the one above it touches.
void number_dense(const NumberedRow& above, const NumberedRow& row, std::int64_t reach, kivrlc::ColumnCounts& counts,
                  kivrlc::ComponentForest& forest)
{
    const auto [first, last] = columns_of(above, row);
    counts.count(above.begin, above.end, first, last);
    int* of_run = row.numbers;
    for (const Run* run = row.begin; run != row.end; ++run, ++of_run) {
        const int* upper = above.numbers + counts.ended_before(run->colBegin - reach);
        const int* const stop = above.numbers + counts.begun_up_to(run->colEnd + reach);
        if (upper == stop) {
            *of_run = forest.add();
            continue;
        }
        const int number = forest.number_of(*upper);
        *of_run = number;
        forest.join(number, stop[-1]); // which may be the same one: to ask would be a guess
        while (++upper < stop - 1) {
            forest.join(number, *upper);
        }
    }
}

} // namespace

kivrlc::NumberedRuns kivrlc::number_components(KivRunView runs, KivRuns::Connectivity connectivity)
{
    require<std::length_error>(runs.size() <= static_cast<std::size_t>(std::numeric_limits<int>::max()),
                               "KivRuns: a set of so many runs cannot be numbered");
    NumberedRuns numbers{std::vector<int>(runs.size()), 0};
    ComponentForest forest;
    ColumnCounts counts;
    const std::int64_t reach = reach_of(connectivity);
    const auto number_of = [of_run = numbers.of_run.data(), first = runs.begin()](const Run* run) -> int& {
        return of_run[run - first];
    };
    for_each_row(runs, [&](const Run* above, const Run* above_end, const Run* run, const Run* row_end) {
        const NumberedRow upper_row{above, above_end, &number_of(above)};
        const NumberedRow row{run, row_end, &number_of(run)};
        if (are_dense(upper_row, row)) {
            number_dense(upper_row, row, reach, counts, forest);
            return;
        }
        for (; run != row_end; ++run) {
            while (above != above_end && ends_before(*above, *run, reach)) {
                ++above;
            }
            const Run* upper = above;
            const auto touches_upper = [&] { return upper != above_end && !ends_before(*run, *upper, reach); };
            if (!touches_upper()) {
                number_of(run) = forest.add();
                continue;
            }
            const int number = forest.number_of(number_of(upper));
            number_of(run) = number;
            for (++upper; touches_upper(); ++upper) {
                forest.join(number, number_of(upper));
            }
        }
    });
    numbers.count = forest.settle();
    for (int& number : numbers.of_run) {
        number = forest.number_of(number);
    }
    return numbers;
}

KivRuns::ComponentNumbers KivRuns::NumberComponents(const KivRunSet& set, Connectivity connectivity)
{
    NumberedRuns numbers = kivrlc::number_components(set.Runs(), connectivity);
    return {std::move(numbers.of_run), numbers.count};
}

std::vector<KivRunSet> KivRuns::Components(const KivRunSet& set, Connectivity connectivity)
{
    const KivRunView runs = set.Runs();
    const NumberedRuns numbers = kivrlc::number_components(runs, connectivity);
    std::vector<std::size_t> sizes(static_cast<std::size_t>(numbers.count));
    for (const int number : numbers.of_run) {
        ++sizes[static_cast<std::size_t>(number)];
    }
    std::vector<kivrlc::RunBuffer> parts(sizes.size());
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const auto number = static_cast<std::size_t>(numbers.of_run[i]);
        if (parts[number].empty()) {
            parts[number].reserve(sizes[number]);
        }
        parts[number].push_back(runs[i]);
    }
    std::vector<KivRunSet> components;
    components.reserve(parts.size());
    for (kivrlc::RunBuffer& part : parts) {
        components.push_back(kivrlc::set_of_canonical(std::move(part)));
    }
    return components;
}

std::vector<KivRuns::ComponentSummary> KivRuns::SummarizeComponents(const KivRunSet& set, Connectivity connectivity)
{
    const auto all =
        sums_of_components<kivrlc::BoxSums>(set.Runs(), kivrlc::number_components(set.Runs(), connectivity));
    std::vector<ComponentSummary> summaries;
    summaries.reserve(all.size());
    for (const kivrlc::BoxSums& sums : all) {
        summaries.push_back({sums.area, sums.box, sums.centroid()});
    }
    return summaries;
}

std::vector<KivRuns::Measures> KivRuns::MeasureComponents(const KivRunSet& set, Connectivity connectivity)
{
    const KivRunView runs = set.Runs();
    const NumberedRuns numbers = kivrlc::number_components(runs, connectivity);
    auto all = sums_of_components<ShapeSums>(runs, numbers);
    kivrlc::for_each_touching_pair(runs, kivrlc::by_corners, [&](const Run& above, const Run& run) {
        const int number = numbers.of_run[static_cast<std::size_t>(&run - runs.begin())];
        if (number == numbers.of_run[static_cast<std::size_t>(&above - runs.begin())]) {
            all[static_cast<std::size_t>(number)].borders.add_pair(above, run);
        }
    });
    std::vector<Measures> measures;
    measures.reserve(all.size());
    for (const ShapeSums& sums : all) {
        measures.push_back({sums.moments.place.box, sums.moments.moments(), sums.borders.edge_perimeter(),
                            sums.borders.crofton_perimeter(), sums.borders.euler_number(connectivity)});
    }
    return measures;
}

KivRunSet KivRuns::LargestComponent(const KivRunSet& set, Connectivity connectivity)
{
    const NumberedRuns numbers = kivrlc::number_components(set.Runs(), connectivity);
    const auto areas = sums_of_components<AreaSum>(set.Runs(), numbers);
    const auto largest = std::max_element(areas.begin(), areas.end(),
                                          [](const AreaSum& a, const AreaSum& b) { return a.area < b.area; });
    const auto number = static_cast<std::size_t>(largest - areas.begin());
    return chosen_components(set.Runs(), numbers, [number](std::size_t i) { return i == number; });
}

KivRunSet KivRuns::ComponentsByArea(const KivRunSet& set, Connectivity connectivity, std::int64_t minArea,
                                    std::int64_t maxArea)
{
    const NumberedRuns numbers = kivrlc::number_components(set.Runs(), connectivity);
    const auto areas = sums_of_components<AreaSum>(set.Runs(), numbers);
    return chosen_components(set.Runs(), numbers,
                             [&](std::size_t i) { return minArea <= areas[i].area && areas[i].area <= maxArea; });
}

KivRunSet KivRuns::WithoutBorderComponents(const KivRunSet& set, Connectivity connectivity, const KivRunBox& box)
{
    const NumberedRuns numbers = kivrlc::number_components(set.Runs(), connectivity);
    const std::vector<char> touching =
        components_with(numbers, [&](std::size_t i) { return touches_from_within(set.Runs()[i], box); });
    return chosen_components(set.Runs(), numbers, [&touching](std::size_t i) { return touching[i] == 0; });
}

KivRunSet KivRuns::Holes(const KivRunSet& set, Connectivity connectivity, std::int64_t maxArea)
{
    if (set.Empty()) {
        return {};
    }
    const Gaps gaps = gaps_within(set.Runs(), kivrlc::box_of(set.Runs()));
    const NumberedRuns numbers = kivrlc::number_components(gaps.runs, BackgroundOf(connectivity));
    const std::vector<char> open = components_with(numbers, [&gaps](std::size_t i) { return gaps.are_open[i] != 0; });
    const auto areas = sums_of_components<AreaSum>(gaps.runs, numbers);
    return chosen_components(gaps.runs, numbers,
                             [&](std::size_t i) { return open[i] == 0 && areas[i].area <= maxArea; });
}

KivRunSet KivRuns::FillHoles(const KivRunSet& set, Connectivity connectivity, std::int64_t maxArea)
{
    return set | Holes(set, connectivity, maxArea);
}
