#pragma once

#include "platform/ts/CcvMfcEnhancedDialog.h"

/// Base of the library's dialogs, whose templates come from the language library.
class TS_API CcvMfcDialogBaseInternal : public CcvMfcEnhancedDialog
{
    DECLARE_DYNAMIC(CcvMfcDialogBaseInternal)

  public:
    /// `nIDTemplate` is the number of the template; `pParentWnd` may be null.
    CcvMfcDialogBaseInternal(UINT nIDTemplate, CWnd* pParentWnd);

    using CcvMfcEnhancedDialog::Create;
    /// Loads the template from the current resource module; callers open a resource scope.
    BOOL Create(UINT nIDTemplate, CWnd* pParentWnd) override;
    /// Loads the template from the language library; a later call shows the same template again. The message
    /// loop runs with the host's resource module.
    INT_PTR DoModal() override;
};
