// SPDX-License-Identifier: MIT
// Images, matrices, ROIs and contours are reached through their first member, a pointer. This is the one place that
// does so: it reads the pointer's bytes, so no aliasing rule is bent and no more of the layout is relied on.
#pragma once

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <concepts>
#include <cstring>
#include <type_traits>
#include <vector>

namespace kiv
{

/// The object that the first member points to; constant if the given object is.
template <class Member, class Object>
auto& behind_first_member(Object& object)
{
    std::conditional_t<std::is_const_v<Object>, const Member, Member>* member = nullptr;
    std::memcpy(&member, static_cast<const void*>(&object), sizeof(Member*));
    return *member;
}

template <class Object, class... Types>
concept OneOf = (std::same_as<std::remove_const_t<Object>, Types> || ...);

auto& matrix_of(OneOf<KivImage, KivMatrix> auto& object)
{
    return behind_first_member<cv::Mat>(object);
}

auto& parameters_of(OneOf<KivROI> auto& roi)
{
    return behind_first_member<IKivROIPara>(roi);
}

using ContourPoints = std::vector<cv::Point_<double>>;

auto& points_of(OneOf<KivContour> auto& contour)
{
    return behind_first_member<ContourPoints>(contour);
}

} // namespace kiv
