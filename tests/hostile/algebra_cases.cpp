// SPDX-License-Identifier: MIT
#include "cases.h"

#include "differential/literal_walks.h"

#include <climits>
#include <new>

namespace
{

using support::Combination;
using support::Runs;
using Walk = Runs (*)(Runs, Runs);

const std::vector<Runs>& hostile_lists()
{
    static const std::vector<Runs> lists = {
        {{INT_MIN, INT_MIN, INT_MAX}},
        {{INT_MIN, INT_MIN, INT_MIN}, {INT_MAX, INT_MAX, INT_MAX}},
        {{INT_MAX, INT_MIN, INT_MAX}, {0, INT_MIN, INT_MAX}, {INT_MIN, INT_MIN, INT_MAX}},
        {{0, INT_MAX, INT_MIN}, {1, INT_MAX, INT_MIN}},
        {{0, INT_MIN, -1}, {0, 1, INT_MAX}, {1, 0, 0}},
        {{0, INT_MIN, INT_MIN}, {0, INT_MAX, INT_MAX}, {0, 0, 0}, {1, INT_MAX - 1, INT_MAX}, {INT_MAX, 0, 0}},
        {{0, INT_MIN + 1, INT_MAX - 1}, {1, INT_MIN + 1, INT_MAX - 1}},
        {{0, 0, INT_MAX}, {0, INT_MIN, 0}, {0, INT_MAX, 0}, {-1, 0, 0}, {INT_MIN, 5, 4}},
    };
    return lists;
}

const KivRegion used_region(1, 1, {{0, 0, 0}});
const KivROI used_roi = KivROI::Mask({{0, 0, 0}}, 1, 1);

/// Every list with every list, wherever the output lies.
std::string every_pair(Combination<KivRegion> operation, Walk walk)
{
    for (const Runs& a : hostile_lists()) {
        for (const Runs& b : hostile_lists()) {
            const KivRegion region_a(INT_MAX, 1, a);
            const KivRegion result = support::combined(operation, region_a, KivRegion(1, INT_MAX, b), used_region);
            if (result.Runs() != walk(a, b)) {
                return support::described(a) + " with " + support::described(b) + ": " + support::described(result);
            }
        }
        const KivRegion itself = support::combined_with_itself(operation, KivRegion(1, 1, a), used_region);
        if (itself.Runs() != walk(a, a)) {
            return support::described(a) + " with itself: " + support::described(itself);
        }
    }
    return "as the walk";
}

std::string every_pair(Combination<KivROI> operation, Walk walk)
{
    for (const Runs& a : hostile_lists()) {
        for (const Runs& b : hostile_lists()) {
            const KivROI roi_a = KivROI::Mask(a, INT_MAX, 1);
            const KivROI result = support::combined(operation, roi_a, KivROI::Mask(b, 1, INT_MAX), used_roi);
            if (result.Parameters().MaskRuns() != walk(a, b)) {
                return support::described(a) + " with " + support::described(b) + ": " + support::described(result);
            }
        }
        const KivROI itself = support::combined_with_itself(operation, KivROI::Mask(a, 1, 1), used_roi);
        if (itself.Parameters().MaskRuns() != walk(a, a)) {
            return support::described(a) + " with itself: " + support::described(itself);
        }
    }
    return "as the walk";
}

/// What an operation gives whose output must not change when it raises.
template <class Operand>
std::string combined(Combination<Operand> operation, Operand a, Operand b, const Operand& used)
{
    Operand out(used);
    try {
        const int code = operation(a, b, &out);
        return hostile::outcome(code, out);
    } catch (const std::bad_alloc&) {
        if (out != used) {
            return "the output has changed";
        }
        throw;
    }
}

std::string combined(Combination<KivRegion> operation, KivRegion a, KivRegion b)
{
    return combined(operation, std::move(a), std::move(b), used_region);
}

std::string combined(Combination<KivROI> operation, KivROI a, KivROI b)
{
    return combined(operation, std::move(a), std::move(b), used_roi);
}

std::string complement(int width, int height, Runs runs)
{
    const auto of_region = [](KivRegion& a, KivRegion& /*b*/, KivRegion* out) { return KIVMV::KivRegionNot(a, out); };
    return combined(+of_region, KivRegion(width, height, std::move(runs)), KivRegion());
}

std::string roi_complement(int width, int height, Runs runs)
{
    const auto of_roi = [](KivROI& a, KivROI& /*b*/, KivROI* out) { return KIVMV::KivROINot(a, out); };
    return combined(+of_roi, KivROI::Mask(std::move(runs), width, height), KivROI());
}

/// So many runs on row 0 that all pairs of two such rows need more memory than there is, and a run on row 1.
Runs crowded_row()
{
    Runs runs;
    for (int i = 0; i < 3000; ++i) {
        runs.push_back({0, 0, i});
    }
    runs.push_back({1, 0, 0});
    return runs;
}

KivRegion crowded_region()
{
    return KivRegion(9, 9, crowded_row());
}

KivROI crowded_roi()
{
    return KivROI::Mask(crowded_row(), 9, 9);
}

} // namespace

