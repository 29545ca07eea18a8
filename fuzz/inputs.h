// SPDX-License-Identifier: MIT
// From the bytes of a fuzzer to inputs. Small values collide, so most bytes become small ones; a few become extreme.
//
// Seeds can be written by hand: the digits '0' to '9' are read as 0 to 9, a picture as text with '.' for background.
#pragma once

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace fuzz
{

class FuzzedBytes
{
public:
    FuzzedBytes(const std::uint8_t* bytes, std::size_t size)
        : rest_(reinterpret_cast<const char*>(bytes), bytes == nullptr ? 0 : size)
    {
    }

    bool at_end() const { return rest_.empty(); }

    /// The next byte; 0 behind the last one.
    unsigned char byte();

    /// 0 to 15.
    int digit() { return byte() % 16; }

    /// Any int, made of four bytes.
    int any_int();

    /// -8 to 15, and now and then a value near the limits of int or of 16 bits.
    int coordinate();

    /// The same in quarters, and now and then NaN, infinite or beyond all ints.
    double fine_coordinate();

    /// A finite one, -4 to 20 in quarters, and now and then any double up to 1e6.
    double near_coordinate();

    /// Up to 15 runs, in any order, also such that begin past their end.
    std::vector<Run> runs();

    /// The same on rows -8 to 15.
    std::vector<Run> runs_on_near_rows();

    /// A region whose frame is at most 15 x 15, or has a side of the largest int.
    KivRegion region();

    /// A mask in such a frame; or the empty shape, an open curve or a rectangle.
    KivROI roi();

    /// A shape with a formula, near the origin.
    KivShape::Any shape();

    /// What is left, as the grey values of an image: a line of text is a row, '.' is 0. At most 64 rows of 320 columns;
    /// of one column and one row at least.
    cv::Mat picture();

    /// What is left.
    std::string_view text() const { return rest_; }

private:
    std::vector<Run> runs(int (FuzzedBytes::*row)());
    int near_row();
    int side();
    double length();

    std::string_view rest_;
};

} // namespace fuzz
