// SPDX-License-Identifier: MIT
// Dilation and erosion box by box of the element. Along the columns a box widens or narrows runs by arithmetic. Along
// the rows it unites or intersects the set with itself moved by 1, 2, 4, ... rows: what stands for n rows and is moved
// by up to n stands for up to 2 n. Boxes are then united pairwise, neighbours first, so that what overlaps is united
// early; they are intersected one after the other, as that leaves less and less.
//
// An element may be moved before use, which moves the result the other way or not at all, so that what comes out
// between two operations fits into ints whenever the results do.
#include "row_sweep.h"
#include "run_checks.h"
#include "run_measures.h"
#include "run_moves.h"
#include "run_set_access.h"
#include "wide_box.h"

#include <KivRLC/KivRunMorphology.h>

#include <limits>
#include <span>

namespace
{

using kivrlc::Offset;
using kivrlc::RunBuffer;
using kivrlc::Stretch;
using kivrlc::WideBox;

WideBox box_of(const KivRunSet& set)
{
    return kivrlc::moved(kivrlc::box_of(set.Runs()), {0, 0});
}

/// The box of an element that is not empty, moved.
WideBox box_of(const KivRuns::Element& element, const Offset& offset)
{
    KivRunBox all = element.Boxes().front();
    for (const KivRunBox& box : element.Boxes()) {
        all = {std::min(all.rowBegin, box.rowBegin), std::max(all.rowEnd, box.rowEnd),
               std::min(all.colBegin, box.colBegin), std::max(all.colEnd, box.colEnd)};
    }
    return kivrlc::moved(all, offset);
}

/// What makes an element's box begin in row 0 and column 0.
Offset offset_to_zero(const KivRuns::Element& element)
{
    const WideBox box = box_of(element, {0, 0});
    return {-box.rows.begin, -box.columns.begin};
}

/// The runs combined with themselves moved by 1 to `height` - 1 rows, all downwards (1) or upwards (-1).
template <kivrlc::TruthTable table>
RunBuffer combined_rows(RunBuffer runs, std::int64_t height, int direction)
{
    for (std::int64_t reached = 1; reached < height;) {
        const std::int64_t step = std::min(reached, height - reached);
        runs = kivrlc::swept<table>(runs, runs, direction * step);
        reached += step;
    }
    return runs;
}

/// The runs made longer at both ends as the box says, and moved down to its first row.
RunBuffer longer_runs(KivRunView runs, const WideBox& box)
{
    RunBuffer longer(runs.size());
    Run* out = longer.data();
    for (const Run* row = runs.begin(); row != runs.end();) {
        const Run* const row_end = kivrlc::end_of_row(row, runs.end());
        const auto moved_row = static_cast<int>(row->row + box.rows.begin);
        std::int64_t stop = std::numeric_limits<std::int64_t>::min(); // behind the last run that was written
        for (; row != row_end; ++row) {
            const std::int64_t begin = row->colBegin + box.columns.begin;
            const std::int64_t end = row->colEnd + box.columns.end;
            out -= begin <= stop ? 1 : 0;
            *out = {moved_row, begin <= stop ? out->colBegin : static_cast<int>(begin), static_cast<int>(end)};
            ++out;
            stop = end + 1;
        }
    }
    longer.resize(static_cast<std::size_t>(out - longer.data()));
    return longer;
}

/// The dilation by some boxes, one at least, all moved by an offset. No coordinate may come to lie beyond int.
RunBuffer dilated(KivRunView runs, std::span<const KivRunBox> boxes, const Offset& offset)
{
    if (boxes.size() == 1) {
        const WideBox box = kivrlc::moved(boxes.front(), offset);
        return combined_rows<kivrlc::in_any>(longer_runs(runs, box), box.rows.length(), 1);
    }
    const std::size_t half = boxes.size() / 2;
    return kivrlc::swept<kivrlc::in_any>(dilated(runs, boxes.first(half), offset),
                                         dilated(runs, boxes.subspan(half), offset));
}

/// The columns where a stretch of columns fits into single runs, if they are among `limits`, which are ints.
RunBuffer shorter_runs(KivRunView runs, const Stretch& columns, const Stretch& limits)
{
    RunBuffer shorter(runs.size() + 1); // one run may be written, but not counted
    Run* out = shorter.data();
    for (const Run& run : runs) {
        const std::int64_t begin = std::max(run.colBegin - columns.begin, limits.begin);
        const std::int64_t end = std::min(run.colEnd - columns.end, limits.end);
        *out = {run.row, static_cast<int>(begin), static_cast<int>(end)};
        out += begin <= end ? 1 : 0;
    }
    shorter.resize(static_cast<std::size_t>(out - shorter.data()));
    return shorter;
}

/// Moves the runs up, and drops those that are not among `limits` then.
void move_up(RunBuffer& runs, std::int64_t rows, const Stretch& limits)
{
    Run* out = runs.data();
    for (const Run& run : runs) {
        const std::int64_t row = run.row - rows;
        *out = {static_cast<int>(row), run.colBegin, run.colEnd};
        out += limits.begin <= row && row <= limits.end ? 1 : 0;
    }
    runs.resize(static_cast<std::size_t>(out - runs.data()));
}

/// The places where a box fits, if they are among `limits`, which are ints.
RunBuffer eroded(KivRunView runs, const WideBox& box, const WideBox& limits)
{
    // As long as a place stands for the rows below it, it may stay in the uppermost one of them.
    RunBuffer places =
        combined_rows<kivrlc::in_both>(shorter_runs(runs, box.columns, limits.columns), box.rows.length(), -1);
    move_up(places, box.rows.begin, limits.rows);
    return places;
}

/// The erosion by an element moved by an offset, of which it is known that it lies within `limits`, which are ints.
RunBuffer eroded(KivRunView runs, const KivRuns::Element& element, const Offset& offset, const WideBox& limits)
{
    if (limits.is_empty()) {
        return {};
    }
    RunBuffer places = eroded(runs, kivrlc::moved(element.Boxes().front(), offset), limits);
    for (std::size_t i = 1; i < element.Boxes().size() && !places.empty(); ++i) {
        const RunBuffer others = eroded(runs, kivrlc::moved(element.Boxes()[i], offset), limits);
        places = kivrlc::swept<kivrlc::in_both>(places, others);
    }
    return places;
}

void require_pixels(const KivRuns::Element& element)
{
    kivrlc::require<std::invalid_argument>(!element.Boxes().empty(),
                                           "KivRuns: an empty element fits everywhere, which no set can hold");
}

/// How far an element has to be moved to make a dilation fit into ints.
std::int64_t offset_that_fits(const Stretch& set, const Stretch& element)
{
    kivrlc::require<std::overflow_error>(set.length() + element.length() - 1 <= std::int64_t{1} << 32,
                                         "KivRuns::Close: the set and the element are too large together");
    const std::int64_t beyond = set.end + element.length() - 1 - std::numeric_limits<int>::max();
    return -element.begin - std::max<std::int64_t>(0, beyond);
}

} // namespace

