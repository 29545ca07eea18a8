// SPDX-License-Identifier: MIT
/// @file
/// KivPoint and KivPointArray: points with sub-pixel coordinates.
#pragma once

#include <KivData/KivDataExport.h>
#include <KivRLC/KivRunBuffer.h>

#include <climits>
#include <cstddef>
#include <initializer_list>
#include <vector>

/// A point in pixel coordinates; the integer point (x, y) is the centre of the pixel in column x and row y.
struct KivPoint {
    double x = 0.0; ///< column
    double y = 0.0; ///< row

    /// Equal when both coordinates are.
    friend bool operator==(const KivPoint& a, const KivPoint& b) noexcept { return a.x == b.x && a.y == b.y; }
    friend bool operator!=(const KivPoint& a, const KivPoint& b) noexcept { return !(a == b); }
};

/// An array of points with 0-based int indices and at most 2^31 - 1 elements.
///
/// An operation that throws (std::out_of_range, std::bad_alloc, std::length_error) leaves the array as it was.
class KIVDATA_API KivPointArray
{
public:
    KivPointArray() = default; ///< An empty array.

    /// The given points.
    KivPointArray(std::initializer_list<KivPoint> points) : KivPointArray(std::vector<KivPoint>(points)) {}

    explicit KivPointArray(std::vector<KivPoint> points); ///< The given points, taken over without copying.

    int Length() const noexcept { return static_cast<int>(points_.size()); } ///< Number of points.

    KivPoint& operator[](int index) { return points_[checked(index)]; }             ///< 0 <= index < Length().
    const KivPoint& operator[](int index) const { return points_[checked(index)]; } ///< 0 <= index < Length().

    void Append(KivPoint& point) { append(point); }       ///< Adds a copy at the end.
    void Append(const KivPoint& point) { append(point); } ///< Adds a copy at the end.
    void Clear() noexcept { points_.clear(); }            ///< Makes the array empty; its memory is kept.

    /// Makes room for `length` points in all; does nothing where there is room already.
    void Reserve(std::size_t length) { points_.reserve(length); }

    /// Adds the pixels of a row from column `first` up to and including column `last`, `first` <= `last`.
    void AppendPixels(int row, int first, int last);

    /// Adds the pixels of each run, in the order of the runs; a run whose begin lies past its end has none.
    void AppendPixels(KivRunView runs);

    const std::vector<KivPoint>& Points() const noexcept { return points_; } ///< All points, as a flat list.
    auto begin() const noexcept { return points_.begin(); }                  ///< The first point.
    auto end() const noexcept { return points_.end(); }                      ///< Past the last point.

    /// Equal when of equal points in the same order.
    friend bool operator==(const KivPointArray& a, const KivPointArray& b) { return a.points_ == b.points_; }
    friend bool operator!=(const KivPointArray& a, const KivPointArray& b) { return a.points_ != b.points_; }

private:
    void append(const KivPoint& point)
    {
        if (points_.size() < points_.capacity() && Length() < INT_MAX) {
            points_.push_back(point);
        } else {
            append_slowly(point);
        }
    }
    std::size_t checked(int index) const
    {
        if (index < 0 || index >= Length()) {
            throw_out_of_range(index);
        }
        return static_cast<std::size_t>(index);
    }
    void append_slowly(const KivPoint& point);
    [[noreturn]] void throw_out_of_range(int index) const;

    std::vector<KivPoint> points_;
};
