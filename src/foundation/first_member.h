// SPDX-License-Identifier: MIT
// Images, matrices, ROIs and contours are reached through their first member, a pointer. This is the one place that
// does so: it reads the pointer's bytes, so no aliasing rule is bent and no more of the layout is relied on.
#pragma once

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <cstring>
#include <vector>

namespace kiv
{

/// The object that the first member points to. The overloads below return it as constant if the given object is.
template <class Member, class Object>
Member& behind_first_member(Object& object)
{
    Member* member = nullptr;
    std::memcpy(&member, static_cast<const void*>(&object), sizeof(Member*));
    return *member;
}

inline cv::Mat& matrix_of(KivImage& image)
{
    return behind_first_member<cv::Mat>(image);
}
inline const cv::Mat& matrix_of(const KivImage& image)
{
    return behind_first_member<cv::Mat>(image);
}
inline cv::Mat& matrix_of(KivMatrix& matrix)
{
    return behind_first_member<cv::Mat>(matrix);
}
inline const cv::Mat& matrix_of(const KivMatrix& matrix)
{
    return behind_first_member<cv::Mat>(matrix);
}

inline IKivROIPara& parameters_of(KivROI& roi)
{
    return behind_first_member<IKivROIPara>(roi);
}
inline const IKivROIPara& parameters_of(const KivROI& roi)
{
    return behind_first_member<IKivROIPara>(roi);
}

using ContourPoints = std::vector<cv::Point_<double>>;

inline ContourPoints& points_of(KivContour& contour)
{
    return behind_first_member<ContourPoints>(contour);
}
inline const ContourPoints& points_of(const KivContour& contour)
{
    return behind_first_member<ContourPoints>(contour);
}

} // namespace kiv
