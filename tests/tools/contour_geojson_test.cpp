// SPDX-License-Identifier: MIT
#include "kivconvert/contour_files.h"
#include "tools/nested_mask.h"
#include "tools/random_mask.h"
#include "tools/scratch_folder.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

namespace
{

using kivconvert::contours_as_geojson;
using kivconvert::parse_contours_geojson;
using kivconvert::TracedContours;
using tools_tests::complaint_of;

TracedContours traced(const cv::Mat& mask)
{
    KivImage image(mask);
    return kivconvert::contours_of(image, "mask");
}

std::vector<KivContour::Points> sorted(const KivContourArray& contours)
{
    std::vector<KivContour::Points> all;
    for (const KivContour& contour : contours) {
        all.push_back(contour.AllPoints());
    }
    std::sort(all.begin(), all.end(), [](const auto& a, const auto& b) {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](const auto& p, const auto& q) {
            return p.x < q.x || (p.x == q.x && p.y < q.y);
        });
    });
    return all;
}

TEST(ContourGeoJson, HasClosedRingsThatRunAnticlockwiseWhereYPointsUp)
{
    cv::Mat mask = cv::Mat::zeros(5, 7, CV_8UC1);
    cv::rectangle(mask, {1, 1}, {3, 3}, cv::Scalar(255));
    TracedContours ring = traced(mask);
    EXPECT_EQ(contours_as_geojson(ring),
              "{\"type\":\"FeatureCollection\",\"width\":7,\"height\":5,\"features\":[\n"
              "{\"type\":\"Feature\",\"properties\":{},\"geometry\":{\"type\":\"Polygon\",\"coordinates\":["
              "[[1,1],[2,1],[3,1],[3,2],[3,3],[2,3],[1,3],[1,2],[1,1]],"
              "[[1,2],[2,3],[3,2],[2,1],[1,2]]]}}\n"
              "]}\n");
}

TEST(ContourGeoJson, HasRingsOfFourPositionsAtLeast)
{
    TracedContours pixel = traced(cv::Mat(1, 1, CV_8UC1, cv::Scalar(9)));
    EXPECT_NE(contours_as_geojson(pixel).find("[[[0,0],[0,0],[0,0],[0,0]]]"), std::string::npos);
    TracedContours pair = traced(cv::Mat(1, 2, CV_8UC1, cv::Scalar(9)));
    EXPECT_NE(contours_as_geojson(pair).find("[[[0,0],[1,0],[0,0],[0,0]]]"), std::string::npos);
}

TEST(ContourGeoJson, GivesAllTracedContoursBack)
{
    std::mt19937 random(9);
    std::vector<cv::Mat> masks = {tools_tests::nested_mask(), cv::Mat::zeros(3, 3, CV_8UC1)};
    for (int i = 0; i < 200; ++i) {
        masks.push_back(tools_tests::random_mask(random));
    }
    for (const cv::Mat& mask : masks) {
        TracedContours contours = traced(mask);
        const TracedContours back = parse_contours_geojson(contours_as_geojson(contours), "a.geojson");
        ASSERT_EQ(sorted(back.contours), sorted(contours.contours)) << mask;
        ASSERT_EQ(back.width, mask.cols);
        ASSERT_EQ(back.height, mask.rows);
    }
}

TEST(ContourGeoJson, MayBeAPolygonAFeatureOrACollection)
{
    const std::string ring = "[[1,1],[1,4],[5,4],[5,1],[1,1]]"; // clockwise where y points up
    const std::string polygon = fmt::format(R"({{"type":"Polygon","coordinates":[{}]}})", ring);
    const std::string pair = fmt::format(R"({{"type":"MultiPolygon","coordinates":[[{0}],[{0},{0}]]}})", ring);
    const std::string feature = fmt::format(R"({{"type":"Feature","geometry":{}}})", polygon);
    const std::string nowhere = R"({"type":"Feature","geometry":null})";
    const KivContour outer = {{1.0, 1.0}, {1.0, 4.0}, {5.0, 4.0}, {5.0, 1.0}};
    const KivContour hole = {{1.0, 1.0}, {5.0, 1.0}, {5.0, 4.0}, {1.0, 4.0}};
    const auto contours = [](const std::string& text) { return parse_contours_geojson(text, "a.geojson").contours; };
    EXPECT_EQ(contours(polygon), KivContourArray({outer}));
    EXPECT_EQ(contours(feature), KivContourArray({outer}));
    EXPECT_EQ(contours(nowhere), KivContourArray());
    EXPECT_EQ(contours(pair), KivContourArray({outer, outer, hole}));
    EXPECT_EQ(contours(fmt::format(R"({{"type":"FeatureCollection","features":[{},{},{}]}})", feature, nowhere, pair)),
              KivContourArray({outer, outer, outer, hole}));
}

