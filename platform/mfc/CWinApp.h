#pragma once

#include "platform/mfc/afx.h"

/// The application object of a module. A module has one, for as long as it is loaded.
class CWinApp
{
  public:
    /// `applicationName` is not copied and may be null.
    explicit CWinApp(const wchar_t* applicationName = nullptr) noexcept : m_pszAppName(applicationName) {}
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    virtual ~CWinApp();

    const wchar_t* m_pszAppName;
};

/// The module that contains the library's code.
[[nodiscard]] HINSTANCE AfxGetInstanceHandle() noexcept;

/// The module from which the calling thread loads resources: AfxGetInstanceHandle unless another was set.
[[nodiscard]] HINSTANCE AfxGetResourceHandle() noexcept;

/// Sets the calling thread's resource module; null sets the module itself again.
void AfxSetResourceHandle(HINSTANCE module) noexcept;

/// The module from which a resource is to be loaded: the resource module when it has it, else the library
/// itself when that has it, else the resource module again.
[[nodiscard]] HINSTANCE AfxFindResourceHandle(const wchar_t* name, const wchar_t* type) noexcept;
