// SPDX-License-Identifier: MIT
/// @file
/// KivRegion: a region of pixels as a list of runs.
#pragma once

#include <KivData/KivDataExport.h>
#include <KivData/KivVarArray.h>
#include <KivRLC/KivRLC.h>

#include <utility>
#include <vector>

/// A run-length region: a frame of width x height pixels and a list of runs.
///
/// The runs are kept exactly as they were given, in that order: not clipped to the frame, not sorted, not merged.
/// An operation that throws leaves the region as it was.
class KIVDATA_API KivRegion
{
public:
    KivRegion() = default;                                   ///< An empty region: a frame of 0 x 0, no runs.
    KivRegion(int width, int height, std::vector<Run> runs); ///< As CreateRegion().
    KivRegion(const KivRegion& other) = default;             ///< An equal region.
    KivRegion(KivRegion&& other) noexcept { swap(other); }   ///< Leaves `other` empty.
    ~KivRegion() = default;

    /// Becomes equal to `other`; on std::bad_alloc it keeps its contents.
    KivRegion& operator=(const KivRegion& other)
    {
        KivRegion(other).swap(*this);
        return *this;
    }

    /// Takes the contents over and leaves `other` empty.
    KivRegion& operator=(KivRegion&& other) noexcept
    {
        KivRegion(std::move(other)).swap(*this);
        return *this;
    }

    int Width() const noexcept { return width_; }   ///< Columns of the frame, at least 0.
    int Height() const noexcept { return height_; } ///< Rows of the frame, at least 0.

    /// Fills the three arrays with the runs: rows, first columns and last columns (inclusive), replacing what they
    /// held. The arrays must be three different objects.
    void GetRegionRuns(KivVarArray* rows, KivVarArray* colBegins, KivVarArray* colEnds);

    /// Replaces the region by one of the given frame made of the given runs.
    ///
    /// @throws std::invalid_argument if width or height is negative or the arrays differ in length.
    void CreateRegion(int width, int height, KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds);

    /// The same from a flat list of runs, which is taken over without copying.
    void CreateRegion(int width, int height, std::vector<Run> runs);

    /// The runs as a flat list. Holds until the region is next changed.
    const std::vector<Run>& Runs() const noexcept { return runs_; }

    /// Exchanges two regions.
    void swap(KivRegion& other) noexcept;

    /// Equal when of one frame and of the same runs in the same order.
    friend bool operator==(const KivRegion& a, const KivRegion& b)
    {
        return a.width_ == b.width_ && a.height_ == b.height_ && a.runs_ == b.runs_;
    }
    friend bool operator!=(const KivRegion& a, const KivRegion& b) { return !(a == b); }

private:
    int width_ = 0;
    int height_ = 0;
    std::vector<Run> runs_;
};
