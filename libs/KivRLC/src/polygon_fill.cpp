// SPDX-License-Identifier: MIT
// Each polygon is walked once and leaves stretches of pixels that its edges pass, row by row. A stretch flips if the
// edges there cross the row an odd number of times, ends of edges being counted by the rule that the lower end does not
// belong. The crossings lie among the stretch's own pixels, which belong anyway; so for all other pixels of the row the
// even-odd rule comes down to counting the flipping stretches to the left of them.
#include <KivRLC/KivPolygonFill.h>

#include "common/fetch_ahead.h"
#include "common/reserve_more.h"
#include "polygon_edge.h"

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace
{

/// The first number from `begin` on that has a property, which all after it have, too; `stop` if none before that has.
template <class Property>
std::int64_t first_with(std::int64_t begin, std::int64_t stop, Property has_property)
{
    while (begin < stop) {
        const std::int64_t middle = begin + (stop - begin) / 2;
        if (has_property(middle)) {
            stop = middle;
        } else {
            begin = middle + 1;
        }
    }
    return begin;
}

/// The int nearest to a number, ties to even; any int for a NaN.
int nearest_int(double number)
{
    static_assert(FLT_EVAL_METHOD == 0 || FLT_EVAL_METHOD == 1, "sums of doubles must be rounded to doubles");
    constexpr double no_fractions = 6755399441055744.0; // 1.5 * 2^52: doubles as large as this are whole numbers
    const double in_range = std::min(std::max(double{INT_MIN}, number), double{INT_MAX}); // INT_MIN for a NaN
    return static_cast<int>((in_range + no_fractions) - no_fractions);
}

/// The pixel nearest to a column and the row behind it.
KivPixel nearest_pixel(const double* place)
{
    return {nearest_int(place[0]), nearest_int(place[1])};
}

bool is_number(const double* place)
{
    return !std::isnan(place[0]) && !std::isnan(place[1]);
}

/// Writes the runs of rows of which the stretches are given, from the uppermost row down and from left to right, and of
/// the rows between them, which are all inside or all outside. Rows and columns count from the first ones of a box.
class FilledRuns
{
public:
    /// @param turns the rows from which on all that lies in the box is inside if it was outside before, or the other
    /// way round, in ascending order
    /// @param room for how many runs to make room at once
    FilledRuns(const KivRunBox& box, std::int64_t columns, std::vector<std::uint32_t> turns, std::size_t room)
        : box_(box), columns_(columns), turns_(std::move(turns)), next_turn_(turns_.begin())
    {
        runs_.reserve(room);
    }

    void start_row(std::int64_t row)
    {
        end_rows_before(row);
        take_turns_up_to(row);
        inside_ = row_starts_inside_;
        begin_ = 0;
        stop_ = 0;
    }

    void add_stretch(std::int64_t begin, std::int64_t stop, bool flips)
    {
        if (begin > stop_ && !inside_) {
            write(begin_, stop_);
            begin_ = begin;
        }
        stop_ = std::max(stop_, stop);
        inside_ ^= flips;
    }

    /// The runs of all rows before the given one, when no stretches follow.
    std::vector<Run> up_to_row(std::int64_t row) &&
    {
        end_rows_before(row);
        return std::move(runs_);
    }

private:
    void take_turns_up_to(std::int64_t row)
    {
        for (; next_turn_ != turns_.end() && *next_turn_ <= row; ++next_turn_) {
            row_starts_inside_ = !row_starts_inside_;
        }
    }

    /// Ends the row that was started last, and all between that and the given one. These are all inside or all outside:
    /// without a stretch, turns of later ones come in pairs.
    void end_rows_before(std::int64_t row)
    {
        write(begin_, inside_ ? columns_ : stop_);
        take_turns_up_to(++row_);
        for (; row_starts_inside_ && row_ < row; ++row_) {
            write(0, columns_);
        }
        row_ = row;
    }

    /// Writes the columns begin to stop - 1 of the row as a run, if there are any.
    void write(std::int64_t begin, std::int64_t stop)
    {
        if (begin < stop) {
            runs_.push_back({static_cast<int>(box_.rowBegin + row_), static_cast<int>(box_.colBegin + begin),
                             static_cast<int>(box_.colBegin + stop - 1)});
        }
    }

    KivRunBox box_;
    std::int64_t columns_;
    std::vector<std::uint32_t> turns_;
    std::vector<std::uint32_t>::const_iterator next_turn_; // the first one below the row
    bool row_starts_inside_ = false;                       // to the left of all stretches
    std::int64_t row_ = -1;
    bool inside_ = false;    // to the right of the stretches so far, which end before stop_
    std::int64_t begin_ = 0; // of the run that is not written yet
    std::int64_t stop_ = 0;
    std::vector<Run> runs_;
};

} // namespace

