#pragma once

#include "ApplicationClass.h"

#include <memory>
#include <oaidl.h>

namespace ts::desktop
{

// COM's interfaces have no virtual destructor; objects are deleted by their own class only.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
/// The application as its clients see it: the property Visible and the method Quit.
class ApplicationObject : public IDispatch
{
  public:
    /// With one reference, which is the caller's.
    ApplicationObject(ApplicationClass& owner, AutomationTarget& target);
    ApplicationObject(const ApplicationObject&) = delete;
    ApplicationObject& operator=(const ApplicationObject&) = delete;
    virtual ~ApplicationObject();

    STDMETHODIMP QueryInterface(REFIID id, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() noexcept override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** type) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept override;

    /// The application is ending: from now on calls fail.
    void CutOff() noexcept;

  private:
    HRESULT GetVisible(const DISPPARAMS& parameters, VARIANT* result) const;
    HRESULT PutVisible(const DISPPARAMS& parameters, UINT* wrongArgument);

    ApplicationClass* m_owner;
    AutomationTarget* m_target;
    ULONG m_references = 1;
};
#pragma GCC diagnostic pop

} // namespace ts::desktop
