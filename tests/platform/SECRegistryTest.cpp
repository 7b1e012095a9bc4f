#include "platform/ts/SECRegistry.h"
#include "tests/support/HandleCount.h"
#include "tests/support/HeapKind.h"
#include "tests/support/RawRegistry.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <vector>

using ts::test::DeleteKeyTree;
using ts::test::KeyExists;
using ts::test::RawDword;
using ts::test::RawKey;
using ts::test::RawText;

static_assert(!std::is_copy_constructible_v<SECRegistry>);

namespace
{

const std::wstring kRoot = L"Software\\Wrapped";

class SECRegistryTest : public testing::Test
{
  protected:
    SECRegistryTest() { RawKey(kRoot).Write(L"Text", RawText(L"old")); }
    ~SECRegistryTest() override { DeleteKeyTree(kRoot); }

    static SECRegistry Opened(REGSAM access, const std::wstring& path = kRoot)
    {
        SECRegistry registry;
        EXPECT_TRUE(registry.Connect(HKEY_CURRENT_USER));
        EXPECT_TRUE(registry.Open(path.c_str(), access));
        return registry;
    }

    static std::vector<std::wstring> SubkeysOf(const SECRegistry& registry)
    {
        std::vector<std::wstring> names;
        CString name;
        for (DWORD index = 0; registry.EnumerateKeys(index, name); ++index)
        {
            names.emplace_back(name.GetString());
        }
        return names;
    }
};

/// Every operation on a key that is not open fails and leaves what it was given.
void ExpectClosed(SECRegistry& registry)
{
    CString text(L"untouched");
    DWORD number = 5;
    EXPECT_FALSE(registry.EnumerateKeys(0, text));
    EXPECT_FALSE(registry.GetStringValue(L"Text", text));
    EXPECT_FALSE(registry.SetStringValue(L"Text", L"new"));
    EXPECT_FALSE(registry.GetDoubleWordValue(L"Number", number));
    EXPECT_FALSE(registry.SetDoubleWordValue(L"Number", 6));
    EXPECT_FALSE(registry.DeleteKey(L"Sub"));
    EXPECT_EQ(L"untouched", text);
    EXPECT_EQ(5u, number);
}

} // namespace

TEST_F(SECRegistryTest, Open_WithoutARoot_Fails)
{
    SECRegistry registry;
    EXPECT_FALSE(registry.Open(kRoot.c_str(), KEY_READ));
    EXPECT_FALSE(registry.Connect(nullptr));
    EXPECT_FALSE(registry.Open(kRoot.c_str(), KEY_READ));
    ExpectClosed(registry);
}

TEST_F(SECRegistryTest, Open_MissingKey_FailsAndCreatesNothing)
{
    SECRegistry registry = Opened(KEY_ALL_ACCESS);
    EXPECT_FALSE(registry.Open((kRoot + L"\\Sub").c_str(), KEY_ALL_ACCESS));
    EXPECT_FALSE(KeyExists(kRoot + L"\\Sub"));
    ExpectClosed(registry);
}

TEST_F(SECRegistryTest, Open_OfASecondKey_TakesThePlaceOfTheFirst)
{
    RawKey(kRoot + L"\\Sub").Write(L"Text", RawText(L"below"));
    SECRegistry registry = Opened(KEY_READ);
    EXPECT_TRUE(registry.Open((kRoot + L"\\Sub").c_str(), KEY_READ));
    CString text;
    EXPECT_TRUE(registry.GetStringValue(L"Text", text));
    EXPECT_EQ(L"below", text);
}

TEST_F(SECRegistryTest, Close_OfAnOpenKey_EndsEveryOperation)
{
    RawKey sub(kRoot + L"\\Sub");
    SECRegistry registry = Opened(KEY_ALL_ACCESS);
    registry.Close();
    ExpectClosed(registry);
    registry.Close();
    EXPECT_TRUE(KeyExists(kRoot + L"\\Sub"));
    EXPECT_EQ(RawText(L"old"), RawKey(kRoot).Read(L"Text"));
}

TEST_F(SECRegistryTest, Values_WrittenAndRead_AreStoredExactly)
{
    SECRegistry registry = Opened(KEY_ALL_ACCESS);
    EXPECT_TRUE(registry.SetStringValue(L"Text", L"abc"));
    EXPECT_TRUE(registry.SetDoubleWordValue(L"Number", 0xFFFFFFFF));
    EXPECT_EQ(RawText(L"abc"), RawKey(kRoot).Read(L"Text")) << "6 bytes, no terminator";
    EXPECT_EQ(RawDword(0xFFFFFFFF), RawKey(kRoot).Read(L"Number"));
    CString text;
    DWORD number = 0;
    EXPECT_TRUE(registry.GetStringValue(L"Text", text));
    EXPECT_TRUE(registry.GetDoubleWordValue(L"Number", number));
    EXPECT_EQ(L"abc", text);
    EXPECT_EQ(0xFFFFFFFF, number);
    EXPECT_FALSE(registry.GetDoubleWordValue(L"Text", number)) << "a text is no number";
    EXPECT_FALSE(registry.GetStringValue(L"Number", text)) << "a number is no text";
}

