#pragma once

#include "dialogs/CcvMfcDialogBaseInternal.h"
#include "dialogs/DialogMessageHook.h"
#include "platform/mfc/BasicControls.h"
#include "platform/mfc/atltime.h"
#include "reminders/CcvReminderData.h"

class CDateTimeCtrl;

/// The pane in which the user sets a yearly pattern; a child of the add-reminder dialog. It knows nothing of
/// records: setters fill it before it is shown or exchanges data, getters tell what the last exchange read.
/// A new pane suggests the present local date, with the oddities of CcvMfcRecurrenceMonthlyDialog.
class TS_API CcvMfcRecurrenceYearlyDialog : public CcvMfcDialogBaseInternal
{
    DECLARE_DYNAMIC(CcvMfcRecurrenceYearlyDialog)

  public:
    explicit CcvMfcRecurrenceYearlyDialog(CWnd* parent = nullptr);

    /// Only kept; nothing is suggested anew.
    [[nodiscard]] CTime GetStartTime() const { return m_startTime; }
    void SetStartTime(const CTime& start) { m_startTime = start; }
    /// Shows the date whose year decides how long the months are. Stays the caller's, and is there whenever
    /// the pane exchanges data.
    [[nodiscard]] CDateTimeCtrl* GetDueDateControl() const { return m_dueDate; }
    void SetDueDateControl(CDateTimeCtrl* dueDate) { m_dueDate = dueDate; }
    [[nodiscard]] EcvReminderYearlyOccurence GetYearlyOccurenceType() const;
    void SetYearlyOccurenceType(EcvReminderYearlyOccurence type);

    // Day D of a month. The months tell January until data was exchanged, whatever was set.
    [[nodiscard]] int GetYearlyRecurrentDay() const { return m_day; }
    void SetYearlyRecurrentDay(int day) { m_day = day; }
    [[nodiscard]] EcvMonth GetYearlyReminderPattern1Month() const;
    /// What is no month selects January.
    void SetYearlyReminderPattern1Month(EcvMonth month);

    // The ordinal day type of a month.
    [[nodiscard]] EcvReminderDayIntegralType GetYearlyReminderDayIntegralType() const;
    void SetYearlyReminderDayIntegralType(EcvReminderDayIntegralType ordinal);
    /// An EcvReminderDayType; 0 until data was exchanged, whatever was set.
    [[nodiscard]] long GetYearlyReminderDayType() const { return m_dayType; }
    /// A value that is no EcvReminderDayType selects the first entry.
    void SetYearlyReminderDayType(long dayType);
    [[nodiscard]] EcvMonth GetYearlyReminderPattern2Month() const;
    void SetYearlyReminderPattern2Month(EcvMonth month);

    /// Refuses days that the month never has, and asks about February 29.
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
    [[nodiscard]] int GetDueYear() const;

    CComboBox m_dayMonthNames;
    CComboBox m_dayTypeMonthNames;
    CComboBox m_ordinals;
    CComboBox m_dayTypes;
    CDateTimeCtrl* m_dueDate = nullptr;
    CTime m_startTime = CTime::GetCurrentTime();
    int m_occurrence = 0;
    int m_dayMonthIndex = 0;
    int m_dayMonth = 1;
    int m_day = 0;
    int m_ordinalIndex = 0;
    int m_dayTypeIndex = 0;
    int m_dayType = 0;
    int m_dayTypeMonthIndex = 0;
    int m_dayTypeMonth = 1;
    ts::DialogMessageRegistration m_messages;
};
