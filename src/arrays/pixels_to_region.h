// SPDX-License-Identifier: MIT
// The way from listed pixels to a region, which pixel arrays and point arrays share. Pixels are read through a
// function: `pixel_at(i)` is the pixel at index i.
#pragma once

#include "foundation/bulk.h"
#include "foundation/masks.h"
#include "foundation/pixels.h"

#include <KivData/KivData.h>
#include <KivDataConvert/KivDataConvert.h>

#include <optional>

namespace kiv
{

/// The largest column and the largest row, at least 0.
template <class PixelAt>
cv::Point_<int> largest_listed(int length, PixelAt pixel_at)
{
    cv::Point_<int> largest(0, 0);
    for (int i = 0; i < length; ++i) {
        largest = larger(largest, pixel_at(i));
    }
    return largest;
}

/// The runs that pixels make, without those that have a negative coordinate, and the largest column and row of all.
struct PixelRuns {
    RunList runs;
    cv::Point_<int> largest;
};

/// The runs of pixels that are listed row by row and from left to right; nothing when one comes out of order.
/// bench/kiv/arrays.cpp measures it.
template <class PixelAt>
std::optional<PixelRuns> runs_of_ordered_pixels(int length, PixelAt pixel_at)
{
    PixelRuns made;
    int row = -1;
    int begin = 0;
    int end = -1;
    const auto finish_run = [&] {
        if (row >= 0) {
            made.runs.push_back({row, begin, end});
            made.largest = larger(made.largest, {end, row});
        }
    };
    for (int i = 0; i < length; ++i) {
        const cv::Point_<int> pixel = pixel_at(i);
        if (pixel.x < 0 || pixel.y < 0) {
            made.largest = larger(made.largest, pixel);
        } else if (pixel.y == row && pixel.x - end == 1) {
            end = pixel.x;
        } else if (pixel.y > row || (pixel.y == row && pixel.x > end)) {
            finish_run();
            row = pixel.y;
            begin = pixel.x;
            end = pixel.x;
        } else if (pixel.y != row || pixel.x != end) {
            return std::nullopt;
        }
    }
    finish_run();
    return made;
}

/// Sets the mask, which must hold them, to 255 at the pixels without a negative coordinate and to 0 elsewhere.
template <class PixelAt>
void paint_pixels(int length, PixelAt pixel_at, cv::Mat& mask)
{
    mask = cv::Scalar(0);
    for (int i = 0; i < length; ++i) {
        const cv::Point_<int> pixel = pixel_at(i);
        if (pixel.x >= 0 && pixel.y >= 0) {
            mask.data[static_cast<std::size_t>(pixel.y) * mask.step[0] + static_cast<std::size_t>(pixel.x)] = 255;
        }
    }
}

/// Makes `region` of the pixels, in the frame around them. Pixels with a negative coordinate are left out. Refuses a
/// list whose largest column or row is below 1, an empty one among them. Returns the result code.
template <class PixelAt>
int pixels_to_region(int length, PixelAt pixel_at, KivRegion& region)
{
    std::optional<PixelRuns> ordered;
    if constexpr (KeepsFlatRuns<KivRegion>) {
        ordered = runs_of_ordered_pixels(length, pixel_at);
    }
    const cv::Point_<int> largest = ordered ? ordered->largest : largest_listed(length, pixel_at);
    if (largest.y < 1 || largest.x < 1) {
        return KIVMV::KIVMV_ERR_PARAM_1;
    }

    // A frame that no mask can have is refused also where pixels in order make the mask needless: what a call gives
    // must not hang on the order of the pixels.
    const Frame frame = frame_up_to(largest);
    cv::Mat mask = unset_mask(frame);
    if (ordered) {
        create_region(region, frame, std::move(ordered->runs));
    } else {
        paint_pixels(length, pixel_at, mask);
        mask_to_region(mask, frame, region);
    }
    return KIVMV::KIVMV_OK;
}

} // namespace kiv
