#include "collection/SynchronizationMessage.h"
#include "module/InterfaceLanguage.h"
#include "resources/RecurrenceControls.h"
#include "tests/dialogs/ListHarness.h"

namespace
{

using namespace ts::test;

/// Answers the question before a recurring reminder is deleted.
class Answer
{
  public:
    Answer(int choice, int button, std::function<void()> meanwhile = {})
        : m_shown(L"#32770",
                  [=](HWND question)
                  {
                      if (meanwhile)
                      {
                          meanwhile();
                      }
                      ::SendMessageW(::GetDlgItem(question, choice), BM_CLICK, 0, 0);
                      ::SendMessageW(::GetDlgItem(question, button), BM_CLICK, 0, 0);
                  })
    {
    }

    [[nodiscard]] bool WasAsked() const { return m_shown.Happened(); }

  private:
    WhenShown m_shown;
};

/// With a host that answers each change at once.
class ListDeletionTest : public ListTest
{
  protected:
    ListDeletionTest()
    {
        m_application.onSynchronize = [this]
        {
            ++m_changes;
            Reload();
            List().Refresh();
        };
    }

    /// Each a second after the one before, so that the rows are in this order.
    int AddDaily()
    {
        CcvReminderData daily = EveryNDays(1);
        daily.SetNextDueDate(NextDue());
        return m_store.Add(daily);
    }
    int AddOnce() { return m_store.Add(L"once", NextDue()); }
    CTime NextDue() { return Noon() + CTimeSpan(++m_added); }

    ApplicationWindow m_application{ts::kMainWindowClass};
    int m_changes = 0;
    int m_added = 0;
};

} // namespace

TEST_F(ListDeletionTest, ReminderThatDoesNotRecur_GoesWithoutAQuestion)
{
    const int once = AddOnce();
    const int other = AddOnce();
    Show();
    const Answer answer(IDC_DELETE_SERIES, IDCANCEL);
    List().DeleteReminder(0);
    EXPECT_FALSE(answer.WasAsked());
    EXPECT_FALSE(m_store.Load(once).has_value());
    EXPECT_TRUE(m_store.Load(other).has_value());
    EXPECT_EQ(1, m_changes);
    EXPECT_EQ(1, Count());
}

TEST_F(ListDeletionTest, Series_GoesWhenItIsChosen)
{
    const int first = AddDaily();
    const int second = AddDaily();
    Show();
    for (const wchar_t* const language : {L"en", L"de", L"fr"})
    {
        ts::SetInterfaceLanguage(language);
        const Answer cancel(IDC_DELETE_SERIES, IDCANCEL);
        List().DeleteReminder(0);
        EXPECT_TRUE(cancel.WasAsked());
        EXPECT_TRUE(m_store.Load(first).has_value());
        EXPECT_EQ(0, m_changes);
    }
    const Answer answer(IDC_DELETE_SERIES, IDOK);
    List().DeleteReminder(0);
    EXPECT_TRUE(answer.WasAsked());
    EXPECT_FALSE(m_store.Load(first).has_value());
    EXPECT_TRUE(m_store.Load(second).has_value());
    EXPECT_EQ(1, m_changes);
}

TEST_F(ListDeletionTest, Instance_MovesTheReminderOn)
{
    const int daily = AddDaily();
    Show();
    const Answer answer(IDC_DELETE_INSTANCE, IDOK);
    List().DeleteReminder(0);
    EXPECT_TRUE(answer.WasAsked());
    ASSERT_TRUE(m_store.Load(daily).has_value());
    EXPECT_EQ(Noon() + CTimeSpan(kSecondsPerDay + 1), m_store.Load(daily)->GetNextDueDate());
    EXPECT_EQ(1, m_changes);
}

TEST_F(ListDeletionTest, QuestionThatIsLeftAlone_StartsWithTheInstance)
{
    const int daily = AddDaily();
    Show();
    const WhenShown enter(L"#32770", [](HWND) { PressKey(VK_RETURN); });
    List().DeleteReminder(0);
    EXPECT_TRUE(m_store.Load(daily).has_value());
    EXPECT_EQ(1, m_changes);
}

TEST_F(ListDeletionTest, CollectionThatIsLoadedDuringTheQuestion_LosesTheRightReminder)
{
    const int before = AddOnce();
    const int daily = AddDaily();
    const int after = AddDaily();
    Show();
    const Answer answer(IDC_DELETE_SERIES, IDOK,
                        [&]
                        {
                            m_store.Remove(before);
                            Reload();
                            List().Refresh();
                        });
    List().DeleteReminder(1);
    EXPECT_FALSE(m_store.Load(daily).has_value());
    EXPECT_TRUE(m_store.Load(after).has_value());
}

TEST_F(ListDeletionTest, ReminderThatVanishesDuringTheQuestion_IsLeftAlone)
{
    const int daily = AddDaily();
    const int other = AddDaily();
    Show();
    const Answer answer(IDC_DELETE_SERIES, IDOK,
                        [&]
                        {
                            m_store.Remove(daily);
                            Reload();
                        });
    List().DeleteReminder(0);
    EXPECT_TRUE(answer.WasAsked());
    EXPECT_TRUE(m_store.Load(other).has_value());
    EXPECT_EQ(0, m_changes);
}

TEST_F(ListDeletionTest, ListThatGoesDuringTheQuestion_DeletesNothing)
{
    const int daily = AddDaily();
    Show();
    const WhenShown shown(L"#32770",
                          [this](HWND question)
                          {
                              List().DestroyWindow();
                              ::SendMessageW(question, WM_COMMAND, IDOK, 0);
                          });
    List().DeleteReminder(0);
    EXPECT_TRUE(shown.Happened());
    EXPECT_TRUE(m_store.Load(daily).has_value());
    EXPECT_EQ(0, m_changes);
}

TEST_F(ListDeletionTest, RowsThatDoNotExist_AreLeftAlone)
{
    AddDaily();
    Show();
    for (const int row : {-1, 1, 1000})
    {
        List().DeleteReminder(row);
    }
    EXPECT_EQ(0, m_changes);
}
