// SPDX-License-Identifier: MIT
#include "kivconvert/point_files.h"
#include "tools/scratch_folder.h"

#include <climits>
#include <string>
#include <utility>

namespace
{

using PointFiles = tools_tests::ScratchFolder;
using tools_tests::complaint_of;

TEST_F(PointFiles, HaveALineForEachPixelInTheOrderOfTheRuns)
{
    KivRegion region(7, 5, {{4, -1, 1}, {0, 6, 6}, {2, 3, 2}});
    kivconvert::write_points(path("a.csv"), region, "a");
    EXPECT_EQ(get("a.csv"), "x,y\n-1,4\n0,4\n1,4\n6,0\n");
}

TEST_F(PointFiles, OfNothingHaveTheNamesOfTheColumnsAlone)
{
    KivRegion region(7, 5, {});
    kivconvert::write_points(path("a.csv"), region, "a");
    EXPECT_EQ(get("a.csv"), "x,y\n");
}

TEST_F(PointFiles, NeedTheirExtension)
{
    KivRegion region(7, 5, {});
    EXPECT_EQ(complaint_of([&] { kivconvert::write_points(path("a.json"), region, "a"); }),
              path("a.json") + ": is not named like a list of points; those end in .csv");
}

TEST_F(PointFiles, AreNotMadeOfMoreThanCanBeListed)
{
    KivRegion region(7, 5, {{0, INT_MIN, INT_MAX}, {1, INT_MIN, INT_MAX}});
    EXPECT_EQ(complaint_of([&] { kivconvert::write_points(path("a.csv"), region, "b.csv"); }),
              "b.csv: up to 8589934592 points would take 524288 MiB; --max-memory allows 1024");
    EXPECT_EQ(files(), 0);
}

TEST(PointCsv, GivesPointsBackAsTheyAre)
{
    const KivPointArray points = {{0.1, -2.5}, {1e-9, 1048576}, {3, 4}};
    EXPECT_EQ(kivconvert::points_as_csv(points), "x,y\n0.1,-2.5\n1e-09,1048576\n3,4\n");
    EXPECT_EQ(kivconvert::parse_points_csv(kivconvert::points_as_csv(points), "a"), points);
    EXPECT_EQ(kivconvert::points_as_csv(KivVarArray{1, -2}, KivVarArray{3, 4}), "x,y\n1,3\n-2,4\n");
    EXPECT_EQ(kivconvert::parse_points_csv("x,y\r\n1,2", "a"), KivPointArray({{1, 2}}));
    EXPECT_EQ(kivconvert::parse_points_csv("\"x\", \"y\"\n+1.5, -2e-1\n\n", "a"), KivPointArray({{1.5, -0.2}}));
    const KivPointArray tiny = {{5e-324, -2.2250738585072011e-308}};
    EXPECT_EQ(kivconvert::parse_points_csv(kivconvert::points_as_csv(tiny), "a"), tiny);
}

TEST(PointCsv, MustHaveTwoCoordinatesNearTheFrameOnEachLine)
{
    const std::string far = " is not a number from -1048576 to 1048576";
    const std::pair<std::string, std::string> files[] = {
        {"x;y\n", "1: expected \"x,y\""},
        {"x,y,z\n", "1: expected \"x,y\""},
        {"x,y\n1\n", "2: y is missing"},
        {"x,y\n1,2\n1,\n", "3: y is not a number"},
        {"x,y\n1,2,3\n", "2: more on the line than expected"},
        {"x,y\n,2\n", "2: x is not a number"},
        {"x,y\nnan,2\n", "2: x is not a number"},
        {"x,y\n0x1,2\n", "2: x is not a number"},
        {"x,y\n1.5.5,2\n", "2: x is not a number"},
        {"x,y\n1,-1048576.5\n", "2: y" + far},
        {"x,y\n1,1e999\n", "2: y" + far},
    };
    for (const auto& [text, complaint] : files) {
        EXPECT_EQ(complaint_of([&, bytes = text] { kivconvert::parse_points_csv(bytes, "a"); }), "a:" + complaint)
            << text;
    }
}

} // namespace
