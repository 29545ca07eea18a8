// SPDX-License-Identifier: MIT
#include "kivconvert/outlines.h"

#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <opencv2/imgproc.hpp>
#include <unordered_map>

namespace kivconvert
{
namespace
{

/// Every pixel's piece of foreground. Filling what was traced gives back the mask.
cv::Mat1i pieces_of(TracedContours& traced)
{
    KivImage mask;
    expect_success(KIVMV::KivContourArrayToBinImage(&mask, traced.contours, traced.width, traced.height), "outlines");
    cv::Mat1i pieces;
    cv::connectedComponents(mask.Mat(), pieces, 8, CV_32S);
    return pieces;
}

/// A border runs along pixels of the piece that it belongs to. Outside of the frame there is none, 0.
int piece_below(const KivContour& border, const cv::Mat1i& pieces)
{
    const cv::Point pixel(border.AllPoints().front());
    return cv::Rect(cv::Point(), pieces.size()).contains(pixel) ? pieces(pixel) : 0;
}

void add_holes(std::vector<Outline>& outlines, TracedContours& traced)
{
    const cv::Mat1i pieces = pieces_of(traced);
    std::unordered_map<int, std::size_t> owners;
    for (std::size_t i = 0; i < outlines.size(); ++i) {
        owners[piece_below(*outlines[i].outer, pieces)] = i;
    }
    for (const KivContour& contour : traced.contours) {
        if (!contour.IsHole()) {
            continue;
        }
        const auto owner = owners.find(piece_below(contour, pieces));
        if (owner != owners.end()) {
            outlines[owner->second].holes.push_back(&contour);
        } else {
            outlines.push_back({&contour, {}});
        }
    }
}

} // namespace

std::vector<Outline> outlines_of(TracedContours& traced)
{
    std::vector<Outline> outlines;
    for (const KivContour& contour : traced.contours) {
        if (!contour.IsHole()) {
            outlines.push_back({&contour, {}});
        }
    }
    if (static_cast<int>(outlines.size()) < traced.contours.Length()) {
        add_holes(outlines, traced);
    }
    return outlines;
}

} // namespace kivconvert
