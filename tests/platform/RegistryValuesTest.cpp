#include "platform/ts/RegistryValues.h"
#include "tests/support/RawRegistry.h"
#include "tests/support/TextOutput.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <string>
#include <vector>

using ts::test::Bytes;
using ts::test::BytesOf;
using ts::test::RawKey;
using ts::test::RawText;
using ts::test::RawValue;

namespace
{

constexpr wchar_t kPath[] = L"Software\\Values";
constexpr wchar_t kName[] = L"Value";

// Every type that the registry names, and some that it does not.
constexpr DWORD kTypes[] = {REG_NONE,
                            REG_SZ,
                            REG_EXPAND_SZ,
                            REG_BINARY,
                            REG_DWORD,
                            REG_DWORD_BIG_ENDIAN,
                            REG_LINK,
                            REG_MULTI_SZ,
                            REG_RESOURCE_LIST,
                            REG_FULL_RESOURCE_DESCRIPTOR,
                            REG_RESOURCE_REQUIREMENTS_LIST,
                            REG_QWORD,
                            12,
                            0x10000,
                            0xFFFFFFFF};

// The characters that the reads and writes hold without asking for memory; texts around it are the risky
// ones.
constexpr std::size_t kBuffer = 1024;

class RegistryValuesTest : public testing::Test
{
  protected:
    ~RegistryValuesTest() override { ts::test::DeleteKeyTree(kPath); }

    void Store(const RawValue& value) { m_key.Write(kName, value); }
    [[nodiscard]] HKEY Key() const { return m_key.Get(); }

    RawKey m_key{kPath};
};

/// Leaves rubbish where the next function keeps its variables.
[[gnu::noinline]] void SoilTheStack()
{
    std::array<volatile unsigned char, 8192> rubbish;
    for (volatile unsigned char& byte : rubbish)
    {
        byte = 0xCD;
    }
}

/// The text that stored bytes stand for: whole characters, the last one completed by zeros, to the first
/// zero.
std::wstring TextIn(Bytes bytes)
{
    bytes.insert(bytes.end(), bytes.size() % 2 + 2, 0);
    std::wstring text(bytes.size() / 2, L'\0');
    std::memcpy(text.data(), bytes.data(), bytes.size());
    return text.c_str();
}

/// Contents of one size: no zero byte, ended by a terminator, a zero in the middle, zeros only.
std::vector<Bytes> ContentsOfSize(std::size_t size)
{
    Bytes full(size);
    for (std::size_t index = 0; index < size; ++index)
    {
        full[index] = static_cast<std::uint8_t>(0x41 + index % 0x60);
    }
    Bytes ended(full);
    Bytes parted(full);
    for (std::size_t index = 0; index < 2 && index < size; ++index)
    {
        ended[size - 1 - index] = 0;
        parted[size / 4 * 2 + index < size ? size / 4 * 2 + index : 0] = 0;
    }
    return {full, ended, parted, Bytes(size)};
}

std::optional<std::wstring> ReadText(HKEY key)
{
    const CString untouched(L"untouched");
    CString text(untouched);
    SoilTheStack();
    if (ts::TryReadString(key, kName, text))
    {
        return text.GetString();
    }
    EXPECT_EQ(untouched, text);
    return std::nullopt;
}

} // namespace

TEST_F(RegistryValuesTest, Reads_OfEveryTypeAndSmallSize_TakeOnlyTheirOwn)
{
    constexpr DWORD kOldDword = 0xA1B2C3D4;
    constexpr std::int64_t kOldInt64 = 0x1122334455667788;
    for (const DWORD type : kTypes)
    {
        for (std::size_t size = 0; size < 10; ++size)
        {
            for (const Bytes& bytes : ContentsOfSize(size))
            {
                const RawValue stored{type, bytes};
                SCOPED_TRACE(testing::PrintToString(stored));
                Store(stored);
                ASSERT_EQ(stored, m_key.Read(kName));

                const auto text = ReadText(Key());
                EXPECT_EQ(type == REG_SZ && size > 0, text.has_value());
                EXPECT_EQ(TextIn(bytes), text.value_or(TextIn(bytes)));

                DWORD dword = kOldDword;
                EXPECT_EQ(type == REG_DWORD && size == 4, ts::TryReadDword(Key(), kName, dword));
                const bool isDword = type == REG_DWORD && size == 4;
                EXPECT_EQ(isDword ? bytes : BytesOf(kOldDword, 4), BytesOf(dword, 4));

                std::int64_t int64 = kOldInt64;
                const bool isInt64 = type == REG_BINARY && size == 8;
                EXPECT_EQ(isInt64, ts::TryReadInt64(Key(), kName, int64));
                EXPECT_EQ(isInt64 ? bytes : BytesOf(kOldInt64, 8),
                          BytesOf(static_cast<std::uint64_t>(int64), 8));
            }
        }
    }
}

