// The texts that tell how far away a reminder's due time is.

#include "module/LanguageText.h"
#include "platform/ts/CcvDateUtilities.h"
#include "platform/ts/CcvStringUtilities.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "resources/StringIds.h"

namespace
{

/// A distance in time, cut into its units; nothing is negative.
struct Distance
{
    explicit Distance(CTimeSpan span)
        : seconds(span.GetTimeSpan()), days(seconds / 86400), hours(seconds / 3600 - days * 24),
          minutes(seconds / 60 % 60)
    {
    }

    /// Days, hours and minutes, rounded by the next smaller unit.
    [[nodiscard]] std::int64_t RoundedDays() const { return days + (hours >= 12 ? 1 : 0); }
    [[nodiscard]] std::int64_t RoundedHours() const { return hours + (minutes >= 30 ? 1 : 0); }
    [[nodiscard]] std::int64_t AtLeastOneMinute() const { return minutes == 0 ? 1 : minutes; }

    std::int64_t seconds;
    std::int64_t days;
    std::int64_t hours;
    std::int64_t minutes;
};

/// `count` of something, with a text for one and a text for several.
CString Counted(std::int64_t count, unsigned one, unsigned several)
{
    return ts::FormatText(count < 2 ? one : several, count);
}

/// The number of units in `days`, one more from a remainder of `roundUpFrom` days.
std::int64_t Rounded(std::int64_t days, std::int64_t unit, std::int64_t roundUpFrom)
{
    return days / unit + (days % unit >= roundUpFrom ? 1 : 0);
}

/// The unit is chosen on the rounded number of days, so seven and a half days are told in weeks.
CString DaysText(std::int64_t days)
{
    if (days > 350)
    {
        return Counted(Rounded(days, 365, 183), IDS_DUE_YEAR, IDS_DUE_YEARS);
    }
    if (days > 30)
    {
        return Counted(Rounded(days, 30, 16), IDS_DUE_MONTH, IDS_DUE_MONTHS);
    }
    if (days >= 8)
    {
        return Counted(Rounded(days, 7, 4), IDS_DUE_WEEK, IDS_DUE_WEEKS);
    }
    return Counted(days, IDS_DUE_DAY, IDS_DUE_DAYS);
}

CString DistanceText(const Distance& distance)
{
    if (distance.days > 0)
    {
        return DaysText(distance.RoundedDays());
    }
    if (distance.hours > 0)
    {
        return Counted(distance.RoundedHours(), IDS_DUE_HOUR, IDS_DUE_HOURS);
    }
    return Counted(distance.AtLeastOneMinute(), IDS_DUE_MINUTE, IDS_DUE_MINUTES);
}

CString OverdueStatus(const Distance& distance)
{
    if (distance.days > 0)
    {
        return ts::FormatText(IDS_TOOLTIP_DAYS_OVERDUE, distance.RoundedDays());
    }
    if (distance.hours > 0)
    {
        return ts::FormatText(IDS_TOOLTIP_HOURS_OVERDUE, distance.RoundedHours());
    }
    return ts::FormatText(IDS_TOOLTIP_MINUTES_OVERDUE, distance.AtLeastOneMinute());
}

CString DueStatus(const Distance& distance)
{
    if (distance.days > 0)
    {
        return ts::FormatText(IDS_TOOLTIP_DAYS_LEFT, distance.RoundedDays());
    }
    if (distance.hours > 0)
    {
        return ts::FormatText(IDS_TOOLTIP_HOURS_LEFT, distance.RoundedHours());
    }
    // Minutes round up here: a reminder never promises less time than there is.
    return ts::FormatText(IDS_TOOLTIP_MINUTES_LEFT, distance.minutes + (distance.seconds % 60 != 0 ? 1 : 0));
}

} // namespace

CString CcvReminderDataUtilities::GetDueInString(CcvReminderData* record, const CTime& now)
{
    const CTime due = record->GetCalculatedDueTime(now);
    if (now > due)
    {
        return ts::FormatText(IDS_OVERDUE_BY, DistanceText(Distance(now - due)));
    }
    return ts::FormatText(IDS_DUE_IN, DistanceText(Distance(due - now)));
}

CString CcvReminderDataUtilities::GetReminderTooltip(CcvReminderData* record, const CTime& now)
{
    const CTime due = record->GetCalculatedDueTime(now);
    const CTime remind = record->GetReminderTime(now);
    CString subject = record->GetSubject();
    CString status;
    if (now > due)
    {
        status = OverdueStatus(Distance(now - due));
    }
    else if (now < remind)
    {
        status = DueStatus(Distance(due - now));
    }
    else
    {
        status = ts::LoadText(IDS_TOOLTIP_DUE_NOW);
    }
    CcvStringUtilities::FixInvalidUnformattedTooltipCharacters(subject);
    CcvStringUtilities::FixInvalidUnformattedTooltipCharacters(status);
    return L"<b>" + subject + L"</b><br>" + status + CcvDateUtilities::ShortDateString(due) + L" " +
           CcvDateUtilities::ShortTimeString(due);
}
