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
    return FindDialog(m_program.ProcessId());
}

int ServiceProcess::Rows() const
{
    return RowCount(GetDlgItem(Alert(), kListOfAlert));
}

void ServiceProcess::Press(UINT key) const
{
    HWND focus = nullptr;
    // Another program's window may have come in front of it.
    ASSERT_TRUE(WaitUntil(
        [&]
        {
            SetForegroundWindow(Alert());
            return (focus = FocusOf(Alert())) != nullptr;
        }));
    PostMessageW(focus, WM_KEYDOWN, key, 1);
    PostMessageW(focus, WM_KEYUP, key, LPARAM{1} << 30 | 1);
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
    static_cast<void>(m_program.ExitCode());
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
