#pragma once

#include "dialogs/CcvMfcReminderAlertDialog.h"
#include "tests/dialogs/reminders/RemindersDialogHarness.h"

namespace ts::test
{

class AlertTest : public FacadeOfRemindersTest<CcvMfcReminderAlertDialog>
{
  protected:
    /// One that is due once and one that recurs, both now, and one that is not due.
    void AddThree()
    {
        m_once = m_store.Add(L"once", Noon() - CTimeSpan(kSecondsPerHour));
        m_daily = AddRecurring(L"daily", Noon());
        m_later = m_store.Add(L"later", Noon() + CTimeSpan(kSecondsPerHour));
    }
};

} // namespace ts::test
