// SPDX-License-Identifier: MIT
// Plain run sets, beside Pixman's regions and Roaring's bitmaps.
#include "contest.h"
#include "contestants.h"

#include <KivRLC/KivRunMat.h>
#include <KivRLC/KivRunSet.h>

#include <memory>

namespace bench
{
namespace
{

struct SetIn {
    KivRunSet set;
    cv::Size frame;
};

Outcome outcome_of(const SetIn& result)
{
    return {KivRuns::ToMask(result.set, result.frame.width, result.frame.height),
            static_cast<double>(result.set.Runs().size())};
}

using LazySet = std::shared_ptr<Lazy<KivRunSet>>;

LazySet lazy_set(Shape& shape)
{
    return std::make_shared<Lazy<KivRunSet>>([&shape] { return KivRunSet(shape.runs()); });
}

} // namespace
} // namespace bench

void bench::enter_kiv_run_sets(Workload& work)
{
    const LazySet a = lazy_set(work.a);
    const LazySet b = lazy_set(work.b);
    const cv::Size frame = work.a.mask.size();
    enter("KivRunSetUnion", work, "kiv", [a, b, frame] { return SetIn{(*a)() | (*b)(), frame}; });
    enter("KivRunSetIntersection", work, "kiv", [a, b, frame] { return SetIn{(*a)() & (*b)(), frame}; });
    enter("KivRunSetDifference", work, "kiv", [a, b, frame] { return SetIn{(*a)() - (*b)(), frame}; });
    enter("KivRunSetSymmetricDifference", work, "kiv", [a, b, frame] { return SetIn{(*a)() ^ (*b)(), frame}; });
    enter("KivRunSetComplement", work, "kiv", [a, frame] {
        return SetIn{(*a)().Complement({0, frame.height - 1, 0, frame.width - 1}), frame};
    });
    enter("KivRunsFromRange", work, "kiv", [&work, frame] {
        return SetIn{KivRuns::FromRange(work.a.mask, 128, 255), frame};
    });
    enter("KivRunsFromRange", work, "floor:extraction", [&work, frame] {
        return SetIn{KivRuns::FromMask(work.a.mask), frame};
    });
}
