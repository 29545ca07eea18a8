// SPDX-License-Identifier: MIT
// The set operations of the library, which treat the ends of lists of runs by rules of their own.
#pragma once

#include "kivconvert/contents.h"

#include <string>

namespace kivconvert
{

/// By whose rules shapes are combined.
enum class Rules {
    plain,   ///< as sets of pixels
    regions, ///< as the library combines regions
    rois,    ///< as the library combines regions of interest
};

/// An operation of the library on two operands.
struct RuledOperation {
    int (*combine_regions)(KivRegion& a, KivRegion& b, KivRegion* out);
    int (*combine_rois)(KivROI& a, KivROI& b, KivROI* out);
    double (*most_runs)(const KivRegion& a, const KivRegion& b);
};

extern const RuledOperation ruled_union;
extern const RuledOperation ruled_intersection;
extern const RuledOperation ruled_difference;

/// An operand, and where it is from, for error messages.
struct NamedContent {
    Content& content;
    const std::string& name;
};

/// @param subject the operation, for error messages
/// @param rules not Rules::plain
/// @throws InputError if the result would exceed the memory limit, ResultError if the library refuses
KivRegion combined(const RuledOperation& operation, Rules rules, const NamedContent& a, const NamedContent& b,
                   const std::string& subject);

/// The complement by the same rules.
KivRegion complement_of(Rules rules, const NamedContent& a);

} // namespace kivconvert
