// SPDX-License-Identifier: MIT
// What a shape may come as: an image, runs, a shape in words, contours or points.
#pragma once

#include <KivData/KivData.h>

#include <string>
#include <variant>
#include <vector>

namespace kivconvert
{

/// A size in pixels; 0 x 0 where none is known.
struct Frame {
    int width = 0;
    int height = 0;

    bool is_known() const { return width > 0 && height > 0; }
};

/// Contours, and the frame in pixels that they were traced in.
struct TracedContours {
    int width = 0;
    int height = 0;
    KivContourArray contours;

    /// Where the file tells it: the index of the outer border that each contour belongs to, its own for that one.
    std::vector<int> outers = {};
};

using Content = std::variant<KivImage, KivRegion, KivROI, TracedContours, KivPointArray>;

/// Reads a file: an image, or a text of one of the formats that tools/README.md tells; or takes a shape in words
/// ("roi:circle:320,240,100"). Shapes in words have no frame yet, and contours may have none.
///
/// @throws InputError for everything else, and for frames that are too large
Content read_content(const std::string& text);

/// The smallest frame that holds the pixels on which the points fall.
Frame extent_of(const KivPointArray& points);

/// The frame in which the content lies, that of points being their extent.
Frame frame_of(const Content& content);

/// Whether the content can lie in any frame, as shapes and contours can.
bool is_placeable(const Content& content);

/// Places what can lie in any frame in the given one; leaves other contents and, if the frame is not known, all as they
/// are.
void place(Content& content, const Frame& frame);

/// @throws InputError if the content lies in no frame yet, or in one that is too large
void expect_placed(const Content& content, const std::string& subject);

} // namespace kivconvert
