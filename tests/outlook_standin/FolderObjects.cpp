#include "tests/outlook_standin/Objects.h"

#include <cguid.h>

namespace
{

using namespace ts::standin;

[[noreturn]] void FailGone()
{
    throw CallError(kNotFound, "The folder is gone.");
}

std::vector<FolderId> IdsOf(const std::vector<Folder>& folders)
{
    std::vector<FolderId> ids;
    for (const Folder& folder : folders)
    {
        ids.push_back(folder.id);
    }
    return ids;
}

const Kind& FolderKind()
{
    using Object = FolderObject;
    static const Kind kind{
        L"Folder",
        0x300,
        kFolderInterface,
        {{.name = L"Name",
          .get = GetOf<Object, [](Object& self)
                       { return FromText(self.Read([](const Folder& folder) { return folder.name; })); }>},
         {.name = L"DefaultItemType",
          .get = GetOf<Object,
                       [](Object& self) {
                           return FromLong(
                               self.Read([](const Folder& folder) { return folder.defaultItemType; }));
                       }>},
         {.name = L"Parent", .get = GetOf<Object, [](Object& self) { return self.GetParent(); }>},
         {.name = L"Folders",
          .get = GetOf<Object, [](Object& self)
                       { return FromObject<FoldersObject>(self.GetServer(), std::optional(self.GetId())); }>},
         {.name = L"Items", .get = GetOf<Object, [](Object& self) {
                                return FromObject<ItemsObject>(self.GetServer(), self.GetId());
                            }>}}};
    return kind;
}

_variant_t FolderAt(FoldersObject& self, const Arguments& arguments)
{
    const std::vector<FolderId> ids = self.List();
    return FromObject<FolderObject>(self.GetServer(), ElementAt(ids, arguments[0]));
}

const Kind& FoldersKind()
{
    using Object = FoldersObject;
    static const Kind kind{
        L"Folders",
        0x400,
        IID_NULL,
        {{.name = L"Count",
          .get = GetOf<Object, [](Object& self) { return FromLong(static_cast<long>(self.List().size())); }>},
         {.name = L"Item", .call = CallOf<Object, FolderAt>}}};
    return kind;
}

_variant_t ItemAt(ItemsObject& self, const Arguments& arguments)
{
    const std::vector<Item> items = self.List();
    return FromItem(self.GetServer(), ElementAt(items, arguments[0]));
}

const Kind& ItemsKind()
{
    using Object = ItemsObject;
    static const Kind kind{
        L"Items",
        0x500,
        IID_NULL,
        {{.name = L"Count",
          .get = GetOf<Object, [](Object& self) { return FromLong(static_cast<long>(self.List().size())); }>},
         {.name = L"Item", .call = CallOf<Object, ItemAt>}}};
    return kind;
}

} // namespace

ts::standin::FolderObject::FolderObject(std::shared_ptr<Server> server, FolderId id)
    : AutomationBase(std::move(server), FolderKind()), m_id(id)
{
}

_variant_t ts::standin::FolderObject::GetParent()
{
    const auto parent = GetServer()->Read(
        [&](Calendar& calendar)
        {
            const Folder* const folder = calendar.FindParent(m_id);
            return folder != nullptr ? std::optional(folder->id) : std::nullopt;
        });
    return parent ? FromObject<FolderObject>(GetServer(), *parent) : FromObject<NamespaceObject>(GetServer());
}

ts::standin::Folder& ts::standin::FolderObject::Require(Calendar& calendar) const
{
    Folder* const folder = calendar.FindFolder(m_id);
    if (folder == nullptr)
    {
        FailGone();
    }
    return *folder;
}

ts::standin::FoldersObject::FoldersObject(std::shared_ptr<Server> server, std::optional<FolderId> parent)
    : AutomationBase(std::move(server), FoldersKind()), m_parent(parent)
{
}

std::vector<ts::standin::FolderId> ts::standin::FoldersObject::List()
{
    return GetServer()->Read(
        [&](Calendar& calendar)
        {
            if (!m_parent)
            {
                return IdsOf(calendar.stores);
            }
            const Folder* const parent = calendar.FindFolder(*m_parent);
            return parent != nullptr ? IdsOf(parent->folders) : (FailGone(), std::vector<FolderId>{});
        });
}

ts::standin::ItemsObject::ItemsObject(std::shared_ptr<Server> server, FolderId folder)
    : AutomationBase(std::move(server), ItemsKind()), m_folder(folder)
{
}

std::vector<ts::standin::Item> ts::standin::ItemsObject::List()
{
    return GetServer()->Read(
        [&](Calendar& calendar)
        {
            const Folder* const folder = calendar.FindFolder(m_folder);
            return folder != nullptr ? folder->items : (FailGone(), std::vector<Item>{});
        });
}
