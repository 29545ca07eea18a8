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

RunList combine(RunList a, RunList b, const SetOperation& operation)
{
    sort_by_row(a);
    sort_by_row(b);
    return join_rows(a, b, operation.rules, operation.combine_row);
}

} // namespace kiv
