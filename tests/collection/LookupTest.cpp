// How records are found.

#include "tests/collection/CollectionTest.h"
#include "tests/collection/ManagerInside.h"
#include "tests/support/HeapKind.h"

#include <limits>

namespace ts::test
{
namespace
{

class LookupTest : public CollectionTest
{
  protected:
    static std::wstring StoreTopic(const wchar_t* path, const wchar_t* map, const wchar_t* topic,
                                   const wchar_t* outlook = L"")
    {
        CcvReminderData record = EmptyRecord();
        record.SetDocumentPath(path);
        record.SetMapGuid(map);
        record.SetObjectGuid(topic);
        record.SetOutlookObjectGuid(outlook);
        return Store(record);
    }

    /// A text of the characters that a comparison by the formatted identity could trip over.
    static CString HostileText(RandomSource& random)
    {
        constexpr wchar_t kCharacters[] = {L'{', L'}', L'\0', L'a', L'A'};
        std::wstring text;
        for (int length = random.Between(0, 4); length > 0; --length)
        {
            text += random.OneOf(kCharacters);
        }
        return {text.data(), static_cast<int>(text.size())};
    }

    static void FillAtRandom(CcvReminderData& record, RandomSource& random)
    {
        record.SetDocumentPath(HostileText(random));
        record.SetMapGuid(HostileText(random));
        record.SetObjectGuid(HostileText(random));
    }

    /// Another record with the same identity as text, if there is one: its parts begin and end elsewhere.
    static CcvReminderData DividedAnew(const CcvReminderData& record, RandomSource& random)
    {
        const CString guid = record.GetGuid();
        const std::wstring text(guid.GetString() + 1, static_cast<std::size_t>(guid.GetLength() - 2));
        std::vector<std::size_t> seams;
        for (std::size_t seam = text.find(L"}{"); seam != std::wstring::npos;
             seam = text.find(L"}{", seam + 2))
        {
            seams.push_back(seam);
        }
        const std::size_t first = random.Between<std::size_t>(0, seams.size() - 2);
        const std::size_t second = random.Between<std::size_t>(first + 1, seams.size() - 1);
        const auto part = [&](std::size_t begin, std::size_t end)
        { return CString(text.data() + begin, static_cast<int>(end - begin)); };
        CcvReminderData divided = EmptyRecord();
        divided.SetDocumentPath(part(0, seams[first]));
        divided.SetMapGuid(part(seams[first] + 2, seams[second]));
        divided.SetObjectGuid(part(seams[second] + 2, text.size()));
        EXPECT_EQ(guid, divided.GetGuid()) << random;
        return divided;
    }

