// SPDX-License-Identifier: MIT
#include "shape.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <iterator>
#include <utility>

namespace bench
{
namespace
{

/// Maximal runs, found by a plain loop, so that the library is not checked against itself.
std::vector<Run> runs_in(const cv::Mat& mask)
{
    std::vector<Run> runs;
    for (int y = 0; y < mask.rows; ++y) {
        const uchar* row = mask.ptr(y);
        for (int x = 0; x < mask.cols; ++x) {
            if (row[x] == 0) {
                continue;
            }
            const int begin = x;
            while (x + 1 < mask.cols && row[x + 1] != 0) {
                ++x;
            }
            runs.push_back({y, begin, x});
        }
    }
    return runs;
}

std::vector<cv::Point> positions_in(cv::Size frame)
{
    std::vector<cv::Point> positions(200);
    cv::RNG random(6);
    for (cv::Point& position : positions) {
        position.x = random.uniform(0, frame.width);
        position.y = random.uniform(0, frame.height);
    }
    return positions;
}

std::vector<cv::Point> pixels_in(const cv::Mat& mask)
{
    std::vector<cv::Point> pixels;
    cv::findNonZero(mask, pixels);
    return pixels;
}

template <class Element, class List, class Get>
std::vector<Element> each(const List& list, Get get)
{
    std::vector<Element> elements;
    elements.reserve(list.size());
    std::transform(list.begin(), list.end(), std::back_inserter(elements), get);
    return elements;
}

Pixels pixel_arrays(const std::vector<cv::Point>& pixels)
{
    return {KivVarArray(each<int>(pixels, [](cv::Point pixel) { return pixel.x; })),
            KivVarArray(each<int>(pixels, [](cv::Point pixel) { return pixel.y; }))};
}

KivPointArray points_at(const std::vector<cv::Point>& pixels)
{
    return KivPointArray(each<KivPoint>(pixels, [](cv::Point pixel) {
        return KivPoint{static_cast<double>(pixel.x), static_cast<double>(pixel.y)};
    }));
}

KivContour contour_along(const std::vector<cv::Point>& chain)
{
    return KivContour(KivContour::Points(chain.begin(), chain.end()));
}

std::vector<std::vector<cv::Point>> borders(const cv::Mat& mask)
{
    std::vector<std::vector<cv::Point>> chains;
    cv::findContours(mask, chains, cv::RETR_CCOMP, cv::CHAIN_APPROX_NONE);
    return chains;
}

} // namespace

RunArrays arrays_of(const std::vector<Run>& runs)
{
    return {KivVarArray(each<int>(runs, [](const Run& run) { return run.row; })),
            KivVarArray(each<int>(runs, [](const Run& run) { return run.colBegin; })),
            KivVarArray(each<int>(runs, [](const Run& run) { return run.colEnd; }))};
}

Shape::Shape(cv::Mat foreground)
    : mask(std::move(foreground)),
      runs([this] { return runs_in(mask); }),
      run_set([this] { return KivRunSet(runs()); }),
      image([this] { return KivImage(mask); }),
      matrix([this] {
          KivMatrix reals;
          mask.convertTo(reals.Mat(), CV_32F);
          return reals;
      }),
      region([this] { return KivRegion(mask.cols, mask.rows, runs()); }),
      roi([this] { return KivROI::Mask(runs(), mask.cols, mask.rows); }),
      pixels([this] { return pixel_arrays(pixels_in(mask)); }),
      points([this] { return points_at(pixels_in(mask)); }),
      chains([this] { return borders(mask); }),
      contours([this] { return KivContourArray(each<KivContour>(chains(), contour_along)); }),
      longest_contour([this] { return contour_along(longest_chain()); }),
      longest_chain([this] {
          return *std::max_element(chains().begin(), chains().end(),
                                   [](const auto& left, const auto& right) { return left.size() < right.size(); });
      }),
      longest_pixels([this] { return pixel_arrays(longest_chain()); }),
      longest_points([this] { return points_at(longest_chain()); }),
      run_arrays([this] { return arrays_of(runs()); }),
      positions([this] { return positions_in(mask.size()); })
{
}

} // namespace bench
