// SPDX-License-Identifier: MIT
#include "common/fetch_ahead.h"
#include "image_rows.h"
#include "run_set_access.h"

#include <KivRLC/KivRunImages.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <unordered_map>
#include <utility>

namespace
{

/// Collects the runs of every label; 0 is none.
class LabelCollector
{
public:
    void add(std::int32_t label, const Run& run)
    {
        if (label != last_label_) {
            last_label_ = label;
            last_ = &runs_of_[label]; // stays where it is, however many labels follow
        }
        last_->push_back(run);
    }

    std::vector<KivRuns::LabelledSet> sets()
    {
        std::vector<KivRuns::LabelledSet> sets;
        sets.reserve(runs_of_.size());
        for (auto& [label, runs] : runs_of_) {
            sets.push_back({label, kivrlc::set_of_canonical(std::move(runs))});
        }
        std::sort(sets.begin(), sets.end(), [](const auto& a, const auto& b) { return a.label < b.label; });
        return sets;
    }

private:
    std::unordered_map<std::int32_t, kivrlc::RunBuffer> runs_of_;
    std::int32_t last_label_ = 0; // none so far
    kivrlc::RunBuffer* last_ = nullptr;
};

template <class Label>
class LabelRow
{
public:
    LabelRow(const KivImageView<const Label>& labels, int y)
        : bytes_(kivrlc::bytes_of(labels, 0, y)), width_(labels.width)
    {
    }

    Label at(int x) const
    {
        Label label;
        std::memcpy(&label, place(x), sizeof(label));
        return label;
    }

    /// The first column behind x with another label than x.
    int end_of_label(int x) const
    {
        const Label label = at(x);
        ++x;
        while (width_ - x >= some && std::memcmp(place(x - 1), place(x), some_bytes) == 0) {
            kivcommon::fetch_ahead(place(x), some_bytes);
            x += some;
        }
        while (x < width_ && at(x) == label) {
            ++x;
        }
        return x;
    }

private:
    // Of so many labels at once it is looked at whether they are like their neighbours.
    static constexpr std::size_t some_bytes = 16;
    static constexpr int some = some_bytes / sizeof(Label);

    const unsigned char* place(int x) const { return bytes_ + x * static_cast<std::ptrdiff_t>(sizeof(Label)); }

    const unsigned char* bytes_;
    int width_;
};

template <class Label>
std::vector<KivRuns::LabelledSet> sets_of_labels(const KivImageView<const Label>& labels)
{
    kivrlc::check_image(labels);
    LabelCollector collector;
    for (int y = 0; y < labels.height; ++y) {
        const LabelRow<Label> row(labels, y);
        for (int x = 0; x < labels.width;) {
            const int next = row.end_of_label(x);
            if (row.at(x) != 0) {
                collector.add(row.at(x), {y, x, next - 1});
            }
            x = next;
        }
    }
    return collector.sets();
}

} // namespace

std::vector<KivRuns::LabelledSet> KivRuns::FromLabels(const KivImageView<const std::uint8_t>& labels)
{
    return sets_of_labels(labels);
}

std::vector<KivRuns::LabelledSet> KivRuns::FromLabels(const KivImageView<const std::uint16_t>& labels)
{
    return sets_of_labels(labels);
}

std::vector<KivRuns::LabelledSet> KivRuns::FromLabels(const KivImageView<const std::int32_t>& labels)
{
    return sets_of_labels(labels);
}
