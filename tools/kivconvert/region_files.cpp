// SPDX-License-Identifier: MIT
#include "kivconvert/region_files.h"

#include "kivconvert/image_files.h"
#include "kivconvert/result_codes.h"
#include "kivconvert/run_files.h"

#include <KivDataConvert/KivDataConvert.h>

namespace kivconvert
{

KivRegion region_of(KivImage& image, const std::string& subject)
{
    KivRegion region;
    expect_success(KIVMV::KivImageToRegion(image, &region), subject);
    return region;
}

KivRegion read_region(const std::string& path)
{
    if (is_run_file(path)) {
        return read_runs(path);
    }
    KivImage image = read_grey_image(path);
    return region_of(image, path);
}

void write_painted(const std::string& path, KivRegion& region, const Painting& painting)
{
    expect_lossless_image(path);
    const int width = painting.width > 0 ? painting.width : region.Width();
    const int height = painting.height > 0 ? painting.height : region.Height();
    expect_possible_frame(path, width, height);
    KivImage image;
    expect_success(KIVMV::KivRegionToImage(&image, region, painting.foreground, painting.background, width, height),
                   path);
    write_image(path, image);
}

void write_region(const std::string& path, KivRegion& region)
{
    if (is_run_file(path)) {
        write_runs(path, region);
    } else {
        write_painted(path, region, Painting());
    }
}

} // namespace kivconvert
