#pragma once

// Numbers of the program's resources, commands and controls. They are macros because the resource compiler
// reads them too.

#define IDI_TESSALY 1
#define IDM_MAIN 100
#define IDD_TOPIC 110

// Commands of the menu, the accelerators and the buttons.
#define ID_REMINDER_ADD 200
#define ID_REMINDER_EDIT 201
#define ID_REMINDER_DELETE 202
#define ID_REMINDER_MANAGE 203
#define ID_VIEW_REFRESH 204
#define ID_APP_EXIT 205
#define ID_APP_ABOUT 206

// Controls of the main window.
#define IDC_LIST_LABEL 300
#define IDC_REMINDER_LIST 301
#define IDC_EMPTY_HINT 302
#define IDC_STATUS_BAR 303

// Controls of the dialog in which a topic is chosen.
#define IDC_TOPIC_LABEL 310
#define IDC_TOPIC_LIST 311
#define IDC_TOPIC_HINT 312

// Texts.
#define IDS_APPLICATION 1
#define IDS_LIST_LABEL 2
#define IDS_LIST_NAME 3
#define IDS_EMPTY_HINT 4
#define IDS_COLUMN_SUBJECT 5
#define IDS_COLUMN_TOPIC 6
#define IDS_COLUMN_MAP 7
#define IDS_COLUMN_DUE 8
#define IDS_COLUMN_DUE_IN 9
#define IDS_BUTTON_ADD 10
#define IDS_BUTTON_EDIT 11
#define IDS_BUTTON_DELETE 12
#define IDS_BUTTON_MANAGE 13
#define IDS_NO_DUE_TIME 14
#define IDS_STATUS_NONE 15
#define IDS_STATUS_ONE 16
#define IDS_STATUS_MANY 17
#define IDS_STATUS_DUE 18
#define IDS_NOT_SAVED 19
#define IDS_GONE 20
#define IDS_NO_DUE_DATE 21
#define IDS_NOT_DELETED 22
#define IDS_ABOUT 23
#define IDS_DIALOG_FAILED 24
#define IDS_COLUMN_REMINDER 25
#define IDS_HAS_REMINDER 26
