// SPDX-License-Identifier: MIT
// Measures, components and morphology of run sets.
#include "contest.h"
#include "contestants.h"

#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunMeasures.h>
#include <KivRLC/KivRunMorphology.h>

#include <algorithm>
#include <vector>

namespace
{

constexpr auto connectivity = KivRuns::Connectivity::Eight;

} // namespace

void bench::enter_kiv_run_shapes(Workload& work)
{
    Shape& a = work.a;
    enter("KivRunSet::Contains", work, "kiv", [&a] {
        const KivRunSet& set = a.run_set();
        const std::vector<cv::Point>& positions = a.positions();
        return std::count_if(positions.begin(), positions.end(),
                             [&set](const cv::Point& at) { return set.Contains(at.x, at.y); });
    });
    enter("KivRuns::BoundingBox", work, "kiv", [&a] { return KivRuns::BoundingBox(a.run_set()); });
    enter("KivRuns::Area", work, "kiv", [&a] { return a.run_set().Area(); });
    enter("KivRuns::Centroid", work, "kiv", [&a] { return KivRuns::Centroid(a.run_set()); });
    enter("KivRuns::MomentsOf", work, "kiv", [&a] { return KivRuns::MomentsOf(a.run_set()); });
    enter("KivRuns::EulerNumber", work, "kiv", [&a] { return KivRuns::EulerNumber(a.run_set(), connectivity); });
    enter("KivRuns::CroftonPerimeter", work, "kiv", [&a] { return KivRuns::CroftonPerimeter(a.run_set()); });
    enter("KivRuns::FeretDiametersOf", work, "kiv", [&a] { return KivRuns::FeretDiametersOf(a.run_set()); });
    enter("KivRuns::NumberComponents", work, "kiv",
          [&a] { return KivRuns::NumberComponents(a.run_set(), connectivity); });
    enter("KivRuns::SummarizeComponents", work, "kiv",
          [&a] { return KivRuns::SummarizeComponents(a.run_set(), connectivity); });
    enter("KivRuns::MeasureComponents", work, "kiv",
          [&a] { return KivRuns::MeasureComponents(a.run_set(), connectivity); });
    enter("KivRuns::FillHoles", work, "kiv", [&a] {
        return InFrame{KivRuns::FillHoles(a.run_set(), connectivity), a.mask.size()};
    });
    const auto square = KivRuns::Element::Rectangle(15, 15);
    enter("KivRuns::Dilate", work, "kiv", [&a, square] {
        return InFrame{KivRuns::Dilate(a.run_set(), square), a.mask.size()};
    });
    enter("KivRuns::Erode", work, "kiv", [&a, square] {
        return InFrame{KivRuns::Erode(a.run_set(), square), a.mask.size()};
    });
}
