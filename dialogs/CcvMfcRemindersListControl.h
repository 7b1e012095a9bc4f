#pragma once

#include "dialogs/CcvMfcRemindersHeaderControl.h"
#include "dialogs/ReminderColumn.h"
#include "dialogs/ReminderFilter.h"
#include "platform/mfc/CGdiObject.h"
#include "platform/mfc/afxcmn.h"

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

class CcvReminderDataCollectionManager;

/// Sent to the list's parent when another row was selected: lParam is the row, -1 for none, wParam 0.
inline constexpr UINT WM_REMINDER_SELCHANGED = 1165;

/// The list of reminders in the dialogs: shows those of a collection that pass a filter, sorts them, keeps
/// their due-in texts current, and carries out what the user wants of a row. It is attached to a list view
/// with the styles LVS_REPORT, LVS_OWNERDRAWFIXED and LVS_SINGLESEL.
///
/// A row knows its reminder's index in the collection and its GUID, never a record: records are freed when
/// the collection is loaded again, and each change through the collection may cause that before it returns.
/// Rows are given their reminders' new indices when the list is sorted, and each minute. A row whose reminder
/// vanished is left until the next refresh; actions on it do nothing, and it is sorted as without a due time.
///
/// The subject's column takes what room the list gains and gives what it loses, be it by its size or by its
/// vertical scroll bar, for as long as the user has not set its width.
class CcvMfcRemindersListControl : public CListCtrl
{
  public:
    /// `manager` stays the caller's.
    explicit CcvMfcRemindersListControl(CcvReminderDataCollectionManager* manager);
    CcvMfcRemindersListControl(const CcvMfcRemindersListControl&) = delete;
    CcvMfcRemindersListControl& operator=(const CcvMfcRemindersListControl&) = delete;
    ~CcvMfcRemindersListControl() override;

    /// Takes effect with the next refresh.
    void SetFilter(ReminderListFilter filter) { m_filter = filter; }
    [[nodiscard]] ReminderListFilter GetFilter() const { return m_filter; }

    /// Makes the columns in `columnMask` (bits of ReminderColumn) and starts the minute timer.
    void InitializeColumns(unsigned columnMask);
    /// Fills the list anew. The selected reminder stays selected; if it is gone, its row is.
    void Refresh();

    /// 0 before the first refresh.
    [[nodiscard]] CTime GetLastRefreshTime() const { return m_lastRefresh; }

    /// -1 when no row is selected.
    [[nodiscard]] int GetSelectedIndex() const;
    // Records belong to the collection, and live until it is loaded again; null when there is none.
    [[nodiscard]] CcvReminderData* GetSelectedReminder() const;
    [[nodiscard]] CcvReminderData* GetReminder(int row) const;
    /// Selects the row instead of the present one, -1 for none, and tells the parent, if it is another.
    void SelectRow(int row);
    /// Appends a row; its number, -1 on failure.
    int InsertReminder(int collectionIndex, CcvReminderData* reminder, const CTime& now);

    // Actions on the reminder of a row. They do nothing when there is none.

    /// Opens the reminder's topic in the application, which is started if need be.
    void OpenReminder(int row);
    void DismissReminder(int row);
    void EndReminder(int row);
    void SnoozeReminder(int row, const CTimeSpan& span);
    /// Writes an edited copy back.
    void ModifyReminder(int row, const CcvReminderData& edited);
    /// Of a recurring reminder the user may choose to delete only the present occurrence.
    void DeleteReminder(int row);

    void DrawItem(DRAWITEMSTRUCT* item) override;

  protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    void OnColumnClick(NMHDR* notification, LRESULT* result);
    void OnTimer(UINT_PTR id);
    void OnSize(UINT type, int width, int height);
    void OnKeyDown(UINT key, UINT repeats, UINT flags);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    LRESULT OnRButtonDown(WPARAM wParam, LPARAM lParam);
    void OnSysColorChange();

    DECLARE_MESSAGE_MAP()

  private:
    /// What is known of the reminder that a row shows, as it was when the row was made.
    struct Row
    {
        CString guid;
        bool isRecurrent = false;
        CString subject;
        CString documentTitle;
        std::optional<CcvReminderData::ReminderStatus> status;
    };

    /// How one row is drawn.
    struct RowLook
    {
        int row;
        int image; ///< negative for none
        UINT overlay;
        bool isHighlighted; ///< selected, in the list that has the focus
        HFONT font;
    };

    [[nodiscard]] std::optional<int> FindCollectionIndex(int row) const;
    [[nodiscard]] const Row* FindRow(int row) const;
    [[nodiscard]] CcvReminderData* FindReminder(int collectionIndex, const Row& row) const;
    [[nodiscard]] int FindInCollection(const CString& guid) const;
    [[nodiscard]] bool IsAt(int collectionIndex, const Row& row) const;
    void FollowCollection();
    [[nodiscard]] std::unordered_map<int, int> FindNewIndices() const;
    [[nodiscard]] bool IsColumn(int column, ReminderColumn kind) const;

    void InsertColumns(unsigned columnMask);
    void AddColumn(ReminderColumn kind, const CString& heading, int width);
    [[nodiscard]] int FindColumn(ReminderColumn kind) const;
    [[nodiscard]] int ClientWidth() const;
    void InitializeImages();
    void InitializeHeader();
    void UseWindowColour();

    void FillRows(CTime now);
    [[nodiscard]] int FindRowToSelect(int formerRow, const CString& formerGuid) const;
    void ScrollTo(CPoint position);
    void NotifySelection(int row);
    void NotifyChangedSelection(int formerRow);

    void SortRows();
    void UpdateTimes();
    [[nodiscard]] bool InsertNewlyDue(CTime now);
    void UpdateDueInTexts(CTime now);

    void DrawCell(CDC& dc, const RowLook& look, int column, const CRect& cell, int format);
    [[nodiscard]] HFONT GetBoldFont();
    [[nodiscard]] HFONT GetNormalFont();
    [[nodiscard]] std::unique_ptr<CFont> MakeFont(std::optional<LONG> weight) const;

    ReminderListFilter m_filter = ReminderListFilter::Recent;
    CcvReminderDataCollectionManager* m_manager;
    std::unordered_map<int, Row> m_rows; ///< by index in the collection, which is each row's item data
    std::unique_ptr<CFont> m_boldFont;
    std::unique_ptr<CFont> m_normalFont;
    CImageList m_images;
    CcvMfcRemindersHeaderControl m_header;
    std::vector<ReminderColumn> m_columns;
    int m_subjectWidth = 0; ///< of its column, as it was set here
    int m_otherWidth = 0;   ///< what that column leaves of the client area's width
    ReminderColumn m_sortColumn = ReminderColumn::DueIn;
    CTime m_lastRefresh;
    bool m_ascending = true;
};
