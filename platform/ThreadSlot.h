#pragma once

#include "platform/WindowsHeaders.h"

namespace ts
{

/// One pointer for each thread, free of what a thread_local leaves behind when its module is unloaded.
class ThreadSlot
{
  public:
    ThreadSlot() noexcept : m_index(TlsAlloc()) {}
    ThreadSlot(const ThreadSlot&) = delete;
    ThreadSlot& operator=(const ThreadSlot&) = delete;
    ~ThreadSlot() { TlsFree(m_index); }

    [[nodiscard]] void* Get() const noexcept
    {
        // A successful read sets the last error to "none"; whoever asks for a resource did not ask for that.
        const DWORD error = GetLastError();
        void* value = TlsGetValue(m_index);
        SetLastError(error);
        return value;
    }
    void Set(void* value) const noexcept { TlsSetValue(m_index, value); }

  private:
    DWORD m_index;
};

} // namespace ts
