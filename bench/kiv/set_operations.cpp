// SPDX-License-Identifier: MIT
#include "contest.h"
#include "contestants.h"
#include "kiv/call.h"

#include <KivDataConvert/KivDataConvert.h>

#include <opencv2/core.hpp>

namespace bench
{
namespace
{

void enter_binary(const char* function, Workload& work, int (*operation)(KivRegion&, KivRegion&, KivRegion*))
{
    enter(function, work, "kiv", [operation, &work] {
        KivRegion out;
        succeed(operation(work.a.region(), work.b.region(), &out));
        return out;
    });
}

void enter_binary(const char* function, Workload& work, int (*operation)(KivROI&, KivROI&, KivROI*))
{
    enter(function, work, "kiv", [operation, &work] {
        KivROI out;
        succeed(operation(work.a.roi(), work.b.roi(), &out));
        return out;
    });
}

/// A complement, which gives a gap with a pixel or two of its neighbours.
template <class Result>
struct Complement {
    Result result;
    const cv::Mat* mask; // of what it is the complement
};

/// Everything but the pixels of the neighbours. A region's last row that has runs gives nothing; it is taken from the
/// mask.
template <class Result>
Outcome outcome_of(const Complement<Result>& complement)
{
    Outcome outcome = bench::outcome_of(complement.result);
    const cv::Mat& mask = *complement.mask;
    outcome.shown.setTo(0, mask);
    if constexpr (std::is_same_v<Result, KivRegion>) {
        int last = mask.rows - 1;
        while (cv::countNonZero(mask.row(last)) == 0) {
            --last;
        }
        cv::bitwise_not(mask.row(last), outcome.shown.row(last));
    }
    return outcome;
}

} // namespace
} // namespace bench

void bench::enter_kiv_set_operations(Workload& work)
{
    enter_binary("KivRegionAnd", work, KIVMV::KivRegionAnd);
    enter_binary("KivRegionSub", work, KIVMV::KivRegionSub);
    enter_binary("KivROIAnd", work, KIVMV::KivROIAnd);
    enter_binary("KivROISub", work, KIVMV::KivROISub);
    Shape& a = work.a;
    enter("KivRegionNot", work, "kiv", [&a] {
        Complement<KivRegion> complement{KivRegion(), &a.mask};
        succeed(KIVMV::KivRegionNot(a.region(), &complement.result));
        return complement;
    });
    enter("KivROINot", work, "kiv", [&a] {
        Complement<KivROI> complement{KivROI(), &a.mask};
        succeed(KIVMV::KivROINot(a.roi(), &complement.result));
        return complement;
    });
}

void bench::enter_kiv_unions(Workload& work)
{
    enter_binary("KivRegionAdd", work, KIVMV::KivRegionAdd);
    enter_binary("KivROIAdd", work, KIVMV::KivROIAdd);
}