TEST_F(SECRegistryTest, Values_OfAKeyOpenedForReading_CannotBeWritten)
{
    SECRegistry registry = Opened(KEY_READ);
    EXPECT_FALSE(registry.SetStringValue(L"Text", L"new"));
    EXPECT_FALSE(registry.SetDoubleWordValue(L"Number", 1));
    EXPECT_EQ((ts::test::RawValues{{L"Text", RawText(L"old")}}), RawKey(kRoot).Values());
}

TEST_F(SECRegistryTest, EnumerateKeys_OfAKey_NamesEachSubkeyOnce)
{
    EXPECT_TRUE(SubkeysOf(Opened(KEY_READ)).empty());
    const std::wstring longest(255, L'x');
    for (const std::wstring& name :
         {std::wstring(L"b"), std::wstring(L"a"), longest, std::wstring(L"\x00E4\xD83D")})
    {
        RawKey(kRoot + L"\\" + name);
    }
    const SECRegistry registry = Opened(KEY_READ);
    EXPECT_EQ(RawKey(kRoot).Subkeys(), SubkeysOf(registry));
    EXPECT_EQ(4u, SubkeysOf(registry).size());

    CString name(L"untouched");
    EXPECT_FALSE(registry.EnumerateKeys(4, name));
    EXPECT_FALSE(registry.EnumerateKeys(0xFFFFFFFF, name));
    EXPECT_EQ(L"untouched", name);
}

TEST_F(SECRegistryTest, EnumerateKeys_WithTheLongestNameThatTheSystemTakes_GoesOnBehindIt)
{
    std::size_t longest = 250;
    for (std::size_t length = longest; length < 300; ++length)
    {
        const std::wstring path = kRoot + L"\\" + std::wstring(length, L'x');
        if (ts::RegistryKey::TryOpenOrCreate(HKEY_CURRENT_USER, path.c_str()))
        {
            longest = length;
        }
    }
    ASSERT_GE(longest, 255u);
    const RawKey last(kRoot + L"\\y");
    EXPECT_EQ(longest - 250 + 2, SubkeysOf(Opened(KEY_READ)).size());
}

TEST_F(SECRegistryTest, DeleteKey_WithSubkeys_DeletesThemAll)
{
    RawKey(kRoot + L"\\Sub\\Deep\\Deeper").Write(L"Text", RawText(L"x"));
    RawKey other(kRoot + L"\\Other");
    EXPECT_TRUE(Opened(KEY_ALL_ACCESS).DeleteKey(L"Sub"));
    EXPECT_FALSE(KeyExists(kRoot + L"\\Sub"));
    EXPECT_TRUE(KeyExists(kRoot + L"\\Other"));
    EXPECT_EQ(RawText(L"old"), RawKey(kRoot).Read(L"Text"));
}

TEST_F(SECRegistryTest, DeleteKey_OfAMissingOrNamelessKey_FailsAndDeletesNothing)
{
    RawKey sub(kRoot + L"\\Sub");
    SECRegistry registry = Opened(KEY_ALL_ACCESS);
    for (const wchar_t* name : {L"Missing", L"", L"\\", L"\\\\", L"."})
    {
        EXPECT_FALSE(registry.DeleteKey(name)) << testing::PrintToString(CString(name));
        ASSERT_TRUE(KeyExists(kRoot + L"\\Sub")) << testing::PrintToString(CString(name));
        EXPECT_EQ(RawText(L"old"), RawKey(kRoot).Read(L"Text"));
    }
}

TEST_F(SECRegistryTest, Handles_AfterManyRounds_AreAsMany)
{
    RawKey sub(kRoot + L"\\Sub");
    const std::size_t before = ts::test::HandleCount();
    for (int round = 0; round < ts::test::Rounds(2000); ++round)
    {
        SECRegistry registry = Opened(KEY_ALL_ACCESS);
        registry.Open((kRoot + L"\\Sub").c_str(), KEY_READ);
        registry.Open((kRoot + L"\\Missing").c_str(), KEY_READ);
        registry.Open(kRoot.c_str(), KEY_ALL_ACCESS);
        registry.DeleteKey(L"Missing");
        registry.Connect(HKEY_LOCAL_MACHINE);
    }
    EXPECT_EQ(before, ts::test::HandleCount());
}
