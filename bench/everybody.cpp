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
    enter_floors_of_contours(work);
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
    enter_kiv_run_sets(work);
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

void enter_run_shapes(Workload& work)
{
    enter_kiv_run_shapes(work);
    enter_floors_of_run_shapes(work);
    enter_opencv_run_shapes(work);
#ifdef KIV_BENCH_OPENCV_RUNS
    enter_opencv_runs_morphology(work);
#endif
}

/// The library alone, and the floors, which show how much of the growth is the machine's.
void enter_growth()
{
    for (Workload* work : growing_rows()) {
        enter_kiv_arrays(*work);
        enter_kiv_raster(*work);
        enter_kiv_rois(*work);
        enter_kiv_set_operations(*work);
        enter_kiv_run_sets(*work);
        enter_kiv_unions(*work);
        enter_kiv_run_shapes(*work);
        enter_floors(*work);
        enter_floors_of_set_operations(*work);
        enter_floors_of_unions(*work);
        enter_floors_of_run_shapes(*work);
    }
    for (Workload* work : growing_outline()) {
        enter_kiv_contours(*work);
        enter_floors_of_contours(*work);
    }
    for (Workload* work : few_growing_rows()) {
        enter_kiv_contour_arrays(*work);
        enter_floors_of_contour_arrays(*work);
        enter_opencv_contour_arrays(*work);
    }
}

} // namespace
} // namespace bench

void bench::enter_everybody()
{
    for (Workload* work : workloads()) {
        enter_conversions(*work);
        enter_set_operations(*work);
        enter_run_shapes(*work);
    }
    for (Workload* work : lighter_workloads()) {
        enter_unions(*work);
        enter_kiv_contour_arrays(*work);
        enter_floors_of_contour_arrays(*work);
        enter_opencv_contour_arrays(*work);
    }
    enter_growth();
    enter_sorts();
}
