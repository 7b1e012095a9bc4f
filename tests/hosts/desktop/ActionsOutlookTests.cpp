// Which of the application's changes are for Outlook too, shown with a stand-in for it.

#include "hosts/desktop/ReminderActions.h"

#include "tests/outlook_standin/Standin.h"
#include "tests/support/WindowDriver.h"

#include <gtest/gtest.h>
#include <memory>

namespace
{

using namespace ts::test;

constexpr int kSubjectControl = 1001;
constexpr DWORD kPatience = 30'000;

class Frame : public CWnd
{
  public:
    Frame()
    {
        EXPECT_NE(FALSE, CreateEx(0, L"STATIC", L"frame", WS_POPUP | WS_CAPTION | WS_VISIBLE,
                                  RECT{0, 0, 300, 200}, nullptr, 0));
    }
};

class ActionsOutlookTest : public testing::Test
{
  protected:
    ActionsOutlookTest()
    {
        RegDeleteTreeW(HKEY_CURRENT_USER, ts::kRemindersPath);
        ts::SetInterfaceLanguage(L"en");
        SetOption(true);
    }
    ~ActionsOutlookTest() override { ts::SetInterfaceLanguage(nullptr); }

    static void SetOption(bool mirrors)
    {
        const DWORD value = mirrors ? 1 : 0;
        ASSERT_EQ(ERROR_SUCCESS,
                  RegSetKeyValueW(HKEY_CURRENT_USER, ts::kSettingsPath, L"SynchronizeOutlookAppoints",
                                  REG_DWORD, &value, sizeof value));
    }
    void Finish()
    {
        EXPECT_TRUE(m_manager->WaitForOutlookCommands(kPatience));
        EXPECT_TRUE(m_manager->UpdateReminderCollection());
    }
    /// A reminder with an appointment of its own.
    CcvReminderData AddMirrored()
    {
        SetOption(true);
        CcvReminderData reminder{CString()};
        reminder.SetDocumentPath(L"C:\\Maps\\Plan.map");
        reminder.SetMapGuid(L"{map}");
        reminder.SetObjectGuid(L"{topic}");
        reminder.SetSubject(L"before");
        const CTime due(2950, 3, 4, 9, 0, 0);
        reminder.SetInitialDueDate(due);
        reminder.SetNextDueDate(due);
        EXPECT_TRUE(m_manager->AddReminder(&reminder, true));
        Finish();
        EXPECT_EQ(1u, m_outlook.CountItems());
        return *m_manager->GetReminderByIndex(0);
    }
    void DeleteAll()
    {
        SetOption(true);
        while (m_manager->GetRemindersCount() > 0)
        {
            CcvReminderData reminder = *m_manager->GetReminderByIndex(0);
            ASSERT_TRUE(m_manager->DeleteReminder(&reminder, true));
            Finish();
        }
    }
    static void Enter(HWND dialog, const wchar_t* subject)
    {
        SetDlgItemTextW(dialog, kSubjectControl, subject);
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    }

    ts::standin::InProcessOutlook m_outlook{ts::standin::Apartment::OwnThread};
    Frame m_frame;
    std::unique_ptr<CcvReminderDataCollectionManager> m_manager =
        std::make_unique<CcvReminderDataCollectionManager>(true);
    ts::desktop::ReminderActions m_actions{*m_manager, m_frame};
};

} // namespace

TEST_F(ActionsOutlookTest, Add_MakesAnAppointmentIfTheUserWantsIt)
{
    for (const bool mirrors : {true, false})
    {
        SetOption(mirrors);
        std::unique_ptr<WhenShown> entry;
        const WhenShown topics(L"#32770",
                               [&](HWND dialog)
                               {
                                   entry = std::make_unique<WhenShown>(L"#32770", [](HWND window)
                                                                       { Enter(window, L"new"); });
                                   PostMessageW(dialog, WM_COMMAND, IDOK, 0);
                               });
        EXPECT_TRUE(m_actions.Add().has_value());
        Finish();
        EXPECT_EQ(1, m_manager->GetRemindersCount());
        EXPECT_EQ(mirrors ? 1u : 0u, m_outlook.CountItems());
        DeleteAll();
    }
}

TEST_F(ActionsOutlookTest, Edit_ChangesTheAppointmentIfTheUserWantsIt)
{
    for (const bool mirrors : {true, false})
    {
        const CcvReminderData reminder = AddMirrored();
        SetOption(mirrors);
        const WhenShown entry(L"#32770", [](HWND window) { Enter(window, L"after"); });
        m_actions.Edit(ts::desktop::ReminderIdentity(reminder));
        Finish();
        EXPECT_STREQ(L"after", m_manager->GetReminderByIndex(0)->GetSubject());
        const auto item = m_outlook.FindItem(reminder.GetOutlookObjectGuid().GetString());
        ASSERT_TRUE(item.has_value());
        EXPECT_EQ(mirrors ? L"after" : L"before", item->subject);
        DeleteAll();
    }
}

TEST_F(ActionsOutlookTest, AppointmentThatIsNamedWhileEditing_IsKept)
{
    const CcvReminderData reminder = AddMirrored();
    const WhenShown entry(L"#32770",
                          [&](HWND window)
                          {
                              CcvReminderDataCollectionManager elsewhere(false);
                              CcvReminderData named = *elsewhere.GetReminderByIndex(0);
                              named.SetOutlookEntryId(L"entry");
                              elsewhere.ModifyReminder(&named, false);
                              SetOption(false);
                              Enter(window, L"after");
                          });
    m_actions.Edit(ts::desktop::ReminderIdentity(reminder));
    Finish();
    EXPECT_STREQ(L"after", m_manager->GetReminderByIndex(0)->GetSubject());
    EXPECT_STREQ(L"entry", m_manager->GetReminderByIndex(0)->GetOutlookEntryId());
}

TEST_F(ActionsOutlookTest, Delete_DeletesTheAppointmentIfTheUserWantsIt)
{
    for (const bool mirrors : {false, true})
    {
        const CcvReminderData reminder = AddMirrored();
        SetOption(mirrors);
        m_actions.Delete(ts::desktop::ReminderIdentity(reminder));
        Finish();
        EXPECT_EQ(0, m_manager->GetRemindersCount());
        EXPECT_EQ(mirrors ? 0u : 1u, m_outlook.CountItems());
        if (!mirrors)
        {
            m_outlook.LoseItem(reminder.GetOutlookObjectGuid().GetString());
        }
    }
}
