// Where an appointment is found. Which one was found shows in its subject after a modify.

#include "outlook/OutlookAppointments.h"
#include "tests/outlook/OutlookTest.h"

namespace ts::test
{
namespace
{

using standin::Calendar;
using standin::FolderId;
using standin::Item;
using standin::UserProperty;

constexpr wchar_t kGuid[] = L"{6B29FC40-CA47-1067-B31D-00DD010662DA}";

class SearchTest : public OutlookTest
{
  protected:
    SearchTest()
    {
        m_record.SetOutlookObjectGuid(kGuid);
        m_record.SetSubject(L"found");
    }

    FolderId Root()
    {
        return Server().Read([](Calendar& calendar) { return calendar.stores.front().id; });
    }
    FolderId CalendarFolder()
    {
        return Server().Read([](Calendar& calendar) { return calendar.calendarFolder; });
    }
    FolderId AddFolder(FolderId parent, long type = standin::kAppointmentItem)
    {
        return Server().Write([&](Calendar& calendar)
                              { return calendar.AddFolder(parent, L"folder", type); });
    }
    std::wstring AddItem(FolderId folder, std::vector<UserProperty> properties = {{L"Name", 1, kGuid}},
                         long type = standin::kAppointmentItem)
    {
        Item item;
        item.type = type;
        item.subject = L"not found";
        item.start = item.end = DateOf(2026, 11, 26, 10);
        item.userProperties = std::move(properties);
        return Server().Write([&](Calendar& calendar) { return calendar.AddItem(folder, item); });
    }
    bool IsFound(const std::wstring& entryId)
    {
        return Server().Read([&](Calendar& calendar)
                             { return calendar.FindItem(entryId).value().item->subject == L"found"; });
    }
    void Modify() { ModifyAppointmentInOutlook(m_record); }
    /// Whether the reminder got another appointment, because its own was not found.
    bool WasAddedAnew() const { return m_record.GetOutlookObjectGuid() != kGuid; }

