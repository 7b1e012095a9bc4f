#pragma once

#include "platform/Export.h"
#include "platform/WindowsHeaders.h"
#include "platform/mfc/afxstr.h"
#include "platform/mfc/atltime.h"

#include <cstdint>

/// The kind of recurrence. A stored value may be any other number: it counts as recurrent, but has no next
/// occurrence.
enum class EcvReminderRecurrenceType : std::int32_t
{
    None = 0,
    Daily = 1,
    Weekly = 2,
    Monthly = 3,
    Yearly = 4
};

enum class EcvReminderDailyOccurence : std::int32_t
{
    EveryNDays = 0,
    EveryWeekday = 1 ///< Monday to Friday
};

enum class EcvReminderMonthlyOccurence : std::int32_t
{
    DayOfMonth = 0,    ///< day D of every N months
    OrdinalDayType = 1 ///< for example the second Tuesday of every N months
};

enum class EcvReminderYearlyOccurence : std::int32_t
{
    DayOfMonth = 0,    ///< month M, day D
    OrdinalDayType = 1 ///< for example the last weekend day of month M
};

/// Which one of the days of a type within its month.
enum class EcvReminderDayIntegralType : std::int32_t
{
    First = 0,
    Second = 1,
    Third = 2,
    Fourth = 3,
    Last = 4
};

/// A type of day; the seven weekdays have the values of Outlook's day-of-week bits.
enum class EcvReminderDayType : std::int32_t
{
    Sunday = 1,
    Monday = 2,
    Tuesday = 4,
    Wednesday = 8,
    Thursday = 16,
    Friday = 32,
    Saturday = 64,
    Day = 128,       ///< any day
    Weekday = 256,   ///< Monday to Friday
    WeekendDay = 512 ///< Saturday or Sunday
};

enum class EcvMonth : std::int32_t
{
    January = 1,
    February,
    March,
    April,
    May,
    June,
    July,
    August,
    September,
    October,
    November,
    December
};

/// One reminder: an alert attached to one topic of one map document.
///
/// Times are seconds UTC, 0 means "no time"; calendar questions are answered in the machine's local time.
/// Asking a recurring reminder for its due time moves it on to the occurrence that is in force at that
/// time, so the state operations are not const. The class has no lock: one thread at a time for one object.
///
/// The six recurrence options are shared by all recurrence types: accessors of different types are
/// different views of the same slot, and SetRecurrenceType leaves the slots as they are.
///
/// Traps: on short months, 29 February and clock changes see CcvReminderDataUtilities.
class TS_API CcvReminderData
{
  public:
    /// How urgent a reminder is at a given time.
    enum ReminderStatus : std::int32_t
    {
        RemindActive = 0,    ///< due on another day, its reminder time has passed
        RemindPending = 1,   ///< due on another day, its reminder time has not passed
        DueTodayActive = 2,  ///< due today, its reminder time has passed
        DueTodayPending = 3, ///< due today, its reminder time has not passed
        Overdue = 4          ///< its due time has passed
    };

    /// A reminder due now, rounded up to the quarter hour of the local time.
    /// Raises COleException (E_FAIL) between 23:46 and 24:00, because the hour is not carried into the next
    /// day, and when the clock stands outside the years 1970 to 3000.
    CcvReminderData();
    /// A reminder with that registry key and nothing else, to be loaded; both due dates are 0.
    explicit CcvReminderData(const CString& reminderKey);
    /// Copies every field.
    CcvReminderData(const CcvReminderData& other);
    CcvReminderData& operator=(const CcvReminderData& other);
    virtual ~CcvReminderData();

    /// Writes an edited copy back: copies everything but the topic's title, the snooze time and the snoozed
    /// and dismissed state, which keep this reminder's values. The key is copied.
    void CopyData(CcvReminderData* source);

