// SPDX-License-Identifier: MIT
// The rules that each set operation follows. Two operations that differ in one rule differ in one line. row_join.h
// defines the rules.
#pragma once

#include "algebra/row_join.h"
#include "algebra/run_pairs.h"
#include "seam/data_types.h"

#include <optional>

namespace kiv
{

enum class ResultFrame {
    larger, // as wide as the wider and as high as the higher operand
    of_a,
};

struct SetOperation {
    JoinRules rules;
    RunList (*join)(RunView a, RunView b, const JoinRules& rules);
    std::optional<PlainOperation> of_sets; // what sets give except at the ends of the lists
    ResultFrame frame;
};

inline constexpr SetOperation region_union = {
    .rules = {.single_run_of_a = SingleRunOfA::kept,
              .last_row_of_a = LastRowOfA::lone_run_joins_unmatched_group,
              .last_row_of_b = LastRowOfB::like_any,
              .rows_only_in_a = UnmatchedRows::kept,
              .rows_only_in_b = UnmatchedRows::kept},
    .join = join_rows<unite_row>,
    .of_sets = std::nullopt,
    .frame = ResultFrame::larger,
};

inline constexpr SetOperation roi_union = {
    .rules = {.single_run_of_a = SingleRunOfA::dropped,
              .last_row_of_a = LastRowOfA::never_a_group,
              .last_row_of_b = LastRowOfB::withheld_unless_single_run,
              .rows_only_in_a = UnmatchedRows::kept,
              .rows_only_in_b = UnmatchedRows::kept},
    .join = join_rows<unite_row>,
    .of_sets = std::nullopt,
    .frame = ResultFrame::larger,
};

inline constexpr SetOperation region_intersection = {
    .rules = {.single_run_of_a = SingleRunOfA::dropped,
              .last_row_of_a = LastRowOfA::like_any,
              .last_row_of_b = LastRowOfB::withheld,
              .rows_only_in_a = UnmatchedRows::dropped,
              .rows_only_in_b = UnmatchedRows::dropped},
    .join = join_rows<intersect_row>,
    .of_sets = PlainOperation::intersection,
    .frame = ResultFrame::of_a,
};

inline constexpr SetOperation roi_intersection = {
    .rules = {.single_run_of_a = SingleRunOfA::dropped,
              .last_row_of_a = LastRowOfA::like_any,
              .last_row_of_b = LastRowOfB::withheld_unless_single_run,
              .rows_only_in_a = UnmatchedRows::dropped,
              .rows_only_in_b = UnmatchedRows::dropped},
    .join = join_rows<intersect_row>,
    .of_sets = PlainOperation::intersection,
    .frame = ResultFrame::of_a,
};

inline constexpr SetOperation difference = {
    // of regions and of ROIs alike
    .rules = {.single_run_of_a = SingleRunOfA::kept,
              .last_row_of_a = LastRowOfA::lone_run_joins_unmatched_group,
              .last_row_of_b = LastRowOfB::like_any,
              .rows_only_in_a = UnmatchedRows::kept,
              .rows_only_in_b = UnmatchedRows::dropped},
    .join = join_rows<cut_row>,
    .of_sets = PlainOperation::difference,
    .frame = ResultFrame::of_a,
};

/// The frame of a result, from the frames of the operands.
Frame result_frame(ResultFrame rule, Frame a, Frame b);

/// Combines two lists, whose rows may be in any order.
RunList combine(RunView a, RunView b, const SetOperation& operation);

} // namespace kiv
