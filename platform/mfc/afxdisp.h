#pragma once

#include "platform/mfc/afx.h"

/// Carries a failed HRESULT other than E_OUTOFMEMORY.
class TS_API COleException : public CException
{
  public:
    explicit COleException(HRESULT code) noexcept;
    [[nodiscard]] const char* what() const noexcept override;

    HRESULT m_sc;

  private:
    char m_what[32] = {};
};

[[noreturn]] TS_API void AfxThrowOleException(HRESULT code);
