#include "tests/hosts/both/BothHostsTest.h"

#include "ResourceIds.h"
#include "resources/RecurrenceControls.h"
#include "tests/outlook_standin/Standin.h"

// What is done in one host is seen in the other.

namespace
{

constexpr int kDueColumn = 3;

/// The day as the desktop host's list shows it.
std::wstring DateText(CTime time)
{
    SYSTEMTIME day{};
    day.wYear = static_cast<WORD>(time.GetYear());
    day.wMonth = static_cast<WORD>(time.GetMonth());
    day.wDay = static_cast<WORD>(time.GetDay());
    wchar_t text[100] = L"";
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &day, nullptr, text, 100, nullptr);
    return text;
}

bool ListsAsDueOn(CTime day)
{
    return WaitUntil(
        [&]
        {
            const HWND list = GetDlgItem(MainWindowHandle(), IDC_REMINDER_LIST);
            return RowCount(list) == 1 && CellText(list, 0, kDueColumn).starts_with(DateText(day));
        });
}

class BothHostsTests : public BothHostsTest
{
  protected:
    /// Deletes the row that the desktop host selected, by its menu and its question.
    void DeleteInTheDesktopHost(int choice)
    {
        PostMessageW(MainWindowHandle(), WM_COMMAND, ID_REMINDER_DELETE, 0);
        HWND question = nullptr;
        ASSERT_TRUE(WaitUntil([&] { return (question = FindDialog(m_host.ProcessId())) != nullptr; }));
        PostMessageW(GetDlgItem(question, choice), BM_CLICK, 0, 0);
        PostMessageW(GetDlgItem(question, IDOK), BM_CLICK, 0, 0);
        ASSERT_TRUE(WaitUntil([&] { return IsWindow(question) == FALSE; }));
    }
};

TEST_F(BothHostsTests, RecurringDismissedInTheAlert_MovesOnInTheStoreInBothHostsAndInOutlook)
{
    ts::standin::OutlookProcess outlook(TestFolder() + L"tests\\outlook_standin.exe");
    outlook.SetLinger(std::chrono::seconds(3));
    const CTime due = Now() - CTimeSpan(60);
    const std::string key = Add(due, L"--daily 1");
    const std::string guid = Show(key)["outlookObjectGuid"];
    ASSERT_FALSE(guid.empty());
    AwaitHosts(1);
    ASSERT_TRUE(ListsAsDueOn(due));
    m_service.Press(VK_ESCAPE);
    EXPECT_TRUE(m_service.ClosesAlert());
    EXPECT_TRUE(ListsAsDueOn(due + CTimeSpan(kDay)));
    EXPECT_EQ(TimeArgument(due + CTimeSpan(kDay)), Show(key)["nextDue"]);
    // It gives Outlook the time that it needs.
    EXPECT_EQ(0u, m_service.Stop());
    ASSERT_TRUE(outlook.WaitUntilEnded());
    const auto item = outlook.FindItem(Wide(guid));
    ASSERT_TRUE(item);
    ASSERT_TRUE(item->recurrence);
    EXPECT_EQ(1u, item->recurrence->deletedOccurrences.size());
}

TEST_F(BothHostsTests, OneTimeReminderSettledByTheConsole_LeavesTheAlert)
{
    const std::string snoozed = Add(Now() - CTimeSpan(90));
    const std::string dismissed = Add(Now() - CTimeSpan(60));
    const std::string deleted = Add(Now() - CTimeSpan(30));
    AwaitHosts(3);
    ASSERT_TRUE(WaitUntil([this] { return m_service.Rows() == 3; }));
    RunReminders(L"snooze --no-outlook " + Wide(snoozed) + L" 1h");
    EXPECT_TRUE(WaitUntil([this] { return m_service.Rows() == 2; }));
    RunReminders(L"dismiss --no-outlook " + Wide(dismissed));
    EXPECT_TRUE(WaitUntil([this] { return m_service.Rows() == 1; }));
    RunReminders(L"delete --no-outlook " + Wide(deleted));
    EXPECT_TRUE(m_service.ClosesAlert());
    // The alert that closed itself has dismissed nothing.
    EXPECT_EQ(true, Show(snoozed)["snoozed"]);
    EXPECT_EQ(false, Show(snoozed)["dismissed"]);
    EXPECT_EQ(true, Show(dismissed)["dismissed"]);
    EXPECT_TRUE(WaitUntil([] { return ListedSubjects().size() == 2; }));
}

