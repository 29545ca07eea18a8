// SPDX-License-Identifier: MIT
#include "contract_test.h"

using namespace contract;
using namespace KIVMV;

using ContoursContract = ContractTest;

TEST_F(ContoursContract, RegionToContourArrayTracesThePaintedFrame)
{
    KivRegion region;
    set(region, "region", 3, 2, {{0, -5, 0}, {1, 1, 9}, {2, 0, 2}});
    const Unchanged input(region);
    KivContourArray contours("contours");
    start();
    EXPECT_EQ(KivRegionToContourArray(region, &contours), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"MatToMask(2x3[255 0 0 | 0 255 255], contours)"}));
}

TEST_F(ContoursContract, RegionToContourArrayRejectsFramesBeforeItTraces)
{
    KivRegion region;
    set(region, "region", 0, 2, {{0, 0, 0}});
    KivContourArray contours("contours");
    start();
    EXPECT_EQ(KivRegionToContourArray(region, &contours), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), Calls{});

    set(region, "region", -1, 2, {{0, 0, 0}});
    start();
    EXPECT_EQ(KivRegionToContourArray(region, &contours), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), Calls{});

    set(region, "region", 2, -1, {});
    start();
    EXPECT_THROW(KivRegionToContourArray(region, &contours), cv::Exception);
    EXPECT_EQ(calls(), Calls{});
    EXPECT_EQ(contours.test_written_by, "");

    set(region, "region", 2, 1, {});
    start();
    EXPECT_EQ(KivRegionToContourArray(region, &contours), KIVMV_OK);
    EXPECT_EQ(calls().back(), "MatToMask(1x2[0 0], contours)") << "a region without runs is traced like any other";
}

TEST_F(ContoursContract, FillingChecksTheContoursThenTheWidthThenTheHeight)
{
    KivContourArray none("contours");
    KivContourArray one("contours");
    one.test_length = 1;
    OldRegion region;
    KivImage image("image");
    image.test_matrix = padded_matrix(1, 1, {3});
    const auto region_of = [&](KivContourArray& contours, int width, int height) {
        return [&, width, height] { return KivContourArrayToRegion(contours, width, height, &region); };
    };
    const auto image_of = [&](KivContourArray& contours, int width, int height) {
        return [&, width, height] { return KivContourArrayToBinImage(&image, contours, width, height); };
    };
    expect_all({
        {"region of none", region_of(none, 1, 1), KIVMV_ERR_PARAM_1, {}},
        {"region of one column and row", region_of(one, 1, 1), KIVMV_ERR_PARAM_2, {}},
        {"region of one row", region_of(one, 2, 1), KIVMV_ERR_PARAM_3, {}},
        {"image of none", image_of(none, 1, 1), KIVMV_ERR_PARAM_1, {}},
        {"image of one column and row", image_of(one, 1, 1), KIVMV_ERR_PARAM_2, {}},
        {"image of one row", image_of(one, 2, 1), KIVMV_ERR_PARAM_3, {}},
    });
    EXPECT_TRUE(region.is_old());
    EXPECT_EQ(recording::text_of(image.test_matrix), "1x1[3]");
    EXPECT_EQ(KivContourArrayToRegion(one, 2, 2, &region), KIVMV_OK);
    EXPECT_EQ(KivContourArrayToBinImage(&image, one, 2, 2), KIVMV_OK);
}

TEST_F(ContoursContract, ContourArrayToRegionKeepsTheCallersFrameWhateverTheMask)
{
    KivContourArray contours("contours");
    contours.test_length = 1;
    KivRegion region;
    start();
    recording::recorder().rendered = cv::Mat(1, 1, CV_8UC1, cv::Scalar(0));
    EXPECT_EQ(KivContourArrayToRegion(contours, 9, 7, &region), KIVMV_OK);
    EXPECT_EQ(recording::described(region), "9 x 7");
}

TEST_F(ContoursContract, ContourArrayToBinImageTakesTheRenderedMatrixOver)
{
    KivContourArray contours("contours");
    contours.test_length = 1;
    KivImage image("image");
    image.test_set(cv::Mat(5, 5, CV_16UC3, cv::Scalar::all(4)));
    const cv::Mat old_pixels = image.test_matrix;
    const std::string old_text = recording::text_of(old_pixels);
    const cv::Mat rendered = padded_matrix(1, 2, {0, 9});
    start();
    recording::recorder().rendered = rendered;
    EXPECT_EQ(KivContourArrayToBinImage(&image, contours, 3, 2), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"ToMAT(contours, 3, 2)"}));
    EXPECT_EQ(image.test_matrix.data, rendered.data) << "no pixel is copied";
    EXPECT_EQ(recording::text_of(old_pixels), old_text);
}

