#pragma once

// Numbers of the add-reminder dialog and of its controls. They are macros because the resource compiler reads them
// too.

#define IDD_ADD_REMINDER 4296

#define IDC_ADD_SUBJECT 1001
#define IDC_ADD_DATE 1002
#define IDC_ADD_TIME 1003
#define IDC_ADD_LEAD_TIME 1004

// The recurrence section: lines above it and between its buttons and its pane.
#define IDC_ADD_SECTION_LINE 9000
#define IDC_ADD_DAILY 1068 // first of four radio buttons
#define IDC_ADD_WEEKLY 1007
#define IDC_ADD_MONTHLY 1008
#define IDC_ADD_YEARLY 1009
#define IDC_ADD_PANE_LINE 1052

// Below the section, or in its place.
#define IDC_ADD_BUTTONS_LINE 9001
#define IDC_ADD_TOGGLE_RECURRENCE 1064 // button

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif
