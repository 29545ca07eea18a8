// SPDX-License-Identifier: MIT
// What the ROI functions share: which ROIs have a mask, masks taken apart, and an ROI made of a mask.
#pragma once

#include "foundation/first_member.h"
#include "foundation/runs.h"

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <optional>

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
    Frame frame;
    HeldRuns runs;
};

/// Reads the masks of a set operation's operands, one after the other. What it returns may be a view of the ROI.
///
/// By the contract's own operations it reads through a copy of the first operand, to which the others are assigned:
/// assignment keeps the copy's parameter object and replaces what is in it.
class MaskReader
{
public:
    MaskParts read(const KivROI& roi);

private:
    std::optional<KivROI> copy_;
};

/// An ROI's mask as the ROI itself reports and paints it.
struct PaintedMask {
    explicit PaintedMask(const KivROI& roi);

    Frame frame;
    RunArrays runs;
    cv::Mat pixels;
};

/// Makes an ROI a mask of the given runs and frame.
void generate_mask(KivROI& roi, Frame frame, RunList runs);

} // namespace kiv
