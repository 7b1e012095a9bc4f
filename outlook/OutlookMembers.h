#pragma once

#include "outlook/AutomationMember.h"

/// What the library uses of Outlook's object model.
namespace ts::outlook
{

// {0006F03A-0000-0000-C000-000000000046} and so on: all identities of Outlook differ in their first number
// only.
[[nodiscard]] constexpr GUID OutlookIdentity(unsigned long first) noexcept
{
    return {first, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
}
inline constexpr CLSID kApplicationClass = OutlookIdentity(0x0006F03A);
inline constexpr IID kApplicationInterface = OutlookIdentity(0x00063001);
inline constexpr IID kAppointmentInterface = OutlookIdentity(0x00063033);
inline constexpr IID kFolderInterface = OutlookIdentity(0x00063006);

// Values of Outlook's enumerations, with their names there.
inline constexpr long kAppointmentItem = 1; // olAppointmentItem
inline constexpr long kFolderCalendar = 9;  // olFolderCalendar
inline constexpr long kFree = 0;            // olFree
inline constexpr long kSave = 0;            // olSave
inline constexpr long kText = 1;            // olText
inline constexpr long kRecursDaily = 0;     // olRecursDaily
inline constexpr long kRecursWeekly = 1;    // olRecursWeekly
inline constexpr long kRecursMonthly = 2;   // olRecursMonthly
inline constexpr long kRecursMonthNth = 3;  // olRecursMonthNth
inline constexpr long kRecursYearly = 5;    // olRecursYearly
inline constexpr long kRecursYearNth = 6;   // olRecursYearNth

using Member = const AutomationMember;

/// Members of one kind of collection. Indices count from 1.
struct CollectionMembers
{
    AutomationMember count{L"Count"};
    AutomationMember item{L"Item"};
};
using Collection = const CollectionMembers;

inline constinit Collection kFolders;
inline constinit Collection kItems;
inline constinit Collection kUserProperties;

namespace application
{
inline constinit Member kGetNamespace(L"GetNamespace");
inline constinit Member kCreateItem(L"CreateItem");
} // namespace application

namespace session
{
inline constinit Member kGetItemFromId(L"GetItemFromID");
inline constinit Member kGetDefaultFolder(L"GetDefaultFolder");
} // namespace session

namespace folder
{
inline constinit Member kParent(L"Parent");
inline constinit Member kFolders(L"Folders");
inline constinit Member kItems(L"Items");
inline constinit Member kDefaultItemType(L"DefaultItemType");
} // namespace folder

namespace appointment
{
inline constinit Member kParent(L"Parent");
inline constinit Member kEntryId(L"EntryID");
inline constinit Member kSubject(L"Subject");
inline constinit Member kBody(L"Body");
inline constinit Member kStart(L"Start");
inline constinit Member kEnd(L"End");
inline constinit Member kBusyStatus(L"BusyStatus");
inline constinit Member kReminderSet(L"ReminderSet");
inline constinit Member kIsRecurring(L"IsRecurring");
inline constinit Member kUserProperties(L"UserProperties");
inline constinit Member kGetRecurrencePattern(L"GetRecurrencePattern");
inline constinit Member kClearRecurrencePattern(L"ClearRecurrencePattern");
inline constinit Member kSave(L"Save");
inline constinit Member kClose(L"Close");
inline constinit Member kDelete(L"Delete");
inline constinit Member kDisplay(L"Display");
} // namespace appointment

namespace userProperties
{
inline constinit Member kAdd(L"Add");
} // namespace userProperties

namespace userProperty
{
inline constinit Member kValue(L"Value");
} // namespace userProperty

namespace recurrence
{
inline constinit Member kRecurrenceType(L"RecurrenceType");
inline constinit Member kInterval(L"Interval");
inline constinit Member kDayOfWeekMask(L"DayOfWeekMask");
inline constinit Member kDayOfMonth(L"DayOfMonth");
inline constinit Member kMonthOfYear(L"MonthOfYear");
inline constinit Member kInstance(L"Instance");
inline constinit Member kStartTime(L"StartTime");
inline constinit Member kEndTime(L"EndTime");
inline constinit Member kPatternStartDate(L"PatternStartDate");
inline constinit Member kGetOccurrence(L"GetOccurrence");
} // namespace recurrence

} // namespace ts::outlook
