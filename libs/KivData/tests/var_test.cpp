// SPDX-License-Identifier: MIT
#include <KivData/KivVar.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

static_assert(sizeof(KivVar) == 16);
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
