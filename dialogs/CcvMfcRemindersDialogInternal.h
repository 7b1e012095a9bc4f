#pragma once

#include "dialogs/CcvMfcDialogBaseInternal.h"
#include "dialogs/CcvStaticImage.h"
#include "dialogs/DialogLayout.h"

#include <memory>
#include <type_traits>

class CcvMfcRemindersListControl;
class CcvReminderData;
class CcvReminderDataCollectionManager;

/// Base of the dialogs that list reminders: the list, the details of the selected reminder and the button
/// that opens its topic.
///
/// Each change through the collection may bring the host's own message before it returns, and with it the
/// collection may be loaded again, the list refreshed or the dialog closed and destroyed. After such a call
/// neither records nor rows from before are used, and nothing of the dialog unless its window is still there.
class CcvMfcRemindersDialogInternal : public CcvMfcDialogBaseInternal
{
    DECLARE_DYNAMIC(CcvMfcRemindersDialogInternal)

  public:
    /// `manager` stays the caller's and outlives the dialog.
    CcvMfcRemindersDialogInternal(UINT nIDTemplate, CcvReminderDataCollectionManager* manager,
                                  CWnd* pParentWnd);
    CcvMfcRemindersDialogInternal(const CcvMfcRemindersDialogInternal&) = delete;
    CcvMfcRemindersDialogInternal& operator=(const CcvMfcRemindersDialogInternal&) = delete;
    ~CcvMfcRemindersDialogInternal() override;

    /// Opens the selected reminder's topic in the application.
    virtual void OpenSelectedReminder();
    virtual void HandleSysCommand(UINT nID, LPARAM lParam);
    /// Shows the selected reminder's details, and enables what can be done with it.
    virtual void UpdateControls();
    /// Fills the list anew; does nothing while there is no window.
    virtual void RefreshReminders();
    /// Bits of ReminderColumn.
    [[nodiscard]] virtual unsigned GetListColumns() const;

    BOOL OnInitDialog() override;

  protected:
    void DoDataExchange(CDataExchange* exchange) override;

    [[nodiscard]] CcvMfcRemindersListControl& List() const noexcept { return *m_list; }
    [[nodiscard]] CcvReminderDataCollectionManager& Manager() const noexcept { return *m_manager; }
    /// Says how a control of the derived dialog follows the dialog's size.
    void FollowSize(int controlId, ts::Follow follow) { m_layout.Add(controlId, follow); }
    /// A control that is disabled gives the focus to the list: keys would reach nobody.
    void EnableControl(int controlId, bool enabled);

    LRESULT OnSelectionChanged(WPARAM wParam, LPARAM lParam);
    void OnOpen();
    void OnSysCommand(UINT command, LPARAM lParam);
    void OnSize(UINT type, int width, int height);
    LRESULT OnGetMinMaxInfo(WPARAM wParam, LPARAM lParam);
    void OnDestroy();

    DECLARE_MESSAGE_MAP()

  private:
    struct IconDestroyer
    {
        void operator()(HICON icon) const noexcept { DestroyIcon(icon); }
    };
    using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, IconDestroyer>;

    [[nodiscard]] static Icon LoadReminderIcon(int widthMetric, int heightMetric);
    void ShowIcons();
    void MakeSubjectBold();
    void InitializeLayout();
    void InitializeImage();
    void ShowDetails(const CcvReminderData* reminder);
    void PlaceSubject(bool besideImage);
    [[nodiscard]] CRect PlaceOf(int controlId) const;

    CFont m_boldFont;
    CcvStaticImage m_recurrenceImage;
    std::unique_ptr<CcvMfcRemindersListControl> m_list;
    CString m_subject;
    CString m_due;
    CBitmap m_recurrenceBitmap;
    Icon m_bigIcon;
    Icon m_smallIcon;
    CcvReminderDataCollectionManager* m_manager;
    ts::DialogLayout m_layout;
};
