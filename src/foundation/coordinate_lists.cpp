// SPDX-License-Identifier: MIT
#include "foundation/coordinate_lists.h"

#include "seam/data_types.h"

#include <cstddef>
#include <utility>

void kiv::fill_coordinates(KivVarArray& xs, KivVarArray& ys, std::vector<int> columns, std::vector<int> rows)
{
    if (&xs != &ys) {
        fill(xs, std::move(columns));
        fill(ys, std::move(rows));
        return;
    }
    std::vector<int> in_turn;
    in_turn.reserve(2 * columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        in_turn.push_back(columns[i]);
        in_turn.push_back(rows[i]);
    }
    fill(xs, std::move(in_turn));
}
