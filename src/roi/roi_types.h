// SPDX-License-Identifier: MIT
// ROI types that have a mask, and those that have none.
#pragma once

#include <KivData/KivData.h>

namespace kiv
{

inline bool is_empty(const KivROI& roi)
{
    return roi.ROIType() == 3;
}
inline bool is_open_curve(const KivROI& roi)
{
    return roi.ROIType() == 10;
}

/// Every type except these two has a mask.
inline bool has_mask(const KivROI& roi)
{
    return !is_empty(roi) && !is_open_curve(roi);
}

} // namespace kiv
