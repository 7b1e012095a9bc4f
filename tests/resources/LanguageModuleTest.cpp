// The language DLLs as files: resources of one language and nothing else.

#include "tests/resources/LanguageModule.h"
#include "resources/StringIds.h"

#include <bit>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace
{

using namespace ts::test;

/// The headers of a 64-bit program file, copied out of its bytes.
struct ImageHeaders
{
    IMAGE_NT_HEADERS64 headers{};
    std::vector<IMAGE_SECTION_HEADER> sections;
    std::string bytes;
};

template <typename T>
T CopyAt(const std::string& bytes, std::size_t offset)
{
    T value{};
    if (offset <= bytes.size() && bytes.size() - offset >= sizeof value)
    {
        std::memcpy(&value, bytes.data() + offset, sizeof value);
    }
    return value;
}

ImageHeaders ReadHeaders(const Language& language)
{
    ImageHeaders image;
    std::ifstream file(LanguageModulePath(language), std::ios::binary);
    image.bytes.assign(std::istreambuf_iterator<char>(file), {});
    const auto start = static_cast<std::size_t>(CopyAt<IMAGE_DOS_HEADER>(image.bytes, 0).e_lfanew);
    image.headers = CopyAt<IMAGE_NT_HEADERS64>(image.bytes, start);
    std::size_t offset = start + sizeof image.headers;
    for (int index = 0; index < image.headers.FileHeader.NumberOfSections; ++index)
    {
        image.sections.push_back(CopyAt<IMAGE_SECTION_HEADER>(image.bytes, offset));
        offset += sizeof(IMAGE_SECTION_HEADER);
    }
    return image;
}

/// The bytes that stand behind an address of the loaded image.
std::size_t FileOffset(const ImageHeaders& image, DWORD address)
{
    for (const IMAGE_SECTION_HEADER& section : image.sections)
    {
        if (address >= section.VirtualAddress && address < section.VirtualAddress + section.SizeOfRawData)
        {
            return section.PointerToRawData + (address - section.VirtualAddress);
        }
    }
    return image.bytes.size();
}

BOOL CALLBACK CollectLanguage(HMODULE, LPCWSTR, LPCWSTR, WORD language, LONG_PTR context) noexcept
{
    std::bit_cast<std::set<WORD>*>(context)->insert(language);
    return TRUE;
}

BOOL CALLBACK CollectLanguagesOfName(HMODULE module, LPCWSTR type, LPWSTR name, LONG_PTR context) noexcept
{
    return EnumResourceLanguagesW(module, type, name, CollectLanguage, context);
}

BOOL CALLBACK CollectLanguagesOfType(HMODULE module, LPWSTR type, LONG_PTR context) noexcept
{
    return EnumResourceNamesW(module, type, CollectLanguagesOfName, context);
}

/// Gives the thread another language while it lives.
class ThreadLanguage
{
  public:
    explicit ThreadLanguage(LANGID language) : m_locale(GetThreadLocale()), m_language(GetThreadUILanguage())
    {
        SetThreadLocale(MAKELCID(language, SORT_DEFAULT));
        SetThreadUILanguage(language);
    }
    ThreadLanguage(const ThreadLanguage&) = delete;
    ThreadLanguage& operator=(const ThreadLanguage&) = delete;
    ~ThreadLanguage()
    {
        SetThreadUILanguage(m_language);
        SetThreadLocale(m_locale);
    }

  private:
    LCID m_locale;
    LANGID m_language;
};

std::wstring Load(HMODULE module, unsigned id)
{
    wchar_t buffer[512];
    const int length = LoadStringW(module, id, buffer, static_cast<int>(std::size(buffer)));
    return {buffer, static_cast<std::size_t>(length)};
}

constexpr LANGID kThreadLanguages[] = {0x0409, 0x0407, 0x040C, 0x0807, 0x0C0C,
                                       0x0809, 0x0411, 0x0401, 0x040A};

} // namespace

