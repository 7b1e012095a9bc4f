// Where the dialog stands on the screen.

#include "platform/mfc/atltypes.h"
#include "resources/AddReminderControls.h"
#include "tests/dialogs/add/AddDialogHarness.h"
#include "tests/platform/ImportPatch.h"

#include <algorithm>
#include <vector>

extern "C"
{
    extern decltype(&GetMonitorInfoW) __imp_GetMonitorInfoW;
    extern decltype(&SetForegroundWindow) __imp_SetForegroundWindow;
}

namespace ts::test
{
namespace
{

using AddDialogScreenTest = AddDialogTest;

constexpr CRect kSmallScreen(0, 30, 640, 230);

BOOL WINAPI TellOfASmallScreen(HMONITOR, MONITORINFO* monitor)
{
    monitor->rcMonitor = kSmallScreen;
    monitor->rcWork = kSmallScreen;
    return TRUE;
}

std::vector<HWND> g_broughtToFront;

BOOL WINAPI NoteForeground(HWND window)
{
    g_broughtToFront.push_back(window);
    return TRUE;
}

INSTANTIATE_TEST_SUITE_P(English, AddDialogScreenTest, testing::Values(L"en"));

} // namespace

TEST_P(AddDialogScreenTest, DialogHigherThanTheScreen_KeepsItsTitleOnIt)
{
    const ImportPatch<decltype(&GetMonitorInfoW)> patch(&__imp_GetMonitorInfoW, TellOfASmallScreen);
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [](const ShownDialog& shown)
                                 {
                                     shown.ChooseKind(IDC_ADD_DAILY);
                                     CRect place;
                                     GetWindowRect(shown.Window(), place);
                                     EXPECT_LT(kSmallScreen.Height(), place.Height());
                                     EXPECT_EQ(kSmallScreen.top, place.top);
                                     shown.Cancel();
                                 }));
}

TEST_P(AddDialogScreenTest, DialogThatOpens_AsksForTheForeground)
{
    g_broughtToFront.clear();
    const ImportPatch<decltype(&SetForegroundWindow)> patch(&__imp_SetForegroundWindow, NoteForeground);
    CcvMfcAddReminderDialog dialog;
    HWND window = nullptr;
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [&](const ShownDialog& shown)
                                 {
                                     window = shown.Window();
                                     shown.Cancel();
                                 }));
    EXPECT_EQ(1, std::ranges::count(g_broughtToFront, window));
}

} // namespace ts::test
