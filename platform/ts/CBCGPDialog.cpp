#include "platform/ts/CBCGPDialog.h"

IMPLEMENT_DYNAMIC(CBCGPDialog, CDialog)
