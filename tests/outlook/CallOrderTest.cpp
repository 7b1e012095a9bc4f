// The calls of each operation, in their order.

#include "module/LanguageText.h"
#include "outlook/OutlookAppointments.h"
#include "resources/StringIds.h"
#include "tests/outlook/OutlookTest.h"

namespace ts::test
{
namespace
{

const Texts kBegin = {L"activate Application.", L"call Application.GetNamespace \"MAPI\""};
const Texts kFindByEntry = {L"call Namespace.GetItemFromID \"ENTRY\"",
                            L"get Appointment.Parent",
                            L"get Folder.DefaultItemType",
                            L"get Appointment.UserProperties",
                            L"get UserProperties.Count",
                            L"call UserProperties.Item 1",
                            L"get UserProperty.Value"};
// The folder of deleted items comes first in the stand-in's store.
const Texts kSearchUpToTheCalendar = {L"call Namespace.GetDefaultFolder 9",
                                      L"get Folder.Parent",
                                      L"get Folder.Folders",
                                      L"get Folders.Count",
                                      L"call Folders.Item 1",
                                      L"get Folder.DefaultItemType",
                                      L"get Folder.Folders",
                                      L"get Folders.Count",
                                      L"call Folders.Item 2",
                                      L"get Folder.DefaultItemType",
                                      L"get Folder.Items",
                                      L"get Items.Count"};
const Texts kFindBySearch =
    Join({kSearchUpToTheCalendar,
          {L"call Items.Item 1", L"get Appointment.UserProperties", L"get UserProperties.Count",
           L"call UserProperties.Item 1", L"get UserProperty.Value"}});
const Texts kReadPattern = {
    L"get Appointment.IsRecurring",         L"call Appointment.GetRecurrencePattern",
    L"get RecurrencePattern.Interval",      L"get RecurrencePattern.RecurrenceType",
    L"get RecurrencePattern.DayOfWeekMask", L"get RecurrencePattern.DayOfMonth",
    L"get RecurrencePattern.MonthOfYear",   L"get RecurrencePattern.Instance",
};

/// An add, around what it does about recurrence.
Texts AddCalls(const Texts& recurrence)
{
    const CString body = FormatText(IDS_APPOINTMENT_BODY, L"A map", L"C:\\maps\\a.map");
    return Join({{L"call Application.CreateItem 1", L"put Appointment.Subject \"Call back\"",
                  L"put Appointment.ReminderSet false",
                  std::wstring(L"put Appointment.Body \"") + body.GetString() + L"\"",
                  L"call Appointment.ClearRecurrencePattern"},
                 recurrence,
                 {L"put Appointment.Start 2026-11-26 10:00:00", L"put Appointment.End 2026-11-26 10:00:00",
                  L"get Appointment.UserProperties", L"put Appointment.BusyStatus 0",
                  L"call UserProperties.Add \"OutlookTicklerItemGuid\", 1, true, 1",
                  L"put UserProperty.Value \"GUID\"", L"call Appointment.Save", L"call Appointment.Close 0",
                  L"get Appointment.EntryID"}});
}

class CallOrderTest : public OutlookTest
{
  protected:
    void ExpectCalls(const CcvReminderData& record, std::initializer_list<Texts> expected)
    {
        EXPECT_EQ("", Difference(Join(expected), TakeCalls(record)));
    }
};

} // namespace

TEST_F(CallOrderTest, Add_OfAOneTimeReminder)
{
    CcvReminderData record = OneTimeRecord();
    AddAppointmentToOutlook(record);
    ExpectCalls(record, {kBegin, AddCalls({L"get Appointment.IsRecurring"})});
}

TEST_F(CallOrderTest, Add_OfARecurringReminder)
{
    CcvReminderData record = DailyRecord();
    AddAppointmentToOutlook(record);
    ExpectCalls(
        record,
        {kBegin, AddCalls(Join({kReadPattern,
                                {L"put RecurrencePattern.RecurrenceType 0",
                                 L"put RecurrencePattern.Interval 3", L"get RecurrencePattern.StartTime",
                                 L"put RecurrencePattern.StartTime 1899-12-30 10:00:00",
                                 L"put RecurrencePattern.EndTime 1899-12-30 10:00:00",
                                 L"put RecurrencePattern.PatternStartDate 2026-11-26 00:00:00"}}))});
}

TEST_F(CallOrderTest, Modify_OfAnUnchangedOneTimeReminder_DoesNotSave)
{
    CcvReminderData record = Mirror(OneTimeRecord());
    ModifyAppointmentInOutlook(record);
    ExpectCalls(record,
                {kBegin,
                 kFindByEntry,
                 {L"get Appointment.Subject", L"get Appointment.IsRecurring", L"get Appointment.Start"}});
}

TEST_F(CallOrderTest, Modify_OfAChangedOneTimeReminder_WritesAndSaves)
{
    CcvReminderData record = Mirror(OneTimeRecord());
    record.SetSubject(L"Write");
    record.SetInitialDueDate(CTime(2026, 12, 1, 8, 30, 15));
    ModifyAppointmentInOutlook(record);
    ExpectCalls(record, {kBegin,
                         kFindByEntry,
                         {L"get Appointment.Subject", L"put Appointment.Subject \"Write\"",
                          L"get Appointment.IsRecurring", L"get Appointment.Start",
                          L"put Appointment.Start 2026-12-01 08:30:15", L"call Appointment.Save"}});
}

TEST_F(CallOrderTest, Modify_OfASubjectOnly_WritesItAndSaves)
{
    CcvReminderData record = Mirror(OneTimeRecord());
    record.SetSubject(L"call back");
    ModifyAppointmentInOutlook(record);
    ExpectCalls(record,
                {kBegin,
                 kFindByEntry,
                 {L"get Appointment.Subject", L"put Appointment.Subject \"call back\"",
                  L"get Appointment.IsRecurring", L"get Appointment.Start", L"call Appointment.Save"}});
}

TEST_F(CallOrderTest, Modify_OfAnUnchangedRecurringReminder_WritesItsTimesAndSaves)
{
    CcvReminderData record = Mirror(DailyRecord());
    ModifyAppointmentInOutlook(record);
    ExpectCalls(record,
                {kBegin,
                 kFindByEntry,
                 {L"get Appointment.Subject"},
                 kReadPattern,
                 {L"get RecurrencePattern.StartTime", L"put RecurrencePattern.StartTime 1899-12-30 10:00:00",
                  L"put RecurrencePattern.PatternStartDate 2026-11-26 00:00:00", L"call Appointment.Save"}});
}

TEST_F(CallOrderTest, Modify_ToAOneTimeReminder_ClearsThePatternAndSaves)
{
    CcvReminderData record = Mirror(DailyRecord());
    record.SetRecurrenceType(EcvReminderRecurrenceType::None);
    ModifyAppointmentInOutlook(record);
    ExpectCalls(record, {kBegin,
                         kFindByEntry,
                         {L"get Appointment.Subject", L"get Appointment.IsRecurring",
                          L"call Appointment.ClearRecurrencePattern", L"get Appointment.Start",
                          L"call Appointment.Save"}});
}

TEST_F(CallOrderTest, Modify_OfALostAppointment_AddsAnother)
{
    CcvReminderData record = OneTimeRecord();
    record.SetOutlookObjectGuid(L"{lost}");
    record.SetOutlookEntryId(L"00");
    ModifyAppointmentInOutlook(record);
    ExpectCalls(record, {kBegin,
                         {L"call Namespace.GetItemFromID \"00\""},
                         kSearchUpToTheCalendar,
                         {L"get Folder.Folders", L"get Folders.Count"},
                         kBegin,
                         AddCalls({L"get Appointment.IsRecurring"})});
}

TEST_F(CallOrderTest, Remove_ByEntryId)
{
    const CcvReminderData record = Mirror(OneTimeRecord());
    RemoveAppointmentFromOutlook(record);
    ExpectCalls(record, {kBegin, kFindByEntry, {L"call Appointment.Delete"}});
}

TEST_F(CallOrderTest, Remove_WithoutAnEntryId_Searches)
{
    CcvReminderData record = Mirror(OneTimeRecord());
    record.SetOutlookEntryId(L"");
    RemoveAppointmentFromOutlook(record);
    ExpectCalls(record, {kBegin, kFindBySearch, {L"call Appointment.Delete"}});
}

TEST_F(CallOrderTest, Remove_AfterTheItemMoved_AsksForTheEntryFirst)
{
    CcvReminderData record = Mirror(OneTimeRecord());
    record.SetOutlookEntryId(L"00");
    RemoveAppointmentFromOutlook(record);
    ExpectCalls(
        record,
        {kBegin, {L"call Namespace.GetItemFromID \"ENTRY\""}, kFindBySearch, {L"call Appointment.Delete"}});
}

TEST_F(CallOrderTest, Dismiss_OfARecurringReminder_DeletesTheOccurrence)
{
    const CcvReminderData record = Mirror(DailyRecord());
    DismissOccurrenceInOutlook(record, CTime(2026, 11, 29, 10, 0, 0));
    ExpectCalls(record,
                {kBegin,
                 kFindByEntry,
                 {L"get Appointment.IsRecurring", L"call Appointment.GetRecurrencePattern",
                  L"call RecurrencePattern.GetOccurrence 2026-11-29 10:00:00", L"call Occurrence.Delete"}});
}

TEST_F(CallOrderTest, Dismiss_OfAOneTimeReminder_ChangesNothing)
{
    const CcvReminderData record = Mirror(OneTimeRecord());
    DismissOccurrenceInOutlook(record, Due());
    ExpectCalls(record, {kBegin, kFindByEntry, {L"get Appointment.IsRecurring"}});
}

TEST_F(CallOrderTest, Display_LeavesTheModalArgumentOut)
{
    const CcvReminderData record = Mirror(OneTimeRecord());
    EXPECT_TRUE(DisplayOutlookAppointment(record));
    ExpectCalls(record, {kBegin, kFindByEntry, {L"call Appointment.Display"}});
}

} // namespace ts::test
