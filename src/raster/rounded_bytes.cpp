// SPDX-License-Identifier: MIT
#include "raster/rounded_bytes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace
{

uchar rounded_byte(double value)
{
    constexpr double no_int = std::numeric_limits<int>::max() + 0.5;
    return value < no_int ? static_cast<uchar>(std::nearbyint(std::clamp(value, 0.0, 255.0))) : uchar{0};
}

bool converts_alike(const cv::Mat& reals)
{
    return cv::norm(kiv::converted_bytes(reals), kiv::rounded_bytes(reals), cv::NORM_INF) == 0;
}

} // namespace

cv::Mat kiv::rounded_bytes(const cv::Mat& reals)
{
    cv::Mat bytes(reals.rows, reals.cols, CV_8UC(reals.channels()));
    const std::size_t row_length = static_cast<std::size_t>(reals.cols) * static_cast<std::size_t>(reals.channels());
    cv::Mat doubles;
    for (int y = 0; y < reals.rows; ++y) {
        reals.row(y).convertTo(doubles, CV_64F);
        const double* from = doubles.ptr<double>();
        std::transform(from, from + row_length, bytes.ptr(y), rounded_byte);
    }
    return bytes;
}

cv::Mat kiv::converted_bytes(const cv::Mat& matrix)
{
    cv::Mat bytes;
    matrix.convertTo(bytes, CV_8U);
    return bytes;
}

bool kiv::opencv_rounds_alike()
{
    // Long enough for what OpenCV does many at a time, and for what remains. Where it rounds by way of 64-bit integers,
    // numbers below and above all ints wrap round to positive ones.
    constexpr double infinity = std::numeric_limits<double>::infinity();
    double some[] = {0.5,  1.5, 2.5,      -0.5,      254.5,
                     -3e9, 5e9, infinity, -infinity, std::numeric_limits<double>::quiet_NaN()};
    cv::Mat doubles;
    cv::repeat(cv::Mat(1, 10, CV_64F, some), 1, 9, doubles);
    cv::Mat floats;
    doubles.convertTo(floats, CV_32F);
    return converts_alike(doubles) && converts_alike(floats);
}
