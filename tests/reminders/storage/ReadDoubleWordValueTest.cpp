// The read that looks at the type of one value and takes another.

#include "tests/reminders/storage/StoreTest.h"

namespace ts::test
{
namespace
{

class ReadDoubleWordValueTest : public StoreTest
{
  protected:
    /// What the read leaves in a variable that held 0xA1B2C3D4, and whether it succeeded.
    std::pair<bool, std::uint32_t> Read(const wchar_t* name)
    {
        DWORD value = 0xA1B2C3D4;
        const bool read = m_record.ReadDoubleWordValue(m_key.Get(), name, &value);
        return {read, value};
    }

    RawKey m_key = Key(L"k");
    CcvReminderData m_record = EmptyRecord();
};

using Result = std::pair<bool, std::uint32_t>;
constexpr std::uint32_t kOld = 0xA1B2C3D4;

} // namespace

TEST_F(ReadDoubleWordValueTest, Read_WithoutARecurrenceType_FailsWhateverTheValueIs)
{
    m_key.Write(L"Other", RawDword(7));
    EXPECT_EQ(Result(false, kOld), Read(L"Other"));
    for (const RawValue& type : {RawText(L"3"), RawValue{REG_BINARY, {3, 0, 0, 0}}, RawValue{REG_DWORD, {3}},
                                 RawValue{REG_DWORD, {}}, RawValue{REG_DWORD, Bytes(8)}})
    {
        m_key.Write(L"RecurrenceType", type);
        EXPECT_EQ(Result(false, kOld), Read(L"Other")) << testing::PrintToString(type);
        EXPECT_EQ(Result(false, kOld), Read(L"RecurrenceType")) << testing::PrintToString(type);
    }
}

TEST_F(ReadDoubleWordValueTest, Read_WithARecurrenceType_TakesValuesOfAnyTypeByteForByte)
{
    m_key.Write(L"RecurrenceType", RawDword(99));
    EXPECT_EQ(Result(true, 99), Read(L"RecurrenceType"));
    struct Row
    {
        RawValue stored;
        Result expected;
    };
    const Row rows[] = {
        {RawDword(7), {true, 7}},
        {{REG_BINARY, {1, 2, 3, 4}}, {true, 0x04030201}},
        {{REG_BINARY, {1, 2, 3}}, {true, 0xA1030201}},
        {{REG_BINARY, {1}}, {true, 0xA1B2C301}},
        {{REG_BINARY, {}}, {true, kOld}},
        {RawText(L"AB"), {true, 0x00420041}},
        {RawText(L"A"), {true, 0xA1B20041}},
        {{REG_SZ, {'A'}}, {true, 0xA1B2C341}},
        {RawText(L""), {true, kOld}},
        {RawText(L"ABC"), {false, kOld}},
        {{REG_DWORD, {1, 2, 3, 4, 5}}, {false, kOld}},
        {{REG_QWORD, Bytes(8, 1)}, {false, kOld}},
        {{REG_BINARY, Bytes(1 << 20, 1)}, {false, kOld}},
    };
    for (const Row& row : rows)
    {
        m_key.Write(L"Other", row.stored);
        EXPECT_EQ(row.expected, Read(L"Other")) << testing::PrintToString(row.stored);
    }
}

TEST_F(ReadDoubleWordValueTest, Read_OfAMissingValueOrKey_Fails)
{
    m_key.Write(L"RecurrenceType", RawDword(3));
    EXPECT_EQ(Result(false, kOld), Read(L"Missing"));
    DWORD value = kOld;
    EXPECT_FALSE(m_record.ReadDoubleWordValue(nullptr, L"RecurrenceType", &value));
    EXPECT_EQ(kOld, value);
}

} // namespace ts::test
