// SPDX-License-Identifier: MIT
#include "roi/mask_parts.h"

#include "foundation/bulk.h"

namespace kiv
{
namespace
{

template <class Parameters>
MaskParts mask_of(const Parameters& parameters)
{
    if constexpr (KeepsFlatMask<Parameters>) {
        const Frame frame{parameters.Width(), parameters.Height()};
        if (const RunList* kept = parameters.KeptRuns()) {
            return {frame, RunView(*kept)};
        }
        return {frame, parameters.MaskRuns()};
    } else {
        RunArrays arrays;
        Frame frame;
        parameters.GetMask(&arrays.rows, &arrays.col_begins, &arrays.col_ends, &frame.width, &frame.height);
        return {frame, arrays.list()};
    }
}

template <class Parameters>
void become_mask(Parameters& parameters, Frame frame, RunList runs)
{
    if constexpr (KeepsFlatMask<Parameters>) {
        parameters.GenMask(std::move(runs), frame.width, frame.height);
    } else {
        RunArrays arrays(runs);
        parameters.GenMask(arrays.rows, arrays.col_begins, arrays.col_ends, frame.width, frame.height);
    }
}

} // namespace

MaskParts MaskReader::read(const KivROI& roi)
{
    if constexpr (KeepsFlatMask<IKivROIPara>) {
        return mask_of(parameters_of(roi));
    }
    if (copy_) {
        *copy_ = roi;
    } else {
        copy_.emplace(roi);
    }
    return mask_of(parameters_of(*copy_));
}

PaintedMask::PaintedMask(const KivROI& roi)
{
    IKivROIPara& parameters = parameters_of(roi);
    auto& [rows, col_begins, col_ends] = runs;
    parameters.GetMask(&rows, &col_begins, &col_ends, &frame.width, &frame.height);
    pixels = parameters.ToMAT(rows, col_begins, col_ends, frame.width, frame.height);
}

void generate_mask(KivROI& roi, Frame frame, RunList runs)
{
    become_mask(parameters_of(roi), frame, std::move(runs));
}

} // namespace kiv