    /// The name of the reminder's registry subkey; empty until it is first saved.
    [[nodiscard]] CString GetReminderKey() const { return m_reminderKey; }
    [[nodiscard]] CString GetDocumentPath() const { return m_documentPath; }
    [[nodiscard]] CString GetMapGuid() const { return m_mapGuid; }
    [[nodiscard]] CString GetObjectGuid() const { return m_objectGuid; }
    [[nodiscard]] CString GetOutlookObjectGuid() const { return m_outlookObjectGuid; }
    [[nodiscard]] CString GetOutlookEntryId() const { return m_outlookEntryId; }
    [[nodiscard]] CString GetDocumentTitle() const { return m_documentTitle; }
    [[nodiscard]] CString GetObjectTitle() const { return m_objectTitle; }
    [[nodiscard]] CString GetSubject() const { return m_subject; }
    void SetDocumentPath(const CString& path);
    void SetMapGuid(const CString& guid);
    void SetObjectGuid(const CString& guid);
    void SetOutlookObjectGuid(const CString& guid);
    void SetOutlookEntryId(const CString& entryId);
    /// The three texts for display are stored without carriage returns and line feeds.
    void SetDocumentTitle(const CString& title);
    void SetObjectTitle(const CString& title);
    void SetSubject(const CString& subject);

    /// The identity of the topic: "{document path}{map GUID}{object GUID}".
    [[nodiscard]] const CString GetGuid() const;

    /// The first due time, as the user entered it.
    [[nodiscard]] CTime GetInitialDueDate() const { return m_initialDueDate; }
    void SetInitialDueDate(const CTime& dueUtc) { m_initialDueDate = dueUtc; }
    /// The due time in force.
    [[nodiscard]] CTime GetNextDueDate() const { return m_nextDueDate; }
    void SetNextDueDate(const CTime& dueUtc) { m_nextDueDate = dueUtc; }
    /// The lead time: the reminder fires that long before its due time.
    [[nodiscard]] CTimeSpan GetReminderTimeSpan() const { return m_reminderTimeSpan; }
    void SetReminderTimeSpan(const CTimeSpan& lead) { m_reminderTimeSpan = lead; }
    /// When a snoozed reminder fires again.
    [[nodiscard]] CTime GetSnoozeTime() const { return m_snoozeTime; }

    [[nodiscard]] bool IsSnoozed() const { return (m_flags & kSnoozed) != 0; }
    /// Spelt so; part of the interface.
    [[nodiscard]] bool IsDimissed() const { return (m_flags & kDismissed) != 0; }
    void SetSnoozed(bool snoozed);
    /// Snoozes the reminder until `span` from now.
    void SetSnoozeTime(const CTimeSpan& span);
    /// true ends the snooze and marks a reminder as dismissed, or moves a recurring one on to its next
    /// occurrence, which may be 0 ("no time") and may raise what GetNextRecurrentTime raises.
    /// false takes the mark away and leaves the snooze as it is.
    void SetDismissed(bool dismissed);

    /// The due time in force at `now`. A recurring reminder whose due time is past stays at that occurrence
    /// until the reminder time (due time less lead time) of the next one has come; then it moves on.
    /// A pattern that does not advance keeps its present occurrence.
    /// Raises what GetNextRecurrentTime raises; the record is unchanged then.
    CTime GetCalculatedDueTime(const CTime& now);
    /// When the reminder fires: its snooze time when snoozed, else its due time at `now` less the lead time.
    /// Raises like GetCalculatedDueTime.
    CTime GetReminderTime(const CTime& now);
    /// A time equal to `now` counts as not yet passed. Raises like GetCalculatedDueTime.
    ReminderStatus GetReminderStatus(const CTime& now);

    /// The occurrence that follows the occurrence `from`, by the pattern of the recurrence type; 0 when there
    /// is none. Raises COleException (E_FAIL, E_INVALIDARG) when the date cannot be built.
    [[nodiscard]] CTime GetNextRecurrentTime(const CTime& from) const;
    [[nodiscard]] CTime GetNextDailyRecurrentTime(const CTime& from) const;
    [[nodiscard]] CTime GetNextWeeklyRecurrentTime(const CTime& from) const;
    [[nodiscard]] CTime GetNextMonthlyRecurrentTime(const CTime& from) const;
    [[nodiscard]] CTime GetNextYearlyRecurrentTime(const CTime& from) const;

