#include "platform/mfc/CDialog.h"

#include "platform/ControlsTheme.h"
#include "platform/mfc/CWinApp.h"
#include "platform/mfc/CreationHook.h"

#include <bit>

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, OnOK)
ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

INT_PTR CALLBACK AfxDlgProc(HWND window, UINT message, WPARAM, LPARAM) noexcept
{
    if (message != WM_INITDIALOG)
    {
        return FALSE;
    }
    try
    {
        auto* const dialog = dynamic_cast<CDialog*>(CWnd::FromHandlePermanent(window));
        return dialog == nullptr || dialog->OnInitDialog() != FALSE;
    }
    catch (...)
    {
        return TRUE;
    }
}

namespace
{

/// The window that a modal dialog disables: the parent's or, without one, the active top-level window.
HWND ModalOwner(const CWnd* parent)
{
    HWND owner = parent != nullptr ? parent->m_hWnd : nullptr;
    if (owner == nullptr)
    {
        owner = GetActiveWindow();
    }
    while (owner != nullptr && (GetWindowLongPtrW(owner, GWL_STYLE) & WS_CHILD) != 0)
    {
        owner = GetParent(owner);
    }
    return owner;
}

/// Disables a window, and enables it again if it was enabled before.
class DisabledOwner
{
  public:
    explicit DisabledOwner(HWND owner) noexcept : m_owner(owner)
    {
        m_wasEnabled = owner != nullptr && owner != GetDesktopWindow() && IsWindowEnabled(owner) != FALSE;
        if (m_wasEnabled)
        {
            EnableWindow(m_owner, FALSE);
        }
    }
    DisabledOwner(const DisabledOwner&) = delete;
    DisabledOwner& operator=(const DisabledOwner&) = delete;
    ~DisabledOwner() { Enable(); }

    void Enable() noexcept
    {
        if (m_wasEnabled)
        {
            EnableWindow(m_owner, TRUE);
            m_wasEnabled = false;
        }
    }
    [[nodiscard]] HWND Get() const noexcept { return m_owner; }

  private:
    HWND m_owner;
    bool m_wasEnabled = false;
};

const DLGTEMPLATE* Locked(HGLOBAL dialogTemplate) noexcept
{
    return dialogTemplate == nullptr ? nullptr
                                     : static_cast<const DLGTEMPLATE*>(LockResource(dialogTemplate));
}

const DLGTEMPLATE* LoadTemplate(const wchar_t* name) noexcept
{
    const HINSTANCE module = AfxFindResourceHandle(name, RT_DIALOG);
    const HRSRC found = FindResourceW(module, name, RT_DIALOG);
    return found == nullptr ? nullptr : Locked(LoadResource(module, found));
}

} // namespace

CDialog::CDialog() noexcept = default;

CDialog::CDialog(UINT templateId, CWnd* parent) noexcept
    : m_lpszTemplateName(MAKEINTRESOURCEW(templateId)), m_pParentWnd(parent)
{
}

BOOL CDialog::Create(UINT templateId, CWnd* parent)
{
    return Create(MAKEINTRESOURCEW(templateId), parent);
}

BOOL CDialog::Create(const wchar_t* templateName, CWnd* parent)
{
    m_lpszTemplateName = templateName;
    return CreateIndirect(LoadTemplate(templateName), parent);
}

BOOL CDialog::CreateIndirect(HGLOBAL dialogTemplate, CWnd* parent, HINSTANCE module)
{
    return CreateIndirect(Locked(dialogTemplate), parent, module);
}

BOOL CDialog::CreateIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent, HINSTANCE module)
{
    m_pParentWnd = parent;
    m_mode = Mode::kModeless;
    return CreateWindowFrom(dialogTemplate, parent == nullptr ? nullptr : parent->m_hWnd, module);
}

