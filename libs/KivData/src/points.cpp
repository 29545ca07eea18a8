// SPDX-License-Identifier: MIT
#include <KivData/KivPoint.h>

#include "argument_checks.h"

#include <limits>
#include <stdexcept>

void KivPointArray::append(const KivPoint& point)
{
    if (points_.size() == static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        throw std::length_error("KivPointArray: no room for more than 2^31 - 1 points");
    }
    points_.push_back(point);
}

std::size_t KivPointArray::checked(int index) const
{
    return kivdata::checked_index("KivPointArray", index, Length());
}
