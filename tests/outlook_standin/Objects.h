#pragma once

#include "tests/outlook_standin/AutomationBase.h"

#include <optional>

/// The kinds of objects of Outlook's object model that the stand-in has.
namespace ts::standin
{

/// What the objects that belong to one item share: the item with the changes that were not saved yet.
struct Draft
{
    Item item;
    bool changed = false;
    bool patternChanged = false;
    bool deleted = false;
};
using DraftPtr = std::shared_ptr<Draft>;

class ApplicationObject : public AutomationBase
{
  public:
    explicit ApplicationObject(std::shared_ptr<Server> server);
};

class NamespaceObject : public AutomationBase
{
  public:
    explicit NamespaceObject(std::shared_ptr<Server> server);
};

class FolderObject : public AutomationBase
{
  public:
    FolderObject(std::shared_ptr<Server> server, FolderId id);
    /// What `look` makes of the folder. Throws CallError when the folder is gone.
    template <typename Look>
    auto Read(const Look& look)
    {
        return GetServer()->Read([&](Calendar& calendar) { return look(Require(calendar)); });
    }
    _variant_t GetParent();
    [[nodiscard]] FolderId GetId() const noexcept { return m_id; }

  private:
    Folder& Require(Calendar& calendar) const;
    FolderId m_id;
};

/// The folders in a folder, or the stores.
class FoldersObject : public AutomationBase
{
  public:
    FoldersObject(std::shared_ptr<Server> server, std::optional<FolderId> parent);
    [[nodiscard]] std::vector<FolderId> List();

  private:
    std::optional<FolderId> m_parent;
};

class ItemsObject : public AutomationBase
{
  public:
    ItemsObject(std::shared_ptr<Server> server, FolderId folder);
    [[nodiscard]] std::vector<Item> List();

  private:
    FolderId m_folder;
};

/// A mail, a task or another item that is no appointment.
class OtherItemObject : public AutomationBase
{
  public:
    OtherItemObject(std::shared_ptr<Server> server, DraftPtr draft);
    Draft& GetDraft() { return *m_draft; }
    [[nodiscard]] const DraftPtr& ShareDraft() const noexcept { return m_draft; }

  private:
    DraftPtr m_draft;
};

class AppointmentObject : public AutomationBase
{
  public:
    AppointmentObject(std::shared_ptr<Server> server, DraftPtr draft);
    [[nodiscard]] const DraftPtr& ShareDraft() const noexcept { return m_draft; }
    /// The item to read from. Throws CallError once it was deleted through this object.
    [[nodiscard]] Item& Look();
    /// The item to change.
    [[nodiscard]] Item& Change();

    void SetStart(double start);
    void SetEnd(double end);
    _variant_t GetRecurrencePattern();
    void ClearRecurrencePattern();
    void Save();
    void Close(long mode);
    void Delete();
    /// Shows nothing; the log tells that it was asked for.
    void Display() { RequirePresent(); }

  private:
    void RequirePresent() const;
    void Store(Calendar& calendar);
    DraftPtr m_draft;
};

class UserPropertiesObject : public AutomationBase
{
  public:
    UserPropertiesObject(std::shared_ptr<Server> server, DraftPtr draft);
    [[nodiscard]] std::vector<UserProperty>& List() { return m_draft->item.userProperties; }
    _variant_t Item(const VARIANT& index);
    _variant_t Find(const std::wstring& name);
    _variant_t Add(const Arguments& arguments);

  private:
    _variant_t At(std::size_t index);
    DraftPtr m_draft;
};

class UserPropertyObject : public AutomationBase
{
  public:
    UserPropertyObject(std::shared_ptr<Server> server, DraftPtr draft, std::size_t index);
    [[nodiscard]] UserProperty& Get() { return m_draft->item.userProperties.at(m_index); }
    void SetValue(const VARIANT& value);

  private:
    DraftPtr m_draft;
    std::size_t m_index;
};

class RecurrencePatternObject : public AutomationBase
{
  public:
    RecurrencePatternObject(std::shared_ptr<Server> server, DraftPtr draft);
    /// Throws CallError when the item's recurrence was cleared.
    [[nodiscard]] Recurrence& Get();
    /// Replaces the pattern, and moves the item accordingly.
    void Set(const Recurrence& recurrence);
    _variant_t GetOccurrence(double start);

  private:
    DraftPtr m_draft;
};

/// One occurrence of a recurring appointment.
class OccurrenceObject : public AutomationBase
{
  public:
    OccurrenceObject(std::shared_ptr<Server> server, DraftPtr master, double start);
    [[nodiscard]] const DraftPtr& ShareMaster() const noexcept { return m_master; }
    [[nodiscard]] double GetStart() const noexcept { return m_start; }
    void Delete();

  private:
    DraftPtr m_master;
    double m_start;
};

/// A new object for a stored or new item, of the kind that fits its type.
[[nodiscard]] _variant_t FromItem(const std::shared_ptr<Server>& server, Item item);
[[nodiscard]] _variant_t NewItem(const std::shared_ptr<Server>& server, long type);
/// The folder of a stored item, or the one into which a new item will be saved.
[[nodiscard]] _variant_t ParentOf(const std::shared_ptr<Server>& server, const Item& item);

/// Element `index`, counted from 1, of a list. Throws CallError when there is none.
template <typename List>
auto& ElementAt(List& list, const VARIANT& index)
{
    const long number = LongOf(index);
    if (number < 1 || static_cast<std::size_t>(number) > list.size())
    {
        throw CallError(DISP_E_BADINDEX, "Array index out of bounds.");
    }
    return list[static_cast<std::size_t>(number - 1)];
}

} // namespace ts::standin
