// SPDX-License-Identifier: MIT
// One shape in every format; what the names and the texts of files say about their contents.
#include "kivconvert/contour_files.h"
#include "kivconvert/conversions.h"
#include "kivconvert/image_files.h"
#include "kivconvert/point_files.h"
#include "kivconvert/result_codes.h"
#include "kivconvert/run_files.h"
#include "tools/nested_mask.h"
#include "tools/scratch_folder.h"

#include <string>

namespace
{

using Contents = tools_tests::ScratchFolder;
using kivconvert::Content;
using kivconvert::read_content;
using tools_tests::complaint_of;

TEST_F(Contents, AreTheSameShapeInEveryFormat)
{
    KivImage mask(tools_tests::nested_mask());
    KivRegion region = kivconvert::region_of(mask, "mask");
    kivconvert::TracedContours traced = kivconvert::contours_of(mask, "mask");
    kivconvert::write_image(path("a.png"), mask);
    kivconvert::write_contours(path("contours.json"), traced, {});
    kivconvert::write_contours(path("a.geojson"), traced, {});
    for (const char* runs : {"a.csv", "runs.json", "a.coco.json", "a.coco-counts.json"}) {
        kivconvert::write_runs(path(runs), region);
    }
    for (const char* name :
         {"a.png", "a.csv", "runs.json", "a.coco.json", "a.coco-counts.json", "contours.json", "a.geojson"}) {
        Content content = read_content(path(name));
        EXPECT_EQ(kivconvert::region_of(content, name), region) << name;
        EXPECT_EQ(kivconvert::mask_of(content, name), mask) << name;
        EXPECT_EQ(kivconvert::contours_of(content, name).contours.Length(), traced.contours.Length()) << name;
        KivROI roi = kivconvert::roi_of(content, name);
        EXPECT_EQ(kivconvert::region_of(roi, name), region) << name;
        EXPECT_EQ(kivconvert::mask_of(roi, name), mask) << name;
        EXPECT_EQ(kivconvert::contours_of(roi, name).contours, traced.contours) << name;
        EXPECT_EQ(kivconvert::frame_of(content).width, 60) << name;
        EXPECT_EQ(kivconvert::frame_of(content).height, 40) << name;
    }
    kivconvert::write_points(path("points.csv"), region, "a");
    Content points = read_content(path("points.csv"));
    EXPECT_EQ(kivconvert::region_of(points, "points").Runs(), region.Runs());
}

TEST_F(Contents, OfPointsMayHaveFractions)
{
    Content points = read_content(put("a.csv", "x,y\n3.9,2.99\n-0.5,1\n"));
    EXPECT_EQ(kivconvert::region_of(points, "a"), KivRegion(4, 3, {{1, 0, 0}, {2, 3, 3}}));
    const kivconvert::TracedContours contours = kivconvert::contours_of(points, "a");
    EXPECT_EQ(contours.contours, KivContourArray({KivContour{{3.9, 2.99}, {-0.5, 1.0}}}));
    EXPECT_EQ(contours.width, 4);
    Content whole = read_content(put("b.csv", "x,y\n3,2\n0,1\n"));
    EXPECT_EQ(kivconvert::region_of(whole, "b"), kivconvert::region_of(points, "a"));
    EXPECT_EQ(kivconvert::contours_of(whole, "b").contours, KivContourArray({KivContour{{3.0, 2.0}, {0.0, 1.0}}}));
}

TEST_F(Contents, OfNoContoursAreNoPixels)
{
    Content content = read_content(put("a.json", R"({"width":7,"height":5,"contours":[]})"));
    EXPECT_EQ(kivconvert::region_of(content, "a"), KivRegion(7, 5, {}));
    EXPECT_EQ(kivconvert::mask_of(content, "a"), KivImage(cv::Mat(cv::Mat::zeros(5, 7, CV_8UC1))));
}

TEST_F(Contents, NeedAFrameSomewhere)
{
    for (const std::string& text : {std::string("roi:circle:1,1,1"), put("a.geojson", R"({"type":"Feature"})")}) {
        Content content = read_content(text);
        EXPECT_EQ(complaint_of([&] { kivconvert::require_frame(content, "a"); }),
                  "a: is in no frame; give --width and --height");
        kivconvert::place(content, {5, 0});
        EXPECT_NE(complaint_of([&] { kivconvert::require_frame(content, "a"); }), "no complaint");
        kivconvert::place(content, {5, 4});
        EXPECT_EQ(complaint_of([&] { kivconvert::require_frame(content, "a"); }), "no complaint");
        EXPECT_EQ(kivconvert::frame_of(content).height, 4);
    }
}

TEST_F(Contents, ThatAreNoneAreRefused)
{
    EXPECT_EQ(complaint_of([&] { read_content(put("a.json", "{}")); }),
              path("a.json") + ": holds neither \"runs\" nor \"counts\" nor \"contours\" nor a \"type\" of GeoJSON");
    for (const char* text : {R"({"width":2000000,"height":1,"contours":[]})",
                             R"({"width":2000000,"height":1,"features":[],"type":"FeatureCollection"})",
                             R"({"width":2000000,"height":1,"runs":[]})"}) {
        EXPECT_NE(complaint_of([&] { read_content(put("b.json", text)); }).find("is too large"), std::string::npos);
    }
    EXPECT_NE(complaint_of([&] { read_content(put("c.csv", "x,y\n1048576,1048576\n")); }).find("is too large"),
              std::string::npos);
}

TEST_F(Contents, AreRefusedByTheLibraryWithItsCodes)
{
    Content narrow = read_content(put("a.json", R"({"width":1,"height":5,"contours":[{"points":[[0,0]]}]})"));
    EXPECT_THROW(kivconvert::region_of(narrow, "a"), kivconvert::ResultError);
    EXPECT_THROW(kivconvert::mask_of(narrow, "a"), kivconvert::ResultError);
    Content row = read_content(put("b.csv", "x,y\n3,0\n"));
    EXPECT_THROW(kivconvert::region_of(row, "b"), kivconvert::ResultError);
    Content none = read_content(put("c.csv", "x,y\n"));
    EXPECT_THROW(kivconvert::contours_of(none, "c"), kivconvert::ResultError);
}

} // namespace
