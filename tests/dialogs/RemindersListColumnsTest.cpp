#include "tests/dialogs/ListHarness.h"

#include "module/LanguageText.h"
#include "resources/StringIds.h"

#include <bit>

namespace
{

using namespace ts::test;

class ListColumnsTest : public ListTest
{
  protected:
    Rows Widths()
    {
        Rows widths;
        for (int column = 0; column < HeaderCount(); ++column)
        {
            widths.push_back(List().GetColumnWidth(column));
        }
        return widths;
    }

    int HeaderCount()
    {
        return static_cast<int>(::SendMessageW(List().GetHeaderCtrl(), HDM_GETITEMCOUNT, 0, 0));
    }

    HDITEMW HeaderItem(int column)
    {
        HDITEMW item{};
        item.mask = HDI_FORMAT | HDI_TEXT;
        item.pszText = m_text;
        item.cchTextMax = static_cast<int>(std::size(m_text));
        ::SendMessageW(List().GetHeaderCtrl(), HDM_GETITEMW, static_cast<WPARAM>(column),
                       std::bit_cast<LPARAM>(&item));
        return item;
    }

    Texts HeaderTexts()
    {
        Texts texts;
        for (int column = 0; column < HeaderCount(); ++column)
        {
            texts.emplace_back(HeaderItem(column).pszText);
        }
        return texts;
    }

    /// Where the line between a column and the next one is.
    POINT DividerBehind(int column)
    {
        CRect rect;
        ::SendMessageW(List().GetHeaderCtrl(), HDM_GETITEMRECT, static_cast<WPARAM>(column),
                       std::bit_cast<LPARAM>(&rect));
        return {rect.right - 1, rect.CenterPoint().y};
    }

    LRESULT AskToTrack(UINT code, int column)
    {
        NMHEADERW notification{};
        notification.hdr.hwndFrom = List().GetHeaderCtrl();
        notification.hdr.code = code;
        notification.iItem = column;
        return List().SendMessage(WM_NOTIFY, 0, std::bit_cast<LPARAM>(&notification));
    }

