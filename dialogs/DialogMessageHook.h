#pragma once

#include "platform/Export.h"
#include "platform/WindowsHeaders.h"

namespace ts
{

/// Offers the keyboard messages of the calling thread's queue to IsDialogMessage of a panel, so that Tab, the
/// arrows and mnemonics work whoever runs the message loop. A message that a panel has consumed is made a
/// null message: nobody handles it a second time. Destroying the registration ends it.
class TS_API DialogMessageRegistration
{
  public:
    DialogMessageRegistration() = default;
    DialogMessageRegistration(const DialogMessageRegistration&) = delete;
    DialogMessageRegistration& operator=(const DialogMessageRegistration&) = delete;
    ~DialogMessageRegistration() { Remove(); }

    /// Registers this window instead of a former one; a second time does nothing. E_UNEXPECTED, and nothing
    /// registered, when the thread's messages cannot be hooked.
    HRESULT Register(HWND panel);
    void Remove() noexcept;

  private:
    HWND m_panel = nullptr;
};

} // namespace ts
