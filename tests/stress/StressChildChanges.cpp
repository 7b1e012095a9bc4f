#include "collection/CcvReminderDataCollectionManager.h"
#include "collection/SynchronizationMessage.h"
#include "module/RegistryPaths.h"
#include "platform/ts/RegistryValues.h"
#include "tests/stress/HostWindow.h"
#include "tests/stress/StampedRecord.h"
#include "tests/stress/StressChild.h"
#include "tests/support/RandomSource.h"

#include <iostream>

namespace ts::test
{
namespace
{

constexpr int kOwnTopics = 8;

/// A host that changes what it has loaded, and loads again when it is told to.
class Host
{
  public:
    Host(wchar_t writer, std::uint64_t seed)
        : m_writer(writer), m_map(OwnMap(writer)), m_random(seed),
          m_window(writer == L'A' ? kMainWindowClass : kServiceWindowClass, [this] { OnSynchronization(); })
    {
    }

    [[nodiscard]] bool HasWindow() const { return m_window.Get() != nullptr; }
    [[nodiscard]] bool HasFailed() const { return m_failed; }

    void Change()
    {
        ++m_changes;
        switch (m_random.Between(0, 5))
        {
        case 0:
            AddOrDeleteOwn();
            break;
        case 1:
            ReplaceShared();
            break;
        case 2:
        case 3:
            ModifyOne(kSharedMap, m_random.Between(0, kSharedTopics - 1));
            break;
        case 4:
            Snooze();
            break;
        default:
            ModifyOne(m_map, m_random.Between(0, kOwnTopics - 1));
            break;
        }
        if (m_random.Chance(30))
        {
            m_manager.UpdateReminderCollection();
            LookAtOwn();
        }
    }

    void Rest() { AnswerMessages(m_random.Between<DWORD>(0, 3)); }

    void Report() const
    {
        const RegistryKey key = RegistryKey::TryOpenOrCreate(HKEY_CURRENT_USER, kReports);
        const std::wstring name(1, m_writer);
        WriteDword(key.Get(), (name + L" changes").c_str(), m_changes);
        WriteDword(key.Get(), (name + L" messages").c_str(), m_messages);
    }

  private:
    void OnSynchronization() noexcept
    {
        m_messages += InSendMessage() ? 1U : 0U;
        // Every time would leave little time for changes.
        if (m_random.Chance(20))
        {
            m_manager.UpdateReminderCollection();
            LookAtOwn();
        }
    }

    /// The key of the topic as loaded; empty when it is not.
    [[nodiscard]] CString KeyOf(const std::wstring& map, int topic) const
    {
        const CcvReminderData wanted = StampedRecord(CString(), map, topic, {});
        const CcvReminderData* found = m_manager.GetReminderByGuid(
            wanted.GetDocumentPath(), wanted.GetMapGuid(), wanted.GetObjectGuid());
        return found == nullptr ? CString() : found->GetReminderKey();
    }

    [[nodiscard]] CcvReminderData NextRecord(const CString& key, const std::wstring& map, int topic)
    {
        return StampedRecord(key, map, topic, {m_writer, ++m_number});
    }

    void ModifyOne(const std::wstring& map, int topic)
    {
        const CString key = KeyOf(map, topic);
        if (!key.IsEmpty())
        {
            CcvReminderData record = NextRecord(key, map, topic);
            m_manager.ModifyReminder(&record, true);
        }
    }

    void AddOrDelete(const std::wstring& map, int topic)
    {
        const CString key = KeyOf(map, topic);
        CcvReminderData record = NextRecord(key, map, topic);
        if (key.IsEmpty())
        {
            m_manager.AddReminder(&record, true);
        }
        else
        {
            m_manager.DeleteReminder(&record, true);
        }
        m_manager.UpdateReminderCollection();
    }

    void AddOrDeleteOwn() { AddOrDelete(m_map, m_random.Between(0, kOwnTopics - 1)); }

    /// One process only: two that add to one map at the same moment may take the same key.
    void ReplaceShared()
    {
        if (m_writer == L'A')
        {
            AddOrDelete(kSharedMap, m_random.Between(0, kSharedTopics - 1));
        }
    }

    void Snooze()
    {
        const int topic = m_random.Between(0, kOwnTopics - 1);
        const CString key = KeyOf(m_map, topic);
        if (!key.IsEmpty())
        {
            CcvReminderData record = NextRecord(key, m_map, topic);
            m_manager.SnoozeReminder(&record, 60);
        }
    }

    /// Nobody else changes this map, so that its reminders are whole at any time.
    void LookAtOwn() noexcept
    {
        for (int index = 0; index < m_manager.GetRemindersCount(); ++index)
        {
            const CcvReminderData& record = *m_manager.GetReminderByIndex(index);
            if (record.GetMapGuid() == m_map.c_str() && !IsWhole(record))
            {
                std::wcerr << L"stress_child: not whole: " << record.GetReminderKey().GetString() << L" "
                           << record.GetSubject().GetString() << std::endl;
                m_failed = true;
            }
        }
    }

    wchar_t m_writer;
    std::wstring m_map;
    RandomSource m_random;
    CcvReminderDataCollectionManager m_manager{false};
    HostWindow m_window;
    int m_number = 0;
    DWORD m_changes = 0;
    DWORD m_messages = 0;
    bool m_failed = false;
};

} // namespace

int ChangeStore(wchar_t writer, unsigned seconds, std::uint64_t seed)
{
    Host host(writer, seed);
    if (!host.HasWindow())
    {
        return kChildFailed;
    }
    const ULONGLONG end = GetTickCount64() + seconds * 1000ULL;
    while (GetTickCount64() < end && !host.HasFailed())
    {
        host.Change();
        host.Rest();
    }
    host.Report();
    return host.HasFailed() ? kChildFailed : kChildDone;
}

} // namespace ts::test
