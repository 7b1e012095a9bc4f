// Fonts, pictures, icons and orders that a user would not miss at first sight.

#include "module/InterfaceLanguage.h"
#include "tests/dialogs/Picture.h"
#include "tests/dialogs/reminders/AlertHarness.h"

namespace
{

using namespace ts::test;

static_assert(WM_REMINDER_SELCHANGED == 1165);

class AlertDetailsTest : public AlertTest
{
  protected:
    [[nodiscard]] LOGFONTW FontOf(HWND window) const
    {
        LOGFONTW description{};
        GetObjectW(std::bit_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof description,
                   &description);
        return description;
    }
    [[nodiscard]] CSize IconSize(WPARAM kind) const
    {
        return ts::test::SizeOf(std::bit_cast<HICON>(SendMessageW(Dialog(), WM_GETICON, kind, 0)));
    }
};

TEST_F(AlertDetailsTest, SubjectsFont_IsTheDialogsButForItsWeight)
{
    Open();
    LOGFONTW expected = FontOf(Dialog());
    const LOGFONTW subject = FontOf(Item(IDC_REMINDER_SUBJECT));
    expected.lfWeight = FW_BOLD;
    EXPECT_EQ(expected.lfHeight, subject.lfHeight);
    EXPECT_EQ(expected.lfWeight, subject.lfWeight);
    EXPECT_EQ(expected.lfItalic, subject.lfItalic);
    EXPECT_STREQ(expected.lfFaceName, subject.lfFaceName);
}

TEST_F(AlertDetailsTest, Icons_HaveTheSizesOfTheSystem)
{
    Open();
    EXPECT_EQ(CSize(GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON)), IconSize(ICON_BIG));
    EXPECT_EQ(CSize(GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON)), IconSize(ICON_SMALL));
}

TEST_F(AlertDetailsTest, RecurrenceImage_IsTheOneOfRowsThatAreNotSelected)
{
    AddRecurring(L"daily", Noon());
    Open();
    const HWND image = Item(IDC_REMINDER_RECURRENCE);
    UpdateWindow(Dialog());
    UpdateWindow(image);
    CRect client;
    GetClientRect(image, &client);
    Picture shown(client.right, client.bottom);
    const HDC dc = GetDC(image);
    BitBlt(shown.Dc(), 0, 0, client.right, client.bottom, dc, 0, 0, SRCCOPY);
    ReleaseDC(image, dc);
    EXPECT_GT(shown.CountOthers(client, GetSysColor(COLOR_BTNFACE)), 20) << "there is an image";
    EXPECT_EQ(0, shown.Count(RGB(255, 255, 255))) << "the other variant is white";
}

TEST_F(AlertDetailsTest, NewSelection_DrawsTheWholeDialogAgain)
{
    AddThree();
    Open();
    UpdateWindow(Dialog());
    ValidateRect(Dialog(), nullptr);
    List().SelectRow(1);
    CRect client;
    GetClientRect(Dialog(), &client);
    CRect outdated;
    EXPECT_NE(FALSE, GetUpdateRect(Dialog(), &outdated, FALSE));
    EXPECT_EQ(client, outdated);
}

TEST_F(AlertDetailsTest, LargerWindow_IsDrawnAgainAsAWhole)
{
    AddThree();
    Open();
    const CSize size = SizeOf(Dialog());
    UpdateWindow(Dialog());
    ValidateRect(Dialog(), nullptr);
    Resize(Dialog(), size.cx + 40, size.cy + 30);
    CRect client;
    GetClientRect(Dialog(), &client);
    CRect outdated;
    EXPECT_NE(FALSE, GetUpdateRect(Dialog(), &outdated, FALSE));
    EXPECT_EQ(client, outdated);
}

TEST_F(AlertDetailsTest, SubjectColumnThatTheUserNarrowed_KeepsItsWidth)
{
    AddThree();
    Open();
    const CSize size = SizeOf(Dialog());
    Resize(Dialog(), size.cx + 150, size.cy);
    List().SetColumnWidth(1, 60);
    Resize(Dialog(), size.cx, size.cy);
    EXPECT_EQ(60, List().GetColumnWidth(1));
}

TEST_F(AlertDetailsTest, BoldDueIn_FitsItsColumnInEveryLanguage)
{
    // Fonts differ between machines.
    constexpr int kPercentOfTheRoom = 90;
    constexpr int kMarginOfCells = 5;
    CcvReminderData soon = DueAt(Noon() + CTimeSpan(55 * 60));
    soon.SetReminderTimeSpan(kSecondsPerHour);
    m_store.Add(soon);
    for (const wchar_t* const language : {L"en", L"de", L"fr"})
    {
        ts::SetInterfaceLanguage(language);
        Open();
        LOGFONTW font = FontOf(List().m_hWnd);
        font.lfWeight = FW_BOLD;
        const HFONT bold = CreateFontIndirectW(&font);
        const HDC dc = GetDC(List().m_hWnd);
        const HGDIOBJ former = SelectObject(dc, bold);
        const std::wstring text = List().GetItemText(0, 3).GetString();
        SIZE size{};
        GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
        SelectObject(dc, former);
        ReleaseDC(List().m_hWnd, dc);
        DeleteObject(bold);
        const int room = List().GetColumnWidth(3) - 2 * kMarginOfCells;
        EXPECT_LE(size.cx, room * kPercentOfTheRoom / 100) << testing::PrintToString(text);
    }
}

TEST_F(AlertDetailsTest, Close_DismissesFromTheFirstRowToTheLast)
{
    AddThree();
    BeHost();
    Texts dismissed;
    m_host->onSynchronize = [&]
    {
        const bool isOnce = m_store.Load(m_once)->IsDimissed();
        const bool isDaily = NextDue(m_daily) != Noon();
        dismissed.emplace_back((isOnce ? L"once " : L"") + std::wstring(isDaily ? L"daily" : L""));
    };
    Open();
    ASSERT_EQ((Texts{L"once", L"daily"}), Subjects());
    SystemCommand(SC_CLOSE);
    EXPECT_EQ((Texts{L"once ", L"once daily"}), dismissed);
}

TEST_F(AlertDetailsTest, OtherSystemCommands_AreTheSystems)
{
    AddThree();
    Open();
    SystemCommand(SC_MAXIMIZE);
    EXPECT_TRUE(IsZoomed(Dialog()));
    SystemCommand(SC_RESTORE);
    EXPECT_FALSE(IsZoomed(Dialog()));
    // The lowest bits are the system's own.
    SystemCommand(SC_MINIMIZE | 5);
    EXPECT_TRUE(IsIconic(Dialog()));
}

} // namespace
