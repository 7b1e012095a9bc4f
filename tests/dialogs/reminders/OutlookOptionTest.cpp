// Which changes of the dialogs are for Outlook too.

#include "tests/dialogs/OutlookOption.h"

#include "resources/AddReminderControls.h"
#include "tests/dialogs/reminders/AlertHarness.h"
#include "tests/dialogs/reminders/ManageHarness.h"

namespace
{

using namespace ts::test;
using ts::OutlookCommandKind;

std::optional<OutlookCommandKind> If(bool mirrors, OutlookCommandKind kind)
{
    return mirrors ? std::optional(kind) : std::nullopt;
}

class ManageOutlookTest : public ManageTest
{
  protected:
    ManageOutlookTest() { m_mirrors = true; }

    CString SelectedKey() const { return List().GetSelectedReminder()->GetReminderKey(); }
};

class AlertOutlookTest : public AlertTest
{
  protected:
    AlertOutlookTest() { m_mirrors = true; }
};

} // namespace

TEST_F(ManageOutlookTest, Delete_GoesToOutlookAsTheUserWants)
{
    for (const bool mirrors : {true, false})
    {
        SetOutlookOption(mirrors);
        const int once = m_store.Add(L"once", Noon());
        Open();
        HeldWorker held(*m_manager);
        const CString key = SelectedKey();
        PressButton(IDC_DELETE_REMINDER);
        EXPECT_FALSE(m_store.Load(once));
        ExpectCommand(held, If(mirrors, OutlookCommandKind::Remove), key);
    }
}

TEST_F(ManageOutlookTest, Edit_GoesToOutlookAsTheUserWants)
{
    const int once = m_store.Add(L"once", Noon());
    for (const bool mirrors : {true, false})
    {
        SetOutlookOption(mirrors);
        Open();
        HeldWorker held(*m_manager);
        const CString key = SelectedKey();
        const wchar_t* const subject = mirrors ? L"for both" : L"for the store";
        const WhenShown edit(L"#32770",
                             [=](HWND dialog)
                             {
                                 SetDlgItemTextW(dialog, IDC_ADD_SUBJECT, subject);
                                 SendMessageW(dialog, WM_COMMAND, IDOK, 0);
                             });
        PressButton(IDC_EDIT_REMINDER);
        EXPECT_STREQ(subject, m_store.Load(once)->GetSubject());
        ExpectCommand(held, If(mirrors, OutlookCommandKind::Modify), key);
    }
}

TEST_F(AlertOutlookTest, End_GoesToOutlookAsTheUserWants)
{
    for (const bool mirrors : {true, false})
    {
        SetOutlookOption(mirrors);
        m_dialog.reset();
        const int once = m_store.Add(L"once", Noon());
        Open();
        HeldWorker held(*m_manager);
        const CString key = List().GetSelectedReminder()->GetReminderKey();
        PressButton(IDC_END_REMINDER);
        EXPECT_FALSE(m_store.Load(once));
        ExpectCommand(held, If(mirrors, OutlookCommandKind::Remove), key);
    }
}