TEST_F(BothHostsTests, OneTimeReminderDeletedInTheDesktopHost_LeavesTheAlert)
{
    const std::string first = Add(Now() - CTimeSpan(60));
    const std::string second = Add(Now() - CTimeSpan(30));
    AwaitHosts(2);
    ASSERT_TRUE(WaitUntil([this] { return m_service.Rows() == 2; }));
    PostMessageW(MainWindowHandle(), WM_COMMAND, ID_REMINDER_DELETE, 0);
    EXPECT_TRUE(WaitUntil([this] { return m_service.Rows() == 1; }));
    EXPECT_NE(Exists(first), Exists(second));
    PostMessageW(MainWindowHandle(), WM_COMMAND, ID_REMINDER_DELETE, 0);
    EXPECT_TRUE(m_service.ClosesAlert());
    EXPECT_FALSE(Exists(first));
    EXPECT_FALSE(Exists(second));
}

TEST_F(BothHostsTests, OneTimeReminderDismissedInTheAlert_IsNoLongerDueInTheDesktopHost)
{
    const std::string key = Add(Now() - CTimeSpan(60));
    AwaitHosts(1);
    m_service.Press(VK_ESCAPE);
    EXPECT_TRUE(m_service.ClosesAlert());
    EXPECT_EQ(true, Show(key)["dismissed"]);
    // It stays dismissed, and shown, when both start again.
    EXPECT_EQ(0u, m_service.Stop());
    const ServiceProcess again;
    RunReminders(L"edit --no-outlook " + Wide(key) + L" --subject Other");
    EXPECT_TRUE(WaitUntil([] { return ListedSubjects() == std::vector<std::wstring>{L"Other"}; }));
    EXPECT_EQ(nullptr, again.Alert());
}

TEST_F(BothHostsTests, OccurrenceDeletedThroughTheQuestion_MovesTheReminderOnInBothHosts)
{
    const CTime due = Now() - CTimeSpan(60);
    const std::string key = Add(due, L"--no-outlook --daily 1");
    AwaitHosts(1);
    DeleteInTheDesktopHost(IDC_DELETE_INSTANCE);
    EXPECT_TRUE(m_service.ClosesAlert());
    EXPECT_TRUE(ListsAsDueOn(due + CTimeSpan(kDay)));
    EXPECT_EQ(TimeArgument(due + CTimeSpan(kDay)), Show(key)["nextDue"]);
}

TEST_F(BothHostsTests, SeriesDeletedThroughTheQuestion_IsGoneFromBothHostsAndFromOutlook)
{
    ts::standin::OutlookProcess outlook(TestFolder() + L"tests\\outlook_standin.exe");
    outlook.SetLinger(std::chrono::seconds(3));
    const std::string key = Add(Now() - CTimeSpan(60), L"--daily 1");
    const std::string guid = Show(key)["outlookObjectGuid"];
    AwaitHosts(1);
    DeleteInTheDesktopHost(IDC_DELETE_SERIES);
    EXPECT_TRUE(m_service.ClosesAlert());
    EXPECT_TRUE(WaitUntil([] { return ListedSubjects().empty(); }));
    EXPECT_FALSE(Exists(key));
    PostMessageW(MainWindowHandle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(0u, m_host.ExitCode());
    ASSERT_TRUE(outlook.WaitUntilEnded());
    EXPECT_FALSE(outlook.FindItem(Wide(guid)));
}

} // namespace