TEST_F(RegistryValuesTest, TryReadUpTo4Bytes_EveryTypeAndSmallSize_ReplacesOnlyTheLowBytes)
{
    constexpr DWORD kOld = 0xA1B2C3D4;
    for (const DWORD type : kTypes)
    {
        for (std::size_t size = 0; size < 10; ++size)
        {
            for (const Bytes& bytes : ContentsOfSize(size))
            {
                const RawValue stored{type, bytes};
                SCOPED_TRACE(testing::PrintToString(stored));
                Store(stored);
                Bytes expected = BytesOf(kOld, 4);
                if (size <= 4)
                {
                    std::copy(bytes.begin(), bytes.end(), expected.begin());
                }
                DWORD value = kOld;
                EXPECT_EQ(size <= 4, ts::TryReadUpTo4Bytes(Key(), kName, value));
                EXPECT_EQ(expected, BytesOf(value, 4));
            }
        }
    }
}

TEST_F(RegistryValuesTest, Reads_OfAMissingValueOrNoKey_TouchNothing)
{
    m_key.Delete(kName);
    for (const HKEY key : {Key(), HKEY{nullptr}})
    {
        DWORD dword = 5;
        std::int64_t int64 = 6;
        EXPECT_EQ(std::nullopt, ReadText(key));
        EXPECT_FALSE(ts::TryReadDword(key, kName, dword));
        EXPECT_FALSE(ts::TryReadUpTo4Bytes(key, kName, dword));
        EXPECT_FALSE(ts::TryReadInt64(key, kName, int64));
        EXPECT_EQ(5u, dword);
        EXPECT_EQ(6, int64);
    }
}

TEST_F(RegistryValuesTest, TryReadString_SizesAroundTheBuffer_ReadsTheWholeText)
{
    for (const std::size_t limit : {kBuffer, 2 * kBuffer})
    {
        for (std::size_t size = 2 * limit - 7; size <= 2 * limit + 7; ++size)
        {
            for (const Bytes& bytes : ContentsOfSize(size))
            {
                Store({REG_SZ, bytes});
                ASSERT_EQ(TextIn(bytes), ReadText(Key())) << size << " bytes";
            }
        }
    }
}

TEST_F(RegistryValuesTest, TryReadString_VeryLongTexts_ReadsThemAll)
{
    for (const std::size_t size : {200'000, 200'001, 2'000'000})
    {
        for (const Bytes& bytes : ContentsOfSize(size))
        {
            Store({REG_SZ, bytes});
            ASSERT_TRUE(TextIn(bytes) == ReadText(Key())) << size << " bytes";
        }
    }
}

TEST_F(RegistryValuesTest, Reads_OfAHugeValueOfAnotherType_Refuse)
{
    constexpr std::size_t kMegabyte = 1 << 20;
    for (const DWORD type : {REG_NONE, REG_BINARY, REG_MULTI_SZ, REG_EXPAND_SZ, REG_DWORD})
    {
        Store({static_cast<DWORD>(type), Bytes(kMegabyte, 0x41)});
        DWORD dword = 5;
        std::int64_t int64 = 6;
        EXPECT_EQ(std::nullopt, ReadText(Key())) << type;
        EXPECT_FALSE(ts::TryReadDword(Key(), kName, dword)) << type;
        EXPECT_FALSE(ts::TryReadUpTo4Bytes(Key(), kName, dword)) << type;
        EXPECT_FALSE(ts::TryReadInt64(Key(), kName, int64)) << type;
        EXPECT_EQ(5u, dword) << type;
        EXPECT_EQ(6, int64) << type;
    }
}

