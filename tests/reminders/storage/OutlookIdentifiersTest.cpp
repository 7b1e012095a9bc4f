// The two identifiers that the synchronisation loads and saves by themselves.

#include "tests/reminders/storage/StoreTest.h"

namespace ts::test
{
namespace
{

class OutlookIdentifiersTest : public StoreTest
{
  protected:
    OutlookIdentifiersTest()
    {
        CcvReminderData saved = DistinctRecord();
        EXPECT_TRUE(saved.SaveDataToRegistry(kStore));
        m_record.SetOutlookObjectGuid(L"earlier object");
        m_record.SetOutlookEntryId(L"earlier entry");
    }

    CcvReminderData m_record{CString(L"{M-0}")};
};

} // namespace

TEST_F(OutlookIdentifiersTest, Load_OfBoth_ChangesNothingElse)
{
    m_record.SetSubject(L"kept");
    RecordFields expected = FieldsOf(m_record);
    expected.outlookObjectGuid = L"outlook object";
    expected.outlookEntryId = L"outlook entry";
    EXPECT_TRUE(m_record.LoadOutlookDataFromRegistry(kStore));
    EXPECT_EQ(expected, FieldsOf(m_record));
}

TEST_F(OutlookIdentifiersTest, Load_OfValuesThatCannotBeTaken_LeavesTheFields)
{
    const RecordFields expected = FieldsOf(m_record);
    for (const RawValue& value :
         {RawText(L""), RawDword(1), RawValue{REG_BINARY, {'a', 0}}, RawValue{REG_EXPAND_SZ, {'a', 0}}})
    {
        Key(L"{M-0}").Write(L"OutlookObjectGuid", value);
        Key(L"{M-0}").Write(L"OutlookEntryId", value);
        EXPECT_TRUE(m_record.LoadOutlookDataFromRegistry(kStore));
        EXPECT_EQ(expected, FieldsOf(m_record)) << testing::PrintToString(value);
    }
    Key(L"{M-0}").Delete(L"OutlookObjectGuid");
    Key(L"{M-0}").Delete(L"OutlookEntryId");
    EXPECT_TRUE(m_record.LoadOutlookDataFromRegistry(kStore));
    EXPECT_EQ(expected, FieldsOf(m_record)) << "missing";
}

TEST_F(OutlookIdentifiersTest, Load_OfOneOnly_LeavesTheOther)
{
    Key(L"{M-0}").Delete(L"OutlookObjectGuid");
    EXPECT_TRUE(m_record.LoadOutlookDataFromRegistry(kStore));
    EXPECT_EQ(L"earlier object", m_record.GetOutlookObjectGuid());
    EXPECT_EQ(L"outlook entry", m_record.GetOutlookEntryId());
}

TEST_F(OutlookIdentifiersTest, Load_WithoutAKey_FailsUnchanged)
{
    CcvReminderData nameless = DistinctRecord();
    const RecordFields before = FieldsOf(nameless);
    EXPECT_FALSE(nameless.LoadOutlookDataFromRegistry(kStore));
    EXPECT_EQ(before, FieldsOf(nameless));

    const RecordFields expected = FieldsOf(m_record);
    DeleteKeyTree(PathOf(L"{M-0}"));
    EXPECT_FALSE(m_record.LoadOutlookDataFromRegistry(kStore));
    EXPECT_EQ(expected, FieldsOf(m_record));
    EXPECT_FALSE(KeyExists(PathOf(L"{M-0}")));
}

TEST_F(OutlookIdentifiersTest, Save_OfBoth_TouchesOnlyTheirValues)
{
    RawValues expected = Key(L"{M-0}").Values();
    m_record.SetSubject(L"not written");
    m_record.SetOutlookEntryId(L"");
    EXPECT_TRUE(m_record.SaveOutlookDataToRegistry(kStore));
    expected.at(L"OutlookObjectGuid") = RawText(L"earlier object");
    expected.at(L"OutlookEntryId") = RawText(L"");
    EXPECT_EQ(expected, Key(L"{M-0}").Values());
}

TEST_F(OutlookIdentifiersTest, Save_WithoutAKeyInTheStore_CreatesItWithThemOnly)
{
    DeleteKeyTree(kStore);
    EXPECT_TRUE(m_record.SaveOutlookDataToRegistry(kStore));
    const RawValues expected = {{L"OutlookObjectGuid", RawText(L"earlier object")},
                                {L"OutlookEntryId", RawText(L"earlier entry")}};
    EXPECT_EQ(expected, Key(L"{M-0}").Values());
}

TEST_F(OutlookIdentifiersTest, Save_WithoutAKeyName_FailsAndCreatesNothing)
{
    const auto before = Snapshot();
    CcvReminderData nameless = DistinctRecord();
    EXPECT_FALSE(nameless.SaveOutlookDataToRegistry(kStore));
    EXPECT_TRUE(nameless.GetReminderKey().IsEmpty()) << "only a whole save gives a name";
    EXPECT_EQ(before, Snapshot());
}

TEST_F(OutlookIdentifiersTest, Update_OfTheSameTopic_TouchesOnlyTheirValues)
{
    RawValues expected = Key(L"{M-0}").Values();
    CcvReminderData older = Load(L"{M-0}");
    older.SetOutlookObjectGuid(L"new object");
    older.SetOutlookEntryId(L"");
    older.SetSubject(L"not written");
    older.SetDocumentPath(L"the document has moved since");
    EXPECT_TRUE(older.UpdateOutlookDataInRegistry(kStore));
    expected.at(L"OutlookObjectGuid") = RawText(L"new object");
    expected.at(L"OutlookEntryId") = RawText(L"");
    EXPECT_EQ(expected, Key(L"{M-0}").Values());
}

TEST_F(OutlookIdentifiersTest, Update_OfAnotherTopic_WritesNothing)
{
    const auto before = Snapshot();
    CcvReminderData otherMap = Load(L"{M-0}");
    otherMap.SetMapGuid(L"m");
    otherMap.SetOutlookObjectGuid(L"new object");
    EXPECT_FALSE(otherMap.UpdateOutlookDataInRegistry(kStore));
    CcvReminderData otherTopic = Load(L"{M-0}");
    otherTopic.SetObjectGuid(L"o");
    otherTopic.SetOutlookObjectGuid(L"new object");
    EXPECT_FALSE(otherTopic.UpdateOutlookDataInRegistry(kStore));
    EXPECT_EQ(before, Snapshot());
}

TEST_F(OutlookIdentifiersTest, Update_WithoutAKey_FailsAndCreatesNothing)
{
    EXPECT_FALSE(DistinctRecord().UpdateOutlookDataInRegistry(kStore)) << "no name";
    const CcvReminderData record = Load(L"{M-0}");
    DeleteKeyTree(PathOf(L"{M-0}"));
    EXPECT_FALSE(record.UpdateOutlookDataInRegistry(kStore));
    EXPECT_FALSE(KeyExists(PathOf(L"{M-0}")));
}

} // namespace ts::test
