#include "dialogs/AddReminderLayout.h"

#include "platform/mfc/atltypes.h"
#include "resources/AddReminderControls.h"

#include <algorithm>

namespace
{

constexpr int kSection[] = {IDC_ADD_SECTION_LINE, IDC_ADD_DAILY,  IDC_ADD_WEEKLY,
                            IDC_ADD_MONTHLY,      IDC_ADD_YEARLY, IDC_ADD_PANE_LINE};
constexpr int kButtons[] = {IDC_ADD_TOGGLE_RECURRENCE, IDOK, IDCANCEL};

/// The margin of dialogs, in pixels; x across, y down.
CSize Margin(const CDialog& dialog)
{
    constexpr int kDialogUnits = 7;
    CRect margin(0, 0, kDialogUnits, kDialogUnits);
    dialog.MapDialogRect(margin);
    return margin.Size();
}

/// A control's place in the dialog's client area.
CRect PlaceOf(const CDialog& dialog, HWND control)
{
    CRect place;
    GetWindowRect(control, place);
    dialog.ScreenToClient(place);
    return place;
}

HWND Item(const CDialog& dialog, int id)
{
    return GetDlgItem(dialog.m_hWnd, id);
}

CRect PlaceOf(const CDialog& dialog, int id)
{
    return PlaceOf(dialog, Item(dialog, id));
}

/// The moves of several controls, done at once so that no state in between is seen.
class Moves
{
  public:
    explicit Moves(const CDialog& dialog) : m_dialog(dialog), m_moves(BeginDeferWindowPos(kExpected)) {}
    Moves(const Moves&) = delete;
    Moves& operator=(const Moves&) = delete;
    ~Moves() { EndDeferWindowPos(m_moves); }

    void Show(HWND control, bool shown)
    {
        Add(control, {}, SWP_NOMOVE | (shown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
    }
    /// Moves the control up or down.
    void PutAt(HWND control, int top) { Add(control, {PlaceOf(m_dialog, control).left, top}, 0); }

  private:
    static constexpr int kExpected = 14;

    void Add(HWND control, CPoint position, UINT flags)
    {
        m_moves = DeferWindowPos(m_moves, control, nullptr, position.x, position.y, 0, 0,
                                 flags | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    const CDialog& m_dialog;
    HDWP m_moves;
};

CRect WorkAreaOf(const CDialog& dialog)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(dialog.m_hWnd, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

/// Makes the client area end at `bottom`. The title bar stays on the screen whatever else does not fit.
void SetClientBottom(CDialog& dialog, int bottom)
{
    CRect client;
    dialog.GetClientRect(client);
    CRect window;
    dialog.GetWindowRect(window);
    const int height = window.Height() + bottom - client.Height();
    const CRect area = WorkAreaOf(dialog);
    const bool fits = window.top + height <= area.bottom;
    const int top = fits ? window.top : std::max<int>(area.top, area.bottom - height);
    dialog.SetWindowPos(nullptr, window.left, top, window.Width(), height, SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Where the last of the fields ends. The section is as high as its highest pane, so that the dialog keeps
/// its size when another pane is chosen.
int EndOfFields(const CDialog& dialog, std::span<const HWND> panes, bool sectionShown)
{
    if (!sectionShown)
    {
        return PlaceOf(dialog, IDC_ADD_LEAD_TIME).bottom;
    }
    int end = PlaceOf(dialog, IDC_ADD_PANE_LINE).bottom;
    for (const HWND pane : panes)
    {
        end = std::max<int>(end, PlaceOf(dialog, pane).bottom);
    }
    return end;
}

} // namespace

void ts::PlacePane(const CDialog& dialog, const CWnd& pane)
{
    const CRect line = PlaceOf(dialog, IDC_ADD_PANE_LINE);
    SetWindowPos(pane.m_hWnd, Item(dialog, IDC_ADD_PANE_LINE), line.right + Margin(dialog).cx, line.top, 0, 0,
                 SWP_NOSIZE | SWP_NOACTIVATE);
}

void ts::LayOutAddReminder(CDialog& dialog, std::span<const HWND> panes, HWND shownPane)
{
    const bool sectionShown = shownPane != nullptr;
    const int margin = Margin(dialog).cy;
    const int line = EndOfFields(dialog, panes, sectionShown) + margin;
    const int buttons = line + PlaceOf(dialog, IDC_ADD_BUTTONS_LINE).Height() + margin;
    {
        Moves moves(dialog);
        for (const int id : kSection)
        {
            moves.Show(Item(dialog, id), sectionShown);
        }
        for (const HWND pane : panes)
        {
            moves.Show(pane, pane == shownPane);
        }
        moves.PutAt(Item(dialog, IDC_ADD_BUTTONS_LINE), line);
        for (const int id : kButtons)
        {
            moves.PutAt(Item(dialog, id), buttons);
        }
    }
    SetClientBottom(dialog, buttons + PlaceOf(dialog, IDOK).Height() + margin);
}
