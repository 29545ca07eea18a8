// SPDX-License-Identifier: MIT
#include "gallery/drawing.h"

#include "kivconvert/base64.h"
#include "kivconvert/region_files.h"

#include <fmt/format.h>
#include <iterator>
#include <opencv2/imgcodecs.hpp>
#include <string_view>

namespace gallery
{
namespace
{

constexpr double margin = 0.1; // in pixels, for the line round the frame

// The legend in page.cpp shows these colours.
constexpr std::string_view style_sheet = R"css(
:root { color-scheme: light dark; --paper: #fff; --ink: #1c2430; --grid: #8796a8; --a: #3b82f6; --b: #f59e0b;
    --result: #17a673; --outer: #0d8a5c; --hole: #dd6b12; --missing: #e5383b; --extra: #a144e0 }
@media (prefers-color-scheme: dark) { :root { --paper: #11161d; --ink: #e8edf4; --grid: #6b7b8f; --outer: #35d39a;
    --hole: #ff9b45 } }
.paper { fill: var(--paper) }
.a { fill: var(--a); fill-opacity: .6 }
.faint { fill: var(--a); fill-opacity: .22 }
.b { fill: var(--b); fill-opacity: .6 }
.result { fill: var(--result); fill-opacity: .75 }
.missing { fill: var(--missing) }
.extra { fill: var(--extra) }
.grid { stroke: var(--grid); stroke-opacity: .35 }
.frame { fill: none; stroke: var(--ink); stroke-width: 1.5 }
.grid, .frame { vector-effect: non-scaling-stroke }
.run { stroke: var(--a); stroke-width: .56; stroke-linecap: round; stroke-opacity: .8 }
.knob { fill: #fff; stroke: none }
.border { fill: none; stroke-linejoin: round; stroke-width: .3 }
.outer { stroke: var(--outer) }
.hole { stroke: var(--hole) }
.dot { fill: var(--ink) }
.ideal { fill: none; stroke: var(--b); stroke-width: .3; stroke-dasharray: 1 .6 }
text { font: .44px system-ui, "DejaVu Sans", sans-serif; text-anchor: middle; dominant-baseline: central }
.ink { fill: var(--ink) }
.small { fill: var(--ink); font-size: .32px }
.black { fill: #000 }
.white { fill: #fff }
)css";

/// One rectangle per run, in one path.
std::string path_of(const std::vector<Run>& runs, const char* style)
{
    std::string path = fmt::format("<path class=\"{}\" d=\"", style);
    for (const Run& run : runs) {
        const int length = run.colEnd - run.colBegin + 1;
        fmt::format_to(std::back_inserter(path), "M{} {}h{}v1h-{}z", run.colBegin - 0.5, run.row - 0.5, length, length);
    }
    return path + "\"/>\n";
}

std::string grid_of(const cv::Rect& view)
{
    std::string path = "<path class=\"grid\" d=\"";
    for (int x = view.x; x <= view.br().x; ++x) {
        fmt::format_to(std::back_inserter(path), "M{} {}v{}", x - 0.5, view.y - 0.5, view.height);
    }
    for (int y = view.y; y <= view.br().y; ++y) {
        fmt::format_to(std::back_inserter(path), "M{} {}h{}", view.x - 0.5, y - 0.5, view.width);
    }
    return path + "\"/>\n";
}

std::string rectangle(const char* style, const cv::Rect& rect)
{
    return fmt::format("<rect class=\"{}\" x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\"/>\n", style, rect.x - 0.5,
                       rect.y - 0.5, rect.width, rect.height);
}

} // namespace

Drawing& Drawing::grey(const cv::Mat& image)
{
    std::vector<uchar> png;
    cv::imencode(".png", image, png);
    const std::string_view bytes(reinterpret_cast<const char*>(png.data()), png.size());
    pixels_ += fmt::format("<image x=\"-0.5\" y=\"-0.5\" width=\"{}\" height=\"{}\" image-rendering=\"pixelated\" "
                           "href=\"data:image/png;base64,{}\"/>\n",
                           image.cols, image.rows, kivconvert::base64_of(bytes));
    return *this;
}

Drawing& Drawing::pixels(const cv::Mat& mask, const char* style)
{
    KivImage image(mask);
    return pixels(kivconvert::region_of(image, "mask"), style);
}

Drawing& Drawing::pixels(const KivRegion& region, const char* style)
{
    pixels_ += path_of(region.Runs(), style);
    return *this;
}

Drawing& Drawing::runs(const KivRegion& region)
{
    for (const Run& run : region.Runs()) {
        // A line of no length would have no round ends in every browser.
        marks_ += fmt::format("<path class=\"run\" d=\"M{} {}h{}\"/>", run.colBegin, run.row,
                              run.colEnd - run.colBegin + 0.001);
        for (const int column : {run.colBegin, run.colEnd}) {
            marks_ += fmt::format("<circle class=\"knob\" cx=\"{}\" cy=\"{}\" r=\".14\"/>\n", column, run.row);
        }
    }
    return *this;
}

Drawing& Drawing::border(const KivContour& contour, const char* style)
{
    marks_ += fmt::format("<polygon class=\"border {}\" points=\"", style);
    for (const auto& point : contour.AllPoints()) {
        marks_ += fmt::format("{:.3f},{:.3f} ", point.x, point.y);
    }
    marks_ += "\"/>\n";
    return *this;
}

Drawing& Drawing::points(const KivContour& contour)
{
    for (const auto& point : contour.AllPoints()) {
        marks_ += fmt::format("<circle class=\"dot\" cx=\"{:.3f}\" cy=\"{:.3f}\" r=\".28\"/>\n", point.x, point.y);
    }
    return *this;
}

Drawing& Drawing::circle(cv::Point2d centre, double radius)
{
    marks_ += fmt::format("<circle class=\"ideal\" cx=\"{}\" cy=\"{}\" r=\"{}\"/>\n", centre.x, centre.y, radius);
    return *this;
}

Drawing& Drawing::values(const cv::Mat& image)
{
    cv::Mat1d numbers;
    image.convertTo(numbers, CV_64F);
    const bool grey = image.depth() == CV_8U;
    for (int row = 0; row < numbers.rows; ++row) {
        for (int column = 0; column < numbers.cols; ++column) {
            const double value = numbers(row, column);
            const char* style = !grey ? "small" : value < 128.0 ? "white" : "black";
            label(cv::Point(column, row), fmt::format("{:.{}f}", value, grey ? 0 : 1), style);
        }
    }
    return *this;
}

Drawing& Drawing::label(cv::Point2d point, const std::string& text, const char* style)
{
    marks_ += fmt::format("<text class=\"{}\" x=\"{}\" y=\"{}\">{}</text>\n", style, point.x, point.y, text);
    return *this;
}

cv::Size Drawing::size() const
{
    constexpr double width = 672.0;
    return cv::Size2d(width, width * (view_.height + 2.0 * margin) / (view_.width + 2.0 * margin));
}

std::string Drawing::svg() const
{
    const cv::Size picture = size();
    const std::string begin =
        fmt::format("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{}\" height=\"{}\" viewBox=\"{} {} {} {}\">\n"
                    "<style>{}</style>\n",
                    picture.width, picture.height, view_.x - 0.5 - margin, view_.y - 0.5 - margin,
                    view_.width + 2.0 * margin, view_.height + 2.0 * margin, style_sheet);
    return begin + rectangle("paper", view_) + pixels_ + grid_of(view_) + rectangle("frame", {{}, frame_}) + marks_ +
           "</svg>\n";
}

} // namespace gallery
