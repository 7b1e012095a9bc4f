#pragma once

#include "dialogs/CcvMfcRecurrenceDailyDialog.h"
#include "dialogs/CcvMfcRecurrenceMonthlyDialog.h"
#include "dialogs/CcvMfcRecurrenceWeeklyDialog.h"
#include "dialogs/CcvMfcRecurrenceYearlyDialog.h"

#include <array>

namespace ts
{

/// The four panes of the add-reminder dialog, and what of a record they show. A kind of recurrence is its
/// type less one, which is also the index of its radio button.
class RecurrencePanes
{
  public:
    static constexpr int kCount = 4;

    /// `dueDate` tells the year that the yearly pane needs.
    explicit RecurrencePanes(CDateTimeCtrl& dueDate) { m_yearly.SetDueDateControl(&dueDate); }

    /// Makes the panes' windows, hidden, as children of the dialog. Needs a resource scope.
    void Create(CWnd& dialog);
    [[nodiscard]] CcvMfcDialogBaseInternal& Pane(int kind) const
    {
        return *m_panes.at(static_cast<std::size_t>(kind));
    }

    /// Takes over the pattern of a recurring record; panes that have windows show it at once.
    void Load(const CcvReminderData& record);
    /// Takes over what stands in a pane's controls, if it has a window. False when the pane refused it.
    [[nodiscard]] bool Accept(int kind) const;
    /// Gives the record, whose options are reset, the type and the pattern that a pane took over last.
    void Store(int kind, CcvReminderData& record) const;

  private:
    void LoadDaily(const CcvReminderData& record);
    void LoadWeekly(const CcvReminderData& record);
    void LoadMonthly(const CcvReminderData& record);
    void LoadYearly(const CcvReminderData& record);
    void StoreDaily(CcvReminderData& record) const;
    void StoreWeekly(CcvReminderData& record) const;
    void StoreMonthly(CcvReminderData& record) const;
    void StoreYearly(CcvReminderData& record) const;

    CcvMfcRecurrenceDailyDialog m_daily;
    CcvMfcRecurrenceWeeklyDialog m_weekly;
    CcvMfcRecurrenceMonthlyDialog m_monthly;
    CcvMfcRecurrenceYearlyDialog m_yearly;
    std::array<CcvMfcDialogBaseInternal*, kCount> m_panes{&m_daily, &m_weekly, &m_monthly, &m_yearly};
};

} // namespace ts
