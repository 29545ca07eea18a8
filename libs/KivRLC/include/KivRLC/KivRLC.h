// SPDX-License-Identifier: MIT
/// @file
/// Run extraction: the runs of foreground pixels in an 8-bit mask.
#pragma once

#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRun.h>

#include <opencv2/core.hpp>

#include <vector>

/// The run extractor. It has no state, and no object of it is needed.
class KIVRLC_API KivRLC
{
public:
    /// Appends the maximal runs of the non-zero bytes of `mask` to `runs`: rows from top to bottom, within a row from
    /// left to right. Two runs of one row are always separated by at least one zero byte.
    ///
    /// The byte of pixel (x, y) is the one at mask.data + y * mask.step[0] + x, for x from 0 to mask.cols - 1 and y
    /// from 0 to mask.rows - 1. So padded masks and views into larger ones work; of a mask with more than one channel,
    /// or with wider elements, the first mask.cols bytes of each row are looked at. A mask without rows or columns has
    /// no runs. The mask is never written to.
    ///
    /// Only `mask` and `runs` matter. The remaining parameters belong to the extractor's established signature, in
    /// which outlines could be asked for as well: the five other outputs are left as they are and may be null, and the
    /// mode values (`mode`, `external`, `first`, `second`, `third`, `merge`) have no influence.
    ///
    /// Cost: one pass over the mask's bytes, 64 at a time; stretches without a change of foreground cost no more than
    /// reading them.
    ///
    /// @throws std::invalid_argument if `runs` is null.
    /// @throws cv::Exception if the mask has more than two dimensions.
    /// @throws std::bad_alloc if memory runs out; `runs` then holds what it held before.
    static void FindContours(cv::Mat& mask, char mode, std::vector<cv::Point_<int>>* outline,
                             std::vector<int>* outlineLengths, std::vector<cv::Vec<int, 4>>* hierarchy,
                             std::vector<int>* labels, std::vector<Run>* runs, std::vector<int>* rowStarts,
                             bool external, int first, int second, int third, bool merge);

    /// FindContours() without the parameters that have no influence, and of a const mask.
    ///
    /// @throws cv::Exception if the mask has more than two dimensions.
    /// @throws std::bad_alloc if memory runs out; `runs` then holds what it held before.
    static void AppendRuns(const cv::Mat& mask, std::vector<Run>& runs);
};
