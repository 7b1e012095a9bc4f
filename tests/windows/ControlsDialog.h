#pragma once

#include "platform/mfc/afxcmn.h"
#include "platform/mfc/afxdtctl.h"
#include "platform/mfc/afxwin.h"
#include "tests/windows/TestDialogs.h"

#include <functional>
#include <string>

namespace ts::test
{

/// A control that counts how often it draws itself.
class DrawnStatic : public CStatic
{
  public:
    void DrawItem(DRAWITEMSTRUCT* item) override
    {
        ++m_drawn;
        m_itemWindow = item->hwndItem;
    }
    int m_drawn = 0;
    HWND m_itemWindow = nullptr;
};

class DrawnList : public CListCtrl
{
  public:
    void DrawItem(DRAWITEMSTRUCT*) override { ++m_drawn; }
    int m_drawn = 0;
};

/// An edit control that hears of its own changes.
class ListeningEdit : public CEdit
{
  public:
    int m_changes = 0;

  protected:
    void OnChange() { ++m_changes; }
    DECLARE_MESSAGE_MAP()
};

/// A dialog with one control of each kind, exchanged with members of every type.
class ControlsDialog : public CDialog
{
    DECLARE_DYNAMIC(ControlsDialog)

  public:
    explicit ControlsDialog(CWnd* parent = nullptr, UINT id = IDD_CONTROLS) : CDialog(id, parent) {}

    CString m_value = L"some text";
    int m_number = 5;
    int m_check = BST_CHECKED;
    int m_radio = 1;
    int m_index = 2;
    CTime m_date;

    ListeningEdit m_edit;
    CComboBox m_combo;
    DrawnStatic m_drawn;
    DrawnList m_list;

    std::function<void(ControlsDialog&)> m_onInit;
    std::function<void(CDataExchange&)> m_validate;
    std::wstring m_log;
    bool m_exchanges = true;

    using CDialog::OnOK;

    BOOL OnInitDialog() override;

  protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnPush() { m_log += L"push "; }
    void OnTextChanged() { m_log += L"text "; }
    DECLARE_MESSAGE_MAP()
};

} // namespace ts::test
