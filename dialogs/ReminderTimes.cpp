#include "dialogs/ReminderTimes.h"

#include "platform/mfc/afxdisp.h"
#include "reminders/CcvReminderDataUtilities.h"

namespace
{

/// The answer of `question`, or none when it raises.
template <typename Question>
auto Ask(Question question) -> std::optional<decltype(question())>
{
    try
    {
        return question();
    }
    catch (const COleException&)
    {
        return std::nullopt;
    }
}

} // namespace

std::optional<CTime> ts::FindDueTime(CcvReminderData& reminder, CTime now)
{
    const std::optional<CTime> due = Ask([&] { return reminder.GetCalculatedDueTime(now); });
    return due == CTime() ? std::nullopt : due;
}

std::optional<CTime> ts::FindReminderTime(CcvReminderData& reminder, CTime now)
{
    if (!reminder.IsSnoozed() && !FindDueTime(reminder, now))
    {
        return std::nullopt;
    }
    return Ask([&] { return reminder.GetReminderTime(now); });
}

std::optional<CcvReminderData::ReminderStatus> ts::FindStatus(CcvReminderData& reminder, CTime now)
{
    return FindDueTime(reminder, now) ? Ask([&] { return reminder.GetReminderStatus(now); }) : std::nullopt;
}

CString ts::DueInText(CcvReminderData& reminder, CTime now)
{
    return FindDueTime(reminder, now) ? CcvReminderDataUtilities::GetDueInString(&reminder, now) : CString();
}
