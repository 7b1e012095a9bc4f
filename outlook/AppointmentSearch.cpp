#include "outlook/AppointmentSearch.h"

#include "module/CcvComException.h"
#include "outlook/OutlookMembers.h"

#include <cstdint>
#include <type_traits>

namespace
{

using ts::AutomationObject;
using ts::outlook::CollectionMembers;
using OptionalObject = std::optional<AutomationObject>;

// A store that is damaged so that a folder contains itself must not exhaust the stack. No store lets folders
// be nested as deep.
constexpr int kMaximumDepth = 300;

/// What `visit` says to the first object of the collection to which it says something; nothing or false else.
template <typename Visit>
auto FindFirst(const AutomationObject& collection, const CollectionMembers& members, const Visit& visit)
{
    using Found = std::invoke_result_t<Visit, const AutomationObject&>;
    const std::int64_t count = collection.GetLong(members.count);
    for (std::int64_t index = 1; index <= count; ++index)
    {
        const AutomationObject object =
            collection.CallForObject(members.item, {ts::LongValue(static_cast<long>(index))});
        if (Found found = visit(object))
        {
            return found;
        }
    }
    return Found{};
}

bool IsCalendar(const AutomationObject& folder)
{
    return folder.GetLong(ts::outlook::folder::kDefaultItemType) == ts::outlook::kAppointmentItem;
}

OptionalObject TryGetItem(const AutomationObject& session, const CString& entryId)
{
    try
    {
        return session.CallForObject(ts::outlook::session::kGetItemFromId, {ts::TextValue(entryId)});
    }
    catch (const CcvComException&)
    {
        // The item was moved or deleted.
        return std::nullopt;
    }
}

OptionalObject FindByEntryId(const CString& objectGuid, const CString& entryId,
                             const AutomationObject& session)
{
    if (entryId.IsEmpty())
    {
        return std::nullopt;
    }
    const OptionalObject entry = TryGetItem(session, entryId);
    if (!entry)
    {
        return std::nullopt;
    }
    const AutomationObject item = entry->Query(ts::outlook::kAppointmentInterface);
    const AutomationObject folder =
        item.GetChild(ts::outlook::appointment::kParent).Query(ts::outlook::kFolderInterface);
    return IsCalendar(folder) && ts::ItemCarriesGuid(objectGuid, item) ? OptionalObject(item) : std::nullopt;
}

OptionalObject SearchItems(const AutomationObject& folder, const CString& objectGuid)
{
    const auto carries = [&](const AutomationObject& entry)
    {
        const AutomationObject item = entry.Query(ts::outlook::kAppointmentInterface);
        return ts::ItemCarriesGuid(objectGuid, item) ? OptionalObject(item) : std::nullopt;
    };
    return FindFirst(folder.GetChild(ts::outlook::folder::kItems), ts::outlook::kItems, carries);
}

/// Searches the folders in `parent`, which are `depth` levels below the store's root, with all below them.
OptionalObject SearchFolders(const AutomationObject& parent, const CString& objectGuid, int depth)
{
    if (depth > kMaximumDepth)
    {
        return std::nullopt;
    }
    const auto search = [&](const AutomationObject& entry)
    {
        const AutomationObject folder = entry.Query(ts::outlook::kFolderInterface);
        const OptionalObject item = IsCalendar(folder) ? SearchItems(folder, objectGuid) : std::nullopt;
        return item ? item : SearchFolders(folder, objectGuid, depth + 1);
    };
    return FindFirst(parent.GetChild(ts::outlook::folder::kFolders), ts::outlook::kFolders, search);
}

OptionalObject FindInDefaultStore(const CString& objectGuid, const AutomationObject& session)
{
    const AutomationObject calendar = session.CallForObject(ts::outlook::session::kGetDefaultFolder,
                                                            {ts::LongValue(ts::outlook::kFolderCalendar)});
    const AutomationObject root =
        calendar.GetChild(ts::outlook::folder::kParent).Query(ts::outlook::kFolderInterface);
    return SearchFolders(root, objectGuid, 1);
}

} // namespace

bool ts::ItemCarriesGuid(const CString& objectGuid, const AutomationObject& item)
{
    const auto isGuid = [&](const AutomationObject& property)
    { return property.GetText(outlook::userProperty::kValue) == objectGuid; };
    return FindFirst(item.GetChild(outlook::appointment::kUserProperties), outlook::kUserProperties, isGuid);
}

std::optional<ts::AutomationObject> ts::FindOutlookAppointment(const CString& objectGuid,
                                                               const CString& entryId,
                                                               const AutomationObject& session)
{
    const OptionalObject item = FindByEntryId(objectGuid, entryId, session);
    return item ? item : FindInDefaultStore(objectGuid, session);
}
