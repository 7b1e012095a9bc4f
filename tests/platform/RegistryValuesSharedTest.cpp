// Reads of a value that another thread, as another process might, changes in the meantime.

#include "platform/ts/RegistryValues.h"
#include "tests/support/Background.h"
#include "tests/support/HeapKind.h"
#include "tests/support/RawRegistry.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using ts::test::RawKey;

namespace
{

constexpr wchar_t kPath[] = L"Software\\Shared";
constexpr wchar_t kName[] = L"Value";

CString TextOf(std::size_t length, wchar_t letter)
{
    return std::wstring(length, letter).c_str();
}

class RegistryValuesSharedTest : public testing::Test
{
  protected:
    ~RegistryValuesSharedTest() override { ts::test::DeleteKeyTree(kPath); }

    /// Reads the value while another writes these texts in turn; each read must give one of them.
    void ExpectWholeTexts(const std::vector<CString>& written) const
    {
        ts::WriteString(m_key.Get(), kName, written.front());
        const ts::test::Background writer(
            [&]
            {
                for (const CString& text : written)
                {
                    ts::WriteString(m_key.Get(), kName, text);
                }
            });
        for (int round = 0; round < ts::test::Rounds(2000) || writer.Rounds() < 3; ++round)
        {
            CString read;
            ASSERT_TRUE(ts::TryReadString(m_key.Get(), kName, read)) << "round " << round;
            ASSERT_NE(0, std::count(written.begin(), written.end(), read))
                << "round " << round << ", " << read.GetLength() << " characters";
        }
    }

    RawKey m_key{kPath};
};

} // namespace

TEST_F(RegistryValuesSharedTest, TryReadString_OfATextThatGrowsBetweenTwoCalls_ReadsItWhole)
{
    // All take two calls, and each is longer than the room that the one before asks for.
    ExpectWholeTexts(
        {TextOf(1500, L'a'), TextOf(2000, L'b'), TextOf(3000, L'c'), TextOf(4500, L'd'), TextOf(6000, L'e')});
}

TEST_F(RegistryValuesSharedTest, TryReadString_OfATextThatChangesItsLength_ReadsItWhole)
{
    ExpectWholeTexts({L"short", TextOf(5000, L'b'), TextOf(1000, L'c'), TextOf(1030, L'd')});
}

TEST_F(RegistryValuesSharedTest, TryReadInt64_OfAValueThatChanges_ReadsItWhole)
{
    constexpr std::int64_t kOld = 0x1111111111111111;
    constexpr std::int64_t kNew = 0x2222222222222222;
    ts::WriteInt64(m_key.Get(), kName, kOld);
    const ts::test::Background writer(
        [&]
        {
            ts::WriteInt64(m_key.Get(), kName, kNew);
            ts::WriteInt64(m_key.Get(), kName, kOld);
        });
    for (int round = 0; round < ts::test::Rounds(2000) || writer.Rounds() < 3; ++round)
    {
        std::int64_t read = 0;
        ASSERT_TRUE(ts::TryReadInt64(m_key.Get(), kName, read));
        ASSERT_TRUE(read == kOld || read == kNew) << std::hex << read;
    }
}
