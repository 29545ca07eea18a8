// SPDX-License-Identifier: MIT
// Measures of a set in one pass over its runs.
//
// Each run starts a component or joins some, so runs minus touching pairs count components minus holes (Bishnu,
// Bhattacharya, Kundu, Murthy, Acharya 2005); pixels minus those with a pixel above count the entries of vertical
// lines, and likewise for diagonal ones; runs count those of horizontal lines.
#include "run_measures.h"

#include "bit_rows.h"
#include "common/fetch_ahead.h"
#include "run_checks.h"
#include "run_sums.h"

#include <KivRLC/KivRunComponents.h>

#include <cmath>

namespace
{

kivrlc::BorderSums border_sums(KivRunView runs)
{
    kivrlc::BorderSums sums;
    for (const Run& run : runs) {
        sums.add(run);
    }
    kivrlc::for_each_touching_pair(runs, kivrlc::by_corners,
                                   [&](const Run& above, const Run& run) { sums.add_pair(above, run); });
    return sums;
}

template <class Sums>
Sums sums_of(const KivRunSet& set, const char* what)
{
    kivrlc::require<std::invalid_argument>(!set.Empty(), what);
    Sums sums;
    for (const Run& run : set.Runs()) {
        kivcommon::fetch_ahead(&run, sizeof run);
        sums.add(run);
    }
    return sums;
}

} // namespace

KivRunBox KivRuns::BoundingBox(const KivRunSet& set)
{
    kivrlc::require<std::invalid_argument>(!set.Empty(), "KivRuns::BoundingBox: an empty set has no bounding box");
    return kivrlc::box_of(set.Runs());
}

KivRuns::Place KivRuns::Centroid(const KivRunSet& set)
{
    return sums_of<kivrlc::PlaceSums>(set, "KivRuns::Centroid: an empty set has no centroid").centroid();
}

KivRuns::Moments KivRuns::MomentsOf(const KivRunSet& set)
{
    return sums_of<kivrlc::MomentSums>(set, "KivRuns::MomentsOf: an empty set has no centroid").moments();
}

KivRuns::Ellipse KivRuns::EllipseOf(const Moments& moments) noexcept
{
    const auto area = static_cast<double>(moments.area);
    const double mean = (moments.xx + moments.yy) / (2 * area);
    const double difference = (moments.xx - moments.yy) / (2 * area);
    const double spread = std::hypot(difference, moments.xy / area);
    const double angle = std::atan2(moments.xy / area, difference) / 2;
    return {4 * std::sqrt(mean + spread), 4 * std::sqrt(std::max(0.0, mean - spread)), angle};
}

std::int64_t KivRuns::EdgePerimeter(const KivRunSet& set) noexcept
{
    return border_sums(set.Runs()).edge_perimeter();
}

double KivRuns::CroftonPerimeter(const KivRunSet& set) noexcept
{
    return border_sums(set.Runs()).crofton_perimeter();
}

std::int64_t KivRuns::EulerNumber(const KivRunSet& set, Connectivity connectivity) noexcept
{
    auto number = static_cast<std::int64_t>(set.Runs().size());
    const std::int64_t reach = kivrlc::reach_of(connectivity);
    kivrlc::BitRows bit_rows(reach);
    kivrlc::for_each_row(set.Runs(), [&](const Run* above, const Run* above_end, const Run* run, const Run* row_end) {
        if (above == above_end) {
            return;
        }
        const kivrlc::RowRuns upper{above, above_end};
        const kivrlc::RowRuns lower{run, row_end};
        if (!kivrlc::BitRows::suit(upper, lower)) {
            kivrlc::for_each_near_pair(upper, lower, [&number, reach](const Run& of_upper, const Run& of_lower) {
                number -= kivrlc::touch(of_upper, of_lower, reach) ? 1 : 0;
            });
            return;
        }
        number -= bit_rows.touching_pairs(upper, lower);
    });
    return number;
}

std::int64_t KivRuns::HoleCount(const KivRunSet& set, Connectivity connectivity)
{
    return NumberComponents(set, connectivity).count - EulerNumber(set, connectivity);
}

KivRuns::Measures KivRuns::Measure(const KivRunSet& set, Connectivity connectivity)
{
    const auto sums = sums_of<kivrlc::MomentSums>(set, "KivRuns::Measure: an empty set cannot be measured");
    const kivrlc::BorderSums borders = border_sums(set.Runs());
    return {sums.place.box, sums.moments(), borders.edge_perimeter(), borders.crofton_perimeter(),
            borders.euler_number(connectivity)};
}
