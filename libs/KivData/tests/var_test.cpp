// SPDX-License-Identifier: MIT
#include <KivData/KivVar.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

static_assert(sizeof(KivVar) <= 16); // 12 where doubles are aligned like ints
static_assert(std::is_nothrow_move_constructible_v<KivVar> && std::is_nothrow_move_assignable_v<KivVar>);

const std::string long_text(100, 'x'); // longer than what a std::string keeps within itself

TEST(Var, HoldsAnInt)
{
    const KivVar var(-7);
    EXPECT_EQ(var.ValType(), KivVar::IntKind);
    EXPECT_EQ(var.ValType(), 0);
    EXPECT_EQ(var.I(), -7);
    EXPECT_EQ(var.D(), -7.0);
    EXPECT_EQ(var.S(), "");
}

TEST(Var, HoldsADouble)
{
    const KivVar var(2.75);
    EXPECT_EQ(var.ValType(), KivVar::DoubleKind);
    EXPECT_EQ(var.ValType(), 1);
    EXPECT_EQ(var.I(), 2);
    EXPECT_EQ(var.D(), 2.75);
    EXPECT_EQ(var.S(), "");
}

TEST(Var, HoldsAText)
{
    const KivVar var("17");
    EXPECT_EQ(var.ValType(), KivVar::TextKind);
    EXPECT_EQ(var.ValType(), 2);
    EXPECT_EQ(var.I(), 0);
    EXPECT_EQ(var.D(), 0.0);
    EXPECT_EQ(var.S(), "17");
}

TEST(Var, IsTheIntZeroByDefault)
{
    EXPECT_EQ(KivVar(), KivVar(0));
}

TEST(Var, TruncatesDoublesTowardZero)
{
    EXPECT_EQ(KivVar(2.999).I(), 2);
    EXPECT_EQ(KivVar(-2.999).I(), -2);
    EXPECT_EQ(KivVar(-0.5).I(), 0);
    EXPECT_EQ(KivVar(2147483646.9).I(), 2147483646);
}

TEST(Var, SaturatesDoublesBeyondInt)
{
    EXPECT_EQ(KivVar(2147483648.0).I(), INT_MAX);
    EXPECT_EQ(KivVar(1e300).I(), INT_MAX);
    EXPECT_EQ(KivVar(infinity).I(), INT_MAX);
    EXPECT_EQ(KivVar(-2147483648.9).I(), INT_MIN);
    EXPECT_EQ(KivVar(-2147483649.0).I(), INT_MIN);
    EXPECT_EQ(KivVar(-infinity).I(), INT_MIN);
}

TEST(Var, TakesNotANumberAsZeroInt)
{
    EXPECT_EQ(KivVar(std::nan("")).I(), 0);
    EXPECT_TRUE(std::isnan(KivVar(std::nan("")).D()));
}

TEST(Var, HoldsAnyIntegerInTheRangeOfInt)
{
    EXPECT_EQ(KivVar(true), KivVar(1));
    EXPECT_EQ(KivVar('a'), KivVar(97));
    EXPECT_EQ(KivVar(static_cast<short>(-3)), KivVar(-3));
    EXPECT_EQ(KivVar(5U), KivVar(5));
    EXPECT_EQ(KivVar(5L), KivVar(5));
    EXPECT_EQ(KivVar(long_text.size()), KivVar(100));
    EXPECT_EQ(KivVar(2147483647ULL), KivVar(INT_MAX));
    EXPECT_EQ(KivVar(-2147483648LL), KivVar(INT_MIN));
}

/// What is said of a value that is no int.
template <class Integer>
std::string refusal_of(Integer value)
{
    try {
        KivVar var(value);
        return "";
    } catch (const std::out_of_range& error) {
        return error.what();
    }
}

TEST(Var, RejectsIntegersOutsideTheRangeOfInt)
{
    EXPECT_EQ(refusal_of(2147483648U), "KivVar: 2147483648 is outside the range of int");
    EXPECT_EQ(refusal_of(2147483648L), "KivVar: 2147483648 is outside the range of int");
    EXPECT_EQ(refusal_of(-2147483649L), "KivVar: -2147483649 is outside the range of int");
    EXPECT_EQ(refusal_of(4294967296ULL), "KivVar: 4294967296 is outside the range of int");
    EXPECT_EQ(refusal_of(ULLONG_MAX), "KivVar: 18446744073709551615 is outside the range of int");
    EXPECT_EQ(refusal_of(LLONG_MIN), "KivVar: -9223372036854775808 is outside the range of int");
}

