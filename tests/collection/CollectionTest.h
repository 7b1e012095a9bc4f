#pragma once

#include "collection/CcvReminderDataCollectionManager.h"
#include "tests/collection/HostWindow.h"
#include "tests/reminders/storage/StoreTest.h"

#include <functional>
#include <string>
#include <vector>

namespace ts::test
{

using Manager = CcvReminderDataCollectionManager;

/// Where the options are kept, written out.
inline constexpr wchar_t kSettings[] = L"Software\\Corvane\\Tessaly\\25\\Settings";

/// Begins and ends each test without reminders, options, host windows and threads.
class CollectionTest : public StoreTest
{
  protected:
    CollectionTest();
    ~CollectionTest() override;

    /// A reminder of map "M" that is not in the store yet.
    [[nodiscard]] static CcvReminderData NewReminder(const std::wstring& topic);
    /// The same, recurring every day.
    [[nodiscard]] static CcvReminderData NewDailyReminder(const std::wstring& topic);
    /// Puts that reminder into the store; its key.
    static std::wstring Store(CcvReminderData record);
    /// Puts reminders of those topics into the store, under {M-0} and so on.
    static void StoreTopics(std::initializer_list<const wchar_t*> topics);

    /// A user who does not want appointments.
    static void SwitchSynchronizationOff();
    /// Whether Outlook was asked for at all; forgets it. Needs WatchOutlook before.
    static bool WasOutlookTried();
    static void WatchOutlook();
};

/// A reminder's key that can be listed, but neither be opened nor created nor deleted, while it lives.
class LockedKey
{
  public:
    /// Takes the place of the reminder's key if there is one.
    explicit LockedKey(const std::wstring& key);
    LockedKey(const LockedKey&) = delete;
    LockedKey& operator=(const LockedKey&) = delete;
    ~LockedKey();

  private:
    std::wstring m_path;
};

/// How many threads have begun during `work` and live. Tried thrice, because once COM was used,
/// threads of its own come and go.
[[nodiscard]] std::size_t NewThreadCount(const std::function<void()>& work);

/// How far counts of handles and threads may rise without a leak, for the same reason.
inline constexpr std::size_t kNoise = 10;

/// Waits until that holds, at most twenty seconds, answering messages meanwhile. Whether it does.
[[nodiscard]] bool Eventually(const std::function<bool()>& holds);

/// Waits for the worker to be done; far longer than that can take.
[[nodiscard]] inline bool Finish(Manager& manager)
{
    return manager.WaitForOutlookCommands(60'000);
}

} // namespace ts::test
