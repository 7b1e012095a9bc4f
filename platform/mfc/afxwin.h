#pragma once

// Windows, dialogs, the basic controls and drawing, and the module's own objects.
#include "platform/mfc/BasicControls.h"
#include "platform/mfc/CDC.h"
#include "platform/mfc/CDialog.h"
#include "platform/mfc/CGdiObject.h"
#include "platform/mfc/CMenu.h"
#include "platform/mfc/CWinApp.h"
#include "platform/mfc/CWinThread.h"
#include "platform/mfc/CWnd.h"
#include "platform/mfc/afxdd_.h"
#include "platform/mfc/atltypes.h"
