#pragma once

#include "platform/ts/CBCGPDialog.h"

/// What a record of the program's use is about.
enum class EcvFeedbackType
{
    ScreenView = 0
};

/// Whether such a record may leave the machine.
enum class EcvSendFeedback
{
    Never = 0,
    Always = 1,
    AsUserAllows = 2
};

/// What an enhanced dialog tells about its use.
class TS_API CcvMfcEnhancedDialogBase
{
  public:
    CcvMfcEnhancedDialogBase() = default;
    CcvMfcEnhancedDialogBase(const CcvMfcEnhancedDialogBase&) = delete;
    CcvMfcEnhancedDialogBase& operator=(const CcvMfcEnhancedDialogBase&) = delete;

    /// Called when a named screen is shown. Nothing is kept or sent unless a host overrides it.
    virtual void OnScreenView(const CString& screenName, EcvFeedbackType type, EcvSendFeedback send);

  protected:
    ~CcvMfcEnhancedDialogBase() = default;
};

/// A dialog that can tell which of its screens was shown.
class TS_API CcvMfcEnhancedDialog : public CBCGPDialog, public CcvMfcEnhancedDialogBase
{
    DECLARE_DYNAMIC(CcvMfcEnhancedDialog)

  public:
    CcvMfcEnhancedDialog(UINT nIDTemplate, CWnd* pParentWnd);

    using CBCGPDialog::Create;
    BOOL Create(UINT nIDTemplate, CWnd* pParentWnd) override;
    INT_PTR DoModal() override;
    /// Derived dialogs call it first.
    BOOL OnInitDialog() override;

  protected:
    /// Records that a named screen was shown.
    void SetScreenView(const CString& screenName, EcvFeedbackType type, EcvSendFeedback send);
};
