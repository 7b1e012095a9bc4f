#include "platform/ts/CcvAutoCompleteEditCtrl.h"

#include "platform/ts/SuggestionList.h"

#include <comdef.h>
#include <memory>
#include <shldisp.h>
#include <shlguid.h>

IMPLEMENT_DYNAMIC(CcvAutoCompleteEditCtrl, CEdit)

_COM_SMARTPTR_TYPEDEF(IAutoComplete2, __uuidof(IAutoComplete2));

namespace
{

struct Releaser
{
    void operator()(ts::SuggestionList* list) const noexcept { list->Release(); }
};

} // namespace

BOOL CcvAutoCompleteEditCtrl::SetSuggestions(std::vector<CString> suggestions)
{
    const std::unique_ptr<ts::SuggestionList, Releaser> list(
        new ts::SuggestionList(std::make_shared<const std::vector<CString>>(std::move(suggestions))));
    m_apartment.emplace();
    IAutoComplete2Ptr completion;
    const HRESULT created = CoCreateInstance(CLSID_AutoComplete, nullptr, CLSCTX_INPROC_SERVER,
                                             __uuidof(IAutoComplete2), std::bit_cast<void**>(&completion));
    return SUCCEEDED(created) && SUCCEEDED(completion->Init(m_hWnd, list.get(), nullptr, nullptr)) &&
           SUCCEEDED(completion->SetOptions(ACO_AUTOSUGGEST | ACO_UPDOWNKEYDROPSLIST));
}

void CcvAutoCompleteEditCtrl::PostNcDestroy()
{
    CEdit::PostNcDestroy();
    m_apartment.reset();
}
