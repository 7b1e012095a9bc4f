#include "tests/dialogs/ListHarness.h"
#include "tests/dialogs/Picture.h"

#include "resources/PictureIds.h"

#include <bit>

namespace
{

using namespace ts::test;

/// Rows are compared, pixel by pixel, with rows that the test draws by itself.
class ListDrawingTest : public ListTest
{
  protected:
    void AddRecurring(const wchar_t* subject, CTime due)
    {
        CcvReminderData daily = EveryNDays(1);
        daily.SetSubject(subject);
        daily.SetDocumentTitle(L"Map");
        daily.SetNextDueDate(due);
        m_store.Add(daily);
    }

    CRect Bounds(int row)
    {
        CRect bounds;
        List().GetItemRect(row, &bounds, LVIR_BOUNDS);
        return bounds;
    }

    /// The same row as it should be.
    class Expected
    {
      public:
        Expected(ListDrawingTest& test, int row)
            : m_test(test), m_bounds(test.Bounds(row)), m_picture(m_bounds.right, m_bounds.bottom)
        {
        }
        Expected& Fill(int background, int text)
        {
            FillRect(m_picture.Dc(), &m_bounds, GetSysColorBrush(background));
            SetTextColor(m_picture.Dc(), GetSysColor(static_cast<int>(text)));
            SetBkMode(m_picture.Dc(), TRANSPARENT);
            return *this;
        }
        /// Draws in a column, left to right in the order in which they are drawn.
        Expected& Text(int column, const wchar_t* text, bool bold = false, UINT alignment = DT_LEFT)
        {
            LOGFONTW description{};
            GetObjectW(m_test.List().GetFont(), sizeof description, &description);
            description.lfWeight = bold ? FW_BOLD : description.lfWeight;
            const HFONT font = CreateFontIndirectW(&description);
            const HGDIOBJ former = SelectObject(m_picture.Dc(), font);
            CRect cell = Cell(column);
            cell.DeflateRect(5, 0);
            DrawTextW(m_picture.Dc(), text, -1, &cell,
                      DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP | DT_END_ELLIPSIS | alignment);
            SelectObject(m_picture.Dc(), former);
            DeleteObject(font);
            return *this;
        }
        Expected& Image(UINT bitmapId)
        {
            const CRect cell = Cell(0);
            m_picture.DrawTransparent(bitmapId, cell.left, cell.top);
            return *this;
        }
        Picture Done() { return m_picture.Cut(m_bounds); }

      private:
        CRect Cell(int column)
        {
            CRect cell = m_bounds;
            for (const int other : m_test.List().GetColumnOrderArray())
            {
                cell.right = cell.left + m_test.List().GetColumnWidth(other);
                if (other == column)
                {
                    break;
                }
                cell.left = cell.right;
            }
            return cell;
        }

        ListDrawingTest& m_test;
        CRect m_bounds;
        Picture m_picture;
    };

    const wchar_t* DueIn(int row)
    {
        m_dueIn = Text(row, 3);
        return m_dueIn.c_str();
    }