    [[nodiscard]] EcvReminderRecurrenceType GetRecurrenceType() const { return m_recurrenceType; }
    void SetRecurrenceType(EcvReminderRecurrenceType type) { m_recurrenceType = type; }
    [[nodiscard]] bool IsRecurrent() const { return m_recurrenceType != EcvReminderRecurrenceType::None; }
    /// Sets all six option slots to 0; the recurrence type stays.
    void ResetRecurrenceOptions();

    // Daily: slot 1 occurrence, slot 2 every N days.
    [[nodiscard]] EcvReminderDailyOccurence GetDailyOccurrenceType() const;
    void SetDailyOccurenceType(EcvReminderDailyOccurence type);
    [[nodiscard]] int GetDailyRecurrenceNumber() const;
    void SetDailyRecurrenceNumber(int days);

    // Weekly: slot 1 every N weeks, slot 2 one bit per weekday, bit 0 Sunday to bit 6 Saturday.
    [[nodiscard]] int GetWeeklyRecurrenceNumber() const;
    void SetWeeklyRecurrenceNumber(int weeks);
    [[nodiscard]] long GetWeeklyRecurrenceFlag() const;
    void SetWeeklyRecurrenceFlag(long days);
    [[nodiscard]] bool GetIsWeeklyRecurrenceOnSunday() const;
    [[nodiscard]] bool GetIsWeeklyRecurrenceOnMonday() const;
    [[nodiscard]] bool GetIsWeeklyRecurrenceOnTuesday() const;
    [[nodiscard]] bool GetIsWeeklyRecurrenceOnWednesday() const;
    [[nodiscard]] bool GetIsWeeklyRecurrenceOnThursday() const;
    [[nodiscard]] bool GetIsWeeklyRecurrenceOnFriday() const;
    [[nodiscard]] bool GetIsWeeklyRecurrenceOnSaturday() const;
    /// true sets the day's bit. false does nothing: days are cleared with SetWeeklyRecurrenceFlag.
    void SetIsWeeklyRecurrenceOnSunday(bool on);
    void SetIsWeeklyRecurrenceOnMonday(bool on);
    void SetIsWeeklyRecurrenceOnTuesday(bool on);
    void SetIsWeeklyRecurrenceOnWednesday(bool on);
    void SetIsWeeklyRecurrenceOnThursday(bool on);
    void SetIsWeeklyRecurrenceOnFriday(bool on);
    void SetIsWeeklyRecurrenceOnSaturday(bool on);

    // Monthly: slot 1 occurrence; slots 2 and 3 day D of every N months; slots 4 to 6 ordinal, day type (an
    // EcvReminderDayType) and every N months.
    [[nodiscard]] EcvReminderMonthlyOccurence GetMonthlyOccurrenceType() const;
    void SetMonthlyOccurenceType(EcvReminderMonthlyOccurence type);
    [[nodiscard]] int GetMonthlyRecurrentDayOfMonth() const;
    void SetMonthlyRecurrentDayOfMonth(int day);
    [[nodiscard]] int GetMonthlyReminderPattern1Month() const;
    void SetMonthlyReminderPattern1Month(int months);
    [[nodiscard]] EcvReminderDayIntegralType GetMonthlyReminderDayIntegralType() const;
    void SetMonthlyReminderDayIntegralType(EcvReminderDayIntegralType ordinal);
    [[nodiscard]] long GetMonthlyReminderDayType() const;
    void SetMonthlyReminderDayType(long dayType);
    [[nodiscard]] int GetMonthlyReminderPattern2Month() const;
    void SetMonthlyReminderPattern2Month(int months);

