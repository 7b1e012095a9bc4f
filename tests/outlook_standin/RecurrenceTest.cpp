#include "tests/outlook_standin/AutomationBase.h"
#include "tests/outlook_standin/Client.h"
#include "tests/outlook_standin/Standin.h"

#include <gtest/gtest.h>

namespace
{

using namespace ts::standin;
using namespace ts::standin::test;

constexpr wchar_t kGuid[] = L"{11111111-2222-3333-4444-555555555555}";

/// An appointment on Thursday, 26 November 2026, 10:00 to 10:30.
class StandinRecurrence : public testing::Test
{
  protected:
    void SetUp() override
    {
        ASSERT_TRUE(Put(m_item, L"Start", Date(2026, 11, 26, 10)).Succeeded());
        ASSERT_TRUE(Put(m_item, L"End", Date(2026, 11, 26, 10, 30)).Succeeded());
        ASSERT_TRUE(CallMethod(m_item, L"Save").Succeeded());
    }
    Dispatch TakePattern() { return CallMethod(m_item, L"GetRecurrencePattern").AsObject(); }
    static long NumberOf(const Dispatch& pattern, const wchar_t* property)
    {
        return LongOf(Get(pattern, property).value);
    }
    static bool HasOccurrence(const Dispatch& pattern, const _variant_t& start)
    {
        return CallMethod(pattern, L"GetOccurrence", {start}).Succeeded();
    }

