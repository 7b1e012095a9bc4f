#include "platform/KernelHandle.h"
#include "platform/mfc/afxwin.h"
#include "tests/support/Allocations.h"
#include "tests/support/HandleCount.h"

#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

using ts::KernelHandle;

namespace
{

constexpr DWORD kPatience = 20'000;

/// What a test and its thread tell each other.
struct Meeting
{
    KernelHandle mayEnd{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    std::atomic<CWinThread*> self{nullptr};
    std::atomic<DWORD> id{0};
    std::atomic<int> steps{0};
};

/// Counts until it may end; then ends with 42.
UINT CountSteps(void* parameter)
{
    auto& meeting = *static_cast<Meeting*>(parameter);
    meeting.self = AfxGetThread();
    meeting.id = GetCurrentThreadId();
    while (WaitForSingleObject(meeting.mayEnd.get(), 1) == WAIT_TIMEOUT)
    {
        ++meeting.steps;
    }
    return 42;
}

KernelHandle Duplicate(HANDLE handle)
{
    HANDLE copy = nullptr;
    DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &copy, 0, FALSE, DUPLICATE_SAME_ACCESS);
    return KernelHandle(copy);
}

/// Lets the thread end; its exit code.
DWORD End(const Meeting& meeting, HANDLE thread)
{
    SetEvent(meeting.mayEnd.get());
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(thread, kPatience));
    DWORD exitCode = 0;
    GetExitCodeThread(thread, &exitCode);
    return exitCode;
}

/// Whether the thread goes on within the patience.
bool Steps(const Meeting& meeting)
{
    const int before = meeting.steps;
    const ULONGLONG end = GetTickCount64() + kPatience;
    while (meeting.steps == before && GetTickCount64() < end)
    {
        Sleep(1);
    }
    return meeting.steps != before;
}

/// Whether the thread stands still; for as long as it would need for many steps.
bool StandsStill(const Meeting& meeting)
{
    const int before = meeting.steps;
    Sleep(50);
    return meeting.steps == before;
}

} // namespace

TEST(CWinThreadTest, AfxGetThread_OnOtherThreads_IsNull)
{
    EXPECT_EQ(nullptr, AfxGetThread());
    CWinThread* seen = nullptr;
    std::thread([&seen] { seen = AfxGetThread(); }).join();
    EXPECT_EQ(nullptr, seen);
}

TEST(CWinThreadTest, AfxGetThread_OnAThreadOfAfxBeginThread_IsItsObject)
{
    Meeting meeting;
    CWinThread* const thread = AfxBeginThread(&CountSteps, &meeting);
    ASSERT_NE(nullptr, thread);
    const KernelHandle handle = Duplicate(thread->m_hThread);
    ASSERT_TRUE(Steps(meeting));
    EXPECT_EQ(thread, meeting.self);
    EXPECT_EQ(GetThreadId(thread->m_hThread), meeting.id);
    EXPECT_NE(GetCurrentThreadId(), meeting.id);
    EXPECT_EQ(THREAD_PRIORITY_NORMAL, GetThreadPriority(thread->m_hThread));
    EXPECT_EQ(nullptr, AfxGetThread()) << "still not one of them";
    EXPECT_EQ(42u, End(meeting, handle.get()));
}

TEST(CWinThreadTest, AfxGetThread_WhenTheProcedureIsOver_IsNull)
{
    // What the thread leaves to the system is given back after its object is gone.
    static const DWORD s_slot =
        FlsAlloc([](void* after) { *static_cast<std::atomic<CWinThread*>*>(after) = AfxGetThread(); });
    struct Seen
    {
        std::atomic<CWinThread*> during{nullptr};
        std::atomic<CWinThread*> after{nullptr};
    } seen;
    CWinThread thread(
        [](void* parameter) -> UINT
        {
            auto& noted = *static_cast<Seen*>(parameter);
            noted.during = AfxGetThread();
            noted.after = noted.during.load();
            FlsSetValue(s_slot, &noted.after);
            return 0;
        },
        &seen);
    thread.m_bAutoDelete = FALSE;
    ASSERT_TRUE(thread.CreateThread());
    thread.ResumeThread();
    ASSERT_EQ(WAIT_OBJECT_0, WaitForSingleObject(thread.m_hThread, kPatience));
    EXPECT_EQ(&thread, seen.during.load());
    EXPECT_EQ(nullptr, seen.after.load());
}

