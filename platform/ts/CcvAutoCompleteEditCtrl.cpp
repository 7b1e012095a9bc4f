#include "platform/ts/CcvAutoCompleteEditCtrl.h"

#include "platform/ts/SuggestionList.h"

#include <comdef.h>
#include <memory>
#include <shldisp.h>
#include <shlguid.h>
#include <shobjidl.h>

IMPLEMENT_DYNAMIC(CcvAutoCompleteEditCtrl, CEdit)

BEGIN_MESSAGE_MAP(CcvAutoCompleteEditCtrl, CEdit)
ON_MESSAGE(WM_GETDLGCODE, OnGetDialogCode)
END_MESSAGE_MAP()

_COM_SMARTPTR_TYPEDEF(IAutoComplete2, __uuidof(IAutoComplete2));
_COM_SMARTPTR_TYPEDEF(IAutoCompleteDropDown, __uuidof(IAutoCompleteDropDown));

BOOL CcvAutoCompleteEditCtrl::SetSuggestions(std::vector<CString> suggestions)
{
    const std::unique_ptr<ts::SuggestionList, Releaser> list(
        new ts::SuggestionList(std::make_shared<const std::vector<CString>>(std::move(suggestions))));
    m_apartment.emplace();
    IAutoComplete2Ptr completion;
    const HRESULT created = CoCreateInstance(CLSID_AutoComplete, nullptr, CLSCTX_INPROC_SERVER,
                                             __uuidof(IAutoComplete2), std::bit_cast<void**>(&completion));
    if (FAILED(created))
    {
        return FALSE;
    }
    m_completion.reset(completion.GetInterfacePtr());
    m_completion->AddRef();
    return SUCCEEDED(completion->Init(m_hWnd, list.get(), nullptr, nullptr)) &&
           SUCCEEDED(completion->SetOptions(ACO_AUTOSUGGEST | ACO_UPDOWNKEYDROPSLIST));
}

void CcvAutoCompleteEditCtrl::PostNcDestroy()
{
    CEdit::PostNcDestroy();
    m_completion.reset();
    m_apartment.reset();
}

// Escape closes the list of suggestions first, and the dialog only when there is none.
LRESULT CcvAutoCompleteEditCtrl::OnGetDialogCode(WPARAM wParam, LPARAM lParam)
{
    const LRESULT code = Default();
    return wParam == VK_ESCAPE && lParam != 0 && IsOffering() ? code | DLGC_WANTMESSAGE : code;
}

bool CcvAutoCompleteEditCtrl::IsOffering() const
{
    IAutoCompleteDropDownPtr list;
    DWORD state = 0;
    return m_completion != nullptr &&
           SUCCEEDED(
               m_completion->QueryInterface(__uuidof(IAutoCompleteDropDown), std::bit_cast<void**>(&list))) &&
           SUCCEEDED(list->GetDropDownStatus(&state, nullptr)) && (state & ACDD_VISIBLE) != 0;
}
