#pragma once

#include "dialogs/CcvMfcDialogBaseInternal.h"
#include "dialogs/DialogMessageHook.h"
#include "platform/mfc/atltime.h"

#include <array>

/// The pane in which the user sets a weekly pattern; a child of the add-reminder dialog. It knows nothing of
/// records: setters fill it before it is shown or exchanges data, getters tell what the last exchange read.
/// A new pane has the weekday of the present local date.
class TS_API CcvMfcRecurrenceWeeklyDialog : public CcvMfcDialogBaseInternal
{
    DECLARE_DYNAMIC(CcvMfcRecurrenceWeeklyDialog)

  public:
    explicit CcvMfcRecurrenceWeeklyDialog(CWnd* parent = nullptr);

    /// Only kept; the weekday is not chosen anew.
    [[nodiscard]] CTime GetStartTime() const { return m_startTime; }
    void SetStartTime(const CTime& start) { m_startTime = start; }
    /// Every how many weeks.
    [[nodiscard]] int GetWeeklyNumber() const { return m_number; }
    void SetWeeklyNumber(int weeks) { m_number = weeks; }

    [[nodiscard]] bool GetIsRecurrentOnSunday() const { return IsOn(kSunday); }
    [[nodiscard]] bool GetIsRecurrentOnMonday() const { return IsOn(kMonday); }
    [[nodiscard]] bool GetIsRecurrentOnTuesday() const { return IsOn(kTuesday); }
    [[nodiscard]] bool GetIsRecurrentOnWednesday() const { return IsOn(kWednesday); }
    [[nodiscard]] bool GetIsRecurrentOnThursday() const { return IsOn(kThursday); }
    [[nodiscard]] bool GetIsRecurrentOnFriday() const { return IsOn(kFriday); }
    [[nodiscard]] bool GetIsRecurrentOnSaturday() const { return IsOn(kSaturday); }
    void SetIsRecurrentOnSunday(bool on) { SetOn(kSunday, on); }
    void SetIsRecurrentOnMonday(bool on) { SetOn(kMonday, on); }
    void SetIsRecurrentOnTuesday(bool on) { SetOn(kTuesday, on); }
    void SetIsRecurrentOnWednesday(bool on) { SetOn(kWednesday, on); }
    void SetIsRecurrentOnThursday(bool on) { SetOn(kThursday, on); }
    void SetIsRecurrentOnFriday(bool on) { SetOn(kFriday, on); }
    void SetIsRecurrentOnSaturday(bool on) { SetOn(kSaturday, on); }

    /// Adds the weekday of the start time, if it has a local date.
    void Initialize();
    /// Refuses less than one week and a pattern without a day.
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    /// Goes to the dialog around: the pane does not end itself.
    void OnOK() override;

  protected:
    /// Goes there too.
    void OnCancel() override;

  private:
    enum Weekday : std::size_t
    {
        kSunday,
        kMonday,
        kTuesday,
        kWednesday,
        kThursday,
        kFriday,
        kSaturday,
        kWeekdays
    };

    [[nodiscard]] bool IsOn(Weekday day) const { return m_days.at(day) != 0; }
    void SetOn(Weekday day, bool on) { m_days.at(day) = on ? 1 : 0; }

    CTime m_startTime = CTime::GetCurrentTime();
    int m_number = 1;
    std::array<int, kWeekdays> m_days{};
    ts::DialogMessageRegistration m_messages;
};
