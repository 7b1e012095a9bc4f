// Names and searches of reminder keys.

#include "reminders/CcvReminderDataUtilities.h"
#include "tests/reminders/storage/StoreTest.h"
#include "tests/support/HandleCount.h"
#include "tests/support/HeapKind.h"

namespace ts::test
{
namespace
{

using Utilities = CcvReminderDataUtilities;

class ReminderKeysTest : public StoreTest
{
  protected:
    static void Add(const std::wstring& key, const std::wstring& path, const std::wstring& map,
                    const std::wstring& object)
    {
        const RawKey raw = Key(key);
        raw.Write(L"DocumentPath", RawText(path));
        raw.Write(L"MapGuid", RawText(map));
        raw.Write(L"ObjectGuid", RawText(object));
    }

    static CString Find(const wchar_t* path, const wchar_t* map, const wchar_t* object)
    {
        return Utilities::FindReminderKey(kStore, path, map, object);
    }

    static void Touch(const std::wstring& key) { EXPECT_NE(nullptr, Key(key).Get()); }
};

} // namespace

TEST_F(ReminderKeysTest, GenerateUniqueReminderKey_WithoutTheStore_GivesNumberZeroAndCreatesNothing)
{
    EXPECT_EQ(L"{M-0}", Utilities::GenerateUniqueReminderKey(kStore, L"M"));
    EXPECT_EQ(L"{-0}", Utilities::GenerateUniqueReminderKey(kStore, L""));
    EXPECT_FALSE(KeyExists(kStore));
}

TEST_F(ReminderKeysTest, GenerateUniqueReminderKey_WithKeys_GivesTheFirstGap)
{
    Touch(L"{M-1}");
    EXPECT_EQ(L"{M-0}", Utilities::GenerateUniqueReminderKey(kStore, L"M")) << "gaps first";
    Touch(L"{M-0}");
    EXPECT_EQ(L"{M-2}", Utilities::GenerateUniqueReminderKey(kStore, L"M"));
    EXPECT_EQ(L"{M-2}", Utilities::GenerateUniqueReminderKey(kStore, L"M")) << "nothing is reserved";
    EXPECT_EQ(L"{MM-0}", Utilities::GenerateUniqueReminderKey(kStore, L"MM"));
    for (int number = 2; number < 12; ++number)
    {
        Touch(L"{M-" + std::to_wstring(number) + L"}");
    }
    EXPECT_EQ(L"{M-12}", Utilities::GenerateUniqueReminderKey(kStore, L"M"));
}

TEST_F(ReminderKeysTest, GenerateUniqueReminderKey_OtherLetterCase_IsTheSameKey)
{
    Touch(L"{m-0}");
    EXPECT_EQ(L"{M-1}", Utilities::GenerateUniqueReminderKey(kStore, L"M")) << "the registry ignores case";
}

TEST_F(ReminderKeysTest, GenerateUniqueReminderKey_NameWithAZero_Returns)
{
    const CString name(L"a\0b", 3);
    EXPECT_EQ(L"{a-0}", Utilities::GenerateUniqueReminderKey(kStore, name));
    Touch(L"{a");
    Touch(L"{a-0}");
    EXPECT_EQ(L"{a-1}", Utilities::GenerateUniqueReminderKey(kStore, name));
    const std::wstring base = std::wstring(kStore) + L'\0' + L"x";
    EXPECT_EQ(L"{a-1}", Utilities::GenerateUniqueReminderKey(
                            CString(base.data(), static_cast<int>(base.size())), L"a"));
}

TEST_F(ReminderKeysTest, FindReminderKey_WithoutTheStore_GivesNothing)
{
    EXPECT_EQ(L"", Find(L"a", L"M", L"O"));
    EXPECT_EQ(L"", Find(L"", L"", L""));
    EXPECT_FALSE(KeyExists(kStore));
}

TEST_F(ReminderKeysTest, FindReminderKey_OfATopic_ComparesExactly)
{
    Add(L"{M-0}", L"C:\\maps\\a", L"M", L"O");
    EXPECT_EQ(L"{M-0}", Find(L"C:\\maps\\a", L"M", L"O"));
    const wchar_t* others[][3] = {
        {L"C:\\maps\\A", L"M", L"O"},
        {L"c:\\maps\\a", L"M", L"O"},
        {L"C:\\maps\\a", L"m", L"O"},
        {L"C:\\maps\\a", L"M", L"o"},
        {L"C:\\maps\\a ", L"M", L"O"},
        {L"C:\\maps\\", L"M", L"O"},
        {L"C:\\maps\\ab", L"M", L"O"},
        {L"C:\\maps\\a", L"", L"O"},
        {L"C:\\maps\\a", L"M", L""},
        {L"", L"M", L"O"},
        {L"", L"", L""},
        {L"C:/maps/a", L"M", L"O"},
    };
    for (const auto& [path, map, object] : others)
    {
        EXPECT_EQ(L"", Find(path, map, object)) << testing::PrintToString(CString(path));
    }
    EXPECT_EQ(L"", Utilities::FindReminderKey(kStore, CString(L"C:\\maps\\a\0b", 11), L"M", L"O"))
        << "whole texts count";
}

TEST_F(ReminderKeysTest, FindReminderKey_SeveralMatches_GivesTheFirstOfTheEnumeration)
{
    for (const wchar_t* key : {L"{M-3}", L"{M-1}", L"{M-2}"})
    {
        Add(key, L"a", L"M", L"O");
    }
    Add(L"{M-0}", L"b", L"M", L"O");
    std::wstring first;
    for (const std::wstring& key : RawKey(kStore).Subkeys())
    {
        if (first.empty() && key != L"{M-0}")
        {
            first = key;
        }
    }
    EXPECT_EQ(first, Find(L"a", L"M", L"O").GetString());
}

TEST_F(ReminderKeysTest, FindReminderKey_ValuesThatAreMissingOrNoText_ReadAsEmpty)
{
    Key(L"{1}").Write(L"DocumentPath", RawText(L"a"));
    Key(L"{1}").Write(L"MapGuid", RawDword(1));
    EXPECT_EQ(L"{1}", Find(L"a", L"", L""));
    Touch(L"{2}");
    EXPECT_EQ(L"{2}", Find(L"", L"", L""));
    EXPECT_EQ(L"", Find(L"a", L"\x0001", L""));
}

TEST_F(ReminderKeysTest, FindReminderKey_TextsWithAndWithoutTerminator_Match)
{
    Add(L"foreign name", std::wstring(L"a\0", 2), std::wstring(L"M\0", 2), std::wstring(L"O\0", 2));
    EXPECT_EQ(L"foreign name", Find(L"a", L"M", L"O")) << "any name of a key counts";
}

TEST_F(ReminderKeysTest, UpdateDocumentPath_OfAMap_ChangesAllItsRemindersAndNothingElse)
{
    Add(L"{M-0}", L"old", L"M", L"1");
    Add(L"{M-1}", L"old", L"M", L"2");
    Add(L"{M-2}", L"OLD", L"M", L"3");
    Add(L"{M-3}", L"older", L"M", L"4");
    Add(L"{N-0}", L"old", L"N", L"1");
    Add(L"{N-1}", L"old", L"m", L"1");
    Add(L"other", std::wstring(L"old\0", 4), L"M", L"1");
    Key(L"{M-0}").Write(L"Subject", RawText(L"kept"));
    Key(L"{M-0}\\Sub").Write(L"DocumentPath", RawText(L"old"));
    auto expected = Snapshot();
    for (const wchar_t* key : {L"{M-0}", L"{M-1}", L"other"})
    {
        expected.at(key).at(L"DocumentPath") = RawText(L"D:\\new");
    }
    Utilities::UpdateDocumentPath(kStore, L"old", L"D:\\new", L"M");
    EXPECT_EQ(expected, Snapshot()) << "stored without a terminator";
    EXPECT_EQ(RawText(L"old"), Key(L"{M-0}\\Sub").Read(L"DocumentPath"));
}

TEST_F(ReminderKeysTest, UpdateDocumentPath_ToAnyText_StoresItExactly)
{
    for (const std::wstring& path :
         {std::wstring(), std::wstring(1024, L'x'), std::wstring(40'000, L'\xD800')})
    {
        Add(L"{M-0}", L"old", L"M", L"1");
        Utilities::UpdateDocumentPath(kStore, L"old", path.c_str(), L"M");
        EXPECT_EQ(RawText(path), Key(L"{M-0}").Read(L"DocumentPath"));
    }
}

TEST_F(ReminderKeysTest, UpdateDocumentPath_FromAnEmptyPath_MatchesRemindersWithoutOne)
{
    Key(L"{M-0}").Write(L"MapGuid", RawText(L"M"));
    Key(L"{M-1}").Write(L"DocumentPath", RawText(L"other"));
    Utilities::UpdateDocumentPath(kStore, L"", L"new", L"M");
    EXPECT_EQ(RawText(L"new"), Key(L"{M-0}").Read(L"DocumentPath"));
    EXPECT_EQ(RawText(L"other"), Key(L"{M-1}").Read(L"DocumentPath"));
}

TEST_F(ReminderKeysTest, UpdateDocumentPath_WithoutTheStore_CreatesNothing)
{
    Utilities::UpdateDocumentPath(kStore, L"", L"new", L"");
    EXPECT_FALSE(KeyExists(kStore));
}

TEST_F(ReminderKeysTest, UpdateDocumentPath_OfALoadedRecord_LeavesTheRecord)
{
    CcvReminderData record = DistinctRecord();
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    Utilities::UpdateDocumentPath(kStore, L"C:\\maps\\a", L"new", L"M");
    EXPECT_EQ(L"C:\\maps\\a", record.GetDocumentPath());
    ASSERT_TRUE(record.LoadDataFromRegistry(kStore));
    EXPECT_EQ(L"new", record.GetDocumentPath());
    EXPECT_EQ(L"{M-0}", Find(L"new", L"M", L"O"));
}

TEST_F(ReminderKeysTest, Handles_AfterManyCalls_AreAsMany)
{
    Add(L"{M-0}", L"old", L"M", L"1");
    Add(L"{M-1}", L"old", L"M", L"2");
    const std::size_t before = HandleCount();
    for (int round = 0; round < Rounds(300); ++round)
    {
        ASSERT_EQ(L"{M-2}", Utilities::GenerateUniqueReminderKey(kStore, L"M"));
        ASSERT_EQ(L"{M-1}", Find(L"old", L"M", L"2"));
        Utilities::UpdateDocumentPath(kStore, L"old", L"old", L"M");
    }
    EXPECT_EQ(before, HandleCount());
}

} // namespace ts::test
