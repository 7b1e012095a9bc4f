#pragma once

#include "dialogs/CcvMfcManageRemindersDialog.h"
#include "tests/dialogs/reminders/RemindersDialogHarness.h"

namespace ts::test
{

constexpr CTimeSpan kDay = kSecondsPerDay;

class ManageTest : public FacadeOfRemindersTest<CcvMfcManageRemindersDialog>
{
  protected:
    void AddThree()
    {
        m_once = m_store.Add(L"once", Noon() - CTimeSpan(kSecondsPerHour));
        m_daily = AddRecurring(L"daily", Noon() + CTimeSpan(60));
        m_later = m_store.Add(L"later", Noon() + kDay);
    }
};

} // namespace ts::test