TEST(LanguageModuleTest, EachFile_IsALibraryWithoutCode)
{
    for (const Language& language : kLanguages)
    {
        SCOPED_TRACE(language.code);
        const ImageHeaders image = ReadHeaders(language);
        ASSERT_EQ(DWORD{IMAGE_NT_SIGNATURE}, image.headers.Signature);
        ASSERT_EQ(IMAGE_NT_OPTIONAL_HDR64_MAGIC, image.headers.OptionalHeader.Magic);
        EXPECT_NE(0, image.headers.FileHeader.Characteristics & IMAGE_FILE_DLL);
        EXPECT_EQ(0U, image.headers.OptionalHeader.AddressOfEntryPoint) << "has an entry point";
        EXPECT_EQ(0U, image.headers.OptionalHeader.SizeOfCode);
        ASSERT_FALSE(image.sections.empty());
        for (const IMAGE_SECTION_HEADER& section : image.sections)
        {
            EXPECT_EQ(0U, section.Characteristics & (IMAGE_SCN_CNT_CODE | IMAGE_SCN_MEM_EXECUTE))
                << "section " << std::string(std::begin(section.Name), std::end(section.Name));
        }
    }
}

TEST(LanguageModuleTest, EachFile_ImportsAndExportsNothing)
{
    for (const Language& language : kLanguages)
    {
        SCOPED_TRACE(language.code);
        const ImageHeaders image = ReadHeaders(language);
        const std::span directories(image.headers.OptionalHeader.DataDirectory);
        const DWORD imports = directories[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
        EXPECT_EQ(0U, CopyAt<IMAGE_IMPORT_DESCRIPTOR>(image.bytes, FileOffset(image, imports)).Name);
        const DWORD exports = directories[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress;
        EXPECT_EQ(0U,
                  CopyAt<IMAGE_EXPORT_DIRECTORY>(image.bytes, FileOffset(image, exports)).NumberOfFunctions);
    }
}

TEST(LanguageModuleTest, AllResources_AreOfTheDllsLanguage)
{
    for (const Language& language : kLanguages)
    {
        const ModuleHandle module = OpenLanguageModule(language);
        std::set<WORD> languages;
        EnumResourceTypesW(module.get(), CollectLanguagesOfType, std::bit_cast<LONG_PTR>(&languages));
        EXPECT_EQ(std::set<WORD>{language.id}, languages) << language.code;
    }
}

TEST(LanguageModuleTest, StringsInAnyThreadLanguage_AreThoseOfTheDll)
{
    for (const Language& language : kLanguages)
    {
        const ModuleHandle module = OpenLanguageModule(language);
        for (const LANGID threadLanguage : kThreadLanguages)
        {
            const ThreadLanguage scope(threadLanguage);
            for (const auto& [id, text] : StringsOf(language))
            {
                EXPECT_EQ(text, Load(module.get(), id))
                    << Describe(language, id) << ", thread language " << std::hex << threadLanguage;
            }
        }
    }
}

TEST(LanguageModuleTest, VersionInformation_NamesFileAndLanguage)
{
    for (const Language& language : kLanguages)
    {
        SCOPED_TRACE(language.code);
        const ModuleHandle module = OpenLanguageModule(language);
        const HRSRC found = FindResourceW(module.get(), MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION);
        ASSERT_NE(nullptr, found);
        const auto* data = static_cast<const wchar_t*>(LockResource(LoadResource(module.get(), found)));
        const std::wstring version(data, SizeofResource(module.get(), found) / sizeof(wchar_t));
        const std::wstring file = LanguageModulePath(language).filename().wstring();
        EXPECT_NE(std::wstring::npos, version.find(L"Topic Alerts Utility Library"));
        EXPECT_NE(std::wstring::npos, version.find(file));
        // The translation: the language, then the code page of UTF-16.
        EXPECT_NE(std::wstring::npos, version.find({static_cast<wchar_t>(language.id), 1200}));
    }
}

TEST(LanguageModuleTest, LoadedAsALibrary_GivesTheSameStrings)
{
    for (const Language& language : kLanguages)
    {
        const ModuleHandle module(LoadLibraryW(LanguageModulePath(language).c_str()));
        ASSERT_NE(nullptr, module) << language.code << ", error " << GetLastError();
        EXPECT_EQ(TextOf(language, IDS_LANGUAGE_CODE), Load(module.get(), IDS_LANGUAGE_CODE));
    }
}
