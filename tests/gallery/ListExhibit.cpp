#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/CcvMfcRemindersListControl.h"
#include "tests/gallery/Exhibit.h"
#include "tests/gallery/Frame.h"

#include <bit>

namespace ts::gallery
{
namespace
{

constexpr UINT kListId = 1030;
constexpr unsigned kAllColumns = 15;

/// A list in a window of its own, as it stands in the dialogs.
class ListExhibit : public Exhibit
{
  public:
    explicit ListExhibit(Extent extent) : m_frame(L"Reminders", extent, CSize(520, 240)), m_list(&m_manager)
    {
        CreateList();
    }
    ~ListExhibit() override { m_frame.DestroyWindow(); }

    [[nodiscard]] HWND GetWindow() const override { return m_frame.m_hWnd; }
    [[nodiscard]] CcvMfcRemindersListControl& List() { return m_list; }
    void TakeFocus(bool focused) { (focused ? m_list.SetFocus() : m_frame.SetFocus()); }

  private:
    void CreateList()
    {
        const int margin = Scaled(11);
        constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDRAWFIXED |
                                 LVS_SINGLESEL | LVS_SHOWSELALWAYS;
        CRect area;
        m_frame.GetClientRect(&area);
        area.DeflateRect(margin, margin);
        const HWND window = CreateWindowExW(
            WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"", kStyle, area.left, area.top, area.Width(), area.Height(),
            m_frame.m_hWnd, std::bit_cast<HMENU>(UINT_PTR{kListId}), GetModuleHandleW(nullptr), nullptr);
        SendMessageW(window, WM_SETFONT, std::bit_cast<WPARAM>(m_frame.Font().GetHandle()), FALSE);
        m_list.SubclassWindow(window);
        m_list.InitializeColumns(kAllColumns);
        m_list.Refresh();
    }

    Frame m_frame;
    CcvReminderDataCollectionManager m_manager{false};
    CcvMfcRemindersListControl m_list;
};

} // namespace

std::unique_ptr<Exhibit> MakeListExhibit(Extent extent, bool focused)
{
    auto exhibit = std::make_unique<ListExhibit>(extent);
    exhibit->List().SelectRow(1);
    exhibit->TakeFocus(focused);
    return exhibit;
}

std::unique_ptr<Exhibit> MakeReorderedListExhibit(Extent extent)
{
    auto exhibit = std::make_unique<ListExhibit>(extent);
    CcvMfcRemindersListControl& list = exhibit->List();
    list.SetFilter(ReminderListFilter::Due);
    list.Refresh();
    list.SetColumnOrderArray({3, 0, 1, 2});
    exhibit->TakeFocus(true);
    return exhibit;
}

} // namespace ts::gallery
