#pragma once

#include <atomic>
#include <functional>
#include <thread>
#include <utility>

namespace ts::test
{

/// Runs `work` again and again on a thread of its own while it lives. `work` may neither throw nor assert.
class Background
{
  public:
    explicit Background(std::function<void()> work)
        : m_work(std::move(work)), m_thread([this] { RunUntilStopped(); })
    {
    }
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;
    ~Background()
    {
        m_stop = true;
        m_thread.join();
    }

    /// How often the work was done so far.
    [[nodiscard]] int Rounds() const { return m_rounds; }

  private:
    void RunUntilStopped()
    {
        while (!m_stop)
        {
            m_work();
            ++m_rounds;
        }
    }

    std::function<void()> m_work;
    std::atomic<bool> m_stop{false};
    std::atomic<int> m_rounds{0};
    // Last, so that the thread begins when all else is there.
    std::thread m_thread;
};

} // namespace ts::test
