#pragma once

#include "platform/mfc/CWnd.h"

/// A dialog box from a template. The object outlives its window and can show it again.
class TS_API CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)

  public:
    CDialog() noexcept;
    /// The template is looked for when the dialog is shown modally, in the resource module. `parent` may be
    /// null: then a modal dialog belongs to the thread's active window.
    explicit CDialog(UINT templateId, CWnd* parent = nullptr) noexcept;

    using CWnd::Create;
    // Shows the dialog modeless: whoever runs the thread's message loop passes its messages through
    // PreTranslateMessage or IsDialogMessage. False when there is no window.
    virtual BOOL Create(const wchar_t* templateName, CWnd* parent = nullptr);
    virtual BOOL Create(UINT templateId, CWnd* parent = nullptr);
    /// `module` owns the window; null is the library itself.
    virtual BOOL CreateIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr,
                                HINSTANCE module = nullptr);
    virtual BOOL CreateIndirect(HGLOBAL dialogTemplate, CWnd* parent = nullptr, HINSTANCE module = nullptr);

    /// Sets the template for DoModal of a dialog that was made without one; what was set first stays.
    BOOL InitModalIndirect(HGLOBAL dialogTemplate, CWnd* parent = nullptr) noexcept;

    /// Shows the dialog until it ends, with its owner disabled. What EndDialog was given; -1 when there
    /// is no window, when the window was destroyed from outside, or when the thread is to quit.
    virtual INT_PTR DoModal();
    /// Ends DoModal once the present message is done. A modeless dialog loses its window at once.
    void EndDialog(INT_PTR result);

    void NextDlgCtrl() const { SendMessage(WM_NEXTDLGCTL, 0, FALSE); }
    void GotoDlgCtrl(const CWnd* control) const;
    /// From dialog units to pixels.
    void MapDialogRect(RECT* rect) const { ::MapDialogRect(m_hWnd, rect); }

    BOOL PreTranslateMessage(MSG* message) override;

    /// Fills the controls. False when it has set the focus itself.
    virtual BOOL OnInitDialog();

  protected:
    /// Closes the dialog when the controls' values are accepted.
    virtual void OnOK();
    virtual void OnCancel();

    DECLARE_MESSAGE_MAP()

    const wchar_t* m_lpszTemplateName = nullptr;
    HGLOBAL m_hDialogTemplate = nullptr;
    CWnd* m_pParentWnd = nullptr;

  private:
    friend INT_PTR CALLBACK AfxDlgProc(HWND, UINT, WPARAM, LPARAM) noexcept;

    BOOL CreateWindowFrom(const DLGTEMPLATE* dialogTemplate, HWND parent, HINSTANCE module);
    [[nodiscard]] const DLGTEMPLATE* FindModalTemplate() const noexcept;
    void RunModalLoop();
    void HideWindow();
    void PostNcDestroy() override;

    enum class Mode
    {
        kModeless,
        kModal,
        kEnding
    };
    Mode m_mode = Mode::kModeless;
    INT_PTR m_modalResult = -1;
};

/// For message loops: offers a message of the queue to the objects of its window and of the windows around
/// it. True when one of them had a use for it.
TS_API BOOL AfxPreTranslateMessage(MSG* message) noexcept;
