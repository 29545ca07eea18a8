// SPDX-License-Identifier: MIT
// Boxes whose coordinates may be beyond int, to find out whether those of a result will be.
#pragma once

#include <KivRLC/KivRunBox.h>

#include <cstdint>
#include <limits>

namespace kivrlc
{

/// Rows or columns, both ends included.
struct Stretch {
    std::int64_t begin;
    std::int64_t end;

    std::int64_t length() const { return end - begin + 1; }
    bool fits_int() const { return begin >= std::numeric_limits<int>::min() && end <= std::numeric_limits<int>::max(); }
};

struct Offset {
    std::int64_t rows;
    std::int64_t columns;
};

struct WideBox {
    Stretch rows;
    Stretch columns;

    bool fits_int() const { return rows.fits_int() && columns.fits_int(); }
    bool is_empty() const { return rows.length() < 1 || columns.length() < 1; }
};

inline WideBox moved(const KivRunBox& box, const Offset& by)
{
    return {{box.rowBegin + by.rows, box.rowEnd + by.rows}, {box.colBegin + by.columns, box.colEnd + by.columns}};
}

/// The box of a dilation, of the boxes of the set and the element.
inline WideBox dilated(const WideBox& set, const WideBox& element)
{
    return {{set.rows.begin + element.rows.begin, set.rows.end + element.rows.end},
            {set.columns.begin + element.columns.begin, set.columns.end + element.columns.end}};
}

/// The places where the box of an element fits into the box of a set.
inline WideBox eroded(const WideBox& set, const WideBox& element)
{
    return {{set.rows.begin - element.rows.begin, set.rows.end - element.rows.end},
            {set.columns.begin - element.columns.begin, set.columns.end - element.columns.end}};
}

} // namespace kivrlc
