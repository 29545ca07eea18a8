// SPDX-License-Identifier: MIT
/// @file
/// KivROI and IKivROIPara: regions of interest and their parameters.
#pragma once

#include <KivData/KivContour.h>
#include <KivData/KivDataExport.h>
#include <KivData/KivShape.h>
#include <KivData/KivVarArray.h>
#include <KivRLC/KivRLC.h>

#include <opencv2/core.hpp>

#include <utility>
#include <vector>

/// The parameters of a region of interest: a shape and a frame of width x height pixels.
///
/// An operation that throws leaves the parameters and its output arguments as they were.
class KIVDATA_API IKivROIPara
{
public:
    IKivROIPara() = default; ///< The empty shape in a frame of 0 x 0.

    /// The given shape and frame.
    ///
    /// @throws std::invalid_argument if width or height is negative or a parameter of the shape is not finite, a radius
    /// or length negative, or a sweep outside 0 to 360.
    IKivROIPara(KivShape::Any shape, int width, int height);

    IKivROIPara(const IKivROIPara& other) = default;           ///< Equal parameters.
    IKivROIPara(IKivROIPara&& other) noexcept { swap(other); } ///< Leaves `other` the empty shape.
    ~IKivROIPara() = default;

    /// Becomes equal to `other`; on std::bad_alloc it keeps its parameters.
    IKivROIPara& operator=(const IKivROIPara& other)
    {
        IKivROIPara(other).swap(*this);
        return *this;
    }

    /// Takes the parameters over and leaves `other` the empty shape.
    IKivROIPara& operator=(IKivROIPara&& other) noexcept
    {
        IKivROIPara(std::move(other)).swap(*this);
        return *this;
    }

    int Width() const noexcept { return width_; }                  ///< Columns of the frame, at least 0.
    int Height() const noexcept { return height_; }                ///< Rows of the frame, at least 0.
    const KivShape::Any& Shape() const noexcept { return shape_; } ///< The shape with its parameters.

    /// The type code of the shape: KivShape::Empty::type and so on.
    int ShapeType() const noexcept;

    /// The pixels of the shape as runs. A mask gives its runs back verbatim. The pixels of any other shape are those of
    /// the frame whose centres lie in it (see KivShape); their runs are maximal, rows from top to bottom, within a row
    /// from left to right.
    ///
    /// Cost: for each row of the frame that the shape reaches, a few binary searches in the frame's columns (for a
    /// polygon, two for each edge on the row); never the area of the shape or of the frame.
    std::vector<Run> MaskRuns() const;

    /// The runs of a mask without copying them; null for any other shape. Holds until the parameters are next changed.
    const std::vector<Run>* KeptRuns() const noexcept
    {
        const auto* mask = std::get_if<KivShape::Mask>(&shape_);
        return mask != nullptr ? &mask->runs : nullptr;
    }

    /// Whether one of MaskRuns() covers the pixel in column x and row y.
    ///
    /// Cost: linear in the runs of a mask or the corners of a polygon, constant for any other shape. To ask for many
    /// pixels, make MaskRuns() once.
    bool Contains(int x, int y) const;

    /// MaskRuns() as three arrays, which are replaced, and the frame. The arrays must be three different objects.
    void GetMask(KivVarArray* rows, KivVarArray* colBegins, KivVarArray* colEnds, int* width, int* height) const;

    /// The outlines of the shape's pixels inside the frame, as MatToMask() traces them, and the frame.
    void GetMask(KivContourArray* contours, int* width, int* height);

    /// Becomes a mask of the given runs in the given frame.
    ///
    /// @throws std::invalid_argument if width or height is negative or the arrays differ in length.
    void GenMask(KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds, int width, int height);

    /// The same from a flat list of runs, which is taken over without copying.
    void GenMask(std::vector<Run> runs, int width, int height);

    /// A new mask of height x width pixels (CV_8UC1), 255 where a run lies and 0 elsewhere. Runs are clipped to the
    /// mask; it costs the size of the mask, however far runs reach outside. Does not depend on the object.
    ///
    /// @throws std::invalid_argument if the arrays differ in length or a size is negative.
    cv::Mat ToMAT(KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds, int width, int height);

    /// A new mask of height x width pixels (CV_8UC1), 255 where the contours together are filled and 0 elsewhere.
    ///
    /// A point outside of all or inside of two contours is not filled (even-odd rule); the borders themselves are.
    /// Points are rounded to the nearest pixel, ties to even, and saturated to the range of int. Points of which a
    /// coordinate is NaN and contours without points are left out. KivPolygonFill says which pixels an edge passes from
    /// point to point. Filling what MatToMask() traced gives the traced mask back.
    ///
    /// @throws std::invalid_argument if a size is negative.
    static cv::Mat ToMAT(KivContourArray& contours, int width, int height);

    /// The runs of the mask's non-zero bytes, as KivRLC::FindContours() orders them, and the mask's size. The arrays
    /// are replaced; they must be three different objects. Does not depend on the object.
    ///
    /// @throws cv::Exception if the mask has more than two dimensions.
    void MatToMask(cv::Mat& mask, KivVarArray* rows, KivVarArray* colBegins, KivVarArray* colEnds, int* width,
                   int* height);

