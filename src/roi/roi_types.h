// SPDX-License-Identifier: MIT
// ROI types that have a mask, and those that have none.
#pragma once

#include <KivData/KivData.h>

namespace kiv
{

enum class RoiKind { empty, open_curve, with_mask };

inline RoiKind kind_of(const KivROI& roi)
{
    const int type = roi.ROIType();
    return type == 3 ? RoiKind::empty : type == 10 ? RoiKind::open_curve : RoiKind::with_mask;
}

inline bool has_mask(const KivROI& roi)
{
    return kind_of(roi) == RoiKind::with_mask;
}

} // namespace kiv
