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

template <class Member, class Object>
Member& behind_first_member(const Object& object)
{
    Member* member = nullptr;
    std::memcpy(&member, static_cast<const void*>(&object), sizeof(Member*));
    return *member;
}

inline cv::Mat& matrix_of(const KivImage& image)
{
    return behind_first_member<cv::Mat>(image);
}
inline cv::Mat& matrix_of(const KivMatrix& matrix)
{
    return behind_first_member<cv::Mat>(matrix);
}
inline IKivROIPara& parameters_of(const KivROI& roi)
{
    return behind_first_member<IKivROIPara>(roi);
}

inline std::vector<cv::Point_<double>>& points_of(const KivContour& contour)
{
    return behind_first_member<std::vector<cv::Point_<double>>>(contour);
}

} // namespace kiv
