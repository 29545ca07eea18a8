// SPDX-License-Identifier: MIT
/// @file
/// Morphology of sets of pixels: dilation, erosion, opening, closing, gradient. This header needs no OpenCV.
///
/// The plane is unbounded, and everything outside a set is background. With B + p for the element B moved so that its
/// origin (0, 0) comes to p, the convention is (Heijmans 1994):
///
/// - the erosion of A by B is the set of the places p where B fits: B + p lies in A;
/// - the dilation of A by B is the union of all B + a with a in A. It is the adjoint of erosion: the dilation of A lies
/// in
///   C exactly if A lies in the erosion of C;
/// - the opening of A is the dilation of its erosion: the union of all B + p that lie in A. It never adds a pixel;
/// - the closing of A is the erosion of its dilation. It never removes a pixel.
///
/// So opening and closing are idempotent, and do not depend on where the element's origin lies, also for elements that
/// are not symmetric or have even sizes. (Where dilation is defined as "B + p meets A", as in OpenCV, the element is
/// the one here turned by 180 degrees; the two agree for symmetric elements.)
///
/// Operations return new sets. All of them throw std::bad_alloc if memory runs out.
#pragma once

#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRunBox.h>
#include <KivRLC/KivRunSet.h>

#include <vector>

namespace KivRuns
{

/// A structuring element: a set of pixels about an origin, prepared for morphology. A value; it can be used many times.
class KIVRLC_API Element
{
public:
    /// Any set; its origin is pixel (0, 0), which need not belong to it.
    ///
    /// Cost: linear in the runs.
    ///
    /// @throws std::bad_alloc if memory runs out.
    Element(const KivRunSet& pixels); // NOLINT(google-explicit-constructor): a set is an element

    /// A rectangle of `width` columns and `height` rows about its centre. Where a size is even, the origin is the right
    /// or lower one of the two pixels in the middle: columns -(width / 2) to (width - 1) / 2, and rows likewise, where
    /// OpenCV puts the anchor.
    ///
    /// @throws std::invalid_argument if a size is less than 1.
    static Element Rectangle(int width, int height);

    /// The pixels (x, y) with x^2 + y^2 <= radius^2.
    ///
    /// Cost: linear in the radius.
    ///
    /// @param radius in pixels, 0 to 2^30; need not be whole
    /// @throws std::invalid_argument if it is not.
    static Element Disk(double radius);

    /// The element's pixels as rectangles of one run or more of the same columns on successive rows, none of which can
    /// be made higher.
    const std::vector<KivRunBox>& Boxes() const noexcept { return boxes_; }

private:
    Element() = default;

    std::vector<KivRunBox> boxes_;
};

/// The dilation: the union of copies of the element, with the origin at each pixel of the set. Of an empty set or by an
/// empty element it is empty.
///
/// Cost, of dilation and erosion: for a rectangle, linear in the runs times 1 + log2(height), whatever the width; for
/// other elements that times the element's boxes, and for dilation times the logarithm of their number, too, at worst.
///
/// @throws std::overflow_error if a pixel's coordinates would be beyond int.
KIVRLC_API KivRunSet Dilate(const KivRunSet& set, const Element& element);

/// The erosion: the places where the element fits into the set.
///
/// @throws std::invalid_argument if the element is empty: it fits everywhere, and no set holds the whole plane.
/// @throws std::overflow_error if a place's coordinates would be beyond int.
KIVRLC_API KivRunSet Erode(const KivRunSet& set, const Element& element);

/// The opening: the union of all copies of the element that fit into the set.
///
/// @throws std::invalid_argument if the element is empty.
KIVRLC_API KivRunSet Open(const KivRunSet& set, const Element& element);

/// The closing: the places where the element fits into the dilation of the set; it lies in the set's bounding box.
///
/// @throws std::invalid_argument if the element is empty.
/// @throws std::overflow_error if the set and the element together are more than 2^32 columns wide or rows high.
KIVRLC_API KivRunSet Close(const KivRunSet& set, const Element& element);

/// The morphological gradient: the dilation without the erosion (Beucher's). With the origin in the element, it is a
/// band along the border of the set.
///
/// @throws std::invalid_argument if the element is empty.
/// @throws std::overflow_error if a pixel's coordinates would be beyond int.
KIVRLC_API KivRunSet Gradient(const KivRunSet& set, const Element& element);

} // namespace KivRuns
