// SPDX-License-Identifier: MIT
/// @file
/// Small matrices with given elements.
#pragma once

#include <opencv2/core.hpp>

#include <initializer_list>
#include <vector>

namespace support
{

/// A matrix of one channel that has those elements, row by row. What OpenCV itself offers for this is not in all of its
/// versions, or deprecated.
template <class T>
cv::Mat matrix_of(int rows, std::initializer_list<T> elements)
{
    return cv::Mat(std::vector<T>(elements), true).reshape(1, rows);
}

} // namespace support
