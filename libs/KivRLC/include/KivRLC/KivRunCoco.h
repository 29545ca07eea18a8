// SPDX-License-Identifier: MIT
/// @file
/// Run sets from and to the run lengths of the COCO data sets. This header needs no OpenCV.
#pragma once

#include <KivRLC/KivImageView.h>
#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRunSet.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Counts describe a frame of width x height pixels column by column, each from top to bottom: how many pixels do not
/// belong, then how many do, then how many do not, and so on. The first count is 0 if pixel (0, 0) belongs; the sum is
/// width * height. As text, each count is 5 bits a character, the lowest first, and from the fourth one on less the
/// count two before.
///
/// The functions throw std::invalid_argument if width or height is negative and std::bad_alloc if memory runs out.
namespace KivRuns
{

/// The set of the pixels that belong, as the data sets' "counts" list them. Counts of 0 are accepted anywhere.
///
/// All counts are checked before memory is allocated for runs. Linear in the counts, the columns that they cover, and
/// the runs of the result, which has as many as height for a stretch of full columns, whatever their number.
///
/// @throws std::invalid_argument if a count is negative or their sum is not width * height.
KIVRLC_API KivRunSet FromCocoCounts(const std::vector<std::int64_t>& counts, int width, int height);

/// The same from counts packed as text.
///
/// @throws std::invalid_argument as CocoCountsFromText() and FromCocoCounts().
KIVRLC_API KivRunSet FromCocoText(std::string_view text, int width, int height);

/// Gives the pixels of an image that belong a value, and all others another one, without making the set.
///
/// The image is by columns, as the counts are: its rows are the columns of the frame, so its width is the frame's
/// height. Linear in the counts and the pixels; nothing is painted if the counts are refused.
///
/// @throws std::invalid_argument if a count is negative or their sum is not the number of pixels, or the image has a
/// negative width or height.
KIVRLC_API void PaintCocoCounts(const std::vector<std::int64_t>& counts, const KivImageView<std::uint8_t>& columns,
                                std::uint8_t value, std::uint8_t background);

/// The counts of the set's pixels in the frame; pixels outside of it are left out. No count but the first one is 0,
/// except that a frame without pixels has the one count 0.
///
/// Linear in the runs of the set and in the counts, sets whose columns are full from top to bottom included.
KIVRLC_API std::vector<std::int64_t> ToCocoCounts(const KivRunSet& set, int width, int height);

/// The same packed as text.
KIVRLC_API std::string ToCocoText(const KivRunSet& set, int width, int height);

/// Unpacks the counts of a text, whatever their frame; they may be negative. Linear in the text.
///
/// @throws std::invalid_argument if a character is not one of '0' to 'o', the text ends within a count, or a count does
/// not fit into 64 bits.
KIVRLC_API std::vector<std::int64_t> CocoCountsFromText(std::string_view text);

/// Packs counts of 0 to 2^62 as text. Linear in the counts.
KIVRLC_API std::string CocoTextFromCounts(const std::vector<std::int64_t>& counts);

} // namespace KivRuns
