#include "platform/ts/CcvStringUtilities.h"

CString CcvStringUtilities::RemoveCRLF(const CString& text)
{
    CString line(text);
    line.Remove(L'\r');
    line.Remove(L'\n');
    return line;
}
