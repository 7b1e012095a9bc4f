#include "platform/ts/ResourceDLL.h"
#include "tests/support/TextOutput.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace
{

constexpr unsigned kLanguageCode = 45002;

std::filesystem::path ProgramFolder()
{
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    return std::filesystem::path(program).parent_path();
}

std::wstring LanguageCodeOf(HMODULE library)
{
    wchar_t text[20] = L"";
    LoadStringW(library, kLanguageCode, text, 20);
    return text;
}

/// Language libraries of a module of the test's own, beside this program and with its name in theirs, so that
/// programs that run at the same time do not meet. They stay mapped until the program ends and are replaced
/// when it runs again.
class LanguageSet
{
  public:
    explicit LanguageSet(const std::wstring& name)
    {
        wchar_t program[MAX_PATH];
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        m_module = std::filesystem::path(program).stem().wstring() + L"." + name;
    }

    [[nodiscard]] const wchar_t* Module() const { return m_module.c_str(); }

    /// A whole library with the texts of `texts`.
    void Add(const std::wstring& language, const std::wstring& texts) const
    {
        const auto source = ProgramFolder() / (L"TsServiceUtilities." + texts + L".dll");
        ASSERT_NE(FALSE, CopyFileW(source.c_str(), PathOf(language).c_str(), FALSE)) << GetLastError();
    }

    /// A file that is no library.
    void AddBroken(const std::wstring& language, const std::string& bytes) const
    {
        std::ofstream(PathOf(language), std::ios::binary) << bytes;
    }

    /// A program, whose resources hold no texts: this one.
    void AddWithoutTexts(const std::wstring& language) const
    {
        wchar_t program[MAX_PATH];
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        ASSERT_NE(FALSE, CopyFileW(program, PathOf(language).c_str(), FALSE)) << GetLastError();
    }

    [[nodiscard]] std::wstring Load(const wchar_t* language) const
    {
        const HMODULE library = ResourceDLL::LoadLanguageResource(Module(), language);
        return library == nullptr ? L"none" : LanguageCodeOf(library);
    }

  private:
    [[nodiscard]] std::filesystem::path PathOf(const std::wstring& language) const
    {
        return ProgramFolder() / (m_module + L"." + language + L".dll");
    }

    std::wstring m_module;
};

} // namespace

TEST(ResourceDLLTest, WantedLanguage_IsTriedWithItsRegionThenWithout)
{
    const LanguageSet set(L"region");
    set.Add(L"en", L"en");
    set.Add(L"de", L"de");
    EXPECT_EQ(L"de", set.Load(L"de"));
    EXPECT_EQ(L"de", set.Load(L"de-AT"));
    EXPECT_EQ(L"en", set.Load(L"en-GB"));
    const LanguageSet regional(L"exact");
    regional.Add(L"de", L"de");
    regional.Add(L"de-AT", L"fr");
    EXPECT_EQ(L"fr", regional.Load(L"de-AT")) << "the library of the region itself comes first";
}

TEST(ResourceDLLTest, LanguageWithoutALibrary_FallsBackToEnglish)
{
    const LanguageSet set(L"fallback");
    set.Add(L"en", L"en");
    EXPECT_EQ(L"en", set.Load(L"ja-JP"));
    EXPECT_EQ(L"en", set.Load(L"fr"));
}

TEST(ResourceDLLTest, BrokenLibrary_FallsBackToEnglish)
{
    const LanguageSet set(L"broken");
    set.Add(L"en", L"en");
    set.AddBroken(L"de", "");
    set.AddBroken(L"fr", "MZ and nothing that follows");
    std::ifstream whole(ProgramFolder() / L"TsServiceUtilities.de.dll", std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(whole)), std::istreambuf_iterator<char>());
    ASSERT_GT(bytes.size(), 1024u);
    set.AddBroken(L"it", bytes.substr(0, 700));
    EXPECT_EQ(L"en", set.Load(L"de"));
    EXPECT_EQ(L"en", set.Load(L"fr"));
    EXPECT_EQ(L"en", set.Load(L"it"));
}

TEST(ResourceDLLTest, LibraryWithoutTexts_FallsBackToEnglish)
{
    const LanguageSet set(L"textless");
    set.Add(L"en", L"en");
    set.AddWithoutTexts(L"de");
    EXPECT_EQ(L"en", set.Load(L"de"));
}

TEST(ResourceDLLTest, NoLibraryAtAll_GivesNone)
{
    const LanguageSet set(L"nothing");
    EXPECT_EQ(nullptr, ResourceDLL::LoadLanguageResource(set.Module(), L"de"));
    EXPECT_EQ(nullptr, ResourceDLL::LoadLanguageResource(set.Module(), nullptr));
}

TEST(ResourceDLLTest, LaterCalls_GiveTheSameHandle)
{
    const HMODULE german = ResourceDLL::LoadLanguageResource(L"TsServiceUtilities", L"de");
    ASSERT_NE(nullptr, german);
    EXPECT_EQ(german, ResourceDLL::LoadLanguageResource(L"TsServiceUtilities", L"de"));
    EXPECT_EQ(german, ResourceDLL::LoadLanguageResource(L"TsServiceUtilities", L"de-CH"));
    EXPECT_NE(german, ResourceDLL::LoadLanguageResource(L"TsServiceUtilities", L"fr"));
}

TEST(ResourceDLLTest, PreferredLanguage_StandsBeforeTheUsers)
{
    for (const wchar_t* language : {L"en", L"fr", L"de", L"fr"})
    {
        ResourceDLL::SetPreferredLanguage(language);
        EXPECT_EQ(language,
                  LanguageCodeOf(ResourceDLL::LoadLanguageResource(L"TsServiceUtilities", nullptr)));
    }
    ResourceDLL::SetPreferredLanguage(nullptr);
    wchar_t user[LOCALE_NAME_MAX_LENGTH] = L"";
    ULONG count = 0;
    ULONG length = LOCALE_NAME_MAX_LENGTH;
    ASSERT_NE(FALSE, GetUserPreferredUILanguages(MUI_LANGUAGE_NAME, &count, user, &length));
    if (const char* locale = std::getenv("TS_LOCALE"))
    {
        EXPECT_EQ(std::wstring(locale, locale + 2), std::wstring(user, 2))
            << "the test's user has that locale";
    }
    EXPECT_EQ(ResourceDLL::LoadLanguageResource(L"TsServiceUtilities", user),
              ResourceDLL::LoadLanguageResource(L"TsServiceUtilities", nullptr));
}
