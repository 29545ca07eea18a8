// SPDX-License-Identifier: MIT
/// @file
/// KivRunSet: a set of pixels, held as its maximal runs. This header needs no OpenCV.
#pragma once

#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRunBox.h>
#include <KivRLC/KivRunBuffer.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace kivrlc
{
struct RunSetAccess;
}

/// A set of pixels of the plane. Coordinates may be any ints, also negative ones; a set has no frame.
///
/// The set is held as its maximal runs: rows ascend, within a row columns ascend, and at least one pixel that does not
/// belong separates two runs of a row. So every set has exactly one list of runs, and two sets are equal if and only if
/// they have the same pixels.
///
/// A set is a value. Operations return new sets and do not modify their operands; only assignment and swap() modify a
/// set. Any number of threads may read one set at the same time. A copy has its own memory, so that threads share no
/// reference counts; moving is free and leaves the other set empty. A set holds 12 bytes a run, and a quarter of that
/// or a kilobyte more at most.
class KIVRLC_API KivRunSet
{
public:
    KivRunSet() noexcept = default; ///< No pixels.

    /// The pixels that any of the runs covers.
    ///
    /// The runs may come in any order, overlap, touch and repeat; a run whose begin lies past its end covers nothing.
    ///
    /// Cost: linear if the rows ascend and within them the first columns do; otherwise a sort.
    ///
    /// @throws std::bad_alloc if memory runs out.
    explicit KivRunSet(KivRunView runs);

    /// The same from a vector.
    explicit KivRunSet(const std::vector<Run>& runs) : KivRunSet(KivRunView(runs)) {}

    /// The same from a list such as `{{0, 2, 5}, {1, 2, 5}}`.
    KivRunSet(std::initializer_list<Run> runs) : KivRunSet(KivRunView(runs.begin(), runs.size())) {}

    /// The pixels of a box: a run a row. Throws std::bad_alloc if memory runs out.
    static KivRunSet FromBox(const KivRunBox& box) { return KivRunSet().Complement(box); }

    /// The runs, from the uppermost row down, and in a row from left to right. The view is valid until the set is
    /// assigned to, moved from, swapped or destroyed.
    KivRunView Runs() const noexcept { return {runs_.data(), runs_.size()}; }

    /// The runs of one row, found by binary search; empty if the row has no pixels. Valid as long as Runs().
    KivRunView RunsOfRow(int row) const noexcept;

    /// Whether the set has no pixels.
    bool Empty() const noexcept { return runs_.empty(); }

    /// The number of pixels. Exact for every set of less than 2^31 runs.
    std::int64_t Area() const noexcept;

    /// Whether pixel (x, y), column x of row y, belongs to the set; found by binary search.
    bool Contains(int x, int y) const noexcept;

    /// @name Set operations
    /// New sets, made in one pass over the runs of both operands. Both operands may be the same set, and so may a set
    /// and what is assigned to it. A result has at most as many runs as both operands together. Each throws
    /// std::bad_alloc if memory runs out; a set that is assigned to then keeps its pixels.
    /// @{
    KIVRLC_API friend KivRunSet operator|(const KivRunSet& a, const KivRunSet& b); ///< Union: pixels of any of them.
    KIVRLC_API friend KivRunSet operator&(const KivRunSet& a, const KivRunSet& b); ///< Intersection: pixels of both.
    KIVRLC_API friend KivRunSet operator-(const KivRunSet& a, const KivRunSet& b); ///< Difference: of a, but not of b.
    KIVRLC_API friend KivRunSet operator^(const KivRunSet& a,
                                          const KivRunSet& b); ///< Symmetric difference: of one only.
    KivRunSet& operator|=(const KivRunSet& other) { return *this = *this | other; } ///< Becomes the union.
    KivRunSet& operator&=(const KivRunSet& other) { return *this = *this & other; } ///< Becomes the intersection.
    KivRunSet& operator-=(const KivRunSet& other) { return *this = *this - other; } ///< Becomes the difference.
    KivRunSet& operator^=(const KivRunSet& other)
    {
        return *this = *this ^ other;
    } ///< Becomes the symmetric difference.
    /// @}

    /// The pixels of the box that do not belong to the set.
    ///
    /// Cost: linear in the runs on the box's rows and in these rows, each of which holds at least one run of the result
    /// unless the set covers it: the complement in a box of 10^9 rows takes 12 GB.
    ///
    /// @throws std::bad_alloc if memory runs out.
    KivRunSet Complement(const KivRunBox& box) const;

    /// The pixels that belong to any of the sets; none if there are no sets.
    ///
    /// Cost: linear in the runs of all sets, times the logarithm of the number of sets.
    ///
    /// @throws std::bad_alloc if memory runs out.
    static KivRunSet Union(const std::vector<KivRunSet>& sets);

    /// @name Comparisons
    /// Computed without making a set, in one pass over the runs of both that stops as soon as the answer is known.
    /// @{
    bool IsSubsetOf(const KivRunSet& other) const noexcept; ///< Whether the other set has every pixel of this one.
    bool Intersects(const KivRunSet& other) const noexcept; ///< Whether any pixel belongs to both.

    std::int64_t IntersectionArea(const KivRunSet& other) const noexcept; ///< The number of pixels of both.
    std::int64_t UnionArea(const KivRunSet& other) const noexcept;        ///< The number of pixels of any of them.

    /// Intersection over union: the share of the pixels of any of them that belong to both, from 0 for sets without a
    /// common pixel to 1 for equal ones. Two empty sets are equal.
    double IntersectionOverUnion(const KivRunSet& other) const noexcept;
    /// @}

    /// Exchanges two sets.
    void swap(KivRunSet& other) noexcept { runs_.swap(other.runs_); }
    friend void swap(KivRunSet& a, KivRunSet& b) noexcept { a.swap(b); } ///< Exchanges two sets.

    /// Whether both have the same pixels.
    KIVRLC_API friend bool operator==(const KivRunSet& a, const KivRunSet& b) noexcept;
    friend bool operator!=(const KivRunSet& a, const KivRunSet& b) noexcept { return !(a == b); } ///< Not ==.

    /// Describes why a list of runs is not that of a set, and names the first run at fault: an inverted run, a row that
    /// does not ascend, or a run that overlaps or touches the one before. Empty if it is one. For tests, and for lists
    /// from elsewhere; Runs() always passes.
    static std::string WhyNotCanonical(KivRunView runs);

private:
    friend struct kivrlc::RunSetAccess;

    kivrlc::RunBuffer runs_;
};
