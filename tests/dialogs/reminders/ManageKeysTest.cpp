// The manage dialog, used by keys alone.

#include "module/InterfaceLanguage.h"
#include "tests/dialogs/reminders/KeyRounds.h"
#include "tests/dialogs/reminders/ManageHarness.h"

namespace
{

using namespace ts::test;

struct ManageLetters
{
    const wchar_t* language;
    wchar_t list, recent, today, open, edit, remove;
};

constexpr ManageLetters kManageLetters[] = {{L"en", L'n', L'r', L't', L'o', L'd', L'l'},
                                            {L"de", L'r', L'a', L'h', L't', L'b', L'l'},
                                            {L"fr", L'p', L'r', L'j', L'o', L'm', L's'}};

constexpr int kManageStops[] = {IDC_REMINDERS,     IDC_FILTER_RECENT,   IDC_OPEN_REMINDER,
                                IDC_EDIT_REMINDER, IDC_DELETE_REMINDER, IDCANCEL};

class ManageKeysTest : public ManageTest
{
  protected:
    ManageKeysTest() { BeHost(); }

    void OpenOnThree()
    {
        AddThree();
        Open();
    }
    /// A new dialog in each language, with the same reminders.
    void InEachLanguage(const std::function<void(const ManageLetters&)>& act)
    {
        for (const ManageLetters& letters : kManageLetters)
        {
            SCOPED_TRACE(testing::PrintToString(letters.language));
            ts::SetInterfaceLanguage(letters.language);
            OpenOnThree();
            act(letters);
            CloseAndRemove();
        }
    }
    [[nodiscard]] int Filter() const
    {
        const bool isToday = IsDlgButtonChecked(Dialog(), IDC_FILTER_TODAY) == BST_CHECKED;
        EXPECT_EQ(isToday ? 2 : 3, List().GetItemCount());
        EXPECT_NE(isToday, IsDlgButtonChecked(Dialog(), IDC_FILTER_RECENT) == BST_CHECKED);
        return isToday ? IDC_FILTER_TODAY : IDC_FILTER_RECENT;
    }
};

TEST_F(ManageKeysTest, Letters_LeadAndFilterFromEveryStop)
{
    InEachLanguage(
        [this](const ManageLetters& letters)
        {
            for (const int stop : kManageStops)
            {
                SetFocus(Item(stop));
                PressMnemonic(letters.today);
                EXPECT_EQ(IDC_FILTER_TODAY, Filter()) << "from " << stop;
                EXPECT_EQ(IDC_FILTER_TODAY, FocusedItem()) << "from " << stop;
                SetFocus(Item(stop));
                PressMnemonic(letters.recent);
                EXPECT_EQ(IDC_FILTER_RECENT, Filter()) << "from " << stop;
                EXPECT_EQ(IDC_FILTER_RECENT, FocusedItem()) << "from " << stop;
                SetFocus(Item(stop));
                PressMnemonic(letters.list);
                EXPECT_EQ(IDC_REMINDERS, FocusedItem()) << "from " << stop;
            }
        });
}

TEST_F(ManageKeysTest, LettersOfTheButtons_PressThem)
{
    const ApplicationWindow application(ts::kMainWindowClass);
    InEachLanguage(
        [this, &application](const ManageLetters& letters)
        {
            PressMnemonic(letters.open);
            EXPECT_EQ(L"once", SubjectAt(application.Opened().back()));
            SetForegroundWindow(Dialog());
            SetFocus(Item(IDC_REMINDERS));
            {
                const WhenShown edit(L"#32770",
                                     [](HWND)
                                     {
                                         TypeText(L"edited");
                                         PressKey(VK_RETURN);
                                     });
                PressMnemonic(letters.edit);
                EXPECT_TRUE(edit.Happened());
            }
            EXPECT_EQ(CString(L"edited"), m_store.Load(m_once)->GetSubject());
            SetFocus(Item(IDC_REMINDERS));
            PressMnemonic(letters.remove);
            EXPECT_FALSE(m_store.Load(m_once));
        });
}

TEST_F(ManageKeysTest, DeleteOfARecurringReminder_IsAnsweredByKeys)
{
    for (const bool series : {false, true})
    {
        InEachLanguage(
            [this, series](const ManageLetters& letters)
            {
                PressKey(VK_DOWN);
                const WhenShown question(L"#32770",
                                         [series](HWND)
                                         {
                                             if (series)
                                             {
                                                 PressKey(VK_DOWN);
                                             }
                                             PressKey(VK_RETURN);
                                         });
                PressMnemonic(letters.remove);
                EXPECT_TRUE(question.Happened());
                EXPECT_EQ(series, !m_store.Load(m_daily).has_value());
                EXPECT_TRUE(IsOpen());
            });
    }
}

TEST_F(ManageKeysTest, Tab_GoesRoundAndBack)
{
    InEachLanguage(
        [this](const ManageLetters& letters)
        {
            for (const auto& [letter, radio] :
                 {std::pair{letters.recent, IDC_FILTER_RECENT}, std::pair{letters.today, IDC_FILTER_TODAY}})
            {
                PressMnemonic(letter);
                SetFocus(Item(IDC_REMINDERS));
                ExpectRound({radio, IDC_OPEN_REMINDER, IDC_EDIT_REMINDER, IDC_DELETE_REMINDER, IDCANCEL,
                             IDC_REMINDERS});
            }
        });
}

TEST_F(ManageKeysTest, ArrowsInTheFilter_ChooseAtOnce)
{
    InEachLanguage(
        [this](const ManageLetters& letters)
        {
            PressMnemonic(letters.recent);
            int chosen = IDC_FILTER_RECENT;
            for (const UINT key : {VK_DOWN, VK_DOWN, VK_UP, VK_UP, VK_RIGHT, VK_RIGHT, VK_LEFT, VK_LEFT})
            {
                PressKey(key);
                chosen = IDC_FILTER_RECENT + IDC_FILTER_TODAY - chosen;
                EXPECT_EQ(chosen, Filter()) << key;
                EXPECT_EQ(chosen, FocusedItem()) << key;
            }
        });
}

TEST_F(ManageKeysTest, KeysInTheList_MoveTheSelectionAndItsDetails)
{
    OpenOnThree();
    ExpectListKeys(List());
    PressKey(VK_END);
    EXPECT_EQ(L"later", ItemText(IDC_REMINDER_SUBJECT));
    PressKey(VK_HOME);
    EXPECT_EQ(L"once", ItemText(IDC_REMINDER_SUBJECT));
    CloseAndRemove();
}

TEST_F(ManageKeysTest, Escape_ClosesFromEveryStopAndChangesNothing)
{
    for (const int stop : kManageStops)
    {
        OpenOnThree();
        SetFocus(Item(stop));
        PressKey(VK_ESCAPE);
        EXPECT_FALSE(IsOpen()) << stop;
        EXPECT_FALSE(m_store.Load(m_once)->IsDimissed()) << stop;
        CloseAndRemove();
    }
}

TEST_F(ManageKeysTest, Enter_ClosesFromListAndFilterAndElsePressesTheButton)
{
    for (const int stop : {IDC_REMINDERS, IDC_FILTER_RECENT, IDCANCEL})
    {
        OpenOnThree();
        GoRound();
        SetFocus(Item(stop));
        PressKey(VK_RETURN);
        EXPECT_FALSE(IsOpen()) << stop;
        CloseAndRemove();
    }
    for (const UINT key : {VK_RETURN, VK_SPACE})
    {
        OpenOnThree();
        SetFocus(Item(IDC_EDIT_REMINDER));
        PressKey(VK_TAB);
        PressKey(key);
        EXPECT_FALSE(m_store.Load(m_once)) << key;
        EXPECT_TRUE(IsOpen()) << key;
        CloseAndRemove();
    }
}

TEST_F(ManageKeysTest, LastReminderDeletedByKeys_LeavesTheFocusOnTheList)
{
    OpenOnThree();
    for (int step = 0; step < 4; ++step)
    {
        PressKey(VK_TAB);
    }
    EXPECT_EQ(IDC_DELETE_REMINDER, FocusedItem());
    PressKey(VK_SPACE);
    {
        const WhenShown question(L"#32770",
                                 [](HWND)
                                 {
                                     PressKey(VK_DOWN);
                                     PressKey(VK_RETURN);
                                 });
        PressKey(VK_SPACE);
        EXPECT_TRUE(question.Happened());
    }
    EXPECT_EQ((Texts{L"later"}), Subjects());
    EXPECT_EQ(IDC_DELETE_REMINDER, FocusedItem());
    PressKey(VK_SPACE);
    EXPECT_EQ(0, List().GetItemCount());
    EXPECT_EQ(IDC_REMINDERS, FocusedItem());
    ExpectRound({IDC_FILTER_RECENT, IDCANCEL, IDC_REMINDERS});
    PressKey(VK_ESCAPE);
    EXPECT_FALSE(IsOpen());
    CloseAndRemove();
}

} // namespace
