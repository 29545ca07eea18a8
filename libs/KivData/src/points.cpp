// SPDX-License-Identifier: MIT
#include <KivData/KivPoint.h>

#include "argument_checks.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace
{

/// Collects points where they stay in the cache, and appends many at once: to make an array longer takes a pass over
/// the new points of its own. Short runs are written by fours, as how long they are can hardly be guessed.
class PointCollector
{
public:
    explicit PointCollector(std::vector<KivPoint>& points) : points_(points) {}

    void add(const Run& run)
    {
        const auto y = static_cast<double>(run.row);
        for (std::int64_t x = run.colBegin; x <= run.colEnd; x += at_once) {
            const auto first = static_cast<double>(x);
            for (std::size_t i = 0; i < at_once; ++i) {
                collected_[count_ + i] = {first + static_cast<double>(i), y};
            }
            count_ += static_cast<std::size_t>(std::min<std::int64_t>(run.colEnd - x + 1, at_once));
            if (count_ >= full) {
                flush();
            }
        }
    }

    void flush()
    {
        points_.insert(points_.end(), collected_, collected_ + count_);
        count_ = 0;
    }

private:
    static constexpr int at_once = 4;
    static constexpr std::size_t full = 32;

    std::vector<KivPoint>& points_;
    std::size_t count_ = 0;
    KivPoint collected_[full + 2 * std::size_t{at_once}];
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
    const auto added = static_cast<std::size_t>(pixels);
    if (points_.capacity() - points_.size() < added) {
        points_.reserve(std::max(points_.size() + added, points_.empty() ? 0 : 2 * points_.size()));
    }
    PointCollector collector(points_);
    for (const Run& run : runs) {
        collector.add(run);
    }
    collector.flush();
}

void KivPointArray::throw_out_of_range(int index) const
{
    kivdata::throw_out_of_range("KivPointArray", index, Length());
}
