#pragma once

#include "platform/mfc/afxdisp.h"

/// Raises a failed HRESULT, the one way in which the library does so: E_OUTOFMEMORY as CMemoryException,
/// every other code as COleException with that code.
[[noreturn]] TS_API void AtlThrow(HRESULT code);