    /// The rule, literally: the first record whose identity is the same text.
    static int FirstWithTheSameGuid(const Manager& manager, const CcvReminderData& record)
    {
        for (int index = 0; index < manager.GetRemindersCount(); ++index)
        {
            if (manager.GetReminderByIndex(index)->GetGuid() == record.GetGuid())
            {
                return index;
            }
        }
        return -1;
    }
};

} // namespace

TEST_F(LookupTest, ByIndex_InAndOutside_GivesTheRecordOrNull)
{
    StoreTopics({L"first", L"second", L"third"});
    const Manager manager(false);
    ASSERT_EQ(3, manager.GetRemindersCount());
    EXPECT_EQ(L"first", manager.GetReminderByIndex(0)->GetObjectGuid());
    EXPECT_EQ(L"second", manager.GetReminderByIndex(1)->GetObjectGuid());
    EXPECT_EQ(L"third", manager.GetReminderByIndex(2)->GetObjectGuid());
    EXPECT_EQ(manager.GetReminderByIndex(1), manager.GetReminderByIndex(1)) << "the record, no copy";
    for (const int outside : {-1, 3, 4, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
    {
        EXPECT_EQ(nullptr, manager.GetReminderByIndex(outside)) << outside;
    }
}

TEST_F(LookupTest, Lookups_InAnEmptyCollection_FindNothing)
{
    const Manager manager(false);
    EXPECT_EQ(0, manager.GetRemindersCount());
    EXPECT_EQ(nullptr, manager.GetReminderByIndex(0));
    EXPECT_EQ(nullptr, manager.GetReminderByGuid(L"", L"", L""));
    EXPECT_EQ(nullptr, manager.GetReminderByOutlookObjectGuid(L""));
    EXPECT_EQ(-1, IndexOf(manager, EmptyRecord()));
}

TEST_F(LookupTest, ByGuid_OfEachPart_ComparesItExactly)
{
    StoreTopic(L"C:\\a", L"M", L"O");
    const Manager manager(false);
    CcvReminderData* const only = manager.GetReminderByIndex(0);
    ASSERT_NE(nullptr, only);
    EXPECT_EQ(only, manager.GetReminderByGuid(L"C:\\a", L"M", L"O"));
    constexpr const wchar_t* kOthers[][3] = {
        {L"c:\\a", L"M", L"O"}, {L"C:\\a", L"m", L"O"},  {L"C:\\a", L"M", L"o"}, {L"C:\\a ", L"M", L"O"},
        {L"C:\\a", L"M", L""},  {L"C:\\a", L"MM", L"O"}, {L"", L"M", L"O"},      {L"C:\\", L"M", L"O"},
        {L"C:\\a", L"", L"O"},  {L"C:\\a", L"O", L"M"},  {L"", L"", L""}};
    for (const auto& other : kOthers)
    {
        EXPECT_EQ(nullptr, manager.GetReminderByGuid(other[0], other[1], other[2]));
    }
    EXPECT_EQ(nullptr, manager.GetReminderByGuid(CString(L"C:\\a\0", 5), L"M", L"O")) << "a zero more";
}

TEST_F(LookupTest, ByGuid_OfSeveral_GivesTheFirst)
{
    for (const wchar_t* key : {L"{b}", L"{a}", L"{c}"})
    {
        CcvReminderData record{CString(key)};
        record.SetMapGuid(L"M");
        record.SetOutlookObjectGuid(L"G");
        Store(record);
    }
    const Manager manager(false);
    EXPECT_EQ(manager.GetReminderByIndex(0), manager.GetReminderByGuid(L"", L"M", L""));
    EXPECT_EQ(manager.GetReminderByIndex(0), manager.GetReminderByOutlookObjectGuid(L"G"));
    EXPECT_EQ(0, IndexOf(manager, *manager.GetReminderByIndex(2)));
}

TEST_F(LookupTest, ByOutlookObjectGuid_ComparesExactlyAndEmptyToo)
{
    StoreTopic(L"p", L"A", L"1", L"{Guid}");
    StoreTopic(L"p", L"B", L"2", L"");
    StoreTopic(L"p", L"C", L"3", L"{guid}");
    const Manager manager(false);
    EXPECT_EQ(manager.GetReminderByIndex(0), manager.GetReminderByOutlookObjectGuid(L"{Guid}"));
    EXPECT_EQ(manager.GetReminderByIndex(1), manager.GetReminderByOutlookObjectGuid(L""));
    EXPECT_EQ(manager.GetReminderByIndex(2), manager.GetReminderByOutlookObjectGuid(L"{guid}"));
    EXPECT_EQ(nullptr, manager.GetReminderByOutlookObjectGuid(L"{GUID}"));
    EXPECT_EQ(nullptr, manager.GetReminderByOutlookObjectGuid(L"{Guid"));
}

TEST_F(LookupTest, Lookups_AfterAFailedLoad_SeeBareRecordsAsEmptyOnes)
{
    StoreTopics({L"first", L"second", L"third"});
    const LockedKey locked(L"{M-1}");
    const Manager manager(false);
    ASSERT_EQ(3, manager.GetRemindersCount());
    EXPECT_EQ(nullptr, manager.GetReminderByGuid(L"C:\\maps\\a", L"M", L"third"));
    EXPECT_EQ(manager.GetReminderByIndex(1), manager.GetReminderByGuid(L"", L"", L""));
    EXPECT_EQ(1, IndexOf(manager, EmptyRecord()));
}

TEST_F(LookupTest, Index_OfATopic_IgnoresEverythingElse)
{
    StoreTopics({L"first", L"second"});
    const Manager manager(false);
    CcvReminderData record = NewReminder(L"second");
    EXPECT_EQ(1, IndexOf(manager, record)) << "no key needed";
    record.SetSubject(L"another");
    record.SetOutlookObjectGuid(L"another");
    record.SetNextDueDate(1);
    EXPECT_EQ(1, IndexOf(manager, record));
    record.SetObjectGuid(L"SECOND");
    EXPECT_EQ(-1, IndexOf(manager, record));
}

TEST_F(LookupTest, Index_OfTopicsWhoseTextsHoldBraces_IsThatOfTheSameIdentity)
{
    StoreTopic(L"p", L"a}{b", L"c");
    const Manager manager(false);
    CcvReminderData record = EmptyRecord();
    record.SetDocumentPath(L"p}{a");
    record.SetMapGuid(L"b");
    record.SetObjectGuid(L"c");
    EXPECT_EQ(0, IndexOf(manager, record)) << "{p}{a}{b}{c} both";
    EXPECT_EQ(nullptr, manager.GetReminderByGuid(L"p}{a", L"b", L"c")) << "part by part they differ";
}

TEST_F(LookupTest, Index_OfHostileTexts_IsThatOfTheSameGuid)
{
    constexpr int kRecords = 12;
    for (int record = 0; record < kRecords; ++record)
    {
        Store(NewReminder(std::to_wstring(record)));
    }
    const Manager manager(false);
    ASSERT_EQ(kRecords, manager.GetRemindersCount());
    RandomSource random;
    for (int round = 0; round < Rounds(6'000); ++round)
    {
        FillAtRandom(*manager.GetReminderByIndex(random.Between(0, kRecords - 1)), random);
        CcvReminderData stranger = EmptyRecord();
        FillAtRandom(stranger, random);
        const CcvReminderData& any = *manager.GetReminderByIndex(random.Between(0, kRecords - 1));
        const CcvReminderData same = DividedAnew(any, random);
        for (const CcvReminderData* wanted : {&any, &same, static_cast<const CcvReminderData*>(&stranger)})
        {
            ASSERT_EQ(FirstWithTheSameGuid(manager, *wanted), IndexOf(manager, *wanted))
                << random << " " << testing::PrintToString(wanted->GetGuid());
        }
        ASSERT_LE(0, IndexOf(manager, same)) << random;
    }
}

} // namespace ts::test