hostile::Cases hostile::algebra_cases()
{
    using namespace KIVMV;
    const auto gone = [] { return moved_from(KivRegion(3, 3, {{0, 0, 0}})); };
    const auto gone_roi = [] { return moved_from(KivROI::Mask({{0, 0, 0}}, 3, 3)); };
    const auto region = [] { return KivRegion(INT_MAX, 0, {{INT_MIN, INT_MAX, INT_MIN}}); };
    const std::string same_region = "ok; 2147483647 x 0: (-2147483648, 2147483647, -2147483648)";
    const std::string empty_roi = "; type 3, 0 x 0";
    const std::string old_roi = "; type 8, 1 x 1: (0, 0, 0)";
    const Runs around_zero = {
        {0, INT_MIN, INT_MIN}, {0, INT_MAX, INT_MAX}, {0, 0, 0}, {1, INT_MIN, INT_MAX}, {2, 0, 0}};
    return {
        {"RegionUnions", [] { return every_pair(KivRegionAdd, literal::region_union); }, "as the walk"},
        {"RegionIntersections", [] { return every_pair(KivRegionAnd, literal::region_intersection); }, "as the walk"},
        {"RegionDifferences", [] { return every_pair(KivRegionSub, literal::region_difference); }, "as the walk"},
        {"RoiUnions", [] { return every_pair(KivROIAdd, literal::roi_union); }, "as the walk"},
        {"RoiIntersections", [] { return every_pair(KivROIAnd, literal::roi_intersection); }, "as the walk"},
        {"RoiDifferences", [] { return every_pair(KivROISub, literal::roi_difference); }, "as the walk"},

        {"UnionOfMovedFrom", [=] { return combined(KivRegionAdd, gone(), gone()); }, "parameter 1; 0 x 0: no runs"},
        {"UnionWithMovedFrom", [=] { return combined(KivRegionAdd, region(), gone()); }, same_region},
        {"IntersectionOfMovedFrom", [=] { return combined(KivRegionAnd, gone(), gone()); },
         "parameter 1; 0 x 0: no runs"},
        {"IntersectionWithMovedFrom", [=] { return combined(KivRegionAnd, gone(), region()); }, same_region},
        {"DifferenceOfMovedFrom", [=] { return combined(KivRegionSub, gone(), gone()); },
         "parameter 1; 0 x 0: no runs"},
        {"DifferenceWithMovedFrom", [=] { return combined(KivRegionSub, gone(), region()); }, same_region},
        {"RoiUnionOfMovedFrom", [=] { return combined(KivROIAdd, gone_roi(), gone_roi()); }, "parameter 1" + old_roi},
        {"RoiIntersectionWithMovedFrom", [=] { return combined(KivROIAnd, crowded_roi(), gone_roi()); },
         "parameter 2" + empty_roi},
        {"RoiDifferenceWithMovedFrom", [=] { return combined(KivROISub, gone_roi(), crowded_roi()); },
         "ok" + empty_roi},

        {"UnionOfMorePairsThanFit", [] { return combined(KivRegionAdd, crowded_region(), crowded_region()); },
         too_large},
        {"IntersectionOfMorePairsThanFit",
         [] {
             KivRegion third_row(9, 9, crowded_row());
             Runs below = crowded_row();
             below.push_back({2, 0, 0});
             return combined(KivRegionAnd, third_row, KivRegion(9, 9, below));
         },
         too_large},
        {"RoiUnionOfMorePairsThanFit", [] { return combined(KivROIAdd, crowded_roi(), crowded_roi()); }, too_large},
        {"RoiIntersectionOfMorePairsThanFit", [] { return combined(KivROIAnd, crowded_roi(), crowded_roi()); },
         too_large},

        {"ComplementOfMovedFrom",
         [] {
             KivRegion from = moved_from(KivRegion(3, 3, {}));
             KivRegion out(used_region);
             const int code = KivRegionNot(from, &out);
             return outcome(code, out);
         },
         "parameter 1; 1 x 1: (0, 0, 0)"},
        {"ComplementAroundTheLimits", [=] { return complement(INT_MAX, 2, around_zero); },
         "ok; 2147483647 x 2: " + support::described(literal::region_complement(around_zero, INT_MAX, 2))},
        {"ComplementOfLargestRow",
         [] {
             return complement(1, 1, {{INT_MAX, 0, 0}});
         },
         too_large},
        {"ComplementOfLowestRow",
         [] {
             return complement(1, 1, {{INT_MIN, 0, 0}});
         },
         too_large},
        {"ComplementOfTallestFrame",
         [] {
             return complement(1, INT_MAX, {{0, 0, 0}});
         },
         too_large},
        {"ComplementOfWidestFrame",
         [] {
             return complement(INT_MAX, 2, {{0, 0, 0}});
         },
         "ok; 2147483647 x 2: (1, 0, 2147483646)"},
        {"ComplementWithoutRuns", [] { return complement(INT_MAX, INT_MAX, {}); },
         "ok; 2147483647 x 2147483647: no runs"},
        {"RoiComplementAroundTheLimits", [=] { return roi_complement(INT_MAX, 2, around_zero); },
         "ok; type 8, 2147483647 x 2: " + support::described(literal::roi_complement(around_zero, INT_MAX, 2))},
        {"RoiComplementOfLargestRow",
         [] {
             return roi_complement(1, 1, {{INT_MAX, 0, 0}});
         },
         too_large},
        {"RoiComplementOfTallestFrame",
         [] {
             return roi_complement(1, INT_MAX, {{0, 0, 0}});
         },
         too_large},
        {"RoiComplementWithoutColumns",
         [] {
             return roi_complement(0, 1, {{0, 0, 0}});
         },
         "ok; type 8, 0 x 1: " + support::described(literal::roi_complement({{0, 0, 0}}, 0, 1))},
    };
}
