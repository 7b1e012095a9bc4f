#include "dialogs/DialogLayout.h"

#include <algorithm>

namespace
{

bool Has(ts::Follow follow, ts::Follow way) noexcept
{
    return (static_cast<unsigned>(follow) & static_cast<unsigned>(way)) != 0;
}

} // namespace

void ts::DialogLayout::Start(CWnd& dialog)
{
    m_dialog = &dialog;
    m_items.clear();
    CRect client;
    dialog.GetClientRect(&client);
    m_client = client.Size();
    CRect window;
    dialog.GetWindowRect(&window);
    m_smallest = window.Size();
}

void ts::DialogLayout::Add(int controlId, Follow follow)
{
    const HWND control = ::GetDlgItem(m_dialog->m_hWnd, controlId);
    CRect place;
    ::GetWindowRect(control, &place);
    m_dialog->ScreenToClient(&place);
    m_items.push_back({control, place, follow});
}

void ts::DialogLayout::Reset() noexcept
{
    m_dialog = nullptr;
    m_items.clear();
}

CRect ts::DialogLayout::PlaceOf(const Item& item, CSize growth) noexcept
{
    const bool moves = Has(item.follow, Follow::MoveRight);
    const bool sinks = Has(item.follow, Follow::MoveDown);
    CRect place = item.place;
    place.left += moves ? growth.cx : 0;
    place.right += moves || Has(item.follow, Follow::GrowRight) ? growth.cx : 0;
    place.top += sinks ? growth.cy : 0;
    place.bottom += sinks || Has(item.follow, Follow::GrowDown) ? growth.cy : 0;
    return place;
}

void ts::DialogLayout::Arrange() const
{
    if (m_dialog == nullptr)
    {
        return;
    }
    CRect client;
    m_dialog->GetClientRect(&client);
    const CSize growth(std::max<int>(client.Width() - m_client.cx, 0),
                       std::max<int>(client.Height() - m_client.cy, 0));
    for (const Item& item : m_items)
    {
        const CRect place = PlaceOf(item, growth);
        ::SetWindowPos(item.control, nullptr, place.left, place.top, place.Width(), place.Height(),
                       SWP_NOZORDER | SWP_NOACTIVATE);
    }
    m_dialog->Invalidate();
}

void ts::DialogLayout::LimitSize(MINMAXINFO& limits) const noexcept
{
    if (m_dialog != nullptr)
    {
        limits.ptMinTrackSize = {m_smallest.cx, m_smallest.cy};
    }
}
