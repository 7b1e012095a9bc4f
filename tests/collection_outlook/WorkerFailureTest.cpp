// Exceptions that are no failure of Outlook's: the worker ends with them.

#include "collection/OutlookWorker.h"
#include "outlook/AutomationValue.h"
#include "platform/mfc/afx.h"
#include "tests/collection_outlook/WorkerTest.h"
#include "tests/outlook_standin/Standin.h"

#include <atomic>
#include <objbase.h>

namespace ts::test
{
namespace
{

// A text of this length is not kept by any cache of texts, and nothing else asks for as much memory.
constexpr std::size_t kLongText = 100'000;

// COM objects are destroyed by Release, never through an interface.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Watches COM's allocator, from its first use to the end of the program: it cannot be taken away while there
/// is memory that it has seen.
class AllocatorSpy final : public IMallocSpy
{
  public:
    static AllocatorSpy& Get()
    {
        static AllocatorSpy spy;
        return spy;
    }
    AllocatorSpy(const AllocatorSpy&) = delete;
    AllocatorSpy& operator=(const AllocatorSpy&) = delete;

    std::atomic<bool> denyLongTexts = false;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override
    {
        *object = static_cast<IMallocSpy*>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override
    {
        return denyLongTexts && size > kLongText ? 0 : size;
    }
    void* STDMETHODCALLTYPE PostAlloc(void* memory) override { return memory; }
    void* STDMETHODCALLTYPE PreFree(void* memory, BOOL) override { return memory; }
    void STDMETHODCALLTYPE PostFree(BOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* memory, SIZE_T size, void** newMemory, BOOL) override
    {
        *newMemory = memory;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* memory, BOOL) override { return memory; }
    void* STDMETHODCALLTYPE PreGetSize(void* memory, BOOL) override { return memory; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* memory, BOOL) override { return memory; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int actual) override { return actual; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}

  private:
    AllocatorSpy() { EXPECT_EQ(S_OK, CoRegisterMallocSpy(this)); }
    ~AllocatorSpy() = default;
};

#pragma GCC diagnostic pop

/// While it lives, COM's allocator has no memory for long texts.
class NoMemoryForTexts
{
  public:
    NoMemoryForTexts() { AllocatorSpy::Get().denyLongTexts = true; }
    NoMemoryForTexts(const NoMemoryForTexts&) = delete;
    NoMemoryForTexts& operator=(const NoMemoryForTexts&) = delete;
    ~NoMemoryForTexts() { AllocatorSpy::Get().denyLongTexts = false; }
};

CcvReminderData LongRecord()
{
    CcvReminderData record = OneTimeRecord();
    record.SetSubject(std::wstring(kLongText, L'x').c_str());
    return record;
}

class WorkerFailureTest : public WorkerTest
{
  protected:
    standin::InProcessOutlook m_outlook{standin::Apartment::OwnThread};
};

} // namespace

TEST(TextValueTest, WithoutMemory_RaisesMemoryException)
{
    const CString text(std::wstring(kLongText, L'x').c_str());
    const NoMemoryForTexts noMemory;
    EXPECT_THROW(static_cast<void>(TextValue(text)), CMemoryException);
}

TEST(TextValueTest, WithoutMemoryForAnAnswer_RaisesMemoryException)
{
    const _variant_t answer = TextValue(std::wstring(kLongText, L'x').c_str());
    const NoMemoryForTexts noMemory;
    EXPECT_THROW(static_cast<void>(ToText(answer)), CMemoryException);
}

TEST_F(WorkerFailureTest, WithoutMemory_TheWorkerEndsAndTheManagerGoesOn)
{
    {
        const NoMemoryForTexts noMemory;
        CcvReminderData record = LongRecord();
        ASSERT_TRUE(m_manager->AddReminder(&record, true));
        EXPECT_FALSE(m_manager->WaitForOutlookCommands(30'000));
    }
    EXPECT_TRUE(BecomesTrue([&] { return m_outlook.LiveObjects() == 0; }));
    CcvReminderData other = OneTimeRecord();
    other.SetObjectGuid(L"other");
    EXPECT_TRUE(m_manager->AddReminder(&other, true)) << "which is stored and queued all the same";
    EXPECT_FALSE(m_manager->WaitForOutlookCommands(1'000));
    EXPECT_EQ(0u, m_outlook.CountItems());
    EXPECT_EQ(2u, StoredReminders());
    m_manager.reset();
}

TEST_F(WorkerFailureTest, WithoutMemory_TheThreadEndsWithZero)
{
    OutlookCommandQueue queue;
    queue.SetRunning(true);
    auto command = std::make_unique<QueuedOutlookCommand>();
    command->record = std::make_unique<CcvReminderData>(LongRecord());
    queue.Append(std::move(command));
    const NoMemoryForTexts noMemory;
    const auto thread = std::make_unique<CWinThread>(OutlookWorkerThreadProc, &queue);
    thread->m_bAutoDelete = FALSE;
    ASSERT_TRUE(thread->CreateThread());
    const bool ended = BecomesTrue(
        [&]
        {
            thread->ResumeThread();
            return HasEnded(*thread);
        });
    EXPECT_TRUE(ended);
    queue.SetRunning(false);
    while (!HasEnded(*thread))
    {
        thread->ResumeThread();
    }
    DWORD exitCode = 99;
    EXPECT_TRUE(GetExitCodeThread(thread->m_hThread, &exitCode));
    EXPECT_EQ(0u, exitCode);
}

} // namespace ts::test
