// SPDX-License-Identifier: MIT
#include "run_arrays.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace
{

/// The elements of an array as ints, which the array keeps or which are copied.
class Ints
{
public:
    explicit Ints(const KivVarArray& array)
    {
        const std::vector<int>* packed = array.PackedInts();
        if (packed == nullptr) {
            for (int i = 0; i < array.Length(); ++i) {
                copy_.push_back(array[i].I());
            }
            packed = &copy_;
        }
        ints_ = packed->data();
    }
    Ints(const Ints&) = delete;
    Ints& operator=(const Ints&) = delete;

    int operator[](std::size_t i) const { return ints_[i]; }

private:
    std::vector<int> copy_;
    const int* ints_;
};

} // namespace

std::vector<Run> kivdata::runs_of_arrays(const KivVarArray& rows, const KivVarArray& col_begins,
                                         const KivVarArray& col_ends)
{
    if (col_begins.Length() != rows.Length() || col_ends.Length() != rows.Length()) {
        throw std::invalid_argument("runs: the arrays of rows, first columns and last columns hold " +
                                    std::to_string(rows.Length()) + ", " + std::to_string(col_begins.Length()) +
                                    " and " + std::to_string(col_ends.Length()) + " values; they must be equally long");
    }
    const Ints row(rows);
    const Ints begin(col_begins);
    const Ints end(col_ends);
    const auto count = static_cast<std::size_t>(rows.Length());
    std::vector<Run> runs;
    runs.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        runs.push_back({row[i], begin[i], end[i]});
    }
    return runs;
}

void kivdata::runs_to_arrays(const std::vector<Run>& runs, KivVarArray& rows, KivVarArray& col_begins,
                             KivVarArray& col_ends)
{
    std::vector<int> row(runs.size());
    std::vector<int> begin(runs.size());
    std::vector<int> end(runs.size());
    for (std::size_t i = 0; i < runs.size(); ++i) {
        row[i] = runs[i].row;
        begin[i] = runs[i].colBegin;
        end[i] = runs[i].colEnd;
    }
    rows = KivVarArray(std::move(row));
    col_begins = KivVarArray(std::move(begin));
    col_ends = KivVarArray(std::move(end));
}
