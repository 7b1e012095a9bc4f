#include "collection/OutlookCommandQueue.h"
#include "tests/collection/ManagerInside.h"
#include "tests/support/Allocations.h"
#include "tests/support/HandleCount.h"
#include "tests/support/HeapKind.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace ts::test
{
namespace
{

std::unique_ptr<QueuedOutlookCommand> CommandFor(int number)
{
    auto command = std::make_unique<QueuedOutlookCommand>();
    command->record = std::make_unique<CcvReminderData>(CString(std::to_wstring(number).c_str()));
    return command;
}

/// The number that CommandFor was given; -1 for none.
int NumberOf(const std::unique_ptr<QueuedOutlookCommand>& command)
{
    return command == nullptr ? -1 : std::stoi(command->record->GetReminderKey().GetString());
}

} // namespace

static_assert(!std::is_copy_constructible_v<OutlookCommandQueue>);
static_assert(std::is_same_v<std::underlying_type_t<OutlookCommandKind>, std::uint32_t>);
static_assert(offsetof(QueuedOutlookCommand, record) == 0);
static_assert(offsetof(QueuedOutlookCommand, kind) == 8);
static_assert(offsetof(QueuedOutlookCommand, previousDueDate) == 16);
static_assert(sizeof(QueuedOutlookCommand::previousDueDate) == 8);
static_assert(static_cast<std::uint32_t>(OutlookCommandKind::Add) == 0);
static_assert(static_cast<std::uint32_t>(OutlookCommandKind::Modify) == 1);
static_assert(static_cast<std::uint32_t>(OutlookCommandKind::Remove) == 2);
static_assert(static_cast<std::uint32_t>(OutlookCommandKind::Dismiss) == 3);

TEST(OutlookCommandQueueTest, Construction_OfAQueue_IsEmptyAndNotRunning)
{
    OutlookCommandQueue queue;
    EXPECT_FALSE(queue.IsRunning());
    EXPECT_EQ(nullptr, queue.TakeHead());
    EXPECT_EQ(0, queue.GetUnfinishedCount());
    EXPECT_FALSE(queue.IsWorkerAsleep());
    queue.SetRunning(true);
    EXPECT_TRUE(queue.IsRunning());
    EXPECT_EQ(nullptr, queue.TakeHead());
    queue.SetRunning(false);
    EXPECT_FALSE(queue.IsRunning());
}

TEST(OutlookCommandQueueTest, TakeHead_OfSeveral_GivesTheOldestFirst)
{
    OutlookCommandQueue queue;
    queue.SetRunning(true);
    for (int number = 0; number < 25; ++number)
    {
        queue.Append(CommandFor(number));
    }
    EXPECT_EQ(25, queue.GetUnfinishedCount());
    for (int number = 0; number < 25; ++number)
    {
        ASSERT_EQ(number, NumberOf(queue.TakeHead()));
    }
    EXPECT_EQ(nullptr, queue.TakeHead());
    EXPECT_EQ(25, queue.GetUnfinishedCount()) << "taken, but nobody said that they were done";
}

TEST(OutlookCommandQueueTest, TakeHead_WhileNotRunning_GivesNothingAndKeepsTheCommands)
{
    OutlookCommandQueue queue;
    queue.Append(CommandFor(1));
    EXPECT_EQ(nullptr, queue.TakeHead());
    queue.SetRunning(true);
    queue.Append(CommandFor(2));
    EXPECT_EQ(1, NumberOf(queue.TakeHead()));
    queue.SetRunning(false);
    EXPECT_EQ(nullptr, queue.TakeHead());
    queue.SetRunning(true);
    EXPECT_EQ(2, NumberOf(queue.TakeHead()));
}

TEST(OutlookCommandQueueTest, Destruction_OfAQueue_FreesWhatIsLeft)
{
    const auto use = []
    {
        OutlookCommandQueue queue;
        queue.SetRunning(true);
        for (int number = 0; number < 33; ++number)
        {
            queue.Append(CommandFor(number));
        }
        EXPECT_EQ(0, NumberOf(queue.TakeHead()));
        queue.SetRunning(false);
    };
    use();
    const std::size_t memory = LiveAllocationCount();
    const std::size_t handles = HandleCount();
    for (int round = 0; round < 20; ++round)
    {
        use();
    }
    EXPECT_EQ(memory, LiveAllocationCount());
    EXPECT_GT(handles + 10, HandleCount()) << "one for each queue would be left";
}

TEST(OutlookCommandQueueTest, Append_WithoutMemory_RaisesAndFreesTheCommand)
{
    OutlookCommandQueue queue;
    queue.SetRunning(true);
    auto command = CommandFor(1);
    const std::size_t memory = LiveAllocationCount();
    {
        const StarvedThread starved(0);
        EXPECT_THROW(queue.Append(std::move(command)), std::bad_alloc);
    }
    EXPECT_GT(memory, LiveAllocationCount());
    EXPECT_EQ(0, queue.GetUnfinishedCount());
    EXPECT_EQ(nullptr, queue.TakeHead());
    queue.Append(CommandFor(2));
    EXPECT_EQ(2, NumberOf(queue.TakeHead()));
}

TEST(OutlookCommandQueueTest, BeginSleep_WithSomethingToDo_ForbidsIt)
{
    OutlookCommandQueue queue;
    EXPECT_FALSE(queue.BeginSleep()) << "to be stopped";
    EXPECT_FALSE(queue.IsWorkerAsleep());
    queue.SetRunning(true);
    EXPECT_TRUE(queue.BeginSleep());
    EXPECT_TRUE(queue.IsWorkerAsleep());
    queue.EndSleep();
    EXPECT_FALSE(queue.IsWorkerAsleep());
    queue.Append(CommandFor(1));
    EXPECT_FALSE(queue.BeginSleep());
    EXPECT_FALSE(queue.IsWorkerAsleep());
    EXPECT_EQ(1, NumberOf(queue.TakeHead()));
    EXPECT_TRUE(queue.BeginSleep());
}

TEST(OutlookCommandQueueTest, ReportDone_OfACommand_CountsDownAndSignalsOnce)
{
    OutlookCommandQueue queue;
    queue.SetRunning(true);
    queue.Append(CommandFor(1));
    queue.Append(CommandFor(2));
    EXPECT_EQ(WAIT_TIMEOUT, WaitForSingleObject(queue.GetDoneEvent(), 0));
    static_cast<void>(queue.TakeHead());
    queue.ReportDone();
    EXPECT_EQ(1, queue.GetUnfinishedCount());
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(queue.GetDoneEvent(), 0));
    EXPECT_EQ(WAIT_TIMEOUT, WaitForSingleObject(queue.GetDoneEvent(), 0));
}

