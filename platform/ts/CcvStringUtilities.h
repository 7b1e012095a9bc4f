#pragma once

#include "platform/mfc/afxstr.h"

class CcvStringUtilities
{
  public:
    /// `text` without its carriage-return and line-feed characters.
    static CString RemoveCRLF(const CString& text);
};
