#include "tests/hosts/service/ServiceProgram.h"

#include "tests/hosts/ConsoleHarness.h"

#include <algorithm>
#include <bit>
#include <commctrl.h>

namespace
{

constexpr int kListOfAlert = 1030;

std::wstring Wide(const std::string& ascii)
{
    return {ascii.begin(), ascii.end()};
}

} // namespace

std::string RunReminders(const std::wstring& arguments)
{
    Program program(arguments);
    std::string text = program.ReadAll();
    EXPECT_EQ(0u, program.ExitCode()) << std::string(arguments.begin(), arguments.end()) << "\n" << text;
    return text.substr(0, text.find_last_not_of('\n') + 1);
}

ServiceProcess::ServiceProcess()
{
    EXPECT_TRUE(WaitUntil([] { return Window() != nullptr; }));
}

ServiceProcess::~ServiceProcess()
{
    Kill();
}

HWND ServiceProcess::Window()
{
    return FindWindowW(ts::kServiceWindowClass, L"TessalyReminderService");
}

HWND ServiceProcess::Alert() const
{
    for (HWND window = nullptr;;)
    {
        window = FindWindowExW(nullptr, window, L"#32770", nullptr);
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (window == nullptr || (process == m_program.ProcessId() && IsWindowVisible(window) != FALSE))
        {
            return window;
        }
    }
}

int ServiceProcess::Rows() const
{
    return static_cast<int>(SendMessageW(GetDlgItem(Alert(), kListOfAlert), LVM_GETITEMCOUNT, 0, 0));
}

void ServiceProcess::Press(UINT key) const
{
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    ASSERT_TRUE(WaitUntil(
        [&]
        {
            return GetGUIThreadInfo(GetWindowThreadProcessId(Alert(), nullptr), &thread) != FALSE &&
                   thread.hwndFocus != nullptr;
        }));
    PostMessageW(thread.hwndFocus, WM_KEYDOWN, key, 1);
    PostMessageW(thread.hwndFocus, WM_KEYUP, key, LPARAM{1} << 30 | 1);
}

void ServiceProcess::Click(int button) const
{
    ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(GetDlgItem(Alert(), button)) != FALSE; }));
    PostMessageW(GetDlgItem(Alert(), button), BM_CLICK, 0, 0);
}

DWORD ServiceProcess::Stop()
{
    PostMessageW(Window(), WM_CLOSE, 0, 0);
    return m_program.ExitCode();
}

void ServiceProcess::Kill()
{
    m_program.Kill();
    m_program.ExitCode();
}

ServiceProgramTest::ServiceProgramTest()
{
    EXPECT_EQ("No reminders.", RunReminders(L"list"));
    EXPECT_EQ(nullptr, ServiceProcess::Window());
}

ServiceProgramTest::~ServiceProgramTest()
{
    for (const std::string& key : m_keys)
    {
        Program(L"delete --no-outlook " + Wide(key)).ReadAll();
    }
}

std::string ServiceProgramTest::Add(CTime due, const std::wstring& more)
{
    // A topic of its own for each.
    const std::wstring number = std::to_wstring(m_keys.size() + 100);
    m_keys.push_back(RunReminders(L"add --document C:\\maps\\plan.map --map " + Wide(kMap) +
                                  L" --topic {0A9E44C2-7B1D-4E55-8C90-1F2E3D4C5" + number + L"} --subject s" +
                                  number + L" --due " + Wide(TimeArgument(due)) + L" " + more));
    return m_keys.back();
}

nlohmann::ordered_json ServiceProgramTest::Show(const std::string& key)
{
    return nlohmann::ordered_json::parse(RunReminders(L"show --json " + Wide(key)), nullptr, false);
}

bool ServiceProgramTest::Exists(const std::string& key) const
{
    return RunReminders(L"list --json").find("\"" + key + "\"") != std::string::npos;
}
