// SPDX-License-Identifier: MIT
// The seam to the data types on the bundled ones, whose runs, ints and points are flat lists: nothing is converted to
// variants and back, and no mask is made where runs are at hand.
#include "seam/data_types.h"

#include "common/checked_count.h"
#include "common/fetch_ahead.h"
#include "foundation/first_member.h"
#include "foundation/masks.h"
#include "foundation/run_writer.h"

#include <KivRLC/KivRunLists.h>
#include <KivRLC/KivRunMat.h>
#include <KivRLC/KivRunSet.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

namespace kiv
{
namespace
{

struct Pixel {
    int column;
    int row;
};

/// The pixels of two lists.
class ListedPixels
{
public:
    explicit ListedPixels(const PixelLists& lists) : lists_(lists) {}

    std::size_t size() const { return lists_.columns.size(); }
    Pixel at(std::size_t i) const { return {lists_.columns[i], lists_.rows[i]}; }

    void fetch_ahead(std::size_t first, std::size_t count) const
    {
        kivcommon::fetch_ahead(lists_.columns.data() + first, count * sizeof(int));
        kivcommon::fetch_ahead(lists_.rows.data() + first, count * sizeof(int));
    }

    /// How many of the pixels from `first` to `stop` - 1 go on with a run.
    std::size_t count_behind(const Run& run, std::size_t first, std::size_t stop) const
    {
        const auto [columns, rows] = lists_;
        std::int64_t next = std::int64_t{run.colEnd} + 1;
        std::size_t i = first;
        while (i < stop && rows[i] == run.row && columns[i] == next) {
            ++i;
            ++next;
        }
        return i - first;
    }

private:
    PixelLists lists_;
};

/// The pixels of points.
class PointPixels
{
public:
    explicit PointPixels(const std::vector<KivPoint>& points) : points_(points) {}

    std::size_t size() const { return points_.size(); }
    Pixel at(std::size_t i) const { return {truncate(points_[i].x), truncate(points_[i].y)}; }

    void fetch_ahead(std::size_t first, std::size_t count) const
    {
        kivcommon::fetch_ahead(points_.data() + first, count * sizeof(KivPoint));
    }

