// SPDX-License-Identifier: MIT
// The seam to the data types: everything that the algorithms need from regions, ROIs, arrays and images, except for the
// few members that an exported function calls directly.
//
// Two sources define these functions. data_types_contract.cpp uses only what the contract of the data types lists, so
// the library can be built on any implementation of them. bundled/data_types_bundled.cpp has the same results by faster
// operations, which only the bundled types offer. A library is linked with one of the two.
#pragma once

#include "foundation/pixels.h"
#include "foundation/runs.h"

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace kiv
{

// Regions.

/// The frame and the runs of a region, in the order in which it delivers them. The runs may be a view of the region.
FramedRuns parts_of(KivRegion& region);

/// Replaces a region by one of the given frame and runs.
void create_region(KivRegion& region, Frame frame, RunList runs);

// Masks of ROIs.

/// The frame and the runs of an ROI's mask. The runs may be a view of the ROI.
FramedRuns mask_of(const KivROI& roi);

/// What an ROI's parameters paint of its mask: 255 on 0 in its frame.
cv::Mat painted_mask_of(KivROI& roi);

/// Whether the mask of the ROI, given as `mask`, has a column once it is painted. Raises the exception that painting
/// raises if no matrix can have its frame.
bool has_columns(KivROI& roi, const FramedRuns& mask);

/// Replaces an ROI by a mask of the given frame and runs.
void become_mask(KivROI& roi, Frame frame, RunList runs);

/// Replaces an ROI by the mask that its parameters find in an image of one channel of bytes.
void become_mask_of(KivROI& roi, cv::Mat& image);

// Lists of runs.

/// Sorts by row, as signed numbers; runs of one row keep their order.
void sort_by_row(RunList& runs);

/// The same, and each row by first column.
void sort_by_row_and_column(RunList& runs);

enum class PlainOperation { intersection, difference };

/// The plain intersection or difference of two lists, if the data types have operations of their own for it and both
/// lists are those of sets: maximal runs in ascending order.
std::optional<RunList> combined_sets(PlainOperation operation, RunView a, RunView b);

// Runs from pixels, in the order of the extractor.

enum class MaskBytes { as_stored, normalised };

/// The runs of the non-zero bytes at the start of each row, one byte for each column. An extractor that may write to
/// its mask gets a copy, in which normalised bytes are 0 or 255.
RunList runs_of_image(const cv::Mat& pixels, MaskBytes bytes);

/// The part of a mask of the given frame, whose pixels outside of `filled` are 0, that the extractor has to see. Raises
/// the exception that making the mask raises if no mask can have the frame.
cv::Rect part_to_extract(Frame frame, const cv::Rect& filled);

/// The runs of the listed pixels, in a frame that a mask can have and beyond which none lies. Pixels with a negative
/// coordinate are ignored.
RunList runs_of_pixels(const PixelLists& pixels, Frame frame);

struct PixelRuns {
    RunList runs;
    int largest_column; // of all pixels, also of those that are ignored
    int largest_row;
};

/// The runs of listed pixels, if the data types have an operation of their own for it and the pixels come row by row
/// and from left to right. Pixels with a negative coordinate are ignored.
std::optional<PixelRuns> runs_of_ordered_pixels(const PixelLists& pixels);

/// The same of the pixels of points, whose coordinates are truncated.
std::optional<PixelRuns> runs_of_ordered_points(KivPointArray& points);

// Pixels from runs.

struct PixelCoordinates {
    std::vector<int> columns;
    std::vector<int> rows;
};

/// The pixels that runs cover in a frame: row by row, from left to right, each once.
PixelCoordinates pixels_of(RunView runs, Frame frame);

/// Gives the pixels of a mask that a run covers one value and all others another one.
void paint(RunView runs, cv::Mat& mask, int foreground, int background);

// Contours.

/// Replaces `contours` by the borders of the pixels that the runs cover in the frame. Raises the exception that
/// painting or tracing raises if no mask of this frame can be traced.
void trace(const FramedRuns& pixels, KivContourArray* contours);

/// The runs of the contours' pixels, filled by the data types in the frame; nothing if an exception ended the filling.
std::optional<RunList> filled_runs(KivContourArray& contours, Frame frame);

// Arrays.

/// The number of leading elements that are numbers, that is, of one of the two kinds that convert to int.
int count_leading_numbers(KivVarArray& values);

/// The first `count` elements as ints, possibly a view of the array. The array rejects indices past its end.
ViewOrCopy<int> ints_of(KivVarArray& values, int count);

/// Overwrites the first elements, as many as there are ints. The ints may be what ints_of() returned for the array.
void overwrite(KivVarArray& values, std::span<const int> ints);

/// Appends all ints to an empty array.
void fill(KivVarArray& values, std::vector<int> ints);

/// Makes room for `count` points in all if the array offers that. bench/kiv/contours.cpp measures it.
void reserve(KivPointArray& points, std::size_t count);

/// Appends the pixels of each run to an empty array, in the order of the runs.
void append_pixels(KivPointArray& points, RunView runs);

} // namespace kiv
