// What the worker does for each command, on a machine without Outlook.

#include "collection/OutlookWorker.h"
#include "tests/collection/CollectionTest.h"
#include "tests/support/Allocations.h"
#include "tests/support/HandleCount.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ThreadIds.h"

namespace ts::test
{
namespace
{

constexpr DWORD kPatience = 20'000;

/// A queue and its worker, without a manager.
class Worker
{
  public:
    explicit Worker(bool running = true)
    {
        m_queue.SetRunning(running);
        // Kept from the start, because a worker without anything to run for ends at once.
        m_thread.m_bAutoDelete = FALSE;
        EXPECT_TRUE(m_thread.CreateThread());
        m_thread.ResumeThread();
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    ~Worker() { Stop(); }

    void Queue(const CcvReminderData& record, std::uint32_t kind)
    {
        auto command = std::make_unique<QueuedOutlookCommand>();
        command->record = std::make_unique<CcvReminderData>(record);
        command->kind = static_cast<OutlookCommandKind>(kind);
        m_queue.Append(std::move(command));
        WakeOutlookWorker(m_queue, m_thread);
    }

    /// Whether all that was queued is done with.
    [[nodiscard]] bool Finish()
    {
        return Eventually([this] { return m_queue.GetUnfinishedCount() == 0; });
    }

    /// Ends the worker, if it has not ended; its exit code.
    DWORD Stop()
    {
        m_queue.SetRunning(false);
        EXPECT_TRUE(Eventually(
            [this]
            {
                m_thread.ResumeThread();
                return HasEnded(m_thread);
            }));
        DWORD exitCode = 77;
        GetExitCodeThread(m_thread.m_hThread, &exitCode);
        return exitCode;
    }

    [[nodiscard]] OutlookCommandQueue& Commands() noexcept { return m_queue; }
    [[nodiscard]] CWinThread& Thread() noexcept { return m_thread; }

  private:
    OutlookCommandQueue m_queue;
    CWinThread m_thread{&OutlookWorkerThreadProc, &m_queue};
};

class OutlookWorkerTest : public CollectionTest
{
  protected:
    /// Stores a reminder that is in Outlook.
    static CcvReminderData StoreMirrored()
    {
        CcvReminderData record = NewDailyReminder(L"first");
        record.SetOutlookObjectGuid(L"object");
        record.SetOutlookEntryId(L"entry");
        Store(record);
        return Load(L"{M-0}");
    }

