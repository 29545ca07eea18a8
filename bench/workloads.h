// SPDX-License-Identifier: MIT
// The shapes that everything is timed on, made by the project itself from fixed seeds.
#pragma once

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <string>
#include <vector>

namespace bench
{

/// A mask (0 and 255), its runs, and the same shape moved a little, as the second operand of set operations.
struct Workload {
    std::string name;
    cv::Mat mask;
    cv::Mat moved_mask;
    KivRegion region;
    KivRegion moved_region;
};

cv::Mat blobs(cv::Size size, int count, unsigned seed);   // filled ellipses of all sizes
cv::Mat strokes(cv::Size size, int lines, unsigned seed); // short thin strokes in lines, like text
cv::Mat noise(cv::Size size, unsigned seed);              // every pixel set with a probability of one half
cv::Mat ring(cv::Size size);                              // one thick ring that nearly fills the image
cv::Mat tall(int rows, unsigned seed);                    // one run on every row

/// The workload of a mask; `shift` is how far the second operand is moved.
Workload workload(std::string name, const cv::Mat& mask, cv::Point shift);

/// All workloads, made once: blobs, strokes, noise, ring, tall and small.
const std::vector<Workload>& workloads();

/// Blobs, strokes and rows of one run at a growing number of runs, for growth.
std::vector<Workload> growing(const std::string& kind);

} // namespace bench
