#include "tests/outlook_standin/AutomationBase.h"
#include "tests/outlook_standin/Client.h"
#include "tests/outlook_standin/Standin.h"

#include <gtest/gtest.h>

namespace
{

using namespace ts::standin;
using namespace ts::standin::test;

constexpr wchar_t kGuid[] = L"{11111111-2222-3333-4444-555555555555}";

class StandinFolders : public testing::Test
{
  protected:
    Dispatch GetDefaultCalendar()
    {
        return CallMethod(m_session, L"GetDefaultFolder", {Number(9)}).AsObject();
    }
    static Dispatch At(const Dispatch& parent, const wchar_t* collection, long index)
    {
        return CallMethod(Get(parent, collection).AsObject(), L"Item", {Number(index)}).AsObject();
    }
    static long CountOf(const Dispatch& parent, const wchar_t* collection)
    {
        return LongOf(Get(Get(parent, collection).AsObject(), L"Count").value);
    }
    static std::wstring NameOf(const Dispatch& folder) { return TextOf(Get(folder, L"Name").value); }

    InProcessOutlook m_outlook;
    Dispatch m_application = ActivateApplication();
    Dispatch m_session = CallMethod(m_application, L"GetNamespace", {Text(L"MAPI")}).AsObject();
};

TEST_F(StandinFolders, NestedFolders_AreReachedFromTheRootByIndexFrom1)
{
    const FolderId outer = m_outlook.MakeFolder(m_outlook.GetDefaultStore(), L"Outer", kMailItem);
    const FolderId inner = m_outlook.MakeFolder(outer, L"Inner");
    m_outlook.MakeItem(inner, {.subject = L"Deep"});
    const Dispatch root = Get(GetDefaultCalendar(), L"Parent").AsObject();
    ASSERT_EQ(CountOf(root, L"Folders"), 3);
    const Dispatch folder = At(root, L"Folders", 3);
    EXPECT_EQ(NameOf(folder), L"Outer");
    EXPECT_EQ(LongOf(Get(folder, L"DefaultItemType").value), kMailItem);
    const Dispatch nested = At(folder, L"Folders", 1);
    EXPECT_EQ(NameOf(nested), L"Inner");
    EXPECT_EQ(LongOf(Get(nested, L"DefaultItemType").value), kAppointmentItem);
    EXPECT_EQ(TextOf(Get(At(nested, L"Items", 1), L"Subject").value), L"Deep");
}

TEST_F(StandinFolders, Index_OutOfRange_IsAnError)
{
    const Dispatch folders = Get(Get(GetDefaultCalendar(), L"Parent").AsObject(), L"Folders").AsObject();
    for (const long index : {-1L, 0L, 3L})
    {
        SCOPED_TRACE(index);
        const Answer answer = CallMethod(folders, L"Item", {Number(index)});
        EXPECT_EQ(answer.result, DISP_E_EXCEPTION);
        EXPECT_EQ(answer.scode, DISP_E_BADINDEX);
    }
}

TEST_F(StandinFolders, Stores_EachHaveTheNamespaceAsParent)
{
    m_outlook.MakeStore(L"Archive");
    EXPECT_EQ(CountOf(m_session, L"Folders"), 2);
    const Dispatch archive = At(m_session, L"Folders", 2);
    EXPECT_EQ(NameOf(archive), L"Archive");
    const Dispatch parent = Get(archive, L"Parent").AsObject();
    EXPECT_TRUE(CallMethod(parent, L"GetDefaultFolder", {Number(9)}).Succeeded());
}

TEST_F(StandinFolders, OtherItem_IsNoAppointment)
{
    m_outlook.MakeItem(m_outlook.GetCalendarFolder(), {.type = kMailItem, .subject = L"Invitation"});
    const Dispatch item = At(GetDefaultCalendar(), L"Items", 1);
    EXPECT_EQ(TextOf(Get(item, L"Subject").value), L"Invitation");
    void* queried = nullptr;
    EXPECT_EQ(item->QueryInterface(kAppointmentInterface, &queried), E_NOINTERFACE);
}

TEST_F(StandinFolders, DispatchIdOfAnotherKind_IsNotFound)
{
    std::wstring name = L"GetNamespace";
    LPOLESTR names = name.data();
    DISPID id = DISPID_UNKNOWN;
    ASSERT_EQ(m_application->GetIDsOfNames(IID_IDispatch, &names, 1, 0, &id), S_OK);
    DISPPARAMS none{};
    EXPECT_EQ(m_session->Invoke(id, IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
}

TEST_F(StandinFolders, Calls_AreWrittenDownInOrder)
{
    m_outlook.ClearCalls();
    const Dispatch item = SaveAppointment(m_application, L"Tea", kGuid);
    EXPECT_TRUE(Put(item, L"Start", Date(2026, 11, 26, 10)).Succeeded());
    const std::vector<std::wstring> expected{L"call Application.CreateItem 1",
                                             L"put Appointment.Subject \"Tea\"",
                                             L"get Appointment.UserProperties",
                                             L"call UserProperties.Add \"Guid\", 1, true, 1",
                                             L"put UserProperty.Value \"" + std::wstring(kGuid) + L"\"",
                                             L"call Appointment.Save",
                                             L"put Appointment.Start 2026-11-26 10:00:00"};
    EXPECT_EQ(m_outlook.GetCallTexts(), expected);
}

TEST(StandinFile, Calendar_WithEverything_IsFoundAgain)
{
    const auto folder = std::filesystem::temp_directory_path() /
                        (L"outlook_standin_file." + std::to_wstring(GetCurrentProcessId()));
    std::filesystem::create_directories(folder);
    const Item item{
        .subject = std::wstring(L"T\u00E4g\0lich", 8),
        .body = L"\U0001F600",
        .start = 46352.4375,
        .end = 46352.5,
        .userProperties = {{L"Guid", 1, std::wstring(kGuid)}, {L"Size", 3, 1.5}, {L"Yes", 6, true}},
        .recurrence = Recurrence{.interval = 2, .deletedOccurrences = {46359.4375}}};
    {
        InProcessOutlook outlook(Apartment::CallersThread, folder);
        outlook.MakeItem(outlook.MakeFolder(outlook.GetCalendarFolder(), L"Inner"), item);
    }
    InProcessOutlook outlook(Apartment::CallersThread, folder);
    std::optional<Item> found = outlook.FindItem(kGuid);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->entryId.size(), 48U);
    found->entryId.clear();
    EXPECT_EQ(*found, item);
    std::filesystem::remove_all(folder);
}

} // namespace
