// Which stored values a load takes, and what it does without them.

#include "tests/reminders/storage/StoreTest.h"

#include <functional>

namespace ts::test
{
namespace
{

struct TextField
{
    const wchar_t* name;
    CString (CcvReminderData::*get)() const;
    void (CcvReminderData::*set)(const CString&);
    bool emptied; ///< when the store has none
};

constexpr TextField kTexts[] = {
    {L"DocumentPath", &CcvReminderData::GetDocumentPath, &CcvReminderData::SetDocumentPath, true},
    {L"MapGuid", &CcvReminderData::GetMapGuid, &CcvReminderData::SetMapGuid, true},
    {L"ObjectGuid", &CcvReminderData::GetObjectGuid, &CcvReminderData::SetObjectGuid, true},
    {L"OutlookObjectGuid", &CcvReminderData::GetOutlookObjectGuid, &CcvReminderData::SetOutlookObjectGuid,
     true},
    {L"OutlookEntryId", &CcvReminderData::GetOutlookEntryId, &CcvReminderData::SetOutlookEntryId, true},
    {L"DocumentTitle", &CcvReminderData::GetDocumentTitle, &CcvReminderData::SetDocumentTitle, true},
    {L"ObjectTitle", &CcvReminderData::GetObjectTitle, &CcvReminderData::SetObjectTitle, true},
    {L"Subject", &CcvReminderData::GetSubject, &CcvReminderData::SetSubject, false},
};

struct TimeField
{
    const wchar_t* name;
    std::int64_t (*get)(const CcvReminderData&);
};

constexpr TimeField kTimes[] = {
    {L"Reminder", [](const CcvReminderData& record) { return record.GetReminderTimeSpan().GetTimeSpan(); }},
    {L"SnoozeTime", [](const CcvReminderData& record) { return record.GetSnoozeTime().GetTime(); }},
    {L"InitialDueDate", [](const CcvReminderData& record) { return record.GetInitialDueDate().GetTime(); }},
    {L"NextRecurrentDueDate",
     [](const CcvReminderData& record) { return record.GetNextDueDate().GetTime(); }},
};

class LoadRulesTest : public StoreTest
{
  protected:
    LoadRulesTest()
    {
        for (const TextField& field : kTexts)
        {
            (m_record.*field.set)(L"earlier");
        }
        m_record.SetReminderTimeSpan(1);
        m_record.SetInitialDueDate(2);
        m_record.SetNextDueDate(3);
    }

    /// Loads the key over the record's earlier values.
    void LoadOver() { ASSERT_TRUE(m_record.LoadDataFromRegistry(kStore)); }

