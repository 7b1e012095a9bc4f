// The end of a manager: at once, at any moment, and without leaving anything behind.

#include "tests/collection/CollectionTest.h"
#include "tests/collection/ManagerInside.h"
#include "tests/support/Allocations.h"
#include "tests/support/HandleCount.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ThreadIds.h"

#include <algorithm>

namespace ts::test
{
namespace
{

KernelHandle Duplicate(HANDLE handle)
{
    HANDLE copy = nullptr;
    DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &copy, 0, FALSE, DUPLICATE_SAME_ACCESS);
    return KernelHandle(copy);
}

class DestructionTest : public CollectionTest
{
  protected:
    DestructionTest() { StoreTopics({L"first", L"second", L"third"}); }

    static void Modify(Manager& manager, int times)
    {
        for (int time = 0; time < times; ++time)
        {
            EXPECT_TRUE(manager.ModifyReminder(manager.GetReminderByIndex(time % 3), true));
        }
    }

    /// Waits until another thread has sent a message to a window of this one, without answering it.
    static void WaitForASentMessage()
    {
        EXPECT_EQ(WAIT_OBJECT_0, MsgWaitForMultipleObjects(0, nullptr, FALSE, 20'000, QS_SENDMESSAGE));
    }

    /// Lets a short time pass, often none.
    static void Dally(RandomSource& random)
    {
        if (random.Chance(30))
        {
            Sleep(random.Between<DWORD>(0, 3));
        }
        for (int spin = random.Between(0, 20'000); spin > 0; --spin)
        {
            std::atomic_signal_fence(std::memory_order_seq_cst);
        }
    }
};

} // namespace

TEST_F(DestructionTest, Manager_WithAQueue_HasAThreadOfItsOwn)
{
    const Manager manager(true);
    std::unique_ptr<Manager> second;
    EXPECT_EQ(1u, NewThreadCount([&] { second = std::make_unique<Manager>(true); }));
    const std::vector<DWORD> ids = ThreadIds();
    const DWORD own = GetThreadId(WorkerOf(*second)->m_hThread);
    EXPECT_NE(own, GetThreadId(WorkerOf(manager)->m_hThread));
    EXPECT_EQ(1, std::count(ids.begin(), ids.end(), own));
    EXPECT_EQ(THREAD_PRIORITY_NORMAL, GetThreadPriority(WorkerOf(*second)->m_hThread));
    second.reset();
    EXPECT_TRUE(Eventually(
        [&]
        {
            const std::vector<DWORD> left = ThreadIds();
            return std::count(left.begin(), left.end(), own) == 0;
        }));
}

TEST_F(DestructionTest, Manager_WithoutAQueue_NeverHasAThread)
{
    std::unique_ptr<Manager> manager;
    EXPECT_EQ(0u, NewThreadCount(
                      [&]
                      {
                          manager = std::make_unique<Manager>(false);
                          Modify(*manager, 3);
                      }));
    EXPECT_EQ(nullptr, WorkerOf(*manager));
}

TEST_F(DestructionTest, Worker_OfADestroyedManager_HasEndedWith1)
{
    for (const int commands : {0, 1, 20})
    {
        auto manager = std::make_unique<Manager>(true);
        const KernelHandle worker = Duplicate(WorkerOf(*manager)->m_hThread);
        Modify(*manager, commands);
        manager.reset();
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(worker.get(), 0)) << "ended before the destructor did";
        DWORD exitCode = 77;
        GetExitCodeThread(worker.get(), &exitCode);
        EXPECT_EQ(1u, exitCode);
    }
}

TEST_F(DestructionTest, Destruction_WhileCommandsWait_DiscardsThem)
{
    WatchOutlook();
    const std::size_t memory = LiveAllocationCount();
    int told = 0;
    {
        const HostWindow window(kMainClass, [&] { ++told; });
        Manager manager(true);
        const HeldWorker held(manager);
        for (int change = 0; change < 25; ++change)
        {
            EXPECT_TRUE(manager.AddReminder(manager.GetReminderByIndex(0), true));
        }
        EXPECT_EQ(25, QueueOf(manager)->GetUnfinishedCount());
        // What the destructor does first, before the worker is let go.
        QueueOf(manager)->SetRunning(false);
    }
    EXPECT_EQ(25, told) << "one per change, none per command";
    EXPECT_FALSE(WasOutlookTried());
    EXPECT_EQ(memory, LiveAllocationCount());
}

TEST_F(DestructionTest, Destruction_InTheMiddleOfTheList_DiscardsTheRest)
{
    auto manager = std::make_unique<Manager>(true);
    // The worker waits in the message of its first command until the destructor lets the message through.
    int told = 0;
    const HostWindow window(kMainClass, [&] { ++told; });
    {
        const HeldWorker held(*manager);
        Modify(*manager, 10);
        EXPECT_EQ(10, told);
    }
    WaitForASentMessage();
    EXPECT_EQ(10, told);
    manager.reset();
    EXPECT_EQ(11, told) << "the one that was begun is finished, the others are not";
}

TEST_F(DestructionTest, Destruction_WhileTheWorkerSendsToTheDestroyingThread_Ends)
{
    for (const wchar_t* windowClass : {kMainClass, kServiceClass})
    {
        auto manager = std::make_unique<Manager>(true);
        const HostWindow window(windowClass);
        Modify(*manager, 1);
        // Without anything that answers messages the worker is soon stuck in its own.
        WaitForASentMessage();
        EXPECT_NE(0, QueueOf(*manager)->GetUnfinishedCount());
        EXPECT_EQ(1, window.Count());
        manager.reset();
        EXPECT_EQ(2, window.Count());
    }
}

TEST_F(DestructionTest, Destruction_WhileTheOwnWindowReloads_FreesWhatItLoaded)
{
    const std::size_t memory = LiveAllocationCount();
    for (int round = 0; round < Rounds(40) + 3; ++round)
    {
        auto manager = std::make_unique<Manager>(true);
        // A host's window knows its manager for as long as the destructor runs.
        Manager* const host = manager.get();
        const HostWindow window(kServiceClass, [host] { host->UpdateReminderCollection(); });
        Modify(*manager, 3);
        manager.reset();
        EXPECT_LE(3, window.Count());
    }
    EXPECT_EQ(memory, LiveAllocationCount());
}

TEST_F(DestructionTest, Destruction_WhileTheOwnWindowChangesReminders_Ends)
{
    const std::size_t memory = LiveAllocationCount();
    for (int round = 0; round < 5; ++round)
    {
        auto manager = std::make_unique<Manager>(true);
        Manager* const host = manager.get();
        int depth = 0;
        const HostWindow window(kServiceClass,
                                [&]
                                {
                                    host->UpdateReminderCollection();
                                    if (++depth < 20)
                                    {
                                        host->ModifyReminder(host->GetReminderByIndex(0), true);
                                    }
                                });
        Modify(*manager, 1);
        manager.reset();
        EXPECT_LE(20, window.Count());
    }
    EXPECT_EQ(memory, LiveAllocationCount());
}

TEST_F(DestructionTest, Destruction_WhileAnotherHostAnswersSlowly_WaitsForIt)
{
    std::atomic<int> answered{0};
    const OtherHost slow(kMainClass,
                         [&]
                         {
                             Sleep(100);
                             ++answered;
                         });
    auto manager = std::make_unique<Manager>(true);
    const KernelHandle worker = Duplicate(WorkerOf(*manager)->m_hThread);
    Modify(*manager, 2);
    manager.reset();
    EXPECT_EQ(slow.Count(), answered) << "no message was left alone";
    EXPECT_LE(2, answered);
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(worker.get(), 0));
}

TEST_F(DestructionTest, Destruction_WhileMessagesArePosted_LeavesThemInTheQueue)
{
    const HostWindow window(kMainClass);
    {
        Manager manager(true);
        ASSERT_TRUE(PostMessageW(window.Get(), WM_APP + 1, 0, 0));
        Modify(manager, 2);
    }
    EXPECT_EQ(0, window.StrangeCount());
    MSG message;
    EXPECT_TRUE(PeekMessageW(&message, window.Get(), WM_APP + 1, WM_APP + 1, PM_REMOVE));
}

TEST_F(DestructionTest, Destruction_OfAManagerWhoseWorkerFailed_EndsAtOnce)
{
    auto manager = std::make_unique<Manager>(true);
    const KernelHandle worker = Duplicate(WorkerOf(*manager)->m_hThread);
    {
        const StarvedThread starved(0, GetThreadId(worker.get()));
        Modify(*manager, 1);
        ASSERT_EQ(WAIT_OBJECT_0, WaitForSingleObject(worker.get(), 20'000));
    }
    DWORD exitCode = 77;
    GetExitCodeThread(worker.get(), &exitCode);
    EXPECT_EQ(0u, exitCode);
    const ULONGLONG before = GetTickCount64();
    EXPECT_FALSE(manager->WaitForOutlookCommands(60'000)) << "it will never be done";
    const HostWindow window(kMainClass);
    Modify(*manager, 12);
    EXPECT_EQ(12, window.Count()) << "changes go on, without Outlook";
    manager.reset();
    EXPECT_GT(20'000u, GetTickCount64() - before);
}

TEST_F(DestructionTest, Managers_EndedAtRandomMoments_EndAndLeaveNothing)
{
    RandomSource random;
    const auto live = [&]
    {
        auto manager = std::make_unique<Manager>(true);
        Manager* const host = manager.get();
        const HostWindow window(kMainClass, [host] { host->UpdateReminderCollection(); });
        Dally(random);
        Modify(*manager, random.Between(0, 4));
        Dally(random);
        if (random.Chance(20))
        {
            EXPECT_TRUE(Finish(*manager));
        }
        const KernelHandle worker = Duplicate(WorkerOf(*manager)->m_hThread);
        manager.reset();
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(worker.get(), 0));
    };
    const auto before = Snapshot();
    live();
    live();
    const std::size_t threads = ThreadCount();
    const std::size_t handles = HandleCount();
    const std::size_t memory = LiveAllocationCount();
    for (int round = 0; round < std::max(20, Rounds(100)); ++round)
    {
        live();
    }
    EXPECT_EQ(memory, LiveAllocationCount()) << random;
    EXPECT_GT(handles + kNoise, HandleCount()) << random;
    EXPECT_GT(threads + kNoise, ThreadCount()) << random;
    EXPECT_EQ(before, Snapshot()) << random;
}

} // namespace ts::test
