#pragma once

#include "platform/WindowsHeaders.h"

#include <memory>
#include <type_traits>

namespace ts
{

struct WindowsHookRemover
{
    void operator()(HHOOK hook) const noexcept { UnhookWindowsHookEx(hook); }
};

/// Owns a hook; null when installing it failed.
using WindowsHook = std::unique_ptr<std::remove_pointer_t<HHOOK>, WindowsHookRemover>;

/// Hooks the calling thread.
[[nodiscard]] inline WindowsHook HookThisThread(int kind, HOOKPROC procedure) noexcept
{
    return WindowsHook(SetWindowsHookExW(kind, procedure, nullptr, GetCurrentThreadId()));
}

} // namespace ts
