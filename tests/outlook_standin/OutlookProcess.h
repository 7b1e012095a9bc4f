#pragma once

#include "tests/outlook_standin/ControlFile.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace ts::standin
{

/// Stands in for Outlook as a program of its own, for as long as it lives: what creates Outlook's application
/// as a local server starts outlook_standin.exe. All programs of the Wine prefix share it, so such a test
/// needs a prefix of its own (ts_own_prefix). A test double; nothing of Outlook is involved.
class OutlookProcess
{
  public:
    /// `program` is by default the one beside the test program. `folder` holds the calendar, and stays; by
    /// default it is a new one that is removed. Throws std::runtime_error.
    explicit OutlookProcess(std::filesystem::path program = {}, std::filesystem::path folder = {});
    OutlookProcess(const OutlookProcess&) = delete;
    OutlookProcess& operator=(const OutlookProcess&) = delete;
    /// Waits until the server has ended, or ends it.
    ~OutlookProcess();

    [[nodiscard]] const std::filesystem::path& GetFolder() const noexcept { return m_folder; }

    [[nodiscard]] bool IsRunning() const;
    /// Of the server that was started last; 0 when there was none.
    [[nodiscard]] unsigned long GetProcessId() const { return ReadProcessId(m_folder); }
    /// False when it still runs after that time.
    [[nodiscard]] bool WaitUntilEnded(std::chrono::milliseconds patience = std::chrono::seconds(10)) const;

    /// The calendar as it was last saved.
    [[nodiscard]] Calendar GetCalendar() const;
    [[nodiscard]] std::optional<Item> FindItem(std::wstring_view guid) const;
    /// Replaces the calendar. Throws std::logic_error while the server runs: it would not notice.
    void SetCalendar(const Calendar& calendar);

    /// How long an unused server waits for the next client before it ends, instead of 150 ms. An activation
    /// at the very moment at which it ends fails, so a test with pauses between its clients asks for more.
    void SetLinger(std::chrono::milliseconds linger);

    // These take effect before the next activation or call, from which calls are counted, at the latest. A
    // failure or death at a certain call is over when the server has ended before.
    void SetFaults(const Faults& faults);
    void ClearFaults() { SetFaults({}); }
    void MoveItem(std::wstring guid, FolderId folder, bool keepEntryId = false);
    void DeleteItem(std::wstring guid);
    void LoseItem(std::wstring guid);

    [[nodiscard]] std::vector<Call> GetCalls() const { return ReadCalls(m_folder); }
    /// As ToText writes them, without the activations.
    [[nodiscard]] std::vector<std::wstring> GetCallTexts() const { return TextsOf(GetCalls()); }
    void ClearCalls() { standin::ClearCalls(m_folder); }
    /// The COM objects that clients hold; after a death those that they held then.
    [[nodiscard]] long LiveObjects() const { return ReadLiveObjects(m_folder); }

  private:
    void Order(UserAction action);

    bool m_ownsFolder;
    std::filesystem::path m_folder;
    Orders m_orders;
};

} // namespace ts::standin
