#pragma once

#include "platform/mfc/afxstr.h"

class CcvStringUtilities
{
  public:
    /// `text` without its carriage-return and line-feed characters.
    static CString RemoveCRLF(const CString& text);

    /// Makes a plain text safe inside the mark-up of a tooltip, in place: the characters of the mark-up
    /// become character references, control characters and halves of surrogate pairs become replacement
    /// characters.
    static void FixInvalidUnformattedTooltipCharacters(CString& text);
};
