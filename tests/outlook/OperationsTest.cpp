// What the operations leave in Outlook's calendar and in the record.

#include "module/LanguageText.h"
#include "outlook/OutlookAppointments.h"
#include "outlook/OutlookMembers.h"
#include "resources/StringIds.h"
#include "tests/outlook/OutlookTest.h"

#include <algorithm>
#include <array>
#include <comdef.h>
#include <functional>
#include <objbase.h>
#include <set>
#include <thread>

namespace ts::test
{
namespace
{

using standin::Item;

class OperationsTest : public OutlookTest
{
};

bool IsGuid(const std::wstring& text)
{
    GUID guid{};
    std::array<wchar_t, 39> again{};
    return CLSIDFromString(text.c_str(), &guid) == S_OK &&
           StringFromGUID2(guid, again.data(), static_cast<int>(again.size())) == 39 && text == again.data();
}

/// Every operation on a reminder with an appointment.
struct Operation
{
    const char* title;
    std::function<void(CcvReminderData&)> run;
};

const Operation kOperations[] = {
    {"add", [](CcvReminderData& record) { AddAppointmentToOutlook(record); }},
    {"modify", [](CcvReminderData& record) { ModifyAppointmentInOutlook(record); }},
    {"remove", [](CcvReminderData& record) { RemoveAppointmentFromOutlook(record); }},
    {"dismiss", [](CcvReminderData& record) { DismissOccurrenceInOutlook(record, Due()); }},
    {"display", [](CcvReminderData& record) { EXPECT_FALSE(DisplayOutlookAppointment(record)); }},
};

CcvReminderData Identified()
{
    CcvReminderData record = DailyRecord();
    record.SetOutlookObjectGuid(L"{guid}");
    record.SetOutlookEntryId(L"00");
    return record;
}

} // namespace

TEST_F(OperationsTest, Add_FillsTheAppointment)
{
    CcvReminderData record = OneTimeRecord();
    AddAppointmentToOutlook(record);
    const Item item = ItemOf(record).value();
    EXPECT_EQ(L"Call back", item.subject);
    EXPECT_FALSE(item.reminderSet);
    EXPECT_EQ(0, item.busyStatus);
    EXPECT_NEAR(DateOf(2026, 11, 26, 10), item.start, 1e-8);
    EXPECT_EQ(item.start, item.end);
    EXPECT_FALSE(item.recurrence.has_value());
    ASSERT_EQ(1u, item.userProperties.size());
    const standin::UserProperty expected{L"OutlookTicklerItemGuid", 1,
                                         std::wstring(record.GetOutlookObjectGuid().GetString())};
    EXPECT_EQ(expected, item.userProperties[0]);
    EXPECT_TRUE(IsGuid(record.GetOutlookObjectGuid().GetString()));
    EXPECT_EQ(item.entryId, record.GetOutlookEntryId().GetString());
}

TEST_F(OperationsTest, Add_NamesTheMapAndThenItsFile)
{
    const CcvReminderData record = Mirror(OneTimeRecord());
    const std::wstring body = ItemOf(record).value().body;
    const std::size_t title = body.find(L"A map");
    const std::size_t path = body.find(L"C:\\maps\\a.map");
    ASSERT_NE(std::wstring::npos, title);
    ASSERT_NE(std::wstring::npos, path);
    EXPECT_LT(title, path);
}

TEST_F(OperationsTest, Add_TakesTextsAsTheyAre)
{
    CcvReminderData record = OneTimeRecord();
    constexpr wchar_t kText[] = {0x00E4, L'%', L's', 0, 0xD83D, 0xDD14, 0x4E2D};
    const CString text(kText, static_cast<int>(std::size(kText)));
    record.SetSubject(text);
    record.SetDocumentTitle(text);
    record.SetDocumentPath(L"%s%d%n");
    record = Mirror(record);
    const std::wstring expected(kText, std::size(kText));
    EXPECT_EQ(expected, ItemOf(record).value().subject);
    EXPECT_NE(std::wstring::npos, ItemOf(record).value().body.find(expected));
    EXPECT_NE(std::wstring::npos, ItemOf(record).value().body.find(L"%s%d%n"));
    ModifyAppointmentInOutlook(record);
    EXPECT_EQ(Texts(), Only(TakeCalls(record), L"put ")) << "the subject is compared as a whole";
}

TEST_F(OperationsTest, Add_OfEmptyTexts_Works)
{
    CcvReminderData record{CString()};
    record.SetInitialDueDate(Due());
    record = Mirror(record);
    EXPECT_EQ(L"", ItemOf(record).value().subject);
}

TEST_F(OperationsTest, Add_Again_MakesAnotherAppointmentWithAGuidOfItsOwn)
{
    CcvReminderData record = Mirror(OneTimeRecord());
    const CString guid = record.GetOutlookObjectGuid();
    const CString entryId = record.GetOutlookEntryId();
    AddAppointmentToOutlook(record);
    EXPECT_NE(guid, record.GetOutlookObjectGuid());
    EXPECT_NE(entryId, record.GetOutlookEntryId());
    EXPECT_EQ(2u, CalendarSize());
}

TEST_F(OperationsTest, Add_OfEveryWeekday_RecursWeekly)
{
    const CcvReminderData record = Mirror(RecurringRecord(EcvReminderRecurrenceType::Daily, {1, 0}));
    const standin::Recurrence recurrence = ItemOf(record).value().recurrence.value();
    EXPECT_EQ(standin::RecurrenceType::Weekly, recurrence.type);
    EXPECT_EQ(62, recurrence.dayOfWeekMask);
    EXPECT_EQ(1, recurrence.interval);
}

TEST_F(OperationsTest, Modify_AfterTheUserDeletedTheAppointment_CreatesItAgain)
{
    CcvReminderData record = Mirror(OneTimeRecord());
    const CString guid = record.GetOutlookObjectGuid();
    const CString entryId = record.GetOutlookEntryId();
    Server().Write([&](standin::Calendar& calendar) { calendar.DeleteItem(entryId.GetString()); });
    record.SetSubject(L"again");
    ModifyAppointmentInOutlook(record);
    EXPECT_NE(guid, record.GetOutlookObjectGuid());
    EXPECT_NE(entryId, record.GetOutlookEntryId());
    EXPECT_TRUE(IsGuid(record.GetOutlookObjectGuid().GetString()));
    EXPECT_EQ(L"again", ItemOf(record).value().subject);
    EXPECT_EQ(1u, CalendarSize());
}

TEST_F(OperationsTest, Modify_KeepsTheIdentifiers)
{
    CcvReminderData record = Mirror(OneTimeRecord());
    const CcvReminderData before(record);
    record.SetSubject(L"changed");
    ModifyAppointmentInOutlook(record);
    EXPECT_EQ(before.GetOutlookObjectGuid(), record.GetOutlookObjectGuid());
    EXPECT_EQ(before.GetOutlookEntryId(), record.GetOutlookEntryId());
    EXPECT_EQ(L"changed", ItemOf(record).value().subject);
}

TEST_F(OperationsTest, Modify_ToAOneTimeReminder_ClearsTheRecurrence)
{
    CcvReminderData record = Mirror(DailyRecord());
    EXPECT_TRUE(ItemOf(record).value().recurrence.has_value());
    record.SetRecurrenceType(EcvReminderRecurrenceType::None);
    ModifyAppointmentInOutlook(record);
    EXPECT_FALSE(ItemOf(record).value().recurrence.has_value());
}

TEST_F(OperationsTest, Modify_ToARecurringReminder_MakesTheAppointmentRecur)
{
    CcvReminderData record = Mirror(OneTimeRecord());
    const CcvReminderData daily = DailyRecord();
    record.SetRecurrenceType(daily.GetRecurrenceType());
    record.SetDailyRecurrenceNumber(3);
    ModifyAppointmentInOutlook(record);
    const standin::Recurrence recurrence = ItemOf(record).value().recurrence.value();
    EXPECT_EQ(standin::RecurrenceType::Daily, recurrence.type);
    EXPECT_EQ(3, recurrence.interval);
}

TEST_F(OperationsTest, Modify_OfTheStart_DoesNotTouchTheEnd)
{
    CcvReminderData record = Mirror(OneTimeRecord());
    ChangeItemOf(record, [](Item& item) { item.end = item.start + 0.25; });
    record.SetInitialDueDate(CTime(2026, 11, 27, 10, 0, 0));
    ModifyAppointmentInOutlook(record);
    EXPECT_EQ(Texts(), Only(TakeCalls(record), L"put Appointment.End"));
    EXPECT_NEAR(DateOf(2026, 11, 27, 10), ItemOf(record).value().start, 1e-8);
}

TEST_F(OperationsTest, Remove_TakesTheAppointmentAndOnlyIt)
{
    const CcvReminderData first = Mirror(OneTimeRecord());
    const CcvReminderData second = Mirror(OneTimeRecord());
    RemoveAppointmentFromOutlook(first);
    EXPECT_EQ(std::nullopt, ItemOf(first));
    EXPECT_TRUE(ItemOf(second).has_value());
    RemoveAppointmentFromOutlook(first);
    EXPECT_TRUE(ItemOf(second).has_value()) << "what is not found is no error";
    EXPECT_FALSE(DisplayOutlookAppointment(first));
}

TEST_F(OperationsTest, Dismiss_TakesOneOccurrenceOutOfTheSeries)
{
    const CcvReminderData record = Mirror(DailyRecord());
    DismissOccurrenceInOutlook(record, CTime(2026, 11, 29, 10, 0, 0));
    const standin::Recurrence recurrence = ItemOf(record).value().recurrence.value();
    ASSERT_EQ(1u, recurrence.deletedOccurrences.size());
    EXPECT_NEAR(DateOf(2026, 11, 29, 10), recurrence.deletedOccurrences[0], 1e-8);
}

TEST_F(OperationsTest, Dismiss_OfWhatIsNoOccurrence_ChangesNothing)
{
    const CcvReminderData record = Mirror(DailyRecord());
    const Item before = ItemOf(record).value();
    for (const CTime& due :
         {CTime(2026, 11, 28, 10, 0, 0), CTime(2026, 11, 29, 10, 0, 1), CTime(-1), CTime(INT64_MAX)})
    {
        DismissOccurrenceInOutlook(record, due);
        EXPECT_EQ(before, ItemOf(record).value());
    }
}

TEST_F(OperationsTest, Dismiss_OfASingleAppointment_ChangesNothing)
{
    const CcvReminderData record = Mirror(OneTimeRecord());
    const Item before = ItemOf(record).value();
    DismissOccurrenceInOutlook(record, Due());
    EXPECT_EQ(before, ItemOf(record).value());
}

TEST_F(OperationsTest, EachOperation_StartsOutlookAfresh)
{
    CcvReminderData record = Mirror(DailyRecord());
    for (const Operation& operation : {kOperations[1], kOperations[3], kOperations[2], kOperations[0]})
    {
        operation.run(record);
        EXPECT_EQ(1u, Only(TakeCalls(record), L"activate").size()) << operation.title;
        EXPECT_EQ(0, Server().GetLiveObjects()) << operation.title;
    }
}

// --- Without Outlook ---

TEST_F(OperationsTest, WhenActivationIsRefused_EveryOperationEndsInSilence)
{
    standin::Faults faults;
    for (const HRESULT refusal : {E_FAIL, CO_E_SERVER_EXEC_FAILURE, E_ACCESSDENIED, E_OUTOFMEMORY})
    {
        faults.refuseActivation = refusal;
        Server().SetFaults(faults);
        for (const Operation& operation : kOperations)
        {
            CcvReminderData record = Identified();
            operation.run(record);
            EXPECT_EQ(L"{guid}", record.GetOutlookObjectGuid()) << operation.title;
            EXPECT_EQ(L"00", record.GetOutlookEntryId()) << operation.title;
            EXPECT_EQ(Texts{L"activate Application."}, TakeCalls(record)) << "nothing is tried again";
            EXPECT_EQ(std::optional(false), SynchronizeInProgress()) << operation.title;
        }
    }
}

TEST_F(OperationsTest, OutlookInsideTheOwnProcess_IsNotWhatIsAskedFor)
{
    _com_ptr_t<_com_IIID<IClassFactory, &IID_IClassFactory>> factory;
    void* found = nullptr;
    ASSERT_EQ(S_OK, CoGetClassObject(outlook::kApplicationClass, CLSCTX_LOCAL_SERVER, nullptr,
                                     IID_IClassFactory, &found));
    factory.Attach(static_cast<IClassFactory*>(found));
    m_class.reset();
    DWORD cookie = 0;
    ASSERT_EQ(S_OK, CoRegisterClassObject(outlook::kApplicationClass, factory, CLSCTX_INPROC_SERVER,
                                          REGCLS_MULTIPLEUSE, &cookie));
    CcvReminderData record = OneTimeRecord();
    AddAppointmentToOutlook(record);
    EXPECT_TRUE(record.GetOutlookObjectGuid().IsEmpty());
    EXPECT_EQ(Texts(), TakeCalls(record));
    EXPECT_EQ(S_OK, CoRevokeClassObject(cookie));
}

namespace
{

bool IsInSingleThreadedApartment()
{
    APTTYPE type = APTTYPE_CURRENT;
    APTTYPEQUALIFIER qualifier = APTTYPEQUALIFIER_NONE;
    return CoGetApartmentType(&type, &qualifier) == S_OK && (type == APTTYPE_STA || type == APTTYPE_MAINSTA);
}

} // namespace

TEST(OutlookMissingTest, EveryOperation_EntersTheThreadsApartmentOnceMoreAndStays)
{
    std::thread(
        []
        {
            EXPECT_FALSE(IsInSingleThreadedApartment());
            for (const Operation& operation : kOperations)
            {
                CcvReminderData record = Identified();
                operation.run(record);
                EXPECT_TRUE(IsInSingleThreadedApartment()) << operation.title;
            }
            for (const Operation& operation : kOperations)
            {
                EXPECT_TRUE(IsInSingleThreadedApartment()) << operation.title;
                CoUninitialize();
            }
            EXPECT_FALSE(IsInSingleThreadedApartment()) << "entered as often as there were operations";
        })
        .join();
}

TEST(OutlookMissingTest, EveryOperation_EndsInSilence)
{
    for (const Operation& operation : kOperations)
    {
        CcvReminderData record = Identified();
        operation.run(record);
        EXPECT_EQ(L"{guid}", record.GetOutlookObjectGuid()) << operation.title;
        EXPECT_EQ(L"00", record.GetOutlookEntryId()) << operation.title;
    }
}

// --- The option that other processes see ---

namespace
{

/// The option at each call, as it is found in the registry.
class MarkTest : public OutlookTest
{
  protected:
    MarkTest()
    {
        standin::Server::Hooks hooks;
        hooks.onCall = [this](const standin::Call& call)
        { m_seen.emplace_back(call.access == L"activate", SynchronizeInProgress()); };
        Server().SetHooks(std::move(hooks));
    }

