// A module that uses the library as a host does, so that a test can load and unload both.

#include "TsServiceUtilities.h"

/// Asks the library for a German text, an option and a recurring due time; true when all was answered.
extern "C" __declspec(dllexport) bool UseLibrary()
{
    CcvReminderData record{CString(L"{user-0}")};
    record.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
    record.SetDailyRecurrenceNumber(1);
    record.SetNextDueDate(CTime(2026, 11, 1, 9, 0, 0));
    const CTime now(2026, 11, 21, 10, 0, 0);
    ts::SetInterfaceLanguage(L"de");
    const CString dueIn = CcvReminderDataUtilities::GetDueInString(&record, now);
    ts::SetInterfaceLanguage(nullptr);
    return dueIn == L"Seit 1 Stunde \x00FC"
                    L"berf\x00E4llig" &&
           CcvReminderOptionUtilities::GetPlaySoundWithTickler() &&
           record.GetNextDueDate() == CTime(2026, 11, 21, 9, 0, 0);
}
