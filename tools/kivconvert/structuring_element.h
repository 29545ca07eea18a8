// SPDX-License-Identifier: MIT
// --size, --disk and --element: the structuring element of morphology.
#pragma once

#include "kivconvert/cli_types.h"
#include "kivconvert/contents.h"

#include <KivRLC/KivRunMorphology.h>

#include <cstddef>
#include <optional>
#include <string>

namespace kivconvert
{

/// A structuring element, and what its size costs.
struct StructuringElement {
    KivRuns::Element element;
    std::size_t runs = 0;
    Frame extent; ///< of its pixels
};

/// One of three ways to give an element.
struct ElementOptions {
    std::string size; ///< "WIDTHxHEIGHT"
    std::optional<double> disk;
    std::string file;
};

/// Adds the three options, one of which must be given.
void add_element_options(CLI::App& command, ElementOptions& options);

/// The element that the options describe. That of a file is the pixels in its frame, with the origin in the middle:
/// where the frame's size is even, in the right or lower one of the two pixels there.
/// @throws InputError, also if it has no pixels
StructuringElement element_of(const ElementOptions& options);

} // namespace kivconvert
