#pragma once

#include "platform/ComApartment.h"
#include "platform/mfc/BasicControls.h"

#include <memory>
#include <optional>
#include <unknwn.h>
#include <vector>

/// An edit control that offers texts to choose from while the user types, with the shell's auto-completion.
class CcvAutoCompleteEditCtrl : public CEdit
{
    DECLARE_DYNAMIC(CcvAutoCompleteEditCtrl)

  public:
    /// Offers these texts as long as the window lives; once for a window. False, and an ordinary edit
    /// control, where the shell cannot do it.
    BOOL SetSuggestions(std::vector<CString> suggestions);

  protected:
    void PostNcDestroy() override;

    LRESULT OnGetDialogCode(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

  private:
    struct Releaser
    {
        void operator()(IUnknown* object) const noexcept { object->Release(); }
    };

    [[nodiscard]] bool IsOffering() const;

    // The shell's object lives with the window and needs COM for as long.
    std::optional<ts::ComApartment> m_apartment;
    std::unique_ptr<IUnknown, Releaser> m_completion;
};
