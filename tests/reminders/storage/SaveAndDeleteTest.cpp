// Where reminders are kept: names of keys given by saving, and deletion.

#include "tests/reminders/storage/StoreTest.h"

namespace ts::test
{
namespace
{

class SaveAndDeleteTest : public StoreTest
{
  protected:
    /// Saves a new record of that map; the key that it was given.
    static std::wstring SaveNew(const CString& mapGuid)
    {
        CcvReminderData record = DistinctRecord();
        record.SetMapGuid(mapGuid);
        EXPECT_TRUE(record.SaveDataToRegistry(kStore));
        return record.GetReminderKey().GetString();
    }

    static std::vector<std::wstring> Keys() { return RawKey(kStore).Subkeys(); }
};

} // namespace

TEST_F(SaveAndDeleteTest, Save_OfNewRecords_NumbersThemAndFillsGapsFirst)
{
    EXPECT_EQ(L"{M-0}", SaveNew(L"M"));
    EXPECT_EQ(L"{M-1}", SaveNew(L"M"));
    EXPECT_EQ(L"{N-0}", SaveNew(L"N")) << "each map counts for itself";
    EXPECT_EQ(L"{M-2}", SaveNew(L"M"));
    DeleteKeyTree(PathOf(L"{M-1}"));
    EXPECT_EQ(L"{M-1}", SaveNew(L"M"));
    EXPECT_EQ(L"{M-3}", SaveNew(L"M"));
    EXPECT_EQ(5u, Keys().size());
}

TEST_F(SaveAndDeleteTest, Save_OfASavedRecord_KeepsItsKey)
{
    CcvReminderData record = DistinctRecord();
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    record.SetMapGuid(L"another map");
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    EXPECT_EQ(L"{M-0}", record.GetReminderKey());
    EXPECT_EQ(std::vector<std::wstring>{L"{M-0}"}, Keys());
    EXPECT_EQ(RawText(L"another map"), Key(L"{M-0}").Read(L"MapGuid"));

    ASSERT_TRUE(record.DeleteDataFromRegistry(kStore));
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    EXPECT_EQ(std::vector<std::wstring>{L"{M-0}"}, Keys()) << "a key that vanished is created again";
}

TEST_F(SaveAndDeleteTest, Save_OfUnusualMaps_NamesTheKeyAsTheyAre)
{
    EXPECT_EQ(L"{-0}", SaveNew(L""));
    EXPECT_EQ(L"{-1}", SaveNew(L""));
    EXPECT_EQ(L"{%s%n%d-0}", SaveNew(L"%s%n%d"));
    EXPECT_EQ(L"{%s%n%d-1}", SaveNew(L"%s%n%d"));
    EXPECT_EQ(L"{ \x00E4\xD83D\xDE00\xD800 -0}", SaveNew(L" \x00E4\xD83D\xDE00\xD800 "));
    EXPECT_EQ(L"{a/b-0}", SaveNew(L"a/b"));
    EXPECT_EQ(6u, Keys().size());
}

TEST_F(SaveAndDeleteTest, Save_OfAMapWithABackslash_LeadsBelow)
{
    const std::wstring key = SaveNew(L"a\\b");
    EXPECT_EQ(L"{a\\b-0}", key);
    EXPECT_EQ(L"{a\\b-1}", SaveNew(L"a\\b"));
    EXPECT_EQ(L"a\\b", Load(key).GetMapGuid());
    CcvReminderData record{CString(key.c_str())};
    EXPECT_TRUE(record.DeleteDataFromRegistry(kStore));
    EXPECT_FALSE(KeyExists(PathOf(key)));
    EXPECT_TRUE(KeyExists(PathOf(L"{a\\b-1}")));
}

TEST_F(SaveAndDeleteTest, Save_OfAMapWithAZero_NamesTheKeyUpToIt)
{
    const CString mapGuid(L"a\0b", 3);
    EXPECT_EQ(L"{a-0}", SaveNew(mapGuid));
    EXPECT_EQ(L"{a-1}", SaveNew(mapGuid));
    EXPECT_EQ((std::vector<std::wstring>{L"{a-0}", L"{a-1}"}), Keys());
}

TEST_F(SaveAndDeleteTest, Save_UnderANameThatNoKeyCanHave_FailsAndWritesNothing)
{
    const std::wstring other = SaveNew(L"M");
    const auto before = Snapshot();
    CcvReminderData record = DistinctRecord();
    record.SetMapGuid(std::wstring(300, L'x').c_str());
    RecordFields expected = FieldsOf(record);
    EXPECT_FALSE(record.SaveDataToRegistry(kStore));
    EXPECT_FALSE(record.SaveDataToRegistry(kStore)) << "again, with the name that it has now";
    EXPECT_EQ(before, Snapshot());
    expected.key = record.GetReminderKey();
    EXPECT_EQ(expected, FieldsOf(record));
    EXPECT_FALSE(record.SaveOutlookDataToRegistry(kStore));
    EXPECT_FALSE(record.LoadDataFromRegistry(kStore));
    EXPECT_FALSE(record.DeleteDataFromRegistry(kStore));
    EXPECT_EQ(before, Snapshot());
}

TEST_F(SaveAndDeleteTest, Save_BelowAnotherPath_StaysThere)
{
    constexpr wchar_t kElsewhere[] = L"Software\\Elsewhere\\Reminders\\";
    CcvReminderData record = DistinctRecord();
    ASSERT_TRUE(record.SaveDataToRegistry(kElsewhere));
    EXPECT_TRUE(KeyExists(L"Software\\Elsewhere\\Reminders\\{M-0}"))
        << "one backslash, whatever the path ends in";
    EXPECT_FALSE(KeyExists(kStore));
    EXPECT_TRUE(record.DeleteDataFromRegistry(kElsewhere));
    EXPECT_TRUE(RawKey(L"Software\\Elsewhere\\Reminders").Subkeys().empty());
    DeleteKeyTree(L"Software\\Elsewhere");
}

TEST_F(SaveAndDeleteTest, Delete_WithSubkeys_DeletesThemAllAndNothingElse)
{
    const std::wstring key = SaveNew(L"M");
    SaveNew(L"M");
    Key(key + L"\\Sub\\Deep").Write(L"Value", RawDword(1));
    CcvReminderData record{CString(key.c_str())};
    EXPECT_TRUE(record.DeleteDataFromRegistry(kStore));
    EXPECT_EQ(std::vector<std::wstring>{L"{M-1}"}, Keys());
    EXPECT_FALSE(record.DeleteDataFromRegistry(kStore)) << "it is gone";
    EXPECT_EQ(key, record.GetReminderKey().GetString()) << "the record keeps its name";
}

TEST_F(SaveAndDeleteTest, Delete_OfNoReminder_FailsAndDeletesNothing)
{
    SaveNew(L"M");
    const auto before = Snapshot();
    for (const wchar_t* key : {L"", L"{M-1}", L"\\", L"\\\\", L"{M-0}\\Sub"})
    {
        EXPECT_FALSE(CcvReminderData{CString(key)}.DeleteDataFromRegistry(kStore))
            << testing::PrintToString(CString(key));
        ASSERT_EQ(before, Snapshot()) << testing::PrintToString(CString(key));
    }
    EXPECT_FALSE(CcvReminderData{CString(L"{M-0}")}.DeleteDataFromRegistry(L"Software\\Missing"));
    EXPECT_EQ(before, Snapshot());
}

} // namespace ts::test
