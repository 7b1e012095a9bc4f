// The dialogs' lists have no horizontal scroll bar that the user did not ask for.

#include "dialogs/CcvMfcManageRemindersDialog.h"
#include "dialogs/CcvMfcReminderAlertDialog.h"
#include "tests/dialogs/reminders/RemindersDialogHarness.h"

namespace
{

using namespace ts::test;

template <typename Kind>
class RoomTest : public FacadeOfRemindersTest<Kind>
{
  protected:
    void HaveReminders(int count)
    {
        for (; m_count < count; ++m_count)
        {
            m_numbers.push_back(this->m_store.Add(L"reminder", Noon() - CTimeSpan(m_count)));
        }
        for (; m_count > count; --m_count)
        {
            this->m_store.Remove(m_numbers.back());
            m_numbers.pop_back();
        }
    }
    void ExpectBars(bool vertical)
    {
        EXPECT_EQ(vertical, (this->List().GetStyle() & WS_VSCROLL) != 0);
        EXPECT_EQ(0u, this->List().GetStyle() & WS_HSCROLL);
        CRect client;
        this->List().GetClientRect(&client);
        int total = 0;
        for (int column = 0; column < 4; ++column)
        {
            total += this->List().GetColumnWidth(column);
        }
        EXPECT_LE(total, client.Width());
        // Less what was lost where widths were rounded.
        EXPECT_GT(total + 4, client.Width());
    }

  private:
    std::vector<int> m_numbers;
    int m_count = 0;
};

using Kinds = testing::Types<CcvMfcReminderAlertDialog, CcvMfcManageRemindersDialog>;
TYPED_TEST_SUITE(RoomTest, Kinds);

TYPED_TEST(RoomTest, ManyReminders_FitTheWidthWhateverTheSize)
{
    this->HaveReminders(200);
    this->Open();
    this->ExpectBars(true);
    const CSize size = SizeOf(this->Dialog());
    for (const CSize& gain : {CSize(150, 70), CSize(150, 0), CSize(0, 70), CSize(0, 0)})
    {
        Resize(this->Dialog(), size.cx + gain.cx, size.cy + gain.cy);
        this->ExpectBars(true);
    }
    this->SystemCommand(SC_MINIMIZE);
    this->SystemCommand(SC_RESTORE);
    this->ExpectBars(true);
}

TYPED_TEST(RoomTest, RemindersThatComeAndGo_FitTheWidth)
{
    this->HaveReminders(1);
    this->Open();
    this->ExpectBars(false);
    const int subject = this->List().GetColumnWidth(1);
    this->HaveReminders(200);
    this->Synchronize();
    this->ExpectBars(true);
    EXPECT_EQ(subject - GetSystemMetrics(SM_CXVSCROLL), this->List().GetColumnWidth(1));
    this->HaveReminders(1);
    this->Synchronize();
    this->ExpectBars(false);
    EXPECT_EQ(subject, this->List().GetColumnWidth(1));
}

TYPED_TEST(RoomTest, WindowThatGetsHighEnough_GivesTheBarsRoomBack)
{
    this->HaveReminders(12);
    this->Open();
    this->ExpectBars(true);
    const CSize size = SizeOf(this->Dialog());
    Resize(this->Dialog(), size.cx + 50, size.cy + 400);
    this->ExpectBars(false);
    Resize(this->Dialog(), size.cx, size.cy);
    this->ExpectBars(true);
}

TYPED_TEST(RoomTest, WidthThatTheUserSet_StaysHis)
{
    this->HaveReminders(1);
    this->Open();
    this->List().SetColumnWidth(1, 77);
    this->HaveReminders(200);
    this->Synchronize();
    const CSize size = SizeOf(this->Dialog());
    Resize(this->Dialog(), size.cx + 150, size.cy);
    EXPECT_EQ(77, this->List().GetColumnWidth(1));
}

} // namespace
