// SPDX-License-Identifier: MIT
// ROIs painted into binary images: grey values, clipping, the image's former pixels and ROIs without pixels.
#include "support/coordinates.h"
#include "support/rasters.h"
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <climits>

namespace
{

using KIVMV::KivROIToBinImage;
using support::grey_of;
using support::same;
using support::same_pixels;

cv::Mat earlier_pixels()
{
    return cv::Mat(3, 7, CV_16UC3, cv::Scalar(1, 2000, 3));
}

KivImage painted(const KivROI& roi)
{
    KivROI input(roi);
    const cv::Mat earlier = earlier_pixels();
    KivImage image(earlier);
    EXPECT_EQ(KivROIToBinImage(&image, input), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same(input, roi));
    EXPECT_TRUE(same_pixels(KivImage(earlier), earlier_pixels())) << "pixels that the image had before";
    return image;
}

void expect_refused(const KivROI& roi)
{
    SCOPED_TRACE(support::described(roi));
    KivROI input(roi);
    KivImage image(earlier_pixels());
    const support::Snapshot snapshot(image);
    EXPECT_EQ(KivROIToBinImage(&image, input), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(snapshot.untouched());
    EXPECT_TRUE(same(input, roi));
}

TEST(RoiToImage, AMaskIsWhiteOnBlack)
{
    EXPECT_TRUE(same_pixels(painted(KivROI::Mask({{2, 0, 1}, {0, 3, 3}}, 4, 3)),
                            grey_of({{0, 0, 0, 255}, {0, 0, 0, 0}, {255, 255, 0, 0}})));
}

TEST(RoiToImage, RunsAreClippedToTheFrame)
{
    EXPECT_TRUE(same_pixels(painted(KivROI::Mask({{0, -4, 0}, {1, -9, 99}, {2, 2, 5}, {-1, 0, 2}, {3, 0, 2}}, 3, 3)),
                            grey_of({{255, 0, 0}, {255, 255, 255}, {0, 0, 255}})));
    EXPECT_TRUE(support::is_quick([] {
        EXPECT_TRUE(same_pixels(painted(KivROI::Mask({{0, INT_MIN, INT_MAX}, {INT_MAX, 0, 1}, {INT_MIN, 0, 1}}, 2, 2)),
                                grey_of({{255, 255}, {0, 0}})));
    }));
}

TEST(RoiToImage, OrderRepetitionAndOverlapOfTheRunsDoNotMatter)
{
    EXPECT_TRUE(same_pixels(painted(KivROI::Mask({{1, 1, 2}, {0, 0, 1}, {1, 1, 2}, {0, 1, 2}, {1, 2, 1}}, 3, 2)),
                            grey_of({{255, 255, 255}, {0, 255, 255}})));
}

TEST(RoiToImage, AShapeGivesItsPixels)
{
    EXPECT_TRUE(same_pixels(painted(KivROI::Circle(1.0, 1.0, 1.0, 4, 3)),
                            grey_of({{0, 255, 0, 0}, {255, 255, 255, 0}, {0, 255, 0, 0}})));
}

TEST(RoiToImage, AMaskWithoutRunsIsABlackImage)
{
    EXPECT_TRUE(same_pixels(painted(KivROI::Mask({}, 2, 3)), grey_of({{0, 0}, {0, 0}, {0, 0}})));
}

TEST(RoiToImage, AFrameWithoutColumnsGivesAnEmptyImage)
{
    EXPECT_TRUE(painted(KivROI::Mask({}, 0, 5)).Mat().empty());
    EXPECT_TRUE(painted(KivROI::Mask({{1, 0, 3}}, 0, 5)).Mat().empty());
    EXPECT_TRUE(painted(KivROI::Mask({}, 0, 0)).Mat().empty());
    EXPECT_EQ(painted(KivROI::Mask({{1, 0, 3}}, 0, 5)).Width(), 0);
}

TEST(RoiToImage, AFrameWithoutRowsGivesAnEmptyImage)
{
    const KivImage image = painted(KivROI::Mask({{0, 1, 2}}, 5, 0));
    EXPECT_TRUE(image.Mat().empty());
    EXPECT_EQ(image.Height(), 0);
}

TEST(RoiToImage, AnImageOfTheRightSizeGetsPixelsOfItsOwnAllTheSame)
{
    KivROI roi = KivROI::Mask({{0, 1, 1}}, 2, 1);
    const cv::Mat earlier = grey_of({{9, 9}});
    KivImage image(earlier);
    EXPECT_EQ(KivROIToBinImage(&image, roi), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_pixels(image, grey_of({{0, 255}})));
    EXPECT_TRUE(same_pixels(KivImage(earlier), grey_of({{9, 9}})));
}

TEST(RoiToImage, TheEmptyShapeIsRefused)
{
    expect_refused(KivROI());
    expect_refused(KivROI(KivShape::Empty{}, 6, 5));
}

TEST(RoiToImage, AnOpenCurveIsRefused)
{
    expect_refused(KivROI::OpenCurve({{1, 1}, {3, 3}}, 6, 5));
    expect_refused(KivROI::OpenCurve({}, 0, 0));
}

TEST(RoiToImage, AnImageThatIsTooLargeToHoldRaises)
{
    KivROI roi = KivROI::Mask({{1, 0, 3}}, INT_MAX, INT_MAX);
    KivImage image(earlier_pixels());
    const support::Snapshot snapshot(image);
    EXPECT_TRUE(support::raises([&] { return KivROIToBinImage(&image, roi); }));
    EXPECT_TRUE(snapshot.untouched());
}

} // namespace
