#pragma once

#include "platform/WindowsHeaders.h"

/// A lock of this process that its owner may take again. The spin count is 0.
class CCriticalSection
{
  public:
    /// Raises the system's error when there is no such lock to be had.
    CCriticalSection();
    CCriticalSection(const CCriticalSection&) = delete;
    CCriticalSection& operator=(const CCriticalSection&) = delete;
    ~CCriticalSection();

    void Lock() noexcept;
    void Unlock() noexcept;

  private:
    CRITICAL_SECTION m_section;
};

/// Holds a lock from Lock, or from its own beginning, to its end.
class CSingleLock
{
  public:
    explicit CSingleLock(CCriticalSection* lock, BOOL initialLock = FALSE) noexcept;
    CSingleLock(const CSingleLock&) = delete;
    CSingleLock& operator=(const CSingleLock&) = delete;
    ~CSingleLock();

    /// Waits without limit. Once only.
    void Lock() noexcept;

  private:
    CCriticalSection* m_lock;
    bool m_locked = false;
};
