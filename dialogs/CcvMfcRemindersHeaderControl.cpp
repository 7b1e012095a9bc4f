#include "dialogs/CcvMfcRemindersHeaderControl.h"

#include "dialogs/ListImages.h"
#include "platform/mfc/CDC.h"

void CcvMfcRemindersHeaderControl::ResetImages()
{
    m_imageNumbers.clear();
    ts::CreateListImages(m_images);
}

void CcvMfcRemindersHeaderControl::SetItemBitmap(int column, UINT bitmapId)
{
    const auto index = static_cast<std::size_t>(column);
    if (index >= m_imageNumbers.size())
    {
        m_imageNumbers.resize(index + 1);
    }
    m_imageNumbers[index] = ts::AddListImage(m_images, bitmapId) + 1;
}

CString CcvMfcRemindersHeaderControl::TextOf(int column) const
{
    constexpr int kLongest = 256;
    wchar_t text[kLongest + 1] = L"";
    HDITEMW item{};
    item.mask = HDI_TEXT;
    item.pszText = text;
    item.cchTextMax = kLongest + 1;
    return GetItem(column, &item) != FALSE ? CString(item.pszText) : CString();
}

void CcvMfcRemindersHeaderControl::DrawItem(DRAWITEMSTRUCT* item)
{
    constexpr int kTextIndent = 5;
    CDC dc(item->hDC);
    const ts::SavedDC saved(dc);
    CRect rect(item->rcItem);
    dc.DrawFrameControl(&rect, DFC_BUTTON, DFCS_BUTTONPUSH);
    if (item->itemID < m_imageNumbers.size() && m_imageNumbers[item->itemID] > 0)
    {
        m_images.Draw(&dc, m_imageNumbers[item->itemID] - 1, rect.TopLeft(), ILD_TRANSPARENT);
    }
    rect.left += kTextIndent;
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(GetSysColor(COLOR_BTNTEXT));
    dc.DrawText(TextOf(static_cast<int>(item->itemID)), &rect, DT_SINGLELINE | DT_VCENTER);
}
