#pragma once

#include "platform/Export.h"
#include "platform/WindowsHeaders.h"
#include "platform/mfc/afxstr.h"

#include <exception>

/// Base of the exceptions that the library raises; thrown and caught by value.
class TS_API CException : public std::exception
{
  public:
    [[nodiscard]] const char* what() const noexcept override;
};

/// Raised where memory cannot be had (E_OUTOFMEMORY).
class TS_API CMemoryException : public CException
{
  public:
    [[nodiscard]] const char* what() const noexcept override;
};

[[noreturn]] TS_API void AfxThrowMemoryException();
