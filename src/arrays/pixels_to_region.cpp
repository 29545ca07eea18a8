// SPDX-License-Identifier: MIT
#include "arrays/pixels_to_region.h"

#include "foundation/masks.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace kiv
{
namespace
{

/// Replaces `region` by what `make_runs` makes in the frame up to the largest column and row.
template <class MakeRuns>
int make_region(int largest_column, int largest_row, MakeRuns make_runs, KivRegion& region)
{
    if (largest_row < 1 || largest_column < 1) {
        return KIVMV::KIVMV_ERR_PARAM_1;
    }

    const Frame frame = frame_up_to(largest_column, largest_row);
    require_mask_frame(frame); // whether a frame is rejected must not depend on the order of the pixels
    create_region(region, frame, make_runs(frame));
    return KIVMV::KIVMV_OK;
}

} // namespace

int pixels_to_region(const PixelLists& pixels, KivRegion& region)
{
    if (std::optional<PixelRuns> ordered = runs_of_ordered_pixels(pixels)) {
        return pixels_to_region(*std::move(ordered), region);
    }
    const int column = *std::max_element(pixels.columns.begin(), pixels.columns.end());
    const int row = *std::max_element(pixels.rows.begin(), pixels.rows.end());
    return make_region(
        column, row, [&pixels](Frame frame) { return runs_of_pixels(pixels, frame); }, region);
}

int pixels_to_region(PixelRuns pixels, KivRegion& region)
{
    const auto taken_over = [&pixels](Frame) { return std::move(pixels.runs); };
    return make_region(pixels.largest_column, pixels.largest_row, taken_over, region);
}

} // namespace kiv