  private:
    wchar_t m_text[64] = L"";
};

TEST_F(ListColumnsTest, EveryMask_GivesItsColumnsAndWidths)
{
    struct Case
    {
        unsigned mask;
        Rows widths;
    };
    // In a list of 501 pixels; the icon's column takes 18 of them.
    const Case cases[] = {
        {0, {}},
        {1, {18}},
        {2, {501}},
        {3, {18, 483}},
        {4, {150}},
        {5, {18, 144}},
        {6, {350, 150}},
        {7, {18, 338, 144}},
        {8, {150}},
        {9, {18, 144}},
        {10, {350, 150}},
        {11, {18, 338, 144}},
        {12, {150, 150}},
        {13, {18, 144, 144}},
        {14, {200, 150, 150}},
        {15, {18, 193, 144, 144}},
    };
    for (const Case& row : cases)
    {
        Open(row.mask, 501);
        EXPECT_EQ(row.widths, Widths()) << "mask " << row.mask;
    }
}

TEST_F(ListColumnsTest, Headings_AreTheTextsOfTheInterfaceLanguage)
{
    Open();
    EXPECT_EQ((Texts{L"", ts::LoadText(IDS_COLUMN_SUBJECT).GetString(),
                     ts::LoadText(IDS_COLUMN_MAP).GetString(), ts::LoadText(IDS_COLUMN_DUE).GetString()}),
              HeaderTexts());
    EXPECT_NE(HeaderTexts()[1], HeaderTexts()[3]);
}

TEST_F(ListColumnsTest, HeaderItems_AreAllOwnerDrawn)
{
    Open();
    for (int column = 0; column < HeaderCount(); ++column)
    {
        EXPECT_NE(0, HeaderItem(column).fmt & HDF_OWNERDRAW) << column;
    }
}

TEST_F(ListColumnsTest, ExtendedStyle_AddsFullRowsAndHeaderDragging)
{
    Open();
    constexpr DWORD kBits = LVS_EX_FULLROWSELECT | LVS_EX_HEADERDRAGDROP;
    static_assert(kBits == 0x30);
    EXPECT_EQ(kBits, List().GetExtendedStyle() & kBits);
}

TEST_F(ListColumnsTest, SmallImages_AreTheTwoRecurrenceImagesOf16Pixels)
{
    Open();
    const auto images = std::bit_cast<HIMAGELIST>(List().SendMessage(LVM_GETIMAGELIST, LVSIL_SMALL));
    int width = 0;
    int height = 0;
    ASSERT_NE(FALSE, ImageList_GetIconSize(images, &width, &height));
    EXPECT_EQ(16, width);
    EXPECT_EQ(16, height);
    EXPECT_EQ(2, ImageList_GetImageCount(images));
}

TEST_F(ListColumnsTest, IconColumn_RefusesToBeResized)
{
    Open();
    EXPECT_EQ(1, AskToTrack(static_cast<UINT>(HDN_BEGINTRACKW), 0));
    EXPECT_EQ(1, AskToTrack(static_cast<UINT>(HDN_BEGINTRACKA), 0));
    for (int column = 1; column < 4; ++column)
    {
        EXPECT_EQ(0, AskToTrack(static_cast<UINT>(HDN_BEGINTRACKW), column)) << column;
        EXPECT_EQ(0, AskToTrack(static_cast<UINT>(HDN_BEGINTRACKA), column)) << column;
    }
}

TEST_F(ListColumnsTest, FirstColumnThatIsNoIcon_CanBeResized)
{
    Open(2);
    EXPECT_EQ(0, AskToTrack(static_cast<UINT>(HDN_BEGINTRACKW), 0));
}

TEST_F(ListColumnsTest, DraggingTheLineBehindAColumn_ResizesAllButTheIcon)
{
    Open();
    const Rows before = Widths();
    POINT from = DividerBehind(0);
    DragInHeader(from, {from.x + 40, from.y});
    EXPECT_EQ(before, Widths());
    from = DividerBehind(1);
    DragInHeader(from, {from.x + 40, from.y});
    EXPECT_EQ(before[1] + 40, Widths()[1]);
    EXPECT_EQ(before[0], Widths()[0]);
}

TEST_F(ListColumnsTest, DraggingAColumn_ChangesTheOrder)
{
    Open();
    ASSERT_EQ((Rows{0, 1, 2, 3}), List().GetColumnOrderArray());
    CRect first;
    CRect last;
    const HWND header = List().GetHeaderCtrl();
    ::SendMessageW(header, HDM_GETITEMRECT, 1, std::bit_cast<LPARAM>(&first));
    ::SendMessageW(header, HDM_GETITEMRECT, 3, std::bit_cast<LPARAM>(&last));
    DragInHeader(first.CenterPoint(), {last.right - 10, first.CenterPoint().y});
    EXPECT_EQ((Rows{0, 2, 3, 1}), List().GetColumnOrderArray());
}

// --- Sorting by a click ---

TEST_F(ListColumnsTest, FirstRefresh_SortsByDueTimeAscending)
{
    m_store.Add(L"later", Noon() + CTimeSpan(100));
    m_store.Add(L"earlier", Noon() + CTimeSpan(10));
    Show();
    EXPECT_EQ((Texts{L"earlier", L"later"}), Subjects());
}

TEST_F(ListColumnsTest, ClickOnDueTwice_FlipsTwice_AndAnotherColumnStartsAscending)
{
    m_store.Add(L"b", Noon() + CTimeSpan(10));
    m_store.Add(L"a", Noon() + CTimeSpan(20));
    m_store.Add(L"c", Noon() + CTimeSpan(30));
    Show();
    ASSERT_EQ((Texts{L"b", L"a", L"c"}), Subjects());
    ClickHeader(3);
    EXPECT_EQ((Texts{L"c", L"a", L"b"}), Subjects());
    ClickHeader(3);
    EXPECT_EQ((Texts{L"b", L"a", L"c"}), Subjects());
    ClickHeader(3);
    ClickHeader(1);
    EXPECT_EQ((Texts{L"a", L"b", L"c"}), Subjects());
    ClickHeader(1);
    EXPECT_EQ((Texts{L"c", L"b", L"a"}), Subjects());
}

TEST_F(ListColumnsTest, ClickOnIconAndDocument_SortByThem)
{
    CcvReminderData daily = EveryNDays(1);
    daily.SetSubject(L"daily");
    daily.SetDocumentTitle(L"B");
    daily.SetNextDueDate(Noon() + CTimeSpan(10));
    m_store.Add(daily);
    m_store.Add(L"once", Noon() + CTimeSpan(20), L"A");
    Show();
    ASSERT_EQ((Texts{L"daily", L"once"}), Subjects());
    ClickHeader(0);
    EXPECT_EQ((Texts{L"once", L"daily"}), Subjects());
    ClickHeader(0);
    EXPECT_EQ((Texts{L"daily", L"once"}), Subjects());
    ClickHeader(2);
    EXPECT_EQ((Texts{L"once", L"daily"}), Subjects());
}

TEST_F(ListColumnsTest, SubjectsThatDifferInCaseOnly_SortNextToEachOther)
{
    m_store.Add(L"b", Noon());
    m_store.Add(L"A", Noon());
    m_store.Add(L"a", Noon());
    m_store.Add(L"B", Noon());
    Show();
    ClickHeader(1);
    EXPECT_EQ((Texts{L"A", L"a", L"B", L"b"}), Subjects());
}

TEST_F(ListColumnsTest, Order_IsKeptByARefresh)
{
    m_store.Add(L"b", Noon() + CTimeSpan(10));
    m_store.Add(L"a", Noon() + CTimeSpan(20));
    Show();
    ClickHeader(1);
    m_store.Add(L"0", Noon() + CTimeSpan(30));
    Reload();
    List().Refresh();
    EXPECT_EQ((Texts{L"0", L"a", L"b"}), Subjects());
}

TEST_F(ListColumnsTest, Sorting_KeepsTheSelectedReminder)
{
    m_store.Add(L"b", Noon() + CTimeSpan(10));
    m_store.Add(L"a", Noon() + CTimeSpan(20));
    Show();
    List().SelectRow(0);
    ClickHeader(1);
    EXPECT_EQ(1, List().GetSelectedIndex());
    EXPECT_EQ(CString(L"b"), List().GetSelectedReminder()->GetSubject());
}

TEST_F(ListColumnsTest, RowsThatAreEqual_KeepTheirOrderInBothDirections)
{
    for (int number = 0; number < 50; ++number)
    {
        m_store.Add(std::to_wstring(number).c_str(), Noon());
    }
    Show();
    const Texts before = Subjects();
    ClickHeader(3);
    EXPECT_EQ(before, Subjects());
    ClickHeader(3);
    EXPECT_EQ(before, Subjects());
}

TEST_F(ListColumnsTest, SortingAfterAReload_UsesEachRowsOwnReminder)
{
    m_store.Add(L"a", Noon() + CTimeSpan(10));
    m_store.Add(L"b", Noon() + CTimeSpan(20));
    m_store.Add(L"c", Noon() + CTimeSpan(30));
    Show();
    m_store.Remove(0);
    Reload();
    ClickHeader(3);
    EXPECT_EQ((Texts{L"c", L"b", L"a"}), Subjects()) << "what is gone has no due time";
    ClickHeader(3);
    EXPECT_EQ((Texts{L"b", L"c", L"a"}), Subjects());
}

TEST_F(ListColumnsTest, SortingAfterTheReminderTimeHasPassed_UsesThePresentTime)
{
    CcvReminderData daily = EveryNDays(1);
    daily.SetSubject(L"daily");
    daily.SetNextDueDate(Noon() + CTimeSpan(10));
    m_store.Add(daily);
    m_store.Add(L"once", Noon() + CTimeSpan(20));
    Show();
    ASSERT_EQ((Texts{L"daily", L"once"}), Subjects());
    m_clock.Set(Noon() + CTimeSpan(kSecondsPerDay + 10));
    ClickHeader(3);
    ClickHeader(3);
    EXPECT_EQ((Texts{L"once", L"daily"}), Subjects());
}

} // namespace
