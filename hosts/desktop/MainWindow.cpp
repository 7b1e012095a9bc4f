#include "MainWindow.h"

#include "ResourceIds.h"
#include "Texts.h"
#include "hosts/common/Collection.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

namespace ts::desktop
{
namespace
{

constexpr UINT kEndUnlessUsedMessage = WM_APP + 2;

constexpr UINT_PTR kMinuteTimer = 1;
constexpr UINT kMinute = 60'000;
constexpr UINT_PTR kClientTimer = 2;
constexpr UINT kClientPatience = 60'000;
/// At the end of the session there is no more time.
constexpr DWORD kOutlookPatienceAtLogOff = 3000;

/// True while it lives.
class Flag
{
  public:
    explicit Flag(bool& flag) noexcept : m_flag(flag) { m_flag = true; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;
    ~Flag() { m_flag = false; }

  private:
    bool& m_flag;
};

/// Disables a window, which may be null, while a dialog of another one waits for the user.
class DisabledWindow
{
  public:
    explicit DisabledWindow(HWND window) noexcept : m_window(window) { EnableWindow(m_window, FALSE); }
    DisabledWindow(const DisabledWindow&) = delete;
    DisabledWindow& operator=(const DisabledWindow&) = delete;
    ~DisabledWindow() { EnableWindow(m_window, TRUE); }

