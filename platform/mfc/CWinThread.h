#pragma once

#include "platform/mfc/afx.h"

using AFX_THREADPROC = UINT (*)(void* parameter);

/// A thread that AfxBeginThread started, and the owner of its handle. Deletes itself when the thread ends,
/// unless m_bAutoDelete was set to FALSE before; then it belongs to whoever did so.
class CWinThread
{
  public:
    CWinThread(AFX_THREADPROC procedure, void* parameter) noexcept;
    CWinThread(const CWinThread&) = delete;
    CWinThread& operator=(const CWinThread&) = delete;
    ~CWinThread();

    /// Creates the thread, suspended. False when the system has none to give; GetLastError says why.
    [[nodiscard]] BOOL CreateThread() noexcept;
    /// One suspension more, or less. The number of them before, or 0xFFFFFFFF on failure.
    DWORD SuspendThread() const noexcept { return ::SuspendThread(m_hThread); }
    DWORD ResumeThread() const noexcept { return ::ResumeThread(m_hThread); }

    HANDLE m_hThread = nullptr;
    BOOL m_bAutoDelete = TRUE;

  private:
    static unsigned __stdcall Run(void* self) noexcept;

    AFX_THREADPROC m_procedure;
    void* m_parameter;
};

/// Starts a thread of normal priority, default stack size and default security that runs `procedure` and ends
/// with its result; no exception may leave it. The thread's object, or null when there is no thread.
CWinThread* AfxBeginThread(AFX_THREADPROC procedure, void* parameter);

/// The object of the calling thread; null when AfxBeginThread did not start it.
[[nodiscard]] CWinThread* AfxGetThread() noexcept;
