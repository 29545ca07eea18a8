// SPDX-License-Identifier: MIT
// Lists written through a pointer have what was written, wherever it is copied in between.
#include "foundation/run_writer.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace
{

using kiv::RunWriter;

Run numbered(int number)
{
    return {number, 2 * number, 2 * number + 1};
}

std::vector<Run> numbered_up_to(int count)
{
    std::vector<Run> runs;
    for (int i = 0; i < count; ++i) {
        runs.push_back(numbered(i));
    }
    return runs;
}

TEST(RunWriter, HasAllRunsInOrder)
{
    for (int count = 0; count < 700; ++count) {
        RunWriter writer(0);
        for (int i = 0; i < count; ++i) {
            writer.push_back(numbered(i));
        }
        ASSERT_EQ(writer.written(), numbered_up_to(count));
        RunWriter appended(1000);
        appended.append(numbered_up_to(count));
        ASSERT_EQ(appended.written(), numbered_up_to(count));
    }
}

TEST(RunWriter, HasPlaceForManyAtOnce)
{
    RunWriter writer(0);
    int count = 0;
    for (const std::size_t at_once : {std::size_t{1}, RunWriter::at_once, std::size_t{0}, RunWriter::at_once,
                                      RunWriter::at_once, RunWriter::at_once - 1, RunWriter::at_once}) {
        auto* next = writer.place();
        for (std::size_t i = 0; i < at_once; ++i) {
            *next++ = numbered(count++);
        }
        writer.written_up_to(next);
    }
    EXPECT_EQ(writer.written(), numbered_up_to(count));
}

TEST(RunWriter, TakesBackWhatWasCopied)
{
    RunWriter writer(0);
    writer.append(numbered_up_to(400));
    for (int i = 399; i >= 5; --i) {
        ASSERT_EQ(writer.taken_back(), numbered(i));
    }
    writer.push_back(numbered(5));
    EXPECT_EQ(writer.written(), numbered_up_to(6));
}

TEST(RunWriter, TakesLittleMoreMemoryThanItsRuns)
{
    RunWriter few(100000);
    few.append(numbered_up_to(100));
    EXPECT_EQ(few.written().capacity(), 100U);
    RunWriter expected(5000);
    expected.append(numbered_up_to(5000));
    EXPECT_EQ(expected.written().capacity(), 5000U);
    RunWriter extrapolated(10);
    for (std::size_t i = 0; i < 10000; ++i) {
        extrapolated.go_on_to(i + 1, 10000);
        extrapolated.append(numbered_up_to(7));
    }
    const kiv::RunList runs = extrapolated.written();
    EXPECT_EQ(runs.size(), 70000U);
    EXPECT_LE(runs.capacity(), 70000U * 5 / 4);
}

} // namespace
