#include "platform/mfc/CWinThread.h"
#include "platform/ThreadSlot.h"

#include <memory>
#include <process.h>

namespace
{

const ts::ThreadSlot g_currentThread;

} // namespace

CWinThread::CWinThread(AFX_THREADPROC procedure, void* parameter) noexcept
    : m_procedure(procedure), m_parameter(parameter)
{
}

CWinThread::~CWinThread()
{
    if (m_hThread != nullptr)
    {
        CloseHandle(m_hThread);
    }
}

BOOL CWinThread::CreateThread() noexcept
{
    // Suspended, so that the thread finds its handle here.
    const std::uintptr_t handle = _beginthreadex(nullptr, 0, &Run, this, CREATE_SUSPENDED, nullptr);
    m_hThread = std::bit_cast<HANDLE>(handle);
    return m_hThread != nullptr;
}

unsigned __stdcall CWinThread::Run(void* self) noexcept
{
    auto* thread = static_cast<CWinThread*>(self);
    g_currentThread.Set(thread);
    const unsigned exitCode = thread->m_procedure(thread->m_parameter);
    g_currentThread.Set(nullptr);
    if (thread->m_bAutoDelete)
    {
        const std::unique_ptr<CWinThread> ended(thread);
    }
    return exitCode;
}

CWinThread* AfxBeginThread(AFX_THREADPROC procedure, void* parameter)
{
    auto thread = std::make_unique<CWinThread>(procedure, parameter);
    if (!thread->CreateThread())
    {
        return nullptr;
    }
    CWinThread* const started = thread.release();
    started->ResumeThread();
    return started;
}

CWinThread* AfxGetThread() noexcept
{
    return static_cast<CWinThread*>(g_currentThread.Get());
}
