// Which of the list's changes are for Outlook too.

#include "resources/RecurrenceControls.h"
#include "tests/dialogs/ListHarness.h"
#include "tests/dialogs/OutlookOption.h"

namespace
{

using namespace ts::test;

class ListOutlookTest : public ListTest
{
  protected:
    ListOutlookTest() { m_mirrors = true; }
    ~ListOutlookTest() override { DeleteKeyTree(ts::kSettingsPath); }

    /// A kind where the user wants Outlook to know.
    static std::optional<ts::OutlookCommandKind> If(bool mirrors, ts::OutlookCommandKind kind)
    {
        return mirrors ? std::optional(kind) : std::nullopt;
    }
    /// The key of the reminder in the first row.
    CString FirstKey() { return List().GetReminder(0)->GetReminderKey(); }
};

} // namespace

TEST_F(ListOutlookTest, DeleteOfAReminder_GoesToOutlookAsTheUserWants)
{
    for (const bool mirrors : {true, false})
    {
        SetOutlookOption(mirrors);
        const int once = m_store.Add(L"once", Noon());
        Show();
        HeldWorker held(*m_manager);
        const CString key = FirstKey();
        List().DeleteReminder(0);
        EXPECT_FALSE(m_store.Load(once).has_value());
        ExpectCommand(held, If(mirrors, ts::OutlookCommandKind::Remove), key);
    }
}

TEST_F(ListOutlookTest, DeleteOfASeries_GoesToOutlookAsTheUserWants)
{
    for (const bool mirrors : {true, false})
    {
        SetOutlookOption(mirrors);
        CcvReminderData daily = EveryNDays(1);
        daily.SetNextDueDate(Noon());
        const int number = m_store.Add(daily);
        Show();
        HeldWorker held(*m_manager);
        const CString key = FirstKey();
        const WhenShown answer(L"#32770",
                               [](HWND question)
                               {
                                   ::SendMessageW(::GetDlgItem(question, IDC_DELETE_SERIES), BM_CLICK, 0, 0);
                                   ::SendMessageW(question, WM_COMMAND, IDOK, 0);
                               });
        List().DeleteReminder(0);
        EXPECT_FALSE(m_store.Load(number).has_value());
        ExpectCommand(held, If(mirrors, ts::OutlookCommandKind::Remove), key);
    }
}

TEST_F(ListOutlookTest, ModifiedReminder_GoesToOutlookAsTheUserWants)
{
    const int once = m_store.Add(L"once", Noon());
    for (const bool mirrors : {true, false})
    {
        SetOutlookOption(mirrors);
        Show();
        HeldWorker held(*m_manager);
        CcvReminderData edited = *List().GetReminder(0);
        edited.SetSubject(mirrors ? L"for both" : L"for the store");
        List().ModifyReminder(0, edited);
        EXPECT_EQ(edited.GetSubject(), m_store.Load(once)->GetSubject());
        ExpectCommand(held, If(mirrors, ts::OutlookCommandKind::Modify), FirstKey());
    }
}
