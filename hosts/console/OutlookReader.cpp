#include "OutlookReader.h"

#include "Errors.h"
#include "Strings.h"

#include <array>
#include <cstdio>
#include <vector>

namespace ts::console
{
namespace
{

constexpr CLSID kOutlookApplication = {0x0006F03A, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr long kAppointmentItem = 1; // olAppointmentItem
constexpr long kFolderCalendar = 9;  // olFolderCalendar

std::string HexText(HRESULT result)
{
    std::array<char, 11> text{};
    std::snprintf(text.data(), text.size(), "0x%08lX", static_cast<unsigned long>(result));
    return text.data();
}

[[noreturn]] void ThrowFailed(const wchar_t* member, HRESULT result, const std::string& description = {})
{
    throw OperationError("Outlook answers " + HexText(result) + " to " + FromLibrary(member) +
                         (description.empty() ? "" : ": " + description));
}

void Check(HRESULT result, const wchar_t* member)
{
    if (FAILED(result))
    {
        ThrowFailed(member, result);
    }
}

_variant_t TextArgument(const CString& text)
{
    return {text.GetString()};
}

bool CarriesGuid(const OutlookObject& appointment, const CString& objectGuid)
{
    const OutlookObject properties = appointment.Object(L"UserProperties");
    const long count = properties.Number(L"Count");
    for (long index = 1; index <= count; ++index)
    {
        if (properties.Object(L"Item", {_variant_t(index, VT_I4)}).Text(L"Value") == objectGuid)
        {
            return true;
        }
    }
    return false;
}

OutlookObject StartOutlook()
{
    void* created = nullptr;
    const HRESULT result =
        CoCreateInstance(kOutlookApplication, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch, &created);
    if (FAILED(result) || created == nullptr)
    {
        throw OperationError("Outlook is not installed, or cannot be started (" + HexText(result) + ")");
    }
    return OutlookObject(OutlookObject::Pointer(static_cast<IDispatch*>(created), false));
}

/// What a server says about a call that failed, which the caller is to free.
struct ServerError : EXCEPINFO
{
    ServerError() noexcept : EXCEPINFO() {}
    ServerError(const ServerError&) = delete;
    ServerError& operator=(const ServerError&) = delete;
    ~ServerError()
    {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
};

} // namespace

_variant_t OutlookObject::Ask(const wchar_t* member, Arguments arguments) const
{
    DISPID id = DISPID_UNKNOWN;
    std::wstring name = member;
    wchar_t* names = name.data();
    Check(m_object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id), member);
    // Automation takes arguments from the last to the first.
    std::vector<VARIANT> reversed(std::rbegin(arguments), std::rend(arguments));
    DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    _variant_t answer;
    ServerError error;
    const HRESULT result =
        m_object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                         &parameters, &answer, &error, nullptr);
    if (result == DISP_E_EXCEPTION)
    {
        ThrowFailed(
            member, error.scode,
            FromLibrary({error.bstrDescription, static_cast<int>(SysStringLen(error.bstrDescription))}));
    }
    Check(result, member);
    return answer;
}

OutlookObject OutlookObject::Object(const wchar_t* member, Arguments arguments) const
{
    const _variant_t answer = Ask(member, arguments);
    if (answer.vt != VT_DISPATCH || answer.pdispVal == nullptr)
    {
        ThrowFailed(member, DISP_E_TYPEMISMATCH);
    }
    return OutlookObject(Pointer(answer.pdispVal));
}

_variant_t OutlookObject::AskAs(VARTYPE type, const wchar_t* member) const
{
    _variant_t answer = Ask(member);
    Check(VariantChangeType(&answer, &answer, 0, type), member);
    return answer;
}

CString OutlookObject::Text(const wchar_t* member) const
{
    const _variant_t answer = AskAs(VT_BSTR, member);
    return {answer.bstrVal, static_cast<int>(SysStringLen(answer.bstrVal))};
}

long OutlookObject::Number(const wchar_t* member) const
{
    return AskAs(VT_I4, member).lVal;
}

DATE OutlookObject::Date(const wchar_t* member) const
{
    return AskAs(VT_DATE, member).date;
}

OutlookReader::OutlookReader() : m_session(StartOutlook().Object(L"GetNamespace", {TextArgument(L"MAPI")}))
{
}

std::optional<OutlookObject> OutlookReader::FindAppointment(const CString& entryId,
                                                            const CString& objectGuid) const
{
    std::optional<OutlookObject> item;
    try
    {
        item = m_session->Object(L"GetItemFromID", {TextArgument(entryId)});
    }
    catch (const OperationError&)
    {
        // An Outlook that has gone finds nothing either; that raises here.
        static_cast<void>(m_session->Object(L"GetDefaultFolder", {_variant_t(kFolderCalendar, VT_I4)}));
        return std::nullopt;
    }
    const bool found = item->Object(L"Parent").Number(L"DefaultItemType") == kAppointmentItem &&
                       CarriesGuid(*item, objectGuid);
    return found ? item : std::nullopt;
}

bool HasOccurrence(const OutlookObject& appointment, DATE time)
{
    const OutlookObject pattern = appointment.Object(L"GetRecurrencePattern");
    try
    {
        pattern.Ask(L"GetOccurrence", {_variant_t(time, VT_DATE)});
        return true;
    }
    catch (const OperationError&)
    {
        return false;
    }
}

DATE OutlookDate(const CTime& time)
{
    SYSTEMTIME local;
    DATE date = 0;
    if (time.GetAsSystemTime(local))
    {
        SystemTimeToVariantTime(&local, &date);
    }
    return date;
}

} // namespace ts::console
