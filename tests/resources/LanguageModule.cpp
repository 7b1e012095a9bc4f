#include "tests/resources/LanguageModule.h"

#include <gtest/gtest.h>
#include <span>
#include <string_view>

namespace ts::test
{
namespace
{

constexpr unsigned kStringsPerBlock = 16;
constexpr unsigned kBlocks = 0x10000 / kStringsPerBlock;

/// Adds the strings of one block: sixteen times a length and as many characters. A string without characters
/// is the same as none.
void ReadBlock(std::span<const wchar_t> block, unsigned firstId, StringTable& strings)
{
    for (unsigned index = 0; index < kStringsPerBlock; ++index)
    {
        ASSERT_FALSE(block.empty()) << "the block of number " << firstId << " is cut off";
        const std::size_t length = block.front();
        block = block.subspan(1);
        ASSERT_LE(length, block.size()) << "the block of number " << firstId << " is cut off";
        if (length != 0)
        {
            strings.emplace(firstId + index, std::wstring(block.data(), length));
        }
        block = block.subspan(length);
    }
}

StringTable ReadStrings(const Language& language)
{
    StringTable strings;
    const ModuleHandle module = OpenLanguageModule(language);
    // Block 1 holds the numbers 0 to 15. Asking for each possible block needs no callback.
    for (unsigned block = 1; module != nullptr && block <= kBlocks; ++block)
    {
        const HRSRC found = FindResourceW(module.get(), MAKEINTRESOURCEW(block), RT_STRING);
        if (found != nullptr)
        {
            const auto* data = static_cast<const wchar_t*>(LockResource(LoadResource(module.get(), found)));
            const std::size_t length = SizeofResource(module.get(), found) / sizeof(wchar_t);
            ReadBlock({data, length}, (block - 1) * kStringsPerBlock, strings);
        }
    }
    return strings;
}

} // namespace

std::filesystem::path LanguageModulePath(const Language& language)
{
    wchar_t program[MAX_PATH * 4]{};
    GetModuleFileNameW(nullptr, program, static_cast<DWORD>(std::size(program)));
    const std::string name = std::string("TsServiceUtilities.") + language.code + ".dll";
    return std::filesystem::path(program).parent_path().parent_path() / name;
}

ModuleHandle OpenLanguageModule(const Language& language)
{
    ModuleHandle module(LoadLibraryExW(LanguageModulePath(language).c_str(), nullptr,
                                       LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
    EXPECT_NE(nullptr, module) << language.code << ": cannot be opened, error " << GetLastError();
    return module;
}

const StringTable& StringsOf(const Language& language)
{
    static std::map<std::string_view, StringTable> tables;
    auto found = tables.find(language.code);
    if (found == tables.end())
    {
        found = tables.emplace(language.code, ReadStrings(language)).first;
    }
    return found->second;
}

std::wstring TextOf(const Language& language, unsigned id)
{
    const StringTable& strings = StringsOf(language);
    const auto found = strings.find(id);
    if (found == strings.end())
    {
        ADD_FAILURE() << "number " << id << " in " << language.code << ": no text";
        return {};
    }
    return found->second;
}

std::string Utf8(const std::wstring& text)
{
    const int length = static_cast<int>(text.size());
    std::string result(text.size() * 3, '\0');
    const int written = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(),
                                            static_cast<int>(result.size()), nullptr, nullptr);
    result.resize(static_cast<std::size_t>(written));
    return result;
}

std::string Describe(const Language& language, unsigned id)
{
    return "number " + std::to_string(id) + " in " + language.code + ": " + Utf8(TextOf(language, id));
}

} // namespace ts::test
