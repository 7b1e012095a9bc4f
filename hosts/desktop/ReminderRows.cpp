#include "ReminderRows.h"

#include "ResourceIds.h"
#include "Texts.h"
#include "hosts/common/Collection.h"
#include "hosts/common/ReminderTimes.h"

#include <algorithm>
#include <compare>

namespace ts::desktop
{
namespace
{

std::wstring ToText(const CString& text)
{
    return text.GetString();
}

/// A map that has no title goes by the name of its file.
std::wstring MapTitle(const CcvReminderData& reminder)
{
    if (!reminder.GetDocumentTitle().IsEmpty())
    {
        return ToText(reminder.GetDocumentTitle());
    }
    const std::wstring path = ToText(reminder.GetDocumentPath());
    return path.substr(path.find_last_of(L"\\/") + 1);
}

ReminderRow MakeRow(const CcvReminderData& record, CTime now)
{
    auto [due, reminderTime] = hosts::FindTimes(record, now);
    if (due == CTime())
    {
        due.reset();
    }
    std::optional<CString> dueIn;
    if (due)
    {
        CcvReminderData reminder(record);
        dueIn = hosts::Ask([&] { return CcvReminderDataUtilities::GetDueInString(&reminder, now); });
    }
    const bool isDismissed = record.IsDimissed() && !record.IsRecurrent();
    return {ReminderIdentity(record),
            ToText(record.GetSubject()),
            ToText(record.GetObjectTitle()),
            MapTitle(record),
            due,
            due ? ShortTime(*due) : Text(IDS_NO_DUE_TIME),
            dueIn ? ToText(*dueIn) : std::wstring(),
            due && reminderTime && *reminderTime <= now && !isDismissed};
}

/// In the order of the user's language, without regard to case.
std::strong_ordering CompareTexts(const std::wstring& left, const std::wstring& right)
{
    const int result = CompareStringEx(LOCALE_NAME_USER_DEFAULT, LINGUISTIC_IGNORECASE, left.c_str(), -1,
                                       right.c_str(), -1, nullptr, nullptr, 0);
    return result <=> CSTR_EQUAL;
}

std::strong_ordering CompareDue(const ReminderRow& left, const ReminderRow& right)
{
    if (left.due && right.due)
    {
        return left.due->GetTime() <=> right.due->GetTime();
    }
    return right.due.has_value() <=> left.due.has_value();
}

std::strong_ordering Compare(const ReminderRow& left, const ReminderRow& right, ReminderColumn column)
{
    switch (column)
    {
    case ReminderColumn::Due:
    case ReminderColumn::DueIn:
        return CompareDue(left, right);
    default:
        return CompareTexts(CellText(left, column), CellText(right, column));
    }
}

bool ComesBefore(const ReminderRow& left, const ReminderRow& right)
{
    for (const auto column : {ReminderColumn::Map, ReminderColumn::Due, ReminderColumn::Subject})
    {
        const auto order = Compare(left, right, column);
        if (order != 0)
        {
            return order < 0;
        }
    }
    return false;
}

} // namespace

ReminderIdentity::ReminderIdentity(const CcvReminderData& reminder)
    : key(reminder.GetReminderKey()), guid(reminder.GetGuid())
{
}

CcvReminderData* FindReminder(const CcvReminderDataCollectionManager& manager,
                              const ReminderIdentity& identity)
{
    for (int index = 0; index < manager.GetRemindersCount(); ++index)
    {
        CcvReminderData* const record = manager.GetReminderByIndex(index);
        if (record->GetReminderKey() == identity.key && hosts::EnsureLoaded(*record) &&
            record->GetGuid() == identity.guid)
        {
            return record;
        }
    }
    return nullptr;
}

std::vector<ReminderRow> MakeRows(const CcvReminderDataCollectionManager& manager, CTime now)
{
    std::vector<ReminderRow> rows;
    for (int index = 0; index < manager.GetRemindersCount(); ++index)
    {
        CcvReminderData* const record = manager.GetReminderByIndex(index);
        if (hosts::EnsureLoaded(*record))
        {
            rows.push_back(MakeRow(*record, now));
        }
    }
    return rows;
}

void SortRows(std::vector<ReminderRow>& rows, ReminderColumn column, bool descending)
{
    std::ranges::stable_sort(rows,
                             [column, descending](const ReminderRow& left, const ReminderRow& right)
                             {
                                 const auto order = Compare(left, right, column);
                                 if (order == 0)
                                 {
                                     return ComesBefore(left, right);
                                 }
                                 const bool isTime =
                                     column == ReminderColumn::Due || column == ReminderColumn::DueIn;
                                 if (isTime && left.due.has_value() != right.due.has_value())
                                 {
                                     return left.due.has_value();
                                 }
                                 return descending ? order > 0 : order < 0;
                             });
}

const std::wstring& CellText(const ReminderRow& row, ReminderColumn column)
{
    switch (column)
    {
    case ReminderColumn::Subject:
        return row.subject;
    case ReminderColumn::Topic:
        return row.topic;
    case ReminderColumn::Map:
        return row.map;
    case ReminderColumn::Due:
        return row.dueText;
    default:
        return row.dueInText;
    }
}

} // namespace ts::desktop
