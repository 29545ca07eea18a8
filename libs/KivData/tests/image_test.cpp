// SPDX-License-Identifier: MIT
// KivImage and KivMatrix, which share all but the image's accessors.
#include <KivData/KivImage.h>
#include <KivData/KivMatrix.h>

#include "first_member.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{

template <class Holder>
class MatHolder : public testing::Test
{
};

using Holders = testing::Types<KivImage, KivMatrix>;
TYPED_TEST_SUITE(MatHolder, Holders);

cv::Mat ramp()
{
    cv::Mat matrix(3, 4, CV_8UC1);
    for (int i = 0; i < 12; ++i) {
        matrix.at<uchar>(i / 4, i % 4) = static_cast<uchar>(i);
    }
    return matrix;
}

TYPED_TEST(MatHolder, PointsToItsMatrixFirst)
{
    const TypeParam empty;
    EXPECT_EQ(first_member<cv::Mat>(empty), &empty.Mat());
    TypeParam made(ramp());
    EXPECT_EQ(first_member<cv::Mat>(made), &std::as_const(made).Mat());
    const TypeParam copied(made);
    EXPECT_EQ(first_member<cv::Mat>(copied), &copied.Mat());
    const TypeParam moved(std::move(made));
    EXPECT_EQ(first_member<cv::Mat>(moved), &moved.Mat());
    EXPECT_EQ(first_member<cv::Mat>(made), &made.Mat());
    TypeParam assigned;
    assigned = copied;
    EXPECT_EQ(first_member<cv::Mat>(assigned), &assigned.Mat());
    assigned = std::move(made);
    EXPECT_EQ(first_member<cv::Mat>(assigned), &assigned.Mat());
}

TYPED_TEST(MatHolder, SharesThePixelsItIsMadeFrom)
{
    cv::Mat matrix = ramp();
    const TypeParam holder(matrix);
    matrix.at<uchar>(0, 0) = 99;
    EXPECT_EQ(holder.Mat().template at<uchar>(0, 0), 99);
}

TYPED_TEST(MatHolder, CopiesHavePixelsOfTheirOwn)
{
    TypeParam original(ramp());
    const TypeParam copied(original);
    TypeParam assigned;
    assigned = original;
    EXPECT_EQ(copied, original);
    EXPECT_EQ(assigned, original);
    original.Mat().setTo(0);
    EXPECT_EQ(copied, TypeParam(ramp()));
    EXPECT_EQ(assigned, TypeParam(ramp()));
    EXPECT_NE(original, copied);
}

TYPED_TEST(MatHolder, CopiesWithoutElementsKeepSizeAndType)
{
    const TypeParam original(cv::Mat(0, 7, CV_16UC1));
    const TypeParam copied(original);
    TypeParam assigned(ramp());
    assigned = original;
    for (const TypeParam& copy : {copied, assigned}) {
        EXPECT_EQ(copy.Mat().cols, 7);
        EXPECT_EQ(copy.Mat().type(), CV_16UC1);
    }
}

TYPED_TEST(MatHolder, IsEmptyAndUsableAfterItWasMovedFrom)
{
    TypeParam from(ramp());
    TypeParam to(std::move(from));
    EXPECT_EQ(to, TypeParam(ramp()));
    EXPECT_EQ(from, TypeParam());
    EXPECT_TRUE(from.Mat().empty());
    from = std::move(to);
    EXPECT_EQ(from, TypeParam(ramp()));
    EXPECT_EQ(to, TypeParam());
}

TYPED_TEST(MatHolder, MayBeAssignedToItself)
{
    TypeParam holder(ramp());
    TypeParam& same = holder;
    holder = same;
    EXPECT_EQ(holder, TypeParam(ramp()));
    holder = std::move(same);
    EXPECT_EQ(holder, TypeParam(ramp()));
}

TYPED_TEST(MatHolder, ComparesSizeTypeAndBytes)
{
    const TypeParam holder(ramp());
    EXPECT_EQ(TypeParam(), TypeParam());
    EXPECT_NE(holder, TypeParam());
    EXPECT_NE(holder, TypeParam(ramp().reshape(1, 4)));
    EXPECT_NE(holder, TypeParam(ramp().reshape(2, 3)));
    cv::Mat as_signed;
    ramp().convertTo(as_signed, CV_8SC1);
    EXPECT_NE(holder, TypeParam(as_signed));
    cv::Mat changed = ramp();
    changed.at<uchar>(2, 3) = 0;
    EXPECT_NE(holder, TypeParam(changed));
}

TYPED_TEST(MatHolder, ComparesAllBytesOfWideElements)
{
    const cv::Mat wide(2, 3, CV_32SC2, cv::Scalar(1, 2));
    cv::Mat changed = wide.clone();
    changed.at<cv::Vec2i>(1, 2)[1] = 3;
    EXPECT_EQ(TypeParam(wide), TypeParam(wide.clone()));
    EXPECT_NE(TypeParam(wide), TypeParam(changed));
}

TYPED_TEST(MatHolder, CopiesSizeAndTypeOfAMatrixWithoutElements)
{
    const TypeParam holder(cv::Mat(0, 3, CV_16UC2));
    const TypeParam copied(holder);
    EXPECT_EQ(copied.Mat().type(), CV_16UC2);
    EXPECT_EQ(copied.Mat().size(), cv::Size(3, 0));
}

TYPED_TEST(MatHolder, ComparesViewsByTheirPixels)
{
    cv::Mat large(10, 10, CV_8UC1, cv::Scalar(200));
    cv::Mat view = large(cv::Rect(3, 3, 4, 3));
    ramp().copyTo(view);
    EXPECT_EQ(TypeParam(view), TypeParam(ramp()));
    view.at<uchar>(2, 3) = 0;
    EXPECT_NE(TypeParam(view), TypeParam(ramp()));
}

TEST(Image, TellsSizeDepthAndChannels)
{
    KivImage image(cv::Mat(3, 5, CV_16UC3, cv::Scalar(1, 2, 3)));
    EXPECT_EQ(image.Width(), 5);
    EXPECT_EQ(image.Height(), 3);
    EXPECT_EQ(image.BitDepth(), 2);
    EXPECT_EQ(image.Channels(), 3);
    EXPECT_EQ(image.ImageData(), image.Mat().data);
    EXPECT_EQ(std::as_const(image).ImageData(), image.Mat().data);
}

TEST(Image, HoldsNothingByDefault)
{
    KivImage image;
    EXPECT_EQ(image.Width(), 0);
    EXPECT_EQ(image.Height(), 0);
    EXPECT_EQ(image.BitDepth(), 0);
    EXPECT_EQ(image.Channels(), 1);
    EXPECT_EQ(image.ImageData(), nullptr);
}

} // namespace
