#pragma once

#include "platform/mfc/BasicControls.h"

#include <vector>

/// A push button with a menu of variants behind an arrow. A click on the main part sends the button's own
/// number as a command; a choice from the menu, which the arrow and the Down key open, sends the choice's.
class CcvSplitMenuButton : public CButton
{
    DECLARE_DYNAMIC(CcvSplitMenuButton)

  public:
    using CButton::Create;
    /// `style` as for a push button, the default one or not.
    BOOL Create(const wchar_t* caption, DWORD style, const RECT& rect, CWnd* parent, UINT id) override;
    /// Adds an item below the others; `flags` as for AppendMenu. Whether it is enabled is asked of the parent
    /// each time the menu opens.
    void AddMenuItem(UINT id, const CString& text, UINT flags);

  protected:
    DECLARE_MESSAGE_MAP()

  private:
    struct Item
    {
        UINT id;
        CString text;
        UINT flags;
    };

    void OnDropDown(NMHDR* notification, LRESULT* result);
    void OnKeyDown(UINT key, UINT repeats, UINT flags);
    UINT OnGetDlgCode();
    void ShowMenu();
    [[nodiscard]] UINT Choose() const;

    std::vector<Item> m_items;
};
