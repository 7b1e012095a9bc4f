#include "platform/mfc/afxdisp.h"

#include <cstdio>

COleException::COleException(HRESULT code) noexcept : m_sc(code)
{
    std::snprintf(m_what, sizeof m_what, "HRESULT 0x%08lX", static_cast<unsigned long>(code));
}

const char* COleException::what() const noexcept
{
    return m_what;
}

void AfxThrowOleException(HRESULT code)
{
    throw COleException(code);
}
