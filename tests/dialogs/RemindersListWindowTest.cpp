// What the list makes of its window and its header, and how it locks them.

#include "tests/dialogs/ListHarness.h"
#include "tests/dialogs/Picture.h"

#include "resources/PictureIds.h"

#include <bit>

namespace
{

using namespace ts::test;

class ListWindowTest : public ListTest
{
  protected:
    static LOGFONTW Describe(HFONT font)
    {
        LOGFONTW description{};
        GetObjectW(font, sizeof description, &description);
        return description;
    }

    /// Draws a row of the list into a picture of the list's size.
    Picture Drawn(int row)
    {
        CRect client;
        List().GetClientRect(&client);
        Picture picture(client.right, client.bottom);
        DRAWITEMSTRUCT item{};
        item.itemID = static_cast<UINT>(row);
        item.hwndItem = List().m_hWnd;
        item.hDC = picture.Dc();
        List().DrawItem(&item);
        return picture;
    }

    CRect Cell(int column)
    {
        CRect cell;
        List().GetItemRect(0, &cell, LVIR_BOUNDS);
        for (const int other : List().GetColumnOrderArray())
        {
            cell.right = cell.left + List().GetColumnWidth(other);
            if (other == column)
            {
                break;
            }
            cell.left = cell.right;
        }
        return cell;
    }

    /// A recurring reminder in a row that is not selected.
    void ShowRecurring()
    {
        CcvReminderData daily = EveryNDays(1);
        daily.SetSubject(L"Call");
        daily.SetDocumentTitle(L"Map");
        daily.SetNextDueDate(Noon() + CTimeSpan(kSecondsPerHour));
        m_store.Add(daily);
        Show();
        List().SelectRow(-1);
    }
};

TEST_F(ListWindowTest, Refresh_LocksDrawingUntilItsEnd)
{
    m_store.Add(L"a", Noon());
    Open();
    std::vector<bool> locked;
    const auto isLocked = [this]
    {
        const BOOL isFree = LockWindowUpdate(m_parent.m_hWnd);
        if (isFree != FALSE)
        {
            LockWindowUpdate(nullptr);
        }
        return isFree == FALSE;
    };
    m_parent.onSelectionChanged = [&] { locked.push_back(isLocked()); };
    List().Refresh();
    m_parent.onSelectionChanged = nullptr;
    EXPECT_EQ((std::vector<bool>{true, true}), locked) << "until the parent has been told";
    EXPECT_FALSE(isLocked());
}

TEST_F(ListWindowTest, ExtendedStyle_KeepsWhatWasThere)
{
    Open();
    List().SetExtendedStyle(LVS_EX_GRIDLINES);
    List().InitializeColumns(kAllColumns);
    EXPECT_NE(0u, List().GetExtendedStyle() & LVS_EX_GRIDLINES);
}

TEST_F(ListWindowTest, HeaderFont_IsACopyOfTheLists)
{
    Open();
    const HFONT font = List().GetFont();
    const auto headers = std::bit_cast<HFONT>(::SendMessageW(List().GetHeaderCtrl(), WM_GETFONT, 0, 0));
    ASSERT_NE(nullptr, headers);
    EXPECT_NE(font, headers);
    const LOGFONTW expected = Describe(font);
    const LOGFONTW description = Describe(headers);
    EXPECT_EQ(expected.lfHeight, description.lfHeight);
    EXPECT_EQ(expected.lfWeight, description.lfWeight);
    EXPECT_STREQ(expected.lfFaceName, description.lfFaceName);
}

TEST_F(ListWindowTest, HeaderText_IsDrawnUpTo256Characters)
{
    Open();
    std::wstring text(300, L'i');
    HDITEMW header{};
    header.mask = HDI_TEXT;
    header.pszText = text.data();
    ::SendMessageW(List().GetHeaderCtrl(), HDM_SETITEMW, 1, std::bit_cast<LPARAM>(&header));
    const CRect rect(0, 0, 1500, 20);
    Picture drawn(rect.right, rect.bottom);
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_HEADER;
    item.itemID = 1;
    item.hwndItem = List().GetHeaderCtrl();
    item.hDC = drawn.Dc();
    item.rcItem = rect;
    List().SendMessage(WM_DRAWITEM, 0, std::bit_cast<LPARAM>(&item));

    Picture expected(rect.right, rect.bottom);
    CRect frame(rect);
    DrawFrameControl(expected.Dc(), &frame, DFC_BUTTON, DFCS_BUTTONPUSH);
    frame.left += 5;
    SetBkMode(expected.Dc(), TRANSPARENT);
    SetTextColor(expected.Dc(), GetSysColor(COLOR_BTNTEXT));
    DrawTextW(expected.Dc(), text.substr(0, 256).c_str(), -1, &frame, DT_SINGLELINE | DT_VCENTER);
    EXPECT_TRUE(expected == drawn);
}

TEST_F(ListWindowTest, Overlay_IsDrawnOverTheImage)
{
    ShowRecurring();
    const Picture without = Drawn(0);
    const auto images = std::bit_cast<HIMAGELIST>(List().SendMessage(LVM_GETIMAGELIST, LVSIL_SMALL));
    ASSERT_NE(FALSE, ImageList_SetOverlayImage(images, 1, 1));
    List().SetItemState(0, INDEXTOOVERLAYMASK(1), LVIS_OVERLAYMASK);
    const Picture with = Drawn(0);
    const CRect cell = Cell(0);
    EXPECT_FALSE(without.Cut(cell) == with.Cut(cell));
    EXPECT_GT(with.Cut(cell).Count(RGB(255, 255, 255)), without.Cut(cell).Count(RGB(255, 255, 255)) - 1);
}

TEST_F(ListWindowTest, ColumnOfNoKind_StaysEmptyAndHidesNoOther)
{
    ShowRecurring();
    const Picture before = Drawn(0);
    const CRect due = Cell(3);
    List().InsertColumn(4, L"foreign", LVCFMT_LEFT, 30);
    List().SetItemText(0, 4, L"foreign");
    List().SetColumnOrderArray({4, 0, 1, 2, 3});
    const Picture after = Drawn(0);
    CRect foreign = Cell(4);
    EXPECT_EQ(0, after.CountOthers(foreign, GetSysColor(COLOR_WINDOW)));
    CRect moved = Cell(3);
    EXPECT_EQ(due.left + 30, moved.left);
    const int width = std::min<int>(due.Width(), after.Width() - moved.left) - 20;
    EXPECT_TRUE(before.Cut(CRect(due.left, due.top, due.left + width, due.bottom)) ==
                after.Cut(CRect(moved.left, moved.top, moved.left + width, moved.bottom)));
}

} // namespace
