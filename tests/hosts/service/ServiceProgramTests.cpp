#include "tests/hosts/service/ServiceProgram.h"

#include "tests/hosts/ConsoleHarness.h"
#include "tests/outlook_standin/Standin.h"

#include <algorithm>
#include <random>

// The service's program, with other programs beside it. Only files and the registry of the Wine prefix are
// shared by them.

namespace
{

constexpr wchar_t kService[] = L"TessalyReminderService.exe";
constexpr int kEndButton = 1026;
constexpr std::int64_t kDay = 86'400;

TEST_F(ServiceProgramTest, ReminderOfAnotherProcess_AlertsWhenItIsDue)
{
    const ServiceProcess service;
    const CTime due = Now() + CTimeSpan(3);
    Add(due);
    EXPECT_EQ(nullptr, service.Alert());
    ASSERT_TRUE(service.Alerts());
    EXPECT_GE(Now(), due);
    EXPECT_LE(Now(), due + CTimeSpan(3));
    EXPECT_EQ(1, service.Rows());
}

TEST_F(ServiceProgramTest, Escape_Dismisses)
{
    const std::string key = Add(Now() - CTimeSpan(60));
    const ServiceProcess service;
    ASSERT_TRUE(service.Alerts());
    service.Press(VK_ESCAPE);
    ASSERT_TRUE(service.ClosesAlert());
    EXPECT_EQ(true, Show(key)["dismissed"]);
}

TEST_F(ServiceProgramTest, Enter_SnoozesAndTheAlertClosesItself)
{
    const std::string key = Add(Now() - CTimeSpan(60));
    const ServiceProcess service;
    ASSERT_TRUE(service.Alerts());
    service.Press(VK_RETURN);
    ASSERT_TRUE(service.ClosesAlert());
    EXPECT_EQ(true, Show(key)["snoozed"]);
    EXPECT_EQ(false, Show(key)["dismissed"]);
}

TEST_F(ServiceProgramTest, EndButton_DeletesAndTheAlertClosesItself)
{
    const std::string key = Add(Now() - CTimeSpan(60));
    const ServiceProcess service;
    ASSERT_TRUE(service.Alerts());
    service.Click(kEndButton);
    ASSERT_TRUE(service.ClosesAlert());
    EXPECT_FALSE(Exists(key));
}

TEST_F(ServiceProgramTest, ReminderSnoozedInAnotherProcess_LeavesTheAlert)
{
    const std::string first = Add(Now() - CTimeSpan(60));
    const std::string second = Add(Now() - CTimeSpan(30));
    const ServiceProcess service;
    ASSERT_TRUE(WaitUntil([&] { return service.Rows() == 2; }));
    RunReminders(L"snooze " + std::wstring(first.begin(), first.end()) + L" 1h");
    EXPECT_TRUE(WaitUntil([&] { return service.Rows() == 1; }));
    RunReminders(L"delete --no-outlook " + std::wstring(second.begin(), second.end()));
    EXPECT_TRUE(service.ClosesAlert());
}

TEST_F(ServiceProgramTest, UndismissedInAnotherProcess_AlertsAgain)
{
    const std::string key = Add(Now() + CTimeSpan(kDay), L"--no-outlook --lead 1w");
    ServiceProcess service;
    ASSERT_TRUE(service.Alerts());
    service.Press(VK_ESCAPE);
    ASSERT_TRUE(service.ClosesAlert());
    RunReminders(L"undismiss " + std::wstring(key.begin(), key.end()));
    EXPECT_TRUE(service.Alerts());
}

TEST_F(ServiceProgramTest, RecurringDismissed_MovesOnInTheStoreAndInOutlook)
{
    ts::standin::OutlookProcess outlook(TestFolder() + L"tests\\outlook_standin.exe");
    outlook.SetLinger(std::chrono::seconds(3));
    const CTime due = Now() - CTimeSpan(60);
    const std::string key = Add(due, L"--daily 1");
    const std::string outlookGuid = Show(key)["outlookObjectGuid"];
    ASSERT_FALSE(outlookGuid.empty());
    const std::wstring guid(outlookGuid.begin(), outlookGuid.end());
    ServiceProcess service;
    ASSERT_TRUE(service.Alerts());
    service.Press(VK_ESCAPE);
    ASSERT_TRUE(service.ClosesAlert());
    EXPECT_EQ(TimeArgument(due + CTimeSpan(kDay)), Show(key)["nextDue"]);
    // The service gives Outlook the time that it needs.
    EXPECT_EQ(0u, service.Stop());
    ASSERT_TRUE(outlook.WaitUntilEnded());
    const auto item = outlook.FindItem(guid);
    ASSERT_TRUE(item);
    ASSERT_TRUE(item->recurrence);
    EXPECT_EQ(1u, item->recurrence->deletedOccurrences.size());
}

TEST_F(ServiceProgramTest, OutlookThatHangs_LetsTheServiceEnd)
{
    ts::standin::OutlookProcess outlook(TestFolder() + L"tests\\outlook_standin.exe");
    outlook.SetLinger(std::chrono::seconds(3));
    Add(Now() - CTimeSpan(60), L"--daily 1");
    ASSERT_TRUE(outlook.WaitUntilEnded());
    ts::standin::Faults faults;
    faults.delayPerCall = std::chrono::seconds(8);
    outlook.SetFaults(faults);
    ServiceProcess service;
    ASSERT_TRUE(service.Alerts());
    service.Press(VK_ESCAPE);
    ASSERT_TRUE(service.ClosesAlert());
    const ULONGLONG begin = GetTickCount64();
    EXPECT_EQ(0u, service.Stop());
    EXPECT_GE(GetTickCount64() - begin, 3'000u);
    EXPECT_LT(GetTickCount64() - begin, 10'000u);
}

TEST_F(ServiceProgramTest, ServiceBesideAWatch_IsTheOneThatIsTold)
{
    const Program watch(L"watch");
    ASSERT_TRUE(WaitUntil([] { return FindWindowW(ts::kServiceWindowClass, nullptr) != nullptr; }));
    const ServiceProcess service;
    EXPECT_EQ(ServiceProcess::Window(), FindWindowW(ts::kServiceWindowClass, nullptr));
    Add(Now() - CTimeSpan(60));
    EXPECT_TRUE(service.Alerts());
}

TEST_F(ServiceProgramTest, SecondStart_EndsAndLeavesTheFirst)
{
    ServiceProcess first;
    const HWND window = ServiceProcess::Window();
    Program second(L"", kService);
    EXPECT_EQ(0u, second.ExitCode());
    EXPECT_EQ("", second.ReadAll());
    EXPECT_EQ(window, ServiceProcess::Window());
    EXPECT_TRUE(first.Get().IsRunning());
}

TEST_F(ServiceProgramTest, SecondStart_LetsTheFirstShowWhatIsDue)
{
    Add(Now() - CTimeSpan(60));
    const ServiceProcess first;
    ASSERT_TRUE(first.Alerts());
    PostMessageW(first.Alert(), WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(first.ClosesAlert());
    Program second(L"", kService);
    EXPECT_EQ(0u, second.ExitCode());
    EXPECT_TRUE(first.Alerts());
}

TEST_F(ServiceProgramTest, StartsAtTheSameTime_LeaveOne)
{
    std::vector<std::unique_ptr<Program>> programs;
    for (int count = 0; count < 6; ++count)
    {
        programs.push_back(std::make_unique<Program>(L"", kService));
    }
    const auto running = [&]
    { return std::ranges::count_if(programs, [](const auto& program) { return program->IsRunning(); }); };
    EXPECT_TRUE(WaitUntil([&] { return running() == 1; }));
    Program stop(L"--stop", kService);
    EXPECT_EQ("The reminder service has ended.\n", stop.ReadAll());
    EXPECT_EQ(0u, stop.ExitCode());
    EXPECT_EQ(0, running());
}

TEST_F(ServiceProgramTest, StartAfterAStop_Runs)
{
    for (int round = 0; round < 3; ++round)
    {
        ServiceProcess service;
        Program stop(L"--stop", kService);
        EXPECT_EQ(0u, stop.ExitCode());
        EXPECT_FALSE(service.Get().IsRunning());
        EXPECT_EQ(nullptr, ServiceProcess::Window());
    }
    Program stop(L"--stop", kService);
    EXPECT_EQ("No reminder service runs.\n", stop.ReadAll());
    EXPECT_EQ(0u, stop.ExitCode());
}

TEST_F(ServiceProgramTest, StartDuringTheEnd_WaitsForIt)
{
    // The first has no window any more, but still the right to be the service.
    const ts::KernelHandle ending(CreateMutexW(nullptr, TRUE, L"Local\\TessalyReminderService"));
    Program second(L"", kService);
    Sleep(500);
    EXPECT_TRUE(second.IsRunning());
    EXPECT_EQ(nullptr, ServiceProcess::Window());
    ReleaseMutex(ending.get());
    EXPECT_TRUE(WaitUntil([] { return ServiceProcess::Window() != nullptr; }));
    PostMessageW(ServiceProcess::Window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(0u, second.ExitCode());
}

TEST_F(ServiceProgramTest, InstallAndUninstall_WorkAsOftenAsWanted)
{
    for (int round = 0; round < 2; ++round)
    {
        for (int time = 0; time < 2; ++time)
        {
            Program install(L"--install", kService);
            EXPECT_EQ("The reminder service starts whenever you log on.\n", install.ReadAll());
            EXPECT_EQ(0u, install.ExitCode());
        }
        Program uninstall(L"--uninstall", kService);
        EXPECT_EQ("The reminder service starts no more when you log on.\n", uninstall.ReadAll());
        EXPECT_EQ(0u, uninstall.ExitCode());
        Program again(L"--uninstall", kService);
        EXPECT_EQ("The reminder service was not installed.\n", again.ReadAll());
        EXPECT_EQ(0u, again.ExitCode());
    }
}

TEST_F(ServiceProgramTest, WrongUse_IsTold)
{
    Program program(L"--instal", kService);
    EXPECT_TRUE(program.ReadAll().starts_with("TessalyReminderService: "));
    EXPECT_EQ(2u, program.ExitCode());
    EXPECT_EQ(nullptr, ServiceProcess::Window());
}

/// Kills the service while it starts, alerts, or ends its alert.
void KillAtRandom(std::mt19937& random)
{
    ServiceProcess service;
    Sleep(random() % 400);
    if (service.Alert() != nullptr && random() % 2 == 0)
    {
        service.Press(VK_ESCAPE);
        Sleep(random() % 20);
    }
    service.Kill();
}

TEST_F(ServiceProgramTest, KilledAtAnyMoment_LosesNothing)
{
    constexpr int kReminders = 3;
    constexpr int kRounds = 12;
    constexpr unsigned kSeed = 20261121;
    std::mt19937 random(kSeed);
    std::vector<std::string> keys;
    const CTime due = Now() - CTimeSpan(60);
    for (int count = 0; count < kReminders; ++count)
    {
        keys.push_back(Add(due, L"--no-outlook --daily 1"));
    }
    for (int round = 0; round < kRounds; ++round)
    {
        KillAtRandom(random);
        for (const std::string& key : keys)
        {
            const auto reminder = Show(key);
            SCOPED_TRACE("seed " + std::to_string(kSeed) + ", round " + std::to_string(round) + "\n" +
                         reminder.dump());
            const std::string next = reminder["nextDue"];
            EXPECT_TRUE(next == TimeArgument(due) || next == TimeArgument(due + CTimeSpan(kDay)));
            EXPECT_TRUE(reminder["subject"].get<std::string>().starts_with("s1"));
            EXPECT_EQ("daily", reminder["recurrenceType"]);
            EXPECT_EQ(false, reminder["dismissed"]);
        }
    }
    ServiceProcess service;
    const auto open = std::ranges::count_if(keys, [&](const std::string& key)
                                            { return Show(key)["nextDue"] == TimeArgument(due); });
    if (open > 0)
    {
        ASSERT_TRUE(service.Alerts());
        EXPECT_EQ(open, service.Rows());
        service.Press(VK_ESCAPE);
        ASSERT_TRUE(service.ClosesAlert());
    }
    for (const std::string& key : keys)
    {
        EXPECT_EQ(TimeArgument(due + CTimeSpan(kDay)), Show(key)["nextDue"]);
    }
}

} // namespace
