#pragma once

#include "platform/mfc/CDialog.h"

/// Base of the maker's dialogs. What it looks like is the system's matter; OnOK, OnCancel and OnSysCommand
/// are those of every dialog.
class TS_API CBCGPDialog : public CDialog
{
    DECLARE_DYNAMIC(CBCGPDialog)

  public:
    explicit CBCGPDialog(UINT templateId, CWnd* parent = nullptr) noexcept : CDialog(templateId, parent) {}
};
