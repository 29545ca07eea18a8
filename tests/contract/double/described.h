// SPDX-License-Identifier: MIT
// The recording data types as text, to be compared.
#pragma once

#include <KivData/KivData.h>

#include <sstream>
#include <string>
#include <vector>

namespace recording
{

inline std::string described(const std::vector<Run>& runs)
{
    std::ostringstream text;
    for (const Run& run : runs) {
        text << " (" << run.row << "," << run.colBegin << "," << run.colEnd << ")";
    }
    return text.str();
}

inline std::string described(int width, int height, const std::vector<Run>& runs)
{
    return std::to_string(width) + " x " + std::to_string(height) + described(runs);
}

inline std::string described(const KivRegion& region)
{
    return described(region.test_width, region.test_height, region.test_runs);
}

inline std::string described(const IKivROIPara& parameters)
{
    return described(parameters.test_width, parameters.test_height, parameters.test_runs);
}

inline std::string described(const KivROI& roi)
{
    return "type " + std::to_string(roi.test_type) + ", " + described(roi.test_parameters);
}

inline std::string described(const KivImage& image)
{
    return recording::text_of(image.test_matrix);
}
inline std::string described(const KivMatrix& matrix)
{
    return recording::text_of(matrix.test_matrix);
}

inline std::string described(const KivContour& contour)
{
    std::ostringstream text;
    for (const auto& point : contour.test_points) {
        text << " (" << point.x << "," << point.y << ")";
    }
    return text.str();
}

inline std::string described(const KivContourArray& contours)
{
    return std::to_string(contours.test_length) + " " + contours.test_written_by;
}

inline std::string described(const KivVarArray& values)
{
    std::ostringstream text;
    for (const int value : values.test_values()) {
        text << " " << value;
    }
    return text.str();
}

inline std::string described(const KivPointArray& points)
{
    std::ostringstream text;
    for (const auto& point : points.test_points()) {
        text << " " << point;
    }
    return text.str();
}

} // namespace recording
