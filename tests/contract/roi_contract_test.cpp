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

/// The calls that are not ROIType(), whose number is not promised.
Calls calls_but_type_queries()
{
    Calls rest;
    for (const std::string& call : calls()) {
        if (call.find(".ROIType()") == std::string::npos) {
            rest.push_back(call);
        }
    }
    return rest;
}

Calls reading_then(const std::string& last)
{
    return {"KivROI(a)", "copy.GetMask(runs)", "copy = b", "copy.GetMask(runs)", last};
}

} // namespace

TEST_F(RoiContract, SetOperationsReadBothOperandsThroughOneCopyAndWriteOnce)
{
    Operands given;
    start();
    EXPECT_EQ(KivROIAdd(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls_but_type_queries(), reading_then("out.GenMask({(1,0,9) (2,0,9)}, 12, 5)"));

    start();
    EXPECT_EQ(KivROIAnd(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls_but_type_queries(), reading_then("out.GenMask({(1,1,1) (2,4,5)}, 10, 5)"));

    start();
    EXPECT_EQ(KivROISub(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls_but_type_queries(), reading_then("out.GenMask({(1,0,0) (1,2,9) (2,0,3) (2,6,9)}, 10, 5)"));
}

TEST_F(RoiContract, RefusedTypesEndTheCallBeforeAnyOtherWork)
{
    Operands given;
    given.a.test_type = open_curve_type;
    given.b.test_type = open_curve_type;
    for (const auto function : {KivROIAdd, KivROIAnd, KivROISub}) {
        start();
        EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_ERR_PARAM_1);
        EXPECT_EQ(calls_but_type_queries(), Calls{});
    }
    for (const int type_of_a : {mask_type, empty_type}) {
        given.a.test_type = type_of_a;
        for (const auto function : {KivROIAdd, KivROIAnd, KivROISub}) {
            start();
            EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_ERR_PARAM_2);
            EXPECT_EQ(calls_but_type_queries(), Calls{});
        }
    }
    given.b.test_type = empty_type;
    for (const auto function : {KivROIAdd, KivROIAnd, KivROISub}) {
        start();
        EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_ERR_PARAM_1);
        EXPECT_EQ(calls_but_type_queries(), Calls{});
    }
}

