// SPDX-License-Identifier: MIT
/// @file
/// Closed polygons filled into runs. This header needs no OpenCV.
#pragma once

#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRun.h>
#include <KivRLC/KivRunBorders.h>
#include <KivRLC/KivRunBox.h>

#include <cstddef>
#include <cstdint>
#include <vector>

/// Fills closed polygons, all of them together, into the runs of a box.
///
/// A pixel belongs if its centre lies inside by the even-odd rule, counted over the edges of all polygons, or if an
/// edge passes it. An edge from corner to corner passes in each row the pixel nearest to it if it is steep (at least as
/// many rows as columns from end to end), and in each column the pixel nearest to it otherwise; where it runs midway
/// between two pixels, the one on the side of its left end.
///
/// All of this is computed exactly, in integers: the pixels are the same on every machine. Of polygons inside of the
/// box they are those of cv::drawContours() in OpenCV 4.6. The borders of KivRunBorders, filled together, give the
/// pixels back that were traced.
///
/// What lies outside the box counts as exactly, and its size costs no time: an edge costs a few searches and the pixels
/// in the box that it passes.
class KIVRLC_API KivPolygonFill
{
public:
    /// A fill of the pixels of a box, without polygons so far.
    ///
    /// @throws std::invalid_argument if the box has more than 2^31 - 1 columns.
    explicit KivPolygonFill(const KivRunBox& box);

    /// Makes room for polygons whose corners are neighbours and that have so many in all. Others may need more, which
    /// Add() makes.
    ///
    /// @throws std::bad_alloc if memory runs out; the fill is as it was then.
    void Reserve(std::size_t polygons, std::size_t corners);

    /// Adds the polygon of `count` corners, the last one joined to the first. One corner is a pixel; two are a line.
    /// Corners may be any ints; edges may cross, touch and repeat.
    ///
    /// @throws std::bad_alloc if memory runs out; the fill is of no use then.
    void Add(const KivPixel* corners, std::size_t count);

    /// Adds the polygon of `count` corners whose columns and rows are given in turn, 2 * `count` numbers. Each is
    /// rounded to the nearest int, ties to even, those beyond all ints to the highest or lowest one; corners with a NaN
    /// are left out. Without any other corner it adds nothing.
    ///
    /// @throws std::bad_alloc if memory runs out; the fill is of no use then.
    void AddRounded(const double* coordinates, std::size_t count);

    /// The maximal runs of the polygons' pixels inside of the box, ordered by row, then by column.
    ///
    /// Cost: linear in the corners of polygons whose corners are neighbours, as those of KivRunBorders, except that
    /// where many stretches lie on one row they are sorted; for others n log n in the pixels that edges pass in the
    /// box.
    ///
    /// @throws std::bad_alloc if memory runs out.
    std::vector<Run> Runs() const;

private:
    /// Neighbouring pixels of a row that edges pass: columns begin to stop - 1, counted from the box's first one.
    struct Stretch {
        std::uint32_t row; ///< counted from the box's first one
        std::uint32_t begin;
        std::uint32_t stop : 31;
        std::uint32_t flips : 1; ///< whether what lies to the right is inside if what lies to the left is not
    };

    /// Rows on which everything in the box lies to the right of an edge.
    struct Rows {
        std::uint32_t begin;
        std::uint32_t stop;
    };

    class Chain;

    void MakeRoom(std::size_t corners);
    void AddStretch(std::int64_t row, std::int64_t begin, std::int64_t end, bool flips);
    void AddEdge(const KivPixel& from, const KivPixel& to);
    std::vector<Stretch> Ordered() const;

    KivRunBox box_;
    std::int64_t columns_; // of the box
    std::int64_t rows_;
    std::vector<Stretch> stretches_;
    std::vector<Rows> beside_;
};
