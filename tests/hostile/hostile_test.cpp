// SPDX-License-Identifier: MIT
// Goes through the cases: each must lead to its outcome, and soon. Memory is bounded, so that no case can eat all of
// it.
#include "cases.h"

#include "faults/failing_allocations.h"

#include <gtest/gtest.h>
#include <opencv2/core/version.hpp>

#include <cstddef>
#include <map>
#include <new>
#include <stdexcept>

namespace
{

using hostile::Case;
using hostile::Cases;

/// Whether a matrix would have needed more memory than there is, or, where sizes have 32 bits, than a size can say.
/// Before version 4, OpenCV replaces the error of memory by that of an assertion, by which the matrix should have got
/// its block.
bool is_too_large(const cv::Exception& error)
{
    return error.code == cv::Error::StsNoMem || (CV_MAJOR_VERSION < 4 && error.code == cv::Error::StsAssert) ||
           (sizeof(std::size_t) == 4 && error.code == cv::Error::StsOutOfRange);
}

std::string outcome_of(const Case& hostile_case)
{
    try {
        return hostile_case.call();
    } catch (const cv::Exception& error) {
        return is_too_large(error) ? hostile::too_large : "cv::Exception";
    } catch (const std::bad_alloc&) {
        return hostile::too_large;
    } catch (const std::invalid_argument&) {
        return "std::invalid_argument";
    } catch (const std::out_of_range&) {
        return "std::out_of_range";
    } catch (const std::length_error&) {
        return "std::length_error";
    }
}

class Hostile : public testing::TestWithParam<Case>
{
protected:
    static void SetUpTestSuite()
    {
        faults::fail_matrices_too();
        faults::fail_blocks_over(hostile::largest_block);
    }
};

TEST_P(Hostile, ArgumentsLeadToWhatIsPromised)
{
    if (!faults::reach_libraries && GetParam().outcome == hostile::too_large) {
        GTEST_SKIP() << "the libraries have as much memory as there is";
    }
    EXPECT_TRUE(support::is_quick([] { EXPECT_EQ(outcome_of(GetParam()), GetParam().outcome); }));
}

const auto name_of_case = [](const auto& info) { return info.param.name; };

INSTANTIATE_TEST_SUITE_P(Arrays, Hostile, testing::ValuesIn(hostile::array_cases()), name_of_case);
INSTANTIATE_TEST_SUITE_P(Rasters, Hostile, testing::ValuesIn(hostile::raster_cases()), name_of_case);
INSTANTIATE_TEST_SUITE_P(Contours, Hostile, testing::ValuesIn(hostile::contour_cases()), name_of_case);
INSTANTIATE_TEST_SUITE_P(Rois, Hostile, testing::ValuesIn(hostile::roi_cases()), name_of_case);
INSTANTIATE_TEST_SUITE_P(Algebra, Hostile, testing::ValuesIn(hostile::algebra_cases()), name_of_case);

} // namespace

std::string hostile::name_of(int code)
{
    static const std::map<int, std::string> names = {
        {KIVMV::KIVMV_OK, "ok"},
        {KIVMV::KIVMV_ERR_NO_IMAGE, "no image"},
        {KIVMV::KIVMV_ERR_CHANNELS, "channels"},
        {KIVMV::KIVMV_ERR_LENGTH, "length"},
        {KIVMV::KIVMV_ERR_PARAM_1, "parameter 1"},
        {KIVMV::KIVMV_ERR_PARAM_2, "parameter 2"},
        {KIVMV::KIVMV_ERR_PARAM_3, "parameter 3"},
        {KIVMV::KIVMV_ERR_PARAM_4, "parameter 4"},
        {KIVMV::KIVMV_ERR_PARAM_5, "parameter 5"},
        {KIVMV::KIVMV_ERR_EXCEPTION, "exception"},
        {KIVMV::KIVMV_ERR_BIT_DEPTH, "bit depth"},
    };
    const auto found = names.find(code);
    return found != names.end() ? found->second : std::to_string(code);
}
