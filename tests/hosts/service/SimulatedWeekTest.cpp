#include "tests/hosts/service/ServiceTest.h"

#include "reminders/CcvReminderDataUtilities.h"

#include <sstream>

namespace
{

using namespace ts::test;

/// What the user does with an alert that shows that subject.
enum class Answer
{
    Dismiss,
    SnoozeHour,
    End
};

struct Expected
{
    int day; ///< of November 2026; the 23rd is a Monday
    int hour;
    int minute;
    const wchar_t* subject;
    Answer answer;
};

using enum Answer;

constexpr Expected kWeek[] = {
    {23, 9, 0, L"daily", Dismiss}, {24, 9, 0, L"daily", Dismiss},     {24, 14, 30, L"weekly", End},
    {25, 9, 0, L"daily", Dismiss}, {25, 10, 45, L"once", SnoozeHour}, {25, 11, 45, L"once", Dismiss},
    {26, 9, 0, L"daily", End},     {26, 14, 30, L"weekly", Dismiss},  {27, 9, 0, L"daily", Dismiss},
    {27, 16, 0, L"report", End},   {28, 9, 0, L"daily", Dismiss},     {29, 9, 0, L"daily", Dismiss},
};

CTime On(int day, int hour, int minute = 0)
{
    return {2026, 11, day, hour, minute, 0};
}

class SimulatedWeekTest : public ServiceTest
{
  protected:
    void Give(Answer answer)
    {
        switch (answer)
        {
        case Dismiss:
            Press(VK_ESCAPE);
            break;
        case SnoozeHour:
            Command(40007);
            break;
        case End:
            PressButton(IDC_END_REMINDER);
            break;
        }
        Work();
    }
    int AddWeekly(const wchar_t* subject, CTime due, std::int64_t leadSeconds)
    {
        constexpr long kTuesdayAndThursday = 1 << 2 | 1 << 4;
        CcvReminderData reminder = Weekly(1, kTuesdayAndThursday);
        reminder.SetSubject(subject);
        reminder.SetInitialDueDate(due);
        reminder.SetNextDueDate(due);
        reminder.SetReminderTimeSpan(CTimeSpan(leadSeconds));
        return m_store.Add(reminder);
    }
    int AddOnce(const wchar_t* subject, CTime due, std::int64_t leadSeconds)
    {
        CcvReminderData reminder = DueAt(due);
        reminder.SetSubject(subject);
        reminder.SetReminderTimeSpan(CTimeSpan(leadSeconds));
        return m_store.Add(reminder);
    }
};

TEST_F(SimulatedWeekTest, TwelveAlerts_ComeInTimeAndLeaveTheStoreRight)
{
    m_clock.Set(On(23, 8));
    const int daily = AddRecurring(L"daily", On(23, 9));
    const int weekly = AddWeekly(L"weekly", On(24, 15), 30 * 60);
    const int once = AddOnce(L"once", On(25, 11), 15 * 60);
    const int report = AddOnce(L"report", On(27, 16), 0);
    Start();
    for (const Expected& alert : kWeek)
    {
        std::ostringstream title;
        title << "on the " << alert.day << "th at " << alert.hour << ":" << alert.minute;
        SCOPED_TRACE(title.str());
        ASSERT_FALSE(IsOpen());
        ASSERT_EQ(On(alert.day, alert.hour, alert.minute), m_service->GetWakeTime());
        WakeNext();
        ASSERT_TRUE(IsOpen());
        SelectSubject(alert.subject);
        Give(alert.answer);
        // What the user had dismissed may still be listed.
        if (IsOpen())
        {
            Press(VK_ESCAPE);
        }
    }
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(On(30, 9), m_service->GetWakeTime());
    EXPECT_EQ(On(30, 9), NextDue(daily));
    EXPECT_EQ(CTime(2026, 12, 1, 15, 0, 0), NextDue(weekly));
    EXPECT_FALSE(m_store.Load(daily)->IsDimissed());
    EXPECT_TRUE(m_store.Load(once)->IsDimissed());
    EXPECT_FALSE(m_store.Load(once)->IsSnoozed());
    EXPECT_FALSE(m_store.Load(report));
}

TEST_F(SimulatedWeekTest, ServiceThatIsKilledBetweenAlerts_MissesNone)
{
    m_clock.Set(On(23, 8));
    const int daily = AddRecurring(L"daily", On(23, 9));
    AddOnce(L"once", On(25, 11), 15 * 60);
    Start();
    for (int day = 23; day < 30; ++day)
    {
        // Half of the days the computer is off at nine.
        m_service.reset();
        m_clock.Set(On(day, day % 2 == 0 ? 8 : 12));
        Start();
        if (!IsOpen())
        {
            ASSERT_EQ(On(day, 9), m_service->GetWakeTime());
            WakeNext();
        }
        ASSERT_TRUE(IsOpen());
        SelectSubject(L"daily");
        Press(VK_ESCAPE);
        EXPECT_EQ(On(day, 9) + CTimeSpan(kSecondsPerDay), NextDue(daily)) << day;
    }
}

} // namespace
