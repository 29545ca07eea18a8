// SPDX-License-Identifier: MIT
#include <KivData/KivPoint.h>

#include "argument_checks.h"
#include "common/fetch_ahead.h"
#include "common/pixel_batches.h"
#include "common/reserve_more.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace
{

/// Points that are appended to a list at once.
class PointBatch
{
public:
    static constexpr std::size_t full = 64;

    explicit PointBatch(std::vector<KivPoint>& points) : points_(points) {}

    void write(std::size_t begin, std::int64_t column, int row)
    {
        const auto x = static_cast<double>(column);
        const auto y = static_cast<double>(row);
        for (int i = 0; i < kivcommon::pixels_at_once; ++i) {
            some_[begin + static_cast<std::size_t>(i)] = {x + i, y};
        }
    }

    void append(std::size_t count)
    {
        kivcommon::fetch_room_ahead(points_, full);
        points_.insert(points_.end(), some_, some_ + count);
    }

private:
    std::vector<KivPoint>& points_;
    union { // whose members are not cleared
        KivPoint some_[full + kivcommon::spare_pixels];
    };
};

} // namespace

KivPointArray::KivPointArray(std::vector<KivPoint> points)
    : points_(kivdata::checked_elements("KivPointArray", std::move(points)))
{
}

void KivPointArray::append_slowly(const KivPoint& point)
{
    kivdata::check_room("KivPointArray", points_.size(), 1);
    points_.push_back(point);
}

void KivPointArray::AppendPixels(int row, int first, int last)
{
    const Run run{row, first, last};
    AppendPixels(KivRunView(&run, 1));
}

void KivPointArray::AppendPixels(KivRunView runs)
{
    std::uint64_t pixels = 0;
    for (const Run& run : runs) {
        pixels += static_cast<std::uint64_t>(std::max<std::int64_t>(std::int64_t{run.colEnd} - run.colBegin + 1, 0));
    }
    kivdata::check_room("KivPointArray", points_.size(), pixels);
    kivcommon::reserve_more(points_, static_cast<std::size_t>(pixels));
    PointBatch batch(points_);
    kivcommon::list_pixels(runs, batch);
}

void KivPointArray::throw_out_of_range(int index) const
{
    kivdata::throw_out_of_range("KivPointArray", index, Length());
}
