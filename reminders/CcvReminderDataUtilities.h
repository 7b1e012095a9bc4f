#pragma once

#include "platform/mfc/atlcoll.h"
#include "reminders/CcvReminderData.h"

/// Recurrence arithmetic and registry keys of reminders. All members are static, keep no state and may be
/// called on any thread.
///
/// What happens to unusual dates:
/// - Daily and weekly patterns add whole days of 86,400 seconds: when the clocks change, the local clock
///   time of later occurrences shifts with them.
/// - Monthly patterns clamp their day to each month afresh: day 31 gives 31 January, 28 February, 31 March.
/// - Yearly patterns do not clamp: 29 February becomes 1 March of a common year, and stays there.
/// - A local time that the clocks skip or repeat is what the C runtime makes of it.
///
/// Times that cannot be built raise COleException: E_FAIL for a date component out of range (a year before
/// 1970, no such day), E_INVALIDARG when the runtime cannot build the time (a year after 3000).
class TS_API CcvReminderDataUtilities
{
  public:
    // Registry keys. `basePath` is the reminders' key below HKEY_CURRENT_USER (ts::kRemindersPath).

    /// "{name-N}" with the smallest N from 0 for which no subkey exists.
    static CString GenerateUniqueReminderKey(const CString& basePath, const CString& name);
    /// The first reminder key of that document, map and topic, by exact comparison; empty when there is none.
    static CString FindReminderKey(const CString& basePath, const CString& documentPath,
                                   const CString& mapGuid, const CString& objectGuid);
    /// Gives every reminder of `mapGuid` whose document path equals `oldPath` exactly the path `newPath`.
    /// Changes the store only, not records that are loaded.
    static void UpdateDocumentPath(const CString& basePath, const CString& oldPath, const CString& newPath,
                                   const CString& mapGuid);

    // Calendar.

    /// The day of the month (1 to 31) that is the `ordinal` day of `dayType`, or 0 when there is none.
    /// Years outside 1970 to 3000 raise, except for the last day of type Day.
    static int GetDayOfMonth(EcvReminderDayIntegralType ordinal, EcvReminderDayType dayType, int year,
                             int month);
    /// Replaces the contents of `array` by the ten day types in the order in which dialogs offer them.
    static void GetDayTypeArray(CAtlArray<EcvReminderDayType>* array);
    /// A day type as Outlook's day-of-week bits, and back; other combinations of bits pass unchanged.
    static long TsToOutlookDay(EcvReminderDayType dayType);
    static EcvReminderDayType OutlookToTsDay(long mask);
    /// Whether `candidate` lies before `now` on another local date: a time earlier today has not passed.
    static bool IsInitialUpcomingDueDatePassed(const CTime& now, const CTime& candidate);

    // The first occurrence at or after `start` that fits the record's pattern; 0 when there is none.
    static CTime CalculateInitialDailyRecurrentDueTime(const CTime& start, const CcvReminderData* record);
    static CTime CalculateInitialWeeklyRecurrentDueTime(const CTime& start, const CcvReminderData* record);
    static CTime CalculateInitialMonthlyRecurrentDueTime(const CTime& start, const CcvReminderData* record);
    static CTime CalculateInitialYearlyRecurrentDueTime(const CTime& start, const CcvReminderData* record);

    // The first of the occurrences that begin with `start`, itself an occurrence, that has not passed now
    // (IsInitialUpcomingDueDatePassed). Where the pattern does not advance: the last one reached.
    static CTime CalculateInitialUpcomingDailyRecurrentDueTime(const CTime& start,
                                                               const CcvReminderData* record);
    static CTime CalculateInitialUpcomingWeeklyRecurrentDueTime(const CTime& start,
                                                                const CcvReminderData* record);
    static CTime CalculateInitialUpcomingMonthlyRecurrentDueTime(const CTime& start,
                                                                 const CcvReminderData* record);
    static CTime CalculateInitialUpcomingYearlyRecurrentDueTime(const CTime& start,
                                                                const CcvReminderData* record);

    // The occurrence that follows the occurrence `from`; 0 when there is none.
    static CTime CalculateNextDailyRecurrentDueTime(const CTime& from, const CcvReminderData* record);
    static CTime CalculateNextWeeklyRecurrentDueTime(const CTime& from, const CcvReminderData* record);
    static CTime CalculateNextMonthlyRecurrentDueTime(const CTime& from, const CcvReminderData* record);
    static CTime CalculateNextYearlyRecurrentDueTime(const CTime& from, const CcvReminderData* record);

    // Texts in the interface language. Both raise what GetCalculatedDueTime raises.

    /// How far away the record's due time at `now` is, in one rounded unit from minutes to years: due in 2
    /// hours, overdue by 1 week. Never less than one minute.
    static CString GetDueInString(CcvReminderData* record, const CTime& now);
    /// The record's tooltip at `now` in mark-up: its subject in bold, and on a second line whether it is
    /// overdue, due, or to come, then its due date and time in the user's short format.
    static CString GetReminderTooltip(CcvReminderData* record, const CTime& now);
};
