// SPDX-License-Identifier: MIT
// The shapes that everything is timed on, made by the project itself from fixed seeds.
//
// The set operations treat the ends of the two run lists by rules of their own (docs/set-algebra.md). So that every
// contestant makes the same pixels, the last four rows of a mask are set apart: the first operand has one run on each
// of two of them, the second one a run on the last row, and none of these meets anything.
#pragma once

#include "shape.h"

#include <opencv2/core.hpp>

#include <string>
#include <vector>

namespace bench
{

cv::Mat blobs(cv::Size size, int count, unsigned seed);   // filled ellipses of all sizes
cv::Mat strokes(cv::Size size, int lines, unsigned seed); // short thin strokes in lines, like text
cv::Mat noise(cv::Size size, unsigned seed);              // every pixel set with a probability of one half
cv::Mat ring(cv::Size size);                              // one thick ring that nearly fills the image
cv::Mat tall(int rows, unsigned seed);                    // one run on every row

/// A shape, and the same one moved a little, as the second operand of set operations.
struct Workload {
    Workload(std::string name, const cv::Mat& mask, cv::Point shift);

    std::string name;
    Shape a;
    Shape b;
};

using Workloads = std::vector<Workload*>;

/// Blobs, strokes, noise, ring, tall and small.
const Workloads& workloads();

/// The same with less of strokes and noise, for what costs more than the size of a shape: unions, which make p q runs
/// of p and q runs on a row; and OpenCV's contours, where time grows faster than their number.
const Workloads& lighter_workloads();

/// At n, 4 n and 16 n: rows of strokes; fewer of them, for OpenCV's contours; and rows of one run, whose outline grows.
const Workloads& growing_rows();
const Workloads& few_growing_rows();
const Workloads& growing_outline();

} // namespace bench
