#pragma once

#include "platform/WindowsHeaders.h"

#include <functional>
#include <memory>
#include <oaidl.h>
#include <objbase.h>

namespace ts::test
{

/// Stands for the application's automation server, within this process: registered under its ProgID while it
/// lives. One at a time.
class ApplicationServer
{
  public:
    /// `context` is the kind of server that its clients find.
    explicit ApplicationServer(DWORD context = CLSCTX_LOCAL_SERVER);
    ApplicationServer(const ApplicationServer&) = delete;
    ApplicationServer& operator=(const ApplicationServer&) = delete;
    ~ApplicationServer();

    /// Called when somebody sets the property "Visible".
    std::function<void(VARIANT_BOOL)> onVisible;
    /// The result of setting it.
    HRESULT failure = S_OK;
    /// Whether its objects have the application's interface.
    bool hasInterface = true;

    /// Objects that were made, and those that somebody still holds.
    [[nodiscard]] int Created() const noexcept { return m_created; }
    [[nodiscard]] int Alive() const noexcept { return m_alive; }

  private:
    class Application;
    class Factory;

    int m_created = 0;
    int m_alive = 0;
    DWORD m_registration = 0;
    std::unique_ptr<Factory> m_factory;
};

} // namespace ts::test
