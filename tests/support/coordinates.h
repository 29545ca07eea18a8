// SPDX-License-Identifier: MIT
/// @file
/// Arrays, points and contours as text, comparisons that print what they compared, and coordinates beyond all ints.
#pragma once

#include <KivData/KivData.h>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <cstdint>
#include <cstring>
#include <ctime>
#include <initializer_list>
#include <limits>
#include <new>
#include <sstream>
#include <string>
#include <vector>

namespace support
{

inline constexpr double nan = std::numeric_limits<double>::quiet_NaN();
inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double two_to_31 = 2147483648.0;

inline std::string text_of(const KivVarArray& values)
{
    std::ostringstream text;
    text.precision(17);
    for (int i = 0; i < values.Length(); ++i) {
        const KivVar value = values[i];
        text << (i > 0 ? ", " : "");
        switch (value.ValType()) {
        case KivVar::IntKind:
            text << value.I();
            break;
        case KivVar::DoubleKind:
            text << "double " << value.D();
            break;
        default:
            text << '"' << value.S() << '"';
        }
    }
    return '{' + text.str() + '}';
}

template <class Points> // of KivPoint or cv::Point_<double>
std::string text_of_points(const Points& points)
{
    std::ostringstream text;
    text.precision(17);
    for (const auto& point : points) {
        text << " (" << point.x << ", " << point.y << ')';
    }
    return std::to_string(points.size()) + " points:" + text.str();
}

inline std::string text_of(const KivPointArray& points)
{
    return text_of_points(points.Points());
}

inline std::string text_of(const KivContour& contour)
{
    return text_of_points(contour.AllPoints());
}

inline std::string text_of(const KivContourArray& contours)
{
    std::string text = std::to_string(contours.Length()) + " contours";
    for (const KivContour& contour : contours) {
        text += "\n  " + text_of(contour);
    }
    return text;
}

/// Whether two arrays, point arrays, contours or contour arrays are equal: all elements and their order. NaN equals
/// NaN.
template <class Value>
testing::AssertionResult same_values(const Value& actual, const Value& expected)
{
    if (actual == expected || text_of(actual) == text_of(expected)) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "expected " << text_of(expected) << "\n     got " << text_of(actual);
}

/// The bits of the coordinates, in order.
template <class Points> // of KivPoint or cv::Point_<double>
std::vector<std::uint64_t> bits_of(const Points& points)
{
    std::vector<std::uint64_t> bits;
    for (const auto& point : points) {
        for (const double coordinate : {point.x, point.y}) {
            std::uint64_t word = 0;
            std::memcpy(&word, &coordinate, sizeof word);
            bits.push_back(word);
        }
    }
    return bits;
}

inline std::vector<std::uint64_t> bits_of(const KivPointArray& points)
{
    return bits_of(points.Points());
}

inline std::vector<std::uint64_t> bits_of(const KivContour& contour)
{
    return bits_of(contour.AllPoints());
}

/// The points that a contour and a point array are made of, for those that are made of both.
struct PointList {
    PointList(std::initializer_list<cv::Point_<double>> list) : points(list) {}

    KivContour contour() const { return KivContour(points); }

    KivPointArray array() const
    {
        KivPointArray result;
        for (const auto& point : points) {
            result.Append(KivPoint{point.x, point.y});
        }
        return result;
    }

    std::vector<cv::Point_<double>> points;
};

/// A copy whose elements somebody has asked for references to.
inline KivVarArray touched(const KivVarArray& values)
{
    KivVarArray result(values);
    if (result.Length() > 0) {
        result[0] = KivVar(result[0]);
    }
    return result;
}

/// Whether the call fails as a frame does that is too large to hold.
template <class Call>
testing::AssertionResult raises(Call call)
{
    try {
        const int code = call();
        return testing::AssertionFailure() << "gave " << code;
    } catch (const cv::Exception&) {
        return testing::AssertionSuccess();
    } catch (const std::bad_alloc&) {
        return testing::AssertionSuccess();
    }
}

/// Whether the call takes little processor time: less than walking over 2^31 rows, columns or pixels would.
template <class Call>
testing::AssertionResult is_quick(Call call)
{
    const std::clock_t begin = std::clock();
    call();
    const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    if (seconds < 2.0) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "took " << seconds << " s of processor time";
}

/// The given points, in this order round the outline, from whichever of them it starts.
inline testing::AssertionResult same_outline(const KivContour& actual, const std::vector<cv::Point_<double>>& expected)
{
    const auto& points = actual.AllPoints();
    for (std::size_t shift = 0; points.size() == expected.size() && shift < points.size(); ++shift) {
        bool equal = true;
        for (std::size_t i = 0; i < points.size(); ++i) {
            equal = equal && points[(i + shift) % points.size()] == expected[i];
        }
        if (equal) {
            return testing::AssertionSuccess();
        }
    }
    return testing::AssertionFailure() << "expected " << text_of_points(expected) << "\n     got " << text_of(actual);
}

} // namespace support
