// SPDX-License-Identifier: MIT
#include "kivconvert/operands.h"

#include "kivconvert/errors.h"
#include "kivconvert/image_files.h"
#include "kivconvert/region_files.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <utility>

namespace kivconvert
{
namespace
{

Frame frame_or(const Frame& frame, const KivRegion& other)
{
    return frame.width > 0 ? frame : Frame{other.Width(), other.Height()};
}

} // namespace

KivROI read_shape(const std::string& text, const Frame& frame)
{
    KivROI shape = parse_shape(text, frame.width, frame.height);
    if (frame.width < 1 || frame.height < 1) {
        throw InputError(text, "is in no frame; give --width and --height");
    }
    expect_possible_frame(text, frame.width, frame.height);
    return shape;
}

KivRegion region_of(KivROI& roi, const Frame& frame)
{
    if (roi.ROIType() == KivShape::Empty::type) {
        return KivRegion(frame.width, frame.height, {});
    }
    KivRegion region;
    expect_success(KIVMV::KivROIToRegion(roi, &region), "region of interest");
    return region;
}

KivRegion read_operand(const std::string& text, const Frame& frame)
{
    if (!is_shape(text)) {
        return read_region(text);
    }
    KivROI shape = read_shape(text, frame);
    return region_of(shape, frame);
}

Operands read_operands(const std::string& a, const std::string& b, const Frame& frame)
{
    if (is_shape(a)) {
        KivRegion other = read_operand(b, frame);
        return {read_operand(a, frame_or(frame, other)), std::move(other)};
    }
    KivRegion other = read_operand(a, frame);
    KivRegion second = read_operand(b, frame_or(frame, other));
    return {std::move(other), std::move(second)};
}

} // namespace kivconvert
