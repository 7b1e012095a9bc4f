#pragma once

#include "TsServiceUtilities.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

using Json = nlohmann::ordered_json;

inline constexpr char kMap[] = "{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}";
inline constexpr char kOtherMap[] = "{77777777-0F43-4C0B-9A35-3F1B8E6A2D02}";
inline constexpr char kTopic[] = "{0A9E44C2-7B1D-4E55-8C90-1F2E3D4C5B6A}";

/// What one run of the program gave.
struct Outcome
{
    int code;
    std::string out;
    std::string err;
};

/// Runs the program with these arguments on a terminal of that width, with so much patience for Outlook.
Outcome Reminders(const std::vector<std::string>& arguments, std::size_t width = 100,
                  const CTimeSpan& patience = CTimeSpan(30));

/// The same, expecting success; the output without the line feed at its end.
std::string Succeed(const std::vector<std::string>& arguments, std::size_t width = 100);

/// The one JSON document that a successful run prints.
Json SucceedJson(std::vector<std::string> arguments);

/// The arguments that add a reminder of a due time, followed by `more`.
std::vector<std::string> AddArguments(const std::string& due, const std::vector<std::string>& more = {});

/// A test that begins with no reminders and no settings.
class ConsoleTest : public testing::Test
{
  protected:
    void SetUp() override;

    /// Adds a reminder and returns its key.
    static std::string Add(const std::string& due, const std::vector<std::string>& more = {});

    /// Every key and value below the user's part of the registry, byte for byte.
    static std::string Snapshot();

    /// Runs the program and checks that it fails with that code and one line that contains `reason`, prints
    /// nothing else and leaves the registry as it was.
    static void ExpectFailure(int code, const std::string& reason, const std::vector<std::string>& arguments);

    /// Writes a value into a reminder's key, which is created if need be.
    static void WriteRaw(const std::string& key, const std::wstring& name, DWORD type,
                         const std::string& bytes);
    static void WriteInt64(const std::string& key, const std::wstring& name, std::int64_t value);
    static void WriteDword(const std::string& key, const std::wstring& name, DWORD value);
    static void WriteText(const std::string& key, const std::wstring& name, const std::wstring& text);
};

/// "2950-03-01T09:00" style text of a local time, for times that depend on the clock.
std::string TimeArgument(CTime time);
