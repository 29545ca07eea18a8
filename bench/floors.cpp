// SPDX-License-Identifier: MIT
// The least that somebody who does a function's work has to do. What comes out is no shape, or only by chance.
#include "contest.h"
#include "contestants.h"

#include <KivRLC/KivRLC.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

namespace bench
{
namespace
{

/// Keeps a result from being compared.
template <class Result>
struct Unshown {
    Result result;
};
template <class Result>
Unshown(Result) -> Unshown<Result>;

std::vector<Run> extracted(cv::Mat& mask)
{
    std::vector<Run> runs;
    KivRLC::FindContours(mask, 1, nullptr, nullptr, nullptr, nullptr, &runs, nullptr, true, -1, -1, 1, false);
    return runs;
}

/// The mask's bytes, copied to where there is room already.
void enter_copied_mask(const char* function, Workload& work)
{
    auto target = std::make_shared<Lazy<cv::Mat>>([&work] { return work.a.mask.clone(); });
    enter(function, work, "floor:memcpy", [&mask = work.a.mask, target] {
        std::memcpy((*target)().data, mask.data, mask.total());
        return Unshown{target->operator()().data};
    });
}

void enter_cleared_mask(const char* function, Workload& work)
{
    enter(function, work, "floor:clear",
          [size = work.a.mask.size()] { return Unshown{cv::Mat(cv::Mat::zeros(size, CV_8UC1))}; });
}

void enter_copied_runs(const char* function, Workload& work)
{
    enter(function, work, "floor:copy_runs", [&a = work.a] { return Unshown{std::vector<Run>(a.runs())}; });
}

/// Both lists merged into one by row: every run read and written once.
void enter_merge(const char* function, Workload& work)
{
    enter(function, work, "floor:merge", [&work] {
        const std::vector<Run>& a = work.a.runs();
        const std::vector<Run>& b = work.b.runs();
        std::vector<Run> merged(a.size() + b.size());
        std::merge(a.begin(), a.end(), b.begin(), b.end(), merged.begin(),
                   [](const Run& left, const Run& right) { return left.row < right.row; });
        return Unshown{std::move(merged)};
    });
}

struct RunsRead {
    std::int64_t pixels;
    std::size_t runs;
};

Outcome outcome_of(const RunsRead& read)
{
    return {cv::Mat(), static_cast<double>(read.runs)};
}

/// Every run read once.
void enter_read_runs(const char* function, Workload& work)
{
    enter(function, work, "floor:read", [&a = work.a] {
        RunsRead read{0, a.runs().size()};
        for (const Run& run : a.runs()) {
            read.pixels += std::int64_t{run.colEnd} - run.colBegin + 1;
        }
        return read;
    });
}

/// The pixels painted into a mask of the shape's size, and its runs extracted.
void enter_paint_and_extract(Workload& work)
{
    enter("KivVarArrayToRegion", work, "floor:paint+extract", [&a = work.a] {
        cv::Mat mask = cv::Mat::zeros(a.mask.size(), CV_8UC1);
        const std::vector<int>& xs = *a.pixels().xs.PackedInts();
        const std::vector<int>& ys = *a.pixels().ys.PackedInts();
        for (std::size_t i = 0; i < xs.size(); ++i) {
            mask.ptr(ys[i])[xs[i]] = 255;
        }
        return Unshown{extracted(mask)};
    });
    enter("KivPointArrayToRegion", work, "floor:paint+extract", [&a = work.a] {
        cv::Mat mask = cv::Mat::zeros(a.mask.size(), CV_8UC1);
        for (const KivPoint& point : a.points()) {
            mask.ptr(static_cast<int>(point.y))[static_cast<int>(point.x)] = 255;
        }
        return Unshown{extracted(mask)};
    });
}

} // namespace
} // namespace bench

