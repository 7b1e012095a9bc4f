#pragma once

#include "platform/WindowsHeaders.h"

#include <comdef.h>
#include <initializer_list>
#include <string>

/// What a program does that uses Outlook by late binding: asks for a dispatch id, then invokes.
namespace ts::standin::test
{

using Dispatch = _com_ptr_t<_com_IIID<IDispatch, &IID_IDispatch>>;

struct Answer
{
    HRESULT result = S_OK;
    HRESULT scode = S_OK; // the server's own error when the result is DISP_E_EXCEPTION
    _variant_t value;

    [[nodiscard]] bool Succeeded() const noexcept { return SUCCEEDED(result); }
    [[nodiscard]] Dispatch AsObject() const;
};

[[nodiscard]] HRESULT Activate(Dispatch& application, REFIID interfaceId);
/// Fails the test when there is none.
[[nodiscard]] Dispatch ActivateApplication();

using Values = std::initializer_list<_variant_t>;
Answer Invoke(const Dispatch& object, const wchar_t* member, WORD flags, Values arguments = {});
Answer Get(const Dispatch& object, const wchar_t* property);
Answer Put(const Dispatch& object, const wchar_t* property, const _variant_t& value);
Answer CallMethod(const Dispatch& object, const wchar_t* method, Values arguments = {});

[[nodiscard]] _variant_t Text(const wchar_t* text);
[[nodiscard]] _variant_t Date(int year, int month, int day, int hour = 0, int minute = 0);
[[nodiscard]] inline _variant_t Number(long value)
{
    return {value, VT_I4};
}

/// Saves an appointment with the subject and, as user property, the GUID.
Dispatch SaveAppointment(const Dispatch& application, const wchar_t* subject, const wchar_t* guid);

} // namespace ts::standin::test