/// The stretch in which a walk along a polygon is.
class KivPolygonFill::Chain
{
public:
    Chain(KivPolygonFill& fill, const KivPixel& start) : fill_(fill), at_(start), first_(start.x), last_(start.x) {}

    void go_to(const KivPixel& to)
    {
        const std::int64_t down = std::int64_t{to.y} - at_.y;
        const std::int64_t right = std::int64_t{to.x} - at_.x;
        if (down == 0) {
            first_ = std::min(first_, to.x);
            last_ = std::max(last_, to.x);
        } else if (-1 <= down && down <= 1 && -1 <= right && right <= 1) {
            flips_ ^= down > 0;
            finish();
            start_at(to, down < 0);
        } else {
            finish();
            fill_.AddEdge(at_, to);
            start_at(to, false);
        }
        at_ = to;
    }

    void finish() { fill_.AddStretch(at_.y, first_, last_, flips_); }

private:
    void start_at(const KivPixel& pixel, bool flips)
    {
        first_ = pixel.x;
        last_ = pixel.x;
        flips_ = flips;
    }

    KivPolygonFill& fill_;
    KivPixel at_;
    int first_; // column of the stretch
    int last_;
    bool flips_ = false;
};

KivPolygonFill::KivPolygonFill(const KivRunBox& box)
    : box_(box),
      columns_(std::max<std::int64_t>(0, std::int64_t{box.colEnd} - box.colBegin + 1)),
      rows_(std::max<std::int64_t>(0, std::int64_t{box.rowEnd} - box.rowBegin + 1))
{
    if (columns_ > INT32_MAX) {
        throw std::invalid_argument("KivPolygonFill: the box has more than 2^31 - 1 columns");
    }
}

void KivPolygonFill::Reserve(std::size_t polygons, std::size_t corners)
{
    stretches_.reserve(stretches_.size() + polygons + corners); // each corner may end one, as may the polygon's end
}

void KivPolygonFill::Add(const KivPixel* corners, std::size_t count)
{
    if (count == 0) {
        return;
    }
    MakeRoom(count);
    Chain chain(*this, corners[count - 1]);
    for (std::size_t i = 0; i < count; ++i) {
        chain.go_to(corners[i]);
    }
    chain.finish();
}

void KivPolygonFill::AddRounded(const double* coordinates, std::size_t count)
{
    while (count > 0 && !is_number(coordinates + 2 * (count - 1))) {
        --count;
    }
    if (count == 0) {
        return;
    }
    MakeRoom(count);
    Chain chain(*this, nearest_pixel(coordinates + 2 * (count - 1)));
    // In pieces, as rounding goes faster by many at once.
    constexpr std::size_t at_once = 64;
    KivPixel piece[at_once];
    for (std::size_t begin = 0; begin < count; begin += at_once) {
        const std::size_t stop = std::min(begin + at_once, count);
        kivcommon::fetch_ahead(coordinates + 2 * begin, 2 * at_once * sizeof(double));
        std::size_t rounded = 0;
        for (std::size_t i = begin; i < stop; ++i) {
            piece[rounded] = nearest_pixel(coordinates + 2 * i);
            rounded += is_number(coordinates + 2 * i) ? 1 : 0;
        }
        std::for_each_n(piece, rounded, [&](const KivPixel& pixel) { chain.go_to(pixel); });
    }
    chain.finish();
}

/// For the stretches of a polygon whose corners are neighbours.
void KivPolygonFill::MakeRoom(std::size_t corners)
{
    kivcommon::reserve_more(stretches_, corners + 1);
}

void KivPolygonFill::AddStretch(std::int64_t row, std::int64_t begin, std::int64_t end, bool flips)
{
    row -= box_.rowBegin;
    begin -= box_.colBegin;
    end -= box_.colBegin;
    if (row >= 0 && row < rows_ && begin < columns_) {
        stretches_.push_back(
            {static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(std::max<std::int64_t>(begin, 0)),
             static_cast<std::uint32_t>(std::clamp<std::int64_t>(end + 1, 0, columns_)) & INT32_MAX, flips});
    }
}

