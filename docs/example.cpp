#include "TsServiceUtilities.h"

#include <cstdio>

int main()
{
    const CString map = L"{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}";
    CcvReminderData reminder(CcvReminderDataUtilities::GenerateUniqueReminderKey(ts::kRemindersPath, map));
    reminder.SetDocumentPath(L"C:\\maps\\plan.map");
    reminder.SetMapGuid(map);
    reminder.SetObjectGuid(L"{0A9E44C2-7B1D-4E55-8C90-1F2E3D4C5B6A}");
    reminder.SetSubject(L"Send the report");
    reminder.SetReminderTimeSpan(CTimeSpan(900)); // a quarter of an hour before
    reminder.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
    reminder.SetDailyOccurenceType(EcvReminderDailyOccurence::EveryWeekday);

    const CTime start(2026, 11, 21, 9, 0, 0); // local time, a Saturday
    reminder.SetInitialDueDate(
        CcvReminderDataUtilities::CalculateInitialDailyRecurrentDueTime(start, &reminder));
    reminder.SetNextDueDate(reminder.GetInitialDueDate());

    const CTime now(2026, 11, 26, 8, 50, 0);
    const CTime due = reminder.GetCalculatedDueTime(now); // Thursday, 9:00
    const CString text = CcvReminderDataUtilities::GetDueInString(&reminder, now);
    std::printf("%d-%02d-%02d: %ls\n", due.GetYear(), due.GetMonth(), due.GetDay(), text.GetString());
    const bool kept = reminder.SaveDataToRegistry(ts::kRemindersPath);
    return kept && reminder.DeleteDataFromRegistry(ts::kRemindersPath) ? 0 : 1;
}
