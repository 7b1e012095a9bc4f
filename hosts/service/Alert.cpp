#include "Alert.h"

namespace ts::service
{

Alert::~Alert() = default;

HWND Alert::GetWindow() const
{
    return m_dialog == nullptr ? nullptr : m_dialog->GetSafeHwnd();
}

bool Alert::Show()
{
    if (IsOpen())
    {
        Refresh();
        CallAttention();
        return true;
    }
    // Known before its window is: creating that may let changes of other processes through.
    m_dialog = std::make_unique<CcvMfcReminderAlertDialog>(&m_manager, nullptr);
    if (m_dialog->Create(CcvMfcReminderAlertDialog::kTemplate, nullptr) == FALSE)
    {
        m_dialog.reset();
        return false;
    }
    // Ends it when nothing is due any more.
    Refresh();
    return true;
}

void Alert::Refresh()
{
    if (m_dialog != nullptr)
    {
        m_dialog->SynchronizeReminders();
    }
}

void Alert::CallAttention() const
{
    const HWND window = GetWindow();
    if (window != nullptr && GetForegroundWindow() != window)
    {
        FLASHWINFO flash = {sizeof flash, window, FLASHW_TRAY | FLASHW_TIMERNOFG, 0, 0};
        FlashWindowEx(&flash);
    }
}

void Alert::BringToFront() const
{
    const HWND window = GetWindow();
    if (window == nullptr)
    {
        return;
    }
    if (IsIconic(window) != FALSE)
    {
        ShowWindow(window, SW_RESTORE);
    }
    SetForegroundWindow(GetLastActivePopup(window));
}

bool Alert::Release()
{
    const bool isClosed = m_dialog != nullptr && !IsOpen();
    if (isClosed)
    {
        m_dialog.reset();
    }
    return isClosed;
}

bool Alert::Translate(MSG& message) const
{
    const HWND window = GetWindow();
    return window != nullptr && IsDialogMessageW(window, &message) != FALSE;
}

} // namespace ts::service