    /// How many of the points from `first` to `stop` - 1 are the whole numbers with which a run goes on.
    std::size_t count_behind(const Run& run, std::size_t first, std::size_t stop) const
    {
        const auto columns_left = static_cast<std::size_t>(std::numeric_limits<int>::max() - run.colEnd);
        stop = std::min(stop, first + columns_left);
        std::size_t i = first;
        for (double column = run.colEnd + 1.0; i < stop && points_[i].x == column && points_[i].y == run.row; ++i) {
            column += 1.0;
        }
        return i - first;
    }

private:
    const std::vector<KivPoint>& points_;
};

bool lies_outside(const Pixel& pixel)
{
    return pixel.column < 0 || pixel.row < 0;
}

void reach_to(const Pixel& pixel, PixelRuns& made)
{
    made.largest_column = std::max(made.largest_column, pixel.column);
    made.largest_row = std::max(made.largest_row, pixel.row);
}

/// Makes the runs of the pixels from `i` on, which has one, and notes how far those reach that are left out; false if a
/// pixel comes out of order.
///
/// Where short runs end can hardly be guessed, so that it decides about numbers, not about a branch; long runs are
/// likely to go on. bench/kiv/arrays.cpp measures it.
template <class Pixels>
bool join_ordered(const Pixels& pixels, std::size_t i, PixelRuns& made)
{
    constexpr int some = 8; // pixels that are joined at once, and pixels of a long run
    constexpr std::size_t many = 256;
    const Pixel first = pixels.at(i);
    Run run = {first.row, first.column, first.column};
    RunWriter out(1);
    Run* last = out.place();
    bool ordered = true;
    while (i < pixels.size() && ordered) {
        if (run.colEnd - run.colBegin >= some) {
            pixels.fetch_ahead(i, many);
            const std::size_t count = pixels.count_behind(run, i, std::min(i + many, pixels.size()));
            run.colEnd += static_cast<int>(count);
            i += count;
        }
        pixels.fetch_ahead(i, some);
        for (const std::size_t stop = std::min(i + some, pixels.size()); i < stop; ++i) {
            const Pixel pixel = pixels.at(i);
            if (lies_outside(pixel)) {
                reach_to(pixel, made);
                continue;
            }
            const auto [column, row] = pixel;
            const int is_next = static_cast<int>(row != run.row) | static_cast<int>(column - run.colEnd > 1);
            ordered &= (row > run.row) | ((row == run.row) & (column >= run.colEnd));
            *last = run;
            last += is_next;
            run = {row, run.colBegin ^ ((run.colBegin ^ column) & -is_next), column};
        }
        out.go_on_to(i, pixels.size());
        last = out.place_behind(last);
    }
    out.push_back(run);
    made.runs = out.written();
    return ordered;
}

/// The runs of pixels that are listed row by row and from left to right; nothing if one comes out of order. Ignores
/// pixels with a negative coordinate.
template <class Pixels>
std::optional<PixelRuns> runs_of_ordered(const Pixels& pixels)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    PixelRuns made{{}, lowest, lowest};
    std::size_t first = 0;
    for (; first < pixels.size() && lies_outside(pixels.at(first)); ++first) {
        reach_to(pixels.at(first), made);
    }
    if (first < pixels.size() && !join_ordered(pixels, first, made)) {
        return std::nullopt;
    }
    for (const Run& run : made.runs) {
        reach_to({run.colEnd, run.row}, made);
    }
    return made;
}

/// The same in any order. Each pixel is a run, or lengthens the one before it.
RunList runs_of_sorted_pixels(const PixelLists& pixels)
{
    RunList stretches;
    for (std::size_t i = 0; i < pixels.columns.size(); ++i) {
        const int column = pixels.columns[i];
        const int row = pixels.rows[i];
        if (column < 0 || row < 0) {
            continue;
        }
        if (!stretches.empty() && stretches.back().row == row && column - stretches.back().colEnd == 1) {
            stretches.back().colEnd = column;
        } else {
            stretches.push_back({row, column, column});
        }
    }
    const KivRunSet set(stretches);
    return {set.Runs().begin(), set.Runs().end()};
}

/// Whether it costs less to sort pixels than to go through a mask of the frame. Sorting takes some memory and time for
/// each pixel, a mask for each byte, most of them next to nothing.
bool is_large_for(Frame frame, std::size_t pixels)
{
    constexpr std::uint64_t bytes_a_pixel = 64;
    return static_cast<std::uint64_t>(frame.width) * static_cast<std::uint64_t>(frame.height) / bytes_a_pixel > pixels;
}

/// What runs cover of a frame: the runs themselves where all of them lie in it.
ViewOrCopy<Run> visible_parts(RunView runs, Frame frame)
{
    const auto lies_in_frame = [frame](const Run& run) {
        return run.row >= 0 && run.row < frame.height && run.colBegin >= 0 && run.colEnd < frame.width;
    };
    if (std::all_of(runs.begin(), runs.end(), lies_in_frame)) {
        return runs;
    }
    RunList parts;
    parts.reserve(runs.size());
    for_each_visible(runs, frame, [&parts](int row, int first, int last) { parts.push_back({row, first, last}); });
    return parts;
}

} // namespace

FramedRuns parts_of(KivRegion& region)
{
    return {{region.Width(), region.Height()}, RunView(region.Runs())};
}

void create_region(KivRegion& region, Frame frame, RunList runs)
{
    KivRuns::GiveBackSpareRoom(runs);
    region.CreateRegion(frame.width, frame.height, std::move(runs));
}

FramedRuns mask_of(const KivROI& roi)
{
    const IKivROIPara& parameters = roi.Parameters();
    const Frame frame{parameters.Width(), parameters.Height()};
    if (const RunList* kept = parameters.KeptRuns()) {
        return {frame, RunView(*kept)};
    }
    return {frame, parameters.MaskRuns()};
}

cv::Mat painted_mask_of(KivROI& roi)
{
    const FramedRuns mask = mask_of(roi);
    return painted_mask(mask.frame, mask.runs);
}

bool has_columns(KivROI& /*roi*/, const FramedRuns& mask)
{
    require_mask_frame(mask.frame);
    return mask.frame.width > 0;
}

void become_mask(KivROI& roi, Frame frame, RunList runs)
{
    KivRuns::GiveBackSpareRoom(runs);
    roi.Parameters().GenMask(std::move(runs), frame.width, frame.height);
}

void become_mask_of(KivROI& roi, cv::Mat& image)
{
    become_mask(roi, {image.cols, image.rows}, runs_of_image(image, MaskBytes::as_stored));
}

void sort_by_row(RunList& runs)
{
    KivRuns::SortByRow(runs);
}

