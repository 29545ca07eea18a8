// SPDX-License-Identifier: MIT
// Every allocation fails once: the first, the second, and so on, until a function goes through. Each time the exception
// reaches the caller, or becomes a code where that is promised; nothing leaks, and no argument has changed that should
// not have.
#include "failing_allocations.h"
#include "partly_written.h"
#include "scenarios.h"

#include <KivData/KivData.h>
#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <new>

namespace
{

using faults::Output;
using faults::Scenario;

class AllocationFaults : public testing::TestWithParam<Scenario>
{
protected:
    static void SetUpTestSuite() { faults::fail_matrices_too(); }
};

struct Attempt {
    bool failure_was_injected = false;
    bool threw = false;
    int code = 0;
};

Attempt attempt_with_fault(const faults::Call& call, long fault_at)
{
    Attempt attempt;
    faults::fail_allocation(fault_at);
    try {
        attempt.code = call.make();
    } catch (const std::bad_alloc&) {
        attempt.threw = true;
    } catch (const cv::Exception&) {
        attempt.threw = true;
    }
    attempt.failure_was_injected = faults::allocations_made() >= fault_at;
    faults::fail_allocation(0);
    return attempt;
}

TEST(RunExtraction, KeepsWhatTheListHeldWhenMemoryRunsOut)
{
    cv::Mat mask(4, 8, CV_8UC1, cv::Scalar(255));
    for (long fault_at = 1, length = 0; length == 0; ++fault_at) {
        std::vector<::Run> runs{{7, 8, 9}};
        faults::fail_allocation(fault_at);
        try {
            KivRLC::FindContours(mask, 1, nullptr, nullptr, nullptr, nullptr, &runs, nullptr, true, -1, -1, 1, false);
            length = static_cast<long>(runs.size());
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(runs.size(), 1U);
        }
        faults::fail_allocation(0);
        EXPECT_EQ(runs.front(), (::Run{7, 8, 9}));
        EXPECT_LT(fault_at, 9);
    }
}

/// The allocations of a call.
template <class Call>
long allocations_of(Call call)
{
    faults::fail_allocation(0);
    EXPECT_EQ(call(), KIVMV::KIVMV_OK);
    return faults::allocations_made();
}

TEST(Contours, OfASmallShapeTakeFourAllocationsBesideTheResult)
{
    KivRegion ring(64, 64, {{10, 4, 20}, {11, 4, 6}, {11, 18, 20}, {12, 4, 20}});
    constexpr long contours = 3; // the array and two contours
    constexpr long runs = 1;
    constexpr long matrix = 1;

    KivContourArray borders;
    EXPECT_LE(allocations_of([&] { return KIVMV::KivRegionToContourArray(ring, &borders); }), contours + 4);
    KivRegion filled;
    EXPECT_LE(allocations_of([&] { return KIVMV::KivContourArrayToRegion(borders, 64, 64, &filled); }), runs + 4);
    EXPECT_EQ(filled, ring);
    KivImage image(cv::Mat(1, 1, CV_8UC1)); // OpenCV makes some objects with its first matrix and keeps them
    EXPECT_LE(allocations_of([&] { return KIVMV::KivContourArrayToBinImage(&image, borders, 64, 64); }), matrix + 4);
    KivContourArray traced;
    EXPECT_LE(allocations_of([&] { return KIVMV::KivBinImageToContourArray(image, &traced); }), contours + 4);
    EXPECT_EQ(traced, borders);
}

TEST(Variants, ReleaseTheirTexts)
{
    const long living_before = faults::living_blocks();
    {
        KivVarArray texts{KivVar("one"), KivVar(2)};
        texts.Append(KivVar("three"));
        texts[0] = KivVar(1);
    }
    EXPECT_EQ(faults::living_blocks(), living_before);
}

TEST_P(AllocationFaults, NothingIsLostWhenMemoryRunsOut)
{
    const Scenario& scenario = GetParam();
    const std::string complete = faults::complete_output(scenario); // and whatever OpenCV makes once and keeps
    int injected = 0;
    bool became_codes = false;
    for (long fault_at = 1;; ++fault_at) {
        SCOPED_TRACE("allocation " + std::to_string(fault_at) + " fails");
        const long living_before = faults::living_blocks();
        bool went_through = false;
        {
            const faults::Call call = scenario.prepare();
            const std::string inputs_before = call.inputs();
            const std::string output_before = call.output();

            const Attempt attempt = attempt_with_fault(call, fault_at);

            EXPECT_EQ(call.inputs(), inputs_before);
            went_through = !attempt.failure_was_injected;
            if (went_through) {
                EXPECT_EQ(attempt.code, KIVMV::KIVMV_OK);
            } else {
                ++injected;
                const bool became_a_code = attempt.code == KIVMV::KIVMV_ERR_EXCEPTION;
                became_codes = became_codes || became_a_code;
                EXPECT_TRUE(attempt.threw || (scenario.exceptions_become_a_code && became_a_code));
                if (scenario.on_failure == Output::written_gradually) {
                    EXPECT_TRUE(faults::is_partly_written(call.output(), output_before, complete)) << call.output();
                }
                if (scenario.on_failure == Output::untouched) {
                    EXPECT_EQ(call.output(), output_before);
                }
            }
        }
        if (HasFailure()) {
            break;
        }
        EXPECT_EQ(faults::living_blocks(), living_before);
        if (went_through) {
            break;
        }
    }
    EXPECT_EQ(became_codes, scenario.exceptions_become_a_code);
    RecordProperty("faults", injected);
}

TEST(MergContour, CopiesTheImageBeforeItChecksAnything)
{
    faults::fail_matrices_too();
    KivImage of_two_channels(cv::Mat(1, 1, CV_8UC2));
    KivContour contour;
    KivContourArray contours;
    faults::fail_allocation(1);
    EXPECT_THROW(KIVMV::KivMergContour(of_two_channels, contour, true, &contours), cv::Exception);
    faults::fail_allocation(0);
}

INSTANTIATE_TEST_SUITE_P(All, AllocationFaults, testing::ValuesIn(faults::all_scenarios()),
                         [](const auto& scenario) { return scenario.param.name; });

} // namespace
