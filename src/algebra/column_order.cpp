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

} // namespace kiv
