#include "platform/mfc/afxcmn.h"

#include "platform/mfc/CGdiObject.h"

#include <bit>

IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)
IMPLEMENT_DYNAMIC(CListCtrl, CWnd)
IMPLEMENT_DYNAMIC(CSpinButtonCtrl, CWnd)

namespace
{

LPARAM Address(const void* data)
{
    return std::bit_cast<LPARAM>(data);
}

WPARAM Index(int index)
{
    return static_cast<WPARAM>(index);
}

/// The text of an item, which the control only reads.
wchar_t* Text(const wchar_t* text)
{
    return std::bit_cast<wchar_t*>(text);
}

} // namespace

BOOL CImageList::Create(int width, int height, UINT flags, int initial, int growth)
{
    m_hImageList.reset(ImageList_Create(width, height, flags, initial, growth));
    return m_hImageList != nullptr;
}

int CImageList::Add(const CBitmap& bitmap, COLORREF mask)
{
    return ImageList_AddMasked(GetSafeHandle(), bitmap.GetHandle(), mask);
}

BOOL CImageList::Draw(CDC* dc, int image, POINT point, UINT style) const
{
    return ImageList_Draw(GetSafeHandle(), image, dc->GetSafeHdc(), point.x, point.y, style);
}

BOOL CHeaderCtrl::GetItem(int index, HDITEMW* item) const
{
    return SendMessage(HDM_GETITEMW, Index(index), Address(item)) != 0;
}

BOOL CHeaderCtrl::SetItem(int index, const HDITEMW* item)
{
    return SendMessage(HDM_SETITEMW, Index(index), Address(item)) != 0;
}

BOOL CHeaderCtrl::GetItemRect(int index, RECT* rect) const
{
    return SendMessage(HDM_GETITEMRECT, Index(index), Address(rect)) != 0;
}

int CHeaderCtrl::OrderToIndex(int order) const
{
    return static_cast<int>(SendMessage(HDM_ORDERTOINDEX, Index(order)));
}

DWORD CListCtrl::SetExtendedStyle(DWORD style)
{
    return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(style)));
}

DWORD CListCtrl::GetExtendedStyle() const
{
    return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE));
}

HWND CListCtrl::GetHeaderCtrl() const
{
    return std::bit_cast<HWND>(SendMessage(LVM_GETHEADER));
}

void CListCtrl::SetImageList(const CImageList& images, int kind)
{
    // Or the list would destroy the images with itself.
    ModifyStyle(0, LVS_SHAREIMAGELISTS);
    SendMessage(LVM_SETIMAGELIST, Index(kind), Address(images.GetSafeHandle()));
}

int CListCtrl::InsertColumn(int column, const wchar_t* heading, int format, int width)
{
    LVCOLUMNW description{};
    description.mask = LVCF_TEXT | LVCF_FMT | LVCF_WIDTH | LVCF_SUBITEM;
    description.pszText = Text(heading);
    description.fmt = format;
    description.cx = width;
    description.iSubItem = column;
    return static_cast<int>(SendMessage(LVM_INSERTCOLUMNW, Index(column), Address(&description)));
}

BOOL CListCtrl::GetColumn(int column, LVCOLUMNW* description) const
{
    return SendMessage(LVM_GETCOLUMNW, Index(column), Address(description)) != 0;
}

int CListCtrl::GetColumnWidth(int column) const
{
    return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, Index(column)));
}

BOOL CListCtrl::SetColumnWidth(int column, int width)
{
    return SendMessage(LVM_SETCOLUMNWIDTH, Index(column), MAKELPARAM(width, 0)) != 0;
}

std::vector<int> CListCtrl::GetColumnOrderArray() const
{
    const LRESULT columns = ::SendMessageW(GetHeaderCtrl(), HDM_GETITEMCOUNT, 0, 0);
    std::vector<int> order(columns > 0 ? static_cast<std::size_t>(columns) : 0);
    if (SendMessage(LVM_GETCOLUMNORDERARRAY, order.size(), Address(order.data())) == 0)
    {
        order.clear();
    }
    return order;
}

BOOL CListCtrl::SetColumnOrderArray(std::vector<int> order)
{
    return SendMessage(LVM_SETCOLUMNORDERARRAY, order.size(), Address(order.data())) != 0;
}

int CListCtrl::InsertItem(const LVITEMW& item)
{
    return static_cast<int>(SendMessage(LVM_INSERTITEMW, 0, Address(&item)));
}

BOOL CListCtrl::GetItem(LVITEMW* item) const
{
    return SendMessage(LVM_GETITEMW, 0, Address(item)) != 0;
}

BOOL CListCtrl::SetItem(const LVITEMW& item)
{
    return SendMessage(LVM_SETITEMW, 0, Address(&item)) != 0;
}

BOOL CListCtrl::SetItemText(int index, int column, const wchar_t* text)
{
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = Text(text);
    return SendMessage(LVM_SETITEMTEXTW, Index(index), Address(&item)) != 0;
}

CString CListCtrl::GetItemText(int index, int column) const
{
    constexpr int kSize = 1024;
    wchar_t text[kSize] = L"";
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = kSize;
    SendMessage(LVM_GETITEMTEXTW, Index(index), Address(&item));
    // A list may answer with a text of its own instead of filling ours.
    return item.pszText;
}

BOOL CListCtrl::SetItemData(int index, LPARAM data)
{
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = index;
    item.lParam = data;
    return SetItem(item);
}

LPARAM CListCtrl::GetItemData(int index) const
{
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = index;
    return GetItem(&item) != FALSE ? item.lParam : 0;
}

BOOL CListCtrl::SetItemState(int index, UINT state, UINT mask)
{
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    return SendMessage(LVM_SETITEMSTATE, Index(index), Address(&item)) != 0;
}

UINT CListCtrl::GetItemState(int index, UINT mask) const
{
    return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, Index(index), static_cast<LPARAM>(mask)));
}

int CListCtrl::GetNextItem(int index, UINT flags) const
{
    return static_cast<int>(SendMessage(LVM_GETNEXTITEM, Index(index), MAKELPARAM(flags, 0)));
}

BOOL CListCtrl::GetItemRect(int index, RECT* rect, int portion) const
{
    rect->left = portion;
    return SendMessage(LVM_GETITEMRECT, Index(index), Address(rect)) != 0;
}

BOOL CListCtrl::EnsureVisible(int index, BOOL partiallyIsEnough)
{
    return SendMessage(LVM_ENSUREVISIBLE, Index(index), MAKELPARAM(partiallyIsEnough, 0)) != 0;
}

BOOL CListCtrl::SortItems(PFNLVCOMPARE compare, LPARAM parameter)
{
    return SendMessage(LVM_SORTITEMS, static_cast<WPARAM>(parameter), std::bit_cast<LPARAM>(compare)) != 0;
}

void CSpinButtonCtrl::SetRange(int lower, int upper)
{
    SendMessage(UDM_SETRANGE32, static_cast<WPARAM>(lower), upper);
}
