#pragma once

#include "TsServiceUtilities.h"
#include "tests/hosts/OtherWindows.h"
#include "tests/hosts/Program.h"
#include "tests/hosts/WaitUntil.h"

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

/// A service in a process of its own.
class ServiceProcess
{
  public:
    /// Returns when it hears of changes.
    ServiceProcess();
    ServiceProcess(const ServiceProcess&) = delete;
    ServiceProcess& operator=(const ServiceProcess&) = delete;
    ~ServiceProcess();

    [[nodiscard]] static HWND Window();
    /// Its alert, null while it shows none.
    [[nodiscard]] HWND Alert() const;
    [[nodiscard]] bool Alerts() const
    {
        return WaitUntil([this] { return Alert() != nullptr && Rows() > 0; });
    }
    [[nodiscard]] bool ClosesAlert() const
    {
        return WaitUntil([this] { return Alert() == nullptr; });
    }
    /// How many reminders the alert lists.
    [[nodiscard]] int Rows() const;
    /// A key for the control that has the focus.
    void Press(UINT key) const;
    /// Clicks a button of the alert.
    void Click(int button) const;
    /// The exit code.
    DWORD Stop();
    void Kill();
    [[nodiscard]] Program& Get() { return m_program; }

  private:
    Program m_program{L"", L"TessalyReminderService.exe"};
};

/// Reminders in the store of the Wine prefix, where all programs but the test itself keep theirs.
class ServiceProgramTest : public testing::Test
{
  protected:
    ServiceProgramTest();
    ~ServiceProgramTest() override;

    /// Its key.
    std::string Add(CTime due, const std::wstring& more = L"--no-outlook");
    [[nodiscard]] static nlohmann::ordered_json Show(const std::string& key);
    [[nodiscard]] bool Exists(const std::string& key) const;
    static CTime Now() { return CTime::GetCurrentTime(); }

  private:
    std::vector<std::string> m_keys;
};
