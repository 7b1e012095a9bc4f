#pragma once

#include "platform/mfc/afxwin.h"

/// The library's application object. One instance lives as long as the library is loaded.
class CTsServiceUtilitiesApp : public CWinApp
{
};
