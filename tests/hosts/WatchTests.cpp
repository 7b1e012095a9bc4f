#include "tests/hosts/ConsoleHarness.h"
#include "tests/hosts/Program.h"
#include "tests/hosts/WaitUntil.h"

#include "App.h"
#include "TimeText.h"

#include <mutex>
#include <sstream>
#include <thread>

namespace
{

/// What was flushed so far, for another thread to read.
class FlushedText : public std::stringbuf
{
  public:
    [[nodiscard]] std::string Get() const
    {
        const std::lock_guard guard(m_mutex);
        return m_text;
    }

  protected:
    int sync() override
    {
        const std::lock_guard guard(m_mutex);
        m_text += str();
        str({});
        return 0;
    }

  private:
    mutable std::mutex m_mutex;
    std::string m_text;
};

HWND FindServiceWindow()
{
    return FindWindowW(ts::kServiceWindowClass, nullptr);
}

/// The command's own, also where there are others.
HWND FindWatchWindow()
{
    return FindWindowW(ts::kServiceWindowClass, L"reminders watch");
}

std::size_t CountOf(const std::string& part, const std::string& text)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    {
        ++count;
    }
    return count;
}

/// The command on a thread of its own.
class Watch
{
  public:
    Watch() : m_thread([this] { Run(); })
    {
        EXPECT_TRUE(WaitUntil([this] { return Out().starts_with("Watching "); })) << Err();
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch()
    {
        if (m_thread.joinable())
        {
            Close();
            Join();
        }
    }

    [[nodiscard]] std::string Out() const { return m_out.Get(); }
    [[nodiscard]] std::string Err() const { return m_err.Get(); }
    bool Prints(const std::string& part) const
    {
        return WaitUntil([&] { return Out().find(part) != std::string::npos; });
    }

    static void Close() { PostMessageW(FindWatchWindow(), WM_CLOSE, 0, 0); }
    /// The exit code.
    int Join()
    {
        m_thread.join();
        return m_code;
    }

  private:
    void Run()
    {
        std::ostream out(&m_out);
        std::ostream err(&m_err);
        ts::console::Session session{out, err, 100};
        m_code = ts::console::Run({"watch"}, session);
        out.flush();
        err.flush();
    }

    FlushedText m_out;
    FlushedText m_err;
    int m_code = -1;
    std::thread m_thread;
};

class WatchCommand : public ConsoleTest
{
  protected:
    void SetUp() override
    {
        ConsoleTest::SetUp();
        ASSERT_EQ(nullptr, FindServiceWindow());
    }

    static std::string AddDue(CTime due, const std::vector<std::string>& more = {"--no-outlook"})
    {
        return Add(TimeArgument(due), more);
    }

