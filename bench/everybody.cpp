// SPDX-License-Identifier: MIT
#include "contestants.h"

namespace bench
{
namespace
{

void enter_conversions(Workload& work)
{
    enter_kiv_arrays(work);
    enter_kiv_raster(work);
    enter_kiv_contours(work);
    enter_kiv_rois(work);
    enter_floors(work);
    enter_opencv(work);
#ifdef KIV_BENCH_OPENCV_RUNS
    enter_opencv_runs(work);
#endif
#ifdef KIV_BENCH_PIXMAN
    enter_pixman(work);
#endif
}

void enter_set_operations(Workload& work)
{
    enter_kiv_set_operations(work);
    enter_floors_of_set_operations(work);
    enter_opencv_set_operations(work);
#ifdef KIV_BENCH_PIXMAN
    enter_pixman_set_operations(work);
#endif
#ifdef KIV_BENCH_ROARING
    enter_roaring_set_operations(work);
#endif
}

void enter_unions(Workload& work)
{
    enter_kiv_unions(work);
    enter_floors_of_unions(work);
    enter_opencv_unions(work);
#ifdef KIV_BENCH_PIXMAN
    enter_pixman_unions(work);
#endif
#ifdef KIV_BENCH_ROARING
    enter_roaring_unions(work);
#endif
}

} // namespace
} // namespace bench

void bench::enter_everybody()
{
    for (const Workloads* kind : {&workloads(), &growing_workloads()}) {
        for (Workload* work : *kind) {
            enter_conversions(*work);
            enter_set_operations(*work);
        }
    }
    for (const Workloads* kind : {&union_workloads(), &growing_workloads()}) {
        for (Workload* work : *kind) {
            enter_unions(*work);
        }
    }
    enter_sorts();
}
