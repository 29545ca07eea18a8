// SPDX-License-Identifier: MIT
#include "foundation/bulk.h"
#include "foundation/masks.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>

namespace
{

/// Whether the runs name their pixels row by row, from left to right, and none twice.
bool are_in_order(kiv::RunView runs)
{
    const auto is_inverted = [](const Run& run) { return kiv::begin_of(run) > kiv::end_of(run); };
    const auto is_not_past = [](const Run& left, const Run& right) {
        return kiv::row_of(left) > kiv::row_of(right) ||
               (kiv::row_of(left) == kiv::row_of(right) && kiv::end_of(left) >= kiv::begin_of(right));
    };
    return std::none_of(runs.begin(), runs.end(), is_inverted) &&
           std::adjacent_find(runs.begin(), runs.end(), is_not_past) == runs.end();
}

/// The pixels of the runs as runs of one pixel each, in order and none twice, whatever the runs are like.
kiv::RunList painted(kiv::RunView runs, cv::Mat& mask)
{
    kiv::paint(mask, runs);
    kiv::RunList pixels;
    for (int y = 0; y < mask.rows; ++y) {
        const uchar* row = mask.data + static_cast<std::size_t>(y) * mask.step[0];
        for (int x = 0; x < mask.cols; ++x) {
            if (row[x] != 0) {
                pixels.push_back({y, x, x});
            }
        }
    }
    return pixels;
}

template <class Array>
void list_one_by_one(kiv::RunView runs, kiv::Frame frame, Array& xs, Array& ys)
{
    kiv::for_each_visible(runs, frame, [&xs, &ys](int row, int first, int last) {
        for (int column = first; column <= last; ++column) {
            xs.Append(KivVar(column));
            ys.Append(KivVar(row));
        }
    });
}

template <kiv::TakesManyInts Array>
void list_run_by_run(kiv::RunView runs, kiv::Frame frame, Array& xs, Array& ys)
{
    std::size_t count = 0;
    kiv::for_each_visible(runs, frame, [&count](int, int first, int last) { count += kiv::length_of(first, last); });
    xs.Reserve(count);
    ys.Reserve(count);
    kiv::for_each_visible(runs, frame, [&xs, &ys](int row, int first, int last) {
        xs.AppendRange(first, last);
        ys.AppendCopies(row, kiv::length_of(first, last));
    });
}

/// Lists the pixels of the runs as far as they lie in the frame. Two names for one array get columns and rows in turn.
template <class Array>
void list_pixels(kiv::RunView runs, kiv::Frame frame, Array& xs, Array& ys)
{
    if constexpr (kiv::TakesManyInts<Array>) {
        if (&xs != &ys) {
            list_run_by_run(runs, frame, xs, ys);
            return;
        }
    }
    list_one_by_one(runs, frame, xs, ys);
}

} // namespace

int KIVMV::KivRegionToVarArray(KivRegion& region, KivVarArray* xs, KivVarArray* ys)
{
    xs->Clear();
    ys->Clear();
    const kiv::RegionParts parts(region);
    if (parts.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    // A frame that no mask can have is refused also where runs in order make the mask needless: what a call gives must
    // not hang on the order of the runs.
    cv::Mat mask = kiv::unset_mask(parts.frame);
    if (are_in_order(parts.runs)) {
        list_pixels(parts.runs, parts.frame, *xs, *ys);
    } else {
        list_pixels(painted(parts.runs, mask), parts.frame, *xs, *ys);
    }
    return KIVMV_OK;
}