    InProcessOutlook m_outlook;
    Dispatch m_application = ActivateApplication();
    Dispatch m_item = SaveAppointment(m_application, L"Tea", kGuid);
};

TEST_F(StandinRecurrence, NewPattern_IsWeeklyOnTheDayOfTheStart)
{
    EXPECT_FALSE(BoolOf(Get(m_item, L"IsRecurring").value));
    const Dispatch pattern = TakePattern();
    EXPECT_TRUE(BoolOf(Get(m_item, L"IsRecurring").value));
    EXPECT_EQ(NumberOf(pattern, L"RecurrenceType"), 1);
    EXPECT_EQ(NumberOf(pattern, L"Interval"), 1);
    EXPECT_EQ(NumberOf(pattern, L"DayOfWeekMask"), 16);
    EXPECT_EQ(Get(pattern, L"StartTime").value, Date(1899, 12, 30, 10));
    EXPECT_EQ(Get(pattern, L"PatternStartDate").value, Date(2026, 11, 26));
}

TEST_F(StandinRecurrence, Pattern_IsStoredBySaveOnly)
{
    TakePattern();
    EXPECT_FALSE(m_outlook.FindItem(kGuid)->recurrence);
    ASSERT_TRUE(CallMethod(m_item, L"Save").Succeeded());
    EXPECT_TRUE(m_outlook.FindItem(kGuid)->recurrence);
    ASSERT_TRUE(CallMethod(m_item, L"ClearRecurrencePattern").Succeeded());
    ASSERT_TRUE(CallMethod(m_item, L"Save").Succeeded());
    EXPECT_FALSE(m_outlook.FindItem(kGuid)->recurrence);
}

struct TypeRow
{
    long type;
    long dayOfWeekMask;
    long dayOfMonth;
    long monthOfYear;
    long instance;
};

TEST_F(StandinRecurrence, RecurrenceType_Changed_SetsWhatFollowsFromTheStart)
{
    constexpr TypeRow kRows[] = {{0, 0, 0, 0, 0},   {2, 0, 26, 0, 0},  {3, 16, 0, 0, 4},
                                 {5, 0, 26, 11, 0}, {6, 16, 0, 11, 4}, {1, 16, 0, 0, 0}};
    const Dispatch pattern = TakePattern();
    for (const TypeRow& row : kRows)
    {
        SCOPED_TRACE(row.type);
        ASSERT_TRUE(Put(pattern, L"RecurrenceType", Number(row.type)).Succeeded());
        EXPECT_EQ(NumberOf(pattern, L"DayOfWeekMask"), row.dayOfWeekMask);
        EXPECT_EQ(NumberOf(pattern, L"DayOfMonth"), row.dayOfMonth);
        EXPECT_EQ(NumberOf(pattern, L"MonthOfYear"), row.monthOfYear);
        EXPECT_EQ(NumberOf(pattern, L"Instance"), row.instance);
    }
    EXPECT_EQ(Put(pattern, L"RecurrenceType", Number(4)).scode, E_INVALIDARG);
    EXPECT_EQ(Put(pattern, L"DayOfMonth", Number(1)).scode, E_INVALIDARG);
    EXPECT_EQ(Put(pattern, L"Interval", Number(0)).scode, E_INVALIDARG);
}

TEST_F(StandinRecurrence, StartTime_Put_LosesItsDateAndKeepsTheLength)
{
    const Dispatch pattern = TakePattern();
    ASSERT_TRUE(Put(pattern, L"StartTime", Date(2026, 5, 5, 12)).Succeeded());
    EXPECT_EQ(Get(pattern, L"StartTime").value, Date(1899, 12, 30, 12));
    EXPECT_EQ(Get(pattern, L"EndTime").value, Date(1899, 12, 30, 12, 30));
    EXPECT_EQ(Get(m_item, L"Start").value, Date(2026, 11, 26, 12));
}

struct OccurrenceRow
{
    const char* title;
    long type;
    std::vector<std::pair<const wchar_t*, long>> properties;
    _variant_t occurrence;
    _variant_t none;
};

TEST_F(StandinRecurrence, GetOccurrence_OfEachType_FollowsTheRule)
{
    const std::vector<OccurrenceRow> rows{
        {"every third day", 0, {{L"Interval", 3}}, Date(2026, 11, 29, 10), Date(2026, 11, 28, 10)},
        {"every second week on Tuesday and Thursday",
         1,
         {{L"Interval", 2}, {L"DayOfWeekMask", 20}},
         Date(2026, 12, 8, 10),
         Date(2026, 12, 1, 10)},
        {"the 31st or the last day",
         2,
         {{L"Interval", 1}, {L"DayOfMonth", 31}},
         Date(2027, 2, 28, 10),
         Date(2027, 1, 30, 10)},
        {"the last weekday of each second month",
         3,
         {{L"Interval", 2}, {L"Instance", 5}, {L"DayOfWeekMask", 62}},
         Date(2027, 1, 29, 10),
         Date(2026, 12, 31, 10)},
        {"1 March", 5, {{L"DayOfMonth", 1}, {L"MonthOfYear", 3}}, Date(2027, 3, 1, 10), Date(2027, 4, 1, 10)},
        {"second Monday of May",
         6,
         {{L"Instance", 2}, {L"DayOfWeekMask", 2}, {L"MonthOfYear", 5}},
         Date(2027, 5, 10, 10),
         Date(2027, 5, 3, 10)},
        {"another time of day", 0, {}, Date(2026, 11, 27, 10), Date(2026, 11, 27, 11)},
        {"before the start", 0, {}, Date(2026, 11, 26, 10), Date(2026, 11, 25, 10)}};
    for (const OccurrenceRow& row : rows)
    {
        SCOPED_TRACE(row.title);
        ASSERT_TRUE(CallMethod(m_item, L"ClearRecurrencePattern").Succeeded());
        const Dispatch pattern = TakePattern();
        ASSERT_TRUE(Put(pattern, L"RecurrenceType", Number(row.type)).Succeeded());
        for (const auto& [property, value] : row.properties)
        {
            ASSERT_TRUE(Put(pattern, property, Number(value)).Succeeded());
        }
        EXPECT_TRUE(HasOccurrence(pattern, row.occurrence));
        EXPECT_FALSE(HasOccurrence(pattern, row.none));
    }
}

TEST_F(StandinRecurrence, DeletedOccurrence_IsGoneAlsoAfterALaterSave)
{
    const Dispatch pattern = TakePattern();
    ASSERT_TRUE(CallMethod(m_item, L"Save").Succeeded());
    const Dispatch occurrence = CallMethod(pattern, L"GetOccurrence", {Date(2026, 12, 3, 10)}).AsObject();
    ASSERT_TRUE(CallMethod(occurrence, L"Delete").Succeeded());
    EXPECT_FALSE(HasOccurrence(pattern, Date(2026, 12, 3, 10)));
    EXPECT_TRUE(HasOccurrence(pattern, Date(2026, 12, 10, 10)));
    ASSERT_TRUE(Put(m_item, L"Subject", Text(L"More tea")).Succeeded());
    ASSERT_TRUE(CallMethod(m_item, L"Save").Succeeded());
    EXPECT_EQ(m_outlook.FindItem(kGuid)->recurrence->deletedOccurrences.size(), 1U);
    EXPECT_EQ(CallMethod(occurrence, L"Delete").scode, kNotFound);
}

} // namespace
