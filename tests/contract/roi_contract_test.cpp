// SPDX-License-Identifier: MIT
#include "contract_test.h"

using namespace contract;
using namespace KIVMV;

namespace
{

using RoiContract = ContractTest;

constexpr int mask_type = 8;
constexpr int empty_type = 3;
constexpr int open_curve_type = 10;

struct Operands {
    Operands()
    {
        a.test_become("a", mask_type, 10, 5, {{2, 0, 9}, {1, 0, 9}});
        b.test_become("b", mask_type, 12, 4, {{2, 4, 5}, {1, 1, 1}});
        out.test_become("out", 77, 1, 1, {});
    }

    KivROI a;
    KivROI b;
    KivROI out;
};

} // namespace

TEST_F(RoiContract, SetOperationsLeaveTheOperandsAloneAndWriteOnce)
{
    Operands given;
    const Unchanged inputs(given.a, given.b);
    start();
    EXPECT_EQ(KivROIAdd(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out.GenMask({(1,0,9) (2,0,9)}, 12, 5)"}));

    start();
    EXPECT_EQ(KivROIAnd(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out.GenMask({(1,1,1) (2,4,5)}, 10, 5)"}));

    start();
    EXPECT_EQ(KivROISub(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out.GenMask({(1,0,0) (1,2,9) (2,0,3) (2,6,9)}, 10, 5)"}));
}

TEST_F(RoiContract, RefusedTypesEndTheCallBeforeAnyOtherWork)
{
    Operands given;
    given.a.test_type = open_curve_type;
    given.b.test_type = open_curve_type;
    for (const auto function : {KivROIAdd, KivROIAnd, KivROISub}) {
        start();
        EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_ERR_PARAM_1);
        EXPECT_EQ(calls(), Calls{});
    }
    for (const int type_of_a : {mask_type, empty_type}) {
        given.a.test_type = type_of_a;
        for (const auto function : {KivROIAdd, KivROIAnd, KivROISub}) {
            start();
            EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_ERR_PARAM_2);
            EXPECT_EQ(calls(), Calls{});
        }
    }
    given.b.test_type = empty_type;
    for (const auto function : {KivROIAdd, KivROIAnd, KivROISub}) {
        start();
        EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_ERR_PARAM_1);
        EXPECT_EQ(calls(), Calls{});
    }
}

TEST_F(RoiContract, AnOperandOfTheEmptyTypeIsAnsweredByOneAssignment)
{
    Operands given;
    given.a.test_type = empty_type;
    start();
    EXPECT_EQ(KivROIAdd(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out = b"}));
    start();
    EXPECT_EQ(KivROIAnd(given.a, given.b, &given.out), KIVMV_ERR_PARAM_2);
    EXPECT_EQ(calls(), (Calls{"KivROI()", "out = KivROI()"}));
    start();
    EXPECT_EQ(KivROISub(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"KivROI()", "out = KivROI()"}));

    given.a.test_type = mask_type;
    given.b.test_type = empty_type;
    start();
    EXPECT_EQ(KivROIAdd(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out = a"}));
    start();
    EXPECT_EQ(KivROIAnd(given.a, given.b, &given.out), KIVMV_ERR_PARAM_2);
    EXPECT_EQ(calls(), (Calls{"KivROI()", "out = KivROI()"}));
    start();
    EXPECT_EQ(KivROISub(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out = a"}));
}

TEST_F(RoiContract, AMaskOfAWithoutRunsIsAnsweredByOneAssignment)
{
    Operands given;
    given.a.test_parameters.test_runs.clear();
    const auto calls_of = [&given](auto function) {
        start();
        EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_OK);
        return calls();
    };
    EXPECT_EQ(calls_of(KivROIAdd), (Calls{"out = b"}));
    EXPECT_EQ(calls_of(KivROIAnd), (Calls{"KivROI()", "out = KivROI()"}));
    EXPECT_EQ(calls_of(KivROISub), (Calls{"KivROI()", "out = KivROI()"}));
}

TEST_F(RoiContract, AMaskOfBWithoutRunsIsAnsweredByOneAssignment)
{
    Operands given;
    given.b.test_parameters.test_runs.clear();
    const auto calls_of = [&given](auto function) {
        start();
        EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_OK);
        return calls();
    };
    EXPECT_EQ(calls_of(KivROIAdd), (Calls{"out = a"}));
    EXPECT_EQ(calls_of(KivROIAnd), (Calls{"KivROI()", "out = KivROI()"}));
    EXPECT_EQ(calls_of(KivROISub), (Calls{"out = a"}));
}

TEST_F(RoiContract, ComplementWritesOnce)
{
    Operands given;
    start();
    EXPECT_EQ(KivROINot(given.a, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out.GenMask({(0,0,9) (3,0,9) (4,0,9)}, 10, 5)"}));
    for (const int type : {empty_type, open_curve_type}) {
        given.a.test_type = type;
        start();
        EXPECT_EQ(KivROINot(given.a, &given.out), KIVMV_ERR_PARAM_1);
        EXPECT_EQ(calls(), Calls{});
    }
}

TEST_F(RoiContract, RoiToRegionHandsOverTheRunsOfGetMaskNotTheTracedOnes)
{
    Operands given;
    given.a.test_become("a", mask_type, 2, 1, {{4, 3, 2}, {0, 0, 0}});
    KivRegion region;
    region.test_name = "region";
    const Unchanged input(given.a);
    start();

    EXPECT_EQ(KivROIToRegion(given.a, &region), KIVMV_OK);

    EXPECT_EQ(calls(), (Calls{"a.ToMAT({(4,3,2) (0,0,0)}, 2, 1)", find_contours("1x2[255 255]"),
                              "region.CreateRegion(2, 1, {(4,3,2) (0,0,0)})"}));
}

TEST_F(RoiContract, AMaskWithoutColumnsHasNoRegionButAnImage)
{
    Operands given;
    given.a.test_become("a", mask_type, 0, 3, {{0, 0, 0}});
    KivRegion region;
    set(region, "region", 5, 6, {{1, 2, 3}});
    start();
    EXPECT_EQ(KivROIToRegion(given.a, &region), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), (Calls{"a.ToMAT({(0,0,0)}, 0, 3)"}));

    KivImage image("image");
    image.test_matrix = cv::Mat(2, 2, CV_8UC1);
    start();
    EXPECT_EQ(KivROIToBinImage(&image, given.a), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"a.ToMAT({(0,0,0)}, 0, 3)"}));
    EXPECT_TRUE(image.test_matrix.empty());
}

TEST_F(RoiContract, RegionToRoiReadsTheRunsOnlyOfARegionThatIsNotEmpty)
{
    Operands given;
    KivRegion region;
    set(region, "region", 3, 0, {{1, 2, 3}});
    start();
    EXPECT_EQ(KivRegionToROI(region, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out.GenMask({(1,2,3)}, 3, 0)"}));

    region.test_width = 0;
    start();
    EXPECT_EQ(KivRegionToROI(region, &given.out), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), (Calls{}));
}

TEST_F(RoiContract, BinImageToRoiGoesThroughTheOutputsOwnParameters)
{
    Operands given;
    KivImage image("image");
    image.test_set(padded_matrix(1, 3, {0, 5, 6}));
    image.test_width = 0;
    image.test_channels = 0;
    const Unchanged input(image);
    start();
    EXPECT_EQ(KivBinImageToROI(image, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out.MatToMask(1x3[0 5 6], runs)", "out.GenMask({(0,1,2)}, 1003, 1001)"}))
        << "the frame is the one that MatToMask() tells";
}

TEST_F(RoiContract, RoiToContourArrayIsTheRoisOwnWork)
{
    Operands given;
    KivContourArray contours("contours");
    start();
    EXPECT_EQ(KivROIToContourArray(given.a, &contours), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"a.GetMask(contours)"}));
    EXPECT_EQ(contours.test_written_by, "GetMask of a");
}

TEST_F(RoiContract, TheOutputMayBeAnOperand)
{
    for (const auto function : {KivROIAdd, KivROIAnd, KivROISub}) {
        Operands apart;
        EXPECT_EQ(function(apart.a, apart.b, &apart.out), KIVMV_OK);
        const std::string expected = recording::described(apart.out.test_parameters);
        Operands into_a;
        EXPECT_EQ(function(into_a.a, into_a.b, &into_a.a), KIVMV_OK);
        EXPECT_EQ(recording::described(into_a.a.test_parameters), expected);
        Operands into_b;
        EXPECT_EQ(function(into_b.a, into_b.b, &into_b.b), KIVMV_OK);
        EXPECT_EQ(recording::described(into_b.b.test_parameters), expected);
    }
    Operands apart;
    EXPECT_EQ(KivROINot(apart.a, &apart.out), KIVMV_OK);
    Operands into_a;
    EXPECT_EQ(KivROINot(into_a.a, &into_a.a), KIVMV_OK);
    EXPECT_EQ(recording::described(into_a.a.test_parameters), recording::described(apart.out.test_parameters));
}

TEST_F(RoiContract, AMaskIsWrittenIntoAnOutputOfWhateverType)
{
    Operands given;
    KivRegion region;
    set(region, "region", 2, 1, {});
    KivImage image("image");
    image.test_set(padded_matrix(1, 1, {0}));
    for (const int type : {mask_type, empty_type, open_curve_type}) {
        given.out.test_type = type;
        start();
        EXPECT_EQ(KivRegionToROI(region, &given.out), KIVMV_OK);
        EXPECT_EQ(KivBinImageToROI(image, &given.out), KIVMV_OK);
        EXPECT_EQ(KivROINot(given.a, &given.out), KIVMV_OK);
        EXPECT_EQ(KivROIAdd(given.a, given.b, &given.out), KIVMV_OK);
        EXPECT_EQ(KivROIAnd(given.a, given.b, &given.out), KIVMV_OK);
        EXPECT_EQ(KivROISub(given.a, given.b, &given.out), KIVMV_OK);
        for (const std::string& call : recording::recorder().calls) {
            EXPECT_NE(call, "out.ROIType()");
        }
        EXPECT_EQ(given.out.test_type, type) << "GenMask() alone decides about the type";
    }
}

TEST_F(RoiContract, OtherTypesThanTheTwoAreAllAlike)
{
    Operands given;
    for (const int type : {-3, 0, 2, 4, 9, 11, 13}) {
        given.a.test_type = type;
        given.b.test_type = type;
        for (const auto function : {KivROIAdd, KivROIAnd, KivROISub}) {
            EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_OK) << type;
        }
        EXPECT_EQ(KivROINot(given.a, &given.out), KIVMV_OK) << type;
    }
}

TEST_F(RoiContract, ConversionsOfRefusedTypesAskForTheTypeOnly)
{
    Operands given;
    OldRegion region;
    KivImage image("image");
    image.test_matrix = padded_matrix(1, 1, {3});
    KivContourArray contours("contours");
    for (const int type : {empty_type, open_curve_type}) {
        given.a.test_type = type;
        start();
        EXPECT_EQ(KivROIToRegion(given.a, &region), KIVMV_ERR_PARAM_1);
        EXPECT_EQ(KivROIToBinImage(&image, given.a), KIVMV_ERR_PARAM_1);
        EXPECT_EQ(KivROIToContourArray(given.a, &contours), KIVMV_ERR_PARAM_1);
        EXPECT_EQ(calls(), Calls{});
    }
    EXPECT_TRUE(region.is_old());
    EXPECT_EQ(recording::text_of(image.test_matrix), "1x1[3]");
    EXPECT_EQ(contours.test_written_by, "");
}

TEST_F(RoiContract, ThePaintedMaskDecidesWhetherThereIsARegion)
{
    Operands given;
    OldRegion region;
    given.a.test_become("a", mask_type, 7, 5, {{0, 1, 2}});
    start();
    recording::recorder().rendered = cv::Mat(3, 0, CV_8UC1);
    EXPECT_EQ(KivROIToRegion(given.a, &region), KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(region.is_old());

    given.a.test_become("a", mask_type, 0, 5, {{0, 1, 2}});
    recording::recorder().rendered = cv::Mat(1, 1, CV_8UC1, cv::Scalar(0));
    EXPECT_EQ(KivROIToRegion(given.a, &region), KIVMV_OK);
    EXPECT_EQ(recording::described(region), "0 x 5 (0,1,2)");
}

TEST_F(RoiContract, RoiToBinImageTakesThePaintedMatrixOver)
{
    Operands given;
    KivImage image("image");
    image.test_set(cv::Mat(2, 2, CV_16UC3, cv::Scalar::all(4)));
    const cv::Mat old_pixels = image.test_matrix;
    const std::string old_text = recording::text_of(old_pixels);
    const cv::Mat painted(1, 2, CV_32FC1, cv::Scalar(0.5));
    const Unchanged input(given.a);
    start();
    recording::recorder().rendered = painted;
    EXPECT_EQ(KivROIToBinImage(&image, given.a), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"a.ToMAT({(2,0,9) (1,0,9)}, 10, 5)"}));
    EXPECT_EQ(image.test_matrix.data, painted.data) << "no pixel is copied";
    EXPECT_EQ(image.test_matrix.type(), CV_32FC1);
    EXPECT_EQ(recording::text_of(old_pixels), old_text);
}

TEST_F(RoiContract, BinImageToRoiChecksHeightThenChannelsThenDepth)
{
    Operands given;
    KivImage image("image");
    image.test_channels = 2;
    image.test_bit_depth = 2;
    const auto roi = [&] { return KivBinImageToROI(image, &given.out); };
    expect_all({{"no rows", roi, KIVMV_ERR_NO_IMAGE, {}}});
    image.test_height = 1;
    expect_all({{"two channels", roi, KIVMV_ERR_CHANNELS, {}}});
    image.test_channels = 1;
    expect_all({{"16 bits", roi, KIVMV_ERR_BIT_DEPTH, {}}});
    EXPECT_EQ(recording::described(given.out), "type 77, 1 x 1");
}

TEST_F(RoiContract, FramesOfResultsAreTheLargerOneOrThatOfA)
{
    Operands given;
    given.a.test_become("a", mask_type, 640, 480, {{0, 0, 1}});
    given.b.test_become("b", mask_type, 800, 200, {{0, 0, 1}});
    const auto frame_of = [&](auto function) {
        EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_OK);
        return std::pair(given.out.test_parameters.test_width, given.out.test_parameters.test_height);
    };
    EXPECT_EQ(frame_of(KivROIAdd), std::pair(800, 480));
    EXPECT_EQ(frame_of(KivROIAnd), std::pair(640, 480));
    EXPECT_EQ(frame_of(KivROISub), std::pair(640, 480));
}
