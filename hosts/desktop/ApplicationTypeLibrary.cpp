#include "ApplicationTypeLibrary.h"

#include "ApplicationIds.h"

#include <comdef.h>
#include <oleauto.h>
#include <shlobj.h>
#include <stdexcept>
#include <string>

namespace ts::desktop
{
namespace
{

template <typename Interface, const IID* id>
using Pointer = _com_ptr_t<_com_IIID<Interface, id>>;
using TypeInfoPtr = Pointer<ITypeInfo, &IID_ITypeInfo>;
using TypeLibPtr = Pointer<ITypeLib, &IID_ITypeLib>;
using NewLibraryPtr = Pointer<ICreateTypeLib2, &IID_ICreateTypeLib2>;
using NewTypePtr = Pointer<ICreateTypeInfo, &IID_ICreateTypeInfo>;

void Check(HRESULT result, const char* step)
{
    if (FAILED(result))
    {
        throw std::runtime_error(std::string("the type library cannot be written: ") + step +
                                 " failed with " + std::to_string(result));
    }
}

/// The functions below take names that they could change.
std::wstring Changeable(const wchar_t* text)
{
    return text;
}

TypeInfoPtr DispatchType()
{
    TypeLibPtr library;
    Check(LoadTypeLib(L"stdole2.tlb", &library), "loading stdole2.tlb");
    TypeInfoPtr type;
    Check(library->GetTypeInfoOfGuid(IID_IDispatch, &type), "finding IDispatch");
    return type;
}

/// A dual interface without methods of its own.
void AddInterface(const NewLibraryPtr& library)
{
    NewTypePtr type;
    Check(library->CreateTypeInfo(Changeable(kApplicationInterfaceName).data(), TKIND_INTERFACE, &type),
          "CreateTypeInfo");
    Check(type->SetGuid(kApplicationInterface), "SetGuid");
    Check(type->SetTypeFlags(TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDISPATCHABLE),
          "SetTypeFlags");
    HREFTYPE reference = 0;
    Check(type->AddRefTypeInfo(DispatchType(), &reference), "AddRefTypeInfo");
    Check(type->AddImplType(0, reference), "AddImplType");
    Check(type->LayOut(), "LayOut");
}

} // namespace

std::filesystem::path TypeLibraryFile()
{
    wchar_t folder[MAX_PATH] = L"";
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, folder)))
    {
        throw std::runtime_error("the folder of the user's application data cannot be found");
    }
    return std::filesystem::path(folder) / L"Corvane" / L"Tessaly" / L"25" / L"TessalyHost.tlb";
}

void WriteTypeLibrary(const std::filesystem::path& file)
{
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    NewLibraryPtr library;
    Check(CreateTypeLib2(SYS_WIN64, file.c_str(), &library), "CreateTypeLib2");
    Check(library->SetGuid(kTypeLibrary), "SetGuid");
    Check(library->SetVersion(1, 0), "SetVersion");
    Check(library->SetName(Changeable(L"Tessaly").data()), "SetName");
    AddInterface(library);
    Check(library->SaveAllChanges(), "SaveAllChanges");
}

} // namespace ts::desktop
