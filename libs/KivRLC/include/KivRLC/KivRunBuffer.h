// SPDX-License-Identifier: MIT
/// @file
/// The memory of run sets and read-only views of it. This header needs no OpenCV.
#pragma once

#include <KivRLC/KivRun.h>

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

/// A read-only view of contiguous runs. It owns nothing.
///
/// It has the const members of a standard container, so it works in range-based loops, converts to std::span, and
/// `std::vector<Run>(view.begin(), view.end())` copies it.
class KivRunView
{
public:
    using value_type = Run;            ///< Type of the elements.
    using const_iterator = const Run*; ///< Type of begin() and end().
    using iterator = const Run*;       ///< The same, as the view only reads.

    constexpr KivRunView() noexcept = default; ///< No runs.

    /// `count` runs from `runs` on.
    constexpr KivRunView(const Run* runs, std::size_t count) noexcept : data_(runs), size_(count) {}

    /// All runs of a vector; valid until the vector reallocates.
    template <class Allocator>
    KivRunView(const std::vector<Run, Allocator>& runs) noexcept : KivRunView(runs.data(), runs.size())
    {
    }

    constexpr const Run* data() const noexcept { return data_; }                       ///< The first run.
    constexpr std::size_t size() const noexcept { return size_; }                      ///< How many runs.
    constexpr bool empty() const noexcept { return size_ == 0; }                       ///< Whether there are none.
    constexpr const Run* begin() const noexcept { return data_; }                      ///< The first run.
    constexpr const Run* end() const noexcept { return data_ + size_; }                ///< Behind the last run.
    constexpr const Run& operator[](std::size_t i) const noexcept { return data_[i]; } ///< Run i, i < size().
    constexpr const Run& front() const noexcept { return data_[0]; }                   ///< The first of some runs.
    constexpr const Run& back() const noexcept { return data_[size_ - 1]; }            ///< The last of some runs.

private:
    const Run* data_ = nullptr;
    std::size_t size_ = 0;
};

namespace kivrlc
{

/// std::allocator, except that elements made without a value are left uninitialised, so that room for results is not
/// cleared before they are written.
template <class T>
class UnclearedAllocator : public std::allocator<T>
{
public:
    /// The same for another type, as containers ask for it.
    template <class U>
    struct rebind {
        using other = UnclearedAllocator<U>; ///< The allocator of U.
    };

    UnclearedAllocator() noexcept = default; ///< All of them are alike.
    template <class U>
    UnclearedAllocator(const UnclearedAllocator<U>& /*other*/) noexcept ///< All of them are alike.
    {
    }

    /// Leaves the memory as it is.
    template <class U>
    void construct(U* place) noexcept
    {
        ::new (static_cast<void*>(place)) U;
    }
    /// Makes an element of the arguments, as std::allocator does.
    template <class U, class... Arguments>
    void construct(U* place, Arguments&&... arguments)
    {
        ::new (static_cast<void*>(place)) U(std::forward<Arguments>(arguments)...);
    }
};

/// A vector of runs whose resize() leaves new runs uninitialised.
using RunBuffer = std::vector<Run, UnclearedAllocator<Run>>;

} // namespace kivrlc
