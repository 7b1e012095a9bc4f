#include "platform/ts/CcvPathUtilities.h"

CString CcvPathUtilities::AppendToPath(const CString& base, const CString& part)
{
    if (base.IsEmpty() || part.IsEmpty())
    {
        return base + part;
    }
    CString joined(base);
    const bool baseEnds = base[base.GetLength() - 1] == L'\\';
    const bool partStarts = part[0] == L'\\';
    if (!baseEnds && !partStarts)
    {
        joined += L'\\';
    }
    joined += baseEnds && partStarts ? part.GetString() + 1 : part.GetString();
    return joined;
}
