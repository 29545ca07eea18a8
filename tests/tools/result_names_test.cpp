// SPDX-License-Identifier: MIT
#include "kivconvert/result_codes.h"

#include <gtest/gtest.h>
#include <KivDataConvert/KivDataConvert.h>

#include <string>

namespace
{

using kivconvert::describe_result;
using kivconvert::expect_success;

TEST(ResultNames, AreKnownForEveryCode)
{
    const int codes[] = {
        KIVMV::KIVMV_OK,          KIVMV::KIVMV_ERR_NO_IMAGE,  KIVMV::KIVMV_ERR_CHANNELS, KIVMV::KIVMV_ERR_LENGTH,
        KIVMV::KIVMV_ERR_PARAM_1, KIVMV::KIVMV_ERR_PARAM_2,   KIVMV::KIVMV_ERR_PARAM_3,  KIVMV::KIVMV_ERR_PARAM_4,
        KIVMV::KIVMV_ERR_PARAM_5, KIVMV::KIVMV_ERR_EXCEPTION, KIVMV::KIVMV_ERR_BIT_DEPTH};
    for (const int code : codes) {
        EXPECT_EQ(describe_result(code).rfind("KIVMV_", 0), 0U) << code;
    }
    EXPECT_EQ(describe_result(2001014), "KIVMV_ERR_BIT_DEPTH (2001014): the input image is not 8-bit");
    EXPECT_EQ(describe_result(77), "unknown result code 77");
}

TEST(ResultNames, StandInTheMessage)
{
    EXPECT_NO_THROW(expect_success(KIVMV::KIVMV_OK, "a.png"));
    try {
        expect_success(KIVMV::KIVMV_ERR_NO_IMAGE, "a.png");
        FAIL() << "a failure was taken for a success";
    } catch (const kivconvert::ResultError& error) {
        EXPECT_STREQ(error.what(), "a.png: KIVMV_ERR_NO_IMAGE (1100001): the input image holds no pixels");
    }
}

} // namespace
