// SPDX-License-Identifier: MIT
// Images, regions and matrices: every way there and back is exact.
#include "demo/checks.h"
#include "demo/pictures.h"
#include "demo/steps.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

namespace demo
{
Report image_to_region(Inspection& inspection)
{
    Report report;
    report.milliseconds = time_of([&] {
        kivconvert::expect_success(KIVMV::KivImageToRegion(inspection.mask, &inspection.parts), "image to region");
    });
    report.region = inspection.parts;
    judge_equality(report, KivImage(mask_of(inspection.parts)) == inspection.mask);
    add_picture(inspection, "region", "region of the parts", tinted(inspection, inspection.parts, {60, 200, 255}));
    return report;
}

Report region_to_image(Inspection& inspection)
{
    Report report;
    KivImage image;
    report.milliseconds = time_of([&] {
        const int code = KIVMV::KivRegionToImage(&image, inspection.parts, 230, 40, inspection.mask.Width(),
                                                 inspection.mask.Height());
        kivconvert::expect_success(code, "region to image");
    });
    cv::Mat above_background = image.Mat() > 40;
    KivImage foreground(above_background);
    kivconvert::expect_success(KIVMV::KivBinImageToRegion(foreground, &report.region), "image to region");
    judge_equality(report, report.region == inspection.parts);
    return report;
}

Report image_to_matrix_to_image(Inspection& inspection)
{
    Report report;
    KivMatrix matrix;
    KivImage back;
    report.milliseconds = time_of([&] {
        kivconvert::expect_success(KIVMV::KivImageToMatrix(inspection.camera, &matrix), "image to matrix");
        kivconvert::expect_success(KIVMV::KivMatrixToImage(&back, matrix), "matrix to image");
    });
    report.region = inspection.parts;
    judge_equality(report, back == inspection.camera);
    return report;
}

} // namespace demo
