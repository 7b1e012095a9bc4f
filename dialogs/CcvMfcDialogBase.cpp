#include "dialogs/CcvMfcDialogBase.h"

#include "dialogs/CcvMfcDialogBaseInternal.h"
#include "module/ResourceScope.h"

#include <memory>

// A facade is one pointer, and its copies share what it points to: the exported interface wants it so.

CcvMfcDialogBase::CcvMfcDialogBase() noexcept = default;
CcvMfcDialogBase::CcvMfcDialogBase(const CcvMfcDialogBase& other) noexcept = default;
CcvMfcDialogBase::CcvMfcDialogBase(CcvMfcDialogBase&& other) noexcept = default;
CcvMfcDialogBase& CcvMfcDialogBase::operator=(const CcvMfcDialogBase& other) noexcept = default;
CcvMfcDialogBase& CcvMfcDialogBase::operator=(CcvMfcDialogBase&& other) noexcept = default;

CcvMfcDialogBase::~CcvMfcDialogBase()
{
    // What the dialog does at its end may still ask the facade for it.
    std::unique_ptr<CcvMfcDialogBaseInternal>(m_internalDialog).reset();
    m_internalDialog = nullptr;
}

INT_PTR CcvMfcDialogBase::DoModal()
{
    return m_internalDialog->DoModal();
}

BOOL CcvMfcDialogBase::Create(UINT nIDTemplate, CWnd* pParentWnd)
{
    const ts::ResourceScope scope;
    return m_internalDialog->Create(nIDTemplate, pParentWnd);
}

HWND CcvMfcDialogBase::GetSafeHwnd() const
{
    return m_internalDialog == nullptr ? nullptr : m_internalDialog->GetSafeHwnd();
}