TEST(OutlookCommandQueueTest, IsRunning_WhileTheLockIsTaken_WaitsForIt)
{
    OutlookCommandQueue queue;
    queue.SetRunning(true);
    auto holder = std::make_unique<CSingleLock>(&LockOf(queue), TRUE);
    std::atomic<bool> answered{false};
    std::thread reader(
        [&]
        {
            static_cast<void>(queue.IsRunning());
            answered = true;
        });
    // The others never wait for it, on whatever thread they are called.
    std::thread(
        [&]
        {
            queue.SetRunning(false);
            queue.SetRunning(true);
            queue.Append(CommandFor(1));
            EXPECT_EQ(1, NumberOf(queue.TakeHead()));
            EXPECT_EQ(nullptr, queue.TakeHead());
        })
        .join();
    Sleep(50);
    EXPECT_FALSE(answered);
    holder.reset();
    reader.join();
    EXPECT_TRUE(answered);
}

TEST(OutlookCommandQueueTest, AppendAndTake_OnThreeThreads_LoseNothingAndKeepTheOrder)
{
    constexpr int kProducers = 2;
    const int count = Rounds(40'000);
    OutlookCommandQueue queue;
    queue.SetRunning(true);
    const auto produce = [&](int producer)
    {
        for (int number = 0; number < count; ++number)
        {
            queue.Append(CommandFor(number * kProducers + producer));
        }
    };
    std::thread producers[kProducers] = {std::thread(produce, 0), std::thread(produce, 1)};
    std::vector<int> next(kProducers, 0);
    bool inOrder = true;
    for (int taken = 0; taken < kProducers * count;)
    {
        const int number = NumberOf(queue.TakeHead());
        if (number >= 0)
        {
            int& expected = next[static_cast<std::size_t>(number % kProducers)];
            inOrder = inOrder && number / kProducers == expected;
            ++expected;
            ++taken;
        }
    }
    for (std::thread& producer : producers)
    {
        producer.join();
    }
    EXPECT_TRUE(inOrder);
    EXPECT_EQ(std::vector<int>({count, count}), next);
    EXPECT_EQ(nullptr, queue.TakeHead());
    EXPECT_EQ(kProducers * count, queue.GetUnfinishedCount());
}

} // namespace ts::test
