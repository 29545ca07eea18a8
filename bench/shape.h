// SPDX-License-Identifier: MIT
// A mask and the same pixels in every form that the library takes.
#pragma once

#include "lazy.h"

#include <KivData/KivData.h>
#include <KivRLC/KivRunSet.h>

#include <opencv2/core.hpp>

#include <vector>

namespace bench
{

/// Columns and rows of pixels or points, or the rows, first and last columns of runs.
struct Pixels {
    KivVarArray xs;
    KivVarArray ys;
};

struct RunArrays {
    KivVarArray rows;
    KivVarArray col_begins;
    KivVarArray col_ends;
};

/// The runs of a mask in three arrays.
RunArrays arrays_of(const std::vector<Run>& runs);

class Shape
{
public:
    explicit Shape(cv::Mat foreground);
    Shape(const Shape&) = delete;
    Shape& operator=(const Shape&) = delete;

    cv::Mat mask; // 0 and 255
    Lazy<std::vector<Run>> runs;
    Lazy<KivRunSet> run_set;
    Lazy<KivImage> image;
    Lazy<KivMatrix> matrix;
    Lazy<KivRegion> region;
    Lazy<KivROI> roi; // of kind mask
    Lazy<Pixels> pixels;
    Lazy<KivPointArray> points;
    Lazy<std::vector<std::vector<cv::Point>>> chains; // the borders, as OpenCV traces them
    Lazy<KivContourArray> contours;
    Lazy<KivContour> longest_contour;
    Lazy<std::vector<cv::Point>> longest_chain; // its points as pixels
    Lazy<Pixels> longest_pixels;
    Lazy<KivPointArray> longest_points;
    Lazy<RunArrays> run_arrays;
    Lazy<std::vector<cv::Point>> positions; // of 200 pixels at random, of the shape or not
};

} // namespace bench
