// SPDX-License-Identifier: MIT
#include "kivconvert/region_files.h"

#include "kivconvert/image_files.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/operands.h"
#include "kivconvert/result_codes.h"
#include "kivconvert/run_files.h"

#include <KivDataConvert/KivDataConvert.h>

namespace kivconvert
{

KivRegion read_region(const std::string& path)
{
    Content content = read_operand(path, {});
    return region_of(content, path);
}

void write_painted(const Output& output, KivRegion& region, const Painting& painting, const std::string& subject)
{
    expect_lossless_image(output);
    const int width = painting.width > 0 ? painting.width : region.Width();
    const int height = painting.height > 0 ? painting.height : region.Height();
    expect_possible_frame(output, width, height);
    expect_paintable(subject, {width, height});
    KivImage image;
    expect_success(KIVMV::KivRegionToImage(&image, region, painting.foreground, painting.background, width, height),
                   subject);
    write_image(output, image);
}

void expect_region_output(const std::string& path)
{
    if (!is_run_file(path)) {
        expect_lossless_image(path);
    }
}

void write_region(const Output& output, KivRegion& region)
{
    if (is_run_file(output)) {
        write_runs(output, region);
    } else {
        expect_region_output(output);
        expect_possible_frame(output, region.Width(), region.Height());
        write_image(output, mask_of(region, output));
    }
}

} // namespace kivconvert
