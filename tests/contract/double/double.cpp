// SPDX-License-Identifier: MIT
#include "extraction.h"

#include <KivData/KivData.h>
#include <KivRLC/KivRLC.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace
{

using recording::count_call;
using recording::record_call;
using recording::record_violation;

std::string text_of_runs(const std::vector<int>& rows, const std::vector<int>& begins, const std::vector<int>& ends)
{
    if (rows.size() != begins.size() || rows.size() != ends.size()) {
        record_violation("arrays of unequal length");
        return "unequal";
    }
    std::string text;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        text += (i > 0 ? " (" : "(") + std::to_string(rows[i]) + "," + std::to_string(begins[i]) + "," +
                std::to_string(ends[i]) + ")";
    }
    return "{" + text + "}";
}

std::string text_of_runs(const KivVarArray& rows, const KivVarArray& begins, const KivVarArray& ends)
{
    if (!rows.test_holds_ints_only() || !begins.test_holds_ints_only() || !ends.test_holds_ints_only()) {
        record_violation("runs of elements that are no ints");
    }
    return text_of_runs(rows.test_values(), begins.test_values(), ends.test_values());
}

std::vector<Run> runs_of(const KivVarArray& rows, const KivVarArray& begins, const KivVarArray& ends)
{
    const std::vector<int> row_values = rows.test_values();
    const std::vector<int> begin_values = begins.test_values();
    const std::vector<int> end_values = ends.test_values();
    std::vector<Run> runs;
    for (std::size_t i = 0; i < row_values.size(); ++i) {
        runs.push_back({row_values[i], begin_values.at(i), end_values.at(i)});
    }
    return runs;
}

void fill_fresh(const std::string& call, const std::vector<Run>& runs, KivVarArray& rows, KivVarArray& begins,
                KivVarArray& ends)
{
    if (!rows.test_values().empty() || !begins.test_values().empty() || !ends.test_values().empty()) {
        record_violation(call + ": arrays that are not fresh");
    }
    if (&rows == &begins || &rows == &ends || &begins == &ends) {
        record_violation(call + ": one array for two outputs");
    }
    for (const Run& run : runs) {
        rows.test_append(run.row);
        begins.test_append(run.colBegin);
        ends.test_append(run.colEnd);
    }
}

std::string size_text(int width, int height)
{
    return std::to_string(width) + ", " + std::to_string(height);
}

/// The runs of non-zero bytes, one byte at a time.
std::vector<Run> runs_of(const cv::Mat& mask)
{
    std::vector<Run> runs;
    for (int y = 0; y < mask.rows; ++y) {
        for (int x = 0; x < mask.cols; ++x) {
            if (mask.ptr(y)[x] == 0) {
                continue;
            }
            if (x > 0 && mask.ptr(y)[x - 1] != 0) {
                runs.back().colEnd = x;
            } else {
                runs.push_back({y, x, x});
            }
        }
    }
    return runs;
}

template <class Values>
auto& checked(const char* type, Values& values, int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= values.size()) {
        record_violation(std::string(type) + ": index " + std::to_string(index) + " out of range");
        throw std::out_of_range(type);
    }
    return values[static_cast<std::size_t>(index)];
}

/// What ToMAT() gives: what a test wants it to, or a mask that is all foreground.
cv::Mat rendered(int width, int height)
{
    return recording::recorder().rendered.value_or(cv::Mat(height, width, CV_8UC1, cv::Scalar(255)));
}

template <class Vector>
std::string text_of_vector(const Vector* vector)
{
    return vector == nullptr ? "null" : vector->empty() ? "empty" : "filled";
}

} // namespace

std::optional<std::vector<Run>>& recording::extracted()
{
    static std::optional<std::vector<Run>> runs;
    return runs;
}

KivVar& KivVar::operator=(const KivVar& other)
{
    count_call();
    test_value = other.test_value;
    test_type = other.test_type;
    return *this;
}

int KivVar::I() const
{
    count_call();
    return test_value;
}

int KivVar::ValType() const
{
    count_call();
    return test_type;
}

KivVarArray::KivVarArray(const KivVarArray& other) : recording::Counted(other)
{
    record_call("KivVarArray(copy)");
    for (const auto& value : other.values_) {
        test_append(value->test_value, value->test_type);
    }
}

int KivVarArray::Length() const
{
    count_call();
    return static_cast<int>(values_.size());
}

KivVar& KivVarArray::operator[](int index)
{
    count_call();
    return *checked("KivVarArray", values_, index);
}

void KivVarArray::Append(const KivVar& value)
{
    note("Append(" + std::to_string(value.test_value) + ")");
    test_append(value.test_value, value.test_type);
}

