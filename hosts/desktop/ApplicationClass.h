#pragma once

#include "ApplicationIds.h"

#include "platform/WindowsHeaders.h"

#include <set>

namespace ts::desktop
{

class ApplicationObject;

/// What the application's automation objects work on. All calls come on the thread of the main window.
class AutomationTarget
{
  public:
    AutomationTarget() = default;
    AutomationTarget(const AutomationTarget&) = delete;
    AutomationTarget& operator=(const AutomationTarget&) = delete;

    [[nodiscard]] virtual bool IsVisible() const = 0;
    virtual void SetVisible(bool visible) = 0;
    /// Ends the application once the call is answered.
    virtual void Quit() = 0;
    /// The last client has gone. True when the application goes on, false when it is about to end.
    virtual bool StaysWithoutClients() = 0;

  protected:
    ~AutomationTarget() = default;
};

/// The application's class at COM for as long as it lives: clients that create an object get one of this
/// process. Lives on the thread of the main window, in an apartment of its own.
class ApplicationClass
{
  public:
    /// Raises std::runtime_error when COM refuses.
    explicit ApplicationClass(AutomationTarget& target);
    ApplicationClass(const ApplicationClass&) = delete;
    ApplicationClass& operator=(const ApplicationClass&) = delete;
    /// Objects that clients still hold are cut off from them.
    ~ApplicationClass();

    /// Whether a client ever came.
    [[nodiscard]] bool WasUsed() const noexcept { return m_used; }

  private:
    class Factory;
    friend class ApplicationObject;

    void AddClient() noexcept;
    void RemoveClient() noexcept;

    AutomationTarget* m_target;
    Factory* m_factory = nullptr;
    DWORD m_registration = 0;
    std::set<ApplicationObject*> m_objects;
    bool m_used = false;
};

} // namespace ts::desktop
