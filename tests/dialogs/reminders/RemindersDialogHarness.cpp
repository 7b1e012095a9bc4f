#include "tests/dialogs/reminders/RemindersDialogHarness.h"

#include "module/InterfaceLanguage.h"
#include "module/LanguageText.h"
#include "platform/ts/CcvDateUtilities.h"
#include "resources/StringIds.h"

ts::test::RemindersDialogTest::RemindersDialogTest()
{
    SetInterfaceLanguage(L"en");
    RawKey(kSettingsPath).Write(L"PlayTicklerSound", RawDword(0));
}

ts::test::RemindersDialogTest::~RemindersDialogTest()
{
    SetInterfaceLanguage(nullptr);
    DeleteKeyTree(kSettingsPath);
}

CRect ts::test::RemindersDialogTest::ItemPlace(int id) const
{
    CRect place;
    GetWindowRect(Item(id), &place);
    CWnd::FromHandle(Dialog())->ScreenToClient(&place);
    return place;
}

CcvMfcRemindersListControl& ts::test::RemindersDialogTest::List() const
{
    return dynamic_cast<CcvMfcRemindersListControl&>(*CWnd::FromHandlePermanent(Item(IDC_REMINDERS)));
}

ts::test::Texts ts::test::RemindersDialogTest::Subjects() const
{
    Texts texts;
    for (int row = 0; row < List().GetItemCount(); ++row)
    {
        texts.emplace_back(List().GetItemText(row, 1).GetString());
    }
    return texts;
}

int ts::test::RemindersDialogTest::AddRecurring(const wchar_t* subject, CTime due, int days)
{
    CcvReminderData reminder = EveryNDays(days);
    reminder.SetSubject(subject);
    reminder.SetDocumentTitle(L"Map");
    reminder.SetInitialDueDate(due);
    reminder.SetNextDueDate(due);
    return m_store.Add(reminder);
}

int ts::test::RemindersDialogTest::AddDamagedAndSnoozed()
{
    CcvReminderData damaged = Damaged(Noon());
    damaged.SetSubject(L"damaged");
    damaged.SetSnoozeTime(CTimeSpan(0));
    return m_store.Add(damaged);
}

std::wstring ts::test::DueText(CTime due)
{
    const CString text = LoadText(IDS_DUE_DATE_PREFIX) + CcvDateUtilities::LongDateString(due) + L" " +
                         CcvDateUtilities::ShortTimeString(due);
    return text.GetString();
}
