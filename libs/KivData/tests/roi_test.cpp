// SPDX-License-Identifier: MIT
#include <KivData/KivRegion.h>
#include <KivData/KivROI.h>

#include "first_member.h"
#include "support/pictures.h"

#include <gtest/gtest.h>

#include <climits>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <variant>

namespace
{

using Runs = std::vector<Run>;
using support::mask_of;
using support::picture_of;

const Runs untidy = {{2, 1, 9}, {0, -5, 1}, {2, 1, 9}, {-1, 0, 3}, {1, 3, 2}, {7, 0, 0}};

struct Arrays {
    KivVarArray rows{9};
    KivVarArray begins{9, 9};
    KivVarArray ends{"old"};
};

Arrays arrays_of(const Runs& runs)
{
    KivRegion region(0, 0, runs);
    Arrays arrays;
    region.GetRegionRuns(&arrays.rows, &arrays.begins, &arrays.ends);
    return arrays;
}

void expect_same(const Arrays& a, const Arrays& b)
{
    EXPECT_EQ(a.rows, b.rows);
    EXPECT_EQ(a.begins, b.begins);
    EXPECT_EQ(a.ends, b.ends);
}

TEST(Roi, IsEmptyByDefault)
{
    const KivROI roi;
    EXPECT_EQ(roi.ROIType(), 3);
    EXPECT_EQ(roi.Parameters().Width(), 0);
    EXPECT_EQ(roi.Parameters().Height(), 0);
    EXPECT_TRUE(roi.Parameters().MaskRuns().empty());
}

TEST(Roi, PointsToTheSameParametersForLife)
{
    const KivROI source = KivROI::Circle(3, 3, 2, 8, 8);
    KivROI roi;
    const IKivROIPara* parameters = first_member<IKivROIPara>(roi);
    EXPECT_EQ(parameters, &std::as_const(roi).Parameters());

    roi = source;
    EXPECT_EQ(first_member<IKivROIPara>(roi), parameters);
    EXPECT_EQ(*parameters, source.Parameters());
    roi = KivROI();
    EXPECT_EQ(first_member<IKivROIPara>(roi), parameters);
    EXPECT_EQ(parameters->ShapeType(), 3);

    KivROI copied(source);
    EXPECT_EQ(first_member<IKivROIPara>(copied), &copied.Parameters());
    const KivROI moved(std::move(copied));
    EXPECT_EQ(first_member<IKivROIPara>(moved), &moved.Parameters());
    EXPECT_EQ(first_member<IKivROIPara>(copied), &copied.Parameters());
}

TEST(Roi, HasValueSemantics)
{
    const KivROI sample = KivROI::Mask(untidy, 4, 3);
    KivROI copy(sample);
    EXPECT_EQ(copy, sample);
    const KivROI& same = copy;
    copy = same;
    EXPECT_EQ(copy, sample);

    KivROI moved(std::move(copy));
    EXPECT_EQ(moved, sample);
    EXPECT_EQ(copy, KivROI());
    copy = std::move(moved);
    EXPECT_EQ(copy, sample);
    EXPECT_EQ(moved, KivROI());
    KivROI& itself = copy;
    copy = std::move(itself);
    EXPECT_EQ(copy, sample);
    copy.Parameters().GenMask(Runs(), 4, 3);
    EXPECT_NE(copy, sample);
}

TEST(Roi, ComparesShapeParametersAndFrame)
{
    EXPECT_EQ(KivROI::Circle(1, 2, 3, 4, 5), KivROI::Circle(1, 2, 3, 4, 5));
    EXPECT_NE(KivROI::Circle(1, 2, 3, 4, 5), KivROI::Circle(1, 2, 4, 4, 5));
    EXPECT_NE(KivROI::Circle(1, 2, 3, 4, 5), KivROI::Circle(1, 2, 3, 5, 5));
    EXPECT_NE(KivROI::Circle(1, 2, 3, 4, 5), KivROI::Circle(1, 2, 3, 4, 6));
    EXPECT_NE(KivROI::Circle(1, 2, 3, 4, 5), KivROI::Ring(1, 2, 0, 3, 4, 5));
    EXPECT_TRUE(KivROI::Circle(1, 2, 3, 4, 5).Parameters() != KivROI::Circle(1, 2, 4, 4, 5).Parameters());
    EXPECT_FALSE(KivROI::Circle(1, 2, 3, 4, 5).Parameters() != KivROI::Circle(1, 2, 3, 4, 5).Parameters());
}

TEST(RoiMask, KeepsRunsVerbatim)
{
    const Arrays expected = arrays_of(untidy);
    Arrays given = expected;
    KivROI roi = KivROI::Circle(1, 1, 1, 2, 2);
    roi.Parameters().GenMask(given.rows, given.begins, given.ends, 4, 3);
    EXPECT_EQ(roi.ROIType(), KivShape::Mask::type);
    EXPECT_EQ(roi.Parameters().MaskRuns(), untidy);
    expect_same(given, expected);

    Arrays got;
    int width = -1;
    int height = -1;
    roi.Parameters().GetMask(&got.rows, &got.begins, &got.ends, &width, &height);
    expect_same(got, expected);
    EXPECT_EQ(width, 4);
    EXPECT_EQ(height, 3);
}

TEST(RoiMask, ContainsWhatItsRunsCover)
{
    const KivROI roi = KivROI::Mask(untidy, 4, 3);
    EXPECT_TRUE(roi.Parameters().Contains(1, 2));
    EXPECT_TRUE(KivROI::Mask({{1, 2, 4}}, 4, 3).Parameters().Contains(2, 1));
    EXPECT_TRUE(KivROI::Mask({{1, 2, 4}}, 4, 3).Parameters().Contains(4, 1));
    EXPECT_TRUE(roi.Parameters().Contains(-5, 0));
    EXPECT_FALSE(roi.Parameters().Contains(0, 2));
    EXPECT_FALSE(roi.Parameters().Contains(10, 2));
    EXPECT_FALSE(roi.Parameters().Contains(3, 1));
}

TEST(Roi, ContainsNothingOutsideOfItsFrame)
{
    for (const KivROI& roi :
         {KivROI::Circle(1, 1, 9, 3, 2), KivROI::Polygon({{-9, -9}, {9, -9}, {9, 9}, {-9, 9}}, 3, 2)}) {
        EXPECT_TRUE(roi.Parameters().Contains(2, 1));
        EXPECT_FALSE(roi.Parameters().Contains(-1, 1));
        EXPECT_FALSE(roi.Parameters().Contains(3, 1));
        EXPECT_FALSE(roi.Parameters().Contains(2, -1));
        EXPECT_FALSE(roi.Parameters().Contains(2, 2));
    }
}

TEST(Roi, WithoutAnAreaContainsNothing)
{
    EXPECT_FALSE(KivROI().Parameters().Contains(0, 0));
    EXPECT_FALSE(KivROI::OpenCurve({{0, 0}, {2, 0}}, 3, 2).Parameters().Contains(1, 0));
}

TEST(RoiMask, ShowsTheRunsThatItKeeps)
{
    const KivROI roi = KivROI::Mask(untidy, 4, 3);
    const Runs* kept = roi.Parameters().KeptRuns();
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(*kept, untidy);
    EXPECT_EQ(kept, roi.Parameters().KeptRuns());
    EXPECT_EQ(KivROI::Circle(1, 1, 1, 2, 2).Parameters().KeptRuns(), nullptr);
}

TEST(RoiMask, RefusesBadArgumentsAndKeepsItsShape)
{
    const KivROI before = KivROI::Circle(1, 1, 1, 2, 2);
    KivROI roi(before);
    IKivROIPara& parameters = roi.Parameters();
    Arrays arrays = arrays_of(untidy);
    EXPECT_THROW(parameters.GenMask(arrays.rows, arrays.begins, arrays.ends, -1, 3), std::invalid_argument);
    EXPECT_THROW(parameters.GenMask(arrays.rows, arrays.begins, arrays.ends, 4, -1), std::invalid_argument);
    EXPECT_THROW(parameters.GenMask(Runs(), INT_MIN, 1), std::invalid_argument);
    arrays.ends.Remove(0);
    EXPECT_THROW(parameters.GenMask(arrays.rows, arrays.begins, arrays.ends, 4, 3), std::invalid_argument);
    EXPECT_THROW(parameters.ToMAT(arrays.rows, arrays.begins, arrays.ends, 4, 3), std::invalid_argument);
    EXPECT_EQ(roi, before);
}

TEST(RoiMask, GivesContoursOfItsPixelsInTheFrame)
{
    KivROI roi = KivROI::Mask({{0, -100, 1}, {1, 0, 1}, {9, 0, 9}}, 4, 3);
    KivContourArray contours{KivContour{{9.0, 9.0}}};
    int width = -1;
    int height = -1;
    roi.Parameters().GetMask(&contours, &width, &height);
    ASSERT_EQ(contours.Length(), 1);
    EXPECT_EQ(picture_of(IKivROIPara::ToMAT(contours, width, height)), "##..\n"
                                                                       "##..\n"
                                                                       "....\n");
}

TEST(RoiRuns, ArePaintedClippedToTheMask)
{
    Arrays arrays = arrays_of({{0, INT_MIN, 1}, {1, 2, INT_MAX}, {2, 2, 1}, {-1, 0, 3}, {3, 0, 3}, {2, 4, 9}});
    IKivROIPara parameters;
    EXPECT_EQ(picture_of(parameters.ToMAT(arrays.rows, arrays.begins, arrays.ends, 4, 3)), "##..\n"
                                                                                           "..##\n"
                                                                                           "....\n");
    const cv::Mat mask = parameters.ToMAT(arrays.rows, arrays.begins, arrays.ends, 4, 3);
    EXPECT_EQ(mask.type(), CV_8UC1);
    EXPECT_EQ(mask.at<uchar>(0, 0), 255);
    EXPECT_THROW(parameters.ToMAT(arrays.rows, arrays.begins, arrays.ends, -1, 3), std::invalid_argument);
    EXPECT_THROW(parameters.ToMAT(arrays.rows, arrays.begins, arrays.ends, 4, -1), std::invalid_argument);
}

TEST(RoiRuns, AreExtractedWithTheMasksSize)
{
    cv::Mat mask = mask_of({
        "##.#",
        "....",
        "...#",
    });
    IKivROIPara parameters;
    Arrays got;
    int width = -1;
    int height = -1;
    parameters.MatToMask(mask, &got.rows, &got.begins, &got.ends, &width, &height);
    expect_same(got, arrays_of({{0, 0, 1}, {0, 3, 3}, {2, 3, 3}}));
    EXPECT_EQ(width, 4);
    EXPECT_EQ(height, 3);
    EXPECT_EQ(parameters, IKivROIPara());
}

TEST(RoiParameters, MoveLeavesTheEmptyShape)
{
    const IKivROIPara sample(KivShape::Circle{1, 2, 3}, 4, 5);
    IKivROIPara from(sample);
    IKivROIPara to(std::move(from));
    EXPECT_EQ(to, sample);
    EXPECT_EQ(from, IKivROIPara());
    from = std::move(to);
    EXPECT_EQ(from, sample);
    EXPECT_EQ(to, IKivROIPara());
    from.swap(to);
    EXPECT_EQ(to, sample);
}

} // namespace
