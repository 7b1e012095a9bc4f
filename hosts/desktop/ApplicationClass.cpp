#include "ApplicationClass.h"

#include "ApplicationObject.h"

#include <memory>
#include <new>
#include <objbase.h>
#include <stdexcept>
#include <string>
#include <utility>

namespace ts::desktop
{

// COM's interfaces have no virtual destructor; objects are deleted by their own class only.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
/// Counts its references, because COM may let go of it later than its class is revoked.
class ApplicationClass::Factory : public IClassFactory
{
  public:
    explicit Factory(ApplicationClass& owner) : m_owner(&owner) {}
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;
    virtual ~Factory() = default;

    void CutOff() noexcept { m_owner = nullptr; }

    STDMETHODIMP QueryInterface(REFIID id, void** object) noexcept override
    {
        const bool known = id == IID_IUnknown || id == IID_IClassFactory;
        *object = known ? this : nullptr;
        if (known)
        {
            AddRef();
        }
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() noexcept override
    {
        const ULONG left = --m_references;
        if (left == 0)
        {
            const std::unique_ptr<Factory> last(this);
        }
        return left;
    }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) noexcept override
    {
        *object = nullptr;
        if (outer != nullptr)
        {
            return CLASS_E_NOAGGREGATION;
        }
        if (m_owner == nullptr)
        {
            return CO_E_SERVER_STOPPING;
        }
        try
        {
            auto* const created = std::make_unique<ApplicationObject>(*m_owner, *m_owner->m_target).release();
            const HRESULT result = created->QueryInterface(id, object);
            created->Release();
            return result;
        }
        catch (const std::bad_alloc&)
        {
            return E_OUTOFMEMORY;
        }
    }

    /// A client that locks the server keeps it as an object of its own would.
    STDMETHODIMP LockServer(BOOL lock) noexcept override
    {
        if (m_owner == nullptr)
        {
            return CO_E_SERVER_STOPPING;
        }
        lock != FALSE ? m_owner->AddClient() : m_owner->RemoveClient();
        return S_OK;
    }

  private:
    ApplicationClass* m_owner;
    ULONG m_references = 1;
};
#pragma GCC diagnostic pop

ApplicationClass::ApplicationClass(AutomationTarget& target)
    : m_target(&target), m_factory(std::make_unique<Factory>(*this).release())
{
    const HRESULT result = CoRegisterClassObject(kApplicationClass, m_factory, CLSCTX_LOCAL_SERVER,
                                                 REGCLS_MULTIPLEUSE, &m_registration);
    if (FAILED(result))
    {
        m_factory->CutOff();
        m_factory->Release();
        throw std::runtime_error("the application cannot be offered to other programs: COM error " +
                                 std::to_string(result));
    }
}

ApplicationClass::~ApplicationClass()
{
    CoRevokeClassObject(m_registration);
    m_factory->CutOff();
    m_factory->Release();
    const std::set<ApplicationObject*> objects = std::exchange(m_objects, {});
    for (ApplicationObject* const object : objects)
    {
        object->AddRef();
        object->CutOff();
        CoDisconnectObject(object, 0);
        object->Release();
        CoReleaseServerProcess();
    }
}

void ApplicationClass::AddClient() noexcept
{
    m_used = true;
    CoAddRefServerProcess();
}

void ApplicationClass::RemoveClient() noexcept
{
    // At the last one COM keeps new clients away, so that none meets an application that is ending.
    if (CoReleaseServerProcess() == 0 && m_target->StaysWithoutClients())
    {
        CoResumeClassObjects();
    }
}

} // namespace ts::desktop
