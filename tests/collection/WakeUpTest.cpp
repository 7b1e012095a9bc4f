// No command stays in the queue because its wake-up came at the wrong moment.

#include "platform/KernelHandle.h"
#include "tests/collection/CollectionTest.h"
#include "tests/collection/ManagerInside.h"
#include "tests/support/HeapKind.h"

namespace ts::test
{
namespace
{

class WakeUpTest : public CollectionTest
{
  protected:
    /// Queues a command that does nothing, and wakes the worker as the manager does.
    static void QueueNothing(const Manager& manager)
    {
        auto command = std::make_unique<QueuedOutlookCommand>();
        command->record = std::make_unique<CcvReminderData>(EmptyRecord());
        command->kind = static_cast<OutlookCommandKind>(99);
        QueueOf(manager)->Append(std::move(command));
        WakeOutlookWorker(*QueueOf(manager), *WorkerOf(manager));
    }
};

} // namespace

TEST_F(WakeUpTest, Commands_InHurriedRounds_AreAllExecuted)
{
    Manager manager(true);
    RandomSource random;
    const int rounds = Rounds(20'000);
    for (int round = 0; round < rounds; ++round)
    {
        QueueNothing(manager);
        // The worker may be anywhere between its last command and its sleep when the next one comes.
        for (int spin = random.Between(0, 400); spin > 0; --spin)
        {
            std::atomic_signal_fence(std::memory_order_seq_cst);
        }
        if (random.Chance(50))
        {
            ASSERT_TRUE(Finish(manager)) << random << " round " << round;
        }
    }
    EXPECT_TRUE(Finish(manager)) << random;
    EXPECT_EQ(0, QueueOf(manager)->GetUnfinishedCount());
}

TEST_F(WakeUpTest, Commands_EachAwaitedByItsMessage_AllSendIt)
{
    Manager manager(true);
    const OtherHost window(kMainClass);
    const int rounds = Rounds(800);
    for (int round = 1; round <= rounds; ++round)
    {
        QueueNothing(manager);
        // As soon as the message is there the worker is on its way to sleep.
        const ULONGLONG end = GetTickCount64() + 20'000;
        while (window.Count() < round && GetTickCount64() < end)
        {
        }
        ASSERT_EQ(round, window.Count());
    }
}

TEST_F(WakeUpTest, Change_WhileTheWorkerIsAboutToSleep_WakesItUntilItIsAwake)
{
    Store(NewDailyReminder(L"first"));
    Manager manager(true);
    OutlookCommandQueue& queue = *QueueOf(manager);
    const KernelHandle mayAnswer(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const OtherHost slow(kMainClass, [&] { WaitForSingleObject(mayAnswer.get(), 60'000); });
    QueueNothing(manager);
    ASSERT_TRUE(Eventually([&] { return slow.Count() == 1; }));
    // The worker, which waits in its message, stands for one that has announced its sleep but does not sleep
    // yet: a single resume would be lost.
    ASSERT_TRUE(queue.BeginSleep());
    std::atomic<bool> awake{false};
    std::thread worker(
        [&]
        {
            Sleep(100);
            awake = true;
            queue.EndSleep();
        });
    {
        // A change that cannot be written is queued all the same, and nobody is told, who would not answer.
        const LockedKey locked(L"{M-0}");
        EXPECT_FALSE(manager.DismissReminder(manager.GetReminderByIndex(0)));
        EXPECT_TRUE(awake);
    }
    worker.join();
    SetEvent(mayAnswer.get());
    EXPECT_TRUE(Finish(manager));
}

TEST_F(WakeUpTest, Commands_QueuedFromWithinTheWorkersMessage_AreExecuted)
{
    Manager manager(true);
    int left = 300;
    const HostWindow window(kServiceClass,
                            [&]
                            {
                                if (left-- > 0)
                                {
                                    QueueNothing(manager);
                                }
                            });
    QueueNothing(manager);
    EXPECT_TRUE(Finish(manager));
    EXPECT_EQ(301, window.Count());
}

TEST_F(WakeUpTest, Changes_InALongRow_AreMirroredOneByOne)
{
    StoreTopics({L"first"});
    const HostWindow window(kMainClass);
    Manager manager(true);
    const int changes = Rounds(150);
    for (int change = 0; change < changes; ++change)
    {
        EXPECT_TRUE(manager.ModifyReminder(manager.GetReminderByIndex(0), true));
    }
    EXPECT_TRUE(Finish(manager));
    EXPECT_EQ(2 * changes, window.Count());
    EXPECT_EQ(0, window.StrangeCount());
}

TEST_F(WakeUpTest, Wait_WhileAHostAnswersSlowly_LastsUntilItHasAnswered)
{
    Manager manager(true);
    const KernelHandle mayAnswer(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const OtherHost slow(kMainClass, [&] { WaitForSingleObject(mayAnswer.get(), 60'000); });
    QueueNothing(manager);
    EXPECT_FALSE(manager.WaitForOutlookCommands(20)) << "the worker's message is not answered yet";
    SetEvent(mayAnswer.get());
    EXPECT_TRUE(Finish(manager));
    EXPECT_EQ(1, slow.Count());
}

TEST_F(WakeUpTest, Wait_WhileMessagesArePosted_LeavesThemInTheQueue)
{
    StoreTopics({L"first"});
    Manager manager(true);
    const HostWindow window(kMainClass);
    ASSERT_TRUE(PostMessageW(window.Get(), WM_APP + 1, 0, 0));
    EXPECT_TRUE(manager.ModifyReminder(manager.GetReminderByIndex(0), true));
    EXPECT_TRUE(Finish(manager));
    EXPECT_EQ(2, window.Count());
    EXPECT_EQ(0, window.StrangeCount()) << "a posted message was dispatched inside the wait";
    MSG message;
    EXPECT_TRUE(PeekMessageW(&message, window.Get(), WM_APP + 1, WM_APP + 1, PM_REMOVE));
}

} // namespace ts::test
