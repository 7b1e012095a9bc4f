#include "tests/outlook_standin/InterfaceRegistration.h"

#include "tests/outlook_standin/AutomationBase.h"

#include <oleauto.h>

namespace
{

using namespace ts::standin;

// {8E5B6D0C-2F63-4E0A-9D0B-6C1B7A5F3E21}
constexpr GUID kLibrary = {0x8E5B6D0C, 0x2F63, 0x4E0A, {0x9D, 0x0B, 0x6C, 0x1B, 0x7A, 0x5F, 0x3E, 0x21}};

template <typename Interface, const IID* id>
using Pointer = _com_ptr_t<_com_IIID<Interface, id>>;
using TypeInfoPtr = Pointer<ITypeInfo, &IID_ITypeInfo>;
using TypeLibPtr = Pointer<ITypeLib, &IID_ITypeLib>;
using NewLibraryPtr = Pointer<ICreateTypeLib2, &IID_ICreateTypeLib2>;
using NewTypePtr = Pointer<ICreateTypeInfo, &IID_ICreateTypeInfo>;

struct NamedInterface
{
    const wchar_t* name;
    IID id;
};
constexpr NamedInterface kInterfaces[] = {{L"_Application", kApplicationInterface},
                                          {L"_AppointmentItem", kAppointmentInterface},
                                          {L"MAPIFolder", kFolderInterface}};

void Check(HRESULT result, const char* step)
{
    if (FAILED(result))
    {
        throw std::runtime_error(std::string("cannot register the stand-in's interfaces: ") + step + ": " +
                                 std::to_string(result));
    }
}

TypeInfoPtr DispatchType()
{
    TypeLibPtr library;
    Check(LoadTypeLib(L"stdole2.tlb", &library), "stdole2.tlb");
    TypeInfoPtr type;
    Check(library->GetTypeInfoOfGuid(IID_IDispatch, &type), "IDispatch");
    return type;
}

std::wstring Mutable(const wchar_t* text)
{
    return text;
}

/// A dual interface without methods of its own.
void AddInterface(const NewLibraryPtr& library, const NamedInterface& named, const TypeInfoPtr& base)
{
    NewTypePtr type;
    Check(library->CreateTypeInfo(Mutable(named.name).data(), TKIND_INTERFACE, &type), "CreateTypeInfo");
    Check(type->SetGuid(named.id), "SetGuid");
    Check(type->SetTypeFlags(TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDISPATCHABLE), "flags");
    HREFTYPE reference = 0;
    Check(type->AddRefTypeInfo(base, &reference), "AddRefTypeInfo");
    Check(type->AddImplType(0, reference), "AddImplType");
    Check(type->LayOut(), "LayOut");
}

void WriteLibrary(const std::filesystem::path& file)
{
    NewLibraryPtr library;
    Check(CreateTypeLib2(SYS_WIN64, file.c_str(), &library), "CreateTypeLib2");
    Check(library->SetGuid(kLibrary), "SetGuid");
    Check(library->SetVersion(1, 0), "SetVersion");
    Check(library->SetName(Mutable(L"OutlookStandin").data()), "SetName");
    const TypeInfoPtr base = DispatchType();
    for (const NamedInterface& named : kInterfaces)
    {
        AddInterface(library, named, base);
    }
    Check(library->SaveAllChanges(), "SaveAllChanges");
}

} // namespace

void ts::standin::RegisterInterfaces(const std::filesystem::path& folder)
{
    if (!IsWine())
    {
        throw std::runtime_error("the stand-in for Outlook registers itself under Wine only");
    }
    const std::filesystem::path file = folder / L"standin.tlb";
    WriteLibrary(file);
    TypeLibPtr library;
    Check(LoadTypeLibEx(file.c_str(), REGKIND_REGISTER, &library), "LoadTypeLibEx");
}

void ts::standin::UnregisterInterfaces() noexcept
{
    UnRegisterTypeLib(kLibrary, 1, 0, LOCALE_NEUTRAL, SYS_WIN64);
}

bool ts::standin::IsWine() noexcept
{
    const HMODULE library = GetModuleHandleW(L"ntdll.dll");
    return library != nullptr && GetProcAddress(library, "wine_get_version") != nullptr;
}
