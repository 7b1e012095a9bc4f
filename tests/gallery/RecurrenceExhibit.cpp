#include "dialogs/CcvMfcDeleteRecurrenceConfirmationDialog.h"
#include "dialogs/CcvMfcRecurrenceDailyDialog.h"
#include "dialogs/CcvMfcRecurrenceMonthlyDialog.h"
#include "dialogs/CcvMfcRecurrenceWeeklyDialog.h"
#include "dialogs/CcvMfcRecurrenceYearlyDialog.h"
#include "module/ResourceScope.h"
#include "resources/RecurrenceControls.h"
#include "tests/gallery/Exhibit.h"
#include "tests/gallery/Frame.h"

#include <stdexcept>

namespace ts::gallery
{
namespace
{

constexpr wchar_t kFrameClass[] = L"GalleryPaneFrame";

/// A pane in a window of its own.
template <typename Pane>
class PaneExhibit : public Exhibit
{
  public:
    explicit PaneExhibit(UINT templateId)
    {
        WNDCLASSW frameClass{};
        frameClass.lpszClassName = kFrameClass;
        frameClass.lpfnWndProc = ::DefWindowProcW;
        frameClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        frameClass.hInstance = GetModuleHandleW(nullptr);
        RegisterClassW(&frameClass);
        const ResourceScope scope;
        if (m_frame.CreateEx(0, kFrameClass, L"Pane", WS_OVERLAPPED | WS_CAPTION, CRect(40, 40, 400, 400),
                             nullptr, 0) == FALSE ||
            m_pane.Create(templateId, &m_frame) == FALSE)
        {
            throw std::runtime_error("no window");
        }
        Fit();
    }
    ~PaneExhibit() override { m_frame.DestroyWindow(); }

    [[nodiscard]] HWND GetWindow() const override { return m_frame.m_hWnd; }

  private:
    void Fit()
    {
        CRect pane;
        m_pane.GetWindowRect(&pane);
        const int margin = Scaled(11);
        CRect frame(0, 0, pane.Width() + 2 * margin, pane.Height() + 2 * margin);
        AdjustWindowRect(&frame, m_frame.GetStyle(), FALSE);
        m_frame.SetWindowPos(nullptr, 0, 0, frame.Width(), frame.Height(), SWP_NOMOVE | SWP_NOZORDER);
        m_pane.SetWindowPos(nullptr, margin, margin, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        m_pane.ShowWindow(SW_SHOW);
        m_frame.ShowWindow(SW_SHOW);
    }

    CWnd m_frame;
    Pane m_pane;
};

class DeleteExhibit : public Exhibit
{
  public:
    DeleteExhibit()
    {
        const ResourceScope scope;
        if (m_dialog.Create(IDD_DELETE_RECURRENCE, nullptr) == FALSE)
        {
            throw std::runtime_error("no window");
        }
        m_dialog.ShowWindow(SW_SHOW);
    }
    ~DeleteExhibit() override { m_dialog.DestroyWindow(); }

    [[nodiscard]] HWND GetWindow() const override { return m_dialog.m_hWnd; }

  private:
    CcvMfcDeleteRecurrenceConfirmationDialog m_dialog;
};

} // namespace

std::unique_ptr<Exhibit> MakeDailyExhibit(Extent)
{
    return std::make_unique<PaneExhibit<CcvMfcRecurrenceDailyDialog>>(IDD_RECURRENCE_DAILY);
}

std::unique_ptr<Exhibit> MakeWeeklyExhibit(Extent)
{
    return std::make_unique<PaneExhibit<CcvMfcRecurrenceWeeklyDialog>>(IDD_RECURRENCE_WEEKLY);
}

std::unique_ptr<Exhibit> MakeMonthlyExhibit(Extent)
{
    return std::make_unique<PaneExhibit<CcvMfcRecurrenceMonthlyDialog>>(IDD_RECURRENCE_MONTHLY);
}

std::unique_ptr<Exhibit> MakeYearlyExhibit(Extent)
{
    return std::make_unique<PaneExhibit<CcvMfcRecurrenceYearlyDialog>>(IDD_RECURRENCE_YEARLY);
}

std::unique_ptr<Exhibit> MakeDeleteExhibit(Extent)
{
    return std::make_unique<DeleteExhibit>();
}

} // namespace ts::gallery
