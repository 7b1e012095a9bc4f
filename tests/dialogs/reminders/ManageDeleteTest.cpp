#include "tests/dialogs/reminders/ManageHarness.h"

namespace
{

using namespace ts::test;

class ManageDeleteTest : public ManageTest
{
  protected:
    /// Answers the question whether to delete one occurrence or the series, after `before`.
    std::unique_ptr<WhenShown> Answer(bool series, int button, std::function<void()> before = {})
    {
        return std::make_unique<WhenShown>(
            L"#32770",
            [=](HWND question)
            {
                if (before)
                {
                    before();
                }
                constexpr int kFirst = 1054;
                const HWND instance = GetDlgItem(question, kFirst);
                SendMessageW(series ? GetNextDlgGroupItem(question, instance, FALSE) : instance, BM_CLICK, 0,
                             0);
                SendMessageW(question, WM_COMMAND, static_cast<WPARAM>(button), 0);
            });
    }
};

TEST_F(ManageDeleteTest, DeleteOfAOneTimeReminder_AsksNothing)
{
    BeHost();
    AddThree();
    Open();
    PressButton(IDC_DELETE_REMINDER);
    EXPECT_FALSE(m_store.Load(m_once));
    EXPECT_EQ((Texts{L"daily", L"later"}), Subjects());
    EXPECT_EQ(1, m_messages);
    EXPECT_TRUE(IsEnabled(IDC_DELETE_REMINDER));
}

TEST_F(ManageDeleteTest, DeleteWithoutAHost_LeavesTheRowUntilTheNextRefresh)
{
    AddThree();
    Open();
    PressButton(IDC_DELETE_REMINDER);
    EXPECT_FALSE(m_store.Load(m_once));
    EXPECT_EQ(3, List().GetItemCount());
    Synchronize();
    EXPECT_EQ(2, List().GetItemCount());
}

TEST_F(ManageDeleteTest, DeleteOfARecurringReminder_FollowsTheAnswer)
{
    struct Case
    {
        bool series;
        int button;
        std::optional<CTime> nextDue;
    };
    const CTime due = Noon() + CTimeSpan(60);
    for (const Case& each : {Case{false, IDOK, due + kDay}, Case{true, IDOK, std::nullopt},
                             Case{false, IDCANCEL, due}, Case{true, IDCANCEL, due}})
    {
        m_daily = AddRecurring(L"daily", due);
        Open();
        const auto answer = Answer(each.series, each.button);
        PressButton(IDC_DELETE_REMINDER);
        EXPECT_TRUE(answer->Happened());
        const auto stored = m_store.Load(m_daily);
        EXPECT_EQ(each.nextDue, stored ? std::optional(stored->GetNextDueDate()) : std::nullopt);
        if (stored)
        {
            m_store.Remove(m_daily);
        }
    }
}

TEST_F(ManageDeleteTest, ReloadWhileTheQuestionIsOpen_StillDeletesTheOneThatWasChosen)
{
    BeHost();
    const int first = m_store.Add(L"first", Noon() - CTimeSpan(2 * kSecondsPerHour));
    AddThree();
    const int other = AddRecurring(L"other", Noon() + CTimeSpan(120));
    Open();
    List().SelectRow(2);
    ASSERT_EQ(L"daily", ItemText(IDC_REMINDER_SUBJECT));
    const auto answer = Answer(true, IDOK,
                               [this, first]
                               {
                                   m_store.Remove(first);
                                   Synchronize();
                                   List().SelectRow(0);
                               });
    PressButton(IDC_DELETE_REMINDER);
    EXPECT_FALSE(m_store.Load(m_daily));
    EXPECT_TRUE(m_store.Load(m_once));
    EXPECT_TRUE(m_store.Load(other));
}

TEST_F(ManageDeleteTest, OccurrenceSettledElsewhereWhileTheQuestionIsOpen_LeavesTheNextOne)
{
    AddThree();
    Open();
    PressKey(VK_DOWN);
    const auto answer = Answer(false, IDOK,
                               [this]
                               {
                                   CcvReminderDataCollectionManager elsewhere(false);
                                   elsewhere.DismissReminder(elsewhere.GetReminderByIndex(m_daily));
                                   Synchronize();
                               });
    PressButton(IDC_DELETE_REMINDER);
    EXPECT_EQ(Noon() + CTimeSpan(60) + kDay, NextDue(m_daily)) << "once, not twice";
}

TEST_F(ManageDeleteTest, ReminderThatVanishesWhileTheQuestionIsOpen_StaysAway)
{
    AddThree();
    Open();
    PressKey(VK_DOWN);
    for (const bool series : {true, false})
    {
        const auto answer = Answer(series, IDOK,
                                   [this]
                                   {
                                       if (m_store.Load(m_daily))
                                       {
                                           m_store.Remove(m_daily);
                                       }
                                       m_manager->UpdateReminderCollection();
                                   });
        PressButton(IDC_DELETE_REMINDER);
        EXPECT_FALSE(m_store.Load(m_daily));
    }
    EXPECT_TRUE(m_store.Load(m_once));
    EXPECT_TRUE(m_store.Load(m_later));
}

TEST_F(ManageDeleteTest, HostThatDestroysTheDialogInsideADelete_IsSurvived)
{
    BeHost();
    AddThree();
    m_host->onSynchronize = [this]
    {
        m_dialog.reset();
        m_manager->UpdateReminderCollection();
    };
    Open();
    PressButton(IDC_DELETE_REMINDER);
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(m_store.Load(m_once));
    EXPECT_TRUE(m_store.Load(m_daily));
}

TEST_F(ManageDeleteTest, DamagedReminder_CanBeDeleted)
{
    BeHost();
    CcvReminderData damaged = Damaged(Noon());
    damaged.SetSubject(L"damaged");
    const int number = m_store.Add(damaged);
    m_store.Add(L"other", Noon());
    Open();
    List().SelectRow(Subjects().front() == L"damaged" ? 0 : 1);
    EXPECT_EQ(L"damaged", ItemText(IDC_REMINDER_SUBJECT));
    EXPECT_EQ(L"", ItemText(IDC_REMINDER_DUE));
    const auto answer = Answer(true, IDOK);
    PressButton(IDC_DELETE_REMINDER);
    EXPECT_FALSE(m_store.Load(number));
    EXPECT_EQ((Texts{L"other"}), Subjects());
}

} // namespace
