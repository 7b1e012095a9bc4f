#include "TsServiceUtilities.h"
#include "platform/mfc/CWnd.h"
#include "platform/mfc/afxmsg_.h"

#include <cstdio>

/// An application's main window, as far as reminders are concerned. The library finds it by its class.
class MainWindow : public CWnd
{
  public:
    bool Open()
    {
        WNDCLASSW windowClass{};
        windowClass.style = CS_GLOBALCLASS; // the library makes the window
        windowClass.lpfnWndProc = ::DefWindowProcW;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = ts::kMainWindowClass;
        constexpr RECT place = {100, 100, 900, 700};
        return RegisterClassW(&windowClass) != 0 &&
               CreateEx(0, ts::kMainWindowClass, L"My maps", WS_OVERLAPPEDWINDOW, place, nullptr, 0) != FALSE;
    }
    /// Until the user closes the list.
    void ManageReminders()
    {
        // What changed after it was loaded, when there was no window to be told.
        m_reminders.UpdateReminderCollection();
        m_dialog.DoModal();
    }

  protected:
    // This process or another one has changed a reminder: what was loaded before is not valid any more.
    LRESULT OnRemindersChanged(WPARAM, LPARAM)
    {
        m_reminders.UpdateReminderCollection();
        m_dialog.SynchronizeReminders();
        return 0;
    }
    // The user wants to see the topic of a reminder, in whatever process the dialog is.
    LRESULT OnOpenReminder(WPARAM, LPARAM index)
    {
        const CcvReminderData* const reminder = m_reminders.GetReminderByIndex(static_cast<int>(index));
        if (reminder != nullptr)
        {
            std::printf("open %ls\n", reminder->GetObjectTitle().GetString());
        }
        return 0;
    }
    DECLARE_MESSAGE_MAP()

  private:
    CcvReminderDataCollectionManager m_reminders{true}; // mirrors changes in Outlook, if the user wants that
    CcvMfcManageRemindersDialog m_dialog{&m_reminders, this};
};

BEGIN_MESSAGE_MAP(MainWindow, CWnd)
ON_MESSAGE(ts::kSynchronizationMessage, OnRemindersChanged)
ON_MESSAGE(ts::kOpenReminderMessage, OnOpenReminder)
END_MESSAGE_MAP()

int main()
{
    MainWindow window;
    if (!window.Open())
    {
        return 1;
    }
    window.ManageReminders();
    window.DestroyWindow(); // before the members that its messages reach
    return 0;
}
