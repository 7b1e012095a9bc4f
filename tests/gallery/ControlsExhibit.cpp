#include "dialogs/CcvStaticImage.h"
#include "dialogs/CcvTimePickerControl.h"
#include "module/ResourceScope.h"
#include "resources/PictureIds.h"
#include "tests/gallery/Exhibit.h"
#include "tests/gallery/Frame.h"

#include <array>

namespace ts::gallery
{
namespace
{

/// The time picker and the picture control, with a bitmap and with icons of each size.
class ControlsExhibit : public Exhibit
{
  public:
    explicit ControlsExhibit(Extent extent) : m_frame(L"Controls", extent, CSize(300, 130))
    {
        CreatePicker();
        const ResourceScope scope;
        m_recurrence.LoadBitmap(IDB_RECURRENCE);
        CreateImage(m_images[0], CSize(16, 16));
        m_images[0].SetImageBitmap(m_recurrence.GetHandle());
        HICON const icon = LoadIconW(AfxGetResourceHandle(), MAKEINTRESOURCEW(IDI_REMINDER));
        for (std::size_t index = 1; index < m_images.size(); ++index)
        {
            constexpr std::array kSides = {0, 16, 32, 48};
            CreateImage(m_images[index], CSize(kSides[index], kSides[index]));
            m_images[index].SetImageIcon(icon);
        }
        m_picker.SetFocus();
        m_picker.SendMessage(WM_KEYDOWN, VK_LEFT);
    }
    ~ControlsExhibit() override { m_frame.DestroyWindow(); }

    [[nodiscard]] HWND GetWindow() const override { return m_frame.m_hWnd; }

  private:
    const int m_margin = Scaled(11);

    void CreatePicker()
    {
        constexpr UINT kPickerId = 1003;
        const CRect area(CPoint(m_margin, m_margin), CSize(Scaled(110), Scaled(22)));
        CEdit edit;
        edit.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER, area, &m_frame, kPickerId);
        edit.SetFont(&m_frame.Font());
        edit.UnsubclassWindow();
        m_picker.Attach(kPickerId, &m_frame);
        m_picker.SetTime(CTime(2026, 11, 26, 16, 45, 0));
    }

    void CreateImage(CcvStaticImage& image, CSize size)
    {
        image.Create(L"", WS_CHILD | WS_VISIBLE | SS_OWNERDRAW, CRect(CPoint(m_left, Scaled(44)), size),
                     &m_frame);
        m_left += size.cx + m_margin;
    }

    Frame m_frame;
    CcvTimePickerControl m_picker;
    CBitmap m_recurrence;
    std::array<CcvStaticImage, 4> m_images;
    int m_left = m_margin;
};

} // namespace

std::unique_ptr<Exhibit> MakeControlsExhibit(Extent extent)
{
    return std::make_unique<ControlsExhibit>(extent);
}

} // namespace ts::gallery
