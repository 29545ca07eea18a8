// SPDX-License-Identifier: MIT
#include "kivconvert/set_rules.h"

#include "kivconvert/conversions.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/result_codes.h"
#include "kivconvert/set_costs.h"

#include <KivDataConvert/KivDataConvert.h>

namespace kivconvert
{
namespace
{

/// The result of an operation on ROIs lies in the frame of the first one, also when nothing is left of it.
KivRegion region_in(const Frame& frame, KivROI& result, const std::string& subject)
{
    KivRegion region = region_of(result, subject);
    return region.Width() > 0 ? region : KivRegion(frame.width, frame.height, {});
}

KivRegion runs_of(const KivROI& roi)
{
    return KivRegion(roi.Parameters().Width(), roi.Parameters().Height(), roi.Parameters().MaskRuns());
}

KivRegion combined_as_rois(const RuledOperation& operation, const NamedContent& a, const NamedContent& b,
                           const std::string& subject)
{
    KivROI roi_a = roi_of(a.content, a.name);
    KivROI roi_b = roi_of(b.content, b.name);
    const double most_runs = operation.most_runs(runs_of(roi_a), runs_of(roi_b));
    expect_affordable(subject, most_runs, "runs", bytes_per_run);
    KivROI result;
    expect_success(operation.combine_rois(roi_a, roi_b, &result), subject);
    return region_in(frame_of(a.content), result, subject);
}

KivRegion combined_as_regions(const RuledOperation& operation, const NamedContent& a, const NamedContent& b,
                              const std::string& subject)
{
    KivRegion region_a = region_of(a.content, a.name);
    KivRegion region_b = region_of(b.content, b.name);
    expect_affordable(subject, operation.most_runs(region_a, region_b), "runs", bytes_per_run);
    KivRegion result;
    expect_success(operation.combine_regions(region_a, region_b, &result), subject);
    return result;
}

} // namespace

constexpr RuledOperation ruled_union{KIVMV::KivRegionAdd, KIVMV::KivROIAdd, most_runs_of_union};
constexpr RuledOperation ruled_intersection{KIVMV::KivRegionAnd, KIVMV::KivROIAnd, most_runs_of_intersection};
constexpr RuledOperation ruled_difference{KIVMV::KivRegionSub, KIVMV::KivROISub, most_runs_of_difference};

KivRegion combined(const RuledOperation& operation, Rules rules, const NamedContent& a, const NamedContent& b,
                   const std::string& subject)
{
    return rules == Rules::rois ? combined_as_rois(operation, a, b, subject)
                                : combined_as_regions(operation, a, b, subject);
}

KivRegion complement_of(Rules rules, const NamedContent& a)
{
    if (auto* const region = std::get_if<KivRegion>(&a.content)) {
        *region = with_rows_at_frame(*region);
    }
    if (rules == Rules::rois) {
        KivROI roi = roi_of(a.content, a.name);
        KivROI result;
        expect_success(KIVMV::KivROINot(roi, &result), a.name);
        return region_in(frame_of(a.content), result, a.name);
    }
    KivRegion region = region_of(a.content, a.name);
    KivRegion complement;
    expect_success(KIVMV::KivRegionNot(region, &complement), a.name);
    return complement;
}

} // namespace kivconvert
