// SPDX-License-Identifier: MIT
// Operations that an implementation of the data types may offer beyond the contract, because its insides make them
// cheap. Where they are missing, the contract's own operations do the same. Defining KIVMV_CONTRACT_ONLY leaves them
// unused, so that both ways can be tested on the same types.
#pragma once

#include "foundation/runs.h"

#include <concepts>
#include <cstddef>
#include <vector>

namespace kiv
{

#if defined(KIVMV_CONTRACT_ONLY)
inline constexpr bool bulk_operations_are_used = false;
#else
inline constexpr bool bulk_operations_are_used = true;
#endif

/// A region that shows its runs as a flat list and takes one over. bench/ measures it.
template <class Region>
concept KeepsFlatRuns = bulk_operations_are_used && requires(Region& region, RunList runs)
{
    {
        region.Runs()
        } -> std::convertible_to<RunView>;
    region.CreateRegion(0, 0, std::move(runs));
};

/// The same of an ROI's mask.
template <class Parameters>
concept KeepsFlatMask = bulk_operations_are_used && requires(Parameters& parameters, RunList runs)
{
    {
        parameters.KeptRuns()
        } -> std::same_as<const RunList*>;
    {
        parameters.MaskRuns()
        } -> std::same_as<RunList>;
    {
        parameters.Width()
        } -> std::same_as<int>;
    {
        parameters.Height()
        } -> std::same_as<int>;
    parameters.GenMask(std::move(runs), 0, 0);
};

/// An array that shows its elements as a flat list as long as all of them are ints.
template <class Array>
concept KeepsPackedInts = bulk_operations_are_used && requires(const Array& array)
{
    {
        array.PackedInts()
        } -> std::same_as<const std::vector<int>*>;
};

/// An array of variants that takes many ints at once.
template <class Array>
concept TakesManyInts = bulk_operations_are_used && requires(Array& array, std::size_t count)
{
    array.Reserve(count);
    array.AppendRange(0, 0);
    array.AppendCopies(0, count);
};

/// An array of points that takes the pixels of a run at once.
template <class Array>
concept TakesPixels = bulk_operations_are_used && requires(Array& array, std::size_t count)
{
    array.Reserve(count);
    array.AppendPixels(0, 0, 0);
};

/// Makes room for `count` elements in an empty array that offers it, so that none is moved as the array grows.
/// bench/kiv/contours.cpp measures it.
template <class Array>
void reserve([[maybe_unused]] Array& array, [[maybe_unused]] std::size_t count)
{
    if constexpr (bulk_operations_are_used && requires { array.Reserve(count); }) {
        array.Reserve(count);
    }
}

/// An extractor that takes the runs of a mask and promises to leave it alone, so that none has to be copied for it.
/// bench/kiv/raster.cpp measures it.
template <class Extractor>
concept ReadsMasks = bulk_operations_are_used && requires(const cv::Mat& mask, RunList& runs)
{
    Extractor::AppendRuns(mask, runs);
};

} // namespace kiv
