// SPDX-License-Identifier: MIT
#include <KivData/KivROI.h>

#include "argument_checks.h"
#include "mask_contours.h"
#include "mask_runs.h"
#include "run_arrays.h"
#include "shape_checks.h"
#include "shape_runs.h"

#include <type_traits>

IKivROIPara::IKivROIPara(KivShape::Any shape, int width, int height)
    : shape_(std::move(shape)), width_(width), height_(height)
{
    kivdata::check_shape(shape_);
    kivdata::check_frame(width, height);
}

int IKivROIPara::ShapeType() const noexcept
{
    return std::visit([](const auto& shape) { return std::decay_t<decltype(shape)>::type; }, shape_);
}

std::vector<Run> IKivROIPara::MaskRuns() const
{
    return kivdata::runs_of_shape(shape_, width_, height_);
}

bool IKivROIPara::Contains(int x, int y) const
{
    return kivdata::shape_contains(shape_, width_, height_, x, y);
}

void IKivROIPara::GetMask(KivVarArray* rows, KivVarArray* colBegins, KivVarArray* colEnds, int* width,
                          int* height) const
{
    kivdata::runs_to_arrays(MaskRuns(), *rows, *colBegins, *colEnds);
    *width = width_;
    *height = height_;
}

void IKivROIPara::GetMask(KivContourArray* contours, int* width, int* height)
{
    *contours = KeptRuns() != nullptr ? kivdata::trace_contours(*KeptRuns(), width_, height_)
                                      : kivdata::trace_contours(MaskRuns(), width_, height_);
    *width = width_;
    *height = height_;
}

void IKivROIPara::GenMask(KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds, int width, int height)
{
    GenMask(kivdata::runs_of_arrays(rows, colBegins, colEnds), width, height);
}

void IKivROIPara::GenMask(std::vector<Run> runs, int width, int height)
{
    kivdata::check_frame(width, height);
    shape_.emplace<KivShape::Mask>(KivShape::Mask{std::move(runs)});
    width_ = width;
    height_ = height;
}

cv::Mat IKivROIPara::ToMAT(KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds, int width, int height)
{
    return kivdata::mask_of_runs(kivdata::runs_of_arrays(rows, colBegins, colEnds), width, height);
}

cv::Mat IKivROIPara::ToMAT(KivContourArray& contours, int width, int height)
{
    return kivdata::fill_contours(contours, width, height);
}

void IKivROIPara::MatToMask(cv::Mat& mask, KivVarArray* rows, KivVarArray* colBegins, KivVarArray* colEnds, int* width,
                            int* height)
{
    kivdata::runs_to_arrays(kivdata::runs_of_mask(mask), *rows, *colBegins, *colEnds);
    *width = mask.cols;
    *height = mask.rows;
}

void IKivROIPara::MatToMask(cv::Mat& mask, KivContourArray* contours, int* width, int* height)
{
    *contours = kivdata::trace_contours(mask);
    *width = mask.cols;
    *height = mask.rows;
}

void IKivROIPara::swap(IKivROIPara& other) noexcept
{
    shape_.swap(other.shape_);
    std::swap(width_, other.width_);
    std::swap(height_, other.height_);
}
