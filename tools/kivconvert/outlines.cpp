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

/// A border runs along pixels of the piece that it belongs to.
int piece_below(const KivContour& border, const cv::Mat1i& pieces)
{
    return pieces(cv::Point(border.AllPoints().front()));
}

void add_holes(std::vector<Outline>& outlines, TracedContours& traced)
{
    const cv::Mat1i pieces = pieces_of(traced);
    std::unordered_map<int, Outline*> owners;
    for (Outline& outline : outlines) {
        owners[piece_below(*outline.outer, pieces)] = &outline;
    }
    for (const KivContour& contour : traced.contours) {
        if (contour.IsHole()) {
            owners.at(piece_below(contour, pieces))->holes.push_back(&contour);
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
