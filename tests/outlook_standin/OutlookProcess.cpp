#include "tests/outlook_standin/OutlookProcess.h"

#include "platform/KernelHandle.h"
#include "tests/outlook_standin/CalendarFile.h"
#include "tests/outlook_standin/ServerRegistration.h"

#include <array>
#include <objbase.h>
#include <stdexcept>

namespace
{

constexpr UINT kExitCodeOfKilled = 72;

std::filesystem::path ProgramBesideThisOne()
{
    std::array<wchar_t, MAX_PATH> text{};
    GetModuleFileNameW(nullptr, text.data(), static_cast<DWORD>(text.size()));
    return std::filesystem::path(text.data()).parent_path() / L"outlook_standin.exe";
}

std::filesystem::path NewFolder()
{
    static int number = 0;
    return std::filesystem::temp_directory_path() /
           (L"outlook_standin." + std::to_wstring(GetCurrentProcessId()) + L"." + std::to_wstring(++number));
}

ts::KernelHandle OpenServer(const std::filesystem::path& folder, DWORD access)
{
    const unsigned long id = ts::standin::ReadProcessId(folder);
    return ts::KernelHandle(id != 0 ? OpenProcess(access, FALSE, id) : nullptr);
}

} // namespace

ts::standin::OutlookProcess::OutlookProcess(std::filesystem::path program, std::filesystem::path folder)
    : m_ownsFolder(folder.empty()), m_folder(folder.empty() ? NewFolder() : std::move(folder))
{
    program = program.empty() ? ProgramBesideThisOne() : std::move(program);
    if (!std::filesystem::exists(program))
    {
        throw std::runtime_error("the program of the stand-in for Outlook is missing");
    }
    RegisterServer(program, m_folder, GetCurrentProcessId());
}

ts::standin::OutlookProcess::~OutlookProcess()
{
    try
    {
        UnregisterServer();
        SetLinger(std::chrono::milliseconds(0));
        if (!WaitUntilEnded())
        {
            TerminateProcess(OpenServer(m_folder, PROCESS_TERMINATE).get(), kExitCodeOfKilled);
        }
    }
    catch (const std::exception&)
    {
        // The server's own watchdog ends it after this process.
    }
    if (m_ownsFolder)
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
}

bool ts::standin::OutlookProcess::IsRunning() const
{
    return !WaitUntilEnded(std::chrono::milliseconds(0));
}

bool ts::standin::OutlookProcess::WaitUntilEnded(std::chrono::milliseconds patience) const
{
    const KernelHandle process = OpenServer(m_folder, SYNCHRONIZE);
    return process == nullptr ||
           WaitForSingleObject(process.get(), static_cast<DWORD>(patience.count())) == WAIT_OBJECT_0;
}

ts::standin::Calendar ts::standin::OutlookProcess::GetCalendar() const
{
    return LoadCalendar(m_folder);
}

std::optional<ts::standin::Item> ts::standin::OutlookProcess::FindItem(std::wstring_view guid) const
{
    Calendar calendar = GetCalendar();
    const std::optional<Place> place = calendar.FindByGuid(guid);
    return place ? std::optional(*place->item) : std::nullopt;
}

void ts::standin::OutlookProcess::SetCalendar(const Calendar& calendar)
{
    if (IsRunning())
    {
        throw std::logic_error("the stand-in for Outlook runs and would not notice");
    }
    SaveCalendar(m_folder, calendar);
}

void ts::standin::OutlookProcess::SetLinger(std::chrono::milliseconds linger)
{
    m_orders.linger = linger;
    ++m_orders.serial;
    WriteOrders(m_folder, m_orders);
}

void ts::standin::OutlookProcess::SetFaults(const Faults& faults)
{
    m_orders.faults = faults;
    m_orders.faultsSerial = ++m_orders.serial;
    WriteOrders(m_folder, m_orders);
}

void ts::standin::OutlookProcess::MoveItem(std::wstring guid, FolderId folder, bool keepEntryId)
{
    Order({0, UserAction::Kind::Move, std::move(guid), folder, keepEntryId});
}

void ts::standin::OutlookProcess::DeleteItem(std::wstring guid)
{
    Order({0, UserAction::Kind::Delete, std::move(guid), 0, false});
}

void ts::standin::OutlookProcess::LoseItem(std::wstring guid)
{
    Order({0, UserAction::Kind::Lose, std::move(guid), 0, false});
}

void ts::standin::OutlookProcess::Order(UserAction action)
{
    action.serial = ++m_orders.serial;
    m_orders.actions.push_back(std::move(action));
    WriteOrders(m_folder, m_orders);
}