TEST_F(ContoursContract, ContourArrayToRegionExtractsFromTheRenderedMask)
{
    KivContourArray contours("contours");
    contours.test_length = 1;
    KivRegion region;
    region.test_name = "region";
    start();
    EXPECT_EQ(KivContourArrayToRegion(contours, 3, 2, &region), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"ToMAT(contours, 3, 2)", find_contours("2x3[255 255 255 | 255 255 255]"),
                              "region.CreateRegion(3, 2, {(0,0,2) (1,0,2)})"}));
}

TEST_F(ContoursContract, RenderingErrorsBecomeACodeAndOthersDoNot)
{
    KivContourArray contours("contours");
    contours.test_length = 1;
    KivRegion region;
    region.test_name = "region";
    KivImage image("image");
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
    EXPECT_EQ(calls(),
              (Calls{find_contours("2x3[255 255 255 | 255 255 255]"), "region.CreateRegion(3, 2, {(0,0,2) (1,0,2)})"}));
}

TEST_F(ContoursContract, MergContourDrawsIntoACopy)
{
    KivImage image("image");
    image.test_set(padded_matrix(2, 3, {0, 7, 0, 0, 0, 9}));
    KivContour contour;
    contour.test_name = "contour";
    contour.test_points = {{0.5, 0.5}}; // a tie: drawn at (0, 0)
    KivContourArray contours("contours");
    const Unchanged inputs(image);
    start();
    EXPECT_EQ(KivMergContour(image, contour, true, &contours), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"MatToMask(2x3[255 7 0 | 0 0 9], contours)"}));

    contour.test_points = {{2.4, 0.6}};
    start();
    EXPECT_EQ(KivMergContour(image, contour, false, &contours), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"MatToMask(2x3[0 7 0 | 0 0 0], contours)"}));
}

TEST_F(ContoursContract, MergContourChecksChannelsThenWidthThenPoints)
{
    KivImage image("image");
    image.test_channels = 0;
    KivContour contour;
    contour.test_name = "contour";
    KivContourArray contours("contours");
    const auto merged = [&] { return KivMergContour(image, contour, true, &contours); };
    expect_all({{"no channels", merged, KIVMV_ERR_CHANNELS, {}}});
    image.test_channels = 1;
    expect_all({{"no columns", merged, KIVMV_ERR_NO_IMAGE, {}}});
    image.test_width = 1;
    expect_all({{"no points", merged, KIVMV_ERR_PARAM_1, {}}});
    EXPECT_EQ(contours.test_written_by, "");
}

TEST_F(ContoursContract, BinImageToContourArrayTracesTheImagesOwnMatrix)
{
    KivImage image("image");
    image.test_set(padded_matrix(1, 2, {0, 7}));
    KivContourArray contours("contours");
    start();
    EXPECT_EQ(KivBinImageToContourArray(image, &contours), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"MatToMask(1x2[0 7], contours)"}));

    image.test_channels = 0;
    image.test_width = 0;
    EXPECT_EQ(KivBinImageToContourArray(image, &contours), KIVMV_OK) << "neither no channels nor no width is rejected";
}

TEST_F(ContoursContract, BinImageToContourArrayChecksHeightThenChannelsThenDepth)
{
    KivImage image("image");
    image.test_channels = 2;
    image.test_bit_depth = 2;
    KivContourArray contours("contours");
    const auto traced = [&] { return KivBinImageToContourArray(image, &contours); };
    expect_all({{"no rows", traced, KIVMV_ERR_NO_IMAGE, {}}});
    image.test_height = 1;
    expect_all({{"two channels", traced, KIVMV_ERR_CHANNELS, {}}});
    image.test_channels = 1;
    expect_all({{"16 bits", traced, KIVMV_ERR_BIT_DEPTH, {}}});
    EXPECT_EQ(contours.test_written_by, "");
}

TEST_F(ContoursContract, ContourToRegionWithoutPointsMakesNoCall)
{
    KivContour contour;
    OldRegion region;
    expect_all({{"no points", [&] { return KivContourToRegion(contour, &region); }, KIVMV_ERR_PARAM_1, {}}});
    EXPECT_TRUE(region.is_old());
}

