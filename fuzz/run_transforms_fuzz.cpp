// SPDX-License-Identifier: MIT
// Transforms move every pixel where they say; of sets anywhere they are undone by their opposites, or raise
// std::overflow_error.
//
// Input: two numbers to move by, quarters to turn by, two factors to scale by, a list of runs, then a picture.
#include "inputs.h"
#include "target.h"

#include "run_brute.h"

#include <KivRLC/KivRunTransforms.h>

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <map>
#include <stdexcept>

namespace
{

using KivRuns::BlockRule;

constexpr KivRunBox box{0, 19, 0, 23};

template <class Move>
KivRunSet moved(const brute::Pixels& pixels, const Move& move)
{
    brute::Pixels result;
    for (const auto& [row, column] : pixels) {
        result.insert(move(row, column));
    }
    return brute::set_of(result);
}

KivRunSet scaled_down(const brute::Pixels& pixels, int columns, int rows, BlockRule rule)
{
    const auto block_of = [](int coordinate, int factor) {
        return (coordinate - (coordinate < 0 ? factor - 1 : 0)) / factor;
    };
    std::map<brute::Pixel, int> blocks;
    for (const auto& [row, column] : pixels) {
        ++blocks[{block_of(row, rows), block_of(column, columns)}];
    }
    brute::Pixels result;
    for (const auto& [block, count] : blocks) {
        const int all = columns * rows;
        if (rule == BlockRule::Any || (rule == BlockRule::Most ? 2 * count > all : count == all)) {
            result.insert(block);
        }
    }
    return brute::set_of(result);
}

void expect_definitions(const KivRunSet& set, int quarters, int columns, int rows)
{
    const brute::Pixels pixels = brute::pixels_of(set);
    using Pixel = brute::Pixel;
    const KivRunSet turned = moved(pixels, [](int row, int column) { return Pixel(column, box.rowEnd - row); });
    const std::array<KivRunSet, 4> turns{
        set, turned, moved(pixels, [](int row, int column) { return Pixel(box.rowEnd - row, box.colEnd - column); }),
        moved(pixels, [](int row, int column) { return Pixel(box.colEnd - column, row); })};
    EXPECT_EQ(KivRuns::Turn(set, quarters, box), turns[static_cast<std::size_t>(quarters & 3)]);
    EXPECT_EQ(KivRuns::Transpose(set), moved(pixels, [](int row, int column) { return Pixel(column, row); }));
    EXPECT_EQ(KivRuns::FlipLeftRight(set, box),
              moved(pixels, [](int row, int column) { return Pixel(row, box.colEnd - column); }));
    EXPECT_EQ(KivRuns::FlipUpDown(set, box),
              moved(pixels, [](int row, int column) { return Pixel(box.rowEnd - row, column); }));
    for (const BlockRule rule : {BlockRule::Any, BlockRule::Most, BlockRule::All}) {
        EXPECT_EQ(KivRuns::ScaleDown(set, columns, rows, rule), scaled_down(pixels, columns, rows, rule));
    }
}

/// The transform, unless its result leaves the ints, is undone by the other one.
template <class Transform, class Opposite>
void expect_undone(const KivRunSet& set, const Transform& transform, const Opposite& opposite)
{
    KivRunSet result;
    try {
        result = transform();
    } catch (const std::overflow_error&) {
        EXPECT_FALSE(set.Empty());
        return;
    }
    EXPECT_EQ(KivRunSet::WhyNotCanonical(result.Runs()), "");
    EXPECT_EQ(opposite(result), set);
}

void expect_opposites(const KivRunSet& set, int dx, int dy, int quarters, int columns, int rows)
{
    expect_undone(
        set, [&] { return KivRuns::Translate(set, dx, dy); },
        [&](const KivRunSet& result) {
            return dx == INT_MIN || dy == INT_MIN ? set : KivRuns::Translate(result, -dx, -dy);
        });
    expect_undone(
        set, [&] { return KivRuns::FlipLeftRight(set, box); },
        [](const KivRunSet& result) { return KivRuns::FlipLeftRight(result, box); });
    expect_undone(
        set, [&] { return KivRuns::FlipUpDown(set, box); },
        [](const KivRunSet& result) { return KivRuns::FlipUpDown(result, box); });
    expect_undone(
        set, [&] { return KivRuns::ScaleUp(set, columns, rows); },
        [&](const KivRunSet& result) { return KivRuns::ScaleDown(result, columns, rows, BlockRule::All); });
    // What is wide gets as many runs as it has columns.
    const KivRunSet narrow = KivRuns::Crop(set, {INT_MIN, INT_MAX, -99, 99});
    expect_undone(
        narrow, [&] { return KivRuns::Transpose(narrow); }, KivRuns::Transpose);
    expect_undone(
        narrow,
        [&] {
            return KivRuns::Turn(narrow, quarters, {0, 9, 0, 9});
        },
        [&](const KivRunSet& result) {
            return KivRuns::Turn(result, 4 - (quarters & 3), {0, 9, 0, 9});
        });
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const int dx = input.coordinate();
    const int dy = input.coordinate();
    const int quarters = input.coordinate();
    const int columns = 1 + input.digit();
    const int rows = 1 + input.digit() % 4;
    expect_opposites(KivRunSet(input.runs()), dx, dy, quarters, columns, rows);
    const KivRunSet set = KivRuns::Crop(run_sets::set_of(input.picture()), box);
    expect_definitions(set, quarters, columns, rows);
    expect_definitions(KivRuns::Translate(set, -9, -7), 0, columns, rows);
    return 0;
}
