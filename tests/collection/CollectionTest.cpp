#include "tests/collection/CollectionTest.h"

#include "tests/support/ThreadIds.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace ts::test
{
namespace
{

constexpr wchar_t kInProgress[] = L"SynchInProgress";

} // namespace

CollectionTest::CollectionTest()
{
    DeleteKeyTree(kSettings);
    EXPECT_EQ(0, HostWindowCount());
}

CollectionTest::~CollectionTest()
{
    DeleteKeyTree(kSettings);
    EXPECT_EQ(0, HostWindowCount());
}

CcvReminderData CollectionTest::NewReminder(const std::wstring& topic)
{
    CcvReminderData record = EmptyRecord();
    record.SetDocumentPath(L"C:\\maps\\a");
    record.SetMapGuid(L"M");
    record.SetObjectGuid(topic.c_str());
    record.SetSubject((L"about " + topic).c_str());
    record.SetInitialDueDate(1'700'000'000);
    record.SetNextDueDate(1'700'000'000);
    return record;
}

CcvReminderData CollectionTest::NewDailyReminder(const std::wstring& topic)
{
    CcvReminderData record = NewReminder(topic);
    record.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
    record.SetDailyRecurrenceNumber(1);
    return record;
}

std::wstring CollectionTest::Store(CcvReminderData record)
{
    EXPECT_TRUE(record.SaveDataToRegistry(kStore));
    return record.GetReminderKey().GetString();
}

void CollectionTest::StoreTopics(std::initializer_list<const wchar_t*> topics)
{
    for (const wchar_t* topic : topics)
    {
        Store(NewReminder(topic));
    }
}

void CollectionTest::SwitchSynchronizationOff()
{
    RawKey(kSettings).Write(L"SynchronizeOutlookAppoints", RawDword(0));
}

void CollectionTest::WatchOutlook()
{
    // Starting Outlook sets and clears a mark, which is written only where there are options.
    RawKey(kSettings).Delete(kInProgress);
}

bool CollectionTest::WasOutlookTried()
{
    const auto mark = RawKey(kSettings).Read(kInProgress);
    EXPECT_TRUE(!mark || *mark == RawDword(0)) << "the mark stayed";
    RawKey(kSettings).Delete(kInProgress);
    return mark.has_value();
}

LockedKey::LockedKey(const std::wstring& key) : m_path(std::wstring(kStore) + L"\\" + key)
{
    DeleteKeyTree(m_path);
    const std::wstring target = L"\\Registry\\Machine\\Nowhere\\Nothing";
    HKEY link = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, m_path.c_str(), 0, nullptr, REG_OPTION_CREATE_LINK, KEY_ALL_ACCESS,
                        nullptr, &link, nullptr) != ERROR_SUCCESS)
    {
        throw std::runtime_error("no link between keys");
    }
    const Bytes bytes = BytesOf(target);
    RegSetValueExW(link, L"SymbolicLinkValue", 0, REG_LINK, bytes.data(), static_cast<DWORD>(bytes.size()));
    RegCloseKey(link);
}

LockedKey::~LockedKey()
{
    HKEY link = nullptr;
    RegOpenKeyExW(HKEY_CURRENT_USER, m_path.c_str(), REG_OPTION_OPEN_LINK, KEY_ALL_ACCESS, &link);
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteKeyW(link, L""));
    RegCloseKey(link);
}

std::size_t NewThreadCount(const std::function<void()>& work)
{
    std::size_t fewest = std::numeric_limits<std::size_t>::max();
    for (int attempt = 0; attempt < 3 && fewest != 0; ++attempt)
    {
        const std::vector<DWORD> before = ThreadIds();
        work();
        std::size_t begun = 0;
        for (const DWORD id : ThreadIds())
        {
            begun += std::find(before.begin(), before.end(), id) == before.end() ? 1 : 0;
        }
        fewest = std::min(fewest, begun);
    }
    return fewest;
}

bool Eventually(const std::function<bool()>& holds)
{
    const ULONGLONG end = GetTickCount64() + 20'000;
    while (!holds())
    {
        if (GetTickCount64() > end)
        {
            return false;
        }
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        Sleep(1);
    }
    return true;
}

} // namespace ts::test
