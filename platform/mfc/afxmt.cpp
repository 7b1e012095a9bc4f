#include "platform/mfc/afxmt.h"

#include "platform/mfc/atlexcept.h"

CCriticalSection::CCriticalSection() : m_section{}
{
    if (!InitializeCriticalSectionAndSpinCount(&m_section, 0))
    {
        AtlThrow(HRESULT_FROM_WIN32(GetLastError()));
    }
}

CCriticalSection::~CCriticalSection()
{
    DeleteCriticalSection(&m_section);
}

void CCriticalSection::Lock() noexcept
{
    EnterCriticalSection(&m_section);
}

void CCriticalSection::Unlock() noexcept
{
    LeaveCriticalSection(&m_section);
}

CSingleLock::CSingleLock(CCriticalSection* lock, BOOL initialLock) noexcept : m_lock(lock)
{
    if (initialLock)
    {
        Lock();
    }
}

CSingleLock::~CSingleLock()
{
    if (m_locked)
    {
        m_lock->Unlock();
    }
}

void CSingleLock::Lock() noexcept
{
    m_lock->Lock();
    m_locked = true;
}
