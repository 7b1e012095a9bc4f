// What the main window does by itself, in the test's own process: its timers, its focus, its places.

#include "hosts/desktop/MainWindow.h"
#include "hosts/desktop/TopicDialog.h"

#include "ResourceIds.h"
#include "platform/ComApartment.h"
#include "tests/hosts/OtherWindows.h"
#include "tests/support/WindowDriver.h"

#include <bit>
#include <commctrl.h>
#include <gtest/gtest.h>

namespace
{

using namespace ts::test;

constexpr WPARAM kMinuteTimer = 1;
constexpr WPARAM kClientTimer = 2;

CcvReminderData Reminder(const std::wstring& subject)
{
    CcvReminderData reminder{CString()};
    reminder.SetDocumentPath(L"C:\\Maps\\Plan.map");
    reminder.SetMapGuid(L"{map}");
    reminder.SetObjectGuid(subject.c_str());
    reminder.SetSubject(subject.c_str());
    const CTime due(2950, 3, 4, 9, 0, 0);
    reminder.SetInitialDueDate(due);
    reminder.SetNextDueDate(due);
    return reminder;
}

class MainWindowDetailsTest : public testing::Test
{
  protected:
    MainWindowDetailsTest()
    {
        RegDeleteTreeW(HKEY_CURRENT_USER, ts::kRemindersPath);
        ts::SetInterfaceLanguage(L"en");
    }
    ~MainWindowDetailsTest() override
    {
        m_window.DestroyWindow();
        // The window's end is the program's.
        MSG quit{};
        while (PeekMessageW(&quit, nullptr, 0, 0, PM_REMOVE) != FALSE)
        {
        }
        ts::SetInterfaceLanguage(nullptr);
    }

    static void Add(const std::wstring& subject)
    {
        EXPECT_TRUE(Reminder(subject).SaveDataToRegistry(ts::kRemindersPath));
    }
    void Open()
    {
        m_window.Open();
        m_window.ShowToUser();
    }
    [[nodiscard]] HWND Item(int id) const { return ::GetDlgItem(m_window.m_hWnd, id); }
    [[nodiscard]] HWND List() const { return Item(IDC_REMINDER_LIST); }
    [[nodiscard]] CcvReminderDataCollectionManager& Manager() { return m_manager; }

    ts::ComApartment m_apartment;
    CcvReminderDataCollectionManager m_manager{false};
    ts::desktop::MainWindow m_window{m_manager};
};

RECT PlaceOf(HWND window)
{
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

} // namespace

TEST_F(MainWindowDetailsTest, EachMinute_ShowsTheRemindersAnew)
{
    Add(L"before");
    Open();
    ASSERT_EQ(std::vector<std::wstring>{L"before"}, ColumnTexts(List(), 0));
    Manager().GetReminderByIndex(0)->SetSubject(L"after");
    m_window.SendMessage(WM_TIMER, kMinuteTimer);
    EXPECT_EQ(std::vector<std::wstring>{L"after"}, ColumnTexts(List(), 0));
}

TEST_F(MainWindowDetailsTest, ClientThatNeverComes_EndsTheProgram)
{
    m_window.Open();
    const HWND window = m_window.m_hWnd;
    m_window.AwaitClient();
    m_window.SendMessage(WM_TIMER, kClientTimer);
    PumpUntil([window] { return IsWindow(window) == FALSE; });
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(MainWindowDetailsTest, ClientThatHidTheUsersWindow_LeavesItShown)
{
    Open();
    m_window.SetVisible(false);
    EXPECT_FALSE(m_window.IsVisible());
    EXPECT_TRUE(m_window.StaysWithoutClients());
    EXPECT_TRUE(m_window.IsVisible());
}

TEST_F(MainWindowDetailsTest, ButtonThatGoesGrey_LeavesTheFocusToTheList)
{
    Add(L"only");
    Open();
    for (const int button : {ID_REMINDER_EDIT, ID_REMINDER_DELETE})
    {
        SetFocus(Item(button));
        ASSERT_EQ(Item(button), GetFocus());
        RegDeleteTreeW(HKEY_CURRENT_USER, ts::kRemindersPath);
        m_window.SendMessage(WM_COMMAND, ID_VIEW_REFRESH);
        EXPECT_FALSE(IsWindowEnabled(Item(button)));
        EXPECT_EQ(List(), GetFocus());
        Add(L"another");
        m_window.SendMessage(WM_COMMAND, ID_VIEW_REFRESH);
        EXPECT_TRUE(IsWindowEnabled(Item(button)));
    }
}

TEST_F(MainWindowDetailsTest, WindowThatIsLeft_GivesTheFocusBackToWhatHadIt)
{
    Add(L"only");
    Open();
    SetFocus(Item(ID_REMINDER_MANAGE));
    m_window.SendMessage(WM_ACTIVATE, WA_INACTIVE);
    SetFocus(nullptr);
    SetFocus(m_window.m_hWnd);
    EXPECT_EQ(Item(ID_REMINDER_MANAGE), GetFocus());
}

TEST_F(MainWindowDetailsTest, AnotherFontOfTheSystem_ArrangesTheWindowAnew)
{
    Open();
    const RECT place = PlaceOf(List());
    ::MoveWindow(List(), 0, 0, 5, 5, FALSE);
    m_window.SendMessage(WM_SETTINGCHANGE, 0, std::bit_cast<LPARAM>(+L"WindowMetrics"));
    const RECT arranged = PlaceOf(List());
    EXPECT_NE(FALSE, EqualRect(&place, &arranged));
}

TEST_F(MainWindowDetailsTest, HintOnTheList_HasTheListsColours)
{
    Open();
    const HDC dc = GetDC(Item(IDC_EMPTY_HINT));
    const LRESULT brush = m_window.SendMessage(WM_CTLCOLORSTATIC, std::bit_cast<WPARAM>(dc),
                                               std::bit_cast<LPARAM>(Item(IDC_EMPTY_HINT)));
    EXPECT_EQ(GetSysColorBrush(COLOR_WINDOW), std::bit_cast<HBRUSH>(brush));
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), GetBkColor(dc));
    EXPECT_EQ(GetSysColor(COLOR_GRAYTEXT), GetTextColor(dc));
    ReleaseDC(Item(IDC_EMPTY_HINT), dc);
}

