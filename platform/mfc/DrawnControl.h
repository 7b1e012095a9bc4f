#pragma once

#include "platform/mfc/CWnd.h"

namespace ts
{

/// A control that its owner lets draw itself.
class TS_API DrawnControl : public CWnd
{
  public:
    /// Draws the control, or one item of it, where its style or format says that the owner does so.
    virtual void DrawItem(DRAWITEMSTRUCT* item);

  protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};

} // namespace ts
