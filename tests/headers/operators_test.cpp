// SPDX-License-Identifier: MIT
// Uses every inline operator of the public headers, compiled as C++17. There, unlike in C++20, != does not follow from
// ==, and a == b is not also b == a.
#include <KivData/KivData.h>
#include <KivData/KivRunBridges.h>
#include <KivDataConvert/KivDataConvert.h>
#include <KivRLC/KivImageView.h>
#include <KivRLC/KivPolygonFill.h>
#include <KivRLC/KivRLC.h>
#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRun.h>
#include <KivRLC/KivRunBorders.h>
#include <KivRLC/KivRunBox.h>
#include <KivRLC/KivRunBuffer.h>
#include <KivRLC/KivRunCoco.h>
#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunImages.h>
#include <KivRLC/KivRunMat.h>
#include <KivRLC/KivRunMeasures.h>
#include <KivRLC/KivRunMorphology.h>
#include <KivRLC/KivRunOutlines.h>
#include <KivRLC/KivRunSet.h>
#include <KivRLC/KivRunTransforms.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

static_assert(__cplusplus == 201703L, "the headers are for C++17, and this file shows it");

namespace
{

/// Compares a value with an equal and with a different one, by both operators and from both sides.
template <class A, class B>
void expect_compared(const A& a, const B& equal, const B& different)
{
    EXPECT_TRUE(a == equal);
    EXPECT_TRUE(equal == a);
    EXPECT_FALSE(a != equal);
    EXPECT_FALSE(equal != a);
    EXPECT_FALSE(a == different);
    EXPECT_FALSE(different == a);
    EXPECT_TRUE(a != different);
    EXPECT_TRUE(different != a);
}

/// Copies, moves and assigns a value.
template <class T>
void expect_value_semantics(const T& value)
{
    T copy(value);
    EXPECT_TRUE(copy == value);
    T moved(std::move(copy));
    EXPECT_TRUE(moved == value);
    T assigned;
    assigned = value;
    EXPECT_TRUE(assigned == value);
    T move_assigned;
    move_assigned = std::move(assigned);
    EXPECT_TRUE(move_assigned == value);
}

template <class T>
void expect_regular(const T& value, const T& other)
{
    expect_compared<T, T>(value, value, other);
    expect_value_semantics(value);
}

template <class Shape>
void expect_regular_shape(const Shape& value, const Shape& other)
{
    expect_regular(value, other);
    expect_regular(KivShape::Any(value), KivShape::Any(other));
}

} // namespace

TEST(Cxx17, ComparesRunsPointsAndBoxes)
{
    expect_regular(::Run{1, 2, 3}, ::Run{1, 2, 4});
    static_assert(::Run{1, 2, 3} != ::Run{1, 2, 4});
    expect_regular(KivPoint{1.5, 2.5}, KivPoint{1.5, 3.5});
    expect_regular(KivPixel{1, 2}, KivPixel{1, 3});
    expect_regular(KivRunBox{0, 1, 2, 3}, KivRunBox{0, 1, 2, 4});
    expect_regular(KivRuns::Place{1, 2}, KivRuns::Place{1, 3});
    expect_regular(KivRuns::PixelCorner{1, 2}, KivRuns::PixelCorner{1, 3});
}

TEST(Cxx17, ComparesAndCombinesRunSets)
{
    const KivRunSet a{{0, 1, 4}};
    const KivRunSet b{{0, 3, 6}};
    expect_regular(a, b);
    EXPECT_EQ(a | b, (KivRunSet{{0, 1, 6}}));
    EXPECT_EQ(a & b, (KivRunSet{{0, 3, 4}}));
    EXPECT_EQ(a - b, (KivRunSet{{0, 1, 2}}));
    EXPECT_EQ(a ^ b, (KivRunSet{{0, 1, 2}, {0, 5, 6}}));
    KivRunSet set = a;
    set |= b;
    set -= a;
    EXPECT_EQ(set, (KivRunSet{{0, 5, 6}}));
    set ^= b;
    set &= a;
    EXPECT_EQ(set, (KivRunSet{{0, 3, 4}}));
    EXPECT_EQ(KivRuns::SetOf(KivRuns::RegionOf(set, 8, 1)), set);
    EXPECT_EQ(KivRuns::SetOf(KivRuns::MaskOf(set, 8, 1)), set);
}

