// SPDX-License-Identifier: MIT
// Enters everybody on a workload. Peers that are not installed are left out.
#pragma once

#include "workloads.h"

namespace bench
{

// This library.
void enter_kiv_arrays(Workload& work);
void enter_kiv_raster(Workload& work);
void enter_kiv_contours(Workload& work);
void enter_kiv_rois(Workload& work);
void enter_kiv_contour_arrays(Workload& work);
void enter_kiv_set_operations(Workload& work); // but unions
void enter_kiv_unions(Workload& work);
void enter_kiv_run_shapes(Workload& work);
void enter_kiv_run_sets(Workload& work);

// Peers and floors, which take part in any of these.
void enter_opencv(Workload& work);
void enter_opencv_set_operations(Workload& work);
void enter_opencv_contour_arrays(Workload& work);
void enter_opencv_unions(Workload& work);
void enter_opencv_run_shapes(Workload& work);
void enter_opencv_runs(Workload& work);
void enter_opencv_runs_morphology(Workload& work);
void enter_pixman(Workload& work);
void enter_pixman_set_operations(Workload& work);
void enter_pixman_unions(Workload& work);
void enter_roaring_set_operations(Workload& work);
void enter_roaring_unions(Workload& work);
void enter_floors(Workload& work);
void enter_floors_of_contours(Workload& work);
void enter_floors_of_contour_arrays(Workload& work);
void enter_floors_of_set_operations(Workload& work);
void enter_floors_of_unions(Workload& work);
void enter_floors_of_run_shapes(Workload& work);

// radixsort, which has workloads of its own, and its peers.
void enter_sorts();

void enter_everybody();

} // namespace bench
