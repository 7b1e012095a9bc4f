#include "ConsoleHarness.h"

#include "App.h"
#include "Strings.h"
#include "TimeText.h"
#include "hosts/common/RegistryHandle.h"

#include <array>
#include <cstring>
#include <sstream>

namespace
{

constexpr wchar_t kProduct[] = L"Software\\Corvane";

std::string Hex(const std::string& bytes)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const char byte : bytes)
    {
        const auto value = static_cast<unsigned char>(byte);
        text += {kDigits[value >> 4], kDigits[value & 15]};
    }
    return text;
}

void DumpValues(HKEY key, const std::string& path, std::string& dump)
{
    for (DWORD index = 0;; ++index)
    {
        std::array<wchar_t, 256> name{};
        DWORD length = name.size();
        DWORD type = 0;
        DWORD size = 0;
        if (RegEnumValueW(key, index, name.data(), &length, nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
        {
            return;
        }
        std::vector<BYTE> data(size + 1);
        RegQueryValueExW(key, name.data(), nullptr, nullptr, data.data(), &size);
        dump += path + "|" + ts::console::FromLibrary(name.data()) + "|" + std::to_string(type) + "|" +
                Hex(std::string(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(size))) + "\n";
    }
}

void DumpKey(HKEY parent, const std::wstring& name, const std::string& path, std::string& dump)
{
    ts::hosts::RegistryHandle key;
    if (key.Open(parent, name.c_str(), KEY_READ) != ERROR_SUCCESS)
    {
        return;
    }
    dump += path + "\n";
    DumpValues(key.Get(), path, dump);
    for (DWORD index = 0;; ++index)
    {
        std::array<wchar_t, 256> child{};
        DWORD length = child.size();
        if (RegEnumKeyExW(key.Get(), index, child.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
        {
            return;
        }
        DumpKey(key.Get(), child.data(), path + "\\" + ts::console::FromLibrary(child.data()), dump);
    }
}

} // namespace

Outcome Reminders(const std::vector<std::string>& arguments, std::size_t width, const CTimeSpan& patience)
{
    std::ostringstream out;
    std::ostringstream err;
    ts::console::Session session{out, err, width, patience};
    const int code = ts::console::Run(arguments, session);
    return {code, out.str(), err.str()};
}

std::string Succeed(const std::vector<std::string>& arguments, std::size_t width)
{
    const Outcome outcome = Reminders(arguments, width);
    EXPECT_EQ(0, outcome.code) << testing::PrintToString(arguments);
    EXPECT_EQ("", outcome.err) << testing::PrintToString(arguments);
    EXPECT_TRUE(outcome.out.ends_with("\n")) << outcome.out;
    return outcome.out.substr(0, outcome.out.find_last_not_of('\n') + 1);
}

Json SucceedJson(std::vector<std::string> arguments)
{
    arguments.emplace_back("--json");
    const std::string text = Succeed(arguments);
    EXPECT_TRUE(Json::accept(text)) << text;
    return Json::parse(text, nullptr, false);
}

std::vector<std::string> AddArguments(const std::string& due, const std::vector<std::string>& more)
{
    std::vector<std::string> arguments = {
        "add",  "--document", "C:\\maps\\plan.map", "--map", kMap, "--topic",
        kTopic, "--subject",  "Send report",        "--due", due};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

void ConsoleTest::SetUp()
{
    RegDeleteTreeW(HKEY_CURRENT_USER, kProduct);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kProduct);
}

std::string ConsoleTest::Add(const std::string& due, const std::vector<std::string>& more)
{
    return Succeed(AddArguments(due, more));
}

std::string ConsoleTest::Snapshot()
{
    std::string dump;
    DumpKey(HKEY_CURRENT_USER, kProduct, "", dump);
    return dump;
}

void ConsoleTest::ExpectFailure(int code, const std::string& reason,
                                const std::vector<std::string>& arguments)
{
    const std::string what = testing::PrintToString(arguments);
    const std::string before = Snapshot();
    const Outcome outcome = Reminders(arguments);
    EXPECT_EQ(code, outcome.code) << what << outcome.err;
    EXPECT_EQ("", outcome.out) << what;
    EXPECT_EQ(0u, outcome.err.find("reminders: ")) << what << outcome.err;
    EXPECT_NE(std::string::npos, outcome.err.find(reason)) << what << "\n" << outcome.err;
    EXPECT_EQ(outcome.err.size() - 1, outcome.err.find('\n')) << what << outcome.err;
    EXPECT_EQ(before, Snapshot()) << what;
}

void ConsoleTest::WriteRaw(const std::string& key, const std::wstring& name, DWORD type,
                           const std::string& bytes)
{
    const CString path = CString(ts::kRemindersPath) + L"\\" + ts::console::ToLibrary(key);
    HKEY handle = nullptr;
    ASSERT_EQ(ERROR_SUCCESS,
              RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_WRITE, nullptr, &handle, nullptr));
    const std::vector<BYTE> data(bytes.begin(), bytes.end());
    EXPECT_EQ(ERROR_SUCCESS,
              RegSetValueExW(handle, name.c_str(), 0, type, data.data(), static_cast<DWORD>(data.size())));
    RegCloseKey(handle);
}

void ConsoleTest::WriteInt64(const std::string& key, const std::wstring& name, std::int64_t value)
{
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    WriteRaw(key, name, REG_BINARY, bytes);
}

void ConsoleTest::WriteDword(const std::string& key, const std::wstring& name, DWORD value)
{
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    WriteRaw(key, name, REG_DWORD, bytes);
}

void ConsoleTest::WriteText(const std::string& key, const std::wstring& name, const std::wstring& text)
{
    std::string bytes(text.size() * sizeof(wchar_t), '\0');
    std::memcpy(bytes.data(), text.data(), bytes.size());
    WriteRaw(key, name, REG_SZ, bytes);
}

std::string TimeArgument(CTime time)
{
    return ts::console::IsoTime(time).value_or("");
}