    static std::string DueLine(CTime due, const std::string& key)
    {
        return "\nDue " + ts::console::ShortTime(due) + "  Send report  " + key + "\n";
    }
};

TEST_F(WatchCommand, Start_TellsWhatIsThere)
{
    const CTime now = CTime::GetCurrentTime();
    AddDue(now + CTimeSpan(86'400));
    AddDue(now - CTimeSpan(86'400));
    const Watch watch;
    EXPECT_EQ("Watching 2 reminders, 1 due already. Ctrl+C ends.\n", watch.Out());
    EXPECT_EQ("", watch.Err());
    EXPECT_NE(nullptr, FindServiceWindow());
}

TEST_F(WatchCommand, ReminderThatBecomesDue_IsPrintedOnce)
{
    const CTime due = CTime::GetCurrentTime() + CTimeSpan(3);
    const std::string key = AddDue(due);
    const Watch watch;
    ASSERT_EQ("Watching 1 reminder, 0 due already. Ctrl+C ends.\n", watch.Out());
    ASSERT_TRUE(watch.Prints(DueLine(due, key))) << watch.Out();
    EXPECT_GE(CTime::GetCurrentTime(), due);
    Succeed({"edit", key, "--no-outlook", "--title", "x"});
    ASSERT_TRUE(watch.Prints("Changed "));
    EXPECT_EQ(1u, CountOf("Due ", watch.Out())) << watch.Out();
}

TEST_F(WatchCommand, ReminderAddedMeanwhile_IsPrintedWhenItsLeadTimeBegins)
{
    const Watch watch;
    const CTime due = CTime::GetCurrentTime() + CTimeSpan(62);
    const std::string key = AddDue(due, {"--no-outlook", "--lead", "1m"});
    EXPECT_TRUE(watch.Prints("  1 reminder\n")) << watch.Out();
    EXPECT_TRUE(watch.Prints(DueLine(due, key))) << watch.Out();
}

TEST_F(WatchCommand, EachMessage_IsALine)
{
    const Watch watch;
    for (int message = 0; message < 3; ++message)
    {
        SendMessageW(FindServiceWindow(), ts::kSynchronizationMessage, 0, 0);
    }
    EXPECT_TRUE(WaitUntil([&] { return CountOf("\nChanged ", watch.Out()) == 3; })) << watch.Out();
}

TEST_F(WatchCommand, ChangeByAnotherProcess_IsPrinted)
{
    const Watch watch;
    // Its store is another one than this test's, but the message reaches the window all the same.
    Program change(L"move no-such-map.map other.map {6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}");
    EXPECT_EQ("Moved 0 reminders.", change.ReadLine());
    EXPECT_EQ(0u, change.ExitCode());
    EXPECT_TRUE(watch.Prints("\nChanged ")) << watch.Out();
}

TEST_F(WatchCommand, ChangeOfTheClock_IsFollowed)
{
    const Watch watch;
    WriteText("{x-0}", L"Subject", L"silent");
    WriteInt64("{x-0}", L"NextRecurrentDueDate", CTime::GetCurrentTime().GetTime());
    EXPECT_EQ(0u, CountOf("Due ", watch.Out()));
    SendMessageW(FindServiceWindow(), WM_TIMECHANGE, 0, 0);
    EXPECT_TRUE(watch.Prints("  silent  {x-0}\n")) << watch.Out();
}

TEST_F(WatchCommand, Close_EndsIt)
{
    Watch watch;
    Watch::Close();
    EXPECT_EQ(0, watch.Join());
    EXPECT_EQ(nullptr, FindServiceWindow());
    // Nothing of it is left that would keep another one from starting.
    const Watch again;
    EXPECT_NE(nullptr, FindServiceWindow());
}

TEST_F(WatchCommand, AnotherServiceWindow_KeepsTheMessages)
{
    // A class of the same name, of another module.
    WNDCLASSW other{};
    other.lpfnWndProc = DefWindowProcW;
    other.hInstance = GetModuleHandleW(L"TsServiceUtilities.dll");
    other.lpszClassName = ts::kServiceWindowClass;
    ASSERT_NE(0, RegisterClassW(&other));
    const HWND service = CreateWindowW(ts::kServiceWindowClass, L"service", WS_POPUP, 0, 0, 0, 0, nullptr,
                                       nullptr, other.hInstance, nullptr);
    ASSERT_NE(nullptr, service);
    {
        const Watch watch;
        EXPECT_EQ(
            "reminders: another reminder service runs and is told of changes instead; here they show within "
            "a minute\n",
            watch.Err());
        EXPECT_EQ(service, FindServiceWindow());
        DestroyWindow(service);
        EXPECT_EQ(FindWatchWindow(), FindServiceWindow());
    }
    UnregisterClassW(ts::kServiceWindowClass, other.hInstance);
}

TEST_F(WatchCommand, Program_WritesEachLineAtOnce)
{
    Program watch(L"watch");
    EXPECT_TRUE(watch.ReadLine().starts_with("Watching "));
    SendMessageW(FindServiceWindow(), ts::kSynchronizationMessage, 0, 0);
    EXPECT_TRUE(watch.ReadLine().starts_with("Changed "));
    Watch::Close();
    EXPECT_EQ(0u, watch.ExitCode());
}

TEST_F(WatchCommand, OutputThatNobodyReads_EndsTheProgram)
{
    Program watch(L"watch");
    EXPECT_TRUE(watch.ReadLine().starts_with("Watching "));
    watch.CloseOutput();
    SendMessageW(FindServiceWindow(), ts::kSynchronizationMessage, 0, 0);
    EXPECT_EQ(1u, watch.ExitCode());
}

} // namespace
