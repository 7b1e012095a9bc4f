#pragma once

#include "TsServiceUtilities.h"

#include <memory>

namespace ts::service
{

/// The alert, of which there is one at a time. Its window may close itself at any message; the dialog is
/// destroyed only by Release, because code of it may be running until then.
class Alert
{
  public:
    /// `manager` stays the caller's and outlives the alert.
    explicit Alert(CcvReminderDataCollectionManager& manager) noexcept : m_manager(manager) {}
    Alert(const Alert&) = delete;
    Alert& operator=(const Alert&) = delete;
    /// Closes the window without dismissing anything.
    ~Alert();

    /// Null while there is none.
    [[nodiscard]] HWND GetWindow() const;
    [[nodiscard]] bool IsOpen() const { return GetWindow() != nullptr; }

    /// Shows the window with what is due; one that is open already shows it anew, and its task-bar button
    /// flashes. False when there is no window to be had.
    [[nodiscard]] bool Show();
    /// To be called after each loading of the collection.
    void Refresh();
    /// At the wish of the user, who has just started something else.
    void BringToFront() const;
    /// Destroys the dialog if its window has been closed. Whether it was. Never call it from within one of
    /// the dialog's messages.
    bool Release();

    /// Whether the message was a key with a meaning in the dialog (Tab, Enter, Escape, a mnemonic).
    [[nodiscard]] bool Translate(MSG& message) const;

  private:
    void CallAttention() const;

    CcvReminderDataCollectionManager& m_manager;
    std::unique_ptr<CcvMfcReminderAlertDialog> m_dialog;
};

} // namespace ts::service
