#pragma once

#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/CcvMfcRemindersListControl.h"
#include "tests/dialogs/SampleReminders.h"
#include "tests/support/FixedClock.h"
#include "tests/support/TextOutput.h"
#include "tests/support/WindowDriver.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace ts::test
{

using Texts = std::vector<std::wstring>;
using Rows = std::vector<int>;

constexpr std::int64_t kSecondsPerHour = 3600;
constexpr std::int64_t kSecondsPerDay = 86'400;
constexpr unsigned kAllColumns = 15;

/// A local noon, so that the day's borders are half a day away in every zone.
[[nodiscard]] inline CTime Noon()
{
    return {2026, 11, 21, 12, 0, 0};
}

/// The window around a list; remembers which rows it was told to be selected.
class ListParent : public CWnd
{
  public:
    ListParent();

    /// Those since the last call.
    Rows TakeSelections() { return std::exchange(m_selections, {}); }
    /// Called for each message.
    std::function<void()> onSelectionChanged;

  protected:
    LRESULT OnSelectionChanged(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

  private:
    Rows m_selections;
};

/// The reminders in the registry of this process, empty at first.
class ReminderStore
{
  public:
    ReminderStore();
    ReminderStore(const ReminderStore&) = delete;
    ReminderStore& operator=(const ReminderStore&) = delete;
    ~ReminderStore();

    /// Writes a reminder for a topic and document of its own. Reminders are loaded in the order in which they
    /// were added. Its number.
    int Add(const CcvReminderData& reminder);
    int Add(const wchar_t* subject, CTime due, const wchar_t* documentTitle = L"Map");
    void Remove(int number);
    /// The record as it is stored, without one when it is gone.
    [[nodiscard]] std::optional<CcvReminderData> Load(int number) const;

  private:
    std::vector<CString> m_keys;
};

/// A list in a window, over a store of its own.
class ListTest : public testing::Test
{
  protected:
    ListTest();
    ~ListTest() override;

    /// Makes list and collection anew; nothing is refreshed yet.
    void Open(unsigned columns = kAllColumns, int width = 500, int height = 300);
    /// Makes both and shows the reminders.
    void Show(ReminderListFilter filter = ReminderListFilter::Recent, int height = 300);
    /// Loads the collection again, as hosts do when the store has changed.
    void Reload() { m_manager->UpdateReminderCollection(); }

    [[nodiscard]] CcvMfcRemindersListControl& List() { return *m_list; }
    [[nodiscard]] int Count() { return List().GetItemCount(); }
    [[nodiscard]] std::wstring Text(int row, int column);
    /// A column from top to bottom.
    [[nodiscard]] Texts Column(int column);
    [[nodiscard]] Texts Subjects() { return Column(1); }
    void Press(UINT key);
    void ClickHeader(int column);
    /// Presses the mouse at one point of the header and releases it at another.
    void DragInHeader(POINT from, POINT to);
    /// Where to click on a row.
    [[nodiscard]] POINT PointOn(int row);
    /// A click as the mouse makes it.
    void Click(POINT point, UINT message = WM_LBUTTONDOWN);
    void PassMinute();
    /// Reminders with the subjects "0", "1" and so on, due a minute after each other.
    void AddNumbered(int count);
    [[nodiscard]] CString SelectedSubject();
    /// Image and data.
    [[nodiscard]] LVITEMW Item(int row);

    /// Whether the collection has a worker for Outlook.
    bool m_mirrors = false;
    FixedClock m_clock{Noon()};
    ReminderStore m_store;
    ListParent m_parent;
    std::unique_ptr<CcvReminderDataCollectionManager> m_manager;
    std::unique_ptr<CcvMfcRemindersListControl> m_list;
};

/// A window of the application's class, which answers its messages.
class ApplicationWindow
{
  public:
    explicit ApplicationWindow(const wchar_t* windowClass);
    ApplicationWindow(const ApplicationWindow&) = delete;
    ApplicationWindow& operator=(const ApplicationWindow&) = delete;
    ~ApplicationWindow();

    [[nodiscard]] HWND Get() const { return m_window; }
    /// The indices of the reminders that it was told to open.
    [[nodiscard]] const Rows& Opened() const { return m_opened; }
    std::function<void()> onSynchronize;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_window;
    Rows m_opened;
};

} // namespace ts::test
