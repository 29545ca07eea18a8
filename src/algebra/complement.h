// SPDX-License-Identifier: MIT
// The complement of a run list within a frame, for regions and ROIs.
#pragma once

#include "foundation/runs.h"

namespace kiv
{

enum class LastRowOfComplement {
    like_any,
    left_out, // the last row that has runs contributes neither gaps nor a full row
};

/// The rows of the frame without runs as full rows, and the gaps of the rows with runs: the full rows between two rows
/// with runs come before the gaps of the upper one. Nothing is clipped. An empty list has an empty complement.
RunList complement(RunView runs, Frame frame, LastRowOfComplement last_row);

} // namespace kiv
