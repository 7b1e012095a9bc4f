// Every kind of recurrence as the properties of the appointment's pattern.

#include "outlook/OutlookAppointments.h"
#include "tests/outlook/OutlookTest.h"

#include <map>

namespace ts::test
{
namespace
{

using Type = EcvReminderRecurrenceType;
using standin::Recurrence;
using standin::RecurrenceType;

struct Setting
{
    const wchar_t* property;
    long value;
};

struct Row
{
    const char* title;
    Type type;
    Options options;
    std::vector<Setting> settings; ///< in the order in which they are written
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.title;
}

const Row kRows[] = {
    {"EveryThirdDay", Type::Daily, {0, 3}, {{L"RecurrenceType", 0}, {L"Interval", 3}}},
    {"EveryWeekday", Type::Daily, {1, 9}, {{L"RecurrenceType", 1}, {L"DayOfWeekMask", 62}, {L"Interval", 1}}},
    {"MondayWednesdayFridayOfEverySecondWeek",
     Type::Weekly,
     {2, 42},
     {{L"RecurrenceType", 1}, {L"Interval", 2}, {L"DayOfWeekMask", 42}}},
    {"Day31OfEverySixthMonth",
     Type::Monthly,
     {0, 31, 6},
     {{L"RecurrenceType", 2}, {L"Interval", 6}, {L"DayOfMonth", 31}}},
    {"SecondTuesdayOfEveryFourthMonth",
     Type::Monthly,
     {1, 0, 0, 1, 4, 4},
     {{L"RecurrenceType", 3}, {L"Interval", 4}, {L"Instance", 2}, {L"DayOfWeekMask", 4}}},
    {"LastWeekendDayOfEveryMonth",
     Type::Monthly,
     {1, 0, 0, 4, 512, 1},
     {{L"RecurrenceType", 3}, {L"Interval", 1}, {L"Instance", 5}, {L"DayOfWeekMask", 65}}},
    {"FirstDayOfEverySecondMonth",
     Type::Monthly,
     {1, 0, 0, 0, 128, 2},
     {{L"RecurrenceType", 3}, {L"Interval", 2}, {L"Instance", 1}, {L"DayOfWeekMask", 127}}},
    {"ChristmasEve",
     Type::Yearly,
     {0, 24, 12},
     {{L"RecurrenceType", 5}, {L"DayOfMonth", 24}, {L"MonthOfYear", 12}}},
    {"FourthWeekdayOfNovember",
     Type::Yearly,
     {1, 0, 0, 3, 256, 11},
     {{L"RecurrenceType", 6}, {L"Instance", 4}, {L"DayOfWeekMask", 62}, {L"MonthOfYear", 11}}},
    {"ThirdSundayOfMay",
     Type::Yearly,
     {1, 0, 0, 2, 1, 5},
     {{L"RecurrenceType", 6}, {L"Instance", 3}, {L"DayOfWeekMask", 1}, {L"MonthOfYear", 5}}},
};

// What only a damaged store can hold: the pattern keeps what it is, and follows the reminder's time.
const Row kDamagedRows[] = {
    {"UnknownDaily", Type::Daily, {2, 3}, {}},
    {"UnknownMonthly", Type::Monthly, {2, 3, 1, 1, 1, 1}, {}},
    {"UnknownYearly", Type::Yearly, {-1, 3, 1, 1, 1, 1}, {}},
    {"UnknownType", static_cast<Type>(5), {0, 3, 1, 1, 1, 1}, {}},
};

std::wstring PutOf(const Setting& setting)
{
    return std::wstring(L"put RecurrencePattern.") + setting.property + L" " + std::to_wstring(setting.value);
}

using Properties = std::map<std::wstring, long>;

Properties PropertiesOf(const Recurrence& recurrence)
{
    return {{L"RecurrenceType", static_cast<long>(recurrence.type)},
            {L"Interval", recurrence.interval},
            {L"DayOfWeekMask", recurrence.dayOfWeekMask},
            {L"DayOfMonth", recurrence.dayOfMonth},
            {L"MonthOfYear", recurrence.monthOfYear},
            {L"Instance", recurrence.instance}};
}

Recurrence RecurrenceOf(const Properties& properties)
{
    Recurrence recurrence;
    recurrence.type = static_cast<RecurrenceType>(properties.at(L"RecurrenceType"));
    recurrence.interval = properties.at(L"Interval");
    recurrence.dayOfWeekMask = properties.at(L"DayOfWeekMask");
    recurrence.dayOfMonth = properties.at(L"DayOfMonth");
    recurrence.monthOfYear = properties.at(L"MonthOfYear");
    recurrence.instance = properties.at(L"Instance");
    return recurrence;
}

/// A pattern of which nothing fits any row.
const Properties kOther = {{L"RecurrenceType", 2}, {L"Interval", 77},   {L"DayOfWeekMask", 64},
                           {L"DayOfMonth", 7},     {L"MonthOfYear", 7}, {L"Instance", 0}};

/// The writes that lead from `present` to the row.
Texts Writes(const Row& row, const Properties& present)
{
    Texts writes;
    for (const Setting& setting : row.settings)
    {
        if (present.at(setting.property) != setting.value)
        {
            writes.push_back(PutOf(setting));
        }
    }
    return writes;
}

const Texts kTimes = {L"put RecurrencePattern.StartTime 1899-12-30 10:00:00",
                      L"put RecurrencePattern.PatternStartDate 2026-11-26 00:00:00"};
const Texts kTimesOfNew = {kTimes[0], L"put RecurrencePattern.EndTime 1899-12-30 10:00:00", kTimes[1]};

class RecurrencePatternTest : public OutlookTest, public testing::WithParamInterface<Row>
{
  protected:
    /// The writes of a modify of an appointment that had this pattern.
    Texts ModifyFrom(const Properties& present)
    {
        CcvReminderData record = Mirror(DailyRecord());
        ChangeItemOf(record, [&](standin::Item& item) { item.recurrence = RecurrenceOf(present); });
        m_record = RecurringRecord(GetParam().type, GetParam().options);
        m_record.SetOutlookObjectGuid(record.GetOutlookObjectGuid());
        m_record.SetOutlookEntryId(record.GetOutlookEntryId());
        ModifyAppointmentInOutlook(m_record);
        return Only(TakeCalls(m_record), L"put RecurrencePattern.");
    }

