#include "module/CcvComException.h"

#include "platform/mfc/atlexcept.h"

#include <oleauto.h>
#include <utility>

namespace
{

BSTR CopyText(const wchar_t* text)
{
    if (text == nullptr)
    {
        return nullptr;
    }
    const BSTR copy = SysAllocString(text);
    if (copy == nullptr)
    {
        AtlThrow(E_OUTOFMEMORY);
    }
    return copy;
}

/// One text of the error information; null when there is none.
BSTR TextOf(IErrorInfo* errorInfo, HRESULT (STDMETHODCALLTYPE IErrorInfo::*get)(BSTR*))
{
    BSTR text = nullptr;
    return errorInfo != nullptr && SUCCEEDED((errorInfo->*get)(&text)) ? text : nullptr;
}

} // namespace

CcvComException::CcvComException(HRESULT code, IErrorInfo* errorInfo, const wchar_t* message)
    : m_code(code), m_errorInfo(errorInfo), m_message(CopyText(message))
{
    if (m_errorInfo != nullptr)
    {
        m_errorInfo->AddRef();
    }
}

CcvComException::CcvComException(const CcvComException& other)
    : CcvComException(other.m_code, other.m_errorInfo, other.m_message)
{
}

CcvComException& CcvComException::operator=(const CcvComException& other)
{
    CcvComException copy(other);
    Swap(copy);
    return *this;
}

CcvComException::~CcvComException()
{
    SysFreeString(m_message);
    if (m_errorInfo != nullptr)
    {
        m_errorInfo->Release();
    }
}

BSTR CcvComException::GetDescription() const
{
    const BSTR description = TextOf(m_errorInfo, &IErrorInfo::GetDescription);
    return description != nullptr ? description : CopyText(m_message);
}

BSTR CcvComException::GetSource() const
{
    return TextOf(m_errorInfo, &IErrorInfo::GetSource);
}

BSTR CcvComException::GetHelpFile() const
{
    return TextOf(m_errorInfo, &IErrorInfo::GetHelpFile);
}

void CcvComException::Swap(CcvComException& other) noexcept
{
    std::swap(m_code, other.m_code);
    std::swap(m_errorInfo, other.m_errorInfo);
    std::swap(m_message, other.m_message);
}
