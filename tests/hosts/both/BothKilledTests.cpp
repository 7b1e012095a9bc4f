#include "tests/hosts/ConsoleHarness.h"
#include "tests/hosts/desktop/HostProcess.h"
#include "tests/hosts/service/ServiceProgram.h"

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <random>

namespace
{

constexpr unsigned kSeed = 20261121;

std::wstring Wide(const std::string& ascii)
{
    return {ascii.begin(), ascii.end()};
}

/// Both hosts, killed and started again without regard to what they do.
class MortalHosts
{
  public:
    void Kill()
    {
        for (auto& program : m_programs)
        {
            if (program != nullptr)
            {
                program->Kill();
                EXPECT_EQ(Program::kKilled, program->ExitCode());
                program.reset();
            }
        }
    }
    void Start()
    {
        Kill();
        m_programs[0] = std::make_unique<Program>(L"", L"TessalyHost.exe");
        m_programs[1] = std::make_unique<Program>(L"", L"TessalyReminderService.exe");
    }

  private:
    std::array<std::unique_ptr<Program>, 2> m_programs;
};

class BothKilledTest : public ServiceProgramTest
{
  protected:
    /// Runs the console while both hosts die and live; what it printed.
    std::string Change(const std::wstring& arguments)
    {
        const Program console(arguments);
        Sleep(m_random() % 120);
        m_hosts.Kill();
        Sleep(m_random() % 60);
        m_hosts.Start();
        std::string text = console.ReadAll();
        EXPECT_EQ(0u, console.ExitCode()) << text;
        // From before they have windows to when they listen.
        Sleep(m_random() % 700);
        return text.substr(0, text.find_last_not_of('\n') + 1);
    }
    void AddOne(int round)
    {
        const std::wstring number = std::to_wstring(100 + round);
        const std::string key =
            Change(L"add --no-outlook --document C:\\maps\\plan.map --map " + Wide(kMap) +
                   L" --topic {0A9E44C2-7B1D-4E55-8C90-1F2E3D4C5" + number + L"} --subject s" + number +
                   L" --due " + Wide(TimeArgument(Now() - CTimeSpan(60LL * round))));
        EXPECT_TRUE(m_subjects.emplace(key, L"s" + number).second) << key;
    }
    void ChangeOne(int round)
    {
        auto& [key, subject] = *std::next(m_subjects.begin(), AnyIndex());
        subject = L"changed" + std::to_wstring(round);
        Change(L"edit --no-outlook " + Wide(key) + L" --subject " + subject);
    }
    void DeleteOne()
    {
        const auto deleted = std::next(m_subjects.begin(), AnyIndex());
        Change(L"delete --no-outlook " + Wide(deleted->first));
        m_subjects.erase(deleted);
    }
    void ExpectStore(int round) const
    {
        SCOPED_TRACE("seed " + std::to_string(kSeed) + ", round " + std::to_string(round));
        const auto listed = Json::parse(RunReminders(L"list --json"), nullptr, false);
        EXPECT_EQ(m_subjects.size(), listed.size());
        for (const auto& [key, subject] : m_subjects)
        {
            const auto reminder = Show(key);
            EXPECT_EQ(subject, Wide(reminder["subject"])) << key;
            EXPECT_EQ("C:\\maps\\plan.map", reminder["documentPath"]) << key;
            EXPECT_EQ(false, reminder["dismissed"]) << key;
        }
    }
    [[nodiscard]] std::vector<std::wstring> Subjects() const
    {
        std::vector<std::wstring> subjects;
        for (const auto& [key, subject] : m_subjects)
        {
            subjects.push_back(subject);
        }
        std::ranges::sort(subjects);
        return subjects;
    }

    std::mt19937 m_random{kSeed};
    std::map<std::string, std::wstring> m_subjects;
    MortalHosts m_hosts;

  private:
    std::ptrdiff_t AnyIndex() { return static_cast<std::ptrdiff_t>(m_random() % m_subjects.size()); }
};

TEST_F(BothKilledTest, HostsKilledWhileTheConsoleWrites_LoseNothing)
{
    constexpr int kRounds = 16;
    m_hosts.Start();
    for (int round = 0; round < kRounds && !HasFailure(); ++round)
    {
        const auto choice = m_random() % 4;
        if (m_subjects.size() < 3 || choice < 2)
        {
            AddOne(round);
        }
        else if (choice == 2)
        {
            ChangeOne(round);
        }
        else
        {
            DeleteOne();
        }
        ExpectStore(round);
    }
    m_hosts.Kill();
    const ServiceProcess service;
    const HostProcess host;
    ASSERT_TRUE(host.ShowsWindow());
    EXPECT_TRUE(WaitUntil(
        [this]
        {
            std::vector<std::wstring> listed = ListedSubjects();
            std::ranges::sort(listed);
            return listed == Subjects();
        }))
        << kSeed;
    EXPECT_TRUE(WaitUntil([&] { return service.Rows() == static_cast<int>(m_subjects.size()); })) << kSeed;
    for (const auto& [key, subject] : m_subjects)
    {
        RunReminders(L"delete --no-outlook " + Wide(key));
    }
    EXPECT_TRUE(service.ClosesAlert());
    EXPECT_TRUE(WaitUntil([] { return ListedSubjects().empty(); }));
}

} // namespace