KivRunSet KivRuns::Dilate(const KivRunSet& set, const Element& element)
{
    if (set.Empty() || element.Boxes().empty()) {
        return {};
    }
    kivrlc::require<std::overflow_error>(kivrlc::dilated(box_of(set), box_of(element, {0, 0})).fits_int(),
                                         "KivRuns: a pixel of the dilation would lie beyond int");
    return kivrlc::set_of_canonical(dilated(set.Runs(), element.Boxes(), {0, 0}));
}

KivRunSet KivRuns::Erode(const KivRunSet& set, const Element& element)
{
    require_pixels(element);
    if (set.Empty()) {
        return {};
    }
    const WideBox limits = kivrlc::eroded(box_of(set), box_of(element, {0, 0}));
    if (limits.is_empty() || limits.fits_int()) {
        return kivrlc::set_of_canonical(eroded(set.Runs(), element, {0, 0}, limits));
    }
    const Offset offset = offset_to_zero(element);
    const WideBox moved_limits = kivrlc::eroded(box_of(set), box_of(element, offset));
    const KivRunSet places = kivrlc::set_of_canonical(eroded(set.Runs(), element, offset, moved_limits));
    return kivrlc::moved(places, {false, offset.columns}, {false, offset.rows});
}

KivRunSet KivRuns::Open(const KivRunSet& set, const Element& element)
{
    require_pixels(element);
    if (set.Empty()) {
        return {};
    }
    const Offset offset = offset_to_zero(element);
    const WideBox limits = kivrlc::eroded(box_of(set), box_of(element, offset));
    const RunBuffer places = eroded(set.Runs(), element, offset, limits);
    return places.empty() ? KivRunSet() : kivrlc::set_of_canonical(dilated(places, element.Boxes(), offset));
}

KivRunSet KivRuns::Close(const KivRunSet& set, const Element& element)
{
    require_pixels(element);
    if (set.Empty()) {
        return {};
    }
    const WideBox box = box_of(element, {0, 0});
    const Offset offset{offset_that_fits(box_of(set).rows, box.rows),
                        offset_that_fits(box_of(set).columns, box.columns)};
    return kivrlc::set_of_canonical(eroded(dilated(set.Runs(), element.Boxes(), offset), element, offset, box_of(set)));
}

KivRunSet KivRuns::Gradient(const KivRunSet& set, const Element& element)
{
    const KivRunSet inner = Erode(set, element);
    return Dilate(set, element) - inner;
}
