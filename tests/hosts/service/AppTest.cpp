#include "hosts/service/App.h"

#include "hosts/common/Console.h"
#include "hosts/service/LogOnEntry.h"
#include "tests/support/RawRegistry.h"

#include <gtest/gtest.h>
#include <sstream>

namespace
{

using namespace ts::service;
using namespace ts::test;

struct Outcome
{
    int code;
    std::string out;
    std::string err;
};

Outcome Start(const std::vector<std::string>& arguments)
{
    std::ostringstream out;
    std::ostringstream err;
    const int code = Run(arguments, out, err);
    return {code, out.str(), err.str()};
}

class ServiceApp : public testing::Test
{
  protected:
    ~ServiceApp() override { DeleteKeyTree(kRunPath); }

    static std::optional<RawValue> Entry() { return RawKey(kRunPath).Read(kRunValue); }
};

TEST_F(ServiceApp, Install_WritesTheQuotedPathWithItsTerminator)
{
    for (int time = 0; time < 2; ++time)
    {
        const Outcome outcome = Start({"--install"});
        EXPECT_EQ(0, outcome.code) << outcome.err;
        EXPECT_EQ("The reminder service starts whenever you log on.\n", outcome.out);
        const std::wstring command = L"\"" + ts::hosts::ProgramPath() + L"\"";
        EXPECT_EQ(RawText(command + std::wstring(1, L'\0')), Entry());
    }
}

TEST_F(ServiceApp, Uninstall_RemovesTheValueAndLeavesTheOthers)
{
    RawKey(kRunPath).Write(L"other", RawText(L"x"));
    Start({"--install"});
    EXPECT_EQ("The reminder service starts no more when you log on.\n", Start({"--uninstall"}).out);
    EXPECT_EQ(std::nullopt, Entry());
    EXPECT_EQ(RawText(L"x"), RawKey(kRunPath).Read(L"other"));
    const Outcome again = Start({"--uninstall"});
    EXPECT_EQ(0, again.code);
    EXPECT_EQ("The reminder service was not installed.\n", again.out);
}

TEST_F(ServiceApp, UninstallWithoutAnyKey_IsNoError)
{
    EXPECT_EQ(0, Start({"--uninstall"}).code);
    EXPECT_FALSE(KeyExists(kRunPath));
}

TEST_F(ServiceApp, PathTooLongForWindows_IsRefused)
{
    WriteLogOnEntry(std::wstring(258, L'x'));
    const auto longest = Entry();
    EXPECT_THROW(WriteLogOnEntry(std::wstring(259, L'x')), std::runtime_error);
    EXPECT_EQ(longest, Entry());
}

TEST_F(ServiceApp, Stop_WithoutAServiceIsNoError)
{
    const Outcome outcome = Start({"--stop"});
    EXPECT_EQ(0, outcome.code);
    EXPECT_EQ("No reminder service runs.\n", outcome.out);
}

TEST_F(ServiceApp, Help_NamesEveryOption)
{
    const Outcome outcome = Start({"--help"});
    EXPECT_EQ(0, outcome.code);
    for (const char* option : {"--install", "--uninstall", "--stop", "--version", "--help"})
    {
        EXPECT_NE(std::string::npos, outcome.out.find(option)) << option;
    }
}

TEST_F(ServiceApp, Version_IsTheProducts)
{
    const Outcome outcome = Start({"--version"});
    EXPECT_EQ(0, outcome.code);
    EXPECT_EQ("TessalyReminderService " TS_VERSION "\n", outcome.out);
}

TEST_F(ServiceApp, WrongUse_IsToldAndDoesNothing)
{
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--instal"},
                                                      {"install"},
                                                      {"/install"},
                                                      {"--install", "--uninstall"},
                                                      {"--install", "--stop"},
                                                      {""}})
    {
        const Outcome outcome = Start(arguments);
        EXPECT_EQ(2, outcome.code) << testing::PrintToString(arguments);
        EXPECT_TRUE(outcome.err.starts_with("TessalyReminderService: ")) << outcome.err;
        EXPECT_EQ("", outcome.out);
        EXPECT_EQ(std::nullopt, Entry()) << testing::PrintToString(arguments);
    }
}

} // namespace
