// SPDX-License-Identifier: MIT
#include <KivData/KivPoint.h>

#include "argument_checks.h"

#include <cstdint>
#include <utility>

KivPointArray::KivPointArray(std::vector<KivPoint> points)
    : points_(kivdata::checked_elements("KivPointArray", std::move(points)))
{
}

void KivPointArray::append_slowly(const KivPoint& point)
{
    kivdata::check_room("KivPointArray", points_.size(), 1);
    points_.push_back(point);
}

void KivPointArray::AppendPixels(int row, int first, int last)
{
    const std::size_t before = points_.size();
    const auto added = static_cast<std::size_t>(std::int64_t{last} - first + 1);
    kivdata::check_room("KivPointArray", before, added);
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
