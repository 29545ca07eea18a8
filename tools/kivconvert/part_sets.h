// SPDX-License-Identifier: MIT
// What one file is taken for: its connected parts, its labels, or one shape.
#pragma once

#include "kivconvert/contents.h"

#include <KivRLC/KivRunImages.h>
#include <KivRLC/KivRunMeasures.h>

#include <string>
#include <vector>

namespace kivconvert
{

/// Sets of pixels with their numbers, in the frame of the file that they are from.
struct Parts {
    std::vector<KivRuns::LabelledSet> sets;
    Frame frame;
};

struct PartKind {
    const char* name; ///< as --by has it

    /// @throws InputError, ResultError
    Parts (*parts_of)(const std::string& input, const Frame& frame, const ImagePart& part,
                      KivRuns::Connectivity connectivity);
    bool is_numbered; ///< whether there may be more than one
};

/// Those that --by may name: component, label and file.
const std::vector<PartKind>& part_kinds();

/// Null if there is none of the name.
const PartKind* find_part_kind(const std::string& name);

/// The components of a set, numbered from 1.
std::vector<KivRuns::LabelledSet> numbered_components(const KivRunSet& pixels, KivRuns::Connectivity connectivity);

} // namespace kivconvert
