#include "tests/outlook_standin/ClassFactory.h"

#include "tests/outlook_standin/Objects.h"

namespace
{

using ts::standin::Server;

// COM's interfaces have no virtual destructor; objects are deleted by their own class only.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
class ClassFactory : public IClassFactory
{
  public:
    explicit ClassFactory(std::shared_ptr<Server> server) : m_server(std::move(server)) {}
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) noexcept override
    {
        const bool known = interfaceId == IID_IUnknown || interfaceId == IID_IClassFactory;
        *object = known ? static_cast<IClassFactory*>(this) : nullptr;
        return known ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override
    {
        const ULONG left = --m_references;
        if (left == 0)
        {
            const std::unique_ptr<ClassFactory> last(this);
        }
        return left;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID interfaceId,
                                             void** object) noexcept override
    {
        *object = nullptr;
        if (outer != nullptr)
        {
            return CLASS_E_NOAGGREGATION;
        }
        try
        {
            m_server->Activate();
            const _variant_t application = ts::standin::FromObject<ts::standin::ApplicationObject>(m_server);
            return application.pdispVal->QueryInterface(interfaceId, object);
        }
        catch (const ts::standin::CallError& error)
        {
            return error.GetError();
        }
        catch (const std::bad_alloc&)
        {
            return E_OUTOFMEMORY;
        }
        catch (const std::exception&)
        {
            return E_UNEXPECTED;
        }
    }

    /// A client that locks the server keeps it running as an object of its own would.
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override
    {
        m_server->CountObject(lock != FALSE ? 1 : -1);
        return S_OK;
    }

  protected:
    virtual ~ClassFactory() = default;

  private:
    friend struct std::default_delete<ClassFactory>;
    std::shared_ptr<Server> m_server;
    std::atomic<ULONG> m_references{1};
};
#pragma GCC diagnostic pop

} // namespace

ts::standin::ClassRegistration::ClassRegistration(const std::shared_ptr<Server>& server)
{
    IClassFactory* const factory = std::make_unique<ClassFactory>(server).release();
    const HRESULT result =
        CoRegisterClassObject(kOutlookClass, factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &m_cookie);
    factory->Release();
    if (FAILED(result))
    {
        throw std::runtime_error("cannot register the stand-in's class: " + std::to_string(result));
    }
}

void ts::standin::ClassRegistration::Revoke() noexcept
{
    if (m_cookie != 0)
    {
        CoRevokeClassObject(m_cookie);
        m_cookie = 0;
    }
}
