// SPDX-License-Identifier: MIT
/// @file
/// KivRunBox: an upright rectangle of pixels. This header needs no OpenCV.
#pragma once

/// An upright rectangle of pixels: rows rowBegin through rowEnd, columns colBegin through colEnd, all four included.
///
/// Both ends are included, as those of a run are, so that every pixel whose coordinates are ints can be in a box. A box
/// whose begin lies past its end, in either direction, holds no pixel.
struct KivRunBox {
    int rowBegin; ///< y of the uppermost pixels
    int rowEnd;   ///< y of the lowermost pixels, inclusive
    int colBegin; ///< x of the leftmost pixels
    int colEnd;   ///< x of the rightmost pixels, inclusive

    /// Equal when all members are.
    friend constexpr bool operator==(const KivRunBox& a, const KivRunBox& b) noexcept
    {
        return a.rowBegin == b.rowBegin && a.rowEnd == b.rowEnd && a.colBegin == b.colBegin && a.colEnd == b.colEnd;
    }
    friend constexpr bool operator!=(const KivRunBox& a, const KivRunBox& b) noexcept { return !(a == b); }
};