void KivPolygonFill::AddEdge(const KivPixel& from, const KivPixel& to)
{
    const kivrlc::PolygonEdge edge(from, to);
    const auto ends_in_box = [&](std::int64_t row) { return edge.passed(row).last >= box_.colBegin; };
    const auto begins_in_box = [&](std::int64_t row) { return edge.passed(row).first <= box_.colEnd; };
    std::int64_t begin = std::max<std::int64_t>(0, box_.rowBegin - edge.top());
    std::int64_t stop = std::min(edge.height(), box_.rowEnd - edge.top()) + 1;
    std::int64_t beside_begin = 0; // rows on which the edge lies to the left of the box
    std::int64_t beside_stop = 0;
    if (edge.leads_right()) {
        beside_begin = begin;
        beside_stop = begin = first_with(begin, stop, ends_in_box);
        stop = first_with(begin, stop, [&](std::int64_t row) { return !begins_in_box(row); });
    } else {
        begin = first_with(begin, stop, begins_in_box);
        beside_stop = stop;
        beside_begin = stop = first_with(begin, stop, [&](std::int64_t row) { return !ends_in_box(row); });
    }
    beside_stop = std::min(beside_stop, edge.height()); // the lower end does not belong
    if (beside_begin < beside_stop) {
        const std::int64_t top = edge.top() - box_.rowBegin;
        beside_.push_back(
            {static_cast<std::uint32_t>(top + beside_begin), static_cast<std::uint32_t>(top + beside_stop)});
    }
    for (std::int64_t row = begin; row < stop; ++row) {
        const kivrlc::PassedColumns passed = edge.passed(row);
        AddStretch(edge.top() + row, passed.first, passed.last, row < edge.height());
    }
}

/// The stretches by row, then by column.
std::vector<KivPolygonFill::Stretch> KivPolygonFill::Ordered() const
{
    const auto by_row = [](const Stretch& a, const Stretch& b) { return a.row < b.row; };
    const auto by_column = [](const Stretch& a, const Stretch& b) { return a.begin < b.begin; };
    if (stretches_.empty()) {
        return {};
    }
    const auto [upper, lower] = std::minmax_element(stretches_.begin(), stretches_.end(), by_row);
    const std::uint32_t top = upper->row;
    const std::uint64_t rows = lower->row - top + std::uint64_t{1};
    std::vector<Stretch> ordered(stretches_.size());
    if (rows > 4 * stretches_.size()) { // too many to count the stretches of each
        std::partial_sort_copy(
            stretches_.begin(), stretches_.end(), ordered.begin(), ordered.end(),
            [](const Stretch& a, const Stretch& b) { return a.row != b.row ? a.row < b.row : a.begin < b.begin; });
        return ordered;
    }
    // Of the stretches of each row; at first, where those of the row before end.
    std::vector<std::size_t> stops(static_cast<std::size_t>(rows) + 1);
    for (const Stretch& stretch : stretches_) {
        ++stops[stretch.row - top + 1];
    }
    std::partial_sum(stops.begin(), stops.end(), stops.begin());
    for (const Stretch& stretch : stretches_) {
        ordered[stops[stretch.row - top]++] = stretch;
    }
    auto begin = ordered.begin();
    for (std::size_t row = 0; row < rows; ++row) {
        const auto stop = ordered.begin() + static_cast<std::ptrdiff_t>(stops[row]);
        if (!std::is_sorted(begin, stop, by_column)) { // borders that were traced mostly are
            std::sort(begin, stop, by_column);
        }
        begin = stop;
    }
    return ordered;
}

std::vector<Run> KivPolygonFill::Runs() const
{
    std::vector<std::uint32_t> turns;
    turns.reserve(2 * beside_.size());
    for (const Rows& rows : beside_) {
        turns.insert(turns.end(), {rows.begin, rows.stop});
    }
    std::sort(turns.begin(), turns.end());
    // Most runs have a stretch at each end; some, as the single pixels at the top of round shapes, have one in all.
    constexpr std::size_t some = 64;
    FilledRuns filled(box_, columns_, std::move(turns), stretches_.size() / 2 + some);
    std::int64_t row = -1;
    for (const Stretch& stretch : Ordered()) {
        if (stretch.row != row) {
            row = stretch.row;
            filled.start_row(row);
        }
        filled.add_stretch(stretch.begin, stretch.stop, stretch.flips != 0);
    }
    return std::move(filled).up_to_row(rows_);
}
