#include "tests/dialogs/ApplicationServer.h"

#include "dialogs/HostApplication.h"
#include "tests/support/RawRegistry.h"

#include <stdexcept>
#include <string>

// The interfaces of COM have no virtual destructor: objects end in their Release.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace ts::test
{
namespace
{

constexpr CLSID kClass = {0x5B0A7D1E, 0x3C44, 0x4E0B, {0x8E, 0x11, 0x90, 0x6B, 0x0A, 0x27, 0x51, 0xD2}};
constexpr wchar_t kClassText[] = L"{5B0A7D1E-3C44-4E0B-8E11-906B0A2751D2}";
constexpr DISPID kVisible = 7;

void Require(HRESULT result)
{
    if (FAILED(result))
    {
        throw std::runtime_error("the application cannot be registered");
    }
}

} // namespace

/// An object of the application, with one property.
class ApplicationServer::Application : public IDispatch
{
  public:
    explicit Application(ApplicationServer& server) : m_server(server)
    {
        ++m_server.m_created;
        ++m_server.m_alive;
    }
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    STDMETHODIMP QueryInterface(REFIID id, void** object) override
    {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ||
                           (m_server.hasInterface && IsEqualIID(id, kApplicationInterface));
        *object = known ? this : nullptr;
        if (known)
        {
            AddRef();
        }
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_count; }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --m_count;
        if (left == 0)
        {
            const std::unique_ptr<Application> ended(this);
        }
        return left;
    }

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override
    {
        *ids = std::wstring(*names) == L"Visible" ? kVisible : DISPID_UNKNOWN;
        return *ids == kVisible ? S_OK : DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) override
    {
        if (id != kVisible || kind != DISPATCH_PROPERTYPUT || parameters->cArgs != 1 ||
            parameters->rgvarg[0].vt != VT_BOOL)
        {
            return DISP_E_MEMBERNOTFOUND;
        }
        if (m_server.onVisible)
        {
            m_server.onVisible(parameters->rgvarg[0].boolVal);
        }
        return m_server.failure;
    }

  private:
    friend std::default_delete<Application>;
    virtual ~Application() { --m_server.m_alive; }

    ApplicationServer& m_server;
    ULONG m_count = 1;
};

class ApplicationServer::Factory : public IClassFactory
{
  public:
    explicit Factory(ApplicationServer& server) : m_server(server) {}
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;
    virtual ~Factory() = default;

    STDMETHODIMP QueryInterface(REFIID id, void** object) override
    {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // The server owns it.
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID id, void** object) override
    {
        auto* const application = std::make_unique<Application>(m_server).release();
        const HRESULT result = application->QueryInterface(id, object);
        application->Release();
        return result;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

  private:
    ApplicationServer& m_server;
};

ApplicationServer::ApplicationServer(DWORD context) : m_factory(std::make_unique<Factory>(*this))
{
    CoInitialize(nullptr);
    // COM reads the machine's classes, which the sandbox of the tests does not redirect.
    RawKey(std::wstring(kApplicationProgId) + L"\\CLSID", HKEY_CLASSES_ROOT).Write(L"", RawText(kClassText));
    Require(CoRegisterClassObject(kClass, m_factory.get(), context, REGCLS_MULTIPLEUSE, &m_registration));
}

ApplicationServer::~ApplicationServer()
{
    CoRevokeClassObject(m_registration);
    DeleteKeyTree(kApplicationProgId, HKEY_CLASSES_ROOT);
    CoUninitialize();
}

} // namespace ts::test
