// SPDX-License-Identifier: MIT
/// @file
/// A run: a horizontal stretch of pixels. This header needs no OpenCV.
#pragma once

/// A horizontal stretch of pixels: (colBegin, row) through (colEnd, row), both ends included.
///
/// Coordinates are 0-based pixels. A one-pixel run has colBegin == colEnd; a run whose begin lies past its end
/// covers nothing.
struct Run {
    int row;      ///< y of the run
    int colBegin; ///< x of the first pixel
    int colEnd;   ///< x of the last pixel, inclusive

    /// Equal when all members are.
    friend constexpr bool operator==(const Run& a, const Run& b) noexcept
    {
        return a.row == b.row && a.colBegin == b.colBegin && a.colEnd == b.colEnd;
    }
    friend constexpr bool operator!=(const Run& a, const Run& b) noexcept { return !(a == b); }
};
