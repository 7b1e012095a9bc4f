#pragma once

#include "dialogs/TimePickerFields.h"
#include "platform/mfc/afxcmn.h"
#include "platform/mfc/afxwin.h"

/// An edit control that shows a time of day in the user's format and lets its parts be chosen, stepped and
/// typed over, with a pair of arrows at its right end. The date of its time stays as it was set.
class CcvTimePickerControl : public CEdit
{
  public:
    /// `locale` must outlive the control.
    explicit CcvTimePickerControl(
        const ts::TimePickerLocale& locale = ts::StartUpTimePickerLocale()) noexcept;
    CcvTimePickerControl(const CcvTimePickerControl&) = delete;
    CcvTimePickerControl& operator=(const CcvTimePickerControl&) = delete;
    ~CcvTimePickerControl() override;

    /// Takes over an edit control of the dialog and shows the present time. False when there is no such
    /// control.
    BOOL Attach(UINT editId, CWnd* parentDialog);

    void SetTime(const CTime& time);
    [[nodiscard]] CTime GetTime() const noexcept { return m_fields.GetTime(); }

  protected:
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnChar(UINT character, UINT repeats, UINT flags);
    void OnKeyDown(UINT key, UINT repeats, UINT flags);
    BOOL OnSetCursor(CWnd* window, UINT hitTest, UINT message);
    void OnPaint();
    void OnChange();
    void OnSpin(NMHDR* header, LRESULT* result);

    DECLARE_MESSAGE_MAP()

  private:
    void CreateSpin();
    void KeepTextLeftOf(int edge);
    void ShowText();
    void Step(bool up);
    [[nodiscard]] int CharacterUnder(CPoint point) const;
    [[nodiscard]] int LeftEdgeOf(int character) const;
    [[nodiscard]] std::optional<ts::TimePickerField> SelectedField() const;
    void Select(std::optional<ts::TimePickerField> field);

    CSpinButtonCtrl m_spin;
    ts::TimePickerFields m_fields;
};
