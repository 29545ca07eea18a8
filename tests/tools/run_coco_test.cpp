// SPDX-License-Identifier: MIT
// Runs as the counts of COCO data sets. The literal texts were packed by hand.
#include "kivconvert/conversions.h"
#include "kivconvert/run_files.h"
#include "tools/random_mask.h"
#include "tools/scratch_folder.h"

#include <fmt/format.h>

#include <climits>
#include <string>

namespace
{

using kivconvert::parse_runs_coco;
using kivconvert::runs_as_coco;
using kivconvert::runs_as_coco_counts;

struct Example {
    KivRegion region;
    std::string counts;
    std::string packed; ///< as JSON shows it
};

std::vector<Run> rows(int count, int width)
{
    std::vector<Run> runs;
    for (int row = 0; row < count; ++row) {
        runs.push_back({row, 0, width - 1});
    }
    return runs;
}

const Example examples[] = {
    // . # #   goes down the columns as 2 of background, 1 of foreground, 1, 2. The fourth count, 2, is recognised by
    // its
    // . . #   difference to the second, 1.
    {KivRegion(3, 2, {{0, 1, 2}, {1, 2, 2}}), "[2,1,1,2]", "2111"},
    {KivRegion(2, 2, rows(2, 2)), "[0,4]", "04"},
    {KivRegion(3, 2, {}), "[6]", "6"},
    {KivRegion(4, 0, {}), "[0]", "0"},
    // 15 fits into one character. 16 does not, since the highest of the five bits is the sign: 16 + 32, 0.
    {KivRegion(15, 1, {}), "[15]", "?"},
    {KivRegion(16, 1, {}), "[16]", "`0"},
    // 44 is 12 + 32, 1, the first of which is a backslash.
    {KivRegion(11, 4, {}), "[44]", "\\\\1"},
    // A fourth count of 2 is 2 less than the second, 4: the character of 30.
    {KivRegion(14, 1, {{0, 5, 8}, {0, 12, 13}}), "[5,4,3,2]", "543N"},
    // 3 is 17 less than 20: 15 + 32, 31.
    {KivRegion(25, 1, {{0, 1, 20}, {0, 22, 24}}), "[1,20,1,3]", "1d01_O"},
};

TEST(RunCoco, IsPackedAsByHand)
{
    for (const Example& example : examples) {
        const std::string head =
            fmt::format("{{\"size\":[{},{}],\"counts\":", example.region.Height(), example.region.Width());
        EXPECT_EQ(runs_as_coco_counts(example.region), head + example.counts + "}\n");
        EXPECT_EQ(runs_as_coco(example.region), fmt::format("{}\"{}\"}}\n", head, example.packed));
    }
}

TEST(RunCoco, IsReadPackedOrNot)
{
    for (const Example& example : examples) {
        EXPECT_EQ(parse_runs_coco(runs_as_coco_counts(example.region), "a.json"), example.region);
        EXPECT_EQ(parse_runs_coco(runs_as_coco(example.region), "a.json"), example.region);
    }
    EXPECT_EQ(parse_runs_coco(R"({"id":1,"counts":[0,0,1,0,2,0,0,1],"size":[2,2]})", "a.json"),
              KivRegion(2, 2, {{1, 1, 1}}))
        << "lengths of 0 and further members";
}

TEST(RunCoco, HoldsThePixelsOfTheFrameOnce)
{
    const KivRegion region(3, 2, {{1, 2, 9}, {0, 1, 2}, {0, 2, 2}, {5, 0, 2}, {1, INT_MIN, -1}, {1, 2, 1}});
    EXPECT_EQ(runs_as_coco_counts(region), "{\"size\":[2,3],\"counts\":[2,1,1,2]}\n");
}

TEST(RunCoco, GivesEveryMaskBack)
{
    std::mt19937 random(7);
    for (int i = 0; i < 300; ++i) {
        KivImage mask(tools_tests::random_mask(random));
        const KivRegion region = kivconvert::region_of(mask, "mask");
        ASSERT_EQ(parse_runs_coco(runs_as_coco(region), "a.json"), region) << mask.Mat();
        ASSERT_EQ(parse_runs_coco(runs_as_coco_counts(region), "a.json"), region) << mask.Mat();
    }
}

TEST(RunCoco, OfTheLargestFramesCostsItsRunsAlone)
{
    const std::string text = R"({"size":[32768,32768],"counts":[0,1073741824]})";
    EXPECT_EQ(parse_runs_coco(text, "a.json").Runs().size(), 32768U);
    EXPECT_EQ(runs_as_coco_counts(parse_runs_coco(text, "a.json")),
              "{\"size\":[32768,32768],\"counts\":[0,1073741824]}\n");
}

struct Malformed {
    std::string document;
    std::string complaint;
};

TEST(RunCoco, MustHaveAFrameAndCountsThatFillIt)
{
    const std::string size = "\"size\" is not an array of two ints of at least 0, height and width";
    const Malformed files[] = {
        {R"({"counts":[6]})", "\"size\" is not an array"},
        {R"({"size":[2],"counts":[6]})", size},
        {R"({"size":[2,3,1],"counts":[6]})", size},
        {R"({"size":[-2,-3],"counts":[6]})", size},
        {R"({"size":[2,3.0],"counts":[6]})", size},
        {R"({"size":[2,3]})", "\"counts\" is not an array"},
        {R"({"size":[2,3],"counts":6})", "\"counts\" is not an array"},
        {R"({"size":[2,3],"counts":[5,1.0]})", "\"counts\"[1] is not an int"},
        {R"({"size":[2,3],"counts":[7,-1]})", "\"counts\"[0] is 7, where 0 to 6 pixels are left"},
        {R"({"size":[2,3],"counts":[5,-1]})", "\"counts\"[1] is -1, where 0 to 1 pixels are left"},
        {R"({"size":[2,3],"counts":[2,3]})", "\"counts\" has 5 pixels, but the frame has 6"},
        {R"({"size":[2,3],"counts":[]})", "\"counts\" has 0 pixels, but the frame has 6"},
        {R"({"size":[2,3],"counts":"23"})", "\"counts\" has 5 pixels, but the frame has 6"},
        {R"({"size":[2,3],"counts":"2`"})", "\"counts\": KivRuns: COCO text ends within a count at character 3"},
        {R"({"size":[2,3],"counts":"2/"})",
         "\"counts\": KivRuns: COCO text has something else than the characters from 0 to o at character 2"},
        {R"({"size":[2,3],"counts":"p"})",
         "\"counts\": KivRuns: COCO text has something else than the characters from 0 to o at character 1"},
        {R"({"size":[2,3],"counts":"oooooooooooooo0"})",
         "\"counts\": KivRuns: COCO text has a count that is too large at character 14"},
        {R"({"size":[2,3],"counts":"N"})", "\"counts\"[0] is -2, where 0 to 6 pixels are left"},
        {R"({"size":[2,3],"counts":"oooooo?"})", "\"counts\"[0] is 17179869183, where 0 to 6 pixels are left"},
    };
    for (const Malformed& file : files) {
        EXPECT_EQ(tools_tests::complaint_of([&] { parse_runs_coco(file.document, "a.json"); }),
                  "a.json: " + file.complaint)
            << file.document;
    }
    EXPECT_NE(tools_tests::complaint_of([&] {
                  parse_runs_coco(R"({"size":[2147483647,2147483647],"counts":[0]})", "a.json");
              }).find("is too large"),
              std::string::npos);
}

TEST(RunCoco, MayNotUnfoldIntoTooManyRuns)
{
    std::string counts = "0";
    for (int i = 0; i < 1024; ++i) {
        counts += ",32768"; // every other column
    }
    const std::string text = fmt::format("{{\"size\":[32768,1025],\"counts\":[{},32768]}}", counts.substr(2));
    EXPECT_EQ(tools_tests::complaint_of([&] { parse_runs_coco(text, "a.json"); }), "no complaint") << "just as many";
    const std::string more =
        fmt::format("{{\"size\":[32768,1027],\"counts\":[{},32768,32768,32768]}}", counts.substr(2));
    EXPECT_EQ(tools_tests::complaint_of([&] { parse_runs_coco(more, "a.json"); }),
              "a.json: up to 16809984 runs would take 1026 MiB; --max-memory allows 1024");
}

} // namespace
