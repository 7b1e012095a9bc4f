// What the persistence members ask of the registry: which keys with which rights, and the order of the
// values.

#include "reminders/CcvReminderDataUtilities.h"
#include "tests/platform/RegistryCalls.h"
#include "tests/reminders/storage/StoreTest.h"

namespace ts::test
{
namespace
{

using Lines = std::vector<std::wstring>;
using Utilities = CcvReminderDataUtilities;

const std::wstring kRoot = std::wstring(L"HKCU\\") + kStore;
const std::wstring kFirstKey = kRoot + L"\\{M-0}";

constexpr wchar_t kRead[] = L" 20019";
constexpr wchar_t kWrite[] = L" 20006";
constexpr wchar_t kAll[] = L" f003f";

Lines operator+(Lines lines, const Lines& more)
{
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

std::wstring Open(const std::wstring& key, const wchar_t* rights)
{
    return L"open " + key + rights;
}

const Lines kWrites = {L"set DocumentPath 18",     L"set MapGuid 2",
                       L"set ObjectGuid 2",        L"set OutlookObjectGuid 28",
                       L"set OutlookEntryId 26",   L"set DocumentTitle 28",
                       L"set ObjectTitle 24",      L"set Flags 4",
                       L"set Subject 14",          L"set NextRecurrentDueDate 8",
                       L"set InitialDueDate 8",    L"set Reminder 8",
                       L"set SnoozeTime 8",        L"set RecurrenceType 4",
                       L"set RecurrenceOption1 4", L"set RecurrenceOption2 4",
                       L"set RecurrenceOption3 4", L"set RecurrenceOption4 4",
                       L"set RecurrenceOption5 4", L"set RecurrenceOption6 4"};

class StoreAccessTest : public StoreTest
{
  protected:
    /// Saves DistinctRecord, which becomes "{M-0}".
    StoreAccessTest() { EXPECT_TRUE(m_record.SaveDataToRegistry(kStore)); }

    /// Another reminder of the same topic, "{M-1}".
    static void AddSecond() { EXPECT_TRUE(DistinctRecord().SaveDataToRegistry(kStore)); }

    static CString Find() { return Utilities::FindReminderKey(kStore, L"C:\\maps\\a", L"M", L"O"); }

    CcvReminderData m_record = DistinctRecord();
};

} // namespace

TEST_F(StoreAccessTest, Load_OfAReminder_ReadsInOrderAndForReadingOnly)
{
    CcvReminderData record{CString(L"{M-0}")};
    RegistryCalls calls;
    ASSERT_TRUE(record.LoadDataFromRegistry(kStore));
    const Lines expected = {Open(kFirstKey, kRead),
                            L"query DocumentPath",
                            L"query MapGuid",
                            L"query ObjectGuid",
                            L"query OutlookObjectGuid",
                            L"query OutlookEntryId",
                            L"query Flags",
                            L"query DocumentTitle",
                            L"query ObjectTitle",
                            L"query Subject",
                            L"query Reminder",
                            L"query SnoozeTime",
                            L"query InitialDueDate",
                            L"query NextRecurrentDueDate",
                            L"query RecurrenceType",
                            L"query RecurrenceOption1",
                            L"query RecurrenceOption2",
                            L"query RecurrenceOption3",
                            L"query RecurrenceOption4",
                            L"query RecurrenceOption5",
                            L"query RecurrenceOption6",
                            L"close"};
    EXPECT_EQ(expected, calls.Take());
}

TEST_F(StoreAccessTest, Save_OfAKnownReminder_WritesInOrderThroughTheOpenKey)
{
    RegistryCalls calls;
    ASSERT_TRUE(m_record.SaveDataToRegistry(kStore));
    EXPECT_EQ(Lines{Open(kFirstKey, kWrite)} + kWrites + Lines{L"close"}, calls.Take());
}

TEST_F(StoreAccessTest, Save_OfANewReminder_NamesItAndCreatesItsKey)
{
    CcvReminderData record = DistinctRecord();
    const std::wstring second = kRoot + L"\\{M-1}";
    RegistryCalls calls;
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    EXPECT_EQ((Lines{Open(kFirstKey, kRead), Open(second, kRead), L"close", Open(second, kWrite),
                     L"create " + second}) +
                  kWrites + Lines{L"close"},
              calls.Take());
}

TEST_F(StoreAccessTest, Save_ThatMayNotOpenTheKey_CreatesItOrFails)
{
    RegistryCalls calls;
    calls.Refuse(L"open " + kFirstKey);
    EXPECT_TRUE(m_record.SaveDataToRegistry(kStore));
    EXPECT_TRUE(m_record.SaveOutlookDataToRegistry(kStore));
    calls.Refuse(L"create " + kFirstKey);
    static_cast<void>(calls.Take());
    EXPECT_FALSE(m_record.SaveDataToRegistry(kStore));
    EXPECT_FALSE(m_record.SaveOutlookDataToRegistry(kStore));
    const Lines attempt = {Open(kFirstKey, kWrite), L"create " + kFirstKey};
    EXPECT_EQ(attempt + attempt, calls.Take()) << "nothing is written, nothing is left to close";
}

TEST_F(StoreAccessTest, Save_WhoseWritesAreRefused_SucceedsAllTheSame)
{
    const auto before = Snapshot();
    m_record.SetSubject(L"lost");
    RegistryCalls calls;
    calls.Refuse(L"set ");
    EXPECT_TRUE(m_record.SaveDataToRegistry(kStore));
    EXPECT_TRUE(m_record.SaveOutlookDataToRegistry(kStore));
    EXPECT_FALSE(m_record.UpdateOutlookDataInRegistry(kStore)) << "the one that says whether it wrote";
    EXPECT_EQ(before, Snapshot());
}

TEST_F(StoreAccessTest, Update_WithEitherWriteRefused_SaysSo)
{
    for (const wchar_t* refused : {L"set OutlookObjectGuid", L"set OutlookEntryId"})
    {
        RegistryCalls calls;
        EXPECT_TRUE(m_record.UpdateOutlookDataInRegistry(kStore));
        calls.Refuse(refused);
        EXPECT_FALSE(m_record.UpdateOutlookDataInRegistry(kStore))
            << testing::PrintToString(CString(refused));
    }
}

TEST_F(StoreAccessTest, Save_WithOneWriteRefused_WritesAllOthers)
{
    DeleteKeyTree(kStore);
    {
        RegistryCalls calls;
        calls.Refuse(L"set MapGuid");
        EXPECT_TRUE(m_record.SaveDataToRegistry(kStore));
    }
    EXPECT_EQ(kWrites.size() - 1, Key(L"{M-0}").Values().size());
    CcvReminderData loaded = Load(L"{M-0}");
    RecordFields expected = FieldsOf(m_record);
    expected.mapGuid.Empty();
    EXPECT_EQ(expected, FieldsOf(loaded)) << "a half-written key is loaded field by field";
}

TEST_F(StoreAccessTest, Load_WithOneReadRefused_ReadsAllOthers)
{
    CcvReminderData record{CString(L"{M-0}")};
    {
        RegistryCalls calls;
        calls.Refuse(L"query RecurrenceOption2");
        EXPECT_TRUE(record.LoadDataFromRegistry(kStore));
    }
    RecordFields expected = FieldsOf(m_record);
    expected.options[1] = 0;
    EXPECT_EQ(expected, FieldsOf(record)) << "its slot stays";
}

TEST_F(StoreAccessTest, Delete_OfAReminder_NeedsAllRightsToTheRoot)
{
    RegistryCalls calls;
    EXPECT_TRUE(m_record.DeleteDataFromRegistry(kStore));
    EXPECT_EQ((Lines{Open(kRoot, kAll), L"delete {M-0}", L"close"}), calls.Take());
}

TEST_F(StoreAccessTest, Delete_ThatIsRefused_Fails)
{
    RegistryCalls calls;
    calls.Refuse(L"delete ");
    EXPECT_FALSE(m_record.DeleteDataFromRegistry(kStore));
    calls.Refuse(L"open ");
    EXPECT_FALSE(m_record.DeleteDataFromRegistry(kStore));
}

TEST_F(StoreAccessTest, OutlookIdentifiers_LoadedAndSaved_TouchTheirTwoValues)
{
    RegistryCalls calls;
    ASSERT_TRUE(m_record.LoadOutlookDataFromRegistry(kStore));
    EXPECT_EQ((Lines{Open(kFirstKey, kRead), L"query OutlookObjectGuid", L"query OutlookEntryId", L"close"}),
              calls.Take());
    ASSERT_TRUE(m_record.SaveOutlookDataToRegistry(kStore));
    EXPECT_EQ(
        (Lines{Open(kFirstKey, kWrite), L"set OutlookObjectGuid 28", L"set OutlookEntryId 26", L"close"}),
        calls.Take());
}

TEST_F(StoreAccessTest, OutlookIdentifiers_SavedWithoutAKey_CreateIt)
{
    DeleteKeyTree(kStore);
    RegistryCalls calls;
    ASSERT_TRUE(m_record.SaveOutlookDataToRegistry(kStore));
    EXPECT_EQ((Lines{Open(kFirstKey, kWrite), L"create " + kFirstKey, L"set OutlookObjectGuid 28",
                     L"set OutlookEntryId 26", L"close"}),
              calls.Take());
}

TEST_F(StoreAccessTest, ReadDoubleWordValue_OfAnyName_AsksForTheRecurrenceTypeFirst)
{
    const RawKey key = Key(L"{M-0}");
    DWORD value = 0;
    RegistryCalls calls;
    EXPECT_TRUE(m_record.ReadDoubleWordValue(key.Get(), L"Flags", &value));
    EXPECT_EQ((Lines{L"query RecurrenceType", L"query Flags"}), calls.Take());
    calls.Refuse(L"query RecurrenceType");
    EXPECT_FALSE(m_record.ReadDoubleWordValue(key.Get(), L"Flags", &value));
}

TEST_F(StoreAccessTest, FindReminderKey_OfATopic_ReadsUntilTheFirstMatch)
{
    AddSecond();
    RegistryCalls calls;
    EXPECT_EQ(L"{M-0}", Find());
    EXPECT_EQ((Lines{Open(kRoot, kRead), L"enum 0", Open(kFirstKey, kRead), L"query DocumentPath",
                     L"query MapGuid", L"query ObjectGuid", L"close", L"close"}),
              calls.Take());
}

TEST_F(StoreAccessTest, FindReminderKey_WithAKeyThatMayNotBeRead_GoesOnBehindIt)
{
    AddSecond();
    RegistryCalls calls;
    calls.Refuse(L"open " + kFirstKey);
    EXPECT_EQ(L"{M-1}", Find());
    calls.Refuse(L"enum 1");
    EXPECT_EQ(L"", Find()) << "the enumeration ends where it fails";
    calls.Refuse(L"open " + kRoot);
    EXPECT_EQ(L"", Find());
}

TEST_F(StoreAccessTest, UpdateDocumentPath_OfAMap_OpensTheRemindersForAllAccess)
{
    RegistryCalls calls;
    Utilities::UpdateDocumentPath(kStore, L"C:\\maps\\a", L"new", L"M");
    EXPECT_EQ((Lines{Open(kRoot, kRead), L"enum 0", Open(kFirstKey, kAll), L"query DocumentPath",
                     L"query MapGuid", L"set DocumentPath 6", L"close", L"enum 1", L"close"}),
              calls.Take());
}

TEST_F(StoreAccessTest, UpdateDocumentPath_WithAKeyThatMayNotBeChanged_GoesOnBehindIt)
{
    AddSecond();
    {
        RegistryCalls calls;
        calls.Refuse(L"open " + kFirstKey);
        Utilities::UpdateDocumentPath(kStore, L"C:\\maps\\a", L"new", L"M");
    }
    EXPECT_EQ(RawText(L"C:\\maps\\a"), Key(L"{M-0}").Read(L"DocumentPath"));
    EXPECT_EQ(RawText(L"new"), Key(L"{M-1}").Read(L"DocumentPath"));
}

TEST_F(StoreAccessTest, GenerateUniqueReminderKey_WithAKeyThatMayNotBeRead_TakesItsNameForFree)
{
    RegistryCalls calls;
    EXPECT_EQ(L"{M-1}", Utilities::GenerateUniqueReminderKey(kStore, L"M"));
    EXPECT_EQ((Lines{Open(kFirstKey, kRead), Open(kRoot + L"\\{M-1}", kRead), L"close"}), calls.Take());
    calls.Refuse(L"open " + kFirstKey);
    EXPECT_EQ(L"{M-0}", Utilities::GenerateUniqueReminderKey(kStore, L"M"));
}

} // namespace ts::test
