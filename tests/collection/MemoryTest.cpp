// Exhausted memory at every single allocation of an operation: the exception reaches the caller, and nothing
// is left behind.

#include "tests/collection/CollectionTest.h"
#include "tests/collection/ManagerInside.h"
#include "tests/support/Allocations.h"
#include "tests/support/HandleCount.h"
#include "tests/support/ThreadIds.h"

#include <new>

namespace ts::test
{
namespace
{

class MemoryTest : public CollectionTest
{
  protected:
    MemoryTest()
    {
        StoreTopics(
            {L"a topic that is longer than a short string", L"second", L"third", L"fourth", L"fifth"});
    }

    /// Runs `operation` with memory for 0, 1, 2, ... allocations until it succeeds; how often it did not.
    template <typename Operation>
    static int FailEachAllocation(const Operation& operation)
    {
        for (int spared = 0; spared < 2000; ++spared)
        {
            try
            {
                operation(spared);
                return spared;
            }
            catch (const std::bad_alloc&)
            {
            }
        }
        ADD_FAILURE() << "never succeeded";
        return 0;
    }
};

} // namespace

TEST_F(MemoryTest, Construction_WithoutMemory_LeavesNoThreadAndNoHandle)
{
    for (const bool withOutlookQueue : {false, true})
    {
        const auto construct = [&](int spared)
        {
            const StarvedThread starved(spared);
            const Manager manager(withOutlookQueue);
        };
        FailEachAllocation(construct);
        const std::size_t threads = ThreadCount();
        const std::size_t handles = HandleCount();
        const std::size_t memory = LiveAllocationCount();
        const int failures = FailEachAllocation(construct);
        EXPECT_EQ(memory, LiveAllocationCount()) << withOutlookQueue;
        EXPECT_LE(2 * static_cast<int>(kNoise), failures);
        // Each of the attempts would leave some behind.
        EXPECT_GT(handles + kNoise, HandleCount()) << withOutlookQueue;
        EXPECT_TRUE(Eventually([&] { return ThreadCount() < threads + kNoise; })) << withOutlookQueue;
    }
}

TEST_F(MemoryTest, Update_WithoutMemory_RaisesAndCanBeRepeated)
{
    Manager manager(false);
    const std::size_t memory = LiveAllocationCount();
    EXPECT_LT(3, FailEachAllocation(
                     [&](int spared)
                     {
                         const StarvedThread starved(spared);
                         EXPECT_TRUE(manager.UpdateReminderCollection());
                     }));
    EXPECT_EQ(5, manager.GetRemindersCount());
    EXPECT_EQ(memory, LiveAllocationCount());
}

TEST_F(MemoryTest, Changes_WithoutMemory_RaiseAndLeaveAWholeQueue)
{
    Manager manager(true);
    CcvReminderData record = *manager.GetReminderByIndex(0);
    const std::size_t memory = LiveAllocationCount();
    EXPECT_LT(3, FailEachAllocation(
                     [&](int spared)
                     {
                         const StarvedThread starved(spared);
                         EXPECT_TRUE(manager.ModifyReminder(&record, true));
                     }));
    EXPECT_LT(3, FailEachAllocation(
                     [&](int spared)
                     {
                         const StarvedThread starved(spared);
                         EXPECT_TRUE(manager.AddReminder(&record, true));
                     }));
    EXPECT_TRUE(Finish(manager)) << "what was queued is executed";
    // The queue keeps its first block of nodes.
    EXPECT_GE(memory + 2, LiveAllocationCount());
}

} // namespace ts::test
