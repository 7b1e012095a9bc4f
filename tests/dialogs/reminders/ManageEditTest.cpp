#include "resources/AddReminderControls.h"
#include "tests/dialogs/reminders/ManageHarness.h"

#include <commctrl.h>

namespace
{

using namespace ts::test;

class ManageEditTest : public ManageTest
{
  protected:
    /// Enters a subject in the edit dialog and ends it.
    static std::unique_ptr<WhenShown> Edit(const wchar_t* subject, int button,
                                           std::function<void(HWND)> before = {})
    {
        return std::make_unique<WhenShown>(L"#32770",
                                           [=](HWND dialog)
                                           {
                                               if (before)
                                               {
                                                   before(dialog);
                                               }
                                               SetDlgItemTextW(dialog, IDC_ADD_SUBJECT, subject);
                                               SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button),
                                                            0);
                                           });
    }
    [[nodiscard]] std::wstring Subject(int number) const
    {
        return m_store.Load(number)->GetSubject().GetString();
    }
};

TEST_F(ManageEditTest, Edit_WritesWhatWasEntered)
{
    BeHost();
    AddThree();
    Open();
    PressKey(VK_DOWN);
    std::wstring caption;
    std::wstring shown;
    const auto edit = Edit(L"every day", IDOK,
                           [&](HWND dialog)
                           {
                               caption = TextOf(dialog);
                               shown = TextOf(GetDlgItem(dialog, IDC_ADD_SUBJECT));
                               EXPECT_FALSE(IsWindowEnabled(Dialog()));
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_TRUE(edit->Happened());
    EXPECT_EQ(L"Edit Reminder", caption);
    EXPECT_EQ(L"daily", shown);
    EXPECT_EQ(L"every day", Subject(m_daily));
    EXPECT_EQ(EcvReminderRecurrenceType::Daily, m_store.Load(m_daily)->GetRecurrenceType());
    EXPECT_EQ(L"once", Subject(m_once));
    EXPECT_EQ(L"every day", ItemText(IDC_REMINDER_SUBJECT));
    EXPECT_TRUE(IsWindowEnabled(Dialog()));
    EXPECT_EQ(1, m_messages);
}

TEST_F(ManageEditTest, EditThatIsCancelled_ChangesNothing)
{
    BeHost();
    AddThree();
    Open();
    const auto edit = Edit(L"something else", IDCANCEL);
    PressMnemonic(L'd');
    EXPECT_TRUE(edit->Happened());
    EXPECT_EQ(L"once", Subject(m_once));
    EXPECT_EQ(0, m_messages);
}

TEST_F(ManageEditTest, ReloadWhileEditing_StillWritesTheOneThatWasChosen)
{
    BeHost();
    const int first = m_store.Add(L"first", Noon() - CTimeSpan(2 * kSecondsPerHour));
    AddThree();
    Open();
    List().SelectRow(1);
    const auto edit = Edit(L"edited", IDOK,
                           [this, first](HWND)
                           {
                               m_store.Remove(first);
                               Synchronize();
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_EQ(L"edited", Subject(m_once));
    EXPECT_EQ(L"later", Subject(m_later));
}

TEST_F(ManageEditTest, ReminderThatVanishesWhileEditing_StaysAway)
{
    BeHost();
    AddThree();
    Open();
    const auto edit = Edit(L"edited", IDOK,
                           [this](HWND)
                           {
                               m_store.Remove(m_once);
                               Synchronize();
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_FALSE(m_store.Load(m_once));
    EXPECT_EQ(L"daily", Subject(m_daily));
}

TEST_F(ManageEditTest, SnoozeWhileEditing_IsKept)
{
    BeHost();
    AddThree();
    Open();
    const auto edit = Edit(L"edited", IDOK,
                           [this](HWND)
                           {
                               CcvReminderDataCollectionManager elsewhere(false);
                               elsewhere.SnoozeReminder(elsewhere.GetReminderByIndex(m_once), CTimeSpan(300));
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_EQ(L"edited", Subject(m_once));
    EXPECT_TRUE(m_store.Load(m_once)->IsSnoozed());
    EXPECT_EQ(Noon() + CTimeSpan(300), m_store.Load(m_once)->GetSnoozeTime());
}

TEST_F(ManageEditTest, DismissedReminderThatGetsAnotherTime_IsHeardAgain)
{
    BeHost();
    AddThree();
    Open();
    m_manager->DismissReminder(m_manager->GetReminderByIndex(m_once));
    {
        const auto edit = Edit(L"other words", IDOK);
        PressButton(IDC_EDIT_REMINDER);
        EXPECT_TRUE(edit->Happened());
    }
    EXPECT_EQ(L"other words", Subject(m_once));
    EXPECT_TRUE(m_store.Load(m_once)->IsDimissed());
    const auto edit = Edit(L"tomorrow", IDOK,
                           [](HWND dialog)
                           {
                               SYSTEMTIME tomorrow{};
                               tomorrow.wYear = 2026;
                               tomorrow.wMonth = 11;
                               tomorrow.wDay = 22;
                               DateTime_SetSystemtime(GetDlgItem(dialog, IDC_ADD_DATE), GDT_VALID, &tomorrow);
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_TRUE(edit->Happened());
    EXPECT_FALSE(m_store.Load(m_once)->IsDimissed());
    EXPECT_EQ(Noon() - CTimeSpan(kSecondsPerHour) + kDay, m_store.Load(m_once)->GetNextDueDate());
}

TEST_F(ManageEditTest, DismissedReminderThatRecursFromNowOn_IsHeardAgain)
{
    AddThree();
    Open();
    m_manager->DismissReminder(m_manager->GetReminderByIndex(m_later));
    List().SelectRow(2);
    ASSERT_EQ(L"later", ItemText(IDC_REMINDER_SUBJECT));
    const auto edit = Edit(L"later", IDOK,
                           [](HWND dialog)
                           {
                               SendMessageW(GetDlgItem(dialog, IDC_ADD_TOGGLE_RECURRENCE), BM_CLICK, 0, 0);
                               SendMessageW(GetDlgItem(dialog, IDC_ADD_DAILY), BM_CLICK, 0, 0);
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_EQ(Noon() + kDay, NextDue(m_later)) << "the same time";
    EXPECT_TRUE(m_store.Load(m_later)->IsRecurrent());
    EXPECT_FALSE(m_store.Load(m_later)->IsDimissed());
}

TEST_F(ManageEditTest, AppointmentThatIsNamedWhileEditing_IsKept)
{
    AddThree();
    Open();
    const auto edit = Edit(L"edited", IDOK,
                           [this](HWND)
                           {
                               CcvReminderDataCollectionManager elsewhere(false);
                               CcvReminderData* const reminder = elsewhere.GetReminderByIndex(m_once);
                               reminder->SetOutlookEntryId(L"entry");
                               reminder->SetOutlookObjectGuid(L"{appointment}");
                               elsewhere.ModifyReminder(reminder, false);
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_EQ(L"edited", Subject(m_once));
    EXPECT_EQ(CString(L"entry"), m_store.Load(m_once)->GetOutlookEntryId());
    EXPECT_EQ(CString(L"{appointment}"), m_store.Load(m_once)->GetOutlookObjectGuid());
}

} // namespace