  private:
    HWND m_window;
};

} // namespace

BEGIN_MESSAGE_MAP(MainWindow, CWnd)
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_TIMER()
ON_WM_SETFOCUS()
ON_WM_SETTINGCHANGE()
ON_MESSAGE(WM_ACTIVATE, OnActivate)
ON_MESSAGE(WM_GETMINMAXINFO, OnMinimumSize)
ON_MESSAGE(WM_INITMENUPOPUP, OnMenuOpens)
ON_MESSAGE(WM_CTLCOLORSTATIC, OnStaticColour)
ON_MESSAGE(WM_TIMECHANGE, OnTimeChange)
ON_MESSAGE(WM_ENDSESSION, OnEndSession)
ON_MESSAGE(kSynchronizationMessage, OnSynchronize)
ON_MESSAGE(kOpenReminderMessage, OnOpenReminder)
ON_MESSAGE(kShowMessage, OnShowRequest)
ON_MESSAGE(kEndUnlessUsedMessage, OnEndUnlessUsed)
END_MESSAGE_MAP()

MainWindow::MainWindow(CcvReminderDataCollectionManager& manager)
    : m_manager(manager), m_actions(manager, *this), m_manageDialog(&manager, nullptr)
{
}

MainWindow::~MainWindow()
{
    // While the members that its messages reach are there.
    DestroyWindow();
}

BOOL MainWindow::PreCreateWindow(CREATESTRUCTW& creation)
{
    // The class is this program's, not the library's.
    creation.hInstance = GetModuleHandleW(nullptr);
    return TRUE;
}

void MainWindow::Open()
{
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = ::DefWindowProcW;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hIcon = LoadIconW(windowClass.hInstance, MAKEINTRESOURCEW(IDI_TESSALY));
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszMenuName = MAKEINTRESOURCEW(IDM_MAIN);
    windowClass.lpszClassName = kMainWindowClass;
    // It may be registered already.
    RegisterClassExW(&windowClass);
    m_accelerators.reset(LoadAcceleratorsW(windowClass.hInstance, MAKEINTRESOURCEW(IDM_MAIN)));
    constexpr RECT kAnywhere = {CW_USEDEFAULT, 0, CW_USEDEFAULT, 0};
    if (CreateEx(WS_EX_CONTROLPARENT, kMainWindowClass, Text(IDS_APPLICATION).c_str(),
                 WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, kAnywhere, nullptr, 0) == FALSE)
    {
        throw std::runtime_error("the main window cannot be made: Windows error " +
                                 std::to_string(GetLastError()));
    }
    CreateChildren();
    PlaceAtStart();
    // What changed since the collection was loaded, when there was no window to be told.
    Reload();
    SetTimer(kMinuteTimer, kMinute);
    m_class.emplace(*this);
}

// --- Life ---

void MainWindow::AwaitClient()
{
    SetTimer(kClientTimer, kClientPatience);
}

void MainWindow::ShowToUser()
{
    m_userControl = true;
    BringToFront();
}

void MainWindow::BringToFront()
{
    if (!IsVisible())
    {
        ShowWindow(SW_SHOW);
    }
    if (IsIconic() != FALSE)
    {
        ShowWindow(SW_RESTORE);
    }
    ::SetForegroundWindow(GetLastActivePopup(m_hWnd));
}

void MainWindow::SetVisible(bool visible)
{
    if (visible != IsVisible())
    {
        ShowWindow(visible ? SW_SHOW : SW_HIDE);
    }
}

void MainWindow::Quit()
{
    PostMessage(WM_CLOSE);
}

bool MainWindow::StaysWithoutClients()
{
    if (m_userControl && !IsVisible())
    {
        // A client hid the window and has gone: the user would not find it any more.
        ShowWindow(SW_SHOWNOACTIVATE);
    }
    if (!IsNeeded())
    {
        PostMessage(kEndUnlessUsedMessage);
    }
    return IsNeeded();
}

LRESULT MainWindow::OnEndUnlessUsed(WPARAM, LPARAM)
{
    if (!IsNeeded())
    {
        DestroyWindow();
    }
    return 0;
}

LRESULT MainWindow::OnShowRequest(WPARAM, LPARAM)
{
    ShowToUser();
    return 0;
}

HWND MainWindow::WaitingDialog() const
{
    if (m_busy)
    {
        return GetLastActivePopup(m_hWnd);
    }
    const HWND manage = m_manageDialog.GetSafeHwnd();
    const bool isBusy = manage != nullptr && ::IsWindowEnabled(manage) == FALSE;
    return isBusy ? GetLastActivePopup(manage) : nullptr;
}

void MainWindow::OnClose()
{
    const HWND waiting = WaitingDialog();
    if (waiting != nullptr)
    {
        ::SetForegroundWindow(waiting);
        return;
    }
    DestroyWindow();
}

void MainWindow::OnDestroy()
{
    // New clients are sent to a new process from here on.
    m_class.reset();
    ::DestroyWindow(m_manageDialog.GetSafeHwnd());
    CWnd::OnDestroy();
    PostQuitMessage(0);
}

LRESULT MainWindow::OnEndSession(WPARAM wParam, LPARAM)
{
    if (wParam != FALSE)
    {
        static_cast<void>(m_manager.WaitForOutlookCommands(kOutlookPatienceAtLogOff));
    }
    return 0;
}

// --- Reminders ---

LRESULT MainWindow::OnSynchronize(WPARAM, LPARAM)
{
    Reload();
    return 0;
}

void MainWindow::Reload()
{
    // Its result tells of damaged reminders, of which the others are shown all the same.
    m_manager.UpdateReminderCollection();
    ShowReminders();
    m_manageDialog.SynchronizeReminders();
}

LRESULT MainWindow::OnOpenReminder(WPARAM wParam, LPARAM lParam)
{
    if (wParam != 0 || lParam < 0 || lParam >= m_manager.GetRemindersCount())
    {
        return 0;
    }
    ShowToUser();
    CcvReminderData* const reminder = m_manager.GetReminderByIndex(static_cast<int>(lParam));
    if (hosts::EnsureLoaded(*reminder) && m_list.Select(ReminderIdentity(*reminder)) &&
        IsWindowEnabled() != FALSE)
    {
        m_list.SetFocus();
    }
    return 0;
}

void MainWindow::ShowReminders()
{
    m_list.Show(MakeRows(m_manager, CTime::GetCurrentTime()));
    ShowState();
}

void MainWindow::ShowState()
{
    const bool isSelected = m_list.GetSelected().has_value();
    EnableButton(m_editButton, isSelected);
    EnableButton(m_deleteButton, isSelected);
    const auto& rows = m_list.GetRows();
    m_hint.ShowWindow(rows.empty() ? SW_SHOWNA : SW_HIDE);
    std::wstring status = Text(IDS_STATUS_NONE);
    if (!rows.empty())
    {
        status = rows.size() == 1 ? Text(IDS_STATUS_ONE) : FormatText(IDS_STATUS_MANY, rows.size());
        const auto active = std::ranges::count_if(rows, &ReminderRow::isActive);
        status = FormatText(IDS_STATUS_DUE, std::bit_cast<DWORD_PTR>(status.c_str()),
                            static_cast<DWORD_PTR>(active));
    }
    m_statusBar.SetWindowText(status.c_str());
}

void MainWindow::EnableButton(CButton& button, bool enabled)
{
    // The keyboard must not be left with a control that does not answer.
    if (!enabled && ::GetFocus() == button.m_hWnd)
    {
        m_list.SetFocus();
    }
    button.EnableWindow(enabled ? TRUE : FALSE);
}

void MainWindow::Manage()
{
    if (m_manageDialog.GetSafeHwnd() == nullptr)
    {
        m_manageDialog.Create(CcvMfcManageRemindersDialog::kTemplate, nullptr);
        ::ShowWindow(m_manageDialog.GetSafeHwnd(), SW_SHOW);
    }
    const HWND manage = m_manageDialog.GetSafeHwnd();
    if (::IsIconic(manage) != FALSE)
    {
        ::ShowWindow(manage, SW_RESTORE);
    }
    ::SetForegroundWindow(manage);
}

void MainWindow::Add()
{
    const std::optional<ReminderIdentity> added = m_actions.Add();
    if (added)
    {
        m_list.Select(*added);
    }
}

// --- Commands ---

void MainWindow::Execute(UINT command)
{
    // Whoever hid the window before, the user has seen it.
    m_userControl = true;
    const HWND waiting = WaitingDialog();
    if (waiting != nullptr)
    {
        ::SetForegroundWindow(waiting);
        return;
    }
    switch (command)
    {
    case ID_REMINDER_MANAGE:
        Manage();
        break;
    case ID_VIEW_REFRESH:
        Reload();
        break;
    case ID_APP_EXIT:
        PostMessage(WM_CLOSE);
        break;
    default:
        Act(command);
    }
}

/// What shows dialogs over this window.
void MainWindow::Act(UINT command)
{
    const Flag busy(m_busy);
    const DisabledWindow manage(m_manageDialog.GetSafeHwnd());
    const std::optional<ReminderIdentity> selected = m_list.GetSelected();
    if (command == ID_REMINDER_ADD)
    {
        Add();
    }
    else if (command == ID_REMINDER_EDIT && selected)
    {
        m_actions.Edit(*selected);
    }
    else if (command == ID_REMINDER_DELETE && selected)
    {
        m_actions.Delete(*selected);
    }
    else if (command == ID_APP_ABOUT)
    {
        MSGBOXPARAMSW box{};
        box.cbSize = sizeof box;
        box.hwndOwner = m_hWnd;
        box.hInstance = GetModuleHandleW(nullptr);
        box.lpszText = MAKEINTRESOURCEW(IDS_ABOUT);
        box.lpszCaption = MAKEINTRESOURCEW(IDS_APPLICATION);
        box.dwStyle = MB_OK | MB_USERICON;
        box.lpszIcon = MAKEINTRESOURCEW(IDI_TESSALY);
        MessageBoxIndirectW(&box);
    }
}

BOOL MainWindow::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT id = LOWORD(wParam);
    if (lParam != 0 && HIWORD(wParam) != BN_CLICKED)
    {
        return CWnd::OnCommand(wParam, lParam);
    }
    const bool isEnter = id == IDOK;
    const int focused = ::GetDlgCtrlID(::GetFocus());
    if (!isEnter)
    {
        Execute(id);
    }
    // Enter works on what has the focus.
    else if (focused >= ID_REMINDER_ADD && focused <= ID_REMINDER_MANAGE)
    {
        Execute(static_cast<UINT>(focused));
    }
    else if (focused == IDC_REMINDER_LIST)
    {
        Execute(ID_REMINDER_EDIT);
    }
    return TRUE;
}

BOOL MainWindow::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const auto& notification = *std::bit_cast<NMHDR*>(lParam);
    if (notification.hwndFrom == m_list.m_hWnd && notification.code == LVN_ITEMCHANGED)
    {
        const bool isSelected = m_list.GetSelected().has_value();
        EnableButton(m_editButton, isSelected);
        EnableButton(m_deleteButton, isSelected);
    }
    else if (notification.hwndFrom == m_list.m_hWnd && notification.code == NM_DBLCLK)
    {
        Execute(ID_REMINDER_EDIT);
    }
    return CWnd::OnNotify(wParam, lParam, result);
}