    /// The borders of the mask's non-zero pixels and the mask's size. The array is replaced. The mask is not changed.
    ///
    /// Every outer border and every border of a hole is a separate contour, a closed 8-connected chain of the
    /// foreground pixels along it; foreground is 8-connected, background 4-connected. KivContour::IsHole()
    /// distinguishes the two kinds.
    ///
    /// @throws std::invalid_argument if the mask has more than two dimensions, more than one channel, or more than
    /// 2^31 - 3 rows or columns.
    static void MatToMask(cv::Mat& mask, KivContourArray* contours, int* width, int* height);

    /// Exchanges two sets of parameters.
    void swap(IKivROIPara& other) noexcept;

    /// Equal when of one shape, with equal parameters, and of one frame.
    friend bool operator==(const IKivROIPara& a, const IKivROIPara& b)
    {
        return a.width_ == b.width_ && a.height_ == b.height_ && a.shape_ == b.shape_;
    }
    friend bool operator!=(const IKivROIPara& a, const IKivROIPara& b) { return !(a == b); }

private:
    KivShape::Any shape_;
    int width_ = 0;
    int height_ = 0;
};

/// A region of interest: a shape in a frame.
///
/// The first member points to the parameters, always and to the same object for the whole life of the ROI, also across
/// assignments and moves. A default-constructed or moved-from ROI has the empty shape.
class KIVDATA_API KivROI
{
public:
    KivROI() = default; ///< The empty shape in a frame of 0 x 0.

    /// The given shape and frame. @throws std::invalid_argument as IKivROIPara's constructor does.
    KivROI(KivShape::Any shape, int width, int height) : parameters_(std::move(shape), width, height) {}

    /// @name One named constructor for each shape
    /// The parameters are those of the struct of that name in KivShape, where units, the sense of angles and the pixels
    /// that belong are defined; then follows the frame in pixels.
    /// @throws std::invalid_argument as IKivROIPara's constructor does.
    /// @{

    /// A KivShape::Rectangle in a frame.
    static KivROI Rectangle(double left, double top, double right, double bottom, int width, int height)
    {
        return KivROI(KivShape::Rectangle{left, top, right, bottom}, width, height);
    }
    /// A KivShape::RotatedRectangle in a frame.
    static KivROI RotatedRectangle(double cx, double cy, double length, double breadth, double angle, int width,
                                   int height)
    {
        return KivROI(KivShape::RotatedRectangle{cx, cy, length, breadth, angle}, width, height);
    }
    /// A KivShape::Circle in a frame.
    static KivROI Circle(double cx, double cy, double radius, int width, int height)
    {
        return KivROI(KivShape::Circle{cx, cy, radius}, width, height);
    }
    /// A KivShape::Ellipse in a frame.
    static KivROI Ellipse(double cx, double cy, double radius1, double radius2, double angle, int width, int height)
    {
        return KivROI(KivShape::Ellipse{cx, cy, radius1, radius2, angle}, width, height);
    }
    /// A KivShape::Ring in a frame.
    static KivROI Ring(double cx, double cy, double inner, double outer, int width, int height)
    {
        return KivROI(KivShape::Ring{cx, cy, inner, outer}, width, height);
    }
    /// A KivShape::RingSector in a frame.
    static KivROI RingSector(double cx, double cy, double inner, double outer, double start, double sweep, int width,
                             int height)
    {
        return KivROI(KivShape::RingSector{cx, cy, inner, outer, start, sweep}, width, height);
    }
    /// A KivShape::Polygon in a frame.
    static KivROI Polygon(std::vector<cv::Point_<double>> points, int width, int height)
    {
        return KivROI(KivShape::Polygon{std::move(points)}, width, height);
    }
    /// A KivShape::Mask in a frame.
    static KivROI Mask(std::vector<Run> runs, int width, int height)
    {
        return KivROI(KivShape::Mask{std::move(runs)}, width, height);
    }
    /// A KivShape::OpenCurve in a frame.
    static KivROI OpenCurve(std::vector<cv::Point_<double>> points, int width, int height)
    {
        return KivROI(KivShape::OpenCurve{std::move(points)}, width, height);
    }
    /// @}

    KivROI(const KivROI& other) : parameters_(other.parameters_) {}                ///< An equal ROI.
    KivROI(KivROI&& other) noexcept : parameters_(std::move(other.parameters_)) {} ///< Leaves `other` empty.
    ~KivROI() = default;

    /// Becomes equal to `other`; on std::bad_alloc it keeps its shape.
    KivROI& operator=(const KivROI& other)
    {
        parameters_ = other.parameters_;
        return *this;
    }

    /// Takes the shape over and leaves `other` empty.
    KivROI& operator=(KivROI&& other) noexcept
    {
        parameters_ = std::move(other.parameters_);
        return *this;
    }

    /// The type code of the shape: KivShape::Empty::type (3), KivShape::OpenCurve::type (10) and so on.
    int ROIType() const noexcept { return parameters_.ShapeType(); }

    IKivROIPara& Parameters() noexcept { return parameters_; }             ///< Shape and frame.
    const IKivROIPara& Parameters() const noexcept { return parameters_; } ///< Shape and frame.

    /// Equal when the parameters are.
    friend bool operator==(const KivROI& a, const KivROI& b) { return a.parameters_ == b.parameters_; }
    friend bool operator!=(const KivROI& a, const KivROI& b) { return !(a == b); }

private:
    [[maybe_unused]] IKivROIPara* first_member_ = &parameters_;
    IKivROIPara parameters_;
};
