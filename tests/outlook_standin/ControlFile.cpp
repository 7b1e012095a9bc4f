#include "tests/outlook_standin/ControlFile.h"

#include "tests/outlook_standin/Files.h"

#include <nlohmann/json.hpp>
#include <sstream>

namespace
{

using namespace ts::standin;
using nlohmann::json;

constexpr wchar_t kOrders[] = L"orders.json";
constexpr wchar_t kFollowed[] = L"followed.txt"; // the serial of the last orders that a server followed
constexpr wchar_t kCalls[] = L"calls.txt";       // one JSON array per line
constexpr wchar_t kLiveObjects[] = L"live.txt";
constexpr wchar_t kProcessId[] = L"process.txt";

long ReadNumber(const std::filesystem::path& file)
{
    const auto content = TryReadFile(file);
    return content ? std::stol(*content) : 0;
}

json FromFailure(const CallFailure& failure)
{
    return {{"call", failure.call},
            {"error", failure.error},
            {"form", failure.form},
            {"moment", failure.moment},
            {"andAllLater", failure.andAllLater}};
}

CallFailure ToFailure(const json& stored)
{
    return {stored.at("call"), stored.at("error"), stored.at("form"), stored.at("moment"),
            stored.at("andAllLater")};
}

json FromFaults(const Faults& faults)
{
    json stored = {{"delayMilliseconds", faults.delayPerCall.count()},
                   {"unknownMember", ToUtf8(faults.unknownMember)},
                   {"withoutInterface", ToUtf8(faults.withoutInterface)}};
    if (faults.refuseActivation)
    {
        stored["refuseActivation"] = *faults.refuseActivation;
    }
    if (faults.failure)
    {
        stored["failure"] = FromFailure(*faults.failure);
    }
    if (faults.death)
    {
        stored["death"] = {{"call", faults.death->call}, {"moment", faults.death->moment}};
    }
    return stored;
}

Faults ToFaults(const json& stored)
{
    Faults faults;
    faults.delayPerCall = std::chrono::milliseconds(stored.at("delayMilliseconds").get<long>());
    faults.unknownMember = FromUtf8(stored.at("unknownMember").get<std::string>());
    faults.withoutInterface = FromUtf8(stored.at("withoutInterface").get<std::string>());
    if (stored.contains("refuseActivation"))
    {
        faults.refuseActivation = stored.at("refuseActivation").get<HRESULT>();
    }
    if (stored.contains("failure"))
    {
        faults.failure = ToFailure(stored.at("failure"));
    }
    if (stored.contains("death"))
    {
        faults.death = Death{stored.at("death").at("call"), stored.at("death").at("moment")};
    }
    return faults;
}

json FromAction(const UserAction& action)
{
    return {{"serial", action.serial},
            {"kind", action.kind},
            {"guid", ToUtf8(action.guid)},
            {"folder", action.folder},
            {"keepEntryId", action.keepEntryId}};
}

UserAction ToAction(const json& stored)
{
    return {stored.at("serial"), stored.at("kind"), FromUtf8(stored.at("guid").get<std::string>()),
            stored.at("folder"), stored.at("keepEntryId")};
}

Orders ReadOrders(const std::filesystem::path& folder)
{
    Orders orders;
    if (const auto content = TryReadFile(folder / kOrders))
    {
        const json stored = json::parse(*content);
        orders.serial = stored.at("serial");
        orders.faultsSerial = stored.at("faultsSerial");
        orders.linger = std::chrono::milliseconds(stored.at("lingerMilliseconds").get<long>());
        orders.faults = ToFaults(stored.at("faults"));
        for (const json& action : stored.at("actions"))
        {
            orders.actions.push_back(ToAction(action));
        }
    }
    return orders;
}

void Perform(Calendar& calendar, const UserAction& action)
{
    const std::optional<Place> place = calendar.FindByGuid(action.guid);
    if (!place)
    {
        return;
    }
    const std::wstring entryId = place->item->entryId;
    switch (action.kind)
    {
    case UserAction::Kind::Move:
        calendar.MoveItem(entryId, action.folder, action.keepEntryId);
        break;
    case UserAction::Kind::Delete:
        calendar.DeleteItem(entryId);
        break;
    case UserAction::Kind::Lose:
        calendar.LoseItem(entryId);
        break;
    }
}

} // namespace

void ts::standin::WriteOrders(const std::filesystem::path& folder, const Orders& orders)
{
    json actions = json::array();
    for (const UserAction& action : orders.actions)
    {
        actions.push_back(FromAction(action));
    }
    const json stored = {{"serial", orders.serial},
                         {"faultsSerial", orders.faultsSerial},
                         {"lingerMilliseconds", orders.linger.count()},
                         {"faults", FromFaults(orders.faults)},
                         {"actions", actions}};
    ReplaceWhole(folder / kOrders, stored.dump(1));
}

std::vector<ts::standin::Call> ts::standin::ReadCalls(const std::filesystem::path& folder)
{
    std::vector<Call> calls;
    std::istringstream lines(TryReadFile(folder / kCalls).value_or(""));
    for (std::string line; std::getline(lines, line);)
    {
        const auto parts = json::parse(line).get<std::vector<std::string>>();
        calls.push_back(
            {FromUtf8(parts.at(0)), FromUtf8(parts.at(1)), FromUtf8(parts.at(2)), FromUtf8(parts.at(3))});
    }
    return calls;
}

void ts::standin::ClearCalls(const std::filesystem::path& folder)
{
    ReplaceWhole(folder / kCalls, "");
}

long ts::standin::ReadLiveObjects(const std::filesystem::path& folder)
{
    return ReadNumber(folder / kLiveObjects);
}

unsigned long ts::standin::ReadProcessId(const std::filesystem::path& folder)
{
    return static_cast<unsigned long>(ReadNumber(folder / kProcessId));
}

ts::standin::ControlFile::ControlFile(std::filesystem::path folder) : m_folder(std::move(folder))
{
    ReplaceWhole(m_folder / kProcessId, std::to_string(GetCurrentProcessId()));
    WriteLiveObjects(0);
}

void ts::standin::ControlFile::Follow(Server& server)
{
    Orders orders = ReadOrders(m_folder);
    if (orders.serial == m_serial)
    {
        return;
    }
    const long followed = ReadNumber(m_folder / kFollowed);
    const bool faultsAreNew = orders.faultsSerial > followed;
    if (!faultsAreNew)
    {
        orders.faults.failure.reset();
        orders.faults.death.reset();
    }
    if (faultsAreNew || !m_serial)
    {
        server.SetFaults(orders.faults);
    }
    m_serial = orders.serial;
    m_linger = orders.linger;
    for (const UserAction& action : orders.actions)
    {
        if (action.serial > followed)
        {
            server.Write([&](Calendar& calendar) { Perform(calendar, action); });
        }
    }
    ReplaceWhole(m_folder / kFollowed, std::to_string(orders.serial));
}

void ts::standin::ControlFile::WriteDown(const Call& call) const
{
    const json line = {ToUtf8(call.object), ToUtf8(call.access), ToUtf8(call.member), ToUtf8(call.arguments)};
    AppendToFile(m_folder / kCalls, line.dump() + "\n");
}

void ts::standin::ControlFile::WriteLiveObjects(long count) const
{
    ReplaceWhole(m_folder / kLiveObjects, std::to_string(count));
}
