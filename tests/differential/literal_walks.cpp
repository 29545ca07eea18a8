// SPDX-License-Identifier: MIT
// The walks are left as jumps between labelled steps, because their meaning lies in which cursor keeps which value from
// one row group to the next. Tidying one of them up makes it a second guess instead of a yardstick.
//
// The cursors, with the same meaning in every walk:
//   s, i         the row group of A under work is A[s] .. A[i - 1]
//   bStart       where B is scanned; after a match, the first run of B's stretch on the group's row
//   bNext        where the next group's scan of B begins (the intersections have none: bStart itself moves on)
//   bSaved       where the scan returns to when B lacks a row and no row has matched yet
//   bLimit       one past B's stretch on the last row that matched; it can be out of date at B's end
//   matchedOnce  set at the first shared row, never cleared
#include "literal_walks.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <utility>

namespace literal
{
namespace
{

int count_of(const Runs& runs)
{
    return static_cast<int>(runs.size());
}

const Run& at(const Runs& runs, int index)
{
    return runs.at(static_cast<std::size_t>(index));
}

void emit(Runs& out, int row, int col_begin, int col_end)
{
    out.push_back(Run{row, col_begin, col_end});
}

// Columns may be as low or as high as an int goes. A step past either end stays there, because what lies beyond the
// last column that an int can name is an empty run.
int plus_one(int column)
{
    return column == std::numeric_limits<int>::max() ? column : column + 1;
}

int minus_one(int column)
{
    return column == std::numeric_limits<int>::min() ? column : column - 1;
}

// Runs of one row keep the order in which they came.
void sort_by_row(Runs& runs)
{
    std::stable_sort(runs.begin(), runs.end(), [](const Run& x, const Run& y) { return x.row < y.row; });
}

void sort_by_col_begin(Runs& runs)
{
    std::stable_sort(runs.begin(), runs.end(), [](const Run& x, const Run& y) { return x.colBegin < y.colBegin; });
}

// Not an assert, so that optimised test builds look, too.
void require_stretch_on_row(const Runs& b, int bStart, int bLimit, int row)
{
    if (bStart < 0 || bStart >= bLimit || bLimit > count_of(b)) {
        throw std::logic_error("literal walk: the stretch of B is empty or leaves the list");
    }
    for (int m = bStart; m < bLimit; ++m) {
        if (at(b, m).row != row) {
            throw std::logic_error("literal walk: the stretch of B leaves the row");
        }
    }
}

// Two runs of one row that only touch stay two runs.
void unite_pair(Runs& out, int r, int a_begin, int a_end, int b_begin, int b_end)
{
    if (b_begin <= a_begin && a_end <= b_end) {
        emit(out, r, b_begin, b_end);
    } else if (b_begin <= a_begin && a_begin <= b_end && a_end > b_end) {
        emit(out, r, b_begin, a_end);
    } else if (a_begin < b_begin && b_begin <= a_end && a_end <= b_end) {
        emit(out, r, a_begin, b_end);
    } else if (a_begin < b_begin && a_end > b_end) {
        emit(out, r, a_begin, a_end);
    } else if (a_begin > b_end) {
        emit(out, r, b_begin, b_end);
        emit(out, r, a_begin, a_end);
    } else if (a_begin == b_end) { // only for a run of B whose begin lies past its end
        emit(out, r, b_begin, a_end);
    } else if (a_end >= b_begin) { // no pair comes here
        if (a_end == b_begin) {
            emit(out, r, a_begin, b_end);
        }
    } else {
        emit(out, r, a_begin, a_end);
        emit(out, r, b_begin, b_end);
    }
}

void intersect_pair(Runs& out, int r, int a_begin, int a_end, int b_begin, int b_end)
{
    if (b_begin <= a_begin && a_end <= b_end) {
        emit(out, r, a_begin, a_end);
    } else if (b_begin <= a_begin && a_begin <= b_end && a_end > b_end) {
        emit(out, r, a_begin, b_end);
    } else if (a_begin < b_begin && b_begin <= a_end && a_end <= b_end) {
        emit(out, r, b_begin, a_end);
    } else if (a_begin < b_begin && a_end > b_end) {
        emit(out, r, b_begin, b_end);
    }
}

// A's run (r, c0, c1) without B's runs bStart .. bLimit - 1. The stretch is copied and sorted anew for every run of A.
void cut_run(Runs& out, int r, int c0, int c1, const Runs& b, int bStart, int bLimit)
{
    Runs cutters;
    for (int m = bStart; m < bLimit; ++m) {
        cutters.push_back(at(b, m));
    }
    sort_by_col_begin(cutters);
    const int n = bLimit - bStart;

    Runs pieces;
    const int bb0 = at(cutters, 0).colBegin;
    const int be0 = at(cutters, 0).colEnd;
    if (c0 >= bb0 && c1 <= be0) {
        // covered: no piece
    } else if (c0 >= bb0 && c0 <= be0 && c1 > be0) {
        emit(pieces, r, plus_one(be0), c1);
    } else if (c0 < bb0 && c1 >= bb0 && c1 <= be0) {
        emit(pieces, r, c0, minus_one(bb0));
    } else if (c0 < bb0 && c1 > be0) {
        emit(pieces, r, c0, minus_one(bb0));
        emit(pieces, r, plus_one(be0), c1);
    } else {
        emit(pieces, r, c0, c1);
    }

    for (int j = 1; j <= n - 1; ++j) {
        if (pieces.empty()) {
            break; // nothing is left of the run, so nothing is left to compare
        }
        const int bbj = at(cutters, j).colBegin;
        const int bej = at(cutters, j).colEnd;
        const Run last = at(pieces, count_of(pieces) - 1);
        const int p0 = last.colBegin;
        const int p1 = last.colEnd;
        if (p0 >= bbj && p1 <= bej) {
            pieces.pop_back();
        } else if (p0 >= bbj && p0 <= bej && p1 > bej) {
            pieces.back() = Run{last.row, plus_one(bej), p1};
        } else if (p0 < bbj && p1 >= bbj && p1 <= bej) {
            pieces.back() = Run{last.row, p0, minus_one(bbj)};
        } else if (p0 < bbj && p1 > bej) {
            pieces.back() = Run{last.row, p0, minus_one(bbj)};
            emit(pieces, last.row, plus_one(bej), p1);
        }
    }

    for (const Run& piece : pieces) {
        out.push_back(piece);
    }
}

// B's runs on rows that A lacks, every one compared with every run of A.
void emit_b_only_rows(Runs& out, const Runs& a, const Runs& b)
{
    for (int m = 0; m < count_of(b); ++m) {
        bool row_is_in_a = false;
        for (int k = 0; k < count_of(a); ++k) {
            if (at(a, k).row == at(b, m).row) {
                row_is_in_a = true;
            }
        }
        if (!row_is_in_a) {
            out.push_back(at(b, m));
        }
    }
}

} // namespace

Runs region_union(Runs a, Runs b)
{
    sort_by_row(a);
    sort_by_row(b);
    const int count_a = count_of(a);
    const int count_b = count_of(b);
    Runs out;

    int s = 0;
    int i = 0;
    int bStart = 0;
    int bNext = 0;
    int bSaved = 0;
    int bLimit = 1;
    bool matchedOnce = false;
    int r = 0;
    int e = 0;

    if (count_a == 0) {
        goto b_only_rows; // no group at all
    }

group_end:
    if (i > count_a) {
        goto b_only_rows;
    }
    // The end of the list counts as a different row. At A's last run the rows are not compared: the group ends at i as
    // it stands, which leaves the first group of a single-run A empty.
    if (s != count_a - 1 && i < count_a && at(a, i).row == at(a, s).row) {
        i = i + 1;
        goto group_end;
    }

    r = at(a, s).row;
    bSaved = bStart;
    bStart = bNext;

    while (bStart < count_b) {
        if (at(b, bStart).row < r) {
            bStart = bStart + 1;
        } else if (at(b, bStart).row > r) {
            if (matchedOnce) {
                bStart = bLimit;
                bSaved = bLimit;
            } else {
                bStart = bSaved;
            }
            goto unmatched_group;
        } else if (bStart == count_b - 1) {
            bNext = count_b;
            bLimit = count_b;
            matchedOnce = true;
            goto matched_group;
        } else {
            e = bStart + 1;
            while (e < count_b && at(b, e).row == r) {
                e = e + 1;
            }
            if (e < count_b) {
                bNext = e;
                bLimit = e;
                matchedOnce = true;
            } else {
                bLimit = count_b;
                bNext = count_b + 1; // B is exhausted for every later group
            }
            goto matched_group;
        }
    }
    goto unmatched_group;

matched_group:
    require_stretch_on_row(b, bStart, bLimit, r);
    if (s < i) {
        for (int k = s; k <= i - 1; ++k) {
            for (int m = bStart; m <= bLimit - 1; ++m) {
                unite_pair(out, r, at(a, k).colBegin, at(a, k).colEnd, at(b, m).colBegin, at(b, m).colEnd);
            }
        }
    }
    s = i;
    i = i + 1;
    goto group_end;

unmatched_group:
    if (i == count_a - 1) {
        i = count_a; // A's last run joins the group, whatever its row
    }
    for (int k = s; k <= i - 1; ++k) {
        out.push_back(at(a, k));
    }
    bNext = bStart;
    bStart = bSaved;
    s = i;
    i = i + 1;
    goto group_end;

b_only_rows:
    emit_b_only_rows(out, a, b);
    return out;
}

Runs region_intersection(Runs a, Runs b)
{
    sort_by_row(a);
    sort_by_row(b);
    const int count_a = count_of(a);
    const int count_b = count_of(b);
    Runs out;

    int s = 0;
    int i = 0;
    int bStart = 0;
    int bSaved = 0;
    int bLimit = 1;
    int e = 0;
    bool matchedOnce = false;
    int r = 0;
    int v = 0;

    if (count_a == 0) {
        goto done; // no group at all
    }

group_end:
    if (i > count_a) {
        goto done;
    }
    // As in the region union: the end of the list is a different row, and a single-run A starts with an empty group.
    if (s != count_a - 1 && i < count_a && at(a, i).row == at(a, s).row) {
        i = i + 1;
        goto group_end;
    }

    r = at(a, s).row;

    while (bStart < count_b) {
        if (at(b, bStart).row < r) {
            bStart = bStart + 1;
        } else if (at(b, bStart).row > r) {
            v = matchedOnce ? bLimit : bSaved;
            bStart = v;
            bSaved = v;
            goto unmatched_group;
        } else {
            e = bStart + 1;
            while (e < count_b && at(b, e).row == r) {
                e = e + 1;
            }
            if (e < count_b) {
                bLimit = e;
                matchedOnce = true;
            } else {
                bSaved = bStart; // bLimit stays what it was: B's last row is withheld
                e = count_b + 1;
            }
            goto matched_group;
        }
    }
    goto unmatched_group;

matched_group:
    if (s < i && bLimit > bStart) {
        require_stretch_on_row(b, bStart, bLimit, r);
        for (int k = s; k <= i - 1; ++k) {
            for (int m = bStart; m <= bLimit - 1; ++m) {
                intersect_pair(out, r, at(a, k).colBegin, at(a, k).colEnd, at(b, m).colBegin, at(b, m).colEnd);
            }
        }
    }
    bSaved = bStart;
    bStart = e;
    s = i;
    i = i + 1;
    goto group_end;

unmatched_group:
    s = i;
    i = i + 1;
    goto group_end;

done:
    return out;
}

Runs region_difference(Runs a, Runs b)
{
    sort_by_row(a);
    sort_by_row(b);
    const int count_a = count_of(a);
    const int count_b = count_of(b);
    Runs out;

    int s = 0;
    int i = 0;
    int bStart = 0;
    int bNext = 0;
    int bSaved = 0;
    int bLimit = 1;
    bool matchedOnce = false;
    int r = 0;
    int e = 0;

    if (count_a == 0) {
        goto done; // no group at all
    }

group_end:
    if (i > count_a) {
        goto done;
    }
    // As in the region union: the end of the list is a different row, and a single-run A starts with an empty group.
    if (s != count_a - 1 && i < count_a && at(a, i).row == at(a, s).row) {
        i = i + 1;
        goto group_end;
    }

    r = at(a, s).row;
    bSaved = bStart;
    bStart = bNext;

    while (bStart < count_b) {
        if (at(b, bStart).row < r) {
            bStart = bStart + 1;
        } else if (at(b, bStart).row > r) {
            if (matchedOnce) {
                bStart = bLimit;
                bSaved = bLimit;
            } else {
                bStart = bSaved;
            }
            goto unmatched_group;
        } else if (bStart == count_b - 1) {
            bNext = count_b;
            bLimit = count_b;
            matchedOnce = true;
            goto matched_group;
        } else {
            e = bStart + 1;
            while (e < count_b && at(b, e).row == r) {
                e = e + 1;
            }
            if (e < count_b) {
                bNext = e;
                bLimit = e;
                matchedOnce = true;
            } else {
                bLimit = count_b;
                bNext = count_b + 1; // B is exhausted for every later group
            }
            goto matched_group;
        }
    }
    goto unmatched_group;

matched_group:
    require_stretch_on_row(b, bStart, bLimit, r);
    if (s < i) {
        for (int k = s; k <= i - 1; ++k) {
            cut_run(out, at(a, k).row, at(a, k).colBegin, at(a, k).colEnd, b, bStart, bLimit);
        }
    }
    s = i;
    i = i + 1;
    goto group_end;

unmatched_group:
    if (i == count_a - 1) {
        i = count_a; // A's last run joins the group, whatever its row, and stays uncut
    }
    for (int k = s; k <= i - 1; ++k) {
        out.push_back(at(a, k));
    }
    bNext = bStart;
    bStart = bSaved;
    s = i;
    i = i + 1;
    goto group_end;

done:
    return out;
}

Runs roi_union(Runs a, Runs b)
{
    sort_by_row(a);
    sort_by_row(b);
    const int count_a = count_of(a);
    const int count_b = count_of(b);
    Runs out;

    int s = 0;
    int i = 0;
    int bStart = 0;
    int bNext = 0;
    int bSaved = 0;
    int bLimit = 1;
    bool matchedOnce = false;
    int r = 0;
    int e = 0;

group_end:
    if (i >= count_a) {
        goto b_only_rows; // A's last row never becomes a group of its own
    }
    if (at(a, i).row == at(a, s).row) {
        i = i + 1;
        goto group_end;
    }

    r = at(a, s).row;
    bStart = bNext;

    while (bStart < count_b) {
        if (at(b, bStart).row < r) {
            bStart = bStart + 1;
        } else if (at(b, bStart).row > r) {
            if (matchedOnce) {
                bNext = bLimit;
                bSaved = bLimit;
            } else {
                bNext = bSaved;
            }
            goto unmatched_group;
        } else if (bStart == count_b - 1) {
            bNext = count_b;
            bLimit = count_b;
            matchedOnce = true;
            goto matched_group;
        } else {
            e = bStart + 1;
            while (e < count_b && at(b, e).row == r) {
                e = e + 1;
            }
            if (e < count_b) {
                bNext = e;
                bLimit = e;
                matchedOnce = true;
            } else {
                bNext = count_b + 1; // bLimit stays what it was: B's last row is withheld
            }
            goto matched_group;
        }
    }
    bNext = bStart;
    goto unmatched_group;

matched_group:
    if (i == count_a - 1) {
        i = count_a; // A's last run joins the group and meets the B runs of the group's row
    }
    if (s < i) {
        for (int k = s; k <= i - 1; ++k) {
            if (bLimit > bStart) {
                require_stretch_on_row(b, bStart, bLimit, r);
                for (int m = bStart; m <= bLimit - 1; ++m) {
                    unite_pair(out, at(a, k).row, at(a, k).colBegin, at(a, k).colEnd, at(b, m).colBegin,
                               at(b, m).colEnd);
                }
            }
        }
    }
    bSaved = bStart;
    s = i;
    i = i + 1;
    goto group_end;

unmatched_group:
    if (i == count_a - 1) {
        i = count_a; // A's last run joins the group, whatever its row
    }
    for (int k = s; k <= i - 1; ++k) {
        out.push_back(at(a, k));
    }
    s = i;
    i = i + 1;
    goto group_end;

b_only_rows:
    emit_b_only_rows(out, a, b);
    return out;
}

Runs roi_intersection(Runs a, Runs b)
{
    sort_by_row(a);
    sort_by_row(b);
    const int count_a = count_of(a);
    const int count_b = count_of(b);
    Runs out;

    int s = 0;
    int i = 0;
    int bStart = 0;
    int bSaved = 0;
    int bLimit = 1;
    int e = 0;
    bool matchedOnce = false;
    int r = 0;
    int v = 0;

    if (count_a == 0) {
        goto done; // no group at all
    }

group_end:
    if (i > count_a) {
        goto done;
    }
    // As in the region union: the end of the list is a different row, and a single-run A starts with an empty group.
    if (s != count_a - 1 && i < count_a && at(a, i).row == at(a, s).row) {
        i = i + 1;
        goto group_end;
    }

    r = at(a, s).row;

    while (bStart < count_b) {
        if (at(b, bStart).row < r) {
            bStart = bStart + 1;
        } else if (at(b, bStart).row > r) {
            v = matchedOnce ? bLimit : bSaved;
            bStart = v;
            bSaved = v;
            goto unmatched_group;
        } else if (bStart == count_b - 1) {
            e = count_b; // a single last run of B is paired like any other, unlike in the region intersection
            bLimit = count_b;
            matchedOnce = true;
            goto matched_group;
        } else {
            e = bStart + 1;
            while (e < count_b && at(b, e).row == r) {
                e = e + 1;
            }
            if (e < count_b) {
                bLimit = e;
                matchedOnce = true;
            } else {
                bSaved = bStart; // bLimit stays what it was: a last row of two runs or more is withheld
                e = count_b + 1;
            }
            goto matched_group;
        }
    }
    goto unmatched_group;

matched_group:
    if (s < i && bLimit > bStart) {
        require_stretch_on_row(b, bStart, bLimit, r);
        for (int k = s; k <= i - 1; ++k) {
            for (int m = bStart; m <= bLimit - 1; ++m) {
                intersect_pair(out, r, at(a, k).colBegin, at(a, k).colEnd, at(b, m).colBegin, at(b, m).colEnd);
            }
        }
    }
    bSaved = bStart;
    bStart = e;
    s = i;
    i = i + 1;
    goto group_end;

unmatched_group:
    s = i;
    i = i + 1;
    goto group_end;

done:
    return out;
}

// On runs the two differences are one procedure; regions and ROIs part company only in the tests before it.
Runs roi_difference(Runs a, Runs b)
{
    return region_difference(std::move(a), std::move(b));
}

Runs region_complement(Runs a, int width, int height)
{
    sort_by_row(a);
    const int count_a = count_of(a);
    const int last_column = minus_one(width);
    Runs out;
    Runs group;

    int s = 0;
    int i = 0;
    int n = 0;
    int r = 0;

    if (count_a == 0) {
        goto done; // without runs there are no rows above and none below
    }

    // Rows are counted in 64 bits, so that the row after the highest int is simply past every other.
    for (long long y = 0; y < at(a, 0).row; ++y) {
        emit(out, static_cast<int>(y), 0, last_column);
    }

group_end:
    if (i >= count_a) {
        goto rows_below; // the last row group is never complemented
    }
    if (s != count_a - 1 && at(a, i).row == at(a, s).row) {
        i = i + 1;
        goto group_end;
    }

    if (i < count_a) {
        for (long long y = static_cast<long long>(at(a, s).row) + 1; y < at(a, i).row; ++y) {
            emit(out, static_cast<int>(y), 0, last_column);
        }
    }

    group.clear();
    for (int k = s; k <= i - 1; ++k) {
        group.push_back(at(a, k));
    }
    sort_by_col_begin(group);
    n = count_of(group);
    if (n == 0) {
        goto next_group; // the empty first group of a single-run A has no gaps
    }
    r = at(group, 0).row;

    if (at(group, 0).colBegin != 0) {
        emit(out, r, 0, minus_one(at(group, 0).colBegin));
    }
    // A gap between neighbours overlaps both of them by one pixel.
    for (int k = 0; k < n - 1; ++k) {
        emit(out, r, at(group, k).colEnd, plus_one(at(group, k + 1).colBegin));
    }
    if (at(group, n - 1).colEnd != last_column) {
        emit(out, r, plus_one(at(group, n - 1).colEnd), last_column);
    }

next_group:
    s = i;
    i = i + 1;
    goto group_end;

rows_below:
    for (long long y = static_cast<long long>(at(a, count_a - 1).row) + 1; y < height; ++y) {
        emit(out, static_cast<int>(y), 0, last_column);
    }

done:
    return out;
}

Runs roi_complement(Runs a, int width, int height)
{
    sort_by_row(a);
    const int count_a = count_of(a);
    const int last_column = minus_one(width);
    Runs out;
    Runs group;

    int s = 0;
    int i = 0;
    int n = 0;
    int r = 0;

    if (count_a == 0) {
        goto done; // without runs there are no rows above and none below
    }

    for (long long y = 0; y < at(a, 0).row; ++y) {
        emit(out, static_cast<int>(y), 0, last_column);
    }

group_end:
    if (i > count_a) {
        goto rows_below; // only here, so that the last row group is complemented like every other
    }
    if (s != count_a - 1 && i < count_a && at(a, i).row == at(a, s).row) {
        i = i + 1;
        goto group_end;
    }

    if (i < count_a) {
        for (long long y = static_cast<long long>(at(a, s).row) + 1; y < at(a, i).row; ++y) {
            emit(out, static_cast<int>(y), 0, last_column);
        }
    }

    group.clear();
    for (int k = s; k <= i - 1; ++k) {
        group.push_back(at(a, k));
    }
    sort_by_col_begin(group);
    n = count_of(group);
    if (n == 0) {
        goto next_group; // the empty first group of a single-run A; its row follows in the next pass
    }
    r = at(group, 0).row;

    if (at(group, 0).colBegin != 0) {
        emit(out, r, 0, minus_one(at(group, 0).colBegin));
    }
    for (int k = 0; k < n - 1; ++k) {
        emit(out, r, at(group, k).colEnd, plus_one(at(group, k + 1).colBegin));
    }
    if (at(group, n - 1).colEnd != last_column) {
        emit(out, r, plus_one(at(group, n - 1).colEnd), last_column);
    }

next_group:
    s = i;
    i = i + 1;
    goto group_end;

rows_below:
    for (long long y = static_cast<long long>(at(a, count_a - 1).row) + 1; y < height; ++y) {
        emit(out, static_cast<int>(y), 0, last_column);
    }

done:
    return out;
}

} // namespace literal