TEST(Cxx17, ComparesShapes)
{
    EXPECT_TRUE(KivShape::Empty() == KivShape::Empty());
    EXPECT_FALSE(KivShape::Empty() != KivShape::Empty());
    expect_regular(KivShape::Any(), KivShape::Any(KivShape::Circle()));
    expect_regular_shape(KivShape::Rectangle{1, 2, 3, 4}, KivShape::Rectangle{1, 2, 3, 5});
    expect_regular_shape(KivShape::RotatedRectangle{1, 2, 3, 4, 5}, KivShape::RotatedRectangle{1, 2, 3, 4, 6});
    expect_regular_shape(KivShape::Circle{1, 2, 3}, KivShape::Circle{1, 2, 4});
    expect_regular_shape(KivShape::Ellipse{1, 2, 3, 4, 5}, KivShape::Ellipse{1, 2, 3, 4, 6});
    expect_regular_shape(KivShape::Ring{1, 2, 3, 4}, KivShape::Ring{1, 2, 3, 5});
    expect_regular_shape(KivShape::RingSector{1, 2, 3, 4, 5, 6}, KivShape::RingSector{1, 2, 3, 4, 5, 7});
    expect_regular_shape(KivShape::Mask{{{0, 1, 2}}}, KivShape::Mask{{{0, 1, 3}}});
    expect_regular_shape(KivShape::Polygon{{{1, 2}}}, KivShape::Polygon{{{1, 3}}});
    expect_regular_shape(KivShape::OpenCurve{{{1, 2}}}, KivShape::OpenCurve{{{1, 3}}});
}

TEST(Cxx17, ComparesRegionsAndRois)
{
    expect_regular(KivRegion(4, 3, {{0, 1, 2}}), KivRegion(4, 3, {{0, 1, 3}}));
    expect_regular(IKivROIPara(KivShape::Circle{1, 1, 1}, 4, 3), IKivROIPara(KivShape::Circle{1, 1, 1}, 4, 4));
    expect_regular(KivROI::Circle(1, 1, 1, 4, 3), KivROI::Circle(1, 1, 2, 4, 3));
}

TEST(Cxx17, ComparesImagesAndMatrices)
{
    const cv::Mat ones(2, 3, CV_8UC1, cv::Scalar(1));
    const cv::Mat twos(2, 3, CV_8UC1, cv::Scalar(2));
    expect_regular(KivMatHolder(ones), KivMatHolder(twos));
    expect_regular(KivImage(ones), KivImage(twos));
    expect_regular(KivMatrix(ones), KivMatrix(twos));
}

TEST(Cxx17, ComparesAndIndexesArrays)
{
    expect_regular(KivVarArray{1, 2.5, "three"}, KivVarArray{1, 2.5});
    expect_regular(KivPointArray{{1, 2}}, KivPointArray{{1, 3}});
    expect_regular(KivContour{{1, 2}}, KivContour{{1, 3}});
    expect_regular(KivContourArray{KivContour{{1, 2}}}, KivContourArray{KivContour{{1, 3}}});

    KivVarArray vars{1, 2};
    KivPointArray points{{1, 2}};
    KivContourArray contours{KivContour{{1, 2}}};
    EXPECT_EQ(vars[1], std::as_const(vars)[1]);
    EXPECT_EQ(points[0], std::as_const(points)[0]);
    EXPECT_EQ(contours[0], std::as_const(contours)[0]);
    for (const KivPoint& point : points) {
        EXPECT_EQ(point, points[0]);
    }
    for (const KivContour& contour : contours) {
        EXPECT_EQ(contour, contours[0]);
    }
}

TEST(Cxx17, ComparesAndConvertsVariants)
{
    expect_regular(KivVar(1), KivVar(2));
    expect_compared(KivVar(1), 1, 2);
    expect_compared(KivVar(1.5), 1.5, 1.0);
    expect_compared(KivVar(1), 1L, 1L << 32);
    expect_compared(KivVar(1), 1U, 2U);
    expect_compared(KivVar("one"), "one", "two");
    const int as_int = KivVar(7L);
    const double as_double = KivVar(7U);
    const long as_long = KivVar(7);
    const float as_float = KivVar(7.5);
    EXPECT_EQ(as_int, 7);
    EXPECT_EQ(as_double, 7.0);
    EXPECT_EQ(as_long, 7L);
    EXPECT_EQ(as_float, 7.5F);
}
