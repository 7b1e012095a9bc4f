#include "dialogs/CcvMfcDialogBaseInternal.h"

#include "module/ResourceScope.h"

#include <utility>

IMPLEMENT_DYNAMIC(CcvMfcDialogBaseInternal, CcvMfcEnhancedDialog)

CcvMfcDialogBaseInternal::CcvMfcDialogBaseInternal(UINT nIDTemplate, CWnd* pParentWnd)
    : CcvMfcEnhancedDialog(nIDTemplate, pParentWnd)
{
}

BOOL CcvMfcDialogBaseInternal::Create(UINT nIDTemplate, CWnd* pParentWnd)
{
    return CcvMfcEnhancedDialog::Create(nIDTemplate, pParentWnd);
}

INT_PTR CcvMfcDialogBaseInternal::DoModal()
{
    {
        const ts::ResourceScope scope;
        // Cleared, or the base would look for the template again, in the host's module.
        const wchar_t* const name = std::exchange(m_lpszTemplateName, nullptr);
        if (name != nullptr)
        {
            const HINSTANCE module = AfxFindResourceHandle(name, RT_DIALOG);
            const HRSRC found = FindResourceW(module, name, RT_DIALOG);
            InitModalIndirect(LoadResource(module, found), m_pParentWnd);
        }
    }
    return CcvMfcEnhancedDialog::DoModal();
}