void bench::enter_floors(Workload& work)
{
    Shape& a = work.a;
    for (const char* function : {"KivImageToRegion", "KivBinImageToRegion", "KivBinImageToROI"}) {
        enter_copied_mask(function, work);
    }
    for (const char* function : {"KivRegionToImage", "KivRegionToBinImage", "KivROIToBinImage"}) {
        enter_cleared_mask(function, work);
    }
    enter_copied_runs("KivROIToRegion", work);
    enter_copied_runs("KivRegionToROI", work);
    enter_paint_and_extract(work);
    enter("KivRegionToVarArray", work, "floor:memset", [&a] {
        return Unshown{
            std::make_pair(std::vector<int>(a.points().Points().size()), std::vector<int>(a.points().Points().size()))};
    });
    enter("KivRegionToPointArray", work, "floor:memset",
          [&a] { return Unshown{std::vector<KivPoint>(a.points().Points().size())}; });
    enter("maxbit", work, "floor:copy+max", [&a] {
        const std::vector<int> rows = *a.run_arrays().rows.PackedInts();
        return Unshown{*std::max_element(rows.begin(), rows.end())};
    });
}

void bench::enter_floors_of_contours(Workload& work)
{
    Shape& a = work.a;
    enter("KivContourToPointArray", work, "floor:copy",
          [&a] { return Unshown{std::vector<KivPoint>(a.longest_points().Points())}; });
    enter("KivPointArrayToContour", work, "floor:copy",
          [&a] { return Unshown{std::vector<KivPoint>(a.longest_points().Points())}; });
}

void bench::enter_floors_of_contour_arrays(Workload& work)
{
    enter("KivBinImageToContourArray", work, "floor:read",
          [&mask = work.a.mask] { return Unshown{cv::countNonZero(mask)}; });
    enter("KivBinImageToContourArray", work, "floor:extraction",
          [&mask = work.a.mask] { return Unshown{extracted(mask)}; });
    enter_cleared_mask("KivContourArrayToBinImage", work);
    for (const char* function : {"KivBinImageToContourArray", "KivRegionToContourArray", "KivROIToContourArray"}) {
        enter(function, work, "floor:copy", [&a = work.a] { return Unshown{KivContourArray(a.contours())}; });
    }
}

void bench::enter_floors_of_set_operations(Workload& work)
{
    for (const char* function : {"KivRegionAnd", "KivROIAnd", "KivRegionSub", "KivROISub", "KivRunSetUnion",
                                 "KivRunSetIntersection", "KivRunSetDifference", "KivRunSetSymmetricDifference"}) {
        enter_merge(function, work);
    }
    for (const char* function : {"KivRegionNot", "KivROINot", "KivRunSetComplement"}) {
        enter_copied_runs(function, work);
    }
}

void bench::enter_floors_of_unions(Workload& work)
{
    enter_merge("KivRegionAdd", work);
    enter_merge("KivROIAdd", work);
}

void bench::enter_floors_of_run_shapes(Workload& work)
{
    enter("KivRunSet::Contains", work, "floor:halving", [&a = work.a] {
        const std::vector<Run>& runs = a.runs();
        const std::vector<cv::Point>& positions = a.positions();
        return std::count_if(positions.begin(), positions.end(), [&runs](const cv::Point& at) {
            const auto behind =
                std::upper_bound(runs.begin(), runs.end(), at, [](const cv::Point& pixel, const Run& run) {
                    return std::tie(pixel.y, pixel.x) < std::tie(run.row, run.colBegin);
                });
            return behind != runs.begin() && behind[-1].row == at.y && at.x <= behind[-1].colEnd;
        });
    });
    for (const char* function : {"KivRuns::BoundingBox", "KivRuns::Area", "KivRuns::Centroid", "KivRuns::MomentsOf",
                                 "KivRuns::EulerNumber", "KivRuns::CroftonPerimeter"}) {
        enter_read_runs(function, work);
    }
    for (const char* function :
         {"KivRuns::NumberComponents", "KivRuns::SummarizeComponents", "KivRuns::MeasureComponents",
          "KivRuns::FillHoles", "KivRuns::Dilate", "KivRuns::Erode", "KivRuns::FeretDiametersOf"}) {
        enter_copied_runs(function, work);
    }
}
