// SPDX-License-Identifier: MIT
#include "algebra/set_operations.h"

#include "foundation/run_sort.h"

#include <algorithm>

namespace kiv
{

Frame result_frame(ResultFrame rule, Frame a, Frame b)
{
    if (rule == ResultFrame::of_a) {
        return a;
    }
    return {std::max(a.width, b.width), std::max(a.height, b.height)};
}

RunList combine(RunView a, RunView b, const SetOperation& operation)
{
    const ViewOrCopy<Run> a_by_row = by_row(a);
    const ViewOrCopy<Run> b_by_row = by_row(b);
    return join_rows(a_by_row, b_by_row, operation.rules, operation.combine_row);
}

} // namespace kiv
