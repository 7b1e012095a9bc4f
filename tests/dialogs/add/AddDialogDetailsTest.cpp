// What the dialog does beside its fields: suggestions, seconds, screens, ownership and errors.

#include "dialogs/CcvMfcAddReminderDialogInternal.h"
#include "module/LanguageText.h"
#include "platform/mfc/afxdisp.h"
#include "resources/AddReminderControls.h"
#include "resources/RecurrenceControls.h"
#include "resources/StringIds.h"
#include "tests/dialogs/add/AddDialogHarness.h"
#include "tests/reminders/recurrence/Patterns.h"
#include "tests/support/TextOutput.h"

#include <utility>

namespace ts::test
{
namespace
{

/// Keeps what it is told of its screens.
class WatchedDialog : public CcvMfcAddReminderDialogInternal
{
  public:
    using CcvMfcAddReminderDialogInternal::CcvMfcAddReminderDialogInternal;
    void OnScreenView(const CString& name, EcvFeedbackType type, EcvSendFeedback send) override
    {
        m_screens.emplace_back(name.GetString());
        EXPECT_EQ(0, static_cast<int>(type));
        EXPECT_EQ(2, static_cast<int>(send));
    }
    std::vector<std::wstring> m_screens;
};

class AddDialogDetailsTest : public AddDialogTest
{
};

INSTANTIATE_TEST_SUITE_P(Languages, AddDialogDetailsTest, testing::Values(L"en", L"de", L"fr"),
                         [](const auto& language)
                         { return std::string(language.param, language.param + 2); });

/// What does not depend on the language.
class AddDialogPlainTest : public AddDialogTest
{
};

INSTANTIATE_TEST_SUITE_P(English, AddDialogPlainTest, testing::Values(L"en"));

} // namespace

TEST_P(AddDialogDetailsTest, EachSuggestedSubject_IsOfferedWhenItIsBegun)
{
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [](const ShownDialog& shown)
                                 {
                                     const HWND edit = shown.Item(IDC_ADD_SUBJECT);
                                     for (unsigned id = 125; id <= 130; ++id)
                                     {
                                         const std::wstring text = LoadText(id).GetString();
                                         ShownDialog::TypeOver(edit, text.substr(0, text.size() - 1));
                                         SendMessageW(edit, WM_KEYDOWN, VK_DOWN, 1);
                                         EXPECT_EQ(text, TextOf(edit));
                                     }
                                     shown.Cancel();
                                 }));
}

TEST_P(AddDialogPlainTest, Seconds_AreKept)
{
    CcvReminderData record = SampleOf(RecordOfType(EcvReminderRecurrenceType::None));
    SetDue(record, CTime(2027, 1, 20, 14, 30, 45));
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    ASSERT_EQ(IDOK, RunModal(dialog, [](const ShownDialog& shown) { shown.Ok(); }));
    EXPECT_EQ(CTime(2027, 1, 20, 14, 30, 45), dialog.GetReminderData()->GetNextDueDate());
}

TEST_P(AddDialogPlainTest, Caption_NamesTheScreen)
{
    WatchedDialog watched(nullptr);
    CcvMfcAddReminderDialog dialog;
    const std::unique_ptr<CcvMfcDialogBaseInternal> former(dialog.GetInternalDialog());
    dialog.SetInternalDialog(&watched);
    dialog.SetDialogCaption(L"Edit it");
    EXPECT_TRUE(watched.m_screens.empty()) << "nothing is shown yet";
    RunModal(dialog,
             [&](const ShownDialog& shown)
             {
                 dialog.SetDialogCaption(L"At once");
                 shown.Cancel();
             });
    EXPECT_EQ((std::vector<std::wstring>{L"Edit it", L"At once"}), watched.m_screens);
    dialog.SetInternalDialog(nullptr);
}

TEST_P(AddDialogPlainTest, PaneThatRefusesInAnExchange_LeavesTheFocusOnTheLeadTime)
{
    const CcvReminderData record = SampleOf(EveryNDays(2));
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    EXPECT_EQ(IDCANCEL,
              RunModal(dialog,
                       [](const ShownDialog& shown)
                       {
                           ShownDialog::TypeOver(shown.PaneItem(IDC_DAILY_NUMBER), L"0");
                           {
                               const MessageBoxAnswer box(IDOK);
                               EXPECT_FALSE(CWnd::FromHandlePermanent(shown.Window())->UpdateData(TRUE));
                               EXPECT_TRUE(box.WasShown());
                           }
                           EXPECT_TRUE(ShownDialog::HasFocus(shown.Item(IDC_ADD_LEAD_TIME)));
                           shown.Cancel();
                       }));
}

TEST_P(AddDialogPlainTest, DateBeyondTheCalendar_RaisesAnErrorWhenTheRecordIsAskedFor)
{
    CcvReminderData record = SampleOf(RecordOfType(EcvReminderRecurrenceType::None));
    record.SetInitialDueDate(INT64_MAX);
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    try
    {
        static_cast<void>(dialog.GetReminderData());
        ADD_FAILURE() << "there is no such date";
    }
    catch (const COleException& error)
    {
        EXPECT_EQ(E_FAIL, error.m_sc);
    }
}

TEST_P(AddDialogPlainTest, MovedFacade_SharesTheInternalDialog)
{
    CcvMfcAddReminderDialog first;
    CcvReminderData record = SampleOf(RecordOfType(EcvReminderRecurrenceType::None));
    first.UpdateReminderData(&record);
    CcvMfcAddReminderDialog second(std::move(first));
    EXPECT_NE(nullptr, second.GetInternalDialog());
    EXPECT_EQ(record.GetSubject(), second.GetReminderData()->GetSubject());
    // Only one of the two may keep it.
    first.SetInternalDialog(nullptr);
}

} // namespace ts::test
