#include "tests/stress/StampedRecord.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <string_view>

namespace ts::test
{
namespace
{

constexpr wchar_t kTitle[] = L"title ";
constexpr wchar_t kEntryId[] = L"entry ";
constexpr wchar_t kOutlookGuid[] = L"appointment ";
constexpr wchar_t kSubject[] = L"subject ";
constexpr wchar_t kObjectTitle[] = L"topic's title ";
constexpr wchar_t kTopic[] = L"topic ";
constexpr wchar_t kPath[] = L"C:\\Maps\\";

/// For times, lengths of time and the options.
constexpr int kFirstNumber = 1'000'000'000;
constexpr int kPerWriter = 10'000'000;

/// Short and long ones, so that the values change their size.
std::wstring Text(const wchar_t* what, Stamp stamp)
{
    std::wstring text = what + std::wstring(1, stamp.writer) + L" " + std::to_wstring(stamp.number) + L" ";
    text.append(static_cast<std::size_t>(std::max(stamp.number, 0)) % 7 * 30, L'.');
    return text;
}

int Number(Stamp stamp)
{
    return kFirstNumber + (stamp.writer - L'A') * kPerWriter + stamp.number;
}

Stamp StampIn(const CString& text, const wchar_t* what)
{
    const std::wstring_view whole(text.GetString(), static_cast<std::size_t>(text.GetLength()));
    const std::wstring_view prefix(what);
    Stamp stamp;
    if (whole.starts_with(prefix) && whole.size() > prefix.size() + 2)
    {
        stamp.writer = whole[prefix.size()];
        stamp.number = static_cast<int>(std::wcstol(whole.data() + prefix.size() + 2, nullptr, 10));
    }
    return stamp;
}

bool IsText(const CString& text, const wchar_t* what)
{
    const Stamp stamp = StampIn(text, what);
    return stamp.number >= 0 && text == Text(what, stamp).c_str();
}

bool IsNumber(std::int64_t number)
{
    return number >= kFirstNumber && number < kFirstNumber + 26LL * kPerWriter;
}

std::wstring Plain(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

std::wstring MapOf(const CcvReminderData& record)
{
    return Plain(record.GetMapGuid());
}

std::array<int, 6> Options(const CcvReminderData& record)
{
    return {record.GetWeeklyRecurrenceNumber(),
            record.GetDailyRecurrenceNumber(),
            record.GetMonthlyReminderPattern1Month(),
            static_cast<int>(record.GetMonthlyReminderDayIntegralType()),
            record.GetMonthlyReminderDayType(),
            record.GetMonthlyReminderPattern2Month()};
}

} // namespace

CcvReminderData StampedRecord(const CString& key, const std::wstring& map, int topic, Stamp stamp)
{
    CcvReminderData record(key);
    record.SetDocumentPath((kPath + map).c_str());
    record.SetMapGuid(map.c_str());
    record.SetObjectGuid((kTopic + std::to_wstring(topic)).c_str());
    record.SetOutlookObjectGuid(Text(kOutlookGuid, stamp).c_str());
    record.SetOutlookEntryId(Text(kEntryId, stamp).c_str());
    record.SetDocumentTitle(Text(kTitle, stamp).c_str());
    record.SetObjectTitle(Text(kObjectTitle, stamp).c_str());
    record.SetSubject(Text(kSubject, stamp).c_str());
    const int number = Number(stamp);
    record.SetInitialDueDate(number);
    record.SetNextDueDate(number);
    record.SetReminderTimeSpan(number);
    record.SetRecurrenceType(EcvReminderRecurrenceType::Monthly);
    record.SetWeeklyRecurrenceNumber(number);
    record.SetDailyRecurrenceNumber(number);
    record.SetMonthlyReminderPattern1Month(number);
    record.SetMonthlyReminderDayIntegralType(static_cast<EcvReminderDayIntegralType>(number));
    record.SetMonthlyReminderDayType(number);
    record.SetMonthlyReminderPattern2Month(number);
    return record;
}

int TopicOf(const CcvReminderData& record)
{
    const std::wstring text = Plain(record.GetObjectGuid());
    const std::wstring_view prefix(kTopic);
    return text.starts_with(prefix) ? static_cast<int>(std::wcstol(text.c_str() + prefix.size(), nullptr, 10))
                                    : -1;
}

Stamp StampOf(const CcvReminderData& record)
{
    return StampIn(record.GetSubject(), kSubject);
}

Stamp NewestStampOf(const CcvReminderData& record)
{
    return StampIn(record.GetOutlookObjectGuid(), kOutlookGuid);
}

bool IsWhole(const CcvReminderData& record)
{
    const CcvReminderData expected =
        StampedRecord(CString(), MapOf(record), TopicOf(record), StampOf(record));
    return record.GetGuid() == expected.GetGuid() &&
           record.GetOutlookObjectGuid() == expected.GetOutlookObjectGuid() &&
           record.GetOutlookEntryId() == expected.GetOutlookEntryId() &&
           record.GetDocumentTitle() == expected.GetDocumentTitle() &&
           record.GetObjectTitle() == expected.GetObjectTitle() &&
           record.GetSubject() == expected.GetSubject() &&
           record.GetInitialDueDate() == expected.GetInitialDueDate() &&
           record.GetNextDueDate() == expected.GetNextDueDate() &&
           record.GetReminderTimeSpan() == expected.GetReminderTimeSpan() &&
           record.GetRecurrenceType() == expected.GetRecurrenceType() && !record.IsDimissed() &&
           Options(record) == Options(expected);
}

bool IsMadeOfStampedFields(const CcvReminderData& record)
{
    const CcvReminderData topic = StampedRecord(CString(), MapOf(record), TopicOf(record), {L'A', 0});
    bool made = record.GetGuid() == topic.GetGuid() && IsText(record.GetOutlookObjectGuid(), kOutlookGuid) &&
                IsText(record.GetOutlookEntryId(), kEntryId) && IsText(record.GetDocumentTitle(), kTitle) &&
                IsText(record.GetObjectTitle(), kObjectTitle) && IsText(record.GetSubject(), kSubject) &&
                IsNumber(record.GetInitialDueDate().GetTime()) &&
                IsNumber(record.GetNextDueDate().GetTime()) &&
                IsNumber(record.GetReminderTimeSpan().GetTimeSpan()) && !record.IsDimissed() &&
                record.GetRecurrenceType() == EcvReminderRecurrenceType::Monthly;
    for (const int option : Options(record))
    {
        made = made && IsNumber(option);
    }
    return made;
}

} // namespace ts::test
