#include "SingleInstance.h"

#include "TsServiceUtilities.h"

namespace ts::desktop
{

SingleInstance::SingleInstance()
    : m_mutex(CreateMutexW(nullptr, FALSE, L"Local\\Tessaly25Host")), m_outcome(Compete())
{
}

SingleInstance::~SingleInstance()
{
    if (m_outcome == Outcome::First)
    {
        ReleaseMutex(m_mutex.get());
    }
}

/// Another process that is starting will have a window soon, and one that is ending will let go.
SingleInstance::Outcome SingleInstance::Compete() const
{
    constexpr int kAttempts = 400;
    constexpr DWORD kInterval = 50;
    for (int attempt = 0; attempt < kAttempts; ++attempt)
    {
        const DWORD waited = WaitForSingleObject(m_mutex.get(), kInterval);
        if (waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED)
        {
            return Outcome::First;
        }
        if (FindWindowW(kMainWindowClass, nullptr) != nullptr)
        {
            return Outcome::Second;
        }
    }
    return Outcome::Refused;
}

void SingleInstance::ShowOther()
{
    const HWND window = FindWindowW(kMainWindowClass, nullptr);
    // Only who has the foreground may give it away.
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    AllowSetForegroundWindow(process);
    PostMessageW(window, kShowMessage, 0, 0);
}

} // namespace ts::desktop
