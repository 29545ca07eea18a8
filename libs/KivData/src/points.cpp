// SPDX-License-Identifier: MIT
#include <KivData/KivPoint.h>

#include "argument_checks.h"

#include <cstdint>
#include <limits>
#include <stdexcept>

namespace
{

constexpr auto max_length = static_cast<std::size_t>(std::numeric_limits<int>::max());

void check_room(std::size_t length, std::size_t added)
{
    if (added > max_length - length) {
        throw std::length_error("KivPointArray: no room for more than 2^31 - 1 points");
    }
}

} // namespace

void KivPointArray::append_slowly(const KivPoint& point)
{
    check_room(points_.size(), 1);
    points_.push_back(point);
}

void KivPointArray::AppendPixels(int row, int first, int last)
{
    const std::size_t before = points_.size();
    const auto added = static_cast<std::size_t>(std::int64_t{last} - first + 1);
    check_room(before, added);
    points_.resize(before + added);
    KivPoint* point = points_.data() + before;
    for (std::size_t i = 0; i < added; ++i) {
        point[i] = {static_cast<double>(first) + static_cast<double>(static_cast<int>(i)), static_cast<double>(row)};
    }
}

void KivPointArray::throw_out_of_range(int index) const
{
    kivdata::throw_out_of_range("KivPointArray", index, Length());
}
