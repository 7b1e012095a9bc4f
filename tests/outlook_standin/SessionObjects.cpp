#include "tests/outlook_standin/Objects.h"

#include <cguid.h>

namespace
{

using namespace ts::standin;

constexpr long kFolderDeletedItems = 3; // olFolderDeletedItems
constexpr long kFolderCalendar = 9;     // olFolderCalendar

_variant_t GetNamespace(AutomationBase& self, const Arguments& arguments)
{
    if (TextOf(arguments[0]) != L"MAPI")
    {
        throw CallError(E_INVALIDARG, "The only namespace is MAPI.");
    }
    return FromObject<NamespaceObject>(self.GetServer());
}

_variant_t CreateItem(AutomationBase& self, const Arguments& arguments)
{
    return NewItem(self.GetServer(), LongOf(arguments[0]));
}

_variant_t GetItemFromId(AutomationBase& self, const Arguments& arguments)
{
    const std::wstring entryId = TextOf(arguments[0]);
    Item item = self.GetServer()->Read(
        [&](Calendar& calendar)
        {
            const std::optional<Place> place = calendar.FindItem(entryId);
            if (!place)
            {
                throw CallError(kNotFound, "The operation failed. An object could not be found.");
            }
            return *place->item;
        });
    return FromItem(self.GetServer(), std::move(item));
}

_variant_t GetDefaultFolder(AutomationBase& self, const Arguments& arguments)
{
    const long which = LongOf(arguments[0]);
    const FolderId id = self.GetServer()->Read(
        [&](const Calendar& calendar)
        {
            return which == kFolderCalendar       ? calendar.calendarFolder
                   : which == kFolderDeletedItems ? calendar.deletedItems
                                                  : 0;
        });
    if (id == 0)
    {
        throw CallError(E_INVALIDARG, "The stand-in has no such default folder.");
    }
    return FromObject<FolderObject>(self.GetServer(), id);
}

_variant_t GetStores(AutomationBase& self, const Arguments&)
{
    return FromObject<FoldersObject>(self.GetServer(), std::nullopt);
}

const Kind& ApplicationKind()
{
    static const Kind kind{
        L"Application",
        0x100,
        kApplicationInterface,
        {{.name = L"GetNamespace", .call = GetNamespace}, {.name = L"CreateItem", .call = CreateItem}}};
    return kind;
}

const Kind& NamespaceKind()
{
    static const Kind kind{L"Namespace",
                           0x200,
                           IID_NULL,
                           {{.name = L"GetItemFromID", .call = GetItemFromId},
                            {.name = L"GetDefaultFolder", .call = GetDefaultFolder},
                            {.name = L"Folders", .get = GetStores}}};
    return kind;
}

} // namespace

ts::standin::ApplicationObject::ApplicationObject(std::shared_ptr<Server> server)
    : AutomationBase(std::move(server), ApplicationKind())
{
}

ts::standin::NamespaceObject::NamespaceObject(std::shared_ptr<Server> server)
    : AutomationBase(std::move(server), NamespaceKind())
{
}