TEST_F(RegistryValuesTest, TryReadString_AnyCharacters_AreTakenAsTheyAre)
{
    std::wstring all;
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit)
    {
        all += static_cast<wchar_t>(unit);
    }
    Store(RawText(all));
    EXPECT_TRUE(all == ReadText(Key()));
}

TEST_F(RegistryValuesTest, WriteString_EveryLengthAroundTheBuffer_StoresTwoBytesPerCharacter)
{
    std::vector<std::size_t> lengths = {0, 1, 2, 3, 4, 5, 6, 7, 8, 255, 256, 100'000};
    for (std::size_t length = kBuffer - 8; length <= kBuffer + 8; ++length)
    {
        lengths.push_back(length);
        lengths.push_back(length + kBuffer);
    }
    for (const std::size_t length : lengths)
    {
        std::wstring text;
        for (std::size_t index = 0; index < length; ++index)
        {
            text += static_cast<wchar_t>(L'A' + index % 5000);
        }
        EXPECT_TRUE(ts::WriteString(Key(), kName, text.c_str()));
        const auto stored = m_key.Read(kName);
        ASSERT_EQ(2 * length, stored.value().bytes.size()) << length;
        ASSERT_EQ(RawText(text), stored) << length;
        const bool taken = length > 0;
        ASSERT_EQ(taken, ReadText(Key()).has_value()) << "an empty value counts as missing";
        ASSERT_TRUE(text == ReadText(Key()).value_or(std::wstring())) << length;
    }
}

TEST_F(RegistryValuesTest, WriteString_WithEmbeddedZeros_StoresThemAll)
{
    for (const std::wstring& text :
         {std::wstring(L"a\0b", 3), std::wstring(L"\0", 1), std::wstring(L"ab\0", 3),
          std::wstring(L"ab\0\0", 4), std::wstring(kBuffer, L'\0')})
    {
        EXPECT_TRUE(ts::WriteString(Key(), kName, CString(text.data(), static_cast<int>(text.size()))));
        EXPECT_EQ(RawText(text), m_key.Read(kName));
        EXPECT_EQ(std::wstring(text.c_str()), ReadText(Key())) << "a read ends at the first zero";
    }
}

TEST_F(RegistryValuesTest, WriteNumbers_AtTheirLimits_StoreLittleEndian)
{
    for (const std::uint32_t value : {0u, 1u, 0x12345678u, 0x80000000u, 0xFFFFFFFFu})
    {
        EXPECT_TRUE(ts::WriteDword(Key(), kName, value));
        EXPECT_EQ(ts::test::RawDword(value), m_key.Read(kName));
    }
    constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
    for (const std::int64_t value :
         {std::int64_t{0}, std::int64_t{-1}, std::int64_t{0x0102030405060708}, kMin, kMax})
    {
        EXPECT_TRUE(ts::WriteInt64(Key(), kName, value));
        EXPECT_EQ(ts::test::RawInt64(value), m_key.Read(kName));
    }
}

TEST_F(RegistryValuesTest, Writes_ToNoKey_ReportFailure)
{
    EXPECT_FALSE(ts::WriteString(nullptr, kName, L"text"));
    EXPECT_FALSE(ts::WriteDword(nullptr, kName, 1));
    EXPECT_FALSE(ts::WriteInt64(nullptr, kName, 1));
}

TEST_F(RegistryValuesTest, Writes_OverAValueOfAnotherKind_ReplaceTypeAndSize)
{
    Store({REG_BINARY, Bytes(5000, 1)});
    EXPECT_TRUE(ts::WriteDword(Key(), kName, 3));
    EXPECT_EQ(ts::test::RawDword(3), m_key.Read(kName));
    EXPECT_TRUE(ts::WriteString(Key(), kName, L"text"));
    EXPECT_EQ(RawText(L"text"), m_key.Read(kName));
    EXPECT_TRUE(ts::WriteInt64(Key(), kName, 4));
    EXPECT_EQ(ts::test::RawInt64(4), m_key.Read(kName));
}
