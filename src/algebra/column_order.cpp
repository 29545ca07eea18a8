// SPDX-License-Identifier: MIT
#include "algebra/column_order.h"

namespace kiv
{

void ByColumn::sort()
{
    copy_.assign(runs_.begin(), runs_.end());
    std::stable_sort(copy_.begin(), copy_.end(), begins_before);
    runs_ = copy_;
}

void for_each_in_any_order(RunView a, RunView b, const std::function<void(const Run&, Reach)>& visit)
{
    const auto ends_before = [](const Run& run, int column) { return end_of(run) < column; };
    const bool b_climbs = climbs(b);
    for (const Run& run : a) {
        if (b_climbs && begin_of(run) <= end_of(run)) {
            const auto first = std::lower_bound(b.begin(), b.end(), begin_of(run), ends_before);
            visit(run, Reach({first, b.end()}, end_of(run)));
        } else {
            visit(run, Reach(b, std::numeric_limits<int>::max()));
        }
    }
}

} // namespace kiv
