#pragma once

#include "platform/mfc/afxstr.h"

/// Path arithmetic for files and registry keys.
class CcvPathUtilities
{
  public:
    /// `base` and `part` joined with exactly one backslash; the other one where either is empty.
    static CString AppendToPath(const CString& base, const CString& part);
};
