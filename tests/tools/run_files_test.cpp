// SPDX-License-Identifier: MIT
// Run files on disk: the extension says the format, and the frame is bounded.
#include "kivconvert/region_files.h"
#include "kivconvert/run_files.h"
#include "tools/scratch_folder.h"

#include <string>

namespace
{

using RunFiles = tools_tests::ScratchFolder;
using tools_tests::complaint_of;

TEST_F(RunFiles, AreReadAsTheyWereWritten)
{
    const KivRegion region(7, 5, {{4, 0, 6}, {0, 1, 1}});
    for (const char* name : {"a.csv", "a.json", "B.CSV", "B.Json"}) {
        kivconvert::write_runs(path(name), region);
        EXPECT_EQ(kivconvert::read_region(path(name)), region) << name;
    }
    EXPECT_EQ(get("B.CSV"), kivconvert::runs_as_csv(region));
    EXPECT_EQ(get("B.Json"), kivconvert::runs_as_json(region));
}

TEST_F(RunFiles, AreInTheFormatOfTheLongestEnding)
{
    const KivRegion region(3, 2, {{0, 1, 2}, {1, 2, 2}});
    for (const char* name : {"a.coco.json", "A.COCO.JSON"}) {
        kivconvert::write_runs(path(name), region);
        EXPECT_EQ(get(name), kivconvert::runs_as_coco(region));
        EXPECT_EQ(kivconvert::read_region(path(name)), region);
    }
    kivconvert::write_runs(path("a.coco-counts.json"), region);
    EXPECT_EQ(get("a.coco-counts.json"), kivconvert::runs_as_coco_counts(region));
    EXPECT_EQ(kivconvert::read_region(path("a.coco-counts.json")), region);
}

TEST(RunFileNames, LoseTheirWholeEndings)
{
    for (const char* file : {"x.y/a.b.coco.json", "a.b.COCO-counts.json", "a.b.json", "a.b.csv", "a.b.png"}) {
        EXPECT_EQ(kivconvert::name_without_ending(file), "a.b") << file;
    }
    EXPECT_EQ(kivconvert::name_without_ending("a"), "a");
}

TEST_F(RunFiles, NeedTheirExtension)
{
    for (const char* name : {"a.png", "a", "csv", "a.csv.bak"}) {
        EXPECT_FALSE(kivconvert::is_run_file(name)) << name;
        EXPECT_EQ(complaint_of([&] { kivconvert::write_runs(path(name), KivRegion()); }),
                  path(name) + ": is not named like a run file; those end in .csv or .json");
    }
    EXPECT_EQ(files(), 0);
}

TEST_F(RunFiles, HaveNoLargerFrameThanAnImage)
{
    const KivRegion possible(1 << 20, 1 << 10, {});
    kivconvert::write_runs(path("a.csv"), possible);
    EXPECT_EQ(kivconvert::read_region(path("a.csv")), possible);

    for (const KivRegion& region :
         {KivRegion((1 << 20) + 1, 1, {}), KivRegion(1, (1 << 20) + 1, {}), KivRegion(1 << 20, (1 << 10) + 1, {})}) {
        put("b.csv", kivconvert::runs_as_csv(region));
        EXPECT_NE(complaint_of([&] { kivconvert::read_region(path("b.csv")); }).find("is too large"),
                  std::string::npos);
        EXPECT_NE(complaint_of([&] { kivconvert::write_runs(path("c.csv"), region); }).find("is too large"),
                  std::string::npos);
    }
    EXPECT_EQ(files(), 2);
}

} // namespace
