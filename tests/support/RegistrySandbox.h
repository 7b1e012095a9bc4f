#pragma once

#include "platform/WindowsHeaders.h"

#include <string>

namespace ts::test
{

/// Redirects HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE of this process to empty keys of its own while it
/// lives, and deletes them afterwards. Needs nothing of the library, so it serves programs that link the DLL.
class RegistrySandbox
{
  public:
    RegistrySandbox();
    RegistrySandbox(const RegistrySandbox&) = delete;
    RegistrySandbox& operator=(const RegistrySandbox&) = delete;
    ~RegistrySandbox();

  private:
    std::wstring m_path;
};

} // namespace ts::test
