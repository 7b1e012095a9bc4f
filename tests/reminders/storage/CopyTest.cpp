// Which fields each way of copying a record carries.

#include "tests/reminders/storage/StoreTest.h"

#include <memory>
#include <type_traits>

namespace ts::test
{
namespace
{

static_assert(std::has_virtual_destructor_v<CcvReminderData>);
static_assert(std::is_polymorphic_v<CcvReminderData>);

class CopyTest : public StoreTest
{
  protected:
    /// A record in which every field has a value of its own, set in the store where there is no setter.
    static CcvReminderData WholeRecord()
    {
        CcvReminderData record = DistinctRecord();
        EXPECT_TRUE(record.SaveDataToRegistry(kStore));
        const RawKey key = Key(L"{M-0}");
        key.Write(L"Flags", RawDword(0xF0000003));
        key.Write(L"SnoozeTime", RawInt64(1'700'000'004));
        key.Write(L"DocumentTitle", RawText(L"document\r\ntitle"));
        key.Write(L"ObjectTitle", RawText(L"object\r\ntitle"));
        key.Write(L"Subject", RawText(L"\nsub\rject"));
        EXPECT_TRUE(record.LoadDataFromRegistry(kStore));
        return record;
    }

    static RawValue StoredFlags(CcvReminderData& record)
    {
        EXPECT_TRUE(record.SaveDataToRegistry(kStore));
        return Key(record.GetReminderKey().GetString()).Read(L"Flags").value();
    }
};

class Derived : public CcvReminderData
{
  public:
    explicit Derived(bool& destroyed) : CcvReminderData(CString()), m_destroyed(destroyed) {}
    Derived(const Derived&) = delete;
    Derived& operator=(const Derived&) = delete;
    ~Derived() override { m_destroyed = true; }

  private:
    bool& m_destroyed;
};

} // namespace

TEST_F(CopyTest, CopyConstruction_OfAWholeRecord_CopiesEveryField)
{
    CcvReminderData source = WholeRecord();
    const RecordFields expected = FieldsOf(source);
    ASSERT_EQ(L"document\r\ntitle", expected.documentTitle);
    CcvReminderData copy(source);
    EXPECT_EQ(expected, FieldsOf(copy));
    EXPECT_EQ(RawDword(0xF0000003), StoredFlags(copy)) << "all bits";
    source.SetSubject(L"changed");
    EXPECT_EQ(expected, FieldsOf(copy)) << "a copy stands for itself";
}

TEST_F(CopyTest, Assignment_OfAWholeRecord_CopiesEveryField)
{
    const CcvReminderData source = WholeRecord();
    const RecordFields expected = FieldsOf(source);
    CcvReminderData target{CString(L"other")};
    target.SetSubject(L"before");
    target = source;
    EXPECT_EQ(expected, FieldsOf(target));
    EXPECT_EQ(RawDword(0xF0000003), StoredFlags(target));
    const CcvReminderData& same = target;
    target = same;
    EXPECT_EQ(expected, FieldsOf(target)) << "assigned to itself";
}

TEST_F(CopyTest, CopyData_OfAWholeRecord_LeavesTitleOfTheTopicAndState)
{
    CcvReminderData source = WholeRecord();
    CcvReminderData target{CString(L"other")};
    target.SetObjectTitle(L"kept");
    RecordFields expected = FieldsOf(source);
    expected.objectTitle = L"kept";
    expected.snoozeTime = 0;
    expected.snoozed = false;
    expected.dismissed = false;
    expected.documentTitle = L"documenttitle";
    expected.subject = L"subject";
    target.CopyData(&source);
    EXPECT_EQ(expected, FieldsOf(target)) << "the key is copied, line breaks are stripped";
    EXPECT_EQ(RawDword(0), StoredFlags(target));
}

TEST_F(CopyTest, CopyData_OntoASnoozedRecord_LeavesItSnoozed)
{
    CcvReminderData target = WholeRecord();
    CcvReminderData source{CString(L"other")};
    RecordFields expected = FieldsOf(source);
    expected.objectTitle = L"object\r\ntitle";
    expected.snoozeTime = 1'700'000'004;
    expected.snoozed = true;
    expected.dismissed = true;
    target.CopyData(&source);
    EXPECT_EQ(expected, FieldsOf(target));
    EXPECT_EQ(RawDword(0xF0000003), StoredFlags(target));
}

TEST_F(CopyTest, CopyData_OfItself_ChangesNothingButLineBreaks)
{
    CcvReminderData record = WholeRecord();
    RecordFields expected = FieldsOf(record);
    expected.documentTitle = L"documenttitle";
    expected.subject = L"subject";
    record.CopyData(&record);
    EXPECT_EQ(expected, FieldsOf(record));
}

TEST_F(CopyTest, Destruction_ThroughTheBase_ReachesTheDerivedClass)
{
    bool destroyed = false;
    {
        const std::unique_ptr<CcvReminderData> record = std::make_unique<Derived>(destroyed);
        EXPECT_FALSE(destroyed);
    }
    EXPECT_TRUE(destroyed);
}

TEST_F(CopyTest, GetGuid_OfATopic_JoinsPathMapAndObject)
{
    EXPECT_EQ(L"{C:\\maps\\a}{M}{O}", DistinctRecord().GetGuid());
    EXPECT_EQ(L"{}{}{}", EmptyRecord().GetGuid());
    CcvReminderData record = EmptyRecord();
    record.SetDocumentPath(L"100%s");
    record.SetObjectGuid(L"{x}");
    EXPECT_EQ(L"{100%s}{}{{x}}", record.GetGuid());
}

} // namespace ts::test
