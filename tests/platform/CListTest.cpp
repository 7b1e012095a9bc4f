#include "platform/mfc/afxtempl.h"
#include "tests/support/Allocations.h"
#include "tests/support/HeapKind.h"
#include "tests/support/RandomSource.h"

#include <deque>
#include <gtest/gtest.h>
#include <new>

using ts::test::AllocationCount;
using ts::test::LiveAllocationCount;

static_assert(!std::is_copy_constructible_v<CList<int>>);
static_assert(!std::is_copy_assignable_v<CList<int>>);

namespace
{

void AddNumbers(CList<int>& list, int first, int last)
{
    for (int number = first; number <= last; ++number)
    {
        list.AddTail(number);
    }
}

/// Takes the head `count` times, and expects the numbers from `first` on.
void ExpectNumbers(CList<int>& list, int first, int count)
{
    for (int number = first; number < first + count; ++number)
    {
        ASSERT_FALSE(list.IsEmpty());
        ASSERT_EQ(number, list.RemoveHead());
    }
}

} // namespace

TEST(CListTest, Construction_Default_IsEmptyAndTakesNoMemory)
{
    const std::size_t before = AllocationCount();
    const CList<int> list;
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(before, AllocationCount());
}

TEST(CListTest, RemoveHead_AfterAdding_GivesTheOldestFirst)
{
    CList<int> list;
    AddNumbers(list, 1, 35);
    ExpectNumbers(list, 1, 35);
    EXPECT_TRUE(list.IsEmpty());
    AddNumbers(list, 36, 36);
    ExpectNumbers(list, 36, 1);
    EXPECT_TRUE(list.IsEmpty()) << "emptied twice";
}

TEST(CListTest, AddTail_UpToTenElements_TakesOneBlock)
{
    CList<int> list;
    list.AddTail(0);
    const std::size_t afterTheFirst = AllocationCount();
    AddNumbers(list, 1, 9);
    EXPECT_EQ(afterTheFirst, AllocationCount());
    list.AddTail(10);
    EXPECT_LT(afterTheFirst, AllocationCount());
    const std::size_t afterTheEleventh = AllocationCount();
    AddNumbers(list, 11, 19);
    EXPECT_EQ(afterTheEleventh, AllocationCount());
}

TEST(CListTest, AddTail_AfterRemoving_UsesTheNodesAgain)
{
    CList<int> list;
    AddNumbers(list, 0, 9);
    const std::size_t before = AllocationCount();
    for (int round = 0; round < 1000; ++round)
    {
        ExpectNumbers(list, 10 * round, 10);
        AddNumbers(list, 10 * (round + 1), 10 * (round + 1) + 9);
    }
    EXPECT_EQ(before, AllocationCount());
}

TEST(CListTest, Destruction_OfAFilledList_FreesItsBlocks)
{
    const std::size_t before = LiveAllocationCount();
    {
        CList<int> list;
        AddNumbers(list, 1, 101);
        EXPECT_LT(before, LiveAllocationCount());
        ExpectNumbers(list, 1, 50);
    }
    EXPECT_EQ(before, LiveAllocationCount());
}

TEST(CListTest, AddTail_WithoutMemory_RaisesAndLeavesTheList)
{
    // A block, and the list of the blocks.
    for (int spared = 0; spared < 2; ++spared)
    {
        CList<int> list;
        AddNumbers(list, 1, 10);
        {
            const ts::test::StarvedThread starved(spared);
            EXPECT_THROW(list.AddTail(11), std::bad_alloc) << spared;
        }
        list.AddTail(12);
        ExpectNumbers(list, 1, 10);
        ExpectNumbers(list, 12, 1);
        EXPECT_TRUE(list.IsEmpty());
    }
}

TEST(CListTest, AnyOperations_ComparedWithADeque_GiveTheSame)
{
    ts::test::RandomSource random;
    for (int round = 0; round < ts::test::Rounds(200); ++round)
    {
        CList<int> list;
        std::deque<int> model;
        const int growth = random.Between(30, 70);
        for (int step = 0; step < 500; ++step)
        {
            if (random.Chance(growth))
            {
                model.push_back(random.Between(0, 1'000'000));
                list.AddTail(model.back());
            }
            else if (!model.empty())
            {
                ASSERT_EQ(model.front(), list.RemoveHead()) << random << " step " << step;
                model.pop_front();
            }
            ASSERT_EQ(model.empty(), list.IsEmpty()) << random << " step " << step;
        }
        for (const int expected : model)
        {
            ASSERT_EQ(expected, list.RemoveHead()) << random;
        }
        ASSERT_TRUE(list.IsEmpty()) << random;
    }
}