TEST_F(ContoursContract, ContourToVarArrayClearsFirstAndAppendsThePoints)
{
    KivContour contour;
    contour.test_points = {{2.5, -1.5}, {3.5, 0.49}};
    KivVarArray xs;
    KivVarArray ys;
    xs.test_name = "xs";
    ys.test_name = "ys";
    const Unchanged input(contour);
    const auto listed = [&] { return KivContourToVarArray(contour, &xs, &ys); };
    expect_all({{"two points",
                 listed,
                 KIVMV_OK,
                 {"xs.Clear()", "ys.Clear()", "xs.Append(2)", "xs.Append(4)", "ys.Append(-2)", "ys.Append(0)"}}});
    KivContour none;
    expect_all({{"no points",
                 [&] { return KivContourToVarArray(none, &xs, &ys); },
                 KIVMV_ERR_PARAM_1,
                 {"xs.Clear()", "ys.Clear()"}}});
}

TEST_F(ContoursContract, ContourToPointArrayClearsFirstAndKeepsTheDoubles)
{
    KivContour contour;
    contour.test_points = {{2.5, -1.5}, {0.125, 8.0}};
    KivPointArray points("points");
    const Unchanged input(contour);
    expect_all({{"two points",
                 [&] { return KivContourToPointArray(contour, &points); },
                 KIVMV_OK,
                 {"points.Clear()", "points.Append(2.5, -1.5)", "points.Append(0.125, 8)"}}});
    KivContour none;
    expect_all(
        {{"no points", [&] { return KivContourToPointArray(none, &points); }, KIVMV_ERR_PARAM_1, {"points.Clear()"}}});
    EXPECT_EQ(points.Length(), 0);
}

TEST_F(ContoursContract, VarArrayToContourReservesRoomForAllPoints)
{
    KivVarArray xs;
    KivVarArray ys;
    set(xs, {1, 2, -3});
    set(ys, {4, 5, 6});
    KivContour contour;
    contour.test_name = "contour";
    const Unchanged inputs(xs, ys);
    expect_all({{"three points",
                 [&] { return KivVarArrayToContour(xs, ys, &contour); },
                 KIVMV_OK,
                 {"KivContour()", "contour = KivContour()"}}});
    EXPECT_EQ(contour.test_points, (std::vector<cv::Point_<double>>{{1.0, 4.0}, {2.0, 5.0}, {-3.0, 6.0}}));
    EXPECT_EQ(contour.test_points.capacity(), 3U);
}

TEST_F(ContoursContract, VarArrayToContourResetsTheContourOnEveryPath)
{
    KivVarArray none;
    KivVarArray one;
    KivVarArray strange;
    set(one, {1});
    strange.test_append(1, 2);
    KivContour contour;
    contour.test_name = "contour";
    const Calls reset{"KivContour()", "contour = KivContour()"};
    const auto contour_of = [&](KivVarArray& xs, KivVarArray& ys) {
        return [&] {
            contour.test_points = {{9.0, 9.0}};
            const int code = KivVarArrayToContour(xs, ys, &contour);
            EXPECT_TRUE(contour.test_points.empty());
            return code;
        };
    };
    expect_all({
        {"fewer rows", contour_of(strange, none), KIVMV_ERR_LENGTH, reset},
        {"no points", contour_of(none, none), KIVMV_ERR_PARAM_1, reset},
        {"a strange column", contour_of(strange, one), KIVMV_ERR_PARAM_1, reset},
        {"a strange row", contour_of(one, strange), KIVMV_ERR_PARAM_2, reset},
        {"both strange at once", contour_of(strange, strange), KIVMV_ERR_PARAM_1, reset},
    });
}

TEST_F(ContoursContract, VarArrayToContourKeepsThePointsBeforeAnElementThatIsNoNumber)
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
    KivPointArray points("points");
    KivContour contour;
    contour.test_points = {{9.0, 9.0}};
    const std::size_t capacity = contour.test_points.capacity();
    start();
    EXPECT_EQ(KivPointArrayToContour(points, &contour), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), Calls{});
    EXPECT_TRUE(contour.test_points.empty());
    EXPECT_EQ(contour.test_points.capacity(), capacity);
}

TEST_F(ContoursContract, PointArrayToContourKeepsTheDoubles)
{
    KivPointArray points("points");
    points.test_append(2.5, -1.5);
    points.test_append(0.125, 8.0);
    KivContour contour;
    contour.test_points = {{9.0, 9.0}};
    const Unchanged input(points);
    expect_all({{"two points", [&] { return KivPointArrayToContour(points, &contour); }, KIVMV_OK, {}}});
    EXPECT_EQ(contour.test_points, (std::vector<cv::Point_<double>>{{2.5, -1.5}, {0.125, 8.0}}));
}
