// SPDX-License-Identifier: MIT
#include "kivconvert/base64.h"

#include <gtest/gtest.h>

namespace
{

using kivconvert::base64_of;

TEST(Base64, IsThatOfTheRfc)
{
    EXPECT_EQ(base64_of(""), "");
    EXPECT_EQ(base64_of("f"), "Zg==");
    EXPECT_EQ(base64_of("fo"), "Zm8=");
    EXPECT_EQ(base64_of("foo"), "Zm9v");
    EXPECT_EQ(base64_of("foobar"), "Zm9vYmFy");
    EXPECT_EQ(base64_of(std::string_view("\xff\xfe\xfb\0", 4)), "//77AA==");
}

} // namespace