    CcvReminderData m_record = OneTimeRecord();
};

} // namespace

TEST_F(SearchTest, ByEntryId_LooksNowhereElse)
{
    const std::wstring first = AddItem(CalendarFolder());
    const std::wstring second = AddItem(CalendarFolder());
    m_record.SetOutlookEntryId(second.c_str());
    Modify();
    EXPECT_FALSE(IsFound(first));
    EXPECT_TRUE(IsFound(second));
    EXPECT_EQ(Texts(), Only(TakeCalls(m_record), L"call Namespace.GetDefaultFolder"));
}

TEST_F(SearchTest, ByEntryId_OfAnItemWithoutTheGuid_SearchesOn)
{
    const std::wstring stranger = AddItem(CalendarFolder(), {{L"OutlookTicklerItemGuid", 1, L"{other}"}});
    const std::wstring own = AddItem(AddFolder(CalendarFolder()));
    m_record.SetOutlookEntryId(stranger.c_str());
    Modify();
    EXPECT_FALSE(IsFound(stranger));
    EXPECT_TRUE(IsFound(own));
}

TEST_F(SearchTest, ByEntryId_InAFolderOfAnotherType_SearchesOn)
{
    const std::wstring deleted = AddItem(AddFolder(Root(), standin::kMailItem));
    const std::wstring own = AddItem(CalendarFolder());
    m_record.SetOutlookEntryId(deleted.c_str());
    Modify();
    EXPECT_FALSE(IsFound(deleted));
    EXPECT_TRUE(IsFound(own));
}

TEST_F(SearchTest, ByEntryId_OfAnItemInAnotherStore_FindsIt)
{
    const std::wstring archived = Server().Write(
        [&](Calendar& calendar)
        {
            const FolderId store = calendar.AddFolder(std::nullopt, L"archive", standin::kMailItem);
            const FolderId folder = calendar.AddFolder(store, L"calendar", standin::kAppointmentItem);
            Item item;
            item.userProperties = {{L"Name", 1, kGuid}};
            return calendar.AddItem(folder, item);
        });
    m_record.SetOutlookEntryId(archived.c_str());
    Modify();
    EXPECT_TRUE(IsFound(archived));
}

TEST_F(SearchTest, ByEntryId_OfAnItemThatIsNoAppointment_EndsTheOperation)
{
    const std::wstring task = AddItem(CalendarFolder(), {{L"Name", 1, kGuid}}, standin::kTaskItem);
    m_record.SetOutlookEntryId(task.c_str());
    Modify();
    EXPECT_FALSE(WasAddedAnew());
    EXPECT_EQ(1u, CalendarSize());
    EXPECT_FALSE(DisplayOutlookAppointment(m_record));
}

TEST_F(SearchTest, Full_FindsAnItemInANestedFolder)
{
    FolderId folder = CalendarFolder();
    for (int level = 0; level < 5; ++level)
    {
        folder = AddFolder(folder);
        AddItem(folder, {{L"Name", 1, L"{other}"}});
    }
    const std::wstring own = AddItem(folder);
    Modify();
    EXPECT_TRUE(IsFound(own));
    EXPECT_FALSE(WasAddedAnew());
}

TEST_F(SearchTest, Full_PassesOverOtherFoldersButSearchesBelowThem)
{
    const FolderId mail = AddFolder(Root(), standin::kMailItem);
    const std::wstring inMail = AddItem(mail);
    const std::wstring own = AddItem(AddFolder(AddFolder(mail, standin::kTaskItem)));
    Modify();
    EXPECT_FALSE(IsFound(inMail));
    EXPECT_TRUE(IsFound(own));
}

TEST_F(SearchTest, Full_TakesTheFirstHit)
{
    const std::wstring below = AddItem(AddFolder(CalendarFolder()));
    const std::wstring first = AddItem(CalendarFolder());
    const std::wstring second = AddItem(CalendarFolder());
    const std::wstring later = AddItem(AddFolder(Root()));
    Modify();
    EXPECT_TRUE(IsFound(first)) << "a folder's items come before its folders";
    for (const std::wstring& other : {below, second, later})
    {
        EXPECT_FALSE(IsFound(other));
    }
    EXPECT_EQ(1u, Only(TakeCalls(m_record), L"call Items.Item").size());
}

TEST_F(SearchTest, Full_FollowsAnItemThatMoved)
{
    CcvReminderData record = Mirror(OneTimeRecord());
    const FolderId folder = AddFolder(AddFolder(Root(), standin::kMailItem));
    const std::wstring moved =
        Server().Write([&](Calendar& calendar)
                       { return calendar.MoveItem(record.GetOutlookEntryId().GetString(), folder, false); });
    record.SetSubject(L"found");
    ModifyAppointmentInOutlook(record);
    EXPECT_TRUE(IsFound(moved));
    EXPECT_EQ(0u, CalendarSize());
    EXPECT_NE(CString(moved.c_str()), record.GetOutlookEntryId()) << "only an add learns an entry id";
}

TEST_F(SearchTest, Full_LeavesOtherStoresOut)
{
    const FolderId store = Server().Write(
        [](Calendar& calendar) { return calendar.AddFolder(std::nullopt, L"archive", standin::kMailItem); });
    const std::wstring archived = AddItem(AddFolder(store));
    Modify();
    EXPECT_FALSE(IsFound(archived));
    EXPECT_TRUE(WasAddedAnew());
}

TEST_F(SearchTest, Guid_CountsUnderAnyNameAndAfterOthers)
{
    const std::wstring own = AddItem(
        CalendarFolder(), {{L"A", 1, L"a"}, {L"B", 3, 5.0}, {L"C", 6, true}, {L"Any name", 1, kGuid}});
    Modify();
    EXPECT_TRUE(IsFound(own));
}

TEST_F(SearchTest, Guid_IsComparedExactly)
{
    std::wstring lower = kGuid;
    lower[3] = L'f';
    lower[2] = L'b';
    const std::wstring similar[] = {AddItem(CalendarFolder(), {{L"A", 1, lower}}),
                                    AddItem(CalendarFolder(), {{L"A", 1, std::wstring(kGuid) + L" "}}),
                                    AddItem(CalendarFolder(), {{L"A", 1, std::wstring(kGuid) + L'\0'}}),
                                    AddItem(CalendarFolder(), {{L"A", 1, std::wstring(kGuid).substr(0, 37)}}),
                                    AddItem(CalendarFolder(), {})};
    Modify();
    for (const std::wstring& other : similar)
    {
        EXPECT_FALSE(IsFound(other));
    }
    EXPECT_TRUE(WasAddedAnew());
}

TEST_F(SearchTest, Guid_IsComparedWithNumbersAsText)
{
    m_record.SetOutlookObjectGuid(L"42");
    const std::wstring own = AddItem(CalendarFolder(), {{L"Count", 3, 42.0}});
    Modify();
    EXPECT_TRUE(IsFound(own));
}

TEST_F(SearchTest, Full_OverAnItemThatIsNoAppointment_EndsTheOperation)
{
    AddItem(CalendarFolder(), {}, standin::kTaskItem);
    const std::wstring own = AddItem(CalendarFolder());
    Modify();
    EXPECT_FALSE(IsFound(own));
    EXPECT_FALSE(WasAddedAnew());
    EXPECT_FALSE(DisplayOutlookAppointment(m_record));
}

TEST_F(SearchTest, Full_GoesAsDeepAsStoresGo)
{
    constexpr int kDeepest = 300;
    FolderId folder = Root();
    for (int level = 1; level <= kDeepest; ++level)
    {
        folder = AddFolder(folder, standin::kMailItem);
    }
    // The deepest folder's own type does not matter: only a calendar below the last level is out of reach.
    const FolderId unreachable = AddFolder(folder);
    const std::wstring lost = AddItem(unreachable);
    const FolderId parent =
        Server().Read([&](Calendar& calendar) { return calendar.FindParent(folder)->id; });
    EXPECT_FALSE(DisplayOutlookAppointment(m_record));
    AddItem(AddFolder(parent));
    EXPECT_TRUE(DisplayOutlookAppointment(m_record));
    EXPECT_FALSE(IsFound(lost));
}

} // namespace ts::test