    RawKey m_key = Key(L"k");
    CcvReminderData m_record{CString(L"k")};
};

} // namespace

TEST_F(LoadRulesTest, Load_WithoutAKeyName_FailsUnchanged)
{
    CcvReminderData record = DistinctRecord();
    const RecordFields before = FieldsOf(record);
    EXPECT_FALSE(record.LoadDataFromRegistry(kStore));
    EXPECT_EQ(before, FieldsOf(record));
}

TEST_F(LoadRulesTest, Load_OfAMissingKeyOrStore_FailsUnchanged)
{
    m_record.SetRecurrenceType(EcvReminderRecurrenceType::Yearly);
    SetOptions(m_record, {1, 2, 3, 4, 5, 6});
    m_record.SetSnoozeTime(60);
    const RecordFields before = FieldsOf(m_record);
    DeleteKeyTree(PathOf(L"k"));
    EXPECT_FALSE(m_record.LoadDataFromRegistry(kStore));
    EXPECT_EQ(before, FieldsOf(m_record));
    EXPECT_FALSE(m_record.LoadDataFromRegistry(L"Software\\Missing"));
    EXPECT_EQ(before, FieldsOf(m_record));
    EXPECT_FALSE(KeyExists(PathOf(L"k"))) << "loading creates nothing";
}

TEST_F(LoadRulesTest, Load_OfAnEmptyKey_EmptiesTheTextsButTheSubject)
{
    m_record.SetRecurrenceType(EcvReminderRecurrenceType::Monthly);
    SetOptions(m_record, {1, 2, 3, 4, 5, 6});
    RecordFields expected = FieldsOf(m_record);
    for (CString RecordFields::*text :
         {&RecordFields::documentPath, &RecordFields::mapGuid, &RecordFields::objectGuid,
          &RecordFields::outlookObjectGuid, &RecordFields::outlookEntryId, &RecordFields::documentTitle,
          &RecordFields::objectTitle})
    {
        (expected.*text).Empty();
    }
    LoadOver();
    EXPECT_EQ(expected, FieldsOf(m_record)) << "times, flags and recurrence stay";
}

TEST_F(LoadRulesTest, Load_OfAnEmptyKeyIntoANewRecord_GivesNothing)
{
    EXPECT_EQ(FieldsOf(CcvReminderData{CString(L"k")}), FieldsOf(Load(L"k")));
}

TEST_F(LoadRulesTest, Load_OfATextThatCannotBeTaken_CountsAsMissing)
{
    const RawValue refused[] = {
        {REG_SZ, {}},           {REG_EXPAND_SZ, {'a', 0}}, {REG_MULTI_SZ, {'a', 0, 0, 0}},
        {REG_BINARY, {'a', 0}}, {REG_NONE, {'a', 0}},      {REG_DWORD, {'a', 0, 0, 0}},
        {REG_LINK, {'a', 0}},   {0x4711, {'a', 0}},
    };
    for (const TextField& field : kTexts)
    {
        for (const RawValue& value : refused)
        {
            (m_record.*field.set)(L"earlier");
            m_key.Write(field.name, value);
            LoadOver();
            EXPECT_EQ(field.emptied ? L"" : L"earlier", (m_record.*field.get)())
                << field.name << ' ' << testing::PrintToString(value);
        }
        m_key.Delete(field.name);
    }
}

TEST_F(LoadRulesTest, Load_OfAText_TakesItUpToItsFirstZero)
{
    struct Row
    {
        Bytes bytes;
        CString text;
    };
    const Row rows[] = {
        {{'a', 0}, L"a"},
        {{'a', 0, 0, 0}, L"a"},
        {{'a', 0, 0, 0, 0, 0}, L"a"},
        {{'a', 0, 0, 0, 'b', 0}, L"a"},
        {{0, 0}, L""},
        {{0, 0, 'a', 0}, L""},
        {{'a'}, L"a"},
        {{'a', 0, 'b'}, L"ab"},
        {{0}, L""},
        {{'a', 0, '\r', 0, '\n', 0, 'b', 0}, L"a\r\nb"},
        {{0x00, 0xD8, 0xFF, 0xDF}, L"\xD800\xDFFF"},
        {{0xFF, 0xFF, 0xFE, 0xFF}, L"\xFFFF\xFFFE"},
    };
    for (const TextField& field : kTexts)
    {
        for (const Row& row : rows)
        {
            m_key.Write(field.name, {REG_SZ, row.bytes});
            LoadOver();
            EXPECT_EQ(row.text, (m_record.*field.get)()) << field.name;
        }
    }
}

TEST_F(LoadRulesTest, Load_OfATextWithATerminator_ReadsTheSameText)
{
    for (const TextField& field : kTexts)
    {
        m_key.Write(field.name, RawText(std::wstring(L"text\0", 5)));
        LoadOver();
        EXPECT_EQ(L"text", (m_record.*field.get)()) << field.name;
    }
}

TEST_F(LoadRulesTest, Load_OfFlags_TakesANumberOnly)
{
    for (const RawValue& refused :
         {RawText(L"3"), RawText(L"12"), RawValue{REG_BINARY, {3, 0, 0, 0}},
          RawValue{REG_QWORD, {3, 0, 0, 0}}, RawValue{REG_DWORD_BIG_ENDIAN, {3, 0, 0, 3}},
          RawValue{REG_DWORD, {}}, RawValue{REG_DWORD, {3}}, RawValue{REG_DWORD, {3, 0, 0, 0, 0}}})
    {
        m_key.Write(L"Flags", refused);
        const CcvReminderData record = Load(L"k");
        EXPECT_FALSE(record.IsSnoozed()) << testing::PrintToString(refused);
        EXPECT_FALSE(record.IsDimissed()) << testing::PrintToString(refused);
    }
    for (const std::uint32_t flags : {0u, 1u, 2u, 3u, 4u, 0xFFFFFFFDu, 0xFFFFFFFFu})
    {
        m_key.Write(L"Flags", RawDword(flags));
        const CcvReminderData record = Load(L"k");
        EXPECT_EQ((flags & 1) != 0, record.IsSnoozed()) << flags;
        EXPECT_EQ((flags & 2) != 0, record.IsDimissed()) << flags;
    }
}

TEST_F(LoadRulesTest, Load_OfATime_Takes8BytesOfBinaryOnly)
{
    for (const TimeField& field : kTimes)
    {
        for (const DWORD type : {REG_NONE, REG_SZ, REG_BINARY, REG_DWORD, REG_MULTI_SZ, REG_QWORD})
        {
            for (std::size_t size = 0; size < 18; ++size)
            {
                m_key.Write(field.name, {type, Bytes(size, 0x11)});
                const bool taken = type == REG_BINARY && size == 8;
                EXPECT_EQ(taken ? 0x1111111111111111 : 0, field.get(Load(L"k")))
                    << field.name << " of type " << type << " and " << size << " bytes";
            }
        }
        m_key.Delete(field.name);
    }
}

TEST_F(LoadRulesTest, Load_OfATimeThatCannotBeTaken_LeavesTheEarlierOne)
{
    for (const TimeField& field : kTimes)
    {
        const std::int64_t before = field.get(m_record);
        m_key.Write(field.name, {REG_BINARY, Bytes(7, 0x11)});
        LoadOver();
        EXPECT_EQ(before, field.get(m_record)) << field.name;
    }
}

TEST_F(LoadRulesTest, Load_WithoutAUsableRecurrenceType_TakesNoOptions)
{
    for (const wchar_t* name : {L"RecurrenceOption1", L"RecurrenceOption2", L"RecurrenceOption3"})
    {
        m_key.Write(name, RawDword(7));
    }
    const RawValue unusable[] = {
        RawText(L"3"),
        RawText(L""),
        {REG_BINARY, {3, 0, 0, 0}},
        {REG_QWORD, {3, 0, 0, 0, 0, 0, 0, 0}},
        {REG_DWORD, {}},
        {REG_DWORD, {3}},
        {REG_DWORD, {3, 0, 0}},
        {REG_DWORD, {3, 0, 0, 0, 0}},
        {REG_DWORD, Bytes(8)},
    };
    EXPECT_FALSE(Load(L"k").IsRecurrent()) << "missing";
    for (const RawValue& value : unusable)
    {
        m_key.Write(L"RecurrenceType", value);
        const CcvReminderData record = Load(L"k");
        EXPECT_FALSE(record.IsRecurrent()) << testing::PrintToString(value);
        EXPECT_EQ((std::array<std::int32_t, 6>{}), OptionsOf(record)) << testing::PrintToString(value);

        m_record.SetRecurrenceType(EcvReminderRecurrenceType::Yearly);
        SetOptions(m_record, {1, 2, 3, 4, 5, 6});
        LoadOver();
        EXPECT_EQ(EcvReminderRecurrenceType::Yearly, m_record.GetRecurrenceType());
        EXPECT_EQ((std::array<std::int32_t, 6>{1, 2, 3, 4, 5, 6}), OptionsOf(m_record));
    }
}

TEST_F(LoadRulesTest, Load_OfEveryRecurrenceType_ReadsItsOptionsOnly)
{
    for (int index = 1; index <= 6; ++index)
    {
        m_key.Write(L"RecurrenceOption" + std::to_wstring(index),
                    RawDword(static_cast<std::uint32_t>(10 + index)));
    }
    for (const std::int32_t type : {0, 1, 2, 3, 4, 5, -1, 0x7FFFFFFF})
    {
        m_key.Write(L"RecurrenceType", RawDword(static_cast<std::uint32_t>(type)));
        std::array<std::int32_t, 6> expected{};
        for (std::size_t index = 0; index < StoredOptions(type); ++index)
        {
            expected[index] = static_cast<std::int32_t>(11 + index);
        }
        const CcvReminderData record = Load(L"k");
        EXPECT_EQ(type, static_cast<std::int32_t>(record.GetRecurrenceType()));
        EXPECT_EQ(type != 0, record.IsRecurrent());
        EXPECT_EQ(expected, OptionsOf(record)) << "type " << type;
    }
}

TEST_F(LoadRulesTest, Load_OfOptions_TakesUpTo4BytesOfAnyType)
{
    m_key.Write(L"RecurrenceType", RawDword(3));
    m_key.Write(L"RecurrenceOption1", {REG_BINARY, {0x01, 0x02}});
    m_key.Write(L"RecurrenceOption2", {REG_SZ, {'A', 0}});
    m_key.Write(L"RecurrenceOption3", {REG_QWORD, {9, 0, 0, 0, 0, 0, 0, 0}});
    m_key.Write(L"RecurrenceOption4", {REG_NONE, {}});
    m_key.Write(L"RecurrenceOption5", {REG_DWORD_BIG_ENDIAN, {1, 2, 3, 4}});
    EXPECT_EQ((std::array<std::int32_t, 6>{0x0201, 'A', 0, 0, 0x04030201, 0}), OptionsOf(Load(L"k")));

    SetOptions(m_record, {-1, -1, -1, -1, -1, -1});
    LoadOver();
    EXPECT_EQ((std::array<std::int32_t, 6>{static_cast<std::int32_t>(0xFFFF0201),
                                           static_cast<std::int32_t>(0xFFFF0041), -1, -1, 0x04030201, -1}),
              OptionsOf(m_record))
        << "bytes that are not stored stay";
}

} // namespace ts::test