    CcvReminderData m_record = OneTimeRecord();
};

class DamagedPatternTest : public RecurrencePatternTest
{
};

} // namespace

TEST_P(RecurrencePatternTest, Add_WritesWhatDiffersFromAWeeklyPattern)
{
    m_record = RecurringRecord(GetParam().type, GetParam().options);
    AddAppointmentToOutlook(m_record);
    const Texts writes = Only(TakeCalls(m_record), L"put RecurrencePattern.");
    Properties fresh = PropertiesOf(Recurrence());
    fresh[L"DayOfWeekMask"] = -1; // that of today
    Texts expected = Join({Writes(GetParam(), fresh), kTimesOfNew});
    if (GetParam().options[4] == 1 || GetParam().options[4] == 4)
    {
        // A single day may be today.
        EXPECT_GE(writes.size() + 1, expected.size());
    }
    else
    {
        EXPECT_EQ("", Difference(expected, writes));
    }
    EXPECT_TRUE(ItemOf(m_record).value().recurrence.has_value());
}

TEST_P(RecurrencePatternTest, Modify_OfAnotherPattern_WritesEverySetting)
{
    Properties other = kOther;
    if (other[L"RecurrenceType"] == GetParam().settings[0].value)
    {
        other[L"RecurrenceType"] = 0;
    }
    EXPECT_EQ("", Difference(Join({Writes(GetParam(), other), kTimes}), ModifyFrom(other)));
    const Properties present = PropertiesOf(ItemOf(m_record).value().recurrence.value());
    for (const Setting& setting : GetParam().settings)
    {
        EXPECT_EQ(setting.value, present.at(setting.property))
            << testing::PrintToString(CString(setting.property));
    }
    const standin::Item item = ItemOf(m_record).value();
    EXPECT_NEAR(DateOf(2026, 11, 26, 10), item.start, 1e-8);
}

TEST_P(RecurrencePatternTest, Modify_OfTheSamePattern_WritesOnlyItsTimes)
{
    Properties same = kOther;
    for (const Setting& setting : GetParam().settings)
    {
        same[setting.property] = setting.value;
    }
    EXPECT_EQ("", Difference(kTimes, ModifyFrom(same)));
}

TEST_P(RecurrencePatternTest, Modify_WithOneDifference_WritesThat)
{
    for (const Setting& differing : GetParam().settings)
    {
        Properties present = kOther;
        for (const Setting& setting : GetParam().settings)
        {
            present[setting.property] = setting.value;
        }
        present[differing.property] = differing.value == 2 ? 3 : 2;
        EXPECT_EQ("", Difference(Join({{PutOf(differing)}, kTimes}), ModifyFrom(present)))
            << testing::PrintToString(CString(differing.property));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, RecurrencePatternTest, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.title; });

TEST_P(DamagedPatternTest, Modify_LeavesThePatternButItsTimes)
{
    EXPECT_EQ("", Difference(kTimes, ModifyFrom(kOther)));
    EXPECT_EQ(kOther, PropertiesOf(ItemOf(m_record).value().recurrence.value()));
}

INSTANTIATE_TEST_SUITE_P(Rows, DamagedPatternTest, testing::ValuesIn(kDamagedRows),
                         [](const auto& row) { return row.param.title; });

// --- Times ---

namespace
{

class PatternTimeTest : public OutlookTest
{
  protected:
    /// A modify of a daily reminder whose pattern starts at `startTime`.
    Texts ModifyWithStartTime(double startTime)
    {
        CcvReminderData record = Mirror(DailyRecord());
        ChangeItemOf(record, [&](standin::Item& item) { item.recurrence.value().startTime = startTime; });
        ModifyAppointmentInOutlook(record);
        return TakeCalls(record);
    }

