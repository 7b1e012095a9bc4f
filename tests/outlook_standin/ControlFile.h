#pragma once

#include "tests/outlook_standin/Server.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// How a test in one process talks to the stand-in in another: by files in the folder of its calendar.
namespace ts::standin
{

/// What a user does in Outlook with the item that carries the GUID. Nothing when there is no such item.
struct UserAction
{
    enum class Kind
    {
        Move,
        Delete,
        Lose
    };
    long serial = 0;
    Kind kind = Kind::Move;
    std::wstring guid = {};
    FolderId folder = 0; // Move only
    bool keepEntryId = false;
};

/// The test's orders. The serial of the orders tells new ones from those that were followed already.
struct Orders
{
    long serial = 0;
    long faultsSerial = 0; // the one with which the faults were ordered
    Faults faults;
    std::vector<UserAction> actions;
    /// For so long an unused server waits for the next client.
    std::chrono::milliseconds linger{150};
};

// All throw std::runtime_error when a file cannot be read or written.
void WriteOrders(const std::filesystem::path& folder, const Orders& orders);

/// The test's side of the server's log.
[[nodiscard]] std::vector<Call> ReadCalls(const std::filesystem::path& folder);
void ClearCalls(const std::filesystem::path& folder);

/// 0 when no server has ever been there.
[[nodiscard]] long ReadLiveObjects(const std::filesystem::path& folder);
[[nodiscard]] unsigned long ReadProcessId(const std::filesystem::path& folder);

/// The server's side.
class ControlFile
{
  public:
    explicit ControlFile(std::filesystem::path folder);

    /// Follows orders that are new. Of orders that an earlier server followed, those faults still hold that
    /// do not strike at a certain call.
    void Follow(Server& server);
    [[nodiscard]] std::chrono::milliseconds GetLinger() const noexcept { return m_linger; }
    void WriteDown(const Call& call) const;
    void WriteLiveObjects(long count) const;

  private:
    std::filesystem::path m_folder;
    std::chrono::milliseconds m_linger = Orders().linger;
    std::optional<long> m_serial; // of the orders that this server knows
};

} // namespace ts::standin