  private:
    std::wstring m_dueIn;
};

TEST_F(ListDrawingTest, Row_IsDrawnInItsColoursByStateAndFocus)
{
    struct Case
    {
        const char* name;
        UINT state;
        bool focus;
        int background;
        int text;
    };
    const Case cases[] = {
        {"not selected, focus", 0, true, COLOR_WINDOW, COLOR_WINDOWTEXT},
        {"not selected, no focus", 0, false, COLOR_WINDOW, COLOR_WINDOWTEXT},
        {"selected, focus", LVIS_SELECTED, true, COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT},
        {"selected, no focus", LVIS_SELECTED, false, COLOR_BTNFACE, COLOR_BTNTEXT},
        {"drop target, focus", LVIS_DROPHILITED, true, COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT},
        {"drop target, no focus", LVIS_DROPHILITED, false, COLOR_BTNFACE, COLOR_BTNTEXT},
        {"focused item only", LVIS_FOCUSED, true, COLOR_WINDOW, COLOR_WINDOWTEXT},
    };
    AddRecurring(L"Call", Noon() + CTimeSpan(kSecondsPerHour));
    Show();
    for (const Case& row : cases)
    {
        (row.focus ? List().SetFocus() : m_parent.SetFocus());
        List().SetItemState(0, row.state, LVIS_SELECTED | LVIS_DROPHILITED | LVIS_FOCUSED);
        const bool highlighted = row.background == COLOR_HIGHLIGHT;
        EXPECT_EQ(Expected(*this, 0)
                      .Fill(row.background, row.text)
                      .Image(highlighted ? IDB_RECURRENCE_SELECTED : IDB_RECURRENCE)
                      .Text(1, L"Call")
                      .Text(2, L"Map")
                      .Text(3, DueIn(0))
                      .Done(),
                  DrawnRow(List().m_hWnd, 0))
            << row.name;
    }
}

TEST_F(ListDrawingTest, Image_LeavesItsSurroundingsAsTheyAre)
{
    AddRecurring(L"", Noon() + CTimeSpan(kSecondsPerHour));
    Show();
    List().SetFocus();
    const Picture picture = DrawnRow(List().m_hWnd, 0);
    EXPECT_EQ(GetSysColor(COLOR_HIGHLIGHT), picture.At(0, 0));
    EXPECT_EQ(0, picture.Count(RGB(0, 128, 128)));
    EXPECT_GT(picture.Count(RGB(255, 255, 255)), 30) << "the variant for selected rows is white";
}

TEST_F(ListDrawingTest, ReminderWithoutRecurrence_HasNoImage)
{
    m_store.Add(L"Call", Noon() + CTimeSpan(kSecondsPerHour));
    Show();
    List().SelectRow(-1);
    EXPECT_EQ(Expected(*this, 0)
                  .Fill(COLOR_WINDOW, COLOR_WINDOWTEXT)
                  .Text(1, L"Call")
                  .Text(2, L"Map")
                  .Text(3, DueIn(0))
                  .Done(),
              DrawnRow(List().m_hWnd, 0));
}

TEST_F(ListDrawingTest, ActiveReminders_AreBold)
{
    struct Case
    {
        const char* name;
        std::int64_t due;
        std::int64_t lead;
        bool bold;
    };
    const Case cases[] = {
        {"another day, active (0)", kSecondsPerDay, kSecondsPerDay + 1, true},
        {"another day, pending (1)", kSecondsPerDay, kSecondsPerDay, false},
        {"today, active (2)", kSecondsPerHour, kSecondsPerHour + 1, true},
        {"today, pending (3)", kSecondsPerHour, kSecondsPerHour, false},
        {"overdue (4)", -1, 0, false},
    };
    for (const Case& row : cases)
    {
        CcvReminderData reminder = DueAt(Noon() + CTimeSpan(row.due));
        reminder.SetSubject(L"Call");
        reminder.SetReminderTimeSpan(row.lead);
        const int number = m_store.Add(reminder);
        Show();
        List().SelectRow(-1);
        EXPECT_EQ(Expected(*this, 0)
                      .Fill(COLOR_WINDOW, COLOR_WINDOWTEXT)
                      .Text(1, L"Call", row.bold)
                      .Text(3, DueIn(0), row.bold)
                      .Done(),
                  DrawnRow(List().m_hWnd, 0))
            << row.name;
        m_store.Remove(number);
    }
}

TEST_F(ListDrawingTest, WhatTheTimerAdds_IsBoldWhenActive)
{
    CcvReminderData reminder = DueAt(Noon() + CTimeSpan(kSecondsPerHour));
    reminder.SetSubject(L"Call");
    reminder.SetReminderTimeSpan(kSecondsPerHour - 60);
    m_store.Add(reminder);
    Show(ReminderListFilter::Due);
    m_clock.Set(Noon() + CTimeSpan(61));
    PassMinute();
    ASSERT_EQ(1, Count());
    EXPECT_EQ(Expected(*this, 0)
                  .Fill(COLOR_WINDOW, COLOR_WINDOWTEXT)
                  .Text(1, L"Call", true)
                  .Text(3, DueIn(0), true)
                  .Done(),
              DrawnRow(List().m_hWnd, 0));
}

TEST_F(ListDrawingTest, DamagedReminder_IsNotBold)
{
    CcvReminderData damaged = Damaged(Noon());
    damaged.SetSubject(L"Damaged");
    m_store.Add(damaged);
    Show();
    List().SelectRow(-1);
    EXPECT_EQ(Expected(*this, 0)
                  .Fill(COLOR_WINDOW, COLOR_WINDOWTEXT)
                  .Image(IDB_RECURRENCE)
                  .Text(1, L"Damaged")
                  .Done(),
              DrawnRow(List().m_hWnd, 0));
}

TEST_F(ListDrawingTest, ColumnFormats_AlignTheTexts)
{
    m_store.Add(L"Call", Noon() + CTimeSpan(kSecondsPerHour));
    Show();
    List().SelectRow(-1);
    for (const auto& [format, alignment] :
         {std::pair{LVCFMT_RIGHT, DT_RIGHT}, std::pair{LVCFMT_CENTER, DT_CENTER}})
    {
        LVCOLUMNW column{};
        column.mask = LVCF_FMT;
        column.fmt = format;
        List().SendMessage(LVM_SETCOLUMNW, 2, std::bit_cast<LPARAM>(&column));
        EXPECT_EQ(Expected(*this, 0)
                      .Fill(COLOR_WINDOW, COLOR_WINDOWTEXT)
                      .Text(1, L"Call")
                      .Text(2, L"Map", false, static_cast<UINT>(alignment))
                      .Text(3, DueIn(0))
                      .Done(),
                  DrawnRow(List().m_hWnd, 0))
            << format;
    }
}

TEST_F(ListDrawingTest, LongText_EndsInAnEllipsisInsideItsCell)
{
    const std::wstring longText(100, L'W');
    m_store.Add(longText.c_str(), Noon() + CTimeSpan(kSecondsPerHour), L"");
    Show();
    List().SelectRow(-1);
    const Picture whole = DrawnRow(List().m_hWnd, 0);
    EXPECT_EQ(Expected(*this, 0)
                  .Fill(COLOR_WINDOW, COLOR_WINDOWTEXT)
                  .Text(1, longText.c_str())
                  .Text(3, DueIn(0))
                  .Done(),
              whole);
    // Nothing of it in the next column.
    const int right = 18 + List().GetColumnWidth(1);
    EXPECT_EQ(0, whole.CountOthers(CRect(right - 5, 0, right + List().GetColumnWidth(2), whole.Height()),
                                   GetSysColor(COLOR_WINDOW)));
}

TEST_F(ListDrawingTest, Ampersand_IsDrawnAsItIs)
{
    m_store.Add(L"Q&A", Noon() + CTimeSpan(kSecondsPerHour), L"&Map");
    Show();
    List().SelectRow(-1);
    EXPECT_EQ(Expected(*this, 0)
                  .Fill(COLOR_WINDOW, COLOR_WINDOWTEXT)
                  .Text(1, L"Q&A")
                  .Text(2, L"&Map")
                  .Text(3, DueIn(0))
                  .Done(),
              DrawnRow(List().m_hWnd, 0));
}

TEST_F(ListDrawingTest, ColumnsInAnotherOrder_AreDrawnInThatOrder)
{
    AddRecurring(L"Call", Noon() + CTimeSpan(kSecondsPerHour));
    Show();
    List().SelectRow(-1);
    List().SetColumnOrderArray({3, 2, 0, 1});
    EXPECT_EQ(Expected(*this, 0)
                  .Fill(COLOR_WINDOW, COLOR_WINDOWTEXT)
                  .Image(IDB_RECURRENCE)
                  .Text(3, DueIn(0))
                  .Text(2, L"Map")
                  .Text(1, L"Call")
                  .Done(),
              DrawnRow(List().m_hWnd, 0));
}

TEST_F(ListDrawingTest, DrawnDeviceContext_IsRestored)
{
    AddRecurring(L"Call", Noon());
    Show();
    const CRect bounds = Bounds(0);
    Picture picture(bounds.right, bounds.bottom);
    SetTextColor(picture.Dc(), RGB(1, 2, 3));
    const HGDIOBJ font = GetCurrentObject(picture.Dc(), OBJ_FONT);
    DRAWITEMSTRUCT item{};
    item.hwndItem = List().m_hWnd;
    item.hDC = picture.Dc();
    List().DrawItem(&item);
    EXPECT_EQ(RGB(1, 2, 3), GetTextColor(picture.Dc()));
    EXPECT_EQ(font, GetCurrentObject(picture.Dc(), OBJ_FONT));
}

TEST_F(ListDrawingTest, RowThatDoesNotExist_IsNotDrawn)
{
    Show();
    Picture picture(100, 20);
    const Picture before = picture.Cut(CRect(0, 0, 100, 20));
    DRAWITEMSTRUCT item{};
    item.hwndItem = List().m_hWnd;
    item.hDC = picture.Dc();
    item.itemID = 5;
    List().DrawItem(&item);
    EXPECT_EQ(before, picture.Cut(CRect(0, 0, 100, 20)));
}

TEST_F(ListDrawingTest, Window_ShowsWhatIsDrawn)
{
    AddRecurring(L"Call", Noon() + CTimeSpan(kSecondsPerHour));
    Show();
    List().SetFocus();
    PumpMessages();
    List().Invalidate();
    List().UpdateWindow();
    CRect client;
    List().GetClientRect(&client);
    const HDC window = GetDC(List().m_hWnd);
    Picture picture(client.right, client.bottom);
    BitBlt(picture.Dc(), 0, 0, client.right, client.bottom, window, 0, 0, SRCCOPY);
    ReleaseDC(List().m_hWnd, window);
    CRect bounds = Bounds(0);
    Picture drawn = DrawnRow(List().m_hWnd, 0);
    EXPECT_EQ(drawn, picture.Cut(bounds));
}

TEST_F(ListDrawingTest, NewSystemColours_AreUsedBelowTheRowsToo)
{
    Show();
    const INT element = COLOR_WINDOW;
    const COLORREF former = GetSysColor(COLOR_WINDOW);
    const COLORREF changed = RGB(10, 20, 30);
    SetSysColors(1, &element, &changed);
    List().SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_EQ(changed, static_cast<COLORREF>(List().SendMessage(LVM_GETBKCOLOR)));
    SetSysColors(1, &element, &former);
    List().SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_EQ(former, static_cast<COLORREF>(List().SendMessage(LVM_GETBKCOLOR)));
}

// --- The header ---

TEST_F(ListDrawingTest, Header_DrawsFrameImageAndText)
{
    Show();
    const HWND header = List().GetHeaderCtrl();
    for (const int column : {0, 1, 3})
    {
        CRect rect;
        ::SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), std::bit_cast<LPARAM>(&rect));
        rect.OffsetRect(-rect.left, -rect.top);
        Picture drawn(rect.right, rect.bottom);
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_HEADER;
        item.itemID = static_cast<UINT>(column);
        item.hwndItem = header;
        item.hDC = drawn.Dc();
        item.rcItem = rect;
        List().SendMessage(WM_DRAWITEM, 0, std::bit_cast<LPARAM>(&item));

        Picture expected(rect.right, rect.bottom);
        CRect frame(rect);
        DrawFrameControl(expected.Dc(), &frame, DFC_BUTTON, DFCS_BUTTONPUSH);
        if (column == 0)
        {
            expected.DrawTransparent(IDB_RECURRENCE, 0, 0);
        }
        wchar_t text[64] = L"";
        HDITEMW headerItem{};
        headerItem.mask = HDI_TEXT;
        headerItem.pszText = text;
        headerItem.cchTextMax = 64;
        ::SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(column), std::bit_cast<LPARAM>(&headerItem));
        frame.left += 5;
        SetBkMode(expected.Dc(), TRANSPARENT);
        SetTextColor(expected.Dc(), GetSysColor(COLOR_BTNTEXT));
        DrawTextW(expected.Dc(), text, -1, &frame, DT_SINGLELINE | DT_VCENTER);
        EXPECT_EQ(expected, drawn) << column;
    }
}

} // namespace
