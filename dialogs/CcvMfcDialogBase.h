#pragma once

#include "platform/Export.h"
#include "platform/WindowsHeaders.h"

class CcvMfcDialogBaseInternal;
class CWnd;

/// What a host sees of a dialog: the facade of an internal dialog, which it owns. Everything runs on the
/// host's user-interface thread.
///
/// Copies are shallow on purpose: two facades then share one internal dialog, and each destroys it. Copy one
/// only to hand it on, and keep one of the two alive, with nothing in the other (see SetInternalDialog).
///
/// A facade must outlive its dialog's window.
class TS_API CcvMfcDialogBase
{
  public:
    /// Leaves the internal dialog to the derived class, whose constructors always set it.
    CcvMfcDialogBase() noexcept;
    CcvMfcDialogBase(const CcvMfcDialogBase& other) noexcept;
    CcvMfcDialogBase(CcvMfcDialogBase&& other) noexcept;
    CcvMfcDialogBase& operator=(const CcvMfcDialogBase& other) noexcept;
    CcvMfcDialogBase& operator=(CcvMfcDialogBase&& other) noexcept;
    /// Destroys the internal dialog, if there is one.
    virtual ~CcvMfcDialogBase();

    // Both need an internal dialog.
    /// Shows the dialog until it ends. IDOK, IDCANCEL or what else ended it; -1 when it cannot be shown.
    virtual INT_PTR DoModal();
    /// Shows the dialog modeless, from the template of that number in the language library. The host's
    /// message loop offers the window's messages to IsDialogMessage.
    virtual BOOL Create(UINT nIDTemplate, CWnd* pParentWnd);
    /// The dialog's window; null while it has none.
    [[nodiscard]] virtual HWND GetSafeHwnd() const;

    /// Stays the facade's.
    [[nodiscard]] CcvMfcDialogBaseInternal* GetInternalDialog() const noexcept { return m_internalDialog; }
    /// Owns `dialog`, which may be null, from now on; the former one belongs to the caller again.
    void SetInternalDialog(CcvMfcDialogBaseInternal* dialog) noexcept { m_internalDialog = dialog; }

  private:
    CcvMfcDialogBaseInternal* m_internalDialog = nullptr;
};