LRESULT MainWindow::OnMenuOpens(WPARAM wParam, LPARAM)
{
    const UINT state = m_list.GetSelected() ? MF_ENABLED : MF_GRAYED;
    auto* const menu = std::bit_cast<HMENU>(wParam);
    EnableMenuItem(menu, ID_REMINDER_EDIT, state);
    EnableMenuItem(menu, ID_REMINDER_DELETE, state);
    return 0;
}

BOOL MainWindow::PreTranslateMessage(MSG* message)
{
    // Messages of dialogs over this window are theirs.
    const bool isOurs = message->hwnd == m_hWnd || IsChild(m_hWnd, message->hwnd) != FALSE;
    const bool isUsed = isOurs && (TranslateAcceleratorW(m_hWnd, m_accelerators.get(), message) != 0 ||
                                   IsDialogMessageW(m_hWnd, message) != FALSE);
    return isUsed ? TRUE : FALSE;
}

// --- System ---

void MainWindow::OnTimer(UINT_PTR id)
{
    if (id == kMinuteTimer)
    {
        ShowReminders();
    }
    else if (id == kClientTimer)
    {
        KillTimer(kClientTimer);
        if (!m_class->WasUsed())
        {
            PostMessage(kEndUnlessUsedMessage);
        }
    }
}

LRESULT MainWindow::OnTimeChange(WPARAM, LPARAM)
{
    // The zone may be another one now.
    _tzset();
    ShowReminders();
    return 0;
}

void MainWindow::OnSettingChange(UINT action, const wchar_t* section)
{
    CWnd::OnSettingChange(action, section);
    UseSystemFont();
    Arrange();
    ShowReminders();
}

LRESULT MainWindow::OnActivate(WPARAM wParam, LPARAM)
{
    if (LOWORD(wParam) == WA_INACTIVE)
    {
        m_lastFocus = ::GetFocus();
    }
    return Default();
}

void MainWindow::OnSetFocus(CWnd*)
{
    const bool isChild = m_lastFocus != nullptr && IsChild(m_hWnd, m_lastFocus) != FALSE &&
                         ::IsWindowEnabled(m_lastFocus) != FALSE;
    ::SetFocus(isChild ? m_lastFocus : m_list.m_hWnd);
}

} // namespace ts::desktop
