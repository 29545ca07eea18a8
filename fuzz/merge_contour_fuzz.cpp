// SPDX-License-Identifier: MIT
// Merging a contour traces the image with the filled contour added or cut out; the image stays as it is.
#include "inputs.h"
#include "target.h"

#include "support/coordinates.h"
#include "support/drawing.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <cmath>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const bool add = input.digit() % 2 == 1;
    KivContour::Points points;
    for (int left = input.digit(); left > 0; --left) {
        const double x = std::nearbyint(input.near_coordinate());
        points.emplace_back(x, std::nearbyint(input.near_coordinate()));
    }
    KivContour contour(points);
    const cv::Mat pixels = input.picture();
    KivImage image(pixels);
    const support::Snapshot snapshot(image);

    KivContourArray merged;
    const int code = KIVMV::KivMergContour(image, contour, add, &merged);
    EXPECT_TRUE(snapshot.untouched());
    if (points.empty()) {
        EXPECT_EQ(code, KIVMV::KIVMV_ERR_PARAM_1);
        return 0;
    }
    EXPECT_EQ(code, KIVMV::KIVMV_OK);
    cv::Mat expected = pixels.clone();
    expected.setTo(add ? 255 : 0, support::drawn(points, pixels.cols, pixels.rows));
    KivImage painted(expected);
    KivContourArray contours;
    EXPECT_EQ(KIVMV::KivBinImageToContourArray(painted, &contours), KIVMV::KIVMV_OK);
    EXPECT_TRUE(support::same_values(merged, contours));
    return 0;
}
