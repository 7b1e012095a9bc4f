// How a time picker takes over an edit control, where it puts its parts, and what it leaves behind.

#include "tests/dialogs/controls/PickerHarness.h"
#include "tests/support/FixedClock.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"
#include "tests/support/TextOutput.h"

#include <bit>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <map>

using namespace ts::test;

TEST(TimePickerControlTest, Attached_ShowsThePresentTime)
{
    LocaleSettings settings;
    settings.Set(LOCALE_STIMEFORMAT, L"HH:mm:ss");
    settings.Set(LOCALE_STIME, L":");
    const FixedClock clock(CTime(2026, 3, 17, 9, 5, 37));
    HostWindow host;
    const HWND edit = host.Add(L"EDIT", L"before", 0, CRect(0, 0, 100, 23), kEditId);
    const ts::TimePickerLocale locale = ts::MakeTimePickerLocale(true, L"", L"");
    CcvTimePickerControl picker(locale);
    ASSERT_TRUE(picker.Attach(kEditId, &host));
    EXPECT_EQ(edit, picker.m_hWnd);
    EXPECT_EQ(CTime(2026, 3, 17, 9, 5, 37), picker.GetTime());
    EXPECT_EQ(L"09:05", TextOf(edit));
}

TEST(TimePickerControlTest, WithoutSuchAControl_IsNotAttached)
{
    HostWindow host;
    CcvTimePickerControl picker;
    EXPECT_FALSE(picker.Attach(kEditId, &host));
    EXPECT_EQ(nullptr, picker.GetSafeHwnd());
}

TEST(TimePickerControlTest, AttachedAgain_ServesTheNextDialog)
{
    CcvTimePickerControl picker;
    for (int round = 0; round < 2; ++round)
    {
        HostWindow host;
        const HWND edit = host.Add(L"EDIT", L"", 0, CRect(0, 0, 100, 23), kEditId);
        ASSERT_TRUE(picker.Attach(kEditId, &host));
        EXPECT_NE(nullptr, GetDlgItem(edit, kSpinId));
        host.DestroyWindow();
        EXPECT_EQ(nullptr, picker.GetSafeHwnd());
    }
}

TEST(TimePickerControlTest, SetTime_IsShownAndKeptToTheSecond)
{
    PickerHarness window(kAmerican);
    for (const CTime time : {CTime(2025, 12, 31, 23, 59, 59), CTime(2026, 1, 1, 0, 0, 0), CTime(0)})
    {
        window.picker->SetTime(time);
        EXPECT_EQ(time, window.picker->GetTime());
    }
    window.picker->SetTime(CTime(2025, 12, 31, 23, 59, 59));
    EXPECT_EQ(L"11:59 PM", window.Text());
}

TEST(TimePickerControlTest, Changes_AreNotToldToTheDialog)
{
    PickerHarness window(kAmerican);
    window.picker->SetFocus();
    window.Select({0, 2});
    PressKey(VK_UP);
    TypeText(L"7");
    EXPECT_EQ(0, window.Host().Notifications(EN_CHANGE));
    // Other notifications are, and those of other edits.
    EXPECT_EQ(1, window.Host().Notifications(EN_SETFOCUS));
    SetWindowTextW(window.other, L"changed");
    EXPECT_EQ(1, window.Host().Notifications(EN_CHANGE));
}

TEST(TimePickerControlTest, Spin_StandsAtTheRightEnd)
{
    PickerHarness window(kAmerican);
    ASSERT_NE(nullptr, window.Spin());
    EXPECT_EQ(L"msctls_updown32", ClassOf(window.Spin()));
    EXPECT_TRUE(IsWindowVisible(window.Spin()));
    EXPECT_NE(0, GetWindowLongW(window.Spin(), GWL_STYLE) & UDS_ALIGNRIGHT);
    int lower = -1;
    int upper = -1;
    SendMessageW(window.Spin(), UDM_GETRANGE32, std::bit_cast<WPARAM>(&lower), std::bit_cast<LPARAM>(&upper));
    EXPECT_EQ(0, lower);
    EXPECT_EQ(1, upper);
    CRect client;
    CRect spin;
    GetClientRect(window.edit, client);
    GetWindowRect(window.Spin(), spin);
    MapWindowPoints(nullptr, window.edit, std::bit_cast<POINT*>(&spin), 2);
    EXPECT_EQ(client.right, spin.right);
    EXPECT_EQ(GetSystemMetrics(SM_CXVSCROLL), spin.Width());
    EXPECT_EQ(client.top, spin.top);
    EXPECT_EQ(client.bottom, spin.bottom);
    // The edit does not paint over it.
    EXPECT_NE(0, GetWindowLongW(window.edit, GWL_STYLE) & WS_CLIPCHILDREN);
}

