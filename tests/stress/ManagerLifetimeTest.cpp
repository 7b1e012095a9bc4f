// A thousand managers, each ended at another moment: before its worker first sleeps, with commands queued,
// while one is executed, while the worker sends to a window of the thread that waits for it.

#include "collection/CcvReminderDataCollectionManager.h"
#include "collection/SynchronizationMessage.h"
#include "module/CcvReminderOptionUtilities.h"
#include "module/RegistryPaths.h"
#include "tests/stress/HostWindow.h"
#include "tests/support/HandleCount.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"
#include "tests/support/RandomSource.h"
#include "tests/support/RawRegistry.h"
#include "tests/support/ThreadIds.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <optional>

namespace ts::test
{
namespace
{

constexpr int kStored = 2;

/// With Outlook's GUID all commands but adding reach for Outlook; adding always does.
CcvReminderData Reminder(int number, const wchar_t* outlookGuid)
{
    CcvReminderData record{CString()};
    record.SetDocumentPath(L"C:\\Maps\\Plan");
    record.SetMapGuid(L"{map}");
    record.SetObjectGuid((L"{topic " + std::to_wstring(number) + L"}").c_str());
    record.SetSubject(L"Review the figures");
    record.SetOutlookObjectGuid(outlookGuid);
    record.SetInitialDueDate(1'800'000'000);
    record.SetNextDueDate(1'800'000'000);
    record.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
    record.SetDailyRecurrenceNumber(3);
    return record;
}

class ManagerLifetimeTest : public testing::Test
{
  protected:
    ManagerLifetimeTest()
    {
        const RawKey settings(kSettingsPath);
        CcvReminderOptionUtilities::SetSynchronizeOutlookAppointments(true);
        FillStore();
    }
    ~ManagerLifetimeTest() override
    {
        DeleteKeyTree(kRemindersPath);
        DeleteKeyTree(kSettingsPath);
    }

    void FillStore()
    {
        DeleteKeyTree(kRemindersPath);
        for (int number = 0; number < kStored; ++number)
        {
            EXPECT_TRUE(Reminder(number, m_outlookGuid).SaveDataToRegistry(kRemindersPath));
        }
    }

    /// What a host does: its window loads the collection again, also while the manager is being destroyed.
    void OnSynchronization() noexcept
    {
        ++m_messages;
        m_fromWorker += InSendMessage() ? 1 : 0;
        if (m_manager != nullptr && m_random.Chance(20))
        {
            m_manager->UpdateReminderCollection();
        }
    }

    void ChangeSomething(CcvReminderDataCollectionManager& manager)
    {
        CcvReminderData record = Reminder(m_random.Between(0, kStored), m_outlookGuid);
        switch (m_random.Between(0, 4))
        {
        case 0:
            manager.AddReminder(&record, *m_outlookGuid != L'\0');
            break;
        case 1:
            manager.ModifyReminder(&record, true);
            break;
        case 2:
            manager.SnoozeReminder(&record, 60);
            break;
        case 3:
            manager.DismissReminder(&record);
            break;
        default:
            manager.EndReminder(&record);
            break;
        }
    }

    void LetTimePass(CcvReminderDataCollectionManager& manager)
    {
        const DWORD milliseconds = m_random.Between<DWORD>(0, 4);
        switch (m_random.Between(0, 3))
        {
        case 0:
            Sleep(milliseconds);
            break;
        case 1:
            AnswerMessages(milliseconds);
            break;
        case 2:
            manager.WaitForOutlookCommands(milliseconds);
            break;
        default:
            break;
        }
    }

    void LiveOnce()
    {
        auto manager = std::make_unique<CcvReminderDataCollectionManager>(m_random.Chance(90));
        m_manager = manager.get();
        for (int changes = m_random.Between(0, 2); changes > 0; --changes)
        {
            ChangeSomething(*manager);
        }
        LetTimePass(*manager);
        manager.reset();
        m_manager = nullptr;
    }

    void Open(std::optional<HostWindow>& window, const wchar_t* windowClass)
    {
        window.emplace(windowClass, [this] { OnSynchronization(); });
        ASSERT_NE(nullptr, window->Get());
    }

    /// Closes the window now and then, and opens it again.
    void Vary(std::optional<HostWindow>& window, const wchar_t* windowClass)
    {
        if (window && m_random.Chance(5))
        {
            window.reset();
        }
        else if (!window && m_random.Chance(20))
        {
            Open(window, windowClass);
        }
    }

    void Live(int rounds)
    {
        std::optional<HostWindow> mainWindow;
        std::optional<HostWindow> serviceWindow;
        Open(mainWindow, kMainWindowClass);
        Open(serviceWindow, kServiceWindowClass);
        for (int round = 0; round < rounds; ++round)
        {
            SCOPED_TRACE(testing::Message() << m_random << ", round " << round);
            LiveOnce();
            Vary(mainWindow, kMainWindowClass);
            Vary(serviceWindow, kServiceWindowClass);
            if (round % 20 == 0)
            {
                FillStore();
            }
        }
    }

    /// A thread is counted for a moment longer than its handle says.
    void ExpectNoMoreThreads(std::size_t expected) const
    {
        for (int look = 0; look < 500 && ThreadCount() > expected; ++look)
        {
            Sleep(10);
        }
        EXPECT_GE(expected, ThreadCount()) << m_random;
    }

    const wchar_t* m_outlookGuid = L"";
    RandomSource m_random;
    CcvReminderDataCollectionManager* m_manager = nullptr;
    int m_messages = 0;
    int m_fromWorker = 0;
};

} // namespace

TEST_F(ManagerLifetimeTest, Destruction_AtAnyMoment_EndsAndLeavesNoThreadAndNoHandle)
{
    // What the system keeps for the process after a first window and a first thread.
    Live(Rounds(50));
    const std::size_t threads = ThreadCount();
    const std::size_t handles = HandleCount();

    Live(WantedRounds(Rounds(1000)));

    ExpectNoMoreThreads(threads);
    EXPECT_GE(handles, HandleCount()) << m_random;
    EXPECT_GT(m_messages, 0) << m_random;
    EXPECT_GT(m_fromWorker, 0) << m_random;
}

// Under Wine each thread that asks for a program of another process leaves two handles behind, whatever it
// does at its end. So the handles are counted above, where nobody asks for Outlook.
TEST_F(ManagerLifetimeTest, Destruction_WhileOutlookIsAskedFor_EndsAndLeavesNoThread)
{
    m_outlookGuid = L"{appointment}";
    FillStore();
    Live(Rounds(20));
    const std::size_t threads = ThreadCount();

    Live(WantedRounds(Rounds(200)));

    ExpectNoMoreThreads(threads);
    EXPECT_GT(m_fromWorker, 0) << m_random;
}

} // namespace ts::test
