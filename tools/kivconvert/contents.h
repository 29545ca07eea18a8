// SPDX-License-Identifier: MIT
// The inputs that describe a shape: images, runs, shapes as text, contours and points.
#pragma once

#include "kivconvert/image_files.h"

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

    /// If the file says it, the index of the outer border that each contour belongs to, or else nothing.
    std::vector<int> outers = {};
};

using Content = std::variant<KivImage, KivRegion, KivROI, TracedContours, KivPointArray>;

/// Reads a file: an image, or a text of one of the formats that the manual page describes; or parses a shape
/// ("roi:circle:320,240,100"). Shapes as text have no frame yet, and contours may have none.
///
/// @param part what is read of an image; for other files it means nothing
/// @throws InputError for everything else, and for frames that are too large
Content read_content(const std::string& text, const ImagePart& part = {});

/// Whether a text names a COCO data set. Reads no further than it must.
bool is_data_set(const std::string& text);

/// For what has been read of `text`. @throws InputError if `part` asks for what it does not have
void expect_use_for_part(const std::string& text, const Content& content, const ImagePart& part);

/// The smallest frame that holds the pixels on which the points fall.
Frame extent_of(const KivPointArray& points);

/// The frame in which the content lies, that of points being their extent.
Frame frame_of(const Content& content);

/// Whether the content can lie in any frame, as shapes, contours and runs without a frame can.
bool is_placeable(const Content& content);

/// Places what can lie in any frame in the given one; leaves other contents and, if the frame is not known, all as they
/// are.
void place(Content& content, const Frame& frame);

/// @throws InputError if the content lies in no frame yet, or in one that is too large
void require_frame(const Content& content, const std::string& subject);

} // namespace kivconvert
