#include "tests/outlook_standin/Calendar.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <stdexcept>

namespace
{

using ts::standin::Folder;
using ts::standin::FolderId;
using ts::standin::Item;
using ts::standin::Place;

/// The first folder of the tree for which `accept` holds; parents come before their children.
template <typename Accept>
Folder* FirstFolder(std::vector<Folder>& folders, const Accept& accept)
{
    for (Folder& folder : folders)
    {
        if (accept(folder))
        {
            return &folder;
        }
        if (Folder* const found = FirstFolder(folder.folders, accept))
        {
            return found;
        }
    }
    return nullptr;
}

template <typename Accept>
std::optional<Place> FirstItem(std::vector<Folder>& stores, const Accept& accept)
{
    Place place;
    FirstFolder(stores,
                [&](Folder& folder)
                {
                    const auto found = std::find_if(folder.items.begin(), folder.items.end(),
                                                    [&](const Item& item) { return accept(folder, item); });
                    if (found != folder.items.end())
                    {
                        place = {&folder, &*found};
                    }
                    return place.item != nullptr;
                });
    return place.item != nullptr ? std::optional(place) : std::nullopt;
}

bool Carries(const Item& item, std::wstring_view guid)
{
    return std::any_of(item.userProperties.begin(), item.userProperties.end(),
                       [&](const ts::standin::UserProperty& property)
                       {
                           const auto* const text = std::get_if<std::wstring>(&property.value);
                           return text != nullptr && *text == guid;
                       });
}

template <typename Found>
Found Require(Found found)
{
    if (!found)
    {
        throw std::out_of_range("the stand-in's calendar has no such folder or item");
    }
    return found;
}

Item TakeOut(const Place& place)
{
    Item item = std::move(*place.item);
    place.folder->items.erase(place.folder->items.begin() + (place.item - place.folder->items.data()));
    return item;
}

} // namespace

ts::standin::Calendar::Calendar()
{
    const FolderId store = AddFolder(std::nullopt, L"Default store", kMailItem);
    deletedItems = AddFolder(store, L"Deleted Items", kMailItem);
    calendarFolder = AddFolder(store, L"Calendar", kAppointmentItem);
}

Folder* ts::standin::Calendar::FindFolder(FolderId id)
{
    return FirstFolder(stores, [&](const Folder& folder) { return folder.id == id; });
}

Folder* ts::standin::Calendar::FindParent(FolderId id)
{
    return FirstFolder(stores,
                       [&](const Folder& folder)
                       {
                           return std::any_of(folder.folders.begin(), folder.folders.end(),
                                              [&](const Folder& child) { return child.id == id; });
                       });
}

std::optional<Place> ts::standin::Calendar::FindItem(std::wstring_view entryId)
{
    return FirstItem(stores, [&](const Folder&, const Item& item) { return item.entryId == entryId; });
}

std::optional<Place> ts::standin::Calendar::FindByGuid(std::wstring_view guid)
{
    return FirstItem(stores, [&](const Folder& folder, const Item& item)
                     { return folder.id != deletedItems && Carries(item, guid); });
}

FolderId ts::standin::Calendar::AddFolder(std::optional<FolderId> parent, std::wstring name,
                                          long defaultItemType)
{
    std::vector<Folder>& siblings = parent ? Require(FindFolder(*parent))->folders : stores;
    siblings.push_back({nextNumber++, std::move(name), defaultItemType, {}, {}});
    return siblings.back().id;
}

std::wstring ts::standin::Calendar::AddItem(FolderId folder, Item item)
{
    Folder& home = *Require(FindFolder(folder));
    item.entryId = NewEntryId();
    home.items.push_back(std::move(item));
    return home.items.back().entryId;
}

std::wstring ts::standin::Calendar::MoveItem(std::wstring_view entryId, FolderId folder, bool keepEntryId)
{
    Folder& home = *Require(FindFolder(folder));
    Item item = TakeOut(*Require(FindItem(entryId)));
    if (!keepEntryId)
    {
        item.entryId = NewEntryId();
    }
    home.items.push_back(std::move(item));
    return home.items.back().entryId;
}

void ts::standin::Calendar::LoseItem(std::wstring_view entryId)
{
    TakeOut(*Require(FindItem(entryId)));
}

void ts::standin::Calendar::DeleteItem(std::wstring_view entryId)
{
    if (Require(FindItem(entryId))->folder->id == deletedItems)
    {
        LoseItem(entryId);
    }
    else
    {
        MoveItem(entryId, deletedItems, true);
    }
}

std::wstring ts::standin::Calendar::NewEntryId()
{
    // As long as Outlook's, in hexadecimal digits.
    std::array<wchar_t, 49> text{};
    std::swprintf(text.data(), text.size(), L"00000000%032X%08lX", 0x57A2D12U, nextNumber++);
    return text.data();
}
