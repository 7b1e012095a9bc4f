#pragma once

#include "dialogs/CcvMfcDialogBaseInternal.h"
#include "dialogs/DialogMessageHook.h"
#include "platform/mfc/BasicControls.h"
#include "platform/mfc/atltime.h"
#include "reminders/CcvReminderData.h"

/// The pane in which the user sets a monthly pattern; a child of the add-reminder dialog. It knows nothing of
/// records: setters fill it before it is shown or exchanges data, getters tell what the last exchange read.
/// A new pane suggests the present local date, with these oddities that are meant:
/// - the ordinal is the day of the month divided by 7, so the 7th counts as second;
/// - in German and French the preselected day type is the entry before today's weekday on a Sunday, and
///   SetMonthlyReminderDayType selects the entry behind the weekday that it is given: the combo box ends with
///   Sunday in these languages, the positions that the setter uses do not.
class TS_API CcvMfcRecurrenceMonthlyDialog : public CcvMfcDialogBaseInternal
{
    DECLARE_DYNAMIC(CcvMfcRecurrenceMonthlyDialog)

  public:
    explicit CcvMfcRecurrenceMonthlyDialog(CWnd* parent = nullptr);

    /// Only kept; nothing is suggested anew.
    [[nodiscard]] CTime GetStartTime() const { return m_startTime; }
    void SetStartTime(const CTime& start) { m_startTime = start; }
    [[nodiscard]] EcvReminderMonthlyOccurence GetMonthlyOccurenceType() const;
    void SetMonthlyOccurenceType(EcvReminderMonthlyOccurence type);

    // Day D of every N months.
    [[nodiscard]] int GetMonthlyRecurrentDayOfMonth() const { return m_day; }
    void SetMonthlyRecurrentDayOfMonth(int day) { m_day = day; }
    [[nodiscard]] int GetMonthlyReminderPattern1Month() const { return m_dayMonths; }
    void SetMonthlyReminderPattern1Month(int months) { m_dayMonths = months; }

    // The ordinal day type of every N months.
    [[nodiscard]] EcvReminderDayIntegralType GetMonthlyReminderDayIntegralType() const;
    void SetMonthlyReminderDayIntegralType(EcvReminderDayIntegralType ordinal);
    /// An EcvReminderDayType; 0 until data was exchanged, whatever was set.
    [[nodiscard]] long GetMonthlyReminderDayType() const { return m_dayType; }
    /// A value that is no EcvReminderDayType selects the first entry.
    void SetMonthlyReminderDayType(long dayType);
    [[nodiscard]] int GetMonthlyReminderPattern2Month() const { return m_dayTypeMonths; }
    void SetMonthlyReminderPattern2Month(int months) { m_dayTypeMonths = months; }

    /// Refuses numbers below one and days above 31, and asks about days that not every month has.
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    /// Goes to the dialog around: the pane does not end itself.
    void OnOK() override;

  protected:
    /// Goes there too.
    void OnCancel() override;

  private:
    void Initialize();
    void Validate(CDataExchange* exchange) const;

    CComboBox m_ordinals;
    CComboBox m_dayTypes;
    CTime m_startTime = CTime::GetCurrentTime();
    int m_occurrence = 0;
    int m_day = 0;
    int m_dayMonths = 1;
    int m_ordinalIndex = 0;
    int m_dayTypeIndex = 0;
    int m_dayType = 0;
    int m_dayTypeMonths = 1;
    ts::DialogMessageRegistration m_messages;
};
