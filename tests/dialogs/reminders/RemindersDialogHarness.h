#pragma once

#include "collection/SynchronizationMessage.h"
#include "module/RegistryPaths.h"
#include "resources/RemindersControls.h"
#include "tests/dialogs/ListHarness.h"
#include "tests/support/RawRegistry.h"

#include <bit>
#include <memory>

namespace ts::test
{

/// One of the two dialogs with a list of reminders, modeless over a store of its own, in English and without
/// a sound.
class RemindersDialogTest : public testing::Test
{
  protected:
    RemindersDialogTest();
    ~RemindersDialogTest() override;

    /// The dialog's window, null when it has none.
    [[nodiscard]] virtual HWND Dialog() const = 0;

    void Load() { m_manager = std::make_unique<CcvReminderDataCollectionManager>(m_mirrors); }

    [[nodiscard]] HWND Item(int id) const { return GetDlgItem(Dialog(), id); }
    [[nodiscard]] bool IsEnabled(int id) const { return IsWindowEnabled(Item(id)) != FALSE; }
    [[nodiscard]] bool IsShown(int id) const { return IsWindowVisible(Item(id)) != FALSE; }
    [[nodiscard]] std::wstring ItemText(int id) const { return TextOf(Item(id)); }
    /// Within the dialog's client area.
    [[nodiscard]] CRect ItemPlace(int id) const;
    [[nodiscard]] CcvMfcRemindersListControl& List() const;
    [[nodiscard]] Texts Subjects() const;
    [[nodiscard]] int FocusedItem() const { return GetDlgCtrlID(GetFocus()); }
    void PressButton(int id) const { SendMessageW(Item(id), BM_CLICK, 0, 0); }
    void Command(int id) const { SendMessageW(Dialog(), WM_COMMAND, static_cast<WPARAM>(id), 0); }
    void SystemCommand(UINT command) const { SendMessageW(Dialog(), WM_SYSCOMMAND, command, 0); }
    void PassMinute() const { List().SendMessage(WM_TIMER, 1001); }
    [[nodiscard]] bool IsOpen() const { return Dialog() != nullptr; }

    int AddRecurring(const wchar_t* subject, CTime due, int days = 1);
    /// Its due time raises an error; it is due all the same because it was snoozed until now.
    int AddDamagedAndSnoozed();
    [[nodiscard]] CTime NextDue(int number) const { return m_store.Load(number)->GetNextDueDate(); }

    /// Whether the collection has a worker for Outlook.
    bool m_mirrors = false;
    FixedClock m_clock{Noon()};
    ReminderStore m_store;
    std::unique_ptr<CcvReminderDataCollectionManager> m_manager;
};

/// The same for one of the two facades.
template <typename Facade>
class FacadeOfRemindersTest : public RemindersDialogTest
{
  protected:
    ~FacadeOfRemindersTest() override { m_dialog.reset(); }

    [[nodiscard]] HWND Dialog() const override
    {
        return m_dialog == nullptr ? nullptr : m_dialog->GetSafeHwnd();
    }
    /// Loads the reminders and shows the dialog.
    void Open()
    {
        m_dialog.reset();
        Load();
        m_dialog = std::make_unique<Facade>(m_manager.get(), nullptr);
        ASSERT_NE(FALSE, m_dialog->Create(Facade::kTemplate, nullptr));
        PumpMessages();
    }
    /// What a host does when the store has changed.
    void Synchronize()
    {
        m_manager->UpdateReminderCollection();
        if (m_dialog != nullptr)
        {
            m_dialog->SynchronizeReminders();
        }
    }
    /// The window of a host that does so inside each change.
    void BeHost()
    {
        m_host = std::make_unique<ApplicationWindow>(kServiceWindowClass);
        m_host->onSynchronize = [this]
        {
            ++m_messages;
            Synchronize();
        };
    }

    /// Ends the dialog and removes what AddThree has added.
    void CloseAndRemove()
    {
        m_dialog.reset();
        for (const int number : {m_once, m_daily, m_later})
        {
            if (m_store.Load(number))
            {
                m_store.Remove(number);
            }
        }
    }
    [[nodiscard]] std::wstring SubjectAt(int index) const
    {
        return m_manager->GetReminderByIndex(index)->GetSubject().GetString();
    }

    std::unique_ptr<Facade> m_dialog;
    std::unique_ptr<ApplicationWindow> m_host;
    int m_messages = 0;
    int m_once = -1;
    int m_daily = -1;
    int m_later = -1;
};

/// Both dialogs in tests are made of these sizes.
inline void Resize(HWND window, int width, int height)
{
    SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

[[nodiscard]] inline CSize SizeOf(HWND window)
{
    CRect rect;
    GetWindowRect(window, &rect);
    return rect.Size();
}

/// As the dialog writes it.
[[nodiscard]] std::wstring DueText(CTime due);

} // namespace ts::test
