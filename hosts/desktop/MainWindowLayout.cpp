#include "MainWindow.h"
#include "ResourceIds.h"
#include "Texts.h"

#include <algorithm>
#include <bit>
#include <stdexcept>
#include <string_view>

// The children of the main window and their places. Distances are the system's own for dialogs.

namespace ts::desktop
{
namespace
{

constexpr int kMargin = 7;
constexpr int kGap = 4;
constexpr int kLabelHeight = 8;
constexpr int kLabelDistance = 3;
constexpr SIZE kButton = {50, 14};
constexpr int kButtonPadding = 12;

constexpr SIZE kStartSize = {500, 270};
constexpr SIZE kSmallestSize = {260, 130};

/// The screen with a font selected.
class ScreenWithFont
{
  public:
    explicit ScreenWithFont(HFONT font) : m_screen(GetDC(nullptr)), m_former(SelectObject(m_screen, font)) {}
    ScreenWithFont(const ScreenWithFont&) = delete;
    ScreenWithFont& operator=(const ScreenWithFont&) = delete;
    ~ScreenWithFont()
    {
        SelectObject(m_screen, m_former);
        ReleaseDC(nullptr, m_screen);
    }

    [[nodiscard]] SIZE Measure(std::wstring_view text) const
    {
        SIZE size{};
        GetTextExtentPoint32W(m_screen, text.data(), static_cast<int>(text.size()), &size);
        return size;
    }

  private:
    HDC m_screen;
    HGDIOBJ m_former;
};

void Require(BOOL created)
{
    if (created == FALSE)
    {
        throw std::runtime_error("a control of the main window cannot be made");
    }
}

RECT At(int left, int top, int width, int height)
{
    return {left, top, left + width, top + height};
}

} // namespace

void MainWindow::CreateChildren()
{
    // In the order of the Tab key; the label's mnemonic is the list's.
    Require(
        m_label.Create(Text(IDS_LIST_LABEL).c_str(), WS_CHILD | WS_VISIBLE, RECT{}, this, IDC_LIST_LABEL));
    Require(m_list.CreateIn(*this, IDC_REMINDER_LIST) ? TRUE : FALSE);
    CreateButton(m_addButton, ID_REMINDER_ADD, IDS_BUTTON_ADD);
    CreateButton(m_editButton, ID_REMINDER_EDIT, IDS_BUTTON_EDIT);
    CreateButton(m_deleteButton, ID_REMINDER_DELETE, IDS_BUTTON_DELETE);
    CreateButton(m_manageButton, ID_REMINDER_MANAGE, IDS_BUTTON_MANAGE);
    Require(m_hint.Create(Text(IDS_EMPTY_HINT).c_str(), WS_CHILD | SS_CENTER, RECT{}, this, IDC_EMPTY_HINT));
    m_hint.SetWindowPos(HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    Require(m_statusBar.Create(STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, RECT{}, this,
                               IDC_STATUS_BAR));
    UseSystemFont();
}

void MainWindow::CreateButton(CButton& button, UINT command, UINT textId)
{
    Require(button.Create(Text(textId).c_str(), WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, RECT{},
                          this, command));
}

void MainWindow::UseSystemFont()
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    CFont font;
    font.CreateFontIndirect(&metrics.lfMessageFont);
    for (CWnd* const child : {static_cast<CWnd*>(&m_label), static_cast<CWnd*>(&m_addButton),
                              static_cast<CWnd*>(&m_editButton), static_cast<CWnd*>(&m_deleteButton),
                              static_cast<CWnd*>(&m_manageButton), static_cast<CWnd*>(&m_hint), &m_statusBar})
    {
        child->SetFont(&font);
    }
    m_list.UseFont(font);
    // The former one is in use no longer.
    m_font = std::move(font);
    constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const SIZE size = ScreenWithFont(m_font.GetHandle()).Measure(kLetters);
    m_unit = {(size.cx / 26 + 1) / 2, size.cy};
}

/// In the middle of the work area, and never larger than that.
void MainWindow::PlaceAtStart()
{
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const int width = std::min<int>(Across(kStartSize.cx), area.right - area.left);
    const int height = std::min<int>(Down(kStartSize.cy), area.bottom - area.top);
    SetWindowPos(nullptr, area.left + (area.right - area.left - width) / 2,
                 area.top + (area.bottom - area.top - height) / 2, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    Arrange();
}

SIZE MainWindow::ButtonSize() const
{
    const ScreenWithFont screen(m_font.GetHandle());
    SIZE size = {Across(kButton.cx), Down(kButton.cy)};
    for (const int text : {IDS_BUTTON_ADD, IDS_BUTTON_EDIT, IDS_BUTTON_DELETE, IDS_BUTTON_MANAGE})
    {
        size.cx = std::max<LONG>(size.cx,
                                 screen.Measure(Text(static_cast<UINT>(text))).cx + Across(kButtonPadding));
    }
    return size;
}

void MainWindow::Arrange()
{
    m_statusBar.SendMessage(WM_SIZE);
    RECT client;
    GetClientRect(&client);
    RECT status;
    m_statusBar.GetWindowRect(&status);
    const int bottom = client.bottom - (status.bottom - status.top) - Down(kMargin);
    const int left = Across(kMargin);
    const int width = std::max<int>(client.right - 2 * left, 0);
    const SIZE button = ButtonSize();
    const int buttonTop = bottom - button.cy;
    const int step = button.cx + Across(kGap);
    m_label.MoveWindow(At(left, Down(kMargin), width, Down(kLabelHeight)));
    const int listTop = Down(kMargin + kLabelHeight + kLabelDistance);
    const RECT list = At(left, listTop, width, std::max(buttonTop - Down(kMargin) - listTop, 0));
    m_list.MoveWindow(list);
    m_list.FitColumns();
    const int hintTop = listTop + (list.bottom - listTop) / 2 - Down(kLabelHeight);
    m_hint.MoveWindow(
        At(left + Across(kMargin), hintTop, width - 2 * Across(kMargin), Down(2 * kLabelHeight)));
    m_addButton.MoveWindow(At(left, buttonTop, button.cx, button.cy));
    m_editButton.MoveWindow(At(left + step, buttonTop, button.cx, button.cy));
    m_deleteButton.MoveWindow(At(left + 2 * step, buttonTop, button.cx, button.cy));
    m_manageButton.MoveWindow(At(left + width - button.cx, buttonTop, button.cx, button.cy));
}

void MainWindow::OnSize(UINT type, int width, int height)
{
    CWnd::OnSize(type, width, height);
    if (type != SIZE_MINIMIZED && m_statusBar.m_hWnd != nullptr)
    {
        Arrange();
    }
}

LRESULT MainWindow::OnMinimumSize(WPARAM, LPARAM lParam)
{
    auto& limits = *std::bit_cast<MINMAXINFO*>(lParam);
    limits.ptMinTrackSize = {Across(kSmallestSize.cx), Down(kSmallestSize.cy)};
    return 0;
}

/// The hint lies on the list.
LRESULT MainWindow::OnStaticColour(WPARAM wParam, LPARAM lParam)
{
    if (std::bit_cast<HWND>(lParam) != m_hint.m_hWnd)
    {
        return Default();
    }
    auto* const dc = std::bit_cast<HDC>(wParam);
    SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
    SetBkColor(dc, GetSysColor(COLOR_WINDOW));
    return std::bit_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
}

} // namespace ts::desktop