void KivVarArray::Remove(int index)
{
    note("Remove(" + std::to_string(index) + ")");
    checked("KivVarArray", values_, index);
    values_.erase(values_.begin() + index);
}

void KivVarArray::Replace(int index, const KivVar& value)
{
    note("Replace(" + std::to_string(index) + ", " + std::to_string(value.test_value) + ")");
    KivVar& element = *checked("KivVarArray", values_, index);
    element.test_value = value.test_value;
    element.test_type = value.test_type;
}

void KivVarArray::Clear()
{
    note("Clear()");
    values_.clear();
}

void KivVarArray::note(const std::string& change) const
{
    if (test_name.empty()) {
        count_call();
    } else {
        record_call(test_name + "." + change);
    }
}

std::vector<int> KivVarArray::test_values() const
{
    std::vector<int> values;
    for (const auto& value : values_) {
        values.push_back(value->test_value);
    }
    return values;
}

bool KivVarArray::test_holds_ints_only() const
{
    return std::all_of(values_.begin(), values_.end(), [](const auto& value) { return value->test_type == 0; });
}

void KivVarArray::test_append(int value, int type)
{
    const long throw_at = std::exchange(recording::recorder().throw_at, 0);
    values_.push_back(std::make_unique<KivVar>(value));
    values_.back()->test_type = type;
    --recording::recorder().call_count;
    recording::recorder().throw_at = throw_at;
}

int KivImage::Width() const
{
    record_call(test_name + ".Width()");
    return test_width;
}

int KivImage::Height() const
{
    record_call(test_name + ".Height()");
    return test_height;
}

int KivImage::BitDepth() const
{
    record_call(test_name + ".BitDepth()");
    return test_bit_depth;
}

int KivImage::Channels() const
{
    record_call(test_name + ".Channels()");
    return test_channels;
}

void* KivImage::ImageData()
{
    record_call(test_name + ".ImageData()");
    return test_matrix.data;
}

void KivImage::test_set(const cv::Mat& matrix)
{
    test_matrix = matrix;
    test_width = matrix.cols;
    test_height = matrix.rows;
    test_bit_depth = matrix.depth();
    test_channels = matrix.channels();
}

KivRegion::KivRegion()
{
    record_call("KivRegion()");
}

KivRegion& KivRegion::operator=(const KivRegion& other)
{
    record_call(test_name + " = " + other.test_name);
    test_width = other.test_width;
    test_height = other.test_height;
    test_runs = other.test_runs;
    return *this;
}

int KivRegion::Width() const
{
    record_call(test_name + ".Width()");
    return test_width;
}

int KivRegion::Height() const
{
    record_call(test_name + ".Height()");
    return test_height;
}

void KivRegion::GetRegionRuns(KivVarArray* rows, KivVarArray* colBegins, KivVarArray* colEnds)
{
    record_call(test_name + ".GetRegionRuns()");
    fill_fresh("GetRegionRuns", test_runs, *rows, *colBegins, *colEnds);
}

void KivRegion::CreateRegion(int width, int height, KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds)
{
    record_call(test_name + ".CreateRegion(" + size_text(width, height) + ", " +
                text_of_runs(rows, colBegins, colEnds) + ")");
    test_width = width;
    test_height = height;
    test_runs = runs_of(rows, colBegins, colEnds);
}

KivPoint& KivPoint::operator=(const KivPoint& other)
{
    count_call();
    x = other.x;
    y = other.y;
    return *this;
}

void KivPointArray::Clear()
{
    record_call(test_name + ".Clear()");
    points_.clear();
}

void KivPointArray::Append(KivPoint& point)
{
    std::ostringstream text;
    text << test_name << ".Append(" << point.x << ", " << point.y << ")";
    record_call(text.str());
    test_append(point.x, point.y);
}

KivPoint& KivPointArray::operator[](int index)
{
    count_call();
    return *checked("KivPointArray", points_, index);
}

int KivPointArray::Length() const
{
    count_call();
    return static_cast<int>(points_.size());
}

void KivPointArray::test_append(double x, double y)
{
    const long throw_at = std::exchange(recording::recorder().throw_at, 0);
    points_.push_back(std::make_unique<KivPoint>());
    points_.back()->x = x;
    points_.back()->y = y;
    --recording::recorder().call_count;
    recording::recorder().throw_at = throw_at;
}

std::vector<cv::Point_<double>> KivPointArray::test_points() const
{
    std::vector<cv::Point_<double>> points;
    for (const auto& point : points_) {
        points.emplace_back(point->x, point->y);
    }
    return points;
}

KivContour::KivContour()
{
    record_call("KivContour()");
}

KivContour& KivContour::operator=(const KivContour& other)
{
    record_call(test_name + " = " + other.test_name);
    test_points = other.test_points;
    return *this;
}

