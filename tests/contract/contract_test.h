// SPDX-License-Identifier: MIT
// What the tests against the recording data types share.
#pragma once

#include "double/described.h"
#include "double/extraction.h"
#include "double/recording.h"

#include <KivData/KivData.h>
#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace contract
{

using Calls = std::vector<std::string>;

/// The recorded calls whose order and number are promised: those that hand something over or write. What only reads
/// sizes, types and runs, and what makes or copies a helper object, may be called in any order, and again.
Calls calls();

/// The constant part of every extraction, around the mask.
inline std::string find_contours(const std::string& mask)
{
    return "FindContours(" + mask + ", 1, empty, empty, empty, null, empty, empty, true, -1, -1, 1, false)";
}

/// Forgets the calls that making the arguments recorded, so that what follows is the function's own.
inline void start()
{
    recording::recorder().calls.clear();
    recording::recorder().call_count = 0;
    recording::recorder().rendered.reset();
    recording::extracted().reset();
}

/// Watches inputs: when its scope ends they must be what they were when it began.
class Unchanged
{
public:
    template <class... Inputs>
    explicit Unchanged(const Inputs&... inputs)
        : describe_([&] { return (std::string() + ... + (recording::described(inputs) + "; ")); }), before_(describe_())
    {
    }
    Unchanged(const Unchanged&) = delete;
    Unchanged& operator=(const Unchanged&) = delete;
    ~Unchanged() { EXPECT_EQ(describe_(), before_); }

private:
    std::function<std::string()> describe_;
    std::string before_;
};

/// One call of a function: the code that it returns, and the promised calls on the data types, in order.
struct Use {
    std::string name;
    std::function<int()> call;
    int code;
    Calls calls;
};

inline void expect_all(const std::vector<Use>& uses)
{
    for (const Use& use : uses) {
        SCOPED_TRACE(use.name);
        start();
        EXPECT_EQ(use.call(), use.code);
        EXPECT_EQ(calls(), use.calls);
    }
}

/// Every test ends with no violation and with as many living objects as at its start.
class ContractTest : public testing::Test
{
protected:
    ContractTest()
    {
        start();
        recording::recorder().violations.clear();
        living_before_ = recording::recorder().living_objects;
    }
    ~ContractTest() override
    {
        EXPECT_EQ(recording::recorder().violations, Calls{});
        EXPECT_EQ(recording::recorder().living_objects, living_before_);
    }

private:
    long living_before_;
};

inline void set(KivRegion& region, const std::string& name, int width, int height, std::vector<Run> runs)
{
    region.test_name = name;
    region.test_width = width;
    region.test_height = height;
    region.test_runs = std::move(runs);
}

/// A region that stands for an output's old value, which it has if a call has left it alone.
struct OldRegion : KivRegion {
    OldRegion() { set(*this, "region", 1, 1, {{0, 0, 0}}); }
    bool is_old() const { return test_width == 1 && test_height == 1 && test_runs.size() == 1; }
};

inline void set(KivVarArray& array, const std::vector<int>& values)
{
    for (const int value : values) {
        array.test_append(value);
    }
}

/// The bytes of an 8-bit image given row by row, in a matrix whose rows are padded.
inline cv::Mat padded_matrix(int rows, int cols, const std::vector<int>& bytes)
{
    cv::Mat padded(rows, cols + 3, CV_8UC1, cv::Scalar(9));
    cv::Mat view = padded.colRange(0, cols);
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < cols; ++x) {
            view.at<uchar>(y, x) = static_cast<uchar>(bytes.at(static_cast<std::size_t>(y * cols + x)));
        }
    }
    return view;
}

} // namespace contract
