// SPDX-License-Identifier: MIT
#include "foundation/coordinate_lists.h"
#include "foundation/masks.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <utility>

namespace
{

/// The visible parts of the runs, ordered by row and then by column. Parts that overlap are merged, so that no pixel is
/// listed twice.
kiv::RunList ordered_parts(kiv::RunView runs, kiv::Frame frame)
{
    kiv::RunList parts;
    parts.reserve(runs.size());
    kiv::for_each_visible(runs, frame, [&parts](int row, int first, int last) { parts.push_back({row, first, last}); });
    const auto comes_before = [](const Run& left, const Run& right) {
        return kiv::row_of(left) < kiv::row_of(right) ||
               (kiv::row_of(left) == kiv::row_of(right) && kiv::begin_of(left) < kiv::begin_of(right));
    };
    if (!std::is_sorted(parts.begin(), parts.end(), comes_before)) {
        std::sort(parts.begin(), parts.end(), comes_before);
    }
    std::size_t kept = 0;
    for (const auto& [row, begin, end] : parts) {
        if (kept > 0 && kiv::row_of(parts[kept - 1]) == row && begin <= kiv::end_of(parts[kept - 1])) {
            auto& [kept_row, kept_begin, kept_end] = parts[kept - 1];
            kept_end = std::max(kept_end, end);
        } else {
            parts[kept] = {row, begin, end};
            ++kept;
        }
    }
    parts.resize(kept);
    return parts;
}

} // namespace

int KIVMV::KivRegionToVarArray(KivRegion& region, KivVarArray* xs, KivVarArray* ys)
{
    xs->Clear();
    ys->Clear();
    const kiv::FramedRuns parts = kiv::parts_of(region);
    if (parts.frame.width < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::require_mask_frame(parts.frame);
    kiv::PixelCoordinates pixels = kiv::pixels_of(ordered_parts(parts.runs, parts.frame));
    kiv::fill_coordinates(*xs, *ys, std::move(pixels.columns), std::move(pixels.rows));
    return KIVMV_OK;
}
