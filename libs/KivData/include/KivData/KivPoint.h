// SPDX-License-Identifier: MIT
/// @file
/// KivPoint and KivPointArray: points with sub-pixel coordinates.
#pragma once

#include <KivData/KivDataExport.h>

#include <initializer_list>
#include <utility>
#include <vector>

/// A point in pixel coordinates; the integer point (x, y) is the centre of the pixel in column x and row y.
struct KivPoint {
    double x = 0.0; ///< column
    double y = 0.0; ///< row

    friend bool operator==(const KivPoint& a, const KivPoint& b) noexcept { return a.x == b.x && a.y == b.y; }
    friend bool operator!=(const KivPoint& a, const KivPoint& b) noexcept { return !(a == b); }
};

/// An array of points with 0-based int indices and at most 2^31 - 1 elements.
///
/// An operation that throws (std::out_of_range, std::bad_alloc, std::length_error) leaves the array as it was.
class KIVDATA_API KivPointArray
{
public:
    KivPointArray() = default;                                                                    ///< An empty array.
    KivPointArray(std::initializer_list<KivPoint> points) : points_(points) {}                    ///< The given points.
    explicit KivPointArray(std::vector<KivPoint> points) noexcept : points_(std::move(points)) {} ///< Taken over.

    int Length() const noexcept { return static_cast<int>(points_.size()); } ///< Number of points.

    KivPoint& operator[](int index) { return points_[checked(index)]; }             ///< 0 <= index < Length().
    const KivPoint& operator[](int index) const { return points_[checked(index)]; } ///< 0 <= index < Length().

    void Append(KivPoint& point) { append(point); }       ///< Adds a copy at the end.
    void Append(const KivPoint& point) { append(point); } ///< Adds a copy at the end.
    void Clear() noexcept { points_.clear(); }            ///< Makes the array empty; its memory is kept.

    const std::vector<KivPoint>& Points() const noexcept { return points_; } ///< All points, as a flat list.
    auto begin() const noexcept { return points_.begin(); }                  ///< The first point.
    auto end() const noexcept { return points_.end(); }                      ///< Past the last point.

    friend bool operator==(const KivPointArray& a, const KivPointArray& b) { return a.points_ == b.points_; }
    friend bool operator!=(const KivPointArray& a, const KivPointArray& b) { return a.points_ != b.points_; }

private:
    void append(const KivPoint& point);
    std::size_t checked(int index) const;

    std::vector<KivPoint> points_;
};
