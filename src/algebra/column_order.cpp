// SPDX-License-Identifier: MIT
#include "algebra/column_order.h"

#include <algorithm>

namespace kiv
{
namespace
{

int begin_of(const Run& run)
{
    const auto [row, begin, end] = run;
    return begin;
}

int end_of(const Run& run)
{
    const auto [row, begin, end] = run;
    return end;
}

bool begins_before(const Run& left, const Run& right)
{
    return begin_of(left) < begin_of(right);
}

bool is_plain(RunView row)
{
    const auto is_inverted = [](const Run& run) { return begin_of(run) > end_of(run); };
    const auto is_not_left_of = [](const Run& left, const Run& right) { return end_of(left) >= begin_of(right); };
    return std::none_of(row.begin(), row.end(), is_inverted) &&
           std::adjacent_find(row.begin(), row.end(), is_not_left_of) == row.end();
}

} // namespace

ByColumn::ByColumn(RunView row) : runs_(row)
{
    if (!std::is_sorted(row.begin(), row.end(), begins_before)) {
        copy_.assign(row.begin(), row.end());
        std::stable_sort(copy_.begin(), copy_.end(), begins_before);
        runs_ = copy_;
    }
}

Neighbours::Neighbours(RunView row) : row_(row), is_plain_(is_plain(row)) {}

RunView Neighbours::of(const Run& run)
{
    if (!is_plain_ || begin_of(run) > end_of(run)) {
        return row_;
    }
    if (first_ > 0 && end_of(row_[first_ - 1]) >= begin_of(run)) {
        first_ = 0;
    }
    while (first_ < row_.size() && end_of(row_[first_]) < begin_of(run)) {
        ++first_;
    }
    std::size_t stop = first_;
    while (stop < row_.size() && begin_of(row_[stop]) <= end_of(run)) {
        ++stop;
    }
    return row_.subspan(first_, stop - first_);
}

} // namespace kiv
