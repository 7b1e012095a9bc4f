#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/CcvMfcRemindersListControl.h"
#include "tests/gallery/Exhibit.h"

#include <bit>
#include <stdexcept>

namespace ts::gallery
{
namespace
{

constexpr wchar_t kFrameClass[] = L"GalleryFrame";
constexpr UINT kListId = 1030;
constexpr unsigned kAllColumns = 15;

/// A list in a window of its own, as it stands in the dialogs.
class ListExhibit : public Exhibit
{
  public:
    explicit ListExhibit(Extent extent) : m_list(&m_manager)
    {
        WNDCLASSW frameClass{};
        frameClass.lpszClassName = kFrameClass;
        frameClass.lpfnWndProc = ::DefWindowProcW;
        frameClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        frameClass.hInstance = GetModuleHandleW(nullptr);
        RegisterClassW(&frameClass);
        const CRect frame(CPoint(40, 40), CSize(extent.width > 0 ? extent.width : 520,
                                                extent.height > 0 ? extent.height : 240));
        if (m_frame.CreateEx(0, kFrameClass, L"Reminders", WS_OVERLAPPEDWINDOW | WS_VISIBLE, frame, nullptr,
                             0) == FALSE)
        {
            throw std::runtime_error("no window");
        }
        CreateList();
    }
    ~ListExhibit() override { m_frame.DestroyWindow(); }

    [[nodiscard]] HWND GetWindow() const override { return m_frame.m_hWnd; }
    [[nodiscard]] CcvMfcRemindersListControl& List() { return m_list; }
    void TakeFocus(bool focused) { (focused ? m_list.SetFocus() : m_frame.SetFocus()); }

  private:
    void CreateList()
    {
        constexpr int kMargin = 11;
        constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDRAWFIXED |
                                 LVS_SINGLESEL | LVS_SHOWSELALWAYS;
        CRect area;
        m_frame.GetClientRect(&area);
        area.DeflateRect(kMargin, kMargin);
        const HWND window = CreateWindowExW(
            WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"", kStyle, area.left, area.top, area.Width(), area.Height(),
            m_frame.m_hWnd, std::bit_cast<HMENU>(UINT_PTR{kListId}), GetModuleHandleW(nullptr), nullptr);
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        m_font.CreateFontIndirect(&metrics.lfMessageFont);
        SendMessageW(window, WM_SETFONT, std::bit_cast<WPARAM>(m_font.GetHandle()), FALSE);
        m_list.SubclassWindow(window);
        m_list.InitializeColumns(kAllColumns);
        m_list.Refresh();
    }

    CcvReminderDataCollectionManager m_manager{false};
    CFont m_font;
    CWnd m_frame;
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
