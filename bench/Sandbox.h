#pragma once

#include "platform/ts/RegistryValues.h"

#include <string>

namespace ts::bench
{

/// Gives this process an empty HKEY_CURRENT_USER of its own for as long as the object lives, and deletes it
/// afterwards. At most one at a time. Throws std::runtime_error when the key cannot be made.
class Sandbox
{
  public:
    Sandbox();
    Sandbox(const Sandbox&) = delete;
    Sandbox& operator=(const Sandbox&) = delete;
    ~Sandbox();

  private:
    std::wstring m_path;
    RegistryKey m_root;
};

} // namespace ts::bench
