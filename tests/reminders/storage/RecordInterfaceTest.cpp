// What hosts compile against: the numbers of the enumerations, the members' signatures, the order of the
// fields.

#include "reminders/CcvReminderDataUtilities.h"
#include "tests/reminders/storage/RecordFields.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <type_traits>

namespace ts::test
{
namespace
{

using Record = CcvReminderData;
using Utilities = CcvReminderDataUtilities;
using Type = EcvReminderRecurrenceType;
using DayType = EcvReminderDayType;
using Ordinal = EcvReminderDayIntegralType;

template <typename Enumeration, std::int32_t... Values>
constexpr bool AreNumbered(std::array<Enumeration, sizeof...(Values)> enumerators)
{
    constexpr std::array<std::int32_t, sizeof...(Values)> kValues = {Values...};
    bool same = sizeof(Enumeration) == 4;
    for (std::size_t index = 0; index < kValues.size(); ++index)
    {
        same = same && static_cast<std::int32_t>(enumerators[index]) == kValues[index];
    }
    return same;
}

static_assert(AreNumbered<Type, 0, 1, 2, 3, 4>({Type::None, Type::Daily, Type::Weekly, Type::Monthly,
                                                Type::Yearly}));
static_assert(AreNumbered<EcvReminderDailyOccurence, 0, 1>({EcvReminderDailyOccurence::EveryNDays,
                                                            EcvReminderDailyOccurence::EveryWeekday}));
static_assert(AreNumbered<EcvReminderMonthlyOccurence, 0, 1>({EcvReminderMonthlyOccurence::DayOfMonth,
                                                              EcvReminderMonthlyOccurence::OrdinalDayType}));
static_assert(AreNumbered<EcvReminderYearlyOccurence, 0, 1>({EcvReminderYearlyOccurence::DayOfMonth,
                                                             EcvReminderYearlyOccurence::OrdinalDayType}));
static_assert(AreNumbered<Ordinal, 0, 1, 2, 3, 4>({Ordinal::First, Ordinal::Second, Ordinal::Third,
                                                   Ordinal::Fourth, Ordinal::Last}));
static_assert(AreNumbered<DayType, 1, 2, 4, 8, 16, 32, 64, 128, 256, 512>(
    {DayType::Sunday, DayType::Monday, DayType::Tuesday, DayType::Wednesday, DayType::Thursday,
     DayType::Friday, DayType::Saturday, DayType::Day, DayType::Weekday, DayType::WeekendDay}));
static_assert(AreNumbered<EcvMonth, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12>(
    {EcvMonth::January, EcvMonth::February, EcvMonth::March, EcvMonth::April, EcvMonth::May, EcvMonth::June,
     EcvMonth::July, EcvMonth::August, EcvMonth::September, EcvMonth::October, EcvMonth::November,
     EcvMonth::December}));
static_assert(AreNumbered<Record::ReminderStatus, 0, 1, 2, 3, 4>({Record::RemindActive, Record::RemindPending,
                                                                  Record::DueTodayActive,
                                                                  Record::DueTodayPending, Record::Overdue}));

template <typename Expected, typename... Members>
constexpr bool AllAre(Members...)
{
    return (std::is_same_v<Expected, Members> && ...);
}

static_assert(AllAre<CString (Record::*)() const>(&Record::GetReminderKey, &Record::GetDocumentPath,
                                                  &Record::GetMapGuid, &Record::GetObjectGuid,
                                                  &Record::GetOutlookObjectGuid, &Record::GetOutlookEntryId,
                                                  &Record::GetDocumentTitle, &Record::GetObjectTitle,
                                                  &Record::GetSubject));
static_assert(AllAre<const CString (Record::*)() const>(&Record::GetGuid));
static_assert(AllAre<void (Record::*)(const CString&)>(&Record::SetDocumentPath, &Record::SetMapGuid,
                                                       &Record::SetObjectGuid, &Record::SetOutlookObjectGuid,
                                                       &Record::SetOutlookEntryId, &Record::SetDocumentTitle,
                                                       &Record::SetObjectTitle, &Record::SetSubject));
static_assert(AllAre<CTime (Record::*)() const>(&Record::GetInitialDueDate, &Record::GetNextDueDate,
                                                &Record::GetSnoozeTime));
static_assert(AllAre<void (Record::*)(const CTime&)>(&Record::SetInitialDueDate, &Record::SetNextDueDate));
static_assert(AllAre<CTimeSpan (Record::*)() const>(&Record::GetReminderTimeSpan));
static_assert(AllAre<void (Record::*)(const CTimeSpan&)>(&Record::SetReminderTimeSpan,
                                                         &Record::SetSnoozeTime));
static_assert(AllAre<bool (Record::*)() const>(&Record::IsSnoozed, &Record::IsDimissed,
                                               &Record::IsRecurrent));
static_assert(AllAre<void (Record::*)(bool)>(&Record::SetSnoozed, &Record::SetDismissed));
static_assert(AllAre<CTime (Record::*)(const CTime&)>(&Record::GetCalculatedDueTime,
                                                      &Record::GetReminderTime));
static_assert(AllAre<Record::ReminderStatus (Record::*)(const CTime&)>(&Record::GetReminderStatus));
static_assert(AllAre<CTime (Record::*)(const CTime&) const>(
    &Record::GetNextRecurrentTime, &Record::GetNextDailyRecurrentTime, &Record::GetNextWeeklyRecurrentTime,
    &Record::GetNextMonthlyRecurrentTime, &Record::GetNextYearlyRecurrentTime));
static_assert(AllAre<bool (Record::*)(const CString&)>(
    &Record::LoadDataFromRegistry, &Record::SaveDataToRegistry, &Record::DeleteDataFromRegistry,
    &Record::LoadOutlookDataFromRegistry, &Record::SaveOutlookDataToRegistry));
static_assert(AllAre<bool (Record::*)(HKEY, const CString&, DWORD*)>(&Record::ReadDoubleWordValue));
static_assert(AllAre<void (Record::*)(Record*)>(&Record::CopyData));
static_assert(AllAre<long (Record::*)() const>(&Record::GetWeeklyRecurrenceFlag,
                                               &Record::GetMonthlyReminderDayType,
                                               &Record::GetYearlyReminderDayType));
static_assert(AllAre<EcvMonth (Record::*)() const>(&Record::GetYearlyReminderPattern1Month,
                                                   &Record::GetYearlyReminderPattern2Month));

static_assert(AllAre<CString (*)(const CString&, const CString&)>(&Utilities::GenerateUniqueReminderKey));
static_assert(AllAre<CString (*)(const CString&, const CString&, const CString&, const CString&)>(
    &Utilities::FindReminderKey));
static_assert(AllAre<void (*)(const CString&, const CString&, const CString&, const CString&)>(
    &Utilities::UpdateDocumentPath));
static_assert(AllAre<int (*)(Ordinal, DayType, int, int)>(&Utilities::GetDayOfMonth));
static_assert(AllAre<void (*)(CAtlArray<DayType>*)>(&Utilities::GetDayTypeArray));
static_assert(AllAre<long (*)(DayType)>(&Utilities::TsToOutlookDay));
static_assert(AllAre<DayType (*)(long)>(&Utilities::OutlookToTsDay));
static_assert(AllAre<bool (*)(const CTime&, const CTime&)>(&Utilities::IsInitialUpcomingDueDatePassed));
static_assert(AllAre<CTime (*)(const CTime&, const Record*)>(
    &Utilities::CalculateInitialDailyRecurrentDueTime, &Utilities::CalculateInitialWeeklyRecurrentDueTime,
    &Utilities::CalculateInitialMonthlyRecurrentDueTime, &Utilities::CalculateInitialYearlyRecurrentDueTime,
    &Utilities::CalculateInitialUpcomingDailyRecurrentDueTime,
    &Utilities::CalculateInitialUpcomingWeeklyRecurrentDueTime,
    &Utilities::CalculateInitialUpcomingMonthlyRecurrentDueTime,
    &Utilities::CalculateInitialUpcomingYearlyRecurrentDueTime,
    &Utilities::CalculateNextDailyRecurrentDueTime, &Utilities::CalculateNextWeeklyRecurrentDueTime,
    &Utilities::CalculateNextMonthlyRecurrentDueTime, &Utilities::CalculateNextYearlyRecurrentDueTime));
static_assert(AllAre<CString (*)(Record*, const CTime&)>(&Utilities::GetDueInString,
                                                         &Utilities::GetReminderTooltip));

static_assert(sizeof(CTime) == 8 && sizeof(CTimeSpan) == 8 && sizeof(long) == 4);

/// The bytes of a record, in which each field is known by its contents.
class RecordBytes
{
  public:
    explicit RecordBytes(const Record& record) { std::memcpy(m_bytes.data(), &record, sizeof record); }

