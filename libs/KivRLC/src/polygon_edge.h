// SPDX-License-Identifier: MIT
// The pixels that an edge between two pixels passes, row by row, in exact integers.
#pragma once

#include "wide_int.h"

#include <KivRLC/KivRunBorders.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kivrlc
{

/// Columns from the first to the last, both included.
struct PassedColumns {
    std::int64_t first;
    std::int64_t last;
};

/// An edge that leads from one row to another one. Its rows are counted from its upper end, from 0 to height().
class PolygonEdge
{
public:
    PolygonEdge(const KivPixel& a, const KivPixel& b)
        : upper_(a.y < b.y ? a : b),
          lower_(a.y < b.y ? b : a),
          height_(static_cast<std::uint64_t>(std::int64_t{lower_.y} - upper_.y)),
          width_(static_cast<std::uint64_t>(std::max(a.x, b.x) - std::int64_t{std::min(a.x, b.x)})),
          is_short_(height_ < largest_short && width_ < largest_short)
    {
    }

    std::int64_t top() const { return upper_.y; }
    std::int64_t height() const { return static_cast<std::int64_t>(height_); }
    bool leads_right() const { return lower_.x >= upper_.x; } ///< seen from its upper end

    /// The columns that it passes on a row.
    PassedColumns passed(std::int64_t row) const
    {
        const auto k = static_cast<std::uint64_t>(row);
        return is_short_ ? passed<std::uint64_t>(k) : passed<UnsignedWide>(k);
    }

private:
    static constexpr std::uint64_t largest_short = std::uint64_t{1} << 31;

    template <class Integer>
    PassedColumns passed(std::uint64_t row) const
    {
        return height_ >= width_ ? passed_steeply<Integer>(row) : passed_flatly<Integer>(row);
    }

    /// The nearest column: row * width / height steps from the upper end, rounded, the left one if midway between two.
    template <class Integer>
    PassedColumns passed_steeply(std::uint64_t row) const
    {
        const Integer halves = Integer{2} * width_ * row + height_ - (leads_right() ? 1 : 0);
        const auto steps = static_cast<std::int64_t>(halves / (2 * Integer{height_}));
        const std::int64_t column = leads_right() ? upper_.x + steps : upper_.x - steps;
        return {column, column};
    }

    /// The columns where this is the nearest row. With j the steps from the left end, which is row 0 here, and m the
    /// row, these are the j with m - 1/2 < j * height / width <= m + 1/2.
    template <class Integer>
    PassedColumns passed_flatly(std::uint64_t row) const
    {
        const std::int64_t left = std::min(upper_.x, lower_.x);
        const std::uint64_t m = leads_right() ? row : height_ - row;
        const auto steps_up_to = [this](Integer twice_the_row) {
            return static_cast<std::int64_t>(twice_the_row * width_ / (2 * Integer{height_}));
        };
        const std::int64_t first = m == 0 ? 0 : steps_up_to(Integer{2} * m - 1) + 1;
        const std::int64_t last = m == height_ ? static_cast<std::int64_t>(width_) : steps_up_to(Integer{2} * m + 1);
        return {left + first, left + last};
    }

    KivPixel upper_;
    KivPixel lower_;
    std::uint64_t height_;
    std::uint64_t width_;
    bool is_short_; // so that 64 bits hold all products
};

} // namespace kivrlc
