// SPDX-License-Identifier: MIT
// One check for each form of set operation, against the literal walk of the same operation.
#pragma once

#include "inputs.h"

#include <KivData/KivData.h>

#include <vector>

namespace fuzz
{

using Runs = std::vector<Run>;

/// The frame that a result has.
enum class ResultFrame { larger, of_a };

void check_regions(FuzzedBytes bytes, int (*operation)(KivRegion&, KivRegion&, KivRegion*), Runs (*walk)(Runs, Runs),
                   ResultFrame frame);

void check_rois(FuzzedBytes bytes, int (*operation)(KivROI&, KivROI&, KivROI*), Runs (*walk)(Runs, Runs),
                ResultFrame frame);

} // namespace fuzz
