#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// What the stand-in Outlook keeps: stores of folders of items. Plain data, without COM.
namespace ts::standin
{

// Values of Outlook's enumerations, with their names there.
inline constexpr long kMailItem = 0;        // olMailItem
inline constexpr long kAppointmentItem = 1; // olAppointmentItem
inline constexpr long kTaskItem = 3;        // olTaskItem
inline constexpr long kBusy = 2;            // olBusy
inline constexpr long kTextProperty = 1;    // olText

using PropertyValue = std::variant<std::wstring, double, bool>;

struct UserProperty
{
    std::wstring name;
    long type = kTextProperty;
    PropertyValue value;

    bool operator==(const UserProperty&) const = default;
};

// olRecursDaily ...; there is no 4.
enum class RecurrenceType : long
{
    Daily = 0,
    Weekly = 1,
    Monthly = 2,
    MonthNth = 3,
    Yearly = 5,
    YearNth = 6
};

/// Dates and times are DATE values: days since 30 December 1899, local time.
struct Recurrence
{
    RecurrenceType type = RecurrenceType::Weekly;
    long interval = 1;
    long dayOfWeekMask = 0;
    long dayOfMonth = 0;
    long monthOfYear = 0;
    long instance = 0;
    double startTime = 0; // without a date
    double endTime = 0;   // without a date
    double patternStartDate = 0;
    std::vector<double> deletedOccurrences = {}; // the starts of those that are gone

    bool operator==(const Recurrence&) const = default;
};

struct Item
{
    long type = kAppointmentItem;
    std::wstring entryId = {}; // empty before the item is saved for the first time
    std::wstring subject = {};
    std::wstring body = {};
    double start = 0;
    double end = 0;
    long busyStatus = kBusy;
    bool reminderSet = true;
    std::vector<UserProperty> userProperties = {};
    std::optional<Recurrence> recurrence = std::nullopt;

    bool operator==(const Item&) const = default;
};

using FolderId = long;

struct Folder
{
    FolderId id = 0;
    std::wstring name;
    long defaultItemType = kMailItem;
    std::vector<Folder> folders;
    std::vector<Item> items;
};

/// Where an item lies. Valid until the calendar changes.
struct Place
{
    Folder* folder = nullptr;
    Item* item = nullptr;
};

/// The stores of one profile. The first one is the default store; a new calendar has it with a calendar
/// folder and a folder of deleted items.
class Calendar
{
  public:
    Calendar();

    /// Each store is its root folder.
    std::vector<Folder> stores;
    FolderId calendarFolder = 0;
    FolderId deletedItems = 0;
    long nextNumber = 1;

    [[nodiscard]] Folder* FindFolder(FolderId id);
    /// Null for a store and for what does not exist.
    [[nodiscard]] Folder* FindParent(FolderId id);
    [[nodiscard]] std::optional<Place> FindItem(std::wstring_view entryId);
    /// The item with a user property of that value, wherever it is but among the deleted ones.
    [[nodiscard]] std::optional<Place> FindByGuid(std::wstring_view guid);

    /// Without a parent: a new store. Throws std::out_of_range when there is no such parent.
    FolderId AddFolder(std::optional<FolderId> parent, std::wstring name, long defaultItemType);
    /// Gives the item an entry id, which is the result. Throws std::out_of_range when there is no such
    /// folder.
    std::wstring AddItem(FolderId folder, Item item);

    /// Throw std::out_of_range when there is no such item or folder. A move answers the new entry id, or the
    /// old one when that is to be kept.
    std::wstring MoveItem(std::wstring_view entryId, FolderId folder, bool keepEntryId);
    void LoseItem(std::wstring_view entryId);
    /// As Outlook does it: first to the folder of deleted items, and from there for good.
    void DeleteItem(std::wstring_view entryId);

  private:
    std::wstring NewEntryId();
};

} // namespace ts::standin
