// SPDX-License-Identifier: MIT
/// @file
/// Run lists, regions and ROIs as text, and set operations applied in every way in which the output may lie.
#pragma once

#include <KivData/KivData.h>
#include <KivRLC/KivRLC.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <variant>
#include <vector>

namespace support
{

using Runs = std::vector<Run>;

inline std::string described(const Runs& runs)
{
    std::ostringstream text;
    const char* separator = "";
    for (const Run& run : runs) {
        text << separator << '(' << run.row << ", " << run.colBegin << ", " << run.colEnd << ')';
        separator = " ";
    }
    return runs.empty() ? "no runs" : text.str();
}

inline std::string described(const KivRegion& region)
{
    std::ostringstream text;
    text << region.Width() << " x " << region.Height() << ": " << described(region.Runs());
    return text.str();
}

inline std::string described(const KivROI& roi)
{
    std::ostringstream text;
    text << "type " << roi.ROIType() << ", " << roi.Parameters().Width() << " x " << roi.Parameters().Height();
    if (const auto* mask = std::get_if<KivShape::Mask>(&roi.Parameters().Shape())) {
        text << ": " << described(mask->runs);
    }
    return text.str();
}

/// Whether two run lists, regions or ROIs are equal to the last run and in its place.
template <class Value>
testing::AssertionResult same(const Value& actual, const Value& expected)
{
    if (actual == expected) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "expected " << described(expected) << "\n     got " << described(actual);
}

/// A set operation of two operands.
template <class Operand>
using Combination = int (*)(Operand& a, Operand& b, Operand* out);

/// What an operation gives that must succeed. It is applied with an output of its own, which is `used` before, and with
/// each of the operands as the output. The results must be equal, and an operand that is not the output unchanged.
template <class Operand>
Operand combined(Combination<Operand> operation, const Operand& a, const Operand& b, const Operand& used)
{
    Operand left(a);
    Operand right(b);
    Operand out(used);
    EXPECT_EQ(operation(left, right, &out), 0);
    EXPECT_TRUE(same(left, a)) << "first operand";
    EXPECT_TRUE(same(right, b)) << "second operand";

    EXPECT_EQ(operation(left, right, &left), 0);
    EXPECT_TRUE(same(left, out)) << "the output is the first operand";
    EXPECT_TRUE(same(right, b)) << "second operand";

    left = a;
    EXPECT_EQ(operation(left, right, &right), 0);
    EXPECT_TRUE(same(right, out)) << "the output is the second operand";
    EXPECT_TRUE(same(left, a)) << "first operand";
    return out;
}

/// The same where both operands are one object: with an output of its own, and with that object as the output.
template <class Operand>
Operand combined_with_itself(Combination<Operand> operation, const Operand& operand, const Operand& used)
{
    Operand both(operand);
    Operand out(used);
    EXPECT_EQ(operation(both, both, &out), 0);
    EXPECT_TRUE(same(both, operand)) << "the operand";
    EXPECT_EQ(operation(both, both, &both), 0);
    EXPECT_TRUE(same(both, out)) << "the output is the operand";
    return out;
}

/// The same for an operation of one operand.
template <class Operand>
Operand complemented(int (*operation)(Operand& a, Operand* out), const Operand& operand, const Operand& used)
{
    Operand in(operand);
    Operand out(used);
    EXPECT_EQ(operation(in, &out), 0);
    EXPECT_TRUE(same(in, operand)) << "the operand";
    EXPECT_EQ(operation(in, &in), 0);
    EXPECT_TRUE(same(in, out)) << "the output is the operand";
    return out;
}

/// What an operation must answer that refuses its operands: the code, and what the output is afterwards.
template <class Operand>
testing::AssertionResult gives(Combination<Operand> operation, const Operand& a, const Operand& b, const Operand& used,
                               int code, const Operand& expected)
{
    Operand left(a);
    Operand right(b);
    Operand out(used);
    const int actual_code = operation(left, right, &out);
    if (actual_code != code) {
        return testing::AssertionFailure() << "expected code " << code << ", got " << actual_code;
    }
    if (left != a || right != b) {
        return testing::AssertionFailure() << "an operand has changed";
    }
    return same(out, expected);
}

} // namespace support
