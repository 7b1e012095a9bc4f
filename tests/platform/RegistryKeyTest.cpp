#include "platform/ts/RegistryValues.h"
#include "tests/support/HandleCount.h"
#include "tests/support/RawRegistry.h"

#include <gtest/gtest.h>
#include <type_traits>
#include <utility>

using ts::RegistryKey;
using ts::test::DeleteKeyTree;
using ts::test::HandleCount;
using ts::test::KeyExists;
using ts::test::RawDword;
using ts::test::RawKey;

static_assert(!std::is_copy_constructible_v<RegistryKey>);
static_assert(!std::is_copy_assignable_v<RegistryKey>);
static_assert(std::is_nothrow_move_constructible_v<RegistryKey>);
static_assert(std::is_nothrow_move_assignable_v<RegistryKey>);
static_assert(!std::is_convertible_v<RegistryKey, HKEY>);

namespace
{

constexpr wchar_t kPath[] = L"Software\\Keys\\One";

class RegistryKeyTest : public testing::Test
{
  protected:
    RegistryKeyTest() { RawKey(kPath).Write(L"Value", RawDword(7)); }
    ~RegistryKeyTest() override { DeleteKeyTree(L"Software\\Keys"); }
};

/// Whether the key still answers.
bool IsOpen(HKEY key)
{
    return RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                            nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

} // namespace

TEST_F(RegistryKeyTest, TryOpen_ExistingKey_IsOpen)
{
    const RegistryKey key = RegistryKey::TryOpen(HKEY_CURRENT_USER, kPath, KEY_READ);
    ASSERT_TRUE(key);
    EXPECT_TRUE(IsOpen(key.Get()));
}

TEST_F(RegistryKeyTest, TryOpen_MissingKeyOrParent_IsEmpty)
{
    const RegistryKey missing = RegistryKey::TryOpen(HKEY_CURRENT_USER, L"Software\\Keys\\Two", KEY_READ);
    EXPECT_FALSE(missing);
    EXPECT_EQ(nullptr, missing.Get());
    EXPECT_FALSE(RegistryKey::TryOpen(nullptr, kPath, KEY_READ));
    EXPECT_FALSE(KeyExists(L"Software\\Keys\\Two")) << "opening creates nothing";
}

TEST_F(RegistryKeyTest, TryOpen_ForReading_CannotWrite)
{
    const RegistryKey key = RegistryKey::TryOpen(HKEY_CURRENT_USER, kPath, KEY_READ);
    EXPECT_FALSE(ts::WriteDword(key.Get(), L"Value", 8));
    EXPECT_EQ(RawDword(7), RawKey(kPath).Read(L"Value"));
}

TEST_F(RegistryKeyTest, TryOpenOrCreate_MissingKey_CreatesItWithItsParents)
{
    constexpr wchar_t kDeep[] = L"Software\\Keys\\A\\B\\C";
    {
        const RegistryKey key = RegistryKey::TryOpenOrCreate(HKEY_CURRENT_USER, kDeep);
        ASSERT_TRUE(key);
        EXPECT_TRUE(ts::WriteDword(key.Get(), L"Value", 1));
    }
    EXPECT_EQ(RawDword(1), RawKey(kDeep).Read(L"Value"));
}

TEST_F(RegistryKeyTest, TryOpenOrCreate_ExistingKey_KeepsItsValues)
{
    const RegistryKey key = RegistryKey::TryOpenOrCreate(HKEY_CURRENT_USER, kPath);
    ASSERT_TRUE(key);
    EXPECT_EQ(RawDword(7), RawKey(kPath).Read(L"Value"));
    EXPECT_TRUE(ts::WriteDword(key.Get(), L"Value", 9));
    EXPECT_EQ(RawDword(9), RawKey(kPath).Read(L"Value"));
}

TEST_F(RegistryKeyTest, TryOpenOrCreate_ImpossibleName_IsEmpty)
{
    const std::wstring tooLong = L"Software\\Keys\\" + std::wstring(300, L'x');
    EXPECT_FALSE(RegistryKey::TryOpenOrCreate(HKEY_CURRENT_USER, tooLong.c_str()));
    EXPECT_FALSE(RegistryKey::TryOpenOrCreate(nullptr, kPath));
}

TEST_F(RegistryKeyTest, Move_OfAnOpenKey_LeavesTheSourceEmpty)
{
    RegistryKey source = RegistryKey::TryOpen(HKEY_CURRENT_USER, kPath, KEY_READ);
    const HKEY raw = source.Get();
    RegistryKey constructed(std::move(source));
    EXPECT_EQ(raw, constructed.Get());
    EXPECT_EQ(nullptr, source.Get());

    RegistryKey assigned;
    assigned = std::move(constructed);
    EXPECT_EQ(raw, assigned.Get());
    EXPECT_EQ(nullptr, constructed.Get());
    EXPECT_TRUE(IsOpen(raw));
}

TEST_F(RegistryKeyTest, Close_OfAnyKey_EmptiesItOnce)
{
    RegistryKey key = RegistryKey::TryOpen(HKEY_CURRENT_USER, kPath, KEY_READ);
    const HKEY raw = key.Get();
    key.Close();
    EXPECT_FALSE(key);
    EXPECT_FALSE(IsOpen(raw));
    key.Close();
    RegistryKey().Close();
    EXPECT_FALSE(key);
}

TEST_F(RegistryKeyTest, Handles_AfterTenThousandOpens_AreAsMany)
{
    RegistryKey kept = RegistryKey::TryOpen(HKEY_CURRENT_USER, kPath, KEY_READ);
    const std::size_t before = HandleCount();
    ASSERT_GT(before, 0u);
    for (int round = 0; round < 2500; ++round)
    {
        const RegistryKey read = RegistryKey::TryOpen(HKEY_CURRENT_USER, kPath, KEY_READ);
        RegistryKey written = RegistryKey::TryOpenOrCreate(HKEY_CURRENT_USER, kPath);
        const RegistryKey moved(std::move(written));
        kept = RegistryKey::TryOpen(HKEY_CURRENT_USER, kPath, KEY_READ);
        const RegistryKey missing = RegistryKey::TryOpen(HKEY_CURRENT_USER, L"Software\\Keys\\Two", KEY_READ);
        ASSERT_TRUE(read && moved && kept && !missing);
    }
    EXPECT_EQ(before, HandleCount());
}

TEST_F(RegistryKeyTest, Handles_OfAnOpenKey_AreCounted)
{
    const std::size_t before = HandleCount();
    const RegistryKey key = RegistryKey::TryOpen(HKEY_CURRENT_USER, kPath, KEY_READ);
    EXPECT_EQ(before + 1, HandleCount()) << "the count itself can fail";
}