TEST_F(RoiContract, AnOperandOfTheEmptyTypeIsAnsweredByOneAssignment)
{
    Operands given;
    given.a.test_type = empty_type;
    start();
    EXPECT_EQ(KivROIAdd(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls_but_type_queries(), (Calls{"out = b"}));
    start();
    EXPECT_EQ(KivROIAnd(given.a, given.b, &given.out), KIVMV_ERR_PARAM_2);
    EXPECT_EQ(calls_but_type_queries(), (Calls{"KivROI()", "out = KivROI()"}));
    start();
    EXPECT_EQ(KivROISub(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls_but_type_queries(), (Calls{"KivROI()", "out = KivROI()"}));

    given.a.test_type = mask_type;
    given.b.test_type = empty_type;
    start();
    EXPECT_EQ(KivROIAdd(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls_but_type_queries(), (Calls{"out = a"}));
    start();
    EXPECT_EQ(KivROIAnd(given.a, given.b, &given.out), KIVMV_ERR_PARAM_2);
    EXPECT_EQ(calls_but_type_queries(), (Calls{"KivROI()", "out = KivROI()"}));
    start();
    EXPECT_EQ(KivROISub(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls_but_type_queries(), (Calls{"out = a"}));
}

TEST_F(RoiContract, AMaskOfAWithoutRunsIsAnsweredBeforeBIsRead)
{
    Operands given;
    given.a.test_parameters.test_runs.clear();
    const auto calls_of = [&given](auto function) {
        start();
        EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_OK);
        return calls_but_type_queries();
    };
    EXPECT_EQ(calls_of(KivROIAdd), (Calls{"KivROI(a)", "copy.GetMask(runs)", "out = b"}));
    EXPECT_EQ(calls_of(KivROIAnd), (Calls{"KivROI(a)", "copy.GetMask(runs)", "KivROI()", "out = KivROI()"}));
    EXPECT_EQ(calls_of(KivROISub), (Calls{"KivROI(a)", "copy.GetMask(runs)", "KivROI()", "out = KivROI()"}));
}

TEST_F(RoiContract, AMaskOfBWithoutRunsIsAnsweredByOneAssignment)
{
    Operands given;
    given.b.test_parameters.test_runs.clear();
    const auto last_calls_of = [&given](auto function) {
        start();
        EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_OK);
        const Calls all = calls_but_type_queries();
        return Calls(all.begin() + 4, all.end());
    };
    EXPECT_EQ(last_calls_of(KivROIAdd), (Calls{"out = a"}));
    EXPECT_EQ(last_calls_of(KivROIAnd), (Calls{"KivROI()", "out = KivROI()"}));
    EXPECT_EQ(last_calls_of(KivROISub), (Calls{"out = a"}));
}

TEST_F(RoiContract, ComplementReadsACopyAndWritesOnce)
{
    Operands given;
    start();
    EXPECT_EQ(KivROINot(given.a, &given.out), KIVMV_OK);
    EXPECT_EQ(calls_but_type_queries(),
              (Calls{"KivROI(a)", "copy.GetMask(runs)", "out.GenMask({(0,0,9) (3,0,9) (4,0,9)}, 10, 5)"}));
    for (const int type : {empty_type, open_curve_type}) {
        given.a.test_type = type;
        start();
        EXPECT_EQ(KivROINot(given.a, &given.out), KIVMV_ERR_PARAM_1);
        EXPECT_EQ(calls_but_type_queries(), Calls{});
    }
}

TEST_F(RoiContract, RoiToRegionHandsOverTheRunsOfGetMaskNotTheTracedOnes)
{
    Operands given;
    given.a.test_become("a", mask_type, 2, 1, {{4, 3, 2}, {0, 0, 0}});
    KivRegion region;
    region.test_name = "region";
    start();

    EXPECT_EQ(KivROIToRegion(given.a, &region), KIVMV_OK);

    EXPECT_EQ(calls_but_type_queries(),
              (Calls{"a.GetMask(runs)", "a.ToMAT({(4,3,2) (0,0,0)}, 2, 1)", "KivRLC()", find_contours("1x2[255 255]"),
                     "~KivRLC()", "region.CreateRegion(2, 1, {(4,3,2) (0,0,0)})"}));
}

TEST_F(RoiContract, AMaskWithoutColumnsHasNoRegionButAnImage)
{
    Operands given;
    given.a.test_become("a", mask_type, 0, 3, {{0, 0, 0}});
    KivRegion region;
    set(region, "region", 5, 6, {{1, 2, 3}});
    start();
    EXPECT_EQ(KivROIToRegion(given.a, &region), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls_but_type_queries(), (Calls{"a.GetMask(runs)", "a.ToMAT({(0,0,0)}, 0, 3)"}));

    KivImage image;
    image.test_matrix = cv::Mat(2, 2, CV_8UC1);
    start();
    EXPECT_EQ(KivROIToBinImage(&image, given.a), KIVMV_OK);
    EXPECT_EQ(calls_but_type_queries(), (Calls{"a.GetMask(runs)", "a.ToMAT({(0,0,0)}, 0, 3)"}));
    EXPECT_TRUE(image.test_matrix.empty());
}

TEST_F(RoiContract, RegionToRoiReadsTheRunsOnlyOfARegionThatIsNotEmpty)
{
    Operands given;
    KivRegion region;
    set(region, "region", 3, 0, {{1, 2, 3}});
    start();
    EXPECT_EQ(KivRegionToROI(region, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(),
              (Calls{"region.Width()", "region.Height()", "region.GetRegionRuns()", "out.GenMask({(1,2,3)}, 3, 0)"}));

    region.test_width = 0;
    start();
    EXPECT_EQ(KivRegionToROI(region, &given.out), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), (Calls{"region.Width()", "region.Height()"}));
}

TEST_F(RoiContract, BinImageToRoiGoesThroughTheOutputsOwnParameters)
{
    Operands given;
    KivImage image;
    image.test_name = "image";
    image.test_set(padded_matrix(1, 3, {0, 5, 6}));
    start();
    EXPECT_EQ(KivBinImageToROI(image, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"image.Height()", "image.Channels()", "image.BitDepth()",
                              "out.MatToMask(1x3[0 5 6], runs)", "out.GenMask({(0,1,2)}, 3, 1)"}));
}

TEST_F(RoiContract, RoiToContourArrayIsTheRoisOwnWork)
{
    Operands given;
    KivContourArray contours;
    start();
    EXPECT_EQ(KivROIToContourArray(given.a, &contours), KIVMV_OK);
    EXPECT_EQ(calls_but_type_queries(), (Calls{"a.GetMask(contours)"}));
    EXPECT_EQ(contours.test_written_by, "GetMask of a");
}