TEST_F(MainWindowDetailsTest, RowsShownAnew_StayWhereTheUserScrolled)
{
    constexpr int kRows = 100;
    for (int row = 0; row < kRows; ++row)
    {
        Add(std::to_wstring(1000 + row));
    }
    Open();
    ListView_EnsureVisible(List(), kRows - 1, FALSE);
    ListView_EnsureVisible(List(), 40, FALSE);
    ListView_SetItemState(List(), 42, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    const int top = ListView_GetTopIndex(List());
    ASSERT_EQ(40, top);
    m_window.SendMessage(WM_COMMAND, ID_VIEW_REFRESH);
    EXPECT_EQ(top, ListView_GetTopIndex(List()));
    EXPECT_EQ(42, SelectedRow(List()));
}

TEST_F(MainWindowDetailsTest, ColumnThatTheUserFitted_KeepsItsWidth)
{
    for (const UINT code : {HDN_ENDTRACKW, HDN_DIVIDERDBLCLICKW})
    {
        ts::desktop::RemindersView view;
        ASSERT_NE(FALSE, m_window.CreateEx(0, L"STATIC", L"", WS_POPUP, RECT{0, 0, 400, 200}, nullptr, 0));
        ASSERT_TRUE(view.CreateIn(m_window, IDC_REMINDER_LIST));
        view.MoveWindow(RECT{0, 0, 300, 100});
        view.SetColumnWidth(0, 33);
        view.FitColumns();
        EXPECT_NE(33, view.GetColumnWidth(0));
        view.SetColumnWidth(0, 33);
        NMHEADERW notification{};
        notification.hdr = {view.GetHeaderCtrl(), 0, code};
        view.SendMessage(WM_NOTIFY, 0, std::bit_cast<LPARAM>(&notification));
        // The list may have fitted the column to its texts.
        const int width = view.GetColumnWidth(0);
        view.FitColumns();
        EXPECT_EQ(width, view.GetColumnWidth(0)) << code;
        view.DestroyWindow();
        m_window.DestroyWindow();
    }
}

TEST_F(MainWindowDetailsTest, TopicWithoutASelection_CannotBeChosen)
{
    Open();
    ts::desktop::TopicDialog topics(ts::desktop::KnownTopics(Manager()), &m_window);
    bool before = false;
    bool after = true;
    const WhenShown shown(L"#32770",
                          [&](HWND dialog)
                          {
                              before = IsWindowEnabled(::GetDlgItem(dialog, IDOK)) != FALSE;
                              ListView_SetItemState(::GetDlgItem(dialog, IDC_TOPIC_LIST), -1, 0,
                                                    LVIS_SELECTED);
                              after = IsWindowEnabled(::GetDlgItem(dialog, IDOK)) != FALSE;
                              ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
                          });
    EXPECT_EQ(IDCANCEL, topics.DoModal());
    EXPECT_TRUE(before);
    EXPECT_FALSE(after);
}

TEST_F(MainWindowDetailsTest, DialogOverTheMainWindow_DisablesTheManageWindow)
{
    Add(L"only");
    Open();
    HWND manage = nullptr;
    {
        const WhenShown shown(L"#32770", [&](HWND dialog) { manage = dialog; });
        m_window.SendMessage(WM_COMMAND, ID_REMINDER_MANAGE);
        ASSERT_TRUE(PumpUntil([&] { return manage != nullptr; }));
    }
    bool isEnabled = true;
    const WhenShown topics(L"#32770",
                           [&](HWND dialog)
                           {
                               isEnabled = IsWindowEnabled(manage) != FALSE;
                               ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
                           });
    m_window.SendMessage(WM_COMMAND, ID_REMINDER_ADD);
    EXPECT_TRUE(topics.Happened());
    EXPECT_FALSE(isEnabled);
    EXPECT_TRUE(IsWindowEnabled(manage));
}
