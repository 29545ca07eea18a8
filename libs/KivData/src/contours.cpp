// SPDX-License-Identifier: MIT
#include <KivData/KivContour.h>

#include "argument_checks.h"

bool KivContour::IsHole() const noexcept
{
    if (points_.empty()) {
        return false;
    }
    // Seen from the first point, so that a contour far from the origin loses no digits.
    const cv::Point_<double> origin = points_.front();
    double doubled_area = 0.0;
    for (std::size_t i = 1; i < points_.size(); ++i) {
        doubled_area += (points_[i - 1] - origin).cross(points_[i] - origin);
    }
    return doubled_area > 0.0;
}

std::size_t KivContourArray::checked(int index) const
{
    return kivdata::checked_index("KivContourArray", index, Length());
}