TEST(Var, ConvertsToAnyNumber)
{
    const long long_int = KivVar(-7);
    const std::int64_t beyond_int = KivVar(3e9);
    const std::size_t size = KivVar(7.9);
    const float as_float = KivVar(0.25);
    const long double as_long_double = KivVar(0.1);
    EXPECT_EQ(long_int, -7);
    EXPECT_EQ(beyond_int, 3'000'000'000);
    EXPECT_EQ(size, 7U);
    EXPECT_EQ(as_float, 0.25F);
    EXPECT_EQ(as_long_double, static_cast<long double>(0.1));
}

TEST(Var, SaturatesToTheRangeOfAnyInteger)
{
    const auto convert_to = [](auto zero, const KivVar& var) {
        decltype(zero) number = var;
        return number;
    };
    EXPECT_EQ(convert_to(0L, infinity), LONG_MAX);
    EXPECT_EQ(convert_to(0LL, 9223372036854775808.0), LLONG_MAX);
    EXPECT_EQ(convert_to(0LL, 9223372036854774784.0), 9223372036854774784);
    EXPECT_EQ(convert_to(0L, -infinity), LONG_MIN);
    EXPECT_EQ(convert_to(0UL, -1), 0U);
    EXPECT_EQ(convert_to(0UL, -0.5), 0U);
    EXPECT_EQ(convert_to(0UL, 1e300), ULONG_MAX);
    EXPECT_EQ(convert_to(static_cast<unsigned char>(0), 300), 255);
    EXPECT_EQ(convert_to(static_cast<signed char>(0), -128.9), -128);
    EXPECT_EQ(convert_to(static_cast<short>(0), 32767.5), 32767);
    EXPECT_EQ(convert_to(0L, std::nan("")), 0);
    EXPECT_EQ(convert_to(0L, "17"), 0);
}

TEST(Var, ConvertsAsItsAccessorsDo)
{
    const KivVar var(-3.5);
    const int as_int = var;
    const double as_double = var;
    EXPECT_EQ(as_int, -3);
    EXPECT_EQ(as_double, -3.5);
}

TEST(Var, ComparesKindAndValue)
{
    EXPECT_TRUE(KivVar(1) == KivVar(1));
    EXPECT_TRUE(KivVar(1) != KivVar(2));
    EXPECT_TRUE(KivVar(1) != KivVar(1.0));
    EXPECT_TRUE(KivVar(1.5) == KivVar(1.5));
    EXPECT_TRUE(KivVar(1.5) != KivVar(1.25));
    EXPECT_TRUE(KivVar(std::nan("")) != KivVar(std::nan("")));
    EXPECT_TRUE(KivVar("a") == KivVar(std::string("a")));
    EXPECT_TRUE(KivVar("a") != KivVar("b"));
    EXPECT_TRUE(KivVar("") != KivVar(0));
}

TEST(Var, EqualsTheNumberThatItIs)
{
    EXPECT_TRUE(KivVar(1) == 1);
    EXPECT_TRUE(KivVar(1.0) == 1);
    EXPECT_TRUE(KivVar(1) == 1.0);
    EXPECT_TRUE(1U == KivVar(1));
    EXPECT_TRUE(KivVar(-1) != ULONG_MAX);
    EXPECT_TRUE(KivVar(1.5) != 1);
    EXPECT_TRUE(4294967297 != KivVar(1));
    EXPECT_TRUE(KivVar(9007199254740992.0) == 9007199254740992);
    EXPECT_TRUE(KivVar(9007199254740992.0) != 9007199254740993);
    EXPECT_TRUE(KivVar(std::nan("")) != std::nan(""));
    EXPECT_FALSE(KivVar("") == 0);
    EXPECT_TRUE(KivVar("1") != 1);
}

TEST(Var, EqualsIntegersExactlyAtTheEndsOfTheirRanges)
{
    EXPECT_TRUE(KivVar(9223372036854775808.0) != LLONG_MAX); // which is one less
    EXPECT_TRUE(KivVar(9223372036854775808.0) == 9223372036854775808ULL);
    EXPECT_TRUE(KivVar(9223372036854774784.0) == 9223372036854774784);
    EXPECT_TRUE(KivVar(9223372036854774784.0) != 9223372036854774785);
    EXPECT_TRUE(KivVar(-9223372036854775808.0) == LLONG_MIN);
    EXPECT_TRUE(KivVar(-9223372036854775808.0) != LLONG_MIN + 1);
    EXPECT_TRUE(KivVar(18446744073709551616.0) != ULLONG_MAX); // which is one less
    EXPECT_TRUE(KivVar(18446744073709549568.0) == 18446744073709549568ULL);
    EXPECT_TRUE(KivVar(-1.0) != ULLONG_MAX);
    EXPECT_TRUE(KivVar(infinity) != ULLONG_MAX);
    EXPECT_TRUE(KivVar(-infinity) != LLONG_MIN);
    EXPECT_TRUE(KivVar(INT_MIN) == INT_MIN);
    EXPECT_TRUE(KivVar(256) != static_cast<unsigned char>(0));
}

TEST(Var, EqualsNoIntegerBesideAFraction)
{
    EXPECT_TRUE(KivVar(-0.5) != 0U);
    EXPECT_TRUE(KivVar(-0.5) != 0);
    EXPECT_TRUE(KivVar(4503599627370495.5) != 4503599627370495);
    EXPECT_TRUE(KivVar(0.5) != true);
    EXPECT_TRUE(KivVar(1.0) == true);
    EXPECT_TRUE(KivVar(-0.0) == false);
    EXPECT_TRUE(KivVar(std::nan("")) != 0);
}

TEST(Var, EqualsRealNumbersOfAnyWidth)
{
    EXPECT_TRUE(KivVar(0.1) != 0.1F);
    EXPECT_TRUE(KivVar(0.5) == 0.5F);
    EXPECT_TRUE(KivVar(16777217) != 16777216.0F);
    EXPECT_TRUE(KivVar(0.1) == static_cast<long double>(0.1));
}

/// Values of all kinds.
const KivVar samples[] = {KivVar(5), KivVar(0.25), KivVar("short"), KivVar(long_text)};

TEST(Var, CopiesAreEqualAndIndependent)
{
    for (const KivVar& sample : samples) {
        KivVar copy(sample);
        EXPECT_TRUE(copy == sample);
        copy = KivVar(99);
        EXPECT_FALSE(copy == sample);
    }
}

TEST(Var, AssignsFromAnyKindToAnyKind)
{
    for (const KivVar& target : samples) {
        for (const KivVar& source : samples) {
            KivVar copied(target);
            copied = source;
            EXPECT_TRUE(copied == source);

            KivVar moved(target);
            KivVar from(source);
            moved = std::move(from);
            EXPECT_TRUE(moved == source);
            EXPECT_TRUE(from == KivVar(0));
        }
    }
}

TEST(Var, IsTheIntZeroAfterItWasMovedFrom)
{
    for (const KivVar& sample : samples) {
        KivVar from(sample);
        const KivVar to(std::move(from));
        EXPECT_TRUE(to == sample);
        EXPECT_TRUE(from == KivVar(0));
        from = sample;
        EXPECT_TRUE(from == sample);
    }
}

TEST(Var, MayBeAssignedToItself)
{
    for (const KivVar& sample : samples) {
        KivVar var(sample);
        KivVar& same = var;
        var = same;
        EXPECT_TRUE(var == sample);
        var = std::move(same);
        EXPECT_TRUE(var == sample);
        var.swap(same);
        EXPECT_TRUE(var == sample);
    }
}

TEST(Var, SwapsKindsAndValues)
{
    KivVar text(long_text);
    KivVar number(1.5);
    text.swap(number);
    EXPECT_TRUE(text == KivVar(1.5));
    EXPECT_TRUE(number == KivVar(long_text));
}

} // namespace
