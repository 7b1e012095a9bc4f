#pragma once

#include "platform/WindowsHeaders.h"

/// Looks again and again whether `condition` holds. False when it still does not after ten seconds.
template <typename Condition>
bool WaitUntil(const Condition& condition)
{
    constexpr ULONGLONG kPatience = 10'000;
    constexpr DWORD kInterval = 20;
    for (const ULONGLONG begin = GetTickCount64(); GetTickCount64() - begin < kPatience; Sleep(kInterval))
    {
        if (condition())
        {
            return true;
        }
    }
    return condition();
}