void sort_by_row_and_column(RunList& runs)
{
    KivRuns::SortByRowAndColumn(runs);
}

std::optional<RunList> combined_sets(PlainOperation operation, RunView a, RunView b)
{
    const auto append =
        operation == PlainOperation::intersection ? KivRuns::AppendIntersection : KivRuns::AppendDifference;
    RunList runs;
    if (!append({a.data(), a.size()}, {b.data(), b.size()}, runs)) {
        return std::nullopt;
    }
    return runs;
}

RunList runs_of_image(const cv::Mat& pixels, MaskBytes /*bytes*/)
{
    RunList runs;
    KivRLC::AppendRuns(pixels, runs);
    return runs;
}

cv::Rect part_to_extract(Frame frame, const cv::Rect& filled)
{
    require_mask_frame(frame);
    return filled;
}

RunList runs_of_pixels(const PixelLists& pixels, Frame frame)
{
    if (is_large_for(frame, pixels.columns.size())) {
        return runs_of_sorted_pixels(pixels);
    }
    cv::Mat mask = painted_mask(frame, pixels);
    return extract_runs(mask);
}

std::optional<PixelRuns> runs_of_ordered_pixels(const PixelLists& pixels)
{
    return runs_of_ordered(ListedPixels(pixels));
}

std::optional<PixelRuns> runs_of_ordered_points(KivPointArray& points)
{
    return runs_of_ordered(PointPixels(points.Points()));
}

PixelCoordinates pixels_of(RunView runs, Frame frame)
{
    const ViewOrCopy<Run> visible = visible_parts(runs, frame);
    const KivRunView parts(visible.view().data(), visible.view().size());
    PixelCoordinates pixels;
    KivRuns::AppendPixels(KivRuns::IsCanonical(parts) ? parts : KivRunSet(parts).Runs(), pixels.columns, pixels.rows);
    return pixels;
}

void paint(RunView runs, cv::Mat& mask, int foreground, int background)
{
    KivRuns::PaintMask({runs.data(), runs.size()}, KivRuns::ViewOf<std::uint8_t>(mask),
                       static_cast<std::uint8_t>(foreground), static_cast<std::uint8_t>(background));
}

void trace(const FramedRuns& pixels, KivContourArray* contours)
{
    require_mask_frame(pixels.frame);
    const RunView runs = pixels.runs;
    *contours = KivContourArray::BordersOf({runs.data(), runs.size()}, pixels.frame.width, pixels.frame.height);
}

std::optional<RunList> filled_runs(KivContourArray& contours, Frame frame)
{
    try {
        require_mask_frame(frame);
        return contours.FilledRuns(frame.width, frame.height);
    } catch (...) {
        return std::nullopt;
    }
}

int count_leading_numbers(KivVarArray& values)
{
    if (values.PackedInts() != nullptr) {
        return values.Length();
    }
    const KivVarArray& unpacked = values;
    int count = 0;
    while (count < unpacked.Length() &&
           (unpacked[count].ValType() == KivVar::IntKind || unpacked[count].ValType() == KivVar::DoubleKind)) {
        ++count;
    }
    return count;
}

ViewOrCopy<int> ints_of(KivVarArray& values, int count)
{
    const std::vector<int>* packed = values.PackedInts();
    if (packed != nullptr && count <= values.Length()) {
        return std::span(*packed).first(static_cast<std::size_t>(count));
    }
    std::vector<int> ints;
    ints.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        ints.push_back(
            std::as_const(values)[i].I()); // reading a constant array never rearranges it, so threads can share it
    }
    return ints;
}

void overwrite(KivVarArray& values, std::span<const int> ints)
{
    const std::vector<int>* packed = values.PackedInts();
    if (packed != nullptr && packed->data() == ints.data()) {
        return;
    }
    values.ReplaceFirst(ints.data(), ints.size());
}

void fill(KivVarArray& values, std::vector<int> ints)
{
    values = KivVarArray(std::move(ints));
}

void reserve(KivPointArray& points, std::size_t count)
{
    points.Reserve(count);
}

void append_pixels(KivPointArray& points, RunView runs)
{
    std::uint64_t count = 0;
    for (const Run& run : runs) {
        count += run.colBegin <= run.colEnd ? length_of(run.colBegin, run.colEnd) : 0;
    }
    points.Reserve(
        kivcommon::checked_count<KivPoint>(count)); // of more points than there is memory for, that is what is reported
    points.AppendPixels(KivRunView(runs.data(), runs.size()));
}

} // namespace kiv