    static void DeleteStoredIdentifiers()
    {
        Key(L"{M-0}").Delete(L"OutlookObjectGuid");
        Key(L"{M-0}").Delete(L"OutlookEntryId");
    }
};

constexpr std::uint32_t kAllKinds[] = {0, 1, 2, 3, 4, 0xFFFFFFFF};
constexpr std::uint32_t kRemove = 2;

} // namespace

TEST_F(OutlookWorkerTest, Stop_OfASleepingWorker_EndsItWith1)
{
    const HostWindow window(kMainClass);
    Worker worker;
    ASSERT_TRUE(Eventually([&] { return worker.Commands().IsWorkerAsleep(); }));
    EXPECT_FALSE(HasEnded(worker.Thread()));
    EXPECT_EQ(1u, worker.Stop());
    EXPECT_TRUE(HasEnded(worker.Thread()));
    EXPECT_EQ(0, window.Count()) << "no command, no message";
}

TEST_F(OutlookWorkerTest, Start_WithAQueueThatDoesNotRun_EndsWith1)
{
    Worker worker(false);
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(worker.Thread().m_hThread, kPatience));
    EXPECT_EQ(1u, worker.Stop());
}

TEST_F(OutlookWorkerTest, Wake_OfAnIdleWorker_LetsItSleepAgain)
{
    Worker worker;
    const HostWindow window(kMainClass);
    for (int time = 0; time < 50; ++time)
    {
        WakeOutlookWorker(worker.Commands(), worker.Thread());
    }
    EXPECT_TRUE(Eventually([&] { return worker.Commands().IsWorkerAsleep(); }));
    EXPECT_EQ(0, window.Count());
    EXPECT_EQ(1u, worker.Stop());
}

TEST_F(OutlookWorkerTest, Command_OfEachKind_IsToldOnceToBothWindows)
{
    const CcvReminderData record = StoreMirrored();
    for (const std::uint32_t kind : kAllKinds)
    {
        std::string order;
        const HostWindow service(kServiceClass, [&] { order += 's'; });
        const HostWindow main(kMainClass, [&] { order += 'm'; });
        Worker worker;
        worker.Queue(record, kind);
        EXPECT_TRUE(worker.Finish());
        EXPECT_EQ("ms", order) << kind;
        worker.Queue(record, kind);
        worker.Queue(record, kind);
        EXPECT_TRUE(worker.Finish());
        EXPECT_EQ("msmsms", order) << kind;
        EXPECT_EQ(0, main.StrangeCount() + service.StrangeCount());
        EXPECT_EQ(1u, worker.Stop());
    }
}

TEST_F(OutlookWorkerTest, Command_OfEachKind_AsksOutlookWhereItHasSomethingToDo)
{
    const CcvReminderData mirrored = StoreMirrored();
    WatchOutlook();
    for (const std::uint32_t kind : kAllKinds)
    {
        Worker worker;
        worker.Queue(mirrored, kind);
        EXPECT_TRUE(worker.Finish());
        EXPECT_EQ(kind <= 3, WasOutlookTried()) << kind;
    }
    Store(NewReminder(L"second"));
    const CcvReminderData unmirrored = Load(L"{M-1}");
    for (const std::uint32_t kind : kAllKinds)
    {
        Worker worker;
        worker.Queue(unmirrored, kind);
        EXPECT_TRUE(worker.Finish());
        EXPECT_EQ(kind == 0, WasOutlookTried()) << kind;
    }
}

TEST_F(OutlookWorkerTest, Command_WithoutOutlook_LeavesTheStoreAsItIs)
{
    const CcvReminderData record = StoreMirrored();
    const auto before = Snapshot();
    Worker worker;
    for (const std::uint32_t kind : kAllKinds)
    {
        worker.Queue(record, kind);
        EXPECT_TRUE(worker.Finish());
        EXPECT_EQ(before, Snapshot()) << kind;
    }
}

TEST_F(OutlookWorkerTest, Command_OfEachKindButRemove_WritesTheIdentifiersBack)
{
    const CcvReminderData record = StoreMirrored();
    const auto whole = Snapshot();
    for (const std::uint32_t kind : kAllKinds)
    {
        DeleteStoredIdentifiers();
        const auto expected = kind == kRemove ? Snapshot() : whole;
        const HostWindow window(
            kMainClass, [&] { EXPECT_EQ(expected, Snapshot()) << "hosts are told afterwards: " << kind; });
        Worker worker;
        worker.Queue(record, kind);
        EXPECT_TRUE(worker.Finish());
        EXPECT_EQ(expected, Snapshot()) << kind;
        EXPECT_EQ(1, window.Count());
    }
}

TEST_F(OutlookWorkerTest, Command_WhoseIdentifiersAreOlderThanTheStores_TakesTheStores)
{
    const CcvReminderData queuedBefore = StoreMirrored();
    Key(L"{M-0}").Write(L"OutlookObjectGuid", RawText(L"newer object"));
    Key(L"{M-0}").Write(L"OutlookEntryId", RawText(L"newer entry"));
    const auto before = Snapshot();
    Worker worker;
    for (const std::uint32_t kind : kAllKinds)
    {
        worker.Queue(queuedBefore, kind);
        EXPECT_TRUE(worker.Finish());
        EXPECT_EQ(before, Snapshot()) << kind;
    }
}

TEST_F(OutlookWorkerTest, Command_OfACopyWithoutIdentifiers_FindsThemInTheStore)
{
    StoreMirrored();
    WatchOutlook();
    CcvReminderData queuedBefore = Load(L"{M-0}");
    queuedBefore.SetOutlookObjectGuid(L"");
    queuedBefore.SetOutlookEntryId(L"");
    for (const std::uint32_t kind : {1u, 2u, 3u})
    {
        Worker worker;
        worker.Queue(queuedBefore, kind);
        EXPECT_TRUE(worker.Finish());
        EXPECT_TRUE(WasOutlookTried()) << "an earlier command has added it meanwhile: " << kind;
    }
}

TEST_F(OutlookWorkerTest, Command_ForADeletedReminder_DoesNotBringItsKeyBack)
{
    const CcvReminderData record = StoreMirrored();
    const HostWindow window(kMainClass);
    DeleteKeyTree(PathOf(L"{M-0}"));
    Worker worker;
    for (const std::uint32_t kind : kAllKinds)
    {
        worker.Queue(record, kind);
        EXPECT_TRUE(worker.Finish());
        EXPECT_TRUE(Snapshot().empty()) << kind;
    }
    worker.Queue(NewReminder(L"never saved"), 0);
    EXPECT_TRUE(worker.Finish());
    EXPECT_TRUE(Snapshot().empty());
    EXPECT_EQ(7, window.Count()) << "each is told all the same";
}

TEST_F(OutlookWorkerTest, Command_ForAReminderThatIsDeletedMeanwhile_DoesNotBringItsKeyBack)
{
    RandomSource random;
    Worker worker;
    for (int round = 0; round < Rounds(600); ++round)
    {
        CcvReminderData record = NewReminder(L"first");
        ASSERT_TRUE(record.SaveDataToRegistry(kStore));
        worker.Queue(record, 1);
        for (int spin = random.Between(0, 300'000); spin > 0; --spin)
        {
            std::atomic_signal_fence(std::memory_order_seq_cst);
        }
        ASSERT_TRUE(record.DeleteDataFromRegistry(kStore));
        ASSERT_TRUE(worker.Finish());
        ASSERT_TRUE(RawKey(kStore).Subkeys().empty()) << random << " round " << round;
    }
}

TEST_F(OutlookWorkerTest, Command_WhoseKeyWentToAnotherTopic_LeavesThatAlone)
{
    const CcvReminderData record = StoreMirrored();
    DeleteKeyTree(PathOf(L"{M-0}"));
    Store(NewReminder(L"another"));
    const auto before = Snapshot();
    ASSERT_EQ(1u, before.count(L"{M-0}"));
    Worker worker;
    for (const std::uint32_t kind : kAllKinds)
    {
        worker.Queue(record, kind);
        EXPECT_TRUE(worker.Finish());
        EXPECT_EQ(before, Snapshot()) << kind;
    }
}

TEST_F(OutlookWorkerTest, Command_WhoseKeyWentToAnotherTopic_LeavesThatsAppointmentAlone)
{
    CcvReminderData unmirrored = StoreMirrored();
    unmirrored.SetOutlookObjectGuid(L"");
    WatchOutlook();
    for (const wchar_t* const part : {L"MapGuid", L"ObjectGuid"})
    {
        DeleteKeyTree(PathOf(L"{M-0}"));
        StoreMirrored();
        Key(L"{M-0}").Write(part, RawText(L"another"));
        for (const std::uint32_t kind : {1u, 2u, 3u})
        {
            Worker worker;
            worker.Queue(unmirrored, kind);
            EXPECT_TRUE(worker.Finish());
            EXPECT_FALSE(WasOutlookTried()) << "with the other's identifiers: " << kind;
        }
    }
}

TEST_F(OutlookWorkerTest, Command_OfAReminderWhoseDocumentMoved_IsStillThatReminders)
{
    const CcvReminderData record = StoreMirrored();
    Key(L"{M-0}").Write(L"DocumentPath", RawText(L"D:\\moved"));
    const auto whole = Snapshot();
    DeleteStoredIdentifiers();
    Worker worker;
    worker.Queue(record, 1);
    EXPECT_TRUE(worker.Finish());
    EXPECT_EQ(whole, Snapshot());
}

TEST_F(OutlookWorkerTest, Worker_WithoutMemory_EndsWith0AndExecutesNothingMore)
{
    const CcvReminderData record = StoreMirrored();
    int failures = 0;
    for (int spared = 0; spared < 200; ++spared)
    {
        const HostWindow window(kMainClass);
        Worker worker;
        bool refused = false;
        {
            const StarvedThread starved(spared, GetThreadId(worker.Thread().m_hThread));
            worker.Queue(record, 1);
            EXPECT_TRUE(Eventually(
                [&] { return HasEnded(worker.Thread()) || worker.Commands().GetUnfinishedCount() == 0; }));
            refused = starved.Refusals() != 0;
        }
        if (!HasEnded(worker.Thread()))
        {
            EXPECT_EQ(1u, worker.Stop());
            if (!refused)
            {
                EXPECT_LT(3, failures) << "memory was needed, and refused each time";
                return;
            }
            continue;
        }
        ++failures;
        const int told = window.Count();
        worker.Queue(record, 1);
        EXPECT_EQ(2, worker.Commands().GetUnfinishedCount()) << "queued, never executed";
        EXPECT_EQ(0u, worker.Stop());
        EXPECT_EQ(told, window.Count());
        ASSERT_EQ(record.GetSubject(), Load(L"{M-0}").GetSubject());
    }
    FAIL() << "the command never got through";
}

TEST_F(OutlookWorkerTest, Workers_OneAfterTheOther_LeaveNoHandlesAndNoMemory)
{
    // Not one that starts Outlook: under Wine each thread that activates a class leaves two handles of Wine's
    // own.
    Store(NewReminder(L"first"));
    const CcvReminderData record = Load(L"{M-0}");
    const auto use = [&]
    {
        Worker worker;
        worker.Queue(record, 1);
        EXPECT_TRUE(worker.Finish());
    };
    use();
    use();
    const std::size_t threads = ThreadCount();
    const std::size_t handles = HandleCount();
    const std::size_t memory = LiveAllocationCount();
    for (int round = 0; round < 30; ++round)
    {
        use();
    }
    EXPECT_EQ(memory, LiveAllocationCount());
    EXPECT_GT(handles + kNoise, HandleCount());
    EXPECT_GT(threads + kNoise, ThreadCount());
}

} // namespace ts::test
