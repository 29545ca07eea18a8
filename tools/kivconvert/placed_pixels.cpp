// SPDX-License-Identifier: MIT
#include "kivconvert/placed_pixels.h"

#include "kivconvert/conversions.h"
#include "kivconvert/operands.h"
#include "kivconvert/region_files.h"
#include "kivconvert/visible_pixels.h"

namespace kivconvert
{

PlacedPixels pixels_of(Content& content, const std::string& subject)
{
    const KivRegion region = region_of(content, subject);
    return {visible_pixels(region), {region.Width(), region.Height()}};
}

PlacedPixels read_pixels(const std::string& text, const Frame& frame, const ImagePart& part)
{
    Content content = read_operand(text, frame, part);
    return pixels_of(content, text);
}

void write_pixels(const Output& output, const PlacedPixels& placed)
{
    KivRegion region = KivRuns::RegionOf(placed.pixels, placed.frame.width, placed.frame.height);
    write_region(output, region);
}

} // namespace kivconvert