    /// Where a field with that content stands; it must stand in one place only.
    template <typename Content>
    [[nodiscard]] std::size_t Find(const Content& content) const
    {
        const auto* const bytes = static_cast<const unsigned char*>(static_cast<const void*>(&content));
        const auto found = std::search(m_bytes.begin(), m_bytes.end(), bytes, bytes + sizeof content);
        EXPECT_NE(m_bytes.end(), found);
        return static_cast<std::size_t>(found - m_bytes.begin());
    }

  private:
    std::array<unsigned char, sizeof(Record)> m_bytes{};
};

} // namespace

TEST(RecordInterfaceTest, Fields_OfARecord_StandInTheirOrder)
{
    // Texts as short as these stand in the string objects themselves.
    Record record{CString(L"\x5101")};
    record.SetDocumentPath(L"\x5102");
    record.SetMapGuid(L"\x5103");
    record.SetObjectGuid(L"\x5104");
    record.SetOutlookObjectGuid(L"\x5105");
    record.SetOutlookEntryId(L"\x5106");
    record.SetDocumentTitle(L"\x5107");
    record.SetObjectTitle(L"\x5108");
    record.SetSubject(L"\x5109");
    record.SetInitialDueDate(0x5201525252525252);
    record.SetNextDueDate(0x5203525252525252);
    record.SetReminderTimeSpan(0x5204525252525252);
    record.SetRecurrenceType(static_cast<Type>(0x53015353));
    SetOptions(record, {0x53025353, 0x53035353, 0x53045353, 0x53055353, 0x53065353, 0x53075353});
    const RecordBytes bytes(record);

    std::size_t last = 0;
    for (const wchar_t* text :
         {L"\x5101", L"\x5102", L"\x5103", L"\x5104", L"\x5105", L"\x5106", L"\x5107", L"\x5108", L"\x5109"})
    {
        const std::size_t place = bytes.Find(std::array{text[0], L'\0'});
        EXPECT_LT(last, place) << "the text " << std::hex << static_cast<unsigned>(text[0]);
        last = place;
    }
    const std::size_t initial = bytes.Find(std::int64_t{0x5201525252525252});
    EXPECT_LT(last, initial);
    EXPECT_EQ(initial + 16, bytes.Find(std::int64_t{0x5203525252525252})) << "behind the snooze time";
    EXPECT_EQ(initial + 24, bytes.Find(std::int64_t{0x5204525252525252}));
    for (std::int32_t number = 1; number <= 7; ++number)
    {
        EXPECT_EQ(initial + 32 + 4 * static_cast<std::size_t>(number),
                  bytes.Find(std::int32_t{0x53005353 + (number << 16)}))
            << "behind the flags";
    }
}

} // namespace ts::test
