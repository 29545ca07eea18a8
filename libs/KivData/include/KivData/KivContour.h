// SPDX-License-Identifier: MIT
/// @file
/// KivContour and KivContourArray: outlines with sub-pixel coordinates.
#pragma once

#include <KivData/KivDataExport.h>
#include <KivRLC/KivRunBuffer.h>

#include <opencv2/core.hpp>

#include <initializer_list>
#include <utility>
#include <vector>

/// An outline: points in pixel coordinates, in outline order, the last one joined to the first; at most 2^31 - 1
/// points.
///
/// The first member points to the point vector, always, also when the contour is empty or moved from.
class KIVDATA_API KivContour
{
public:
    using Points = std::vector<cv::Point_<double>>; ///< x is the column, y the row

    KivContour() = default; ///< A contour without points.
    KivContour(std::initializer_list<cv::Point_<double>> points) : KivContour(Points(points)) {} ///< The given points.

    /// The given points, taken over without copying.
    ///
    /// @throws std::length_error if there are more than 2^31 - 1.
    explicit KivContour(Points points);

    KivContour(const KivContour& other) : points_(other.points_) {}                ///< Equal points.
    KivContour(KivContour&& other) noexcept : points_(std::move(other.points_)) {} ///< Leaves `other` empty.
    ~KivContour() = default;

    /// Becomes equal to `other`; on std::bad_alloc it keeps its points.
    KivContour& operator=(const KivContour& other) { return *this = KivContour(other); }

    /// Takes the points over and leaves `other` empty.
    KivContour& operator=(KivContour&& other) noexcept
    {
        points_ = std::exchange(other.points_, Points());
        return *this;
    }

    int Length() const noexcept { return static_cast<int>(points_.size()); } ///< Number of points.
    const Points& AllPoints() const noexcept { return points_; }             ///< The points, as a flat list.

    /// Whether the points run round clockwise as seen on the screen (y down), as IKivROIPara::MatToMask() traces the
    /// border of a hole. It traces outer borders the other way round, and those without an inside, single pixels and
    /// lines, are outer ones, too. Computed from the points in one pass; for a contour that crosses itself the
    /// larger part decides.
    bool IsHole() const noexcept;

    /// Equal when of the same points in the same order.
    friend bool operator==(const KivContour& a, const KivContour& b) { return a.points_ == b.points_; }
    friend bool operator!=(const KivContour& a, const KivContour& b) { return a.points_ != b.points_; }

private:
    [[maybe_unused]] Points* first_member_ = &points_;
    Points points_;
};

/// An array of contours with 0-based int indices and at most 2^31 - 1 elements.
///
/// An operation that throws (std::out_of_range, std::bad_alloc, std::length_error) leaves the array as it was.
class KIVDATA_API KivContourArray
{
public:
    KivContourArray() = default; ///< An empty array.

    /// The given contours.
    KivContourArray(std::initializer_list<KivContour> contours) : KivContourArray(std::vector<KivContour>(contours)) {}

    explicit KivContourArray(std::vector<KivContour> contours);  ///< The given contours, taken over without copying.
    KivContourArray(const KivContourArray& other) = default;     ///< Equal contours.
    KivContourArray(KivContourArray&& other) noexcept = default; ///< Leaves `other` empty.
    ~KivContourArray() = default;

    /// Becomes equal to `other`.
    KivContourArray& operator=(const KivContourArray& other) { return *this = KivContourArray(other); }

    /// Takes the contours over and leaves `other` empty.
    KivContourArray& operator=(KivContourArray&& other) noexcept = default;

    int Length() const noexcept { return static_cast<int>(contours_.size()); } ///< Number of contours.

    KivContour& operator[](int index) { return contours_[checked(index)]; }             ///< 0 <= index < Length().
    const KivContour& operator[](int index) const { return contours_[checked(index)]; } ///< 0 <= index < Length().

    void Append(KivContour contour);             ///< Adds a contour at the end.
    void Clear() noexcept { contours_.clear(); } ///< Makes the array empty.

    auto begin() const noexcept { return contours_.begin(); } ///< The first contour.
    auto end() const noexcept { return contours_.end(); }     ///< Past the last contour.

    /// The borders of the pixels that any of the runs covers in a frame of width x height pixels: those that
    /// IKivROIPara::MatToMask() traces in a mask with the runs painted into it, without the mask. The runs may come in
    /// any order, overlap, and reach outside of the frame.
    ///
    /// Cost: linear in the runs and the points if the runs are maximal, ordered and inside of the frame; otherwise they
    /// are made so first.
    ///
    /// @throws std::invalid_argument if width or height is negative, or larger than 2^31 - 3 in a frame with pixels.
    static KivContourArray BordersOf(KivRunView runs, int width, int height);

    /// The maximal runs of the pixels that IKivROIPara::ToMAT() fills in a mask of the frame, ordered by row, then by
    /// column, without the mask. Costs as KivPolygonFill does, whatever the size of the frame.
    ///
    /// @throws std::invalid_argument if width or height is negative.
    std::vector<Run> FilledRuns(int width, int height) const;

    /// Equal when of equal contours in the same order.
    friend bool operator==(const KivContourArray& a, const KivContourArray& b) { return a.contours_ == b.contours_; }
    friend bool operator!=(const KivContourArray& a, const KivContourArray& b) { return a.contours_ != b.contours_; }

private:
    std::size_t checked(int index) const;

    std::vector<KivContour> contours_;
};
