// SPDX-License-Identifier: MIT
#include "kivconvert/contour_files.h"
#include "tools/scratch_folder.h"

#include <fmt/format.h>

#include <string>

namespace
{

using kivconvert::contours_as_json;
using kivconvert::parse_contours_json;
using kivconvert::TracedContours;
using tools_tests::complaint_of;

const KivContour outer = {{1.0, 1.0}, {1.0, 4.0}, {5.0, 4.0}, {5.0, 1.0}};
const KivContour hole = {{3.0, 2.0}, {4.0, 3.0}, {3.0, 4.0}, {2.0, 3.0}};

TEST(ContourJson, TellsHolesFromOuterBorders)
{
    EXPECT_EQ(contours_as_json({7, 5, {outer, hole}}), "{\"width\":7,\"height\":5,\"contours\":[\n"
                                                       "{\"hole\":false,\"points\":[[1,1],[1,4],[5,4],[5,1]]},\n"
                                                       "{\"hole\":true,\"points\":[[3,2],[4,3],[3,4],[2,3]]}\n"
                                                       "]}\n");
}

TEST(ContourJson, GivesAllContoursBackAsTheyAre)
{
    const KivContour fractions = {{0.1, -2.5}, {1e-9, 1048576.0}};
    for (const KivContourArray& contours : {KivContourArray(), KivContourArray({outer, hole, fractions})}) {
        const TracedContours back = parse_contours_json(contours_as_json({7, 5, contours}), "a.json");
        EXPECT_EQ(back.contours, contours);
        EXPECT_EQ(back.width, 7);
        EXPECT_EQ(back.height, 5);
    }
}

TEST(ContourJson, MayLackTheKindAndHaveFurtherMembers)
{
    const TracedContours read =
        parse_contours_json(R"({"contours":[{"name":"a","points":[[1.5,2]]}],"height":5,"width":7,"x":0})", "a.json");
    EXPECT_EQ(read.contours, KivContourArray({KivContour{{1.5, 2.0}}}));
}

void expect_refused(const std::string& text, const std::string& complaint)
{
    EXPECT_EQ(complaint_of([&] { parse_contours_json(text, "a.json"); }), "a.json:" + complaint) << text;
}

TEST(ContourJson, MustBeAnObjectWithFrameAndContours)
{
    expect_refused("{\n\"width\":", "2: is not valid JSON from here on");
    expect_refused("[]", " is not a JSON object");
    expect_refused(R"({"height":5,"contours":[]})", " \"width\" is not an int of at least 0");
    expect_refused(R"({"width":7,"height":-1,"contours":[]})", " \"height\" is not an int of at least 0");
    expect_refused(R"({"width":7,"height":5})", " \"contours\" is not an array");
    expect_refused(R"({"width":7,"height":5,"contours":{}})", " \"contours\" is not an array");
}

TEST(ContourJson, MustHavePointsInEveryContour)
{
    for (const char* contour : {"1", "null", "[]", "[[1,2]]", "{}", R"({"points":7})", R"({"points":[]})"}) {
        expect_refused(fmt::format(R"({{"width":7,"height":5,"contours":[{{"points":[[1,2]]}},{}]}})", contour),
                       " \"contours\"[1]: is not an object with \"points\"");
    }
}

TEST(ContourJson, MustHavePointsOfTwoNumbersNearTheFrame)
{
    for (const char* point :
         {"1", "{}", "[]", "[1]", "[1,2,3]", "[1,\"2\"]", "[null,2]", "[1048577,2]", "[1,-1e300]"}) {
        expect_refused(fmt::format(R"({{"width":7,"height":5,"contours":[{{"points":[[1,2],{}]}}]}})", point),
                       " \"contours\"[0]: \"points\"[1]: is not an array of two numbers from -1048576 to 1048576");
    }
    expect_refused(R"({"width":7,"height":5,"contours":[{"points":[[1,1e999]]}]})",
                   " is JSON with a number that is out of range");
}

} // namespace
