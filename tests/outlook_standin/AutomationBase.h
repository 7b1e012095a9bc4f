#pragma once

#include "tests/outlook_standin/Server.h"
#include "tests/outlook_standin/Values.h"

#include <memory>
#include <vector>

namespace ts::standin
{

// {00063001-0000-0000-C000-000000000046} and so on: Outlook's identities differ in their first number only.
[[nodiscard]] constexpr GUID OutlookIdentity(unsigned long first) noexcept
{
    return {first, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
}
inline constexpr CLSID kOutlookClass = OutlookIdentity(0x0006F03A);
inline constexpr IID kApplicationInterface = OutlookIdentity(0x00063001);
inline constexpr IID kAppointmentInterface = OutlookIdentity(0x00063033);
inline constexpr IID kFolderInterface = OutlookIdentity(0x00063006);

// Errors as Outlook reports them.
inline constexpr HRESULT kNotFound = static_cast<HRESULT>(0x8004010F);       // MAPI_E_NOT_FOUND
inline constexpr HRESULT kMovedOrDeleted = static_cast<HRESULT>(0x8004010A); // MAPI_E_OBJECT_DELETED

class AutomationBase;

/// A member of one kind of object: a property has `get`, perhaps with arguments, and `put`; a method has
/// `call`.
struct Member
{
    const wchar_t* name = nullptr;
    _variant_t (*get)(AutomationBase&, const Arguments&) = nullptr;
    void (*put)(AutomationBase&, const VARIANT&) = nullptr;
    _variant_t (*call)(AutomationBase&, const Arguments&) = nullptr;
};

/// A kind of object. Dispatch ids of two kinds never coincide, so that an id that is used for the wrong kind
/// is an error, as it is with Outlook.
struct Kind
{
    const wchar_t* name;
    DISPID firstId;
    IID interfaceId; // IID_NULL for a kind that is reached by IDispatch only
    std::vector<Member> members;
};

// COM's interfaces have no virtual destructor; objects are deleted by their own class only.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
/// An object of the stand-in: IDispatch over a table of members. Starts with one reference.
class AutomationBase : public IDispatch
{
  public:
    AutomationBase(std::shared_ptr<Server> server, const Kind& kind);
    AutomationBase(const AutomationBase&) = delete;
    AutomationBase& operator=(const AutomationBase&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* error, UINT*) noexcept override;

    [[nodiscard]] const std::shared_ptr<Server>& GetServer() const noexcept { return m_server; }

  protected:
    virtual ~AutomationBase();

  private:
    friend struct std::default_delete<AutomationBase>;
    const Member& FindMember(DISPID id) const;
    _variant_t Perform(const Member& member, WORD flags, const Arguments& arguments);

    std::shared_ptr<Server> m_server;
    const Kind* m_kind;
    std::atomic<ULONG> m_references{1};
};
#pragma GCC diagnostic pop

/// A new object, as the answer to a call.
template <typename Object, typename... Parts>
_variant_t FromObject(Parts&&... parts)
{
    _variant_t answer;
    answer.pdispVal = std::make_unique<Object>(std::forward<Parts>(parts)...).release();
    answer.vt = VT_DISPATCH;
    return answer;
}

// Entries of a table of members, out of functions that know the object's own class.
template <typename Object, auto read>
_variant_t GetOf(AutomationBase& object, const Arguments&)
{
    return read(static_cast<Object&>(object));
}
template <typename Object, auto write>
void PutOf(AutomationBase& object, const VARIANT& value)
{
    write(static_cast<Object&>(object), value);
}
template <typename Object, auto perform>
_variant_t CallOf(AutomationBase& object, const Arguments& arguments)
{
    return perform(static_cast<Object&>(object), arguments);
}

} // namespace ts::standin
