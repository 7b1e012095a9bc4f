#include "tests/outlook_standin/InProcessOutlook.h"

#include "platform/ComApartment.h"
#include "tests/outlook_standin/ClassFactory.h"
#include "tests/outlook_standin/InterfaceRegistration.h"

#include <array>
#include <future>
#include <objbase.h>
#include <thread>

namespace
{

using namespace ts::standin;

std::filesystem::path FolderOrDefault(std::filesystem::path folder)
{
    if (!folder.empty())
    {
        return folder;
    }
    std::array<wchar_t, MAX_PATH> text{};
    const DWORD length =
        GetEnvironmentVariableW(L"TS_OUTLOOK_STANDIN", text.data(), static_cast<DWORD>(text.size()));
    return length < text.size() ? text.data() : L"";
}

/// A folder that no other process uses.
std::filesystem::path OwnTemporaryFolder()
{
    return std::filesystem::temp_directory_path() /
           (L"outlook_standin." + std::to_wstring(GetCurrentProcessId()));
}

std::wstring RequireEntryId(Calendar& calendar, std::wstring_view guid)
{
    const std::optional<Place> place = calendar.FindByGuid(guid);
    if (!place)
    {
        throw std::out_of_range("no item of the stand-in carries this GUID");
    }
    return place->item->entryId;
}

std::size_t CountIn(const std::vector<Folder>& folders, FolderId except)
{
    std::size_t count = 0;
    for (const Folder& folder : folders)
    {
        count += (folder.id != except ? folder.items.size() : 0) + CountIn(folder.folders, except);
    }
    return count;
}

} // namespace

/// The class on the calling thread.
class ts::standin::InProcessOutlook::Registration
{
  public:
    explicit Registration(const std::shared_ptr<Server>& server) : m_class(server) {}

  private:
    ComApartment m_apartment;
    ClassRegistration m_class;
};

/// A thread that serves calls from other threads.
class ts::standin::InProcessOutlook::OwnThread
{
  public:
    explicit OwnThread(const std::shared_ptr<Server>& server) : m_folder(OwnTemporaryFolder())
    {
        std::filesystem::create_directories(m_folder);
        RegisterInterfaces(m_folder);
        std::promise<DWORD> ready;
        std::future<DWORD> outcome = ready.get_future();
        m_thread = std::thread([&ready, server] { Serve(ready, server); });
        try
        {
            m_threadId = outcome.get();
        }
        catch (...)
        {
            m_thread.join();
            throw;
        }
    }
    OwnThread(const OwnThread&) = delete;
    OwnThread& operator=(const OwnThread&) = delete;
    ~OwnThread()
    {
        PostThreadMessageW(m_threadId, WM_QUIT, 0, 0);
        m_thread.join();
        UnregisterInterfaces();
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

  private:
    static void Serve(std::promise<DWORD>& ready, const std::shared_ptr<Server>& server)
    {
        const ComApartment apartment;
        MSG message{};
        // Makes the thread's queue, so that no message is lost.
        PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
        std::optional<ClassRegistration> registration;
        try
        {
            registration.emplace(server);
        }
        catch (...)
        {
            ready.set_exception(std::current_exception());
            return;
        }
        ready.set_value(GetCurrentThreadId());
        while (GetMessageW(&message, nullptr, 0, 0) > 0)
        {
            DispatchMessageW(&message);
        }
    }

    std::filesystem::path m_folder;
    std::thread m_thread;
    DWORD m_threadId = 0;
};

ts::standin::InProcessOutlook::InProcessOutlook(Apartment apartment, std::filesystem::path folder)
    : m_server(std::make_shared<Server>(FolderOrDefault(std::move(folder))))
{
    if (apartment == Apartment::CallersThread)
    {
        m_registration = std::make_unique<Registration>(m_server);
    }
    else
    {
        m_thread = std::make_unique<OwnThread>(m_server);
    }
}

ts::standin::InProcessOutlook::~InProcessOutlook() = default;

ts::standin::Calendar ts::standin::InProcessOutlook::GetCalendar()
{
    return m_server->Read([](const Calendar& calendar) { return calendar; });
}

ts::standin::FolderId ts::standin::InProcessOutlook::MakeStore(std::wstring name)
{
    return m_server->Write([&](Calendar& calendar)
                           { return calendar.AddFolder(std::nullopt, std::move(name), kMailItem); });
}

ts::standin::FolderId ts::standin::InProcessOutlook::MakeFolder(FolderId parent, std::wstring name,
                                                                long defaultItemType)
{
    return m_server->Write([&](Calendar& calendar)
                           { return calendar.AddFolder(parent, std::move(name), defaultItemType); });
}

std::wstring ts::standin::InProcessOutlook::MakeItem(FolderId folder, Item item)
{
    return m_server->Write([&](Calendar& calendar) { return calendar.AddItem(folder, std::move(item)); });
}

ts::standin::FolderId ts::standin::InProcessOutlook::GetDefaultStore()
{
    return m_server->Read([](const Calendar& calendar) { return calendar.stores.front().id; });
}

ts::standin::FolderId ts::standin::InProcessOutlook::GetCalendarFolder()
{
    return m_server->Read([](const Calendar& calendar) { return calendar.calendarFolder; });
}

ts::standin::FolderId ts::standin::InProcessOutlook::GetDeletedItems()
{
    return m_server->Read([](const Calendar& calendar) { return calendar.deletedItems; });
}

std::size_t ts::standin::InProcessOutlook::CountItems()
{
    return m_server->Read([](const Calendar& calendar)
                          { return CountIn(calendar.stores, calendar.deletedItems); });
}

std::optional<ts::standin::Item> ts::standin::InProcessOutlook::FindItem(std::wstring_view guid)
{
    return m_server->Read(
        [&](Calendar& calendar)
        {
            const std::optional<Place> place = calendar.FindByGuid(guid);
            return place ? std::optional(*place->item) : std::nullopt;
        });
}

std::optional<ts::standin::FolderId> ts::standin::InProcessOutlook::FindFolderOf(std::wstring_view guid)
{
    return m_server->Read(
        [&](Calendar& calendar)
        {
            const std::optional<Place> place = calendar.FindByGuid(guid);
            return place ? std::optional(place->folder->id) : std::nullopt;
        });
}

std::wstring ts::standin::InProcessOutlook::MoveItem(std::wstring_view guid, FolderId folder,
                                                     bool keepEntryId)
{
    return m_server->Write(
        [&](Calendar& calendar)
        { return calendar.MoveItem(RequireEntryId(calendar, guid), folder, keepEntryId); });
}

void ts::standin::InProcessOutlook::DeleteItem(std::wstring_view guid)
{
    m_server->Write([&](Calendar& calendar) { calendar.DeleteItem(RequireEntryId(calendar, guid)); });
}

void ts::standin::InProcessOutlook::LoseItem(std::wstring_view guid)
{
    m_server->Write([&](Calendar& calendar) { calendar.LoseItem(RequireEntryId(calendar, guid)); });
}
