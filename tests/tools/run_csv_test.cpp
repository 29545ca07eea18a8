// SPDX-License-Identifier: MIT
#include "kivconvert/run_files.h"
#include "tools/scratch_folder.h"

#include <climits>
#include <string>

namespace
{

using kivconvert::parse_runs_csv;
using kivconvert::runs_as_csv;

const std::string head = "# width=7 height=5\nrow,colBegin,colEnd\n";

TEST(RunCsv, IsWrittenWithFrameAndColumnNames)
{
    EXPECT_EQ(runs_as_csv(KivRegion(7, 5, {{0, 1, 2}, {4, -3, 6}})), head + "0,1,2\n4,-3,6\n");
}

TEST(RunCsv, GivesEveryRegionBackAsItIs)
{
    const KivRegion regions[] = {KivRegion(), KivRegion(7, 5, {}),
                                 KivRegion(INT_MAX, INT_MAX, {{INT_MIN, INT_MAX, 0}, {9, 5, 4}, {2, 0, 0}})};
    for (const KivRegion& region : regions) {
        EXPECT_EQ(parse_runs_csv(runs_as_csv(region), "a.csv"), region);
    }
}

TEST(RunCsv, MayEndItsLinesInEitherWayAndLackTheLastEnd)
{
    const KivRegion region(7, 5, {{0, 1, 2}, {3, 4, 5}});
    EXPECT_EQ(parse_runs_csv("# width=7 height=5\r\nrow,colBegin,colEnd\r\n0,1,2\r\n3,4,5\r\n", "a.csv"), region);
    EXPECT_EQ(parse_runs_csv(head + "0,1,2\n3,4,5", "a.csv"), region);
}

TEST(RunCsv, MayComeFromASpreadsheet)
{
    const KivRegion region(7, 5, {{0, 1, 2}, {3, 4, 5}});
    for (const char* text :
         {"\"row\",\"colBegin\",\"colEnd\"\n0,1,2\n3,4,5\n", " row , colBegin,\tcolEnd\n0, 1, 2\n3, 4, 5\n",
          "row,colBegin,colEnd\n0,1,2\n3,4,5\n\n\r\n  \n", "row,colBegin,colEnd\n+0,+1,\"2\"\n3,\" 4\",+5"}) {
        EXPECT_EQ(parse_runs_csv(std::string("# width=7 height=5\n") + text, "a.csv"), region) << text;
        EXPECT_EQ(parse_runs_csv(text, "a.csv"), KivRegion(0, 0, region.Runs())) << "without a frame";
    }
}

struct Malformed {
    std::string text;
    std::string complaint;
};

TEST(RunCsv, ThatIsMalformedIsRefusedWithItsLine)
{
    const Malformed files[] = {
        {"", "1: expected \"row,colBegin,colEnd\""},
        {"row,colBegin\n", "1: expected \"row,colBegin,colEnd\""},
        {"# width=x height=5\n", "1: width is not an int of at least 0"},
        {"# width=-7 height=5\n", "1: width is not an int of at least 0"},
        {"# width=2147483648 height=5\n", "1: width is not an int of at least 0"},
        {"# width=7\n", "1: expected \" height=\""},
        {"# width=7 height=\n", "1: height is not an int of at least 0"},
        {"# width=7 height=-1\n", "1: height is not an int of at least 0"},
        {"# width=7 height=5 depth=1\n", "1: height is not an int of at least 0"},
        {"# width=7 height=5\n", "2: expected \"row,colBegin,colEnd\""},
        {"# width=7 height=5\n0,1,2\n", "2: expected \"row,colBegin,colEnd\""},
        {"# width=7 height=5\nrow,colBegin,colEnd,x\n", "2: expected \"row,colBegin,colEnd\""},
        {head + "0,1,2\n\n0,1,2\n", "4: colBegin is missing"},
        {head + "0\n", "3: colBegin is missing"},
        {head + "0,1\n", "3: colEnd is missing"},
        {head + "0,1,\n", "3: colEnd is not an integer"},
        {head + "0,,2\n", "3: colBegin is not an integer"},
        {head + "0,1,2\n0,x,2\n", "4: colBegin is not an integer"},
        {head + "0.5,1,2\n", "3: row is not an integer"},
        {head + "0,1,2.0\n", "3: colEnd is not an integer"},
        {head + "0,1,+-2\n", "3: colEnd is not an integer"},
        {head + "0,1,\"2\n", "3: colEnd is not an integer"},
        {head + "0,1 1,2\n", "3: colBegin is not an integer"},
        {head + "0,1,2,3\n", "3: more on the line than expected"},
        {head + "2147483648,1,2\n", "3: row is out of the range of int"},
        {head + "0,1,-2147483649\n", "3: colEnd is out of the range of int"},
        {head + std::string("0,1,2\0\n", 7), "3: colEnd is not an integer"},
    };
    for (const Malformed& file : files) {
        EXPECT_EQ(tools_tests::complaint_of([&] { parse_runs_csv(file.text, "a.csv"); }), "a.csv:" + file.complaint)
            << file.text;
    }
}

} // namespace
