#include "tests/windows/ControlsDialog.h"

namespace ts::test
{

IMPLEMENT_DYNAMIC(ControlsDialog, CDialog)

BEGIN_MESSAGE_MAP(ListeningEdit, CEdit)
ON_CONTROL_REFLECT(EN_CHANGE, OnChange)
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(ControlsDialog, CDialog)
ON_BN_CLICKED(IDC_PUSH, OnPush)
ON_CONTROL(EN_CHANGE, IDC_NUMBER, OnTextChanged)
END_MESSAGE_MAP()

BOOL ControlsDialog::OnInitDialog()
{
    if (m_exchanges)
    {
        m_combo.SubclassDlgItem(IDC_COMBO, this);
        for (const wchar_t* entry : {L"zero", L"one", L"two"})
        {
            m_combo.AddString(entry);
        }
    }
    CDialog::OnInitDialog();
    if (m_onInit)
    {
        m_onInit(*this);
    }
    return TRUE;
}

void ControlsDialog::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    if (m_exchanges)
    {
        DDX_Control(exchange, IDC_TEXT, m_edit);
        DDX_Control(exchange, IDC_DRAWN, m_drawn);
        DDX_Control(exchange, IDC_LIST, m_list);
        DDX_Text(exchange, IDC_TEXT, m_value);
        DDX_Text(exchange, IDC_NUMBER, m_number);
        DDX_Check(exchange, IDC_CHECK, m_check);
        DDX_Radio(exchange, IDC_RADIO_1, m_radio);
        DDX_CBIndex(exchange, IDC_COMBO, m_index);
        DDX_DateTimeCtrl(exchange, IDC_DATE, m_date);
    }
    if (m_validate)
    {
        m_validate(*exchange);
    }
}

} // namespace ts::test