    void ExpectOnlyWhileStarting()
    {
        EXPECT_FALSE(m_seen.empty());
        for (const auto& [starting, inProgress] : m_seen)
        {
            EXPECT_EQ(std::optional(starting), inProgress);
        }
        EXPECT_EQ(std::optional(false), SynchronizeInProgress());
        m_seen.clear();
    }

    std::vector<std::pair<bool, std::optional<bool>>> m_seen;
};

} // namespace

TEST_F(MarkTest, EveryOperation_SetsItWhileOutlookStarts)
{
    CcvReminderData record = Mirror(DailyRecord());
    ExpectOnlyWhileStarting();
    ModifyAppointmentInOutlook(record);
    ExpectOnlyWhileStarting();
    DismissOccurrenceInOutlook(record, Due());
    ExpectOnlyWhileStarting();
    EXPECT_TRUE(DisplayOutlookAppointment(record));
    ExpectOnlyWhileStarting();
    RemoveAppointmentFromOutlook(record);
    ExpectOnlyWhileStarting();
    ModifyAppointmentInOutlook(record);
    ExpectOnlyWhileStarting();
}

TEST_F(MarkTest, RefusedActivation_TakesItAwayAgain)
{
    standin::Faults faults;
    faults.refuseActivation = E_FAIL;
    Server().SetFaults(faults);
    CcvReminderData record = OneTimeRecord();
    AddAppointmentToOutlook(record);
    ExpectOnlyWhileStarting();
}

} // namespace ts::test
