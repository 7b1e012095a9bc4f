#include "dialogs/CcvMfcRemindersListControl.h"

#include <algorithm>

namespace
{

constexpr UINT kSelectedAndFocused = LVIS_SELECTED | LVIS_FOCUSED;

} // namespace

int CcvMfcRemindersListControl::GetSelectedIndex() const
{
    return GetNextItem(-1, LVNI_SELECTED);
}

CcvReminderData* CcvMfcRemindersListControl::GetSelectedReminder() const
{
    return GetReminder(GetSelectedIndex());
}

void CcvMfcRemindersListControl::SelectRow(int row)
{
    const int former = GetSelectedIndex();
    if (row == former)
    {
        return;
    }
    if (former >= 0)
    {
        SetItemState(former, 0, kSelectedAndFocused);
    }
    if (row >= 0)
    {
        SetItemState(row, kSelectedAndFocused, kSelectedAndFocused);
    }
    NotifySelection(row);
}

void CcvMfcRemindersListControl::NotifySelection(int row)
{
    ::SendMessageW(::GetParent(m_hWnd), WM_REMINDER_SELCHANGED, 0, row);
}

void CcvMfcRemindersListControl::NotifyChangedSelection(int formerRow)
{
    const int row = GetSelectedIndex();
    if (row != formerRow)
    {
        NotifySelection(row);
    }
}

void CcvMfcRemindersListControl::OnKeyDown(UINT key, UINT, UINT)
{
    const int former = GetSelectedIndex();
    const int last = GetItemCount() - 1;
    const int first = std::min(0, last);
    int row = former;
    switch (key)
    {
    case VK_PRIOR:
    case VK_HOME:
        row = first;
        break;
    case VK_NEXT:
    case VK_END:
        row = last;
        break;
    case VK_UP:
        row = std::max(former - 1, first);
        break;
    case VK_DOWN:
        row = std::min(former + 1, last);
        break;
    default:
        break;
    }
    if (row != former)
    {
        SelectRow(row);
        EnsureVisible(row, FALSE);
        NotifySelection(row);
    }
}

void CcvMfcRemindersListControl::OnLButtonDown(UINT flags, CPoint point)
{
    const int former = GetSelectedIndex();
    CListCtrl::OnLButtonDown(flags, point);
    NotifyChangedSelection(former);
}

void CcvMfcRemindersListControl::OnLButtonDblClk(UINT flags, CPoint point)
{
    const int former = GetSelectedIndex();
    CListCtrl::OnLButtonDblClk(flags, point);
    NotifyChangedSelection(former);
    OpenReminder(GetSelectedIndex());
}

LRESULT CcvMfcRemindersListControl::OnRButtonDown(WPARAM, LPARAM)
{
    const int former = GetSelectedIndex();
    const LRESULT result = Default();
    NotifyChangedSelection(former);
    return result;
}
