#include "platform/mfc/afxmt.h"
#include "tests/platform/ImportPatch.h"
#include "tests/support/HandleCount.h"
#include "tests/support/HeapKind.h"

#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

extern "C"
{
    extern decltype(&DeleteCriticalSection) __imp_DeleteCriticalSection;
}

namespace
{

/// Takes a lock on a thread of its own, and holds it no longer than a moment.
class OtherThread
{
  public:
    explicit OtherThread(CCriticalSection& section)
        : m_thread(
              [this, &section]
              {
                  m_started = true;
                  CSingleLock lock(&section);
                  lock.Lock();
                  m_had = true;
              })
    {
    }
    OtherThread(const OtherThread&) = delete;
    OtherThread& operator=(const OtherThread&) = delete;
    ~OtherThread() { m_thread.join(); }

    /// Whether it got the lock within a time in which it gets every free one.
    bool GetsIt(DWORD milliseconds)
    {
        const ULONGLONG end = GetTickCount64() + milliseconds;
        while (!m_had && GetTickCount64() < end)
        {
            Sleep(1);
        }
        return m_started && m_had;
    }

  private:
    std::atomic<bool> m_started{false};
    std::atomic<bool> m_had{false};
    std::thread m_thread;
};

constexpr DWORD kPatience = 10'000;
constexpr DWORD kMoment = 60;

bool IsFree(CCriticalSection& section)
{
    return OtherThread(section).GetsIt(kPatience);
}

} // namespace

static_assert(!std::is_copy_constructible_v<CCriticalSection>);
static_assert(!std::is_copy_constructible_v<CSingleLock>);

TEST(CSingleLockTest, Construction_WithTheInitialLockOff_DoesNotHold)
{
    CCriticalSection section;
    const CSingleLock byDefault(&section);
    const CSingleLock off(&section, FALSE);
    EXPECT_TRUE(IsFree(section));
}

TEST(CSingleLockTest, Construction_WithTheInitialLockOn_HoldsToTheEnd)
{
    CCriticalSection section;
    auto lock = std::make_unique<CSingleLock>(&section, TRUE);
    OtherThread other(section);
    EXPECT_FALSE(other.GetsIt(kMoment));
    lock.reset();
    EXPECT_TRUE(other.GetsIt(kPatience));
}

TEST(CSingleLockTest, Lock_AfterConstruction_HoldsToTheEnd)
{
    CCriticalSection section;
    auto lock = std::make_unique<CSingleLock>(&section);
    lock->Lock();
    OtherThread other(section);
    EXPECT_FALSE(other.GetsIt(kMoment));
    lock.reset();
    EXPECT_TRUE(other.GetsIt(kPatience));
}

TEST(CSingleLockTest, Destruction_OfOneThatDoesNotHold_LeavesTheLockOfAnother)
{
    CCriticalSection section;
    auto holder = std::make_unique<CSingleLock>(&section, TRUE);
    {
        const CSingleLock bystander(&section, FALSE);
    }
    OtherThread other(section);
    EXPECT_FALSE(other.GetsIt(kMoment));
    holder.reset();
    EXPECT_TRUE(other.GetsIt(kPatience));
}

TEST(CCriticalSectionTest, Lock_ByItsOwner_IsTakenAgainAndGivenBackAsOften)
{
    CCriticalSection section;
    section.Lock();
    section.Lock();
    section.Unlock();
    {
        OtherThread other(section);
        EXPECT_FALSE(other.GetsIt(kMoment));
        section.Unlock();
        EXPECT_TRUE(other.GetsIt(kPatience));
    }
    EXPECT_TRUE(IsFree(section));
}

TEST(CCriticalSectionTest, Lock_ByManyThreads_LetsOneInAtATime)
{
    CCriticalSection section;
    int sum = 0;
    const auto add = [&]
    {
        for (int round = 0; round < 20'000; ++round)
        {
            const CSingleLock lock(&section, TRUE);
            // Read and written apart, so that a second thread would be seen.
            const int before = sum;
            std::atomic_signal_fence(std::memory_order_seq_cst);
            sum = before + 1;
        }
    };
    std::thread threads[] = {std::thread(add), std::thread(add), std::thread(add)};
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(60'000, sum);
}

TEST(CCriticalSectionTest, Destruction_OfMany_LeavesNoHandles)
{
    const auto use = []
    {
        CCriticalSection section;
        auto lock = std::make_unique<CSingleLock>(&section, TRUE);
        OtherThread other(section);
        lock.reset();
    };
    use();
    const std::size_t before = ts::test::HandleCount();
    constexpr std::size_t kRounds = 100;
    for (std::size_t round = 0; round < kRounds; ++round)
    {
        use();
    }
    // The runtime keeps a handle or two for the waits of threads that really met.
    EXPECT_LT(ts::test::HandleCount(), before + kRounds / 10);
}

TEST(CCriticalSectionTest, Destruction_OfALock_GivesItBackToTheSystem)
{
    static int s_deleted = 0;
    static const auto s_delete = __imp_DeleteCriticalSection;
    s_deleted = 0;
    const ts::test::ImportPatch<decltype(&DeleteCriticalSection)> patch(&__imp_DeleteCriticalSection,
                                                                        [](CRITICAL_SECTION* section)
                                                                        {
                                                                            ++s_deleted;
                                                                            s_delete(section);
                                                                        });
    {
        const CCriticalSection section;
        EXPECT_EQ(0, s_deleted);
    }
    EXPECT_EQ(1, s_deleted);
}
