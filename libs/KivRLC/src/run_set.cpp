// SPDX-License-Identifier: MIT
#include "row_sort.h"
#include "run_set_access.h"

#include <KivRLC/KivRunLists.h>

#include <algorithm>

namespace
{

bool begins_before(const Run& a, const Run& b)
{
    return a.row != b.row ? a.row < b.row : a.colBegin < b.colBegin;
}

kivrlc::RunBuffer without_inverted(KivRunView runs)
{
    kivrlc::RunBuffer kept(runs.size());
    const auto end =
        std::copy_if(runs.begin(), runs.end(), kept.begin(), [](const Run& run) { return run.colBegin <= run.colEnd; });
    kept.resize(static_cast<std::size_t>(end - kept.begin()));
    return kept;
}

/// Makes runs in ascending order maximal.
void join(kivrlc::RunBuffer& runs)
{
    std::size_t joined = 0;
    for (const Run& run : runs) {
        Run* const last = joined != 0 ? &runs[joined - 1] : nullptr;
        if (last != nullptr && last->row == run.row && kivrlc::touch_or_overlap(*last, run)) {
            last->colEnd = std::max(last->colEnd, run.colEnd);
        } else {
            runs[joined++] = run;
        }
    }
    runs.resize(joined);
}

std::string why_not_behind(const Run& last, const Run& run)
{
    if (run.row < last.row) {
        return "its row lies above that of the run before it";
    }
    if (run.row > last.row) {
        return {};
    }
    if (run.colBegin < last.colBegin) {
        return "it begins left of the run before it";
    }
    if (run.colBegin <= last.colEnd) {
        return "it overlaps the run before it";
    }
    return run.colBegin - 1 == last.colEnd ? "it touches the run before it" : "";
}

} // namespace

KivRunSet::KivRunSet(KivRunView runs)
{
    if (KivRuns::IsCanonical(runs)) {
        runs_.assign(runs.begin(), runs.end());
        return;
    }
    kivrlc::RunBuffer kept = without_inverted(runs);
    if (!std::is_sorted(kept.begin(), kept.end(), begins_before)) {
        kivrlc::sort_by_row_and_column(kept);
    }
    join(kept);
    *this = kivrlc::set_of_canonical(std::move(kept));
}

KivRunView KivRunSet::RunsOfRow(int row) const noexcept
{
    const KivRunView runs = Runs();
    const Run* const first = kivrlc::first_from_row(runs, row);
    const Run* const last = kivrlc::behind_row(runs, row);
    return {first, static_cast<std::size_t>(last - first)};
}

std::int64_t KivRunSet::Area() const noexcept
{
    std::int64_t area = 0;
    for (const Run& run : runs_) {
        area += std::int64_t{run.colEnd} - run.colBegin + 1;
    }
    return area;
}

bool operator==(const KivRunSet& a, const KivRunSet& b) noexcept
{
    return std::equal(a.runs_.begin(), a.runs_.end(), b.runs_.begin(), b.runs_.end());
}

std::string KivRunSet::WhyNotCanonical(KivRunView runs)
{
    for (std::size_t i = 0; i < runs.size(); ++i) {
        std::string fault = runs[i].colBegin > runs[i].colEnd ? "its begin lies past its end"
                            : i > 0                           ? why_not_behind(runs[i - 1], runs[i])
                                                              : "";
        if (!fault.empty()) {
            return "run " + std::to_string(i) + ": " + fault;
        }
    }
    return {};
}
