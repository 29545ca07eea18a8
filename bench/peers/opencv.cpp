// SPDX-License-Identifier: MIT
// OpenCV on masks, and the calls of OpenCV that the library makes itself.
#include "contest.h"
#include "contestants.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

namespace bench
{
namespace
{

using Chain = std::vector<cv::Point>;
using Chains = std::vector<Chain>;

Chains traced(const cv::Mat& mask)
{
    Chains chains;
    cv::findContours(mask, chains, cv::RETR_CCOMP, cv::CHAIN_APPROX_NONE);
    return chains;
}

void fill(cv::Mat& mask, const Chains& chains)
{
    cv::drawContours(mask, chains, -1, cv::Scalar(255), cv::FILLED, cv::LINE_8);
}

cv::Mat filled(const Chains& chains, cv::Size size)
{
    cv::Mat mask = cv::Mat::zeros(size, CV_8UC1);
    fill(mask, chains);
    return mask;
}

/// Just large enough for the points of a chain.
cv::Size frame_of(const Chain& chain)
{
    const cv::Rect bounds = cv::boundingRect(chain);
    return {bounds.br().x, bounds.br().y};
}

template <class Combine>
void enter_binary(const std::string& name, Workload& work, Combine combine)
{
    for (const char* kind : {"KivRegion", "KivROI"}) {
        enter(kind + name, work, "peer:opencv", [&work, combine] {
            cv::Mat out;
            combine(work.a.mask, work.b.mask, out);
            return out;
        });
    }
}

} // namespace
} // namespace bench

void bench::enter_opencv(Workload& work)
{
    Shape& a = work.a;
    for (const char* function : {"KivRegionToVarArray", "KivRegionToPointArray"}) {
        enter(function, work, "peer:opencv", [&a] {
            std::vector<cv::Point> pixels;
            cv::findNonZero(a.mask, pixels);
            return pixels;
        });
    }
    for (const char* function : {"KivRegionToImage", "KivRegionToBinImage", "KivROIToBinImage"}) {
        enter(function, work, "peer:opencv", [&a] {
            cv::Mat image(a.mask.size(), CV_8UC1, cv::Scalar(0));
            image.setTo(255, a.mask);
            return image;
        });
    }
    enter("KivImageToMatrix", work, "calls:header", [&a] { return cv::Mat(a.mask); });
    enter("KivMatrixToImage", work, "calls:convertTo", [&a] {
        cv::Mat image;
        a.matrix().Mat().convertTo(image, CV_8U);
        return image;
    });
    enter("KivContourToRegion", work, "calls:clear+drawContours",
          [&a] { return filled({a.longest_chain()}, frame_of(a.longest_chain())); });
    enter("KivContourToVarArray", work, "peer:opencv_convertTo", [&a] {
        std::vector<cv::Point> pixels;
        cv::Mat(a.longest_contour().AllPoints()).convertTo(pixels, CV_32S);
        return pixels;
    });
    enter("KivVarArrayToContour", work, "peer:opencv_convertTo", [&a] {
        std::vector<cv::Point2d> points;
        cv::Mat(a.longest_chain()).convertTo(points, CV_64F);
        return points;
    });
}

void bench::enter_opencv_set_operations(Workload& work)
{
    enter_binary("And", work, [](const cv::Mat& a, const cv::Mat& b, cv::Mat& out) { cv::bitwise_and(a, b, out); });
    // Of masks of 0 and 255 the saturated difference is that of sets, and one pass less than and-not.
    enter_binary("Sub", work, [](const cv::Mat& a, const cv::Mat& b, cv::Mat& out) { cv::subtract(a, b, out); });
    enter_binary("Not", work, [](const cv::Mat& a, const cv::Mat&, cv::Mat& out) { cv::bitwise_not(a, out); });
}

void bench::enter_opencv_contour_arrays(Workload& work)
{
    Shape& a = work.a;
    enter("KivBinImageToContourArray", work, "calls:findContours", [&a] { return traced(a.mask); });
    for (const char* function : {"KivRegionToContourArray", "KivROIToContourArray"}) {
        enter(function, work, "calls:clear+findContours", [&a] {
            const cv::Mat cleared = cv::Mat::zeros(a.mask.size(), CV_8UC1);
            benchmark::DoNotOptimize(cleared.data);
            return traced(a.mask);
        });
    }
    enter("KivMergContour", work, "calls:copy+drawContours+findContours", [&a, &b = work.b] {
        cv::Mat copy = a.mask.clone();
        fill(copy, {b.longest_chain()});
        return traced(copy);
    });
    for (const char* function : {"KivContourArrayToRegion", "KivContourArrayToBinImage"}) {
        enter(function, work, "calls:clear+drawContours", [&a] { return filled(a.chains(), a.mask.size()); });
    }
}

void bench::enter_opencv_unions(Workload& work)
{
    enter_binary("Add", work, [](const cv::Mat& a, const cv::Mat& b, cv::Mat& out) { cv::bitwise_or(a, b, out); });
}

void bench::enter_opencv_run_shapes(Workload& work)
{
    const cv::Mat& mask = work.a.mask;
    enter("KivRuns::SummarizeComponents", work, "peer:opencv", [&mask] {
        ComponentStats components;
        cv::connectedComponentsWithStats(mask, components.labels, components.stats, components.centroids);
        return components;
    });
    const cv::Mat square = cv::Mat::ones(15, 15, CV_8UC1);
    enter("KivRuns::Dilate", work, "peer:opencv", [&mask, square] {
        cv::Mat out;
        cv::dilate(mask, out, square);
        return out;
    });
    enter("KivRuns::Erode", work, "peer:opencv", [&mask, square] {
        cv::Mat out;
        cv::erode(mask, out, square, cv::Point(-1, -1), 1, cv::BORDER_CONSTANT, cv::Scalar(0));
        return out;
    });
}
