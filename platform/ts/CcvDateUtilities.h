#pragma once

#include "platform/mfc/afxstr.h"
#include "platform/mfc/atltime.h"

/// Dates and times as the user's locale writes them. A time that has no local date gives an empty text.
class CcvDateUtilities
{
  public:
    static CString ShortDateString(const CTime& time);
    /// Hours and minutes.
    static CString ShortTimeString(const CTime& time);
    static CString LongDateString(const CTime& time);
};