namespace
{

CFont DialogFont(int dpi)
{
    LOGFONTW description{};
    description.lfHeight = -MulDiv(8, dpi, 72);
    wcscpy(description.lfFaceName, L"MS Shell Dlg");
    CFont font;
    font.CreateFontIndirect(&description);
    return font;
}

int LeftOfSpin(const PickerHarness& window)
{
    CRect spin;
    GetWindowRect(window.Spin(), spin);
    MapWindowPoints(nullptr, window.edit, std::bit_cast<POINT*>(&spin), 1);
    return spin.left;
}

} // namespace

TEST(TimePickerControlTest, Text_NeverRunsUnderTheSpin)
{
    for (const int dpi : {96, 120, 144, 168, 192})
    {
        const CFont font = DialogFont(dpi);
        for (const DWORD style :
             {DWORD{0}, DWORD{ES_AUTOHSCROLL}, DWORD{ES_MULTILINE}, DWORD{ES_RIGHT}, DWORD{ES_CENTER}})
        {
            // In dialog units 14 high and, at 60 wide, what dialogs give it; the other is too small on
            // purpose.
            for (const int width : {20, 60})
            {
                const CRect rect(10, 10, 10 + width * 2 * dpi / 96, 10 + 23 * dpi / 96);
                PickerHarness window(kAmerican, rect, style, font.GetHandle());
                const int edge = LeftOfSpin(window);
                EXPECT_GT(edge, 0);
                CRect text;
                window.picker->GetRect(text);
                EXPECT_LE(text.right, edge) << dpi << " " << style << " " << width;
                EXPECT_GT(text.right, text.left) << dpi << " " << style << " " << width;
                window.picker->SetTime(CTime(2026, 3, 17, 10, 50, 0));
                if (width == 60)
                {
                    CClientDC dc(window.edit);
                    const ts::SelectedObject selected(dc, font.GetHandle());
                    EXPECT_LE(dc.GetTextExtent(L"10:50 AM").cx, text.Width()) << dpi;
                }
            }
        }
    }
}

TEST(TimePickerControlTest, ManyRounds_LeaveNothingBehind)
{
    HostWindow host;
    const auto round = [&host]
    {
        const HWND edit = host.Add(L"EDIT", L"", 0, CRect(0, 0, 100, 23), kEditId);
        CcvTimePickerControl picker;
        EXPECT_TRUE(picker.Attach(kEditId, &host));
        SendMessageW(edit, WM_KEYDOWN, VK_UP, 1);
        DestroyWindow(edit);
    };
    // What is drawn once, when the window first shows, does not count.
    UpdateWindow(host.m_hWnd);
    ExpectRoundsLeaveNothing(Rounds(2000), round);
}

TEST(TimePickerControlTest, ObjectThatGoesFirst_TakesItsWindowsAlong)
{
    HostWindow host;
    const HWND edit = host.Add(L"EDIT", L"", 0, CRect(0, 0, 100, 23), kEditId);
    {
        CcvTimePickerControl picker;
        ASSERT_TRUE(picker.Attach(kEditId, &host));
    }
    EXPECT_FALSE(IsWindow(edit));
}

namespace
{

std::wstring UsersDesignator(LCTYPE type)
{
    wchar_t text[20] = L"";
    EXPECT_NE(0, GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, 20));
    return text;
}

} // namespace

/// With the settings that the user really has: run in the locales of this table.
TEST(TimePickerUsersLocaleTest, Control_ShowsTheUsersFormat)
{
    struct Look
    {
        std::wstring morning;
        std::wstring afternoon;
    };
    const std::map<std::wstring, Look> looks = {
        {L"en-US", {L" 9:05 " + UsersDesignator(LOCALE_S1159), L" 3:07 " + UsersDesignator(LOCALE_S2359)}},
        {L"en-GB", {L"09:05", L"15:07"}},
        {L"de-DE", {L"09:05", L"15:07"}},
        {L"fr-FR", {L"09:05", L"15:07"}},
        {L"fi-FI", {L" 9.05", L"15.07"}},
        {L"ja-JP", {L" 9:05", L"15:07"}},
        {L"ko-KR", {UsersDesignator(LOCALE_S1159) + L"  9:05", UsersDesignator(LOCALE_S2359) + L"  3:07"}},
    };
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
    ASSERT_NE(0, GetUserDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH));
    const auto look = looks.find(name);
    if (look == looks.end())
    {
        // Another machine's own locale is not ours to know.
        EXPECT_EQ(nullptr, std::getenv("TS_LOCALE"));
        return;
    }
    HostWindow host;
    const HWND edit = host.Add(L"EDIT", L"", 0, CRect(0, 0, 100, 23), kEditId);
    CcvTimePickerControl picker;
    ASSERT_TRUE(picker.Attach(kEditId, &host));
    picker.SetTime(CTime(2026, 3, 17, 9, 5, 0));
    EXPECT_EQ(look->second.morning, TextOf(edit));
    picker.SetTime(CTime(2026, 3, 17, 15, 7, 0));
    EXPECT_EQ(look->second.afternoon, TextOf(edit));
}
