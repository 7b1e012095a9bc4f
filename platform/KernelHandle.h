#pragma once

#include "platform/WindowsHeaders.h"

#include <memory>

namespace ts
{

struct KernelHandleCloser
{
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};

/// Owns the handle of an event, a thread or another object of the system; null when creating it failed.
using KernelHandle = std::unique_ptr<void, KernelHandleCloser>;

} // namespace ts
