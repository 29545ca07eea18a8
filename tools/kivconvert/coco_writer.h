// SPDX-License-Identifier: MIT
// Annotations of COCO data sets as text.
#pragma once

#include "kivconvert/placed_pixels.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kivconvert
{

/// How the pixels of an annotation are written.
enum class Segmentation {
    as_is,    ///< as they are
    counts,   ///< packed
    polygons, ///< along the edges of the pixels, which are exactly what is inside by the even-odd rule
};

/// What is changed in annotations.
struct CocoChange {
    Segmentation segmentation = Segmentation::as_is;
    bool measures = false; ///< areas and boxes become those of the pixels
};

/// The value of "segmentation". @throws InputError if it would exceed the memory limit
std::string segmentation_text(const PlacedPixels& placed, Segmentation segmentation);

/// The members of a new annotation behind its ids, and the closing brace.
/// @param category the id
std::string annotation_members(const PlacedPixels& placed, Segmentation segmentation, int category);

/// An annotation with other pixels, and with everything else as it stands. Crowds, which are counts in data sets, do
/// not become polygons.
/// @param text one JSON object
std::string changed_annotation(std::string_view text, const PlacedPixels& placed, const CocoChange& change);

} // namespace kivconvert
