// SPDX-License-Identifier: MIT
#include "contract_test.h"

using namespace contract;
using namespace KIVMV;

using ContoursContract = ContractTest;

TEST_F(ContoursContract, RegionToContourArrayTracesThePaintedFrame)
{
    KivRegion region;
    set(region, "region", 3, 2, {{0, -5, 0}, {1, 1, 9}, {2, 0, 2}});
    KivContourArray contours;
    start();
    EXPECT_EQ(KivRegionToContourArray(region, &contours), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"region.Width()", "region.Height()", "region.GetRegionRuns()",
                              "MatToMask(2x3[255 0 0 | 0 255 255], contours)"}));

    region.test_width = 0;
    start();
    EXPECT_EQ(KivRegionToContourArray(region, &contours), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), (Calls{"region.Width()", "region.Height()", "region.GetRegionRuns()"}));
}

TEST_F(ContoursContract, ContourArrayToRegionExtractsFromTheRenderedMask)
{
    KivContourArray contours;
    contours.test_length = 1;
    KivRegion region;
    region.test_name = "region";
    start();
    EXPECT_EQ(KivContourArrayToRegion(contours, 3, 2, &region), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"contours.Length()", "ToMAT(contours, 3, 2)", "KivRLC()",
                              find_contours("2x3[255 255 255 | 255 255 255]"), "~KivRLC()",
                              "region.CreateRegion(3, 2, {(0,0,2) (1,0,2)})"}));
}

TEST_F(ContoursContract, RenderingErrorsBecomeACodeAndOthersDoNot)
{
    KivContourArray contours;
    contours.test_length = 1;
    KivRegion region;
    region.test_name = "region";
    KivImage image;
    image.test_matrix = cv::Mat(1, 1, CV_8UC1, cv::Scalar(3));

    start();
    recording::recorder().throw_at = 2; // Length(), then ToMAT()
    EXPECT_EQ(KivContourArrayToRegion(contours, 3, 2, &region), KIVMV_ERR_EXCEPTION);
    start();
    EXPECT_EQ(KivContourArrayToBinImage(&image, contours, 3, 2), KIVMV_ERR_EXCEPTION);
    EXPECT_EQ(recording::text_of(image.test_matrix), "1x1[3]");
    start();
    recording::recorder().throw_at = 3; // the extraction
    EXPECT_THROW(KivContourArrayToRegion(contours, 3, 2, &region), recording::Injected);
    recording::recorder().throw_at = 0;
    EXPECT_TRUE(region.test_runs.empty());
}

TEST_F(ContoursContract, ContourToRegionFillsTheTruncatedPolygon)
{
    KivContour contour;
    contour.test_points = {{0.9, 0.9}, {2.9, 0.9}, {2.9, 1.9}, {0.9, 1.9}};
    KivRegion region;
    region.test_name = "region";
    start();
    EXPECT_EQ(KivContourToRegion(contour, &region), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"KivRLC()", find_contours("2x3[255 255 255 | 255 255 255]"), "~KivRLC()",
                              "region.CreateRegion(3, 2, {(0,0,2) (1,0,2)})"}));
}

TEST_F(ContoursContract, MergContourDrawsIntoACopy)
{
    KivImage image;
    image.test_name = "image";
    image.test_set(padded_matrix(2, 3, {0, 7, 0, 0, 0, 9}));
    KivContour contour;
    contour.test_name = "contour";
    contour.test_points = {{0.5, 0.5}}; // a tie: drawn at (0, 0)
    KivContourArray contours;
    const Calls checks{"image.Channels()", "image.Width()", "contour.Length()"};
    start();
    EXPECT_EQ(KivMergContour(image, contour, true, &contours), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{checks[0], checks[1], checks[2], "MatToMask(2x3[255 7 0 | 0 0 9], contours)"}));

    contour.test_points = {{2.4, 0.6}};
    start();
    EXPECT_EQ(KivMergContour(image, contour, false, &contours), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{checks[0], checks[1], checks[2], "MatToMask(2x3[0 7 0 | 0 0 0], contours)"}));
    EXPECT_EQ(recording::text_of(image.test_matrix), "2x3[0 7 0 | 0 0 9]");
}

TEST_F(ContoursContract, BinImageToContourArrayTracesTheImagesOwnMatrix)
{
    KivImage image;
    image.test_name = "image";
    image.test_set(padded_matrix(1, 2, {0, 7}));
    KivContourArray contours;
    start();
    EXPECT_EQ(KivBinImageToContourArray(image, &contours), KIVMV_OK);
    EXPECT_EQ(calls(),
              (Calls{"image.Height()", "image.Channels()", "image.BitDepth()", "MatToMask(1x2[0 7], contours)"}));

    image.test_channels = 0;
    EXPECT_EQ(KivBinImageToContourArray(image, &contours), KIVMV_OK);
}

TEST_F(ContoursContract, VarArrayToContourResetsTheContourWhole)
{
    KivVarArray xs;
    KivVarArray ys;
    set(xs, {1, 2, 3});
    set(ys, {4, 5});
    ys.test_append(6, 2);
    KivContour contour;
    contour.test_name = "contour";
    contour.test_points = {{9.0, 9.0}};
    start();
    EXPECT_EQ(KivVarArrayToContour(xs, ys, &contour), KIVMV_ERR_PARAM_2);
    EXPECT_EQ(calls(), (Calls{"KivContour()", "contour = KivContour()"}));
    EXPECT_EQ(contour.test_points, (std::vector<cv::Point_<double>>{{1.0, 4.0}, {2.0, 5.0}}));
}

TEST_F(ContoursContract, PointArrayToContourEmptiesThePointsInPlace)
{
    KivPointArray points;
    KivContour contour;
    contour.test_points = {{9.0, 9.0}};
    const std::size_t capacity = contour.test_points.capacity();
    start();
    EXPECT_EQ(KivPointArrayToContour(points, &contour), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), Calls{});
    EXPECT_TRUE(contour.test_points.empty());
    EXPECT_EQ(contour.test_points.capacity(), capacity);
}
