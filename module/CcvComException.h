#pragma once

#include "platform/WindowsHeaders.h"

#include <oaidl.h>

/// A failed COM call: its HRESULT, the error information that the server left, if any, and a message text, if
/// any. Thrown and caught by value. Holds a reference to the error information, and its own copy of the text.
class CcvComException
{
  public:
    /// `errorInfo` and `message` may be null and stay the caller's.
    explicit CcvComException(HRESULT code, IErrorInfo* errorInfo = nullptr, const wchar_t* message = nullptr);
    CcvComException(const CcvComException& other);
    CcvComException& operator=(const CcvComException& other);
    virtual ~CcvComException();

    // Each returns a new BSTR that the caller frees, or null when there is no such text.
    /// What went wrong: the server's words, else the message text.
    [[nodiscard]] virtual BSTR GetDescription() const;
    /// Which program or object raised the error.
    [[nodiscard]] virtual BSTR GetSource() const;
    [[nodiscard]] virtual BSTR GetHelpFile() const;

    [[nodiscard]] HRESULT GetCode() const noexcept { return m_code; }

  private:
    void Swap(CcvComException& other) noexcept;

    HRESULT m_code;
    IErrorInfo* m_errorInfo;
    BSTR m_message;
};
