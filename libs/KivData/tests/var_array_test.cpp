// SPDX-License-Identifier: MIT
// Every operation is tried on an array of each storage: packed ints, ints unpacked by a reference, and mixed kinds.
#include <KivData/KivVarArray.h>

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace
{

KivVarArray unpacked(KivVarArray array)
{
    array[0] = KivVar(array[0]);
    return array;
}

const KivVarArray packed_ints{1, 2, 3};
const KivVarArray unpacked_ints = unpacked(packed_ints);
const KivVarArray mixed{1, 2.5, "three"};

const KivVarArray samples[] = {packed_ints, unpacked_ints, mixed};

TEST(VarArray, IsEmptyByDefault)
{
    KivVarArray array;
    EXPECT_EQ(array.Length(), 0);
    EXPECT_THROW(array[0], std::out_of_range);
    EXPECT_EQ(array, KivVarArray{});
}

TEST(VarArray, KeepsWhatIsAppended)
{
    KivVarArray array;
    array.Append(KivVar(4));
    array.Append(KivVar(5.5));
    array.Append(KivVar("six"));
    ASSERT_EQ(array.Length(), 3);
    EXPECT_EQ(array[0], KivVar(4));
    EXPECT_EQ(array[1], KivVar(5.5));
    EXPECT_EQ(array[2], KivVar("six"));
}

TEST(VarArray, TakesAndGivesNumbersOfAnyType)
{
    const std::vector<int> pixels(3);
    KivVarArray array;
    array.Append(pixels.size());
    array.Append(5L);
    array.Append(6U);
    array.Replace(2, 7UL);
    EXPECT_EQ(array, (KivVarArray{3, 5, 7}));
    EXPECT_NE(array.PackedInts(), nullptr);
    EXPECT_THROW(array.Append(5'000'000'000), std::out_of_range);
    EXPECT_THROW(array.Replace(0, 5'000'000'000), std::out_of_range);
    EXPECT_EQ(array, (KivVarArray{3, 5, 7}));

    const long through_reference = array[0];
    const long through_const = std::as_const(array)[1];
    EXPECT_EQ(through_reference, 3);
    EXPECT_EQ(through_const, 5);
    EXPECT_TRUE(array[2] == 7);
}

TEST(VarArray, ReadsTheSameThroughConst)
{
    for (const KivVarArray& sample : samples) {
        KivVarArray array(sample);
        for (int i = 0; i < sample.Length(); ++i) {
            EXPECT_EQ(sample[i], array[i]);
        }
    }
}

TEST(VarArray, StaysPackedUntilAReferenceOrAnotherKind)
{
    const std::vector<int> ints = {7, 8, 9};
    KivVarArray array{std::vector<int>(ints)};
    ASSERT_NE(array.PackedInts(), nullptr);
    EXPECT_EQ(*array.PackedInts(), ints);

    array.Append(KivVar(10));
    array.Replace(0, KivVar(INT_MIN));
    array.Remove(1);
    EXPECT_EQ(std::as_const(array)[0], KivVar(INT_MIN));
    ASSERT_NE(array.PackedInts(), nullptr);

    KivVarArray read_by_reference(array);
    EXPECT_EQ(read_by_reference[0].I(), INT_MIN);
    EXPECT_EQ(read_by_reference.PackedInts(), nullptr);

    KivVarArray with_double(array);
    with_double.Append(KivVar(0.5));
    EXPECT_EQ(with_double.PackedInts(), nullptr);
    EXPECT_EQ(with_double, (KivVarArray{INT_MIN, 9, 10, 0.5}));

    KivVarArray with_text(array);
    with_text.Replace(2, KivVar("x"));
    EXPECT_EQ(with_text.PackedInts(), nullptr);
    EXPECT_EQ(with_text, (KivVarArray{INT_MIN, 9, "x"}));

    with_text.Clear();
    EXPECT_NE(with_text.PackedInts(), nullptr);
}

TEST(VarArray, IsAssignableThroughItsReferences)
{
    for (const KivVarArray& sample : samples) {
        KivVarArray array(sample);
        array[1] = KivVar("new");
        array[0] = array[1];
        EXPECT_EQ(array[0], KivVar("new"));
        EXPECT_EQ(array[1], KivVar("new"));
        EXPECT_EQ(array[2], sample[2]);
    }
}

TEST(VarArray, ComparesElementsNotStorage)
{
    EXPECT_TRUE(packed_ints == unpacked_ints);
    EXPECT_TRUE(unpacked_ints == packed_ints);
    EXPECT_TRUE(packed_ints != mixed);
    EXPECT_TRUE(unpacked_ints != mixed);
    EXPECT_TRUE(packed_ints != (KivVarArray{1, 2}));
    EXPECT_TRUE(unpacked_ints != (KivVarArray{1, 2}));
    EXPECT_TRUE(packed_ints != (KivVarArray{1, 2, 4}));
    EXPECT_TRUE(unpacked_ints != (KivVarArray{1, 2, 4}));
    EXPECT_TRUE(packed_ints != (KivVarArray{1, 2, 3.0}));
}

TEST(VarArray, RefusesIndicesOutside)
{
    for (const KivVarArray& sample : samples) {
        KivVarArray array(sample);
        for (const int index : {-1, 3, INT_MIN, INT_MAX}) {
            EXPECT_THROW(array[index], std::out_of_range);
            EXPECT_THROW(sample[index], std::out_of_range);
            EXPECT_THROW(array.Remove(index), std::out_of_range);
            EXPECT_THROW(array.Replace(index, KivVar("x")), std::out_of_range);
        }
        EXPECT_EQ(array, sample);
    }
}

TEST(VarArray, NamesTheIndexInItsSentence)
{
    try {
        KivVarArray array(packed_ints);
        array[3];
        FAIL() << "no exception";
    } catch (const std::out_of_range& error) {
        EXPECT_EQ(std::string(error.what()), "KivVarArray: index 3 is outside an array of length 3");
    }
}

TEST(VarArray, AppendsItsOwnElements)
{
    for (const KivVarArray& sample : samples) {
        KivVarArray array(sample);
        for (int i = 0; i < 100; ++i) { // grows several times
            array.Append(array[i]);
        }
        ASSERT_EQ(array.Length(), 103);
        for (int i = 0; i < array.Length(); ++i) {
            EXPECT_EQ(array[i], sample[i % 3]);
        }
    }
}

TEST(VarArray, ReplacesAnElementByAnotherOfItsOwn)
{
    for (const KivVarArray& sample : samples) {
        KivVarArray array(sample);
        array.Replace(0, array[2]);
        array.Replace(1, array[1]);
        EXPECT_EQ(array, (KivVarArray{sample[2], sample[1], sample[2]}));
    }
}

TEST(VarArray, CopiesAreEqualAndIndependent)
{
    for (const KivVarArray& sample : samples) {
        KivVarArray copy(sample);
        EXPECT_EQ(copy, sample);
        copy.Remove(0);
        EXPECT_NE(copy, sample);
        copy = sample;
        EXPECT_EQ(copy, sample);
    }
}

TEST(VarArray, IsEmptyAndUsableAfterItWasMovedFrom)
{
    for (const KivVarArray& sample : samples) {
        KivVarArray from(sample);
        KivVarArray to(std::move(from));
        EXPECT_EQ(to, sample);
        EXPECT_EQ(from, KivVarArray{});
        from.Append(KivVar(3));
        EXPECT_EQ(from, KivVarArray{3});

        from = std::move(to);
        EXPECT_EQ(from, sample);
        EXPECT_EQ(to, KivVarArray{});
    }
}

TEST(VarArray, MayBeAssignedToItself)
{
    for (const KivVarArray& sample : samples) {
        KivVarArray array(sample);
        const KivVarArray& same = array;
        array = same;
        EXPECT_EQ(array, sample);
    }
}

TEST(VarArray, BehavesLikeAVectorOfVars)
{
    std::mt19937 random(1);
    const auto pick = [&random](int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); };
    for (int round = 0; round < 300; ++round) {
        KivVarArray array;
        std::vector<KivVar> expected;
        for (int step = 0; step < 40; ++step) {
            const KivVar value = pick(12) == 0 ? KivVar(0.5) : KivVar(pick(100));
            const int length = static_cast<int>(expected.size());
            const int action = length == 0 ? 0 : pick(7);
            const int at = length == 0 ? 0 : pick(length);
            if (action == 3) {
                array.Remove(at);
                expected.erase(expected.begin() + at);
            } else if (action == 4) {
                array.Replace(at, value);
                expected[static_cast<std::size_t>(at)] = value;
            } else if (action == 5 && pick(4) == 0) {
                array[at] = value;
                expected[static_cast<std::size_t>(at)] = value;
            } else if (action == 6 && pick(10) == 0) {
                array.Clear();
                expected.clear();
            } else {
                array.Append(value);
                expected.push_back(value);
            }
            ASSERT_EQ(array.Length(), static_cast<int>(expected.size()));
            for (int i = 0; i < array.Length(); ++i) {
                ASSERT_EQ(std::as_const(array)[i], expected[static_cast<std::size_t>(i)]);
            }
        }
    }
}

TEST(VarArray, AppendsRangesAndCopies)
{
    for (const KivVarArray& sample : samples) {
        KivVarArray array(sample);
        array.Reserve(100);
        EXPECT_EQ(array, sample);

        KivVarArray expected(sample);
        for (const int value : {-2, -1, 0, 1, 2, INT_MAX, 7, 7, 7}) {
            expected.Append(value);
        }
        array.AppendRange(-2, 2);
        array.AppendRange(INT_MAX, INT_MAX);
        array.AppendCopies(7, 3);
        array.AppendCopies(8, 0);
        EXPECT_EQ(array, expected);
    }
}

TEST(VarArray, HasRoomForAsManyElementsAsAnIntCounts)
{
    for (const KivVarArray& sample : samples) {
        KivVarArray array(sample);
        EXPECT_THROW(array.AppendRange(INT_MIN, INT_MAX), std::length_error);
        EXPECT_THROW(array.AppendCopies(0, std::size_t{INT_MAX}), std::length_error);
        EXPECT_EQ(array, sample);
    }
}

TEST(VarArray, OverwritesItsFirstElements)
{
    const std::vector<int> ints = {7, -8};
    KivVarArray packed = {1, 2, 3};
    packed.ReplaceFirst(ints.data(), ints.size());
    EXPECT_EQ(packed, (KivVarArray{7, -8, 3}));
    EXPECT_NE(packed.PackedInts(), nullptr);
    KivVarArray of_kinds = {1.5, "text", 2.5};
    of_kinds.ReplaceFirst(ints.data(), ints.size());
    EXPECT_EQ(of_kinds, (KivVarArray{7, -8, 2.5}));
    of_kinds.ReplaceFirst(nullptr, 0);
    EXPECT_EQ(of_kinds, (KivVarArray{7, -8, 2.5}));
    KivVarArray short_one = {1};
    EXPECT_THROW(short_one.ReplaceFirst(ints.data(), ints.size()), std::out_of_range);
    EXPECT_EQ(short_one, (KivVarArray{1}));
}

} // namespace
