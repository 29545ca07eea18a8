// SPDX-License-Identifier: MIT
// What a browser would show: the paths are read back and filled by the even-odd rule.
#include "kivconvert/contour_files.h"
#include "kivconvert/image_files.h"
#include "tools/nested_mask.h"
#include "tools/scratch_folder.h"

#include <sstream>
#include <string>
#include <vector>

namespace
{

using ContourSvg = tools_tests::ScratchFolder;
using Border = std::vector<cv::Point>;
using Path = std::vector<Border>;
using tools_tests::complaint_of;

kivconvert::TracedContours nested_contours()
{
    cv::Mat mask = tools_tests::nested_mask();
    KivImage image(mask);
    return kivconvert::contours_of(image, "mask");
}

Border parse_border(const std::string& numbers)
{
    Border border;
    std::istringstream stream(numbers);
    char comma = 0;
    for (cv::Point point; stream >> point.x >> comma >> point.y;) {
        border.push_back(point);
    }
    return border;
}

/// What stands between each `open` and the next `close`.
std::vector<std::string> texts_between(const std::string& text, const std::string& open, const std::string& close)
{
    std::vector<std::string> found;
    for (auto at = text.find(open); at != std::string::npos; at = text.find(open, at)) {
        at += open.size();
        found.push_back(text.substr(at, text.find(close, at) - at));
    }
    return found;
}

Path parse_path(const std::string& data)
{
    Path path;
    for (const std::string& border : texts_between(data, "M", "Z")) {
        path.push_back(parse_border(border));
    }
    return path;
}

std::vector<Path> paths_of(const std::string& svg)
{
    std::vector<Path> paths;
    for (const std::string& data : texts_between(svg, "<path d=\"", "\"/>")) {
        paths.push_back(parse_path(data));
    }
    return paths;
}

TEST_F(ContourSvg, ShowsTheMaskThatWasTraced)
{
    kivconvert::TracedContours traced = nested_contours();
    const std::vector<Path> paths = paths_of(kivconvert::contours_as_svg(traced, {}));
    ASSERT_EQ(paths.size(), 3U);
    const cv::Mat mask = tools_tests::nested_mask();
    cv::Mat shown = cv::Mat::zeros(mask.size(), CV_8UC1);
    for (const Path& path : paths) {
        cv::Mat piece = cv::Mat::zeros(mask.size(), CV_8UC1);
        cv::fillPoly(piece, path, cv::Scalar(255)); // even-odd, the borders included
        EXPECT_EQ(cv::countNonZero(piece & shown), 0) << "two paths cover a pixel";
        shown |= piece;
    }
    EXPECT_EQ(cv::countNonZero(shown != mask), 0);
}

TEST_F(ContourSvg, BeginsHalfAPixelBeforeTheFirstCentre)
{
    kivconvert::TracedContours traced = nested_contours();
    const std::string svg = kivconvert::contours_as_svg(traced, {});
    EXPECT_EQ(svg.rfind("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"60\" height=\"40\" "
                        "viewBox=\"-0.5 -0.5 60 40\">\n",
                        0),
              0U);
    EXPECT_NE(svg.find("fill-rule=\"evenodd\""), std::string::npos);
    EXPECT_EQ(svg.find("<image"), std::string::npos);
}

TEST_F(ContourSvg, HoldsThePictureBelowThePaths)
{
    kivconvert::TracedContours traced = nested_contours();
    kivconvert::write_image(path("a.png"), KivImage(tools_tests::nested_mask()));
    kivconvert::write_contours(path("a.svg"), traced, path("a.png"));
    const std::string svg = get("a.svg");
    const auto picture = svg.find("<image x=\"-0.5\" y=\"-0.5\" width=\"60\" height=\"40\"");
    ASSERT_NE(picture, std::string::npos);
    EXPECT_LT(picture, svg.find("<path"));
    EXPECT_NE(svg.find("href=\"data:image/png;base64,iVBORw0KGgo"), std::string::npos);
}

TEST_F(ContourSvg, RefusesOtherPictures)
{
    kivconvert::TracedContours traced = nested_contours();
    kivconvert::write_image(path("b.png"), KivImage(cv::Mat_<uchar>({1, 2}, {1, 2})));
    const auto write = [&](const std::string& file, const std::string& picture) {
        return complaint_of([&] { kivconvert::write_contours(path(file), traced, path(picture)); });
    };
    EXPECT_EQ(write("a.svg", "b.png"), path("b.png") + ": has 2 x 1 pixels, but the contours' frame has 60 x 40");
    EXPECT_EQ(write("a.svg", "c.png"), path("c.png") + ": cannot be opened: No such file or directory");
    EXPECT_EQ(write("a.json", "b.png"), path("a.json") + ": cannot hold a picture; only .svg can");
    EXPECT_EQ(write("a.png", "b.png"),
              path("a.png") + ": is not named like an output of contours; those end in .json, .geojson or .svg");
    EXPECT_EQ(files(), 1);
}

} // namespace
