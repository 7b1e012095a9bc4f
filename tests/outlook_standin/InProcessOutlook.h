#pragma once

#include "tests/outlook_standin/Server.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace ts::standin
{

enum class Apartment
{
    /// Clients on the thread that makes the stand-in reach its objects directly. Other threads do not reach
    /// it, and neither do other tests that run at the same time.
    CallersThread,
    /// The objects live on a thread of their own, and calls to them are marshalled. Everything in the Wine
    /// prefix reaches them, so such a test needs a prefix of its own (ts_own_prefix).
    OwnThread
};

/// Stands in for Outlook inside the test's own process, for as long as it lives: what creates Outlook's
/// application as a local server gets the stand-in's. A test double; nothing of Outlook is involved.
class InProcessOutlook
{
  public:
    /// With a folder, or with one named by the environment variable TS_OUTLOOK_STANDIN, the calendar is kept
    /// in a file there; else in memory only. Enters a single-threaded apartment when the thread is in none.
    /// Throws std::runtime_error.
    explicit InProcessOutlook(Apartment apartment = Apartment::CallersThread,
                              std::filesystem::path folder = {});
    InProcessOutlook(const InProcessOutlook&) = delete;
    InProcessOutlook& operator=(const InProcessOutlook&) = delete;
    ~InProcessOutlook();

    // The calendar. A new one has a default store with a calendar and a folder of deleted items. Throw
    // std::out_of_range for folders and items that do not exist.
    [[nodiscard]] Calendar GetCalendar();
    FolderId MakeStore(std::wstring name);
    FolderId MakeFolder(FolderId parent, std::wstring name, long defaultItemType = kAppointmentItem);
    /// Answers the entry id.
    std::wstring MakeItem(FolderId folder, Item item);
    [[nodiscard]] FolderId GetDefaultStore();
    [[nodiscard]] FolderId GetCalendarFolder();
    [[nodiscard]] FolderId GetDeletedItems();
    /// All items that are not among the deleted ones.
    [[nodiscard]] std::size_t CountItems();
    [[nodiscard]] std::optional<Item> FindItem(std::wstring_view guid);
    [[nodiscard]] std::optional<FolderId> FindFolderOf(std::wstring_view guid);

    // What a user does in Outlook, with the item that carries the GUID.
    /// Answers the new entry id.
    std::wstring MoveItem(std::wstring_view guid, FolderId folder, bool keepEntryId = false);
    void DeleteItem(std::wstring_view guid);
    /// Not even among the deleted ones.
    void LoseItem(std::wstring_view guid);

    void SetFaults(const Faults& faults) { m_server->SetFaults(faults); }
    void ClearFaults() { m_server->SetFaults({}); }
    [[nodiscard]] std::vector<Call> GetCalls() const { return m_server->GetCalls(); }
    /// As ToText writes them, without the activations.
    [[nodiscard]] std::vector<std::wstring> GetCallTexts() const { return TextsOf(GetCalls()); }
    void ClearCalls() { m_server->ClearCalls(); }
    /// The COM objects that clients hold.
    [[nodiscard]] long LiveObjects() const noexcept { return m_server->GetLiveObjects(); }

  private:
    class Registration;
    class OwnThread;

    std::shared_ptr<Server> m_server;
    std::unique_ptr<Registration> m_registration;
    std::unique_ptr<OwnThread> m_thread;
};

} // namespace ts::standin
