// SPDX-License-Identifier: MIT
// What Python passes to the library: buffers of pixels, boxes, frames. Whatever is not taken raises TypeError or
// ValueError with a sentence that names what came and what is taken.
#pragma once

#include <KivRLC/KivImageView.h>
#include <KivRLC/KivRunBox.h>
#include <KivRLC/KivRunMeasures.h>
#include <KivRLC/KivRunSet.h>

#include <nanobind/nanobind.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace kivpython
{

namespace nb = nanobind;

/// The pixels of an object with the buffer protocol, such as a NumPy array, of any strides and byte order of rows.
class Buffer
{
public:
    enum class Access { Read, Write };

    /// A buffer of two dimensions, or up to `most_dimensions`; `what` names the argument in errors.
    Buffer(nb::handle object, const char* what, Access access = Access::Read, int most_dimensions = 2);
    ~Buffer() { PyBuffer_Release(&view_); }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;

    /// One of "?BbHhIiQqefd" as struct has them, by size: 'l' is 'i' or 'q'; '-' for anything else.
    char Kind() const noexcept { return kind_; }
    int Height() const noexcept { return static_cast<int>(view_.shape[0]); }
    int Width() const noexcept { return static_cast<int>(view_.shape[1]); }
    std::ptrdiff_t RowStride() const noexcept { return view_.strides[0]; }
    std::ptrdiff_t ColumnStride() const noexcept { return view_.strides[1]; }
    std::ptrdiff_t Channels() const noexcept { return view_.ndim == 3 ? view_.shape[2] : 1; }
    void* Pixels() const noexcept { return view_.buf; }

    /// Whether the pixels of a row, or those of a column, are next to each other.
    bool RowsAreDense() const noexcept { return Width() <= 1 || ColumnStride() == view_.itemsize; }
    bool ColumnsAreDense() const noexcept { return Height() <= 1 || RowStride() == view_.itemsize; }

    /// The pixels as an image; its rows must be dense.
    template <class Pixel>
    KivImageView<Pixel> Rows() const noexcept
    {
        return {static_cast<Pixel*>(view_.buf), Width(), Height(), RowStride()};
    }

    /// The image whose rows are the columns, which must be dense.
    template <class Pixel>
    KivImageView<Pixel> Columns() const noexcept
    {
        return {static_cast<Pixel*>(view_.buf), Height(), Width(), ColumnStride()};
    }

    /// A copy of the pixels, row by row, each converted by `convert`.
    template <class Pixel, class Result, class Convert>
    std::vector<Result> Packed(Convert convert) const
    {
        std::vector<Result> packed;
        packed.reserve(static_cast<std::size_t>(Width()) * static_cast<std::size_t>(Height()));
        for (int row = 0; row < Height(); ++row) {
            const auto* at = static_cast<const char*>(view_.buf) + row * RowStride();
            for (int col = 0; col < Width(); ++col, at += ColumnStride()) {
                Pixel pixel;
                std::memcpy(&pixel, at, sizeof(Pixel));
                packed.push_back(convert(pixel));
            }
        }
        return packed;
    }

    /// Raises TypeError: the pixels are of another kind than `taken`.
    [[noreturn]] void RefuseKind(const char* taken) const;

private:
    Py_buffer view_{};
    const char* what_;
    char kind_ = '-';
};

/// The kind of buffers whose pixels are of a type.
/// @{
template <class Pixel>
inline constexpr char kind_of = '-';
template <>
inline constexpr char kind_of<std::uint8_t> = 'B';
template <>
inline constexpr char kind_of<std::int8_t> = 'b';
template <>
inline constexpr char kind_of<std::uint16_t> = 'H';
template <>
inline constexpr char kind_of<std::int16_t> = 'h';
template <>
inline constexpr char kind_of<std::uint32_t> = 'I';
template <>
inline constexpr char kind_of<std::int32_t> = 'i';
template <>
inline constexpr char kind_of<std::uint64_t> = 'Q';
template <>
inline constexpr char kind_of<std::int64_t> = 'q';
template <>
inline constexpr char kind_of<float> = 'f';
/// @}

/// Calls `visit` with a value of the one of the types that the buffer's pixels have. Raises TypeError if they have none
/// of them; `taken` names these.
template <class Pixel, class... Others, class Visit>
auto with_pixel_type(const Buffer& buffer, const char* taken, Visit visit) -> decltype(visit(Pixel{}))
{
    if (buffer.Kind() == kind_of<Pixel>) {
        return visit(Pixel{});
    }
    if constexpr (sizeof...(Others) > 0) {
        return with_pixel_type<Others...>(buffer, taken, visit);
    } else {
        buffer.RefuseKind(taken);
    }
}

/// The view of a packed image.
template <class Pixel>
KivImageView<const Pixel> view_of(const std::vector<Pixel>& packed, int width, int height)
{
    return {packed.data(), width, height, static_cast<std::ptrdiff_t>(sizeof(Pixel)) * width};
}

/// The name of an object's type, for errors.
std::string name_of_type(nb::handle object);

/// Rows and columns of a frame.
struct Frame {
    int height;
    int width;
};

/// A pair (height, width).
Frame frame_of(nb::handle shape);

/// A Box, anything else with its four numbers, or a frame (height, width), whose first pixel is (0, 0).
KivRunBox box_of(nb::handle box);

/// One of the classes that the package has in Python. It lives as long as the interpreter, so look it up once.
nb::handle type_of_package(const char* name);

/// The same as a Box of Python.
nb::object python_box(const KivRunBox& box);

/// 4 or 8.
KivRuns::Connectivity connectivity_of(int connectivity);

/// Copies of the sets of an iterable.
std::vector<KivRunSet> sets_of(nb::handle sets);

/// A pair of ints, such as (row, column).
struct Pair {
    int first;
    int second;
};
Pair pair_of(nb::handle pair, const char* what);

} // namespace kivpython
