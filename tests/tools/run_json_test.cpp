// SPDX-License-Identifier: MIT
#include "kivconvert/run_files.h"
#include "tools/scratch_folder.h"

#include <climits>
#include <string>

namespace
{

using kivconvert::parse_runs_json;
using kivconvert::runs_as_json;

TEST(RunJson, IsWrittenWithFrameAndOneRunPerLine)
{
    EXPECT_EQ(runs_as_json(KivRegion(7, 5, {{0, 1, 2}, {4, -3, 6}})),
              "{\"width\":7,\"height\":5,\"runs\":[\n[0,1,2],\n[4,-3,6]\n]}\n");
}

TEST(RunJson, GivesEveryRegionBackAsItIs)
{
    const KivRegion regions[] = {KivRegion(), KivRegion(7, 5, {}),
                                 KivRegion(INT_MAX, INT_MAX, {{INT_MIN, INT_MAX, 0}, {9, 5, 4}, {2, 0, 0}})};
    for (const KivRegion& region : regions) {
        EXPECT_EQ(parse_runs_json(runs_as_json(region), "a.json"), region);
    }
}

TEST(RunJson, MayHaveItsMembersInAnyOrderAndFurtherOnes)
{
    EXPECT_EQ(parse_runs_json(R"({"runs": [[1, 2, 3]], "origin": "camera", "height": 5, "width": 7})", "a.json"),
              KivRegion(7, 5, {{1, 2, 3}}));
}

struct Malformed {
    std::string text;
    std::string complaint;
};

void expect_refused(const Malformed& file)
{
    EXPECT_EQ(tools_tests::complaint_of([&] { parse_runs_json(file.text, "a.json"); }), "a.json:" + file.complaint)
        << file.text;
}

TEST(RunJson, ThatIsNoJsonIsRefusedWithItsLine)
{
    const std::string complaint = ": is not valid JSON from here on";
    expect_refused({"", "1" + complaint});
    expect_refused({"{\n\"width\":7,\n\"height\" 5}", "3" + complaint});
    expect_refused({"{\n\"width\":7", "2" + complaint});
    expect_refused({"{}x", "1" + complaint});
    expect_refused({"{\"width\":\"\xff\"}", "1" + complaint});
    expect_refused({"{\"width\":1e999}", " is JSON with a number that is out of range"});
}

TEST(RunJson, MustBeAnObject)
{
    for (const char* text : {"[]", "null", "7", "\"runs\""}) {
        expect_refused({text, " is not a JSON object"});
    }
}

TEST(RunJson, MustHaveAFrame)
{
    const std::string width_complaint = " \"width\" is not an int of at least 0";
    for (const char* width : {"-1", "7.0", "\"7\"", "null", "true", "2147483648", "18446744073709551615"}) {
        expect_refused({std::string("{\"width\":") + width + ",\"height\":5,\"runs\":[]}", width_complaint});
    }
    expect_refused({R"({"height":5,"runs":[]})", width_complaint});
    expect_refused({R"({"width":7,"runs":[]})", " \"height\" is not an int of at least 0"});
    expect_refused({R"({"width":7,"height":-5,"runs":[]})", " \"height\" is not an int of at least 0"});
}

TEST(RunJson, MustHaveRunsOfThreeInts)
{
    for (const char* run : {"1", "{}", "[]", "[1,2]", "[1,2,3,4]", "[1,2,3.0]", "[1,2,\"3\"]", "[1,2,2147483648]",
                            "[-2147483649,2,3]", "[1,18446744073709551615,3]"}) {
        expect_refused({std::string(R"({"width":7,"height":5,"runs":[[0,0,0],)") + run + "]}",
                        " \"runs\"[1] is not an array of three ints"});
    }
    expect_refused({R"({"width":7,"height":5})", " \"runs\" is not an array"});
    expect_refused({R"({"width":7,"height":5,"runs":{}})", " \"runs\" is not an array"});
}

} // namespace
