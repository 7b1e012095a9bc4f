#include "tests/hosts/ConsoleHarness.h"
#include "tests/hosts/desktop/HostProcess.h"
#include "tests/hosts/service/ServiceProgram.h"
#include "tests/support/WindowDriver.h"

// "Open Topic" in the service's alert, with and without the desktop host.

namespace
{

using ts::test::TextOf;

constexpr int kOpenButton = 1023;
constexpr int kTextOfBox = 0xFFFF;

class OpenTopicTest : public ServiceProgramTest
{
  protected:
    ~OpenTopicTest() override
    {
        PostMessageW(MainWindowHandle(), WM_CLOSE, 0, 0);
        EXPECT_TRUE(WaitUntil([] { return MainWindowHandle() == nullptr; }));
        EXPECT_EQ(0u, Program(L"--unregister", L"TessalyHost.exe").ExitCode());
    }

    static bool ShowsTopic(const std::wstring& subject)
    {
        return WaitUntil(
            [&] { return IsWindowVisible(MainWindowHandle()) != FALSE && SelectedSubject() == subject; });
    }
};

TEST_F(OpenTopicTest, HostThatRuns_ShowsTheRow)
{
    Add(Now() + CTimeSpan(86'400));
    const std::string due = Add(Now() - CTimeSpan(60));
    const HostProcess host;
    ASSERT_TRUE(host.ShowsWindow());
    ShowWindow(MainWindowHandle(), SW_MINIMIZE);
    const ServiceProcess service;
    ASSERT_TRUE(service.Alerts());
    service.Click(kOpenButton);
    EXPECT_TRUE(ShowsTopic(L"s101"));
    EXPECT_TRUE(WaitUntil([] { return IsIconic(MainWindowHandle()) == FALSE; }));
    EXPECT_EQ(host.ProcessId(), MainWindowProcess());
    // The reminder is still due.
    EXPECT_EQ(1, service.Rows());
    EXPECT_EQ(false, Show(due)["dismissed"]);
}

TEST_F(OpenTopicTest, RegisteredHostThatDoesNotRun_IsStarted)
{
    ASSERT_EQ(0u, Program(L"--register", L"TessalyHost.exe").ExitCode());
    Add(Now() + CTimeSpan(86'400));
    Add(Now() - CTimeSpan(60));
    const ServiceProcess service;
    ASSERT_TRUE(service.Alerts());
    service.Click(kOpenButton);
    EXPECT_TRUE(ShowsTopic(L"s101"));
}

TEST_F(OpenTopicTest, HostThatIsNotRegistered_IsToldToTheUser)
{
    const std::string key = Add(Now() - CTimeSpan(60));
    ServiceProcess service;
    ASSERT_TRUE(service.Alerts());
    const HWND alert = service.Alert();
    service.Click(kOpenButton);
    HWND box = nullptr;
    ASSERT_TRUE(WaitUntil(
        [&]
        {
            box = service.Alert();
            return box != nullptr && box != alert && GetDlgItem(box, kTextOfBox) != nullptr;
        }));
    EXPECT_EQ(L"The topic cannot be opened because Tessaly could not be started.",
              TextOf(GetDlgItem(box, kTextOfBox)));
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(WaitUntil([&] { return IsWindow(box) == FALSE && IsWindowEnabled(alert) != FALSE; }));
    EXPECT_EQ(alert, service.Alert());
    EXPECT_EQ(nullptr, MainWindowHandle());
    EXPECT_EQ(false, Show(key)["dismissed"]);
    EXPECT_EQ(0u, service.Stop());
}

} // namespace