TEST(CWinThreadTest, End_OfAThread_IsWithTheResultOfItsProcedure)
{
    for (const UINT code : {0u, 1u, 259u, 0xFFFFFFFFu})
    {
        UINT parameter = code;
        const auto giveBack = [](void* value) { return *static_cast<UINT*>(value); };
        // Created but not started, so that it can be made to keep its handle.
        CWinThread thread(giveBack, &parameter);
        thread.m_bAutoDelete = FALSE;
        ASSERT_TRUE(thread.CreateThread());
        EXPECT_EQ(1u, thread.ResumeThread());
        ASSERT_EQ(WAIT_OBJECT_0, WaitForSingleObject(thread.m_hThread, kPatience));
        DWORD exitCode = 7;
        EXPECT_TRUE(GetExitCodeThread(thread.m_hThread, &exitCode));
        EXPECT_EQ(code, exitCode);
    }
}

TEST(CWinThreadTest, End_OfThreadsThatDeleteThemselves_LeavesNoMemoryAndNoHandle)
{
    const auto beginAndEnd = []
    {
        Meeting meeting;
        CWinThread* const thread = AfxBeginThread(&CountSteps, &meeting);
        ASSERT_NE(nullptr, thread);
        EXPECT_TRUE(thread->m_bAutoDelete);
        const KernelHandle handle = Duplicate(thread->m_hThread);
        EXPECT_EQ(42u, End(meeting, handle.get()));
    };
    beginAndEnd();
    const std::size_t memory = ts::test::LiveAllocationCount();
    const std::size_t handles = ts::test::HandleCount();
    for (int round = 0; round < 30; ++round)
    {
        beginAndEnd();
    }
    EXPECT_EQ(memory, ts::test::LiveAllocationCount());
    EXPECT_GE(handles, ts::test::HandleCount());
}

TEST(CWinThreadTest, End_WithoutAutoDelete_LeavesTheObjectAndItsHandleToTheOwner)
{
    const auto beginAndEnd = []
    {
        Meeting meeting;
        const std::unique_ptr<CWinThread> thread(AfxBeginThread(&CountSteps, &meeting));
        ASSERT_NE(nullptr, thread);
        thread->m_bAutoDelete = FALSE;
        EXPECT_EQ(42u, End(meeting, thread->m_hThread));
        DWORD flags = 0;
        EXPECT_TRUE(GetHandleInformation(thread->m_hThread, &flags));
        EXPECT_NE(1u, thread->ResumeThread()) << "an ended thread is not suspended";
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(thread->m_hThread, 0)) << "and stays ended";
    };
    beginAndEnd();
    const std::size_t memory = ts::test::LiveAllocationCount();
    const std::size_t handles = ts::test::HandleCount();
    for (int round = 0; round < 30; ++round)
    {
        beginAndEnd();
    }
    EXPECT_EQ(memory, ts::test::LiveAllocationCount());
    EXPECT_GE(handles, ts::test::HandleCount());
}

TEST(CWinThreadTest, Suspension_OfAThread_CountsAndEndsWithTheLastResume)
{
    Meeting meeting;
    const std::unique_ptr<CWinThread> thread(AfxBeginThread(&CountSteps, &meeting));
    ASSERT_NE(nullptr, thread);
    thread->m_bAutoDelete = FALSE;
    ASSERT_TRUE(Steps(meeting)) << "begins by itself";
    EXPECT_EQ(0u, thread->ResumeThread()) << "runs already";
    EXPECT_EQ(0u, thread->SuspendThread());
    EXPECT_EQ(1u, thread->SuspendThread());
    EXPECT_TRUE(StandsStill(meeting));
    EXPECT_EQ(2u, thread->ResumeThread());
    EXPECT_TRUE(StandsStill(meeting));
    EXPECT_EQ(1u, thread->ResumeThread());
    EXPECT_TRUE(Steps(meeting));
    EXPECT_EQ(42u, End(meeting, thread->m_hThread));
}

TEST(CWinThreadTest, CreateThread_ByItself_WaitsForTheFirstResume)
{
    Meeting meeting;
    CWinThread thread(&CountSteps, &meeting);
    EXPECT_EQ(nullptr, thread.m_hThread);
    thread.m_bAutoDelete = FALSE;
    ASSERT_TRUE(thread.CreateThread());
    EXPECT_TRUE(StandsStill(meeting));
    EXPECT_EQ(nullptr, meeting.self);
    EXPECT_EQ(1u, thread.ResumeThread());
    EXPECT_TRUE(Steps(meeting));
    EXPECT_EQ(&thread, meeting.self);
    EXPECT_EQ(42u, End(meeting, thread.m_hThread));
}

TEST(CWinThreadTest, Destruction_WithoutAThread_IsHarmless)
{
    const std::size_t handles = ts::test::HandleCount();
    {
        const CWinThread thread(&CountSteps, nullptr);
    }
    EXPECT_EQ(handles, ts::test::HandleCount());
}
