// The six recurrence options under all their names.

#include "tests/reminders/storage/RecordFields.h"

#include <gtest/gtest.h>
#include <limits>

namespace ts::test
{
namespace
{

/// One name of a slot.
struct View
{
    std::size_t slot;
    const char* name;
    std::int32_t (*get)(const CcvReminderData&);
    void (*set)(CcvReminderData&, std::int32_t);
};

#define TS_VIEW(slot, getter, setter, type)                                                                  \
    View                                                                                                     \
    {                                                                                                        \
        slot, #setter,                                                                                       \
            [](const CcvReminderData& record) { return static_cast<std::int32_t>(record.getter()); },        \
            [](CcvReminderData& record, std::int32_t value) { record.setter(static_cast<type>(value)); }     \
    }

const View kViews[] = {
    TS_VIEW(0, GetDailyOccurrenceType, SetDailyOccurenceType, EcvReminderDailyOccurence),
    TS_VIEW(0, GetWeeklyRecurrenceNumber, SetWeeklyRecurrenceNumber, int),
    TS_VIEW(0, GetMonthlyOccurrenceType, SetMonthlyOccurenceType, EcvReminderMonthlyOccurence),
    TS_VIEW(0, GetYearlyOccurenceType, SetYearlyOccurenceType, EcvReminderYearlyOccurence),
    TS_VIEW(1, GetDailyRecurrenceNumber, SetDailyRecurrenceNumber, int),
    TS_VIEW(1, GetWeeklyRecurrenceFlag, SetWeeklyRecurrenceFlag, long),
    TS_VIEW(1, GetMonthlyRecurrentDayOfMonth, SetMonthlyRecurrentDayOfMonth, int),
    TS_VIEW(1, GetYearlyRecurrentDay, SetYearlyRecurrentDay, int),
    TS_VIEW(2, GetMonthlyReminderPattern1Month, SetMonthlyReminderPattern1Month, int),
    TS_VIEW(2, GetYearlyReminderPattern1Month, SetYearlyReminderPattern1Month, EcvMonth),
    TS_VIEW(3, GetMonthlyReminderDayIntegralType, SetMonthlyReminderDayIntegralType,
            EcvReminderDayIntegralType),
    TS_VIEW(3, GetYearlyReminderDayIntegralType, SetYearlyReminderDayIntegralType,
            EcvReminderDayIntegralType),
    TS_VIEW(4, GetMonthlyReminderDayType, SetMonthlyReminderDayType, long),
    TS_VIEW(4, GetYearlyReminderDayType, SetYearlyReminderDayType, long),
    TS_VIEW(5, GetMonthlyReminderPattern2Month, SetMonthlyReminderPattern2Month, int),
    TS_VIEW(5, GetYearlyReminderPattern2Month, SetYearlyReminderPattern2Month, EcvMonth),
};

#undef TS_VIEW

struct Day
{
    int bit;
    bool (CcvReminderData::*get)() const;
    void (CcvReminderData::*set)(bool);
};

constexpr Day kDays[] = {
    {0, &CcvReminderData::GetIsWeeklyRecurrenceOnSunday, &CcvReminderData::SetIsWeeklyRecurrenceOnSunday},
    {1, &CcvReminderData::GetIsWeeklyRecurrenceOnMonday, &CcvReminderData::SetIsWeeklyRecurrenceOnMonday},
    {2, &CcvReminderData::GetIsWeeklyRecurrenceOnTuesday, &CcvReminderData::SetIsWeeklyRecurrenceOnTuesday},
    {3, &CcvReminderData::GetIsWeeklyRecurrenceOnWednesday,
     &CcvReminderData::SetIsWeeklyRecurrenceOnWednesday},
    {4, &CcvReminderData::GetIsWeeklyRecurrenceOnThursday, &CcvReminderData::SetIsWeeklyRecurrenceOnThursday},
    {5, &CcvReminderData::GetIsWeeklyRecurrenceOnFriday, &CcvReminderData::SetIsWeeklyRecurrenceOnFriday},
    {6, &CcvReminderData::GetIsWeeklyRecurrenceOnSaturday, &CcvReminderData::SetIsWeeklyRecurrenceOnSaturday},
};

constexpr std::int32_t kValues[] = {std::numeric_limits<std::int32_t>::min(), -1, 0, 1, 7, 12345,
                                    std::numeric_limits<std::int32_t>::max()};

} // namespace

TEST(SlotViewsTest, Set_ThroughAnyView_ShowsInAllViewsOfTheSlotOnly)
{
    constexpr std::array<std::int32_t, 6> kOthers = {101, 102, 103, 104, 105, 106};
    for (const View& writer : kViews)
    {
        for (const std::int32_t value : kValues)
        {
            CcvReminderData record = EmptyRecord();
            SetOptions(record, kOthers);
            writer.set(record, value);
            for (const View& reader : kViews)
            {
                const std::int32_t expected = reader.slot == writer.slot ? value : kOthers[reader.slot];
                EXPECT_EQ(expected, reader.get(record))
                    << writer.name << '(' << value << "), " << reader.name;
            }
        }
    }
}

TEST(SlotViewsTest, SetRecurrenceType_ToAnyType_LeavesTheSlots)
{
    CcvReminderData record = EmptyRecord();
    SetOptions(record, {1, 2, 3, 4, 5, 6});
    for (const std::int32_t type : kValues)
    {
        record.SetRecurrenceType(static_cast<EcvReminderRecurrenceType>(type));
        EXPECT_EQ(type, static_cast<std::int32_t>(record.GetRecurrenceType()));
        EXPECT_EQ(type != 0, record.IsRecurrent());
        EXPECT_EQ((std::array<std::int32_t, 6>{1, 2, 3, 4, 5, 6}), OptionsOf(record));
    }
}

TEST(SlotViewsTest, ResetRecurrenceOptions_OfAnyType_LeavesTheTypeAndTheTimes)
{
    CcvReminderData record = DistinctRecord();
    RecordFields expected = FieldsOf(record);
    expected.options = {};
    record.ResetRecurrenceOptions();
    EXPECT_EQ(expected, FieldsOf(record));
}

TEST(SlotViewsTest, WeekdayBits_OfEveryWord_AreReadOneByOne)
{
    CcvReminderData record = EmptyRecord();
    for (long flags = -1; flags < 256; ++flags)
    {
        record.SetWeeklyRecurrenceFlag(flags);
        for (const Day& day : kDays)
        {
            EXPECT_EQ((flags >> day.bit & 1) != 0, (record.*day.get)()) << flags << ", bit " << day.bit;
        }
    }
}

TEST(SlotViewsTest, SetWeekday_ToTrue_SetsItsBitOnly)
{
    for (const Day& day : kDays)
    {
        for (const long before : {0L, 1L << day.bit, 0x7FL, 0x100L, -1L, std::numeric_limits<long>::min()})
        {
            CcvReminderData record = EmptyRecord();
            record.SetWeeklyRecurrenceFlag(before);
            (record.*day.set)(true);
            EXPECT_EQ(before | 1L << day.bit, record.GetWeeklyRecurrenceFlag()) << "bit " << day.bit;
            EXPECT_EQ(0, record.GetWeeklyRecurrenceNumber());
        }
    }
}

TEST(SlotViewsTest, SetWeekday_ToFalse_ClearsNothing)
{
    for (const Day& day : kDays)
    {
        for (const long before : {0L, 1L << day.bit, 0x7FL, -1L})
        {
            CcvReminderData record = EmptyRecord();
            record.SetWeeklyRecurrenceFlag(before);
            (record.*day.set)(false);
            EXPECT_EQ(before, record.GetWeeklyRecurrenceFlag()) << "bit " << day.bit;
        }
    }
    CcvReminderData record = EmptyRecord();
    record.SetWeeklyRecurrenceFlag(2);
    record.SetIsWeeklyRecurrenceOnMonday(false);
    EXPECT_EQ(2, record.GetWeeklyRecurrenceFlag());
}

} // namespace ts::test
