#include "tests/hosts/WaitUntil.h"

#include "tests/support/WindowDriver.h"

bool WaitUntil(const std::function<bool()>& condition)
{
    constexpr ULONGLONG kPatience = 50'000;
    constexpr DWORD kInterval = 20;
    for (const ULONGLONG begin = GetTickCount64(); GetTickCount64() - begin < kPatience;)
    {
        if (condition())
        {
            return true;
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kInterval, QS_ALLINPUT);
        ts::test::PumpMessages();
    }
    return condition();
}
