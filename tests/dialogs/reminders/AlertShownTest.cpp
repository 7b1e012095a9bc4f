// What the alert asks of the system once it is shown.

#include "dialogs/CcvMfcReminderAlertDialogInternal.h"
#include "tests/dialogs/reminders/AlertHarness.h"
#include "tests/support/NotedFlashes.h"

#include <algorithm>
#include <mmsystem.h>

extern "C"
{
    extern decltype(&GetProcAddress) __imp_GetProcAddress;
    extern decltype(&SetForegroundWindow) __imp_SetForegroundWindow;
}

namespace
{

using namespace ts::test;

struct Sound
{
    std::wstring name;
    HMODULE module = nullptr;
    DWORD flags = 0;
};

std::vector<Sound> g_sounds;

BOOL WINAPI NoteSound(const wchar_t* name, HMODULE module, DWORD flags)
{
    g_sounds.push_back({name, module, flags});
    return TRUE;
}

const auto g_getProcAddress = __imp_GetProcAddress;

FARPROC WINAPI FindNoteSound(HMODULE library, const char* name)
{
    return std::string(name) == "PlaySoundW" ? std::bit_cast<FARPROC>(&NoteSound)
                                             : g_getProcAddress(library, name);
}

std::vector<HWND> g_broughtToFront;

BOOL WINAPI NoteForeground(HWND window)
{
    g_broughtToFront.push_back(window);
    return TRUE;
}

class AlertShownTest : public AlertTest
{
  protected:
    AlertShownTest() { g_sounds.clear(); }
    void Tell() const { SendMessageW(Dialog(), WM_REMINDER_ALERT_SHOWN, 0, 0); }

    NotedFlashes m_flashes;
};

} // namespace

TEST_F(AlertShownTest, AlertBehindAnotherWindow_FlashesInTheTaskBarOnly)
{
    Open();
    const ApplicationWindow other(L"AlertShownTestOther");
    ShowWindow(other.Get(), SW_SHOW);
    SetForegroundWindow(other.Get());
    NotedFlashes::Take();
    Tell();
    const std::vector<FLASHWINFO> flashes = NotedFlashes::Take();
    ASSERT_EQ(1U, flashes.size());
    const FLASHWINFO& flash = flashes.front();
    EXPECT_EQ(sizeof flash, flash.cbSize);
    EXPECT_EQ(Dialog(), flash.hwnd);
    EXPECT_EQ(DWORD{FLASHW_TRAY | FLASHW_TIMERNOFG}, flash.dwFlags);
    EXPECT_EQ(0U, flash.uCount);
    EXPECT_EQ(0U, flash.dwTimeout) << "as fast as the caret";
}

TEST_F(AlertShownTest, AlertInTheForeground_DoesNotFlash)
{
    Open();
    ASSERT_EQ(Dialog(), GetForegroundWindow());
    NotedFlashes::Take();
    Tell();
    EXPECT_TRUE(NotedFlashes::Take().empty());
}

TEST_F(AlertShownTest, AlertThatOpens_AsksForTheForegroundItself)
{
    g_broughtToFront.clear();
    const ImportPatch<decltype(&SetForegroundWindow)> patch(&__imp_SetForegroundWindow, NoteForeground);
    Open();
    EXPECT_EQ(1, std::ranges::count(g_broughtToFront, Dialog()));
}

TEST_F(AlertShownTest, AlertThatWasCancelled_CanBeCancelledAgain)
{
    Load();
    m_dialog = std::make_unique<CcvMfcReminderAlertDialog>(m_manager.get(), nullptr);
    for (const wchar_t* const subject : {L"first", L"second"})
    {
        const int number = m_store.Add(subject, Noon());
        m_manager->UpdateReminderCollection();
        const WhenShown shown(L"#32770",
                              [this, number](HWND)
                              {
                                  Command(IDCANCEL);
                                  if (!m_store.Load(number)->IsDimissed())
                                  {
                                      // Or the test would never end.
                                      Command(IDOK);
                                  }
                              });
        EXPECT_EQ(IDCANCEL, m_dialog->DoModal());
        EXPECT_TRUE(m_store.Load(number)->IsDimissed());
    }
}

TEST_F(AlertShownTest, WantedSound_IsThatOfNewMailOrNone)
{
    const ImportPatch<decltype(&GetProcAddress)> patch(&__imp_GetProcAddress, FindNoteSound);
    Open();
    Tell();
    EXPECT_TRUE(g_sounds.empty()) << "not wanted";
    RawKey(ts::kSettingsPath).Write(L"PlayTicklerSound", RawDword(1));
    Tell();
    ASSERT_EQ(1U, g_sounds.size());
    EXPECT_EQ(L"MailBeep", g_sounds.front().name);
    EXPECT_EQ(nullptr, g_sounds.front().module);
    EXPECT_EQ(DWORD{SND_ALIAS | SND_NODEFAULT}, g_sounds.front().flags) << "nothing where there is no such";
}
