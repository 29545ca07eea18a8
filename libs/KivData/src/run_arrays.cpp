// SPDX-License-Identifier: MIT
#include "run_arrays.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace
{

/// Sets `member` of every run to the int at the run's index in `values`.
void read_member(const KivVarArray& values, int Run::*member, std::vector<Run>& runs)
{
    const std::vector<int>* packed = values.PackedInts();
    for (std::size_t i = 0; i < runs.size(); ++i) {
        runs[i].*member = packed != nullptr ? (*packed)[i] : values[static_cast<int>(i)].I();
    }
}

KivVarArray array_of_member(const std::vector<Run>& runs, int Run::*member)
{
    std::vector<int> values;
    values.reserve(runs.size());
    for (const Run& run : runs) {
        values.push_back(run.*member);
    }
    return KivVarArray(std::move(values));
}

} // namespace

std::vector<Run> kivdata::runs_of_arrays(const KivVarArray& rows, const KivVarArray& col_begins,
                                         const KivVarArray& col_ends)
{
    if (col_begins.Length() != rows.Length() || col_ends.Length() != rows.Length()) {
        throw std::invalid_argument("runs: the arrays of rows, first columns and last columns hold " +
                                    std::to_string(rows.Length()) + ", " + std::to_string(col_begins.Length()) +
                                    " and " + std::to_string(col_ends.Length()) + " values; they must be equally long");
    }
    std::vector<Run> runs(static_cast<std::size_t>(rows.Length()));
    read_member(rows, &Run::row, runs);
    read_member(col_begins, &Run::colBegin, runs);
    read_member(col_ends, &Run::colEnd, runs);
    return runs;
}

void kivdata::runs_to_arrays(const std::vector<Run>& runs, KivVarArray& rows, KivVarArray& col_begins,
                             KivVarArray& col_ends)
{
    KivVarArray new_rows = array_of_member(runs, &Run::row);
    KivVarArray new_begins = array_of_member(runs, &Run::colBegin);
    KivVarArray new_ends = array_of_member(runs, &Run::colEnd);
    rows = std::move(new_rows);
    col_begins = std::move(new_begins);
    col_ends = std::move(new_ends);
}
