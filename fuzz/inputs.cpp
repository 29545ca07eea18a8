// SPDX-License-Identifier: MIT
#include "inputs.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>

namespace fuzz
{
namespace
{

constexpr unsigned char first_extreme_byte = 0xF0;

constexpr int extreme_ints[16] = {INT_MIN, INT_MIN + 1, INT_MIN + 2, -65537, -65536, -257,        -256,        -9,
                                  16,      255,         256,         65535,  65536,  INT_MAX - 2, INT_MAX - 1, INT_MAX};

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double extreme_doubles[16] = {-infinity,     -1e300, -2147483649.0, -2147483648.5,
                                        -2147483648.0, -1e6,   -0.5,          -0.0,
                                        0.5,           1.5,    1e6,           2147483646.5,
                                        2147483647.5,  1e300,  infinity,      std::numeric_limits<double>::quiet_NaN()};

int small_int(unsigned char byte)
{
    return byte % 16 - (byte >= 0x80 ? 8 : 0);
}

} // namespace

unsigned char FuzzedBytes::byte()
{
    if (rest_.empty()) {
        return 0;
    }
    const auto value = static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(1);
    return value;
}

int FuzzedBytes::any_int()
{
    std::uint32_t bits = 0;
    for (int i = 0; i < 4; ++i) {
        bits = bits << 8 | byte();
    }
    return static_cast<int>(bits);
}

int FuzzedBytes::coordinate()
{
    const unsigned char value = byte();
    return value < first_extreme_byte ? small_int(value) : extreme_ints[value - first_extreme_byte];
}

double FuzzedBytes::fine_coordinate()
{
    const unsigned char value = byte();
    return value < first_extreme_byte ? small_int(value) + digit() / 4.0 : extreme_doubles[value - first_extreme_byte];
}

double FuzzedBytes::near_coordinate()
{
    const unsigned char value = byte();
    return value < first_extreme_byte ? small_int(value) + digit() / 4.0 : std::remainder(any_int(), 1e6) / 1e3;
}

std::vector<Run> FuzzedBytes::runs()
{
    return runs(&FuzzedBytes::coordinate);
}

std::vector<Run> FuzzedBytes::runs_on_near_rows()
{
    return runs(&FuzzedBytes::near_row);
}

int FuzzedBytes::near_row()
{
    return small_int(byte());
}

std::vector<Run> FuzzedBytes::runs(int (FuzzedBytes::*next_row)())
{
    std::vector<Run> result(static_cast<std::size_t>(digit()));
    for (Run& run : result) {
        const int row = (this->*next_row)();
        const int begin = coordinate();
        run = {row, begin, coordinate()};
    }
    return result;
}

int FuzzedBytes::side()
{
    const unsigned char value = byte();
    return value == 0xFF ? INT_MAX : value % 16;
}

KivRegion FuzzedBytes::region()
{
    const int width = side();
    const int height = side();
    return KivRegion(width, height, runs());
}

KivROI FuzzedBytes::roi()
{
    const int width = side();
    const int height = side();
    switch (byte()) {
    case 'e':
        return KivROI();
    case 'o':
        return KivROI::OpenCurve({{0.0, 0.0}, {1.0, 1.0}}, width, height);
    case 'r':
        return KivROI(KivShape::Rectangle{double(digit()), double(digit()), double(digit()), double(digit())},
                      std::min(width, 15), std::min(height, 15));
    default:
        return KivROI::Mask(runs(), width, height);
    }
}

double FuzzedBytes::length()
{
    return std::abs(near_coordinate());
}

KivShape::Any FuzzedBytes::shape()
{
    const int kind = digit();
    const double x = near_coordinate();
    const double y = near_coordinate();
    switch (kind) {
    case 1:
        return KivShape::Rectangle{x, y, near_coordinate(), near_coordinate()};
    case 2:
        return KivShape::RotatedRectangle{x, y, length(), length(), 15 * near_coordinate()};
    case 4:
        return KivShape::Circle{x, y, length()};
    case 5:
        return KivShape::Ellipse{x, y, length(), length(), 15 * near_coordinate()};
    case 6:
        return KivShape::Ring{x, y, length(), length()};
    case 7:
        return KivShape::RingSector{x, y, length(), length(), 15 * near_coordinate(), std::min(15 * length(), 360.0)};
    default:
        break;
    }
    KivShape::Polygon polygon;
    polygon.points.emplace_back(x, y);
    for (int left = digit(); left > 0; --left) {
        const double corner_x = near_coordinate();
        polygon.points.emplace_back(corner_x, near_coordinate());
    }
    return polygon;
}

cv::Mat FuzzedBytes::picture()
{
    constexpr std::size_t most_rows = 64;
    constexpr std::size_t most_columns = 320;
    std::vector<std::string_view> lines;
    std::size_t columns = 1;
    do {
        const std::string_view line = rest_.substr(0, rest_.find('\n'));
        rest_.remove_prefix(std::min(line.size() + 1, rest_.size()));
        lines.push_back(line.substr(0, most_columns));
        columns = std::max(columns, lines.back().size());
    } while (!rest_.empty() && lines.size() < most_rows);

    cv::Mat pixels = cv::Mat::zeros(static_cast<int>(lines.size()), static_cast<int>(columns), CV_8UC1);
    for (std::size_t row = 0; row < lines.size(); ++row) {
        std::transform(lines[row].begin(), lines[row].end(), pixels.ptr<unsigned char>(static_cast<int>(row)),
                       [](char letter) { return static_cast<unsigned char>(letter == '.' ? 0 : letter); });
    }
    return pixels;
}

} // namespace fuzz
