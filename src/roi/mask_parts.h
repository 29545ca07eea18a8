// SPDX-License-Identifier: MIT
// What the ROI functions share: which ROIs have a mask, and a mask taken apart.
#pragma once

#include "foundation/first_member.h"
#include "foundation/runs.h"

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

/// All other types have a mask.
inline bool has_mask(const KivROI& roi)
{
    return !is_empty(roi) && !is_open_curve(roi);
}

/// The frame and the runs of an ROI's mask.
struct MaskParts {
    explicit MaskParts(const IKivROIPara& parameters)
    {
        parameters.GetMask(&runs.rows, &runs.col_begins, &runs.col_ends, &frame.width, &frame.height);
    }

    Frame frame;
    RunArrays runs;
};

/// Makes an ROI a mask of the given runs and frame.
inline void generate_mask(KivROI& roi, Frame frame, RunView runs)
{
    RunArrays arrays(runs);
    parameters_of(roi).GenMask(arrays.rows, arrays.col_begins, arrays.col_ends, frame.width, frame.height);
}

} // namespace kiv
