// SPDX-License-Identifier: MIT
#include "kivconvert/visible_runs.h"

#include "kivconvert/memory_limit.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace kivconvert
{
namespace
{

/// The runs of rows become those of columns, row by row: where a row differs from the one above it, a run of that
/// column begins or ends.
class Transposer
{
public:
    Transposer(int width, const std::string& file) : begins_(static_cast<std::size_t>(width), none), file_(file) {}

    /// @param edges first columns and columns past the last of the row's runs, ascending
    void add_row(int row, std::vector<int> edges)
    {
        std::vector<int> changes; // in pairs: from one on to before the other
        std::set_symmetric_difference(above_.begin(), above_.end(), edges.begin(), edges.end(),
                                      std::back_inserter(changes));
        for (std::size_t i = 0; i < changes.size(); i += 2) {
            for (int column = changes[i]; column < changes[i + 1]; ++column) {
                change(column, row);
            }
        }
        above_ = std::move(edges);
    }

    std::vector<Run> runs_by_column() &&
    {
        std::stable_sort(runs_.begin(), runs_.end(), [](const Run& a, const Run& b) { return a.row < b.row; });
        return std::move(runs_);
    }

private:
    static constexpr int none = -1;

    void change(int column, int row)
    {
        int& begin = begins_[static_cast<std::size_t>(column)];
        if (begin == none) {
            begin = row;
            return;
        }
        expect_affordable(file_, static_cast<double>(runs_.size() + 1), "runs", bytes_per_run);
        runs_.push_back({column, std::exchange(begin, none), row - 1});
    }

    std::vector<int> begins_; // of each column's run that has not ended
    std::vector<int> above_;
    std::vector<Run> runs_;
    const std::string& file_;
};

} // namespace

bool lies_inside(const Run& run, const KivRegion& frame)
{
    return run.row >= 0 && run.row < frame.Height() && run.colBegin >= 0 && run.colEnd < frame.Width() &&
           run.colBegin <= run.colEnd;
}

std::vector<Run> visible_runs(const KivRegion& region)
{
    std::vector<Run> clipped;
    for (const Run& run : region.Runs()) {
        const Run inside{run.row, std::max(run.colBegin, 0), std::min(run.colEnd, region.Width() - 1)};
        if (lies_inside(inside, region)) {
            clipped.push_back(inside);
        }
    }
    std::sort(clipped.begin(), clipped.end(),
              [](const Run& a, const Run& b) { return std::tie(a.row, a.colBegin) < std::tie(b.row, b.colBegin); });
    std::vector<Run> joined;
    for (const Run& run : clipped) {
        if (!joined.empty() && joined.back().row == run.row && run.colBegin <= joined.back().colEnd + 1) {
            joined.back().colEnd = std::max(joined.back().colEnd, run.colEnd);
        } else {
            joined.push_back(run);
        }
    }
    return joined;
}

KivRegion transposed(const KivRegion& region, const std::string& file)
{
    const std::vector<Run> runs = visible_runs(region);
    Transposer transposer(region.Width(), file);
    auto run = runs.begin();
    for (int row = 0; row <= region.Height(); ++row) { // the row past the last one ends all runs
        std::vector<int> edges;
        for (; run != runs.end() && run->row == row; ++run) {
            edges.insert(edges.end(), {run->colBegin, run->colEnd + 1});
        }
        transposer.add_row(row, std::move(edges));
    }
    return KivRegion(region.Height(), region.Width(), std::move(transposer).runs_by_column());
}

} // namespace kivconvert
