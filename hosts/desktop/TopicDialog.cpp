#include "TopicDialog.h"

#include "ResourceIds.h"
#include "Texts.h"

#include <algorithm>

namespace ts::desktop
{

BEGIN_MESSAGE_MAP(TopicDialog, CDialog)
ON_NOTIFY(LVN_ITEMACTIVATE, IDC_TOPIC_LIST, OnActivate)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_TOPIC_LIST, OnSelection)
END_MESSAGE_MAP()

TopicDialog::TopicDialog(std::vector<Topic> topics, CWnd* parent)
    : m_topics(std::move(topics)), m_parent(parent)
{
}

INT_PTR TopicDialog::DoModal()
{
    // The dialog class itself would look for the template in the library.
    const HINSTANCE module = GetModuleHandleW(nullptr);
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(IDD_TOPIC), RT_DIALOG);
    const HGLOBAL loaded = found != nullptr ? LoadResource(module, found) : nullptr;
    if (loaded == nullptr)
    {
        return -1;
    }
    InitModalIndirect(loaded, m_parent);
    return CDialog::DoModal();
}

BOOL TopicDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    m_list.SubclassDlgItem(IDC_TOPIC_LIST, this);
    m_list.SetExtendedStyle(m_list.GetExtendedStyle() | LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    AddColumns();
    AddTopics();
    SelectFirstFree();
    GotoDlgCtrl(&m_list);
    return FALSE;
}

void TopicDialog::AddColumns()
{
    RECT client;
    m_list.GetClientRect(&client);
    const int width = client.right - GetSystemMetrics(SM_CXVSCROLL);
    m_list.InsertColumn(0, Text(IDS_COLUMN_TOPIC).c_str(), LVCFMT_LEFT, width * 45 / 100);
    m_list.InsertColumn(1, Text(IDS_COLUMN_MAP).c_str(), LVCFMT_LEFT, width * 37 / 100);
    m_list.InsertColumn(2, Text(IDS_COLUMN_REMINDER).c_str(), LVCFMT_LEFT,
                        width - width * 45 / 100 - width * 37 / 100);
}

void TopicDialog::AddTopics()
{
    const std::wstring yes = Text(IDS_HAS_REMINDER);
    int row = 0;
    for (const Topic& topic : m_topics)
    {
        LVITEMW item{};
        item.iItem = row;
        m_list.InsertItem(item);
        m_list.SetItemText(row, 0, topic.title);
        m_list.SetItemText(row, 1, topic.documentTitle);
        m_list.SetItemText(row, 2, topic.hasReminder ? yes.c_str() : L"");
        ++row;
    }
}

/// Most users want a new reminder.
void TopicDialog::SelectFirstFree()
{
    const auto found = std::ranges::find(m_topics, false, &Topic::hasReminder);
    const int row = found != m_topics.end() ? static_cast<int>(found - m_topics.begin()) : 0;
    m_list.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    m_list.EnsureVisible(row, FALSE);
}

int TopicDialog::SelectedRow() const
{
    return m_list.GetNextItem(-1, LVNI_SELECTED);
}

void TopicDialog::OnActivate(NMHDR*, LRESULT*)
{
    OnOK();
}

void TopicDialog::OnSelection(NMHDR*, LRESULT*)
{
    GetDlgItem(IDOK)->EnableWindow(SelectedRow() >= 0);
}

void TopicDialog::OnOK()
{
    const int row = SelectedRow();
    if (row >= 0)
    {
        m_chosen = static_cast<std::size_t>(row);
        CDialog::OnOK();
    }
}

} // namespace ts::desktop
