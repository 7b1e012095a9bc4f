#include "tests/hosts/Program.h"
#include "tests/outlook_standin/Standin.h"

#include <algorithm>

// The console's program with a stand-in for Outlook that is a program, too, started by activation. The
// program works on the store of the Wine prefix, not on the one of the test.

namespace
{

using namespace ts::standin;

class OutlookPrograms : public testing::Test
{
  protected:
    OutlookProcess m_outlook{TestFolder() + L"tests\\outlook_standin.exe"};
};

TEST_F(OutlookPrograms, OutlookCheck_VerifiesAllSteps)
{
    // An activation in the moment in which the server ends fails.
    m_outlook.SetLinger(std::chrono::seconds(2));
    Program check(L"outlook-check");
    for (const char* line : {"add: verified", "modify: verified", "dismiss: verified", "remove: verified",
                             "Outlook mirrors reminders as it should."})
    {
        EXPECT_EQ(line, check.ReadLine());
    }
    EXPECT_EQ(0u, check.ExitCode());
    EXPECT_TRUE(m_outlook.WaitUntilEnded());
    EXPECT_EQ(0, m_outlook.LiveObjects());
    Program list(L"list");
    EXPECT_EQ("No reminders.", list.ReadLine());
}

TEST_F(OutlookPrograms, OutlookThatHangs_LetsTheProgramEnd)
{
    // A little longer than the program waits.
    Faults faults;
    faults.delayPerCall = std::chrono::seconds(33);
    m_outlook.SetFaults(faults);
    const ULONGLONG begin = GetTickCount64();
    Program add(L"add --document x --map 6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01"
                L" --topic 0A9E44C2-7B1D-4E55-8C90-1F2E3D4C5B6A --subject x --due 2950-03-04");
    const std::string key = add.ReadLine();
    EXPECT_EQ("{{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}-0}", key);
    EXPECT_LT(GetTickCount64() - begin, 10'000u);
    EXPECT_EQ("reminders: Outlook was not done with the change after 30 seconds; its calendar may lack it",
              add.ReadLine());
    EXPECT_EQ(0u, add.ExitCode());
    EXPECT_GE(GetTickCount64() - begin, 29'000u);
    EXPECT_LT(GetTickCount64() - begin, 40'000u);
    m_outlook.ClearFaults();
    Program clean(L"delete --no-outlook " + std::wstring(key.begin(), key.end()));
    EXPECT_EQ("Deleted.", clean.ReadLine());
}

} // namespace