BOOL CDialog::CreateWindowFrom(const DLGTEMPLATE* dialogTemplate, HWND parent, HINSTANCE module)
{
    if (dialogTemplate == nullptr || m_hWnd != nullptr)
    {
        return FALSE;
    }
    const ts::ControlsThemeScope theme;
    const ts::CreationHook hook(*this);
    return hook.IsInstalled() &&
           CreateDialogIndirectParamW(module != nullptr ? module : AfxGetInstanceHandle(), dialogTemplate,
                                      parent, AfxDlgProc, 0) != nullptr &&
           m_hWnd != nullptr;
}

BOOL CDialog::InitModalIndirect(HGLOBAL dialogTemplate, CWnd* parent) noexcept
{
    if (m_pParentWnd == nullptr)
    {
        m_pParentWnd = parent;
    }
    if (m_hDialogTemplate == nullptr)
    {
        m_hDialogTemplate = dialogTemplate;
    }
    return m_hDialogTemplate != nullptr;
}

const DLGTEMPLATE* CDialog::FindModalTemplate() const noexcept
{
    return m_lpszTemplateName != nullptr ? LoadTemplate(m_lpszTemplateName) : Locked(m_hDialogTemplate);
}

INT_PTR CDialog::DoModal()
{
    const DLGTEMPLATE* const dialogTemplate = FindModalTemplate();
    if (dialogTemplate == nullptr || m_hWnd != nullptr)
    {
        return -1;
    }
    const ts::ControlsThemeScope theme;
    DisabledOwner owner(ModalOwner(m_pParentWnd));
    m_mode = Mode::kModal;
    m_modalResult = -1;
    if (CreateWindowFrom(dialogTemplate, owner.Get(), nullptr) != FALSE)
    {
        RunModalLoop();
    }
    const bool wasActive = m_hWnd != nullptr && GetActiveWindow() == m_hWnd;
    HideWindow();
    // Before the dialog goes, or the system would activate a window of somebody else.
    owner.Enable();
    if (wasActive && owner.Get() != nullptr)
    {
        SetActiveWindow(owner.Get());
    }
    DestroyWindow();
    m_mode = Mode::kModeless;
    return m_modalResult;
}

void CDialog::RunModalLoop()
{
    if (m_mode == Mode::kModal && (GetStyle() & WS_VISIBLE) == 0)
    {
        ShowWindow(SW_SHOWNORMAL);
        UpdateWindow();
    }
    MSG message{};
    while (m_mode == Mode::kModal)
    {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0)
        {
            // For the loop around this one too.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (AfxPreTranslateMessage(&message) == FALSE)
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

void CDialog::EndDialog(INT_PTR result)
{
    if (m_mode == Mode::kModeless)
    {
        DestroyWindow();
        return;
    }
    m_modalResult = result;
    m_mode = Mode::kEnding;
    // The loop of another dialog, opened meanwhile from another window, may run inside this one's for long.
    HideWindow();
    // The loop may be waiting: the end may come with a message that was sent.
    ::PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

/// Whatever is active stays so.
void CDialog::HideWindow()
{
    if (m_hWnd != nullptr)
    {
        SetWindowPos(nullptr, 0, 0, 0, 0,
                     SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    }
}

void CDialog::PostNcDestroy()
{
    if (m_mode == Mode::kModal)
    {
        EndDialog(-1);
    }
}

void CDialog::GotoDlgCtrl(const CWnd* control) const
{
    SendMessage(WM_NEXTDLGCTL, std::bit_cast<WPARAM>(control->m_hWnd), TRUE);
}

BOOL CDialog::PreTranslateMessage(MSG* message)
{
    const bool isKey = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
    // The keys of a dialog inside a dialog belong to the outer one, so that both are used like one.
    const bool isInner = (GetStyle() & WS_CHILD) != 0;
    return isKey && !isInner && IsDialogMessageW(m_hWnd, message) != FALSE;
}

BOOL CDialog::OnInitDialog()
{
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE) != FALSE)
    {
        EndDialog(IDOK);
    }
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

BOOL AfxPreTranslateMessage(MSG* message) noexcept
{
    try
    {
        return CWnd::WalkPreTranslateTree(nullptr, message);
    }
    catch (...)
    {
        return FALSE;
    }
}
