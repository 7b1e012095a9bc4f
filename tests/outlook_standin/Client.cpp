#include "tests/outlook_standin/Client.h"

#include "tests/outlook_standin/AutomationBase.h"

#include <cguid.h>
#include <gtest/gtest.h>
#include <vector>

namespace ts::standin::test
{

Dispatch Answer::AsObject() const
{
    EXPECT_EQ(result, S_OK);
    return value.vt == VT_DISPATCH ? Dispatch(value.pdispVal) : Dispatch();
}

HRESULT Activate(Dispatch& application, REFIID interfaceId)
{
    void* created = nullptr;
    const HRESULT result =
        CoCreateInstance(kOutlookClass, nullptr, CLSCTX_LOCAL_SERVER, interfaceId, &created);
    application.Attach(static_cast<IDispatch*>(created));
    return result;
}

Dispatch ActivateApplication()
{
    Dispatch application;
    EXPECT_EQ(Activate(application, kApplicationInterface), S_OK);
    return application;
}

Answer Invoke(const Dispatch& object, const wchar_t* member, WORD flags, Values arguments)
{
    Answer answer;
    if (object == nullptr)
    {
        answer.result = E_POINTER;
        return answer;
    }
    std::wstring name(member);
    LPOLESTR names = name.data();
    DISPID id = DISPID_UNKNOWN;
    answer.result = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(answer.result))
    {
        return answer;
    }
    std::vector<VARIANT> reversed(std::rbegin(arguments), std::rend(arguments));
    const bool isPut = (flags & DISPATCH_PROPERTYPUT) != 0;
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), isPut ? &put : nullptr, static_cast<UINT>(reversed.size()),
                          isPut ? 1U : 0U};
    EXCEPINFO error{};
    answer.result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                   isPut ? nullptr : &answer.value, &error, nullptr);
    answer.scode = error.scode;
    SysFreeString(error.bstrSource);
    SysFreeString(error.bstrDescription);
    SysFreeString(error.bstrHelpFile);
    return answer;
}

Answer Get(const Dispatch& object, const wchar_t* property)
{
    return Invoke(object, property, DISPATCH_PROPERTYGET);
}

Answer Put(const Dispatch& object, const wchar_t* property, const _variant_t& value)
{
    return Invoke(object, property, DISPATCH_PROPERTYPUT, {value});
}

Answer CallMethod(const Dispatch& object, const wchar_t* method, Values arguments)
{
    return Invoke(object, method, DISPATCH_METHOD, arguments);
}

_variant_t Text(const wchar_t* text)
{
    return FromText(text);
}

_variant_t Date(int year, int month, int day, int hour, int minute)
{
    SYSTEMTIME fields{};
    fields.wYear = static_cast<WORD>(year);
    fields.wMonth = static_cast<WORD>(month);
    fields.wDay = static_cast<WORD>(day);
    fields.wHour = static_cast<WORD>(hour);
    fields.wMinute = static_cast<WORD>(minute);
    double date = 0;
    EXPECT_NE(SystemTimeToVariantTime(&fields, &date), FALSE);
    return FromDate(date);
}

Dispatch SaveAppointment(const Dispatch& application, const wchar_t* subject, const wchar_t* guid)
{
    Dispatch item = CallMethod(application, L"CreateItem", {Number(kAppointmentItem)}).AsObject();
    EXPECT_TRUE(Put(item, L"Subject", Text(subject)).Succeeded());
    const Dispatch properties = Get(item, L"UserProperties").AsObject();
    const Dispatch property =
        CallMethod(properties, L"Add", {Text(L"Guid"), Number(kTextProperty), _variant_t(true), Number(1)})
            .AsObject();
    EXPECT_TRUE(Put(property, L"Value", Text(guid)).Succeeded());
    EXPECT_TRUE(CallMethod(item, L"Save").Succeeded());
    return item;
}

} // namespace ts::standin::test
