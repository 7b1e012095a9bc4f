#pragma once

#include "ReminderRows.h"

#include "platform/mfc/CGdiObject.h"
#include "platform/mfc/afxcmn.h"

#include <optional>
#include <vector>

namespace ts::desktop
{

/// The list of the main window. The selection stays with the reminder, not with the row.
class RemindersView : public CListCtrl
{
  public:
    /// Makes the control. False when the system refuses.
    bool CreateIn(CWnd& parent, UINT id);
    /// The window's font, of which active reminders get a bold one.
    void UseFont(const CFont& font);

    /// Shows these reminders.
    void Show(std::vector<ReminderRow> rows);
    [[nodiscard]] const std::vector<ReminderRow>& GetRows() const noexcept { return m_rows; }

    [[nodiscard]] std::optional<ReminderIdentity> GetSelected() const;
    /// Selects the reminder's row and scrolls it into view. False when it is not listed.
    bool Select(const ReminderIdentity& identity);
    /// Divides the width among the columns, until the user has set a width.
    void FitColumns();

  protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    void OnColumnClick(NMHDR* notification, LRESULT* result);
    void OnCustomDraw(NMHDR* notification, LRESULT* result);

    DECLARE_MESSAGE_MAP()

  private:
    void InsertColumns();
    void Fill();
    void SelectRow(int row);
    [[nodiscard]] int FindRow(const ReminderIdentity& identity) const;
    [[nodiscard]] int SelectedRow() const { return GetNextItem(-1, LVNI_SELECTED); }
    void ShowOrder();

    std::vector<ReminderRow> m_rows;
    CFont m_boldFont;
    ReminderColumn m_sortColumn = ReminderColumn::Map;
    bool m_descending = false;
    bool m_userSetWidths = false;
};

} // namespace ts::desktop
