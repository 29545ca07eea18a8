// SPDX-License-Identifier: MIT
// What the comments of the functions say that outputs hold after a failure.
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

namespace
{

using support::same;

TEST(FailedOutputs, ListsAreEmptyAfterAFailure)
{
    KivRegion no_region;
    KivContour no_contour;
    KivVarArray xs{7};
    KivVarArray ys{7};
    EXPECT_EQ(KIVMV::KivRegionToVarArray(no_region, &xs, &ys), 1100008);
    EXPECT_EQ(xs.Length() + ys.Length(), 0);
    xs = ys = KivVarArray{7};
    EXPECT_EQ(KIVMV::KivContourToVarArray(no_contour, &xs, &ys), 1100008);
    EXPECT_EQ(xs.Length() + ys.Length(), 0);

    KivPointArray points{{7, 7}};
    EXPECT_EQ(KIVMV::KivRegionToPointArray(no_region, &points), 1100008);
    EXPECT_EQ(points.Length(), 0);
    points = {{7, 7}};
    EXPECT_EQ(KIVMV::KivContourToPointArray(no_contour, &points), 1100008);
    EXPECT_EQ(points.Length(), 0);
}

TEST(FailedOutputs, ContoursHoldWhatCameBeforeTheFailure)
{
    KivContour contour{{7, 7}};
    KivPointArray no_points;
    EXPECT_EQ(KIVMV::KivPointArrayToContour(no_points, &contour), 1100008);
    EXPECT_EQ(contour, KivContour());

    KivVarArray xs{1, 2, "three"};
    KivVarArray ys{4, 5, 6};
    EXPECT_EQ(KIVMV::KivVarArrayToContour(xs, ys, &contour), 1100008);
    EXPECT_EQ(contour, (KivContour{{1, 4}, {2, 5}}));
    KivVarArray longer{1, 2, 3, 4};
    EXPECT_EQ(KIVMV::KivVarArrayToContour(longer, ys, &contour), 1100007);
    EXPECT_EQ(contour, KivContour());
    contour = {{7, 7}};
    KivVarArray none;
    EXPECT_EQ(KIVMV::KivVarArrayToContour(none, none, &contour), 1100008);
    EXPECT_EQ(contour, KivContour());
    KivVarArray text_first{4, "five", 6};
    EXPECT_EQ(KIVMV::KivVarArrayToContour(ys, text_first, &contour), 1100009);
    EXPECT_EQ(contour, (KivContour{{4, 4}}));
}

TEST(FailedOutputs, SetOperationsGiveAnEmptyResult)
{
    for (const auto operation : {KIVMV::KivRegionAdd, KIVMV::KivRegionAnd, KIVMV::KivRegionSub}) {
        KivRegion none;
        KivRegion out(3, 3, {{1, 1, 1}});
        EXPECT_EQ(operation(none, none, &out), 1100008);
        EXPECT_TRUE(same(out, KivRegion()));
    }
    KivROI empty;
    KivROI circle = KivROI::Circle(3, 3, 2, 7, 7);
    KivROI out = circle;
    EXPECT_EQ(KIVMV::KivROIAnd(empty, circle, &out), 1100009);
    EXPECT_TRUE(same(out, KivROI()));
    out = circle;
    EXPECT_EQ(KIVMV::KivROIAnd(circle, empty, &out), 1100009);
    EXPECT_TRUE(same(out, KivROI()));
}

} // namespace
