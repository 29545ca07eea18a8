// SPDX-License-Identifier: MIT
// The seam to the data types on any implementation of them: it uses only what their contract lists.
#include "seam/data_types.h"

#include "foundation/first_member.h"
#include "foundation/masks.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

namespace kiv
{
namespace
{

/// Runs as the data types deliver and accept them: three parallel arrays, filled once.
struct RunArrays {
    RunArrays() = default;
    explicit RunArrays(RunView runs)
    {
        for (const auto& [row, begin, end] : runs) {
            rows.Append(KivVar(row));
            col_begins.Append(KivVar(begin));
            col_ends.Append(KivVar(end));
        }
    }
    RunArrays(const RunArrays&) = delete;
    RunArrays& operator=(const RunArrays&) = delete;

    RunList list()
    {
        const int length = rows.Length();
        RunList runs;
        runs.reserve(static_cast<std::size_t>(length));
        for (int i = 0; i < length; ++i) {
            runs.push_back({rows[i].I(), col_begins[i].I(), col_ends[i].I()});
        }
        return runs;
    }

    KivVarArray rows;
    KivVarArray col_begins;
    KivVarArray col_ends;
};

/// A copy in which the first `cols` bytes of each row are 0 or 255. In a mask of several channels the bytes behind them
/// are as they were: the extractor does not look there.
cv::Mat normalised_copy_of(const cv::Mat& pixels)
{
    cv::Mat mask(pixels.rows, pixels.cols, pixels.type());
    const std::size_t row_bytes = static_cast<std::size_t>(pixels.cols) * pixels.elemSize();
    for (int y = 0; y < mask.rows; ++y) {
        const uchar* from = pixels.ptr(y);
        uchar* normalised_end = std::transform(from, from + pixels.cols, mask.ptr(y),
                                               [](uchar byte) { return static_cast<uchar>(byte != 0 ? 255 : 0); });
        std::copy(from + pixels.cols, from + row_bytes, normalised_end);
    }
    return mask;
}

/// The two kinds of values that convert to int.
bool is_number_kind(int type)
{
    return type == 0 || type == 1;
}

Frame get_mask(const IKivROIPara& parameters, RunArrays& arrays)
{
    Frame frame;
    parameters.GetMask(&arrays.rows, &arrays.col_begins, &arrays.col_ends, &frame.width, &frame.height);
    return frame;
}

} // namespace

FramedRuns parts_of(KivRegion& region)
{
    const int width = region.Width();
    const int height = region.Height();
    RunArrays arrays;
    region.GetRegionRuns(&arrays.rows, &arrays.col_begins, &arrays.col_ends);
    return {{width, height}, arrays.list()};
}

void create_region(KivRegion& region, Frame frame, RunList runs)
{
    RunArrays arrays(runs);
    region.CreateRegion(frame.width, frame.height, arrays.rows, arrays.col_begins, arrays.col_ends);
}

FramedRuns mask_of(const KivROI& roi)
{
    RunArrays arrays;
    const Frame frame = get_mask(parameters_of(roi), arrays);
    return {frame, arrays.list()};
}

cv::Mat painted_mask_of(KivROI& roi)
{
    IKivROIPara& parameters = parameters_of(roi);
    RunArrays arrays;
    const Frame frame = get_mask(parameters, arrays);
    return parameters.ToMAT(arrays.rows, arrays.col_begins, arrays.col_ends, frame.width, frame.height);
}

bool has_columns(KivROI& roi, const FramedRuns& mask)
{
    RunArrays arrays(mask.runs);
    cv::Mat painted =
        parameters_of(roi).ToMAT(arrays.rows, arrays.col_begins, arrays.col_ends, mask.frame.width, mask.frame.height);
    if (painted.cols < 1) {
        return false;
    }
    extract_runs(painted); // a mask that the extractor rejects is an error here, too
    return true;
}

void become_mask(KivROI& roi, Frame frame, RunList runs)
{
    RunArrays arrays(runs);
    parameters_of(roi).GenMask(arrays.rows, arrays.col_begins, arrays.col_ends, frame.width, frame.height);
}

void become_mask_of(KivROI& roi, cv::Mat& image)
{
    IKivROIPara& parameters = parameters_of(roi);
    RunArrays arrays;
    Frame frame;
    parameters.MatToMask(image, &arrays.rows, &arrays.col_begins, &arrays.col_ends, &frame.width, &frame.height);
    parameters.GenMask(arrays.rows, arrays.col_begins, arrays.col_ends, frame.width, frame.height);
}

void sort_by_row(RunList& runs)
{
    std::stable_sort(runs.begin(), runs.end(),
                     [](const Run& left, const Run& right) { return row_of(left) < row_of(right); });
}

void sort_by_row_and_column(RunList& runs)
{
    std::stable_sort(runs.begin(), runs.end(), [](const Run& left, const Run& right) {
        return std::pair(row_of(left), begin_of(left)) < std::pair(row_of(right), begin_of(right));
    });
}

std::optional<RunList> combined_sets(PlainOperation /*operation*/, RunView /*a*/, RunView /*b*/)
{
    return std::nullopt;
}

RunList runs_of_image(const cv::Mat& pixels, MaskBytes bytes)
{
    cv::Mat copy = bytes == MaskBytes::normalised ? normalised_copy_of(pixels) : pixels.clone();
    return extract_runs(copy);
}

cv::Rect part_to_extract(Frame frame, const cv::Rect& /*filled*/)
{
    return {0, 0, frame.width, frame.height};
}

RunList runs_of_pixels(const PixelLists& pixels, Frame frame)
{
    cv::Mat mask = painted_mask(frame, pixels);
    return extract_runs(mask);
}

std::optional<PixelRuns> runs_of_ordered_pixels(const PixelLists& /*pixels*/)
{
    return std::nullopt;
}

std::optional<PixelRuns> runs_of_ordered_points(KivPointArray& /*points*/)
{
    return std::nullopt;
}

PixelCoordinates pixels_of(RunView runs, Frame frame)
{
    RunList parts;
    for_each_visible(runs, frame, [&parts](int row, int first, int last) { parts.push_back({row, first, last}); });
    sort_by_row_and_column(parts);
    PixelCoordinates pixels;
    int last_row = -1;
    int next_column = 0;
    for (const auto& [row, begin, end] : parts) {
        next_column = row == last_row ? std::max(next_column, begin) : begin;
        for (; next_column <= end; ++next_column) {
            pixels.columns.push_back(next_column);
            pixels.rows.push_back(row);
        }
        last_row = row;
    }
    return pixels;
}

void paint(RunView runs, cv::Mat& mask, int foreground, int background)
{
    mask.setTo(background);
    for_each_visible(runs, {mask.cols, mask.rows}, [&](int row, int first, int last) {
        std::memset(mask.ptr(row) + first, foreground, static_cast<std::size_t>(length_of(first, last)));
    });
}

void trace(const FramedRuns& pixels, KivContourArray* contours)
{
    cv::Mat mask = painted_mask(pixels.frame, pixels.runs);
    Frame traced;
    IKivROIPara::MatToMask(mask, contours, &traced.width, &traced.height);
}

std::optional<RunList> filled_runs(KivContourArray& contours, Frame frame)
{
    cv::Mat mask;
    try {
        mask = IKivROIPara::ToMAT(contours, frame.width, frame.height);
    } catch (...) {
        return std::nullopt;
    }
    return extract_runs(mask);
}

int count_leading_numbers(KivVarArray& values)
{
    const int length = values.Length();
    int count = 0;
    while (count < length && is_number_kind(values[count].ValType())) {
        ++count;
    }
    return count;
}

ViewOrCopy<int> ints_of(KivVarArray& values, int count)
{
    std::vector<int> ints;
    ints.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        ints.push_back(values[i].I());
    }
    return ints;
}

void overwrite(KivVarArray& values, std::span<const int> ints)
{
    for (std::size_t i = 0; i < ints.size(); ++i) {
        values[static_cast<int>(i)] = KivVar(ints[i]);
    }
}

void fill(KivVarArray& values, std::vector<int> ints)
{
    for (const int value : ints) {
        values.Append(KivVar(value));
    }
}

void reserve(KivPointArray& /*points*/, std::size_t /*count*/) {}

void append_pixels(KivPointArray& points, RunView runs)
{
    KivPoint pixel;
    for (const auto& [row, begin, end] : runs) {
        pixel.y = row;
        for (std::int64_t column = begin; column <= end; ++column) {
            pixel.x = static_cast<double>(column);
            points.Append(pixel);
        }
    }
}

} // namespace kiv