    /// The times of an add of a daily reminder.
    Texts AddDueAt(const CTime& due)
    {
        CcvReminderData record = DailyRecord();
        record.SetInitialDueDate(due);
        AddAppointmentToOutlook(record);
        Texts writes = Only(TakeCalls(record), L"put RecurrencePattern.");
        writes.erase(writes.begin(), writes.begin() + 2);
        return writes;
    }
};

} // namespace

TEST_F(PatternTimeTest, Modify_OfAPatternThatStartsAtTheFullDate_WritesAndSavesNothing)
{
    const Texts calls = ModifyWithStartTime(DateOf(2026, 11, 26, 10));
    EXPECT_EQ(Texts(), Only(calls, L"put "));
    EXPECT_EQ(Texts(), Only(calls, L"call Appointment.Save"));
    EXPECT_EQ(L"get RecurrencePattern.StartTime", calls.back());
}

TEST_F(PatternTimeTest, Modify_OfAPatternThatStartsASecondLater_WritesItsTimes)
{
    const Texts calls = ModifyWithStartTime(DateOf(2026, 11, 26, 10, 0, 1));
    EXPECT_EQ("", Difference(kTimes, Only(calls, L"put ")));
    EXPECT_EQ(1u, Only(calls, L"call Appointment.Save").size());
}

TEST_F(PatternTimeTest, Add_SplitsTheDueDateIntoDayAndTime)
{
    EXPECT_EQ("", Difference({L"put RecurrencePattern.StartTime 1899-12-30 00:00:00",
                              L"put RecurrencePattern.EndTime 1899-12-30 00:00:00",
                              L"put RecurrencePattern.PatternStartDate 2027-02-28 00:00:00"},
                             AddDueAt(CTime(2027, 2, 28, 0, 0, 0))));
    EXPECT_EQ("", Difference({L"put RecurrencePattern.StartTime 1899-12-30 23:59:59",
                              L"put RecurrencePattern.EndTime 1899-12-30 23:59:59",
                              L"put RecurrencePattern.PatternStartDate 1999-12-31 00:00:00"},
                             AddDueAt(CTime(1999, 12, 31, 23, 59, 59))));
}

TEST_F(PatternTimeTest, Add_WithADueDateOutOfTheCalendar_StopsAfterReadingTheStartTime)
{
    CcvReminderData record = DailyRecord();
    record.SetInitialDueDate(CTime(INT64_MAX));
    AddAppointmentToOutlook(record);
    const Texts calls = TakeCalls(record);
    EXPECT_EQ(L"get RecurrencePattern.StartTime", calls.back());
    EXPECT_TRUE(record.GetOutlookObjectGuid().IsEmpty());
    EXPECT_EQ(0u, CalendarSize());
}

TEST_F(PatternTimeTest, Modify_OfAOneTimeReminderOutOfTheCalendar_StopsAfterReadingTheStart)
{
    CcvReminderData record = Mirror(OneTimeRecord());
    record.SetSubject(L"changed");
    record.SetInitialDueDate(CTime(-1'000'000));
    ModifyAppointmentInOutlook(record);
    EXPECT_EQ(L"get Appointment.Start", TakeCalls(record).back());
    EXPECT_EQ(L"Call back", ItemOf(record).value().subject);
}

} // namespace ts::test
