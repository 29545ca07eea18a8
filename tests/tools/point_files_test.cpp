// SPDX-License-Identifier: MIT
#include "kivconvert/point_files.h"
#include "tools/scratch_folder.h"

#include <climits>

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
              "b.csv: has more than 134217728 pixels, too many to list");
    EXPECT_EQ(files(), 0);
}

} // namespace
