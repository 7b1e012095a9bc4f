#include "tests/dialogs/reminders/AlertHarness.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"

namespace
{

using namespace ts::test;

class AlertLayoutTest : public AlertTest
{
  protected:
    struct Places
    {
        CRect list, subject, due, open, end, cancel, snooze;

        bool operator==(const Places&) const = default;
    };

    [[nodiscard]] Places All() const
    {
        return {ItemPlace(IDC_REMINDERS),     ItemPlace(IDC_REMINDER_SUBJECT), ItemPlace(IDC_REMINDER_DUE),
                ItemPlace(IDC_OPEN_REMINDER), ItemPlace(IDC_END_REMINDER),     ItemPlace(IDCANCEL),
                ItemPlace(IDC_SNOOZE_FIRST)};
    }
    static CRect Grown(CRect rect, int width, int height)
    {
        return {rect.left, rect.top, rect.right + width, rect.bottom + height};
    }
    static CRect Moved(CRect rect, int x, int y)
    {
        rect.OffsetRect(x, y);
        return rect;
    }
};

TEST_F(AlertLayoutTest, LargerWindow_GivesItsRoomToListAndSubject)
{
    AddThree();
    Open();
    const Places before = All();
    const int subjectColumn = List().GetColumnWidth(1);
    const CSize size = SizeOf(Dialog());
    Resize(Dialog(), size.cx + 150, size.cy + 70);
    EXPECT_EQ(Grown(before.list, 150, 70), All().list);
    EXPECT_EQ(Grown(before.subject, 150, 0), All().subject);
    EXPECT_EQ(Grown(before.due, 150, 0), All().due);
    EXPECT_EQ(Moved(before.open, 0, 70), All().open);
    EXPECT_EQ(Moved(before.end, 0, 70), All().end);
    EXPECT_EQ(Moved(before.cancel, 150, 70), All().cancel);
    EXPECT_EQ(Moved(before.snooze, 150, 70), All().snooze);
    EXPECT_EQ(subjectColumn + 150, List().GetColumnWidth(1));
    EXPECT_EQ(18, List().GetColumnWidth(0));
    Resize(Dialog(), size.cx, size.cy);
    EXPECT_EQ(before, All());
    EXPECT_EQ(subjectColumn, List().GetColumnWidth(1));
}

TEST_F(AlertLayoutTest, SubjectBesideTheImage_StaysThereWhenTheSizeChanges)
{
    AddThree();
    Open();
    PressKey(VK_DOWN);
    const CSize size = SizeOf(Dialog());
    Resize(Dialog(), size.cx + 30, size.cy);
    EXPECT_EQ(ItemPlace(IDC_REMINDER_RECURRENCE).right, ItemPlace(IDC_REMINDER_SUBJECT).left);
    EXPECT_EQ(ItemPlace(IDC_REMINDER_DUE).right, ItemPlace(IDC_REMINDER_SUBJECT).right);
    PressKey(VK_UP);
    EXPECT_EQ(ItemPlace(IDC_REMINDER_DUE).left, ItemPlace(IDC_REMINDER_SUBJECT).left);
}

TEST_F(AlertLayoutTest, Window_IsNeverSmallerThanAtFirst)
{
    Open();
    const CSize size = SizeOf(Dialog());
    Resize(Dialog(), size.cx / 2, size.cy / 2);
    EXPECT_EQ(size, SizeOf(Dialog()));
}

TEST_F(AlertLayoutTest, MinimisedAndRestored_KeepsItsPlaces)
{
    AddThree();
    Open();
    const CSize size = SizeOf(Dialog());
    Resize(Dialog(), size.cx + 40, size.cy + 20);
    const Places before = All();
    SystemCommand(SC_MINIMIZE);
    SystemCommand(SC_RESTORE);
    EXPECT_EQ(before, All());
}

TEST_F(AlertLayoutTest, OpenedAgain_StartsFromItsFirstSize)
{
    AddThree();
    Open();
    const Places before = All();
    const CSize size = SizeOf(Dialog());
    Resize(Dialog(), size.cx + 40, size.cy + 20);
    Command(IDOK);
    ASSERT_NE(FALSE, m_dialog->Create(IDD_REMINDER_ALERT, nullptr));
    EXPECT_EQ(size, SizeOf(Dialog()));
    EXPECT_EQ(before, All());
}

TEST_F(AlertLayoutTest, Window_LiesInsideTheWorkArea)
{
    Open();
    CRect window;
    GetWindowRect(Dialog(), &window);
    CRect work;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_GE(window.left, work.left);
    EXPECT_GE(window.top, work.top);
    EXPECT_LE(window.right, work.right);
    EXPECT_LE(window.bottom, work.bottom);
}

TEST_F(AlertLayoutTest, ManyRounds_LeaveNothingBehind)
{
    AddThree();
    Load();
    const auto round = [this]
    {
        CcvMfcReminderAlertDialog alert(m_manager.get(), nullptr);
        ASSERT_NE(FALSE, alert.Create(IDD_REMINDER_ALERT, nullptr));
        UpdateWindow(alert.GetSafeHwnd());
        alert.SynchronizeReminders();
    };
    ExpectRoundsLeaveNothing(Rounds(20), round);
}

} // namespace