    // Yearly: slot 1 occurrence; slots 2 and 3 day D of month M; slots 4 to 6 ordinal, day type (an
    // EcvReminderDayType) and month M.
    [[nodiscard]] EcvReminderYearlyOccurence GetYearlyOccurenceType() const;
    void SetYearlyOccurenceType(EcvReminderYearlyOccurence type);
    [[nodiscard]] int GetYearlyRecurrentDay() const;
    void SetYearlyRecurrentDay(int day);
    [[nodiscard]] EcvMonth GetYearlyReminderPattern1Month() const;
    void SetYearlyReminderPattern1Month(EcvMonth month);
    [[nodiscard]] EcvReminderDayIntegralType GetYearlyReminderDayIntegralType() const;
    void SetYearlyReminderDayIntegralType(EcvReminderDayIntegralType ordinal);
    [[nodiscard]] long GetYearlyReminderDayType() const;
    void SetYearlyReminderDayType(long dayType);
    [[nodiscard]] EcvMonth GetYearlyReminderPattern2Month() const;
    void SetYearlyReminderPattern2Month(EcvMonth month);

    // Persistence. `basePath` is the reminders' key below HKEY_CURRENT_USER (ts::kRemindersPath); each
    // reminder is one subkey of it. Single values that cannot be read or written are passed over: what is
    // missing or damaged leaves its field as it was.

    /// Fills the record from its key. False, with the record unchanged, when there is no such key. All texts
    /// but the subject are emptied first. Options are read for the recurrence types 1 to 4 only.
    bool LoadDataFromRegistry(const CString& basePath);
    /// Writes the whole record and gives it a key first if it has none. False when the key can neither be
    /// opened nor created. Options that the recurrence type does not use stay in the store as they are.
    bool SaveDataToRegistry(const CString& basePath);
    /// Deletes the reminder's key with everything below it. False when there is none.
    bool DeleteDataFromRegistry(const CString& basePath);
    /// Reads only the two Outlook identifiers; a missing one leaves its field. False when there is no key.
    bool LoadOutlookDataFromRegistry(const CString& basePath);
    /// Writes only the two Outlook identifiers. False when the key can neither be opened nor created.
    bool SaveOutlookDataToRegistry(const CString& basePath);
    /// The same, but only where the key exists and holds a reminder with the same map and object GUID.
    /// Nothing is created, not even when the key is deleted meanwhile. False when the identifiers were not
    /// written.
    bool UpdateOutlookDataInRegistry(const CString& basePath) const;
    /// Reads the value `name` of an open key, if the key's "RecurrenceType" is a REG_DWORD; the type of the
    /// value itself is not looked at. `out` is untouched on failure, and above the value's size.
    bool ReadDoubleWordValue(HKEY key, const CString& name, DWORD* out);

  private:
    // Compares and changes fields in place.
    friend class CcvReminderDataCollectionManager;

    static constexpr std::uint32_t kSnoozed = 1;
    static constexpr std::uint32_t kDismissed = 2;

    /// Whether GetGuid would give that text.
    [[nodiscard]] bool HasGuid(const CString& guid) const noexcept;
    [[nodiscard]] bool IsOnWeekday(int bit) const;
    void SetOnWeekday(int bit, bool on);
    void LoadOutlookIdentifiers(HKEY key);
    bool SaveOutlookIdentifiers(HKEY key) const;
    void LoadRecurrence(HKEY key);

    CString m_reminderKey;
    CString m_documentPath;
    CString m_mapGuid;
    CString m_objectGuid;
    CString m_outlookObjectGuid;
    CString m_outlookEntryId;
    CString m_documentTitle;
    CString m_objectTitle;
    CString m_subject;
    CTime m_initialDueDate;
    CTime m_snoozeTime;
    CTime m_nextDueDate;
    CTimeSpan m_reminderTimeSpan;
    std::uint32_t m_flags = 0;
    EcvReminderRecurrenceType m_recurrenceType = EcvReminderRecurrenceType::None;
    std::int32_t m_recurrenceOption1 = 0;
    std::int32_t m_recurrenceOption2 = 0;
    std::int32_t m_recurrenceOption3 = 0;
    std::int32_t m_recurrenceOption4 = 0;
    std::int32_t m_recurrenceOption5 = 0;
    std::int32_t m_recurrenceOption6 = 0;
};
