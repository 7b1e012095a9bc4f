#include "dialogs/HostApplication.h"

#include "collection/SynchronizationMessage.h"
#include "module/CcvComException.h"
#include "outlook/AutomationObject.h"
#include "platform/ComApartment.h"
#include "platform/ts/CcvTimedBackgroundWaiter.h"

namespace ts
{
namespace
{

constinit const AutomationMember kVisible(L"Visible");

HWND FindMainWindow()
{
    return FindWindowW(kMainWindowClass, nullptr);
}

DispatchPtr CreateApplication()
{
    CLSID classId;
    void* created = nullptr;
    if (SUCCEEDED(CLSIDFromProgID(kApplicationProgId, &classId)))
    {
        CoCreateInstance(classId, nullptr, CLSCTX_ALL, kApplicationInterface, &created);
    }
    return {static_cast<IDispatch*>(created), false};
}

} // namespace

/// An application that was started, as long as this keeps it.
class HostApplication::Started
{
  public:
    explicit Started(CWnd& waiting) : m_application(CreateApplication())
    {
        if (m_application == nullptr)
        {
            return;
        }
        try
        {
            const CcvTimedBackgroundWaiter waiter(&waiting, kTimeoutMilliseconds, kIntervalMilliseconds);
            const auto hasWindow = [] { return FindMainWindow() != nullptr; };
            waiter.Wait(hasWindow);
            AutomationObject(m_application).Put(kVisible, BoolValue(true));
            waiter.Wait(hasWindow);
        }
        catch (const CcvComException&)
        {
            // What counts is whether there is a main window.
        }
    }

  private:
    static constexpr DWORD kTimeoutMilliseconds = 1000;
    static constexpr DWORD kIntervalMilliseconds = 100;

    // First in, last out.
    ComApartment m_com;
    DispatchPtr m_application;
};

HostApplication::HostApplication(CWnd& waiting) : m_mainWindow(FindMainWindow())
{
    if (m_mainWindow == nullptr)
    {
        m_started = std::make_unique<Started>(waiting);
        m_mainWindow = FindMainWindow();
    }
}

HostApplication::~HostApplication() = default;

void HostApplication::Show() const
{
    if (IsIconic(m_mainWindow) != FALSE)
    {
        PostMessageW(m_mainWindow, WM_SYSCOMMAND, SC_RESTORE, 0);
    }
    SetForegroundWindow(m_mainWindow);
}

void HostApplication::PostOpenReminder(int collectionIndex) const
{
    PostMessageW(m_mainWindow, kOpenReminderMessage, 0, collectionIndex);
}

} // namespace ts