/// A file with these polygons, as it is written.
std::string collection(const std::vector<std::string>& polygons)
{
    std::string text = R"({"type":"FeatureCollection","width":30,"height":12,"features":[)";
    for (std::size_t i = 0; i < polygons.size(); ++i) {
        text +=
            fmt::format(R"({}{{"type":"Feature","properties":{{}},"geometry":{{"type":"Polygon","coordinates":{}}}}})",
                        i == 0 ? "\n" : ",\n", polygons[i]);
    }
    return text + "\n]}\n";
}

TEST(ContourGeoJson, KeepsHolesInTheirPolygons)
{
    const std::string hole = "[[3,3],[3,6],[6,6],[6,3],[3,3]]";
    const std::string holed = "[[[0,0],[10,0],[10,10],[0,10],[0,0]]," + hole + "]";
    const std::pair<const char*, std::vector<std::string>> files[] = {
        {"beside another", {holed, "[[[11,0],[20,0],[20,10],[11,10],[11,0]]]"}},
        {"overlapping another", {holed, "[[[2,2],[9,2],[9,9],[2,9],[2,2]]]"}},
        {"filled by another", {holed, "[[[3,3],[6,3],[6,6],[3,6],[3,3]]]"}},
        {"outside of the frame",
         {"[[[-9,0],[-1,0],[-1,9],[-9,9],[-9,0]],[[-7,2],[-7,6],[-3,6],[-3,2],[-7,2]]]",
          "[[[-3,0],[-2,1],[-3,1],[-3,0]]]"}},
        {"without an inside", {"[[[0,0],[10,0],[10,10],[0,10],[0,0]],[[3,3],[3,3],[3,3],[3,3]]]"}},
    };
    for (const auto& [holes, polygons] : files) {
        const std::string text = collection(polygons);
        EXPECT_EQ(contours_as_geojson(parse_contours_geojson(text, "a.geojson")), text) << holes;
    }
}

TEST(ContourGeoJson, MayLackAFrame)
{
    const std::string nothing = R"("type":"FeatureCollection","features":[])";
    EXPECT_EQ(parse_contours_geojson("{" + nothing + "}", "a").width, 0);
    EXPECT_EQ(parse_contours_geojson(R"({"width":7,"height":5,)" + nothing + "}", "a").width, 7);
    EXPECT_EQ(complaint_of([&] { parse_contours_geojson(R"({"width":-7,)" + nothing + "}", "a"); }),
              "a: \"width\" is not an int of at least 0");
}

TEST(ContourGeoJson, MustHavePolygonsOfClosedRings)
{
    const std::string far = " is not an array of two numbers from -1048576 to 1048576";
    const std::pair<std::string, std::string> geometries[] = {
        {R"({"type":"Point","coordinates":[1,2]})", " is neither a Polygon nor a MultiPolygon"},
        {R"({"type":7})", " is neither a Polygon nor a MultiPolygon"},
        {R"([])", " is neither a Polygon nor a MultiPolygon"},
        {R"({"type":"Polygon"})", " \"coordinates\" is not an array"},
        {R"({"type":"Polygon","coordinates":[7]})", " \"coordinates\"[0]: is not a ring, an array of positions"},
        {R"({"type":"Polygon","coordinates":[[]]})", " \"coordinates\"[0]: is not a ring, an array of positions"},
        {R"({"type":"Polygon","coordinates":[[[1,2],7]]})", " \"coordinates\"[0][1]:" + far},
        {R"({"type":"Polygon","coordinates":[[[1,2e7]]]})", " \"coordinates\"[0][0]:" + far},
        {R"({"type":"Polygon","coordinates":[[[1,2],[3,4]]]})",
         " \"coordinates\"[0]: is not closed; its last position must be its first"},
        {R"({"type":"MultiPolygon","coordinates":[[],7]})", " \"coordinates\"[1]: is not an array of rings"},
    };
    for (const auto& [geometry, complaint] : geometries) {
        const std::string text =
            fmt::format(R"({{"type":"FeatureCollection","features":[{{"type":"Feature","geometry":{}}}]}})", geometry);
        EXPECT_EQ(complaint_of([&, t = text] { parse_contours_geojson(t, "a"); }), "a: \"features\"[0]:" + complaint)
            << text;
    }
    EXPECT_EQ(complaint_of([] { parse_contours_geojson("{", "a"); }), "a:1: is not valid JSON from here on");
}

TEST(ContourGeoJson, ShowsBordersOfHolesInNothingAsPolygons)
{
    const KivContour hole = {{1.0, 1.0}, {5.0, 1.0}, {5.0, 4.0}, {1.0, 4.0}};
    const KivContour outside = {{-9.0, 1.0}, {-5.0, 1.0}, {-5.0, 4.0}, {-9.0, 4.0}};
    TracedContours contours{7, 5, {hole, outside}};
    EXPECT_EQ(parse_contours_geojson(contours_as_geojson(contours), "a").contours.Length(), 2);
}

} // namespace
