#pragma once

#include "platform/mfc/DrawnControl.h"

#include <commctrl.h>
#include <memory>
#include <type_traits>
#include <vector>

class CBitmap;

/// Owns a list of images of one size.
class TS_API CImageList
{
  public:
    BOOL Create(int width, int height, UINT flags, int initial, int growth);
    /// Adds a copy of the bitmap's images; `mask` is the colour that is not drawn. The bitmap's own masked
    /// pixels become black. It must not be selected into a device context. The index of the first image, -1
    /// on failure.
    int Add(const CBitmap& bitmap, COLORREF mask);
    [[nodiscard]] int GetImageCount() const { return ImageList_GetImageCount(GetSafeHandle()); }
    BOOL Draw(CDC* dc, int image, POINT point, UINT style) const;
    [[nodiscard]] HIMAGELIST GetSafeHandle() const noexcept { return m_hImageList.get(); }

  private:
    struct Destroyer
    {
        void operator()(HIMAGELIST images) const noexcept { ImageList_Destroy(images); }
    };

    std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, Destroyer> m_hImageList;
};

class TS_API CHeaderCtrl : public ts::DrawnControl
{
    DECLARE_DYNAMIC(CHeaderCtrl)

  public:
    [[nodiscard]] int GetItemCount() const { return static_cast<int>(SendMessage(HDM_GETITEMCOUNT)); }
    BOOL GetItem(int index, HDITEMW* item) const;
    BOOL SetItem(int index, const HDITEMW* item);
    BOOL GetItemRect(int index, RECT* rect) const;
    /// The index of the item that is shown at a position from the left.
    [[nodiscard]] int OrderToIndex(int order) const;
};

class TS_API CListCtrl : public ts::DrawnControl
{
    DECLARE_DYNAMIC(CListCtrl)

  public:
    using CWnd::Create;
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return Create(WC_LISTVIEWW, L"", style, rect, parent, id);
    }
    DWORD SetExtendedStyle(DWORD style);
    [[nodiscard]] DWORD GetExtendedStyle() const;
    /// The list's header, which stays the list's.
    [[nodiscard]] HWND GetHeaderCtrl() const;
    /// Shows the images, which stay the caller's, beside the items.
    void SetImageList(const CImageList& images, int kind);

    int InsertColumn(int column, const wchar_t* heading, int format, int width);
    BOOL GetColumn(int column, LVCOLUMNW* description) const;
    [[nodiscard]] int GetColumnWidth(int column) const;
    BOOL SetColumnWidth(int column, int width);
    /// The columns from left to right.
    [[nodiscard]] std::vector<int> GetColumnOrderArray() const;
    BOOL SetColumnOrderArray(std::vector<int> order);

    [[nodiscard]] int GetItemCount() const { return static_cast<int>(SendMessage(LVM_GETITEMCOUNT)); }
    void SetItemCount(int expected) { SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(expected)); }
    /// The index of the new item, -1 on failure.
    int InsertItem(const LVITEMW& item);
    BOOL GetItem(LVITEMW* item) const;
    BOOL SetItem(const LVITEMW& item);
    BOOL SetItemText(int index, int column, const wchar_t* text);
    /// The first 1023 characters; owner-drawn lists keep longer texts elsewhere.
    [[nodiscard]] CString GetItemText(int index, int column) const;
    BOOL SetItemData(int index, LPARAM data);
    /// 0 when there is no such item.
    [[nodiscard]] LPARAM GetItemData(int index) const;
    BOOL SetItemState(int index, UINT state, UINT mask);
    [[nodiscard]] UINT GetItemState(int index, UINT mask) const;
    BOOL DeleteItem(int index) { return SendMessage(LVM_DELETEITEM, static_cast<WPARAM>(index)) != 0; }
    BOOL DeleteAllItems() { return SendMessage(LVM_DELETEALLITEMS) != 0; }
    /// The next item after `index` with these LVNI flags, -1 for none. Begin with -1.
    [[nodiscard]] int GetNextItem(int index, UINT flags) const;
    BOOL GetItemRect(int index, RECT* rect, int portion) const;
    BOOL EnsureVisible(int index, BOOL partiallyIsEnough);
    [[nodiscard]] int GetTopIndex() const { return static_cast<int>(SendMessage(LVM_GETTOPINDEX)); }
    BOOL Scroll(CSize distance)
    {
        return SendMessage(LVM_SCROLL, static_cast<WPARAM>(distance.cx), distance.cy) != 0;
    }
    /// Sorts the items by their data. `compare` must not throw.
    BOOL SortItems(PFNLVCOMPARE compare, LPARAM parameter);
};

/// A pair of arrows that step a value.
class TS_API CSpinButtonCtrl : public CWnd
{
    DECLARE_DYNAMIC(CSpinButtonCtrl)

  public:
    using CWnd::Create;
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return Create(UPDOWN_CLASSW, L"", style, rect, parent, id);
    }
    void SetRange(int lower, int upper);
};
