#pragma once

#include "dialogs/CcvMfcReminderAlertDialog.h"
#include "tests/dialogs/reminders/RemindersDialogHarness.h"

namespace ts::test
{

class AlertTest : public RemindersDialogTest
{
  protected:
    ~AlertTest() override { m_alert.reset(); }

    [[nodiscard]] HWND Dialog() const override
    {
        return m_alert == nullptr ? nullptr : m_alert->GetSafeHwnd();
    }
    /// Loads the reminders and shows the alert.
    void Open()
    {
        Load();
        m_alert = std::make_unique<CcvMfcReminderAlertDialog>(m_manager.get(), nullptr);
        ASSERT_NE(FALSE, m_alert->Create(CcvMfcReminderAlertDialog::kTemplate, nullptr));
        PumpMessages();
    }
    /// What a host does when the store has changed.
    void Synchronize()
    {
        m_manager->UpdateReminderCollection();
        if (m_alert != nullptr)
        {
            m_alert->SynchronizeReminders();
        }
    }
    /// The window of a host that does so inside each change.
    void BeHost()
    {
        m_host = std::make_unique<ApplicationWindow>(kServiceWindowClass);
        m_host->onSynchronize = [this]
        {
            ++m_messages;
            Synchronize();
        };
    }
    /// One that is due once and one that recurs, both now, and one that is not due.
    void AddThree()
    {
        m_once = m_store.Add(L"once", Noon() - CTimeSpan(kSecondsPerHour));
        m_daily = AddRecurring(L"daily", Noon());
        m_later = m_store.Add(L"later", Noon() + CTimeSpan(kSecondsPerHour));
    }

    std::unique_ptr<CcvMfcReminderAlertDialog> m_alert;
    std::unique_ptr<ApplicationWindow> m_host;
    int m_messages = 0;
    int m_once = -1;
    int m_daily = -1;
    int m_later = -1;
};

} // namespace ts::test
