// SPDX-License-Identifier: MIT
// The numbers behind the result codes, which callers have compiled in.
#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <set>
#include <type_traits>

namespace
{

struct Code {
    const char* name;
    int actual;
    int expected;
};

const Code codes[] = {
    {"KIVMV_OK", KIVMV::KIVMV_OK, 0},
    {"KIVMV_ERR_NO_IMAGE", KIVMV::KIVMV_ERR_NO_IMAGE, 1100001},
    {"KIVMV_ERR_CHANNELS", KIVMV::KIVMV_ERR_CHANNELS, 1100005},
    {"KIVMV_ERR_LENGTH", KIVMV::KIVMV_ERR_LENGTH, 1100007},
    {"KIVMV_ERR_PARAM_1", KIVMV::KIVMV_ERR_PARAM_1, 1100008},
    {"KIVMV_ERR_PARAM_2", KIVMV::KIVMV_ERR_PARAM_2, 1100009},
    {"KIVMV_ERR_PARAM_3", KIVMV::KIVMV_ERR_PARAM_3, 1100010},
    {"KIVMV_ERR_PARAM_4", KIVMV::KIVMV_ERR_PARAM_4, 1100011},
    {"KIVMV_ERR_PARAM_5", KIVMV::KIVMV_ERR_PARAM_5, 1100012},
    {"KIVMV_ERR_EXCEPTION", KIVMV::KIVMV_ERR_EXCEPTION, 1100049},
    {"KIVMV_ERR_BIT_DEPTH", KIVMV::KIVMV_ERR_BIT_DEPTH, 2001014},
};

static_assert(std::is_same_v<decltype(KIVMV::KIVMV_OK), const int>);
static_assert(std::is_same_v<decltype(KIVMV::KIVMV_ERR_BIT_DEPTH), const int>);

TEST(ResultCodes, HaveTheirPublishedNumbers)
{
    for (const Code& code : codes) {
        EXPECT_EQ(code.actual, code.expected) << code.name;
    }
}

TEST(ResultCodes, AreAllDifferent)
{
    std::set<int> seen;
    for (const Code& code : codes) {
        EXPECT_TRUE(seen.insert(code.actual).second) << code.name << " is the number of another code as well";
    }
}

TEST(ResultCodes, OnlySuccessIsZero)
{
    for (const Code& code : codes) {
        EXPECT_EQ(code.actual == 0, code.expected == 0) << code.name;
        EXPECT_GE(code.actual, 0) << code.name;
    }
}

TEST(ResultCodes, AreDescribedByNameInAscendingOrder)
{
    ASSERT_EQ(std::size(KIVMV::ResultDescriptions), std::size(codes));
    for (std::size_t i = 0; i < std::size(codes); ++i) {
        const KIVMV::ResultDescription* description = KIVMV::DescribeResult(codes[i].expected);
        ASSERT_EQ(description, &KIVMV::ResultDescriptions[i]) << codes[i].name;
        EXPECT_EQ(description->code, codes[i].expected);
        EXPECT_STREQ(description->name, codes[i].name);
        EXPECT_STRNE(description->meaning, "");
    }
}

TEST(ResultCodes, OtherNumbersHaveNoDescription)
{
    static_assert(KIVMV::DescribeResult(1) == nullptr);
    EXPECT_EQ(KIVMV::DescribeResult(-1), nullptr);
    EXPECT_EQ(KIVMV::DescribeResult(1100006), nullptr);
}

} // namespace