int KivContour::Length() const
{
    record_call(test_name + ".Length()");
    return static_cast<int>(test_points.size());
}

int KivContourArray::Length() const
{
    record_call(test_name + ".Length()");
    return test_length;
}

IKivROIPara::IKivROIPara()
{
    record_call("IKivROIPara()");
}

void IKivROIPara::GetMask(KivVarArray* rows, KivVarArray* colBegins, KivVarArray* colEnds, int* width,
                          int* height) const
{
    record_call(test_name + ".GetMask(runs)");
    fill_fresh("GetMask", test_runs, *rows, *colBegins, *colEnds);
    *width = test_width;
    *height = test_height;
}

void IKivROIPara::GetMask(KivContourArray* contours, int* width, int* height)
{
    record_call(test_name + ".GetMask(" + contours->test_name + ")");
    contours->test_written_by = "GetMask of " + test_name;
    *width = test_width;
    *height = test_height;
}

void IKivROIPara::GenMask(KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds, int width, int height)
{
    record_call(test_name + ".GenMask(" + text_of_runs(rows, colBegins, colEnds) + ", " + size_text(width, height) +
                ")");
    test_runs = runs_of(rows, colBegins, colEnds);
    test_width = width;
    test_height = height;
}

cv::Mat IKivROIPara::ToMAT(KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds, int width, int height)
{
    record_call(test_name + ".ToMAT(" + text_of_runs(rows, colBegins, colEnds) + ", " + size_text(width, height) + ")");
    return rendered(width, height);
}

cv::Mat IKivROIPara::ToMAT(KivContourArray& contours, int width, int height)
{
    record_call("ToMAT(" + contours.test_name + ", " + size_text(width, height) + ")");
    return rendered(width, height);
}

void IKivROIPara::MatToMask(cv::Mat& mask, KivVarArray* rows, KivVarArray* colBegins, KivVarArray* colEnds, int* width,
                            int* height)
{
    record_call(test_name + ".MatToMask(" + recording::text_of(mask) + ", runs)");
    fill_fresh("MatToMask", runs_of(mask), *rows, *colBegins, *colEnds);
    *width = mask.cols + 1000; // unlike any other size, so that it shows where it goes
    *height = mask.rows + 1000;
}

void IKivROIPara::MatToMask(cv::Mat& mask, KivContourArray* contours, int* width, int* height)
{
    record_call("MatToMask(" + recording::text_of(mask) + ", " + contours->test_name + ")");
    contours->test_written_by = "MatToMask";
    *width = mask.cols;
    *height = mask.rows;
}

KivROI::KivROI()
{
    record_call("KivROI()");
}

KivROI::KivROI(const KivROI& other) : recording::Counted(other)
{
    record_call("KivROI(" + other.test_name + ")");
    test_become("copy", other.test_type, other.test_parameters.test_width, other.test_parameters.test_height,
                other.test_parameters.test_runs);
}

KivROI& KivROI::operator=(const KivROI& other)
{
    record_call(test_name + " = " + other.test_name);
    test_become(test_name, other.test_type, other.test_parameters.test_width, other.test_parameters.test_height,
                other.test_parameters.test_runs);
    return *this;
}

int KivROI::ROIType() const
{
    record_call(test_name + ".ROIType()");
    return test_type;
}

void KivROI::test_become(const std::string& name, int type, int width, int height, std::vector<Run> runs)
{
    test_name = name;
    test_type = type;
    test_parameters.test_name = name;
    test_parameters.test_width = width;
    test_parameters.test_height = height;
    test_parameters.test_runs = std::move(runs);
}

void KivRLC::FindContours(cv::Mat& mask, char mode, std::vector<cv::Point_<int>>* points, std::vector<int>* lengths,
                          std::vector<cv::Vec<int, 4>>* hierarchy, std::vector<int>* labels, std::vector<Run>* runs,
                          std::vector<int>* starts, bool external, int first, int second, int third, bool merge)
{
    std::ostringstream text;
    text << "FindContours(" << recording::text_of(mask) << ", " << int{mode} << ", " << text_of_vector(points) << ", "
         << text_of_vector(lengths) << ", " << text_of_vector(hierarchy) << ", " << text_of_vector(labels) << ", "
         << text_of_vector(runs) << ", " << text_of_vector(starts) << ", " << std::boolalpha << external << ", "
         << first << ", " << second << ", " << third << ", " << merge << ")";
    record_call(text.str());
    for (const Run& run : recording::extracted().value_or(runs_of(mask))) {
        runs->push_back(run);
    }
    // What an extractor may do besides, and what must make no difference.
    mask.setTo(cv::Scalar::all(77));
    points->emplace_back(7, 7);
    lengths->push_back(7);
    hierarchy->emplace_back(7, 7, 7, 7);
    starts->push_back(7);
}
