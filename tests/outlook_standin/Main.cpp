// outlook_standin.exe: a test double that activation starts in place of Outlook, under Wine only.

#include "tests/outlook_standin/ServerProcess.h"
#include "tests/outlook_standin/ServerRegistration.h"

#include "platform/WindowsHeaders.h"

#include <array>
#include <cstdio>
#include <exception>
#include <objbase.h>
#include <string>
#include <vector>

namespace
{

using namespace ts::standin;

constexpr char kUsage[] =
    "Stand-in for Outlook: a test double, not Outlook.\n"
    "  --register [--folder FOLDER] [--owner PID]   let activation start it, with its calendar in FOLDER\n"
    "  --unregister                                 take that back\n"
    "  -Embedding                                   serve; that is how activation starts it\n"
    "FOLDER is by default what the environment variable TS_OUTLOOK_STANDIN names.\n";

struct Options
{
    std::wstring mode;
    std::filesystem::path folder;
    unsigned long owner = 0;
};

std::wstring FolderInEnvironment()
{
    std::array<wchar_t, MAX_PATH> text{};
    const DWORD length =
        GetEnvironmentVariableW(L"TS_OUTLOOK_STANDIN", text.data(), static_cast<DWORD>(text.size()));
    return length < text.size() ? text.data() : L"";
}

Options Parse(const std::vector<std::wstring>& arguments)
{
    Options options{L"", FolderInEnvironment(), 0};
    for (std::size_t index = 0; index < arguments.size(); ++index)
    {
        const bool hasValue = index + 1 < arguments.size();
        if (arguments[index] == L"--folder" && hasValue)
        {
            options.folder = arguments[++index];
        }
        else if (arguments[index] == L"--owner" && hasValue)
        {
            options.owner = std::stoul(arguments[++index]);
        }
        else
        {
            options.mode = arguments[index];
        }
    }
    return options;
}

std::filesystem::path ThisProgram()
{
    std::array<wchar_t, MAX_PATH> text{};
    GetModuleFileNameW(nullptr, text.data(), static_cast<DWORD>(text.size()));
    return text.data();
}

int Run(const Options& options)
{
    if (options.mode == L"--unregister")
    {
        UnregisterServer();
        std::puts("Stand-in for Outlook (a test double): unregistered.");
        return 0;
    }
    const bool isRegistration = options.mode == L"--register";
    if (options.folder.empty() || (!isRegistration && options.mode != L"-Embedding"))
    {
        std::fputs(kUsage, stderr);
        return 2;
    }
    if (isRegistration)
    {
        RegisterServer(ThisProgram(), options.folder, options.owner);
        std::puts("Stand-in for Outlook (a test double): registered.");
        return 0;
    }
    std::puts("Stand-in for Outlook (a test double): serving.");
    return Serve(options.folder, options.owner);
}

} // namespace

int wmain(int count, wchar_t** values)
{
    try
    {
        SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
        if (FAILED(CoInitialize(nullptr)))
        {
            return 1;
        }
        const int result = Run(Parse(std::vector<std::wstring>(values + 1, values + count)));
        CoUninitialize();
        return result;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "Stand-in for Outlook (a test double): %s\n", error.what());
        return 1;
    }
}
