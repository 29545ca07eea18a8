// SPDX-License-Identifier: MIT
#include "contract_test.h"

using namespace contract;
using namespace KIVMV;

namespace
{

using AlgebraContract = ContractTest;

struct Operands {
    Operands(int width_of_a, int width_of_b)
    {
        set(a, "a", width_of_a, 5, {{2, 0, 9}, {1, 0, 9}});
        set(b, "b", width_of_b, 7, {{3, 1, 1}, {1, 4, 5}});
        out.test_name = "out";
        start();
    }

    KivRegion a;
    KivRegion b;
    KivRegion out;
};

} // namespace

TEST_F(AlgebraContract, UnionReadsBothThenCreatesTheResultOnce)
{
    Operands given(10, 8);
    const Unchanged inputs(given.a, given.b);
    EXPECT_EQ(KivRegionAdd(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out.CreateRegion(10, 7, {(1,0,9) (2,0,9) (3,1,1)})"}));
}

TEST_F(AlgebraContract, IntersectionReadsBothThenCreatesTheResultOnce)
{
    Operands given(10, 12);
    const Unchanged inputs(given.a, given.b);
    EXPECT_EQ(KivRegionAnd(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out.CreateRegion(10, 5, {(1,4,5)})"}));
}

TEST_F(AlgebraContract, DifferenceReadsBothThenCreatesTheResultOnce)
{
    Operands given(10, 12);
    const Unchanged inputs(given.a, given.b);
    EXPECT_EQ(KivRegionSub(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out.CreateRegion(10, 5, {(1,0,3) (1,6,9) (2,0,9)})"}));
}

TEST_F(AlgebraContract, EmptyOperandsAreAnsweredByOneAssignmentAfterBothWereRead)
{
    for (const auto function : {KivRegionAdd, KivRegionAnd, KivRegionSub}) {
        {
            Operands given(0, 0);
            EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_ERR_PARAM_1);
            EXPECT_EQ(calls(), (Calls{"KivRegion()", "out = KivRegion()"}));
        }
        {
            Operands given(0, 8);
            EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_OK);
            EXPECT_EQ(calls(), (Calls{"out = b"}));
        }
        {
            Operands given(10, 0);
            EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_OK);
            EXPECT_EQ(calls(), (Calls{"out = a"}));
        }
    }
}

TEST_F(AlgebraContract, ComplementReadsTheRegionThenCreatesTheResultOnce)
{
    Operands given(10, 0);
    EXPECT_EQ(KivRegionNot(given.a, &given.out), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"out.CreateRegion(10, 5, {(0,0,9) (3,0,9) (4,0,9)})"}));

    start();
    EXPECT_EQ(KivRegionNot(given.b, &given.out), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), (Calls{}));
}

TEST_F(AlgebraContract, TheOutputMayBeAnOperand)
{
    for (const auto function : {KivRegionAdd, KivRegionAnd, KivRegionSub}) {
        Operands apart(10, 12);
        EXPECT_EQ(function(apart.a, apart.b, &apart.out), KIVMV_OK);
        const std::string expected = recording::described(apart.out);
        Operands into_a(10, 12);
        EXPECT_EQ(function(into_a.a, into_a.b, &into_a.a), KIVMV_OK);
        EXPECT_EQ(recording::described(into_a.a), expected);
        Operands into_b(10, 12);
        EXPECT_EQ(function(into_b.a, into_b.b, &into_b.b), KIVMV_OK);
        EXPECT_EQ(recording::described(into_b.b), expected);
    }
    Operands apart(10, 0);
    EXPECT_EQ(KivRegionNot(apart.a, &apart.out), KIVMV_OK);
    Operands into_a(10, 0);
    EXPECT_EQ(KivRegionNot(into_a.a, &into_a.a), KIVMV_OK);
    EXPECT_EQ(recording::described(into_a.a), recording::described(apart.out));
}

TEST_F(AlgebraContract, TheWidthAloneDecidesWhetherAnOperandIsEmpty)
{
    for (const auto function : {KivRegionAdd, KivRegionAnd, KivRegionSub}) {
        Operands given(10, 12);
        given.a.test_runs.clear();
        given.a.test_height = 0;
        given.b.test_runs.clear();
        given.b.test_height = -1;
        EXPECT_EQ(function(given.a, given.b, &given.out), KIVMV_OK);
        EXPECT_EQ(calls().back(),
                  function == KivRegionAdd ? "out.CreateRegion(12, 0, {})" : "out.CreateRegion(10, 0, {})");
    }
    Operands given(10, 0);
    given.a.test_runs.clear();
    EXPECT_EQ(KivRegionNot(given.a, &given.out), KIVMV_OK);
    EXPECT_EQ(calls().back(), "out.CreateRegion(10, 5, {})");
}

TEST_F(AlgebraContract, UnionIsAsWideAndAsHighAsTheLargerOperand)
{
    Operands given(100, 40);
    given.a.test_height = 30;
    given.b.test_height = 60;
    EXPECT_EQ(KivRegionAdd(given.a, given.b, &given.out), KIVMV_OK);
    EXPECT_EQ(given.out.test_width, 100);
    EXPECT_EQ(given.out.test_height, 60);
}
