#pragma once

#include "ApplicationClass.h"
#include "ReminderActions.h"
#include "RemindersView.h"

#include "TsServiceUtilities.h"

#include <memory>
#include <optional>

namespace ts::desktop
{

/// Posted to the main window by another start of the program: the user wants to see it.
inline constexpr UINT kShowMessage = WM_APP + 1;

/// The application's main window: lists the topics that have reminders. The library's messages reach it here.
class MainWindow : public CWnd, public AutomationTarget
{
  public:
    explicit MainWindow(CcvReminderDataCollectionManager& manager);
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    ~MainWindow() override;

    /// Makes the window, invisible, and offers the application to COM. Raises std::runtime_error.
    void Open();
    /// The user wants to see the window: it comes to the front, and stays until the user closes it.
    void ShowToUser();
    /// Ends the program unless a client of COM comes soon.
    void AwaitClient();

    // Without a user the window lives as long as somebody sees it or holds an object of the application.
    [[nodiscard]] bool IsVisible() const override { return IsWindowVisible() != FALSE; }
    void SetVisible(bool visible) override;
    void Quit() override;
    bool StaysWithoutClients() override;

    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    BOOL PreCreateWindow(CREATESTRUCTW& creation) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    void OnClose();
    void OnDestroy();
    void OnSize(UINT type, int width, int height);
    void OnTimer(UINT_PTR id);
    void OnSetFocus(CWnd* former);
    void OnSettingChange(UINT action, const wchar_t* section);
    LRESULT OnActivate(WPARAM wParam, LPARAM lParam);
    LRESULT OnMinimumSize(WPARAM wParam, LPARAM lParam);
    LRESULT OnMenuOpens(WPARAM wParam, LPARAM lParam);
    LRESULT OnStaticColour(WPARAM wParam, LPARAM lParam);
    LRESULT OnTimeChange(WPARAM wParam, LPARAM lParam);
    LRESULT OnEndSession(WPARAM wParam, LPARAM lParam);
    LRESULT OnSynchronize(WPARAM wParam, LPARAM lParam);
    LRESULT OnOpenReminder(WPARAM wParam, LPARAM lParam);
    LRESULT OnShowRequest(WPARAM wParam, LPARAM lParam);
    LRESULT OnEndUnlessUsed(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

  private:
    struct Destroyer
    {
        void operator()(HACCEL table) const noexcept { DestroyAcceleratorTable(table); }
    };

    // Children and their places (MainWindowLayout.cpp).
    void CreateChildren();
    void CreateButton(CButton& button, UINT command, UINT textId);
    void UseSystemFont();
    void PlaceAtStart();
    void Arrange();
    [[nodiscard]] SIZE ButtonSize() const;
    /// From dialog units to pixels, by the window's font.
    [[nodiscard]] int Across(int units) const { return MulDiv(units, m_unit.cx, 4); }
    [[nodiscard]] int Down(int units) const { return MulDiv(units, m_unit.cy, 8); }

    void Execute(UINT command);
    void Act(UINT command);
    void Add();
    void Manage();
    void Reload();
    void ShowReminders();
    void ShowState();
    void EnableButton(CButton& button, bool enabled);
    void BringToFront();
    /// A dialog of this or the manage window that waits for the user, or null.
    [[nodiscard]] HWND WaitingDialog() const;
    [[nodiscard]] bool IsNeeded() const { return m_userControl || IsVisible(); }

    CcvReminderDataCollectionManager& m_manager;
    ReminderActions m_actions;
    CcvMfcManageRemindersDialog m_manageDialog;
    std::optional<ApplicationClass> m_class;

    CFont m_font;
    SIZE m_unit{4, 8};
    CStatic m_label;
    RemindersView m_list;
    CStatic m_hint;
    CButton m_addButton;
    CButton m_editButton;
    CButton m_deleteButton;
    CButton m_manageButton;
    CWnd m_statusBar;
    std::unique_ptr<std::remove_pointer_t<HACCEL>, Destroyer> m_accelerators;
    HWND m_lastFocus = nullptr;
    bool m_userControl = false;
    bool m_busy = false;
};

} // namespace ts::desktop
