#pragma once

// Numbers of the dialogs in TestDialogs.rc and of their controls. Macros, because the resource compiler reads
// them too.
#define IDD_CONTROLS 200
#define IDD_PLAIN 201
#define IDD_INNER 202

#define IDC_TEXT 1001
#define IDC_NUMBER 1002
#define IDC_CHECK 1003
#define IDC_RADIO_1 1004
#define IDC_RADIO_2 1005
#define IDC_RADIO_3 1006
#define IDC_COMBO 1007
#define IDC_DATE 1008
#define IDC_DRAWN 1009
#define IDC_LIST 1010
#define IDC_PUSH 1012
