// SPDX-License-Identifier: MIT
/// @file
/// Run sets from and into images: masks, ranges of grey values and labels. This header needs no OpenCV; KivRunMat.h has
/// the same for cv::Mat.
#pragma once

#include <KivRLC/KivImageView.h>
#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRunMeasures.h>
#include <KivRLC/KivRunSet.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

/// Pixel (x, y) of an image is pixel (x, y) of the set. Each function throws std::invalid_argument if an image has a
/// negative width or height, and std::bad_alloc if memory runs out.
namespace KivRuns
{

/// @name From images
/// In one pass over the pixels, 64 at a time, and linear in the runs of the result.
/// @{

/// The pixels that are not 0.
KIVRLC_API KivRunSet FromMask(const KivImageView<const std::uint8_t>& mask);

/// The pixels whose value is at least `least` and at most `greatest`; none if these are inverted. No mask is made.
KIVRLC_API KivRunSet FromRange(const KivImageView<const std::uint8_t>& image, std::uint8_t least,
                               std::uint8_t greatest);
/// The same of 16-bit values.
KIVRLC_API KivRunSet FromRange(const KivImageView<const std::uint16_t>& image, std::uint16_t least,
                               std::uint16_t greatest);
/// The same of real numbers. NaN is in no range, and no pixel is in a range with a bound that is NaN.
KIVRLC_API KivRunSet FromRange(const KivImageView<const float>& image, float least, float greatest);

/// @}

/// The least and the greatest value of a pixel type that lie between two real numbers, both included; nothing if none
/// does, or if a bound is NaN. For callers whose bounds need not be values that pixels can have.
///
/// @tparam Pixel an integer type of at most 32 bits, or float
template <class Pixel>
std::optional<std::pair<Pixel, Pixel>> ValuesWithin(double least, double greatest)
{
    using Limits = std::numeric_limits<Pixel>;
    if constexpr (std::is_floating_point_v<Pixel>) {
        auto low = static_cast<Pixel>(least);
        auto high = static_cast<Pixel>(greatest);
        low = low < least ? std::nextafter(low, Limits::infinity()) : low;
        high = high > greatest ? std::nextafter(high, -Limits::infinity()) : high;
        return low <= high ? std::optional(std::pair(low, high)) : std::nullopt;
    } else {
        const double low = std::max(std::ceil(least), static_cast<double>(Limits::min()));
        const double high = std::min(std::floor(greatest), static_cast<double>(Limits::max()));
        return low <= high ? std::optional(std::pair(static_cast<Pixel>(low), static_cast<Pixel>(high))) : std::nullopt;
    }
}

/// The pixels of one label.
struct LabelledSet {
    std::int32_t label; ///< not 0
    KivRunSet set;      ///< its pixels, at least one
};

/// @name From label images
/// The pixels of every label except 0, the background, in ascending order of the labels. In one pass over the pixels,
/// linear in these and the runs, whatever the labels are.
/// @{
KIVRLC_API std::vector<LabelledSet> FromLabels(const KivImageView<const std::uint8_t>& labels);  ///< 8-bit labels
KIVRLC_API std::vector<LabelledSet> FromLabels(const KivImageView<const std::uint16_t>& labels); ///< 16-bit labels
KIVRLC_API std::vector<LabelledSet> FromLabels(const KivImageView<const std::int32_t>& labels);  ///< 32-bit labels
/// @}

/// @name Into images
/// Gives the set's pixels that lie in the image a value and leaves all others as they are. Linear in the runs on the
/// image's rows and the pixels that are written.
/// @{
KIVRLC_API void Paint(const KivRunSet& set, const KivImageView<std::uint8_t>& image, std::uint8_t value);   ///< 8-bit
KIVRLC_API void Paint(const KivRunSet& set, const KivImageView<std::uint16_t>& image, std::uint16_t value); ///< 16-bit
KIVRLC_API void Paint(const KivRunSet& set, const KivImageView<std::int32_t>& image, std::int32_t value);   ///< 32-bit
KIVRLC_API void Paint(const KivRunSet& set, const KivImageView<float>& image, float value); ///< real numbers

/// Gives the pixels of the image that any of the runs covers a value, and all others another one. The runs may come in
/// any order, overlap and repeat, and lie outside the image; a run whose begin lies past its end covers nothing. No
/// byte of the image's memory is written that belongs to no pixel.
KIVRLC_API void PaintMask(KivRunView runs, const KivImageView<std::uint8_t>& mask, std::uint8_t value,
                          std::uint8_t background);

/// Gives the pixels of the first set the value 1, those of the second one 2, and so on; where sets overlap, the later
/// one wins. Leaves all other pixels as they are.
KIVRLC_API void PaintLabels(const std::vector<KivRunSet>& sets, const KivImageView<std::int32_t>& image);

/// Gives the pixels of the set's first component the value 1, those of the second one 2, and so on, as PaintLabels()
/// does of Components(), which are not made. Leaves all other pixels as they are.
KIVRLC_API void PaintComponents(const KivRunSet& set, Connectivity connectivity,
                                const KivImageView<std::int32_t>& image);
/// @}

} // namespace KivRuns
