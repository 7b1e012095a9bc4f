#include "platform/mfc/atlexcept.h"

void AtlThrow(HRESULT code)
{
    if (code == E_OUTOFMEMORY)
    {
        AfxThrowMemoryException();
    }
    AfxThrowOleException(code);
}
