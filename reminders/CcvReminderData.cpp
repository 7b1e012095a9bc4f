#include "reminders/CcvReminderData.h"

#include "platform/Clock.h"
#include "platform/mfc/atlexcept.h"
#include "platform/ts/CcvStringUtilities.h"
#include "reminders/CatchUp.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "reminders/LocalCalendar.h"

namespace
{

/// The present local time rounded up to the quarter hour. The hour is not carried into the next day, so the
/// last quarter of a day has no default.
CTime DefaultDueTime()
{
    std::tm local{};
    if (CTime::GetCurrentTime().GetLocalTm(&local) == nullptr)
    {
        AtlThrow(E_FAIL);
    }
    const int quarters = (local.tm_min + 14) / 15;
    return CTime(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour + quarters / 4,
                 quarters % 4 * 15, 0);
}

} // namespace

CcvReminderData::CcvReminderData() : m_initialDueDate(DefaultDueTime()), m_nextDueDate(m_initialDueDate)
{
}

CcvReminderData::CcvReminderData(const CString& reminderKey) : m_reminderKey(reminderKey)
{
}

CcvReminderData::CcvReminderData(const CcvReminderData& other) = default;
CcvReminderData& CcvReminderData::operator=(const CcvReminderData& other) = default;
CcvReminderData::~CcvReminderData() = default;

void CcvReminderData::CopyData(CcvReminderData* source)
{
    m_documentPath = source->m_documentPath;
    SetDocumentTitle(source->m_documentTitle);
    m_initialDueDate = source->m_initialDueDate;
    m_nextDueDate = source->m_nextDueDate;
    m_reminderTimeSpan = source->m_reminderTimeSpan;
    m_mapGuid = source->m_mapGuid;
    m_objectGuid = source->m_objectGuid;
    m_outlookObjectGuid = source->m_outlookObjectGuid;
    m_outlookEntryId = source->m_outlookEntryId;
    SetSubject(source->m_subject);
    m_recurrenceType = source->m_recurrenceType;
    m_recurrenceOption1 = source->m_recurrenceOption1;
    m_recurrenceOption2 = source->m_recurrenceOption2;
    m_recurrenceOption3 = source->m_recurrenceOption3;
    m_recurrenceOption4 = source->m_recurrenceOption4;
    m_recurrenceOption5 = source->m_recurrenceOption5;
    m_recurrenceOption6 = source->m_recurrenceOption6;
    m_reminderKey = source->m_reminderKey;
}

void CcvReminderData::SetDocumentPath(const CString& path)
{
    m_documentPath = path;
}

void CcvReminderData::SetMapGuid(const CString& guid)
{
    m_mapGuid = guid;
}

void CcvReminderData::SetObjectGuid(const CString& guid)
{
    m_objectGuid = guid;
}

void CcvReminderData::SetOutlookObjectGuid(const CString& guid)
{
    m_outlookObjectGuid = guid;
}

void CcvReminderData::SetOutlookEntryId(const CString& entryId)
{
    m_outlookEntryId = entryId;
}

void CcvReminderData::SetDocumentTitle(const CString& title)
{
    m_documentTitle = CcvStringUtilities::RemoveCRLF(title);
}

void CcvReminderData::SetObjectTitle(const CString& title)
{
    m_objectTitle = CcvStringUtilities::RemoveCRLF(title);
}

void CcvReminderData::SetSubject(const CString& subject)
{
    m_subject = CcvStringUtilities::RemoveCRLF(subject);
}

const CString CcvReminderData::GetGuid() const
{
    return L"{" + m_documentPath + L"}{" + m_mapGuid + L"}{" + m_objectGuid + L"}";
}

bool CcvReminderData::HasGuid(const CString& guid) const noexcept
{
    std::wstring_view rest(guid.GetString(), guid.GetLength());
    for (const CString* part : {&m_documentPath, &m_mapGuid, &m_objectGuid})
    {
        const std::wstring_view text(part->GetString(), part->GetLength());
        if (rest.size() < text.size() + 2 || rest.front() != L'{' || rest[text.size() + 1] != L'}' ||
            rest.substr(1, text.size()) != text)
        {
            return false;
        }
        rest.remove_prefix(text.size() + 2);
    }
    return rest.empty();
}

void CcvReminderData::SetSnoozed(bool snoozed)
{
    m_flags = snoozed ? m_flags | kSnoozed : m_flags & ~kSnoozed;
}

void CcvReminderData::SetSnoozeTime(const CTimeSpan& span)
{
    m_snoozeTime = CTime::GetCurrentTime() + span;
    SetSnoozed(true);
}

void CcvReminderData::SetDismissed(bool dismissed)
{
    if (!dismissed)
    {
        m_flags &= ~kDismissed;
        return;
    }
    if (IsRecurrent())
    {
        m_nextDueDate = GetNextRecurrentTime(m_nextDueDate);
    }
    else
    {
        m_flags |= kDismissed;
    }
    SetSnoozed(false);
}

CTime CcvReminderData::GetCalculatedDueTime(const CTime& now)
{
    if (IsRecurrent() && m_nextDueDate < now)
    {
        // The next occurrence takes over as soon as its reminder time has come.
        const CTime latestDue = now + m_reminderTimeSpan;
        m_nextDueDate = ts::LastOccurrenceUpTo(m_recurrenceType, m_nextDueDate, latestDue, *this);
    }
    return m_nextDueDate;
}

CTime CcvReminderData::GetReminderTime(const CTime& now)
{
    return IsSnoozed() ? m_snoozeTime : GetCalculatedDueTime(now) - m_reminderTimeSpan;
}

CcvReminderData::ReminderStatus CcvReminderData::GetReminderStatus(const CTime& now)
{
    const CTime due = GetCalculatedDueTime(now);
    if (now > due)
    {
        return Overdue;
    }
    const bool active = now > GetReminderTime(now);
    if (ts::IsSameLocalDate(due, now))
    {
        return active ? DueTodayActive : DueTodayPending;
    }
    return active ? RemindActive : RemindPending;
}

CTime CcvReminderData::GetNextRecurrentTime(const CTime& from) const
{
    return ts::NextOccurrence(m_recurrenceType, from, *this);
}

CTime CcvReminderData::GetNextDailyRecurrentTime(const CTime& from) const
{
    return CcvReminderDataUtilities::CalculateNextDailyRecurrentDueTime(from, this);
}

CTime CcvReminderData::GetNextWeeklyRecurrentTime(const CTime& from) const
{
    return CcvReminderDataUtilities::CalculateNextWeeklyRecurrentDueTime(from, this);
}

CTime CcvReminderData::GetNextMonthlyRecurrentTime(const CTime& from) const
{
    return CcvReminderDataUtilities::CalculateNextMonthlyRecurrentDueTime(from, this);
}

CTime CcvReminderData::GetNextYearlyRecurrentTime(const CTime& from) const
{
    return CcvReminderDataUtilities::CalculateNextYearlyRecurrentDueTime(from, this);
}
