// SPDX-License-Identifier: MIT
#include "kivconvert/conversions.h"
#include "kivconvert/operands.h"
#include "kivconvert/run_files.h"
#include "tools/scratch_folder.h"

namespace
{

using OperandsOfCommands = tools_tests::ScratchFolder;
using kivconvert::Content;
using kivconvert::read_operands;
using tools_tests::complaint_of;

const std::string rectangle = "roi:rectangle:-5,1,50,2";
const KivRegion runs(7, 5, {{4, 0, 6}});

KivRegion region_of(Content content)
{
    return kivconvert::region_of(content, "operand");
}

TEST_F(OperandsOfCommands, AreFilesOrShapes)
{
    kivconvert::write_runs(path("a.csv"), runs);
    EXPECT_EQ(region_of(kivconvert::read_operand(path("a.csv"), {})), runs);
    EXPECT_EQ(region_of(kivconvert::read_operand(rectangle, {3, 9})), KivRegion(3, 9, {{1, 0, 2}, {2, 0, 2}}));
}

TEST_F(OperandsOfCommands, GiveShapesAndContoursTheFirstFrameThatThereIs)
{
    kivconvert::write_runs(path("a.csv"), runs);
    put("a.geojson", R"({"type":"Polygon","coordinates":[[[-5,1],[50,1],[50,2],[-5,2],[-5,1]]]})");
    const KivRegion shape(7, 5, {{1, 0, 6}, {2, 0, 6}});
    for (const std::string& placeable : {rectangle, path("a.geojson")}) {
        const std::vector<Content> first = read_operands({placeable, path("a.csv"), placeable}, {});
        EXPECT_EQ(region_of(first[0]), shape);
        EXPECT_EQ(region_of(first[1]), runs);
        EXPECT_EQ(region_of(first[2]), shape);
        const std::vector<Content> second = read_operands({path("a.csv"), placeable}, {});
        EXPECT_EQ(region_of(second[0]), runs);
        EXPECT_EQ(region_of(second[1]), shape);
    }
}

TEST_F(OperandsOfCommands, TakeAGivenFrameFirst)
{
    kivconvert::write_runs(path("a.csv"), runs);
    EXPECT_EQ(region_of(read_operands({path("a.csv"), rectangle}, {2, 2})[1]), KivRegion(2, 2, {{1, 0, 1}}));
    EXPECT_EQ(region_of(read_operands({rectangle, path("a.csv")}, {2, 2})[0]), KivRegion(2, 2, {{1, 0, 1}}));
}

TEST_F(OperandsOfCommands, RefuseAFrameThatNoneNeeds)
{
    kivconvert::write_runs(path("a.csv"), runs);
    const std::string complaint =
        "--width: is for shapes, contours and runs without a frame; everything else has its own";
    EXPECT_EQ(complaint_of([&] { kivconvert::read_operand(path("a.csv"), {2, 2}); }), complaint);
    EXPECT_EQ(complaint_of([&] { read_operands({path("a.csv"), path("a.csv")}, {2, 2}); }), complaint);
}

TEST_F(OperandsOfCommands, NeedAPossibleFrame)
{
    for (const kivconvert::Frame& frame : {kivconvert::Frame{}, {5, 0}, {0, 5}}) {
        EXPECT_EQ(complaint_of([&] { kivconvert::read_operand(rectangle, frame); }),
                  rectangle + ": is in no frame; give --width and --height");
    }
    EXPECT_NE(complaint_of([&] {
                  kivconvert::read_operand(rectangle, {1 << 21, 1});
              }).find("is too large"),
              std::string::npos);
}

TEST_F(OperandsOfCommands, MayBeRunsWithoutAFrame)
{
    kivconvert::write_runs(path("a.csv"), runs);
    put("b.csv", "row,colBegin,colEnd\n1,2,9\n");
    EXPECT_EQ(complaint_of([&] { kivconvert::read_operand(path("b.csv"), {}); }),
              path("b.csv") + ": is in no frame; give --width and --height");
    EXPECT_EQ(region_of(kivconvert::read_operand(path("b.csv"), {3, 9})), KivRegion(3, 9, {{1, 2, 9}}));
    EXPECT_EQ(region_of(read_operands({path("a.csv"), path("b.csv")}, {})[1]), KivRegion(7, 5, {{1, 2, 9}}));
}

TEST_F(OperandsOfCommands, MayBeShapesWithoutPixels)
{
    EXPECT_EQ(region_of(kivconvert::read_operand("roi:circle:-50,0,3", {7, 5})), KivRegion(7, 5, {}));
    EXPECT_EQ(region_of(KivROI()), KivRegion());
}

} // namespace
