// SPDX-License-Identifier: MIT
// Operations on run sets and measures of contours in several threads at once, on operands that all of them share:
// reading never changes a set, not even for a moment.
#include "concurrent_calls.h"

#include <KivData/KivContourMeasures.h>
#include <KivData/KivLevelContours.h>
#include <KivRLC/KivRunCoco.h>
#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunMeasures.h>
#include <KivRLC/KivRunMorphology.h>
#include <KivRLC/KivRunOutlines.h>
#include <KivRLC/KivRunSet.h>
#include <KivRLC/KivRunTransforms.h>

#include <gtest/gtest.h>

#include <sstream>

namespace
{

constexpr auto connectivity = KivRuns::Connectivity::Eight;

void print(std::ostream& out, const KivRunSet& set)
{
    for (const Run& run : set.Runs()) {
        out << run.row << ' ' << run.colBegin << ' ' << run.colEnd << "; ";
    }
}

void print(std::ostream& out, const KivContour& contour)
{
    for (const cv::Point_<double>& point : contour.AllPoints()) {
        out << point << ' ';
    }
}

TEST(SharedRunSets, GiveTheResultsOfASingleThread)
{
    const KivRunSet a{{0, 0, 6}, {1, 0, 0}, {1, 6, 6}, {2, 0, 6}, {4, 2, 9}};
    const KivRunSet b{{1, 3, 4}, {2, 5, 8}, {7, 0, 0}};
    const KivRunBox box = {0, 9, 0, 9};
    const auto results = [&] {
        std::ostringstream out;
        for (const KivRunSet& set : {a | b, a & b, a - b, a ^ b, a.Complement(box), KivRunSet::Union({a, b, a})}) {
            print(out, set);
        }
        for (const KivRunSet& set : {KivRuns::Turn(a, 1, box), KivRuns::ScaleDown(a, 2, 2, KivRuns::BlockRule::Any),
                                     KivRuns::FillHoles(a, connectivity), KivRuns::Dilate(a, b)}) {
            print(out, set);
        }
        out << a.Area() << a.Contains(3, 1) << a.Intersects(b) << a.UnionArea(b) << ' ' << (a == b);
        out << KivRuns::EulerNumber(a, connectivity) << KivRuns::MomentsOf(a).xx << ' '
            << KivRuns::Components(a, connectivity).size() << KivRuns::OutlinesOf(a).rings.size()
            << KivRuns::ToCocoText(a, 10, 10);
        return out.str();
    };
    EXPECT_EQ(threads::results_of_threads(results), threads::always(results()));
}

TEST(SharedContours, GiveTheResultsOfASingleThread)
{
    const KivContour contour = {{1, 1}, {2, 5}, {3, 5.25}, {9, 1}};
    const cv::Mat image(4, 5, CV_8UC1, cv::Scalar(7));
    const auto results = [&] {
        std::ostringstream out;
        out << KivContours::Length(contour) << KivContours::Centroid(contour) << KivContours::Orientation(contour);
        print(out, KivContours::Simplified(contour, 0.5));
        print(out, KivContours::Resampled(contour, 5));
        print(out, KivContours::AtLevel(image, 3)[0]);
        return out.str();
    };
    EXPECT_EQ(threads::results_of_threads(results), threads::always(results()));
}

} // namespace
