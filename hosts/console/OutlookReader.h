#pragma once

#include "TsServiceUtilities.h"

#include <comdef.h>
#include <initializer_list>
#include <optional>

/// Looks at Outlook's calendar, apart from the library, to check what it did there. Late-bound, so that any
/// Outlook will do. Calls that fail raise OperationError.
namespace ts::console
{

/// An object of Outlook's, never null, whose members are reached by name.
class OutlookObject
{
  public:
    using Pointer = _com_ptr_t<_com_IIID<IDispatch, &IID_IDispatch>>;
    using Arguments = std::initializer_list<_variant_t>;

    explicit OutlookObject(const Pointer& object) : m_object(object) {}

    /// Reads a property, or calls a method.
    _variant_t Ask(const wchar_t* member, Arguments arguments = {}) const;
    /// The same with an answer of that type. Any other answer is a failure.
    [[nodiscard]] OutlookObject Object(const wchar_t* member, Arguments arguments = {}) const;
    [[nodiscard]] CString Text(const wchar_t* member) const;
    [[nodiscard]] long Number(const wchar_t* member) const;
    [[nodiscard]] DATE Date(const wchar_t* member) const;

  private:
    [[nodiscard]] _variant_t AskAs(VARTYPE type, const wchar_t* member) const;

    Pointer m_object;
};

/// The calling thread's use of COM.
class ComApartment
{
  public:
    ComApartment() noexcept : m_entered(SUCCEEDED(CoInitialize(nullptr))) {}
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment()
    {
        if (m_entered)
        {
            CoUninitialize();
        }
    }

  private:
    bool m_entered;
};

/// The running Outlook, or one that is started and stays while this lives.
class OutlookReader
{
  public:
    /// Raises OperationError when Outlook cannot be started.
    OutlookReader();

    /// The appointment with that entry id, if it is in a calendar folder and one of its user properties is
    /// `objectGuid`. A deleted one is in another folder, if at all.
    [[nodiscard]] std::optional<OutlookObject> FindAppointment(const CString& entryId,
                                                               const CString& objectGuid) const;

  private:
    ComApartment m_apartment;
    std::optional<OutlookObject> m_session;
};

/// Whether the recurring appointment has an occurrence at that local time.
[[nodiscard]] bool HasOccurrence(const OutlookObject& appointment, DATE time);

/// The local date and time as Outlook takes it.
[[nodiscard]] DATE OutlookDate(const CTime& time);

} // namespace ts::console
