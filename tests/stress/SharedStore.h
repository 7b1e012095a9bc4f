#pragma once

#include "platform/WindowsHeaders.h"

#include <cstdint>
#include <memory>

namespace ts::test
{

struct RegistryKeyCloser
{
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};

/// An open key of the registry that child processes inherit.
using InheritedKey = std::unique_ptr<HKEY__, RegistryKeyCloser>;

/// Redirects HKEY_CURRENT_USER once more, to a key within the sandbox that children can share; its sandbox
/// deletes it. Throws std::runtime_error.
[[nodiscard]] InheritedKey UserKeyForChildren();

/// How a handle is named on the command line of a child, and back.
[[nodiscard]] std::uintptr_t NumberOf(const void* handle) noexcept;
[[nodiscard]] HANDLE HandleOf(std::uintptr_t number) noexcept;

/// In the child: redirects HKEY_CURRENT_USER to the inherited key. Throws std::runtime_error.
void UseInheritedUserKey(std::uintptr_t number);

} // namespace ts::test
