// SPDX-License-Identifier: MIT
/// @file
/// Run sets from and into cv::Mat: what KivRunImages.h has, for matrices.
#pragma once

#include <KivRLC/KivRunImages.h>

#include <opencv2/core.hpp>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <type_traits>
#include <vector>

/// Each function throws std::invalid_argument if a matrix has more than two dimensions or elements of another kind than
/// it says, and what its counterpart in KivRunImages.h throws.
namespace KivRuns
{

/// A matrix as an image of Pixel.
template <class Pixel>
KivImageView<Pixel> ViewOf(const cv::Mat& mat)
{
    if (mat.dims > 2 || (!mat.empty() && mat.type() != cv::DataType<std::remove_const_t<Pixel>>::type)) {
        throw std::invalid_argument("KivRuns: a matrix has more than two dimensions or elements of another kind");
    }
    return {reinterpret_cast<Pixel*>(mat.data), mat.cols, mat.rows, static_cast<std::ptrdiff_t>(mat.step[0])};
}

/// The pixels of a CV_8UC1 that are not 0.
inline KivRunSet FromMask(const cv::Mat& mask)
{
    return FromMask(ViewOf<const std::uint8_t>(mask));
}

/// The pixels of a CV_8UC1, CV_16UC1 or CV_32FC1 from `least` to `greatest`, both included. Bounds need not be values
/// that pixels can have: 0.5 is as good as 1 for whole numbers.
inline KivRunSet FromRange(const cv::Mat& image, double least, double greatest)
{
    const auto of_values = [&](auto pixel) {
        using Pixel = decltype(pixel);
        const KivImageView<const Pixel> view = ViewOf<const Pixel>(image);
        const auto values = ValuesWithin<Pixel>(least, greatest);
        return values ? FromRange(view, values->first, values->second) : KivRunSet();
    };
    switch (image.depth()) {
    case CV_32F:
        return of_values(float{});
    case CV_16U:
        return of_values(std::uint16_t{});
    default:
        return of_values(std::uint8_t{});
    }
}

/// The sets of the labels of a CV_8UC1, CV_16UC1 or CV_32SC1.
inline std::vector<LabelledSet> FromLabels(const cv::Mat& labels)
{
    switch (labels.depth()) {
    case CV_8U:
        return FromLabels(ViewOf<const std::uint8_t>(labels));
    case CV_16U:
        return FromLabels(ViewOf<const std::uint16_t>(labels));
    default:
        return FromLabels(ViewOf<const std::int32_t>(labels));
    }
}

/// Gives the set's pixels in a CV_8UC1 a value and leaves all others as they are.
inline void Paint(const KivRunSet& set, cv::Mat& mask, std::uint8_t value = 255)
{
    Paint(set, ViewOf<std::uint8_t>(mask), value);
}

/// A CV_8UC1 with the value at the set's pixels and 0 elsewhere.
inline cv::Mat ToMask(const KivRunSet& set, int width, int height, std::uint8_t value = 255)
{
    cv::Mat mask = cv::Mat::zeros(height, width, CV_8UC1);
    Paint(set, mask, value);
    return mask;
}

/// A CV_32SC1 with 1 at the pixels of the first set, 2 at those of the second one, and so on, and 0 elsewhere; where
/// sets overlap, the later one wins.
inline cv::Mat ToLabels(const std::vector<KivRunSet>& sets, int width, int height)
{
    cv::Mat labels = cv::Mat::zeros(height, width, CV_32SC1);
    PaintLabels(sets, ViewOf<std::int32_t>(labels));
    return labels;
}

} // namespace KivRuns
